// Windows-1252 by table: only 0x80..0x9F differ from Latin-1.
#include "components/ansi.h"

namespace Ansi {

namespace {

const char16_t high[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, // 80-87
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, // 88-8F
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, // 90-97
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178, // 98-9F
};

} // namespace

QChar charOf(unsigned char code)
{
    if (code >= 0x80 && code <= 0x9F)
        return QChar(high[code - 0x80]);
    return QChar(code);
}

QString decode(const char* data, qsizetype size)
{
    QString text(size, Qt::Uninitialized);
    QChar* out = text.data();
    for (qsizetype i = 0; i < size; ++i)
        out[i] = charOf(static_cast<unsigned char>(data[i]));
    return text;
}

QString decode(const QByteArray& bytes)
{
    return decode(bytes.constData(), bytes.size());
}

int codeOf(QChar c)
{
    const char16_t u = c.unicode();
    if (u < 0x80 || (u >= 0xA0 && u <= 0xFF))
        return u;
    for (int i = 0; i < 32; ++i)
        if (high[i] == u)
            return 0x80 + i;
    return -1;
}

void appendEncoded(QByteArray& out, QStringView text)
{
    const qsizetype start = out.size();
    out.resize(start + text.size());
    char* bytes = out.data() + start;
    qsizetype n = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        // A surrogate pair is one character outside the code page: one "?".
        if (c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            ++i;
        const int code = c.unicode() < 0x80 ? c.unicode() : codeOf(c);
        bytes[n++] = code < 0 ? '?' : static_cast<char>(code);
    }
    out.truncate(start + n);
}

QByteArray encode(const QString& text)
{
    QByteArray bytes;
    appendEncoded(bytes, text);
    return bytes;
}

} // namespace Ansi
