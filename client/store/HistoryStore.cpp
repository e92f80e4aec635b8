#include "HistoryStore.h"

#include "StoredTexts.h"
#include "StoredTime.h"

#include <QCoreApplication>
#include <QSysInfo>

namespace {

/// The names of the events in the table, in the order of `HistoryEvent`.
const QStringList& eventNames()
{
    static const QStringList names{ QStringLiteral("created"), QStringLiteral("changed"),
        QStringLiteral("state changed"), QStringLiteral("issued"), QStringLiteral("instruction changed"),
        QStringLiteral("signed"), QStringLiteral("completed") };
    return names;
}

const QString& thisClient()
{
    static const QString name =
        QStringLiteral("%1:%2").arg(QSysInfo::machineHostName()).arg(QCoreApplication::applicationPid());
    return name;
}

QVariant textOrNull(const QString& text)
{
    return text.isEmpty() ? QVariant() : QVariant(text);
}

QVariant jsonOrNull(const HistoryEntry::Fields& fields)
{
    return fields.isEmpty() ? QVariant() : QVariant(StoredTexts::toJson(fields));
}

std::optional<HistoryEntry::Fields> fieldsOf(const QVariant& json)
{
    return json.isNull() ? HistoryEntry::Fields() : StoredTexts::fromJson(json.toString());
}

/// The statement that adds an entry. `values`: the row, in which %1 are all columns except its plan's number.
QString insertion(const char* values)
{
    return QStringLiteral("INSERT INTO history"
                          " (plan, event, version, subject, before, after, \"user\", time, client, request) ")
        + QString::fromLatin1(values).arg(QStringLiteral("?, ?, ?, ?, ?, ?, ?, ?, ?"));
}

const QString& insertion()
{
    static const QString statement = insertion("VALUES (?, %1)");
    return statement;
}

/// Returns the number of the plan, which is a new one for 0; 0 if none was changed.
Result<qint64> changePlan(Database& database, const SqlQuery& change, qint64 plan)
{
    if (plan == 0)
        return database.insert(change.text, change.values);
    const Result<int> changed = database.change(change.text, change.values);
    return changed ? Result<qint64>(*changed == 0 ? 0 : plan) : changed.status();
}

/// The values of its other columns.
QVariantList valuesOf(const HistoryEntry& entry, const Change& change)
{
    return { HistoryStore::eventName(entry.event), entry.version != 0 ? QVariant(entry.version) : QVariant(),
        textOrNull(entry.subject), jsonOrNull(entry.before), jsonOrNull(entry.after), change.user,
        StoredTime::toText(change.time), thisClient(), textOrNull(change.request) };
}

/// An entry of a row of number, event, plan, version, subject, before, after, user, time and client.
Result<HistoryEntry> entryOf(const QSqlQuery& row)
{
    const auto text = [&row](int column) { return row.value(column).toString(); };
    const auto event = eventNames().indexOf(text(1));
    const auto before = fieldsOf(row.value(5));
    const auto after = fieldsOf(row.value(6));
    const QDateTime time = StoredTime::fromText(text(8));
    if (event < 0 || !before || !after || !time.isValid())
        return { Error::DamagedHistory, { text(0) } };
    return HistoryEntry{ static_cast<HistoryEvent>(event), row.value(2).toLongLong(), row.value(3).toInt(), text(4),
        *before, *after, text(7), time, text(9) };
}

} // namespace

HistoryStore::HistoryStore(Database& database)
    : m_database(database)
{
}

QString HistoryStore::eventName(HistoryEvent event)
{
    return eventNames().at(static_cast<int>(event));
}

Status HistoryStore::add(const HistoryEntry& entry, const Change& change)
{
    const QVariant plan = entry.plan != 0 ? QVariant(entry.plan) : QVariant();
    return m_database.execute(insertion(), QVariantList{ plan } + valuesOf(entry, change));
}

// A server gets both in one statement, which saves a round trip.
Result<qint64> HistoryStore::addWith(const SqlQuery& planChange, const HistoryEntry& entry, const Change& change)
{
    const QVariantList values = valuesOf(entry, change);
    if (m_database.dialect().nestsChanges) {
        const QString statement = QStringLiteral("WITH changed AS (%1 RETURNING number), noted AS (%2)"
                                                 " SELECT number FROM changed")
                                      .arg(planChange.text, insertion("SELECT number, %1 FROM changed"));
        return m_database.insert(statement, planChange.values + values);
    }
    qint64 number = 0;
    const Status status = m_database.transaction([&] {
        const Result<qint64> changed = changePlan(m_database, planChange, entry.plan);
        number = changed.valueOr(0);
        return number != 0 ? m_database.execute(insertion(), QVariantList{ number } + values) : changed.status();
    });
    return status ? Result<qint64>(number) : status;
}

Result<QVector<HistoryEntry>> HistoryStore::ofPlan(qint64 plan, int limit)
{
    return read(QStringLiteral("number IN (SELECT number FROM history WHERE plan = ? ORDER BY number DESC LIMIT ?)"),
        { plan, limit });
}

Result<QVector<HistoryEntry>> HistoryStore::after(qint64 plan, int version)
{
    return read(
        QStringLiteral("plan = ? AND version > ? AND event IN ('changed', 'state changed')"), { plan, version });
}

Result<qint64> HistoryStore::planOfRequest(const QString& request)
{
    qint64 plan = 0;
    ValueReader reader(m_database);
    addTo(reader, request, plan);
    const Status status = reader.read();
    return status ? Result<qint64>(plan) : status;
}

void HistoryStore::addTo(ValueReader& reader, const QString& request, qint64& plan)
{
    reader.add({ QStringLiteral("(SELECT plan FROM history WHERE request = ?)") }, { request },
        [&plan](const QSqlQuery& row, int column) {
            plan = row.value(column).toLongLong();
            return Status();
        });
}

Result<QVector<HistoryEntry>> HistoryStore::read(const QString& condition, const QVariantList& values)
{
    QVector<HistoryEntry> entries;
    Status readable;
    const Status status = m_database.read(
        QStringLiteral("SELECT number, event, plan, version, subject, before, after, \"user\", time, client"
                       " FROM history WHERE %1 ORDER BY number")
            .arg(condition),
        values, [&](const QSqlQuery& row) {
            const Result<HistoryEntry> entry = entryOf(row);
            if (entry)
                entries << *entry;
            else
                readable = entry.status();
        });
    if (!status)
        return status;
    return readable ? Result<QVector<HistoryEntry>>(entries) : readable;
}
