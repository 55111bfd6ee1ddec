// The Unicode character table window: construction, loading on the main window's
// face, the block list, the search, the zoom and its setting.
#include "samples/unicodetable.h"

#include "app/debut.h"
#include "app/tglyphora.h"
#include "components/errorreport.h"
#include "components/settings.h"
#include "samples/unicodeblocks.h"
#include "samples/unicodegrid.h"
#include "samples/unicodenames.h"
#include "samples/unicodesearch.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QVBoxLayout>
#include <algorithm>

UnicodeTable::UnicodeTable(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("UnicodeTable"));
    setWindowTitle(QStringLiteral("Table des caractères Unicode"));
    setSizeGripEnabled(true);
    resize(1200, 740);

    lstBlocs = new QListWidget(this);
    lstBlocs->setObjectName(QStringLiteral("lstBlocs"));
    lstBlocs->setUniformItemSizes(true);
    lstBlocs->setTextElideMode(Qt::ElideMiddle); // the counts at the end stay readable
    lstBlocs->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lstBlocs->setFixedWidth(290);
    grdCaracteres = new UnicodeGrid(this);
    grdCaracteres->setObjectName(QStringLiteral("grdCaracteres"));
    lblEtat = new QLabel(this);
    lblEtat->setObjectName(QStringLiteral("lblEtat"));

    auto* middle = new QHBoxLayout;
    middle->addWidget(lstBlocs);
    middle->addWidget(grdCaracteres, 1);
    middle->addWidget(buildDetails());
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(buildSearchBar());
    layout->addLayout(middle, 1);
    layout->addWidget(buildCopyBar());
    layout->addWidget(lblEtat);
    connectControls();
    setTabOrder(txtCherche, grdCaracteres);
}

QWidget* UnicodeTable::buildSearchBar()
{
    auto* bar = new QWidget(this);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    lblPolice = new QLabel(bar);
    lblPolice->setObjectName(QStringLiteral("lblPolice"));
    txtCherche = new QLineEdit(bar);
    txtCherche->setObjectName(QStringLiteral("txtCherche"));
    txtCherche->setPlaceholderText(QStringLiteral("Rechercher un caractère"));
    txtCherche->setToolTip(QStringLiteral("Mots du nom anglais (« per mille », « arrow »), code (U+20AC, 20ac, "
                                          "0x20AC, &#8364;, &euro;) ou le caractère lui-même"));
    txtCherche->setClearButtonEnabled(true);
    chkHorsPolice = new QCheckBox(QStringLiteral("Chercher aussi hors de la police"), bar);
    chkHorsPolice->setObjectName(QStringLiteral("chkHorsPolice"));
    chkAbsents = new QCheckBox(QStringLiteral("Afficher aussi les caractères absents"), bar);
    chkAbsents->setObjectName(QStringLiteral("chkAbsents"));
    auto* zoomLabel = new QLabel(QStringLiteral("Zoom :"), bar);
    sldZoom = new QSlider(Qt::Horizontal, bar);
    sldZoom->setObjectName(QStringLiteral("sldZoom"));
    sldZoom->setRange(MinZoom, MaxZoom);
    sldZoom->setValue(DefaultZoom);
    sldZoom->setSingleStep(4);
    sldZoom->setPageStep(12);
    sldZoom->setFixedWidth(120);
    sldZoom->setToolTip(QStringLiteral("Taille des cases"));
    row->addWidget(lblPolice);
    row->addWidget(txtCherche, 1);
    row->addWidget(chkHorsPolice);
    row->addWidget(chkAbsents);
    row->addWidget(zoomLabel);
    row->addWidget(sldZoom);
    return bar;
}

void UnicodeTable::connectControls()
{
    ErrorReport::connect(txtCherche, &QLineEdit::textChanged, this, &UnicodeTable::txtCherche_Change);
    connect(txtCherche, &QLineEdit::returnPressed, grdCaracteres, [this] { grdCaracteres->setFocus(); });
    ErrorReport::connect(chkHorsPolice, &QCheckBox::clicked, this, &UnicodeTable::chkHorsPolice_Click);
    ErrorReport::connect(chkAbsents, &QCheckBox::clicked, this, &UnicodeTable::chkAbsents_Click);
    ErrorReport::connect(sldZoom, &QSlider::valueChanged, this, &UnicodeTable::sldZoom_Change);
    ErrorReport::connect(sldZoom, &QSlider::sliderReleased, this, &UnicodeTable::saveZoom);
    ErrorReport::connect(lstBlocs, &QListWidget::itemClicked, this, &UnicodeTable::lstBlocs_Click);
    ErrorReport::connect(lstBlocs, &QListWidget::currentRowChanged, this, &UnicodeTable::lstBlocs_Click);
    ErrorReport::connect(grdCaracteres, &UnicodeGrid::currentChanged, this, &UnicodeTable::grdCaracteres_Change);
    ErrorReport::connect(grdCaracteres, &UnicodeGrid::activated, this, &UnicodeTable::grdCaracteres_DblClick);
    ErrorReport::connect(grdCaracteres, &UnicodeGrid::menuRequested, this, &UnicodeTable::showContextMenu);
    connect(NameIndexLoader::instance(), &NameIndexLoader::ready, this, [this] {
        if (m_searchPending)
            refreshCells();
    });
}

void UnicodeTable::setVisible(bool visible)
{
    if (visible && !m_loaded) {
        m_loaded = true;
        ErrorReport::guard([this] { Form_Load(); });
    }
    QDialog::setVisible(visible);
}

static int storedZoom()
{
    bool ok = false;
    const int zoom = Settings::GetSetting(QString::fromLatin1(Settings::AppName),
                                          QString::fromLatin1(UnicodeTable::SettingsSection),
                                          QString::fromLatin1(UnicodeTable::ZoomKey))
                         .trimmed()
                         .toInt(&ok);
    return ok ? std::clamp(zoom, int(UnicodeTable::MinZoom), int(UnicodeTable::MaxZoom)) : UnicodeTable::DefaultZoom;
}

void UnicodeTable::Form_Load()
{
    m_faceName = debut::CurrentFaceName;
    if (const tglyphora* main = tglyphora::instance()) {
        m_bold = main->ButtonValue(tglyphora::BoldButton) != 0;
        m_italic = main->ButtonValue(tglyphora::ItalicButton) != 0;
    }
    QFont face;
    face.setFamilies({m_faceName});
    face.setBold(m_bold);
    face.setItalic(m_italic);
    face.setStyleStrategy(QFont::NoFontMerging);
    grdCaracteres->setFaceFont(face);
    picApercu->setFaceFont(face);
    QString caption = m_faceName;
    if (m_bold)
        caption += QStringLiteral(", gras");
    if (m_italic)
        caption += QStringLiteral(", italique");
    lblPolice->setText(QStringLiteral("Police : ") + caption);

    m_coverage = UnicodeCoverage::ofFamily(m_faceName, m_bold, m_italic);
    {
        const QSignalBlocker blocker(sldZoom);
        sldZoom->setValue(storedZoom());
    }
    grdCaracteres->setCellSize(sldZoom->value());
    fillBlockList();
    refreshCells();
    grdCaracteres->setFocus();
}

void UnicodeTable::fillBlockList()
{
    const QSignalBlocker blocker(lstBlocs);
    lstBlocs->clear();
    for (const UnicodeBlocks::Coverage& covered : UnicodeBlocks::coverage(m_coverage.codes())) {
        auto* item = new QListWidgetItem(UnicodeBlocks::entryText(covered), lstBlocs);
        item->setData(Qt::UserRole, uint(covered.block->first));
        item->setToolTip(covered.block->englishName);
    }
}

void UnicodeTable::refreshCells()
{
    const QLocale french(QLocale::French);
    const QString text = txtCherche->text();
    if (!m_coverage.hasFace()) {
        m_searchPending = false;
        grdCaracteres->setCells({});
        lblEtat->setText(QStringLiteral("Police introuvable : ") + m_faceName);
        return;
    }
    if (text.trimmed().isEmpty()) {
        m_searchPending = false;
        grdCaracteres->setCells(m_coverage.cells(chkAbsents->isChecked()));
        lblEtat->setText(QStringLiteral("%1 caractères dans la police").arg(french.toString(qlonglong(m_coverage.codes().size()))));
        return;
    }
    const UnicodeSearch::Query query = UnicodeSearch::parse(text);
    const auto index = NameIndexLoader::instance()->index();
    m_searchPending = !query.words.isEmpty() && !index;
    if (m_searchPending)
        NameIndexLoader::instance()->request();
    const auto cells = m_coverage.cellsOf(UnicodeSearch::matches(query, index.get()), chkHorsPolice->isChecked());
    const qlonglong found = qlonglong(cells.size());
    grdCaracteres->setCells(cells);
    if (m_searchPending)
        lblEtat->setText(QStringLiteral("Recherche dans les noms des caractères en préparation..."));
    else
        lblEtat->setText(found == 0 ? QStringLiteral("Aucun caractère trouvé")
                                    : QStringLiteral("%1 caractère(s) trouvé(s)").arg(french.toString(found)));
}

void UnicodeTable::txtCherche_Change()
{
    refreshCells();
}

void UnicodeTable::chkHorsPolice_Click()
{
    if (!txtCherche->text().trimmed().isEmpty())
        refreshCells();
}

void UnicodeTable::chkAbsents_Click()
{
    if (txtCherche->text().trimmed().isEmpty())
        refreshCells();
}

void UnicodeTable::sldZoom_Change()
{
    grdCaracteres->setCellSize(sldZoom->value());
    if (!sldZoom->isSliderDown())
        saveZoom();
}

void UnicodeTable::saveZoom()
{
    Settings::SaveSetting(QString::fromLatin1(Settings::AppName), QString::fromLatin1(SettingsSection),
                          QString::fromLatin1(ZoomKey), QString::number(sldZoom->value()));
}

void UnicodeTable::lstBlocs_Click()
{
    const QListWidgetItem* item = lstBlocs->currentItem();
    if (!item)
        return;
    const char32_t first = char32_t(item->data(Qt::UserRole).toUInt());
    const int index = grdCaracteres->indexAtOrAfter(first);
    if (index >= grdCaracteres->cellCount())
        return;
    grdCaracteres->scrollToTop(index);
    grdCaracteres->setCurrentIndex(index);
}

void UnicodeTable::selectBlockOf(char32_t code)
{
    const QSignalBlocker blocker(lstBlocs);
    for (int row = 0; row < lstBlocs->count(); ++row) {
        const char32_t first = char32_t(lstBlocs->item(row)->data(Qt::UserRole).toUInt());
        const UnicodeBlocks::Block* block = UnicodeBlocks::blockOf(first);
        if (block && code >= block->first && code <= block->last) {
            lstBlocs->setCurrentRow(row);
            return;
        }
    }
    lstBlocs->setCurrentRow(-1);
}

void UnicodeTable::grdCaracteres_Change()
{
    if (const auto code = selectedCode())
        selectBlockOf(*code);
    showDetails();
}

std::optional<char32_t> UnicodeTable::selectedCode() const
{
    return grdCaracteres->currentCode();
}

void UnicodeTable::cmdFermer_Click()
{
    close();
}
