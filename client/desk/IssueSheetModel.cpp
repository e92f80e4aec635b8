#include "IssueSheetModel.h"

#include "AutoPlanField.h"
#include "DecimalText.h"
#include "ErrorText.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "PlanFormatter.h"
#include "TickPrice.h"

namespace {

QString textIn(const IssueRow& row, const QString& key)
{
    return row.plan.record.value(key).toString();
}

bool isBuy(const IssueRow& row)
{
    return textIn(row, AutoPlanField::BaseField::orderSide) == Kelvo_Values::OrderSide::buy;
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

void IssueSheetModel::setRows(const QVector<IssueRow>& rows)
{
    beginResetModel();
    m_rows = rows;
    m_results.clear();
    endResetModel();
    choose(true);
}

void IssueSheetModel::setResult(const IssueResult& result)
{
    for (const QString& instruction : result.issued)
        m_results.insert(instruction.section(QLatin1Char('-'), 0, 0), tr("已下达 %1").arg(instruction));
    for (const QString& plan : result.alreadyIssued)
        m_results.insert(plan, tr("此前已下达"));
    for (const IssueResult::Skipped& skipped : result.skipped)
        m_results.insert(skipped.planId, tr("未下达：%1").arg(errorText(skipped.reason)));
    choose(false);
}

QStringList IssueSheetModel::chosen() const
{
    QStringList plans;
    for (const IssueRow& row : m_rows) {
        if (m_chosen.contains(row.plan.id))
            plans << row.plan.id;
    }
    return plans;
}

void IssueSheetModel::choose(bool all)
{
    m_chosen.clear();
    for (const IssueRow& row : qAsConst(m_rows)) {
        if (all && isIssuable(row))
            m_chosen.insert(row.plan.id);
    }
    if (!m_rows.isEmpty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
    Q_EMIT chosenChanged();
}

QVector<IssueSheetModel::Sum> IssueSheetModel::sums() const
{
    QMap<QPair<QString, bool>, Sum> sums;
    for (const IssueRow& row : m_rows) {
        if (!m_chosen.contains(row.plan.id))
            continue;
        const bool sells = !isBuy(row);
        Sum& sum = sums[{ accountOf(row), sells }];
        sum = { accountOf(row), !sells, sum.plans + 1, sum.yuan + row.order.issuedYuan };
    }
    return sums.values().toVector();
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
    if (role == Qt::CheckStateRole && index.column() == Plan && isIssuable(row))
        return m_chosen.contains(row.plan.id) ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::TextAlignmentRole && index.column() >= Price && index.column() <= Amount)
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    return QVariant();
}

bool IssueSheetModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || index.column() != Plan || !isIssuable(m_rows.at(index.row())))
        return false;
    const QString plan = m_rows.at(index.row()).plan.id;
    if (value.toInt() == Qt::Checked)
        m_chosen.insert(plan);
    else
        m_chosen.remove(plan);
    Q_EMIT dataChanged(index, index);
    Q_EMIT chosenChanged();
    return true;
}

Qt::ItemFlags IssueSheetModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
    const bool isChoice = index.column() == Plan && isIssuable(m_rows.at(index.row()));
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
    const bool hasOrder = row.order.quantity > 0;
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
        return hasOrder ? groupedText(QString::number(row.order.quantity)) : QString();
    case Amount:
        return hasOrder ? yuanText(row.order.issuedYuan) : QString();
    case ResultColumn:
        return resultOf(row);
    }
    return QString();
}

QString IssueSheetModel::resultOf(const IssueRow& row) const
{
    const auto result = m_results.constFind(row.plan.id);
    if (result != m_results.cend())
        return *result;
    if (!row.reason)
        return tr("不能下达：%1").arg(errorText(row.reason));
    return row.order.price.cutToLimit ? tr("价格按涨跌停价") : QString();
}
