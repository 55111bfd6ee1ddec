// ComparisonView and FamilyProxy.
#include "output/comparisonview.h"

#include "components/pageflow.h"
#include "output/familyfilter.h"

#include <QPainter>
#include <QStringListModel>

namespace {

// Labels on screen are never shortened; samples are scaled from one size of each face,
// so that a new size draws at once.
ProofPages::RowOptions screenOptions()
{
    ProofPages::RowOptions options;
    options.maxLabelWidth = 1e9;
    options.referencePoints = 48;
    return options;
}

} // namespace

ComparisonView::ComparisonView(QWidget* parent) : QWidget(parent)
{
    setAutoFillBackground(false);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

ProofPages::RowGeometry ComparisonView::geometry() const
{
    return ProofPages::measureRows(const_cast<ComparisonView*>(this), font(), m_rows, screenOptions());
}

void ComparisonView::setRows(const QList<ProofPages::Row>& rows)
{
    m_rows = rows;
    const ProofPages::RowGeometry g = geometry();
    double height = 0;
    for (double h : g.heights)
        height += h;
    const int margin = 2 * fontMetrics().height();
    m_contents = QSize(int(std::ceil(g.width)) + margin, int(std::ceil(height)) + margin);
    // The scroll area gives the view at least this size, with scroll bars beyond.
    setMinimumSize(m_contents);
    updateGeometry();
    update();
}

QSize ComparisonView::sizeHint() const
{
    return m_contents;
}

void ComparisonView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    painter.setPen(palette().text().color());
    const int margin = fontMetrics().height();
    painter.translate(margin, margin);
    // One endless page: the same drawing as on paper, without page breaks.
    PageFlow flow(painter, width() - margin, height() - margin);
    ProofPages::rows(flow, font(), m_rows, screenOptions());
}

FamilyProxy::FamilyProxy(const QStringList& families, QObject* parent) : QSortFilterProxyModel(parent)
{
    m_folded.reserve(families.size());
    for (const QString& family : families)
        m_folded.append(FamilyFilter::fold(family));
    setSourceModel(new QStringListModel(families, this));
}

void FamilyProxy::setQuery(const QString& query)
{
    const QString folded = FamilyFilter::fold(query);
    if (folded == m_query)
        return;
    m_query = folded;
    invalidateRowsFilter();
}

QString FamilyProxy::family(const QModelIndex& proxyIndex) const
{
    return data(proxyIndex).toString();
}

bool FamilyProxy::filterAcceptsRow(int sourceRow, const QModelIndex&) const
{
    return FamilyFilter::matches(m_folded.value(sourceRow), m_query);
}
