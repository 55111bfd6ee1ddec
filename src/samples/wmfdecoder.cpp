// Metafile decoding with libwmf's GD device, which draws into a true-colour buffer that
// is copied into a QImage and then released.
#include "samples/wmfdecoder.h"

#include <libwmf/api.h>
#include <libwmf/gd.h>
#include <gd.h> // libwmf's own copy of the GD image type (include path set by the build)

#include <cstdlib>
#include <cstring>
#include <vector>

namespace WmfDecoder {

namespace {

quint16 word(const QByteArray& bytes, int offset)
{
    return static_cast<quint16>(static_cast<unsigned char>(bytes[offset])
                                | (static_cast<unsigned char>(bytes[offset + 1]) << 8));
}

// libwmf hands the GD image over and does not export GD's destructor: release its
// buffers as GD's own gdImageDestroy does (they come from malloc).
void releaseImage(void* image)
{
    auto* im = static_cast<gdImagePtr>(image);
    if (!im)
        return;
    if (im->pixels) {
        for (int row = 0; row < im->sy; ++row)
            std::free(im->pixels[row]);
        std::free(im->pixels);
    }
    if (im->_tpixels) {
        std::free(im->_tpixels);
    } else if (im->tpixels) {
        for (int row = 0; row < im->sy; ++row)
            std::free(im->tpixels[row]);
    }
    std::free(im->tpixels);
    std::free(im->polyInts);
    std::free(im->style);
    std::free(im);
}

// One metafile session: the API object is destroyed on every path out.
class Session {
public:
    Session()
    {
        wmfAPI_Options options;
        std::memset(&options, 0, sizeof options);
        options.function = wmf_gd_function;
        const unsigned long flags = WMF_OPT_FUNCTION | WMF_OPT_IGNORE_NONFATAL | WMF_OPT_NO_ERROR | WMF_OPT_NO_DEBUG;
        if (wmf_api_create(&m_api, flags, &options) != wmf_E_None)
            m_api = nullptr;
    }
    ~Session()
    {
        if (!m_api)
            return;
        if (m_opened)
            wmf_mem_close(m_api);
        wmf_api_destroy(m_api);
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    QImage play(std::vector<unsigned char>& data)
    {
        if (!m_api || wmf_mem_open(m_api, data.data(), static_cast<long>(data.size())) != wmf_E_None)
            return {};
        m_opened = true;
        wmfD_Rect box;
        if (wmf_scan(m_api, 0, &box) != wmf_E_None)
            return {};
        unsigned width = 0, height = 0;
        if (wmf_display_size(m_api, &width, &height, PixelsPerInch, PixelsPerInch) != wmf_E_None)
            return {};
        if (width == 0 || height == 0 || width > MaximumSide || height > MaximumSide
            || qint64(width) * qint64(height) > MaximumPixels)
            return {};
        wmf_gd_t* device = WMF_GD_GetData(m_api);
        device->type = wmf_gd_image;
        device->bbox = box;
        device->width = width;
        device->height = height;
        const bool played = wmf_play(m_api, 0, &box) == wmf_E_None;
        QImage picture;
        if (played && device->gd_image)
            picture = copyPixels(device->gd_image, width, height);
        releaseImage(device->gd_image);
        device->gd_image = nullptr;
        return picture;
    }

private:
    static QImage copyPixels(void* gdImage, unsigned width, unsigned height)
    {
        const int* pixels = wmf_gd_image_pixels(gdImage);
        if (!pixels)
            return {};
        QImage picture(static_cast<int>(width), static_cast<int>(height), QImage::Format_RGB32);
        for (unsigned y = 0; y < height; ++y) {
            auto* line = reinterpret_cast<QRgb*>(picture.scanLine(static_cast<int>(y)));
            for (unsigned x = 0; x < width; ++x)
                line[x] = qRgb(gdTrueColorGetRed(pixels[y * width + x]), gdTrueColorGetGreen(pixels[y * width + x]),
                               gdTrueColorGetBlue(pixels[y * width + x]));
        }
        return picture;
    }

    wmfAPI* m_api = nullptr;
    bool m_opened = false;
};

} // namespace

bool LooksLikeMetafile(const QByteArray& bytes)
{
    if (bytes.size() >= 4 && word(bytes, 0) == 0xCDD7 && word(bytes, 2) == 0x9AC6)
        return true;
    if (bytes.size() < 18)
        return false;
    const quint16 type = word(bytes, 0), headerWords = word(bytes, 2), version = word(bytes, 4);
    return (type == 1 || type == 2) && headerWords == 9 && (version == 0x0100 || version == 0x0300);
}

qint64 RecordCount(const QByteArray& bytes)
{
    constexpr int placeableSize = 22;
    const bool placeable = bytes.size() >= 4 && word(bytes, 0) == 0xCDD7 && word(bytes, 2) == 0x9AC6;
    const qint64 header = placeable ? placeableSize : 0;
    if (bytes.size() < header + 18)
        return -1;
    // The largest record, in words: libwmf allocates a buffer of that size up front.
    const quint32 maxRecord = quint32(word(bytes, int(header) + 12)) | (quint32(word(bytes, int(header) + 14)) << 16);
    if (qint64(maxRecord) * 2 > bytes.size())
        return -1;
    // Records follow the header, whose size is given in 16-bit words.
    qint64 at = header + 2 * qint64(word(bytes, int(header) + 2));
    qint64 records = 0;
    while (at + 6 <= bytes.size() && records <= MaximumRecords) {
        const quint32 words = quint32(word(bytes, int(at))) | (quint32(word(bytes, int(at) + 2)) << 16);
        if (words < 3)
            return -1;
        if (word(bytes, int(at) + 4) == 0) // the end record
            break;
        ++records;
        at += 2 * qint64(words);
    }
    return records;
}

QImage Decode(const QByteArray& bytes)
{
    if (!LooksLikeMetafile(bytes))
        return {};
    const qint64 records = RecordCount(bytes);
    if (records < 0 || records > MaximumRecords)
        return {};
    // libwmf reads from a mutable buffer of its own.
    std::vector<unsigned char> data(bytes.begin(), bytes.end());
    Session session;
    return session.play(data);
}

} // namespace WmfDecoder
