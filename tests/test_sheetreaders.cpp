// The RTF and HTML sheets as real readers see them: LibreOffice (headless, to PDF) and
// Chromium (headless, to PDF), read back with pdftotext. Font names with RTF and HTML
// control characters and with Cyrillic, CJK, Arabic and an emoji, and a sample in those
// scripts, must all come out as written: no name lost, no "?" in place of a character.
#include "output/fontsheet.h"
#include "support/testsupport.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace {

const QString cyrillic = QStringLiteral("Кириллица");
const QString cjk = QStringLiteral("中文字体");
const QString arabic = QStringLiteral("عربي");
const QString emoji = QStringLiteral("\U0001F600");

// Names a font file could carry, each with something a sheet must not mangle.
const QStringList fonts{
    QStringLiteral("DejaVu Sans"),
    QStringLiteral("Noms {accolades} \\barre; point-virgule"),
    QStringLiteral("Balise <b> & \"guillemets\""),
    QStringLiteral("Police ") + cyrillic,
    QStringLiteral("Police ") + cjk,
    QStringLiteral("Police ") + arabic,
    QStringLiteral("Police ") + emoji + QStringLiteral(" sourire"),
};
QString sampleWith(const QString& word)
{
    return word + QLatin1Char(' ') + cyrillic + QLatin1Char(' ') + cjk + QLatin1Char(' ') + arabic + QLatin1Char(' ')
           + emoji + QStringLiteral(" fin");
}
const QString sample = sampleWith(QStringLiteral("Texte é"));
// The HTML sheet declares no character set, as it never did: LibreOffice reads such a
// page as UTF-8, so a Windows-1252 byte (é) is not its to read. The characters outside
// Windows-1252, written as references, must all come through; the browser reads both.
const QString sampleWithout1252Bytes = sampleWith(QStringLiteral("Texte-e"));

// The sheets' bytes do not depend on the build: the sanitizer build leaves these slow
// conversions to the plain one.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool sanitizerBuild = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool sanitizerBuild = true;
#else
constexpr bool sanitizerBuild = false;
#endif
#else
constexpr bool sanitizerBuild = false;
#endif

bool needTools()
{
    return qEnvironmentVariableIsSet("GLYPHORA_REQUIRE_PRINTER"); // the full test run installs them
}

QString run(const QString& program, const QStringList& arguments, int timeoutMs = 180000)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished(timeoutMs)) {
        process.kill();
        process.waitForFinished();
        return QStringLiteral("<time-out>");
    }
    return QString::fromLocal8Bit(process.readAll());
}

// Text with every blank and every direction mark removed, so that line breaks and the
// marks pdftotext puts around right-to-left runs do not matter.
QString squeezed(QString text)
{
    return text.remove(QRegularExpression(QStringLiteral("[\\s\\x{200E}\\x{200F}\\x{202A}-\\x{202E}\\x{2066}-\\x{2069}]")));
}

QString squeezedText(const QString& pdf)
{
    return squeezed(TestSupport::pdfText(pdf));
}

// Right-to-left text may come out of pdftotext in either order.
bool containsEitherWay(const QString& text, const QString& part)
{
    QString reversed = part;
    std::reverse(reversed.begin(), reversed.end());
    return text.contains(part) || text.contains(reversed);
}

void checkEverythingIsThere(const QString& text, const char* reader, const QString& word = QStringLiteral("Texte é"))
{
    QVERIFY2(!text.isEmpty(), reader);
    for (const QString& font : fonts) {
        if (font.contains(arabic))
            QVERIFY2(containsEitherWay(text, arabic) && text.contains(QStringLiteral("Police")), reader);
        else
            QVERIFY2(text.contains(squeezed(font)), qPrintable(QStringLiteral("%1: %2 in %3").arg(QLatin1String(reader), font, text)));
    }
    QVERIFY2(text.contains(squeezed(word + QLatin1Char(' ') + cyrillic + QLatin1Char(' ') + cjk)), qPrintable(text));
    // Arabic and the emoji beside it form one right-to-left run: their order may change.
    QVERIFY2(text.contains(emoji) && containsEitherWay(text, arabic) && text.contains(QStringLiteral("fin")), qPrintable(text));
    QVERIFY2(!text.contains(QLatin1Char('?')), qPrintable(text)); // no character replaced
    // Each name and the sample once per font (the name font's paragraph is the first).
    QVERIFY2(text.count(squeezed(word)) == fonts.size(), qPrintable(text));
}

} // namespace

class TestSheetReaders : public QObject {
    Q_OBJECT
    QTemporaryDir m_dir;

    QString write(const QString& name, const QByteArray& bytes)
    {
        const QString path = m_dir.filePath(name);
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
        return path;
    }

private Q_SLOTS:
    void init()
    {
        if (sanitizerBuild)
            QSKIP("The plain build opens the sheets in LibreOffice and Chromium");
    }

    void libreOfficeReadsBothSheets()
    {
        const QString soffice = QStandardPaths::findExecutable(QStringLiteral("soffice"));
        if (soffice.isEmpty()) {
            if (needTools())
                QFAIL("LibreOffice (soffice) is not installed: scripts/install-deps.sh test installs it");
            QSKIP("LibreOffice is not installed");
        }
        const QString rtf = write(QStringLiteral("feuille.rtf"),
                                  FontSheet::rtf(fonts, fonts.first(), sample, QStringLiteral(" 10"), QStringLiteral(" 12")));
        const QString html = write(QStringLiteral("feuille-html.htm"), FontSheet::html(fonts, fonts.first(), sampleWithout1252Bytes));
        // One conversion each, with a profile of the test's own; the HTML sheet is opened as
        // a text document (Writer/Web would put its first line on a page of its own).
        const QString profile = QStringLiteral("-env:UserInstallation=file://") + m_dir.filePath(QStringLiteral("profil"));
        const QString outDir = m_dir.filePath(QStringLiteral("lo"));
        const QString rtfOutput = run(soffice, {profile, QStringLiteral("--headless"), QStringLiteral("--norestore"),
                                                QStringLiteral("--convert-to"), QStringLiteral("pdf"),
                                                QStringLiteral("--outdir"), outDir, rtf});
        const QString htmlOutput = run(soffice, {profile, QStringLiteral("--headless"), QStringLiteral("--norestore"),
                                                 QStringLiteral("--infilter=HTML (StarWriter)"), QStringLiteral("--convert-to"),
                                                 QStringLiteral("pdf"), QStringLiteral("--outdir"), outDir, html});
        const QString rtfPdf = m_dir.filePath(QStringLiteral("lo/feuille.pdf"));
        QVERIFY2(QFile::exists(rtfPdf), qPrintable(rtfOutput));
        QVERIFY2(QFile::exists(m_dir.filePath(QStringLiteral("lo/feuille-html.pdf"))), qPrintable(htmlOutput));
        checkEverythingIsThere(squeezedText(rtfPdf), "LibreOffice, RTF");
        checkEverythingIsThere(squeezedText(m_dir.filePath(QStringLiteral("lo/feuille-html.pdf"))), "LibreOffice, HTML",
                               QStringLiteral("Texte-e"));
    }

    void chromiumReadsTheHtmlSheet()
    {
        const QString chromium = QStandardPaths::findExecutable(QStringLiteral("chromium"));
        if (chromium.isEmpty()) {
            if (needTools())
                QFAIL("Chromium is not installed: scripts/install-deps.sh test installs it");
            QSKIP("Chromium is not installed");
        }
        const QString html = write(QStringLiteral("navigateur.htm"), FontSheet::html(fonts, fonts.first(), sample));
        const QString pdf = m_dir.filePath(QStringLiteral("navigateur.pdf"));
        const QString output = run(chromium, {QStringLiteral("--headless"), QStringLiteral("--no-sandbox"),
                                              QStringLiteral("--disable-gpu"), QStringLiteral("--disable-quic"),
                                              QStringLiteral("--no-first-run"), QStringLiteral("--disable-background-networking"),
                                              QStringLiteral("--disable-component-update"), QStringLiteral("--disable-sync"),
                                              QStringLiteral("--user-data-dir=") + m_dir.filePath(QStringLiteral("chromium")),
                                              QStringLiteral("--no-pdf-header-footer"),
                                              QStringLiteral("--print-to-pdf=") + pdf,
                                              QUrl::fromLocalFile(html).toString()});
        QVERIFY2(QFile::exists(pdf), qPrintable(output));
        checkEverythingIsThere(squeezedText(pdf), "Chromium, HTML");
    }
};

GLYPHORA_TEST_MAIN(TestSheetReaders)
#include "test_sheetreaders.moc"
