#pragma once

#include "Status.h"

#include <QMap>
#include <QString>
#include <QVariant>

/// Checks of a plan record, so that it can be read back as it was stored.
namespace RecordCheck {

/// Longest value of a field in UTF-16 units.
constexpr int LongestField = 4000;
/// Longest other-parameter text, which contains the parameters of an algorithm.
constexpr int LongestOtherParam = 1 << 20;

/// Refuses an empty record, unknown fields, values that are not texts, texts that are too long or that the database
/// would change.
Status refusal(const QMap<QString, QVariant>& record);

} // namespace RecordCheck
