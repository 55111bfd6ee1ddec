// Comparer: the window "Comparer des polices". Fonts picked from a searchable list of
// every family are shown one under the other, the same text at the same size and
// styles, or one font as a waterfall of sizes; the comparison prints or goes to a PDF.
#pragma once

#include "output/comparemodel.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QListView;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QScrollArea;
class ComparisonView;
class FamilyProxy;

class Comparer : public QDialog {
    Q_OBJECT
public:
    explicit Comparer(QWidget* parent = nullptr);

    const CompareModel& model() const { return m_model; }
    // Adds a font to the comparison; past 20 fonts the user is told and nothing changes.
    bool addFont(const QString& family);

    QLineEdit* txtFiltre = nullptr;
    QListView* lstPolices = nullptr;
    QPushButton* cmdAjouter = nullptr;
    QListWidget* lstChoix = nullptr;
    QPushButton* cmdRetirer = nullptr;
    QPushButton* cmdMonter = nullptr;
    QPushButton* cmdDescendre = nullptr;
    QPlainTextEdit* txtTexte = nullptr;
    QComboBox* cboTaille = nullptr;
    QCheckBox* chkCascade = nullptr;
    QLineEdit* txtTailles = nullptr;
    QScrollArea* scrComparaison = nullptr;
    ComparisonView* picComparaison = nullptr;
    QCheckBox* chkApercu = nullptr;
    QPushButton* cmdImprimer = nullptr;
    QPushButton* cmdPDF = nullptr;
    QPushButton* cmdFermer = nullptr;

public Q_SLOTS:
    void txtFiltre_Change();
    void cmdAjouter_Click();
    void cmdRetirer_Click();
    void cmdMonter_Click();
    void cmdDescendre_Click();
    void lstChoix_Click();
    void lstChoix_OLEDragDrop();
    void txtTexte_Change();
    void cboTaille_Click();
    void chkCascade_Click();
    void txtTailles_Validate();
    void cmdImprimer_Click();
    void cmdPDF_Click();
    void cmdFermer_Click();

public:
    void setVisible(bool visible) override;

protected:
    void Form_Load();

private:
    void createControls();
    void arrangeControls();
    void connectControls();
    // Shows the model again: the chosen fonts' list (keeping `current` selected) and the rows.
    void refresh(int current = -1);
    // Lets the family filter match the other names the main list's index knows.
    void useFamilyIndex();
    void moveCurrent(int step);
    ProofPages::Drawing drawing() const;

    CompareModel m_model;
    FamilyProxy* m_families = nullptr;
    QString m_rejectedSizes; // the last sizes text refused, not to be reported twice
    bool m_loaded = false;
};
