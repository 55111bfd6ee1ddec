// Reference for the start-up benchmark: the smallest Qt 6 window.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QWidget window;
    window.setWindowTitle(QStringLiteral("Minimal"));
    window.resize(860, 600);
    window.show();
    return app.exec();
}
