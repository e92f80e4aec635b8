#pragma once

#include "SqlDialect.h"
#include "ValueReader.h"

#include <QDateTime>
#include <QMap>
#include <QVector>

#include <limits>

/// Who changes stored data and when. The history records it with the change.
struct Change {
    /// User id.
    QString user;
    QDateTime time;
    /// Id of the request that asks for the change, unique among all requests; empty if nobody will look it up.
    QString request = {};
};

/// What happened to a plan, one of its instructions, or a signature.
enum class HistoryEvent { Created, Changed, StateChanged, Issued, InstructionChanged, Signed, Completed };

struct HistoryEntry {
    using Fields = QMap<QString, QVariant>;

    HistoryEvent event = HistoryEvent::Created;
    /// Number of the plan, and its version after the event. 0 for a signature.
    qint64 plan = 0;
    int version = 0;
    /// The instruction's id, or the protocol that was signed; empty for the plan itself.
    QString subject;
    /// Texts by field key: the whole plan record, or the fields of the instruction, the state or the signature. Empty
    /// before a creation.
    Fields before;
    Fields after;
    /// Set by the store.
    QString user = {};
    QDateTime time = {};
    /// The client that made the change: host name and process id.
    QString client = {};
};

/// The history of stored data. Entries are only added; the database refuses to change or delete one. Reading fails if
/// one of the entries has contents that the store does not write.
class HistoryStore {
public:
    explicit HistoryStore(Database& database);

    /// The event's name in the table.
    static QString eventName(HistoryEvent event);

    /// Adds an entry; call it in the transaction of the change. Refuses a request id that was used before.
    Status add(const HistoryEntry& entry, const Change& change);
    /// Changes the plan of an entry by a statement, and adds the entry. A statement for an entry without a plan inserts
    /// one. Returns the plan's number; 0 without an entry if the statement changes no plan.
    Result<qint64> addWith(const SqlQuery& planChange, const HistoryEntry& entry, const Change& change);
    /// The newest entries of a plan, at most `limit`, oldest first.
    Result<QVector<HistoryEntry>> ofPlan(qint64 plan, int limit = std::numeric_limits<int>::max());
    /// Those that made versions later than this one, oldest first.
    Result<QVector<HistoryEntry>> after(qint64 plan, int version);
    /// Number of the plan that a request created; 0 if none did.
    Result<qint64> planOfRequest(const QString& request);
    /// Adds the same to what is read.
    static void addTo(ValueReader& reader, const QString& request, qint64& plan);

private:
    Result<QVector<HistoryEntry>> read(const QString& condition, const QVariantList& values);

    Database& m_database;
};
