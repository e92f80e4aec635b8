#include "IssueSheetRows.h"

#include "AutoPlanField.h"
#include "ErrorText.h"
#include "IssueSheetModel.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"

#include <QMap>

#include <algorithm>

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

IssueSheetRows::IssueSheetRows(const QVector<IssueRow>& rows)
    : m_rows(rows)
    , m_isChosen(static_cast<std::size_t>(rows.size()))
{
    QMap<SumKey, int> places;
    for (const IssueRow& row : rows)
        places.insert(sumKey(row), 0);
    for (auto place = places.begin(); place != places.end(); ++place) {
        *place = m_sums.size();
        m_sums << Sum{ place.key().first, !place.key().second, 0, 0 };
    }
    for (int row = 0; row < rows.size(); ++row) {
        m_sumOf << places.value(sumKey(rows.at(row)));
        Sum& sum = m_sums[m_sumOf.constLast()];
        if (!sum.cash)
            sum.cash = rows.at(row).cash;
        choose(row, true);
    }
}

void IssueSheetRows::choose(int row, bool isChosen)
{
    if (isChosen == this->isChosen(row) || !m_rows.at(row).reason)
        return;
    m_isChosen[static_cast<std::size_t>(row)] = isChosen;
    Sum& sum = m_sums[m_sumOf.at(row)];
    sum.plans += isChosen ? 1 : -1;
    sum.yuan += isChosen ? m_rows.at(row).order.issuedYuan : -m_rows.at(row).order.issuedYuan;
}

QStringList IssueSheetRows::chosen() const
{
    QStringList plans;
    for (int row = 0; row < size(); ++row) {
        if (isChosen(row))
            plans << m_rows.at(row).plan.id;
    }
    return plans;
}

QVector<IssueSheetRows::Sum> IssueSheetRows::sums() const
{
    QVector<Sum> sums;
    std::copy_if(
        m_sums.cbegin(), m_sums.cend(), std::back_inserter(sums), [](const Sum& sum) { return sum.plans > 0; });
    return sums;
}

IssueOutcomes::IssueOutcomes(const IssueResult& result)
    : m_alreadyIssued(result.alreadyIssued.cbegin(), result.alreadyIssued.cend())
{
    for (const QString& instruction : result.issued)
        m_issued.insert(instruction.section(QLatin1Char('-'), 0, 0), instruction);
    for (const IssueResult::Skipped& skipped : result.skipped)
        m_skipped.insert(skipped.planId, skipped.reason);
}

bool IssueOutcomes::contains(const QString& planId) const
{
    return m_issued.contains(planId) || m_alreadyIssued.contains(planId) || m_skipped.contains(planId);
}

QString IssueOutcomes::text(const QString& planId) const
{
    if (m_issued.contains(planId))
        return IssueSheetModel::tr("已下达 %1").arg(m_issued.value(planId));
    return m_alreadyIssued.contains(planId) ? IssueSheetModel::tr("此前已下达")
                                            : IssueSheetModel::tr("未下达：%1").arg(errorText(m_skipped.value(planId)));
}
