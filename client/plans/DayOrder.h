#pragma once

#include "DayPrice.h"
#include "DayShare.h"
#include "LimitStore.h"

#include <functional>

/// What the orders of a plan have in common.
struct OrderTerms {
    bool isBuy = true;
    /// Whether the plan's target is in yuan.
    bool isAmount = false;
    /// The share of a day is this one with what is used by then, and the days that are left.
    PlanShare share;
};

/// The terms in a plan's record. `sellable`: what can be sold of the security, in displayed units; called for a
/// reduction without a total, whose target it is.
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

/// Fails if the plan gets no order at the price.
Result<DayOrder> dayOrder(
    const OrderTerms& terms, const DayPrice& price, const Security& security, const AccountLimits& limits);
