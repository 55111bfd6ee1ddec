// SampleRenderer: HarfBuzz shapes each line over a FreeType face; FreeType draws each
// glyph at its sub-pixel place; the glyphs are tinted and composed with QPainter.
#include "fontfile/samplerenderer.h"

#include "components/textlines.h"

#include <QFile>
#include <QPainter>

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_MULTIPLE_MASTERS_H
#include FT_OUTLINE_H
#include <hb-ft.h>
#include <hb.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

// A FreeType bitmap as premultiplied ARGB: coverage tints the colour, colour glyphs
// (BGRA, already premultiplied) are copied.
QImage glyphImage(const FT_Bitmap& bitmap, QRgb colour)
{
    const int w = int(bitmap.width), h = int(bitmap.rows);
    if (w <= 0 || h <= 0 || !bitmap.buffer)
        return QImage();
    QImage image(w, h, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < h; ++y) {
        const unsigned char* row = bitmap.buffer + std::ptrdiff_t(y) * bitmap.pitch;
        auto* out = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < w; ++x) {
            switch (bitmap.pixel_mode) {
            case FT_PIXEL_MODE_BGRA:
                out[x] = qRgba(row[4 * x + 2], row[4 * x + 1], row[4 * x], row[4 * x + 3]);
                break;
            case FT_PIXEL_MODE_MONO: {
                const bool on = row[x >> 3] & (0x80 >> (x & 7));
                out[x] = on ? qPremultiply(colour) : 0;
                break;
            }
            case FT_PIXEL_MODE_GRAY:
                out[x] = qPremultiply(qRgba(qRed(colour), qGreen(colour), qBlue(colour),
                                            qAlpha(colour) * row[x] / 255));
                break;
            default:
                out[x] = 0;
            }
        }
    }
    return image;
}

} // namespace

struct SampleRenderer::Impl {
    FT_Library library = nullptr;
    FT_Face face = nullptr;
    hb_font_t* font = nullptr;
    hb_buffer_t* buffer = nullptr;
    QString path;
    int index = -1;
    std::vector<FT_ULong> axisTags;
    std::vector<FT_Fixed> axisMin, axisMax, openedCoords, currentCoords;
    double sizeSet = -1;
    double scale = 1; // picture pixels per face pixel (bitmap strikes drawn at another size)

    Impl()
    {
        if (FT_Init_FreeType(&library) != 0)
            library = nullptr;
        buffer = hb_buffer_create();
    }
    ~Impl()
    {
        close();
        hb_buffer_destroy(buffer);
        if (library)
            FT_Done_FreeType(library);
    }

    void close()
    {
        if (font)
            hb_font_destroy(font); // lets the FreeType face go too
        else if (face)
            FT_Done_Face(face);
        font = nullptr;
        face = nullptr;
        path.clear();
        index = -1;
        axisTags.clear();
        axisMin.clear();
        axisMax.clear();
        openedCoords.clear();
        currentCoords.clear();
        sizeSet = -1;
    }

    bool open(const QString& file, int faceIndex)
    {
        if (face && file == path && faceIndex == index)
            return true;
        close();
        if (!library || faceIndex < 0)
            return false;
        const QByteArray name = QFile::encodeName(file);
        if (FT_New_Face(library, name.constData(), faceIndex, &face) != 0) {
            face = nullptr;
            return false;
        }
        if (!FT_IS_SCALABLE(face) && face->num_fixed_sizes <= 0) {
            close();
            return false;
        }
        readAxes();
        font = hb_ft_font_create_referenced(face);
        FT_Done_Face(face); // the HarfBuzz font holds the reference now
        path = file;
        index = faceIndex;
        return true;
    }

    void readAxes()
    {
        FT_MM_Var* mm = nullptr;
        if (!FT_HAS_MULTIPLE_MASTERS(face) || FT_Get_MM_Var(face, &mm) != 0)
            return;
        for (FT_UInt i = 0; i < mm->num_axis; ++i) {
            axisTags.push_back(mm->axis[i].tag);
            axisMin.push_back(mm->axis[i].minimum);
            axisMax.push_back(mm->axis[i].maximum);
        }
        openedCoords.resize(mm->num_axis);
        if (FT_Get_Var_Design_Coordinates(face, mm->num_axis, openedCoords.data()) != 0)
            for (FT_UInt i = 0; i < mm->num_axis; ++i)
                openedCoords[i] = mm->axis[i].def;
        currentCoords = openedCoords;
        FT_Done_MM_Var(library, mm);
    }

    // Size and coordinates; HarfBuzz is told only when something changed.
    void setUp(const Request& request)
    {
        bool changed = false;
        if (request.pixelSize != sizeSet) {
            sizeSet = request.pixelSize;
            changed = true;
            if (FT_IS_SCALABLE(face)) {
                FT_Set_Char_Size(face, 0, FT_F26Dot6(std::lround(request.pixelSize * 64)), 72, 72);
                scale = 1;
            } else {
                selectStrike(request.pixelSize);
            }
        }
        if (!axisTags.empty()) {
            std::vector<FT_Fixed> wanted = openedCoords;
            for (const Axis& axis : request.axes)
                for (size_t i = 0; i < axisTags.size(); ++i)
                    if (axis.tag.size() == 4 && FT_ULong(hb_tag_from_string(axis.tag.constData(), 4)) == axisTags[i])
                        wanted[i] = std::clamp(FT_Fixed(std::lround(axis.value * 65536.0)), axisMin[i], axisMax[i]);
            if (wanted != currentCoords) {
                FT_Set_Var_Design_Coordinates(face, FT_UInt(wanted.size()), wanted.data());
                currentCoords = wanted;
                changed = true;
            }
        }
        if (changed)
            hb_ft_font_changed(font);
    }

    void selectStrike(double pixelSize)
    {
        int best = 0;
        for (int i = 1; i < face->num_fixed_sizes; ++i)
            if (std::abs(face->available_sizes[i].y_ppem / 64.0 - pixelSize)
                < std::abs(face->available_sizes[best].y_ppem / 64.0 - pixelSize))
                best = i;
        FT_Select_Size(face, best);
        const double ppem = face->available_sizes[best].y_ppem / 64.0;
        scale = ppem > 0 ? pixelSize / ppem : 1;
    }

    void shapeLine(QStringView line, const std::vector<hb_feature_t>& features)
    {
        hb_buffer_clear_contents(buffer);
        const auto length = int(std::min<qsizetype>(line.size(), maximumLineLength));
        hb_buffer_add_utf16(buffer, reinterpret_cast<const uint16_t*>(line.utf16()), length, 0, length);
        hb_buffer_guess_segment_properties(buffer);
        hb_shape(font, buffer, features.data(), unsigned(features.size()));
    }

    void drawGlyph(QPainter& painter, unsigned id, QPointF origin, QRgb colour)
    {
        const FT_Int32 flags = FT_IS_SCALABLE(face) ? FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP | FT_LOAD_COLOR
                                                    : FT_LOAD_DEFAULT | FT_LOAD_COLOR;
        if (FT_Load_Glyph(face, id, flags) != 0)
            return;
        FT_GlyphSlot slot = face->glyph;
        const double x = origin.x(), y = std::round(origin.y());
        double left = std::floor(x);
        if (slot->format == FT_GLYPH_FORMAT_OUTLINE) {
            // The fraction of a pixel goes into the outline, so glyphs sit where HarfBuzz put them.
            FT_Outline_Translate(&slot->outline, FT_Pos(std::lround((x - left) * 64)), 0);
            if (FT_Render_Glyph(slot, FT_RENDER_MODE_NORMAL) != 0)
                return;
        } else {
            left = std::round(x);
        }
        const QImage image = glyphImage(slot->bitmap, colour);
        if (image.isNull())
            return;
        if (scale == 1) {
            painter.drawImage(QPointF(left + slot->bitmap_left, y - slot->bitmap_top), image);
        } else {
            const QRectF target(x + slot->bitmap_left * scale, y - slot->bitmap_top * scale,
                                image.width() * scale, image.height() * scale);
            painter.drawImage(target, image);
        }
    }
};

SampleRenderer::SampleRenderer() : d(std::make_unique<Impl>()) {}

SampleRenderer::~SampleRenderer() = default;

SampleRenderer::Result SampleRenderer::render(const Request& request)
{
    Result result;
    if (request.pixelSize <= 0 || !std::isfinite(request.pixelSize) || !d->open(request.file, request.faceIndex))
        return result;
    d->setUp(request);
    result.ok = true;
    const FT_Size_Metrics& metrics = d->face->size->metrics;
    result.ascent = metrics.ascender / 64.0 * d->scale;
    result.descent = -metrics.descender / 64.0 * d->scale;
    result.lineHeight = std::max(metrics.height / 64.0 * d->scale, result.ascent + result.descent);
    shapeLines(request, result);
    if (request.draw)
        drawPicture(request, result);
    return result;
}

// Shapes the lines that fit; each glyph's place is known before the picture is sized.
void SampleRenderer::shapeLines(const Request& request, Result& result)
{
    std::vector<hb_feature_t> features;
    for (const Feature& feature : request.features)
        if (feature.tag.size() == 4)
            features.push_back({hb_tag_from_string(feature.tag.constData(), 4), feature.value,
                                HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END});
    const QList<QStringView> lines = TextLines::split(request.text);
    const int maxHeight = std::max(1, request.maximumSize.height());
    for (int n = 0; n < lines.size(); ++n) {
        const double baseline = request.margin + result.ascent + n * result.lineHeight;
        if (n > 0 && baseline - result.ascent >= maxHeight)
            break;
        d->shapeLine(lines[n], features);
        unsigned count = 0;
        const hb_glyph_info_t* info = hb_buffer_get_glyph_infos(d->buffer, &count);
        const hb_glyph_position_t* pos = hb_buffer_get_glyph_positions(d->buffer, &count);
        double pen = request.margin;
        for (unsigned i = 0; i < count; ++i) {
            Glyph glyph;
            glyph.id = info[i].codepoint;
            glyph.cluster = int(info[i].cluster);
            glyph.line = n;
            glyph.origin = QPointF(pen + pos[i].x_offset / 64.0 * d->scale, baseline - pos[i].y_offset / 64.0 * d->scale);
            glyph.advance = pos[i].x_advance / 64.0 * d->scale;
            pen += glyph.advance;
            result.glyphs.append(glyph);
        }
        result.width = std::max(result.width, pen - request.margin);
    }
}

void SampleRenderer::drawPicture(const Request& request, Result& result)
{
    const int lineCount = result.glyphs.isEmpty() ? 1 : result.glyphs.last().line + 1;
    const double height = 2 * request.margin + (lineCount - 1) * result.lineHeight + result.ascent + result.descent;
    const QSize size(std::clamp(int(std::ceil(result.width + 2 * request.margin)), 1, std::max(1, request.maximumSize.width())),
                     std::clamp(int(std::ceil(height)), 1, std::max(1, request.maximumSize.height())));
    result.image = QImage(size, QImage::Format_ARGB32_Premultiplied);
    result.image.fill(request.background);
    QPainter painter(&result.image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QRgb colour = request.foreground.rgba();
    for (const Glyph& glyph : std::as_const(result.glyphs))
        if (glyph.origin.x() < size.width() && glyph.origin.y() - result.ascent < size.height())
            d->drawGlyph(painter, glyph.id, glyph.origin, colour);
}
