#include "Algo_Fields.h"
#include "Algo_Values.h"
#include "AutoPlanField.h"
#include "EditorTest.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloDecimalLineEdit.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"
#include "PlanVocabulary.h"
#include "VorSearchBox.h"

#include <QLabel>
#include <QSignalBlocker>
#include <QtTest>

#include <cmath>

using Change = std::function<void()>;

Q_DECLARE_METATYPE(Change)

namespace {

namespace Content = Algo_Fields::AlgoInstContentInfo;

const QString Created = QStringLiteral("tip: 交易自动规划创建成功!");
const QString Modified = QStringLiteral("tip: 交易计划P1修改成功!");

QString warning(const char* text)
{
    return QStringLiteral("warning: ") + QString::fromUtf8(text);
}

QString question(const char* text)
{
    return QStringLiteral("question: ") + QString::fromUtf8(text);
}

PlanSample algorithmPlan()
{
    return PlanSample().withMode(AutoPlanInstMode::AlgoTradeReview);
}

PlanSample amountPlan()
{
    PlanSample plan = algorithmPlan();
    plan.targetType = InstructionTargetType::AmountOrder;
    return plan;
}

PlanSample equalPlan()
{
    return PlanSample().withPlanType(AutoPlanTemplate::SameElements);
}

PlanSample connectPlan()
{
    return PlanSample::ofType(AutoPlanInstructionType::HkConnect);
}

PlanSample saleOf(double target)
{
    PlanSample plan;
    plan.side = Kelvo_Values::OrderSide::sell;
    plan.target = target;
    return plan;
}

FieldMap byQuantity(const QVariant& ended, double filled, double issued)
{
    using namespace AutoPlanFieldId;
    return { { InstructionEnded, ended }, { FilledQty, filled }, { IssuedQty, issued } };
}

FieldMap byAmount(const QVariant& ended, double filled, double issued)
{
    using namespace AutoPlanFieldId;
    return { { TargetType, InstructionTargetType::AmountOrder }, { InstructionEnded, ended },
        { Orlo_Fields::Security::cumAmount, filled }, { IssuedAmount, issued }, { FilledQty, 999999 },
        { IssuedQty, 999999 } };
}

} // namespace

/// Each rule at the boundary between valid and invalid values, with its whole message.
class ValidationRulesTest : public EditorTest {
    Q_OBJECT

private:
    void open(const PlanSample& plan)
    {
        openFilledWith(plan);
        script().forget();
    }

    void edit(const PlanSample& plan)
    {
        openSampleMarket();
        storePlan(PlanId, plan);
        constructShown();
        editor().editPlan(PlanId);
        script().forget();
    }

    OrloDecimalLineEdit* number(const char* name) const { return field<OrloDecimalLineEdit>(editor(), name); }

    void enterExactly(const char* name, double value)
    {
        number(name)->setDecimals(12);
        number(name)->setValue(value);
    }

    // --- Rows: a filled plan, or a stored one that is edited, then a change, then the message of OK

    void columns()
    {
        QTest::addColumn<PlanSample>("plan");
        QTest::addColumn<bool>("edits");
        QTest::addColumn<Change>("change");
        QTest::addColumn<QStringList>("said");
    }

    void row(const char* name, const PlanSample& plan, const Change& change, const QStringList& said)
    {
        QTest::newRow(name) << plan << false << change << said;
    }
    void row(const char* name, const PlanSample& plan, const Change& change, const QString& said)
    {
        row(name, plan, change, QStringList{ said });
    }
    void edited(const char* name, const PlanSample& plan, const Change& change, const QString& said)
    {
        QTest::newRow(name) << plan << true << change << QStringList{ said };
    }

    /// The test of the rows.
    void check()
    {
        QFETCH(PlanSample, plan);
        QFETCH(bool, edits);
        QFETCH(Change, change);
        QFETCH(QStringList, said);
        if (edits)
            edit(plan);
        else
            open(plan);
        change();
        QCOMPARE(ok(), said);
        QCOMPARE(sent(), said.last() == Created || said.last() == Modified ? 1 : 0);
    }

    Change nothing()
    {
        return [] {};
    }
    Change lots(int factor, double target)
    {
        return [=] {
            script().securities[Stock].displayFactor = factor;
            enterExactly("le_targetTotalNum", target);
        };
    }
    Change daily(double value, int factor = 1)
    {
        return [=] {
            script().securities[Stock].displayFactor = factor;
            enterExactly("le_entrustMaxNum", value);
        };
    }
    Change prices(const QString& mode, const QString& formula1, const QString& formula2)
    {
        return [=] {
            choose(editor(), "combx_priceMode", mode);
            type(editor(), "lineEdit_price1", formula1);
            type(editor(), "lineEdit_price2", formula2);
        };
    }
    Change parameter(const QString& key, const QVariant& value)
    {
        return [=] {
            script().panelParams.remove(key);
            if (value.isValid())
                script().panelParams.insert(key, value);
        };
    }
    Change instructions(const QList<FieldMap>& list, double target)
    {
        return [=] {
            QMap<QString, FieldMap> byId;
            for (const FieldMap& one : list)
                byId.insert(QStringLiteral("I%1").arg(byId.size() + 1), one);
            script().planInstructions = byId;
            enterExactly("le_targetTotalNum", target);
        };
    }
    Change datesOn(const QDate& day, const QDate& start, const QDate& end)
    {
        return [=] {
            setToday(day);
            pickRange(editor(), start, end);
            pickDate(editor(), start);
        };
    }
    /// The service has another begin date of the plan, or none.
    void storeBegin(const QVariant& begin)
    {
        script().plans[PlanId].remove(AutoPlanField::BaseField::beginDate);
        if (begin.isValid())
            script().plans[PlanId].insert(AutoPlanField::BaseField::beginDate, begin);
    }
    Change datesWithBegin(const QVariant& begin, const QDate& start, const QDate& end)
    {
        return [=] {
            storeBegin(begin);
            pickRange(editor(), start, end);
            pickDate(editor(), start);
        };
    }
    Change quantities(double target, double perDay, const QList<int>& answers = {})
    {
        return [=] {
            enterExactly("le_targetTotalNum", target);
            enterExactly("le_entrustMaxNum", perDay);
            script().questionAnswers = answers;
        };
    }
    Change holdings(const QVariantList& tradeable, int factor = 1, int answer = 1)
    {
        return [=] {
            script().questionAnswer = answer;
            script().securities[Stock].displayFactor = factor;
            QList<FieldMap> positions;
            for (const QVariant& quantity : tradeable)
                positions.append({ { Kelvo_Fields::Security::tradeableQty, quantity } });
            script().positions = positions;
        };
    }
    Change treatment(const QString& side, const QString& flag, const QString& description, int answer = 1)
    {
        return [=] {
            script().questionAnswer = answer;
            script().securities[Stock].stFlag = flag;
            script().securities[Stock].stDescription = description;
            chooseSilently(editor(), "combx_tradeSide", side);
        };
    }

private Q_SLOTS:
    // --- Account, security and entrust type

    void theRiskDisclosureOfTheAccountMustBeSigned_data()
    {
        columns();
        const QString refused = warning("当前账号未签署风险揭示，请关闭智能规划菜单后重新创建减持计划进行签署。");
        const PlanSample reduction = PlanSample::reduction();
        const auto unsignedClient = [this](const char* client) {
            return [=] { script().unsignedClients = QStringList{ QString::fromLatin1(client) }; };
        };
        row("everybody has signed", reduction, nothing(), Created);
        row("the account's client has not signed", reduction, unsignedClient("C-acc1"), refused);
        row("the client of another account has not signed", reduction, unsignedClient("C-acc2"), Created);
        row("client numbers are compared with their case", reduction, unsignedClient("c-acc1"), Created);
        row("only reductions are asked about", PlanSample(), unsignedClient("C-acc1"), Created);
    }
    void theRiskDisclosureOfTheAccountMustBeSigned() { check(); }

    void accountTypeAndSecurityMustBeChosen()
    {
        open(PlanSample());
        chooseNothing(editor(), "combx_fundAccount");
        QCOMPARE(ok(), QStringList{ warning("未绑定资金帐号！") });
        chooseSilently(editor(), "combx_fundAccount", OtherAccount);
        chooseNothing(editor(), "combx_instructionType");
        QCOMPARE(ok(), QStringList{ warning("指令类型必填，请重新编辑！") });
        field<QLabel>(editor(), "la_instructType")->setText(QStringLiteral("另一名称"));
        QCOMPARE(ok(), QStringList{ warning("另一名称必填，请重新编辑！") });
        chooseSilently(editor(), "combx_instructionType", AutoPlanInstructionType::Ordinary);
        const QSignalBlocker blocker(field<VorSearchBox>(editor(), "le_symbol"));
        chooseSecurity(editor(), QString());
        QCOMPARE(ok(), QStringList{ warning("未输入代码！") });
        chooseSecurity(editor(), Stock);
        QCOMPARE(ok(), QStringList{ Created });
    }

    // --- Quantities

    void aTargetMustBeGiven_data()
    {
        columns();
        const auto empty = [this](bool shown) {
            return [=] {
                number("le_targetTotalNum")->clear();
                number("le_targetTotalNum")->setVisible(shown);
            };
        };
        row("an empty quantity", PlanSample(), empty(true), warning("未输入目标总量！"));
        row("an empty amount", amountPlan(), empty(true), warning("未输入目标总量！"));
        row("a reduction names a ratio instead", PlanSample::reduction(), empty(true), Created);
        row("an amount whose field is hidden", amountPlan(), empty(false), Created);
        row("a hidden quantity is below one lot", PlanSample(), empty(false),
            warning("沪市债券目标总量需为1的正整数倍，是否继续？"));
    }
    void aTargetMustBeGiven() { check(); }

    void theTargetMustBeWholeLots_data()
    {
        columns();
        const QString tens = warning("沪市债券目标总量需为10的正整数倍，是否继续？");
        const PlanSample plan;
        row("one lot", plan, lots(10, 10), Created);
        row("two lots", plan, lots(10, 20), Created);
        row("a target below one lot is refused, although the text asks", plan, lots(10, 5), tens);
        row("zero", plan, lots(10, 0), tens);
        row("a lot and a half", plan, lots(10, 15), tens);
        row("a millionth below a lot is rounded up", plan, lots(10, 9.9999995), Created);
        row("two millionths below a lot are not", plan, lots(10, 9.999998), tens);
        row("decimals above a lot are cut off", plan, lots(10, 10.9), Created);
        row("one of one", plan, lots(1, 1), Created);
        row("half of one", plan, lots(1, 0.5), warning("沪市债券目标总量需为1的正整数倍，是否继续？"));
        row("an amount has no lots", amountPlan(), lots(10, 5), Created);
        row("a reduction has no lots", PlanSample::reduction(), lots(10, 5), Created);
    }
    void theTargetMustBeWholeLots() { check(); }

    void theDailyQuantityOfEqualPlansMustBeGiven_data()
    {
        columns();
        const QString missing = warning("未输入每日计划量!");
        row("one share", equalPlan(), daily(1), Created);
        row("nothing", equalPlan(), daily(0), missing);
        row("half of the tolerance counts as nothing", equalPlan(), daily(5e-11), missing);
        row("twice the tolerance counts", equalPlan(), daily(2e-10), Created);
        row("no amount", amountPlan().withPlanType(AutoPlanTemplate::SameElements), daily(0), missing);
        row("a cumulative plan needs none", PlanSample(), daily(0), Created);
        row("an average plan needs none", PlanSample().withPlanType(AutoPlanTemplate::AverageQty), daily(0), Created);
        row("a reduction needs none", PlanSample::reduction(), daily(0), Created);
    }
    void theDailyQuantityOfEqualPlansMustBeGiven() { check(); }

    void theDailyQuantityMustBeWholeLots_data()
    {
        columns();
        const QString refused = warning("沪市债券每日最大委托量需为10的正整数倍，是否继续？");
        const PlanSample plan;
        row("nothing", plan, daily(0, 10), Created);
        row("one lot", plan, daily(10, 10), Created);
        row("less than one lot", plan, daily(5, 10), refused);
        row("odd lots", plan, daily(305, 10), refused);
        row("a millionth below a lot is rounded up", plan, daily(9.9999995, 10), Created);
        row("two millionths below a lot are not", plan, daily(9.999998, 10), refused);
        row("less than one is nothing", plan, daily(0.5, 10), Created);
        row("of an equal plan it has another name", equalPlan(), daily(5, 10),
            warning("沪市债券每日计划量需为10的正整数倍，是否继续？"));
        row("an amount has no lots", amountPlan(), daily(5, 10), Created);
        row("a reduction hides the field", PlanSample::reduction(), daily(5, 10), Created);
    }
    void theDailyQuantityMustBeWholeLots() { check(); }

    void theReductionRatioMustBeGiven_data()
    {
        columns();
        const QString missing = warning("未输入减持占比！");
        const PlanSample reduction = PlanSample::reduction();
        const auto ratio = [this](double value) { return [=] { enterExactly("le_reduceHRatio", value); }; };
        row("one in ten thousand", reduction, ratio(0.0001), Created);
        row("all", reduction, ratio(1), Created);
        row("zero", reduction, ratio(0), missing);
        row("half of the tolerance counts as none", reduction, ratio(5e-11), missing);
        row("twice the tolerance counts", reduction, ratio(2e-10), Created);
        row(
            "an empty field", reduction, [this] { number("le_reduceHRatio")->clear(); }, missing);
        row(
            "a text that is no number", reduction,
            [this] { number("le_reduceHRatio")->setSuffix(QStringLiteral(" 成")); }, missing);
        row("another plan needs none", PlanSample(), ratio(0), Created);
    }
    void theReductionRatioMustBeGiven() { check(); }

    // --- Prices, executor and mode

    void formulasMustBeGiven_data()
    {
        columns();
        using namespace AutoPlanPriceModel;
        const QString close = QStringLiteral("昨收价");
        const QString none = warning("价格公式必填，请重新编辑！");
        const QString no1 = warning("价格1公式必填，请重新编辑！");
        const QString no2 = warning("价格2公式必填，请重新编辑！");
        const PlanSample plan;
        row("no limit, and the zero is gone", plan, prices(NoLimit, {}, {}), none);
        row("no limit", plan, prices(NoLimit, QStringLiteral("0.00"), {}), Created);
        row("custom, none", plan, prices(Custom, {}, {}), none);
        row("custom, a blank", plan, prices(Custom, QStringLiteral(" "), {}), Created);
        row("a hidden second formula is not looked at", plan, prices(Custom, close, QStringLiteral("a;b")), Created);
        row("the larger, none of two", plan, prices(CompareMax, {}, {}), no1);
        row("the larger, only the first", plan, prices(CompareMax, close, {}), no2);
        row("the smaller, only the second", plan, prices(CompareMin, {}, close), no1);
        row("the smaller, only the first", plan, prices(CompareMin, close, {}), no2);
        row("the smaller, both", plan, prices(CompareMin, close, QStringLiteral("a")), Created);
    }
    void formulasMustBeGiven() { check(); }

    void formulasMustHoldNoSpecialCharacter_data()
    {
        QTest::addColumn<QString>("formula");
        QTest::addColumn<QString>("found");
        for (const QChar character : QStringLiteral("`;\uFFFD"))
            QTest::addRow("U+%04x is refused", character.unicode())
                << QStringLiteral("a%1b").arg(character) << QString(character);
        QTest::newRow("full-width punctuation passes") << "a（）；？b" << QString();
        QTest::newRow("a percent sign before a digit") << "x%1"
                                                       << "%1";
        QTest::newRow("the second placeholder") << "x%2"
                                                << "%2";
        QTest::newRow("the first of two is reported") << "a?b;"
                                                      << "?";
        QTest::newRow("a percent sign at the end") << "5%" << QString();
    }

    void formulasMustHoldNoSpecialCharacter()
    {
        QFETCH(QString, formula);
        QFETCH(QString, found);
        const QString rest = QStringLiteral("公式包含特殊字符") + found + QStringLiteral("，请重新编辑！");
        open(PlanSample());
        type(editor(), "lineEdit_price1", formula);
        QCOMPARE(ok(), QStringList{ found.isEmpty() ? Created : warning("价格") + rest });
        open(PlanSample());
        prices(AutoPlanPriceModel::CompareMax, QStringLiteral("昨收价"), formula)();
        QCOMPARE(ok(), QStringList{ found.isEmpty() ? Created : warning("价格2") + rest });
    }

    void aReductionNeedsAnExecutor_data()
    {
        columns();
        const Change unnamed = [this] { chooseNothing(editor(), "combx_assignTo"); };
        row("named", PlanSample::reduction(), nothing(), Created);
        row("not named", PlanSample::reduction(), unnamed, warning("执行人必填，请重新编辑！"));
        row("another plan needs none", PlanSample(), unnamed, Created);
    }
    void aReductionNeedsAnExecutor() { check(); }

    void anInstructionModeMustBeChosen()
    {
        open(connectPlan().withMode(AutoPlanInstMode::AlgoTradeReview));
        choose(editor(), "combx_priceMode", AutoPlanPriceModel::NoLimit);
        choose(editor(), "combx_priceType", Orlo_Values::HKTimeInForce::BeforeTrade);
        QCOMPARE(codes(editor(), "combx_instructionMode"), QStringList());
        QCOMPARE(ok(), QStringList{ warning("下单模式必填，请重新编辑！") });
        choose(editor(), "combx_priceType", Orlo_Values::HKTimeInForce::InTrade);
        QCOMPARE(ok(), QStringList{ Created });
    }

    // --- The algorithm

    void anAlgorithmMustFitThePlan_data()
    {
        columns();
        const QString otherAccount = warning("算法参数中的交易账号与计划参数不一致！");
        const QString otherSide = warning("算法参数中的交易方向与计划参数不一致！");
        const QString buy = Algo_Values::AlgoOrderSide::BuyValue;
        const QString sell = Algo_Values::AlgoOrderSide::SellValue;
        const PlanSample plan = algorithmPlan();
        row(
            "closed without parameters", plan, [this] { script().panelHasParams = false; },
            warning("未设置算法参数！"));
        row("the same account", plan, parameter(Content::TradingAccount, Account), Created);
        row("another account", plan, parameter(Content::TradingAccount, OtherAccount), otherAccount);
        row("the same account in capitals", plan, parameter(Content::TradingAccount, QStringLiteral("ACC1")),
            otherAccount);
        row("no account", plan, parameter(Content::TradingAccount, QVariant()), otherAccount);
        const auto sides = [this](const QString& ofPlan, const QString& ofAlgorithm) {
            return [=] {
                chooseSilently(editor(), "combx_tradeSide", ofPlan);
                script().panelParams.insert(Content::OrderSide, ofAlgorithm);
            };
        };
        row("both buy", plan, sides(Kelvo_Values::OrderSide::buy, buy), Created);
        row("both sell", plan, sides(Kelvo_Values::OrderSide::sell, sell), Created);
        row("the plan buys", plan, sides(Kelvo_Values::OrderSide::buy, sell), otherSide);
        row("the plan sells", plan, sides(Kelvo_Values::OrderSide::sell, buy), otherSide);
        row("the plan buys, the algorithm has no side", plan, sides(Kelvo_Values::OrderSide::buy, {}), otherSide);
        row("the plan sells, the algorithm has no side", plan, sides(Kelvo_Values::OrderSide::sell, {}), otherSide);
        row("any other side is not compared", plan, sides(QStringLiteral("another"), buy), Created);
    }
    void anAlgorithmMustFitThePlan() { check(); }

    void anAlgorithmWhosePanelWasNeverOpenedHasNoParameters()
    {
        open(PlanSample().withMode(AutoPlanInstMode::NormalTradeReview));
        choose(editor(), "combx_instructionMode", AutoPlanInstMode::AlgoTradeReview);
        script().panelHasParams = true;
        QCOMPARE(ok(), QStringList{ warning("未设置算法参数！") });
    }

    void someAlgorithmsNeedAPriceLimit_data()
    {
        columns();
        using namespace AutoPlanPriceModel;
        const auto strategy = [this](const char* name, const QString& mode) {
            return [=] {
                script().strategyAliases.insert(QStringLiteral("ICEBERG2"), QStringLiteral("冰山"));
                script().panelStrategy = QString::fromLatin1(name);
                prices(mode, QStringLiteral("昨收价"), QStringLiteral("昨收价"))();
                choose(editor(), "combx_instructionMode", AutoPlanInstMode::AlgoTradeReview);
            };
        };
        const PlanSample plan = algorithmPlan();
        row("the iceberg without a limit", plan, strategy("ICEBERG2", NoLimit),
            warning("冰山算法不支持不限价，请重新设置！"));
        row("the sniper without a limit, and without an alias", plan, strategy("SNIPER", NoLimit),
            warning("算法不支持不限价，请重新设置！"));
        row("the iceberg in lower case", plan, strategy("iceberg2", NoLimit), Created);
        row("another algorithm", plan, strategy("TWAP", NoLimit), Created);
        row("no name", plan, strategy("", NoLimit), Created);
        row("the iceberg with a formula", plan, strategy("ICEBERG2", Custom), Created);
        row("the sniper with two formulas", plan, strategy("SNIPER", CompareMax), Created);
    }
    void someAlgorithmsNeedAPriceLimit() { check(); }

    // --- Edits

    void anEditedTargetCoversWhatIsUsed_data()
    {
        columns();
        using namespace AutoPlanFieldId;
        const QString tooLow = warning("目标数量不得小于该计划已成交和在下达总和，请重新输入！");
        const QString ended = QStringLiteral("1");
        const QString running = QStringLiteral("0");
        const auto used = [&](const char* name, const QList<FieldMap>& list, double target, const QString& said) {
            edited(name, PlanSample(), instructions(list, target), said);
        };
        used("no instruction yet", {}, 1, Modified);
        used("running, all of it issued", { byQuantity(running, 0, 1000) }, 1000, Modified);
        used("running, more issued", { byQuantity(running, 0, 1001) }, 1000, tooLow);
        used("running, what is filled does not count", { byQuantity(running, 5000, 1000) }, 1000, Modified);
        used("ended, all of it filled", { byQuantity(ended, 1000, 5000) }, 1000, Modified);
        used("ended, more filled", { byQuantity(ended, 1001, 0) }, 1000, tooLow);
        used("the mark of the end may be a number", { byQuantity(1, 1001, 0) }, 1000, tooLow);
        used("another mark is ignored", { byQuantity(QStringLiteral("2"), 5000, 1000) }, 1000, Modified);
        used("a missing mark is ignored", { { { FilledQty, 5000 }, { IssuedQty, 1000 } } }, 1000, Modified);
        used("no fields count as nothing", { FieldMap(), FieldMap() }, 1, Modified);
        used("numbers as texts", { { { InstructionEnded, ended }, { FilledQty, QStringLiteral("1000.5") } } }, 1000,
            tooLow);
        used("an amount, running, issued", { byAmount(running, 5000, 1000) }, 1000, Modified);
        used("an amount, running, more issued", { byAmount(running, 0, 1000.01) }, 1000, tooLow);
        used("an amount, ended, filled", { byAmount(ended, 1000, 5000) }, 1000, Modified);
        used("an amount, ended, more filled", { byAmount(ended, 1000.01, 0) }, 1000, tooLow);
        used("by quantity said aloud", { { { TargetType, InstructionTargetType::QtyOrder }, { IssuedQty, 1001 } } },
            1000, tooLow);
        const QList<FieldMap> two{ byQuantity(ended, 600, 0), byQuantity(running, 0, 400) };
        used("an ended and a running one", two, 1000, Modified);
        used("an ended and a running one, one share too many", two, 999, tooLow);
        used("a hundred-billionth below passes", { byQuantity(ended, 1000, 0) }, 999.99999999999, Modified);
        used("two ten-billionths below are refused", { byQuantity(ended, 1000, 0) }, 999.9999999998, tooLow);
        used("a tenth below is refused", { byQuantity(ended, 1000, 0) }, 999.9, tooLow);
        used("a sum that is not a number passes", { byQuantity(ended, qQNaN(), 0) }, 1000, Modified);
    }
    void anEditedTargetCoversWhatIsUsed() { check(); }

    void eachInstructionIsLogged()
    {
        edit(PlanSample());
        instructions({ byQuantity(QStringLiteral("1"), 600, 8), byQuantity(QStringLiteral("0"), 7, 400) }, 1000)();
        log().clear();
        QCOMPARE(ok(), QStringList{ Modified });
        const QList<LogLine> found = log().linesWith(QtDebugMsg, QStringLiteral("AutoParamSetting::checkParam"));
        QCOMPARE(found.size(), 2);
        QVERIFY(
            found.at(0).text.startsWith(QStringLiteral("AutoParamSetting::checkParam \"P1\" \"I1\" true 600 8 600")));
        QVERIFY(
            found.at(1).text.startsWith(QStringLiteral("AutoParamSetting::checkParam \"P1\" \"I2\" false 7 400 1000")));
    }

    void aStartedPlanKeepsItsDates_data()
    {
        columns();
        const QDate begin(2024, 5, 8);
        const QDate end(2024, 5, 17);
        const QString moved = warning("计划已开始执行，初始日期不支持修改！");
        const QString past = warning("计划已开始执行，结束日期不得早于当日！");
        const PlanSample plan;
        const PlanSample reduction = PlanSample::reduction();
        edited("not started, moved", plan, datesOn(begin.addDays(-1), begin.addDays(1), end), Modified);
        edited("not started, ends in the past", plan, datesOn(begin.addDays(-1), begin, begin.addDays(-2)), Modified);
        edited("starts today, unchanged", plan, datesOn(begin, begin, end), Modified);
        edited("starts today, moved", plan, datesOn(begin, begin.addDays(1), end), moved);
        edited("started, unchanged", plan, datesOn(begin.addDays(5), begin, end), Modified);
        edited("started, moved back", plan, datesOn(begin.addDays(5), begin.addDays(-1), end), moved);
        edited("started, ends today", plan, datesOn(begin.addDays(5), begin, begin.addDays(5)), Modified);
        edited("started, ended yesterday", plan, datesOn(begin.addDays(5), begin, begin.addDays(4)), past);
        edited("started, moved and ended yesterday", plan,
            datesOn(begin.addDays(5), begin.addDays(1), begin.addDays(4)), moved);
        edited(
            "a reduction, not started, moved", reduction, datesOn(begin.addDays(-1), begin.addDays(1), {}), Modified);
        edited("a reduction, starts today, unchanged", reduction, datesOn(begin, begin, {}), Modified);
        edited("a reduction, starts today, moved", reduction, datesOn(begin, begin.addDays(1), {}), moved);
        edited("a reduction, started, unchanged", reduction, datesOn(begin.addDays(5), begin, {}), Modified);
        edited("a reduction, started, moved back", reduction, datesOn(begin.addDays(5), begin.addDays(-1), {}), moved);
        const QDate day(2024, 5, 6);
        edited(
            "the begin is read from the store at OK", plan, [this] { storeBegin(QStringLiteral("2024/05/03")); },
            moved);
        edited(
            "a plan that the service no longer knows has no begin", plan, [this] { script().plans.remove(PlanId); },
            moved);
        for (const QVariant& unread : { QVariant(), QVariant(QStringLiteral("yesterday")) }) {
            const QByteArray kind = unread.isValid() ? "unreadable" : "missing";
            edited(kind + ", no start shown", plan, datesWithBegin(unread, {}, day.addDays(4)), Modified);
            edited(kind + ", ends today", plan, datesWithBegin(unread, {}, day), Modified);
            edited(kind + ", ended yesterday", plan, datesWithBegin(unread, {}, day.addDays(-1)), past);
            edited(kind + ", without an end", plan, datesWithBegin(unread, {}, {}), past);
            edited(kind + ", a start shown", plan, datesWithBegin(unread, day.addDays(1), day.addDays(4)), moved);
            edited(kind + ", a reduction, no date shown", reduction, datesWithBegin(unread, {}, {}), Modified);
            edited(kind + ", a reduction, a date shown", reduction, datesWithBegin(unread, day.addDays(1), {}), moved);
        }
    }
    void aStartedPlanKeepsItsDates() { check(); }

    // --- Questions

    void quantitiesShouldFitTheStep_data()
    {
        columns();
        const QString target = question("目标总量需等于【500】的整数倍，是否继续？");
        const QString perDay = question("每日最大委托量需等于【500】的整数倍，是否继续？");
        const PlanSample hk = connectPlan();
        row("both fit", hk, quantities(1000, 500), Created);
        row("the target does not", hk, quantities(750, 500), QStringList{ target, Created });
        row("the target does not, and it is declined", hk, quantities(750, 500, { 0 }), target);
        row("the target is below a step", hk, quantities(499, 500), QStringList{ target, Created });
        row("the daily quantity does not", hk, quantities(1000, 501), QStringList{ perDay, Created });
        row("neither does", hk, quantities(750, 1), QStringList{ target, perDay, Created });
        row("neither does, and the first is declined", hk, quantities(750, 1, { 0 }), target);
        row("neither does, and the second is declined", hk, quantities(750, 1, { 1, 0 }),
            QStringList{ target, perDay });
        row("a daily quantity of zero fits", hk, quantities(1000, 0), Created);
        row("decimals above a step are cut off", hk, quantities(1000.9, 500.9), Created);
        row("a millionth below a step is below it", hk, quantities(999.9999995, 499.9999995),
            QStringList{ target, perDay, Created });
        row("of an equal plan the second has another name", hk.withPlanType(AutoPlanTemplate::SameElements),
            quantities(1000, 501), QStringList{ question("每日计划量需等于【500】的整数倍，是否继续？"), Created });
        row("a stock in Shanghai shows no step", PlanSample(), quantities(750, 1), Created);
        row(
            "a step of zero skips the rules", hk,
            [this] {
                script().securities[HkStock].qtyStep = 0;
                enter(editor(), "le_targetTotalNum", 7);
                log().expectWarning(QStringLiteral("AutoParamSetting::checkParam"), 2);
            },
            Created);
    }
    void quantitiesShouldFitTheStep() { check(); }

    void holdingsShouldCoverASale_data()
    {
        columns();
        const QString asked = question(
            "当前账号【F-acc1】的持仓可用小于目标总量，是否继续创建计划？继续请点击【确认】，否则点击【取消】");
        const QStringList accepted{ asked, Created };
        const PlanSample sale = saleOf(1000);
        row("just enough", sale, holdings({ 1000 }), Created);
        row("one short", sale, holdings({ 999 }), accepted);
        row("one short, and it is declined", sale, holdings({ 999 }, 1, 0), asked);
        row("a part of a share short", sale, holdings({ 999.5 }), accepted);
        row("several positions are enough together", sale, holdings({ 600, 400 }), Created);
        row("several positions are short together", sale, holdings({ 600, 399 }), accepted);
        row("no position", sale, holdings({}), accepted);
        row("a position without the number", sale, holdings({ QVariant() }), accepted);
        row("numbers as texts", sale, holdings({ QStringLiteral("1000") }), Created);
        row("positions count in stored units", sale, holdings({ 100 }, 10), Created);
        row("positions in stored units are short", sale, holdings({ 99 }, 10), accepted);
        row("holdings that are not a number are not asked about", sale, holdings({ QStringLiteral("nan") }), Created);
        row("a reduction sells too", PlanSample::reduction(), holdings({ 999 }), accepted);
        row("a purchase needs none", PlanSample(), holdings({}), Created);
        row("a margin sale is not asked about", PlanSample::ofType(AutoPlanInstructionType::Credit), holdings({}),
            Created);
        PlanSample amount = amountPlan();
        amount.side = Kelvo_Values::OrderSide::sell;
        row("the sale of an amount is not asked about", amount, holdings({}), Created);
        edited("an edit asks in the word of its kind", sale, holdings({}, 1, 0),
            question(
                "当前账号【F-acc1】的持仓可用小于目标总量，是否继续修改计划？继续请点击【确认】，否则点击【取消】"));
    }
    void holdingsShouldCoverASale() { check(); }

    void holdingsWithADisplayFactorOfZeroCountAsStored()
    {
        open(saleOf(1000));
        holdings({ 999 }, 0, 0)();
        log().expectWarning(QStringLiteral("AutoParamSetting::checkParam display factor 0, rule skipped"), 2);
        log().expectWarning(QStringLiteral("display factor 0 counts as 1"));
        ok();
        QCOMPARE(sent(), 0);
        const QString counts = QStringLiteral("AutoParamSetting::checkParam display factor 0 counts as 1");
        QCOMPARE(log().linesWith(QtWarningMsg, counts).size(), 1);
    }

    void theHoldingsAreLogged()
    {
        open(saleOf(1000));
        log().clear();
        QCOMPARE(ok(), QStringList{ Created });
        const QList<LogLine> found = log().linesWith(QtInfoMsg, QStringLiteral("AutoParamSetting::checkParam"));
        QCOMPARE(found.size(), 1);
        for (const QString& part : lines("600000.K_SH\nS-acc1-k_Exchange_sh\n1e+06\n\"1000\""))
            QVERIFY2(found.first().text.contains(part), qPrintable(found.first().text));
    }

    void aSpeciallyTreatedSecurityIsAskedAbout_data()
    {
        columns();
        const QString buy = Orlo_Values::OrderSide::buy;
        const QString st = QStringLiteral("ST");
        const QString words = QStringLiteral("【股票】为风险警示股票");
        const PlanSample plan;
        row("bought", plan, treatment(buy, st, words),
            QStringList{ question("【股票】为风险警示股票。是否继续创建？"), Created });
        row("bought, and it is declined", plan, treatment(buy, st, words, 0),
            question("【股票】为风险警示股票。是否继续创建？"));
        row("bought, without a description", plan, treatment(buy, st, {}, 0), question("。是否继续创建？"));
        row("bought, with a placeholder in the description", plan, treatment(buy, st, QStringLiteral("x%1"), 0),
            question("x%1。是否继续创建？"));
        edited("an edit asks in the same words", plan, treatment(buy, st, words, 0),
            question("【股票】为风险警示股票。是否继续创建？"));
        row("an ordinary security with a description", plan, treatment(buy, {}, words), Created);
        row("sold", plan, treatment(Kelvo_Values::OrderSide::sell, st, words), Created);
        row("the code of the other family is not a purchase here", plan,
            treatment(Kelvo_Values::OrderSide::buy, st, words), Created);
    }
    void aSpeciallyTreatedSecurityIsAskedAbout() { check(); }

    // --- All rules

    void servicesAreAskedInTheOrderOfTheRules_data()
    {
        QTest::addColumn<PlanSample>("plan");
        QTest::addColumn<bool>("edits");
        QTest::addColumn<QStringList>("calls");
        const QStringList factors = lines("GetDispFactorBySymbol(SYMBOL)\nGetDispFactorBySymbol(SYMBOL)");
        const QStringList held = lines(R"(
            GetDispFactorBySymbol(SYMBOL)
            GetAccountDetailsByTradinngAccount(acc1)
            GetFirstSecurityExchangeBySymbol(SYMBOL)
            GetCurrentSecurityAccountByTradingAndExchange(acc1, EXCHANGE)
            GetPositionListByAccount(acc1, S-acc1-EXCHANGE, SYMBOL, "", "", "", ""))");
        QTest::newRow("a purchase") << PlanSample() << false << factors;
        QTest::newRow("an amount") << amountPlan() << false
                                   << lines("panel.HasParams()\npanel.GetParamMap()\npanel.GetStrategyName()");
        QTest::newRow("a sale") << saleOf(1000) << false << factors + held;
        QTest::newRow("a reduction") << PlanSample::reduction() << false
                                     << lines("GetUnsignedClientNoList(o_ProtocolId_AutoPlanReduceAgree)") + held;
        QTest::newRow("an edit") << PlanSample() << true << factors + lines("GetPlanInstruction(P1)\nGetPlanInfo(P1)");
        QTest::newRow("a sale in Hong Kong")
            << connectPlan() << false
            << factors + lines("GetQtyStepBySymbol(SYMBOL)\nGetQtyStepBySymbol(SYMBOL)") + held;
    }

    void servicesAreAskedInTheOrderOfTheRules()
    {
        QFETCH(PlanSample, plan);
        QFETCH(bool, edits);
        QFETCH(QStringList, calls);
        if (edits)
            edit(plan);
        else
            open(plan);
        QCOMPARE(ok(), QStringList{ edits ? Modified : Created });
        const int firstOfTheRecord = script().calls.indexOf(QStringLiteral("GetLoginAccountDetail()"));
        QCOMPARE(script().calls.mid(0, firstOfTheRecord),
            calls.replaceInStrings(QStringLiteral("SYMBOL"), plan.symbol)
                .replaceInStrings(QStringLiteral("EXCHANGE"), script().security(plan.symbol).exchange));
    }
};

QTEST_MAIN(ValidationRulesTest)
#include "tst_validation_rules.moc"
