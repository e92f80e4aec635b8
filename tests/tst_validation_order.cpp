#include "Algo_Fields.h"
#include "Algo_Values.h"
#include "EditorTest.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloDateEdit.h"
#include "OrloDecimalLineEdit.h"
#include "Orlo_Values.h"
#include "PlanVocabulary.h"
#include "VorSearchBox.h"

#include <QSet>
#include <QSignalBlocker>
#include <QtTest>

namespace {

/// The rules in their order. A rule that makes several checks is listed once for each.
enum Rule {
    DisclosureUnsigned,
    NoAccount,
    NoInstructionType,
    NoSecurity,
    NoTarget,
    TargetInOddLots,
    NoDailyQuantity,
    DailyQuantityInOddLots,
    NoRatio,
    NoFormula1,
    SpecialCharacterInFormula1,
    NoFormula2,
    SpecialCharacterInFormula2,
    NoExecutor,
    NoInstructionMode,
    NoAlgorithmParameters,
    AlgorithmForAnotherAccount,
    AlgorithmForAnotherSide,
    AlgorithmNeedsALimit,
    TargetBelowWhatIsUsed,
    StartedPlanBeginsElsewhere,
    StartedPlanEndsInThePast,
    StartedReductionBeginsElsewhere,
    TargetOffTheStep,
    DailyQuantityOffTheStep,
    HoldingsTooSmall,
    SpecialTreatment,
    RuleCount
};

using Rules = QSet<int>;

struct RuleText {
    const char* name;
    const char* message;
    bool asks;
};

constexpr RuleText Texts[RuleCount] = {
    { "unsigned risk disclosure", "当前账号未签署风险揭示，请关闭智能规划菜单后重新创建减持计划进行签署。", false },
    { "no account", "未绑定资金帐号！", false },
    { "no instruction type", "指令类型必填，请重新编辑！", false },
    { "no security", "未输入代码！", false },
    { "no target", "未输入目标总量！", false },
    { "target in odd lots", "沪市债券目标总量需为10的正整数倍，是否继续？", false },
    { "no daily quantity", "未输入每日计划量!", false },
    { "daily quantity in odd lots", "沪市债券每日最大委托量需为10的正整数倍，是否继续？", false },
    { "no ratio", "未输入减持占比！", false },
    { "no formula 1", "价格公式必填，请重新编辑！", false },
    { "special character in formula 1", "价格公式包含特殊字符;，请重新编辑！", false },
    { "no formula 2", "价格2公式必填，请重新编辑！", false },
    { "special character in formula 2", "价格2公式包含特殊字符?，请重新编辑！", false },
    { "no executor", "分配给必填，请重新编辑！", false },
    { "no instruction mode", "下单模式必填，请重新编辑！", false },
    { "no algorithm parameters", "未设置算法参数！", false },
    { "algorithm for another account", "算法参数中的交易账号与计划参数不一致！", false },
    { "algorithm for another side", "算法参数中的交易方向与计划参数不一致！", false },
    { "algorithm that needs a limit", "冰山算法不支持不限价，请重新设置！", false },
    { "target below what is used", "目标数量不得小于该计划已成交和在下达总和，请重新输入！", false },
    { "started plan begins elsewhere", "计划已开始执行，初始日期不支持修改！", false },
    { "started plan ends in the past", "计划已开始执行，结束日期不得早于当日！", false },
    { "started reduction begins elsewhere", "计划已开始执行，初始日期不支持修改！", false },
    { "target off the step", "目标总量需等于【7】的整数倍，是否继续？", true },
    { "daily quantity off the step", "每日最大委托量需等于【7】的整数倍，是否继续？", true },
    { "holdings too small",
        "当前账号【%1】的持仓可用小于目标总量，是否继续%2计划？继续请点击【确认】，否则点击【取消】", true },
    { "special treatment", "该证券为风险警示股票。是否继续创建？", true },
};

bool isAnyOf(const Rules& rules, const Rules& group)
{
    return rules.intersects(group);
}

const Rules OfReductions = { DisclosureUnsigned, NoRatio, NoExecutor };
const Rules OfAlgorithms = { NoAlgorithmParameters, AlgorithmForAnotherAccount, AlgorithmForAnotherSide,
    AlgorithmNeedsALimit };
const Rules OfEdits = { TargetBelowWhatIsUsed, StartedPlanBeginsElsewhere, StartedPlanEndsInThePast,
    StartedReductionBeginsElsewhere };

/// Pairs that no plan can break at once, because they contradict each other.
bool contradict(int first, int second)
{
    const Rules pair = { first, second };
    const QList<Rules> contradictions = {
        { NoFormula1, SpecialCharacterInFormula1 }, { NoFormula2, SpecialCharacterInFormula2 },
        { NoTarget, TargetOffTheStep },              // an empty target is 0, which fits every step
        { NoDailyQuantity, DailyQuantityInOddLots }, // so does a daily quantity of 0
        { NoDailyQuantity, DailyQuantityOffTheStep },
        { AlgorithmForAnotherSide, SpecialTreatment }, // the first applies to the plan's own sides only
        { HoldingsTooSmall, SpecialTreatment },        // one applies to sales, the other to purchases
    };
    if (contradictions.contains(pair))
        return true;
    if (isAnyOf(pair, { NoInstructionMode }) && isAnyOf(pair, OfAlgorithms))
        return true;
    return isAnyOf(pair, OfReductions) && isAnyOf(pair, { NoTarget, TargetInOddLots, NoDailyQuantity });
}

QString sentence(int rule)
{
    return QString::fromUtf8(Texts[rule].message);
}

} // namespace

/// Which rule reports when a plan breaks several. The form is filled with a valid plan; then single fields are made
/// invalid with blocked signals, so that no other field changes.
class ValidationOrderTest : public EditorTest {
    Q_OBJECT

private:
    void openFilled(const Rules& broken)
    {
        openSampleMarket();
        script().addAccount(QStringLiteral("acc3"), exchanges(), { AutoPlanInstructionType::Ordinary });
        script().accounts.last().clientNo.clear();
        script().strategyAliases.insert(QStringLiteral("ICEBERG2"), QStringLiteral("冰山"));
        script().securities[Stock].displayFactor = 10;
        PlanSample plan;
        plan.begin = QDate(2024, 5, 6);
        constructShown();
        if (isAnyOf(broken, OfEdits)) {
            storePlan(PlanId, plan);
            setToday(QDate(2024, 5, 8));
            editor().editPlan(PlanId);
        } else {
            fillForm(editor(), plan);
        }
    }

    void breakPlan(const Rules& broken)
    {
        breakAlgorithm(broken);
        breakChoices(broken);
        breakQuantities(broken);
        breakPrices(broken);
        breakEdit(broken);
        breakServices(broken);
    }

    void breakChoices(const Rules& broken)
    {
        if (isAnyOf(broken, OfReductions)) {
            chooseSilently(editor(), "combx_planType", AutoPlanTemplate::ReduceHoldings);
            field<OrloDecimalLineEdit>(editor(), "le_reduceHRatio")->setValue(0.5);
        } else if (broken.contains(NoDailyQuantity)) {
            chooseSilently(editor(), "combx_planType", AutoPlanTemplate::SameElements);
        }
        if (broken.contains(NoAccount))
            chooseNothing(editor(), "combx_fundAccount");
        if (broken.contains(NoInstructionType))
            chooseNothing(editor(), "combx_instructionType");
        if (broken.contains(NoSecurity)) {
            VorSearchBox* const search = field<VorSearchBox>(editor(), "le_symbol");
            const QSignalBlocker blocker(search);
            search->setSymbol(QString());
            script().securities.insert(QString(), script().securities.value(Stock));
        }
        if (broken.contains(NoExecutor))
            chooseNothing(editor(), "combx_assignTo");
        if (broken.contains(NoInstructionMode))
            chooseNothing(editor(), "combx_instructionMode");
        if (broken.contains(HoldingsTooSmall))
            chooseSilently(editor(), "combx_tradeSide", Kelvo_Values::OrderSide::sell);
        if (broken.contains(SpecialTreatment))
            chooseSilently(editor(), "combx_tradeSide", Orlo_Values::OrderSide::buy);
    }

    void breakQuantities(const Rules& broken)
    {
        OrloDecimalLineEdit* const target = field<OrloDecimalLineEdit>(editor(), "le_targetTotalNum");
        OrloDecimalLineEdit* const daily = field<OrloDecimalLineEdit>(editor(), "le_entrustMaxNum");
        if (broken.contains(TargetInOddLots))
            target->setValue(1005);
        if (broken.contains(NoTarget))
            target->clear();
        if (broken.contains(DailyQuantityInOddLots))
            daily->setValue(305);
        if (broken.contains(NoDailyQuantity))
            daily->setValue(0);
        if (broken.contains(NoRatio))
            field<OrloDecimalLineEdit>(editor(), "le_reduceHRatio")->clear();
        for (ScriptSecurity& security : script().securities)
            security.qtyStep = 7;
        field<QWidget>(editor(), "label_targetQtyStep")->setVisible(broken.contains(TargetOffTheStep));
        field<QWidget>(editor(), "label_maxEntrustQtyStep")->setVisible(broken.contains(DailyQuantityOffTheStep));
    }

    void breakPrices(const Rules& broken)
    {
        QLineEdit* const formula1 = field<QLineEdit>(editor(), "lineEdit_price1");
        QLineEdit* const formula2 = field<QLineEdit>(editor(), "lineEdit_price2");
        if (broken.contains(NoFormula1))
            formula1->clear();
        if (broken.contains(SpecialCharacterInFormula1))
            formula1->setText(QStringLiteral("a;b"));
        formula2->setVisible(isAnyOf(broken, { NoFormula2, SpecialCharacterInFormula2 }));
        if (broken.contains(SpecialCharacterInFormula2))
            formula2->setText(QStringLiteral("a?b"));
        if (broken.contains(AlgorithmNeedsALimit))
            chooseSilently(editor(), "combx_priceMode", AutoPlanPriceModel::NoLimit);
    }

    void breakAlgorithm(const Rules& broken)
    {
        if (!isAnyOf(broken, OfAlgorithms))
            return;
        const bool sells = broken.contains(HoldingsTooSmall);
        press(editor(), "btn_algoParamSetting");
        chooseSilently(editor(), "combx_instructionMode", AutoPlanInstMode::AlgoTradeReview);
        script().panelHasParams = !broken.contains(NoAlgorithmParameters);
        script().panelStrategy = QStringLiteral("ICEBERG2");
        script().panelParams = {
            { Algo_Fields::AlgoInstContentInfo::TradingAccount,
                broken.contains(AlgorithmForAnotherAccount) ? QStringLiteral("another")
                    : broken.contains(NoAccount)            ? QString()
                                                            : Account },
            { Algo_Fields::AlgoInstContentInfo::OrderSide,
                broken.contains(AlgorithmForAnotherSide) ? QStringLiteral("neither")
                    : sells                              ? Algo_Values::AlgoOrderSide::SellValue
                                                         : Algo_Values::AlgoOrderSide::BuyValue },
        };
    }

    void breakEdit(const Rules& broken)
    {
        if (!isAnyOf(broken, OfEdits))
            return;
        if (broken.contains(TargetBelowWhatIsUsed))
            script().planInstructions =
                QMap<QString, FieldMap>{ { QStringLiteral("I1"), { { AutoPlanFieldId::IssuedQty, 5000 } } } };
        const QDate begin(2024, 5, 6);
        const QDate start = broken.contains(StartedPlanBeginsElsewhere) ? begin.addDays(3) : begin;
        const QDate end = broken.contains(StartedPlanEndsInThePast) ? QDate(2024, 5, 7) : QDate(2024, 5, 8);
        field<OrloDateEdit>(editor(), "date_effectivePeriod_Multi")->SetStartEndDate(start, end);
        if (broken.contains(StartedReductionBeginsElsewhere)) {
            field<QWidget>(editor(), "date_effectivePeriod_Single")->show();
            field<OrloDateEdit>(editor(), "date_effectivePeriod_Single")->SetDate(begin.addDays(1));
        }
    }

    void breakServices(const Rules& broken)
    {
        if (broken.contains(DisclosureUnsigned))
            script().unsignedClients = QStringList{ QStringLiteral("C-acc1"), QString() };
        if (broken.contains(HoldingsTooSmall))
            script().positions = QList<FieldMap>{ { { Kelvo_Fields::Security::tradeableQty, -1 } } };
        if (broken.contains(SpecialTreatment)) {
            for (ScriptSecurity& security : script().securities) {
                security.stFlag = QStringLiteral("ST");
                security.stDescription = QStringLiteral("该证券为风险警示股票");
            }
        }
    }

    /// The message of OK for a plan that breaks these rules.
    QStringList check(const Rules& broken)
    {
        openFilled(broken);
        breakPlan(broken);
        return ok();
    }

    /// The message of a rule for a plan that breaks it, and possibly others.
    QString spoken(int rule, const Rules& broken) const
    {
        const QString kind = Texts[rule].asks ? QStringLiteral("question: ") : QStringLiteral("warning: ");
        if (rule != HoldingsTooSmall)
            return kind + sentence(rule);
        const QString account = broken.contains(NoAccount) ? QString() : QStringLiteral("F-acc1");
        const QString action = isAnyOf(broken, OfEdits) ? QStringLiteral("修改") : QStringLiteral("创建");
        return kind + sentence(rule).arg(account, action);
    }

private Q_SLOTS:
    void aPlanThatBreaksNothingIsSent()
    {
        QCOMPARE(check({}), QStringList{ QStringLiteral("tip: 交易自动规划创建成功!") });
        QCOMPARE(script().createdRecords.size(), 1);
    }

    void theEditOfAPlanThatBreaksNothingIsSent()
    {
        openFilled({ TargetBelowWhatIsUsed });
        breakPlan({});
        QCOMPARE(ok(), QStringList{ QStringLiteral("tip: 交易计划P1修改成功!") });
        QCOMPARE(script().modifiedRecords.size(), 1);
    }

    void aBrokenRuleShowsTheOnlyBox_data()
    {
        QTest::addColumn<int>("rule");
        for (int rule = 0; rule < RuleCount; ++rule)
            QTest::newRow(Texts[rule].name) << rule;
    }

    void aBrokenRuleShowsTheOnlyBox()
    {
        QFETCH(int, rule);
        script().questionAnswer = 0;
        QCOMPARE(check({ rule }), QStringList{ spoken(rule, { rule }) });
        QCOMPARE(script().boxes.first().parent, static_cast<QWidget*>(&editor()));
        QCOMPARE(sent(), 0);
    }

    void ofTwoBrokenRulesTheEarlierReports_data()
    {
        QTest::addColumn<int>("earlier");
        QTest::addColumn<int>("later");
        for (int earlier = 0; earlier < RuleCount; ++earlier) {
            for (int later = earlier + 1; later < RuleCount; ++later) {
                if (!contradict(earlier, later))
                    QTest::newRow(qPrintable(QString::fromUtf8(Texts[earlier].name) + QStringLiteral(", then ")
                        + QString::fromUtf8(Texts[later].name)))
                        << earlier << later;
            }
        }
    }

    void ofTwoBrokenRulesTheEarlierReports()
    {
        QFETCH(int, earlier);
        QFETCH(int, later);
        script().questionAnswers = { 1, 0 };
        const Rules broken = { earlier, later };
        QStringList expected = { spoken(earlier, broken) };
        if (Texts[earlier].asks)
            expected.append(spoken(later, broken));
        QCOMPARE(check(broken), expected);
        QCOMPARE(sent(), 0);
    }

    void everyAcceptedQuestionLeadsToTheNext()
    {
        const QList<int> questions = { TargetOffTheStep, DailyQuantityOffTheStep, HoldingsTooSmall };
        const Rules broken(questions.cbegin(), questions.cend());
        QStringList expected;
        for (const int rule : questions)
            expected.append(spoken(rule, broken));
        expected.append(QStringLiteral("tip: 交易自动规划创建成功!"));
        QCOMPARE(check(broken), expected);
        QCOMPARE(script().createdRecords.size(), 1);
    }
};

QTEST_MAIN(ValidationOrderTest)
#include "tst_validation_order.moc"
