#include "PlanTable.h"

#include "ClientClock.h"
#include "PlanDelegate.h"
#include "PlanHeader.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <utility>

namespace {

// Rows beyond the visible ones that are read before they become visible.
constexpr int Margin = 50;
// What is done with plans is done with each one, and their ids are kept.
constexpr int MostSelected = 10000;

const QRegularExpression LineOrTab(QStringLiteral("[\\t\\r\\n]"));

} // namespace

/// Notes the selected plans by their ids.
class PlanTable::Selection : public QItemSelectionModel {
public:
    explicit Selection(PlanTable* table)
        : QItemSelectionModel(table->m_plans, table)
        , m_table(*table)
    {
    }

    using QItemSelectionModel::select;
    void select(const QItemSelection& selection, SelectionFlags command) override
    {
        QItemSelectionModel::select(selection, command);
        if (m_table.m_isChanging || command == NoUpdate)
            return;
        QSet<QString>& ids = m_table.m_selected;
        if (command & Clear)
            ids.clear();
        for (int row = 0; row < m_table.m_plans->rowCount(); ++row) {
            if (isRowSelected(row, QModelIndex()))
                ids.insert(m_table.m_plans->plan(row).id);
            else
                ids.remove(m_table.m_plans->plan(row).id);
        }
    }

private:
    PlanTable& m_table;
};

PlanTable::PlanTable(QWidget* parent)
    : QTableView(parent)
    , m_plans(new PlanTableModel(this))
    , m_bar(new QScrollBar(Qt::Vertical, this))
{
    setObjectName(QStringLiteral("planTable"));
    setAccessibleName(tr("计划列表"));
    auto* const header = new PlanHeader(this);
    setHorizontalHeader(header);
    setModel(m_plans);
    setSelectionModel(new Selection(this));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setItemDelegate(new PlanDelegate(this));
    header->setUp();
    connect(m_plans, &PlanTableModel::counted, this, [this] {
        showPosition();
        Q_EMIT counted();
    });
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &PlanTable::sortBy);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &PlanTable::scrolled);
    connect(m_bar, &QScrollBar::valueChanged, this, [this](int position) {
        if (!m_showsPosition)
            scrollToPosition(position);
    });
    showOrder();
}

void PlanTable::keyPressEvent(QKeyEvent* event)
{
    const QString former = m_current.id;
    const QScopedValueRollback<bool> range(m_isRange, event->modifiers() & Qt::ShiftModifier);
    if (event->matches(QKeySequence::Copy))
        copySelected();
    else if (event->matches(QKeySequence::SelectAll))
        selectAllPlans();
    else
        QTableView::keyPressEvent(event);
    if (!m_isRange)
        m_rangeStart = m_current;
    else if (m_current.id != former)
        selectRange();
}

void PlanTable::mousePressEvent(QMouseEvent* event)
{
    const QScopedValueRollback<bool> range(m_isRange, event->modifiers() & Qt::ShiftModifier);
    m_isPressed = true;
    QTableView::mousePressEvent(event);
    if (!m_isRange)
        m_rangeStart = m_current;
    else if (!(event->modifiers() & Qt::ControlModifier))
        selectRange();
}

// The first of the two clicks may have been on a button that was there before the rows moved.
void PlanTable::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (m_isPressed)
        QTableView::mouseDoubleClickEvent(event);
    else
        mousePressEvent(event);
}

void PlanTable::focusOutEvent(QFocusEvent* event)
{
    m_isPressed = false;
    QTableView::focusOutEvent(event);
}

/// Selects the plans between the one where the selection began and the current one. Qt only knows those of the rows.
void PlanTable::selectRange()
{
    const int first = m_plans->rowOf(m_rangeStart.id);
    const int last = m_plans->rowOf(m_current.id);
    if (first >= 0 && last >= 0) {
        select(m_plans->ids().mid(qMin(first, last), qAbs(last - first) + 1));
        return;
    }
    PlanPlace from = list().placeOf(m_rangeStart);
    PlanPlace until = list().placeOf(m_current);
    if (list().precedes(until, from))
        std::swap(from, until);
    PlanSlice range;
    range.limit = MostSelected + 1;
    range.from = from;
    range.isFromIncluded = true;
    range.until = until;
    range.isUntilIncluded = true;
    select(m_plans->idsOf(range));
}

void PlanTable::selectAllPlans()
{
    PlanSlice all;
    all.limit = MostSelected + 1;
    select(m_plans->idsOf(all));
}

/// Selects these plans, or only the current one if they are too many.
void PlanTable::select(const QStringList& ids)
{
    const bool isPossible = ids.size() <= MostSelected;
    const QStringList selected = isPossible ? ids : QStringList{ m_current.id };
    keepPlans([&] { m_selected = QSet<QString>(selected.cbegin(), selected.cend()); });
    if (!isPossible)
        Q_EMIT tooManySelected(MostSelected);
}

/// Copies the texts of the shown columns, as spreadsheets take them: tabs between columns, a line for each plan.
void PlanTable::copySelected()
{
    QString text;
    for (const ListedPlan& listed : m_plans->listed(selectedPlans())) {
        const QStringList texts = PlanColumns::texts(listed, clientToday());
        QStringList cells;
        for (int place = 0; place < PlanColumns::Count; ++place) {
            const int column = horizontalHeader()->logicalIndex(place);
            if (!isColumnHidden(column))
                cells << QString(texts.at(column)).replace(LineOrTab, QStringLiteral(" "));
        }
        text += cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
    }
    if (!text.isEmpty())
        QGuiApplication::clipboard()->setText(text);
}

Status PlanTable::show(const PlanList& list)
{
    Status status;
    {
        const QScopedValueRollback<bool> changing(m_isChanging, true);
        status = m_plans->show(list);
    }
    if (!status)
        return status;
    m_newAbove = 0;
    m_selected.clear();
    showOrder();
    executeDelayedItemsLayout();
    setCurrentIndex(m_plans->index(0, 0));
    noteCurrent(m_plans->plan(0));
    verticalScrollBar()->setValue(0);
    showPosition();
    return {};
}

Status PlanTable::refresh()
{
    const int hidden = verticalScrollBar()->value();
    const int newAbove = m_newAbove;
    const int anchor = anchorRow();
    const QString anchored = m_plans->plan(anchor).id;
    const QStringList rows = m_plans->ids();
    Status status;
    keepPlans([&] {
        status = m_plans->refresh();
        if (!status)
            return;
        for (const QString& id : rows) {
            if (m_plans->rowOf(id) < 0)
                m_selected.remove(id);
        }
        const int row = anchored.isEmpty() ? -1 : m_plans->reveal(anchored).valueOr(-1);
        const int shift = row < 0 ? 0 : row - anchor;
        executeDelayedItemsLayout();
        verticalScrollBar()->setValue(hidden + shift);
        m_newAbove = qMin(newAbove + qMax(0, shift), m_plans->firstPosition() + verticalScrollBar()->value());
        if (m_plans->rowOf(m_current.id) < 0)
            noteCurrent(m_plans->listed(m_current.id).valueOr(m_current));
    });
    return status;
}

void PlanTable::selectPlan(const QString& planId)
{
    Result<int> row = -1;
    keepPlans([&] { row = m_plans->reveal(planId); });
    if (!row)
        return;
    executeDelayedItemsLayout();
    setCurrentIndex(m_plans->index(*row, 0));
    if (*row < 0)
        clearSelection();
    noteCurrent(m_plans->plan(*row));
}

QStringList PlanTable::selectedPlans() const
{
    QStringList ids;
    QSet<QString> others = m_selected;
    for (int row = 0; row < m_plans->rowCount(); ++row) {
        if (others.remove(m_plans->plan(row).id))
            ids << m_plans->plan(row).id;
    }
    return ids + others.values();
}

// Qt would look for the text in all rows.
void PlanTable::keyboardSearch(const QString& text)
{
    if (!text.trimmed().isEmpty())
        Q_EMIT searchTyped(text);
}

void PlanTable::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    if (!m_isChanging)
        noteCurrent(m_plans->plan(current.row()));
}

QModelIndex PlanTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    if (action == MoveHome || action == MoveEnd) {
        keepPlans([&] {
            if (action == MoveEnd && m_plans->hasBelow())
                m_plans->goToEnd();
            else if (action == MoveHome && m_plans->hasAbove())
                m_plans->goTo(0);
        });
        return m_plans->index(action == MoveEnd ? m_plans->rowCount() - 1 : 0, qMax(0, currentIndex().column()));
    }
    if (m_plans->rowOf(m_current.id) < 0)
        keepPlans([&] { static_cast<void>(m_plans->reveal(m_current.id)); });
    extendAround(currentIndex().row());
    return QTableView::moveCursor(action, modifiers);
}

void PlanTable::updateGeometries()
{
    QTableView::updateGeometries();
    showPosition();
}

void PlanTable::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    scrolled();
}

void PlanTable::sortBy(int column)
{
    const std::optional<PlanOrder> order = PlanColumns::order(column);
    if (!order) {
        showOrder();
        return;
    }
    PlanList list = this->list();
    list.isDescending = list.order == *order && !list.isDescending;
    list.order = *order;
    Q_EMIT listChanged(show(list));
}

/// Shows in the header by which column the list is sorted.
void PlanTable::showOrder()
{
    int column = 0;
    while (PlanColumns::order(column) != list().order)
        ++column;
    horizontalHeader()->setSortIndicatorShown(true);
    horizontalHeader()->setSortIndicator(column, list().isDescending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

/// Changes the rows, and keeps what is current and selected.
void PlanTable::keepPlans(const std::function<void()>& change)
{
    {
        const QScopedValueRollback<bool> changing(m_isChanging, true);
        change();
        executeDelayedItemsLayout();
        restore();
    }
    showPosition();
}

void PlanTable::restore()
{
    const int current = m_plans->rowOf(m_current.id);
    if (current >= 0)
        m_current = m_plans->plan(current);
    if (current != currentIndex().row())
        makeCurrent(current);
    QItemSelection changed;
    for (int row = 0; row < m_plans->rowCount(); ++row) {
        if (m_selected.contains(m_plans->plan(row).id) != selectionModel()->isRowSelected(row, QModelIndex()))
            changed.select(m_plans->index(row, 0), m_plans->index(row, 0));
    }
    if (!changed.isEmpty())
        selectionModel()->select(changed, QItemSelectionModel::Toggle | QItemSelectionModel::Rows);
}

/// Does not scroll to the row.
void PlanTable::makeCurrent(int row)
{
    setAutoScroll(false);
    selectionModel()->setCurrentIndex(m_plans->index(row, 0), QItemSelectionModel::NoUpdate);
    setAutoScroll(true);
}

void PlanTable::noteCurrent(const StoredPlan& plan)
{
    if (std::exchange(m_current, plan).id == plan.id)
        return;
    if (!m_isRange)
        m_rangeStart = plan;
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

/// How many rows are completely visible.
int PlanTable::visibleRows() const
{
    return qMax(1, verticalScrollBar()->pageStep());
}

/// Reads more rows unless there are enough around a row.
void PlanTable::extendAround(int row)
{
    const int wanted = visibleRows() + Margin;
    const bool isShortBelow = m_plans->hasBelow() && row + wanted >= m_plans->rowCount();
    const bool isShortAbove = m_plans->hasAbove() && row < wanted;
    if (!isShortBelow && !isShortAbove)
        return;
    const int hidden = verticalScrollBar()->value();
    keepPlans([&] {
        const int shift = isShortBelow ? m_plans->extendDown() : m_plans->extendUp();
        executeDelayedItemsLayout();
        verticalScrollBar()->setValue(hidden + shift);
    });
}

void PlanTable::scrolled()
{
    const int first = verticalScrollBar()->value();
    m_newAbove = qMin(m_newAbove, m_plans->firstPosition() + first);
    showPosition();
    // After the scroll bar has moved the rows.
    if (!m_isChanging && !std::exchange(m_isExtending, true))
        QMetaObject::invokeMethod(this, &PlanTable::extendAroundVisible, Qt::QueuedConnection);
}

void PlanTable::extendAroundVisible()
{
    m_isExtending = false;
    extendAround(verticalScrollBar()->value());
    extendAround(verticalScrollBar()->value() + visibleRows());
}

void PlanTable::scrollToPosition(int position)
{
    const int row = position - m_plans->firstPosition();
    const bool isRead = row >= 0 && (row + visibleRows() <= m_plans->rowCount() || !m_plans->hasBelow());
    keepPlans([&] {
        if (!isRead)
            m_plans->goTo(position);
        executeDelayedItemsLayout();
        verticalScrollBar()->setValue(position - m_plans->firstPosition());
    });
    scrolled();
}

void PlanTable::showPosition()
{
    const QScopedValueRollback<bool> showing(m_showsPosition, true);
    const int visible = visibleRows();
    m_bar->setPageStep(visible);
    m_bar->setRange(0, qMax(0, planCount() - visible));
    m_bar->setValue(m_plans->firstPosition() + verticalScrollBar()->value());
}
