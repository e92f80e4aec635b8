#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "InstructionPrefetcher.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "LoggedTest.h"
#include "OrloBusinessDataInterface.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"
#include "PlanCheck.h"
#include "PlanCodes.h"
#include "PlanEvents.h"
#include "PlanTexts.h"
#include "SampleSession.h"
#include "Security.h"
#include "TestStatus.h"
#include "VorMarginTradeType.h"

#include <QSignalSpy>
#include <QtTest>

namespace BaseField = AutoPlanField::BaseField;
namespace UserAccount = Kelvo_Fields::UserAccount;
using namespace PlanCodes;
using Record = QMap<QString, QVariant>;

namespace {

Change now()
{
    return ClientSession::instance().changeNow();
}

AutoPlanLogic& service()
{
    return AutoPlanLogic::instance();
}

int storedPlans()
{
    return *ClientSession::instance().plans().count();
}

} // namespace

class PlanServiceTest : public LoggedTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_session = std::make_unique<SampleSession>();
        QCOMPARE(m_session->opened(), Status());
    }

    void cleanupTestCase() { m_session.reset(); }

    void aNewPlanIsReadBackAsItWasSent()
    {
        Record sent =
            with(SampleSession::record(), BaseField::remark, QStringLiteral("分批买入 \"一\"; DROP TABLE plans"));
        const QString id = m_session->create(sent);
        QVERIFY2(!id.isEmpty(), qPrintable(m_session->reason()));
        const Record read = service().GetPlanInfo(id);
        sent.insert(BaseField::autoPlanId, id);
        QCOMPARE(read, sent);
        QCOMPARE(service().GetPlanOtherParamFromPlanInfo(read).value(AutoPlanField::Progress::CurrentQty).toString(),
            QStringLiteral("300"));
        QCOMPARE(service().GetPlanInstruction(id).size(), 0);
    }

    void aNewPlanIsAnnouncedOnce()
    {
        const QSignalSpy news(&PlanEvents::instance(), &PlanEvents::planStored);
        const QString id = m_session->create(SampleSession::record());
        QCOMPARE(news.count(), 1);
        QCOMPARE(news.at(0).at(0).toString(), id);
    }

    void aPlanThatIsAcknowledgedSurvivesTheNextStart()
    {
        const QString id = m_session->create(SampleSession::record());
        const Record before = service().GetPlanInfo(id);
        QCOMPARE(m_session->reopen(), Status());
        QVERIFY(!before.isEmpty());
        QCOMPARE(service().GetPlanInfo(id), before);
    }

    void instructionsFollowChangesByAnyConnection()
    {
        const QString id = m_session->create(SampleSession::record());
        QCOMPARE(service().GetPlanInstruction(id).size(), 0);

        const Record running{ { FieldId::EndState, EndState::Running } };
        const QString first = *ClientSession::instance().instructions().add(id, SampleSession::today(), running, now());
        QCOMPARE(service().GetPlanInstruction(id).keys(), QStringList{ first });
        const QString today = SampleSession::today().toString(Qt::ISODate);
        QCOMPARE(service().GetPlanInstruction(id).value(first), with(running, FieldId::TradeDate, today));

        const Record ended{ { FieldId::EndState, EndState::Ended } };
        QCOMPARE(ClientSession::instance().instructions().update(id, first, ended, now()), Status());
        QCOMPARE(service().GetPlanInstruction(id).value(first), with(ended, FieldId::TradeDate, today));

        Database other;
        QCOMPARE(other.open(m_session->file()), Status());
        const QString second = *InstructionStore(other).add(id, SampleSession::today(), running, now());
        QCOMPARE(service().GetPlanInstruction(id).keys(), (QStringList{ first, second }));
        QCOMPARE(service().GetPlanInstruction(QStringLiteral("AP99999999")).size(), 0);
        QCOMPARE(service().GetPlanInstruction(id).size(), 2);
    }

    void instructionsAreReadAheadOnAnotherThread()
    {
        const QString id = m_session->create(SampleSession::record());
        const Record running{ { FieldId::EndState, EndState::Running } };
        QVERIFY(ClientSession::instance().instructions().add(id, SampleSession::today(), running, now()));

        InstructionPrefetcher prefetcher(ClientSession::instance().database());
        const QThread* reader = nullptr;
        connect(
            &prefetcher, &InstructionPrefetcher::arrived, &prefetcher, [&] { reader = QThread::currentThread(); },
            Qt::DirectConnection);
        const QSignalSpy arrived(&prefetcher, &InstructionPrefetcher::arrived);
        prefetcher.read(id, QStringLiteral("now"));
        QTRY_COMPARE(arrived.count(), 1);
        QVERIFY(reader && reader != thread());
        QCOMPARE(arrived.constFirst().at(0).toString(), id);
        QCOMPARE(arrived.constFirst().at(1).toString(), QStringLiteral("now"));
        const auto instructions = arrived.constFirst().at(2).value<InstructionPrefetcher::Instructions>();
        QCOMPARE(instructions, service().GetPlanInstruction(id));
    }

    void aSessionClosesWhileInstructionsAreReadAhead()
    {
        const QString id = m_session->create(SampleSession::record());
        ClientSession::instance().prefetchInstructions(id);
        QCOMPARE(m_session->reopen(), Status());
        QCOMPARE(service().GetPlanInstruction(id).size(), 0);
    }

    void anInvalidRecordIsRefusedWithAReason_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("value");
        QTest::addColumn<Status>("refused");
        const Record record = SampleSession::record();
        const auto row = [](const char* sentence, const QString& key, const QString& value, const Status& refused) {
            QTest::newRow(sentence) << key << value << refused;
        };
        row("no account is named", UserAccount::tradingAccount, QString(), Error::NoAccount);
        row("nobody knows the account", UserAccount::tradingAccount, QStringLiteral("999"),
            { Error::UnknownAccount, { QStringLiteral("999") } });
        row("the account is another user's", UserAccount::tradingAccount, QStringLiteral("100003"),
            { Error::UnknownAccount, { QStringLiteral("100003") } });
        row("the user may not place credit instructions for the account", Orlo_Fields::AutoPlan::subType,
            InstructionType::Credit, { Error::NoAuthority, { QStringLiteral("100001") } });
        row("no security is named", Kelvo_Fields::Security::symbol, QStringLiteral(""), Error::NoSecurity);
        row("nobody knows the security", Kelvo_Fields::Security::symbol, QStringLiteral("999999.SH"),
            { Error::UnknownSecurity, { QStringLiteral("999999.SH") } });
        row("the plan type is written in lower case", Orlo_Fields::AutoPlan::templateCode, QStringLiteral("tw-01"),
            { Error::UnknownCode, { QStringLiteral("计划类型"), QStringLiteral("tw-01") } });
        row("the instruction type is none", Orlo_Fields::AutoPlan::subType, QStringLiteral("3"),
            { Error::UnknownCode, { QStringLiteral("指令类型"), QStringLiteral("3") } });
        row("the side is none", BaseField::orderSide, QStringLiteral("0"),
            { Error::UnknownCode, { QStringLiteral("交易方向"), QStringLiteral("0") } });
        row("the price mode is none", BaseField::priceModel, QStringLiteral("2"),
            { Error::UnknownCode, { QStringLiteral("价格模式"), QStringLiteral("2") } });
        row("the instruction mode is missing", BaseField::InstMode, QString(),
            { Error::UnknownCode, { QStringLiteral("下单模式"), QString() } });
        row("the security does not trade on the exchange", UserAccount::securityExchange, Kelvo_Values::Exchange::sz,
            { Error::WrongExchange,
                { record.value(Kelvo_Fields::Security::symbol).toString(), QStringLiteral("深圳证券交易所") } });
        row("the security account is another's", UserAccount::securityAccount, QStringLiteral("X1"),
            { Error::ForeignSecurityAccount, { QStringLiteral("X1") } });
        row("the total is missing", BaseField::totalQty, QString(),
            { Error::NotPositiveWhole, { QStringLiteral("目标总量"), QString() } });
        row("the total is zero", BaseField::totalQty, QStringLiteral("0"),
            { Error::NotPositiveWhole, { QStringLiteral("目标总量"), QStringLiteral("0") } });
        row("the total is negative", BaseField::totalQty, QStringLiteral("-100"),
            { Error::NotPositiveWhole, { QStringLiteral("目标总量"), QStringLiteral("-100") } });
        row("the total is no number", BaseField::totalQty, QStringLiteral("nan"),
            { Error::NotPositiveWhole, { QStringLiteral("目标总量"), QStringLiteral("nan") } });
        row("the total is written with an exponent", BaseField::totalQty, QStringLiteral("1e400"),
            { Error::NotPositiveWhole, { QStringLiteral("目标总量"), QStringLiteral("1e400") } });
        row("the total has decimals", BaseField::totalQty, QStringLiteral("100.5"),
            { Error::NotPositiveWhole, { QStringLiteral("目标总量"), QStringLiteral("100.5") } });
        row("the total is longer than any quantity", BaseField::totalQty, QStringLiteral("1000000000000000"),
            { Error::NotPositiveWhole, { QStringLiteral("目标总量"), QStringLiteral("1000000000000000") } });
        row("the beginning is no date", BaseField::beginDate, QStringLiteral("2024-02-30"),
            { Error::InvalidDate, { QStringLiteral("开始日期") } });
        row("the beginning is in another format", BaseField::beginDate, QStringLiteral("2024-5-6"),
            { Error::InvalidDate, { QStringLiteral("开始日期") } });
        row("the beginning has a sign", BaseField::beginDate, QStringLiteral("2024-05-+6"),
            { Error::InvalidDate, { QStringLiteral("开始日期") } });
        row("the beginning has a time", BaseField::beginDate, QStringLiteral("2024-05-06T00:00:00"),
            { Error::InvalidDate, { QStringLiteral("开始日期") } });
        row("the beginning is a Saturday", BaseField::beginDate, QStringLiteral("2024-05-04"),
            { Error::NotATradeDay, { QStringLiteral("开始日期"), QStringLiteral("2024-05-04") } });
        row("the beginning is a holiday", BaseField::beginDate, QStringLiteral("2024-05-01"),
            { Error::NotATradeDay, { QStringLiteral("开始日期"), QStringLiteral("2024-05-01") } });
        row("the beginning lies beyond the calendar", BaseField::beginDate, QStringLiteral("2199-05-06"),
            { Error::NotInCalendar, { QStringLiteral("开始日期"), QStringLiteral("2199-05-06") } });
        row("the end is missing", BaseField::endDate, QString(),
            { Error::InvalidDate, { QStringLiteral("结束日期") } });
        row("the end lies before the beginning", BaseField::endDate, QStringLiteral("2024-04-30"),
            Error::EndBeforeBegin);
        row("the end is a Sunday", BaseField::endDate, QStringLiteral("2024-05-12"),
            { Error::NotATradeDay, { QStringLiteral("结束日期"), QStringLiteral("2024-05-12") } });
        row("the end lies beyond the calendar", BaseField::endDate, QStringLiteral("2124-05-08"),
            { Error::NotInCalendar, { QStringLiteral("结束日期"), QStringLiteral("2124-05-08") } });
        row("the other parameters are missing", BaseField::planOtherParam, QString(), Error::NoOtherParam);
        row("the other parameters are broken", BaseField::planOtherParam, QStringLiteral("{\"a\":"),
            Error::OtherParamNotJson);
        row("the other parameters are a list", BaseField::planOtherParam, QStringLiteral("[1]"),
            Error::OtherParamNotJson);
        row("the remark is one character too long", BaseField::remark,
            QString(PlanCheck::LongestRemark + 1, QLatin1Char('x')),
            { Error::RemarkTooLong, { QStringLiteral("200") } });
    }

    void anInvalidRecordIsRefusedWithAReason()
    {
        QFETCH(QString, key);
        QFETCH(QString, value);
        QFETCH(Status, refused);
        QCOMPARE(refusal(with(SampleSession::record(), key, value)), errorText(refused));
    }

    void invalidOtherParametersAreRefused_data()
    {
        QTest::addColumn<Record>("record");
        QTest::addColumn<Status>("refused");
        const Record plan = SampleSession::record();
        const auto badFormula = [](const QString& caption, const Status& cause) {
            return Status(Error::BadFormula, { caption }, cause);
        };
        const auto other = [](const Record& record, const QString& key, const QString& value) {
            return SampleSession::withOther(record, { { key, value } });
        };
        QTest::newRow("nobody knows the target type") << other(plan, FieldId::TargetType,
            QStringLiteral("X")) << Status(Error::UnknownCode, { QStringLiteral("指令单类型"), QStringLiteral("X") });
        QTest::newRow("nobody knows the price type") << other(plan, Kelvo_Fields::Security::timeInForce,
            QStringLiteral("X")) << Status(Error::UnknownCode, { QStringLiteral("报价类型"), QStringLiteral("X") });
        QTest::newRow("nobody knows the entrust type") << other(plan, FieldId::MarginSide,
            QStringLiteral("99")) << Status(Error::UnknownCode, { QStringLiteral("委托类别"), QStringLiteral("99") });
        QTest::newRow("the quantity of a day is negative") << other(plan, AutoPlanField::Progress::CurrentQty,
            QStringLiteral("-1")) << Status(Error::NotWhole, { QStringLiteral("每日委托量"), QStringLiteral("-1") });
        QTest::newRow("the target amount is missing")
            << other(plan, FieldId::TargetType, InstructionTargetType::AmountOrder)
            << Status(Error::NotPositive, { QStringLiteral("目标金额"), QString() });
        QTest::newRow("the target amount is zero")
            << other(amountPlan(plan), BaseField::tradeAmount, QStringLiteral("0.00"))
            << Status(Error::NotPositive, { QStringLiteral("目标金额"), QStringLiteral("0.00") });
        QTest::newRow("the target amount is endless") << other(amountPlan(plan), BaseField::tradeAmount,
            QStringLiteral("inf")) << Status(Error::NotPositive, { QStringLiteral("目标金额"), QStringLiteral("inf") });
        QTest::newRow("the target amount holds grouping")
            << other(amountPlan(plan), BaseField::tradeAmount, QStringLiteral("1,000"))
            << Status(Error::NotPositive, { QStringLiteral("目标金额"), QStringLiteral("1,000") });
        QTest::newRow("the amount of a day is no number")
            << other(amountPlan(plan), BaseField::dayMaxTradeAmount, QStringLiteral("viel"))
            << Status(Error::NotNumber, { QStringLiteral("每日最大金额"), QStringLiteral("viel") });
        QTest::newRow("the ratio of a reduction is more than all") << other(reduction(plan), BaseField::JCRatio,
            QStringLiteral("1.0001")) << Status(Error::RatioOutOfRange, { QStringLiteral("1.0001") });
        QTest::newRow("the ratio of a reduction is missing") << other(reduction(plan), BaseField::JCRatio,
            QStringLiteral("")) << Status(Error::RatioOutOfRange, { QString() });
        QTest::newRow("a formula does not parse") << customPrice(plan, QStringLiteral("昨收价*"))
                                                  << badFormula(QStringLiteral("价格"), Error::FormulaIncomplete);
        QTest::newRow("a formula is empty")
            << customPrice(plan, QStringLiteral("")) << badFormula(QStringLiteral("价格"), Error::FormulaEmpty);
        Record compared = customPrice(plan, QStringLiteral("MA5"));
        compared.insert(BaseField::priceModel, PriceModel::CompareMin);
        QTest::newRow("the second formula of two is missing")
            << compared << badFormula(QStringLiteral("价格2"), Error::FormulaEmpty);
    }

    void invalidOtherParametersAreRefused()
    {
        QFETCH(Record, record);
        QFETCH(Status, refused);
        QCOMPARE(refusal(record), errorText(refused));
    }

    void plansOfEveryKindAreAccepted()
    {
        const Record plan = SampleSession::record();
        Record compared = customPrice(plan, QStringLiteral("max(MA5,昨收价*1.01)"));
        compared.insert(BaseField::priceModel, PriceModel::CompareMax);
        compared.insert(BaseField::priceFormula2, QStringLiteral("涨停价"));
        QCOMPARE(service().CreateNewPlan(amountPlan(plan)), QString());
        QCOMPARE(service().CreateNewPlan(customPrice(plan, QStringLiteral("min(MA5,MA10)"))), QString());
        QCOMPARE(service().CreateNewPlan(compared), QString());
        QCOMPARE(
            service().CreateNewPlan(with(plan, Orlo_Fields::AutoPlan::templateCode, PlanType::AverageQty)), QString());
        QCOMPARE(service().CreateNewPlan(with(plan, Orlo_Fields::AutoPlan::templateCode, PlanType::SameElements)),
            QString());
    }

    void aReductionMayEndBeyondTheCalendar()
    {
        QCOMPARE(service().CreateNewPlan(reduction(SampleSession::record())), QString());
        QCOMPARE(
            service().CreateNewPlan(with(reduction(SampleSession::record()), BaseField::totalQty, QStringLiteral("0"))),
            QString());
    }

    void aPlanWithAnIdIsNotCreated()
    {
        QCOMPARE(refusal(with(SampleSession::record(), BaseField::autoPlanId, QStringLiteral("AP00000001"))),
            errorText(Error::PlanHasId));
    }

    void aValueThatIsNotATextIsRefused()
    {
        Record record = SampleSession::record();
        record.insert(BaseField::totalQty, 1000);
        QCOMPARE(refusal(record), errorText({ Error::FieldNotText, { QStringLiteral("totalQty") } }));
    }

    void aRemarkOfTheLongestLengthIsKeptWhole()
    {
        const QString remark(PlanCheck::LongestRemark, QChar(0x5907));
        const QString id = m_session->create(with(SampleSession::record(), BaseField::remark, remark));
        QCOMPARE(service().GetPlanInfo(id).value(BaseField::remark).toString(), remark);
    }

    void aChangeReplacesTheRecordAndCountsTheVersion()
    {
        const QString id = m_session->create(SampleSession::record());
        Record changed = with(SampleSession::record(), BaseField::totalQty, QStringLiteral("2000"));
        changed.insert(BaseField::autoPlanId, id);
        const QSignalSpy news(&PlanEvents::instance(), &PlanEvents::planStored);
        QCOMPARE(service().modifyPlan(changed), QString());
        QCOMPARE(service().GetPlanInfo(id), changed);
        QCOMPARE(ClientSession::instance().plans().plan(id)->version, 2);
        QCOMPARE(news.count(), 1);
        QCOMPARE(news.at(0).at(0).toString(), id);
    }

    void whatIdentifiesAPlanCannotBeChanged_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("value");
        QTest::addColumn<Status>("refused");
        QTest::newRow("the account") << UserAccount::tradingAccount << QStringLiteral("100002")
                                     << Status(Error::FieldNotChangeable, { QStringLiteral("账户") });
        QTest::newRow("the security account") << UserAccount::securityAccount << QStringLiteral("X")
                                              << Status(Error::FieldNotChangeable, { QStringLiteral("证券账户") });
        QTest::newRow("the instruction type") << Orlo_Fields::AutoPlan::subType << InstructionType::Bond
                                              << Status(Error::FieldNotChangeable, { QStringLiteral("指令类型") });
        QTest::newRow("the plan type") << Orlo_Fields::AutoPlan::templateCode << PlanType::AverageQty
                                       << Status(Error::FieldNotChangeable, { QStringLiteral("计划类型") });
        QTest::newRow("the side") << BaseField::orderSide << Kelvo_Values::OrderSide::sell
                                  << Status(Error::FieldNotChangeable, { QStringLiteral("交易方向") });
    }

    void whatIdentifiesAPlanCannotBeChanged()
    {
        QFETCH(QString, key);
        QFETCH(QString, value);
        QFETCH(Status, refused);
        const QString id = m_session->create(SampleSession::record());
        Record changed = with(SampleSession::record(), key, value);
        changed.insert(BaseField::autoPlanId, id);
        QCOMPARE(service().modifyPlan(changed), errorText(refused));
    }

    void theTargetTypeAndTheEntrustTypeCannotBeChanged()
    {
        const QString id = m_session->create(SampleSession::record());
        const Record changed = with(amountPlan(SampleSession::record()), BaseField::autoPlanId, id);
        QCOMPARE(
            service().modifyPlan(changed), errorText({ Error::FieldNotChangeable, { QStringLiteral("指令单类型") } }));
        Record margin = SampleSession::withOther(
            SampleSession::record(), { { FieldId::MarginSide, QString::number(int(VorMarginTradeType::MarginBuy)) } });
        margin.insert(BaseField::autoPlanId, id);
        QCOMPARE(
            service().modifyPlan(margin), errorText({ Error::FieldNotChangeable, { QStringLiteral("委托类别") } }));
    }

    void aChangeOfAnUnknownPlanIsRefused()
    {
        const Record record = SampleSession::record();
        QCOMPARE(service().modifyPlan(record), errorText({ Error::UnknownPlan, { QString() } }));
        QCOMPARE(service().modifyPlan(with(record, BaseField::autoPlanId, QStringLiteral("AP99999999"))),
            errorText({ Error::UnknownPlan, { QStringLiteral("AP99999999") } }));
    }

    void aRefusedChangeLeavesThePlanAsItWas()
    {
        const QString id = m_session->create(SampleSession::record());
        const Record before = service().GetPlanInfo(id);
        const QSignalSpy news(&PlanEvents::instance(), &PlanEvents::planStored);
        QCOMPARE(service().modifyPlan(with(before, BaseField::totalQty, QStringLiteral("nan"))),
            errorText({ Error::NotPositiveWhole, { QStringLiteral("目标总量"), QStringLiteral("nan") } }));
        QCOMPARE(service().GetPlanInfo(id), before);
        QCOMPARE(ClientSession::instance().plans().plan(id)->version, 1);
        QCOMPARE(news.count(), 0);
    }

    void aStartedPlanKeepsItsBeginning()
    {
        const QString id = m_session->create(SampleSession::record());
        const Record before = service().GetPlanInfo(id);
        const Record later = with(before, BaseField::beginDate, QStringLiteral("2024-05-07"));
        QCOMPARE(service().modifyPlan(later), errorText(Error::BeginNotChangeable));
        setClientToday(SampleSession::today().addDays(-1));
        QCOMPARE(service().modifyPlan(later), QString());
        setClientToday(SampleSession::today());
    }

    void anUnknownIdHasNoRecordAndNoInstructions()
    {
        QCOMPARE(service().GetPlanInfo(QStringLiteral("AP99999999")), Record());
        QCOMPARE(service().GetPlanInfo(QStringLiteral("'; DROP TABLE plans")), Record());
        QCOMPARE(service().GetPlanInstruction(QString()).size(), 0);
    }

    void otherParametersAreReadFromAnyRecord_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("entries");
        QTest::newRow("nothing") << QString() << 0;
        QTest::newRow("an object") << QStringLiteral("{\"a\":\"1\",\"b\":{\"c\":2}}") << 2;
        QTest::newRow("an empty object") << QStringLiteral("{}") << 0;
        QTest::newRow("an object that breaks off") << QStringLiteral("{\"a\":\"1\"") << 0;
        QTest::newRow("a list") << QStringLiteral("[{\"a\":1}]") << 0;
        QTest::newRow("a plain text") << QStringLiteral("TWAP") << 0;
        QTest::newRow("lists within lists, a hundred thousand deep")
            << QStringLiteral("{\"a\":") + QString(100000, QLatin1Char('[')) << 0;
        QTest::newRow("an object of a megabyte")
            << QStringLiteral("{\"a\":\"%1\"}").arg(QString(1 << 20, QLatin1Char('x'))) << 0;
        QTest::newRow("an object of the longest length that is read")
            << QStringLiteral("{\"a\":\"%1\"}").arg(QString(PlanTexts::LongestOtherParam - 8, QLatin1Char('x'))) << 1;
    }

    void otherParametersAreReadFromAnyRecord()
    {
        QFETCH(QString, text);
        QFETCH(int, entries);
        QCOMPARE(service().GetPlanOtherParamFromPlanInfo({ { BaseField::planOtherParam, text } }).size(), entries);
    }

    void tradeDatesAreThoseOfTheExchange()
    {
        QString error = QStringLiteral("left over");
        const QList<QDate> dates = service().GetTradeDateList(Kelvo_Values::Exchange::sh, error);
        QCOMPARE(error, QString());
        QVERIFY(std::is_sorted(dates.cbegin(), dates.cend()));
        QVERIFY(dates.contains(SampleSession::today()));
        QVERIFY(dates.contains(QDate(2024, 4, 30)));
        QVERIFY(!dates.contains(QDate(2024, 5, 1)));
        QVERIFY(!dates.contains(QDate(2024, 5, 11)));
        QVERIFY(dates.constLast() > SampleSession::today().addYears(1));
    }

    void hongKongConnectTradesWhenBothMarketsDo()
    {
        QString error;
        const QList<QDate> dates = service().GetTradeDateList(Orlo_Values::Exchange::HkStockCirculation, error);
        QCOMPARE(error, QString());
        QVERIFY(dates.contains(SampleSession::today()));
        QVERIFY2(!dates.contains(QDate(2024, 5, 15)), "the Buddha's birthday is kept in Hong Kong only");
        QVERIFY2(!dates.contains(QDate(2024, 5, 2)), "the long May holiday is kept on the mainland only");
    }

    void anUnknownExchangeHasNoTradeDates()
    {
        QString error;
        QCOMPARE(service().GetTradeDateList(QStringLiteral("XNYS"), error), QList<QDate>());
        QCOMPARE(error, errorText({ Error::NoCalendar, { QStringLiteral("XNYS") } }));
    }

    void withoutASessionEveryAnswerIsEmpty()
    {
        const Record record = SampleSession::record();
        ClientSession::instance().close();
        QString error;
        QCOMPARE(service().CreateNewPlan(record), errorText(Error::PlansNeedLogin));
        QCOMPARE(service().modifyPlan(record), errorText(Error::PlansNeedLogin));
        QCOMPARE(service().GetPlanInfo(QStringLiteral("AP00000001")), Record());
        QCOMPARE(service().GetPlanInstruction(QStringLiteral("AP00000001")).size(), 0);
        QCOMPARE(service().GetTradeDateList(Kelvo_Values::Exchange::sh, error), QList<QDate>());
        QCOMPARE(error, errorText(Error::TradeDaysNeedLogin));
    }

private:
    /// The reason why a record is refused. Verifies that nothing was stored or announced.
    QString refusal(const Record& record)
    {
        const int before = storedPlans();
        const QSignalSpy news(&PlanEvents::instance(), &PlanEvents::planStored);
        const QString reason = service().CreateNewPlan(record);
        if (!reason.isEmpty() && (storedPlans() != before || news.count() != 0))
            return QStringLiteral("stored although refused: ") + reason;
        return reason;
    }

    std::unique_ptr<SampleSession> m_session;
};

QTEST_GUILESS_MAIN(PlanServiceTest)
#include "tst_plan_service.moc"
