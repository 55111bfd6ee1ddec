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
    bool seek(std::int64_t offset);
    bool skip(std::size_t count);

    std::optional<std::uint8_t> u8();
    std::optional<std::uint16_t> u16();
    std::optional<std::int16_t> i16();
    std::optional<std::uint32_t> u32();
    std::optional<std::int32_t> i32();
    // A view of the next `count` bytes, which stay owned by the data.
    std::optional<std::span<const std::uint8_t>> bytes(std::size_t count);

private:
    std::span<const std::uint8_t> m_data;
    std::size_t m_position = 0;
};
