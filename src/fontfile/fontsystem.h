// Where the font-file windows and the Unicode table ask fontconfig and FreeType: the
// family a file would be listed under, the file a family and style resolve to, the faces
// of a family, and what a face's OS/2 table and character maps say. The details window
// reads a face's tables in facetables.cpp and draws samples in samplerenderer.cpp, the
// two other such places.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace FontSystem {

// fontconfig's first family name for the file (relative paths are taken from the
// current folder). Nothing is registered; empty for anything that is not a font, and
// for anything but a regular file of at most BoundedFile::FontLimit bytes.
QString familyOfFile(const QString& path);
// The first family name of each face of a font file (every face of a collection), or of
// a font held in memory; at most `maxFaces` faces are read.
QStringList familiesOfFile(const QString& path, int maxFaces);
QStringList familiesOfData(const QByteArray& font, int maxFaces);

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

// What a family's regular face holds, as fontconfig knows it: the characters it maps
// and the languages it covers.
struct Coverage {
    std::vector<std::pair<char32_t, char32_t>> ranges; // sorted, inclusive
    QStringList languages;                             // fontconfig's, as "lo", "zh-cn"
    bool contains(char32_t code) const;
    // The first `count` characters that are drawn (no controls, no blanks).
    QString firstCharacters(int count) const;
};
// nullopt when no installed or registered face has exactly that family name.
std::optional<Coverage> coverage(const QString& family);

// As matchedFace, but only when the face fontconfig picks carries that family name
// (case-insensitively): nullopt rather than a substitute for an unknown family.
std::optional<FaceFile> familyFace(const QString& family, bool bold, bool italic);

// Every code point of the Unicode range (surrogates aside) that the face's Unicode
// character maps give a glyph, sorted and each once. A face without one is read
// through its symbol map (3, 0), whose U+F000..U+F0FF also stand for U+0000..U+00FF,
// as fontconfig reads them.
// Empty when the face cannot be opened.
std::vector<char32_t> mappedCodePoints(const FaceFile& face);

struct GlyphMetrics {
    unsigned glyphIndex = 0;
    long advance = 0;    // horizontal advance in font units
    int unitsPerEm = 0;
};
// The glyph the face's character maps give a code point, and its advance width;
// nullopt when the face cannot be opened or has no glyph for it.
std::optional<GlyphMetrics> glyphMetrics(const FaceFile& face, char32_t code);
// One face of a family as fontconfig lists it.
struct FamilyFace {
    QString style;                  // first style name
    std::optional<double> weight;   // OpenType weight class, for a face of one weight
    std::optional<double> weightMin, weightMax; // the weight axis of a variable face
    double width = 100;             // per cent of normal
    int slant = 0;                  // 0 roman, 100 italic, 110 oblique
    QString path;
    int index = 0;                  // face index; a named instance number in the high 16 bits
    QString fontFormat;             // fontconfig's word: TrueType, CFF, Type 1, PCF, ...
    bool scalable = true;
    bool variable = false;          // the whole design space of a variable font
    bool collection = false;        // the file is a TrueType/OpenType collection
    QString wrapper;                // "WOFF" or "WOFF2" for a web font, else empty
};
// "WOFF" or "WOFF2" for a file that starts with that format's tag, else empty.
QString wrapperOfTag(const QByteArray& tag);
// Every face fontconfig knows under that family name, in fontconfig's order.
QList<FamilyFace> familyFaces(const QString& family);

} // namespace FontSystem
