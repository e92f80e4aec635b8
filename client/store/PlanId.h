#pragma once

#include <QString>

#include <optional>

/// Plan ids as users see them ("AP00000012") and as the tables number them.
namespace PlanId {

QString fromNumber(qint64 number);
/// Absent when the text is no id that `fromNumber` writes.
std::optional<qint64> toNumber(const QString& id);

} // namespace PlanId
