#include "PlanForm.h"

#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "PlanCodes.h"

using namespace PlanCodes;

PlanForm PlanForm::ordinary(const QString& account, const QString& symbol)
{
    PlanForm form;
    form.account = account;
    form.instructionType = InstructionType::Ordinary;
    form.targetType = InstructionTargetType::QtyOrder;
    form.planType = PlanType::CumulativeQty;
    form.symbol = symbol;
    form.side = Kelvo_Values::OrderSide::buy;
    form.priceMode = PriceModel::NoLimit;
    form.target = QStringLiteral("10000");
    form.perDay = QStringLiteral("500");
    form.instructionMode = InstMode::ActiveManage;
    return form;
}

PlanForm PlanForm::priced(const QString& mode, const QString& first, const QString& second) const
{
    PlanForm form = *this;
    form.priceMode = mode;
    form.price1 = first;
    form.price2 = second;
    return form;
}

PlanForm PlanForm::byAlgorithm(const QString& strategyName, const QMap<QString, QString>& values) const
{
    PlanForm form = *this;
    form.instructionMode = InstMode::AlgoReview;
    form.strategy = strategyName;
    form.parameters = values;
    return form;
}

PlanForm PlanForm::byAmount(const QString& total, const QString& daily) const
{
    PlanForm form = *this;
    form.targetType = InstructionTargetType::AmountOrder;
    form.target = total;
    form.perDay = daily;
    return form;
}

PlanForm PlanForm::reducing(const QString& percentage, const QString& executor) const
{
    PlanForm form = *this;
    form.planType = PlanType::ReduceHoldings;
    form.side = Kelvo_Values::OrderSide::sell;
    form.perDay.clear();
    form.ratio = percentage;
    form.assignee = executor;
    form.endSteps = 0;
    return form;
}

bool PlanForm::isByAmount() const
{
    return targetType == InstructionTargetType::AmountOrder;
}

bool PlanForm::isReduction() const
{
    return planType == PlanType::ReduceHoldings;
}
