// The main window's font list tools in the "&Polices" menu: refreshing the list as
// fonts are installed or removed, names drawn in their own font, favourites; and the
// wiring of the filter panel to the list.
#include "app/tglyphora.h"

#include "browser/enumfont.h"
#include "browser/favourites.h"
#include "browser/fontlistfilter.h"
#include "browser/fontnamedelegate.h"
#include "browser/fontwatch.h"
#include "components/errorreport.h"
#include "components/msgbox.h"
#include "components/settings.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QTimer>
#include <QTreeWidget>

namespace {

const QString listGroup = QStringLiteral("Liste");
const QString ownFontKey = QStringLiteral("NomsDansLeurPolice");

QString favouriteCaption(bool isFavourite)
{
    return isFavourite ? QStringLiteral("Retirer des favoris") : QStringLiteral("Ajouter aux favoris");
}

} // namespace

void tglyphora::buildFontListMenu(QMenu* mnupol)
{
    m_mnupol = mnupol;
    mnupol->addSeparator()->setObjectName(QStringLiteral("msep4"));
    auto* refresh = mnupol->addAction(QStringLiteral("Actualiser la liste des polices"));
    refresh->setObjectName(QStringLiteral("mactualiser"));
    refresh->setShortcut(QKeySequence(Qt::Key_F5));
    ErrorReport::connect(refresh, &QAction::triggered, this, &tglyphora::mactualiser_Click);
    auto* preview = mnupol->addAction(QStringLiteral("Afficher les noms dans leur police"));
    preview->setObjectName(QStringLiteral("mapercu"));
    preview->setCheckable(true);
    ErrorReport::connect(preview, &QAction::triggered, this, &tglyphora::mapercu_Click);
    auto* favourite = mnupol->addAction(favouriteCaption(false));
    favourite->setObjectName(QStringLiteral("mfavori"));
    favourite->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_D));
    favourite->setShortcutContext(Qt::WindowShortcut);
    ErrorReport::connect(favourite, &QAction::triggered, this, &tglyphora::mfavori_Click);
    mnupol->addSeparator()->setObjectName(QStringLiteral("msep5"));

    // The filter's moves of the selection show the font as a click would.
    connect(m_filtre, &FontListFilter::showFont, this, [this] { ErrorReport::guard([this] { List1_Click(); }); });
    connect(m_filtre, &FontListFilter::rowNumberChanged, this, [this] {
        const int number = m_filtre->rowNumber(List1->currentItem());
        Panel(4)->setText(number > 0 ? QString::number(number) : QString());
    });
    connect(m_filtre, &FontListFilter::noFont, this, [this] { Panel(4)->clear(); });
    connect(List1, &QTreeWidget::currentItemChanged, this, ErrorReport::guarded([this] { updateFavouriteCaption(); }));
    // The favourites offered follow the rows of the list (charge, installs).
    connect(List1->model(), &QAbstractItemModel::rowsInserted, this, ErrorReport::guarded([this] { fillFavouritesMenu(); }));

    m_fontWatch = new FontWatch(this);
    connect(m_fontWatch, &FontWatch::fontsChanged, this, [this] { ErrorReport::guard([this] { fontsChanged(); }); });
    // Watching starts once the window has loaded, off the start-up path.
    QTimer::singleShot(0, m_fontWatch, &FontWatch::start);

    if (Settings::GetSetting(QString::fromLatin1(Settings::AppName), listGroup, ownFontKey, QStringLiteral("0")) == QLatin1String("1")) {
        preview->setChecked(true);
        mapercu_Click();
    }
}

void tglyphora::mactualiser_Click()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_fontWatch->refreshNow();
    QApplication::restoreOverrideCursor();
}

void tglyphora::fontsChanged()
{
    const QStringList names = EnumFont::families();
    QTreeWidgetItem* current = List1->currentItem();
    if (current && !names.contains(current->text(0))) {
        // The selected font left: the filter's rule picks the first visible row.
        List1->setCurrentItem(nullptr);
        List1->clearSelection();
    }
    syncList(names);
    m_filtre->fontsChanged();
    m_filtre->apply();
    fillFavouritesMenu();
    if (m_nameDelegate)
        m_nameDelegate->reset();
}

void tglyphora::mapercu_Click()
{
    auto* action = findChild<QAction*>(QStringLiteral("mapercu"));
    const bool on = action->isChecked();
    Settings::SaveSetting(QString::fromLatin1(Settings::AppName), listGroup, ownFontKey, on ? QStringLiteral("1") : QStringLiteral("0"));
    if (!m_plainDelegate)
        m_plainDelegate = List1->itemDelegate();
    if (on) {
        if (!m_nameDelegate) {
            m_nameDelegate = new FontNameDelegate(List1, [this] { return m_filtre->index().get(); });
            connect(m_filtre, &FontListFilter::indexReady, m_nameDelegate, &FontNameDelegate::reset);
        }
        m_filtre->ensureIndex();
        List1->setItemDelegate(m_nameDelegate);
    } else {
        List1->setItemDelegate(m_plainDelegate);
    }
    List1->viewport()->update();
}

void tglyphora::mfavori_Click()
{
    QTreeWidgetItem* item = List1->currentItem();
    if (!item) {
        MsgBox::Inform(this, QStringLiteral("Vous devez d'abord sélectionner une police dans la liste"));
        return;
    }
    Favourites::toggle(item->text(0));
    fillFavouritesMenu();
    updateFavouriteCaption();
}

void tglyphora::updateFavouriteCaption()
{
    auto* action = findChild<QAction*>(QStringLiteral("mfavori"));
    QTreeWidgetItem* item = List1->currentItem();
    if (action)
        action->setText(favouriteCaption(item && m_filtre->isFavourite(item->text(0))));
}

void tglyphora::fillFavouritesMenu()
{
    // ElemPol(0) stays as it is; the favourites still installed follow it as
    // ElemPol(1), ElemPol(2), ... at the end of the menu.
    while (m_elemPol.size() > 1)
        delete m_elemPol.takeLast();
    const QStringList favourites = Favourites::load();
    m_filtre->setFavourites(favourites);
    for (const QString& name : favourites) {
        if (!m_filtre->isListed(name))
            continue;
        const int index = int(m_elemPol.size());
        auto* action = m_mnupol->addAction(name);
        action->setObjectName(QStringLiteral("ElemPol_%1").arg(index));
        connect(action, &QAction::triggered, this, ErrorReport::guarded([this, index] { ElemPol_Click(index); }));
        m_elemPol.append(action);
    }
}
