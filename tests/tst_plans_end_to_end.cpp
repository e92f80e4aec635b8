#include "ClientFormTest.h"
#include "EditorForm.h"
#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "OrloBusinessDataInterface.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"
#include "TestStatus.h"

#include <QtTest>

namespace SubType = Kelvo_Values::MdcSubSecurityType;
namespace OtherSubType = Orlo_Values::MdcSubSecurityType;
using namespace PlanCodes;
using InstructionTargetType::AmountOrder;
using Kelvo_Values::OrderSide::buy;
using Kelvo_Values::OrderSide::sell;

Q_DECLARE_METATYPE(PlanForm)

namespace {

const ShownDates Shown{ QStringLiteral("2024-05-08"), QStringLiteral("2024-05-17") };
const QDate Later(2024, 5, 9);
const QString FirstDayLater = QStringLiteral("2024-05-10");

QString sentence(const PlanForm& form)
{
    return QStringLiteral("%1 of %2, type %3, by %4, mode %5, price mode %6")
        .arg(form.planType, form.account, form.instructionType,
            form.isByAmount() ? QStringLiteral("amount") : QStringLiteral("quantity"), form.instructionMode,
            form.priceMode);
}

PlanForm hongKong(PlanForm form, const QString& priceType)
{
    form.instructionType = InstructionType::HkConnect;
    form.symbol = SampleSession::symbolOf(OtherSubType::HStcokCirculation, QString());
    form.side = sell;
    form.priceType = priceType;
    form.perDay = QString::number(OrloBusinessDataInterface::GetQtyStepBySymbol(form.symbol));
    form.target = form.perDay + QLatin1Char('0');
    form.assignee.clear();
    form.endSteps = 6; // 15 May is a holiday there
    return form;
}

PlanForm bond(PlanForm form, const QString& suffix)
{
    form.instructionType = InstructionType::Bond;
    form.symbol = SampleSession::symbolOf(OtherSubType::ConvertableBondTypeList.constFirst(), suffix);
    return form;
}

PlanForm credit(PlanForm form, const QString& side, const QString& entrustType)
{
    form.account = QStringLiteral("200001");
    form.instructionType = InstructionType::Credit;
    form.side = side;
    form.entrustType = entrustType;
    return form;
}

/// The plan with each mode of the price.
void addPriced(QList<PlanForm>& plans, const PlanForm& plan)
{
    const QString first = QStringLiteral("昨收价*1.01");
    const QString second = QStringLiteral("昨收价+0.05");
    if (plan.instructionMode != InstMode::NormalReview)
        plans << plan;
    plans << plan.priced(PriceModel::Custom, first) << plan.priced(PriceModel::CompareMax, first, second)
          << plan.priced(PriceModel::CompareMin, first, second);
}

/// The plan of an account under review, in each mode.
void addReviewed(QList<PlanForm>& plans, PlanForm plan)
{
    plan.instructionMode = InstMode::NormalReview;
    addPriced(plans, plan);
    plan = plan.byAlgorithm(QStringLiteral("TWAP"));
    addPriced(plans, plan);
    if (!plan.isReduction() && plan.instructionType != InstructionType::HkConnect)
        addPriced(plans, plan.byAmount(QStringLiteral("250000.5"), QStringLiteral("20000.25")));
}

} // namespace

/// Fills in plans in the real client by mouse and keyboard, reads them back from its database, opens them and sends
/// them again.
class PlansEndToEndTest : public ClientFormTest {
    Q_OBJECT

private:
    /// A plan from 8 to 17 May with an assignee and a remark.
    static PlanForm complete(const QString& account = FreeAccount)
    {
        PlanForm form = ordinary(account);
        form.beginSteps = 1;
        form.endSteps = 7;
        form.assignee = QStringLiteral("程澜");
        form.remark = QStringLiteral("往返，remark 1");
        return form;
    }

    /// Every combination of types and modes that the form offers to the user's accounts.
    static QList<PlanForm> combinations()
    {
        QList<PlanForm> plans;
        for (const QString& planType : { PlanType::CumulativeQty, PlanType::AverageQty, PlanType::SameElements }) {
            PlanForm form = complete();
            form.planType = planType;
            for (const PlanForm& plan : { form, bond(form, Kelvo_Values::SymbolPost::sh),
                     hongKong(form, Orlo_Values::HKTimeInForce::InTrade) }) {
                addPriced(plans, plan);
                PlanForm reviewed = plan;
                reviewed.account = ReviewedAccount;
                addReviewed(plans, reviewed);
            }
            addReviewed(plans, credit(form, buy, Orlo_Values::SideUnion::marginBuy));
        }
        addPriced(plans, complete().reducing(QStringLiteral("0.0125"), QStringLiteral("沈棠")));
        addReviewed(plans, complete(ReviewedAccount).reducing(QStringLiteral("0.0125"), QStringLiteral("沈棠")));
        return plans;
    }

private Q_SLOTS:
    void initTestCase() { startSession(); }
    void cleanupTestCase() { endSession(); }

    void aPlanIsStoredAsFilledInAndComesBackAsItWasSent_data()
    {
        using namespace Orlo_Values::SideUnion;
        const QString& sh = Kelvo_Values::SymbolPost::sh;
        const QString& sz = Kelvo_Values::SymbolPost::sz;
        const QString custom = QStringLiteral("max(昨收价*0.98,10.5)");
        const QString close = QStringLiteral("昨收价");
        QTest::addColumn<PlanForm>("form");
        for (const PlanForm& plan : combinations())
            QTest::newRow(qPrintable(sentence(plan))) << plan;

        const auto row = [](const char* name, PlanForm form, const std::function<void(PlanForm&)>& change = {}) {
            if (change)
                change(form);
            QTest::newRow(name) << form;
        };
        const auto ofSecurity = [](const QString& subType, const QString& suffix) {
            return [=](PlanForm& form) { form.symbol = SampleSession::symbolOf(subType, suffix); };
        };
        const auto withoutDaily = [](PlanForm& form) { form.perDay.clear(); };
        row("a formula with a function", complete().priced(PriceModel::Custom, custom));
        row("a moving average and a limit price",
            complete().priced(PriceModel::CompareMax, QStringLiteral("涨停价"), QStringLiteral("MA5*1.01")));
        row("assigned to no one, without a remark", complete(), [](PlanForm& form) {
            form.assignee.clear();
            form.remark.clear();
        });
        row("without a daily maximum", complete(), withoutDaily);
        row("Shenzhen growth board", complete(), ofSecurity(SubType::Gemstock, sz));
        row("science board", complete(), ofSecurity(OtherSubType::ScienTechInnovateBoard, sh));
        row("Beijing", complete(), ofSecurity(OtherSubType::BjSelectedStock, SymbolSuffix::Bj));
        row("index fund, three decimals", complete(), ofSecurity(SubType::TradingopenindexfundETF, sh));
        row("real-estate trust", complete(), ofSecurity(OtherSubType::Reits, sz));
        row("bond of Shenzhen", bond(complete().priced(PriceModel::Custom, custom), sz));
        row("Hong Kong, in the auction", hongKong(complete(), Orlo_Values::HKTimeInForce::BeforeTrade));
        row("reduction by the first executor", complete().reducing(QStringLiteral("0.0125"), Executor));
        const auto isReviewed = [](PlanForm& form) { form.instructionMode = InstMode::NormalReview; };
        const PlanForm priced = complete().priced(PriceModel::Custom, close);
        row("collateral buy", credit(priced, buy, collateralBuy), isReviewed);
        row("financing buy", credit(priced, buy, financingBuy), isReviewed);
        row("margin sell", credit(priced, sell, marginSell), isReviewed);
        row("an algorithm with its defaults", complete(ReviewedAccount).byAlgorithm(QStringLiteral("VWAP")));
        row("an algorithm with chosen parameters",
            complete(ReviewedAccount)
                .byAlgorithm(QStringLiteral("TWAP"),
                    { { QStringLiteral("SliceInterval"), QStringLiteral("90") },
                        { QStringLiteral("EndTime"), QStringLiteral("11:30:00") } }));
        row("by amount, without a daily maximum",
            complete(ReviewedAccount)
                .byAmount(QStringLiteral("250000.5"), QString())
                .byAlgorithm(QStringLiteral("TWAP")));
    }

    void aPlanIsStoredAsFilledInAndComesBackAsItWasSent()
    {
        QFETCH(PlanForm, form);
        open();
        driver().fill(form);
        const ShownDates dates = driver().dates();
        QCOMPARE(dates.begin, Shown.begin);
        QCOMPARE(dates.end, form.isReduction() ? QString() : Shown.end);
        const int before = *plans().count();
        QCOMPARE(ok(), created());
        QCOMPARE(closed(), 1);
        QCOMPARE(*plans().count(), before + 1);
        const QString id = newestPlan();
        QCOMPARE(differences(id, form, dates), QString());

        const ShownDates movedDates{ FirstDayLater, form.isReduction() ? QString() : FirstDayLater };
        int version = 1;
        for (const QDate& day : { SampleSession::today(), Later }) {
            goTo(day);
            openPlan(id, false);
            QCOMPARE(ok(), created());
            QVERIFY(newestPlan() != id);
            QCOMPARE(differences(newestPlan(), form, day == Later ? movedDates : dates), QString());

            openPlan(id, true);
            QCOMPARE(ok(), modified(id));
            QCOMPARE(plans().plan(id)->version, ++version);
            QCOMPARE(differences(id, form, dates), QString());
        }
    }

    void aReviewedPlanOfAFreeUserBecomesActive_data()
    {
        QTest::addColumn<PlanForm>("form");
        for (const PlanForm& plan : combinations()) {
            if (plan.account == ReviewedAccount && plan.priceMode == PriceModel::CompareMax)
                QTest::newRow(qPrintable(sentence(plan))) << plan;
        }
    }

    void aReviewedPlanOfAFreeUserBecomesActive()
    {
        QFETCH(PlanForm, form);
        form.account = FreeAccount;
        const QString id = store(form, Shown);
        QVERIFY2(!id.isEmpty(), qPrintable(session().reason()));
        openPlan(id, true);
        QCOMPARE(code(editor(), "combx_instructionMode"), InstMode::ActiveManage);
        if (form.isByAmount()) {
            // Users without review may not order amounts, and an edit may not turn an amount into a quantity.
            QCOMPARE(box(editor(), "combx_instructionTargetType")->currentIndex(), -1);
            QCOMPARE(ok(),
                QStringList{
                    QStringLiteral("msgBoxError: 交易计划%1修改失败，失败原因：指令单类型不支持修改").arg(id) });
            QCOMPARE(differences(id, form, Shown), QString());
            return;
        }
        PlanForm active = form.priced(PriceModel::NoLimit, QString());
        active.instructionMode = InstMode::ActiveManage;
        active.strategy.clear();
        QCOMPARE(ok(), modified(id));
        QCOMPARE(differences(id, active, Shown), QString());

        openPlan(store(form, Shown), false);
        QCOMPARE(ok(), created());
        QCOMPARE(differences(newestPlan(), active, Shown), QString());
    }

    void anActivePlanOfAReviewedUserNeedsAnAlgorithm()
    {
        PlanForm form = complete(ReviewedAccount).priced(PriceModel::Custom, QStringLiteral("昨收价*1.01"));
        // Stored directly: the plan is from before the review, and the service would refuse it now.
        DatabaseProbe probe(session().file());
        const QString user = ClientSession::instance().user().id;
        const auto record = ExpectedRecord(form, Shown, user, probe).record();
        const QString id = plans().create(record, { user, QDateTime::currentDateTime() }).valueOr(QString());
        openPlan(id, true);
        QCOMPARE(code(editor(), "combx_instructionMode"), InstMode::AlgoReview);
        QCOMPARE(code(editor(), "combx_priceMode"), PriceModel::NoLimit);
        QCOMPARE(ok(), QStringList{ QStringLiteral("msgBoxWarning: 未设置算法参数！") });
        driver().setAlgorithm(QStringLiteral("TWAP"), {});
        QCOMPARE(ok(), modified(id));
        form = form.priced(PriceModel::NoLimit, QString()).byAlgorithm(QStringLiteral("TWAP"));
        QCOMPARE(differences(id, form, Shown), QString());
    }

    void aBondOfShanghaiIsStoredInLotsOfTen()
    {
        open();
        PlanForm form = bond(ordinary(), Kelvo_Values::SymbolPost::sh);
        form.target = QStringLiteral("1990");
        driver().fill(form);
        QCOMPARE(ok(), created());
        DatabaseProbe probe(session().file());
        QCOMPARE(probe.security(form.symbol).displayFactor, 10);
        QCOMPARE(probe.record(newestPlan()).value(QStringLiteral("totalQty")), QStringLiteral("199"));
    }

    void theOnlyAccountNeedsNoChoice()
    {
        QCOMPARE(session().reopen(QStringLiteral("trader03")), Status());
        open();
        QVERIFY(!isUsable(editor(), "combx_fundAccount"));
        const PlanForm form = ordinary(QStringLiteral("100003"));
        driver().fill(form);
        const ShownDates dates = driver().dates();
        QCOMPARE(ok(), created());
        QCOMPARE(differences(newestPlan(), form, dates), QString());
        QCOMPARE(session().reopen(), Status());
    }

    void aDeclinedQuestionStoresNothing()
    {
        open();
        PlanForm form = ordinary();
        form.side = sell;
        form.symbol = DatabaseProbe(session().file())
                          .held(FreeAccount, Kelvo_Values::Exchange::sh, SubType::Ashares, false)
                          .symbol;
        driver().fill(form);
        const int before = *plans().count();
        const QStringList said = ok();
        QCOMPARE(said.size(), 1);
        QVERIFY2(said.constFirst().startsWith(QStringLiteral("msgBoxQuestion: ")), qPrintable(said.constFirst()));
        QCOMPARE(*plans().count(), before);
        QCOMPARE(field<QWidget>(editor(), "le_targetTotalNum")->property("value").toDouble(), 10000.0);
    }

    void aRefusalByTheServiceKeepsTheForm()
    {
        open();
        PlanForm form = ordinary().priced(PriceModel::Custom, QStringLiteral("昨收价*"));
        driver().fill(form);
        const int before = *plans().count();
        const QStringList said = ok(QStringLiteral("msgBoxError"));
        QCOMPARE(said.size(), 1);
        QVERIFY2(said.constFirst().startsWith(QStringLiteral("msgBoxError: 价格公式不正确：")),
            qPrintable(said.constFirst()));
        QCOMPARE(*plans().count(), before);
        QCOMPARE(closed(), 0);

        form.price1 = QStringLiteral("昨收价*1.01");
        driver().type("lineEdit_price1", form.price1);
        const ShownDates dates = driver().dates();
        QCOMPARE(ok(), created());
        QCOMPARE(differences(newestPlan(), form, dates), QString());
    }

    void cancelClosesAndStoresNothing()
    {
        open();
        driver().fill(ordinary());
        const int before = *plans().count();
        driver().cancel();
        QCOMPARE(closed(), 1);
        QCOMPARE(*plans().count(), before);
        QCOMPARE(boxes().take().size(), 0);
    }

    void everyDifferenceToWhatWasFilledInIsReported()
    {
        DatabaseProbe probe(session().file());
        const PlanForm form = ordinary();
        const ExpectedRecord expected(form, Shown, QStringLiteral("trader01"), probe);
        QMap<QString, QString> stored = expected.fields();
        const QString subType = probe.security(form.symbol).subType;
        stored.insert(QStringLiteral("planOtherParam"),
            QStringLiteral("{\"securitySubType\":\"%1\",\"currentQty\":\"500\"}").arg(subType));
        QCOMPARE(expected.differences(stored), QStringList());

        stored.insert(QStringLiteral("totalQty"), QStringLiteral("9999"));
        stored.insert(QStringLiteral("remark"), QStringLiteral("unasked"));
        stored.remove(QStringLiteral("endDate"));
        stored.insert(QStringLiteral("planOtherParam"), QStringLiteral("{\"securitySubType\":\"%1\"}").arg(subType));
        QCOMPARE(expected.differences(stored),
            QStringList(
                { QStringLiteral("缺少endDate（应为“2024-05-17”）"), QStringLiteral("totalQty为“9999”，应为“10000”"),
                    QStringLiteral("多出remark（“unasked”）"), QStringLiteral("缺少currentQty（应为“500”）") }));
    }
};

QTEST_MAIN(PlansEndToEndTest)
#include "tst_plans_end_to_end.moc"
