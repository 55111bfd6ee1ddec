// Ptest: the test page dialog. Six steps choose the fonts, the font that writes their
// names, the sample text, the two sizes and the destination; "&Imprimer" prints the
// sheet (after a print preview if asked) or writes it as an RTF, HTML or PDF file.
#pragma once

#include "output/proofpages.h"

#include <QDialog>
#include <QStringList>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QListWidget;
class QPushButton;
class QRadioButton;
class QStatusBar;
class SampleBox;

class Ptest : public QDialog {
    Q_OBJECT
public:
    explicit Ptest(QWidget* parent = nullptr);

    // The file writers: each asks for a file, then writes the selected fonts' sheet.
    void genererrtf();
    void genererhtml();
    // Writes the pages the printer would print as a PDF file chosen by the user.
    void genererpdf();
    // Prints the selected fonts' sheet on the program's printer and ends the document.
    void imprimer();

    // The selected entries of List1, in list order.
    QStringList selectedFonts() const;
    // Asks where to write a sheet and takes the selected fonts; false when the user
    // cancelled, or chose no font (and was told so).
    bool chooseSheetFile(const QString& title, const QString& defaultName, const QString& description,
                         const QString& extension, QString& file, QStringList& fonts);
    // Option1(Index): 0 current printer, 1 RTF file, 2 HTML file, 3 PDF file.
    QRadioButton* Option1(int Index) const;

    QListWidget* List1 = nullptr;
    QListWidget* List2 = nullptr;
    SampleBox* Text1 = nullptr;
    QComboBox* Combo1 = nullptr;
    QComboBox* Combo2 = nullptr;
    QGroupBox* Frame1 = nullptr;
    QPushButton* Command1 = nullptr;
    QPushButton* Command2 = nullptr;
    QPushButton* Command3 = nullptr;
    QPushButton* Command4 = nullptr;
    QPushButton* Command5 = nullptr;
    QCheckBox* chkApercu = nullptr; // print preview before printing
    QListWidget* Temp_list = nullptr;
    QStatusBar* StatusBar1 = nullptr;

public Q_SLOTS:
    void Command1_Click(); // "Inverser"
    void Command2_Click(); // "&Imprimer"
    void Command3_Click(); // "&Annuler"
    void Command4_Click(); // "toutes"
    void Command5_Click(); // "Déselectionner"

public:
    void setVisible(bool visible) override;

protected:
    void Form_Load();

private:
    QLabel* stepLabel(const char* caption);
    void createControls();
    void arrangeControls();
    void showMessage(const QString& text);
    // Applies a selection command to every entry of List1 at once, redrawing it once.
    void walkList1(int command);
    // The printed page as the dialog stands: selected fonts, name font, text, sizes.
    ProofPages::TestPage testPage() const;
    void showFontBeingPrinted(const QString& name);

    QRadioButton* m_options[4] = {};
    bool m_loaded = false;
};
