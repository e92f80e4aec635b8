#include "EditorTest.h"
#include "OrloDateEdit.h"
#include "PlanForm.h"

#include <QtTest>

namespace {

const QString Account = QStringLiteral("acc1");
const QString ShanghaiStock = QStringLiteral("600000.K_SH");
const QString ShenzhenStock = QStringLiteral("000001.K_SZ");
const QString Unknown = QStringLiteral("999999.K_SH");

using Dates = QList<QDate>;

/// The days of May 2024 with these numbers.
Dates may(const QList<int>& days)
{
    Dates dates;
    for (const int day : days)
        dates.append(QDate(2024, 5, day));
    return dates;
}

QString readable(const Dates& dates)
{
    QStringList parts;
    for (const QDate& date : dates)
        parts.append(date.toString(Qt::ISODate));
    return QLatin1Char('[') + parts.join(QStringLiteral(", ")) + QLatin1Char(']');
}

/// What is told to the two date editors when the first trading day, the last day of the range and the excluded dates
/// are these.
QStringList told(const QDate& first, const QDate& last, const Dates& excluded)
{
    const QString from = first.toString(Qt::ISODate);
    return {
        QStringLiteral("date_effectivePeriod_Multi.SetExceptDateList(%1)").arg(readable(excluded)),
        QStringLiteral("date_effectivePeriod_Single.SetExceptDateList(%1)").arg(readable(excluded)),
        QStringLiteral("date_effectivePeriod_Multi.SetMinDate(%1)").arg(from),
        QStringLiteral("date_effectivePeriod_Multi.SetMaxDate(%1)").arg(last.toString(Qt::ISODate)),
        QStringLiteral("date_effectivePeriod_Multi.SetStartEndDate(%1, %1)").arg(from),
        QStringLiteral("date_effectivePeriod_Single.SetMinDate(%1)").arg(from),
        QStringLiteral("date_effectivePeriod_Single.SetMaxDate(%1)").arg(first.addMonths(3).toString(Qt::ISODate)),
        QStringLiteral("date_effectivePeriod_Single.SetDate(%1)").arg(from),
    };
}

} // namespace

class tst_effective_period : public EditorTest {
    Q_OBJECT

private Q_SLOTS:
    void theDateEditorsOfferTradingDaysOnly_data();
    void theDateEditorsOfferTradingDaysOnly();
    void withoutACalendarEveryDayFromTomorrowIsOffered_data();
    void withoutACalendarEveryDayFromTomorrowIsOffered();
    void aCalendarThatHasRunOutCountsAsNone_data();
    void aCalendarThatHasRunOutCountsAsNone();
    void eachExchangeHasItsOwnCalendar_data();
    void eachExchangeHasItsOwnCalendar();
    void aNewFormHasItsDatesBeforeAnySecurityIsChosen();
    void leavingAnEditedPlanSetsTheDatesAfresh();
    void theCalendarIsLogged();
    void aClearedFormStartsOnTheFirstTradingDay_data();
    void aClearedFormStartsOnTheFirstTradingDay();

private:
    void open();
    QStringList periodCalls() const;
};

void tst_effective_period::open()
{
    script().addOrdinaryAccount(Account);
    script().addStock(ShanghaiStock);
    script().addStock(ShenzhenStock);
    constructShown();
    script().forget();
    log().clear();
}

/// The calls from the question for the calendar on.
QStringList tst_effective_period::periodCalls() const
{
    const QStringList asked = script().callsOf(QStringLiteral("GetTradeDateList"));
    if (asked.isEmpty())
        return {};
    return script().calls.mid(script().calls.indexOf(asked.constFirst()));
}

void tst_effective_period::theDateEditorsOfferTradingDaysOnly_data()
{
    QTest::addColumn<QDate>("day");
    QTest::addColumn<Dates>("tradeDates");
    QTest::addColumn<QDate>("first");
    QTest::addColumn<QDate>("last");
    QTest::addColumn<Dates>("excluded");
    QTest::newRow("tomorrow is the first day") << QDate(2024, 5, 6) << may({ 6, 7, 8, 9, 10, 13 }) << QDate(2024, 5, 7)
                                               << QDate(2024, 5, 13) << may({ 11, 12 });
    QTest::newRow("on Friday, with the next Monday listed")
        << QDate(2024, 5, 10) << may({ 9, 10, 13, 14 }) << QDate(2024, 5, 13) << QDate(2024, 5, 14) << may({ 11, 12 });
    QTest::newRow("on a Saturday") << QDate(2024, 5, 11) << may({ 10, 13 }) << QDate(2024, 5, 13) << QDate(2024, 5, 13)
                                   << may({ 12 });
    QTest::newRow("a long holiday ahead") << QDate(2024, 4, 30) << Dates{ QDate(2024, 4, 30), QDate(2024, 5, 6) }
                                          << QDate(2024, 5, 6) << QDate(2024, 5, 6) << may({ 1, 2, 3, 4, 5 });
    QTest::newRow("tomorrow is the only day left")
        << QDate(2024, 5, 6) << may({ 6, 7 }) << QDate(2024, 5, 7) << QDate(2024, 5, 7) << may({});
    QTest::newRow("days before today do not matter")
        << QDate(2024, 5, 6) << may({ 1, 2, 8 }) << QDate(2024, 5, 8) << QDate(2024, 5, 8) << may({ 7 });
    QTest::newRow("three months from the end of November end in February")
        << QDate(2024, 11, 29) << Dates{ QDate(2024, 11, 30), QDate(2024, 12, 1) } << QDate(2024, 11, 30)
        << QDate(2024, 12, 1) << may({});
}

void tst_effective_period::theDateEditorsOfferTradingDaysOnly()
{
    QFETCH(QDate, day);
    QFETCH(Dates, tradeDates);
    QFETCH(QDate, first);
    QFETCH(QDate, last);
    QFETCH(Dates, excluded);
    open();
    setToday(day);
    script().tradeDates = tradeDates;
    chooseSecurity(editor(), ShanghaiStock);
    QCOMPARE(periodCalls(),
        QStringList(QStringLiteral("GetTradeDateList(k_Exchange_sh, \"\")")) + told(first, last, excluded));
    QCOMPARE(field<OrloDateEdit>(editor(), "date_effectivePeriod_Multi")->GetStartDate(), first);
    QCOMPARE(field<OrloDateEdit>(editor(), "date_effectivePeriod_Multi")->GetEndDate(), first);
    QCOMPARE(field<OrloDateEdit>(editor(), "date_effectivePeriod_Single")->GetDate(), first);
    QCOMPARE(log().linesWith(QtWarningMsg, QString()).size(), 0);
}

void tst_effective_period::withoutACalendarEveryDayFromTomorrowIsOffered_data()
{
    QTest::addColumn<QDate>("day");
    QTest::addColumn<Dates>("tradeDates");
    QTest::addColumn<QString>("error");
    QTest::addColumn<QDate>("first");
    QTest::addColumn<QDate>("last");
    QTest::newRow("an empty list") << QDate(2024, 5, 10) << may({}) << QString() << QDate(2024, 5, 11)
                                   << QDate(2024, 8, 11);
    QTest::newRow("an error and an empty list")
        << QDate(2024, 5, 10) << may({}) << QStringLiteral("日历未就绪") << QDate(2024, 5, 11) << QDate(2024, 8, 11);
    QTest::newRow("an error, although days are listed: the first of them, and no other restriction") << QDate(
        2024, 5, 10) << may({ 13, 14 }) << QStringLiteral("日历未就绪") << QDate(2024, 5, 13) << QDate(2024, 8, 11);
    QTest::newRow("three months end in February")
        << QDate(2024, 11, 29) << may({}) << QString() << QDate(2024, 11, 30) << QDate(2025, 2, 28);
    QTest::newRow("three months end in a leap February")
        << QDate(2023, 11, 29) << may({}) << QString() << QDate(2023, 11, 30) << QDate(2024, 2, 29);
}

void tst_effective_period::withoutACalendarEveryDayFromTomorrowIsOffered()
{
    QFETCH(QDate, day);
    QFETCH(Dates, tradeDates);
    QFETCH(QString, error);
    QFETCH(QDate, first);
    QFETCH(QDate, last);
    open();
    setToday(day);
    script().tradeDates = tradeDates;
    script().tradeDatesError = error;
    log().expectWarning(QStringLiteral("AutoParamSetting::InitDateEffectivePeriod"));
    chooseSecurity(editor(), ShanghaiStock);
    QCOMPARE(
        periodCalls(), QStringList(QStringLiteral("GetTradeDateList(k_Exchange_sh, \"\")")) + told(first, last, {}));
    const QList<LogLine> warnings = log().linesWith(QtWarningMsg, QString());
    QCOMPARE(warnings.size(), 1);
    const QString text = warnings.constFirst().text;
    QVERIFY2(text.startsWith(QStringLiteral("AutoParamSetting::InitDateEffectivePeriod")), qPrintable(text));
    QVERIFY2(text.contains(QStringLiteral("k_Exchange_sh")), qPrintable(text));
    QVERIFY2(text.contains(error), qPrintable(text));
    QVERIFY2(text.endsWith(QString::number(tradeDates.size())), qPrintable(text));
}

void tst_effective_period::aCalendarThatHasRunOutCountsAsNone_data()
{
    QTest::addColumn<Dates>("tradeDates");
    QTest::newRow("it ended before today") << may({ 2, 3 });
    QTest::newRow("it ends today") << may({ 3, 6 });
}

void tst_effective_period::aCalendarThatHasRunOutCountsAsNone()
{
    QFETCH(Dates, tradeDates);
    open();
    script().tradeDates = tradeDates;
    log().expectWarning(QStringLiteral("AutoParamSetting::InitDateEffectivePeriod"));
    chooseSecurity(editor(), ShanghaiStock);
    QCOMPARE(periodCalls(),
        QStringList(QStringLiteral("GetTradeDateList(k_Exchange_sh, \"\")"))
            + told(QDate(2024, 5, 7), QDate(2024, 8, 7), {}));
    QCOMPARE(log().linesWith(QtWarningMsg, QString()).size(), 1);
}

void tst_effective_period::eachExchangeHasItsOwnCalendar_data()
{
    QTest::addColumn<QString>("symbol");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QDate>("first");
    QTest::newRow("a Shanghai security") << ShanghaiStock << QStringLiteral("GetTradeDateList(k_Exchange_sh, \"\")")
                                         << QDate(2024, 5, 8);
    QTest::newRow("a Shenzhen security") << ShenzhenStock << QStringLiteral("GetTradeDateList(k_Exchange_sz, \"\")")
                                         << QDate(2024, 5, 9);
    QTest::newRow("a security that nobody knows")
        << Unknown << QStringLiteral("GetTradeDateList(\"\", \"\")") << QDate(2024, 5, 10);
}

void tst_effective_period::eachExchangeHasItsOwnCalendar()
{
    QFETCH(QString, symbol);
    QFETCH(QString, asked);
    QFETCH(QDate, first);
    open();
    script().tradeDates = [](const QString& exchange) {
        return exchange == Kelvo_Values::Exchange::sh ? may({ 8 })
            : exchange == Kelvo_Values::Exchange::sz  ? may({ 9 })
                                                      : may({ 10 });
    };
    chooseSecurity(editor(), symbol);
    QCOMPARE(script().callsOf(QStringLiteral("GetTradeDateList")), QStringList(asked));
    QCOMPARE(field<OrloDateEdit>(editor(), "date_effectivePeriod_Multi")->GetStartDate(), first);
}

void tst_effective_period::aNewFormHasItsDatesBeforeAnySecurityIsChosen()
{
    setToday(QDate(2024, 5, 10));
    script().addOrdinaryAccount(Account);
    script().addOrdinaryAccount(QStringLiteral("acc2"));
    script().tradeDates = may({ 10, 13, 14 });
    constructShown();
    QCOMPARE(script().callsOf(QStringLiteral("GetTradeDateList")),
        QStringList(QStringLiteral("GetTradeDateList(k_Exchange_sh, \"\")")));
    QCOMPARE(periodCalls().mid(1, 8), told(QDate(2024, 5, 13), QDate(2024, 5, 14), may({ 11, 12 })));
}

void tst_effective_period::leavingAnEditedPlanSetsTheDatesAfresh()
{
    open();
    script().tradeDates = may({ 9 });
    chooseSecurity(editor(), ShenzhenStock);
    script().forget();
    setToday(QDate(2024, 5, 9));
    script().tradeDates = may({ 9, 10 });
    editor().resetEnable();
    QCOMPARE(script().callsOf(QStringLiteral("GetTradeDateList")),
        QStringList(QStringLiteral("GetTradeDateList(k_Exchange_sz, \"\")")));
    QCOMPARE(periodCalls().mid(1, 8), told(QDate(2024, 5, 10), QDate(2024, 5, 10), {}));
}

void tst_effective_period::theCalendarIsLogged()
{
    open();
    script().tradeDates = may({ 7, 8, 9 });
    chooseSecurity(editor(), ShenzhenStock);
    const QList<LogLine> lines =
        log().linesWith(QtDebugMsg, QStringLiteral("AutoParamSetting::InitDateEffectivePeriod"));
    QCOMPARE(lines.size(), 1);
    const QString text = lines.constFirst().text;
    QVERIFY2(text.startsWith(QStringLiteral("AutoParamSetting::InitDateEffectivePeriod")), qPrintable(text));
    QVERIFY2(text.contains(ShenzhenStock), qPrintable(text));
    QVERIFY2(text.contains(Kelvo_Values::Exchange::sz), qPrintable(text));
    QVERIFY2(text.endsWith(QStringLiteral(" 3")), qPrintable(text));
    QVERIFY(!lines.constFirst().file.isEmpty());
    QVERIFY(lines.constFirst().line > 0);
    QVERIFY(lines.constFirst().function.contains(QStringLiteral("InitDateEffectivePeriod")));
}

void tst_effective_period::aClearedFormStartsOnTheFirstTradingDay_data()
{
    QTest::addColumn<QDate>("day");
    QTest::addColumn<Dates>("tradeDates");
    QTest::addColumn<int>("offset");
    QTest::newRow("one day ahead") << QDate(2024, 5, 6) << may({ 7, 8 }) << 1;
    QTest::newRow("three days ahead, over a weekend") << QDate(2024, 5, 10) << may({ 10, 13 }) << 3;
    QTest::newRow("six days ahead, over a holiday")
        << QDate(2024, 4, 30) << Dates{ QDate(2024, 4, 30), QDate(2024, 5, 6) } << 6;
}

void tst_effective_period::aClearedFormStartsOnTheFirstTradingDay()
{
    QFETCH(QDate, day);
    QFETCH(Dates, tradeDates);
    QFETCH(int, offset);
    setToday(day);
    script().tradeDates = tradeDates;
    open();
    fillPlan(editor(), ShanghaiStock);
    // The form is cleared on another day than the one on which the offset was found.
    setToday(QDate(2024, 6, 3));
    script().forget();
    press(editor(), "btn_ok");
    QCOMPARE(script().createdRecords.size(), 1);
    const QString date = QDate(2024, 6, 3).addDays(offset).toString(Qt::ISODate);
    QCOMPARE(script().callsOf(QStringLiteral("date_effectivePeriod_Multi.SetStartEndDate")),
        QStringList(QStringLiteral("date_effectivePeriod_Multi.SetStartEndDate(%1, %1)").arg(date)));
    QCOMPARE(script().callsOf(QStringLiteral("date_effectivePeriod_Single.SetDate")),
        QStringList(QStringLiteral("date_effectivePeriod_Single.SetDate(%1)").arg(date)));
}

QTEST_MAIN(tst_effective_period)
#include "tst_effective_period.moc"
