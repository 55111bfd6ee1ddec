// Splash window: the title picture and two red lines asking for a donation.
#include "app/splash.h"
#include "components/errorreport.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLabel>
#include <QPixmap>
#include <QTimer>
#include <QVBoxLayout>

Splash::Splash(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("Splash"));
    setWindowTitle(QStringLiteral("Glyphora"));
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setModal(true);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 10);
    layout->setSpacing(6);

    Image = new QLabel(this);
    Image->setObjectName(QStringLiteral("Image1"));
    Image->setPixmap(QPixmap(QStringLiteral(":/splash.jpg")));
    layout->addWidget(Image);

    Label1 = new QLabel(QStringLiteral("Glyphora est un logiciel gratuit"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setAlignment(Qt::AlignCenter);
    layout->addWidget(Label1);

    LoadMsg = new QLabel(QStringLiteral("Label1"), this);
    LoadMsg->setObjectName(QStringLiteral("LoadMsg"));
    LoadMsg->setAlignment(Qt::AlignCenter);
    QFont font = LoadMsg->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.2);
    LoadMsg->setFont(font);
    layout->addWidget(LoadMsg);

    setStyleSheet(QStringLiteral("QDialog#Splash { background: white; border: 1px solid #1b3f8a; }"));

    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(4000);
    Timer1->setTimerType(Qt::PreciseTimer); // four seconds, not "about four"
    Timer1->setSingleShot(false);
    ErrorReport::connect(Timer1, &QTimer::timeout, this, &Splash::Timer1_Timer);
    Timer1->start(); // enabled from the moment the window is loaded
}

void Splash::Form_Activate()
{
    QPalette palette = LoadMsg->palette();
    palette.setColor(QPalette::WindowText, QColor(255, 0, 0));
    LoadMsg->setPalette(palette);
    LoadMsg->setText(QStringLiteral("Merci de faire une donation\r\nAllez voir la fenêtre 'A propos de'"));
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void Splash::unload()
{
    Timer1->stop();
    done(QDialog::Accepted);
}

void Splash::Form_Click() { unload(); }
void Splash::Form_KeyPress(int) { unload(); }
void Splash::Timer1_Timer() { unload(); }

bool Splash::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate)
        Form_Activate();
    return QDialog::event(event);
}

void Splash::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    // The reminder must read right even where the window manager never activates it.
    if (LoadMsg->text() == QLatin1String("Label1"))
        Form_Activate();
}

void Splash::keyPressEvent(QKeyEvent* event)
{
    // Only keys that produce a character close the window: not F1, not the arrows.
    const QString text = event->text();
    if (!text.isEmpty() && !(event->modifiers() & Qt::AltModifier))
        Form_KeyPress(text.front().unicode());
    event->accept(); // no other key closes it (Esc included: it produces a character)
}

void Splash::mouseReleaseEvent(QMouseEvent* event)
{
    Form_Click();
    event->accept();
}
