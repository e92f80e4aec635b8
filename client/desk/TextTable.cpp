#include "TextTable.h"

#include "PlainText.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

namespace {

QStandardItem* newItem(const QString& text)
{
    auto* const item = new QStandardItem(text);
    item->setEditable(false);
    item->setToolTip(PlainText::toolTip(text));
    return item;
}

} // namespace

TextTable::TextTable(const QString& name, QWidget* parent)
    : QTableView(parent)
    , m_model(new QStandardItemModel(this))
{
    setObjectName(name);
    setModel(m_model);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMaximumSectionSize(WidestColumn);
    connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& index) { Q_EMIT chosen(index.row()); });
}

void TextTable::setRows(const QStringList& titles, const QVector<QStringList>& rows)
{
    fill(titles, rows);
    setCurrentIndex(m_model->index(0, 0));
}

void TextTable::setRows(const QStringList& titles, const QVector<QStringList>& rows, const QStringList& keys)
{
    const QVector<int> selected = selectedRows();
    QVector<int> kept;
    for (const int row : selected) {
        if (const int found = keys.indexOf(m_keys.value(row)); found >= 0)
            kept << found;
    }
    const int current = rowOfCurrent(keys);
    fill(titles, rows);
    m_keys = keys;
    setCurrentIndex(m_model->index(kept.isEmpty() || kept.contains(current) ? current : kept.constFirst(), 0));
    for (const int row : qAsConst(kept))
        selectionModel()->select(m_model->index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

/// The row that the current one, the next one that is left, or the last one has among others.
int TextTable::rowOfCurrent(const QStringList& keys) const
{
    for (int row = qMax(0, currentIndex().row()); row < m_keys.size(); ++row) {
        if (const int found = keys.indexOf(m_keys.at(row)); found >= 0)
            return found;
    }
    return m_keys.isEmpty() ? 0 : keys.size() - 1;
}

void TextTable::fill(const QStringList& titles, const QVector<QStringList>& rows)
{
    m_model->clear();
    m_keys.clear();
    m_model->setHorizontalHeaderLabels(titles);
    for (const QStringList& row : rows) {
        QList<QStandardItem*> items;
        for (const QString& text : row)
            items << newItem(text);
        m_model->appendRow(items);
    }
    resizeColumnsToContents();
}

QVector<int> TextTable::selectedRows() const
{
    QVector<int> rows;
    const QModelIndexList selected = selectionModel()->selectedRows();
    for (const QModelIndex& index : selected)
        rows << index.row();
    std::sort(rows.begin(), rows.end());
    return rows;
}

void TextTable::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->matches(QKeySequence::Copy))
        copy();
    else if (isEnter && currentIndex().isValid())
        Q_EMIT chosen(currentIndex().row());
    else
        QTableView::keyPressEvent(event);
}

void TextTable::copy() const
{
    QStringList lines;
    const QVector<int> rows = selectedRows();
    for (const int row : rows) {
        QStringList texts;
        for (int column = 0; column < m_model->columnCount(); ++column)
            texts << m_model->index(row, column).data().toString();
        lines << texts.join(QLatin1Char('\t'));
    }
    if (!lines.isEmpty())
        QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}
