// The sizes of a waterfall, as the user types them ("8 9 10 12, 14"): reading them
// with French messages for what is wrong, writing them back, and keeping them in the
// settings (section "Cascade", key "Tailles").
#pragma once

#include <QList>
#include <QString>

namespace WaterfallSizes {

inline constexpr int Smallest = 4;
inline constexpr int Largest = 400;
inline constexpr int MaxCount = 40;

// 8 9 10 11 12 14 18 24 36 48 72
QList<int> defaults();
// The sizes separated by one blank.
QString format(const QList<int>& sizes);

// Whole numbers of points separated by blanks, commas or semicolons, kept in the order
// typed; a size typed twice counts once. Any other word, a size out of bounds, no size
// or too many sizes gives an error in French and no sizes.
struct Parsed {
    QList<int> sizes;
    QString error;
    bool ok() const { return error.isEmpty(); }
};
Parsed parse(const QString& text);

// The stored sizes; the defaults when there are none or they cannot be read.
QList<int> load();
void save(const QList<int>& sizes);

} // namespace WaterfallSizes
