#include "RowView.h"

#include <QHeaderView>
#include <QKeyEvent>

#include <numeric>

namespace {

constexpr int LeastRows = 3;
constexpr int MostRows = 9;
constexpr int RowPadding = 4;

} // namespace

RowView::RowView(const QString& name, const AdvisorColumns& columns, int options, QWidget* parent)
    : QTreeView(parent)
    , m_model(new RowModel(columns, this))
    , m_fitsRows(options & FitsRows)
{
    setObjectName(name);
    setModel(m_model);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setItemsExpandable(false);
    setAllColumnsShowFocus(true);
    setTabKeyNavigation(false);
    setHeaderHidden(!(options & ShowsHeadings));
    setSizePolicy(QSizePolicy::Ignored, m_fitsRows ? QSizePolicy::Fixed : QSizePolicy::Expanding);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    header()->setMinimumSectionSize(1);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    connect(this, &QTreeView::clicked, this, &RowView::choose);
}

void RowView::setRows(const AdvisorRows& rows)
{
    const int before = m_model->rowCount();
    m_model->setRows(rows);
    if (m_fitsRows && before != m_model->rowCount())
        updateGeometry();
}

void RowView::choose(const QModelIndex& index)
{
    if (index.isValid())
        Q_EMIT rowChosen(m_model->rows().at(index.row()));
}

// A row that is cut would look like the last one.
void RowView::drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    if (option.rect.bottom() < viewport()->height())
        QTreeView::drawRow(painter, option, index);
}

// Enter must not reach the dialog, which would not react to it either.
void RowView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        choose(currentIndex());
    else
        QTreeView::keyPressEvent(event);
}

void RowView::resizeEvent(QResizeEvent* event)
{
    QTreeView::resizeEvent(event);
    const AdvisorColumns& columns = m_model->columns();
    const auto add = [](int sum, const AdvisorColumn& column) { return sum + column.share; };
    const int all = qMax(1, std::accumulate(columns.cbegin(), columns.cend(), 0, add));
    int left = viewport()->width();
    for (int i = 0; i < columns.size(); ++i) {
        const bool isLast = i + 1 == columns.size();
        const int width = isLast ? left : viewport()->width() * columns.at(i).share / all;
        setColumnWidth(i, width);
        left -= width;
    }
}

int RowView::heightOf(int rows) const
{
    const int headings = isHeaderHidden() ? 0 : header()->sizeHint().height();
    const int row = m_model->rowCount() > 0 ? sizeHintForRow(0) : fontMetrics().height() + RowPadding;
    return headings + rows * row + 2 * frameWidth();
}

QSize RowView::sizeHint() const
{
    const int rows = m_fitsRows ? qBound(LeastRows, m_model->rowCount(), MostRows) : LeastRows;
    return { QTreeView::sizeHint().width(), heightOf(rows) };
}

QSize RowView::minimumSizeHint() const
{
    return { 0, m_fitsRows ? sizeHint().height() : heightOf(LeastRows) };
}
