// Drive, folder and file lists for browsing to font files: the mounted volumes, the
// folder hierarchy down to the current folder with its subfolders, and the files of a
// folder matching a pattern. Each volume remembers its own current folder.
#pragma once

#include <QComboBox>
#include <QListWidget>
#include <QString>
#include <QStringList>

namespace DriveFolders {

// The mounted volumes' root folders, read from the system when first asked.
QStringList volumes();
void refreshVolumes();
// Replaces the list of volumes (any folders can stand for volumes).
void setVolumes(const QStringList& roots);
// The volume holding a path: the longest root that contains it; empty when none.
QString volumeOf(const QString& path);
// The current folder of a volume: the process's when it lies on that volume, else
// the folder last made current there, else the volume's root.
QString currentFolderOf(const QString& volumeRoot);
// Makes a folder the process's current one (and its volume's); RuntimeError 76 when
// it does not exist.
void ChDir(const QString& path);
// Makes a volume's current folder the process's current one.
void ChDrive(const QString& volumeRoot);

} // namespace DriveFolders

class DriveListBox : public QComboBox {
    Q_OBJECT
public:
    explicit DriveListBox(QWidget* parent = nullptr);

    // The root folder of the chosen volume.
    QString Drive() const;
    // Chooses the volume that holds `path`; RuntimeError 68 when none does.
    void setDrive(const QString& path);
    // Lists the volumes again, keeping the choice when it is still there.
    void Refresh();

Q_SIGNALS:
    void Change();
};

class DirListBox : public QListWidget {
    Q_OBJECT
public:
    explicit DirListBox(QWidget* parent = nullptr);

    QString Path() const { return m_path; }
    // Opens a folder; RuntimeError 76 when it does not exist.
    void setPath(const QString& path);
    // Subfolders of the current folder (indices 0 .. ListCount - 1); the current
    // folder is -1 and its ancestors -2, -3, ... up to the root.
    int ListCount() const { return m_subfolders; }
    QString List(int index) const;
    int ListIndex() const;
    void Refresh();

Q_SIGNALS:
    void Change();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void openItem(QListWidgetItem* item);
    int rowOf(int index) const;

    QString m_path;
    int m_ancestors = 0; // rows above the current folder
    int m_subfolders = 0;
};

class FileListBox : public QListWidget {
    Q_OBJECT
public:
    explicit FileListBox(QWidget* parent = nullptr);

    QString Path() const { return m_path; }
    // Lists another folder; RuntimeError 76 when it does not exist.
    void setPath(const QString& path);
    // Name patterns separated by ";", matched without regard to case.
    QString Pattern() const { return m_pattern; }
    void setPattern(const QString& pattern);

    int ListCount() const { return count(); }
    QString List(int index) const;
    int ListIndex() const { return currentRow(); }
    void setListIndex(int index);
    // The chosen entry's name, without its folder; empty when none is chosen.
    QString FileName() const;
    void Refresh();

Q_SIGNALS:
    void Click();
    void DblClick();

private:
    QString m_path;
    QString m_pattern = QStringLiteral("*.*");
};

// The drive, folder and file lists of a window that browses for font files, made
// and named together ("Drive1", "Dir1", "File1"); the file list shows "*.ttf".
struct FolderBrowser {
    DriveListBox* drive = nullptr;
    DirListBox* folders = nullptr;
    FileListBox* files = nullptr;
};
FolderBrowser createFolderBrowser(QWidget* parent);
// The type box ("cboType") under a file list: the captions of FontTypes, the first one
// chosen and its pattern given to the list. The window gives the list the pattern of
// each type chosen later (its cboType_Click).
QComboBox* createTypeCombo(QWidget* parent, FileListBox* files);
