// ByteReader: overflow-safe range checks (count > remaining, never position + count > size).
#include "fontfile/bytereader.h"

bool ByteReader::seek(std::int64_t offset)
{
    if (offset < 0 || static_cast<std::uint64_t>(offset) > m_data.size())
        return false;
    m_position = static_cast<std::size_t>(offset);
    return true;
}

bool ByteReader::skip(std::size_t count)
{
    if (count > remaining())
        return false;
    m_position += count;
    return true;
}

std::optional<std::span<const std::uint8_t>> ByteReader::bytes(std::size_t count)
{
    if (count > remaining())
        return std::nullopt;
    const auto view = m_data.subspan(m_position, count);
    m_position += count;
    return view;
}

std::optional<std::uint8_t> ByteReader::u8()
{
    const auto b = bytes(1);
    if (!b)
        return std::nullopt;
    return (*b)[0];
}

std::optional<std::uint16_t> ByteReader::u16()
{
    const auto b = bytes(2);
    if (!b)
        return std::nullopt;
    return static_cast<std::uint16_t>(((*b)[0] << 8) | (*b)[1]);
}

std::optional<std::int16_t> ByteReader::i16()
{
    const auto value = u16();
    if (!value)
        return std::nullopt;
    return static_cast<std::int16_t>(*value);
}

std::optional<std::uint32_t> ByteReader::u32()
{
    const auto b = bytes(4);
    if (!b)
        return std::nullopt;
    return (std::uint32_t((*b)[0]) << 24) | (std::uint32_t((*b)[1]) << 16) | (std::uint32_t((*b)[2]) << 8)
           | std::uint32_t((*b)[3]);
}

std::optional<std::int32_t> ByteReader::i32()
{
    const auto value = u32();
    if (!value)
        return std::nullopt;
    return static_cast<std::int32_t>(*value);
}
