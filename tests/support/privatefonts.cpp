// Private fontconfig configuration and hand-made fonts for the font list tests.
#include "support/privatefonts.h"

#include "support/sfntwriter.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

namespace PrivateFonts {

namespace {

QTemporaryDir* folder()
{
    static QTemporaryDir* dir = new QTemporaryDir(QDir::tempPath() + QStringLiteral("/glyphora-fonts-XXXXXX"));
    return dir;
}

QByteArray withClass(const QByteArray& font, quint16 familyClass)
{
    QByteArray os2 = Sfnt::tableOf(font, "OS/2");
    os2[30] = char(familyClass >> 8); // sFamilyClass
    os2[31] = char(familyClass & 0xFF);
    return Sfnt::withTable(font, "OS/2", os2);
}

// A symbol font: the Microsoft symbol character map (3, 0) is its only one, as in
// fonts of dingbats, so that no Unicode map is chosen instead.
QByteArray symbolFont(const QString& family)
{
    const QByteArray font = Sfnt::withSymbolCmap(Sfnt::drawable(Sfnt::familyNames(family)));
    QByteArray cmap = Sfnt::tableOf(font, "cmap");
    const int count = (quint8(cmap[2]) << 8) | quint8(cmap[3]);
    for (int i = 0; i < count; ++i) {
        const int record = 4 + 8 * i;
        if (cmap[record] == 0 && cmap[record + 1] == 3 && cmap[record + 2] == 0 && cmap[record + 3] == 0) {
            const QByteArray symbol = cmap.mid(record, 8);
            cmap.replace(4, 8, symbol);
            cmap[2] = 0;
            cmap[3] = 1; // numTables
            return Sfnt::withTable(font, "cmap", cmap);
        }
    }
    return QByteArray();
}

} // namespace

QString root() { return folder()->path(); }
QString userFontsFolder() { return root() + QStringLiteral("/data/fonts"); }
QString twoNameFamily() { return QStringLiteral("Glyphtest Kaku"); }
QString japaneseName() { return QStringLiteral("グリフテスト角"); }
QString accentedFamily() { return QStringLiteral("Éclat Test"); }
QString symbolFamily() { return QStringLiteral("Glyphtest Symbole"); }
QString serifFamily() { return QStringLiteral("Glyphtest Serif"); }
QString sansFamily() { return QStringLiteral("Glyphtest Sans"); }
QString scriptFamily() { return QStringLiteral("Glyphtest Script"); }
QString decorativeFamily() { return QStringLiteral("Glyphtest Deco"); }

QByteArray fontOf(const QString& family, quint16 familyClass)
{
    return withClass(Sfnt::drawable(Sfnt::familyNames(family)), familyClass);
}

bool prepare()
{
    QDir dir(root());
    dir.mkpath(QStringLiteral("fonts"));
    dir.mkpath(QStringLiteral("cache"));
    dir.mkpath(QStringLiteral("data"));
    const QString fonts = dir.filePath(QStringLiteral("fonts"));
    QList<Sfnt::Name> twoNames = Sfnt::familyNames(twoNameFamily());
    twoNames.append(Sfnt::microsoft(1, japaneseName(), 0x0411));
    const struct { QString file; QByteArray bytes; } files[] = {
        {QStringLiteral("kaku.ttf"), withClass(Sfnt::drawable(twoNames), 0x0800)},
        {QStringLiteral("eclat.ttf"), fontOf(accentedFamily(), 0x0800)},
        {QStringLiteral("symbole.ttf"), symbolFont(symbolFamily())},
        {QStringLiteral("serif.ttf"), fontOf(serifFamily(), 0x0100)},
        {QStringLiteral("sans.ttf"), fontOf(sansFamily(), 0x0800)},
        {QStringLiteral("script.ttf"), fontOf(scriptFamily(), 0x0A00)},
        {QStringLiteral("deco.ttf"), fontOf(decorativeFamily(), 0x0900)},
    };
    for (const auto& f : files) {
        if (f.bytes.isEmpty() || !Sfnt::writeFile(fonts + QLatin1Char('/') + f.file, f.bytes))
            return false;
    }
    const QString dejavu = QFileInfo(Sfnt::installedTrueTypeFile()).absolutePath();
    const QString conf = QStringLiteral(
        "<?xml version=\"1.0\"?>\n<!DOCTYPE fontconfig SYSTEM \"fonts.dtd\">\n<fontconfig>\n"
        "  <dir>%1</dir>\n  <dir>%2</dir>\n  <dir>%4</dir>\n  <cachedir>%3</cachedir>\n"
        "</fontconfig>\n").arg(fonts, dejavu, dir.filePath(QStringLiteral("cache")), userFontsFolder());
    if (!Sfnt::writeFile(dir.filePath(QStringLiteral("fonts.conf")), conf.toUtf8()))
        return false;
    qputenv("FONTCONFIG_FILE", dir.filePath(QStringLiteral("fonts.conf")).toLocal8Bit());
    qputenv("XDG_DATA_HOME", dir.filePath(QStringLiteral("data")).toLocal8Bit());
    return true;
}

QStringList fcFamilies(const QString& pattern)
{
    QProcess fc;
    QStringList args;
    if (!pattern.isEmpty())
        args << pattern;
    args << QStringLiteral("--format") << QStringLiteral("%{family[0]}\\n");
    fc.start(QStringLiteral("fc-list"), args);
    fc.waitForFinished(60000);
    QStringList names = QString::fromUtf8(fc.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    names.sort();
    names.removeDuplicates();
    return names;
}

} // namespace PrivateFonts
