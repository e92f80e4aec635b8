#pragma once

#include "DayPrice.h"
#include "DayShare.h"
#include "InstructionStore.h"
#include "LimitStore.h"

#include <functional>
#include <limits>

/// What the orders of a plan have in common.
struct OrderTerms {
    bool isBuy = true;
    /// Whether the plan's target is in yuan.
    bool isAmount = false;
    /// The share of a day is this one with what is used by then, and the days that are left.
    PlanShare share;
    /// The entrust type of a margin plan; empty for another one.
    QString marginSide;
    /// Most that can be sold of the security on the first day, in displayed units. A margin sale sells what is
    /// borrowed.
    double sellable = std::numeric_limits<double>::infinity();
    /// Most that can be spent, in yuan; infinite if it is not known, and for a purchase with borrowed money.
    double cash = std::numeric_limits<double>::infinity();

    bool needsHoldings() const;
    bool needsCash() const;
    /// What a sale of holdings adds to the cash, which a repayment and a conversion do not.
    bool earnsCash() const;
};

/// The terms in a plan's record. `use`: what the plan has used. `sellable`: what can be sold of the security, in
/// displayed units; called for sales. Both together are the target of a reduction without a total.
Result<OrderTerms> orderTerms(const PlanStore::Record& record, const Security& security, const PlanUse& use,
    const std::function<Result<double>()>& sellable);

/// The order of a plan on one day, and its simulated fill.
struct DayOrder {
    DayPrice price;
    /// In displayed units.
    qint64 quantity = 0;
    Fill fill;
    /// In yuan, with fen.
    double issuedYuan = 0;
    double filledYuan = 0;
    /// True if less may be sold than the plan would.
    bool isCutToHoldings = false;
    /// True if the cash buys less than the plan would.
    bool isCutToCash = false;

    /// What the order takes from the cash of its account, or from the position: what is filled and what is open.
    double spentYuan() const { return fill.quantity < quantity ? issuedYuan : filledYuan; }
};

/// Whether less than a lot is left of a plan at a price.
bool isUsedUp(const OrderTerms& terms, const DayPrice& price, const Security& security);
/// Fails if the plan gets no order at the price.
Result<DayOrder> dayOrder(
    const OrderTerms& terms, const DayPrice& price, const Security& security, const AccountLimits& limits);
