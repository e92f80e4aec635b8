#pragma once

#include "Database.h"

#include <QDate>
#include <QDateTime>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

/// A plan as stored: its record and what the store keeps beside it.
struct StoredPlan {
    QString id;
    /// 1 when created, one more with every modification.
    int version = 0;
    /// Id of the user who created it.
    QString creator;
    QDateTime created;
    QDateTime changed;
    /// Texts by field key, the other-parameter text included when the plan has one.
    QMap<QString, QVariant> record;
};

/// Plans and their record fields.
class PlanStore {
public:
    using Record = QMap<QString, QVariant>;

    /// `otherParamKey`: the record key under which the other-parameter text stands.
    PlanStore(Database& database, const QString& otherParamKey);

    /// Stores a new plan in one transaction and returns its id. Values that are no texts are refused.
    Result<QString> create(const Record& record, const QString& creator, const QDateTime& now);
    /// Replaces the whole record in one transaction and counts the version up. An unknown id is refused.
    Status modify(const QString& planId, const Record& record, const QDateTime& now);

    /// Empty when the id is unknown or reading failed.
    Record record(const QString& planId);
    /// A default plan (empty id) when the id is unknown or reading failed.
    StoredPlan plan(const QString& planId);
    /// One page of plans, newest first; empty past the last one.
    QVector<StoredPlan> page(int offset, int limit);
    int count();
    /// How many plans are newer than this one; -1 when the id is unknown.
    int newerThan(const QString& planId);
    /// Ids of the plans whose period, read from the two fields (yyyy-MM-dd), holds the day; oldest first.
    QStringList idsOfPeriod(const QString& beginKey, const QString& endKey, const QDate& day);

private:
    Status checkRecord(const Record& record) const;
    QVariant otherParamOf(const Record& record) const;
    Status writeFields(qint64 number, const Record& record);
    QVector<StoredPlan> read(const QString& condition, const QVariantList& values);
    StoredPlan planOf(const QSqlQuery& row) const;

    Database& m_database;
    const QString m_otherParamKey;
};

/// Plan ids as users see them ("AP00000012") and as the tables number them.
namespace PlanId {

QString fromNumber(qint64 number);
/// Absent when the text is no id that `fromNumber` writes.
std::optional<qint64> toNumber(const QString& id);

} // namespace PlanId
