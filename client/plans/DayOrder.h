#pragma once

#include "DayPrice.h"
#include "DayShare.h"
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
    /// Most that can be sold of the security on the first day, in displayed units. A margin sale sells what is
    /// borrowed.
    double sellable = std::numeric_limits<double>::infinity();
};

/// The terms in a plan's record. `sellable`: what can be sold of the security, in displayed units; called for sales. It
/// is the target of a reduction without a total.
Result<OrderTerms> orderTerms(
    const PlanStore::Record& record, const Security& security, const std::function<Result<double>()>& sellable);

/// The order of a plan on one day, and its simulated fill.
struct DayOrder {
    DayPrice price;
    /// In displayed units.
    qint64 quantity = 0;
    Fill fill;
    /// In yuan, with fen.
    double issuedYuan = 0;
    double filledYuan = 0;
};

/// Whether less than a lot is left of a plan at a price.
bool isUsedUp(const OrderTerms& terms, const DayPrice& price, const Security& security);
/// Fails if the plan gets no order at the price.
Result<DayOrder> dayOrder(
    const OrderTerms& terms, const DayPrice& price, const Security& security, const AccountLimits& limits);
