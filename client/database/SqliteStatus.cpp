#include "SqliteStatus.h"

#include "Bookings.h"

#include <QSqlError>

#include <sqlite3.h>

Status SqliteStatus::of(int code, const QString& text)
{
    if (code == SQLITE_READONLY_DIRECTORY)
        return Error::FolderNotWritable;
    if (code == SQLITE_CONSTRAINT_UNIQUE)
        return Error::AlreadyStored;
    switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PROTOCOL:
        return Error::DatabaseBusy;
    case SQLITE_READONLY:
        return Error::DatabaseReadOnly;
    case SQLITE_CORRUPT:
        return Error::DatabaseCorrupt;
    case SQLITE_FULL:
        return Error::DiskFull;
    case SQLITE_IOERR:
        return { Error::DiskFailed, { QString::number(code) } };
    case SQLITE_NOTADB:
        return Error::NotADatabase;
    case SQLITE_TOOBIG:
        return Error::ContentTooLarge;
    default:
        if (text.contains(Bookings::fillRefusal()))
            return Error::MoreThanIssued;
        return text.contains(Bookings::refusal()) ? Status(Error::MoreThanSellable)
                                                  : Status(Error::DatabaseFailed, { text });
    }
}

Status SqliteStatus::of(const QSqlError& error)
{
    return of(error.nativeErrorCode().toInt(), error.text().trimmed());
}

Status SqliteStatus::last(sqlite3* connection)
{
    return of(sqlite3_extended_errcode(connection), QString::fromUtf8(sqlite3_errmsg(connection)));
}
