#pragma once

#include "ClientSession.h"

/// Stored data from which the share, the price and the limits of a plan follow.
namespace PlanFacts {

/// Closing prices of a security before a day in ticks, oldest first. When a day is issued late, there may be closes
/// after it.
Result<QVector<qint64>> closesBefore(ClientSession& session, const Security& security, const QDate& day);
/// What can be sold of the plan's security from its account, in displayed units.
Result<double> sellable(ClientSession& session, const PlanStore::Record& record, const Security& security);
/// Filled by ended and issued by running instructions of a plan: the amount of an amount order in yuan, otherwise the
/// quantity in displayed units.
Result<double> used(ClientSession& session, const StoredPlan& plan);

} // namespace PlanFacts
