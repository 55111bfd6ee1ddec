#pragma once
// The reference the name readers are measured against: every record of a face's name
// table fetched through FreeType.
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_SFNT_NAMES_H

#include <benchmark/benchmark.h>

// Fetches every name record of the face; returns how many FreeType gave.
inline long long freeTypeNameRecords(FT_Face face)
{
    long long names = 0;
    const FT_UInt records = FT_Get_Sfnt_Name_Count(face);
    for (FT_UInt i = 0; i < records; ++i) {
        FT_SfntName name;
        if (FT_Get_Sfnt_Name(face, i, &name) == 0) {
            benchmark::DoNotOptimize(name.string);
            ++names;
        }
    }
    return names;
}
