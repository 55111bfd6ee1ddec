// FontDetails: everything a font file says about the faces of the family selected in
// the main window (identity and licence, metrics, OpenType features, variation axes),
// with a live sample of the main window's text that follows the features checked and
// the axes moved. The family, text, size and colours are taken when the window loads.
#pragma once

#include "fontfile/detailsfields.h"
#include "fontfile/facetables.h"
#include "fontfile/fontsystem.h"
#include "fontfile/samplerenderer.h"

#include <QColor>
#include <QDialog>
#include <QList>
#include <QSet>

class QComboBox;
class QGridLayout;
class QLayout;
class QLabel;
class QPushButton;
class QSlider;
class QTabWidget;
class QTextBrowser;
class QTreeWidget;
class QTreeWidgetItem;
class QWidget;

class FontDetails : public QDialog {
    Q_OBJECT
public:
    explicit FontDetails(QWidget* parent = nullptr);
    ~FontDetails() override;

    QTreeWidget* lstFaces = nullptr;
    QTabWidget* tabDetails = nullptr;
    QTextBrowser* txtIdentite = nullptr;
    QTreeWidget* lstMetriques = nullptr;
    QLabel* picMetriques = nullptr;
    QTreeWidget* lstFonctions = nullptr;
    QComboBox* cboInstances = nullptr;
    QList<QSlider*> sldAxe;      // one per axis of the selected face, `sldAxe_<n>`
    QList<QLabel*> lblAxe;       // the axis name and value above each slider
    QLabel* picEchantillon = nullptr;
    QPushButton* cmdCopierCSS = nullptr;
    QPushButton* cmdCopierRapport = nullptr;
    QPushButton* cmdFermer = nullptr;

    // What the window was loaded with.
    QString family() const { return m_state.family; }
    double points() const { return m_state.points; }
    QString sampleText() const { return m_text; }
    double samplePixelSize() const;
    // The selected face, what it says, and the axes' values.
    const QList<FontSystem::FamilyFace>& faces() const { return m_faces; }
    const DetailsFields::State& state() const { return m_state; }
    // The last live sample drawn: its image and glyphs.
    const SampleRenderer::Result& sample() const { return m_sample; }

    QString cssText() const;
    QString reportText() const;

    void setVisible(bool visible) override;

public Q_SLOTS:
    void lstFaces_Click();
    void lstFonctions_ItemCheck(QTreeWidgetItem* Item);
    void sldAxe_Change(int Index);
    void cboInstances_Click();
    void cmdCopierCSS_Click();
    void cmdCopierRapport_Click();
    void cmdFermer_Click();

protected:
    void Form_Load();

private:
    void buildControls();
    QWidget* buildMetricsPage();
    QLayout* buildButtons();
    QWidget* buildFeaturesPage();
    QWidget* buildAxesPage();
    void readMainWindow();
    void fillFaces();
    void loadFace(int row);
    void fillIdentity();
    void fillMetrics();
    void fillFeatures();
    void fillAxes();
    void clearAxes();
    void showInstanceOfAxes();
    void drawMetricsPicture();
    void drawSample();
    SampleRenderer::Request faceRequest() const;
    int axisScale(int axis) const;

    QList<FontSystem::FamilyFace> m_faces;
    int m_row = -2; // the face shown, -1 for none
    DetailsFields::State m_state;
    QString m_text;
    QColor m_foreground = Qt::black;
    QColor m_background = Qt::white;
    SampleRenderer m_renderer;
    SampleRenderer::Result m_sample;
    QWidget* m_axesBox = nullptr;
    QGridLayout* m_axesGrid = nullptr;
    QLabel* m_noAxes = nullptr;
    QLabel* m_noFeatures = nullptr;
    bool m_loaded = false;
};
