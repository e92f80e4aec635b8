#pragma once

#include "PlanList.h"

/// What a user's text searches for: the number of a plan ("AP000012" is the start of one), the start of a security's
/// code, a part of its name, the start of an account's number or a part of its name. Letters in any case and full-width
/// characters are found. Absent for an empty text.
std::optional<PlanSearch> planSearch(const QString& text);
