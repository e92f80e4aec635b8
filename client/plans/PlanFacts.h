#pragma once

#include "InstructionStore.h"
#include "PlanStore.h"
#include "SecurityStore.h"
#include "TradeCalendar.h"

/// Stored data from which the share, the price and the limits of a plan follow.
namespace PlanFacts {

/// Those of a security's closing prices that are before a day, in ticks, oldest first. When a day is issued late, there
/// may be closes after it.
QVector<qint64> closesBefore(
    CloseHistory closes, const TradeCalendar& calendar, const Security& security, const QDate& day);
/// What can be sold of the plan's security from its account on a day, in displayed units.
Result<double> sellable(
    Database& database, const PlanStore::Record& record, const Security& security, const QDate& day);
/// Adds the same to what is read, in stored units.
void addTo(ValueReader& reader, const PlanStore::Record& record, const Security& security, const QDate& day,
    qint64& tradeableQuantity);
/// The part of a plan's use that its target limits: the amount of an amount order in yuan, otherwise the quantity in
/// displayed units.
double used(const StoredPlan& plan, const PlanUse& use);

} // namespace PlanFacts
