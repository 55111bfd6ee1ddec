// FtstImg: the current sample text over a tiled background picture, printed normally
// (automatic mode) or stamped at an angle wherever the user drags or clicks (manual
// mode). It draws on a canvas that keeps the stamps until the next paint.
#pragma once

#include "components/stdfont.h"
#include "samples/clogfont.h"

#include <QImage>
#include <QWidget>

class QAction;
class QLabel;
class QMenu;

class FtstImg : public QWidget {
    Q_OBJECT
public:
    explicit FtstImg(QWidget* parent = nullptr);
    ~FtstImg() override;

    // The open dialog for a background picture, starting in the last folder used; the
    // chosen path or "" when the user cancelled.
    static QString ChoosePicture(QWidget* owner);
    // Reads a picture; when the file gives none, says so in a message box and returns a
    // null image.
    static QImage ReadPicture(QWidget* owner, const QString& path);

    // 1 automatic, 2 manual.
    int Mode() const { return m_mode; }
    // 1 tiles over the whole window, anything else one column on the left.
    int Placement() const { return m_placement; }
    CLogFont& RotatedFont() { return m_rotated; }
    const StdFont& DrawingFont() const { return m_font; }
    QColor ForeColor() const { return m_foreColor; }
    QColor BackColor() const { return m_backColor; }
    // The drawing surface as it stands (tiles, text and stamps).
    const QImage& Canvas() const { return m_canvas; }
    // The drawing position where the next text is printed.
    QPointF CurrentPosition() const { return m_position; }

    QLabel* Picture1 = nullptr;
    QMenu* mcontextuel = nullptr;
    QAction* mmeth1 = nullptr;
    QAction* mmeth2 = nullptr;
    QAction* mchgpict = nullptr;
    QAction* mmodeautoman = nullptr;
    QAction* mangle = nullptr;
    QAction* mrefresh = nullptr;
    QAction* mquit = nullptr;

    void setVisible(bool visible) override;

public Q_SLOTS:
    void mmeth1_Click();
    void mmeth2_Click();
    void mchgpict_Click();
    void mmodeautoman_Click();
    void mangle_Click();
    void mrefresh_Click();
    void mquit_Click();

    void Form_Paint();
    void Form_KeyPress(int KeyAscii);
    // Button: 1 left, 2 right, 4 middle, added up for the buttons held during a move.
    void Form_MouseMove(int Button, int Shift, float X, float Y);
    void Form_MouseUp(int Button, int Shift, float X, float Y);
    void Form_Resize();

protected:
    void Form_Load();
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void buildMenu();
    bool setPicture(const QImage& picture);
    void readMainWindowFont();
    void prepareCanvas();
    void printText(const QFont& font, double angle);
    void stamp(float x, float y);
    void updateTitle();

    QImage m_canvas;
    StdFont m_font;
    QColor m_foreColor = Qt::black;
    QColor m_backColor = Qt::white;
    CLogFont m_rotated;
    QPointF m_position;
    int m_mode = 1;
    int m_placement = 1;
    bool m_loaded = false;
};
