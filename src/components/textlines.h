// TextLines: a text cut into its lines, where CR LF, LF and CR each end one. Written
// out rather than with a shared regular expression so that any thread can use it.
#pragma once

#include <QList>
#include <QStringView>

namespace TextLines {
// The lines of `text`, without their ends; a text with no line end is one line. The
// views point into `text`.
QList<QStringView> split(QStringView text);
}
