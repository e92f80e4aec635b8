#include "PostgresStatus.h"

#include "Bookings.h"

#include <QMap>
#include <QSqlError>

#include <libpq-fe.h>

namespace {

const QMap<QString, Error>& meanings()
{
    static const QMap<QString, Error> errors{
        { QStringLiteral("2200H"), Error::NumbersExhausted },
        { QStringLiteral("23505"), Error::AlreadyStored }, // unique key
        { QStringLiteral("25006"), Error::ServerReadOnly },
        { QStringLiteral("40001"), Error::DatabaseBusy }, // serialization failure
        { QStringLiteral("40P01"), Error::DatabaseBusy }, // deadlock
        { QStringLiteral("42501"), Error::NotPermitted },
        { QStringLiteral("42P01"), Error::NotPermitted }, // a role without privileges does not find the tables
        { QStringLiteral("53100"), Error::DiskFull },
        { QStringLiteral("54000"), Error::ContentTooLarge },
        { QStringLiteral("55P03"), Error::LockedByOthers }, // lock not available
        { QStringLiteral("57014"), Error::ServerTooSlow },  // query cancelled, usually after its time
        { QStringLiteral("XX001"), Error::DatabaseCorrupt },
        { QStringLiteral("XX002"), Error::DatabaseCorrupt },
    };
    return errors;
}

Status statusOf(pg_conn* connection, const QString& code, const QString& text)
{
    if (PQstatus(connection) != CONNECTION_OK)
        return Error::ConnectionLost;
    if (code == QLatin1String("58030")) // input or output of the server's disk
        return { Error::DiskFailed, { code } };
    // A replica refuses to begin a transaction that writes.
    const QByteArray standby(PQparameterStatus(connection, "in_hot_standby"));
    if (code == QLatin1String("0A000") && standby == "on")
        return Error::ServerReadOnly;
    if (text.contains(Bookings::refusal()))
        return Error::MoreThanSellable;
    if (text.contains(Bookings::fillRefusal()))
        return Error::MoreThanIssued;
    const auto meaning = meanings().constFind(code);
    return meaning == meanings().cend() ? Status(Error::DatabaseFailed, { PostgresStatus::firstLine(text) }) : *meaning;
}

} // namespace

Status PostgresStatus::of(pg_conn* connection, const QSqlError& error)
{
    return statusOf(connection, error.nativeErrorCode(), error.databaseText());
}

Status PostgresStatus::of(pg_conn* connection, const pg_result* answer)
{
    return statusOf(connection, QString::fromLatin1(PQresultErrorField(answer, PG_DIAG_SQLSTATE)),
        QString::fromUtf8(PQresultErrorMessage(answer)));
}

QString PostgresStatus::firstLine(const QString& text)
{
    return text.section(QLatin1Char('\n'), 0, 0).trimmed();
}
