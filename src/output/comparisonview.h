// The compare window's parts that draw or filter: the view of the rows (drawn by
// ProofPages, as on paper) and the family list's filter.
#pragma once

#include "output/proofpages.h"

#include <QSortFilterProxyModel>
#include <QStringList>
#include <QWidget>

class FamilyIndex;

// The rows on screen, one under the other, sized to hold them all (it lives in a
// scroll area).
class ComparisonView : public QWidget {
    Q_OBJECT
public:
    explicit ComparisonView(QWidget* parent = nullptr);
    void setRows(const QList<ProofPages::Row>& rows);
    const QList<ProofPages::Row>& rows() const { return m_rows; }
    // The geometry the rows were last drawn with (on this widget).
    ProofPages::RowGeometry geometry() const;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QList<ProofPages::Row> m_rows;
    QSize m_contents;
};

// Family names filtered by the rules of the main list's filter box: every typed word, in
// any order, whatever the case and the accents, found in the name or in any other name
// the family index knows for the family (a localized name). The folded names are made once.
class FamilyProxy : public QSortFilterProxyModel {
    Q_OBJECT
public:
    explicit FamilyProxy(const QStringList& families, QObject* parent = nullptr);
    void setQuery(const QString& query);
    // Takes the other names of the families from the index (none: the names alone).
    void setIndex(const FamilyIndex* index);
    QString family(const QModelIndex& proxyIndex) const;

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;

private:
    QStringList m_families;
    QStringList m_folded;
    QStringList m_words;
};
