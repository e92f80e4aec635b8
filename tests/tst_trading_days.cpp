#include "TradingDays.h"

#include <QtTest>

namespace {

/// The days of May 2024 with these numbers.
QList<QDate> may(const QList<int>& days)
{
    QList<QDate> dates;
    for (const int day : days)
        dates.append(QDate(2024, 5, day));
    return dates;
}

} // namespace

class TradingDaysTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void daysWithoutTradeAreThoseThatTheListLeavesOut_data()
    {
        QTest::addColumn<QDate>("first");
        QTest::addColumn<QDate>("last");
        QTest::addColumn<QList<QDate>>("tradeDates");
        QTest::addColumn<QList<QDate>>("left");
        QTest::newRow("a week: its weekend")
            << QDate(2024, 5, 7) << QDate(2024, 5, 13) << may({ 7, 8, 9, 10, 13 }) << may({ 11, 12 });
        QTest::newRow("a holiday within the week too")
            << QDate(2024, 5, 7) << QDate(2024, 5, 10) << may({ 7, 10 }) << may({ 8, 9 });
        QTest::newRow("nothing where every day trades")
            << QDate(2024, 5, 7) << QDate(2024, 5, 9) << may({ 7, 8, 9 }) << may({});
        QTest::newRow("every day of an empty list")
            << QDate(2024, 5, 7) << QDate(2024, 5, 8) << may({}) << may({ 7, 8 });
        QTest::newRow("one day that does not trade")
            << QDate(2024, 5, 11) << QDate(2024, 5, 11) << may({ 10 }) << may({ 11 });
        QTest::newRow("one day that trades") << QDate(2024, 5, 10) << QDate(2024, 5, 10) << may({ 10 }) << may({});
        QTest::newRow("nothing where the last day lies before the first")
            << QDate(2024, 5, 10) << QDate(2024, 5, 9) << may({ 1 }) << may({});
        QTest::newRow("across the end of a leap February")
            << QDate(2024, 2, 28) << QDate(2024, 3, 1) << QList<QDate>{ QDate(2024, 2, 28), QDate(2024, 3, 1) }
            << QList<QDate>{ QDate(2024, 2, 29) };
    }

    void daysWithoutTradeAreThoseThatTheListLeavesOut()
    {
        QFETCH(QDate, first);
        QFETCH(QDate, last);
        QFETCH(QList<QDate>, tradeDates);
        QFETCH(QList<QDate>, left);
        QCOMPARE(daysWithoutTrade(first, last, tradeDates), left);
    }

    void theFirstTradingDayIsSomeDaysAhead_data()
    {
        QTest::addColumn<QDate>("today");
        QTest::addColumn<QList<QDate>>("tradeDates");
        QTest::addColumn<int>("offset");
        QTest::newRow("tomorrow") << QDate(2024, 5, 6) << may({ 6, 7, 8 }) << 1;
        QTest::newRow("on Friday the next Monday") << QDate(2024, 5, 10) << may({ 9, 10, 13 }) << 3;
        QTest::newRow("after a long holiday") << QDate(2024, 5, 1) << may({ 1, 31 }) << 30;
        QTest::newRow("today itself does not count") << QDate(2024, 5, 6) << may({ 6, 9 }) << 3;
        QTest::newRow("an empty list stands for every day") << QDate(2024, 5, 6) << may({}) << 1;
        QTest::newRow("a list out of order") << QDate(2024, 5, 6) << may({ 20, 8, 1, 9 }) << 2;
    }

    void theFirstTradingDayIsSomeDaysAhead()
    {
        QFETCH(QDate, today);
        QFETCH(QList<QDate>, tradeDates);
        QFETCH(int, offset);
        QCOMPARE(firstTradingDayOffset(today, tradeDates), offset);
    }

    void aListWithoutALaterDateHasNoFirstTradingDay_data()
    {
        QTest::addColumn<QList<QDate>>("tradeDates");
        QTest::newRow("it ends yesterday") << may({ 2, 3 });
        QTest::newRow("it ends today") << may({ 3, 6 });
    }

    void aListWithoutALaterDateHasNoFirstTradingDay()
    {
        QFETCH(QList<QDate>, tradeDates);
        QCOMPARE(firstTradingDayOffset(QDate(2024, 5, 6), tradeDates), 0);
    }
};

QTEST_GUILESS_MAIN(TradingDaysTest)
#include "tst_trading_days.moc"
