#pragma once

#include "Status.h"

#include <QDate>
#include <QList>
#include <QMap>
#include <QSet>
#include <QStringList>
#include <QVector>

/// The trade days of exchanges, from a table of closures. Does not use a clock.
///
/// Shanghai, Shenzhen and Beijing follow the mainland's closures. Hong Kong connect trades on the days on which the
/// mainland and Hong Kong both trade.
class TradeCalendar {
public:
    enum class Day { Trades, Closed, Unknown };

    /// The calendar with the closures built into the program.
    static const TradeCalendar& builtIn();

    /// The first line of a table of closures.
    static QString headings();
    /// Reads closures as `market,date,holiday,status` lines after a header line. The years of a market that the text
    /// lists replace the present ones. If the text is invalid or would leave out a year, keeps the calendar.
    Status add(const QByteArray& csv);

    /// Weekends are closed in every year; a weekday before the first or after the last listed year, or on an exchange
    /// that the calendar does not know, is unknown.
    Day day(const QString& exchange, const QDate& date) const;
    /// Whether the closures of the date's year have not been announced yet for the exchange; false for an unknown year.
    bool isProvisional(const QString& exchange, const QDate& date) const;
    /// Days on or after `from` on which the exchange trades, ascending, through the last listed year. Fails if `from`
    /// is unknown.
    Result<QList<QDate>> tradeDays(const QString& exchange, const QDate& from) const;
    /// The last day of the last year that is known for the exchange; invalid for an unknown exchange.
    QDate lastKnownDay(const QString& exchange) const;
    /// The last day that is known for all exchanges.
    QDate lastKnownDay() const;
    /// The closures in the columns of `headings`, by market and date.
    QVector<QStringList> rows() const;

private:
    struct Year {
        QMap<QDate, QStringList> days; ///< with holiday and status
        bool provisional = false;
    };
    /// The years that are known, without a gap.
    using Closures = QMap<int, Year>;
    using Table = QMap<QString, Closures>;

    static Result<Table> read(const QByteArray& csv);
    static Status readLine(const QString& line, Table& table);
    static Status checkYears(const Table& table);
    QList<const Closures*> closuresOf(const QString& exchange) const;
    void reportUncertainty(const QString& exchange, const QList<const Closures*>& closures) const;

    Table m_table;
    mutable QSet<QString> m_reported;
};
