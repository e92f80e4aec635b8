#include "SecurityFacts.h"

#include "AutoPlanField.h"
#include "ErrorText.h"
#include "Kelvo_Values.h"
#include "Orlo_Fields.h"
#include "PlanCodes.h"
#include "TickPrice.h"

namespace BaseField = AutoPlanField::BaseField;
using Mark = AdvisorRow::Mark;

namespace {

QString price(const AdvisedPlan& plan, qint64 ticks)
{
    return TickPrice::text(ticks, plan.security->pricePrecision);
}

QString closeText(const AdvisedPlan& plan)
{
    if (plan.closes.isEmpty())
        return plan.hasFacts() ? Advisor::tr("没有收盘价") : Advisor::tr("正在读取……");
    return Advisor::tr("%1（%2）").arg(price(plan, plan.closes.constLast()), plan.lastClose().toString(Qt::ISODate));
}

QString limitsText(const AdvisedPlan& plan)
{
    if (!plan.security->hasPriceLimit())
        return Advisor::tr("不设涨跌停");
    if (plan.closes.isEmpty())
        return QStringLiteral("–");
    const TickPrice::Limits limits = TickPrice::limits(plan.closes.constLast(), plan.security->limitPerMille);
    return QStringLiteral("%1 / %2").arg(price(plan, limits.up), price(plan, limits.down));
}

QString sideText(const StoredPlan& plan)
{
    const bool buys = plan.record.value(BaseField::orderSide).toString() == Kelvo_Values::OrderSide::buy;
    return buys ? Advisor::tr("买入") : Advisor::tr("卖出");
}

AdvisorRow planRow(const AdvisedPlan& plan, const StoredPlan& other)
{
    const auto text = [&other](const QString& key) { return other.record.value(key).toString(); };
    // The end of a reduction is far away.
    const bool isReduction = text(Orlo_Fields::AutoPlan::templateCode) == PlanCodes::PlanType::ReduceHoldings;
    const QString period = isReduction
        ? Advisor::tr("%1 起").arg(text(BaseField::beginDate))
        : QStringLiteral("%1 – %2").arg(text(BaseField::beginDate), text(BaseField::endDate));
    const bool isOpposite = SecurityFacts::isOpposite(plan, other);
    const QString shown = Advisor::tr("%1，%2").arg(sideText(other), period);
    return { { other.id, isOpposite ? Advisor::tr("方向相反：%1").arg(shown) : shown },
        isOpposite ? Mark::Doubtful : Mark::Plain, QString() };
}

AdvisorRows planRows(const AdvisedPlan& plan)
{
    AdvisorRows rows;
    for (const StoredPlan& other : plan.facts().openPlans)
        rows << planRow(plan, other);
    if (rows.isEmpty())
        rows << AdvisorRow{ { Advisor::tr("其他计划"), Advisor::tr("无") }, Mark::Plain, QString() };
    return rows;
}

} // namespace

AdvisorRows SecurityFacts::rows(const AdvisedPlan& plan)
{
    if (!plan.security)
        return { { { Advisor::tr("证券"), Advisor::tr("尚未选择") }, Mark::Faint, QString() } };
    const Status failure = plan.failure();
    const auto plain = [](const QString& caption, const QString& text) {
        return AdvisorRow{ { caption, text }, Mark::Plain, QString() };
    };
    AdvisorRows rows{
        plain(Advisor::tr("证券"), QStringLiteral("%1 %2").arg(plan.security->symbol, plan.security->name)),
        plain(Advisor::tr("每手"), plan.withUnit(plan.security->quantityStep)),
    };
    if (!failure)
        return rows << AdvisorRow{ { Advisor::tr("读取失败"), errorText(failure) }, Mark::Bad, QString() };
    rows << plain(Advisor::tr("昨收价"), closeText(plan)) << plain(Advisor::tr("涨停 / 跌停"), limitsText(plan));
    if (!plan.hasFacts())
        return rows << plain(Advisor::tr("可卖数量"), Advisor::tr("正在读取……"));
    return rows + AdvisorRows{ plain(Advisor::tr("可卖数量"), plan.withUnit(plan.sellable())) } + planRows(plan);
}

bool SecurityFacts::isOpposite(const AdvisedPlan& plan, const StoredPlan& other)
{
    return other.record.value(BaseField::orderSide).toString() != plan.form.side;
}
