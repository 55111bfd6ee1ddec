// The Unicode table's details panel and its copying: the selected character large,
// its codes and properties, and the clipboard forms offered by buttons, a context
// menu and the collecting line.
#include "samples/unicodetable.h"

#include "components/errorreport.h"
#include "fontfile/fontsystem.h"
#include "samples/unicodeblocks.h"
#include "samples/unicodeformats.h"
#include "samples/unicodegrid.h"

#include <QClipboard>
#include <QFormLayout>
#include <QFrame>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// Button and menu texts take "&" as a mnemonic mark: a literal one is doubled.
QString literal(const QString& text)
{
    return QString(text).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

QPushButton* button(QWidget* parent, const char* name, const QString& text, const QString& tip = QString())
{
    auto* widget = new QPushButton(text, parent);
    widget->setObjectName(QString::fromLatin1(name));
    widget->setToolTip(tip);
    widget->setAutoDefault(false); // Enter belongs to the grid and the search box
    return widget;
}

} // namespace

QWidget* UnicodeTable::buildDetails()
{
    fraDetails = new QFrame(this);
    fraDetails->setObjectName(QStringLiteral("fraDetails"));
    fraDetails->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    fraDetails->setFixedWidth(280);
    auto* column = new QVBoxLayout(fraDetails);
    picApercu = new CharacterPreview(fraDetails);
    picApercu->setObjectName(QStringLiteral("picApercu"));
    picApercu->setFixedSize(128, 128);
    column->addWidget(picApercu, 0, Qt::AlignHCenter);

    auto* form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignRight);
    auto value = [this, form](const char* name, const char* heading) {
        auto* label = new QLabel(fraDetails);
        label->setObjectName(QString::fromLatin1(name));
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        label->setWordWrap(true);
        form->addRow(QString::fromUtf8(heading), label);
        return label;
    };
    lblNom = value("lblNom", "Nom :");
    lblCode = value("lblCode", "Code :");
    lblDecimal = value("lblDecimal", "Décimal :");
    lblUtf8 = value("lblUtf8", "UTF-8 :");
    lblUtf16 = value("lblUtf16", "UTF-16 :");
    lblEntite = value("lblEntite", "Entité HTML :");
    lblBloc = value("lblBloc", "Bloc :");
    lblEcriture = value("lblEcriture", "Écriture :");
    lblCategorie = value("lblCategorie", "Catégorie :");
    lblGlyphe = value("lblGlyphe", "Glyphe :");
    lblChasse = value("lblChasse", "Chasse :");
    column->addLayout(form);

    auto* copies = new QGridLayout;
    cmdCopierCaractere = button(fraDetails, "cmdCopierCaractere", QStringLiteral("Copier le caractère"),
                                QStringLiteral("Copier le caractère dans le presse-papiers"));
    cmdCopierCode = button(fraDetails, "cmdCopierCode", QString(), QStringLiteral("Copier le code U+"));
    cmdCopierNumerique = button(fraDetails, "cmdCopierNumerique", QString(),
                                QStringLiteral("Copier l'entité HTML numérique"));
    cmdCopierEntite = button(fraDetails, "cmdCopierEntite", QString(), QStringLiteral("Copier l'entité HTML nommée"));
    cmdCopierUtf8 = button(fraDetails, "cmdCopierUtf8", QString(), QStringLiteral("Copier les octets UTF-8"));
    copies->addWidget(cmdCopierCaractere, 0, 0, 1, 2);
    copies->addWidget(cmdCopierCode, 1, 0);
    copies->addWidget(cmdCopierNumerique, 1, 1);
    copies->addWidget(cmdCopierEntite, 2, 0);
    copies->addWidget(cmdCopierUtf8, 2, 1);
    column->addLayout(copies);
    column->addStretch(1);

    ErrorReport::connect(cmdCopierCaractere, &QPushButton::clicked, this, &UnicodeTable::cmdCopierCaractere_Click);
    ErrorReport::connect(cmdCopierCode, &QPushButton::clicked, this, &UnicodeTable::cmdCopierCode_Click);
    ErrorReport::connect(cmdCopierNumerique, &QPushButton::clicked, this, &UnicodeTable::cmdCopierNumerique_Click);
    ErrorReport::connect(cmdCopierEntite, &QPushButton::clicked, this, &UnicodeTable::cmdCopierEntite_Click);
    ErrorReport::connect(cmdCopierUtf8, &QPushButton::clicked, this, &UnicodeTable::cmdCopierUtf8_Click);
    return fraDetails;
}

QWidget* UnicodeTable::buildCopyBar()
{
    auto* bar = new QWidget(this);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    auto* heading = new QLabel(QStringLiteral("Collecte :"), bar);
    txtCollecte = new QLineEdit(bar);
    txtCollecte->setObjectName(QStringLiteral("txtCollecte"));
    txtCollecte->setPlaceholderText(QStringLiteral("Caractères à copier ensemble"));
    heading->setBuddy(txtCollecte);
    cmdAjouter = button(bar, "cmdAjouter", QStringLiteral("&Ajouter"), QStringLiteral("Ajouter le caractère à la collecte"));
    cmdCopier = button(bar, "cmdCopier", QStringLiteral("&Copier"), QStringLiteral("Copier la collecte dans le presse-papiers"));
    cmdFermer = button(bar, "cmdFermer", QStringLiteral("&Fermer"));
    row->addWidget(heading);
    row->addWidget(txtCollecte, 1);
    row->addWidget(cmdAjouter);
    row->addWidget(cmdCopier);
    row->addSpacing(24);
    row->addWidget(cmdFermer);
    ErrorReport::connect(cmdAjouter, &QPushButton::clicked, this, &UnicodeTable::cmdAjouter_Click);
    ErrorReport::connect(cmdCopier, &QPushButton::clicked, this, &UnicodeTable::cmdCopier_Click);
    ErrorReport::connect(cmdFermer, &QPushButton::clicked, this, &UnicodeTable::cmdFermer_Click);
    return bar;
}

void UnicodeTable::showDetails()
{
    const std::optional<char32_t> code = selectedCode();
    picApercu->setCode(code);
    const QList<QWidget*> copying{cmdCopierCaractere, cmdCopierCode, cmdCopierNumerique, cmdCopierEntite,
                                  cmdCopierUtf8, cmdAjouter};
    for (QWidget* widget : copying)
        widget->setEnabled(code.has_value());
    if (!code) {
        for (QLabel* label : {lblNom, lblCode, lblDecimal, lblUtf8, lblUtf16, lblEntite, lblBloc, lblEcriture,
                              lblCategorie, lblGlyphe, lblChasse})
            label->clear();
        for (QPushButton* copy : {cmdCopierCode, cmdCopierNumerique, cmdCopierEntite, cmdCopierUtf8})
            copy->setText(QString());
        return;
    }
    const char32_t c = *code;
    using namespace UnicodeFormats;
    lblNom->setText(characterName(c));
    lblCode->setText(uPlusCode(c));
    lblDecimal->setText(decimalText(c));
    lblUtf8->setText(utf8Bytes(c));
    lblUtf16->setText(utf16Units(c));
    lblEntite->setText(htmlEntity(c));
    const UnicodeBlocks::Block* block = UnicodeBlocks::blockOf(c);
    lblBloc->setText(block ? block->name() : QStringLiteral("Hors bloc"));
    lblEcriture->setText(scriptName(c));
    lblCategorie->setText(categoryLabel(c));
    const auto metrics = m_coverage.hasFace() ? FontSystem::glyphMetrics(m_coverage.face(), c) : std::nullopt;
    lblGlyphe->setText(metrics ? QStringLiteral("n° %1").arg(metrics->glyphIndex) : QStringLiteral("absent de la police"));
    lblChasse->setText(metrics ? QStringLiteral("%1 unités sur %2 par cadratin").arg(metrics->advance).arg(metrics->unitsPerEm)
                               : QString());
    cmdCopierCode->setText(literal(uPlusCode(c)));
    cmdCopierNumerique->setText(literal(numericEntity(c)));
    const bool named = !entityName(c).isEmpty();
    cmdCopierEntite->setText(named ? literal(htmlEntity(c)) : QStringLiteral("Pas de nom HTML"));
    cmdCopierEntite->setEnabled(named);
    cmdCopierUtf8->setText(utf8Escapes(c));
}

void UnicodeTable::copyText(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
    lblEtat->setText(QStringLiteral("Copié dans le presse-papiers : ") + text);
}

void UnicodeTable::copyFormat(QString (*format)(char32_t))
{
    if (const auto code = selectedCode())
        copyText(format(*code));
}

void UnicodeTable::grdCaracteres_DblClick()
{
    copyFormat(&UnicodeFormats::characterText);
}

void UnicodeTable::cmdCopierCaractere_Click()
{
    copyFormat(&UnicodeFormats::characterText);
}

void UnicodeTable::cmdCopierCode_Click()
{
    copyFormat(&UnicodeFormats::uPlusCode);
}

void UnicodeTable::cmdCopierNumerique_Click()
{
    copyFormat(&UnicodeFormats::numericEntity);
}

void UnicodeTable::cmdCopierEntite_Click()
{
    copyFormat(&UnicodeFormats::htmlEntity);
}

void UnicodeTable::cmdCopierUtf8_Click()
{
    copyFormat(&UnicodeFormats::utf8Escapes);
}

void UnicodeTable::cmdAjouter_Click()
{
    if (const auto code = selectedCode())
        txtCollecte->insert(UnicodeFormats::characterText(*code));
}

void UnicodeTable::cmdCopier_Click()
{
    copyText(txtCollecte->text());
}

void UnicodeTable::showContextMenu(int, const QPoint& globalPos)
{
    const auto code = selectedCode();
    if (!code)
        return;
    using namespace UnicodeFormats;
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("mnuCaractere"));
    auto add = [&menu](const char* name, const QString& text, auto slot, UnicodeTable* self) {
        QAction* action = menu.addAction(text);
        action->setObjectName(QString::fromLatin1(name));
        ErrorReport::connect(action, &QAction::triggered, self, slot);
    };
    add("mcopiercaractere", QStringLiteral("Copier le caractère"), &UnicodeTable::cmdCopierCaractere_Click, this);
    add("mcopiercode", QStringLiteral("Copier ") + uPlusCode(*code), &UnicodeTable::cmdCopierCode_Click, this);
    add("mcopiernumerique", QStringLiteral("Copier ") + literal(numericEntity(*code)),
        &UnicodeTable::cmdCopierNumerique_Click, this);
    if (!entityName(*code).isEmpty())
        add("mcopierentite", QStringLiteral("Copier ") + literal(htmlEntity(*code)), &UnicodeTable::cmdCopierEntite_Click,
            this);
    add("mcopierutf8", QStringLiteral("Copier ") + utf8Escapes(*code), &UnicodeTable::cmdCopierUtf8_Click, this);
    menu.addSeparator();
    add("majouter", QStringLiteral("Ajouter à la collecte"), &UnicodeTable::cmdAjouter_Click, this);
    menu.exec(globalPos);
}
