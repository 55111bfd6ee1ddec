// Fuzz target for chains of font files through one CFontPreview, as the preview window
// and the name finder use it: the input is cut into up to four files at the marker
// "\n--fichier--\n", each written to disk and set as the object's FontFile in turn, so
// that what one file leaves behind (names, style word, valid flag, registration) meets
// the next. Every property is read after each file; an input over 100 ms is a finding.
#include "components/runtimeerror.h"
#include "fontfile/cfontpreview.h"
#include "fontfile/fontregistration.h"
#include "fuzzsupport.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QStringList>
#include <cstdint>
#include <memory>

namespace {

const QByteArray marker = "\n--fichier--\n";
constexpr int maximumFiles = 4;

// Reading the names throws only RuntimeError 9, and only while no name table was read.
void readEverything(const CFontPreview& preview)
{
    for (auto read : {&CFontPreview::Copyright, &CFontPreview::FamilyName, &CFontPreview::FullName,
                      &CFontPreview::SubFamilyName, &CFontPreview::PostscriptName, &CFontPreview::Trademark,
                      &CFontPreview::UniqueIdentifier, &CFontPreview::VersionString}) {
        try {
            (void)(preview.*read)();
        } catch (const RuntimeError& error) {
            FuzzSupport::check(error.number() == 9, "only the subscript error comes out of a name");
        }
    }
    (void)preview.Bold();
    (void)preview.Italic();
    (void)preview.StrikeOut();
    (void)preview.Underlined();
    (void)preview.ValidTrueTypeFile();
    if (!preview.FaceName().isEmpty())
        FuzzSupport::check(FontRegistration::isKnownFace(preview.FaceName()), "a resolved face is known");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static std::unique_ptr<QGuiApplication> app = std::make_unique<QGuiApplication>(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray input = QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    QStringList paths;
    for (qsizetype start = 0; paths.size() < maximumFiles && start <= input.size();) {
        qsizetype end = input.indexOf(marker, start);
        if (end < 0 || paths.size() == maximumFiles - 1)
            end = input.size();
        paths.append(FuzzSupport::writeInput(QStringLiteral("chaine-%1.ttf").arg(paths.size()),
                                             input.constData() + start, end - start));
        start = end + marker.size();
    }
    FuzzSupport::runTimed(FuzzSupport::inputLimitMs(100), [&] {
        {
            CFontPreview preview;
            for (const QString& path : paths) {
                preview.setFontFile(path);
                FuzzSupport::check(preview.FontFile() == path, "a regular file is accepted");
                readEverything(preview);
            }
        }
        // A registration whose face was never resolved stays for the program's life, as
        // it should; the fuzzer clears them so that one input does not weigh on the next.
        QFontDatabase::removeAllApplicationFonts();
    });
    return 0;
}
