// Main window: construction of its controls, loading, resizing, keys, closing.
#include "app/tglyphora.h"

#include "app/debut.h"
#include "app/recovery.h"
#include "app/toolicons.h"
#include "app/windowstate.h"
#include "browser/fontlistfilter.h"
#include "browser/samplebox.h"
#include "browser/scriptnotice.h"
#include "components/conversions.h"
#include "components/ctlebsplitter.h"
#include "components/statuspanels.h"
#include "components/errorreport.h"
#include "components/printer.h"
#include "components/runtimeerror.h"
#include "components/settings.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDateTime>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QMenuBar>
#include <QPointer>
#include <QStatusBar>
#include <QThread>
#include <QTimer>
#include <QToolBar>
#include <QTreeWidget>

namespace {

QPointer<tglyphora> mainWindow;

struct ButtonSpec {
    const char* hoverText;
    bool separator;
};

// Toolbar places 1..21; separators and empty places are actions too.
const ButtonSpec toolbarButtons[21] = {
    {"Ouvre le répertoire des polices", false},
    {"Enregistre la liste des polices sur un fichier", false},
    {"Créer la commande HTML de sélection de la police", false},
    {"Propriétés de la police", false},
    {"Imprimer une page de test", false},
    {"Visualiser la police avec une image de fond", false},
    {"", true},
    {"Aligner à gauche", false},
    {"Centrer", false},
    {"Aligner à droite", false},
    {"", true},
    {"Gras", false},
    {"Italique", false},
    {"Souligné", false},
    {"Barré", false},
    {"", true},
    {"Couleur de fond", false},
    {"Couleur des caractères", false},
    {"", true},
    {"Taille de la police", false}, // the size box stands over this place
    {"Aide", false},
};

const char* const panelHoverTexts[7] = {
    "Nom de la police courante", "Largeur du texte", "Hauteur du texte",
    "Numéro de la police dans la liste", "Nombre total de polices", "", "",
};

const char* const unitCaptions[7] = {
    "T&wip", "P&oint", "Pi&xel", "&Caractère", "Po&uce", "&Milimètre", "&Centimètre",
};

int shiftState(Qt::KeyboardModifiers modifiers)
{
    int shift = 0;
    if (modifiers & Qt::ShiftModifier) shift |= 1;
    if (modifiers & Qt::ControlModifier) shift |= 2;
    if (modifiers & Qt::AltModifier) shift |= 4;
    return shift;
}

} // namespace

tglyphora* tglyphora::instance()
{
    return mainWindow.data();
}

tglyphora::tglyphora(QWidget* parent) : QMainWindow(parent)
{
    mainWindow = this;
    setObjectName(QStringLiteral("tglyphora"));
    setWindowTitle(QStringLiteral("Glyphora"));
    setWindowIcon(ToolIcons::applicationIcon());
    resize(860, 600);

    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(1000);
    ErrorReport::connect(Timer1, &QTimer::timeout, this, &tglyphora::Timer1_Timer);

    buildWorkArea();
    buildMenus();
    buildToolbar();
    buildStatusBar();
}

tglyphora::~tglyphora() = default;

void tglyphora::buildMenus()
{
    auto addItem = [](QMenu* menu, const char* name, const QString& caption) {
        auto* action = menu->addAction(caption);
        action->setObjectName(QString::fromLatin1(name));
        return action;
    };
    auto addSeparator = [](QMenu* menu, const char* name) {
        menu->addSeparator()->setObjectName(QString::fromLatin1(name));
    };

    auto* mnupol = menuBar()->addMenu(QStringLiteral("&Polices"));
    mnupol->setObjectName(QStringLiteral("mnupol"));
    auto* elem = addItem(mnupol, "ElemPol_0", QStringLiteral("police"));
    m_elemPol.append(elem);
    connect(elem, &QAction::triggered, this, ErrorReport::guarded([this] { ElemPol_Click(0); }));
    buildFontListMenu(mnupol);

    mdivers = menuBar()->addMenu(QStringLiteral("&Divers"));
    mdivers->setObjectName(QStringLiteral("mdivers"));
    ErrorReport::connect(addItem(mdivers, "mvisboucle", QStringLiteral("Visualisation en &boucle")), &QAction::triggered, this, &tglyphora::mvisboucle_Click);
    ErrorReport::connect(addItem(mdivers, "mcharmap", QStringLiteral("&Table de caractères Windows...")), &QAction::triggered, this, &tglyphora::mcharmap_Click);
    ErrorReport::connect(addItem(mdivers, "mautretable", QStringLiteral("Une &autre table de caractères...")), &QAction::triggered, this, &tglyphora::mautretable_Click);
    ErrorReport::connect(addItem(mdivers, "mpagtst", QStringLiteral("&Imprimer une page de test...")), &QAction::triggered, this, &tglyphora::mpagtst_Click);
    ErrorReport::connect(addItem(mdivers, "mcreatefile", QStringLiteral("Sauvegarder la liste des polices vers un &fichier...")), &QAction::triggered, this, &tglyphora::mcreatefile_Click);
    ErrorReport::connect(addItem(mdivers, "mimpnames", QStringLiteral("Imprimer la &liste des polices")), &QAction::triggered, this, &tglyphora::mimpnames_Click);
    ErrorReport::connect(addItem(mdivers, "mopenfoldttf", QStringLiteral("&Ouvrir le répertoire des polices...")), &QAction::triggered, this, &tglyphora::mopenfoldttf_Click);
    ErrorReport::connect(addItem(mdivers, "mdesinst", QStringLiteral("&Désinstallation de polices")), &QAction::triggered, this, &tglyphora::mdesinst_Click);
    ErrorReport::connect(addItem(mdivers, "mimgfond", QStringLiteral("Tester la police avec une &image de fond")), &QAction::triggered, this, &tglyphora::mimgfond_Click);
    ErrorReport::connect(addItem(mdivers, "mclipboard", QStringLiteral("&Copier le nom dans le presse papiers")), &QAction::triggered, this, &tglyphora::mclipboard_Click);
    ErrorReport::connect(addItem(mdivers, "mHTML", QStringLiteral("Créer la commande HTML de sélection de la police")), &QAction::triggered, this, &tglyphora::mHTML_Click);
    ErrorReport::connect(addItem(mdivers, "minfos", QStringLiteral("Infos sur la police...")), &QAction::triggered, this, &tglyphora::minfos_Click);
    ErrorReport::connect(addItem(mdivers, "mobtain", QStringLiteral("Obtenir le nom des polices...")), &QAction::triggered, this, &tglyphora::mobtain_Click);
    ErrorReport::connect(addItem(mdivers, "mpreview", QStringLiteral("Prévisualiser des polices non installées...")), &QAction::triggered, this, &tglyphora::mpreview_Click);
    addSeparator(mdivers, "msep1");
    auto* munite = mdivers->addMenu(QStringLiteral("Unité de &mesure"));
    munite->setObjectName(QStringLiteral("munite"));
    munite->menuAction()->setObjectName(QStringLiteral("munite"));
    for (int i = 0; i < 7; ++i) {
        auto* unit = addItem(munite, "", QString::fromUtf8(unitCaptions[i]));
        unit->setObjectName(QStringLiteral("munit_%1").arg(i));
        unit->setCheckable(true);
        m_munit.append(unit);
        connect(unit, &QAction::triggered, this, ErrorReport::guarded([this, i] {
            // The handler sets the check marks itself.
            m_munit[i]->setChecked(!m_munit[i]->isChecked());
            munit_Click(i);
        }));
    }
    addSeparator(mdivers, "msep2");
    ErrorReport::connect(addItem(mdivers, "msavepref", QStringLiteral("Enregistrer les préférences")), &QAction::triggered, this, &tglyphora::msavepref_Click);
    addSeparator(mdivers, "msep3");
    auto* quit = addItem(mdivers, "Mquit", QStringLiteral("&Quitter"));
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    ErrorReport::connect(quit, &QAction::triggered, this, &tglyphora::Mquit_Click);

    auto* medit = menuBar()->addMenu(QStringLiteral("&Edition"));
    medit->setObjectName(QStringLiteral("medit"));
    ErrorReport::connect(addItem(medit, "malgauche", QStringLiteral("Aligner à gauche")), &QAction::triggered, this, &tglyphora::malgauche_Click);
    ErrorReport::connect(addItem(medit, "malcentre", QStringLiteral("Centrer")), &QAction::triggered, this, &tglyphora::malcentre_Click);
    ErrorReport::connect(addItem(medit, "maldrote", QStringLiteral("Aligner à droite")), &QAction::triggered, this, &tglyphora::maldrote_Click);
    addSeparator(medit, "msep0");
    const struct { const char* name; const char* caption; Qt::Key key; void (tglyphora::*slot)(); } styles[] = {
        {"mbold", "Gras", Qt::Key_B, &tglyphora::mbold_Click},
        {"mital", "Italique", Qt::Key_I, &tglyphora::mital_Click},
        {"msoul", "Souligné", Qt::Key_L, &tglyphora::msoul_Click},
        {"mbar", "Barré", Qt::Key_A, &tglyphora::mbar_Click},
    };
    for (const auto& style : styles) {
        auto* action = addItem(medit, style.name, QString::fromUtf8(style.caption));
        action->setShortcut(QKeySequence(Qt::CTRL | style.key));
        // The shortcut wins over the sample boxes' own Ctrl+A, Ctrl+B, ...
        action->setShortcutContext(Qt::WindowShortcut);
        ErrorReport::connect(action, &QAction::triggered, this, style.slot);
    }

    // Tools that go beyond the classic menus, between "&Edition" and "&Aide". A new
    // tool is one line here and one slot.
    moutils = menuBar()->addMenu(QStringLiteral("&Outils"));
    moutils->setObjectName(QStringLiteral("moutils"));
    const struct { const char* name; const char* caption; QKeyCombination key; void (tglyphora::*slot)(); } tools[] = {
        {"municode", "Table des caractères &Unicode...", Qt::CTRL | Qt::Key_U, &tglyphora::municode_Click},
        {"mdetails", "&Détails typographiques...", Qt::CTRL | Qt::SHIFT | Qt::Key_I, &tglyphora::mdetails_Click},
        {"mcomparer", "Co&mparer des polices...", Qt::CTRL | Qt::Key_M, &tglyphora::mcomparer_Click},
        {"mlistepdf", "Enregistrer la liste des polices en &PDF...", QKeyCombination(), &tglyphora::mlistepdf_Click},
        {"maperculiste", "Aperçu de la liste avant impression", QKeyCombination(), &tglyphora::maperculiste_Click},
        {"minstaller", "&Installer des polices...", QKeyCombination(), &tglyphora::minstaller_Click},
    };
    for (const auto& tool : tools) {
        auto* action = addItem(moutils, tool.name, QString::fromUtf8(tool.caption));
        if (tool.key != QKeyCombination())
            action->setShortcut(QKeySequence(tool.key));
        ErrorReport::connect(action, &QAction::triggered, this, tool.slot);
    }

    auto* mhelp = menuBar()->addMenu(QStringLiteral("&Aide"));
    mhelp->setObjectName(QStringLiteral("mhelp"));
    ErrorReport::connect(addItem(mhelp, "mabout", QStringLiteral("A propos de ...")), &QAction::triggered, this, &tglyphora::mabout_Click);
}

void tglyphora::buildToolbar()
{
    Toolbar1 = addToolBar(QStringLiteral("Toolbar1"));
    Toolbar1->setObjectName(QStringLiteral("Toolbar1"));
    Toolbar1->setMovable(false);
    Toolbar1->setFloatable(false);
    Toolbar1->setIconSize(QSize(20, 20));
    Toolbar1->setContextMenuPolicy(Qt::PreventContextMenu);

    Combo1 = new QComboBox;
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setToolTip(QStringLiteral("Choisissez une taille ou appuyez sur + ou -"));
    Combo1->setMaxVisibleItems(20);
    Combo1->setMinimumContentsLength(4);
    Combo1->installEventFilter(this);
    ErrorReport::connect(Combo1, &QComboBox::currentIndexChanged, this, &tglyphora::Combo1_Click);

    m_alignGroup = new QActionGroup(this);
    m_alignGroup->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (int n = 1; n <= 21; ++n) {
        const ButtonSpec& spec = toolbarButtons[n - 1];
        QAction* action = nullptr;
        if (n == 20) {
            action = Toolbar1->addWidget(Combo1);
        } else if (spec.separator) {
            action = Toolbar1->addSeparator();
        } else {
            action = Toolbar1->addAction(ToolIcons::buttonIcon(n), QString::fromUtf8(spec.hoverText));
            connect(action, &QAction::triggered, this, ErrorReport::guarded([this, n] { Toolbar1_ButtonClick(n); }));
        }
        action->setObjectName(QStringLiteral("Button%1").arg(n));
        action->setToolTip(QString::fromUtf8(spec.hoverText));
        if (n >= 8 && n <= 10) {
            action->setCheckable(true);
            m_alignGroup->addAction(action);
        } else if (n >= 12 && n <= 15) {
            action->setCheckable(true);
        }
        m_buttons.append(action);
    }
}

void tglyphora::buildStatusBar()
{
    etat = statusBar();
    etat->setObjectName(QStringLiteral("état"));
    etat->setSizeGripEnabled(true);
    QStringList hoverTexts;
    for (const char* text : panelHoverTexts)
        hoverTexts.append(QString::fromUtf8(text));
    m_panels = StatusPanels::build(etat, hoverTexts);
}

void tglyphora::buildWorkArea()
{
    m_workArea = new QWidget(this);
    m_workArea->setObjectName(QStringLiteral("workArea"));
    m_workArea->installEventFilter(this);
    setCentralWidget(m_workArea);

    Picture1 = new QWidget(m_workArea);
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Picture1->hide();

    ctlEBSplitter1 = new ctlEBSplitter(m_workArea);
    ctlEBSplitter1->setObjectName(QStringLiteral("ctlEBSplitter1"));
    ctlEBSplitter2 = new ctlEBSplitter(ctlEBSplitter1); // child 0: right pane

    List1 = new QTreeWidget(ctlEBSplitter1); // child 1: left pane
    List1->setObjectName(QStringLiteral("List1"));
    List1->setHeader(new FontListHeader(List1));
    List1->setColumnCount(1);
    List1->setHeaderLabels({QStringLiteral("Nom de la police")});
    List1->setRootIsDecorated(false);
    List1->setUniformRowHeights(true);
    List1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    List1->setSelectionMode(QAbstractItemView::SingleSelection);
    List1->setAllColumnsShowFocus(true);
    List1->header()->setSectionsClickable(true);
    List1->header()->setSortIndicatorShown(true);
    List1->header()->setSortIndicator(0, Qt::AscendingOrder);
    List1->header()->setStretchLastSection(true);
    List1->installEventFilter(this);
    List1->viewport()->installEventFilter(this);
    connect(List1, &QTreeWidget::itemClicked, this, ErrorReport::guarded([this] { List1_Click(); }));
    connect(List1, &QTreeWidget::itemDoubleClicked, this, ErrorReport::guarded([this] { List1_DblClick(); }));
    connect(List1->header(), &QHeaderView::sectionClicked, this,
            [this](int section) { ErrorReport::guard([&] { List1_ColumnClick(section + 1); }); });

    ctlEBSplitter2->setObjectName(QStringLiteral("ctlEBSplitter2"));
    Text2 = new SampleBox(ctlEBSplitter2); // child 0: lower pane
    Text2->setObjectName(QStringLiteral("Text2"));
    Text2->setToolTip(QStringLiteral("Pour mettre des tabulations, appuyez sur Ctrl Tab"));
    Text1 = new SampleBox(ctlEBSplitter2); // child 1: upper pane
    Text1->setObjectName(QStringLiteral("Text1"));
    for (SampleBox* box : {Text1, Text2}) {
        box->installEventFilter(this);
        box->setForeColor(Qt::black);
        box->setBackColor(Qt::white);
    }
    m_filtre = FontListFilter::install(List1, this);
    setTabOrder(List1, Text1);
    setTabOrder(Text1, Text2);
    m_scriptNotice = new ScriptNotice(Text1, Text2, m_workArea);
    connect(m_scriptNotice, &ScriptNotice::shownOrHidden, this, [this] { Form_Resize(); });

    PropertyBag outer;
    outer.WriteProperty(QStringLiteral("splitterpos"), 1820.0f, 0.0f);
    ctlEBSplitter1->ReadProperties(outer);
    PropertyBag inner;
    inner.WriteProperty(QStringLiteral("orientation"), qlonglong(0), qlonglong(1));
    inner.WriteProperty(QStringLiteral("splitterpos"), 2048.0f, 0.0f);
    ctlEBSplitter2->ReadProperties(inner);
}

QAction* tglyphora::Button(int n) const
{
    return (n >= 1 && n <= m_buttons.size()) ? m_buttons[n - 1] : nullptr;
}

int tglyphora::ButtonValue(int n) const
{
    const QAction* button = Button(n);
    return button && button->isChecked() ? 1 : 0;
}

void tglyphora::setButtonValue(int n, int value)
{
    if (QAction* button = Button(n))
        button->setChecked(value != 0);
}

QLabel* tglyphora::Panel(int n) const
{
    return (n >= 1 && n <= m_panels.size()) ? m_panels[n - 1] : nullptr;
}

QAction* tglyphora::munit(int index) const
{
    if (index < 0 || index >= m_munit.size())
        throw RuntimeError::subscriptOutOfRange(QStringLiteral("munit"));
    return m_munit[index];
}

QAction* tglyphora::ElemPol(int index) const
{
    if (index < 0 || index >= m_elemPol.size())
        throw RuntimeError::subscriptOutOfRange(QStringLiteral("ElemPol"));
    return m_elemPol[index];
}

QString tglyphora::UnitName(int code) const
{
    return (code >= 1 && code <= m_unitNames.size()) ? m_unitNames[code - 1] : QString();
}

void tglyphora::setVisible(bool visible)
{
    const bool loading = visible && !m_loaded;
    if (loading) {
        m_loaded = true;
        ErrorReport::guard([this] { Form_Load(); });
        WindowState::restore(*this);
    }
    QMainWindow::setVisible(visible);
    if (loading)
        WindowState::restoreSplitters(*this);
}

void tglyphora::Form_Load()
{
    m_printerName = Printer::instance().DeviceName();
    debut::CurrentPrinterName = m_printerName;
    Panel(1)->setToolTip(QStringLiteral("Imprimante courante ") + m_printerName);

    m_unitNames = {QStringLiteral("Twips"), QStringLiteral("Points"), QStringLiteral("Pixels"),
                   QStringLiteral("Caractères"), QStringLiteral("Pouces"), QStringLiteral("Millimètres"),
                   QStringLiteral("Centimètres")};

    // Every step below re-measures the sample; only the last measurement is seen, so
    // it is the only one made.
    m_holdMeasure = true;
    m_measurePending = false;
    const auto release = [this] {
        m_holdMeasure = false;
        if (m_measurePending)
            afficheinfos();
    };
    try {
        const int unit = Settings::GetInt16(QStringLiteral("Param"), QStringLiteral("unite"), 6);
        munit_Click(unit - 1);

        charge();
        ShowSelectedFont();
        Timer1->stop();
        restorePreferences();
        Recovery::restoreAndWatch(this);
    } catch (...) {
        m_holdMeasure = false;
        throw;
    }
    release();
}

void tglyphora::Form_Resize()
{
    // Too small or minimised is no error: the sizes just stop at zero. The script
    // notice, when shown, takes the bottom line.
    const int width = std::max(0, m_workArea->width());
    const int notice = m_scriptNotice && !m_scriptNotice->isHidden() ? m_scriptNotice->sizeHint().height() : 0;
    const int height = std::max(0, m_workArea->height() - notice);
    ctlEBSplitter1->setGeometry(0, 0, width, height);
    if (notice > 0)
        m_scriptNotice->setGeometry(0, height, width, notice);
}

void tglyphora::showContextMenu(const QPoint& globalPos)
{
    mdivers->popup(globalPos);
}

void tglyphora::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::RightButton) {
        showContextMenu(event->globalPosition().toPoint());
        event->accept();
        return;
    }
    QMainWindow::mouseReleaseEvent(event);
}

void tglyphora::Form_KeyDown(int KeyCode, int)
{
    if (KeyCode == 27)
        stopSlideshow();
}

void tglyphora::keyPressEvent(QKeyEvent* event)
{
    if ((event->modifiers() & Qt::KeypadModifier) && (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Minus)) {
        ErrorReport::guard([&] { nextSize(event->key() == Qt::Key_Plus ? 1 : -1); });
        event->accept();
        return;
    }
    if (event->key() == Qt::Key_Escape) {
        Form_KeyDown(27, shiftState(event->modifiers()));
        event->accept();
        return;
    }
    QMainWindow::keyPressEvent(event);
}

bool tglyphora::eventFilter(QObject* watched, QEvent* event)
{
    bool consumed = false;
    ErrorReport::guard([&] { consumed = previewEvent(watched, event); });
    return consumed || QMainWindow::eventFilter(watched, event);
}

bool tglyphora::previewEvent(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Resize:
        if (watched == m_workArea)
            Form_Resize();
        break;
    case QEvent::ShortcutOverride: {
        // The Edit menu's Ctrl+letter shortcuts come before the sample boxes' own.
        const auto* key = static_cast<QKeyEvent*>(event);
        if ((watched == Text1 || watched == Text2) && key->modifiers() == Qt::ControlModifier
            && (key->key() == Qt::Key_A || key->key() == Qt::Key_B || key->key() == Qt::Key_I || key->key() == Qt::Key_L)) {
            event->ignore();
            return true;
        }
        break;
    }
    case QEvent::KeyPress: {
        // Key preview: the window sees the size keys and Esc before the focused control.
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool keypad = key->modifiers() & Qt::KeypadModifier;
        const bool inTextBox = watched == Text1 || watched == Text2;
        if (keypad && (key->key() == Qt::Key_Plus || key->key() == Qt::Key_Minus) && !inTextBox) {
            nextSize(key->key() == Qt::Key_Plus ? 1 : -1);
            return true;
        }
        if (key->key() == Qt::Key_Escape && Timer1->isActive())
            Form_KeyDown(27, shiftState(key->modifiers()));
        break;
    }
    case QEvent::KeyRelease: {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->isAutoRepeat() && key->key() == Qt::Key_Escape)
            break;
        int code = 0;
        switch (key->key()) {
        case Qt::Key_PageUp: code = 33; break;
        case Qt::Key_PageDown: code = 34; break;
        case Qt::Key_End: code = 35; break;
        case Qt::Key_Home: code = 36; break;
        case Qt::Key_Left: code = 37; break;
        case Qt::Key_Up: code = 38; break;
        case Qt::Key_Right: code = 39; break;
        case Qt::Key_Down: code = 40; break;
        case Qt::Key_Escape: code = 27; break;
        default: code = key->key() < 128 ? key->key() : 0; break;
        }
        const int shift = shiftState(key->modifiers());
        if (watched == List1)
            List1_KeyUp(code, shift);
        else if (watched == Text1)
            Text1_KeyUp(code, shift);
        else if (watched == Text2)
            Text2_KeyUp(code, shift);
        else if (watched == Combo1)
            Combo1_KeyUp(code, shift);
        break;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        // A right click opens the menu without moving the selection.
        if (watched == List1->viewport() && static_cast<QMouseEvent*>(event)->button() == Qt::RightButton)
            return true;
        break;
    case QEvent::MouseButtonRelease: {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (watched == List1->viewport() && mouse->button() == Qt::RightButton) {
            List1_MouseUp(2, shiftState(mouse->modifiers()), int(mouse->position().x()), int(mouse->position().y()));
            return true;
        }
        if (watched == m_workArea && mouse->button() == Qt::RightButton) {
            showContextMenu(mouse->globalPosition().toPoint());
            return true;
        }
        break;
    }
    default:
        break;
    }
    return false;
}

void tglyphora::Form_QueryUnload()
{
    Timer1->stop();
}

void tglyphora::Form_Unload()
{
    Settings::SaveSetting(QStringLiteral("Glyphora"), QStringLiteral("Param"), QStringLiteral("unite"),
                          QString::number(m_unite));
}

void tglyphora::closeEvent(QCloseEvent* event)
{
    Form_QueryUnload();
    Form_Unload();
    WindowState::save(*this);
    QMainWindow::closeEvent(event);
}

void tglyphora::Mquit_Click()
{
    // Ends the program at once: no closing or unloading step runs. Outside a running
    // event loop there is no program to end.
    Timer1->stop();
    WindowState::save(*this); // the window's place is no unloading step: it is kept
    if (QThread::currentThread()->loopLevel() > 0)
        QCoreApplication::exit(0);
}

void tglyphora::Toolbar1_ButtonClick(int Index)
{
    switch (Index) {
    case 1: mopenfoldttf_Click(); break;
    case 2: mcreatefile_Click(); break;
    case 3: mHTML_Click(); break;
    case 4: minfos_Click(); break;
    case 5: mpagtst_Click(); break;
    case 6: mimgfond_Click(); break;
    case 8: alignLeft(); break;
    case 9: alignCentre(); break;
    case 10: alignRight(); break;
    case 12: applyBold(); break;
    case 13: applyItalic(); break;
    case 14: applyUnderline(); break;
    case 15: applyStrikethrough(); break;
    case 17: chooseBackColor(); break;
    case 18: chooseForeColor(); break;
    case 21: mabout_Click(); break;
    default: break;
    }
}
