// What a user should look at, and what happened on a day: missed days, alerts and the journal, from the stored data.
#include "AlertCalendar.h"
#include "AutoPlanField.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "InstructionIssuer.h"
#include "JournalStore.h"
#include "Kelvo_Fields.h"
#include "MissedDays.h"
#include "PlanCodes.h"
#include "PlanStates.h"
#include "SessionTest.h"

#include <QtTest>

namespace BaseField = AutoPlanField::BaseField;
using namespace PlanCodes;

namespace {

const QDate Monday = SampleSession::today();
const QString Trader = QStringLiteral("trader01");

/// For tests that compare what a list has.
QStringList kindsOf(const QVector<Alert>& alerts)
{
    static const QStringList names{ QStringLiteral("failed"), QStringLiteral("missed"), QStringLiteral("ends"),
        QStringLiteral("changed") };
    QStringList texts;
    for (const Alert& alert : alerts)
        texts << QStringLiteral("%1 %2 %3").arg(names.at(static_cast<int>(alert.kind)), alert.plan.id, alert.subject);
    return texts;
}

QMap<QString, QVariant> unusable(const QMap<QString, QVariant>& record)
{
    return customPrice(record, QStringLiteral("1-1"));
}

} // namespace

class AlertsTest : public SessionTest {
    Q_OBJECT

private Q_SLOTS:
    // --- Missed days

    void aDayWithoutInstructionAndRefusalIsMissed()
    {
        const QString missed = session().create(SampleSession::record());
        const QString refused = createUnchecked(unusable(SampleSession::record()));
        QVERIFY(missedDays(missed, Monday).isEmpty());
        QCOMPARE(missedDays(missed, Monday.addDays(1)), QVector<QDate>{ Monday });
        QCOMPARE(InstructionIssuer::issueDay(Monday)->issued.size(), 1);
        QVERIFY(missedDays(missed, Monday.addDays(1)).isEmpty());
        QVERIFY(missedDays(refused, Monday.addDays(1)).isEmpty());
        const QVector<QDate> both{ Monday.addDays(1), Monday.addDays(2) };
        QCOMPARE(missedDays(missed, Monday.addDays(3)), both);
        // After the weekend, the last day of the period is the last one that was missed.
        QCOMPARE(missedDays(missed, Monday.addDays(8)).size(), 4);
        QCOMPARE(lastMissed(missed, Monday.addDays(8)), Monday.addDays(4));
    }

    void aDayOnWhichAPlanWasNotActiveIsNotMissed()
    {
        const QString plan = session().create(SampleSession::record());
        setState(plan, PlanState::Paused);
        QVERIFY(missedDays(plan, Monday.addDays(2)).isEmpty());
        setClientToday(Monday.addDays(2));
        setState(plan, PlanState::Active);
        QVERIFY(missedDays(plan, Monday.addDays(2)).isEmpty());
        QCOMPARE(missedDays(plan, Monday.addDays(3)), QVector<QDate>{ Monday.addDays(2) });
    }

    void aPlanThatIsCreatedAfterTheCloseIsDueOnTheNextDay()
    {
        setClientTime(QDateTime(Monday, QTime(15, 0), Qt::OffsetFromUTC, 8 * 3600));
        const QString late = session().create(SampleSession::record());
        setClientTime(QDateTime(Monday, QTime(14, 59), Qt::OffsetFromUTC, 8 * 3600));
        const QString early = session().create(SampleSession::record());
        QVERIFY(missedDays(late, Monday.addDays(1)).isEmpty());
        QCOMPARE(missedDays(early, Monday.addDays(1)), QVector<QDate>{ Monday });
        QCOMPARE(kindsOf(alertsOn(Monday.addDays(1))), QStringList(alert("missed", early, Monday)));
    }

    void aCompletedPlanThatIsChangedWasNotMissedMeanwhile()
    {
        const QString plan = session().create(SampleSession::record());
        QCOMPARE(InstructionIssuer::issueDay(Monday)->issued.size(), 1);
        QCOMPARE(
            ClientSession::instance().plans().complete(*ClientSession::instance().plans().plan(plan), Monday, now()),
            Status());
        QVERIFY(missedDays(plan, Monday.addDays(3)).isEmpty());
        setClientToday(Monday.addDays(3));
        const StoredPlan stored = *ClientSession::instance().plans().plan(plan);
        QCOMPARE(ClientSession::instance().plans().modify(
                     plan, stored.version, with(stored.record, BaseField::totalQty, QStringLiteral("3000")), now()),
            Status());
        QVERIFY(missedDays(plan, Monday.addDays(3)).isEmpty());
        QCOMPARE(missedDays(plan, Monday.addDays(4)), QVector<QDate>{ Monday.addDays(3) });
    }

    void thePreviewTellsOfAMissedDayAndDoesNotCatchUp()
    {
        const QString plan = session().create(SampleSession::record());
        const QDate tuesday = Monday.addDays(1);
        DayIssue day(ClientSession::instance().database(), InstructionIssuer::scene(tuesday));
        const auto goOn = [](int) { return true; };
        const auto rows = *day.preview({ plan }, goOn);
        QCOMPARE(rows.at(0).missed, Monday);
        QCOMPARE(rows.at(0).order.quantity, 300LL);
        QCOMPARE(day.issue({ plan }, goOn).issued.size(), 1);
        QCOMPARE(ClientSession::instance().instructions().ofPlan(plan)->size(), 1);
        DayIssue next(ClientSession::instance().database(), InstructionIssuer::scene(tuesday.addDays(1)));
        QCOMPARE(next.preview({ plan }, goOn)->at(0).missed, QDate());
    }

    // --- Alerts

    void alertsOfEachKind()
    {
        const QString failed = createUnchecked(unusable(SampleSession::record()));
        const QString missed =
            session().create(with(SampleSession::record(), BaseField::endDate, QStringLiteral("2024-05-08")));
        const QString sound = session().create(SampleSession::record());
        QVERIFY(alertsOn(Monday).isEmpty());
        issue({ failed, sound }, Monday);
        QCOMPARE(kindsOf(alertsOn(Monday)), QStringList(alert("failed", failed, Monday)));
        const QDate tuesday = Monday.addDays(1);
        // On Tuesday, the failed plan is not missed, and the other one ends on the next day.
        QCOMPARE(kindsOf(alertsOn(tuesday)),
            (QStringList{ alert("failed", failed, Monday), alert("missed", missed, Monday),
                alert("ends", missed, Monday.addDays(2)) }));
        QCOMPARE(alertsOn(tuesday).at(0).text, QStringLiteral("公式的结果不大于零"));
        QCOMPARE(alertsOn(tuesday).at(0).plan.record.value(Kelvo_Fields::UserAccount::tradingAccount).toString(),
            QStringLiteral("100001"));
    }

    void thePlansOfAFridayEndOnTheNextTradeDay()
    {
        const QString plan =
            createUnchecked(with(with(SampleSession::record(), BaseField::beginDate, QStringLiteral("2024-05-10")),
                BaseField::endDate, QStringLiteral("2024-05-13")));
        QVERIFY(alertsOn(Monday.addDays(3)).isEmpty());
        QCOMPARE(kindsOf(alertsOn(Monday.addDays(4))), QStringList(alert("ends", plan, QDate(2024, 5, 13))));
    }

    void aPlanEndsUntilItsLastDayIsOver()
    {
        const QDate last(2024, 5, 13);
        const QString plan =
            createUnchecked(with(with(SampleSession::record(), BaseField::beginDate, QStringLiteral("2024-05-13")),
                BaseField::endDate, QStringLiteral("2024-05-13")));
        QCOMPARE(kindsOf(alertsOn(last)), QStringList(alert("ends", plan, last)));
        QCOMPARE(kindsOf(alertsOn(last.addDays(1))), QStringList(alert("missed", plan, last)));
    }

    void aChangeBySomeoneElseIsAnAlert()
    {
        const QString plan = session().create(SampleSession::record());
        const QString other = session().create(SampleSession::record());
        changeAs(Trader, other);
        QVERIFY(alertsOn(Monday).isEmpty());
        changeAs(QStringLiteral("trader03"), plan);
        QCOMPARE(kindsOf(alertsOn(Monday)), QStringList(QStringLiteral("changed %1 2").arg(plan)));
        QCOMPARE(alertsOn(Monday).at(0).text, QStringLiteral("trader03"));
        changeAs(QStringLiteral("trader03"), plan);
        QCOMPARE(kindsOf(alertsOn(Monday)), QStringList(QStringLiteral("changed %1 3").arg(plan)));
        changeAs(Trader, plan);
        QVERIFY(alertsOn(Monday).isEmpty());
    }

    void anAlertIsWorkedOffOnceByEachUser()
    {
        const QString plan =
            createUnchecked(unusable(with(SampleSession::record(), BaseField::expectedUser, QStringLiteral("顾湫"))));
        issue({ plan }, Monday);
        const QVector<Alert> alerts = alertsOn(Monday);
        QCOMPARE(alerts.size(), 1);
        QCOMPARE(store().setDone(alerts), Status());
        QCOMPARE(store().setDone(alerts), Status());
        QVERIFY(alertsOn(Monday).isEmpty());
        // Another failed day is another alert.
        issue({ plan }, Monday.addDays(1));
        QCOMPARE(kindsOf(alertsOn(Monday.addDays(1))), QStringList(alert("failed", plan, Monday.addDays(1))));
        QCOMPARE(store().setDone(alertsOn(Monday.addDays(1))), Status());
        QCOMPARE(session().reopen(QStringLiteral("reviewer04")), Status());
        QCOMPARE(kindsOf(alertsOn(Monday.addDays(1))), QStringList(alert("failed", plan, Monday.addDays(1))));
    }

    void aStoppedPlanHasNoAlert()
    {
        const QString plan = session().create(SampleSession::record());
        QCOMPARE(alertsOn(Monday.addDays(1)).size(), 1);
        setState(plan, PlanState::Stopped);
        QVERIFY(alertsOn(Monday.addDays(1)).isEmpty());
    }

    void alertsAreLimited()
    {
        for (int i = 0; i < 3; ++i)
            session().create(SampleSession::record());
        QCOMPARE(store().alerts(alertDays(ClientSession::instance().calendar(), Monday.addDays(1)), 2)->size(), 2);
    }

    // --- The journal

    void theJournalHasWhatHappenedOnADay()
    {
        const QString failed = createUnchecked(unusable(SampleSession::record()));
        const QString sound = session().create(SampleSession::record());
        issue({ failed, sound }, Monday);
        setState(sound, PlanState::Paused);
        const QVector<JournalEntry> entries = journal({ Monday, QString(), 0, 100 });
        QCOMPARE(entries.size(), 3);
        using Kind = JournalEntry::Kind;
        QCOMPARE(entries.at(0).kind, Kind::Refusal);
        QCOMPARE(entries.at(0).plan.id, failed);
        QCOMPARE(entries.at(0).reason, QStringLiteral("公式的结果不大于零"));
        QCOMPARE(entries.at(0).user, Trader);
        QCOMPARE(entries.at(1).kind, Kind::Instruction);
        QCOMPARE(entries.at(1).instruction, sound + QStringLiteral("-000001"));
        QCOMPARE(entries.at(1).fields.value(FieldId::IssuedQty).toString(), QStringLiteral("300"));
        QCOMPARE(entries.at(1).user, Trader);
        QCOMPARE(entries.at(1).time, clientNow());
        QCOMPARE(entries.at(2).kind, Kind::StateChange);
        QCOMPARE(entries.at(2).before, PlanState::Active);
        QCOMPARE(entries.at(2).after, PlanState::Paused);
        QVERIFY(journal({ Monday.addDays(1), QString(), 0, 100 }).isEmpty());
        QVERIFY(journal({ Monday, QStringLiteral("100002"), 0, 100 }).isEmpty());
        QCOMPARE(journal({ Monday, QStringLiteral("100001"), 0, 100 }).size(), 3);
    }

    void theJournalIsInTheOrderOfTimes()
    {
        const QString first = session().create(SampleSession::record());
        const QString second = session().create(SampleSession::record());
        const auto at = [](int hour) { setClientTime(QDateTime(Monday, QTime(hour, 0), Qt::OffsetFromUTC, 8 * 3600)); };
        at(10);
        setState(second, PlanState::Paused);
        at(11);
        issue({ first }, Monday);
        at(13);
        setState(second, PlanState::Active);
        at(14);
        issue({ second }, Monday);
        QStringList plans;
        const auto entries = journal({ Monday, QString(), 0, 100 });
        for (const JournalEntry& entry : entries)
            plans << entry.plan.id;
        QCOMPARE(plans, (QStringList{ second, first, second, second }));
        QCOMPARE(entries.at(3).kind, JournalEntry::Kind::Instruction);
    }

    void theJournalIsReadInPages()
    {
        QStringList plans;
        for (int i = 0; i < 5; ++i)
            plans << session().create(SampleSession::record());
        issue(plans, Monday);
        const JournalPage page{ Monday, QString(), 3, 3 };
        QCOMPARE(*journalStore().count(page), 5);
        const QVector<JournalEntry> entries = journal(page);
        QCOMPARE(entries.size(), 2);
        QCOMPARE(entries.at(0).plan.id, plans.at(3));
    }

    void aDamagedEntryIsNotShownAsAnotherState_data()
    {
        QTest::addColumn<QString>("after");
        QTest::newRow("no state") << QStringLiteral("{\"state\":\"gone\"}");
        QTest::newRow("nothing") << QStringLiteral("{}");
    }

    void aDamagedEntryIsNotShownAsAnotherState()
    {
        QFETCH(QString, after);
        session().create(SampleSession::record());
        Database database;
        QCOMPARE(database.open(session().ownersFile()), Status());
        const Result<qint64> number = database.insert(
            QStringLiteral("INSERT INTO history (event, plan, version, before, after, \"user\", time, client)"
                           " VALUES ('state changed', 1, 1, '{\"state\":\"active\"}', ?, ?, ?, 'c') RETURNING number"),
            { after, Trader, QStringLiteral("2024-05-06T02:00:00.000Z") });
        QCOMPARE(number.status(), Status());
        const Status damaged(Error::DamagedHistory, { QString::number(*number) });
        QCOMPARE(journalStore().page({ Monday, QString(), 0, 100 }).status(), damaged);
    }

    void theJournalHasOnlyPlansThatTheUserSees()
    {
        issue({ session().create(SampleSession::record()) }, Monday);
        QCOMPARE(session().reopen(QStringLiteral("trader03")), Status());
        QVERIFY(journal({ Monday, QString(), 0, 100 }).isEmpty());
    }

    void aChangeInTheEveningIsOfItsDayAtTheMarket()
    {
        const QString plan = session().create(SampleSession::record());
        setClientTime(QDateTime(Monday, QTime(0, 0), Qt::OffsetFromUTC, 8 * 3600));
        setState(plan, PlanState::Paused);
        setClientTime(QDateTime(Monday, QTime(23, 59, 59, 999), Qt::OffsetFromUTC, 8 * 3600));
        setState(plan, PlanState::Active);
        setClientTime(QDateTime(Monday.addDays(1), QTime(0, 0), Qt::OffsetFromUTC, 8 * 3600));
        setState(plan, PlanState::Paused);
        QCOMPARE(journal({ Monday, QString(), 0, 100 }).size(), 2);
        QCOMPARE(journal({ Monday.addDays(1), QString(), 0, 100 }).size(), 1);
    }

private:
    static Database& database() { return ClientSession::instance().database(); }
    static Change now() { return ClientSession::instance().changeNow(); }
    static AlertStore store() { return { database(), ClientSession::instance().user() }; }
    static JournalStore journalStore() { return { database(), ClientSession::instance().user() }; }

    static QVector<JournalEntry> journal(const JournalPage& page) { return *journalStore().page(page); }

    static QVector<Alert> alertsOn(const QDate& day)
    {
        return *store().alerts(alertDays(ClientSession::instance().calendar(), day), 100);
    }

    static QString alert(const char* kind, const QString& plan, const QDate& day)
    {
        return QStringLiteral("%1 %2 %3").arg(QLatin1String(kind), plan, day.toString(Qt::ISODate));
    }

    static QVector<QDate> missedDays(const QString& planId, const QDate& today)
    {
        const StoredPlan plan = *ClientSession::instance().plans().plan(planId);
        InstructionStore instructions = ClientSession::instance().instructions();
        QSet<QDate> handled;
        const auto issued = *instructions.ofPlan(planId);
        for (const InstructionStore::Fields& fields : issued)
            handled << QDate::fromString(fields.value(FieldId::TradeDate).toString(), Qt::ISODate);
        const QList<QDate> refused = instructions.daysOf(planId)->refusals.keys();
        for (const QDate& day : refused)
            handled << day;
        return MissedDays::of(plan, handled, ClientSession::instance().calendar(), today);
    }

    static QDate lastMissed(const QString& planId, const QDate& today)
    {
        const StoredPlan plan = *ClientSession::instance().plans().plan(planId);
        const QDate last = ClientSession::instance().instructions().progress({ planId })->value(planId).lastDay;
        return MissedDays::last(plan, last, ClientSession::instance().calendar(), today);
    }

    /// Creates a plan that the plan service would refuse.
    static QString createUnchecked(const QMap<QString, QVariant>& record)
    {
        return *ClientSession::instance().plans().create(record, now());
    }

    static void issue(const QStringList& plans, const QDate& day)
    {
        QVERIFY(DayIssue(database(), InstructionIssuer::scene(day)).issue(plans, [](int) { return true; }).failure);
    }

    static void setState(const QString& plan, PlanState state)
    {
        const ClientSession& client = ClientSession::instance();
        PlanStates states(database(), client.user(), client.calendar(), clientToday());
        const auto changes = states.set({ plan }, state, QStringLiteral("r"), [](int) { return true; });
        QCOMPARE(changes.changed, QStringList(plan));
    }

    /// As the owner, who may write in the name of another user.
    void changeAs(const QString& user, const QString& planId) const
    {
        Database file;
        QCOMPARE(file.open(session().ownersFile()), Status());
        PlanStore plans(file);
        const StoredPlan stored = *plans.plan(planId);
        const auto record = with(stored.record, BaseField::totalQty, QString::number(3000 + stored.version * 100));
        QCOMPARE(plans.modify(planId, stored.version, record, { user, clientNow() }), Status());
    }
};

QTEST_GUILESS_MAIN(AlertsTest)
#include "tst_alerts.moc"
