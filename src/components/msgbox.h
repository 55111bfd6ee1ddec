// The program's message boxes: title "Glyphora", an OK button for information, Yes
// and No for a question (only Yes counts).
#pragma once

#include <QString>

class QWidget;

namespace MsgBox {

void Inform(QWidget* owner, const QString& text);
// True only when the user answers Yes.
bool Ask(QWidget* owner, const QString& text);

} // namespace MsgBox
