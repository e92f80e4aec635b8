#include "HistoryStore.h"

#include "StoredTime.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
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
    if (fields.isEmpty())
        return QVariant();
    const QJsonDocument document(QJsonObject::fromVariantMap(fields));
    return QString::fromUtf8(document.toJson(QJsonDocument::Compact));
}

HistoryEntry::Fields fieldsOf(const QVariant& json)
{
    return QJsonDocument::fromJson(json.toString().toUtf8()).object().toVariantMap();
}

/// An entry of a row of event, plan, version, subject, before, after, user, time and client.
HistoryEntry entryOf(const QSqlQuery& row)
{
    return { static_cast<HistoryEvent>(eventNames().indexOf(row.value(0).toString())), row.value(1).toLongLong(),
        row.value(2).toInt(), row.value(3).toString(), fieldsOf(row.value(4)), fieldsOf(row.value(5)),
        row.value(6).toString(), StoredTime::fromText(row.value(7).toString()), row.value(8).toString() };
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
        QStringLiteral("INSERT INTO history (event, plan, version, subject, before, after, user, time, client, request)"
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
    Status status = m_database.read(
        QStringLiteral("SELECT event, plan, version, subject, before, after, user, time, client FROM history WHERE %1"
                       " ORDER BY number")
            .arg(condition),
        values, [&entries](const QSqlQuery& row) { entries << entryOf(row); });
    return status ? Result<QVector<HistoryEntry>>(entries) : status;
}
