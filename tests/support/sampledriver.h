// Driving the rotated-sample window in tests: answering its dialogs and message boxes,
// sending it mouse events and reading what its canvas shows.
#pragma once

#include <QEvent>
#include <QImage>
#include <QRect>
#include <QStringList>
#include <QTimer>
#include <memory>

class FtstImg;
class QWidget;
class tglyphora;

namespace SampleDriver {

// The next file dialog gets the whole path typed in its name box, then Return.
void chooseFile(const QString& path);
// The next message box is answered OK; its text is kept.
std::shared_ptr<QString> acknowledge();
// The next input box gets the answer and is accepted.
void answerInput(const QString& answer);

// Answers every message box that comes up while it lives, with Yes when the box asks
// and OK otherwise, and keeps their texts.
class MessageCatcher {
public:
    MessageCatcher();
    QStringList texts;

private:
    QTimer m_poll;
};

void sendMouse(QWidget* window, QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held, QPoint pos);
// Near-black pixels (the sample text is black) inside a rectangle of an image.
int inkIn(const QImage& image, const QRect& area);

// A 40 x 30 blue picture whose top-left pixel is red: every tile corner shows red.
QImage tilePicture();
// The main window's picture command on the given file; the window it opened or nullptr.
FtstImg* open(tglyphora* main, const QString& path);
// Resizes the window and waits until its canvas has the new size.
bool resizeTo(FtstImg* window, int width, int height);
// Manual mode through the menu, its message acknowledged.
void switchToManual(FtstImg* window);
// The angle box of the menu, answered.
void setAngle(FtstImg* window, const QString& answer);

} // namespace SampleDriver
