#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "ClientSession.h"
#include "DayPrice.h"
#include "DayShare.h"
#include "InstructionIssuer.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "Orlo_Fields.h"
#include "PlanCodes.h"
#include "PlanEvents.h"
#include "SecurityStore.h"
#include "SessionTest.h"
#include "TestStatus.h"
#include "TickPrice.h"

#include <QSignalSpy>
#include <QtTest>

Q_DECLARE_METATYPE(PlanShare)

namespace BaseField = AutoPlanField::BaseField;
using namespace PlanCodes;
using Record = QMap<QString, QVariant>;

namespace {

const QDate Monday = SampleSession::today();
const QDate Tuesday = Monday.addDays(1);
const QDate Saturday = Monday.addDays(5);

/// Field texts of a plan's instructions, in the order of their ids.
QStringList fieldOfAll(const QString& planId, const QString& key)
{
    QStringList texts;
    const auto instructions = AutoPlanLogic::instance().GetPlanInstruction(planId);
    for (const Record& fields : instructions)
        texts << fields.value(key).toString();
    return texts;
}

QVector<qint64> closesOfShare()
{
    return SecurityStore(ClientSession::instance().database())
        .closes(SampleSession::record().value(Kelvo_Fields::Security::symbol).toString())
        ->ticks;
}

Security limitedShare()
{
    Security share;
    share.symbol = QStringLiteral("600000.SH");
    share.pricePrecision = 2;
    share.quantityStep = 100;
    share.limitPerMille = 100;
    return share;
}

Record formulas(const QString& model, const QString& first, const QString& second)
{
    return { { BaseField::priceModel, model }, { BaseField::priceFormula1, first },
        { BaseField::priceFormula2, second } };
}

DayPrice limitOf(qint64 limit)
{
    DayPrice price;
    price.limit = limit;
    price.reference = 1000;
    return price;
}

} // namespace

class InstructionIssuerTest : public SessionTest {
    Q_OBJECT

private Q_SLOTS:
    void aDayTakesItsShare_data()
    {
        QTest::addColumn<PlanShare>("plan");
        QTest::addColumn<qint64>("quantity");
        const auto row = [](const char* sentence, const PlanShare& plan, qint64 quantity) {
            QTest::newRow(sentence) << plan << quantity;
        };
        row("a cumulative plan takes the day's maximum", { PlanType::CumulativeQty, 1000, 300, 0, 1, 0 }, 300);
        row("a cumulative plan without a maximum takes all", { PlanType::CumulativeQty, 1000, 0, 0, 1, 0 }, 1000);
        row("a plan takes no more than is left", { PlanType::CumulativeQty, 1000, 300, 800, 1, 0 }, 200);
        row("what is less than a lot is left", { PlanType::CumulativeQty, 1050, 0, 1000, 1, 0 }, 0);
        row("a plan that is used up takes nothing", { PlanType::CumulativeQty, 1000, 300, 1200, 1, 0 }, 0);
        row("same elements take the same each day", { PlanType::SameElements, 1000, 200, 0, 1, 0 }, 200);
        row("an average plan rounds up to a lot", { PlanType::AverageQty, 1000, 0, 0, 3, 0 }, 400);
        row("an average plan that divides evenly is not rounded", { PlanType::AverageQty, 900, 0, 0, 3, 0 }, 300);
        row("an average plan keeps to the day's maximum", { PlanType::AverageQty, 1000, 300, 0, 3, 0 }, 300);
        row("an average plan takes the rest on its last day", { PlanType::AverageQty, 1000, 0, 800, 1, 0 }, 200);
        row("a reduction takes its ratio of the target", { PlanType::ReduceHoldings, 1000, 0, 0, 1, 0.3 }, 300);
        row("a reduction takes no more than is left", { PlanType::ReduceHoldings, 1000, 0, 900, 1, 0.3 }, 100);
        row("a reduction without a ratio takes nothing", { PlanType::ReduceHoldings, 1000, 0, 0, 1, 0 }, 0);
    }

    void aDayTakesItsShare()
    {
        QFETCH(PlanShare, plan);
        QFETCH(qint64, quantity);
        QCOMPARE(dayQuantity(plan, 100), quantity);
        QCOMPARE(dayQuantity(plan, 0), qint64(0));
    }

    void thePriceFollowsTheMode_data()
    {
        QTest::addColumn<Record>("record");
        QTest::addColumn<qint64>("ticks");
        QTest::addColumn<bool>("isCut");
        const auto row = [](const char* sentence, const Record& record, qint64 ticks, bool isCut) {
            QTest::newRow(sentence) << record << ticks << isCut;
        };
        const QString close = QStringLiteral("昨收价");
        const QString higher = QStringLiteral("昨收价*1.013");
        row("no limit has no price", formulas(PriceModel::NoLimit, QStringLiteral("0.00"), QString()), -1, false);
        row("one formula is its own price", formulas(PriceModel::Custom, close, QString()), 115, false);
        row("half a tick is rounded up", formulas(PriceModel::Custom, QStringLiteral("1.155"), QString()), 116, false);
        row("the larger of two", formulas(PriceModel::CompareMax, close, higher), 116, false);
        row("the smaller of two", formulas(PriceModel::CompareMin, close, higher), 115, false);
        row("the upper limit is a whole tick", formulas(PriceModel::Custom, QStringLiteral("涨停价"), QString()), 127,
            false);
        row("a price above the limit is cut", formulas(PriceModel::Custom, QStringLiteral("昨收价*2"), QString()), 127,
            true);
        row("a price below the limit is cut", formulas(PriceModel::Custom, QStringLiteral("跌停价/2"), QString()), 104,
            true);
        row("an average is worked out", formulas(PriceModel::Custom, QStringLiteral("MA5"), QString()), 113, false);
    }

    void thePriceFollowsTheMode()
    {
        QFETCH(Record, record);
        QFETCH(qint64, ticks);
        QFETCH(bool, isCut);
        const Result<DayPrice> price = dayPrice(record, limitedShare(), { 111, 112, 113, 114, 115 });
        QCOMPARE(price.status(), Status());
        QCOMPARE(price->limit.value_or(-1), ticks);
        QCOMPARE(price->cutToLimit, isCut);
        QCOMPARE(price->reference, qint64(115));
    }

    void aSecurityWithoutClosesHasNoPrice()
    {
        const Record record = formulas(PriceModel::NoLimit, QString(), QString());
        QCOMPARE(
            dayPrice(record, limitedShare(), {}).status(), Status(Error::NoCloses, { QStringLiteral("600000.SH") }));
    }

    void fillsDependOnTheDistanceFromTheReference_data()
    {
        QTest::addColumn<bool>("isBuy");
        QTest::addColumn<qint64>("limit");
        QTest::addColumn<qint64>("quantity");
        QTest::addColumn<qint64>("price");
        QTest::newRow("a purchase above the reference is filled there") << true << 1050LL << 300LL << 1000LL;
        QTest::newRow("a purchase one percent below gets half of its lots") << true << 990LL << 100LL << 990LL;
        QTest::newRow("a purchase further below gets nothing") << true << 989LL << 0LL << 0LL;
        QTest::newRow("a sale below the reference is filled there") << false << 950LL << 300LL << 1000LL;
        QTest::newRow("a sale one percent above gets half of its lots") << false << 1010LL << 100LL << 1010LL;
        QTest::newRow("a sale further above gets nothing") << false << 1011LL << 0LL << 0LL;
    }

    void fillsDependOnTheDistanceFromTheReference()
    {
        QFETCH(bool, isBuy);
        QFETCH(qint64, limit);
        QFETCH(qint64, quantity);
        QFETCH(qint64, price);
        const Fill fill = simulateFill(isBuy, limitOf(limit), 300, 100);
        QCOMPARE(fill.quantity, quantity);
        QCOMPARE(fill.price, price);
    }

    void aPlanWithoutALimitIsFilledAtTheLastClose()
    {
        const QString plan = session().create(SampleSession::record());
        const QSignalSpy news(&PlanEvents::instance(), &PlanEvents::plansStored);
        const Result<IssueResult> result = InstructionIssuer::issueDay(Monday);
        QCOMPARE(result.status(), Status());
        QCOMPARE(result->issued.size(), 1);
        QCOMPARE(result->skipped.size(), 0);
        QCOMPARE(news.count(), 1);
        const auto instructions = AutoPlanLogic::instance().GetPlanInstruction(plan);
        QCOMPARE(instructions.keys(), result->issued);
        const Record& fields = instructions.first();
        QCOMPARE(fields.value(FieldId::IssuedQty).toString(), QStringLiteral("300"));
        QCOMPARE(fields.value(FieldId::FilledQty).toString(), QStringLiteral("300"));
        QCOMPARE(fields.value(FieldId::EndState).toString(), EndState::Ended);
        QCOMPARE(fields.value(FieldId::TargetType).toString(), InstructionTargetType::QtyOrder);
        QCOMPARE(fields.value(FieldId::Price).toString(), QStringLiteral("0.00"));
        const double amount = 300 * TickPrice::toYuan(closesOfShare().constLast(), 2);
        QCOMPARE(fields.value(Orlo_Fields::Security::cumAmount).toString(), QString::number(amount, 'f', 2));
        QCOMPARE(fields.value(FieldId::IssuedAmount).toString(), QString::number(amount, 'f', 2));
    }

    void issuingADayAgainAddsNothing()
    {
        const QString plan = session().create(SampleSession::record());
        QCOMPARE(InstructionIssuer::issueDay(Monday)->issued.size(), 1);
        const auto before = AutoPlanLogic::instance().GetPlanInstruction(plan);
        const QSignalSpy news(&PlanEvents::instance(), &PlanEvents::plansStored);
        const Result<IssueResult> again = InstructionIssuer::issueDay(Monday);
        QCOMPARE(again.status(), Status());
        QCOMPARE(again->issued, QStringList());
        QCOMPARE(again->alreadyIssued, QStringList{ plan });
        QCOMPARE(AutoPlanLogic::instance().GetPlanInstruction(plan), before);
        QCOMPARE(news.count(), 0);
    }

    // The COMMIT of the last instructions was not answered, but they are stored.
    void theFailureStaysIfPlansBehindItWereNotTried_data()
    {
        QTest::addColumn<bool>("hasRest");
        QTest::addColumn<Status>("expected");
        QTest::newRow("plans were not tried") << true << Status(Error::ConnectionLost);
        QTest::newRow("all plans were tried") << false << Status();
    }

    void theFailureStaysIfPlansBehindItWereNotTried()
    {
        QFETCH(const bool, hasRest);
        QFETCH(const Status, expected);
        session().create(SampleSession::record());
        const QStringList stored = InstructionIssuer::issueDay(Monday)->issued;
        IssueResult result;
        result.failure = Error::ConnectionLost;
        result.unknown = stored;
        result.hasRest = hasRest;
        InstructionIssuer::finish(result);
        QCOMPARE(result.failure, expected);
        QCOMPARE(result.issued, stored);
    }

    void theNextDayTakesWhatIsLeftAndThenNothing()
    {
        const QString plan = session().create(SampleSession::record());
        for (int i = 0; i < 4; ++i)
            QCOMPARE(InstructionIssuer::issueDay(Monday.addDays(i))->issued.size(), 1);
        const QStringList quantities{ QStringLiteral("300"), QStringLiteral("300"), QStringLiteral("300"),
            QStringLiteral("100") };
        QCOMPARE(fieldOfAll(plan, FieldId::IssuedQty), quantities);
        const Result<IssueResult> last = InstructionIssuer::issueDay(Monday.addDays(4));
        QCOMPARE(last->issued, QStringList());
        QCOMPARE(last->skipped.size(), 0);
        QCOMPARE(ClientSession::instance().plans().plan(plan)->completed, Monday.addDays(3));
    }

    void anOpenInstructionEndsTheNextDayAndGivesBackTheRest()
    {
        const Record tight = with(customPrice(SampleSession::record(), QStringLiteral("昨收价*0.95")),
            BaseField::totalQty, QStringLiteral("300"));
        const QString plan = session().create(tight);
        QCOMPARE(InstructionIssuer::issueDay(Monday)->issued.size(), 1);
        QCOMPARE(fieldOfAll(plan, FieldId::EndState), QStringList{ EndState::Running });
        QCOMPARE(fieldOfAll(plan, FieldId::FilledQty), QStringList{ QStringLiteral("0") });
        QCOMPARE(InstructionIssuer::issueDay(Tuesday)->issued.size(), 1);
        const QStringList states{ EndState::Ended, EndState::Running };
        const QStringList quantities{ QStringLiteral("300"), QStringLiteral("300") };
        QCOMPARE(fieldOfAll(plan, FieldId::EndState), states);
        QCOMPARE(fieldOfAll(plan, FieldId::IssuedQty), quantities);
    }

    void anAmountPlanBuysTheWholeLotsOfItsAmount()
    {
        const double price = TickPrice::toYuan(closesOfShare().constLast(), 2);
        const QString perDay = QString::number(price * 250, 'f', 2);
        const Record record = SampleSession::withOther(SampleSession::record(),
            { { FieldId::TargetType, InstructionTargetType::AmountOrder },
                { BaseField::tradeAmount, QString::number(price * 10000, 'f', 2) },
                { BaseField::dayMaxTradeAmount, perDay } });
        const QString plan = session().create(record);
        QCOMPARE(InstructionIssuer::issueDay(Monday)->issued.size(), 1);
        QCOMPARE(fieldOfAll(plan, FieldId::IssuedQty), QStringList{ QStringLiteral("200") });
        QCOMPARE(fieldOfAll(plan, FieldId::IssuedAmount), QStringList{ QString::number(price * 200, 'f', 2) });
        QCOMPARE(fieldOfAll(plan, FieldId::TargetType), QStringList{ InstructionTargetType::AmountOrder });
    }

    void aReductionWithoutATotalSellsItsPartOfTheHoldings()
    {
        Record record = with(SampleSession::record(), Orlo_Fields::AutoPlan::templateCode, PlanType::ReduceHoldings);
        record = with(with(record, BaseField::totalQty, QStringLiteral("0")), BaseField::orderSide,
            Kelvo_Values::OrderSide::sell);
        record = with(record, BaseField::executeUser, QStringLiteral("苏砚"));
        record = SampleSession::withOther(with(record, BaseField::endDate, QStringLiteral("2124-05-06")),
            { { BaseField::JCRatio, QStringLiteral("0.1") },
                { AutoPlanField::Progress::CurrentQty, QStringLiteral("0") } });
        const QString plan = session().create(record);
        QVERIFY2(!plan.isEmpty(), qPrintable(session().reason()));
        QCOMPARE(InstructionIssuer::issueDay(Monday)->issued.size(), 1);
        QCOMPARE(fieldOfAll(plan, FieldId::IssuedQty), QStringList{ QStringLiteral("20000") });
    }

    void aPlanOutsideItsPeriodIsLeftAlone()
    {
        session().create(with(SampleSession::record(), BaseField::beginDate, QStringLiteral("2024-05-07")));
        const Result<IssueResult> result = InstructionIssuer::issueDay(Monday);
        QCOMPARE(result.status(), Status());
        QCOMPARE(result->issued.size() + result->skipped.size() + result->alreadyIssued.size(), 0);
    }

    void aDayWithoutTradingIssuesNothing()
    {
        session().create(with(SampleSession::record(), BaseField::endDate, QStringLiteral("2024-05-13")));
        const Result<IssueResult> result = InstructionIssuer::issueDay(Saturday);
        QCOMPARE(result->issued, QStringList());
        QCOMPARE(result->skipped.size(), 1);
        QCOMPARE(
            result->skipped.first().reason, Status(Error::NotATradeDay, { QString(), QStringLiteral("2024-05-11") }));
        QCOMPARE(InstructionIssuer::issueDay(QDate()).status(), Status(Error::InvalidDate, { QStringLiteral("日期") }));
    }

    void aFormulaWithoutAValueSkipsItsPlanOnly()
    {
        // The plan service refuses such a formula unless it has a value on the day of the entry.
        const QString broken = *ClientSession::instance().plans().create(
            customPrice(SampleSession::record(), QStringLiteral("1-1")), ClientSession::instance().changeNow());
        const QString sound = session().create(SampleSession::record());
        const Result<IssueResult> result = InstructionIssuer::issueDay(Monday);
        QCOMPARE(result->issued.size(), 1);
        QVERIFY(result->issued.first().startsWith(sound));
        QCOMPARE(result->skipped.size(), 1);
        QCOMPARE(result->skipped.first().planId, broken);
        QCOMPARE(result->skipped.first().reason, Status(Error::PriceNotPositive));
    }

    void withoutASessionTheReasonIsReturned()
    {
        ClientSession::instance().close();
        QCOMPARE(InstructionIssuer::issueDay(Monday).status(), Status(Error::IssuingNeedsLogin));
    }
};

QTEST_GUILESS_MAIN(InstructionIssuerTest)
#include "tst_instruction_issuer.moc"
