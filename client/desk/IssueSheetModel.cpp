#include "IssueSheetModel.h"

#include "AutoPlanField.h"
#include "DecimalText.h"
#include "ErrorText.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "PlanFormatter.h"
#include "TickPrice.h"

#include <utility>

namespace {

QString textIn(const IssueRow& row, const QString& key)
{
    return row.plan.record.value(key).toString();
}

QString accountOf(const IssueRow& row)
{
    return textIn(row, Kelvo_Fields::UserAccount::tradingAccount);
}

QString yuanText(double yuan)
{
    return groupedText(QString::number(yuan, 'f', 2));
}

} // namespace

IssueSheetRows IssueSheetModel::setRows(IssueSheetRows rows)
{
    beginResetModel();
    std::swap(m_rows, rows);
    endResetModel();
    Q_EMIT chosenChanged();
    return rows;
}

IssueSheetRows IssueSheetModel::update(IssueSheetRows rows)
{
    std::swap(m_rows, rows);
    noteChange();
    return rows;
}

void IssueSheetModel::choose(bool all)
{
    for (int row = 0; row < m_rows.size(); ++row)
        m_rows.choose(row, all);
    noteChange();
}

void IssueSheetModel::setColors(const QColor& buy, const QColor& sell)
{
    m_buyColor = buy;
    m_sellColor = sell;
}

void IssueSheetModel::noteChange()
{
    if (m_rows.size() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
    Q_EMIT chosenChanged();
}

int IssueSheetModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int IssueSheetModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant IssueSheetModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const IssueRow& row = m_rows.at(index.row());
    if (role == Qt::DisplayRole)
        return textOf(row, index.column());
    if (role == Qt::CheckStateRole && index.column() == Plan && m_rows.isIssuable(index.row()))
        return m_rows.isChosen(index.row()) ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::ForegroundRole && index.column() == Side)
        return textIn(row, AutoPlanField::BaseField::orderSide) == Kelvo_Values::OrderSide::buy ? m_buyColor
                                                                                                : m_sellColor;
    if (role == Qt::TextAlignmentRole && index.column() >= Price && index.column() <= Amount)
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    return QVariant();
}

bool IssueSheetModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || index.column() != Plan || !m_rows.isIssuable(index.row()))
        return false;
    m_rows.choose(index.row(), value.toInt() == Qt::Checked);
    Q_EMIT dataChanged(index, index);
    Q_EMIT chosenChanged();
    return true;
}

Qt::ItemFlags IssueSheetModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
    const bool isChoice = index.column() == Plan && m_rows.isIssuable(index.row());
    return isChoice ? usual | Qt::ItemIsUserCheckable : usual;
}

QVariant IssueSheetModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const QStringList titles{ tr("计划编号"), tr("账户"), tr("证券"), tr("方向"), tr("价格"), tr("数量"),
        tr("金额（元）"), tr("结果") };
    return orientation == Qt::Horizontal && role == Qt::DisplayRole ? titles.value(section) : QVariant();
}

QString IssueSheetModel::textOf(const IssueRow& row, int column) const
{
    const bool hasOrder = row.order.quantity > 0 && !m_rows.outcomes().wasIssuedBefore(row.plan.id);
    switch (column) {
    case Plan:
        return row.plan.id;
    case Account:
        return accountOf(row);
    case Security:
        return PlanFormatter(row.plan).security();
    case Side:
        return PlanFormatter(row.plan).side();
    case Price:
        if (!hasOrder)
            return QString();
        return row.order.price.limit ? TickPrice::text(*row.order.price.limit, row.precision) : tr("不限价");
    case Quantity:
        return hasOrder ? PlanFormatter(row.plan).issued(QString::number(row.order.quantity), false) : QString();
    case Amount:
        return hasOrder ? yuanText(row.order.issuedYuan) : QString();
    case ResultColumn:
        return resultOf(row);
    }
    return QString();
}

QString IssueSheetModel::resultOf(const IssueRow& row) const
{
    if (m_rows.outcomes().contains(row.plan.id))
        return m_rows.outcomes().text(row.plan.id);
    QStringList notes;
    if (!row.reason)
        notes << tr("不能下达：%1").arg(errorText(row.reason));
    if (row.order.price.cutToLimit)
        notes << tr("价格按涨跌停价");
    if (row.order.isCutToHoldings)
        notes << tr("数量按可卖数量减少");
    if (row.order.isCutToCash)
        notes << tr("数量按可用资金减少");
    if (row.missed.isValid())
        notes << tr("%1漏下达，不补下达").arg(row.missed.toString(Qt::ISODate));
    return notes.join(tr("；"));
}
