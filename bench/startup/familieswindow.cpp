// Reference for the start-up benchmark: a Qt 6 window listing QFontDatabase::families().
#include <QApplication>
#include <QFontDatabase>
#include <QListWidget>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QListWidget list;
    list.setWindowTitle(QStringLiteral("Families"));
    list.setUniformItemSizes(true);
    list.addItems(QFontDatabase::families());
    list.resize(860, 600);
    list.show();
    return app.exec();
}
