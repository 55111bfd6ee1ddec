// FontListFilter: the panel above the font list - the filter box txtFiltre, the count
// lblCompte, the kind and writing-system boxes cboGenre and cboEcriture and the
// favourites check chkFavoris - and the rules it applies to the list:
//  - rows that do not match are hidden, never removed, so every command that acts on
//    all fonts still sees them all;
//  - the visible rows are what the navigation keys, clicks, the slideshow and the
//    position in status panel 4 go by;
//  - after a change, the selected font stays when still visible; otherwise the first
//    visible row is selected and shown; with no visible row nothing is selected and
//    the samples stay as they are. The samples follow the new row once the pending
//    events (keys typed together) have been handled.
#pragma once

#include "browser/familyindex.h"
#include "browser/fontkind.h"

#include <QSet>
#include <QWidget>
#include <memory>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

class FontListFilter : public QWidget {
    Q_OBJECT
public:
    // Puts the panel above `list`, in a pane (fraListe) that takes the list's place in
    // its parent, and the Ctrl+F shortcut on `window`.
    static FontListFilter* install(QTreeWidget* list, QWidget* window);

    QLineEdit* txtFiltre = nullptr;
    QLabel* lblCompte = nullptr;
    QComboBox* cboGenre = nullptr;
    QComboBox* cboEcriture = nullptr;
    QCheckBox* chkFavoris = nullptr;

    // True while any criterion is set (some rows may be hidden).
    bool isFiltering() const;
    // The visible rows, in list order: their number, the n-th of them (1-based).
    int visibleCount() const;
    QTreeWidgetItem* visibleItem(int number) const;
    // The item's number among the visible rows (1-based); 0 for none.
    int rowNumber(QTreeWidgetItem* item) const;

    // The family index once built (nullptr before); ensureIndex starts building it.
    std::shared_ptr<const FamilyIndex> index() const { return m_index; }
    void ensureIndex();
    // Drops the index and the row caches after the system's fonts changed, and builds
    // the index again when filters need it.
    void fontsChanged();

    // The favourites the filter shows with chkFavoris; set by the favourites command.
    void setFavourites(const QStringList& names);
    bool isFavourite(const QString& name) const { return m_favourites.contains(name); }
    // Names of the rows of the list (hidden or not).
    bool isListed(const QString& name) const;

    // Applies the criteria to the list now.
    void apply();

Q_SIGNALS:
    // The selection moved to another row: show its font.
    void showFont();
    // The selected row stayed but its number among the visible rows may have changed.
    void rowNumberChanged();
    // No visible row: no font selected.
    void noFont();
    // A new family index is available.
    void indexReady();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit FontListFilter(QTreeWidget* list, QWidget* parent);
    void buildControls();
    void txtFiltre_Change();
    void criteriaChanged();
    void indexBuilt(std::shared_ptr<const FamilyIndex> index, quint64 generation);
    void fillWritingSystems();
    void refreshRows() const;
    bool matches(int row) const;
    void updateCount();
    void keepOrMoveSelection();

    QTreeWidget* m_list;
    std::shared_ptr<const FamilyIndex> m_index;
    quint64 m_generation = 0;
    bool m_building = false;
    bool m_showPending = false;

    QStringList m_words;
    FontKind::Genre m_genre = FontKind::Genre::All;
    int m_system = -1;
    QSet<QString> m_favourites;

    // Caches of the rows, rebuilt after the list's rows change or move.
    mutable bool m_rowsValid = false;
    mutable QList<const FamilyIndex::Family*> m_rowFamilies;
    mutable QList<QString> m_rowFolded; // names of rows the index does not know
    mutable QSet<QString> m_names;
    mutable QList<bool> m_hidden;
    mutable QList<int> m_visible; // rows shown, in order
};
