#include "Algo_Fields.h"
#include "AutoPlanField.h"
#include "EditorTest.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloDateEdit.h"
#include "OrloDecimalLineEdit.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"
#include "PlanSample.h"
#include "VorSearchBox.h"
#include <QLabel>
#include <QSignalBlocker>
#include <QtTest>

using FieldMap = QMap<QString, QVariant>;
using Instructions = QMap<QString, FieldMap>;

Q_DECLARE_METATYPE(PlanSample)
Q_DECLARE_METATYPE(Instructions)

namespace {

const QString PlanId = QStringLiteral("P1");
const QString Stock = QStringLiteral("600000.K_SH");
const QString Created = QStringLiteral("tip: 交易自动规划创建成功!");
const QString Modified = QStringLiteral("tip: 交易计划P1修改成功!");
const QString TargetBelowUse = QStringLiteral("warning: 目标数量不得小于该计划已成交和在下达总和，请重新输入！");
const QString BeginMoved = QStringLiteral("warning: 计划已开始执行，初始日期不支持修改！");
const QString EndInThePast = QStringLiteral("warning: 计划已开始执行，结束日期不得早于当日！");

PlanSample amountPlan()
{
    PlanSample plan = PlanSample().withMode(QStringLiteral("3"));
    plan.targetType = InstructionTargetType::AmountOrder;
    return plan;
}

PlanSample saleOf(double target)
{
    PlanSample plan;
    plan.side = Kelvo_Values::OrderSide::sell;
    plan.target = target;
    return plan;
}

PlanSample algorithmPlan()
{
    return PlanSample().withMode(QStringLiteral("3"));
}

} // namespace

/// Each rule at the edge between what passes and what fails, with its whole message.
class ValidationRulesTest : public EditorTest {
    Q_OBJECT

private Q_SLOTS:
    void theRiskDisclosureOfTheAccountMustBeSigned_data();
    void theRiskDisclosureOfTheAccountMustBeSigned();
    void anUnsignedReductionIsStoppedBeforeAnythingElseIsMissing();
    void anAccountMustBeChosen();
    void anInstructionTypeMustBeChosen();
    void aSecurityMustBeChosen();
    void aTargetMustBeGiven_data();
    void aTargetMustBeGiven();
    void theTargetMustBeWholeLots_data();
    void theTargetMustBeWholeLots();
    void theDailyQuantityOfEqualPlansMustBeGiven_data();
    void theDailyQuantityOfEqualPlansMustBeGiven();
    void theDailyQuantityMustBeWholeLots_data();
    void theDailyQuantityMustBeWholeLots();
    void theReductionRatioMustBeGiven_data();
    void theReductionRatioMustBeGiven();
    void aRatioThatIsNoNumberCountsAsNone();
    void formulasMustBeGiven_data();
    void formulasMustBeGiven();
    void formulasMustHoldNoSpecialCharacter_data();
    void formulasMustHoldNoSpecialCharacter();
    void aHiddenSecondFormulaIsNotLookedAt();
    void aReductionNeedsAnExecutor_data();
    void aReductionNeedsAnExecutor();
    void anInstructionModeMustBeChosen();
    void anAlgorithmPlanNeedsParameters_data();
    void anAlgorithmPlanNeedsParameters();
    void theAlgorithmMustTradeForThePlansAccount_data();
    void theAlgorithmMustTradeForThePlansAccount();
    void theAlgorithmMustTradeOnThePlansSide_data();
    void theAlgorithmMustTradeOnThePlansSide();
    void someAlgorithmsNeedAPriceLimit_data();
    void someAlgorithmsNeedAPriceLimit();
    void anEditedTargetCoversWhatIsUsed_data();
    void anEditedTargetCoversWhatIsUsed();
    void eachInstructionIsLogged();
    void onlyAnEditAsksForInstructions();
    void aStartedPlanKeepsItsBegin_data();
    void aStartedPlanKeepsItsBegin();
    void aStartedReductionKeepsItsDate_data();
    void aStartedReductionKeepsItsDate();
    void theBeginIsReadFromTheStoreAtOk();
    void aPlanWithoutAReadableBeginKeepsItsDates_data();
    void aPlanWithoutAReadableBeginKeepsItsDates();
    void aReductionWithoutAReadableBeginKeepsItsDate_data();
    void aReductionWithoutAReadableBeginKeepsItsDate();
    void aPlanThatTheServiceNoLongerKnowsHasNoBegin();
    void quantitiesShouldFitTheStep_data();
    void quantitiesShouldFitTheStep();
    void lotsAreRoundedAndStepsAreCutOff();
    void holdingsShouldCoverASale_data();
    void holdingsShouldCoverASale();
    void theHoldingsAreLogged();
    void aSpeciallyTreatedSecurityIsAskedAbout_data();
    void aSpeciallyTreatedSecurityIsAskedAbout();
    void anEditAsksInTheWordsOfItsKind();
    void servicesAreAskedInTheOrderOfTheRules_data();
    void servicesAreAskedInTheOrderOfTheRules();
    void aDisplayFactorOfZeroSkipsTheLotRules();
    void aStepOfZeroSkipsTheStepRules();
    void theFormIsUntouchedByARefusal();
    void theEditorMayDieUnderItsBoxes_data();
    void theEditorMayDieUnderItsBoxes();
    void okPressedAgainUnderABoxDoesNothing();

private:
    void open(const PlanSample& plan);
    void edit(const PlanSample& plan, const QDate& today = QDate(2024, 5, 6));
    /// Has the service keep another begin of the plan, or none.
    void storeBegin(const QVariant& begin);
    void showDecimals(const char* name, int decimals);
    void setNumber(const char* name, double value) { number(name)->setValue(value); }
    void setText(const char* name, const QString& words) { field<QLineEdit>(editor(), name)->setText(words); }
    OrloDecimalLineEdit* number(const char* name) const { return field<OrloDecimalLineEdit>(editor(), name); }
    void chooseSilently(const char* name, const QString& itemCode);
    void chooseNothing(const char* name);
    /// Presses OK and returns what the boxes said: "kind: text".
    QStringList ok();
    int sent() const { return script().createdRecords.size() + script().modifiedRecords.size(); }
    QStringList formState() const;
};

void ValidationRulesTest::open(const PlanSample& plan)
{
    if (script().accounts.isEmpty())
        openSampleMarket();
    if (plan.mode != QLatin1String("1"))
        script().ruleProperty = 1;
    constructShown();
    fillForm(editor(), plan);
    script().forget();
}

void ValidationRulesTest::edit(const PlanSample& plan, const QDate& day)
{
    if (script().accounts.isEmpty())
        openSampleMarket();
    setToday(day);
    storePlan(PlanId, plan);
    constructShown();
    editor().editPlan(PlanId);
    script().forget();
}

void ValidationRulesTest::storeBegin(const QVariant& begin)
{
    script().plans[PlanId].remove(AutoPlanField::BaseField::beginDate);
    if (begin.isValid())
        script().plans[PlanId].insert(AutoPlanField::BaseField::beginDate, begin);
}

void ValidationRulesTest::showDecimals(const char* name, int decimals)
{
    number(name)->setDecimals(decimals);
}

void ValidationRulesTest::chooseSilently(const char* name, const QString& itemCode)
{
    QComboBox* const combo = box(editor(), name);
    const QSignalBlocker blocker(combo);
    if (combo->findData(itemCode) < 0)
        combo->addItem(itemCode, itemCode);
    combo->setCurrentIndex(combo->findData(itemCode));
}

void ValidationRulesTest::chooseNothing(const char* name)
{
    const QSignalBlocker blocker(box(editor(), name));
    box(editor(), name)->setCurrentIndex(-1);
}

QStringList ValidationRulesTest::ok()
{
    script().boxes.clear();
    press(editor(), "btn_ok");
    QStringList sentences;
    for (const ScriptBox& shown : qAsConst(script().boxes))
        sentences.append(shown.kind + QStringLiteral(": ") + shown.text);
    return sentences;
}

QStringList ValidationRulesTest::formState() const
{
    QStringList state;
    for (const QWidget* const widget : editor().findChildren<QWidget*>()) {
        if (!widget->objectName().isEmpty())
            state.append(QStringLiteral("%1 %2 %3 %4 %5")
                             .arg(widget->objectName(), widget->property("text").toString(),
                                 widget->property("currentText").toString())
                             .arg(widget->isHidden())
                             .arg(widget->isEnabled()));
    }
    return state;
}

// --- Rule 1

void ValidationRulesTest::theRiskDisclosureOfTheAccountMustBeSigned_data()
{
    QTest::addColumn<PlanSample>("plan");
    QTest::addColumn<QStringList>("unsignedClients");
    QTest::addColumn<QString>("said");
    const QString refused =
        QStringLiteral("warning: 当前账号未签署风险揭示，请关闭智能规划菜单后重新创建减持计划进行签署。");
    const PlanSample reduction = PlanSample::reduction();
    QTest::newRow("everybody has signed") << reduction << QStringList() << Created;
    QTest::newRow("the account's client has not signed")
        << reduction << QStringList{ QStringLiteral("C-acc1") } << refused;
    QTest::newRow("the client of another account has not signed")
        << reduction << QStringList{ QStringLiteral("C-acc2") } << Created;
    QTest::newRow("client numbers are compared with their case")
        << reduction << QStringList{ QStringLiteral("c-acc1") } << Created;
    QTest::newRow("only reductions are asked about")
        << PlanSample() << QStringList{ QStringLiteral("C-acc1") } << Created;
}

void ValidationRulesTest::theRiskDisclosureOfTheAccountMustBeSigned()
{
    QFETCH(PlanSample, plan);
    QFETCH(QStringList, unsignedClients);
    QFETCH(QString, said);
    open(plan);
    script().unsignedClients = unsignedClients;
    QCOMPARE(ok(), QStringList{ said });
}

void ValidationRulesTest::anUnsignedReductionIsStoppedBeforeAnythingElseIsMissing()
{
    openSampleMarket();
    constructShown();
    script().unsignedClients = QStringList{ QStringLiteral("C-acc1") };
    chooseSilently("combx_fundAccount", QStringLiteral("acc1"));
    chooseSilently("combx_planType", QStringLiteral("JC-01"));
    QCOMPARE(ok(),
        QStringList{
            QStringLiteral("warning: 当前账号未签署风险揭示，请关闭智能规划菜单后重新创建减持计划进行签署。") });
}

// --- Rules 2 to 4

void ValidationRulesTest::anAccountMustBeChosen()
{
    open(PlanSample());
    chooseNothing("combx_fundAccount");
    QCOMPARE(ok(), QStringList{ QStringLiteral("warning: 未绑定资金帐号！") });
    chooseSilently("combx_fundAccount", QStringLiteral("acc2"));
    QCOMPARE(ok(), QStringList{ Created });
}

void ValidationRulesTest::anInstructionTypeMustBeChosen()
{
    open(PlanSample());
    chooseNothing("combx_instructionType");
    QCOMPARE(ok(), QStringList{ QStringLiteral("warning: 指令类型必填，请重新编辑！") });
    field<QLabel>(editor(), "la_instructType")->setText(QStringLiteral("另一名称"));
    QCOMPARE(ok(), QStringList{ QStringLiteral("warning: 另一名称必填，请重新编辑！") });
    chooseSilently("combx_instructionType", QStringLiteral("1"));
    QCOMPARE(ok(), QStringList{ Created });
}

void ValidationRulesTest::aSecurityMustBeChosen()
{
    open(PlanSample());
    VorSearchBox* const search = field<VorSearchBox>(editor(), "le_symbol");
    const QSignalBlocker blocker(search);
    search->setSymbol(QString());
    QCOMPARE(ok(), QStringList{ QStringLiteral("warning: 未输入代码！") });
    search->setSymbol(Stock);
    QCOMPARE(ok(), QStringList{ Created });
}

// --- Rule 5

void ValidationRulesTest::aTargetMustBeGiven_data()
{
    QTest::addColumn<PlanSample>("plan");
    QTest::addColumn<bool>("shown");
    QTest::addColumn<QString>("said");
    const QString missing = QStringLiteral("warning: 未输入目标总量！");
    PlanSample reduction = PlanSample::reduction();
    QTest::newRow("an empty quantity") << PlanSample() << true << missing;
    QTest::newRow("an empty amount") << amountPlan() << true << missing;
    QTest::newRow("a reduction names a ratio instead") << reduction << true << Created;
    QTest::newRow("an amount whose field is hidden") << amountPlan() << false << Created;
    QTest::newRow("a hidden quantity is below one lot")
        << PlanSample() << false << QStringLiteral("warning: 沪市债券目标总量需为1的正整数倍，是否继续？");
}

void ValidationRulesTest::aTargetMustBeGiven()
{
    QFETCH(PlanSample, plan);
    QFETCH(bool, shown);
    QFETCH(QString, said);
    open(plan);
    number("le_targetTotalNum")->clear();
    number("le_targetTotalNum")->setVisible(shown);
    QCOMPARE(ok(), QStringList{ said });
}

void ValidationRulesTest::theTargetMustBeWholeLots_data()
{
    QTest::addColumn<PlanSample>("plan");
    QTest::addColumn<int>("factor");
    QTest::addColumn<double>("target");
    QTest::addColumn<QString>("said");
    const QString tens = QStringLiteral("warning: 沪市债券目标总量需为10的正整数倍，是否继续？");
    const QString ones = QStringLiteral("warning: 沪市债券目标总量需为1的正整数倍，是否继续？");
    const PlanSample plan;
    QTest::newRow("one lot") << plan << 10 << 10.0 << Created;
    QTest::newRow("two lots") << plan << 10 << 20.0 << Created;
    QTest::newRow("a target below one lot is refused, although the text asks") << plan << 10 << 5.0 << tens;
    QTest::newRow("zero") << plan << 10 << 0.0 << tens;
    QTest::newRow("a lot and a half") << plan << 10 << 15.0 << tens;
    QTest::newRow("a millionth below a lot is rounded up") << plan << 10 << 9.9999995 << Created;
    QTest::newRow("two millionths below a lot are not") << plan << 10 << 9.999998 << tens;
    QTest::newRow("decimals above a lot are cut off") << plan << 10 << 10.9 << Created;
    QTest::newRow("one of one") << plan << 1 << 1.0 << Created;
    QTest::newRow("half of one") << plan << 1 << 0.5 << ones;
    QTest::newRow("an amount has no lots") << amountPlan() << 10 << 5.0 << Created;
    QTest::newRow("a reduction has no lots") << PlanSample::reduction() << 10 << 5.0 << Created;
}

void ValidationRulesTest::theTargetMustBeWholeLots()
{
    QFETCH(PlanSample, plan);
    QFETCH(int, factor);
    QFETCH(double, target);
    QFETCH(QString, said);
    open(plan);
    script().securities[Stock].displayFactor = factor;
    showDecimals("le_targetTotalNum", 7);
    setNumber("le_targetTotalNum", target);
    QCOMPARE(ok(), QStringList{ said });
    QCOMPARE(script().createdRecords.size(), said == Created ? 1 : 0);
}

// --- Rules 6 and 7

void ValidationRulesTest::theDailyQuantityOfEqualPlansMustBeGiven_data()
{
    QTest::addColumn<PlanSample>("plan");
    QTest::addColumn<double>("daily");
    QTest::addColumn<QString>("said");
    const QString missing = QStringLiteral("warning: 未输入每日计划量!");
    const PlanSample equal = PlanSample().withPlanType(QStringLiteral("TW-03"));
    QTest::newRow("one share") << equal << 1.0 << Created;
    QTest::newRow("nothing") << equal << 0.0 << missing;
    QTest::newRow("half of the tolerance counts as nothing") << equal << 5e-11 << missing;
    QTest::newRow("twice the tolerance counts") << equal << 2e-10 << Created;
    QTest::newRow("no amount") << amountPlan().withPlanType(QStringLiteral("TW-03")) << 0.0 << missing;
    QTest::newRow("a cumulative plan needs none") << PlanSample() << 0.0 << Created;
    QTest::newRow("an average plan needs none") << PlanSample().withPlanType(QStringLiteral("TW-02")) << 0.0 << Created;
    QTest::newRow("a reduction needs none") << PlanSample::reduction() << 0.0 << Created;
}

void ValidationRulesTest::theDailyQuantityOfEqualPlansMustBeGiven()
{
    QFETCH(PlanSample, plan);
    QFETCH(double, daily);
    QFETCH(QString, said);
    open(plan);
    showDecimals("le_entrustMaxNum", 12);
    setNumber("le_entrustMaxNum", daily);
    QCOMPARE(ok(), QStringList{ said });
}

void ValidationRulesTest::theDailyQuantityMustBeWholeLots_data()
{
    QTest::addColumn<PlanSample>("plan");
    QTest::addColumn<double>("daily");
    QTest::addColumn<QString>("said");
    const QString refused = QStringLiteral("warning: 沪市债券每日最大委托量需为10的正整数倍，是否继续？");
    const PlanSample plan;
    QTest::newRow("nothing") << plan << 0.0 << Created;
    QTest::newRow("one lot") << plan << 10.0 << Created;
    QTest::newRow("less than one lot") << plan << 5.0 << refused;
    QTest::newRow("odd lots") << plan << 305.0 << refused;
    QTest::newRow("a millionth below a lot is rounded up") << plan << 9.9999995 << Created;
    QTest::newRow("two millionths below a lot are not") << plan << 9.999998 << refused;
    QTest::newRow("less than one is nothing") << plan << 0.5 << Created;
    QTest::newRow("of an equal plan it has another name") << plan.withPlanType(
        QStringLiteral("TW-03")) << 5.0 << QStringLiteral("warning: 沪市债券每日计划量需为10的正整数倍，是否继续？");
    QTest::newRow("an amount has no lots") << amountPlan() << 5.0 << Created;
    QTest::newRow("a reduction hides the field") << PlanSample::reduction() << 5.0 << Created;
}

void ValidationRulesTest::theDailyQuantityMustBeWholeLots()
{
    QFETCH(PlanSample, plan);
    QFETCH(double, daily);
    QFETCH(QString, said);
    open(plan);
    script().securities[Stock].displayFactor = 10;
    showDecimals("le_entrustMaxNum", 7);
    setNumber("le_entrustMaxNum", daily);
    QCOMPARE(ok(), QStringList{ said });
}

// --- Rule 8

void ValidationRulesTest::theReductionRatioMustBeGiven_data()
{
    QTest::addColumn<PlanSample>("plan");
    QTest::addColumn<double>("ratio");
    QTest::addColumn<QString>("said");
    const QString missing = QStringLiteral("warning: 未输入减持占比！");
    QTest::newRow("one in ten thousand") << PlanSample::reduction() << 0.0001 << Created;
    QTest::newRow("all") << PlanSample::reduction() << 1.0 << Created;
    QTest::newRow("zero") << PlanSample::reduction() << 0.0 << missing;
    QTest::newRow("half of the tolerance counts as none") << PlanSample::reduction() << 5e-11 << missing;
    QTest::newRow("twice the tolerance counts") << PlanSample::reduction() << 2e-10 << Created;
    QTest::newRow("an empty field") << PlanSample::reduction() << -1.0 << missing;
    QTest::newRow("another plan needs none") << PlanSample() << 0.0 << Created;
}

void ValidationRulesTest::theReductionRatioMustBeGiven()
{
    QFETCH(PlanSample, plan);
    QFETCH(double, ratio);
    QFETCH(QString, said);
    open(plan);
    showDecimals("le_reduceHRatio", 12);
    if (ratio < 0)
        number("le_reduceHRatio")->clear();
    else
        setNumber("le_reduceHRatio", ratio);
    QCOMPARE(ok(), QStringList{ said });
}

void ValidationRulesTest::aRatioThatIsNoNumberCountsAsNone()
{
    open(PlanSample::reduction());
    number("le_reduceHRatio")->setSuffix(QStringLiteral(" 成"));
    QCOMPARE(number("le_reduceHRatio")->GetStrValue(), QStringLiteral("0.25 成"));
    QCOMPARE(ok(), QStringList{ QStringLiteral("warning: 未输入减持占比！") });
}

// --- Rules 9 to 12

void ValidationRulesTest::formulasMustBeGiven_data()
{
    QTest::addColumn<QString>("priceMode");
    QTest::addColumn<QString>("formula1");
    QTest::addColumn<QString>("formula2");
    QTest::addColumn<QString>("said");
    QTest::newRow("no limit, and the zero is gone")
        << QStringLiteral("1") << QString() << QString() << QStringLiteral("warning: 价格公式必填，请重新编辑！");
    QTest::newRow("no limit") << QStringLiteral("1") << QStringLiteral("0.00") << QString() << Created;
    QTest::newRow("custom, none") << QStringLiteral("6") << QString() << QString()
                                  << QStringLiteral("warning: 价格公式必填，请重新编辑！");
    QTest::newRow("custom, a blank") << QStringLiteral("6") << QStringLiteral(" ") << QString() << Created;
    QTest::newRow("the larger, none of two")
        << QStringLiteral("7") << QString() << QString() << QStringLiteral("warning: 价格1公式必填，请重新编辑！");
    QTest::newRow("the larger, only the first") << QStringLiteral("7") << QStringLiteral("昨收价") << QString()
                                                << QStringLiteral("warning: 价格2公式必填，请重新编辑！");
    QTest::newRow("the smaller, only the second") << QStringLiteral("8") << QString() << QStringLiteral("昨收价")
                                                  << QStringLiteral("warning: 价格1公式必填，请重新编辑！");
    QTest::newRow("the smaller, only the first") << QStringLiteral("8") << QStringLiteral("昨收价") << QString()
                                                 << QStringLiteral("warning: 价格2公式必填，请重新编辑！");
    QTest::newRow("the smaller, both") << QStringLiteral("8") << QStringLiteral("昨收价") << QStringLiteral("a")
                                       << Created;
}

void ValidationRulesTest::formulasMustBeGiven()
{
    QFETCH(QString, priceMode);
    QFETCH(QString, formula1);
    QFETCH(QString, formula2);
    QFETCH(QString, said);
    open(PlanSample());
    choose(editor(), "combx_priceMode", priceMode);
    setText("lineEdit_price1", formula1);
    setText("lineEdit_price2", formula2);
    QCOMPARE(ok(), QStringList{ said });
}

void ValidationRulesTest::formulasMustHoldNoSpecialCharacter_data()
{
    QTest::addColumn<QString>("formula");
    QTest::addColumn<QString>("found");
    for (const QChar character : QStringLiteral("`~!@#$&=|{}':[]<>?;\uFFFD"))
        QTest::newRow(qPrintable(QStringLiteral("U+%1 is refused").arg(character.unicode(), 4, 16, QLatin1Char('0'))))
            << QStringLiteral("a%1b").arg(character) << QString(character);
    for (const QChar character : QStringLiteral("（）【】‘；：”“’。，、？^*()-+/\\,._\"% "))
        QTest::newRow(qPrintable(QStringLiteral("U+%1 passes").arg(character.unicode(), 4, 16, QLatin1Char('0'))))
            << QStringLiteral("a%1b").arg(character) << QString();
    QTest::newRow("a moving average times a number") << QStringLiteral("MA(5)*1.01") << QString();
    QTest::newRow("a full-width semicolon behind it") << QStringLiteral("MA(5)；") << QString();
    QTest::newRow("a percent sign before a digit") << QStringLiteral("x%1") << QStringLiteral("%1");
    QTest::newRow("the second placeholder") << QStringLiteral("x%2") << QStringLiteral("%2");
    QTest::newRow("several percent signs before a digit") << QStringLiteral("x%%57") << QStringLiteral("%%5");
    QTest::newRow("a percent sign at the end") << QStringLiteral("5%") << QString();
    QTest::newRow("a percent sign before a digit of another script") << QStringLiteral("x%٣") << QString();
    QTest::newRow("the first of two is told") << QStringLiteral("a?b;") << QStringLiteral("?");
    QTest::newRow("the percent sign comes first") << QStringLiteral("%1;") << QStringLiteral("%1");
}

void ValidationRulesTest::formulasMustHoldNoSpecialCharacter()
{
    QFETCH(QString, formula);
    QFETCH(QString, found);
    open(PlanSample());
    setText("lineEdit_price1", formula);
    const QString rest = QStringLiteral("公式包含特殊字符") + found + QStringLiteral("，请重新编辑！");
    QCOMPARE(ok(), QStringList{ found.isEmpty() ? Created : QStringLiteral("warning: 价格") + rest });
    open(PlanSample());
    choose(editor(), "combx_priceMode", QStringLiteral("7"));
    setText("lineEdit_price1", QStringLiteral("昨收价"));
    setText("lineEdit_price2", formula);
    QCOMPARE(ok(), QStringList{ found.isEmpty() ? Created : QStringLiteral("warning: 价格2") + rest });
}

void ValidationRulesTest::aHiddenSecondFormulaIsNotLookedAt()
{
    open(PlanSample());
    setText("lineEdit_price2", QStringLiteral("a;b"));
    QVERIFY(!field<QWidget>(editor(), "lineEdit_price2")->isVisible());
    QCOMPARE(ok(), QStringList{ Created });
}

// --- Rules 13 and 14

void ValidationRulesTest::aReductionNeedsAnExecutor_data()
{
    QTest::addColumn<PlanSample>("plan");
    QTest::addColumn<bool>("named");
    QTest::addColumn<QString>("said");
    QTest::newRow("named") << PlanSample::reduction() << true << Created;
    QTest::newRow("not named") << PlanSample::reduction() << false
                               << QStringLiteral("warning: 执行人必填，请重新编辑！");
    QTest::newRow("another plan needs none") << PlanSample() << false << Created;
}

void ValidationRulesTest::aReductionNeedsAnExecutor()
{
    QFETCH(PlanSample, plan);
    QFETCH(bool, named);
    QFETCH(QString, said);
    open(plan);
    if (!named)
        chooseNothing("combx_assignTo");
    QCOMPARE(ok(), QStringList{ said });
}

void ValidationRulesTest::anInstructionModeMustBeChosen()
{
    PlanSample plan = PlanSample::ofType(QStringLiteral("9")).withMode(QStringLiteral("3"));
    open(plan);
    choose(editor(), "combx_priceMode", QStringLiteral("1"));
    choose(editor(), "combx_priceType", Orlo_Values::HKTimeInForce::BeforeTrade);
    QCOMPARE(codes(editor(), "combx_instructionMode"), QStringList());
    QCOMPARE(ok(), QStringList{ QStringLiteral("warning: 下单模式必填，请重新编辑！") });
    choose(editor(), "combx_priceType", Orlo_Values::HKTimeInForce::InTrade);
    QCOMPARE(ok(), QStringList{ Created });
}

// --- Rule 15

void ValidationRulesTest::anAlgorithmPlanNeedsParameters_data()
{
    QTest::addColumn<bool>("opened");
    QTest::addColumn<bool>("set");
    QTest::addColumn<QString>("said");
    const QString missing = QStringLiteral("warning: 未设置算法参数！");
    QTest::newRow("the panel was never opened") << false << true << missing;
    QTest::newRow("the panel was closed without parameters") << true << false << missing;
    QTest::newRow("parameters are set") << true << true << Created;
}

void ValidationRulesTest::anAlgorithmPlanNeedsParameters()
{
    QFETCH(bool, opened);
    QFETCH(bool, set);
    QFETCH(QString, said);
    if (opened) {
        open(algorithmPlan());
    } else {
        openSampleMarket();
        script().ruleProperty = 1;
        open(PlanSample().withMode(QStringLiteral("2")));
        choose(editor(), "combx_instructionMode", QStringLiteral("3"));
    }
    script().panelHasParams = set;
    QCOMPARE(ok(), QStringList{ said });
}

void ValidationRulesTest::theAlgorithmMustTradeForThePlansAccount_data()
{
    QTest::addColumn<QVariant>("account");
    QTest::addColumn<QString>("said");
    const QString differs = QStringLiteral("warning: 算法参数中的交易账号与计划参数不一致！");
    QTest::newRow("the same") << QVariant(QStringLiteral("acc1")) << Created;
    QTest::newRow("another") << QVariant(QStringLiteral("acc2")) << differs;
    QTest::newRow("the same in capitals") << QVariant(QStringLiteral("ACC1")) << differs;
    QTest::newRow("none") << QVariant() << differs;
}

void ValidationRulesTest::theAlgorithmMustTradeForThePlansAccount()
{
    QFETCH(QVariant, account);
    QFETCH(QString, said);
    open(algorithmPlan());
    script().panelParams.remove(Algo_Fields::AlgoInstContentInfo::TradingAccount);
    if (account.isValid())
        script().panelParams.insert(Algo_Fields::AlgoInstContentInfo::TradingAccount, account);
    QCOMPARE(ok(), QStringList{ said });
}

void ValidationRulesTest::theAlgorithmMustTradeOnThePlansSide_data()
{
    QTest::addColumn<QString>("side");
    QTest::addColumn<QString>("algorithmSide");
    QTest::addColumn<QString>("said");
    const QString differs = QStringLiteral("warning: 算法参数中的交易方向与计划参数不一致！");
    const QString buy = QStringLiteral("av_AlgoOrderSide_BuyValue");
    const QString sell = QStringLiteral("av_AlgoOrderSide_SellValue");
    QTest::newRow("both buy") << Kelvo_Values::OrderSide::buy << buy << Created;
    QTest::newRow("both sell") << Kelvo_Values::OrderSide::sell << sell << Created;
    QTest::newRow("the plan buys") << Kelvo_Values::OrderSide::buy << sell << differs;
    QTest::newRow("the plan sells") << Kelvo_Values::OrderSide::sell << buy << differs;
    QTest::newRow("the plan buys, the algorithm has no side") << Kelvo_Values::OrderSide::buy << QString() << differs;
    QTest::newRow("the plan sells, the algorithm has no side") << Kelvo_Values::OrderSide::sell << QString() << differs;
    QTest::newRow("any other side is not compared") << QStringLiteral("another") << buy << Created;
}

void ValidationRulesTest::theAlgorithmMustTradeOnThePlansSide()
{
    QFETCH(QString, side);
    QFETCH(QString, algorithmSide);
    QFETCH(QString, said);
    open(algorithmPlan());
    chooseSilently("combx_tradeSide", side);
    script().panelParams.insert(Algo_Fields::AlgoInstContentInfo::OrderSide, algorithmSide);
    QCOMPARE(ok(), QStringList{ said });
}

void ValidationRulesTest::someAlgorithmsNeedAPriceLimit_data()
{
    QTest::addColumn<QString>("strategy");
    QTest::addColumn<QString>("priceMode");
    QTest::addColumn<QString>("said");
    const QString unlimited = QStringLiteral("1");
    QTest::newRow("the iceberg without a limit")
        << QStringLiteral("ICEBERG2") << unlimited << QStringLiteral("warning: 冰山算法不支持不限价，请重新设置！");
    QTest::newRow("the sniper without a limit, and without an alias")
        << QStringLiteral("SNIPER") << unlimited << QStringLiteral("warning: 算法不支持不限价，请重新设置！");
    QTest::newRow("the iceberg in lower case") << QStringLiteral("iceberg2") << unlimited << Created;
    QTest::newRow("another algorithm") << QStringLiteral("TWAP") << unlimited << Created;
    QTest::newRow("no name") << QString() << unlimited << Created;
    QTest::newRow("the iceberg with a formula") << QStringLiteral("ICEBERG2") << QStringLiteral("6") << Created;
    QTest::newRow("the sniper with two formulas") << QStringLiteral("SNIPER") << QStringLiteral("7") << Created;
}

void ValidationRulesTest::someAlgorithmsNeedAPriceLimit()
{
    QFETCH(QString, strategy);
    QFETCH(QString, priceMode);
    QFETCH(QString, said);
    open(algorithmPlan());
    script().strategyAliases.insert(QStringLiteral("ICEBERG2"), QStringLiteral("冰山"));
    script().panelStrategy = strategy;
    choose(editor(), "combx_priceMode", priceMode);
    setText("lineEdit_price1", QStringLiteral("昨收价"));
    setText("lineEdit_price2", QStringLiteral("昨收价"));
    choose(editor(), "combx_instructionMode", QStringLiteral("3"));
    QCOMPARE(ok(), QStringList{ said });
}

// --- Rule 16

namespace {

Instructions one(const FieldMap& fields)
{
    return { { QStringLiteral("I1"), fields } };
}

FieldMap byQuantity(const QVariant& ended, double filled, double issued)
{
    return { { QStringLiteral("12013"), ended }, { QStringLiteral("14"), filled }, { QStringLiteral("38"), issued } };
}

FieldMap byAmount(const QVariant& ended, double filled, double issued)
{
    return { { QStringLiteral("57134"), InstructionTargetType::AmountOrder }, { QStringLiteral("12013"), ended },
        { Orlo_Fields::Security::cumAmount, filled }, { QStringLiteral("217201"), issued },
        { QStringLiteral("14"), 999999 }, { QStringLiteral("38"), 999999 } };
}

} // namespace

void ValidationRulesTest::anEditedTargetCoversWhatIsUsed_data()
{
    QTest::addColumn<Instructions>("instructions");
    QTest::addColumn<double>("target");
    QTest::addColumn<QString>("said");
    const QString ended = QStringLiteral("1");
    const QString running = QStringLiteral("0");
    QTest::newRow("no instruction yet") << Instructions() << 1.0 << Modified;
    QTest::newRow("running, all of it issued") << one(byQuantity(running, 0, 1000)) << 1000.0 << Modified;
    QTest::newRow("running, more issued") << one(byQuantity(running, 0, 1001)) << 1000.0 << TargetBelowUse;
    QTest::newRow("running, what is filled does not count")
        << one(byQuantity(running, 5000, 1000)) << 1000.0 << Modified;
    QTest::newRow("ended, all of it filled") << one(byQuantity(ended, 1000, 5000)) << 1000.0 << Modified;
    QTest::newRow("ended, more filled") << one(byQuantity(ended, 1001, 0)) << 1000.0 << TargetBelowUse;
    QTest::newRow("the mark of the end may be a number") << one(byQuantity(1, 1001, 0)) << 1000.0 << TargetBelowUse;
    QTest::newRow("another mark is none") << one(byQuantity(QStringLiteral("2"), 5000, 1000)) << 1000.0 << Modified;
    QTest::newRow("no mark is none") << one({ { QStringLiteral("14"), 5000 }, { QStringLiteral("38"), 1000 } })
                                     << 1000.0 << Modified;
    QTest::newRow("no fields count as nothing") << one({}) << 1.0 << Modified;
    QTest::newRow("numbers as texts") << one(
        { { QStringLiteral("12013"), ended }, { QStringLiteral("14"), QStringLiteral("1000.5") } })
                                      << 1000.0 << TargetBelowUse;
    QTest::newRow("an amount, running, issued") << one(byAmount(running, 5000, 1000)) << 1000.0 << Modified;
    QTest::newRow("an amount, running, more issued") << one(byAmount(running, 0, 1000.01)) << 1000.0 << TargetBelowUse;
    QTest::newRow("an amount, ended, filled") << one(byAmount(ended, 1000, 5000)) << 1000.0 << Modified;
    QTest::newRow("an amount, ended, more filled") << one(byAmount(ended, 1000.01, 0)) << 1000.0 << TargetBelowUse;
    QTest::newRow("by quantity said aloud")
        << one({ { QStringLiteral("57134"), InstructionTargetType::QtyOrder }, { QStringLiteral("38"), 1001 } })
        << 1000.0 << TargetBelowUse;
    const Instructions two = { { QStringLiteral("I1"), byQuantity(ended, 600, 0) },
        { QStringLiteral("I2"), byQuantity(running, 0, 400) } };
    QTest::newRow("an ended and a running one") << two << 1000.0 << Modified;
    QTest::newRow("an ended and a running one, one share too many") << two << 999.0 << TargetBelowUse;
    QTest::newRow("a hundred-billionth below passes") << one(byQuantity(ended, 1000, 0)) << 999.99999999999 << Modified;
    QTest::newRow("two ten-billionths below are refused")
        << one(byQuantity(ended, 1000, 0)) << 999.9999999998 << TargetBelowUse;
    QTest::newRow("a tenth below is refused") << one(byQuantity(ended, 1000, 0)) << 999.9 << TargetBelowUse;
    QTest::newRow("a sum that is not a number passes") << one(byQuantity(ended, qQNaN(), 0)) << 1000.0 << Modified;
}

void ValidationRulesTest::anEditedTargetCoversWhatIsUsed()
{
    QFETCH(Instructions, instructions);
    QFETCH(double, target);
    QFETCH(QString, said);
    edit(PlanSample());
    script().planInstructions = instructions;
    showDecimals("le_targetTotalNum", 12);
    setNumber("le_targetTotalNum", target);
    QCOMPARE(ok(), QStringList{ said });
    QCOMPARE(script().callsOf(QStringLiteral("GetPlanInstruction")),
        QStringList{ QStringLiteral("GetPlanInstruction(P1)") });
}

void ValidationRulesTest::eachInstructionIsLogged()
{
    edit(PlanSample());
    script().planInstructions = Instructions{ { QStringLiteral("I2"), byQuantity(QStringLiteral("0"), 7, 400) },
        { QStringLiteral("I1"), byQuantity(QStringLiteral("1"), 600, 8) } };
    log().clear();
    QCOMPARE(ok(), QStringList{ Modified });
    QStringList lines;
    for (const LogLine& line : log().linesWith(QtDebugMsg, QStringLiteral("AutoParamSetting::checkParam")))
        lines.append(line.text);
    QCOMPARE(lines.size(), 2);
    QVERIFY2(lines.at(0).startsWith(QStringLiteral("AutoParamSetting::checkParam \"P1\" \"I1\" true 600 8 600")),
        qPrintable(lines.at(0)));
    QVERIFY2(lines.at(1).startsWith(QStringLiteral("AutoParamSetting::checkParam \"P1\" \"I2\" false 7 400 1000")),
        qPrintable(lines.at(1)));
}

void ValidationRulesTest::onlyAnEditAsksForInstructions()
{
    openSampleMarket();
    storePlan(PlanId, PlanSample());
    script().planInstructions = one(byQuantity(QStringLiteral("0"), 0, 5000));
    constructShown();
    editor().copyPlan(PlanId);
    QCOMPARE(ok(), QStringList{ Created });
    QCOMPARE(script().countOf(QStringLiteral("GetPlanInstruction")), 0);
}

void ValidationRulesTest::aStartedPlanKeepsItsBegin_data()
{
    QTest::addColumn<QDate>("today");
    QTest::addColumn<QDate>("start");
    QTest::addColumn<QDate>("end");
    QTest::addColumn<QString>("said");
    const QDate begin(2024, 5, 8);
    const QDate end(2024, 5, 17);
    QTest::newRow("not started, moved") << begin.addDays(-1) << begin.addDays(1) << end << Modified;
    QTest::newRow("not started, ends in the past") << begin.addDays(-1) << begin << begin.addDays(-2) << Modified;
    QTest::newRow("starts today, unchanged") << begin << begin << end << Modified;
    QTest::newRow("starts today, moved") << begin << begin.addDays(1) << end << BeginMoved;
    QTest::newRow("started, unchanged") << begin.addDays(5) << begin << end << Modified;
    QTest::newRow("started, moved back") << begin.addDays(5) << begin.addDays(-1) << end << BeginMoved;
    QTest::newRow("started, ends today") << begin.addDays(5) << begin << begin.addDays(5) << Modified;
    QTest::newRow("started, ended yesterday") << begin.addDays(5) << begin << begin.addDays(4) << EndInThePast;
    QTest::newRow("started, moved and ended yesterday")
        << begin.addDays(5) << begin.addDays(1) << begin.addDays(4) << BeginMoved;
}

void ValidationRulesTest::aStartedPlanKeepsItsBegin()
{
    QFETCH(QDate, today);
    QFETCH(QDate, start);
    QFETCH(QDate, end);
    QFETCH(QString, said);
    edit(PlanSample(), today);
    field<OrloDateEdit>(editor(), "date_effectivePeriod_Multi")->SetStartEndDate(start, end);
    QCOMPARE(ok(), QStringList{ said });
}

void ValidationRulesTest::aStartedReductionKeepsItsDate_data()
{
    QTest::addColumn<QDate>("today");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("said");
    const QDate begin(2024, 5, 8);
    QTest::newRow("not started, moved") << begin.addDays(-1) << begin.addDays(1) << Modified;
    QTest::newRow("starts today, unchanged") << begin << begin << Modified;
    QTest::newRow("starts today, moved") << begin << begin.addDays(1) << BeginMoved;
    QTest::newRow("started, unchanged") << begin.addDays(5) << begin << Modified;
    QTest::newRow("started, moved back") << begin.addDays(5) << begin.addDays(-1) << BeginMoved;
}

void ValidationRulesTest::aStartedReductionKeepsItsDate()
{
    QFETCH(QDate, today);
    QFETCH(QDate, date);
    QFETCH(QString, said);
    edit(PlanSample::reduction(), today);
    QVERIFY(field<QWidget>(editor(), "date_effectivePeriod_Single")->isVisible());
    field<OrloDateEdit>(editor(), "date_effectivePeriod_Single")->SetDate(date);
    QCOMPARE(ok(), QStringList{ said });
}

void ValidationRulesTest::theBeginIsReadFromTheStoreAtOk()
{
    edit(PlanSample());
    storeBegin(QStringLiteral("2024/05/03"));
    QCOMPARE(ok(), QStringList{ BeginMoved });
    QCOMPARE(script().callsOf(QStringLiteral("GetPlanInfo")), QStringList{ QStringLiteral("GetPlanInfo(P1)") });
}

void ValidationRulesTest::aPlanWithoutAReadableBeginKeepsItsDates_data()
{
    QTest::addColumn<QVariant>("begin");
    QTest::addColumn<QDate>("start");
    QTest::addColumn<QDate>("end");
    QTest::addColumn<QString>("said");
    const QDate today(2024, 5, 6);
    for (const QVariant& begin : { QVariant(), QVariant(QStringLiteral("yesterday")) }) {
        const QByteArray kind = begin.isValid() ? "unreadable" : "missing";
        QTest::newRow(kind + ", no start shown") << begin << QDate() << today.addDays(4) << Modified;
        QTest::newRow(kind + ", ends today") << begin << QDate() << today << Modified;
        QTest::newRow(kind + ", ended yesterday") << begin << QDate() << today.addDays(-1) << EndInThePast;
        QTest::newRow(kind + ", without an end") << begin << QDate() << QDate() << EndInThePast;
        QTest::newRow(kind + ", a start shown") << begin << today.addDays(1) << today.addDays(4) << BeginMoved;
    }
}

void ValidationRulesTest::aPlanWithoutAReadableBeginKeepsItsDates()
{
    QFETCH(QVariant, begin);
    QFETCH(QDate, start);
    QFETCH(QDate, end);
    QFETCH(QString, said);
    edit(PlanSample());
    storeBegin(begin);
    field<OrloDateEdit>(editor(), "date_effectivePeriod_Multi")->SetStartEndDate(start, end);
    QCOMPARE(ok(), QStringList{ said });
}

void ValidationRulesTest::aReductionWithoutAReadableBeginKeepsItsDate_data()
{
    QTest::addColumn<QVariant>("begin");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("said");
    for (const QVariant& begin : { QVariant(), QVariant(QStringLiteral("yesterday")) }) {
        const QByteArray kind = begin.isValid() ? "unreadable" : "missing";
        QTest::newRow(kind + ", no date shown") << begin << QDate() << Modified;
        QTest::newRow(kind + ", a date shown") << begin << QDate(2024, 5, 7) << BeginMoved;
    }
}

void ValidationRulesTest::aReductionWithoutAReadableBeginKeepsItsDate()
{
    QFETCH(QVariant, begin);
    QFETCH(QDate, date);
    QFETCH(QString, said);
    edit(PlanSample::reduction());
    storeBegin(begin);
    field<OrloDateEdit>(editor(), "date_effectivePeriod_Single")->SetDate(date);
    QCOMPARE(ok(), QStringList{ said });
}

void ValidationRulesTest::aPlanThatTheServiceNoLongerKnowsHasNoBegin()
{
    edit(PlanSample());
    script().plans.remove(PlanId);
    QCOMPARE(ok(), QStringList{ BeginMoved });
}

// --- Rules 17 and 18

void ValidationRulesTest::quantitiesShouldFitTheStep_data()
{
    QTest::addColumn<PlanSample>("plan");
    QTest::addColumn<double>("target");
    QTest::addColumn<double>("daily");
    QTest::addColumn<QStringList>("asked");
    const QString target = QStringLiteral("question: 目标总量需等于【500】的整数倍，是否继续？");
    const QString daily = QStringLiteral("question: 每日最大委托量需等于【500】的整数倍，是否继续？");
    const PlanSample hk = PlanSample::ofType(QStringLiteral("9"));
    QTest::newRow("both fit") << hk << 1000.0 << 500.0 << QStringList();
    QTest::newRow("the target does not") << hk << 750.0 << 500.0 << QStringList{ target };
    QTest::newRow("the target is below a step") << hk << 499.0 << 500.0 << QStringList{ target };
    QTest::newRow("the daily quantity does not") << hk << 1000.0 << 501.0 << QStringList{ daily };
    QTest::newRow("neither does") << hk << 750.0 << 1.0 << QStringList{ target, daily };
    QTest::newRow("a daily quantity of zero fits") << hk << 1000.0 << 0.0 << QStringList();
    QTest::newRow("decimals above a step are cut off") << hk << 1000.9 << 500.9 << QStringList();
    QTest::newRow("a millionth below a step is below it")
        << hk << 999.9999995 << 499.9999995 << QStringList{ target, daily };
    QTest::newRow("of an equal plan the second has another name")
        << hk.withPlanType(QStringLiteral("TW-03")) << 1000.0 << 501.0
        << QStringList{ QStringLiteral("question: 每日计划量需等于【500】的整数倍，是否继续？") };
    QTest::newRow("a stock in Shanghai shows no step") << PlanSample() << 750.0 << 1.0 << QStringList();
}

void ValidationRulesTest::quantitiesShouldFitTheStep()
{
    QFETCH(PlanSample, plan);
    QFETCH(double, target);
    QFETCH(double, daily);
    QFETCH(QStringList, asked);
    const auto fill = [&] {
        open(plan);
        for (const char* const name : { "le_targetTotalNum", "le_entrustMaxNum" })
            showDecimals(name, 7);
        setNumber("le_targetTotalNum", target);
        setNumber("le_entrustMaxNum", daily);
    };
    fill();
    QCOMPARE(ok(), asked + QStringList{ Created });
    QCOMPARE(
        script().countOf(QStringLiteral("GetQtyStepBySymbol")), plan.instructionType == QLatin1String("9") ? 2 : 0);
    for (int declined = 0; declined < asked.size(); ++declined) {
        fill();
        script().createdRecords.clear();
        script().questionAnswers = QList<int>{ 1, 1 }.mid(0, declined) + QList<int>{ 0 };
        QCOMPARE(ok(), asked.mid(0, declined + 1));
        QCOMPARE(sent(), 0);
    }
}

void ValidationRulesTest::lotsAreRoundedAndStepsAreCutOff()
{
    open(PlanSample::ofType(QStringLiteral("9")));
    script().securities[QStringLiteral("00700.HK")].displayFactor = 500;
    showDecimals("le_targetTotalNum", 7);
    setNumber("le_targetTotalNum", 999.9999995);
    script().questionAnswer = 0;
    QCOMPARE(ok(), QStringList{ QStringLiteral("question: 目标总量需等于【500】的整数倍，是否继续？") });
    setNumber("le_targetTotalNum", 999.999);
    QCOMPARE(ok(), QStringList{ QStringLiteral("warning: 沪市债券目标总量需为500的正整数倍，是否继续？") });
}

// --- Rule 19

void ValidationRulesTest::holdingsShouldCoverASale_data()
{
    QTest::addColumn<PlanSample>("plan");
    QTest::addColumn<QVariantList>("tradeable");
    QTest::addColumn<int>("factor");
    QTest::addColumn<bool>("asks");
    QTest::newRow("just enough") << saleOf(1000) << QVariantList{ 1000 } << 1 << false;
    QTest::newRow("one short") << saleOf(1000) << QVariantList{ 999 } << 1 << true;
    QTest::newRow("a part of a share short") << saleOf(1000) << QVariantList{ 999.5 } << 1 << true;
    QTest::newRow("several positions are enough together") << saleOf(1000) << QVariantList{ 600, 400 } << 1 << false;
    QTest::newRow("several positions are short together") << saleOf(1000) << QVariantList{ 600, 399 } << 1 << true;
    QTest::newRow("no position") << saleOf(1000) << QVariantList() << 1 << true;
    QTest::newRow("a position without the number") << saleOf(1000) << QVariantList{ QVariant() } << 1 << true;
    QTest::newRow("numbers as texts") << saleOf(1000) << QVariantList{ QStringLiteral("1000") } << 1 << false;
    QTest::newRow("holdings that are not a number are not asked about")
        << saleOf(1000) << QVariantList{ QStringLiteral("nan") } << 1 << false;
    QTest::newRow("positions count in stored units") << saleOf(1000) << QVariantList{ 100 } << 10 << false;
    QTest::newRow("positions in stored units are short") << saleOf(1000) << QVariantList{ 99 } << 10 << true;
    QTest::newRow("a reduction sells too") << PlanSample::reduction() << QVariantList{ 999 } << 1 << true;
    QTest::newRow("a purchase needs none") << PlanSample() << QVariantList() << 1 << false;
    QTest::newRow("a margin sale is not asked about")
        << PlanSample::ofType(QStringLiteral("2")) << QVariantList() << 1 << false;
    PlanSample amount = amountPlan();
    amount.side = Kelvo_Values::OrderSide::sell;
    QTest::newRow("the sale of an amount is not asked about") << amount << QVariantList() << 1 << false;
}

void ValidationRulesTest::holdingsShouldCoverASale()
{
    QFETCH(PlanSample, plan);
    QFETCH(QVariantList, tradeable);
    QFETCH(int, factor);
    QFETCH(bool, asks);
    const QString question = QStringLiteral(
        "question: 当前账号【F-acc1】的持仓可用小于目标总量，是否继续创建计划？继续请点击【确认】，否则点击【取消】");
    for (const int answer : { 0, 1 }) {
        open(plan);
        script().createdRecords.clear();
        script().questionAnswer = answer;
        script().securities[Stock].displayFactor = factor;
        QList<FieldMap> positions;
        for (const QVariant& quantity : qAsConst(tradeable))
            positions.append(FieldMap{ { Kelvo_Fields::Security::tradeableQty, quantity } });
        script().positions = positions;
        QStringList expected;
        if (asks)
            expected.append(question);
        if (!asks || answer != 0)
            expected.append(Created);
        QCOMPARE(ok(), expected);
        QCOMPARE(sent(), expected.contains(Created) ? 1 : 0);
    }
}

void ValidationRulesTest::theHoldingsAreLogged()
{
    open(saleOf(1000));
    log().clear();
    QCOMPARE(ok(), QStringList{ Created });
    const QList<LogLine> lines = log().linesWith(QtInfoMsg, QStringLiteral("AutoParamSetting::checkParam"));
    QCOMPARE(lines.size(), 1);
    for (const QString& part :
        { Stock, QStringLiteral("S-acc1-k_Exchange_sh"), QStringLiteral("1e+06"), QStringLiteral("\"1000\"") })
        QVERIFY2(lines.first().text.contains(part), qPrintable(lines.first().text));
}

// --- Rule 20

void ValidationRulesTest::aSpeciallyTreatedSecurityIsAskedAbout_data()
{
    QTest::addColumn<QString>("side");
    QTest::addColumn<QString>("flag");
    QTest::addColumn<QString>("description");
    QTest::addColumn<bool>("asks");
    const QString words = QStringLiteral("【股票】为风险警示股票");
    QTest::newRow("bought") << Orlo_Values::OrderSide::buy << QStringLiteral("ST") << words << true;
    QTest::newRow("bought, without a description")
        << Orlo_Values::OrderSide::buy << QStringLiteral("ST") << QString() << true;
    QTest::newRow("bought, with a placeholder in the description")
        << Orlo_Values::OrderSide::buy << QStringLiteral("ST") << QStringLiteral("x%1") << true;
    QTest::newRow("an ordinary security with a description")
        << Orlo_Values::OrderSide::buy << QString() << words << false;
    QTest::newRow("sold") << Kelvo_Values::OrderSide::sell << QStringLiteral("ST") << words << false;
    QTest::newRow("the code of the other family is not a purchase here")
        << Kelvo_Values::OrderSide::buy << QStringLiteral("ST") << words << false;
}

void ValidationRulesTest::aSpeciallyTreatedSecurityIsAskedAbout()
{
    QFETCH(QString, side);
    QFETCH(QString, flag);
    QFETCH(QString, description);
    QFETCH(bool, asks);
    for (const int answer : { 0, 1 }) {
        open(PlanSample());
        script().createdRecords.clear();
        script().questionAnswer = answer;
        script().securities[Stock].stFlag = flag;
        script().securities[Stock].stDescription = description;
        chooseSilently("combx_tradeSide", side);
        QStringList expected;
        if (asks)
            expected.append(QStringLiteral("question: ") + description + QStringLiteral("。是否继续创建？"));
        if (!asks || answer != 0)
            expected.append(Created);
        QCOMPARE(ok(), expected);
        QCOMPARE(sent(), expected.contains(Created) ? 1 : 0);
    }
}

void ValidationRulesTest::anEditAsksInTheWordsOfItsKind()
{
    edit(saleOf(1000));
    script().positions = QList<FieldMap>();
    script().questionAnswer = 0;
    QCOMPARE(ok(),
        QStringList{ QStringLiteral("question: 当前账号【F-acc1】的持仓可用小于目标总量，是否继续修改计划？继续请点击"
                                    "【确认】，否则点击【取消】") });
    edit(PlanSample());
    script().securities[Stock].stFlag = QStringLiteral("ST");
    script().securities[Stock].stDescription = QStringLiteral("警示");
    chooseSilently("combx_tradeSide", Orlo_Values::OrderSide::buy);
    QCOMPARE(ok(), QStringList{ QStringLiteral("question: 警示。是否继续创建？") });
}

// --- All rules

void ValidationRulesTest::servicesAreAskedInTheOrderOfTheRules_data()
{
    QTest::addColumn<PlanSample>("plan");
    QTest::addColumn<bool>("edited");
    QTest::addColumn<QStringList>("calls");
    const QString factor = QStringLiteral("GetDispFactorBySymbol(600000.K_SH)");
    const QStringList holdings = { QStringLiteral("GetDispFactorBySymbol(%1)"),
        QStringLiteral("GetAccountDetailsByTradinngAccount(acc1)"),
        QStringLiteral("GetFirstSecurityExchangeBySymbol(%1)"),
        QStringLiteral("GetCurrentSecurityAccountByTradingAndExchange(acc1, %2)"),
        QStringLiteral("GetPositionListByAccount(acc1, S-acc1-%2, %1, \"\", \"\", \"\", \"\")") };
    const auto holdingsOf = [&](const QString& symbol, const QString& exchange) {
        QStringList calls = holdings;
        for (QString& call : calls)
            call.replace(QStringLiteral("%1"), symbol).replace(QStringLiteral("%2"), exchange);
        return calls;
    };
    const QString sh = Kelvo_Values::Exchange::sh;
    QTest::newRow("a purchase") << PlanSample() << false << QStringList{ factor, factor };
    QTest::newRow("an amount") << amountPlan() << false
                               << QStringList{ QStringLiteral("panel.HasParams()"),
                                      QStringLiteral("panel.GetParamMap()"),
                                      QStringLiteral("panel.GetStrategyName()") };
    QTest::newRow("a sale") << saleOf(1000) << false << QStringList{ factor, factor } + holdingsOf(Stock, sh);
    QTest::newRow("a reduction") << PlanSample::reduction() << false
                                 << QStringList{ QStringLiteral(
                                        "GetUnsignedClientNoList(o_ProtocolId_AutoPlanReduceAgree)") }
            + holdingsOf(Stock, sh);
    QTest::newRow("an edit") << PlanSample() << true
                             << QStringList{ factor, factor, QStringLiteral("GetPlanInstruction(P1)"),
                                    QStringLiteral("GetPlanInfo(P1)") };
    const QString hk = QStringLiteral("00700.HK");
    const QString hkFactor = QStringLiteral("GetDispFactorBySymbol(00700.HK)");
    const QString step = QStringLiteral("GetQtyStepBySymbol(00700.HK)");
    QTest::newRow("a sale in Hong Kong") << PlanSample::ofType(QStringLiteral("9")) << false
                                         << QStringList{ hkFactor, hkFactor, step, step }
            + holdingsOf(hk, Orlo_Values::Exchange::HkStockCirculation);
}

void ValidationRulesTest::servicesAreAskedInTheOrderOfTheRules()
{
    QFETCH(PlanSample, plan);
    QFETCH(bool, edited);
    QFETCH(QStringList, calls);
    if (edited)
        edit(plan);
    else
        open(plan);
    QCOMPARE(ok(), QStringList{ edited ? Modified : Created });
    const int firstOfTheRecord = script().calls.indexOf(QStringLiteral("GetLoginAccountDetail()"));
    QCOMPARE(script().calls.mid(0, firstOfTheRecord), calls);
}

void ValidationRulesTest::aDisplayFactorOfZeroSkipsTheLotRules()
{
    open(PlanSample());
    script().securities[Stock].displayFactor = 0;
    setNumber("le_targetTotalNum", 7);
    setNumber("le_entrustMaxNum", 3);
    log().expectWarning(QStringLiteral("AutoParamSetting::checkParam"), 2);
    log().expectWarning(QStringLiteral("AutoParamSetting::procUiDataByCreatePlan"));
    QCOMPARE(ok(), QStringList{ Created });
}

void ValidationRulesTest::aStepOfZeroSkipsTheStepRules()
{
    open(PlanSample::ofType(QStringLiteral("9")));
    script().securities[QStringLiteral("00700.HK")].qtyStep = 0;
    setNumber("le_targetTotalNum", 7);
    log().expectWarning(QStringLiteral("AutoParamSetting::checkParam"), 2);
    QCOMPARE(ok(), QStringList{ Created });
}

void ValidationRulesTest::theFormIsUntouchedByARefusal()
{
    open(saleOf(1000));
    script().positions = QList<FieldMap>();
    script().questionAnswer = 0;
    const QStringList before = formState();
    ok();
    QCOMPARE(formState(), before);
    setText("lineEdit_price1", QStringLiteral("a;b"));
    const QStringList broken = formState();
    ok();
    QCOMPARE(formState(), broken);
    QCOMPARE(sent(), 0);
}

void ValidationRulesTest::theEditorMayDieUnderItsBoxes_data()
{
    QTest::addColumn<QString>("formula");
    QTest::addColumn<QString>("kind");
    QTest::newRow("under a question") << QStringLiteral("昨收价") << QStringLiteral("question");
    QTest::newRow("under a warning") << QStringLiteral("a;b") << QStringLiteral("warning");
}

void ValidationRulesTest::theEditorMayDieUnderItsBoxes()
{
    QFETCH(QString, formula);
    QFETCH(QString, kind);
    open(saleOf(1000));
    setText("lineEdit_price1", formula);
    script().positions = QList<FieldMap>();
    script().whileBoxOpen = [this] { destroy(); };
    press(editor(), "btn_ok");
    QCOMPARE(script().boxes.size(), 1);
    QCOMPARE(script().boxes.first().kind, kind);
    QCOMPARE(sent(), 0);
}

void ValidationRulesTest::okPressedAgainUnderABoxDoesNothing()
{
    open(saleOf(1000));
    script().positions = QList<FieldMap>();
    script().whileBoxOpen = [this] { press(editor(), "btn_ok"); };
    const QStringList said = ok();
    QCOMPARE(said.size(), 2);
    QVERIFY(said.first().startsWith(QStringLiteral("question: ")));
    QCOMPARE(said.last(), Created);
    QCOMPARE(sent(), 1);
}

QTEST_MAIN(ValidationRulesTest)
#include "tst_validation_rules.moc"
