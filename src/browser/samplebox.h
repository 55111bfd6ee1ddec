// SampleBox: an editable plain-text sample whose font, alignment, text colour and
// background are set as a whole. Its text reads with CR LF line breaks.
#pragma once

#include <QPlainTextEdit>

class SampleBox : public QPlainTextEdit {
    Q_OBJECT
public:
    // Alignment codes of a text box: 0 left, 1 right, 2 centre.
    enum Alignment { AlignLeft = 0, AlignRight = 1, AlignCenter = 2 };

    explicit SampleBox(QWidget* parent = nullptr);

    QString text() const;            // CR LF between lines
    void setText(const QString& text); // CR LF, LF or CR accepted

    int alignment() const { return m_alignment; }
    void setAlignment(int code);

    QColor ForeColor() const;
    void setForeColor(const QColor& color);
    QColor BackColor() const;
    void setBackColor(const QColor& color);

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    int m_alignment = AlignLeft;
};
