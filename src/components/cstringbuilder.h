// CStringBuilder: a growable UTF-16 (little-endian) text buffer for assembling long
// texts piece by piece; grows by whole granules ("bumps") of bytes.
#pragma once

#include <QString>
#include <cstdint>
#include <vector>

// Units differ on purpose: Length and every character index are in characters, while
// Capacity, EnsureCapacity and BufferBump are in bytes. Range failures throw a
// RuntimeError numbered RuntimeError::ObjectError whose source is
// "CStringBuilder.<member>"; after an error nothing has changed. Invalid values given
// to the other members are ignored.
//
// The range checks are kept as loose as they have always been (Chars against the
// byte length, Insert against the capacity, Remove one character past the end), so
// the logical length can run ahead of, or behind, the bytes actually copied. Bytes
// that would fall outside the buffer are never read or written: a copy is clipped to
// the buffer, and a character outside it cannot be read or assigned.
class CStringBuilder {
public:
    CStringBuilder();

    int BufferBump() const { return m_bump; }
    void setBufferBump(int bytes);

    int Capacity() const { return m_capacity; }
    void setCapacity(int bytes);

    QString Chars(int index) const;
    void setChars(int index, const QString& character);

    int Length() const { return m_length / 2; }
    void setLength(int characters);

    CStringBuilder& Append(const QString& text);
    int EnsureCapacity(int bytes);
    CStringBuilder& Insert(int index, const QString& text);
    CStringBuilder& Remove(int index, int count);
    QString ToString() const;

private:
    bool charInBuffer(int index) const;
    static void putText(std::vector<char>& target, std::int64_t offset, const QString& text);
    static void copyBytes(std::vector<char>& target, std::int64_t targetOffset,
                          const std::vector<char>& source, std::int64_t sourceOffset, std::int64_t count);

    std::vector<char> m_buffer;
    std::vector<char> m_scratch;
    std::int32_t m_length = 0;   // bytes
    std::int32_t m_capacity = 0; // bytes
    std::int32_t m_bump = 0;     // bytes
};
