// TypoWords: the French words for what a font's tables hold in numbers and tags:
// embedding permissions, weight and width classes, slant, PANOSE, file formats,
// OpenType features, variation axes, Unicode ranges and code pages.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <array>
#include <optional>

namespace TypoWords {

// OS/2 fsType: "Installable" when none of the usage bits 1 to 3 is set, then one word
// per bit set among 1, 2, 3, 8 and 9 (older fonts may set several usage bits).
QStringList fsTypeWords(quint16 fsType);

// usWeightClass and usWidthClass: the name of the nearest class, empty outside 1..1000 / 1..9.
QString weightWord(double weightClass);
QString widthWord(int widthClass);
// fontconfig's width in per cent (50 ultra-condensed .. 200 ultra-expanded) as a class 1..9.
int widthClassOfPercent(double percent);
// fontconfig's slant: 0 roman, 100 italic, 110 oblique.
QString slantWord(int slant);

// PANOSE digits 0 (family kind), 1 (serif style) and 3 (proportion). The last two
// mean something only for Latin text faces (family kind 2): empty for the others.
QString panoseFamilyWord(int digit);
QString panoseSerifWord(int familyKind, int digit);
QString panoseProportionWord(int familyKind, int digit);

// A file format in words. `container` is FreeType's or fontconfig's word
// (TrueType, CFF, Type 1, CID Type 1, BDF, PCF, Windows FNT, ...).
struct FormatFacts {
    QString container;
    bool cff2 = false;
    bool outlines = true;     // false: bitmap strikes only
    bool collection = false;
    bool variable = false;
    QString wrapper;          // "WOFF" or "WOFF2" for a web font
};
QString formatWords(const FormatFacts& facts);

// The French name of a registered feature tag ("liga" "Ligatures standard", ss01..ss20
// "Jeu stylistique 1".."20", cv01..cv99 "Variante de caractère 1".."99"); empty if unknown.
QString featureName(const QByteArray& tag);
// Features HarfBuzz applies to horizontal text unless told otherwise.
bool featureOnByDefault(const QByteArray& tag);

// The French name of a registered variation axis ("wght" "Graisse", ...); empty otherwise.
QString axisName(const QByteArray& tag);

// OS/2 ulUnicodeRange bits 0..122 and ulCodePageRange bits 0..63; empty for reserved bits.
QString unicodeRangeWord(int bit);
QString codePageWord(int bit);
QStringList unicodeRangeWords(const std::array<quint32, 4>& ranges);
QStringList codePageWords(const std::array<quint32, 2>& ranges);

} // namespace TypoWords
