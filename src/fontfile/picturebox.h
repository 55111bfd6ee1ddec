// PictureBox: a drawing surface that keeps what is drawn on it in a backing image, so
// the drawing survives repaints until it is cleared; text is printed line by line
// from a drawing position, in the widget's font. Text printed below the bottom grows
// the drawing (up to maxHeight), which is then scrolled with the wheel or ScrollY.
#pragma once

#include <QImage>
#include <QWidget>

class PictureBox : public QWidget {
    Q_OBJECT
public:
    explicit PictureBox(QWidget* parent = nullptr);

    // Clears the drawing to the background and puts the drawing position at (0, 0).
    void Cls();
    int CurrentX() const { return m_x; }
    void setCurrentX(int x) { m_x = x; }
    int CurrentY() const { return m_y; }
    void setCurrentY(int y) { m_y = y; }

    // Draws each line of the text (CR LF, LF or CR between lines) at the drawing
    // position and moves it to the start of the next line, one line height down.
    void Print(const QString& text);
    // The height of one printed line in the current font.
    int TextHeight() const;

    // What has been drawn, as big as the largest size the box has had, or taller
    // where printing went below the bottom.
    QImage Image() const { return m_image; }

    static constexpr int maxHeight = 12000;
    // The height of what has been printed since the last Cls.
    int ContentHeight() const { return m_contentHeight; }
    // How far the drawing is scrolled up, in pixels.
    int ScrollY() const { return m_scroll; }
    void setScrollY(int y);

Q_SIGNALS:
    void ContentHeightChanged(int height);
    void ScrollYChanged(int y);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void coverSize(const QSize& size);

    QImage m_image;
    int m_x = 0;
    int m_y = 0;
    int m_contentHeight = 0;
    int m_scroll = 0;
    bool m_grown = false; // taller than the widget ever was, because of printing
};
