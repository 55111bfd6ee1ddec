// Test driver of the rotated-sample window.
#include "support/sampledriver.h"

#include "app/tglyphora.h"
#include "samples/ftstimg.h"
#include "support/testsupport.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>

namespace SampleDriver {

void chooseFile(const QString& path)
{
    TestSupport::whenModal([path](QWidget* modal) {
        auto* dialog = qobject_cast<QFileDialog*>(modal);
        auto* name = dialog ? dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")) : nullptr;
        if (!name)
            return;
        // The whole path does not depend on the folder the dialog shows.
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
    });
}

std::shared_ptr<QString> acknowledge()
{
    auto text = std::make_shared<QString>();
    TestSupport::whenModal([text](QWidget* modal) {
        if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            *text = box->text();
            box->button(QMessageBox::Ok)->click();
        }
    });
    return text;
}

void answerInput(const QString& answer)
{
    TestSupport::whenModal([answer](QWidget* modal) {
        if (auto* box = qobject_cast<QInputDialog*>(modal)) {
            box->setTextValue(answer);
            box->accept();
        }
    });
}

MessageCatcher::MessageCatcher()
{
    QObject::connect(&m_poll, &QTimer::timeout, [this] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        texts.append(box->text());
        box->button(box->standardButtons() & QMessageBox::Yes ? QMessageBox::Yes : QMessageBox::Ok)->click();
    });
    m_poll.start(10);
}

void sendMouse(QWidget* window, QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held, QPoint pos)
{
    QMouseEvent event(type, QPointF(pos), QPointF(window->mapToGlobal(pos)), button, held, Qt::NoModifier);
    QApplication::sendEvent(window, &event);
}

int inkIn(const QImage& image, const QRect& area)
{
    int count = 0;
    const QRect clipped = area.intersected(image.rect());
    for (int y = clipped.top(); y <= clipped.bottom(); ++y) {
        for (int x = clipped.left(); x <= clipped.right(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (qRed(pixel) < 80 && qGreen(pixel) < 80 && qBlue(pixel) < 80)
                ++count;
        }
    }
    return count;
}

QImage tilePicture()
{
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(qRgb(0, 0, 255));
    image.setPixel(0, 0, qRgb(255, 0, 0));
    return image;
}

FtstImg* open(tglyphora* main, const QString& path)
{
    chooseFile(path);
    main->mimgfond_Click();
    return main->findChild<FtstImg*>();
}

bool resizeTo(FtstImg* window, int width, int height)
{
    window->resize(width, height);
    return TestSupport::waitFor([&] { return window->Canvas().size() == QSize(width, height); });
}

void switchToManual(FtstImg* window)
{
    acknowledge();
    window->mmodeautoman->trigger();
}

void setAngle(FtstImg* window, const QString& answer)
{
    answerInput(answer);
    window->mangle->trigger();
}

} // namespace SampleDriver
