// CStringBuilder: byte-level buffer management, range checks and errors.
#include "components/cstringbuilder.h"

#include "components/runtimeerror.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace {

constexpr std::int32_t initialBytes = 2048;
constexpr std::int64_t largestInt32 = std::numeric_limits<std::int32_t>::max();

RuntimeError rangeError(const char* member, const char* description)
{
    return {RuntimeError::ObjectError, QStringLiteral("CStringBuilder") + QLatin1String(member),
            QString::fromLatin1(description)};
}

RuntimeError outOfMemory()
{
    return {RuntimeError::OutOfMemory, QStringLiteral("Glyphora"), QStringLiteral("Mémoire insuffisante")};
}

// A byte count computed in 64 bits must still fit the 32-bit fields.
std::int32_t checkedInt32(std::int64_t value)
{
    if (value > largestInt32 || value < std::numeric_limits<std::int32_t>::min())
        throw RuntimeError::overflow();
    return static_cast<std::int32_t>(value);
}

} // namespace

CStringBuilder::CStringBuilder()
    : m_buffer(initialBytes, 0), m_scratch(initialBytes, 0), m_capacity(initialBytes), m_bump(initialBytes)
{
}

void CStringBuilder::setBufferBump(int bytes)
{
    if (bytes <= 0)
        return;
    // The granule is always a whole number of characters.
    m_bump = checkedInt32(std::int64_t(bytes) + (bytes % 2));
}

void CStringBuilder::setCapacity(int bytes)
{
    if (bytes <= 0)
        return;
    const std::int64_t granules = (std::int64_t(bytes) + m_bump - 1) / m_bump;
    const std::int32_t capacity = checkedInt32(granules * m_bump);
    try {
        m_buffer.resize(std::size_t(capacity), 0); // leading contents kept, new bytes zero
        m_scratch.assign(std::size_t(capacity), 0);
    } catch (const std::bad_alloc&) {
        m_buffer.resize(std::size_t(m_capacity));
        m_scratch.resize(std::size_t(m_capacity));
        throw outOfMemory();
    }
    m_capacity = capacity;
    if (m_capacity < m_length)
        m_length = m_capacity;
}

int CStringBuilder::EnsureCapacity(int bytes)
{
    if (bytes > m_capacity)
        setCapacity(bytes);
    return m_capacity;
}

void CStringBuilder::setLength(int characters)
{
    if (characters < 0)
        return;
    const std::int32_t bytes = checkedInt32(2 * std::int64_t(characters));
    if (bytes > m_capacity)
        setCapacity(bytes);
    m_length = bytes;
}

bool CStringBuilder::charInBuffer(int index) const
{
    // The check is against the byte length, deliberately; the bytes must still exist.
    return index >= 0 && index < m_length && 2 * std::int64_t(index) + 1 < m_capacity;
}

QString CStringBuilder::Chars(int index) const
{
    if (!charInBuffer(index))
        throw rangeError(".Chars", "Tried reading character past end of buffer.");
    const auto low = static_cast<unsigned char>(m_buffer[std::size_t(2 * index)]);
    const auto high = static_cast<unsigned char>(m_buffer[std::size_t(2 * index + 1)]);
    return QString(QChar(char16_t(low | (high << 8))));
}

void CStringBuilder::setChars(int index, const QString& character)
{
    if (!charInBuffer(index))
        throw rangeError(".Chars", "Tried assigning character past end of buffer.");
    if (character.isEmpty())
        throw RuntimeError::illegalCall(); // no first character to take the code of
    const char16_t code = character.at(0).unicode();
    m_buffer[std::size_t(2 * index)] = char(code & 0xFF);
    m_buffer[std::size_t(2 * index + 1)] = char(code >> 8);
}

CStringBuilder& CStringBuilder::Append(const QString& text)
{
    const std::int64_t bytes = 2 * std::int64_t(text.size());
    if (bytes == 0)
        return *this;
    const std::int32_t newLength = checkedInt32(m_length + bytes);
    EnsureCapacity(newLength);
    putText(m_buffer, m_length, text);
    m_length = newLength;
    return *this;
}

CStringBuilder& CStringBuilder::Insert(int index, const QString& text)
{
    const std::int64_t at = 2 * std::int64_t(index);
    if (at < 0 || at > m_capacity)
        throw rangeError(".Insert", "Argument(s) out of range.");
    const std::int64_t bytes = 2 * std::int64_t(text.size());
    if (bytes == 0)
        return *this;
    const std::int32_t newLength = checkedInt32(m_length + bytes);
    EnsureCapacity(newLength);
    copyBytes(m_scratch, 0, m_buffer, 0, at);
    putText(m_scratch, at, text);
    copyBytes(m_scratch, at + bytes, m_buffer, at, m_length - at); // nothing when past the end
    m_buffer.swap(m_scratch);
    m_length = newLength;
    return *this;
}

CStringBuilder& CStringBuilder::Remove(int index, int count)
{
    const std::int64_t at = 2 * std::int64_t(index);
    const std::int64_t bytes = 2 * std::int64_t(count);
    if (at < 0 || bytes < 0 || at + bytes > std::int64_t(m_length) + 2)
        throw rangeError(".Remove", "Argument(s) out of range.");
    const std::int64_t tail = m_length - (at + bytes);
    if (tail > 0)
        std::memmove(m_buffer.data() + at, m_buffer.data() + at + bytes, std::size_t(tail));
    m_length = checkedInt32(m_length - bytes);
    return *this;
}

QString CStringBuilder::ToString() const
{
    if (m_length <= 0)
        return QString();
    const std::int32_t bytes = std::min(m_length, m_capacity);
    QString text(bytes / 2, Qt::Uninitialized);
    for (std::int32_t i = 0; i < bytes / 2; ++i) {
        const auto low = static_cast<unsigned char>(m_buffer[std::size_t(2 * i)]);
        const auto high = static_cast<unsigned char>(m_buffer[std::size_t(2 * i + 1)]);
        text[i] = QChar(char16_t(low | (high << 8)));
    }
    return text;
}

void CStringBuilder::putText(std::vector<char>& target, std::int64_t offset, const QString& text)
{
    const auto size = std::int64_t(target.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const std::int64_t at = offset + 2 * std::int64_t(i);
        const char16_t code = text.at(i).unicode();
        if (at >= 0 && at < size)
            target[std::size_t(at)] = char(code & 0xFF);
        if (at + 1 >= 0 && at + 1 < size)
            target[std::size_t(at + 1)] = char(code >> 8);
    }
}

void CStringBuilder::copyBytes(std::vector<char>& target, std::int64_t targetOffset,
                               const std::vector<char>& source, std::int64_t sourceOffset, std::int64_t count)
{
    // Clip the range to what both arrays hold; a negative or empty range copies nothing.
    if (sourceOffset < 0) {
        count += sourceOffset;
        targetOffset -= sourceOffset;
        sourceOffset = 0;
    }
    if (targetOffset < 0) {
        count += targetOffset;
        sourceOffset -= targetOffset;
        targetOffset = 0;
    }
    count = std::min({count, std::int64_t(source.size()) - sourceOffset, std::int64_t(target.size()) - targetOffset});
    if (count > 0)
        std::memcpy(target.data() + targetOffset, source.data() + sourceOffset, std::size_t(count));
}
