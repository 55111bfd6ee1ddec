// FontDetails: the window's controls, its loading from the main window, the faces
// list and the identity and metrics panes.
#include "fontfile/fontdetails.h"

#include "app/debut.h"
#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "components/conversions.h"
#include "components/errorreport.h"
#include "fontfile/metricspicture.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

// The main window's first sample, for a window opened without it.
const char* const defaultText = "ABCDEFGHIJKLMNOPQRSTUVWXYZ\r\nabcdefghijklmnopqrstuvwxyz\r\n0123456789";

QTreeWidget* newTree(QWidget* parent, const char* name, const QStringList& headers)
{
    auto* tree = new QTreeWidget(parent);
    tree->setObjectName(QString::fromLatin1(name));
    tree->setHeaderLabels(headers);
    tree->setRootIsDecorated(false);
    tree->setUniformRowHeights(true);
    tree->setAlternatingRowColors(true);
    return tree;
}

} // namespace

FontDetails::FontDetails(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("FontDetails"));
    setWindowTitle(QStringLiteral("Détails typographiques"));
    resize(940, 780);
    buildControls();
}

FontDetails::~FontDetails() = default;

void FontDetails::buildControls()
{
    lstFaces = newTree(this, "lstFaces", DetailsFields::faceHeaders());
    lstFaces->setSelectionMode(QAbstractItemView::SingleSelection);
    ErrorReport::connect(lstFaces, &QTreeWidget::itemSelectionChanged, this, &FontDetails::lstFaces_Click);

    txtIdentite = new QTextBrowser(this);
    txtIdentite->setObjectName(QStringLiteral("txtIdentite"));
    txtIdentite->setOpenExternalLinks(true);
    tabDetails = new QTabWidget(this);
    tabDetails->setObjectName(QStringLiteral("tabDetails"));
    tabDetails->addTab(txtIdentite, QStringLiteral("Identité et licence"));
    tabDetails->addTab(buildMetricsPage(), QStringLiteral("Métriques"));
    tabDetails->addTab(buildFeaturesPage(), QStringLiteral("Fonctionnalités OpenType"));
    tabDetails->addTab(buildAxesPage(), QStringLiteral("Axes variables"));

    picEchantillon = new QLabel;
    picEchantillon->setObjectName(QStringLiteral("picEchantillon"));
    picEchantillon->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    auto* sampleArea = new QScrollArea(this);
    sampleArea->setObjectName(QStringLiteral("scrEchantillon"));
    sampleArea->setWidget(picEchantillon);
    sampleArea->setWidgetResizable(true);
    sampleArea->setMinimumHeight(150);

    auto* splitter = new QSplitter(Qt::Vertical, this);
    splitter->setObjectName(QStringLiteral("splDetails"));
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(lstFaces);
    splitter->addWidget(tabDetails);
    splitter->addWidget(sampleArea);
    splitter->setSizes({120, 330, 250});
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(splitter, 1);
    layout->addLayout(buildButtons());
}

QWidget* FontDetails::buildMetricsPage()
{
    auto* page = new QWidget(this);
    lstMetriques = newTree(page, "lstMetriques", {QStringLiteral("Mesure"), QStringLiteral("Unités"), QStringLiteral("Points")});
    lstMetriques->setRootIsDecorated(true);
    picMetriques = new QLabel(page);
    picMetriques->setObjectName(QStringLiteral("picMetriques"));
    picMetriques->setFixedSize(440, 280);
    auto* layout = new QHBoxLayout(page);
    layout->addWidget(lstMetriques, 1);
    layout->addWidget(picMetriques, 0, Qt::AlignTop);
    return page;
}

QLayout* FontDetails::buildButtons()
{
    cmdCopierCSS = new QPushButton(QStringLiteral("Copier le CSS"), this);
    cmdCopierCSS->setObjectName(QStringLiteral("cmdCopierCSS"));
    cmdCopierRapport = new QPushButton(QStringLiteral("Copier le rapport"), this);
    cmdCopierRapport->setObjectName(QStringLiteral("cmdCopierRapport"));
    cmdFermer = new QPushButton(QStringLiteral("Fermer"), this);
    cmdFermer->setObjectName(QStringLiteral("cmdFermer"));
    ErrorReport::connect(cmdCopierCSS, &QPushButton::clicked, this, &FontDetails::cmdCopierCSS_Click);
    ErrorReport::connect(cmdCopierRapport, &QPushButton::clicked, this, &FontDetails::cmdCopierRapport_Click);
    ErrorReport::connect(cmdFermer, &QPushButton::clicked, this, &FontDetails::cmdFermer_Click);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdCopierCSS);
    buttons->addWidget(cmdCopierRapport);
    buttons->addStretch(1);
    buttons->addWidget(cmdFermer);
    return buttons;
}

void FontDetails::setVisible(bool visible)
{
    if (visible && !m_loaded) {
        m_loaded = true;
        ErrorReport::guard([this] { Form_Load(); });
    }
    QDialog::setVisible(visible);
}

void FontDetails::Form_Load()
{
    readMainWindow();
    setWindowTitle(QStringLiteral("Détails typographiques - ") + m_state.family);
    m_faces = DetailsFields::sortedFaces(FontSystem::familyFaces(m_state.family));
    fillFaces();
    const int regular = DetailsFields::regularFace(m_faces);
    if (regular >= 0)
        lstFaces->setCurrentItem(lstFaces->topLevelItem(regular)); // loads the face
    if (m_row != regular || regular < 0)
        loadFace(regular);
}

// The family selected in the list, the first sample's text, the size and colours.
void FontDetails::readMainWindow()
{
    m_state.family = debut::CurrentFaceName;
    m_text = QString::fromLatin1(defaultText);
    tglyphora* main = tglyphora::instance();
    if (!main)
        return;
    if (QTreeWidgetItem* selected = main->List1->currentItem())
        m_state.family = selected->text(0);
    m_text = main->Text1->text();
    const double size = Conversions::leadingNumber(main->Combo1->currentText());
    if (size > 0)
        m_state.points = size;
    m_foreground = main->Text1->ForeColor();
    m_background = main->Text1->BackColor();
}

void FontDetails::fillFaces()
{
    const QSignalBlocker blocker(lstFaces);
    lstFaces->clear();
    for (const auto& face : std::as_const(m_faces)) {
        auto* item = new QTreeWidgetItem(lstFaces, DetailsFields::faceColumns(face));
        item->setToolTip(6, face.path);
    }
    for (int column = 0; column < 6; ++column)
        lstFaces->resizeColumnToContents(column);
}

void FontDetails::lstFaces_Click()
{
    QTreeWidgetItem* item = lstFaces->currentItem();
    const int row = item ? lstFaces->indexOfTopLevelItem(item) : -1;
    if (row >= 0 && row != m_row)
        loadFace(row);
}

void FontDetails::loadFace(int row)
{
    setCursor(Qt::WaitCursor);
    m_row = row;
    m_state.face = row >= 0 ? m_faces[row] : FontSystem::FamilyFace{};
    m_state.data = row >= 0 ? FaceTables::read(m_state.face.path, m_state.face.index) : FaceTables::FaceData{};
    m_state.checked = DetailsFields::defaultChecked(m_state.data.features);
    m_state.axisValues = m_state.data.coordinates;
    fillIdentity();
    fillMetrics();
    fillFeatures();
    fillAxes();
    drawMetricsPicture();
    drawSample();
    unsetCursor();
}

void FontDetails::fillIdentity()
{
    QString html = QStringLiteral("<table cellspacing='0' cellpadding='3'>");
    for (const auto& field : DetailsFields::identityFields(m_state.data)) {
        QString value = field.value.toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>"));
        if (!field.link.isEmpty())
            value = QStringLiteral("<a href=\"%1\">%2</a>").arg(field.link.toHtmlEscaped(), value);
        html += QStringLiteral("<tr><td valign='top'><b>%1</b></td><td>%2</td></tr>").arg(field.label.toHtmlEscaped(), value);
    }
    html += QStringLiteral("</table>");
    txtIdentite->setHtml(html);
}

void FontDetails::fillMetrics()
{
    lstMetriques->clear();
    for (const auto& field : DetailsFields::metricFields(m_state.data, m_state.points)) {
        auto* item = new QTreeWidgetItem(lstMetriques, {field.label, field.value, field.points});
        for (const QString& child : field.children)
            new QTreeWidgetItem(item, {child});
        item->setExpanded(field.children.size() <= 3); // long range lists stay folded
    }
    // Fixed widths: the long lines under a field (Unicode ranges) would push the values out of sight.
    lstMetriques->setColumnWidth(0, 230);
    lstMetriques->resizeColumnToContents(1);
}

void FontDetails::drawMetricsPicture()
{
    MetricsPicture::Colours colours;
    colours.background = palette().color(QPalette::Base);
    colours.text = palette().color(QPalette::Text);
    colours.lines = palette().color(QPalette::Highlight);
    const auto picture = MetricsPicture::draw(m_renderer, faceRequest(), MetricsPicture::firstWord(m_text),
                                              m_state.data, picMetriques->size(), colours);
    picMetriques->setPixmap(QPixmap::fromImage(picture.image));
}

double FontDetails::samplePixelSize() const
{
    return m_state.points * logicalDpiY() / 72.0;
}

QString FontDetails::cssText() const
{
    return DetailsFields::cssText(m_state);
}

QString FontDetails::reportText() const
{
    return DetailsFields::reportText(m_state, m_faces);
}
