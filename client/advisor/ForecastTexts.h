#pragma once

#include "AdvisedPlan.h"
#include "AdvisorRow.h"

/// What the advisor says about the days of a plan.
namespace ForecastTexts {

/// One sentence: the expected last day, or why the plan does not end.
QString headline(const AdvisedPlan& plan);
/// What a reduction's ratio means; empty for any other plan.
QString reduction(const AdvisedPlan& plan);
/// Date, what goes out, its amount, what remains in whole units or yuan.
AdvisorRow row(const ForecastDay& day);
AdvisorColumns columns();
/// Whether nothing keeps the plan from ending in time, as far as it is known.
bool isInTime(const AdvisedPlan& plan);

} // namespace ForecastTexts
