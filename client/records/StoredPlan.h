#pragma once

#include <QDate>
#include <QDateTime>
#include <QMap>
#include <QString>
#include <QVariant>

#include <optional>

/// Only active plans get instructions.
enum class PlanState { Active, Paused, Stopped, Archived };

/// A stored plan: its record and the store's own data.
struct StoredPlan {
    QString id;
    /// 1 after creation; every modification adds one.
    int version = 0;
    PlanState state = PlanState::Active;
    /// Id of the user who created it.
    QString creator;
    QDateTime created;
    QDateTime changed;
    /// The day on which nothing was left to issue; invalid until then, and after the next change of the record.
    QDate completed;
    /// Since when the plan has been active: its creation, or when it was last resumed, or changed after it had ended.
    QDateTime activeSince;
    /// Texts by field key, including the other-parameter text if the plan has one.
    QMap<QString, QVariant> record;

    bool operator==(const StoredPlan& other) const;
    bool operator!=(const StoredPlan& other) const { return !(*this == other); }
};

/// Conversion between plan ids as displayed ("AP00000012") and the numbers in the tables.
namespace PlanId {

QString fromNumber(qint64 number);
/// Absent unless the text is an id from `fromNumber`.
std::optional<qint64> toNumber(const QString& id);

} // namespace PlanId
