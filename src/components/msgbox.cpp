// Message boxes, named "MsgBox" so that they can be found and answered.
#include "components/msgbox.h"

#include <QMessageBox>

namespace MsgBox {

void Inform(QWidget* owner, const QString& text)
{
    QMessageBox box(QMessageBox::NoIcon, QStringLiteral("Glyphora"), text, QMessageBox::Ok, owner);
    box.setObjectName(QStringLiteral("MsgBox"));
    box.exec();
}

bool Ask(QWidget* owner, const QString& text)
{
    QMessageBox box(QMessageBox::Question, QStringLiteral("Glyphora"), text, QMessageBox::Yes | QMessageBox::No, owner);
    box.setObjectName(QStringLiteral("MsgBox"));
    return box.exec() == QMessageBox::Yes;
}

} // namespace MsgBox
