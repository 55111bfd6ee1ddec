// ByteReader: a bounds-checked big-endian cursor over bytes held in memory. Every
// read that would leave the data returns nothing and leaves the cursor where it was.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

class ByteReader {
public:
    explicit ByteReader(std::span<const std::uint8_t> data) : m_data(data) {}

    std::size_t size() const { return m_data.size(); }
    std::size_t position() const { return m_position; }
    std::size_t remaining() const { return m_data.size() - m_position; }

    // Moves to an absolute offset; false (and no move) outside 0 .. size.
    bool seek(std::int64_t offset)
    {
        if (offset < 0 || static_cast<std::uint64_t>(offset) > m_data.size())
            return false;
        m_position = static_cast<std::size_t>(offset);
        return true;
    }

    // Range checks are overflow-safe: count > remaining, never position + count > size.
    bool skip(std::size_t count)
    {
        if (count > remaining())
            return false;
        m_position += count;
        return true;
    }

    std::optional<std::uint8_t> u8()
    {
        if (remaining() < 1)
            return std::nullopt;
        return m_data[m_position++];
    }

    std::optional<std::uint16_t> u16()
    {
        if (remaining() < 2)
            return std::nullopt;
        const std::uint8_t* b = m_data.data() + m_position;
        m_position += 2;
        return static_cast<std::uint16_t>((b[0] << 8) | b[1]);
    }

    std::optional<std::int16_t> i16()
    {
        const auto value = u16();
        return value ? std::optional<std::int16_t>(static_cast<std::int16_t>(*value)) : std::nullopt;
    }

    std::optional<std::uint32_t> u32()
    {
        if (remaining() < 4)
            return std::nullopt;
        const std::uint8_t* b = m_data.data() + m_position;
        m_position += 4;
        return (std::uint32_t(b[0]) << 24) | (std::uint32_t(b[1]) << 16) | (std::uint32_t(b[2]) << 8) | std::uint32_t(b[3]);
    }

    std::optional<std::int32_t> i32()
    {
        const auto value = u32();
        return value ? std::optional<std::int32_t>(static_cast<std::int32_t>(*value)) : std::nullopt;
    }

    // A view of the next `count` bytes, which stay owned by the data.
    std::optional<std::span<const std::uint8_t>> bytes(std::size_t count)
    {
        if (count > remaining())
            return std::nullopt;
        const auto view = m_data.subspan(m_position, count);
        m_position += count;
        return view;
    }

private:
    std::span<const std::uint8_t> m_data;
    std::size_t m_position = 0;
};
