#pragma once

#include "AutoPlanField.h"
#include "InstructionTargetType.h"
#include "Market.h"
#include "Orlo_Fields.h"
#include "PlanCodes.h"
#include "PlanRights.h"
#include "PlanStore.h"
#include "TradeCalendar.h"

#include <QDate>
#include <QMap>
#include <QVariant>

namespace PlanCheck {

/// The data for the checks of a record, as stored at the time of the check.
struct Known {
    const Market& market;
    const TradeCalendar& calendar;
    QDate today;
    /// Id of the user who sends the record.
    QString user;
    /// The user's rights for the account and instruction type of the record.
    PlanRights rights;
    /// Closing prices of the record's security before today in ticks, oldest first.
    QVector<qint64> closes;
    /// What can be sold of the record's security, in displayed units.
    double sellable = 0;
};

} // namespace PlanCheck

/// What the rules of `PlanCheck` read. They do not change it.
struct CheckedPlan {
    const PlanStore::Record& record;
    const PlanCheck::Known& known;
    const QMap<QString, QVariant> otherParam; ///< empty if it is not JSON
    const bool isOtherParamJson;

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
