// CLogFont: owning the rotated font object.
#include "samples/clogfont.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace {

quintptr lastHandle = 0;
int liveHandles = 0;

QFont fontFromRecord(const LOGFONT& record)
{
    QFont font;
    font.setFamilies({LogFontRecord::FaceName(record)});
    // A negative height is the character height in pixels; a positive one the cell
    // height, used as is.
    if (record.lfHeight != 0)
        font.setPixelSize(std::abs(record.lfHeight));
    const int weight = record.lfWeight == 0 ? 400 : std::clamp<int>(record.lfWeight, 1, 1000);
    font.setWeight(static_cast<QFont::Weight>(weight));
    font.setItalic(record.lfItalic != 0);
    font.setUnderline(record.lfUnderline != 0);
    font.setStrikeOut(record.lfStrikeOut != 0);
    // The face's own glyphs only, never another font's.
    font.setStyleStrategy(record.lfOutPrecision == LogFontRecord::OutTtOnlyPrecis
                              ? QFont::StyleStrategy(QFont::PreferOutline | QFont::NoFontMerging)
                              : QFont::NoFontMerging);
    return font;
}

} // namespace

struct CLogFont::FontObject {
    explicit FontObject(const LOGFONT& record)
        : id(++lastHandle), font(fontFromRecord(record)), escapement(record.lfEscapement)
    {
        ++liveHandles;
    }
    ~FontObject() { --liveHandles; }
    FontObject(const FontObject&) = delete;
    FontObject& operator=(const FontObject&) = delete;

    quintptr id;
    QFont font;
    int32_t escapement;
};

CLogFont::CLogFont() = default;

CLogFont::~CLogFont()
{
    deleteHandle();
}

const StdFont* CLogFont::LogFont() const
{
    return m_font ? &*m_font : nullptr;
}

void CLogFont::setLogFont(const StdFont* font)
{
    deleteHandle();
    if (!font) {
        m_font.reset();
        return;
    }
    // A fresh copy, property by property in this order, so that the caller's later
    // changes never reach it.
    StdFont copy;
    copy.setBold(font->Bold());
    copy.setCharset(font->Charset());
    copy.setItalic(font->Italic());
    copy.setName(font->Name());
    copy.setSize(font->Size());
    copy.setStrikethrough(font->Strikethrough());
    copy.setUnderline(font->Underline());
    copy.setWeight(font->Weight());
    m_font = copy;
    createHandle();
}

void CLogFont::setRotation(float degrees)
{
    if (degrees == m_rotation)
        return;
    m_rotation = degrees;
    deleteHandle();
    if (m_font)
        createHandle();
}

quintptr CLogFont::Handle() const
{
    return m_handle ? m_handle->id : 0;
}

const QFont* CLogFont::HandleFont() const
{
    return m_handle ? &m_handle->font : nullptr;
}

double CLogFont::HandleAngle() const
{
    return m_handle ? (m_handle->escapement % 3600) / 10.0 : 0.0;
}

int CLogFont::PixelsPerInch()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? static_cast<int>(std::lround(screen->logicalDotsPerInchY())) : 96;
}

int CLogFont::LiveHandles()
{
    return liveHandles;
}

void CLogFont::createHandle()
{
    m_record = LogFontRecord::Make(*m_font, m_rotation, PixelsPerInch());
    m_handle = std::make_unique<FontObject>(m_record);
}

void CLogFont::deleteHandle()
{
    m_handle.reset();
    m_record = LOGFONT{};
}
