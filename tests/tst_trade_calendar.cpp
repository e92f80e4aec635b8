#include "ClientClock.h"
#include "ClosureFiles.h"
#include "Kelvo_Values.h"
#include "LoggedTest.h"
#include "Orlo_Values.h"
#include "TestStatus.h"
#include "TradeCalendar.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <ctime>

using Day = TradeCalendar::Day;

Q_DECLARE_METATYPE(TradeCalendar::Day)

namespace {

const QByteArray Headings = "market,date,holiday,status\n";

QString hongKongConnect()
{
    return Orlo_Values::Exchange::HkStockCirculation;
}

QString shanghai()
{
    return Kelvo_Values::Exchange::sh;
}

/// A time zone of the machine, in the notation of POSIX, and the former one at the end.
class MachineZone {
public:
    explicit MachineZone(const QByteArray& zone) { set(zone); }
    ~MachineZone() { set(m_former); }
    MachineZone(const MachineZone&) = delete;
    MachineZone& operator=(const MachineZone&) = delete;

private:
    static void set(const QByteArray& zone)
    {
        qputenv("TZ", zone);
        tzset();
    }

    const QByteArray m_former = qgetenv("TZ");
};

const QByteArray LosAngeles = "PST8PDT,M3.2.0,M11.1.0";
const QByteArray Kiritimati = "<+14>-14";

bool write(const QString& path, const QByteArray& text)
{
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
}

const QByteArray NextYear = Headings + "mainland,2028-01-03,元旦,announced\nhongkong,2028-01-03,一月一日,computed\n";

} // namespace

class TradeCalendarTest : public LoggedTest {
    Q_OBJECT

private Q_SLOTS:
    void aDayTradesOrIsClosed_data()
    {
        QTest::addColumn<QString>("exchange");
        QTest::addColumn<QDate>("date");
        QTest::addColumn<Day>("day");
        const QString sh = shanghai();
        const QString hk = hongKongConnect();
        QTest::newRow("an ordinary Monday") << sh << QDate(2024, 5, 6) << Day::Trades;
        QTest::newRow("the exchanges' own closure before the spring festival")
            << sh << QDate(2024, 2, 9) << Day::Closed;
        QTest::newRow("the day before it") << sh << QDate(2024, 2, 8) << Day::Trades;
        QTest::newRow("National Day 2026") << sh << QDate(2026, 10, 1) << Day::Closed;
        QTest::newRow("the middle of the National Day week") << sh << QDate(2026, 10, 6) << Day::Closed;
        QTest::newRow("its last day") << sh << QDate(2026, 10, 7) << Day::Closed;
        QTest::newRow("the day after it") << sh << QDate(2026, 10, 8) << Day::Trades;
        QTest::newRow("a make-up working Saturday") << sh << QDate(2026, 10, 10) << Day::Closed;
        QTest::newRow("a make-up working Sunday") << sh << QDate(2026, 9, 20) << Day::Closed;
        QTest::newRow("a provisional closure") << sh << QDate(2027, 10, 1) << Day::Closed;
        QTest::newRow("the last known day") << sh << QDate(2027, 12, 31) << Day::Trades;
        QTest::newRow("a weekday of an unknown year") << sh << QDate(2028, 1, 3) << Day::Unknown;
        QTest::newRow("a weekend of an unknown year") << sh << QDate(2028, 1, 1) << Day::Closed;
        QTest::newRow("before the first known year") << sh << QDate(2017, 12, 29) << Day::Unknown;
        QTest::newRow("no date") << sh << QDate() << Day::Unknown;
        QTest::newRow("a Hong Kong holiday on the mainland") << sh << QDate(2026, 12, 25) << Day::Trades;
        QTest::newRow("a Hong Kong holiday for connect") << hk << QDate(2026, 12, 25) << Day::Closed;
        QTest::newRow("a mainland holiday for connect") << hk << QDate(2024, 2, 9) << Day::Closed;
        QTest::newRow("both markets open") << hk << QDate(2024, 5, 6) << Day::Trades;
        QTest::newRow("connect in an unknown year") << hk << QDate(2028, 1, 3) << Day::Unknown;
    }

    void aDayTradesOrIsClosed()
    {
        QFETCH(QString, exchange);
        QFETCH(QDate, date);
        QFETCH(Day, day);
        QCOMPARE(TradeCalendar::builtIn().day(exchange, date), day);
    }

    void theMainlandExchangesShareTheirDays()
    {
        const TradeCalendar& calendar = TradeCalendar::builtIn();
        const QDate from(2024, 1, 1);
        const QList<QDate> days = *calendar.tradeDays(shanghai(), from);
        QVERIFY(days.size() > 900);
        QCOMPARE(*calendar.tradeDays(Kelvo_Values::Exchange::sz, from), days);
        QCOMPARE(*calendar.tradeDays(Orlo_Values::Exchange::bj, from), days);
        QVERIFY(calendar.tradeDays(hongKongConnect(), from)->size() < days.size());
    }

    void noWeekendEverTrades()
    {
        const QList<QDate> days = *TradeCalendar::builtIn().tradeDays(shanghai(), QDate(2018, 1, 1));
        QVERIFY(!days.isEmpty());
        for (const QDate& day : days)
            QVERIFY2(day.dayOfWeek() <= 5, qPrintable(day.toString(Qt::ISODate)));
    }

    void tradeDaysReachThroughTheLastKnownYear()
    {
        const QList<QDate> days = *TradeCalendar::builtIn().tradeDays(shanghai(), QDate(2024, 1, 1));
        QCOMPARE(days.constFirst(), QDate(2024, 1, 2));
        QCOMPARE(days.constLast(), QDate(2027, 12, 31));
        const auto in2024 = [](const QDate& day) { return day.year() == 2024; };
        QCOMPARE(int(std::count_if(days.cbegin(), days.cend(), in2024)), 242);
        QCOMPARE(TradeCalendar::builtIn().lastKnownDay(shanghai()), QDate(2027, 12, 31));
    }

    void tradeDaysBeginWithTheDayItselfWhenItTrades()
    {
        const TradeCalendar& calendar = TradeCalendar::builtIn();
        QCOMPARE(calendar.tradeDays(shanghai(), QDate(2024, 5, 6))->constFirst(), QDate(2024, 5, 6));
        QCOMPARE(calendar.tradeDays(shanghai(), QDate(2024, 5, 4))->constFirst(), QDate(2024, 5, 6));
    }

    void pastTheLastYearAnErrorIsReported()
    {
        const Status beyond(Error::BeyondCalendar, { QStringLiteral("2027-12-31"), QStringLiteral("2028-03-01") });
        QCOMPARE(TradeCalendar::builtIn().tradeDays(shanghai(), QDate(2028, 3, 1)).status(), beyond);
    }

    void anUnknownExchangeHasNoCalendar()
    {
        const TradeCalendar& calendar = TradeCalendar::builtIn();
        QCOMPARE(calendar.tradeDays(QStringLiteral("XNYS"), QDate(2024, 5, 6)).status(),
            Status(Error::NoCalendar, { QStringLiteral("XNYS") }));
        QCOMPARE(calendar.day(QStringLiteral("XNYS"), QDate(2024, 5, 6)), Day::Unknown);
        QCOMPARE(calendar.lastKnownDay(QStringLiteral("XNYS")), QDate());
    }

    void provisionalYearsAreLoggedOncePerExchange()
    {
        TradeCalendar calendar;
        QCOMPARE(calendar.add(Headings + "mainland,2026-01-01,元旦,announced\nmainland,2027-01-01,元旦,provisional\n"),
            Status());
        for (int i = 0; i < 3; ++i)
            QVERIFY(calendar.tradeDays(shanghai(), QDate(2026, 6, 1)));
        QCOMPARE(log().linesWith(QtInfoMsg, QStringLiteral("2027 年休市安排尚未公布")).size(), 1);
        QCOMPARE(log().linesWith(QtInfoMsg, QStringLiteral("2027-12-31 之后的交易日未知")).size(), 1);
        QCOMPARE(log().lines().size(), 2);
    }

    void aBrokenTableIsRefusedAndTheOldOneKept_data()
    {
        QTest::addColumn<QByteArray>("csv");
        QTest::addColumn<Status>("status");
        const auto line = [](int number, const Status& cause) {
            return Status(Error::BadClosureLine, { QString::number(number) }, cause);
        };
        QTest::newRow("nothing") << QByteArray()
                                 << Status(Error::NoClosureHeadings, { QStringLiteral("market,date,holiday,status") });
        QTest::newRow("a column missing") << Headings + "mainland,2026-01-01,announced"
                                          << line(2, { Error::ClosureColumns, { QStringLiteral("3") } });
        QTest::newRow("an unknown market")
            << Headings + "mars,2026-01-01,x,announced"
            << line(2, { Error::UnknownCode, { QStringLiteral("市场"), QStringLiteral("mars") } });
        QTest::newRow("no such day") << Headings + "\nmainland,2026-02-30,x,announced"
                                     << line(3, { Error::NotADate, { QStringLiteral("2026-02-30") } });
        QTest::newRow("an unknown status")
            << Headings + "mainland,2026-01-01,x,guessed"
            << line(2, { Error::UnknownCode, { QStringLiteral("状态"), QStringLiteral("guessed") } });
    }

    void aBrokenTableIsRefusedAndTheOldOneKept()
    {
        QFETCH(QByteArray, csv);
        QFETCH(Status, status);
        TradeCalendar calendar;
        QCOMPARE(calendar.add(Headings + "mainland,2026-01-01,元旦,announced\r\n"), Status());
        QCOMPARE(calendar.add(csv), status);
        QCOMPARE(calendar.day(shanghai(), QDate(2026, 1, 1)), Day::Closed);
        QCOMPARE(calendar.day(shanghai(), QDate(2026, 1, 2)), Day::Trades);
    }

    void anotherTableExtendsTheCalendar()
    {
        TradeCalendar calendar = TradeCalendar::builtIn();
        QCOMPARE(calendar.add(NextYear), Status());
        QCOMPARE(calendar.lastKnownDay(), QDate(2028, 12, 31));
        QCOMPARE(calendar.day(shanghai(), QDate(2028, 1, 3)), Day::Closed);
        QCOMPARE(calendar.day(shanghai(), QDate(2028, 1, 4)), Day::Trades);
        QCOMPARE(calendar.day(shanghai(), QDate(2027, 10, 1)), Day::Closed);
    }

    void anAnnouncedYearReplacesTheProvisionalOne()
    {
        TradeCalendar calendar = TradeCalendar::builtIn();
        QCOMPARE(calendar.day(shanghai(), QDate(2027, 5, 3)), Day::Closed);
        QCOMPARE(calendar.add(Headings + "mainland,2027-01-01,元旦,announced\n"), Status());
        QCOMPARE(calendar.day(shanghai(), QDate(2027, 5, 3)), Day::Trades);
        QVERIFY(calendar.tradeDays(shanghai(), QDate(2027, 1, 1)));
        QCOMPARE(log().linesWith(QtInfoMsg, QStringLiteral("尚未公布")).size(), 0);
    }

    void aTableThatLeavesOutAYearIsRefused()
    {
        TradeCalendar calendar = TradeCalendar::builtIn();
        QCOMPARE(calendar.add(Headings + "mainland,2029-01-01,元旦,announced\n"),
            Status(Error::ClosureYearMissing, { QStringLiteral("内地"), QStringLiteral("2028") }));
        QCOMPARE(calendar.lastKnownDay(shanghai()), QDate(2027, 12, 31));
    }

    void theLastKnownDayIsThatOfAllMarkets()
    {
        TradeCalendar calendar = TradeCalendar::builtIn();
        QCOMPARE(calendar.add(Headings + "mainland,2028-01-03,元旦,announced\n"), Status());
        QCOMPARE(calendar.lastKnownDay(shanghai()), QDate(2028, 12, 31));
        QCOMPARE(calendar.lastKnownDay(), QDate(2027, 12, 31));
    }

    void theUsersFilesApplyAfterTheSystems()
    {
        const QTemporaryDir folder;
        qputenv("XDG_DATA_DIRS", QFile::encodeName(folder.filePath(QStringLiteral("system"))));
        qputenv("XDG_DATA_HOME", QFile::encodeName(folder.filePath(QStringLiteral("user"))));
        QCOMPARE(ClosureFiles::present(), QStringList());
        const QString source = folder.filePath(QStringLiteral("2028.csv"));
        QVERIFY(write(source, NextYear));
        QCOMPARE(*ClosureFiles::install(source), QDate(2028, 12, 31));
        const QString system = folder.filePath(QStringLiteral("system/plandesk/calendar/z.csv"));
        QVERIFY(write(system, NextYear));
        const QString user = folder.filePath(QStringLiteral("user/plandesk/calendar/2028.csv"));
        QCOMPARE(ClosureFiles::present(), (QStringList{ system, user }));
        QCOMPARE(*ClosureFiles::read(user), NextYear);
    }

    void aFileThatIsNotATableOfClosuresIsNotInstalled()
    {
        const QTemporaryDir folder;
        qputenv("XDG_DATA_HOME", QFile::encodeName(folder.path()));
        const QString source = folder.filePath(QStringLiteral("bad.csv"));
        const auto refused = [&](const Status& cause) {
            return Status(Error::ClosureFileUnreadable, { source }, cause);
        };
        QCOMPARE(ClosureFiles::install(source).status(), refused(Error::NotAFile));
        QVERIFY(write(source, "a,b\n"));
        QCOMPARE(ClosureFiles::install(source).status().cause().error(), Error::NoClosureHeadings);
        QVERIFY(write(source, QByteArray(int(ClosureFiles::MaxSize) + 1, ' ')));
        QCOMPARE(ClosureFiles::install(source).status(),
            refused({ Error::FileTooLarge, { QString::number(ClosureFiles::MaxSize) } }));
        QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("plandesk/calendar/bad.csv"))));
    }

    void aFileThatIsLeftOutIsReported()
    {
        const QTemporaryDir folder;
        qputenv("XDG_DATA_DIRS", QFile::encodeName(folder.filePath(QStringLiteral("system"))));
        qputenv("XDG_DATA_HOME", QFile::encodeName(folder.path()));
        ClosureFiles::reload();
        QCOMPARE(checkCalendar(QDate(2027, 10, 1)), Status());
        const QString bad = folder.filePath(QStringLiteral("plandesk/calendar/bad.csv"));
        QVERIFY(write(bad, "a,b\n"));
        log().expectWarning(QStringLiteral("bad.csv"));
        ClosureFiles::reload();
        const Status missing = ClosureFiles::status();
        QCOMPARE(missing.error(), Error::ClosureFileUnreadable);
        QCOMPARE(missing.details(), QStringList{ bad });
        QCOMPARE(missing.cause().error(), Error::NoClosureHeadings);
        QCOMPARE(checkCalendar(QDate(2027, 10, 1)), missing);
        QVERIFY(QFile::remove(bad));
        ClosureFiles::reload();
        QCOMPARE(checkCalendar(QDate(2027, 10, 1)), Status());
    }

    void theEndIsAnnounced90DaysBefore()
    {
        const QString last = QStringLiteral("2027-12-31");
        QCOMPARE(checkCalendar(QDate(2027, 10, 1)), Status());
        QCOMPARE(checkCalendar(QDate(2027, 10, 2)), Status(Error::CalendarEnds, { last, QStringLiteral("90") }));
        QCOMPARE(checkCalendar(QDate(2027, 12, 31)), Status(Error::CalendarEnds, { last, QStringLiteral("0") }));
        QCOMPARE(checkCalendar(QDate(2028, 1, 1)), Status(Error::CalendarEnded, { last }));
    }

    void todayIsTheMarketsDayInEveryZone_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QDateTime>("now");
        QTest::addColumn<QDate>("local");
        QTest::addColumn<QDate>("day");
        const auto row = [](const char* name, const QByteArray& zone, QTime utc, QDate local, QDate day) {
            QTest::newRow(name) << zone << QDateTime(QDate(2024, 5, 6), utc, Qt::UTC) << local << day;
        };
        const QDate fifth(2024, 5, 5);
        const QDate sixth(2024, 5, 6);
        const QDate seventh(2024, 5, 7);
        row("west, before the market's midnight", LosAngeles, QTime(15, 59, 59), sixth, sixth);
        row("west, after the market's midnight", LosAngeles, QTime(16, 0), sixth, seventh);
        row("west, before its own midnight", LosAngeles, QTime(6, 59, 59), fifth, sixth);
        row("west, after its own midnight", LosAngeles, QTime(7, 0), sixth, sixth);
        row("east, before its own midnight", Kiritimati, QTime(9, 59, 59), sixth, sixth);
        row("east, after its own midnight", Kiritimati, QTime(10, 0), seventh, sixth);
        row("east, after the market's midnight", Kiritimati, QTime(16, 0), seventh, seventh);
    }

    void todayIsTheMarketsDayInEveryZone()
    {
        QFETCH(QByteArray, zone);
        QFETCH(QDateTime, now);
        const MachineZone machine(zone);
        QTEST(now.toLocalTime().date(), "local");
        setClientTime(now.toLocalTime());
        QTEST(clientToday(), "day");
        setClientTime(QDateTime());
        QCOMPARE(clientToday(), marketDay(QDateTime::currentDateTimeUtc()));
        useMarketTime();
        QTEST(now.toLocalTime().date(), "day");
    }

    void withoutHongKongClosuresConnectIsUnknown()
    {
        TradeCalendar calendar;
        QCOMPARE(calendar.add(Headings + "mainland,2026-01-01,元旦,announced\n"), Status());
        QCOMPARE(calendar.tradeDays(hongKongConnect(), QDate(2026, 1, 5)).status().error(), Error::NoCalendar);
    }
};

QTEST_GUILESS_MAIN(TradeCalendarTest)
#include "tst_trade_calendar.moc"
