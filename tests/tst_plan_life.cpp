// The states of a plan's life: their words, which ones follow which, and changes of several plans.
#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "ClientSession.h"
#include "ErrorText.h"
#include "HistoryStore.h"
#include "HistoryTexts.h"
#include "InstructionIssuer.h"
#include "PlanLife.h"
#include "PlanStates.h"
#include "SessionTest.h"

#include <QtTest>

namespace BaseField = AutoPlanField::BaseField;

Q_DECLARE_METATYPE(PlanState)
Q_DECLARE_METATYPE(StoredPlan)

namespace {

const QString Reason = QStringLiteral("公司公告");

bool goOn(int)
{
    return true;
}

/// A plan of the days from the third to the fifth of a month, seen on the fourth.
StoredPlan planOf(PlanState state, const QDate& completed = {}, int begin = 3, int end = 5)
{
    StoredPlan plan;
    plan.id = QStringLiteral("AP00000007");
    plan.state = state;
    plan.completed = completed;
    plan.record.insert(BaseField::beginDate, QDate(2024, 6, begin).toString(Qt::ISODate));
    plan.record.insert(BaseField::endDate, QDate(2024, 6, end).toString(Qt::ISODate));
    return plan;
}

const QDate Day(2024, 6, 4);

} // namespace

class PlanLifeTest : public SessionTest {
    Q_OBJECT

private Q_SLOTS:
    void stages_data()
    {
        QTest::addColumn<StoredPlan>("plan");
        QTest::addColumn<bool>("lastDayFailed");
        QTest::addColumn<QString>("word");
        const auto row = [](const char* name, const StoredPlan& plan, const char* word, bool lastDayFailed = false) {
            QTest::newRow(name) << plan << lastDayFailed << QString::fromUtf8(word);
        };
        using State = PlanState;
        row("before its first day", planOf(State::Active, {}, 5), "未开始");
        row("on its first day", planOf(State::Active, {}, 4), "进行中");
        row("on its last day", planOf(State::Active, {}, 3, 4), "进行中");
        row("after its last day", planOf(State::Active, {}, 1, 3), "已过期");
        row("without an instruction on its last day", planOf(State::Active), "异常", true);
        row("paused", planOf(State::Paused), "已暂停");
        row("paused after a failed day", planOf(State::Paused), "已暂停", true);
        row("paused before its first day", planOf(State::Paused, {}, 5), "已暂停");
        row("paused after its last day", planOf(State::Paused, {}, 1, 3), "已过期");
        row("completed", planOf(State::Active, Day), "已完成");
        row("completed and after its last day", planOf(State::Active, Day, 1, 3), "已完成");
        row("completed and paused", planOf(State::Paused, Day), "已完成");
        row("stopped", planOf(State::Stopped), "已停止");
        row("stopped after its last day", planOf(State::Stopped, {}, 1, 3), "已停止");
        row("completed and archived", planOf(State::Archived, Day), "已归档");
    }

    void stages()
    {
        QFETCH(StoredPlan, plan);
        QFETCH(bool, lastDayFailed);
        QTEST(PlanLife::word(PlanLife::stage(plan, lastDayFailed, Day)), "word");
    }

    void statesThatFollow_data()
    {
        QTest::addColumn<StoredPlan>("plan");
        QTest::addColumn<QVector<PlanState>>("following");
        using State = PlanState;
        using States = QVector<State>;
        QTest::newRow("not begun") << planOf(State::Active, {}, 5) << States{ State::Paused, State::Stopped };
        QTest::newRow("running") << planOf(State::Active) << States{ State::Paused, State::Stopped };
        QTest::newRow("paused") << planOf(State::Paused) << States{ State::Active, State::Stopped };
        QTest::newRow("completed") << planOf(State::Active, Day) << States{ State::Archived };
        QTest::newRow("expired") << planOf(State::Active, {}, 1, 3) << States{ State::Archived };
        QTest::newRow("paused and expired") << planOf(State::Paused, {}, 1, 3) << States{ State::Archived };
        QTest::newRow("stopped") << planOf(State::Stopped) << States{ State::Archived };
        QTest::newRow("archived") << planOf(State::Archived) << States{};
    }

    void statesThatFollow()
    {
        QFETCH(StoredPlan, plan);
        QFETCH(QVector<PlanState>, following);
        for (const auto state : { PlanState::Active, PlanState::Paused, PlanState::Stopped, PlanState::Archived }) {
            const Status error = PlanLife::stateError(plan, state, Day);
            const QString present = PlanLife::word(PlanLife::stage(plan, false, Day));
            QCOMPARE(error,
                following.contains(state)
                    ? Status()
                    : Status(Error::StateNotPossible, { plan.id, present, PlanLife::word(state) }));
        }
    }

    // --- Several plans

    void eachPlanIsPausedOrRefused()
    {
        const QStringList ids = create(3);
        QCOMPARE(set({ ids.at(1) }, PlanState::Stopped, Reason).changed, QStringList(ids.at(1)));
        const StateChanges changes = set(ids + QStringList{ QStringLiteral("AP00000099") }, PlanState::Paused);
        QCOMPARE(changes.changed, (QStringList{ ids.at(0), ids.at(2) }));
        QCOMPARE(changes.refused.size(), 2);
        QCOMPARE(changes.refused.at(0).planId, ids.at(1));
        QCOMPARE(
            errorText(changes.refused.at(0).reason), QStringLiteral("计划%1已停止，不能变为已暂停").arg(ids.at(1)));
        QCOMPARE(changes.refused.at(1).reason, Status(Error::UnknownPlan, { QStringLiteral("AP00000099") }));
        QCOMPARE(stored(ids.at(0)).state, PlanState::Paused);
        QCOMPARE(stored(ids.at(0)).version, 2);
        QCOMPARE(stored(ids.at(1)).state, PlanState::Stopped);
    }

    void theHistoryTellsWhoStoppedAPlanAndWhy()
    {
        const QString id = create(1).constFirst();
        set({ id }, PlanState::Stopped, Reason);
        const auto entries = *HistoryStore(database()).ofPlan(PlanId::toNumber(id).value_or(0));
        QCOMPARE(entries.size(), 2);
        QCOMPARE(entries.at(1).event, HistoryEvent::StateChanged);
        QCOMPARE(entries.at(1).user, QStringLiteral("trader01"));
        QCOMPARE(entries.at(1).before.value(QStringLiteral("state")).toString(), QStringLiteral("active"));
        QCOMPARE(entries.at(1).after.value(QStringLiteral("state")).toString(), QStringLiteral("stopped"));
        QCOMPARE(entries.at(1).after.value(QStringLiteral("reason")).toString(), Reason);
    }

    void stoppingNeedsAReason_data()
    {
        QTest::addColumn<QString>("reason");
        QTest::addColumn<QString>("message");
        QTest::newRow("none") << QString() << QStringLiteral("请填写停止的原因");
        QTest::newRow("blanks") << QStringLiteral("  ") << QStringLiteral("请填写停止的原因");
        QTest::newRow("too long") << QString(PlanStates::LongestReason + 1, QLatin1Char('x'))
                                  << QStringLiteral("原因最多200个字");
    }

    void stoppingNeedsAReason()
    {
        QFETCH(QString, reason);
        const QString id = create(1).constFirst();
        const auto changes = states().set({ id }, PlanState::Stopped, reason, goOn);
        QTEST(errorText(changes.failure), "message");
        QCOMPARE(stored(id).version, 1);
    }

    void aCancelledChangeKeepsWhatIsDone()
    {
        const QStringList ids = create(102);
        QVector<int> told;
        const auto cancel = [&told](int done) {
            told << done;
            return false;
        };
        const auto changes = states().set(ids, PlanState::Paused, QString(), cancel);
        QVERIFY(changes.cancelled);
        QCOMPARE(told, QVector<int>{ 100 });
        QCOMPARE(changes.changed, ids.mid(0, 100));
        QCOMPARE(stored(ids.at(99)).state, PlanState::Paused);
        QCOMPARE(stored(ids.at(100)).state, PlanState::Active);
        QCOMPARE(set(ids, PlanState::Paused).changed, ids.mid(100));
    }

    void whatWasChangedBeforeAFailureIsReported()
    {
        const QStringList ids = create(101);
        const auto fail = [](int) {
            database().close();
            return true;
        };
        const StateChanges changes = states().set(ids, PlanState::Paused, QString(), fail);
        QCOMPARE(changes.failure, Status(Error::DatabaseNotOpen));
        QCOMPARE(changes.changed, ids.mid(0, 100));
        QVERIFY(!changes.unknown);
    }

    void aPlanOfAnAccountWithoutRightKeepsItsState()
    {
        const QString id = create(1).constFirst();
        QVERIFY(owner([](Database& file) {
            return file.execute(
                QStringLiteral("DELETE FROM order_authorities WHERE \"user\" = ?"), { QStringLiteral("trader01") });
        }));
        const StateChanges changes = set({ id }, PlanState::Paused);
        QCOMPARE(changes.refused.size(), 1);
        QCOMPARE(changes.refused.at(0).reason.error(), Error::NoAuthority);
        QCOMPARE(stored(id).state, PlanState::Active);
    }

    // --- What a state means for a plan

    void onlyActivePlansAreIssued()
    {
        const QStringList ids = create(3);
        set({ ids.at(0) }, PlanState::Paused);
        set({ ids.at(1) }, PlanState::Stopped, Reason);
        QCOMPARE(InstructionIssuer::issueDay(SampleSession::today())->issued,
            QStringList(ids.at(2) + QStringLiteral("-000001")));
        QCOMPARE(set({ ids.at(0) }, PlanState::Active).changed, QStringList(ids.at(0)));
        QCOMPARE(InstructionIssuer::issueDay(SampleSession::today())->issued,
            QStringList(ids.at(0) + QStringLiteral("-000001")));
    }

    void aStoppedPlanIsNotChanged()
    {
        const QString id = create(1).constFirst();
        set({ id }, PlanState::Stopped, Reason);
        AutoPlanLogic& service = AutoPlanLogic::instance();
        const auto opened = service.GetPlanInfo(id);
        QCOMPARE(service.modifyPlan(with(opened, BaseField::totalQty, QStringLiteral("3000"))),
            QStringLiteral("计划%1已停止，不能修改").arg(id));
        QCOMPARE(stored(id).version, 2);
    }

    void aPausedPlanIsChangedAndStaysPaused()
    {
        const QString id = create(1).constFirst();
        set({ id }, PlanState::Paused);
        AutoPlanLogic& service = AutoPlanLogic::instance();
        const auto opened = service.GetPlanInfo(id);
        QCOMPARE(service.modifyPlan(with(opened, BaseField::totalQty, QStringLiteral("3000"))), QString());
        QCOMPARE(stored(id).state, PlanState::Paused);
    }

    void aChangeStartsACompletedPlanAgain()
    {
        const QString id = create(1).constFirst();
        QCOMPARE(ClientSession::instance().plans().complete(
                     stored(id), SampleSession::today(), ClientSession::instance().changeNow()),
            Status());
        const HistoryEntry entry = HistoryStore(database()).ofPlan(PlanId::toNumber(id).value_or(0))->constLast();
        QCOMPARE(entry.event, HistoryEvent::Completed);
        QCOMPARE(entry.version, 1);
        QCOMPARE(HistoryTexts::event(entry), QStringLiteral("全部完成：2024-05-06"));
        QCOMPARE(stored(id).completed, SampleSession::today());
        QCOMPARE(stored(id).version, 1);
        AutoPlanLogic& service = AutoPlanLogic::instance();
        const auto opened = service.GetPlanInfo(id);
        QCOMPARE(service.modifyPlan(with(opened, BaseField::totalQty, QStringLiteral("3000"))), QString());
        QCOMPARE(stored(id).completed, QDate());
    }

    // --- How far a plan has come

    void progressTellsOfTheLastDay()
    {
        const QStringList ids = create(3);
        const QDate today = SampleSession::today();
        QVERIFY(InstructionIssuer::issueDay(today));
        InstructionStore instructions(database());
        const Change change = ClientSession::instance().changeNow();
        QCOMPARE(instructions.refuse(ids.at(1), today.addDays(1), Reason, change), Status());
        QCOMPARE(instructions.refuse(ids.at(1), today.addDays(1), QStringLiteral("另一原因"), change), Status());
        QCOMPARE(instructions.refuse(ids.at(2), today, Reason, change), Status());
        const auto progress = *instructions.progress(ids);
        QCOMPARE(progress.size(), 3);
        QCOMPARE(progress.value(ids.at(0)).used.quantity, 300.0);
        QCOMPARE(progress.value(ids.at(0)).filledQuantity, 300.0);
        QCOMPARE(progress.value(ids.at(0)).lastDay, today);
        QCOMPARE(progress.value(ids.at(0)).refusal, QString());
        QCOMPARE(progress.value(ids.at(1)).lastDay, today.addDays(1));
        QCOMPARE(progress.value(ids.at(1)).refusal, QStringLiteral("另一原因"));
        // An instruction of the same day was issued afterwards.
        QCOMPARE(progress.value(ids.at(2)).refusal, QString());
        QCOMPARE(instructions.daysOf(ids.at(1))->refusals,
            (QMap<QDate, QString>{ { today.addDays(1), QStringLiteral("另一原因") } }));
    }

    void aPlanThatWasNeverIssuedHasNoLastDay()
    {
        const QString id = create(1).constFirst();
        const auto progress = *InstructionStore(database()).progress({ id });
        QVERIFY(progress.contains(id));
        QVERIFY(!progress.value(id).lastDay.isValid());
        QCOMPARE(progress.value(id).used.quantity, 0.0);
    }

private:
    static Database& database() { return ClientSession::instance().database(); }

    static PlanStates states()
    {
        const ClientSession& client = ClientSession::instance();
        return PlanStates(database(), client.user(), client.calendar(), SampleSession::today());
    }

    static StateChanges set(const QStringList& ids, PlanState state, const QString& reason = {})
    {
        return states().set(ids, state, reason, goOn);
    }

    static StoredPlan stored(const QString& id)
    {
        return ClientSession::instance().plans().plan(id).valueOr(StoredPlan());
    }

    QStringList create(int count) const
    {
        QStringList ids;
        for (int i = 0; i < count; ++i)
            ids << session().create(SampleSession::record());
        return ids;
    }

    /// Changes rights, which users cannot.
    Status owner(const std::function<Status(Database&)>& change) const
    {
        Database file;
        const Status opened = file.open(session().ownersFile());
        return opened ? change(file) : opened;
    }
};

QTEST_MAIN(PlanLifeTest)
#include "tst_plan_life.moc"
