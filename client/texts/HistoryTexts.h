#pragma once

#include "HistoryStore.h"
#include "PlanEvents.h"

#include <QJsonObject>

/// The history of a plan in words and as JSON.
namespace HistoryTexts {

/// The time as "yyyy-MM-dd HH:mm:ss".
QString timeText(const QDateTime& time);
/// What happened: the event, and the changed fields with their texts before and after.
QString event(const HistoryEntry& entry);
/// Time, event, user and client in one line.
QString line(const HistoryEntry& entry);
/// What has become of a request that was not answered.
QString outcome(UnknownRequest request, bool isStored, const QString& planId);
/// "event", "plan", "version", "subject", "user", "client", "time" (UTC), "before" and "after" with the stored texts.
QJsonObject json(const HistoryEntry& entry);

} // namespace HistoryTexts
