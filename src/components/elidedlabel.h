// ElidedLabel: a label that can be made narrower than its text. It asks for its text's
// width (or a preferred width, whichever is larger) but accepts any width down to an
// ellipsis, and then shows its text cut with "…". text() is always the whole text.
#pragma once

#include <QLabel>

class ElidedLabel : public QLabel {
    Q_OBJECT
public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    // The width the label asks for at least when there is room.
    int preferredWidth() const { return m_preferredWidth; }
    void setPreferredWidth(int width);
    // The text as it is drawn at the present width.
    QString displayedText() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int horizontalExtra() const;

    int m_preferredWidth = 0;
};
