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
        QStringLiteral("signed") };
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
    const bool ofPlan = entry.plan != 0;
    return m_database.execute(
        QStringLiteral(
            "INSERT INTO history (event, plan, version, subject, before, after, \"user\", time, client, request)"
            " VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
        { eventName(entry.event), ofPlan ? QVariant(entry.plan) : QVariant(),
            ofPlan ? QVariant(entry.version) : QVariant(), textOrNull(entry.subject), jsonOrNull(entry.before),
            jsonOrNull(entry.after), change.user, StoredTime::toText(change.time), thisClient(),
            textOrNull(change.request) });
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
    const auto found = m_database.value(QStringLiteral("SELECT plan FROM history WHERE request = ?"), { request });
    return found ? Result<qint64>(found->toLongLong()) : found.status();
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
