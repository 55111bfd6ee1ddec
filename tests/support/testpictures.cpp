// Hand-made GIF and WMF files for the tests.
#include "support/testpictures.h"

#include <QFile>
#include <vector>

namespace TestPictures {

namespace {

void le16(QByteArray& out, int value)
{
    out.append(char(value & 0xFF));
    out.append(char((value >> 8) & 0xFF));
}

void le32(QByteArray& out, quint32 value)
{
    le16(out, int(value & 0xFFFF));
    le16(out, int(value >> 16));
}

// LSB-first bit packing of variable-width codes.
class BitWriter {
public:
    void put(int code, int width)
    {
        m_buffer |= quint32(code) << m_bits;
        m_bits += width;
        while (m_bits >= 8) {
            m_bytes.append(char(m_buffer & 0xFF));
            m_buffer >>= 8;
            m_bits -= 8;
        }
    }
    QByteArray finish()
    {
        if (m_bits > 0)
            m_bytes.append(char(m_buffer & 0xFF));
        return m_bytes;
    }

private:
    QByteArray m_bytes;
    quint32 m_buffer = 0;
    int m_bits = 0;
};

QByteArray metafileRecords(int width, int height, QRgb fill)
{
    QByteArray records;
    auto record = [&records](int function, std::initializer_list<int> params) {
        le32(records, quint32(3 + params.size())); // size in 16-bit words
        le16(records, function);
        for (int p : params)
            le16(records, p);
    };
    const quint32 colorref = quint32(qRed(fill)) | (quint32(qGreen(fill)) << 8) | (quint32(qBlue(fill)) << 16);
    record(0x020B, {0, 0});                                           // SETWINDOWORG y, x
    record(0x020C, {height, width});                                  // SETWINDOWEXT y, x
    record(0x02FC, {0, int(colorref & 0xFFFF), int(colorref >> 16), 0}); // CREATEBRUSHINDIRECT solid
    record(0x012D, {0});                                              // SELECTOBJECT brush
    record(0x02FA, {5, 0, 0, 0, 0});                                  // CREATEPENINDIRECT null pen
    record(0x012D, {1});                                              // SELECTOBJECT pen
    record(0x041B, {height, width, 0, 0});                            // RECTANGLE bottom, right, top, left
    record(0x0000, {});                                               // EOF
    return records;
}

QByteArray standardHeader(const QByteArray& records)
{
    QByteArray header;
    le16(header, 1);      // in memory
    le16(header, 9);      // header size in words
    le16(header, 0x0300); // version
    le32(header, quint32((18 + records.size()) / 2));
    le16(header, 2);      // objects
    le32(header, 8);      // largest record
    le16(header, 0);
    return header;
}

QByteArray placeableHeader(int width, int height)
{
    QByteArray header;
    le32(header, 0x9AC6CDD7);
    le16(header, 0);
    le16(header, 0);
    le16(header, 0);
    le16(header, width);
    le16(header, height);
    le16(header, 96); // units per inch
    le32(header, 0);
    quint16 checksum = 0;
    for (int i = 0; i < 20; i += 2)
        checksum ^= quint16(quint8(header[i]) | (quint8(header[i + 1]) << 8));
    le16(header, checksum);
    return header;
}

} // namespace

QByteArray gif(const QImage& source)
{
    const QImage image = source.convertToFormat(QImage::Format_Indexed8, Qt::ThresholdDither | Qt::AvoidDither);
    int bits = 2;
    while ((1 << bits) < image.colorCount())
        ++bits;
    QByteArray out("GIF89a");
    le16(out, image.width());
    le16(out, image.height());
    out.append(char(0x80 | ((bits - 1) << 4) | (bits - 1)));
    out.append('\0');
    out.append('\0');
    for (int i = 0; i < (1 << bits); ++i) {
        const QRgb c = i < image.colorCount() ? image.color(i) : qRgb(0, 0, 0);
        out.append(char(qRed(c)));
        out.append(char(qGreen(c)));
        out.append(char(qBlue(c)));
    }
    out.append(char(0x2C));
    le16(out, 0);
    le16(out, 0);
    le16(out, image.width());
    le16(out, image.height());
    out.append('\0');
    out.append(char(bits));

    const int clear = 1 << bits, end = clear + 1, width = bits + 1;
    BitWriter writer;
    writer.put(clear, width);
    int sinceClear = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            writer.put(image.pixelIndex(x, y), width);
            if (++sinceClear == clear - 2) {
                writer.put(clear, width);
                sinceClear = 0;
            }
        }
    }
    writer.put(end, width);
    const QByteArray data = writer.finish();
    for (qsizetype i = 0; i < data.size(); i += 255) {
        const QByteArray block = data.mid(i, 255);
        out.append(char(block.size()));
        out.append(block);
    }
    out.append('\0');
    out.append(char(0x3B));
    return out;
}

QByteArray wmfFilled(int width, int height, QRgb fill)
{
    const QByteArray records = metafileRecords(width, height, fill);
    return placeableHeader(width, height) + standardHeader(records) + records;
}

QByteArray wmfStandard(int width, int height, QRgb fill)
{
    const QByteArray records = metafileRecords(width, height, fill);
    return standardHeader(records) + records;
}

QByteArray wmfWithFrame(int width, int height)
{
    const QByteArray records = metafileRecords(width, height, qRgb(0, 0, 255));
    return placeableHeader(width, height) + standardHeader(records) + records;
}

QString write(const QString& dir, const QString& name, const QByteArray& bytes)
{
    const QString path = dir + QLatin1Char('/') + name;
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(bytes);
    return path;
}

} // namespace TestPictures
