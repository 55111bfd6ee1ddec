// PdfCheck: pdftohtml, pdffonts and pdfinfo output read into plain values.
#include "support/pdfcheck.h"

#include "components/printer.h"
#include "support/testsupport.h"

#include <QDirIterator>
#include <QElapsedTimer>
#include <QMap>
#include <QUuid>
#include <QProcess>
#include <QRegularExpression>

namespace PdfCheck {

namespace {

QString runTool(const QString& program, const QStringList& args)
{
    QProcess tool;
    tool.start(program, args);
    tool.waitForFinished(120000);
    return QString::fromUtf8(tool.readAllStandardOutput());
}

QString withoutSubsetPrefix(QString name)
{
    static const QRegularExpression prefix(QStringLiteral("^[A-Z]{6}\\+"));
    return name.remove(prefix);
}

QString unescape(QString text)
{
    static const QRegularExpression tags(QStringLiteral("<[^>]*>"));
    text.remove(tags);
    text.replace(QStringLiteral("&#34;"), QStringLiteral("\"")).replace(QStringLiteral("&#39;"), QStringLiteral("'"));
    text.replace(QStringLiteral("&lt;"), QStringLiteral("<")).replace(QStringLiteral("&gt;"), QStringLiteral(">"));
    return text.replace(QStringLiteral("&amp;"), QStringLiteral("&"));
}

} // namespace

QList<Line> lines(const QString& pdf)
{
    const QString xml = runTool(QStringLiteral("pdftohtml"), {QStringLiteral("-xml"), QStringLiteral("-i"),
                                                               QStringLiteral("-stdout"), QStringLiteral("-q"), pdf});
    QMap<QString, QString> fontIds;
    static const QRegularExpression spec(QStringLiteral("<fontspec id=\"(\\d+)\"[^>]*family=\"([^\"]*)\""));
    for (auto it = spec.globalMatch(xml); it.hasNext();) {
        const auto m = it.next();
        fontIds.insert(m.captured(1), withoutSubsetPrefix(m.captured(2)));
    }
    QList<Line> found;
    static const QRegularExpression item(QStringLiteral("<page number=\"(\\d+)\"|<text [^>]*font=\"(\\d+)\"[^>]*>(.*)</text>"));
    int page = 0;
    for (auto it = item.globalMatch(xml); it.hasNext();) {
        const auto m = it.next();
        if (!m.captured(1).isEmpty()) {
            page = m.captured(1).toInt();
            continue;
        }
        const QString text = unescape(m.captured(3)).trimmed();
        if (!text.isEmpty())
            found.append({text, fontIds.value(m.captured(2)), page});
    }
    return found;
}

QStringList texts(const QList<Line>& lines)
{
    QStringList list;
    for (const Line& line : lines)
        list.append(line.text);
    return list;
}

QList<Font> fonts(const QString& pdf)
{
    // name, type (may hold blanks), encoding, emb, sub, uni, object, generation
    static const QRegularExpression row(
        QStringLiteral("^(\\S+)\\s+(.+?)\\s+(\\S+)\\s+(yes|no)\\s+(yes|no)\\s+(yes|no)\\s+\\d+\\s+\\d+\\s*$"),
        QRegularExpression::MultilineOption);
    QList<Font> list;
    for (auto it = row.globalMatch(runTool(QStringLiteral("pdffonts"), {pdf})); it.hasNext();) {
        const auto m = it.next();
        list.append({withoutSubsetPrefix(m.captured(1)), m.captured(2), m.captured(4) == QStringLiteral("yes")});
    }
    return list;
}

int pageCount(const QString& pdf)
{
    static const QRegularExpression pages(QStringLiteral("Pages:\\s+(\\d+)"));
    return pages.match(runTool(QStringLiteral("pdfinfo"), {pdf})).captured(1).toInt();
}

QString postScriptName(const QString& family)
{
    return runTool(QStringLiteral("fc-match"), {QStringLiteral("-f"), QStringLiteral("%{postscriptname}"), family}).trimmed();
}

bool sameFont(const QString& inPdf, const QString& postScript)
{
    return !inPdf.isEmpty() && (inPdf == postScript || postScript.startsWith(inPdf + QLatin1Char('-')));
}

QStringList queuedPdfs(const QDateTime& since, const QString& marker, int expected, int timeoutMs)
{
    QElapsedTimer clock;
    clock.start();
    // A run that named its jobs only reads its own files (the queue may be shared).
    const QString own = Printer::instance().documentName();
    const QString prefix = own == QStringLiteral("Glyphora") ? QString() : own;
    QStringList found;
    do {
        const bool queueEmpty = runTool(QStringLiteral("lpstat"), {QStringLiteral("-o")}).trimmed().isEmpty();
        if (queueEmpty) {
            found.clear();
            QDirIterator files(TestSupport::pdfOutputFolder(), {QStringLiteral("*.pdf")}, QDir::Files,
                               QDirIterator::Subdirectories);
            while (files.hasNext()) {
                const QFileInfo info(files.next());
                if (!info.fileName().startsWith(prefix))
                    continue;
                if (info.lastModified() >= since && info.size() > 0 && TestSupport::pdfText(info.filePath()).contains(marker))
                    found.append(info.filePath());
            }
            if (found.size() >= expected)
                return found;
        }
        QTest::qWait(200);
    } while (clock.elapsed() < timeoutMs);
    return found;
}

QString uniqueMarker()
{
    // Letters only: the printing pipeline has been seen to turn large digits into
    // nameless Type 3 glyphs that lose their text.
    QString marker = QStringLiteral("Marque");
    for (const QChar c : QUuid::createUuid().toString(QUuid::Id128).left(10))
        marker.append(QChar(c.isDigit() ? u'G' + (c.unicode() - u'0') : c.toUpper().unicode()));
    return marker;
}

} // namespace PdfCheck
