#pragma once

#include "DayOrder.h"
#include "TradeCalendar.h"

#include <QDate>
#include <QVector>

/// One day of a plan's period.
struct ForecastDay {
    QDate day;
    TradeCalendar::Day kind = TradeCalendar::Day::Trades;
    /// Whether the closures of its year have not been announced yet.
    bool isProvisional = false;
    /// What goes out: in displayed units, and in yuan.
    qint64 quantity = 0;
    double yuan = 0;
    /// What is left of the target afterwards, in the target's unit.
    double left = 0;
    /// Why nothing goes out; success on a day with an order, and on a day without trading.
    Status reason;

    bool operator==(const ForecastDay& other) const;
};

/// What a plan would issue on each day if prices stayed as they are.
struct PlanForecast {
    /// Every day of the period from the first one on; of a reduction, which has no end, those until it is done.
    QVector<ForecastDay> days;
    /// The target in its unit, and what is used before the first day.
    double total = 0;
    double used = 0;
    /// Trade days of the period from the first day on.
    int tradeDays = 0;
    /// Trade days until nothing is left that can be issued, also beyond the period; 0 if that never happens,
    /// and more than `Forecast::MostDays` if it takes longer.
    int neededDays = 0;
    /// The day on which it happens; invalid if it does not happen within the period.
    QDate lastDay;

    bool isComplete() const { return lastDay.isValid(); }
    bool operator==(const PlanForecast& other) const;
};

/// A plan and what is known about its days.
struct ForecastedPlan {
    /// With what is filled by now.
    OrderTerms terms;
    DayPrice price;
    const Security& security;
    AccountLimits limits;
    const TradeCalendar& calendar;
    /// The first day on which an order may go out, and the last.
    QDate first;
    QDate last;
};

namespace Forecast {

/// Most trade days that are looked at, for a plan without an end and for the days that are needed.
constexpr int MostDays = 2500;

PlanForecast of(const ForecastedPlan& plan);

} // namespace Forecast
