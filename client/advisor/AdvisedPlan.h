#pragma once

#include "AccountStore.h"
#include "AdvisorFacts.h"
#include "FormReading.h"
#include "Market.h"
#include "PlanForecast.h"
#include "Rulebook.h"

#include <optional>

/// The plan in the form with everything that the advisor says about it follows from.
struct AdvisedPlan {
    /// What does not depend on the form, and outlives the plan.
    struct World {
        const Market& market;
        const TradeCalendar& calendar;
        QDate today;
        StoredUser user;
    };

    const World& world;
    const FormReading form;
    const StoredAccount* const account; ///< null if none is chosen
    /// By the rules of the plan's first day; absent if none is chosen.
    const std::optional<Security> security;
    /// The stored facts, or why they could not be read; absent while they are being read.
    const std::optional<Result<AdvisorFacts>> read;
    const PlanStore::Record record; ///< empty without an account or a security
    const QVector<qint64> closes;   ///< before today, in ticks, oldest first; empty without facts
    /// The prices that a formula may use, and the result of the plan's formulas in yuan.
    const QHash<QString, double> names;
    const Result<double> formula;
    /// The price of the next day, its orders and the days of the period; fail without facts, and for a plan that has
    /// none.
    const Result<DayPrice> price;
    const Result<OrderTerms> terms;
    const Result<PlanForecast> forecast;

    AdvisedPlan(const World& world, const FormReading& form, const StoredAccount* account,
        const std::optional<Result<AdvisorFacts>>& read);

    bool hasFacts() const { return read && *read; }
    /// The facts; there must be some.
    const AdvisorFacts& facts() const { return **read; }
    /// Success with facts, and while they are being read.
    Status failure() const { return read ? read->status() : Status(); }
    /// What may be sold today, in displayed units, and on the first day on which an order of the plan may go out.
    double sellable() const;
    double sellableNext() const;
    /// The first day on which an order of the plan may go out.
    QDate firstDay() const { return qMax(world.today, form.begin); }
    /// An amount in yuan, or a quantity in the security's unit.
    QString withUnit(double value, bool isAmount = false) const;
    /// The day of the last of the closes; invalid if there are none.
    QDate lastClose() const;

private:
    std::optional<Security> securityOf() const;
    PlanStore::Record recordOf() const;
    QVector<qint64> closesOf() const;
    QHash<QString, double> namesOf() const;
    Result<double> formulaOf() const;
    Result<DayPrice> priceOf() const;
    Result<OrderTerms> termsOf() const;
    Result<PlanForecast> forecastOf() const;
};
