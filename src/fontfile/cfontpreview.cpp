// CFontPreview: the load cycle of a font file, face name resolution and registration.
#include "fontfile/cfontpreview.h"

#include "components/boundedfile.h"
#include "components/runtimeerror.h"
#include "fontfile/fontregistration.h"
#include "fontfile/systemlanguage.h"
#include "fontfile/webfont.h"

#include <QFileInfo>

namespace {

namespace NameId {
enum : int { Copyright = 0, Family = 1, SubFamily = 2, UniqueId = 3, Full = 4, Version = 5, Postscript = 6, Trademark = 7 };
}
enum StyleBit { ItalicBit = 0, UnderscoreBit = 1, StrikeoutBit = 4, BoldBit = 5 };

} // namespace

CFontPreview::CFontPreview() : m_systemLanguage(SystemLanguage::systemDefaultLCID()) {}

CFontPreview::~CFontPreview()
{
    RemoveTemporaryFont();
}

void CFontPreview::setFontFile(const QString& path)
{
    RemoveTemporaryFont();
    if (!FileExists(path))
        return;
    m_fontFile = path;
    ReadFontFile(path);
    m_installed = ResolveFaceName();
    if (!m_installed && m_readError.isEmpty()) {
        // Offered to the system whatever the reading found; resolving again is what
        // normally fills the face name of a font that is not installed. A web font that
        // was refused is not offered: the system would unpack it without a limit.
        AddTemporaryFont(path);
        ResolveFaceName();
    }
}

void CFontPreview::setFaceIndex(int index)
{
    m_faceIndex = index;
    if (!m_fontFile.isEmpty())
        setFontFile(m_fontFile);
}

bool CFontPreview::FileExists(const QString& path)
{
    // A regular file (or a link to one) of at most 256 MB, looked at without blocking:
    // directories, pipes, devices and larger files are refused.
    return BoundedFile::check(path, BoundedFile::FontLimit) == BoundedFile::Outcome::Read;
}

void CFontPreview::ReadFontFile(const QString& path)
{
    // Reading stops silently at the first error; what was read so far stays. A web
    // font is read from the bytes it unpacks to.
    WebFont::Decoded web = WebFont::decodeFile(path);
    m_sfnt = std::move(web.sfnt);
    m_readError = WebFont::refusal(web, QFileInfo(path).fileName());
    if (!m_sfnt.isEmpty()) {
        const auto bytes = std::span(reinterpret_cast<const std::uint8_t*>(m_sfnt.constData()), std::size_t(m_sfnt.size()));
        m_faceCount = TrueType::faceCount(bytes);
        TrueType::readFontFace(bytes, m_faceIndex, m_tables);
    } else if (m_readError.isEmpty()) {
        m_faceCount = TrueType::faceCount(path);
        TrueType::readFontFace(path, m_faceIndex, m_tables);
    } else {
        m_faceCount = 0;
    }
}

QString CFontPreview::GetNameString(int nameID) const
{
    const auto text = TrueType::nameString(m_tables, nameID, m_systemLanguage);
    if (!text)
        throw RuntimeError::subscriptOutOfRange(); // no name records were ever read
    return *text;
}

bool CFontPreview::ResolveFaceName()
{
    // A candidate whose names cannot be read stays empty, as errors are ignored here.
    auto candidate = [this](auto build) {
        try {
            return build();
        } catch (const RuntimeError&) {
            return QString();
        }
    };
    const QString candidates[] = {
        candidate([this] { return GetNameString(NameId::Family); }),
        candidate([this] { return GetNameString(NameId::Family) + QLatin1Char(' ') + GetNameString(NameId::SubFamily); }),
        candidate([this] { return GetNameString(NameId::Full); }),
    };
    for (const QString& name : candidates) {
        if (FontRegistration::isKnownFace(name)) {
            m_faceName = name;
            return true;
        }
    }
    return false;
}

bool CFontPreview::AddTemporaryFont(const QString& path)
{
    const int id = m_sfnt.isEmpty() ? FontRegistration::add(path) : FontRegistration::addData(m_sfnt);
    if (id < 0)
        return false;
    // A registration whose face was never resolved is not removed later (see
    // RemoveTemporaryFont); only the newest one is remembered.
    m_registration = id;
    if (m_broadcast)
        FontRegistration::announceFontChange();
    return true;
}

void CFontPreview::RemoveTemporaryFont()
{
    // Only for a file this object registered and whose face was resolved.
    if (m_faceName.isEmpty() || m_installed)
        return;
    FontRegistration::remove(m_registration);
    m_registration = -1;
    if (m_broadcast)
        FontRegistration::announceFontChange();
    m_faceName.clear();
    m_tables.valid = false;
}

bool CFontPreview::IsBitSet(std::int16_t value, int bit)
{
    return TrueType::isBitSet(value, bit);
}

bool CFontPreview::Bold() const { return IsBitSet(m_tables.styleWord, BoldBit); }
bool CFontPreview::Italic() const { return IsBitSet(m_tables.styleWord, ItalicBit); }
bool CFontPreview::StrikeOut() const { return IsBitSet(m_tables.styleWord, StrikeoutBit); }
bool CFontPreview::Underlined() const { return IsBitSet(m_tables.styleWord, UnderscoreBit); }

QString CFontPreview::Copyright() const { return GetNameString(NameId::Copyright); }
QString CFontPreview::FamilyName() const { return GetNameString(NameId::Family); }
QString CFontPreview::FullName() const { return GetNameString(NameId::Full); }
QString CFontPreview::SubFamilyName() const { return GetNameString(NameId::SubFamily); }
QString CFontPreview::PostscriptName() const { return GetNameString(NameId::Postscript); }
QString CFontPreview::Trademark() const { return GetNameString(NameId::Trademark); }
QString CFontPreview::UniqueIdentifier() const { return GetNameString(NameId::UniqueId); }
QString CFontPreview::VersionString() const { return GetNameString(NameId::Version); }
