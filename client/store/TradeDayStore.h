#pragma once

#include "store/Database.h"

#include <QDate>
#include <QList>

/// The trade days of each exchange as last taken from the calendar.
class TradeDayStore {
public:
    explicit TradeDayStore(Database& database);

    /// Replaces the exchange's days in one transaction.
    QString replace(const QString& exchange, const QList<QDate>& days);
    /// Days on or after `from`, ascending; empty when none are stored.
    QList<QDate> days(const QString& exchange, const QDate& from);

private:
    Database& m_database;
};
