// The logical-font record with the platform's field names, and how a font description
// and a rotation fill it. No drawing here: the record is plain data.
#pragma once

#include <QString>
#include <cstdint>

class StdFont;

struct LOGFONT {
    int32_t lfHeight = 0;
    int32_t lfWidth = 0;
    int32_t lfEscapement = 0;
    int32_t lfOrientation = 0;
    int32_t lfWeight = 0;
    uint8_t lfItalic = 0;
    uint8_t lfUnderline = 0;
    uint8_t lfStrikeOut = 0;
    uint8_t lfCharSet = 0;
    uint8_t lfOutPrecision = 0;
    uint8_t lfClipPrecision = 0;
    uint8_t lfQuality = 0;
    uint8_t lfPitchAndFamily = 0;
    char lfFaceName[32] = {};
};

namespace LogFontRecord {

inline constexpr uint8_t AnsiCharset = 0;
inline constexpr uint8_t OemCharset = 255;
inline constexpr uint8_t OutDefaultPrecis = 0;
inline constexpr uint8_t OutTtOnlyPrecis = 7;
inline constexpr uint8_t ProofQuality = 2;

// Character height for a size in points: -(points x pixelsPerInch / 72), the size taken
// exactly to four decimals and rounded once, halves to even.
int32_t HeightForPoints(double points, int pixelsPerInch);
// Tenths of a degree, rounded halves to even.
int32_t EscapementFor(float rotation);
// True unless the rotation rounded to whole degrees is a multiple of 360.
bool IsRotated(float rotation);
// The record for a font description at a rotation on a screen of pixelsPerInch.
LOGFONT Make(const StdFont& font, float rotation, int pixelsPerInch);
// The face name field: the name in Windows-1252, one NUL, blanks up to 32 bytes, cut at 32.
void FillFaceName(LOGFONT& record, const QString& faceName);
// The face name read back up to its terminator (all 32 bytes when there is none).
QString FaceName(const LOGFONT& record);

} // namespace LogFontRecord
