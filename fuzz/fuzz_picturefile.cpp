// Fuzz target for the background picture loader through its real file path: the first
// byte picks the file's suffix (which decides the format of files without a signature),
// the rest is the file, read by PictureFile::Load as the rotated sample reads it: Qt's
// image formats, Windows metafiles through libwmf, and the size and pixel limits. The
// per-input limit is 2 s: decoding a picture up to the 40-megapixel limit legitimately
// takes a good part of a second under the sanitizers.
#include "fuzzsupport.h"
#include "samples/picturefile.h"

#include <QGuiApplication>
#include <cstdint>
#include <memory>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static std::unique_ptr<QGuiApplication> app = std::make_unique<QGuiApplication>(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    static const char* const suffixes[] = {"gif", "jpg", "jpeg", "bmp", "ico", "wmf", "png", "tga", "ppm", "xpm"};
    const char* suffix = suffixes[data[0] % (sizeof suffixes / sizeof *suffixes)];
    const QString path = FuzzSupport::writeInput(QStringLiteral("image.") + QLatin1String(suffix),
                                                 reinterpret_cast<const char*>(data) + 1, qsizetype(size - 1));
    FuzzSupport::runTimed(FuzzSupport::inputLimitMs(2000), [&] {
        const QImage picture = PictureFile::Load(path);
        if (!picture.isNull())
            FuzzSupport::check(qint64(picture.width()) * picture.height() <= PictureFile::MaximumPixels,
                               "a picture stays within the pixel limit");
    });
    return 0;
}
