// FaceTables: what one face's file says about itself, read through FreeType's and
// HarfBuzz's table interfaces (name, OS/2, hhea, head, post, fvar, the GSUB and GPOS
// feature lists). Every field is optional: a face without a table leaves its fields empty.
#pragma once

#include <QDateTime>
#include <QList>
#include <QMap>
#include <QString>
#include <array>
#include <cstdint>
#include <optional>

namespace FaceTables {

// Name IDs shown by the details window.
enum NameId {
    Copyright = 0, Family = 1, Subfamily = 2, UniqueId = 3, FullName = 4, Version = 5, PostScriptName = 6,
    Trademark = 7, Manufacturer = 8, Designer = 9, Description = 10, VendorUrl = 11, DesignerUrl = 12,
    License = 13, LicenseUrl = 14, TypographicFamily = 16, TypographicSubfamily = 17,
};

struct Feature {
    QByteArray tag;        // four characters
    bool inGsub = false;
    bool inGpos = false;
    QString fontName;      // the font's own name for a stylistic set or character variant
};

struct Axis {
    QByteArray tag;
    QString fontName;      // the font's own name for the axis
    double minimum = 0, defaultValue = 0, maximum = 0;
    bool hidden = false;
};

struct Instance {
    QString name;
    QList<double> coordinates; // one per axis, in axis order
};

struct FaceData {
    bool opened = false;           // FreeType could open the face
    QString format;                // in words: TrueType, OpenType CFF, Type 1, bitmap, ...
    QString freeTypeFamily, freeTypeStyle;
    bool italic = false;

    QMap<int, QString> names;      // name ID -> French string, else English, else any
    std::optional<QString> vendorId;
    std::optional<quint16> fsType;
    std::optional<qint64> fileSize;
    QDateTime modified;

    std::optional<int> unitsPerEm;
    std::optional<int> hheaAscender, hheaDescender, hheaLineGap;
    std::optional<int> os2Version;
    std::optional<int> typoAscender, typoDescender, typoLineGap;
    std::optional<bool> useTypoMetrics;
    std::optional<int> winAscent, winDescent;
    std::optional<int> xHeight, capHeight;
    bool xHeightMeasured = false, capHeightMeasured = false; // from the glyphs "x" and "H"
    std::optional<int> underlinePosition, underlineThickness;
    std::optional<int> strikeoutPosition, strikeoutSize;
    std::optional<double> italicAngle;
    std::optional<int> weightClass, widthClass;
    std::optional<std::array<quint8, 10>> panose;
    std::optional<int> glyphCount;
    std::optional<std::array<quint32, 4>> unicodeRanges;
    std::optional<std::array<quint32, 2>> codePageRanges;

    QList<Feature> features;       // sorted by tag
    QList<Axis> axes;              // fvar order
    QList<Instance> instances;
    QList<double> coordinates;     // where the face sits on its axes as opened
};

// Reads the face `index` of `path` (a named instance number in the high 16 bits).
FaceData read(const QString& path, int index);

} // namespace FaceTables
