#pragma once

#include "AdvisedPlan.h"
#include "AdvisorRow.h"

/// What the advisor says about the days of a plan.
namespace ForecastTexts {

/// One sentence: the expected last day, or why the plan does not end.
QString headline(const AdvisedPlan& plan);
/// What a reduction's ratio means; empty for any other plan.
QString reduction(const AdvisedPlan& plan);
/// How much of the numbers a row shows.
enum class Detail {
    Full,
    WholeYuan,
    ShortYuan, ///< amounts in ten thousands or hundred millions
    NoYuan,    ///< no amounts
    Short,     ///< no amounts and years, all else in ten thousands or hundred millions
};
/// Date, what goes out, its amount, what remains in whole units or yuan. The full numbers are in the hints.
AdvisorRow row(const ForecastDay& day, Detail detail = Detail::Full);

/// What the widest texts follow from.
struct Extremes {
    bool isProvisional = false; ///< any day
    qint64 quantity = 0;
    double yuan = 0;
    double left = 0;

    bool operator==(const Extremes& other) const;
};
Extremes extremes(const QVector<ForecastDay>& days);
/// For each column a text that is at least as wide as all others; null for a column that is not shown.
QStringList widest(const Extremes& extremes, Detail detail);

AdvisorColumns columns();
/// Whether nothing keeps the plan from ending in time, as far as it is known.
bool isInTime(const AdvisedPlan& plan);

} // namespace ForecastTexts
