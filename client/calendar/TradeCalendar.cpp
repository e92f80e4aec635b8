#include "TradeCalendar.h"

#include "CodeWords.h"
#include "ErrorText.h"
#include "Kelvo_Values.h"
#include "Orlo_Values.h"

#include <QDebug>
#include <QFile>
#include <QStringList>

#include <algorithm>

namespace {

const QString Mainland = QStringLiteral("mainland");
const QString HongKong = QStringLiteral("hongkong");
const QString Provisional = QStringLiteral("provisional");
const QStringList Statuses{ QStringLiteral("announced"), Provisional, QStringLiteral("computed") };
const QString Headings = QStringLiteral("market,date,holiday,status");

bool isWeekend(const QDate& date)
{
    return date.dayOfWeek() >= Qt::Saturday;
}

QByteArray builtInClosures()
{
    QFile file(QStringLiteral(":/calendar/market_closures.csv"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

const TradeCalendar& TradeCalendar::builtIn()
{
    static const TradeCalendar calendar = [] {
        TradeCalendar loaded;
        if (Status status = loaded.add(builtInClosures()); !status)
            qWarning().noquote() << "TradeCalendar::builtIn" << errorText(status);
        return loaded;
    }();
    return calendar;
}

QString TradeCalendar::headings()
{
    return Headings;
}

Status TradeCalendar::add(const QByteArray& csv)
{
    const Result<Table> read = TradeCalendar::read(csv);
    if (!read)
        return read.status();
    Table table = m_table;
    for (auto market = read->cbegin(); market != read->cend(); ++market) {
        for (auto year = market->cbegin(); year != market->cend(); ++year)
            table[market.key()].insert(year.key(), *year);
    }
    if (Status status = checkYears(table); !status)
        return status;
    m_table = table;
    m_reported.clear();
    return {};
}

Result<TradeCalendar::Table> TradeCalendar::read(const QByteArray& csv)
{
    const QStringList lines = QString::fromUtf8(csv).split(QLatin1Char('\n'));
    if (lines.constFirst().trimmed() != Headings)
        return Status(Error::NoClosureHeadings, { Headings });
    Table table;
    for (int i = 1; i < lines.size(); ++i) {
        const QString line = lines.at(i).trimmed();
        if (line.isEmpty())
            continue;
        if (Status status = readLine(line, table); !status)
            return Status(Error::BadClosureLine, { QString::number(i + 1) }, status);
    }
    return table;
}

Status TradeCalendar::readLine(const QString& line, Table& table)
{
    const QStringList cells = line.split(QLatin1Char(','));
    if (cells.size() != Headings.count(QLatin1Char(',')) + 1)
        return { Error::ClosureColumns, { QString::number(cells.size()) } };
    if (cells.at(0) != Mainland && cells.at(0) != HongKong)
        return { Error::UnknownCode, { QStringLiteral(QT_TRANSLATE_NOOP("Caption", "市场")), cells.at(0) } };
    const QDate date = QDate::fromString(cells.at(1), Qt::ISODate);
    if (!date.isValid())
        return { Error::NotADate, { cells.at(1) } };
    if (!Statuses.contains(cells.at(3)))
        return { Error::UnknownCode, { QStringLiteral(QT_TRANSLATE_NOOP("Caption", "状态")), cells.at(3) } };
    Year& year = table[cells.at(0)][date.year()];
    year.days.insert(date, cells.mid(2));
    year.provisional = year.provisional || cells.at(3) == Provisional;
    return {};
}

Status TradeCalendar::checkYears(const Table& table)
{
    for (auto market = table.cbegin(); market != table.cend(); ++market) {
        for (int year = market->firstKey(); year < market->lastKey(); ++year) {
            if (!market->contains(year))
                return { Error::ClosureYearMissing,
                    { CodeWords::calendarMarkets().word(market.key()), QString::number(year) } };
        }
    }
    return {};
}

TradeCalendar::Day TradeCalendar::day(const QString& exchange, const QDate& date) const
{
    const QList<const Closures*> closures = closuresOf(exchange);
    if (closures.isEmpty() || !date.isValid())
        return Day::Unknown;
    if (isWeekend(date))
        return Day::Closed;
    const auto knows = [&date](const Closures* market) { return market->contains(date.year()); };
    if (!std::all_of(closures.cbegin(), closures.cend(), knows))
        return Day::Unknown;
    const auto closed = [&date](const Closures* market) { return market->value(date.year()).days.contains(date); };
    return std::any_of(closures.cbegin(), closures.cend(), closed) ? Day::Closed : Day::Trades;
}

bool TradeCalendar::isProvisional(const QString& exchange, const QDate& date) const
{
    const QList<const Closures*> closures = closuresOf(exchange);
    return std::any_of(closures.cbegin(), closures.cend(),
        [&date](const Closures* market) { return market->value(date.year()).provisional; });
}

Result<QList<QDate>> TradeCalendar::tradeDays(const QString& exchange, const QDate& from) const
{
    const QList<const Closures*> closures = closuresOf(exchange);
    if (closures.isEmpty())
        return { Error::NoCalendar, { CodeWords::exchanges().word(exchange) } };
    const auto knows = [&from](const Closures* market) { return market->contains(from.year()); };
    if (!from.isValid() || !std::all_of(closures.cbegin(), closures.cend(), knows))
        return { Error::BeyondCalendar, { lastKnownDay(exchange).toString(Qt::ISODate), from.toString(Qt::ISODate) } };
    reportUncertainty(exchange, closures);
    QList<QDate> days;
    const QDate last = lastKnownDay(exchange);
    for (QDate date = from; date <= last; date = date.addDays(1)) {
        if (day(exchange, date) == Day::Trades)
            days << date;
    }
    return days;
}

QDate TradeCalendar::lastKnownDay(const QString& exchange) const
{
    QDate last;
    const auto markets = closuresOf(exchange);
    for (const Closures* market : markets) {
        const QDate end(market->lastKey(), 12, 31);
        last = last.isValid() ? qMin(last, end) : end;
    }
    return last;
}

QVector<QStringList> TradeCalendar::rows() const
{
    QVector<QStringList> all;
    for (auto market = m_table.cbegin(); market != m_table.cend(); ++market) {
        for (const Year& year : *market) {
            for (auto day = year.days.cbegin(); day != year.days.cend(); ++day)
                all << QStringList{ market.key(), day.key().toString(Qt::ISODate) } + *day;
        }
    }
    return all;
}

// Hong Kong connect needs all markets.
QDate TradeCalendar::lastKnownDay() const
{
    return lastKnownDay(Orlo_Values::Exchange::HkStockCirculation);
}

// Empty if the exchange is unknown or its closures are missing.
QList<const TradeCalendar::Closures*> TradeCalendar::closuresOf(const QString& exchange) const
{
    QStringList markets{ Mainland };
    if (exchange == Orlo_Values::Exchange::HkStockCirculation)
        markets << HongKong;
    else if (exchange != Kelvo_Values::Exchange::sh && exchange != Kelvo_Values::Exchange::sz
        && exchange != Orlo_Values::Exchange::bj)
        return {};
    QList<const Closures*> closures;
    for (const QString& market : qAsConst(markets)) {
        const auto known = m_table.constFind(market);
        if (known == m_table.cend())
            return {};
        closures << &*known;
    }
    return closures;
}

void TradeCalendar::reportUncertainty(const QString& exchange, const QList<const Closures*>& closures) const
{
    if (m_reported.contains(exchange))
        return;
    m_reported.insert(exchange);
    QSet<int> years;
    for (const Closures* market : closures) {
        for (auto year = market->cbegin(); year != market->cend(); ++year) {
            if (year->provisional)
                years.insert(year.key());
        }
    }
    for (const int year : qAsConst(years))
        qInfo().noquote() << "TradeCalendar::tradeDays" << exchange << year << "年休市安排尚未公布，暂按法定节假日推算";
    qInfo().noquote() << "TradeCalendar::tradeDays" << exchange << lastKnownDay(exchange).toString(Qt::ISODate)
                      << "之后的交易日未知";
}
