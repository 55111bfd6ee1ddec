// FontInfo: the text metrics of the font chosen in the main window, at its size and
// styles, as labelled numbers; everything is taken when the window loads.
#pragma once

#include "fontfile/textmetric.h"

#include <QDialog>
#include <QStringList>

class PictureBox;
class QPlainTextEdit;

class FontInfo : public QDialog {
    Q_OBJECT
public:
    explicit FontInfo(QWidget* parent = nullptr);

    PictureBox* Picture1 = nullptr;
    QPlainTextEdit* Text1 = nullptr;

    // Text1's text with CR LF line ends, as it was written.
    QString Text() const;

    void setVisible(bool visible) override;

protected:
    void Form_Load();
    void Form_Resize();
    void resizeEvent(QResizeEvent* event) override;

private:
    void applyMainWindowFont();
    // The metrics of Picture1's font as the screen shows it, and what the font file
    // fontconfig matched says about its characters.
    TextMetric GetTextMetrics() const;

    QStringList m_charsets;
    bool m_loaded = false;
};
