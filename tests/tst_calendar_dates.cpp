#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "ClientFormTest.h"
#include "EditorForm.h"
#include "OrloDateEdit.h"
#include "TestStatus.h"

#include <QtTest>

namespace {

const QDate Friday(2024, 5, 10);
const QDate Monday(2024, 5, 13);
const QDate Tuesday(2024, 5, 14);

QString isoText(const QDate& day)
{
    return day.toString(Qt::ISODate);
}

} // namespace

/// The editor in the real client on difficult calendar days, and with a clock that is set back.
class CalendarDatesTest : public ClientFormTest {
    Q_OBJECT

private:
    const OrloDateEdit& range() const { return *field<OrloDateEdit>(editor(), "date_effectivePeriod_Multi"); }

    /// Stores a plan with a period on a day, and leaves the clock at that day.
    QString createdOn(const QDate& day, const QDate& begin, const QDate& end)
    {
        goTo(day);
        return store(ordinary(), { isoText(begin), isoText(end) });
    }

private Q_SLOTS:
    void initTestCase() { startSession(); }
    void cleanupTestCase() { endSession(); }

    void aPlanBeginsOnTheNextTradeDay_data()
    {
        QTest::addColumn<QDate>("day");
        QTest::addColumn<QDate>("first");
        QTest::addColumn<QDate>("second");
        QTest::newRow("a Friday") << Friday << Monday << Tuesday;
        QTest::newRow("a Saturday") << QDate(2024, 5, 11) << Monday << Tuesday;
        QTest::newRow("a Sunday on which offices work and exchanges do not")
            << QDate(2024, 4, 28) << QDate(2024, 4, 29) << QDate(2024, 4, 30);
        QTest::newRow("the last trade day before the spring festival")
            << QDate(2024, 2, 8) << QDate(2024, 2, 19) << QDate(2024, 2, 20);
        QTest::newRow("the last trade day before the national holiday")
            << QDate(2024, 9, 30) << QDate(2024, 10, 8) << QDate(2024, 10, 9);
        QTest::newRow("within the national holiday") << QDate(2024, 10, 3) << QDate(2024, 10, 8) << QDate(2024, 10, 9);
        QTest::newRow("the day before 29 February") << QDate(2024, 2, 28) << QDate(2024, 2, 29) << QDate(2024, 3, 1);
        QTest::newRow("29 February") << QDate(2024, 2, 29) << QDate(2024, 3, 1) << QDate(2024, 3, 4);
        QTest::newRow("28 February of a year without a 29th")
            << QDate(2025, 2, 28) << QDate(2025, 3, 3) << QDate(2025, 3, 4);
        QTest::newRow("30 December") << QDate(2024, 12, 30) << QDate(2024, 12, 31) << QDate(2025, 1, 2);
        QTest::newRow("31 December") << QDate(2024, 12, 31) << QDate(2025, 1, 2) << QDate(2025, 1, 3);
        QTest::newRow("1 January") << QDate(2025, 1, 1) << QDate(2025, 1, 2) << QDate(2025, 1, 3);
        QTest::newRow("2 January") << QDate(2025, 1, 2) << QDate(2025, 1, 3) << QDate(2025, 1, 6);
        QTest::newRow("30 November") << QDate(2024, 11, 30) << QDate(2024, 12, 2) << QDate(2024, 12, 3);
    }

    void aPlanBeginsOnTheNextTradeDay()
    {
        QFETCH(QDate, day);
        QFETCH(QDate, first);
        QFETCH(QDate, second);
        goTo(day);
        open();
        QCOMPARE(range().GetStartDate(), first);
        QCOMPARE(range().GetEndDate(), first);
        PlanForm form = ordinary();
        form.endSteps = 1;
        driver().fill(form);
        QCOMPARE(ok(), created());
        QCOMPARE(differences(newestPlan(), form, { isoText(first), isoText(second) }), QString());
        // The cleared form starts with that day again.
        QCOMPARE(range().GetStartDate(), first);

        const PlanForm reduction = ordinary().reducing(QStringLiteral("0.0125"), Executor);
        driver().fill(reduction);
        QCOMPARE(ok(), created());
        QCOMPARE(differences(newestPlan(), reduction, { isoText(first), QString() }), QString());
    }

    void aDatabaseCanBeMadeOnAnyDay_data()
    {
        QTest::addColumn<QDate>("day");
        QTest::newRow("a Friday") << Friday;
        QTest::newRow("before the spring festival") << QDate(2024, 2, 8);
        QTest::newRow("after the spring festival") << QDate(2024, 2, 19);
        QTest::newRow("29 February") << QDate(2024, 2, 29);
        QTest::newRow("31 December") << QDate(2024, 12, 31);
        QTest::newRow("1 January") << QDate(2025, 1, 1);
        QTest::newRow("the last day that the calendar knows") << QDate(2027, 12, 31);
        QTest::newRow("a day after the calendar") << QDate(2029, 3, 1);
    }

    void aDatabaseCanBeMadeOnAnyDay()
    {
        QFETCH(QDate, day);
        QVERIFY(session().reopen());
        const QTemporaryDir folder;
        goTo(day);
        ClientSession::Options options;
        options.marketSize = 200;
        const QString file = folder.filePath(QStringLiteral("plans.db"));
        QCOMPARE(ClientSession::instance().open(file, QString(), {}, options), Status());
        QCOMPARE(ClientSession::instance().open(file, QString()), Status());
        goTo(SampleSession::today());
        QCOMPARE(session().reopen(), Status());
    }

    void aClockSetBackBeforeSendingDoesNotAffectNewPlans()
    {
        goTo(Friday);
        open();
        driver().fill(ordinary());
        goTo(Friday.addDays(-9));
        QCOMPARE(ok(), created());
        QCOMPARE(differences(newestPlan(), ordinary(), { isoText(Monday), isoText(Monday) }), QString());
        // The dates of the next plan are relative to the new day.
        open();
        QCOMPARE(range().GetStartDate(), QDate(2024, 5, 6));
    }

    // The plan began on Monday and was opened on Tuesday; then the machine's clock went back to the Friday before.
    void aClockSetBackReopensAPlanThatHadBegun()
    {
        const QString id = createdOn(Friday, Monday, Tuesday);
        goTo(Tuesday);
        openPlan(id, true);
        QCOMPARE(range().GetStartDate(), Monday);
        goTo(Friday);
        openPlan(id, true);
        QCOMPARE(range().GetStartDate(), Monday);
        QCOMPARE(range().GetEndDate(), Tuesday);
        driver().stepDate("date_effectivePeriod_Multi", "le_end", 1);
        QCOMPARE(ok(), modified(id));
        QCOMPARE(differences(id, ordinary(), { isoText(Monday), isoText(Tuesday.addDays(1)) }), QString());
    }

    void aClockSetBackWhileAPlanIsEditedChangesNothingThatIsShown()
    {
        const QString id = createdOn(Friday, Monday, Tuesday);
        goTo(Tuesday);
        openPlan(id, true);
        goTo(Friday);
        QCOMPARE(range().GetStartDate(), Monday);
        PlanForm form = ordinary();
        form.remark = QStringLiteral("later");
        driver().type("le_remark", form.remark);
        QCOMPARE(ok(), modified(id));
        QCOMPARE(differences(id, form, { isoText(Monday), isoText(Tuesday) }), QString());
    }

    // The form was opened on Friday, when Monday could still be moved; it is sent on Monday.
    void aDayThatPassesWhileAPlanIsEditedKeepsItsBegin()
    {
        const QDate end = Tuesday.addDays(3);
        const QString id = createdOn(Friday, Monday, end);
        openPlan(id, true);
        driver().stepDate("date_effectivePeriod_Multi", "le_start", 1);
        QCOMPARE(range().GetStartDate(), Tuesday);
        goTo(Monday);
        QCOMPARE(ok(), QStringList{ QStringLiteral("msgBoxWarning: 计划已开始执行，初始日期不支持修改！") });
        QCOMPARE(differences(id, ordinary(), { isoText(Monday), isoText(end) }), QString());
        // The service refuses it, too.
        QMap<QString, QVariant> moved = AutoPlanLogic::instance().GetPlanInfo(id);
        moved.insert(AutoPlanField::BaseField::beginDate, isoText(Tuesday));
        QCOMPARE(AutoPlanLogic::instance().modifyPlan(moved), QStringLiteral("计划已开始执行，开始日期不支持修改"));
    }
};

QTEST_MAIN(CalendarDatesTest)
#include "tst_calendar_dates.moc"
