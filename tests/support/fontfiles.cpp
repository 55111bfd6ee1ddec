// Font files for tests: fontconfig's file list, and a BDF font written line by line.
#include "support/fontfiles.h"

#include <QFileInfo>
#include <QProcess>
#include <QStringList>

namespace FontFiles {

QString installed(const QString& fileName)
{
    static QStringList files;
    if (files.isEmpty()) {
        QProcess list;
        list.start(QStringLiteral("fc-list"), {QStringLiteral("--format"), QStringLiteral("%{file}\\n")});
        list.waitForFinished(30000);
        files = QString::fromLocal8Bit(list.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        files.sort(); // the same file whatever fontconfig's order
    }
    for (const QString& file : std::as_const(files))
        if (QFileInfo(file).fileName() == fileName)
            return file;
    return QString();
}

QByteArray bdf(const QString& family)
{
    QByteArray out = "STARTFONT 2.1\n"
                     "FONT -glyphora-test-medium-r-normal--16-160-72-72-c-80-iso10646-1\n"
                     "SIZE 16 72 72\n"
                     "FONTBOUNDINGBOX 8 16 0 -4\n"
                     "STARTPROPERTIES 5\n";
    out += "FAMILY_NAME \"" + family.toLatin1() + "\"\n";
    out += "FONT_ASCENT 12\nFONT_DESCENT 4\nDEFAULT_CHAR 32\nSPACING \"C\"\nENDPROPERTIES\nCHARS 3\n";
    auto glyph = [&](const char* name, int code, const QList<QByteArray>& rows) {
        out += QByteArray("STARTCHAR ") + name + "\nENCODING " + QByteArray::number(code)
             + "\nSWIDTH 500 0\nDWIDTH 8 0\nBBX 8 16 0 -4\nBITMAP\n";
        for (int i = 0; i < 16; ++i)
            out += (i < rows.size() ? rows[i] : QByteArray("00")) + "\n";
        out += "ENDCHAR\n";
    };
    glyph("space", 32, {});
    glyph("A", 65, {"00", "00", "18", "24", "42", "42", "42", "7E", "42", "42", "42", "42"});
    glyph("x", 120, {"00", "00", "00", "00", "00", "00", "42", "24", "18", "18", "24", "42"});
    out += "ENDFONT\n";
    return out;
}

} // namespace FontFiles
