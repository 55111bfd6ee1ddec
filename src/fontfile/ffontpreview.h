// FFontPreview: browses folders for TrueType files and draws the chosen one at a
// series of sizes with its naming strings, whether or not the font is installed.
#pragma once

#include "fontfile/previewtext.h"

#include <QDialog>

class CFontPreview;
class DirListBox;
class DriveListBox;
class FileListBox;
class PictureBox;
class QTimer;

class FFontPreview : public QDialog {
    Q_OBJECT
public:
    explicit FFontPreview(QWidget* parent = nullptr);
    ~FFontPreview() override;

    DriveListBox* Drive1 = nullptr;
    DirListBox* Dir1 = nullptr;
    FileListBox* File1 = nullptr;
    PictureBox* Picture1 = nullptr;
    QTimer* Timer1 = nullptr;

    // Set at load when the program was started with arguments or the start folder
    // could not be opened: every drawing then puts the information text on the clipboard.
    bool copiesToClipboard() const { return m_copyToClipboard; }
    // The information text of the last drawing.
    QString lastInformation() const { return m_information; }

    void setVisible(bool visible) override;

public Q_SLOTS:
    void Drive1_Change();
    void Dir1_Change();
    void File1_Click();
    void Timer1_Timer();

protected:
    void Form_Load();
    void Form_Resize();
    void Form_KeyUp(int KeyCode, int Shift);

    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void DrawSelectedFile();
    void drawSamples(const CFontPreview& preview);
    static PreviewText::FileDescription describe(const CFontPreview& preview);
    static bool leftButtonDown();

    bool m_loaded = false;
    bool m_copyToClipboard = false;
    bool m_errorPending = false;
    QString m_information;
};
