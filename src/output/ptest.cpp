// Test page dialog: its six steps, the selection buttons and the writers behind
// "&Imprimer" (printer with its preview, RTF file, HTML file, PDF file).
#include "output/ptest.h"

#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "components/cmdialog.h"
#include "components/conversions.h"
#include "components/errorreport.h"
#include "components/msgbox.h"
#include "components/pageflow.h"
#include "components/printer.h"
#include "output/fontsheet.h"
#include "output/printpreview.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QFile>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QLabel>
#include <QListWidget>
#include <QScrollBar>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSaveFile>
#include <QStatusBar>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

const QString failureText = QStringLiteral("Problème pendant l'impression ou la génération du fichier");
const QString nothingSelectedText = QStringLiteral("Vous n'avez pas sélectionné de police");
const QString sizeHint = QStringLiteral("Choisissez une taille ou appuyer sur + ou -");

QPushButton* makeButton(QWidget* parent, const char* name, const QString& caption)
{
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    return button;
}

QComboBox* makeSizeBox(QWidget* parent, const char* name)
{
    auto* box = new QComboBox(parent);
    box->setObjectName(QString::fromLatin1(name));
    box->setToolTip(sizeHint);
    box->setMaxVisibleItems(20);
    box->setMinimumContentsLength(4);
    return box;
}

} // namespace

Ptest::Ptest(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("Ptest"));
    setWindowTitle(QStringLiteral("Imprimer une page de test"));
    resize(680, 560);
    createControls();
    arrangeControls();
}

QLabel* Ptest::stepLabel(const char* caption)
{
    auto* label = new QLabel(QString::fromUtf8(caption), this);
    label->setWordWrap(true);
    return label;
}

void Ptest::createControls()
{
    List1 = new QListWidget(this);
    List1->setObjectName(QStringLiteral("List1"));
    List1->setSelectionMode(QAbstractItemView::MultiSelection);
    List1->setUniformItemSizes(true);
    List2 = new QListWidget(this);
    List2->setObjectName(QStringLiteral("List2"));
    List2->setSelectionMode(QAbstractItemView::SingleSelection);
    List2->setUniformItemSizes(true);
    Text1 = new SampleBox(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setText(QStringLiteral("Texte d'essai\r\n"));
    Combo1 = makeSizeBox(this, "Combo1");
    Combo2 = makeSizeBox(this, "Combo2");

    Command1 = makeButton(this, "Command1", QStringLiteral("Inverser"));
    Command4 = makeButton(this, "Command4", QStringLiteral("toutes"));
    Command5 = makeButton(this, "Command5", QStringLiteral("Déselectionner"));
    Command2 = makeButton(this, "Command2", QStringLiteral("&Imprimer"));
    Command3 = makeButton(this, "Command3", QStringLiteral("&Annuler"));
    ErrorReport::connect(Command1, &QPushButton::clicked, this, &Ptest::Command1_Click);
    ErrorReport::connect(Command2, &QPushButton::clicked, this, &Ptest::Command2_Click);
    ErrorReport::connect(Command3, &QPushButton::clicked, this, &Ptest::Command3_Click);
    ErrorReport::connect(Command4, &QPushButton::clicked, this, &Ptest::Command4_Click);
    ErrorReport::connect(Command5, &QPushButton::clicked, this, &Ptest::Command5_Click);

    Frame1 = new QGroupBox(QStringLiteral("6) Choisissez la destination "), this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    auto* destinations = new QVBoxLayout(Frame1);
    const char* const optionCaptions[4] = {"Imprimante courante", "Fichier RTF", "Fichier HTML", "PDF"};
    for (int i = 0; i < 4; ++i) {
        m_options[i] = new QRadioButton(QString::fromUtf8(optionCaptions[i]), Frame1);
        m_options[i]->setObjectName(QStringLiteral("Option1_%1").arg(i));
        destinations->addWidget(m_options[i]);
    }
    m_options[0]->setChecked(true);
    // The preview is offered for the printer only.
    chkApercu = new QCheckBox(QStringLiteral("Aperçu avant impression"), Frame1);
    chkApercu->setObjectName(QStringLiteral("chkApercu"));
    destinations->addWidget(chkApercu);
    connect(m_options[0], &QRadioButton::toggled, chkApercu, &QCheckBox::setEnabled);

    Temp_list = new QListWidget(this);
    Temp_list->setObjectName(QStringLiteral("Temp_list"));
    Temp_list->hide();
    StatusBar1 = new QStatusBar(this);
    StatusBar1->setObjectName(QStringLiteral("StatusBar1"));
    StatusBar1->setSizeGripEnabled(false);
}

void Ptest::arrangeControls()
{
    auto* selectionButtons = new QHBoxLayout;
    for (QPushButton* button : {Command1, Command4, Command5})
        selectionButtons->addWidget(button);
    auto* left = new QVBoxLayout;
    left->addWidget(stepLabel("1) Sélectionnez les polices à imprimer"));
    left->addWidget(List1, 1);
    left->addLayout(selectionButtons);

    auto* right = new QVBoxLayout;
    right->addWidget(stepLabel("2) Sélectionner la police servant à écrire le nom des polices dans l'impression"));
    right->addWidget(List2, 3);
    right->addSpacing(6);
    right->addWidget(stepLabel("3) Entrez le texte à imprimer"));
    right->addWidget(Text1, 2);
    right->addSpacing(6);
    auto* sizes = new QGridLayout;
    sizes->addWidget(stepLabel("4) Sélectionnez la taille du texte d'essai"), 0, 0);
    sizes->addWidget(Combo1, 0, 1, Qt::AlignTop);
    sizes->addWidget(stepLabel("5) Sélectionnez la taille du texte pour le nom de la police"), 1, 0);
    sizes->addWidget(Combo2, 1, 1, Qt::AlignTop);
    sizes->setColumnStretch(0, 1);
    sizes->setVerticalSpacing(8);
    right->addLayout(sizes);
    right->addSpacing(6);
    right->addWidget(Frame1);

    auto* columns = new QHBoxLayout;
    columns->setSpacing(16);
    columns->addLayout(left, 1);
    columns->addLayout(right, 1);
    auto* actions = new QHBoxLayout;
    actions->addStretch(1);
    actions->addWidget(Command2);
    actions->addWidget(Command3);

    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(0, 0, 0, 0);
    page->setSpacing(0);
    auto* body = new QVBoxLayout;
    body->setContentsMargins(11, 11, 11, 11);
    body->addLayout(columns, 1);
    body->addSpacing(8);
    body->addLayout(actions);
    page->addLayout(body, 1);
    page->addWidget(StatusBar1);
}

QRadioButton* Ptest::Option1(int Index) const
{
    return (Index >= 0 && Index < 4) ? m_options[Index] : nullptr;
}

void Ptest::setVisible(bool visible)
{
    if (visible && !m_loaded) {
        m_loaded = true;
        ErrorReport::guard([this] { Form_Load(); });
        // The name-font list shows at least eight names, with room for its scroll bar.
        const int row = List2->sizeHintForRow(0);
        if (row > 0)
            List2->setMinimumHeight(8 * row + 2 * List2->frameWidth()
                                    + List2->horizontalScrollBar()->sizeHint().height());
    }
    QDialog::setVisible(visible);
}

void Ptest::Form_Load()
{
    QStringList sizes;
    for (int n = 6; n <= 120; ++n)
        sizes.append(Conversions::signedText(n));
    Combo1->addItems(sizes);
    Combo2->addItems(sizes);

    QStringList names;
    if (const tglyphora* main = tglyphora::instance()) {
        const int count = main->List1->topLevelItemCount();
        names.reserve(count);
        for (int i = 0; i < count; ++i)
            names.append(main->List1->topLevelItem(i)->text(0));
    }
    List1->addItems(names);
    List2->addItems(names);

    if (!names.isEmpty()) {
        // The first font is current in both lists; only List2 selects with it.
        List1->setCurrentRow(0, QItemSelectionModel::NoUpdate);
        List2->setCurrentRow(0);
    }
    Combo1->setCurrentIndex(4); // size 10
    Combo2->setCurrentIndex(4);
}

void Ptest::walkList1(int command)
{
    const int count = List1->count();
    if (count == 0)
        return;
    List1->setUpdatesEnabled(false);
    const QItemSelection all(List1->model()->index(0, 0), List1->model()->index(count - 1, 0));
    List1->selectionModel()->select(all, QItemSelectionModel::SelectionFlags(command));
    List1->setUpdatesEnabled(true);
}

void Ptest::Command1_Click()
{
    walkList1(QItemSelectionModel::Toggle);
}

void Ptest::Command4_Click()
{
    walkList1(QItemSelectionModel::Select);
}

void Ptest::Command5_Click()
{
    walkList1(QItemSelectionModel::Deselect);
}

void Ptest::Command3_Click()
{
    reject();
}

void Ptest::Command2_Click()
{
    if (m_options[0]->isChecked()) {
        imprimer();
    } else if (m_options[1]->isChecked()) {
        setCursor(Qt::WaitCursor);
        genererrtf();
        unsetCursor();
    } else if (m_options[2]->isChecked()) {
        setCursor(Qt::WaitCursor);
        genererhtml();
        unsetCursor();
    } else if (m_options[3]->isChecked()) {
        genererpdf();
        unsetCursor();
    }
    StatusBar1->clearMessage();
}

QStringList Ptest::selectedFonts() const
{
    QStringList fonts;
    for (int i = 0; i < List1->count(); ++i)
        if (List1->item(i)->isSelected())
            fonts.append(List1->item(i)->text());
    return fonts;
}

void Ptest::showMessage(const QString& text)
{
    MsgBox::Inform(this, text);
}

ProofPages::TestPage Ptest::testPage() const
{
    ProofPages::TestPage page;
    page.fonts = selectedFonts();
    page.nameFont = List2->currentItem() ? List2->currentItem()->text().trimmed() : QString();
    page.nameSize = FontSheet::pointSize(Combo2->currentText());
    page.sample = Text1->text();
    page.sampleSize = FontSheet::pointSize(Combo1->currentText());
    return page;
}

void Ptest::showFontBeingPrinted(const QString& name)
{
    StatusBar1->showMessage(QStringLiteral("Impression de la police ") + name.trimmed());
}

void Ptest::imprimer()
{
    Printer& printer = Printer::instance();
    try {
        const ProofPages::TestPage page = testPage();
        if (chkApercu->isChecked()) {
            // The preview prints on a job of its own; the printer's font stays as it is.
            const QFont base = printer.Font();
            PrintPreview::exec(this, [page, base](PageFlow& flow) { ProofPages::testPage(flow, base, page); });
            return;
        }
        // The document is opened even with no font selected: an empty one is sent.
        PageFlow& flow = printer.flow();
        printer.setFont(ProofPages::testPage(flow, printer.Font(), page,
                                             [this](const QString& name) { showFontBeingPrinted(name); }));
        printer.EndDoc();
    } catch (const std::exception&) {
        StatusBar1->clearMessage();
        unsetCursor();
        showMessage(failureText);
    }
}

bool Ptest::chooseSheetFile(const QString& title, const QString& defaultName, const QString& description,
                            const QString& extension, QString& file, QStringList& fonts)
{
    file = CMDIALOG::ShowFileDialog(
        this, CMDIALOG::ModeSave, title, defaultName,
        CMDIALOG::BuildFilter({description, QStringLiteral("*.") + extension, QStringLiteral("Tous"), QStringLiteral("*.*")}),
        QStringLiteral("."), extension);
    if (file.trimmed().isEmpty())
        return false;
    // Checked only once the file is chosen.
    fonts = selectedFonts();
    if (fonts.isEmpty()) {
        unsetCursor();
        showMessage(nothingSelectedText);
        return false;
    }
    return true;
}

void Ptest::genererrtf()
{
    QString file;
    QStringList selected;
    if (!chooseSheetFile(QStringLiteral("Sauvegarder vers un fichier RTF"), QStringLiteral("listepol.rtf"),
                         QStringLiteral("Fichier RTF"), QStringLiteral("rtf"), file, selected))
        return;
    setCursor(Qt::WaitCursor);
    Temp_list->clear();
    Temp_list->addItems(selected);
    QStringList fonts;
    for (int k = 0; k < Temp_list->count(); ++k)
        fonts.append(Temp_list->item(k)->text());

    // Any failure while building or writing ends the RTF writer without a word.
    try {
        const QByteArray sheet = FontSheet::rtf(
            fonts, List2->currentItem() ? List2->currentItem()->text() : QString(), Text1->text(),
            Combo1->itemText(Combo1->currentIndex()), Combo2->itemText(Combo2->currentIndex()),
            [] { QCoreApplication::processEvents(); });
        // Written beside the file and renamed over it once complete: a full disk or a
        // write error leaves the previous file as it was. Unbuffered, so that a failed
        // write is seen before the rename (a buffered one fails only at the commit).
        QSaveFile out(file);
        out.setDirectWriteFallback(true);
        if (out.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && out.write(sheet) == sheet.size())
            out.commit();
    } catch (const std::exception&) {
    }
}

void Ptest::genererhtml()
{
    QString file;
    QStringList selected;
    if (!chooseSheetFile(QStringLiteral("Sauvegarder vers un fichier HTML"), QStringLiteral("listepol.htm"),
                         QStringLiteral("Fichier html"), QStringLiteral("htm"), file, selected))
        return;
    QFile out(file);
    bool written = out.open(QIODevice::WriteOnly | QIODevice::Truncate);
    if (written) {
        setCursor(Qt::WaitCursor);
        const QString nameFont = List2->currentItem() ? List2->currentItem()->text() : QString();
        const QByteArray sheet = FontSheet::html(selected, nameFont, Text1->text());
        written = out.write(sheet) == sheet.size() && out.flush();
    }
    if (!written) {
        StatusBar1->clearMessage();
        unsetCursor();
        showMessage(failureText);
    }
}

void Ptest::genererpdf()
{
    QString file;
    QStringList selected;
    if (!chooseSheetFile(QStringLiteral("Sauvegarder vers un fichier PDF"), QStringLiteral("pagetest.pdf"),
                         QStringLiteral("Fichier PDF"), QStringLiteral("pdf"), file, selected))
        return;
    setCursor(Qt::WaitCursor);
    // The pages the printer writer would print, on the printer's paper and resolution.
    Printer& printer = Printer::instance();
    const ProofPages::TestPage page = testPage();
    const QFont base = printer.Font();
    const bool written = ProofPages::writePdf(file, printer.pageLayout(), printer.resolution(), windowTitle(),
                                              [&](PageFlow& flow) {
                                                  ProofPages::testPage(flow, base, page, [this](const QString& name) {
                                                      showFontBeingPrinted(name);
                                                  });
                                              });
    if (!written) {
        StatusBar1->clearMessage();
        unsetCursor();
        showMessage(failureText);
    }
}
