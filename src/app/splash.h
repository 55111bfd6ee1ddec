// Splash: the start-up window that carries the donation reminder. It closes on a
// click, on any key that produces a character, or by itself after four seconds.
#pragma once

#include <QDialog>

class QLabel;
class QTimer;

class Splash : public QDialog {
    Q_OBJECT
public:
    explicit Splash(QWidget* parent = nullptr);

    QLabel* LoadMsg = nullptr;
    QLabel* Label1 = nullptr;
    QLabel* Image = nullptr;
    QTimer* Timer1 = nullptr;

public Q_SLOTS:
    void Form_Activate();
    void Form_Click();
    void Form_KeyPress(int KeyAscii);
    void Timer1_Timer();

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void unload();
};
