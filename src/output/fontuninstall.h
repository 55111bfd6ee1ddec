// FontUninstall: the window that removes fonts installed for this user. It lists their
// font files with family and style; the chosen files go to the desktop trash, so nothing
// is lost, and fontconfig is brought up to date.
#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class QTreeWidget;

class FontUninstall : public QDialog {
    Q_OBJECT
public:
    explicit FontUninstall(QWidget* parent = nullptr);

    // Files moved to the trash while the window was open.
    QStringList RemovedFiles() const { return m_removed; }

    QLabel* Label1 = nullptr;
    QLabel* Label2 = nullptr;
    QTreeWidget* List1 = nullptr;
    QPushButton* Command1 = nullptr;
    QPushButton* Command2 = nullptr;

    void setVisible(bool visible) override;

public Q_SLOTS:
    // Fills the list from the user's font folders.
    void Remplir();
    void List1_SelectionChanged();
    // Asks for confirmation, then moves the selected files to the trash.
    void Command1_Click();
    void Command2_Click();

protected:
    void Form_Load();

private:
    QStringList m_removed;
    bool m_loaded = false;
};
