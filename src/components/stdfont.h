// StdFont: a plain font description (face name, size in points, weight and styles,
// character set) that can be copied freely and turned into a QFont.
#pragma once

#include <QFont>
#include <QString>

class StdFont {
public:
    StdFont() = default;

    bool Bold() const { return m_weight > 550; }
    void setBold(bool bold) { m_weight = bold ? 700 : 400; }
    short Charset() const { return m_charset; }
    void setCharset(short charset) { m_charset = charset; }
    bool Italic() const { return m_italic; }
    void setItalic(bool italic) { m_italic = italic; }
    QString Name() const { return m_name; }
    void setName(const QString& name) { m_name = name; }
    // Points, kept to four decimals as the fixed-point size of the original type.
    double Size() const { return m_size; }
    void setSize(double points);
    bool Strikethrough() const { return m_strikethrough; }
    void setStrikethrough(bool on) { m_strikethrough = on; }
    bool Underline() const { return m_underline; }
    void setUnderline(bool on) { m_underline = on; }
    short Weight() const { return m_weight; }
    void setWeight(short weight) { m_weight = weight; }

    QFont toQFont() const;
    static StdFont fromQFont(const QFont& font);

    bool operator==(const StdFont&) const = default;

private:
    QString m_name;
    double m_size = 8.25;
    short m_weight = 400;
    short m_charset = 0;
    bool m_italic = false;
    bool m_underline = false;
    bool m_strikethrough = false;
};
