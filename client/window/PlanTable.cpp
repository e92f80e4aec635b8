#include "PlanTable.h"

#include <QHeaderView>
#include <QScrollBar>

#include <utility>

namespace {

constexpr int CellMargin = 16;

} // namespace

PlanTable::PlanTable(QWidget* parent)
    : QTableView(parent)
    , m_plans(new PlanTableModel(this))
{
    setObjectName(QStringLiteral("planTable"));
    setAccessibleName(tr("计划列表"));
    setModel(m_plans);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    verticalHeader()->hide();
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setHighlightSections(false);
    // Wide enough for usual texts. Measuring the rows would read them all.
    const QStringList samples{ QStringLiteral("AP00000000"), QStringLiteral("累计数量"), QStringLiteral("港股通交易"),
        QStringLiteral("600000.SH 四字证券"), QStringLiteral("方向"), QStringLiteral("10,000,000.00 元"),
        QStringLiteral("比较值取最大"), QStringLiteral("0000-00-00 至 0000-00-00"),
        QStringLiteral("trader01 0000-00-00 00:00") };
    for (int column = 0; column < samples.size(); ++column)
        setColumnWidth(column, fontMetrics().horizontalAdvance(samples.at(column)) + CellMargin);
    connect(m_plans, &PlanTableModel::counted, this, &PlanTable::counted);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this,
        [this](int hidden) { m_newAbove = qMin(m_newAbove, hidden); });
}

Status PlanTable::refresh()
{
    const int hidden = verticalScrollBar()->value();
    const int newAbove = m_newAbove;
    const int count = planCount();
    const int current = currentIndex().row();
    const int anchor = anchorRow();
    const QString anchored = m_plans->plan(anchor).id;
    if (Status status = m_plans->refresh(); !status)
        return status;
    if (anchored.isEmpty())
        return {};
    // Usually all new plans are the first ones.
    const int row = m_plans->reveal(anchored, anchor + planCount() - count);
    const int shift = row < 0 ? 0 : row - anchor;
    makeCurrent(anchor == current ? row : m_plans->reveal(m_current, current + shift));
    executeDelayedItemsLayout();
    m_newAbove = newAbove + qMax(0, shift);
    verticalScrollBar()->setValue(hidden + shift);
    return {};
}

void PlanTable::selectPlan(const QString& planId)
{
    setCurrentIndex(m_plans->index(m_plans->reveal(planId), 0));
    noteCurrent();
}

void PlanTable::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    noteCurrent();
}

/// Does not scroll to the row.
void PlanTable::makeCurrent(int row)
{
    setAutoScroll(false);
    setCurrentIndex(m_plans->index(row, 0));
    setAutoScroll(true);
    noteCurrent();
}

void PlanTable::noteCurrent()
{
    const QString id = currentPlan().id;
    if (std::exchange(m_current, id) != id)
        Q_EMIT currentPlanChanged();
}

/// The row that stays where it is: the current one, unless the user has scrolled away from it.
int PlanTable::anchorRow() const
{
    const int first = rowAt(0);
    const int last = rowAt(viewport()->height() - 1);
    const int current = currentIndex().row();
    const bool isVisible = current >= first && (last < 0 || current <= last);
    return current >= 0 && isVisible ? current : first;
}
