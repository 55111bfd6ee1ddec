// CompareModel: what the compare window shows, without the window: the fonts compared
// (at most 20, in the user's order), the sample text, the common size and styles, and
// the waterfall (one font at several sizes). It hands out the rows to draw.
#pragma once

#include "output/proofpages.h"

#include <QList>
#include <QString>
#include <QStringList>

class CompareModel {
public:
    static constexpr int MaxFonts = 20;
    // Fonts picked earlier that a new comparison starts with, beside the selected one.
    static constexpr int RecentFonts = 5;

    // The selected font, then up to five of the fonts shown before (most recent first),
    // without repeats and, when `available` is not empty, only fonts it holds.
    static QStringList startingFonts(const QString& selected, const QStringList& recent,
                                     const QStringList& available = {});

    QStringList fonts() const { return m_fonts; }
    int count() const { return int(m_fonts.size()); }
    enum class Added { Added, AlreadyThere, Full };
    Added add(const QString& font);
    bool remove(int index);
    // Moves the font at `from` to `to` (both in range).
    bool move(int from, int to);
    // The same fonts in a new order (as a drag in the list leaves them); anything else is
    // refused.
    bool reorder(const QStringList& order);

    QString text() const { return m_text; }
    void setText(const QString& text) { m_text = text; }
    int size() const { return m_size; }
    void setSize(int points);
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;

    // Waterfall mode: one font, one row per size.
    bool cascade() const { return m_cascade; }
    void setCascade(bool on) { m_cascade = on; }
    QList<int> cascadeSizes() const { return m_cascadeSizes; }
    void setCascadeSizes(const QList<int>& sizes);
    // The waterfall's font: the one chosen if still compared, else the first.
    QString cascadeFont() const;
    void setCascadeFont(const QString& font) { m_cascadeFont = font; }

    // A font of the comparison at a size, with the common styles; it draws with its
    // own glyphs only (no other face fills in).
    QFont sampleFont(const QString& family, double points) const;
    // The rows to draw: a row per font (its name, the text at the common size), or in
    // waterfall mode a line per size (the size in points, the text's first line that is
    // not blank, at that size).
    QList<ProofPages::Row> rows() const;
    // "8 pt"
    static QString sizeLabel(int points);
    static QString waterfallLine(const QString& text);

private:
    QStringList m_fonts;
    QString m_text;
    int m_size = 13;
    bool m_cascade = false;
    QList<int> m_cascadeSizes;
    QString m_cascadeFont;
};
