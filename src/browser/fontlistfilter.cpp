// The filter panel of the font list: its controls, the criteria, hiding rows.
#include "browser/fontlistfilter.h"

#include "browser/textfold.h"
#include "browser/worker.h"
#include "browser/writingsystems.h"
#include "components/errorreport.h"

#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScopeGuard>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

FontListFilter* FontListFilter::install(QTreeWidget* list, QWidget* window)
{
    auto* pane = new QWidget(list->parentWidget());
    pane->setObjectName(QStringLiteral("fraListe"));
    auto* layout = new QVBoxLayout(pane);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    auto* filter = new FontListFilter(list, pane);
    layout->addWidget(filter);
    layout->addWidget(list, 1);

    auto* find = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_F), window);
    find->setObjectName(QStringLiteral("raccourciFiltre"));
    find->setContext(Qt::WindowShortcut);
    connect(find, &QShortcut::activated, filter, [filter] {
        filter->txtFiltre->setFocus(Qt::ShortcutFocusReason);
        filter->txtFiltre->selectAll();
    });
    return filter;
}

FontListFilter::FontListFilter(QTreeWidget* list, QWidget* parent) : QWidget(parent), m_list(list)
{
    setObjectName(QStringLiteral("FontListFilter"));
    buildControls();
    // Rows added, removed or sorted: the caches are rebuilt, and a filter in force is
    // applied to the new rows once the change is complete.
    auto invalidate = [this] {
        m_rowsValid = false;
        if (isFiltering())
            QTimer::singleShot(0, this, [this] { apply(); });
        else
            updateCount();
    };
    QAbstractItemModel* model = m_list->model();
    connect(model, &QAbstractItemModel::rowsInserted, this, invalidate);
    connect(model, &QAbstractItemModel::rowsRemoved, this, invalidate);
    connect(model, &QAbstractItemModel::modelReset, this, invalidate);
    connect(model, &QAbstractItemModel::layoutChanged, this, invalidate);
    updateCount();
}

void FontListFilter::buildControls()
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);

    txtFiltre = new QLineEdit(this);
    txtFiltre->setObjectName(QStringLiteral("txtFiltre"));
    txtFiltre->setPlaceholderText(QStringLiteral("Rechercher une police (Ctrl+F)"));
    txtFiltre->setToolTip(QStringLiteral("Tapez une partie du nom : majuscules et accents sont ignorés"));
    txtFiltre->setClearButtonEnabled(true);
    txtFiltre->installEventFilter(this);
    connect(txtFiltre, &QLineEdit::textChanged, this, ErrorReport::guarded([this] { txtFiltre_Change(); }));

    lblCompte = new QLabel(this);
    lblCompte->setObjectName(QStringLiteral("lblCompte"));
    lblCompte->setToolTip(QStringLiteral("Polices affichées dans la liste"));

    cboGenre = new QComboBox(this);
    cboGenre->setObjectName(QStringLiteral("cboGenre"));
    cboGenre->setToolTip(QStringLiteral("Genre de police"));
    cboGenre->addItems(FontKind::genreCaptions());
    cboGenre->installEventFilter(this);
    connect(cboGenre, &QComboBox::currentIndexChanged, this, [this](int index) {
        m_genre = FontKind::Genre(std::max(index, 0));
        ErrorReport::guard([this] { criteriaChanged(); });
    });

    cboEcriture = new QComboBox(this);
    cboEcriture->setObjectName(QStringLiteral("cboEcriture"));
    cboEcriture->setToolTip(QStringLiteral("Écriture que la police sait écrire"));
    cboEcriture->addItem(QStringLiteral("Toutes les écritures"), -1);
    cboEcriture->installEventFilter(this);
    connect(cboEcriture, &QComboBox::currentIndexChanged, this, [this](int index) {
        m_system = index < 0 ? -1 : cboEcriture->itemData(index).toInt();
        ErrorReport::guard([this] { criteriaChanged(); });
    });

    chkFavoris = new QCheckBox(QStringLiteral("Favoris seulement"), this);
    chkFavoris->setObjectName(QStringLiteral("chkFavoris"));
    chkFavoris->setToolTip(QStringLiteral("N'afficher que les polices favorites"));
    connect(chkFavoris, &QCheckBox::toggled, this, ErrorReport::guarded([this] { criteriaChanged(); }));

    for (QWidget* control : {static_cast<QWidget*>(txtFiltre), static_cast<QWidget*>(lblCompte),
                             static_cast<QWidget*>(cboGenre), static_cast<QWidget*>(cboEcriture),
                             static_cast<QWidget*>(chkFavoris)}) {
        control->setMinimumWidth(0);
        layout->addWidget(control);
    }
    cboGenre->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cboEcriture->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cboGenre->setMinimumContentsLength(6);
    cboEcriture->setMinimumContentsLength(6);
}

bool FontListFilter::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::MouseButtonPress)
        ensureIndex();
    if (watched == txtFiltre && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Escape && !txtFiltre->text().isEmpty()) {
            txtFiltre->clear();
            return true;
        }
        if (key->key() == Qt::Key_Down) {
            QTreeWidgetItem* current = m_list->currentItem();
            if (!current || current->isHidden())
                keepOrMoveSelection();
            m_list->setFocus(Qt::OtherFocusReason);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

bool FontListFilter::isFiltering() const
{
    return !m_words.isEmpty() || m_genre != FontKind::Genre::All || m_system >= 0 || chkFavoris->isChecked();
}

void FontListFilter::txtFiltre_Change()
{
    m_words = TextFold::words(txtFiltre->text());
    // Rows match on their listed name at once, and on every other name once the index
    // is built.
    if (!m_words.isEmpty())
        ensureIndex();
    apply();
}

void FontListFilter::criteriaChanged()
{
    if (m_genre != FontKind::Genre::All || m_system >= 0)
        ensureIndex();
    apply();
}

void FontListFilter::ensureIndex()
{
    if (m_index || m_building)
        return;
    m_building = true;
    const quint64 generation = ++m_generation;
    auto snapshot = std::make_shared<FamilyIndex::Snapshot>();
    Worker::run<std::shared_ptr<const FamilyIndex>>(
        this, [snapshot] { return std::make_shared<const FamilyIndex>(FamilyIndex::build(*snapshot)); },
        [this, generation](std::shared_ptr<const FamilyIndex> index) { indexBuilt(std::move(index), generation); });
}

void FontListFilter::indexBuilt(std::shared_ptr<const FamilyIndex> index, quint64 generation)
{
    if (generation != m_generation)
        return; // built from fonts that have changed since
    m_building = false;
    m_index = std::move(index);
    m_rowsValid = false;
    refreshRows(); // now rather than on the next key
    fillWritingSystems();
    if (isFiltering())
        apply();
    emit indexReady();
}

void FontListFilter::fontsChanged()
{
    const bool wanted = m_index || m_building;
    ++m_generation;
    m_building = false;
    m_index.reset();
    m_rowsValid = false;
    if (wanted)
        ensureIndex();
}

void FontListFilter::fillWritingSystems()
{
    const QSignalBlocker block(cboEcriture);
    const int chosen = m_system;
    while (cboEcriture->count() > 1)
        cboEcriture->removeItem(1);
    const QList<WritingSystems::System>& systems = WritingSystems::all();
    const QList<int> counts = m_index->writingSystemCounts();
    for (int i = 0; i < systems.size(); ++i) {
        if (counts[i] > 0)
            cboEcriture->addItem(QStringLiteral("%1 (%2)").arg(systems[i].name).arg(counts[i]), i);
    }
    const int at = cboEcriture->findData(chosen);
    cboEcriture->setCurrentIndex(std::max(at, 0));
    m_system = at < 0 ? -1 : chosen;
}

void FontListFilter::setFavourites(const QStringList& names)
{
    m_favourites = QSet<QString>(names.begin(), names.end());
    if (chkFavoris->isChecked())
        apply();
}

bool FontListFilter::isListed(const QString& name) const
{
    refreshRows();
    return m_names.contains(name);
}

void FontListFilter::refreshRows() const
{
    if (m_rowsValid)
        return;
    const int count = m_list->topLevelItemCount();
    m_rowFamilies.resize(count);
    m_rowFolded.resize(count);
    m_hidden.resize(count);
    m_visible.clear();
    m_names.clear();
    m_names.reserve(count);
    for (int row = 0; row < count; ++row) {
        const QString name = m_list->topLevelItem(row)->text(0);
        m_names.insert(name);
        const FamilyIndex::Family* family = m_index ? m_index->find(name) : nullptr;
        m_rowFamilies[row] = family;
        m_rowFolded[row].clear();
        m_hidden[row] = m_list->isRowHidden(row, QModelIndex());
        if (!m_hidden[row])
            m_visible.append(row);
    }
    m_rowsValid = true;
}

bool FontListFilter::matches(int row) const
{
    const FamilyIndex::Family* family = m_rowFamilies[row];
    if (!m_words.isEmpty()) {
        // Rows the index does not know (or all, before it is built) match on their name.
        if (!family && m_rowFolded[row].isEmpty())
            m_rowFolded[row] = TextFold::fold(m_list->topLevelItem(row)->text(0));
        if (!TextFold::containsAll(family ? family->folded : m_rowFolded[row], m_words))
            return false;
    }
    if (m_genre != FontKind::Genre::All && !(family && FontKind::matches(m_genre, family->kind, family->monospace)))
        return false;
    if (m_system >= 0 && !(family && (family->writingSystems & (quint64(1) << m_system))))
        return false;
    if (chkFavoris->isChecked() && !m_favourites.contains(m_list->topLevelItem(row)->text(0)))
        return false;
    return true;
}

void FontListFilter::apply()
{
    // Kinds and writing systems are known once the index is built; the list waits for it.
    if ((m_genre != FontKind::Genre::All || m_system >= 0) && !m_index) {
        ensureIndex();
        lblCompte->setText(QStringLiteral("Analyse des polices…"));
        return;
    }
    refreshRows();
    const bool filtering = isFiltering();
    const int count = int(m_hidden.size());
    m_visible.clear();
    // Only rows whose state changes are touched: hiding is cheap, relayout is deferred.
    for (int row = 0; row < count; ++row) {
        const bool hide = filtering && !matches(row);
        if (hide != m_hidden[row]) {
            m_list->setRowHidden(row, QModelIndex(), hide);
            m_hidden[row] = hide;
        }
        if (!hide)
            m_visible.append(row);
    }
    updateCount();
    keepOrMoveSelection();
}

void FontListFilter::updateCount()
{
    const int total = m_list->topLevelItemCount();
    if (isFiltering() && m_rowsValid)
        lblCompte->setText(QStringLiteral("%1 sur %2").arg(m_visible.size()).arg(total));
    else
        lblCompte->setText(QStringLiteral("%1 %2").arg(total).arg(total > 1 ? QStringLiteral("polices") : QStringLiteral("police")));
}

void FontListFilter::keepOrMoveSelection()
{
    // Rows are brought into view vertically only: the names keep their left edge.
    QScrollBar* across = m_list->horizontalScrollBar();
    const int left = across->value();
    const auto keepLeft = qScopeGuard([across, left] { across->setValue(left); });
    QTreeWidgetItem* current = m_list->currentItem();
    if (m_visible.isEmpty()) {
        m_showPending = false; // the samples stay as they are
        if (current || !m_list->selectedItems().isEmpty()) {
            m_list->setCurrentItem(nullptr);
            m_list->clearSelection();
        }
        emit noFont();
        return;
    }
    if (current && current->isSelected() && !m_hidden.value(m_list->indexOfTopLevelItem(current), true)) {
        m_list->scrollToItem(current);
        emit rowNumberChanged();
        return;
    }
    QTreeWidgetItem* first = m_list->topLevelItem(m_visible.first());
    m_list->setCurrentItem(first);
    m_list->scrollToItem(first);
    // The samples follow once the keys typed together have been handled: the list
    // answers each key at once, and a face is loaded only for the row that stays.
    m_showPending = true;
    QTimer::singleShot(0, this, [this] {
        if (!m_showPending)
            return;
        m_showPending = false;
        if (m_list->currentItem() && !m_list->currentItem()->isHidden())
            emit showFont();
    });
}

int FontListFilter::visibleCount() const
{
    if (!isFiltering())
        return m_list->topLevelItemCount();
    refreshRows();
    return int(m_visible.size());
}

QTreeWidgetItem* FontListFilter::visibleItem(int number) const
{
    if (!isFiltering())
        return m_list->topLevelItem(number - 1);
    refreshRows();
    return number >= 1 && number <= m_visible.size() ? m_list->topLevelItem(m_visible[number - 1]) : nullptr;
}

int FontListFilter::rowNumber(QTreeWidgetItem* item) const
{
    const int row = item ? m_list->indexOfTopLevelItem(item) : -1;
    if (row < 0 || !isFiltering())
        return row + 1;
    refreshRows();
    const auto at = std::lower_bound(m_visible.cbegin(), m_visible.cend(), row);
    return at != m_visible.cend() && *at == row ? int(at - m_visible.cbegin()) + 1 : 0;
}
