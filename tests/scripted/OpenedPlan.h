#pragma once

#include "InstructionTargetType.h"
#include "Orlo_Values.h"
#include "PlanSample.h"
#include <QStringList>

/// What the form ought to hold and allow after a plan of a kind was opened.
struct OpenedPlan {
    PlanKind kind;
    bool edits = false;
    PlanSample stored;

    OpenedPlan(const PlanKind& planKind, bool forEdit)
        : kind(planKind)
        , edits(forEdit)
        , stored(planKind.sample())
    {
    }

    bool isType(const char* type) const { return kind.instructionType == QLatin1String(type); }

    /// Amounts are for users under review and never for Hong Kong; who may not have them is left without a choice.
    QString targetType() const
    {
        if (!stored.isByAmount())
            return InstructionTargetType::QtyOrder;
        return kind.ruleProperty == 1 && !isType("9") ? kind.targetType : QString();
    }

    /// Reductions are for ordinary plans by quantity.
    QString planType() const
    {
        const bool offered = isType("1") && targetType() == InstructionTargetType::QtyOrder;
        return stored.reducesHoldings() && !offered ? QString() : kind.planType;
    }

    bool reduces() const { return planType() == QLatin1String("JC-01"); }

    QString priceType() const
    {
        if (!isType("9"))
            return Orlo_Values::HKTimeInForce::InTrade;
        const bool dropped = edits && kind.reconciledMode() == QLatin1String("3")
            && stored.priceType == Orlo_Values::HKTimeInForce::BeforeTrade;
        return dropped ? QString() : stored.priceType;
    }

    QStringList modes() const
    {
        if (kind.ruleProperty != 1)
            return { QStringLiteral("1") };
        QStringList offered;
        if (targetType() == InstructionTargetType::QtyOrder && kind.reconciledPriceMode() != QLatin1String("1"))
            offered.append(QStringLiteral("2"));
        if (!isType("9") || priceType() == Orlo_Values::HKTimeInForce::InTrade)
            offered.append(QStringLiteral("3"));
        return offered;
    }

    QString mode() const { return modes().contains(kind.reconciledMode()) ? kind.reconciledMode() : QString(); }

    QString assignee() const { return stored.reducesHoldings() && !reduces() ? QString() : stored.assignee; }

    bool comparesPrices() const { return kind.reconciledPriceMode() > QLatin1String("6"); }

    QString price1() const
    {
        if (kind.reconciledPriceMode() != QLatin1String("1"))
            return stored.price1;
        return isType("5") || isType("9") ? QStringLiteral("0.000") : QStringLiteral("0.00");
    }

    QString numberText(double number) const
    {
        return QString::number(number, 'f', targetType() == InstructionTargetType::AmountOrder ? 2 : 0);
    }

    bool takesDatesOver() const { return edits || !kind.started; }
};
