// About box: tabs, version lines, links and the donation text.
#include "about/about.h"

#include "about/versionlinedelegate.h"
#include "app/splash.h"
#include "components/cmdialog.h"
#include "components/errorreport.h"
#include "components/version.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QPixmap>
#include <QPushButton>
#include <QTabBar>
#include <QTextEdit>
#include <QVBoxLayout>

namespace {

const QString site = QStringLiteral("https://www.example.org");

const char* const productName = "Glyphora";
const char* const companyName = "Glyphora";
const char* const comments = "Visionneuse de polices de caractères";
const char* const fileDescription = "Glyphora, visionneuse de polices";
const char* const legalCopyright = "Copyright © 2002 Glyphora";
const char* const legalTrademarks = "Glyphora est un logiciel gratuit";

} // namespace

QString about::HomePage() { return site + QStringLiteral("/glyphora.phtml"); }

QString about::VersionCheckPage()
{
    return site + QStringLiteral("/verfont.phtml?version=") + QString::number(Version::Major)
           + QString::number(Version::Minor) + QString::number(Version::Revision);
}

QString about::CancerPage() { return QStringLiteral("https://cancer-research.example.org/"); }
QString about::MailAddress() { return QStringLiteral("mailto:auteur@example.org"); }
QString about::DonationPage() { return QStringLiteral("https://paiement.example.org/commande?produit=glyphora"); }

QStringList about::VersionLines()
{
    const QChar tab = QLatin1Char('\t');
    return {
        QStringLiteral("Major version number") + tab + QString::number(Version::Major),
        QStringLiteral("Minor version number") + tab + QString::number(Version::Minor),
        QStringLiteral("Revision") + QString(3, tab) + QString::number(Version::Revision),
        QStringLiteral("Comment") + QString(3, tab) + QString::fromUtf8(comments),
        QStringLiteral("Company name") + QString(2, tab) + QString::fromUtf8(companyName),
        QStringLiteral("Exe name") + QString(3, tab) + QString::fromLatin1(Version::ExeName),
        QStringLiteral("File Description") + QString(2, tab) + QString::fromUtf8(fileDescription),
        QStringLiteral("Legal Copyright") + QString(2, tab) + QString::fromUtf8(legalCopyright),
        QStringLiteral("Legal Trademarks") + QString(2, tab) + QString::fromUtf8(legalTrademarks),
        QStringLiteral("Product Name") + QString(2, tab) + QString::fromUtf8(productName),
    };
}

about::about(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("about"));
    setWindowTitle(QStringLiteral("A propos de Glyphora"));
    resize(560, 400);

    auto* layout = new QVBoxLayout(this);
    TabStrip1 = new QTabBar(this);
    TabStrip1->setObjectName(QStringLiteral("TabStrip1"));
    for (const char* caption : {"Glyphora", "Version", "Cancer", "Donation", "Crédits", "Autres programmes"})
        TabStrip1->addTab(QString::fromUtf8(caption));
    layout->addWidget(TabStrip1);

    auto* area = new QWidget(this);
    area->setObjectName(QStringLiteral("panelArea"));
    auto* stack = new QVBoxLayout(area);
    stack->setContentsMargins(0, 0, 0, 0);

    FrmGlyphora = buildPresentation();
    List1 = new QListWidget;
    List1->setObjectName(QStringLiteral("List1"));
    List1->setItemDelegate(new VersionLineDelegate(List1));
    FrmCancer = buildCancer();
    FrmDonation = buildDonation();
    Text1 = new QTextEdit;
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setReadOnly(true);
    Text1->setPlainText(QStringLiteral(
        "Glyphora a été écrit et dessiné par son auteur.\n\n"
        "Merci à tous ceux qui ont signalé des erreurs et proposé des améliorations, "
        "et aux traducteurs bénévoles.\n\n"
        "Les icônes et l'image d'accueil ont été dessinées pour Glyphora."));
    FrmAutres = buildOthers();
    m_panels = {FrmGlyphora, List1, FrmCancer, FrmDonation, Text1, FrmAutres};
    for (QWidget* panel : m_panels) {
        panel->setParent(area);
        stack->addWidget(panel);
        panel->hide();
    }
    layout->addWidget(area, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    Command1 = new QPushButton(QStringLiteral("OK"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    buttons->addWidget(Command1);
    layout->addLayout(buttons);

    connect(TabStrip1, &QTabBar::currentChanged, this,
            [this](int index) { ErrorReport::guard([&] { TabStrip1_Click(index + 1); }); });
    ErrorReport::connect(Command1, &QPushButton::clicked, this, &about::Command1_Click);
    ErrorReport::connect(Command2, &QPushButton::clicked, this, &about::Command2_Click);
    TabStrip1_Click(1);
}

QLabel* about::makeLink(const QString& name, const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    label->setCursor(Qt::PointingHandCursor);
    QFont font = label->font();
    font.setUnderline(true);
    label->setFont(font);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, palette.color(QPalette::Link));
    label->setPalette(palette);
    label->installEventFilter(this);
    return label;
}

QWidget* about::buildPresentation()
{
    auto* panel = new QWidget;
    panel->setObjectName(QStringLiteral("FrmGlyphora"));
    auto* layout = new QVBoxLayout(panel);
    auto* top = new QHBoxLayout;
    Image1 = new QLabel(panel);
    Image1->setObjectName(QStringLiteral("Image1"));
    Image1->setPixmap(QPixmap(QStringLiteral(":/splash.jpg")).scaledToWidth(200, Qt::SmoothTransformation));
    Image1->setCursor(Qt::PointingHandCursor);
    Image1->setToolTip(QStringLiteral("Cliquez pour fermer"));
    Image1->installEventFilter(this);
    top->addWidget(Image1);
    auto* right = new QVBoxLayout;
    lblTitle = makeLink(QStringLiteral("lblTitle"), QStringLiteral("Glyphora %1.%2").arg(Version::Major).arg(Version::Minor), panel);
    QFont titleFont = lblTitle->font();
    titleFont.setPointSizeF(titleFont.pointSizeF() * 1.8);
    titleFont.setBold(true);
    lblTitle->setFont(titleFont);
    right->addWidget(lblTitle);
    auto* presentation = new QLabel(QStringLiteral(
        "Visionneuse de polices de caractères, version %1 de novembre 2002.\n"
        "Glyphora est un logiciel gratuit : vous pouvez l'utiliser et le donner librement.")
        .arg(QString::fromLatin1(Version::Text)), panel);
    presentation->setWordWrap(true);
    right->addWidget(presentation);
    Label3 = makeLink(QStringLiteral("Label3"), QStringLiteral("Vérifier si une nouvelle version existe"), panel);
    right->addWidget(Label3);
    Label7 = makeLink(QStringLiteral("Label7"), QStringLiteral("Écrire à l'auteur"), panel);
    right->addWidget(Label7);
    lblSplash = makeLink(QStringLiteral("lblSplash"), QStringLiteral("Revoir l'écran d'accueil"), panel);
    right->addWidget(lblSplash);
    right->addStretch();
    top->addLayout(right, 1);
    layout->addLayout(top);
    layout->addStretch();
    return panel;
}

QWidget* about::buildCancer()
{
    auto* panel = new QWidget;
    panel->setObjectName(QStringLiteral("FrmCancer"));
    auto* layout = new QVBoxLayout(panel);
    auto* text = new QLabel(QStringLiteral(
        "Your computer can help fight cancer. A volunteer computing project lets researchers run "
        "their molecular studies on the idle time of thousands of home computers. Install its "
        "screen saver and your machine will test candidate molecules while you are away."), panel);
    text->setWordWrap(true);
    layout->addWidget(text);
    Label4 = makeLink(QStringLiteral("Label4"), QStringLiteral("Join the cancer research project"), panel);
    layout->addWidget(Label4);
    layout->addStretch();
    return panel;
}

QWidget* about::buildDonation()
{
    auto* panel = new QWidget;
    panel->setObjectName(QStringLiteral("FrmDonation"));
    auto* layout = new QVBoxLayout(panel);
    txtDonation = new QTextEdit(panel);
    txtDonation->setObjectName(QStringLiteral("txtDonation"));
    txtDonation->setReadOnly(true);
    layout->addWidget(txtDonation, 1);
    Command2 = new QPushButton(QStringLiteral("Faire une donation"), panel);
    Command2->setObjectName(QStringLiteral("Command2"));
    layout->addWidget(Command2, 0, Qt::AlignLeft);
    return panel;
}

QWidget* about::buildOthers()
{
    auto* panel = new QWidget;
    panel->setObjectName(QStringLiteral("FrmAutres"));
    auto* layout = new QVBoxLayout(panel);
    auto* text = new QLabel(QStringLiteral("D'autres programmes du même auteur seront présentés ici."), panel);
    text->setWordWrap(true);
    layout->addWidget(text);
    layout->addStretch();
    return panel;
}

void about::setVisible(bool visible)
{
    if (visible && !m_loaded) {
        m_loaded = true;
        ErrorReport::guard([this] { Form_Load(); });
    }
    QDialog::setVisible(visible);
}

void about::Form_Load()
{
    List1->clear();
    List1->addItems(VersionLines());
    const QStringList donation = {
        QStringLiteral("Glyphora est gratuit et restera gratuit"),
        QStringLiteral("Il n'y a pas d'obligation de payer quoi que ce soit."),
        QStringLiteral("Mais comme la réservation d'un nom de domaine et l'hébergement ne sont jamais gratuits, "
                       "et comme le support de Glyphora peut me prendre beaucoup de temps, j'apprécierais une "
                       "quelconque donation que vous pourriez me faire."),
        QString(),
        QStringLiteral("Les donations passent par le système de paiement sécurisé d'un service de paiement extérieur."),
        QStringLiteral("Appuyer sur le bouton pour faire une donation"),
    };
    txtDonation->setPlainText(donation.join(QStringLiteral("\r\n")));
}

void about::TabStrip1_Click(int Index)
{
    if (Index < 1 || Index > m_panels.size())
        return;
    QWidget* shown = m_panels[Index - 1];
    for (QWidget* panel : m_panels)
        if (panel != shown)
            panel->hide();
    shown->move(0, 0);
    shown->show();
    if (TabStrip1->currentIndex() != Index - 1) {
        const QSignalBlocker block(TabStrip1);
        TabStrip1->setCurrentIndex(Index - 1);
    }
}

void about::lblTitle_Click() { CMDIALOG::ShellOpen(HomePage()); }
void about::Label3_Click() { CMDIALOG::ShellOpen(VersionCheckPage()); }
void about::Label4_Click() { CMDIALOG::ShellOpen(CancerPage()); }
void about::Label7_Click() { CMDIALOG::ShellOpen(MailAddress()); }
void about::Command2_Click() { CMDIALOG::ShellOpen(DonationPage()); }
void about::Command1_Click() { accept(); }
void about::Image1_Click() { accept(); }

void about::lblSplash_Click()
{
    Splash splash(this);
    splash.exec();
}

bool about::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonRelease && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        if (watched == lblTitle) lblTitle_Click();
        else if (watched == Label3) Label3_Click();
        else if (watched == Label4) Label4_Click();
        else if (watched == Label7) Label7_Click();
        else if (watched == Image1) Image1_Click();
        else if (watched == lblSplash) lblSplash_Click();
        else return QDialog::eventFilter(watched, event);
        return true;
    }
    return QDialog::eventFilter(watched, event);
}
