// The one place where the font-file windows ask fontconfig and FreeType: the family a
// file would be listed under, the file a family and style resolve to, and what a
// face's OS/2 table and character maps say.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <cstdint>
#include <optional>

namespace FontSystem {

// fontconfig's first family name for the file (relative paths are taken from the
// current folder). Nothing is registered; empty for anything that is not a font, and
// for anything but a regular file of at most BoundedFile::FontLimit bytes.
QString familyOfFile(const QString& path);

// What fontconfig reads in a font file held in memory, one entry per pattern: every
// face of a collection and, for a variable font, its named instances and then the
// variable font itself (no style). The family and style are each pattern's first ones.
// Unlike fontconfig's file scan, a named instance equal to the default is kept.
struct FaceNames {
    QString family;
    QString style;
};
QList<FaceNames> facesOfData(const QByteArray& bytes);

struct FaceFile {
    QString path;
    int index = 0;
};
// The face fontconfig matches for a family, weight and slant.
std::optional<FaceFile> matchedFace(const QString& family, bool bold, bool italic);

struct CharacterInfo {
    bool symbolCmap = false;        // a Microsoft symbol character map (3, 0)
    std::uint32_t codePageRange1 = 0; // OS/2 ulCodePageRange1; 0 when absent
    int defaultChar = 0;            // OS/2 usDefaultChar (version 2 on), else 0
    int firstChar = 0;              // OS/2 usFirstCharIndex, else the first mapped code
    int lastChar = 0;               // OS/2 usLastCharIndex, else the last mapped code
};
// Read through FreeType; nullopt when the face cannot be opened.
std::optional<CharacterInfo> characterInfo(const FaceFile& face);

} // namespace FontSystem
