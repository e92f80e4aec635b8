#pragma once

#include "AutoPlanField.h"
#include "InstructionTargetType.h"
#include "Orlo_Fields.h"
#include "PlanCheck.h"
#include "PlanCodes.h"

/// What the rules of `PlanCheck` read. They do not change it.
struct CheckedPlan {
    const PlanCheck::Record& record;
    const PlanCheck::Known& known;
    const QMap<QString, QVariant> otherParam;

    QString text(const QString& key) const { return record.value(key).toString(); }
    QString other(const QString& key) const { return otherParam.value(key).toString(); }
    bool isReduction() const
    {
        return text(Orlo_Fields::AutoPlan::templateCode) == PlanCodes::PlanType::ReduceHoldings;
    }
    bool isAmount() const { return other(PlanCodes::FieldId::TargetType) == InstructionTargetType::AmountOrder; }
};

namespace PlanCheck {

using Rule = Status (*)(const CheckedPlan&);

/// What a user may do now, and the present price and limits. These rules require a plan that keeps all others.
const QVector<Rule>& presentRules();

} // namespace PlanCheck
