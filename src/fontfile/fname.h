// FName: browses to a font file and shows the face name under which the system would
// know it (one line per face of a collection), without installing or registering
// anything.
#pragma once

#include <QDialog>

class DirListBox;
class DriveListBox;
class FileListBox;
class QComboBox;
class QLabel;
class QPushButton;

class FName : public QDialog {
    Q_OBJECT
public:
    explicit FName(QWidget* parent = nullptr);

    // Where the folder list starts: the system's fonts folder.
    static QString SystemFontsFolder();

    DriveListBox* Drive1 = nullptr;
    DirListBox* Dir1 = nullptr;
    FileListBox* File1 = nullptr;
    QPushButton* Command2 = nullptr;
    QPushButton* Command1 = nullptr;
    QLabel* Label1 = nullptr;
    QComboBox* cboType = nullptr;

    void setVisible(bool visible) override;

public Q_SLOTS:
    void Drive1_Change();
    void Dir1_Change();
    void File1_DblClick();
    void Command2_Click();
    void Command1_Click();
    void cboType_Click();

protected:
    void Form_Load();

private:
    bool m_loaded = false;
};
