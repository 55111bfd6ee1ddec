// UnicodeTable: the "Table des caractères Unicode" window. Every character the main
// window's current font draws, in a grid of its own glyphs, with the Unicode blocks it
// covers, a search by name or code, the details of the selected character and copying
// in several forms.
#pragma once

#include "samples/unicodecoverage.h"

#include <QDialog>
#include <optional>

class CharacterPreview;
class QCheckBox;
class QFrame;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QSlider;
class UnicodeGrid;

class UnicodeTable : public QDialog {
    Q_OBJECT
public:
    explicit UnicodeTable(QWidget* parent = nullptr);

    // Settings section and key of the zoom, its bounds and its value before any save.
    static constexpr const char* SettingsSection = "TableUnicode";
    static constexpr const char* ZoomKey = "Zoom";
    static constexpr int MinZoom = 24;
    static constexpr int MaxZoom = 96;
    static constexpr int DefaultZoom = 48;

    // The face shown, read from the main window when the window loads.
    QString FaceName() const { return m_faceName; }
    bool isBold() const { return m_bold; }
    bool isItalic() const { return m_italic; }
    const UnicodeCoverage& coverage() const { return m_coverage; }
    // The character whose details are shown, if any.
    std::optional<char32_t> selectedCode() const;
    // True while a search waits for the name index.
    bool searchPending() const { return m_searchPending; }

    QLineEdit* txtCherche = nullptr;
    QCheckBox* chkHorsPolice = nullptr;
    QCheckBox* chkAbsents = nullptr;
    QSlider* sldZoom = nullptr;
    QListWidget* lstBlocs = nullptr;
    UnicodeGrid* grdCaracteres = nullptr;
    QLabel* lblPolice = nullptr;
    QLabel* lblEtat = nullptr;
    QFrame* fraDetails = nullptr;
    CharacterPreview* picApercu = nullptr;
    QLabel* lblNom = nullptr;
    QLabel* lblCode = nullptr;
    QLabel* lblDecimal = nullptr;
    QLabel* lblUtf8 = nullptr;
    QLabel* lblUtf16 = nullptr;
    QLabel* lblEntite = nullptr;
    QLabel* lblBloc = nullptr;
    QLabel* lblEcriture = nullptr;
    QLabel* lblCategorie = nullptr;
    QLabel* lblGlyphe = nullptr;
    QLabel* lblChasse = nullptr;
    QPushButton* cmdCopierCaractere = nullptr;
    QPushButton* cmdCopierCode = nullptr;
    QPushButton* cmdCopierNumerique = nullptr;
    QPushButton* cmdCopierEntite = nullptr;
    QPushButton* cmdCopierUtf8 = nullptr;
    QLineEdit* txtCollecte = nullptr;
    QPushButton* cmdAjouter = nullptr;
    QPushButton* cmdCopier = nullptr;
    QPushButton* cmdFermer = nullptr;

    void setVisible(bool visible) override;

public Q_SLOTS:
    void txtCherche_Change();
    void chkHorsPolice_Click();
    void chkAbsents_Click();
    void sldZoom_Change();
    void lstBlocs_Click();
    void grdCaracteres_Change();
    void grdCaracteres_DblClick();
    void cmdCopierCaractere_Click();
    void cmdCopierCode_Click();
    void cmdCopierNumerique_Click();
    void cmdCopierEntite_Click();
    void cmdCopierUtf8_Click();
    void cmdAjouter_Click();
    void cmdCopier_Click();
    void cmdFermer_Click();

protected:
    void Form_Load();

private:
    QWidget* buildSearchBar();
    QWidget* buildDetails();
    QWidget* buildCopyBar();
    void connectControls();
    void showContextMenu(int index, const QPoint& globalPos);
    void refreshCells();
    void fillBlockList();
    void showDetails();
    void selectBlockOf(char32_t code);
    void copyText(const QString& text);
    void copyFormat(QString (*format)(char32_t));
    void saveZoom();

    QString m_faceName;
    bool m_bold = false;
    bool m_italic = false;
    UnicodeCoverage m_coverage;
    bool m_loaded = false;
    bool m_searchPending = false;
};
