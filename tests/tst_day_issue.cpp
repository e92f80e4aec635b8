// What surrounds the instructions of a day: the preview, the bounds of a sale, the reasons that are kept, the hours of
// the markets, and a cancelled issue.
#include "AutoPlanField.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "ErrorText.h"
#include "InstructionIssuer.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"
#include "SecurityStore.h"
#include "SessionTest.h"
#include "TradeHours.h"

#include <QtTest>

#include <algorithm>
#include <ctime>
#include <limits>

namespace BaseField = AutoPlanField::BaseField;
using namespace PlanCodes;

namespace {

using Record = QMap<QString, QVariant>;

const QDate Monday = SampleSession::today();

bool goOn(int)
{
    return true;
}

Record sale(const QString& quantity)
{
    return with(with(SampleSession::withOther(
                         SampleSession::record(), { { AutoPlanField::Progress::CurrentQty, QStringLiteral("0") } }),
                    BaseField::totalQty, quantity),
        BaseField::orderSide, Kelvo_Values::OrderSide::sell);
}

} // namespace

class DayIssueTest : public SessionTest {
    Q_OBJECT

private Q_SLOTS:
    // --- The preview

    void thePreviewIsWhatGoesOut()
    {
        session().create(SampleSession::record());
        session().create(amountPlan(SampleSession::record()));
        session().create(sale(QStringLiteral("500")));
        for (int i = 0; i < 2; ++i) {
            const QDate day = Monday.addDays(i);
            const QVector<IssueRow> rows = previewOf(day);
            // The amount plan spends its amount on the first day, and the sale is done.
            QCOMPARE(rows.size(), i == 0 ? 3 : 1);
            const auto result = InstructionIssuer::issueDay(day);
            QCOMPARE(result->issued.size(), rows.size());
            for (const IssueRow& row : rows) {
                QCOMPARE(row.reason, Status());
                const auto issued = instructionsOf(row.plan.id, day);
                QCOMPARE(issued.value(FieldId::IssuedQty).toString(), QString::number(row.order.quantity));
                QCOMPARE(issued.value(FieldId::IssuedAmount).toString(), QString::number(row.order.issuedYuan, 'f', 2));
            }
        }
    }

    void thePreviewCountsOpenInstructionsAsEnded()
    {
        const Record tight = with(customPrice(SampleSession::record(), QStringLiteral("昨收价*0.95")),
            BaseField::totalQty, QStringLiteral("300"));
        const QString plan = session().create(tight);
        QCOMPARE(InstructionIssuer::issueDay(Monday)->issued.size(), 1);
        QCOMPARE(instructionsOf(plan, Monday).value(FieldId::FilledQty).toString(), QStringLiteral("0"));
        QCOMPARE(previewOf(Monday.addDays(1)).at(0).order.quantity, qint64(300));
    }

    void thePreviewStoresNothing()
    {
        session().create(SampleSession::record());
        session().create(with(SampleSession::record(), BaseField::totalQty, QStringLiteral("50")));
        const QString before = contents();
        QCOMPARE(previewOf(Monday).size(), 2);
        QCOMPARE(contents(), before);
    }

    // --- Sales

    void aSaleIsAtMostWhatMayBeSold()
    {
        QCOMPARE(session().setHoldings(700), Status());
        const QString plan = session().create(sale(QStringLiteral("1000")));
        QVERIFY2(!plan.isEmpty(), qPrintable(session().reason()));
        QCOMPARE(InstructionIssuer::issueDay(Monday)->issued.size(), 1);
        QCOMPARE(instructionsOf(plan, Monday).value(FieldId::IssuedQty).toString(), QStringLiteral("700"));
    }

    void whatOnePlanSellsIsMissingForTheNext()
    {
        QCOMPARE(session().setHoldings(1200), Status());
        const QStringList plans{ session().create(sale(QStringLiteral("1000"))),
            session().create(sale(QStringLiteral("1000"))), session().create(sale(QStringLiteral("1000"))) };
        const auto result = InstructionIssuer::issueDay(Monday);
        QCOMPARE(result->issued.size(), 2);
        QCOMPARE(instructionsOf(plans.at(0), Monday).value(FieldId::IssuedQty).toString(), QStringLiteral("1000"));
        QCOMPARE(instructionsOf(plans.at(1), Monday).value(FieldId::IssuedQty).toString(), QStringLiteral("200"));
        QCOMPARE(result->skipped.at(0).planId, plans.at(2));
        QCOMPARE(result->skipped.at(0).reason, Status(Error::NothingToSell));
    }

    void thePreviewOfManyIsWhatIsIssuedOfThem()
    {
        constexpr int Plans = 1003;
        QCOMPARE(session().setHoldings(1000 * 300 - 200), Status());
        session().create(sale(QStringLiteral("300")));
        QCOMPARE(session().multiply(Plans), Status());
        const QVector<IssueRow> rows = previewOf(Monday);
        QVector<ConfirmedOrder> orders;
        for (const IssueRow& row : rows) {
            if (row.reason)
                orders << ConfirmedOrder::of(row);
        }
        QCOMPARE(orders.size(), 1000);
        QCOMPARE(orders.last().quantity, 100LL);
        DayIssue issue(ClientSession::instance().database(), InstructionIssuer::scene(Monday));
        const IssueResult result = issue.issue(orders, goOn);
        QCOMPARE(result.issued.size(), 1000);
        QCOMPARE(result.skipped.size(), 0);
    }

    // --- What is kept of a day

    void theReasonOfAPlanWithoutAnInstructionIsKept()
    {
        const QString plan = *ClientSession::instance().plans().create(
            customPrice(SampleSession::record(), QStringLiteral("1-1")), ClientSession::instance().changeNow());
        const auto result = InstructionIssuer::issueDay(Monday);
        QCOMPARE(result->skipped.size(), 1);
        const auto reasons = ClientSession::instance().instructions().daysOf(plan)->refusals;
        QCOMPARE(reasons.keys(), QList<QDate>{ Monday });
        QCOMPARE(reasons.value(Monday), errorText(result->skipped.at(0).reason));
    }

    void aClosedMarketIsNoReason()
    {
        const QString plan =
            session().create(with(SampleSession::record(), BaseField::endDate, QStringLiteral("2024-05-13")));
        QCOMPARE(InstructionIssuer::issueDay(QDate(2024, 5, 11))->skipped.size(), 1);
        QVERIFY(ClientSession::instance().instructions().daysOf(plan)->refusals.isEmpty());
    }

    void aPlanWithoutAWholeLotIsCompleted()
    {
        const QString plan = *ClientSession::instance().plans().create(
            with(SampleSession::record(), BaseField::totalQty, QStringLiteral("50")),
            ClientSession::instance().changeNow());
        const auto result = InstructionIssuer::issueDay(Monday);
        QCOMPARE(result->skipped.at(0).reason, Status(Error::NothingLeft));
        QCOMPARE(ClientSession::instance().plans().plan(plan)->completed, Monday);
        QVERIFY(ClientSession::instance().instructions().daysOf(plan)->refusals.isEmpty());
        QVERIFY(previewOf(Monday.addDays(1)).isEmpty());
    }

    // --- Hours

    void marketsTakeOrdersAtTheirHours_data()
    {
        QTest::addColumn<QString>("exchange");
        QTest::addColumn<QTime>("time");
        QTest::addColumn<QString>("message");
        const QString mainland = QStringLiteral("不在该市场的委托时间09:15至15:00内");
        const QString connect = QStringLiteral("不在该市场的委托时间09:00至16:10内");
        const QString sh = Kelvo_Values::Exchange::sh;
        const QString hk = Orlo_Values::Exchange::HkStockCirculation;
        QTest::newRow("before Shanghai opens") << sh << QTime(9, 14, 59) << mainland;
        QTest::newRow("when Shanghai opens") << sh << QTime(9, 15) << QString();
        QTest::newRow("before Shanghai closes") << sh << QTime(14, 59, 59) << QString();
        QTest::newRow("when Shanghai closes") << sh << QTime(15, 0) << mainland;
        QTest::newRow("before connect opens") << hk << QTime(8, 59, 59) << connect;
        QTest::newRow("when connect opens") << hk << QTime(9, 0) << QString();
        QTest::newRow("before connect closes") << hk << QTime(16, 9, 59) << QString();
        QTest::newRow("when connect closes") << hk << QTime(16, 10) << connect;
    }

    void marketsTakeOrdersAtTheirHours()
    {
        QFETCH(QString, exchange);
        QFETCH(QTime, time);
        QTEST(errorText(TradeHours::check(exchange, time)), "message");
    }

    void nothingIsIssuedTodayWhenTheMarketIsClosed()
    {
        const QString plan = session().create(SampleSession::record());
        setClientTime(QDateTime(Monday, QTime(15, 0), Qt::OffsetFromUTC, 8 * 3600));
        const auto result = InstructionIssuer::issueDay(Monday, IssueMode::Live);
        QCOMPARE(result->issued, QStringList());
        QCOMPARE(result->skipped.at(0).reason.error(), Error::OutsideTradeHours);
        QVERIFY(ClientSession::instance().instructions().daysOf(plan)->refusals.isEmpty());
        setClientTime(QDateTime(Monday, QTime(14, 59), Qt::OffsetFromUTC, 8 * 3600));
        QCOMPARE(InstructionIssuer::issueDay(Monday, IssueMode::Live)->issued.size(), 1);
    }

    void aSimulationNeedsNoOpenMarketToday()
    {
        session().create(SampleSession::record());
        setClientTime(QDateTime(Monday, QTime(20, 0), Qt::OffsetFromUTC, 8 * 3600));
        QCOMPARE(previewOf(Monday).at(0).reason, Status());
        QCOMPARE(InstructionIssuer::issueDay(Monday, IssueMode::Simulated)->issued.size(), 1);
    }

    void onlyTodayIsIssuedLive()
    {
        session().create(SampleSession::record());
        const auto result = InstructionIssuer::issueDay(Monday.addDays(1), IssueMode::Live);
        QCOMPARE(result->issued, QStringList());
        QCOMPARE(result->skipped.at(0).reason.error(), Error::NotToday);
        QCOMPARE(InstructionIssuer::liveError(Monday), Status());
        QCOMPARE(errorText(InstructionIssuer::liveError(Monday.addDays(1))),
            QStringLiteral("2024-05-07不是今天（2024-05-06），只能模拟下达"));
    }

    // --- A long issue

    void aCancelledIssueIsContinuedByAskingAgain()
    {
        constexpr int PlansOfFirstPart = 500;
        session().create(SampleSession::record());
        QCOMPARE(session().multiply(PlansOfFirstPart + 2), Status());
        DayIssue issue(ClientSession::instance().database(), InstructionIssuer::scene(Monday));
        QVector<int> told;
        const auto cancel = [&told](int done) {
            told << done;
            return false;
        };
        IssueResult result = issue.issue(issue.plans()->due, cancel);
        QVERIFY(result.cancelled);
        QCOMPARE(result.failure, Status());
        QCOMPARE(result.issued.size(), PlansOfFirstPart);
        QCOMPARE(told, QVector<int>{ PlansOfFirstPart });
        QCOMPARE(issue.plans()->issued.size(), PlansOfFirstPart);
        result = issue.issue(issue.plans()->due, goOn);
        QVERIFY(!result.cancelled);
        QCOMPARE(result.issued.size(), 2);
        QVERIFY(issue.plans()->due.isEmpty());
    }

    void onlyTheChosenPlansAreIssued()
    {
        const QString chosen = session().create(SampleSession::record());
        session().create(SampleSession::record());
        DayIssue issue(ClientSession::instance().database(), InstructionIssuer::scene(Monday));
        const QString later =
            session().create(with(SampleSession::record(), BaseField::beginDate, QStringLiteral("2024-05-07")));
        const IssueResult result = issue.issue({ chosen, later }, goOn);
        QCOMPARE(result.issued, QStringList(chosen + QStringLiteral("-000001")));
        QCOMPARE(result.skipped.size(), 0);
        QCOMPARE(issue.issue({ chosen }, goOn).alreadyIssued, QStringList(chosen));
    }

    // Four times as many plans take four times as long, or sixteen times if each is compared with all.
    void issuingADayAgainTakesTimeInProportionToItsPlans()
    {
        session().create(SampleSession::record());
        const std::clock_t some = timeOfIssuingAgain(1024);
        const std::clock_t many = timeOfIssuingAgain(4096);
        QVERIFY(some > 0 && many > 0);
        QVERIFY2(many < 9 * some, qPrintable(QStringLiteral("%1, %2").arg(some).arg(many)));
    }

private:
    /// The processor time of this program, the shortest of some measurements: on a busy machine, longer work is
    /// interrupted more often.
    std::clock_t timeOfIssuingAgain(int plans) const
    {
        Database file;
        if (!file.open(session().ownersFile()))
            return 0;
        const QString columns = QStringLiteral("version, creator, created_time, changed_time, plan_type,"
                                               " instruction_type, trading_account, symbol, side, begin_date,"
                                               " end_date, fields");
        const QString copies = QStringLiteral("INSERT INTO plans (%1) SELECT %1 FROM plans").arg(columns);
        while (file.value(QStringLiteral("SELECT count(*) FROM plans"))->toInt() < plans) {
            if (!file.execute(copies))
                return 0;
        }
        const QString issued = QStringLiteral("INSERT INTO instructions (plan, position, day) SELECT number, 1,"
                                              " '2024-05-06' FROM plans WHERE TRUE ON CONFLICT DO NOTHING");
        if (!file.execute(issued))
            return 0;
        std::clock_t shortest = std::numeric_limits<std::clock_t>::max();
        for (int i = 0; i < 20; ++i) {
            const std::clock_t begin = std::clock();
            const auto result = InstructionIssuer::issueDay(Monday);
            shortest = std::min(shortest, std::clock() - begin);
            if (!result || result->alreadyIssued.size() != plans)
                return 0;
        }
        return shortest;
    }

    static QVector<IssueRow> previewOf(const QDate& day)
    {
        DayIssue issue(ClientSession::instance().database(), InstructionIssuer::scene(day));
        return issue.preview(issue.plans()->due, goOn).valueOr({});
    }

    static InstructionStore::Fields instructionsOf(const QString& plan, const QDate& day)
    {
        const auto all = ClientSession::instance().instructions().ofDay(plan, day).valueOr({});
        return all.isEmpty() ? InstructionStore::Fields() : all.first();
    }

    /// The rows that an issue writes.
    static QString contents()
    {
        Database& database = ClientSession::instance().database();
        QStringList counts;
        for (const char* const table : { "instructions", "refused_days", "history" })
            counts << database.value(QStringLiteral("SELECT count(*) FROM ") + QLatin1String(table))->toString();
        return counts.join(QLatin1Char(' '))
            + database.value(QStringLiteral("SELECT count(*) FROM plans WHERE completed_day IS NOT NULL"))->toString();
    }
};

QTEST_MAIN(DayIssueTest)
#include "tst_day_issue.moc"
