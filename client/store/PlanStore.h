#pragma once

#include "UserStore.h"

#include <QDate>
#include <QDateTime>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

/// A stored plan: its record and the store's own data.
struct StoredPlan {
    QString id;
    /// 1 after creation; every modification adds one.
    int version = 0;
    /// Id of the user who created it.
    QString creator;
    QDateTime created;
    QDateTime changed;
    /// Texts by field key, including the other-parameter text if the plan has one.
    QMap<QString, QVariant> record;
};

/// Plans and their record fields.
class PlanStore {
public:
    using Record = QMap<QString, QVariant>;

    /// Every plan.
    explicit PlanStore(Database& database);
    /// The plans of the user's accounts and those assigned to the user. All others are unknown.
    PlanStore(Database& database, const StoredUser& user);

    /// Stores a new plan in one transaction and returns its id. Refuses a record that `RecordCheck` refuses.
    Result<QString> create(const Record& record, const QString& creator, const QDateTime& now);
    /// Replaces the whole record in one transaction and increments the version. Refuses an unknown id.
    Status modify(const QString& planId, const Record& record, const QDateTime& now);

    /// Empty if the id is unknown.
    Result<Record> record(const QString& planId);
    /// A default plan (empty id) if the id is unknown.
    Result<StoredPlan> plan(const QString& planId);
    /// One page of plans, newest first; empty after the last one.
    Result<QVector<StoredPlan>> page(int offset, int limit);
    Result<int> count();
    /// 0 if the id is unknown.
    Result<int> version(const QString& planId);
    /// Number of plans newer than this one; -1 if the id is unknown.
    Result<int> newerThan(const QString& planId);
    /// Ids of the plans with the day in their period, oldest first.
    Result<QStringList> idsOfDay(const QDate& day);

private:
    Status writeFields(qint64 number, const Record& record);
    Result<QVector<StoredPlan>> read(const QString& condition, const QVariantList& values);

    Database& m_database;
    /// The condition of the plans that are read and changed, with its values.
    const QString m_condition;
    const QVariantList m_values;
};

/// Conversion between plan ids as displayed ("AP00000012") and the numbers in the tables.
namespace PlanId {

QString fromNumber(qint64 number);
/// Absent unless the text is an id from `fromNumber`.
std::optional<qint64> toNumber(const QString& id);

} // namespace PlanId
