// Comparer: the compare window, its controls and their handlers.
#include "output/comparer.h"

#include "app/debut.h"
#include "app/tglyphora.h"
#include "browser/enumfont.h"
#include "browser/familyindex.h"
#include "browser/fontlistfilter.h"
#include "browser/samplebox.h"
#include "components/cmdialog.h"
#include "components/conversions.h"
#include "components/msgbox.h"
#include "components/printer.h"
#include "output/comparisonview.h"
#include "output/printpreview.h"
#include "output/waterfallsizes.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

const QString failureText = QStringLiteral("Problème pendant l'impression ou la génération du fichier");

QPushButton* makeButton(QWidget* parent, const char* name, const QString& caption)
{
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    return button;
}

template <typename W>
W* named(W* widget, const char* name)
{
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

// What the main window shows: every family, the selected one, its text, size and styles.
struct MainState {
    QStringList families;
    QString selected;
    QString text;
    int size = 13;
    bool styles[4] = {};
};

MainState readMainWindow()
{
    MainState state;
    const tglyphora* main = tglyphora::instance();
    if (!main) {
        state.families = EnumFont::families();
        state.selected = debut::CurrentFaceName;
        return state;
    }
    const int count = main->List1->topLevelItemCount();
    state.families.reserve(count);
    for (int i = 0; i < count; ++i)
        state.families.append(main->List1->topLevelItem(i)->text(0));
    state.selected = main->List1->currentItem() ? main->List1->currentItem()->text(0) : debut::CurrentFaceName;
    state.text = main->Text1->text();
    const int size = int(Conversions::leadingNumber(main->Combo1->currentText()));
    if (size > 0)
        state.size = size;
    for (int i = 0; i < 4; ++i)
        state.styles[i] = main->ButtonValue(tglyphora::BoldButton + i) != 0;
    return state;
}

} // namespace

Comparer::Comparer(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("Comparer"));
    setWindowTitle(QStringLiteral("Comparer des polices"));
    resize(1000, 680);
    createControls();
    arrangeControls();
}

void Comparer::createControls()
{
    txtFiltre = named(new QLineEdit(this), "txtFiltre");
    txtFiltre->setPlaceholderText(QStringLiteral("Rechercher une police"));
    txtFiltre->setClearButtonEnabled(true);
    lstPolices = named(new QListView(this), "lstPolices");
    lstPolices->setUniformItemSizes(true);
    lstPolices->setEditTriggers(QAbstractItemView::NoEditTriggers);
    cmdAjouter = makeButton(this, "cmdAjouter", QStringLiteral("&Ajouter"));
    lstChoix = named(new QListWidget(this), "lstChoix");
    lstChoix->setDragDropMode(QAbstractItemView::InternalMove);
    lstChoix->setDefaultDropAction(Qt::MoveAction);
    cmdRetirer = makeButton(this, "cmdRetirer", QStringLiteral("&Retirer"));
    cmdMonter = makeButton(this, "cmdMonter", QStringLiteral("&Monter"));
    cmdDescendre = makeButton(this, "cmdDescendre", QStringLiteral("&Descendre"));

    txtTexte = named(new QPlainTextEdit(this), "txtTexte");
    txtTexte->setMaximumHeight(4 * fontMetrics().lineSpacing() + 12);
    cboTaille = named(new QComboBox(this), "cboTaille");
    cboTaille->setToolTip(QStringLiteral("Choisissez une taille"));
    cboTaille->setMaxVisibleItems(20);
    cboTaille->setMinimumContentsLength(4);
    chkCascade = named(new QCheckBox(QStringLiteral("Cascade"), this), "chkCascade");
    chkCascade->setToolTip(QStringLiteral("Une seule police, la police choisie, à chaque taille de la cascade"));
    txtTailles = named(new QLineEdit(this), "txtTailles");
    txtTailles->setToolTip(QStringLiteral("Tailles en points, séparées par des blancs ou des virgules"));

    picComparaison = named(new ComparisonView, "picComparaison");
    scrComparaison = named(new QScrollArea(this), "scrComparaison");
    scrComparaison->setWidget(picComparaison);
    scrComparaison->setWidgetResizable(true);
    scrComparaison->setBackgroundRole(QPalette::Base);

    chkApercu = named(new QCheckBox(QStringLiteral("Aperçu avant impression"), this), "chkApercu");
    cmdImprimer = makeButton(this, "cmdImprimer", QStringLiteral("Imprimer"));
    cmdPDF = makeButton(this, "cmdPDF", QStringLiteral("PDF..."));
    cmdFermer = makeButton(this, "cmdFermer", QStringLiteral("Fermer"));
}

void Comparer::arrangeControls()
{
    auto* families = new QVBoxLayout;
    families->addWidget(new QLabel(QStringLiteral("Toutes les polices :"), this));
    families->addWidget(txtFiltre);
    families->addWidget(lstPolices, 1);
    families->addWidget(cmdAjouter);

    auto* chosen = new QVBoxLayout;
    chosen->addWidget(new QLabel(QStringLiteral("Polices comparées (20 au plus) :"), this));
    chosen->addWidget(lstChoix, 1);
    auto* order = new QHBoxLayout;
    for (QPushButton* button : {cmdRetirer, cmdMonter, cmdDescendre})
        order->addWidget(button);
    chosen->addLayout(order);

    auto* settings = new QGridLayout;
    settings->addWidget(new QLabel(QStringLiteral("Texte :"), this), 0, 0, Qt::AlignTop);
    settings->addWidget(txtTexte, 0, 1, 1, 4);
    settings->addWidget(new QLabel(QStringLiteral("Taille :"), this), 1, 0);
    settings->addWidget(cboTaille, 1, 1);
    settings->addWidget(chkCascade, 1, 2);
    settings->addWidget(new QLabel(QStringLiteral("Tailles de la cascade :"), this), 1, 3, Qt::AlignRight);
    settings->addWidget(txtTailles, 1, 4);
    settings->setColumnStretch(4, 1);

    auto* right = new QVBoxLayout;
    right->addLayout(settings);
    right->addWidget(scrComparaison, 1);

    auto* columns = new QHBoxLayout;
    columns->addLayout(families, 2);
    columns->addLayout(chosen, 2);
    columns->addLayout(right, 6);

    auto* actions = new QHBoxLayout;
    actions->addWidget(chkApercu);
    actions->addStretch(1);
    for (QPushButton* button : {cmdImprimer, cmdPDF, cmdFermer})
        actions->addWidget(button);

    auto* page = new QVBoxLayout(this);
    page->addLayout(columns, 1);
    page->addLayout(actions);
}

void Comparer::connectControls()
{
    connect(txtFiltre, &QLineEdit::textChanged, this, &Comparer::txtFiltre_Change);
    connect(lstPolices, &QListView::activated, this, &Comparer::cmdAjouter_Click);
    connect(txtFiltre, &QLineEdit::returnPressed, this, &Comparer::cmdAjouter_Click);
    connect(cmdAjouter, &QPushButton::clicked, this, &Comparer::cmdAjouter_Click);
    connect(cmdRetirer, &QPushButton::clicked, this, &Comparer::cmdRetirer_Click);
    connect(cmdMonter, &QPushButton::clicked, this, &Comparer::cmdMonter_Click);
    connect(cmdDescendre, &QPushButton::clicked, this, &Comparer::cmdDescendre_Click);
    connect(lstChoix, &QListWidget::currentRowChanged, this, &Comparer::lstChoix_Click);
    connect(lstChoix->model(), &QAbstractItemModel::rowsMoved, this, &Comparer::lstChoix_OLEDragDrop);
    connect(txtTexte, &QPlainTextEdit::textChanged, this, &Comparer::txtTexte_Change);
    connect(cboTaille, &QComboBox::currentIndexChanged, this, &Comparer::cboTaille_Click);
    connect(chkCascade, &QCheckBox::toggled, this, &Comparer::chkCascade_Click);
    connect(txtTailles, &QLineEdit::editingFinished, this, &Comparer::txtTailles_Validate);
    connect(cmdImprimer, &QPushButton::clicked, this, &Comparer::cmdImprimer_Click);
    connect(cmdPDF, &QPushButton::clicked, this, &Comparer::cmdPDF_Click);
    connect(cmdFermer, &QPushButton::clicked, this, &Comparer::cmdFermer_Click);
}

void Comparer::setVisible(bool visible)
{
    if (visible && !m_loaded) {
        m_loaded = true;
        Form_Load();
    }
    QDialog::setVisible(visible);
}

void Comparer::Form_Load()
{
    const MainState main = readMainWindow();
    m_families = new FamilyProxy(main.families, this);
    lstPolices->setModel(m_families);
    useFamilyIndex();

    for (const QString& font : CompareModel::startingFonts(main.selected, debut::ShownFaces, main.families))
        m_model.add(font);
    QString text = main.text;
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    m_model.setText(text);
    m_model.setSize(main.size);
    m_model.bold = main.styles[0];
    m_model.italic = main.styles[1];
    m_model.underline = main.styles[2];
    m_model.strikeOut = main.styles[3];
    m_model.setCascadeSizes(WaterfallSizes::load());

    txtTexte->setPlainText(text);
    QStringList sizes;
    for (int n = 4; n <= 120; ++n)
        sizes.append(Conversions::signedText(n));
    cboTaille->addItems(sizes);
    int sizeIndex = cboTaille->findText(Conversions::signedText(m_model.size()));
    if (sizeIndex < 0) {
        sizeIndex = cboTaille->findText(QStringLiteral(" 13"));
        m_model.setSize(13);
    }
    cboTaille->setCurrentIndex(sizeIndex);
    txtTailles->setText(WaterfallSizes::format(m_model.cascadeSizes()));
    connectControls();
    refresh(0);
}

void Comparer::useFamilyIndex()
{
    // The main list's index gives the families' other names; it is built on a worker
    // when nobody has needed it yet, and the list filters on names alone meanwhile.
    const tglyphora* main = tglyphora::instance();
    FontListFilter* filter = main ? main->filtre() : nullptr;
    if (!filter)
        return;
    if (const auto index = filter->index()) {
        m_families->setIndex(index.get());
        return;
    }
    connect(filter, &FontListFilter::indexReady, this, [this, filter] {
        if (const auto index = filter->index())
            m_families->setIndex(index.get());
    });
    filter->ensureIndex();
}

void Comparer::refresh(int current)
{
    {
        const QSignalBlocker blocker(lstChoix);
        lstChoix->clear();
        lstChoix->addItems(m_model.fonts());
        if (current >= 0 && current < lstChoix->count()) {
            lstChoix->setCurrentRow(current);
            m_model.setCascadeFont(m_model.fonts()[current]);
        }
    }
    const bool any = m_model.count() > 0;
    cmdRetirer->setEnabled(any);
    cmdMonter->setEnabled(any);
    cmdDescendre->setEnabled(any);
    cmdImprimer->setEnabled(any);
    cmdPDF->setEnabled(any);
    picComparaison->setRows(m_model.rows());
}

bool Comparer::addFont(const QString& family)
{
    switch (m_model.add(family)) {
    case CompareModel::Added::Added:
        refresh(m_model.count() - 1);
        return true;
    case CompareModel::Added::AlreadyThere:
        lstChoix->setCurrentRow(int(m_model.fonts().indexOf(family)));
        return false;
    case CompareModel::Added::Full:
        MsgBox::Inform(this, QStringLiteral("On ne peut pas comparer plus de %1 polices à la fois. "
                                            "Retirez-en une avant d'en ajouter une autre.")
                                 .arg(CompareModel::MaxFonts));
        return false;
    }
    return false;
}

void Comparer::txtFiltre_Change()
{
    m_families->setQuery(txtFiltre->text());
}

void Comparer::cmdAjouter_Click()
{
    const QModelIndexList picked = lstPolices->selectionModel()->selectedIndexes();
    QModelIndex index = picked.isEmpty() ? lstPolices->currentIndex() : picked.first();
    // Nothing picked: the first family the filter leaves is meant.
    if (!index.isValid())
        index = m_families->index(0, 0);
    if (index.isValid())
        addFont(m_families->family(index));
}

void Comparer::cmdRetirer_Click()
{
    const int row = lstChoix->currentRow();
    if (m_model.remove(row))
        refresh(std::min(row, m_model.count() - 1));
}

void Comparer::moveCurrent(int step)
{
    const int row = lstChoix->currentRow();
    if (m_model.move(row, row + step))
        refresh(row + step);
}

void Comparer::cmdMonter_Click()
{
    moveCurrent(-1);
}

void Comparer::cmdDescendre_Click()
{
    moveCurrent(1);
}

void Comparer::lstChoix_Click()
{
    if (QListWidgetItem* item = lstChoix->currentItem())
        m_model.setCascadeFont(item->text());
    if (m_model.cascade())
        picComparaison->setRows(m_model.rows());
}

void Comparer::lstChoix_OLEDragDrop()
{
    // The list has moved its own rows: the comparison takes their new order.
    QStringList order;
    for (int i = 0; i < lstChoix->count(); ++i)
        order.append(lstChoix->item(i)->text());
    if (m_model.reorder(order))
        picComparaison->setRows(m_model.rows());
}

void Comparer::txtTexte_Change()
{
    m_model.setText(txtTexte->toPlainText());
    picComparaison->setRows(m_model.rows());
}

void Comparer::cboTaille_Click()
{
    const int size = int(Conversions::leadingNumber(cboTaille->currentText()));
    m_model.setSize(size);
    picComparaison->setRows(m_model.rows());
}

void Comparer::chkCascade_Click()
{
    m_model.setCascade(chkCascade->isChecked());
    picComparaison->setRows(m_model.rows());
}

void Comparer::txtTailles_Validate()
{
    const QString text = txtTailles->text();
    const WaterfallSizes::Parsed parsed = WaterfallSizes::parse(text);
    if (!parsed.ok()) {
        // The message box takes the focus, which ends the editing once more.
        if (text == m_rejectedSizes)
            return;
        m_rejectedSizes = text;
        MsgBox::Inform(this, parsed.error);
        return;
    }
    m_rejectedSizes.clear();
    m_model.setCascadeSizes(parsed.sizes);
    WaterfallSizes::save(parsed.sizes);
    txtTailles->setText(WaterfallSizes::format(parsed.sizes));
    picComparaison->setRows(m_model.rows());
}

ProofPages::Drawing Comparer::drawing() const
{
    return [rows = m_model.rows(), label = QApplication::font()](PageFlow& flow) { ProofPages::rows(flow, label, rows); };
}

void Comparer::cmdImprimer_Click()
{
    if (chkApercu->isChecked()) {
        PrintPreview::exec(this, drawing());
        return;
    }
    setCursor(Qt::WaitCursor);
    try {
        Printer& printer = Printer::instance();
        drawing()(printer.flow());
        printer.EndDoc();
        unsetCursor();
    } catch (const std::exception&) {
        unsetCursor();
        MsgBox::Inform(this, failureText);
    }
}

void Comparer::cmdPDF_Click()
{
    const bool cascade = m_model.cascade();
    const QString file = CMDIALOG::ShowFileDialog(
        this, CMDIALOG::ModeSave,
        cascade ? QStringLiteral("Enregistrer la cascade en PDF") : QStringLiteral("Enregistrer la comparaison en PDF"),
        cascade ? QStringLiteral("cascade.pdf") : QStringLiteral("comparaison.pdf"),
        CMDIALOG::BuildFilter({QStringLiteral("Fichier PDF"), QStringLiteral("*.pdf"), QStringLiteral("Tous"), QStringLiteral("*.*")}),
        QStringLiteral("."), QStringLiteral("pdf"));
    if (file.trimmed().isEmpty())
        return;
    setCursor(Qt::WaitCursor);
    Printer& printer = Printer::instance();
    const bool written = ProofPages::writePdf(file, printer.pageLayout(), printer.resolution(),
                                              windowTitle(), drawing());
    unsetCursor();
    if (!written)
        MsgBox::Inform(this, failureText);
}

void Comparer::cmdFermer_Click()
{
    accept();
}
