// ComparisonView and FamilyProxy.
#include "output/comparisonview.h"

#include "browser/familyindex.h"
#include "browser/textfold.h"
#include "components/pageflow.h"

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

FamilyProxy::FamilyProxy(const QStringList& families, QObject* parent)
    : QSortFilterProxyModel(parent), m_families(families)
{
    setIndex(nullptr);
    setSourceModel(new QStringListModel(families, this));
}

void FamilyProxy::setIndex(const FamilyIndex* index)
{
    m_folded.clear();
    m_folded.reserve(m_families.size());
    for (const QString& name : m_families) {
        const FamilyIndex::Family* family = index ? index->find(name) : nullptr;
        m_folded.append(family ? family->folded : TextFold::fold(name));
    }
    if (!m_words.isEmpty())
        invalidateRowsFilter();
}

void FamilyProxy::setQuery(const QString& query)
{
    const QStringList words = TextFold::words(query);
    if (words == m_words)
        return;
    m_words = words;
    invalidateRowsFilter();
}

QString FamilyProxy::family(const QModelIndex& proxyIndex) const
{
    return data(proxyIndex).toString();
}

bool FamilyProxy::filterAcceptsRow(int sourceRow, const QModelIndex&) const
{
    return m_words.isEmpty() || TextFold::containsAll(m_folded.value(sourceRow), m_words);
}
