// Changes made at the same time, requests sent twice, and the history of plans, on the real client and database.
#include "AgreementStore.h"
#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "ClientSession.h"
#include "ErrorText.h"
#include "FaultCount.h"
#include "HistoryStore.h"
#include "InstructionIssuer.h"
#include "PlanCodes.h"
#include "PlanEvents.h"
#include "PlanSubmission.h"
#include "SessionTest.h"

#include <QCoreApplication>
#include <QSysInfo>
#include <QtTest>

#include <vector>

namespace BaseField = AutoPlanField::BaseField;
using namespace PlanCodes;

namespace {

using Record = QMap<QString, QVariant>;

const QString Colleague = QStringLiteral("trader02");

AutoPlanLogic& service()
{
    return AutoPlanLogic::instance();
}

Change by(const QString& user)
{
    return { user, QDateTime::fromString(QStringLiteral("2024-05-06T10:30:00.000Z"), Qt::ISODateWithMs) };
}

qint64 numberOf(const QString& planId)
{
    return PlanId::toNumber(planId).value_or(0);
}

} // namespace

class PlanHistoryTest : public SessionTest {
    Q_OBJECT

private:
    void tidyUp() override
    {
        m_sent.compare(session().ownersFile());
        QCOMPARE(m_sent.lost(), 0);
        SessionTest::tidyUp();
    }

    SentPlans m_sent{ QStringLiteral("changes at the same time and requests that are sent again") };

private Q_SLOTS:
    // --- A plan that someone else changes meanwhile

    void theSecondOfTwoChangesIsRefused()
    {
        const QString id = session().create(SampleSession::record());
        const Record opened = service().GetPlanInfo(id);
        changeAsColleague(id, 1, QStringLiteral("2000"));

        QCOMPARE(service().modifyPlan(with(opened, BaseField::totalQty, QStringLiteral("3000"))),
            QStringLiteral("计划已被%1于2024-05-06 18:30:00修改（目标总量、备注），本次修改未保存，请核对后重新提交")
                .arg(colleaguesName()));
        QCOMPARE(totalOf(id), QStringLiteral("2000"));
        QCOMPARE(stored(id).version, 2);
    }

    void aRefusalShowsTheThreeContents()
    {
        const QString id = session().create(SampleSession::record());
        const Record opened = service().GetPlanInfo(id);
        changeAsColleague(id, 1, QStringLiteral("2000"));
        changeAsColleague(id, 2, QStringLiteral("2500"));
        std::vector<PlanConflict> conflicts;
        connect(&PlanEvents::instance(), &PlanEvents::planConflict, this,
            [&conflicts](const PlanConflict& conflict) { conflicts.push_back(conflict); });
        QVERIFY(!service().modifyPlan(with(opened, BaseField::totalQty, QStringLiteral("3000"))).isEmpty());
        PlanEvents::instance().disconnect(this);

        QCOMPARE(conflicts.size(), std::size_t(1));
        const PlanConflict& conflict = conflicts.front();
        QCOMPARE(conflict.opened.version, 1);
        QCOMPARE(conflict.opened.record.value(BaseField::totalQty).toString(), QStringLiteral("1000"));
        QCOMPARE(conflict.stored.version, 3);
        QCOMPARE(conflict.stored.record.value(BaseField::totalQty).toString(), QStringLiteral("2500"));
        QCOMPARE(conflict.refused.value(BaseField::totalQty).toString(), QStringLiteral("3000"));
        QCOMPARE(conflict.user, colleaguesName());
        QCOMPARE(conflict.time, by(Colleague).time);
    }

    void readingAgainDoesNotHideAConflict()
    {
        const QString id = session().create(SampleSession::record());
        PlanVersions& versions = ClientSession::instance().versions();
        versions.pin(id, 1);
        changeAsColleague(id, 1, QStringLiteral("2000"));
        const Record changed = with(service().GetPlanInfo(id), BaseField::totalQty, QStringLiteral("3000"));
        QVERIFY(service().modifyPlan(changed).contains(colleaguesName()));
        QCOMPARE(totalOf(id), QStringLiteral("2000"));

        // The host goes on from the version that was shown.
        versions.unpin(id, 1);
        versions.pin(id, 2);
        QCOMPARE(service().modifyPlan(changed), QString());
        QCOMPARE(totalOf(id), QStringLiteral("3000"));
        QCOMPARE(stored(id).version, 3);
        versions.unpin(id, 2);
    }

    void theOlderOfTwoOpenFormsDecides()
    {
        PlanVersions versions;
        versions.note(QStringLiteral("a"), 7);
        QCOMPARE(versions.of(QStringLiteral("a")), 7);
        QCOMPARE(versions.of(QStringLiteral("b")), 0);
        versions.pin(QStringLiteral("a"), 5);
        versions.pin(QStringLiteral("a"), 3);
        versions.pin(QStringLiteral("a"), 5);
        QCOMPARE(versions.of(QStringLiteral("a")), 3);
        versions.unpin(QStringLiteral("a"), 3);
        QCOMPARE(versions.of(QStringLiteral("a")), 5);
        versions.unpin(QStringLiteral("a"), 5);
        QCOMPARE(versions.of(QStringLiteral("a")), 5);
        versions.unpin(QStringLiteral("a"), 5);
        QCOMPARE(versions.of(QStringLiteral("a")), 7);
    }

    void changesOneAfterAnotherAreStored()
    {
        const QString id = session().create(SampleSession::record());
        const Record record = with(SampleSession::record(), BaseField::autoPlanId, id);
        QCOMPARE(service().modifyPlan(with(record, BaseField::totalQty, QStringLiteral("2000"))), QString());
        QCOMPARE(service().modifyPlan(with(record, BaseField::totalQty, QStringLiteral("3000"))), QString());
        QCOMPARE(stored(id).version, 3);
    }

    void aPlanThatWasNotReadIsNotChanged()
    {
        const QString id = session().create(SampleSession::record());
        QCOMPARE(session().reopen(), Status());
        const Record record = with(SampleSession::record(), BaseField::autoPlanId, id);
        QCOMPARE(service().modifyPlan(record), errorText({ Error::PlanNotRead, { id } }));
        service().GetPlanInfo(id);
        QCOMPARE(service().modifyPlan(record), QString());
    }

    void theStoreItselfRefusesAnOldVersion()
    {
        const QString id = session().create(SampleSession::record());
        changeAsColleague(id, 1, QStringLiteral("2000"));
        PlanStore plans = ClientSession::instance().plans();
        QCOMPARE(plans.modify(id, 1, SampleSession::record(), by(Colleague)), Status(Error::PlanIsNewer, { id }));
        QCOMPARE(
            plans.setState(id, 1, PlanState::Paused, QString(), by(Colleague)), Status(Error::PlanIsNewer, { id }));
        QCOMPARE(totalOf(id), QStringLiteral("2000"));
        QCOMPARE(historyOf(id).size(), 2);
    }

    // --- Requests

    void aRequestThatIsSentAgainIsAnsweredWithItsPlan()
    {
        const int before = *ClientSession::instance().plans().count();
        const QString request = PlanRequests::newId();
        const Result<QString> first = PlanSubmission::create(SampleSession::record(), request);
        QCOMPARE(first.status(), Status());
        QCOMPARE(*PlanSubmission::create(SampleSession::record(), request), *first);
        QVERIFY(*PlanSubmission::create(SampleSession::record(), PlanRequests::newId()) != *first);
        QCOMPARE(*ClientSession::instance().plans().count(), before + 2);
    }

    void aRequestOfUnknownOutcomeKeepsItsId()
    {
        PlanRequests requests;
        const Record record = SampleSession::record();
        const QString id = requests.idOf(record);
        QVERIFY(requests.idOf(record) != id);
        requests.keep(id, record);
        QCOMPARE(requests.idOf(record), id);
        const Record other = with(record, BaseField::remark, QStringLiteral("x"));
        const QString otherId = requests.idOf(other);
        QVERIFY(otherId != id);
        requests.keep(otherId, other);
        QCOMPARE(requests.idOf(record), id);
        requests.forget(otherId);
        QVERIFY(requests.idOf(other) != otherId);
        QCOMPARE(requests.idOf(record), id);
        requests.forget(id);
        QVERIFY(requests.idOf(record) != id);
    }

    void aRequestThatIsAnsweredLosesItsId()
    {
        PlanRequests& requests = ClientSession::instance().requests();
        const Record record = SampleSession::record();
        const QString id = requests.idOf(record);
        requests.keep(id, record);
        QCOMPARE(service().CreateNewPlan(record), QString());
        QVERIFY(requests.idOf(record) != id);
    }

    void aChangeThatIsSentAgainIsStoredOnce()
    {
        const QString id = session().create(SampleSession::record());
        const Record changed = with(SampleSession::record(), BaseField::totalQty, QStringLiteral("2000"));
        const QString request = PlanRequests::newId();
        std::optional<PlanConflict> conflict;
        QCOMPARE(PlanSubmission::change(id, 1, changed, request, conflict), Status());
        QCOMPARE(PlanSubmission::change(id, 1, changed, request, conflict), Status());
        QVERIFY(!conflict);
        QCOMPARE(stored(id).version, 2);
        QCOMPARE(historyOf(id).size(), 2);
    }

    void aConflictNamesTheState()
    {
        const QString id = session().create(SampleSession::record());
        const Record opened = service().GetPlanInfo(id);
        pauseAsColleague(id, 1, QString());
        QVERIFY(service().modifyPlan(opened).contains(QStringLiteral("（状态）")));
    }

    // --- History

    void everyChangeOfAPlanIsRecorded()
    {
        const QString id = session().create(SampleSession::record());
        changeAsColleague(id, 1, QStringLiteral("2000"));
        pauseAsColleague(id, 2, QStringLiteral("午间"));

        const auto history = historyOf(id);
        QCOMPARE(history.size(), 3);
        QCOMPARE(history.at(0).event, HistoryEvent::Created);
        QCOMPARE(history.at(0).version, 1);
        QCOMPARE(history.at(0).user, QStringLiteral("trader01"));
        QCOMPARE(history.at(0).before, Record());
        QCOMPARE(history.at(0).after, SampleSession::record());
        QCOMPARE(history.at(1).event, HistoryEvent::Changed);
        QCOMPARE(history.at(1).version, 2);
        QCOMPARE(history.at(1).user, Colleague);
        QCOMPARE(history.at(1).time, by(Colleague).time);
        QCOMPARE(history.at(1).before, SampleSession::record());
        QCOMPARE(history.at(1).after.value(BaseField::totalQty).toString(), QStringLiteral("2000"));
        QCOMPARE(history.at(2).event, HistoryEvent::StateChanged);
        QCOMPARE(history.at(2).version, 3);
        QCOMPARE(history.at(2).before.value(QStringLiteral("state")).toString(), QStringLiteral("active"));
        QCOMPARE(history.at(2).after.value(QStringLiteral("state")).toString(), QStringLiteral("paused"));
        QCOMPARE(history.at(2).after.value(QStringLiteral("reason")).toString(), QStringLiteral("午间"));
        QCOMPARE(history.at(2).client,
            QStringLiteral("%1:%2").arg(QSysInfo::machineHostName()).arg(QCoreApplication::applicationPid()));
    }

    void aPausedPlanIsNotIssued()
    {
        const QString id = session().create(SampleSession::record());
        pauseAsColleague(id, 1, QString());
        const auto issued = InstructionIssuer::issueDay(SampleSession::today());
        QVERIFY(issued);
        QCOMPARE(ClientSession::instance().instructions().ofPlan(id)->size(), 0);
        QCOMPARE(stored(id).state, PlanState::Paused);
    }

    void everyInstructionIsRecorded()
    {
        const QString id = session().create(SampleSession::record());
        QVERIFY(InstructionIssuer::issueDay(SampleSession::today()));
        const auto history = historyOf(id);
        QCOMPARE(history.size(), 2);
        QCOMPARE(history.at(1).event, HistoryEvent::Issued);
        const auto instructions = *ClientSession::instance().instructions().ofPlan(id);
        QCOMPARE(history.at(1).subject, instructions.firstKey());
        QCOMPARE(history.at(1).after, instructions.first());

        const Record ended{ { FieldId::EndState, EndState::Ended } };
        const Change change = ClientSession::instance().changeNow();
        QCOMPARE(ClientSession::instance().instructions().update(id, instructions.firstKey(), ended, change), Status());
        const HistoryEntry last = historyOf(id).constLast();
        QCOMPARE(last.event, HistoryEvent::InstructionChanged);
        QCOMPARE(last.subject, instructions.firstKey());
        const Record running{ { FieldId::EndState, instructions.first().value(FieldId::EndState) } };
        QCOMPARE(last.before, running);
        QCOMPARE(last.after, ended);
    }

    void aSignatureIsRecordedOnce()
    {
        Database database;
        QCOMPARE(database.open(session().ownersFile()), Status());
        AgreementStore agreements(database);
        const QString protocol =
            database.texts(QStringLiteral("SELECT protocol FROM agreements ORDER BY protocol"), {})->value(0);
        for (const QString& user : { QStringLiteral("trader01"), Colleague })
            QCOMPARE(agreements.sign(protocol, QStringLiteral("C77777"), by(user)), Status());
        QCOMPARE(*database.texts(
                     QStringLiteral("SELECT event || ' ' || subject || ' ' || \"user\" || ' ' || CAST(after AS TEXT)"
                                    " FROM history WHERE plan IS NULL AND CAST(after AS TEXT) LIKE '%C77777%'"),
                     {}),
            QStringList(QStringLiteral("signed %1 trader01 {\"client\":\"C77777\"}").arg(protocol)));
    }

    void theNewestEntriesAreRead()
    {
        const QString id = session().create(SampleSession::record());
        for (int version = 1; version < 6; ++version)
            changeAsColleague(id, version, QString::number(1000 * version));
        const auto newest = *HistoryStore(ClientSession::instance().database()).ofPlan(numberOf(id), 2);
        QCOMPARE(newest.size(), 2);
        QCOMPARE(newest.at(0).version, 5);
        QCOMPARE(newest.at(1).version, 6);
    }

    void aDamagedEntryIsReported_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("time");
        const QString usual = QStringLiteral("2024-05-06T10:30:00.000Z");
        QTest::newRow("no JSON") << QStringLiteral("{bad}") << usual;
        QTest::newRow("a number instead of a text") << QStringLiteral("{\"totalQty\":1000}") << usual;
        QTest::newRow("a day that there is not") << QStringLiteral("{}") << QStringLiteral("2024-02-30T10:30:00.000Z");
        QTest::newRow("no time") << QStringLiteral("{}") << QStringLiteral("abcd-ef-ghTij:kl:mn.opqZ");
    }

    void aDamagedEntryIsReported()
    {
        QFETCH(QString, before);
        QFETCH(QString, time);
        const QString id = session().create(SampleSession::record());
        const Record opened = service().GetPlanInfo(id);
        changeAsColleague(id, 1, QStringLiteral("2000"));
        Database database;
        QCOMPARE(database.open(session().ownersFile()), Status());
        const Result<qint64> number = database.insert(
            QStringLiteral("INSERT INTO history (event, plan, version, before, after, \"user\", time, client)"
                           " VALUES ('changed', ?, 2, ?, '{}', 'trader02', ?, 'c') RETURNING number"),
            { numberOf(id), before, time });
        if (!number) {
            // A server refuses what is no JSON or no time.
            QVERIFY(TestDatabase::isOnServer());
            QCOMPARE(number.status().error(), Error::DatabaseFailed);
            return;
        }
        const Status damaged(Error::DamagedHistory, { QString::number(*number) });
        QCOMPARE(HistoryStore(database).ofPlan(numberOf(id)).status(), damaged);
        QCOMPARE(HistoryStore(database).after(numberOf(id), 1).status(), damaged);
        QCOMPARE(service().modifyPlan(opened), errorText(damaged));
    }

    void thePlanOfOthersIsNeitherChangedNorDescribed()
    {
        const QString id = session().create(SampleSession::record());
        changeAsColleague(id, 1, QStringLiteral("2000"));
        QCOMPARE(session().reopen(QStringLiteral("trader09")), Status());
        QCOMPARE(service().GetPlanInfo(id), Record());
        // As if the user had known the plan before.
        ClientSession::instance().versions().note(id, 1);
        int conflicts = 0;
        connect(&PlanEvents::instance(), &PlanEvents::planConflict, this, [&conflicts] { ++conflicts; });
        const Record record = with(SampleSession::record(), BaseField::autoPlanId, id);
        QCOMPARE(service().modifyPlan(record), errorText({ Error::UnknownPlan, { id } }));
        PlanEvents::instance().disconnect(this);
        QCOMPARE(conflicts, 0);
    }

    void theHistoryCannotBeChangedOrDeleted_data()
    {
        QTest::addColumn<QString>("statement");
        QTest::newRow("changed") << QStringLiteral("UPDATE history SET \"user\" = 'x'");
        QTest::newRow("deleted") << QStringLiteral("DELETE FROM history");
        QTest::newRow("replaced") << QStringLiteral("REPLACE INTO history SELECT * FROM history LIMIT 1");
        QTest::newRow("with its plan") << QStringLiteral("DELETE FROM plans");
    }

    void theHistoryCannotBeChangedOrDeleted()
    {
        QFETCH(QString, statement);
        const QString id = session().create(SampleSession::record());
        Database owned;
        QCOMPARE(owned.open(session().ownersFile()), Status());
        QVERIFY(!owned.execute(statement));
        QCOMPARE(historyOf(id).size(), 1);
        QCOMPARE(historyOf(id).at(0).user, QStringLiteral("trader01"));
    }

    void anUnknownEventIsRefused()
    {
        const QString id = session().create(SampleSession::record());
        Database owned;
        QCOMPARE(owned.open(session().ownersFile()), Status());
        const QString insertion = QStringLiteral("INSERT INTO history (event, plan, version, \"user\", time, client)"
                                                 " VALUES ('%1', ?, 1, 'trader01', '2024-05-06T01:30:00.000Z', 'c')");
        const QVariantList plan{ *PlanId::toNumber(id) };
        QVERIFY(!owned.execute(insertion.arg(QStringLiteral("forgotten")), plan));
        QCOMPARE(owned.execute(insertion.arg(QStringLiteral("completed")), plan), Status());
        QCOMPARE(historyOf(id).size(), 2);
    }

private:
    static QString colleaguesName() { return UserStore(ClientSession::instance().database()).user(Colleague)->name; }
    static StoredPlan stored(const QString& id) { return *ClientSession::instance().plans().plan(id); }
    static QString totalOf(const QString& id) { return stored(id).record.value(BaseField::totalQty).toString(); }

    static QVector<HistoryEntry> historyOf(const QString& id)
    {
        return *HistoryStore(ClientSession::instance().database()).ofPlan(numberOf(id));
    }

    /// Another client, who may change every plan.
    void pauseAsColleague(const QString& id, int version, const QString& reason)
    {
        Database other;
        QCOMPARE(other.open(session().ownersFile()), Status());
        QCOMPARE(PlanStore(other).setState(id, version, PlanState::Paused, reason, by(Colleague)), Status());
    }
    void changeAsColleague(const QString& id, int version, const QString& total)
    {
        Database other;
        QCOMPARE(other.open(session().ownersFile()), Status());
        Record record = with(SampleSession::record(), BaseField::totalQty, total);
        record.insert(BaseField::remark, QStringLiteral("改"));
        QCOMPARE(PlanStore(other).modify(id, version, record, by(Colleague)), Status());
    }
};

QTEST_MAIN(PlanHistoryTest)
#include "tst_plan_history.moc"
