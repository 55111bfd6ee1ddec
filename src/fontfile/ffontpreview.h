// FFontPreview: browses folders for font files and draws the chosen one at a series of
// sizes with its naming strings, whether or not the font is installed; every face of a
// collection in turn. The shown file can be installed for the user.
#pragma once

#include "fontfile/previewtext.h"

#include <QDialog>
#include <QStringList>

class CFontPreview;
class DirListBox;
class DriveListBox;
class FileListBox;
class PictureBox;
class QComboBox;
class QPushButton;
class QScrollBar;
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
    QComboBox* cboType = nullptr;
    QPushButton* cmdInstaller = nullptr;
    QScrollBar* VScroll1 = nullptr; // scrolls Picture1 when the drawing is taller (collections)

    // Set at load when the program was started with arguments or the start folder
    // could not be opened: every drawing then puts the information text on the clipboard.
    bool copiesToClipboard() const { return m_copyToClipboard; }
    // The information text of the last drawing (every face of a collection in turn).
    QString lastInformation() const { return m_information; }
    // Why the last file drawn could not be read (a refused web font), or empty text.
    QString lastMessage() const { return m_message; }

    // Shows the first of these files: the lists move to its folder, every font type is
    // listed (and the given names, whatever they end with), and it is drawn. The others
    // of that folder can be chosen in the list. Before the window is shown, this happens
    // when it loads.
    void ShowFiles(const QStringList& files);

    void setVisible(bool visible) override;

public Q_SLOTS:
    void Drive1_Change();
    void Dir1_Change();
    void File1_Click();
    void Timer1_Timer();
    void cboType_Click();
    void cmdInstaller_Click();

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
    void drawFace(const CFontPreview& preview);
    void applyFiles();
    void updateScrollRange();
    static PreviewText::FileDescription describe(const CFontPreview& preview);
    static bool leftButtonDown();

    bool m_loaded = false;
    bool m_copyToClipboard = false;
    bool m_errorPending = false;
    QString m_information;
    QString m_message;
    QStringList m_files; // given to ShowFiles, shown once the window has loaded
};
