// FName: browses to a TrueType file and shows the face name under which the system
// would know it, without installing or registering anything.
#pragma once

#include <QDialog>

class DirListBox;
class DriveListBox;
class FileListBox;
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

    void setVisible(bool visible) override;

public Q_SLOTS:
    void Drive1_Change();
    void Dir1_Change();
    void File1_DblClick();
    void Command2_Click();
    void Command1_Click();

protected:
    void Form_Load();

private:
    bool m_loaded = false;
};
