// The application object: routes every run-time error that escapes an event handler
// to the program's error report instead of letting it unwind through the event loop.
#pragma once

#include <QApplication>

class GlyphoraApplication : public QApplication {
    Q_OBJECT
public:
    GlyphoraApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;
};
