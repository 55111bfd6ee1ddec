// charmap: the 8-bit characters (Windows-1252) of the main window's current font as a
// grid of 224 cells and a list, with the code of the character under the mouse in
// decimal, hexadecimal, octal and binary; a character can be copied to the clipboard.
#pragma once

#include <QDialog>
#include <QList>

class QLabel;
class QListWidget;
class QPushButton;

class charmap : public QDialog {
    Q_OBJECT
public:
    explicit charmap(QWidget* parent = nullptr);

    // Cell Index (0..223) shows the character of code Index + 32; any other index is
    // error 9.
    QLabel* Label1(int Index) const;
    // The cell last given a border.
    int HighlightedCell() const { return m_highlighted; }

    QLabel* Label2 = nullptr;
    QLabel* Label3 = nullptr;
    QLabel* Label4 = nullptr;
    QLabel* Label5 = nullptr;
    QLabel* Label6 = nullptr;
    QLabel* Label7 = nullptr;
    QLabel* Label8 = nullptr;
    QLabel* Label9 = nullptr;
    QLabel* Label10 = nullptr;
    QLabel* Label11 = nullptr;
    QLabel* Label12 = nullptr;
    QLabel* Label13 = nullptr;
    // Under the large character: "Absent de cette police" when the face lacks it.
    QLabel* Label14 = nullptr;
    QListWidget* List1 = nullptr;
    QPushButton* Command1 = nullptr;
    QPushButton* Command2 = nullptr;

    void setVisible(bool visible) override;

public Q_SLOTS:
    void Label1_MouseMove(int Index);
    void Label1_DblClick(int Index);
    void List1_Click();
    void List1_DblClick();
    void Command1_Click();
    void Command2_Click();

protected:
    void Form_Load();
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* buildGrid();
    QWidget* buildDetails();
    void showCodes(int code);
    void showPresence(const QString& character);
    void setBorder(int index, bool on);

    QList<QLabel*> m_cells;
    int m_highlighted = 0;
    bool m_loaded = false;
};
