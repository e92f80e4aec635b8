#include "IssueSheetRows.h"

#include "AutoPlanField.h"
#include "ErrorText.h"
#include "IssueSheetModel.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"

#include <QMap>

#include <algorithm>
#include <numeric>

namespace {

/// The account, and whether the plan sells.
using SumKey = QPair<QString, bool>;

SumKey sumKey(const IssueRow& row)
{
    const QString side = row.plan.record.value(AutoPlanField::BaseField::orderSide).toString();
    return { row.plan.record.value(Kelvo_Fields::UserAccount::tradingAccount).toString(),
        side != Kelvo_Values::OrderSide::buy };
}

} // namespace

void IssueOutcomes::add(const IssueResult& result)
{
    for (const QString& instruction : result.issued)
        m_issued.insert(instruction.section(QLatin1Char('-'), 0, 0), instruction);
    for (const QString& plan : result.alreadyIssued)
        m_alreadyIssued.insert(plan);
    for (const IssueResult::Skipped& skipped : result.skipped)
        m_skipped.insert(skipped.planId, skipped.reason);
    for (const QString& plan : result.changed)
        m_changed.insert(plan);
    for (const QString& plan : result.noLongerDue)
        m_noLongerDue.insert(plan);
}

bool IssueOutcomes::contains(const QString& planId) const
{
    return isFinal(planId) || m_changed.contains(planId);
}

bool IssueOutcomes::isFinal(const QString& planId) const
{
    return m_issued.contains(planId) || m_alreadyIssued.contains(planId) || m_skipped.contains(planId)
        || m_noLongerDue.contains(planId);
}

QString IssueOutcomes::text(const QString& planId) const
{
    if (m_issued.contains(planId))
        return IssueSheetModel::tr("已下达 %1").arg(m_issued.value(planId));
    if (m_alreadyIssued.contains(planId))
        return IssueSheetModel::tr("此前已下达");
    if (m_noLongerDue.contains(planId))
        return IssueSheetModel::tr("未下达：当日不再有效，已被修改、暂停、停止或完成");
    if (m_skipped.contains(planId))
        return IssueSheetModel::tr("未下达：%1").arg(errorText(m_skipped.value(planId)));
    return IssueSheetModel::tr("未下达：已变化，请重新确认");
}

IssueSheetRows::IssueSheetRows(const QVector<IssueRow>& rows)
    : m_rows(rows)
    , m_isWanted(static_cast<std::size_t>(rows.size()), true)
    , m_isOpen(static_cast<std::size_t>(rows.size()), true)
{
    QMap<SumKey, int> places;
    for (const IssueRow& row : rows)
        places.insert(sumKey(row), 0);
    for (auto place = places.begin(); place != places.end(); ++place) {
        *place = m_sums.size();
        m_sums << Sum{ place.key().first, !place.key().second, 0, 0 };
    }
    for (const IssueRow& row : rows)
        m_sumOf << places.value(sumKey(row));
    count();
}

bool IssueSheetRows::isIssuable(int row) const
{
    return m_rows.at(row).reason && isOpen(row);
}

bool IssueSheetRows::areAllChosen() const
{
    const int chosen =
        std::accumulate(m_sums.cbegin(), m_sums.cend(), 0, [](int plans, const Sum& sum) { return plans + sum.plans; });
    return chosen > 0 && chosen == m_issuable;
}

// A purchase from an account without known cash takes nothing from others.
void IssueSheetRows::choose(int row, bool isChosen)
{
    if (isChosen == isWanted(row) || !isOpen(row))
        return;
    m_isWanted[static_cast<std::size_t>(row)] = isChosen;
    m_outcomes.confirmAgain(m_rows.at(row).plan.id);
    if (isIssuable(row))
        count(row, isChosen ? 1 : -1);
    const Sum& sum = m_sums.at(m_sumOf.at(row));
    if (!sum.isBuy || m_rows.at(row).cash)
        m_outdated.insert(sum.account);
}

QVector<ConfirmedOrder> IssueSheetRows::chosen() const
{
    QVector<ConfirmedOrder> orders;
    orders.reserve(size());
    for (int row = 0; row < size(); ++row) {
        if (isChosen(row))
            orders << ConfirmedOrder::of(m_rows.at(row));
    }
    return orders;
}

QVector<IssueSheetRows::Sum> IssueSheetRows::sums() const
{
    QVector<Sum> sums;
    std::copy_if(
        m_sums.cbegin(), m_sums.cend(), std::back_inserter(sums), [](const Sum& sum) { return sum.plans > 0; });
    return sums;
}

QStringList IssueSheetRows::outdated() const
{
    QStringList plans;
    for (int row = 0; row < size() && isOutdated(); ++row) {
        if (isOpen(row) && m_outdated.contains(m_sums.at(m_sumOf.at(row)).account))
            plans << m_rows.at(row).plan.id;
    }
    return plans;
}

QSet<QString> IssueSheetRows::leftOut() const
{
    QSet<QString> plans;
    for (int row = 0; row < size(); ++row) {
        if (!isWanted(row))
            plans.insert(m_rows.at(row).plan.id);
    }
    return plans;
}

void IssueSheetRows::update(const QVector<IssueRow>& rows, const QStringList& issued)
{
    const QStringList all = outdated();
    QHash<QString, int> found;
    for (int row = 0; row < rows.size(); ++row)
        found.insert(rows.at(row).plan.id, row);
    IssueResult meanwhile;
    meanwhile.alreadyIssued = issued;
    const QSet<QString> known(issued.cbegin(), issued.cend());
    for (const QString& plan : all) {
        if (!found.contains(plan) && !known.contains(plan))
            meanwhile.noLongerDue << plan;
    }
    m_outcomes.add(meanwhile);
    for (IssueRow& row : m_rows) {
        const auto place = found.constFind(row.plan.id);
        if (place != found.cend())
            row = rows.at(*place);
    }
    m_outdated.clear();
    count();
}

void IssueSheetRows::add(const IssueResult& result)
{
    m_outcomes.add(result);
    m_isWanted.assign(m_isWanted.size(), false);
    count();
    for (int row = 0; row < size(); ++row) {
        if (isOpen(row))
            m_outdated.insert(m_sums.at(m_sumOf.at(row)).account);
    }
}

void IssueSheetRows::count()
{
    m_issuable = 0;
    for (Sum& sum : m_sums)
        sum = { sum.account, sum.isBuy, 0, 0 };
    for (int row = 0; row < size(); ++row) {
        m_isOpen[static_cast<std::size_t>(row)] = !m_outcomes.isFinal(m_rows.at(row).plan.id);
        m_issuable += isIssuable(row) ? 1 : 0;
        Sum& sum = m_sums[m_sumOf.at(row)];
        if (!sum.cash && isOpen(row))
            sum.cash = m_rows.at(row).cash;
        if (isChosen(row))
            count(row, 1);
    }
}

void IssueSheetRows::count(int row, int sign)
{
    Sum& sum = m_sums[m_sumOf.at(row)];
    sum.plans += sign;
    sum.yuan += sign * m_rows.at(row).order.issuedYuan;
}
