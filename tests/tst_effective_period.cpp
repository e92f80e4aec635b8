#include "EditorTest.h"
#include "Kelvo_Values.h"
#include "OrloDateEdit.h"

#include <QtTest>

namespace {

using Dates = QList<QDate>;

/// The days of May 2024 with these numbers.
Dates may(const QList<int>& days)
{
    Dates dates;
    for (const int day : days)
        dates.append(QDate(2024, 5, day));
    return dates;
}

/// The calls of the two date editors for a first trading day, a last day of the range and excluded dates.
QStringList expectedCalls(const QDate& first, const QDate& last, const Dates& excluded)
{
    QVariantList withoutTrade;
    for (const QDate& date : excluded)
        withoutTrade.append(date);
    return lines(R"(
        date_effectivePeriod_Multi.SetExceptDateList(EXCLUDED)
        date_effectivePeriod_Single.SetExceptDateList(EXCLUDED)
        date_effectivePeriod_Multi.SetMinDate(FIRST)
        date_effectivePeriod_Multi.SetMaxDate(LAST)
        date_effectivePeriod_Multi.SetStartEndDate(FIRST, FIRST)
        date_effectivePeriod_Single.SetMinDate(FIRST)
        date_effectivePeriod_Single.SetMaxDate(MONTHS)
        date_effectivePeriod_Single.SetDate(FIRST))")
        .replaceInStrings(QStringLiteral("EXCLUDED"), readable(withoutTrade))
        .replaceInStrings(QStringLiteral("FIRST"), readable(first))
        .replaceInStrings(QStringLiteral("LAST"), readable(last))
        .replaceInStrings(QStringLiteral("MONTHS"), readable(first.addMonths(3)));
}

} // namespace

/// The days on which a plan may take effect.
class EffectivePeriodTest : public EditorTest {
    Q_OBJECT

private:
    /// The calls after the one question for the calendar.
    QStringList periodCalls() const
    {
        const QStringList asked = script().callsOf(QStringLiteral("GetTradeDateList"));
        if (asked.size() != 1)
            return asked;
        return script().calls.mid(script().calls.indexOf(asked.constFirst()) + 1, 8);
    }

private Q_SLOTS:
    void theDateEditorsOfferTradingDaysOnly_data()
    {
        QTest::addColumn<QDate>("day");
        QTest::addColumn<Dates>("tradeDates");
        QTest::addColumn<QDate>("first");
        QTest::addColumn<QDate>("last");
        QTest::addColumn<Dates>("excluded");
        const auto row = [](const char* name, const QDate& day, const Dates& tradeDates, const QDate& first,
                             const QDate& last, const Dates& excluded) {
            QTest::newRow(name) << day << tradeDates << first << last << excluded;
        };
        row("tomorrow is the first day", { 2024, 5, 6 }, may({ 6, 7, 8, 9, 10, 13 }), { 2024, 5, 7 }, { 2024, 5, 13 },
            may({ 11, 12 }));
        row("on Friday, with the next Monday listed", { 2024, 5, 10 }, may({ 9, 10, 13, 14 }), { 2024, 5, 13 },
            { 2024, 5, 14 }, may({ 11, 12 }));
        row("on a Saturday", { 2024, 5, 11 }, may({ 10, 13 }), { 2024, 5, 13 }, { 2024, 5, 13 }, may({ 12 }));
        row("a long holiday ahead", { 2024, 4, 30 }, { QDate(2024, 4, 30), QDate(2024, 5, 6) }, { 2024, 5, 6 },
            { 2024, 5, 6 }, may({ 1, 2, 3, 4, 5 }));
        row("tomorrow is the only day left", { 2024, 5, 6 }, may({ 6, 7 }), { 2024, 5, 7 }, { 2024, 5, 7 }, {});
        row("days before today do not matter", { 2024, 5, 6 }, may({ 1, 2, 8 }), { 2024, 5, 8 }, { 2024, 5, 8 },
            may({ 7 }));
        row("three months from the end of November end in February", { 2024, 11, 29 },
            { QDate(2024, 11, 30), QDate(2024, 12, 1) }, { 2024, 11, 30 }, { 2024, 12, 1 }, {});
    }

    void theDateEditorsOfferTradingDaysOnly()
    {
        QFETCH(QDate, day);
        QFETCH(Dates, tradeDates);
        QFETCH(QDate, first);
        QFETCH(QDate, last);
        QFETCH(Dates, excluded);
        openWithAccount();
        setToday(day);
        script().tradeDates = tradeDates;
        chooseSecurity(editor(), Stock);
        QCOMPARE(periodCalls(), expectedCalls(first, last, excluded));
        QCOMPARE(log().linesWith(QtWarningMsg, QString()).size(), 0);
    }

    void withoutACalendarEveryDayFromTomorrowIsOffered_data()
    {
        QTest::addColumn<QDate>("day");
        QTest::addColumn<Dates>("tradeDates");
        QTest::addColumn<QString>("error");
        QTest::addColumn<QDate>("first");
        QTest::addColumn<QDate>("last");
        const QString error = QStringLiteral("日历未就绪");
        const auto row = [](const char* name, const QDate& day, const Dates& tradeDates, const QString& failure,
                             const QDate& first, const QDate& last) {
            QTest::newRow(name) << day << tradeDates << failure << first << last;
        };
        row("an empty list", { 2024, 5, 10 }, {}, {}, { 2024, 5, 11 }, { 2024, 8, 11 });
        row("an error and an empty list", { 2024, 5, 10 }, {}, error, { 2024, 5, 11 }, { 2024, 8, 11 });
        row("an error, although days are listed: the first of them, and no other restriction", { 2024, 5, 10 },
            may({ 13, 14 }), error, { 2024, 5, 13 }, { 2024, 8, 11 });
        row("three months end in February", { 2024, 11, 29 }, {}, {}, { 2024, 11, 30 }, { 2025, 2, 28 });
        row("three months end in a leap February", { 2023, 11, 29 }, {}, {}, { 2023, 11, 30 }, { 2024, 2, 29 });
        row("a list that ended before today", { 2024, 5, 6 }, may({ 2, 3 }), {}, { 2024, 5, 7 }, { 2024, 8, 7 });
        row("a list that ends today", { 2024, 5, 6 }, may({ 3, 6 }), {}, { 2024, 5, 7 }, { 2024, 8, 7 });
    }

    void withoutACalendarEveryDayFromTomorrowIsOffered()
    {
        QFETCH(QDate, day);
        QFETCH(Dates, tradeDates);
        QFETCH(QString, error);
        QFETCH(QDate, first);
        QFETCH(QDate, last);
        openWithAccount();
        setToday(day);
        script().tradeDates = tradeDates;
        script().tradeDatesError = error;
        log().expectWarning(QStringLiteral("AutoParamSetting::InitDateEffectivePeriod"));
        chooseSecurity(editor(), Stock);
        QCOMPARE(periodCalls(), expectedCalls(first, last, {}));
        const QList<LogLine> warnings = log().linesWith(QtWarningMsg, QString());
        QCOMPARE(warnings.size(), 1);
        const QString text = warnings.constFirst().text;
        // The message about a list that has ended names its last day instead of its exchange.
        const bool ranOut = error.isEmpty() && !tradeDates.isEmpty();
        QVERIFY2(text.contains(ranOut ? tradeDates.constLast().toString(Qt::ISODate) : QStringLiteral("k_Exchange_sh")),
            qPrintable(text));
        QVERIFY2(text.contains(error), qPrintable(text));
    }

    void eachExchangeHasItsOwnCalendar_data()
    {
        QTest::addColumn<QString>("symbol");
        QTest::addColumn<int>("first");
        QTest::newRow("a Shanghai security") << Stock << 8;
        QTest::newRow("a Shenzhen security") << OtherStock << 9;
        QTest::newRow("an unknown security") << Unknown << 10;
    }

    void eachExchangeHasItsOwnCalendar()
    {
        QFETCH(QString, symbol);
        QFETCH(int, first);
        openWithAccount();
        const QMap<QString, int> days{ { Kelvo_Values::Exchange::sh, 8 }, { Kelvo_Values::Exchange::sz, 9 },
            { QString(), 10 } };
        script().tradeDates = [days](const QString& exchange) { return may({ days.value(exchange) }); };
        chooseSecurity(editor(), symbol);
        QCOMPARE(field<OrloDateEdit>(editor(), "date_effectivePeriod_Multi")->GetStartDate(), QDate(2024, 5, first));
    }

    void aNewFormHasItsDatesBeforeAnySecurityIsChosen()
    {
        setToday(QDate(2024, 5, 10));
        script().tradeDates = may({ 10, 13, 14 });
        construct();
        QCOMPARE(script().callsOf(QStringLiteral("GetTradeDateList")), lines("GetTradeDateList(k_Exchange_sh, \"\")"));
        QCOMPARE(periodCalls(), expectedCalls(QDate(2024, 5, 13), QDate(2024, 5, 14), may({ 11, 12 })));
    }

    void leavingAnEditedPlanSetsTheDatesAgain()
    {
        openWithAccount();
        chooseSecurity(editor(), OtherStock);
        script().forget();
        setToday(QDate(2024, 5, 9));
        script().tradeDates = may({ 9, 10 });
        editor().resetEnable();
        QCOMPARE(script().callsOf(QStringLiteral("GetTradeDateList")), lines("GetTradeDateList(k_Exchange_sz, \"\")"));
        QCOMPARE(periodCalls(), expectedCalls(QDate(2024, 5, 10), QDate(2024, 5, 10), {}));
    }

    void theCalendarIsLogged()
    {
        openWithAccount();
        script().tradeDates = may({ 7, 8, 9 });
        chooseSecurity(editor(), OtherStock);
        const QList<LogLine> found =
            log().linesWith(QtDebugMsg, QStringLiteral("AutoParamSetting::InitDateEffectivePeriod"));
        QCOMPARE(found.size(), 1);
        const QString text = found.constFirst().text;
        QVERIFY2(text.contains(OtherStock) && text.contains(Kelvo_Values::Exchange::sz), qPrintable(text));
        QVERIFY2(text.endsWith(QStringLiteral(" 3")), qPrintable(text));
    }

    void aClearedFormStartsOnTheFirstTradingDay_data()
    {
        QTest::addColumn<QDate>("day");
        QTest::addColumn<Dates>("tradeDates");
        QTest::addColumn<int>("offset");
        QTest::newRow("one day ahead") << QDate(2024, 5, 6) << may({ 7, 8 }) << 1;
        QTest::newRow("three days ahead, over a weekend") << QDate(2024, 5, 10) << may({ 10, 13 }) << 3;
        QTest::newRow("six days ahead, over a holiday")
            << QDate(2024, 4, 30) << Dates{ QDate(2024, 4, 30), QDate(2024, 5, 6) } << 6;
    }

    void aClearedFormStartsOnTheFirstTradingDay()
    {
        QFETCH(QDate, day);
        QFETCH(Dates, tradeDates);
        QFETCH(int, offset);
        setToday(day);
        script().tradeDates = tradeDates;
        openSampleMarket();
        constructShown();
        fillForm(editor(), PlanSample());
        // The form is cleared on a later day than the offset was computed.
        setToday(QDate(2024, 6, 3));
        script().forget();
        press(editor(), "btn_ok");
        QCOMPARE(script().createdRecords.size(), 1);
        const QString date = readable(QDate(2024, 6, 3).addDays(offset));
        QCOMPARE(script().callsOf(QStringLiteral("date_effectivePeriod_Multi.SetStartEndDate")),
            QStringList(QStringLiteral("date_effectivePeriod_Multi.SetStartEndDate(%1, %1)").arg(date)));
        QCOMPARE(script().callsOf(QStringLiteral("date_effectivePeriod_Single.SetDate")),
            QStringList(QStringLiteral("date_effectivePeriod_Single.SetDate(%1)").arg(date)));
    }
};

QTEST_MAIN(EffectivePeriodTest)
#include "tst_effective_period.moc"
