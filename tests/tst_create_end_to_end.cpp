#include "AutoParamSetting.h"
#include "ClientSession.h"
#include "DatabaseProbe.h"
#include "ExpectedRecord.h"
#include "FormDriver.h"
#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "LogCatcher.h"
#include "MessageBoxResponder.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"
#include "SampleSession.h"
#include "Security.h"
#include "TestClock.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>

namespace SubType = Kelvo_Values::MdcSubSecurityType;
namespace OtherSubType = Orlo_Values::MdcSubSecurityType;
using namespace PlanCodes;
using InstructionTargetType::AmountOrder;
using InstructionTargetType::QtyOrder;
using Kelvo_Values::OrderSide::buy;
using Kelvo_Values::OrderSide::sell;

Q_DECLARE_METATYPE(PlanForm)

namespace {

const QString trader = QStringLiteral("trader01");
const QString freeAccount = QStringLiteral("100001");
const QString reviewedAccount = QStringLiteral("100002");
const QString creditAccount = QStringLiteral("200001");

/// An ordinary plan that buys a main board share in Shanghai without a price limit.
PlanForm ordinary(const QString& account = freeAccount)
{
    PlanForm form;
    form.account = account;
    form.instructionType = InstructionType::Ordinary;
    form.targetType = QtyOrder;
    form.planType = PlanType::CumulativeQty;
    form.symbol = SampleSession::symbolOf(SubType::Ashares, Kelvo_Values::SymbolPost::sh);
    form.side = buy;
    form.priceMode = PriceModel::NoLimit;
    form.target = QStringLiteral("10000");
    form.perDay = QStringLiteral("500");
    form.instructionMode = InstMode::ActiveManage;
    form.endSteps = 3;
    return form;
}

PlanForm ofSecurity(PlanForm form, const QString& subType, const QString& suffix)
{
    form.symbol = SampleSession::symbolOf(subType, suffix);
    return form;
}

PlanForm priced(PlanForm form, const QString& mode, const QString& price1, const QString& price2 = QString())
{
    form.priceMode = mode;
    form.price1 = price1;
    form.price2 = price2;
    return form;
}

PlanForm bond(const QString& suffix)
{
    PlanForm form = ordinary();
    form.instructionType = InstructionType::Bond;
    return ofSecurity(form, OtherSubType::ConvertableBondTypeList.constFirst(), suffix);
}

PlanForm credit(const QString& side, const QString& entrustType)
{
    PlanForm form = ordinary(creditAccount);
    form.instructionType = InstructionType::Credit;
    form.side = side;
    form.entrustType = entrustType;
    form.instructionMode = InstMode::NormalReview;
    return priced(form, PriceModel::Custom, QStringLiteral("昨收价"));
}

PlanForm reduction(const QString& executor)
{
    PlanForm form = ordinary();
    form.planType = PlanType::ReduceHoldings;
    form.side = sell;
    form.perDay.clear();
    form.ratio = QStringLiteral("0.0125");
    form.assignee = executor;
    form.endSteps = 0;
    form.beginSteps = 2;
    return form;
}

PlanForm byAlgorithm(PlanForm form, const QString& strategy)
{
    form.instructionMode = InstMode::AlgoReview;
    form.strategy = strategy;
    return form;
}

PlanForm byAmount()
{
    PlanForm form = byAlgorithm(ordinary(reviewedAccount), QStringLiteral("TWAP"));
    form.targetType = AmountOrder;
    form.target = QStringLiteral("250000.5");
    form.perDay = QStringLiteral("10000");
    return form;
}

} // namespace

/// Plans filled in by mouse and keyboard on the real client, and read back from its database.
class TestCreateEndToEnd : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_log = std::make_unique<LogCatcher>(); }
    void cleanup();
    void cleanupTestCase() { m_session.reset(); }

    void a_plan_is_stored_as_it_was_filled_in_data();
    void a_plan_is_stored_as_it_was_filled_in();
    void a_hong_kong_plan_sells_whole_lots_of_what_is_held();
    void a_bond_of_shanghai_is_stored_in_lots_of_ten();
    void the_only_account_needs_no_choice();
    void a_declined_question_stores_nothing();
    void a_refusal_by_the_service_keeps_the_form();
    void cancel_closes_and_stores_nothing();
    void every_difference_to_what_was_filled_in_is_told();

private:
    void open(const QString& user = trader);
    void confirmAndCompare(const PlanForm& form);
    int storedPlans() const { return ClientSession::instance().plans().count(); }

    std::unique_ptr<SampleSession> m_session;
    std::unique_ptr<LogCatcher> m_log;
    std::unique_ptr<QWidget> m_window;
    AutoParamSetting* m_editor = nullptr;
    std::unique_ptr<FormDriver> m_driver;
    MessageBoxResponder m_boxes;
};

void TestCreateEndToEnd::initTestCase()
{
    setToday(SampleSession::today());
    m_session = std::make_unique<SampleSession>();
    QCOMPARE(m_session->reason(), QString());
}

void TestCreateEndToEnd::cleanup()
{
    m_driver.reset();
    m_window.reset();
    QCOMPARE(m_log->trouble(), QStringList());
    m_log.reset();
}

void TestCreateEndToEnd::open(const QString& user)
{
    if (ClientSession::instance().user().id != user)
        QCOMPARE(m_session->reopen(user), QString());
    m_window = std::make_unique<QWidget>();
    m_editor = new AutoParamSetting(m_window.get());
    m_window->resize(m_editor->size());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_driver = std::make_unique<FormDriver>(m_editor);
}

/// Sends what is filled in and compares the newest stored plan with it, field by field.
void TestCreateEndToEnd::confirmAndCompare(const PlanForm& form)
{
    QCOMPARE(m_driver->takeProblems(), QStringList());
    const ShownDates dates = m_driver->dates();
    const int before = storedPlans();
    QSignalSpy closed(m_editor, &AutoParamSetting::signalBtnCancelClicked);
    m_boxes.expect(QStringLiteral("msgBoxTip"));
    m_driver->confirm();

    const QVector<MessageBoxResponder::Box> boxes = m_boxes.take();
    QCOMPARE(boxes.value(0).text, QStringLiteral("交易自动规划创建成功!"));
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(closed.count(), 1);
    QCOMPARE(storedPlans(), before + 1);
    DatabaseProbe facts(m_session->file());
    const QMap<QString, QString> stored = facts.record(facts.planIds().constLast());
    QCOMPARE(
        ExpectedRecord(form, dates, ClientSession::instance().user().id, facts).differences(stored), QStringList());
}

void TestCreateEndToEnd::a_plan_is_stored_as_it_was_filled_in_data()
{
    using namespace Orlo_Values::SideUnion;
    const QString& sh = Kelvo_Values::SymbolPost::sh;
    const QString& sz = Kelvo_Values::SymbolPost::sz;
    const QString custom = QStringLiteral("max(昨收价*0.98,10.5)");
    QTest::addColumn<PlanForm>("form");
    QTest::newRow("ordinary, without a price limit") << ordinary();
    QTest::newRow("ordinary, a price formula") << priced(ordinary(), PriceModel::Custom, custom);
    QTest::newRow("ordinary, the larger of two prices")
        << priced(ordinary(), PriceModel::CompareMax, QStringLiteral("昨收价"), QStringLiteral("MA5*1.01"));
    QTest::newRow("ordinary, the smaller of two prices")
        << priced(ordinary(), PriceModel::CompareMin, QStringLiteral("涨停价"), QStringLiteral("昨收价+0.05"));
    PlanForm form = ordinary();
    form.planType = PlanType::AverageQty;
    form.beginSteps = 1;
    QTest::newRow("ordinary, average quantity from a later day") << form;
    form = ordinary();
    form.planType = PlanType::SameElements;
    form.remark = QStringLiteral("每日相同，remark 1");
    QTest::newRow("ordinary, same elements with a remark") << form;
    form = ordinary();
    form.assignee = QStringLiteral("程澜");
    QTest::newRow("ordinary, assigned to somebody") << form;
    form = ordinary();
    form.perDay.clear();
    QTest::newRow("ordinary, without a daily maximum") << form;
    QTest::newRow("ordinary, Shenzhen growth board") << ofSecurity(ordinary(), SubType::Gemstock, sz);
    QTest::newRow("ordinary, science board") << ofSecurity(ordinary(), OtherSubType::ScienTechInnovateBoard, sh);
    QTest::newRow("ordinary, Beijing") << ofSecurity(ordinary(), OtherSubType::BjSelectedStock, SymbolSuffix::bj);
    QTest::newRow("ordinary, index fund, three decimals")
        << ofSecurity(ordinary(), SubType::TradingopenindexfundETF, sh);
    QTest::newRow("ordinary, real-estate trust") << ofSecurity(ordinary(), OtherSubType::Reits, sz);
    QTest::newRow("bond of Shanghai") << bond(sh);
    QTest::newRow("bond of Shenzhen") << priced(bond(sz), PriceModel::Custom, custom);
    QTest::newRow("reduction") << reduction(QStringLiteral("沈棠"));
    QTest::newRow("reduction with the first executor") << reduction(QStringLiteral("苏砚"));
    QTest::newRow("credit, collateral buy") << credit(buy, collateralBuy);
    QTest::newRow("credit, financing buy") << credit(buy, financingBuy);
    QTest::newRow("credit, margin sell") << credit(sell, marginSell);
    QTest::newRow("credit, by an algorithm") << byAlgorithm(credit(buy, marginBuy), QStringLiteral("TWAP"));
    form = priced(ordinary(reviewedAccount), PriceModel::Custom, custom);
    form.instructionMode = InstMode::NormalReview;
    QTest::newRow("reviewed, by hand") << form;
    QTest::newRow("reviewed, by an algorithm with its defaults")
        << byAlgorithm(ordinary(reviewedAccount), QStringLiteral("VWAP"));
    form = byAlgorithm(ordinary(reviewedAccount), QStringLiteral("TWAP"));
    form.parameters = { { QStringLiteral("SliceInterval"), QStringLiteral("90") },
        { QStringLiteral("EndTime"), QStringLiteral("11:30:00") } };
    QTest::newRow("reviewed, by an algorithm with chosen parameters") << form;
    QTest::newRow("by amount") << byAmount();
    form = byAmount();
    form.perDay.clear();
    QTest::newRow("by amount, without a daily maximum") << form;
}

void TestCreateEndToEnd::a_plan_is_stored_as_it_was_filled_in()
{
    QFETCH(PlanForm, form);
    open();
    m_driver->fill(form);
    confirmAndCompare(form);
}

void TestCreateEndToEnd::a_hong_kong_plan_sells_whole_lots_of_what_is_held()
{
    open();
    DatabaseProbe facts(m_session->file());
    const DatabaseProbe::Security share =
        facts.held(freeAccount, Orlo_Values::Exchange::HkStockCirculation, OtherSubType::HStcokCirculation, true);
    QVERIFY(share.held >= share.quantityStep);
    for (const QString& priceType : { Orlo_Values::HKTimeInForce::InTrade, Orlo_Values::HKTimeInForce::BeforeTrade }) {
        open();
        PlanForm form = ordinary();
        form.instructionType = InstructionType::HkConnect;
        form.symbol = share.symbol;
        form.side = sell;
        form.priceType = priceType;
        form.target = QString::number(share.quantityStep);
        form.perDay = form.target;
        m_driver->fill(form);
        confirmAndCompare(form);
    }
}

void TestCreateEndToEnd::a_bond_of_shanghai_is_stored_in_lots_of_ten()
{
    open();
    PlanForm form = bond(Kelvo_Values::SymbolPost::sh);
    form.target = QStringLiteral("1990");
    m_driver->fill(form);
    confirmAndCompare(form);
    DatabaseProbe facts(m_session->file());
    QCOMPARE(facts.security(form.symbol).displayFactor, 10);
    QCOMPARE(facts.record(facts.planIds().constLast()).value(QStringLiteral("totalQty")), QStringLiteral("199"));
}

void TestCreateEndToEnd::the_only_account_needs_no_choice()
{
    open(QStringLiteral("trader03"));
    QVERIFY(!m_driver->find<QWidget>("combx_fundAccount")->isEnabled());
    const PlanForm form = ordinary(QStringLiteral("100003"));
    m_driver->fill(form);
    confirmAndCompare(form);
}

void TestCreateEndToEnd::a_declined_question_stores_nothing()
{
    open();
    DatabaseProbe facts(m_session->file());
    PlanForm form = ordinary();
    form.side = sell;
    form.symbol = facts.held(freeAccount, Kelvo_Values::Exchange::sh, SubType::Ashares, false).symbol;
    m_driver->fill(form);
    QCOMPARE(m_driver->takeProblems(), QStringList());
    const int before = storedPlans();
    m_boxes.expect(QStringLiteral("msgBoxQuestion"), false);
    m_driver->confirm();
    QCOMPARE(m_boxes.take().size(), 1);
    QCOMPARE(storedPlans(), before);
    QCOMPARE(m_driver->find<QWidget>("le_targetTotalNum")->property("value").toDouble(), 10000.0);
}

void TestCreateEndToEnd::a_refusal_by_the_service_keeps_the_form()
{
    open();
    PlanForm form = priced(ordinary(), PriceModel::Custom, QStringLiteral("昨收价*"));
    m_driver->fill(form);
    QCOMPARE(m_driver->takeProblems(), QStringList());
    const int before = storedPlans();
    m_boxes.expect(QStringLiteral("msgBoxError"));
    m_driver->confirm();
    const QVector<MessageBoxResponder::Box> boxes = m_boxes.take();
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.constFirst().name, QStringLiteral("msgBoxError"));
    QVERIFY2(
        boxes.constFirst().text.startsWith(QStringLiteral("价格公式不正确：")), qPrintable(boxes.constFirst().text));
    QCOMPARE(storedPlans(), before);

    form.price1 = QStringLiteral("昨收价*1.01");
    m_driver->type("lineEdit_price1", form.price1);
    confirmAndCompare(form);
}

void TestCreateEndToEnd::cancel_closes_and_stores_nothing()
{
    open();
    m_driver->fill(ordinary());
    const int before = storedPlans();
    QSignalSpy closed(m_editor, &AutoParamSetting::signalBtnCancelClicked);
    m_driver->cancel();
    QCOMPARE(closed.count(), 1);
    QCOMPARE(storedPlans(), before);
    QCOMPARE(m_boxes.take().size(), 0);
}

void TestCreateEndToEnd::every_difference_to_what_was_filled_in_is_told()
{
    DatabaseProbe facts(m_session->file());
    const PlanForm form = ordinary();
    const ShownDates dates{ QStringLiteral("2024-05-07"), QStringLiteral("2024-05-10") };
    const ExpectedRecord expected(form, dates, trader, facts);
    QMap<QString, QString> stored = expected.fields();
    const QString subType = facts.security(form.symbol).subType;
    stored.insert(QStringLiteral("planOtherParam"),
        QStringLiteral("{\"securitySubType\":\"%1\",\"currentQty\":\"500\"}").arg(subType));
    QCOMPARE(expected.differences(stored), QStringList());

    stored.insert(QStringLiteral("totalQty"), QStringLiteral("9999"));
    stored.insert(QStringLiteral("remark"), QStringLiteral("unasked"));
    stored.remove(QStringLiteral("endDate"));
    stored.insert(QStringLiteral("planOtherParam"), QStringLiteral("{\"securitySubType\":\"%1\"}").arg(subType));
    QCOMPARE(expected.differences(stored),
        QStringList(
            { QStringLiteral("缺少endDate（应为“2024-05-10”）"), QStringLiteral("totalQty为“9999”，应为“10000”"),
                QStringLiteral("多出remark（“unasked”）"), QStringLiteral("缺少currentQty（应为“500”）") }));
}

QTEST_MAIN(TestCreateEndToEnd)
#include "tst_create_end_to_end.moc"
