#include "AutoPlanLogic.h"
#include "EditorTest.h"
#include "OrloFormulaNormal.h"
#include "Orlo_Values.h"
#include "PlanForm.h"

#include <QLabel>
#include <QtTest>

namespace {

const QString Account = QStringLiteral("acc1");
const QString Stock = QStringLiteral("600000.K_SH");
const QString OtherStock = QStringLiteral("000001.K_SZ");
const QString Bond = QStringLiteral("110000.K_SH");
const QString HkStock = QStringLiteral("00700.HK");
const QString Unknown = QStringLiteral("999999.K_SH");

const QString NoLimit = QStringLiteral("1");
const QString Custom = QStringLiteral("6");
const QString CompareMax = QStringLiteral("7");
const QString CompareMin = QStringLiteral("8");

} // namespace

class tst_price_fields : public EditorTest {
    Q_OBJECT

private Q_SLOTS:
    void aNewPlanOffersEveryPriceMode();
    void refillingPriceModesIsSilentUntilTheFirstItem();
    void aStoredPlanOffersThePriceModesOfItsInstructionMode_data();
    void aStoredPlanOffersThePriceModesOfItsInstructionMode();
    void aStoredPlanOffersThePriceTypesOfItsInstructionMode_data();
    void aStoredPlanOffersThePriceTypesOfItsInstructionMode();
    void refillingPriceTypesIsSilentUntilTheFirstItem();
    void leavingAnEditedPlanOffersEverythingAgain();

    void formulasAreOfferedTheNamesOfTheSecurity_data();
    void formulasAreOfferedTheNamesOfTheSecurity();
    void functionsAreOfferedInACustomFormulaOnly_data();
    void functionsAreOfferedInACustomFormulaOnly();
    void noLimitShowsAZeroWithTheDecimalsOfTheSecurity_data();
    void noLimitShowsAZeroWithTheDecimalsOfTheSecurity();

    void aPriceModeShapesThePriceInputs_data();
    void aPriceModeShapesThePriceInputs();
    void anotherPriceModeEmptiesBothFormulas_data();
    void anotherPriceModeEmptiesBothFormulas();
    void aPriceModeTakesItsStepsInOrder();
    void noLimitTakesItsStepsInOrder();
    void reviewIsNotOfferedWithoutAPriceLimit();

    void aLateAverageKeepsTheFormulas_data();
    void aLateAverageKeepsTheFormulas();
    void aLateAverageKeepsTheZeroOfNoLimit();
    void anotherInstructionTypeEmptiesBothFormulas();
    void anotherSecurityEmptiesBothFormulas();
    void pricesCanBeChosenWhenNoServiceAnswersAnything();

private:
    void open();
    void answerAverages(const QString& symbol, const QStringList& names);
    OrloFormulaNormal& price1() const { return *field<OrloFormulaNormal>(editor(), "lineEdit_price1"); }
    OrloFormulaNormal& price2() const { return *field<OrloFormulaNormal>(editor(), "lineEdit_price2"); }
    QStringList stepsOf(const QString& widget) const;
};

void tst_price_fields::open()
{
    script().addOrdinaryAccount(Account);
    script().addStock(Stock);
    script().addStock(OtherStock);
    script().addBond(Bond);
    script().addHkStock(HkStock, 100);
    constructShown();
    script().forget();
}

void tst_price_fields::answerAverages(const QString& symbol, const QStringList& names)
{
    Q_EMIT AutoPlanLogic::instance().signalQuerySymbolMAResponse(symbol, names, QString());
}

QStringList tst_price_fields::stepsOf(const QString& widget) const
{
    QStringList found;
    for (const QString& step : qAsConst(script().steps)) {
        if (step.startsWith(widget + QLatin1Char('.')) || step.startsWith(widget + QLatin1Char(' ')))
            found.append(step);
    }
    return found;
}

void tst_price_fields::aNewPlanOffersEveryPriceMode()
{
    open();
    QCOMPARE(codes(editor(), "combx_priceMode"), QStringList({ NoLimit, Custom, CompareMax, CompareMin }));
    QCOMPARE(texts(editor(), "combx_priceMode"),
        QStringList({ QStringLiteral("不限价"), QStringLiteral("自定义"), QStringLiteral("比较值取最大"),
            QStringLiteral("比较值取最小") }));
    QCOMPARE(code(editor(), "combx_priceMode"), NoLimit);
    QCOMPARE(codes(editor(), "combx_priceType"),
        QStringList({ Orlo_Values::HKTimeInForce::InTrade, Orlo_Values::HKTimeInForce::BeforeTrade }));
    QCOMPARE(texts(editor(), "combx_priceType"),
        QStringList({ QStringLiteral("增强限价盘"), QStringLiteral("竞价限价盘") }));
    QCOMPARE(code(editor(), "combx_priceType"), Orlo_Values::HKTimeInForce::InTrade);
}

void tst_price_fields::refillingPriceModesIsSilentUntilTheFirstItem()
{
    open();
    choose(editor(), "combx_priceMode", CompareMax);
    script().forget();
    editor().resetEnable();
    QCOMPARE(stepsOf(QStringLiteral("combx_priceMode")),
        QStringList({ QStringLiteral("combx_priceMode.ResetEnable()"), QStringLiteral("combx_priceMode.clear()"),
            QStringLiteral("combx_priceMode.append(不限价, 1)"), QStringLiteral("combx_priceMode announces 不限价"),
            QStringLiteral("combx_priceMode.append(自定义, 6)"),
            QStringLiteral("combx_priceMode.append(比较值取最大, 7)"),
            QStringLiteral("combx_priceMode.append(比较值取最小, 8)") }));
    QCOMPARE(code(editor(), "combx_priceMode"), NoLimit);
    // The announcement ran the reaction: the inputs are those of the new mode.
    QVERIFY(!isOffered(editor(), "lineEdit_price2"));
    QVERIFY(!price1().isEnabled());
}

void tst_price_fields::aStoredPlanOffersThePriceModesOfItsInstructionMode_data()
{
    QTest::addColumn<bool>("edit");
    QTest::addColumn<QString>("instructionMode");
    QTest::addColumn<int>("ruleProperty");
    QTest::addColumn<QStringList>("offered");
    const QStringList all{ NoLimit, Custom, CompareMax, CompareMin };
    const QStringList limited{ Custom, CompareMax, CompareMin };
    QTest::newRow("editing in active management") << true << QStringLiteral("1") << 0 << all;
    QTest::newRow("editing in ordinary review") << true << QStringLiteral("2") << 1 << limited;
    QTest::newRow("editing in algorithmic review") << true << QStringLiteral("3") << 1 << all;
    QTest::newRow("editing what was in ordinary review") << true << QStringLiteral("2") << 0 << all;
    QTest::newRow("copying in active management") << false << QStringLiteral("1") << 0 << all;
    QTest::newRow("copying in ordinary review") << false << QStringLiteral("2") << 1 << all;
    QTest::newRow("copying in algorithmic review") << false << QStringLiteral("3") << 1 << all;
}

void tst_price_fields::aStoredPlanOffersThePriceModesOfItsInstructionMode()
{
    QFETCH(bool, edit);
    QFETCH(QString, instructionMode);
    QFETCH(int, ruleProperty);
    QFETCH(QStringList, offered);
    script().ruleProperty = ruleProperty;
    open();
    QMap<QString, QVariant> plan = storedPlan(QStringLiteral("P1"), Stock, Account);
    plan.insert(AutoPlanField::BaseField::InstMode, instructionMode);
    script().plans.insert(QStringLiteral("P1"), plan);
    if (edit)
        editor().editPlan(QStringLiteral("P1"));
    else
        editor().copyPlan(QStringLiteral("P1"));
    QCOMPARE(codes(editor(), "combx_priceMode"), offered);
}

void tst_price_fields::aStoredPlanOffersThePriceTypesOfItsInstructionMode_data()
{
    QTest::addColumn<bool>("edit");
    QTest::addColumn<QString>("instructionMode");
    QTest::addColumn<int>("ruleProperty");
    QTest::addColumn<bool>("bothOffered");
    QTest::newRow("editing in active management") << true << QStringLiteral("1") << 0 << true;
    QTest::newRow("editing in ordinary review") << true << QStringLiteral("2") << 1 << true;
    QTest::newRow("editing in algorithmic review") << true << QStringLiteral("3") << 1 << false;
    QTest::newRow("editing in an unknown mode") << true << QStringLiteral("7") << 1 << false;
    QTest::newRow("copying in active management") << false << QStringLiteral("1") << 0 << true;
    QTest::newRow("copying in ordinary review") << false << QStringLiteral("2") << 1 << true;
    QTest::newRow("copying in algorithmic review") << false << QStringLiteral("3") << 1 << true;
}

void tst_price_fields::aStoredPlanOffersThePriceTypesOfItsInstructionMode()
{
    QFETCH(bool, edit);
    QFETCH(QString, instructionMode);
    QFETCH(int, ruleProperty);
    QFETCH(bool, bothOffered);
    script().ruleProperty = ruleProperty;
    open();
    QMap<QString, QVariant> plan = storedPlan(QStringLiteral("P1"), HkStock, Account);
    plan.insert(Orlo_Fields::AutoPlan::subType, QStringLiteral("9"));
    plan.insert(AutoPlanField::BaseField::orderSide, Kelvo_Values::OrderSide::sell);
    plan.insert(AutoPlanField::BaseField::InstMode, instructionMode);
    script().plans.insert(QStringLiteral("P1"), plan);
    if (edit)
        editor().editPlan(QStringLiteral("P1"));
    else
        editor().copyPlan(QStringLiteral("P1"));
    QStringList offered{ Orlo_Values::HKTimeInForce::InTrade };
    if (bothOffered)
        offered.append(Orlo_Values::HKTimeInForce::BeforeTrade);
    QCOMPARE(codes(editor(), "combx_priceType"), offered);
}

void tst_price_fields::refillingPriceTypesIsSilentUntilTheFirstItem()
{
    open();
    choose(editor(), "combx_priceType", Orlo_Values::HKTimeInForce::BeforeTrade);
    script().forget();
    editor().resetEnable();
    QCOMPARE(stepsOf(QStringLiteral("combx_priceType")),
        QStringList({ QStringLiteral("combx_priceType.ResetEnable()"), QStringLiteral("combx_priceType.clear()"),
            QStringLiteral("combx_priceType.append(增强限价盘, o_HKTimeInForce_InTrade)"),
            QStringLiteral("combx_priceType announces 增强限价盘"),
            QStringLiteral("combx_priceType.append(竞价限价盘, o_HKTimeInForce_BeforeTrade)") }));
}

void tst_price_fields::leavingAnEditedPlanOffersEverythingAgain()
{
    script().ruleProperty = 1;
    open();
    QMap<QString, QVariant> plan = storedPlan(QStringLiteral("P1"), Stock, Account);
    plan.insert(AutoPlanField::BaseField::InstMode, QStringLiteral("2"));
    script().plans.insert(QStringLiteral("P1"), plan);
    editor().editPlan(QStringLiteral("P1"));
    QCOMPARE(codes(editor(), "combx_priceMode"), QStringList({ Custom, CompareMax, CompareMin }));
    editor().resetEnable();
    QCOMPARE(codes(editor(), "combx_priceMode"), QStringList({ NoLimit, Custom, CompareMax, CompareMin }));
}

void tst_price_fields::formulasAreOfferedTheNamesOfTheSecurity_data()
{
    QTest::addColumn<QString>("symbol");
    QTest::addColumn<bool>("hasPriceLimit");
    QTest::addColumn<QStringList>("averages");
    QTest::addColumn<QStringList>("offered");
    const QString close = QStringLiteral("昨收价");
    const QString upper = QStringLiteral("涨停价");
    const QString lower = QStringLiteral("跌停价");
    const QStringList two{ QStringLiteral("MA5"), QStringLiteral("MA20") };
    const QStringList six{ QStringLiteral("MA5"), QStringLiteral("MA10"), QStringLiteral("MA20"),
        QStringLiteral("MA60"), QStringLiteral("MA120"), QStringLiteral("MA250") };
    const QStringList sixInOrder{ QStringLiteral("MA20"), QStringLiteral("MA60"), QStringLiteral("MA120"),
        QStringLiteral("MA5"), QStringLiteral("MA10"), QStringLiteral("MA250") };
    QTest::newRow("a stock with price limits and two averages")
        << Stock << true << two << QStringList{ close, upper, lower, QStringLiteral("MA20"), QStringLiteral("MA5") };
    QTest::newRow("a stock with price limits and every average")
        << Stock << true << six << QStringList{ close, upper, lower } + sixInOrder;
    QTest::newRow("a stock with price limits and no average")
        << Stock << true << QStringList() << QStringList{ close, upper, lower };
    QTest::newRow("a stock without price limits")
        << Stock << false << two << QStringList{ close, QStringLiteral("MA20"), QStringLiteral("MA5") };
    QTest::newRow("a bond without price limits is never offered averages")
        << Bond << false << six << QStringList{ close };
    QTest::newRow("a bond with price limits is never offered averages")
        << Bond << true << six << QStringList{ close, upper, lower };
    QTest::newRow("no security") << QString() << false << six << QStringList{ close };
    QTest::newRow("a security that nobody knows")
        << Unknown << false << two << QStringList{ close, QStringLiteral("MA20"), QStringLiteral("MA5") };
    QTest::newRow("an average outside the fixed order comes first")
        << Stock << false << QStringList{ QStringLiteral("MA5"), QStringLiteral("MA30") }
        << QStringList{ QStringLiteral("MA30"), close, QStringLiteral("MA5") };
}

void tst_price_fields::formulasAreOfferedTheNamesOfTheSecurity()
{
    QFETCH(QString, symbol);
    QFETCH(bool, hasPriceLimit);
    QFETCH(QStringList, averages);
    QFETCH(QStringList, offered);
    open();
    if (script().securities.contains(symbol))
        script().securities[symbol].hasPriceLimit = hasPriceLimit;
    chooseSecurity(editor(), symbol);
    answerAverages(symbol, averages);
    QCOMPARE(price1().FormulaItems(), offered);
    QCOMPARE(price2().FormulaItems(), offered);
}

void tst_price_fields::functionsAreOfferedInACustomFormulaOnly_data()
{
    QTest::addColumn<QString>("priceMode");
    QTest::addColumn<QStringList>("functions");
    QTest::newRow("no limit") << NoLimit << QStringList();
    QTest::newRow("custom") << Custom << QStringList{ QStringLiteral("max(,)"), QStringLiteral("min(,)") };
    QTest::newRow("the larger of two") << CompareMax << QStringList();
    QTest::newRow("the smaller of two") << CompareMin << QStringList();
}

void tst_price_fields::functionsAreOfferedInACustomFormulaOnly()
{
    QFETCH(QString, priceMode);
    QFETCH(QStringList, functions);
    open();
    // From another mode, so that the functions are seen to be taken back as well.
    choose(editor(), "combx_priceMode", priceMode == Custom ? CompareMax : Custom);
    QCOMPARE(price1().FunctionItems().isEmpty(), priceMode == Custom);
    script().forget();
    choose(editor(), "combx_priceMode", priceMode);
    QCOMPARE(price1().FunctionItems(), functions);
    QCOMPARE(script().countOf(QStringLiteral("lineEdit_price1.SetFunctionItems")), 1);
    QCOMPARE(script().countOf(QStringLiteral("lineEdit_price2.SetFunctionItems")), 0);
}

void tst_price_fields::noLimitShowsAZeroWithTheDecimalsOfTheSecurity_data()
{
    QTest::addColumn<QString>("symbol");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("zero");
    QTest::newRow("no security") << QString() << 0 << QStringLiteral("0.00");
    QTest::newRow("no decimals") << Stock << 0 << QStringLiteral("0");
    QTest::newRow("two decimals") << Stock << 2 << QStringLiteral("0.00");
    QTest::newRow("three decimals") << Stock << 3 << QStringLiteral("0.000");
    QTest::newRow("four decimals") << Stock << 4 << QStringLiteral("0.0000");
}

void tst_price_fields::noLimitShowsAZeroWithTheDecimalsOfTheSecurity()
{
    QFETCH(QString, symbol);
    QFETCH(int, decimals);
    QFETCH(QString, zero);
    open();
    script().securities[Stock].pricePrecision = decimals;
    chooseSecurity(editor(), symbol);
    choose(editor(), "combx_priceMode", Custom);
    script().forget();
    choose(editor(), "combx_priceMode", NoLimit);
    QCOMPARE(price1().text(), zero);
    QCOMPARE(price2().text(), QString());
    QStringList asked;
    if (!symbol.isEmpty())
        asked.append(QStringLiteral("GetPricePrecisionBySymbol(%1, \"\")").arg(symbol));
    QCOMPARE(script().callsOf(QStringLiteral("GetPricePrecisionBySymbol")), asked);
}

void tst_price_fields::aPriceModeShapesThePriceInputs_data()
{
    QTest::addColumn<QString>("priceMode");
    QTest::addColumn<QString>("label");
    QTest::addColumn<bool>("price1Enabled");
    QTest::addColumn<bool>("price2Shown");
    QTest::newRow("no limit") << NoLimit << QStringLiteral("价格") << false << false;
    QTest::newRow("custom") << Custom << QStringLiteral("价格") << true << false;
    QTest::newRow("the larger of two") << CompareMax << QStringLiteral("价格1") << true << true;
    QTest::newRow("the smaller of two") << CompareMin << QStringLiteral("价格1") << true << true;
    QTest::newRow("any other mode") << QStringLiteral("99") << QStringLiteral("价格1") << true << true;
    QTest::newRow("no mode") << QString() << QStringLiteral("价格1") << true << true;
}

void tst_price_fields::aPriceModeShapesThePriceInputs()
{
    QFETCH(QString, priceMode);
    QFETCH(QString, label);
    QFETCH(bool, price1Enabled);
    QFETCH(bool, price2Shown);
    open();
    // From the mode that looks least like it.
    choose(editor(), "combx_priceMode", price2Shown ? NoLimit : CompareMax);
    box(editor(), "combx_priceMode")->addItem(QStringLiteral("another"), QStringLiteral("99"));
    if (priceMode.isEmpty())
        box(editor(), "combx_priceMode")->setCurrentIndex(-1);
    else
        choose(editor(), "combx_priceMode", priceMode);
    QCOMPARE(text(editor(), "label_price1"), label);
    QCOMPARE(isUsable(editor(), "lineEdit_price1"), price1Enabled);
    QCOMPARE(isOffered(editor(), "label_price1"), true);
    QCOMPARE(isOffered(editor(), "lineEdit_price1"), true);
    QCOMPARE(isOffered(editor(), "label_27"), true);
    QCOMPARE(isOffered(editor(), "label_price2"), price2Shown);
    QCOMPARE(isOffered(editor(), "lineEdit_price2"), price2Shown);
    QCOMPARE(isOffered(editor(), "label_28"), price2Shown);
}

void tst_price_fields::anotherPriceModeEmptiesBothFormulas_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QString>("text1");
    QTest::newRow("from the larger to the smaller") << CompareMax << CompareMin << QString();
    QTest::newRow("from the larger to custom") << CompareMax << Custom << QString();
    QTest::newRow("from custom to the larger") << Custom << CompareMax << QString();
    QTest::newRow("from the smaller to no limit") << CompareMin << NoLimit << QStringLiteral("0.00");
    QTest::newRow("from no limit to custom") << NoLimit << Custom << QString();
}

void tst_price_fields::anotherPriceModeEmptiesBothFormulas()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QString, text1);
    open();
    choose(editor(), "combx_priceMode", from);
    type(editor(), "lineEdit_price1", QStringLiteral("昨收价"));
    type(editor(), "lineEdit_price2", QStringLiteral("昨收价*1.01"));
    choose(editor(), "combx_priceMode", to);
    QCOMPARE(price1().text(), text1);
    QCOMPARE(price2().text(), QString());
}

void tst_price_fields::aPriceModeTakesItsStepsInOrder()
{
    open();
    chooseSecurity(editor(), Stock);
    answerAverages(Stock, { QStringLiteral("MA5") });
    script().forget();
    script().watch(true);
    choose(editor(), "combx_priceMode", CompareMax);
    script().watch(false);
    QCOMPARE(script().steps,
        QStringList({ QStringLiteral("combx_priceMode announces 比较值取最大"),
            QStringLiteral("GetSecurityTypeBySymbol(600000.K_SH)"),
            QStringLiteral("lineEdit_price1.SetFunctionItems([])"),
            QStringLiteral("IsSymbolHasPriceLimit(600000.K_SH)"),
            QStringLiteral("lineEdit_price1.SetFormulaItems([昨收价, 涨停价, 跌停价, MA5])"),
            QStringLiteral("lineEdit_price2.SetFormulaItems([昨收价, 涨停价, 跌停价, MA5])"),
            QStringLiteral("GetPricePrecisionBySymbol(600000.K_SH, \"\")"),
            QStringLiteral("lineEdit_price1.setEnabled(true)"), QStringLiteral("label_price2.show()"),
            QStringLiteral("lineEdit_price2.show()"), QStringLiteral("label_28.show()"),
            QStringLiteral("GetCurrentUserInstructionRuleProper(acc1, 1)"),
            QStringLiteral("combx_instructionMode.clear()"), QStringLiteral("combx_instructionMode announces \"\""),
            QStringLiteral("combx_instructionMode.append(主动管理, 1)"),
            QStringLiteral("combx_instructionMode announces 主动管理") }));
}

void tst_price_fields::noLimitTakesItsStepsInOrder()
{
    open();
    choose(editor(), "combx_priceMode", CompareMin);
    script().forget();
    script().watch(true);
    choose(editor(), "combx_priceMode", NoLimit);
    script().watch(false);
    QCOMPARE(script().steps.mid(0, 10),
        QStringList({ QStringLiteral("combx_priceMode announces 不限价"),
            QStringLiteral("GetSecurityTypeBySymbol(\"\")"), QStringLiteral("lineEdit_price1.SetFunctionItems([])"),
            QStringLiteral("IsSymbolHasPriceLimit(\"\")"), QStringLiteral("lineEdit_price1.SetFormulaItems([昨收价])"),
            QStringLiteral("lineEdit_price2.SetFormulaItems([昨收价])"),
            QStringLiteral("lineEdit_price1.setEnabled(false)"), QStringLiteral("label_price2.hide()"),
            QStringLiteral("lineEdit_price2.hide()"), QStringLiteral("label_28.hide()") }));
    QCOMPARE(script().steps.value(10), QStringLiteral("GetCurrentUserInstructionRuleProper(acc1, 1)"));
    QCOMPARE(script().countOf(QStringLiteral("GetCurrentUserInstructionRuleProper")), 1);
}

void tst_price_fields::reviewIsNotOfferedWithoutAPriceLimit()
{
    script().ruleProperty = 1;
    open();
    QCOMPARE(code(editor(), "combx_priceMode"), NoLimit);
    QCOMPARE(codes(editor(), "combx_instructionMode"), QStringList({ QStringLiteral("3") }));
    choose(editor(), "combx_priceMode", Custom);
    QCOMPARE(codes(editor(), "combx_instructionMode"), QStringList({ QStringLiteral("2"), QStringLiteral("3") }));
    choose(editor(), "combx_priceMode", NoLimit);
    QCOMPARE(codes(editor(), "combx_instructionMode"), QStringList({ QStringLiteral("3") }));
}

void tst_price_fields::aLateAverageKeepsTheFormulas_data()
{
    QTest::addColumn<QString>("priceMode");
    QTest::newRow("custom") << Custom;
    QTest::newRow("the larger of two") << CompareMax;
    QTest::newRow("the smaller of two") << CompareMin;
}

void tst_price_fields::aLateAverageKeepsTheFormulas()
{
    QFETCH(QString, priceMode);
    open();
    chooseSecurity(editor(), Stock);
    choose(editor(), "combx_priceMode", priceMode);
    type(editor(), "lineEdit_price1", QStringLiteral("昨收价*1.01 "));
    type(editor(), "lineEdit_price2", QStringLiteral("跌停价"));
    answerAverages(Stock, { QStringLiteral("MA5") });
    QCOMPARE(price1().text(), QStringLiteral("昨收价*1.01 "));
    QCOMPARE(price2().text(), QStringLiteral("跌停价"));
    QVERIFY(price1().FormulaItems().contains(QStringLiteral("MA5")));
    // One that is empty stays so.
    type(editor(), "lineEdit_price2", QString());
    answerAverages(Stock, { QStringLiteral("MA10") });
    QCOMPARE(price1().text(), QStringLiteral("昨收价*1.01 "));
    QCOMPARE(price2().text(), QString());
}

void tst_price_fields::aLateAverageKeepsTheZeroOfNoLimit()
{
    open();
    chooseSecurity(editor(), Bond);
    QCOMPARE(price1().text(), QStringLiteral("0.000"));
    answerAverages(Bond, { QStringLiteral("MA5") });
    QCOMPARE(price1().text(), QStringLiteral("0.000"));
    QCOMPARE(price2().text(), QString());
}

void tst_price_fields::anotherInstructionTypeEmptiesBothFormulas()
{
    open();
    choose(editor(), "combx_priceMode", CompareMax);
    type(editor(), "lineEdit_price1", QStringLiteral("昨收价"));
    type(editor(), "lineEdit_price2", QStringLiteral("昨收价*1.01"));
    choose(editor(), "combx_instructionType", QStringLiteral("5"));
    QCOMPARE(code(editor(), "combx_priceMode"), CompareMax);
    QCOMPARE(price1().text(), QString());
    QCOMPARE(price2().text(), QString());
}

void tst_price_fields::anotherSecurityEmptiesBothFormulas()
{
    open();
    chooseSecurity(editor(), Stock);
    choose(editor(), "combx_priceMode", CompareMax);
    type(editor(), "lineEdit_price1", QStringLiteral("昨收价"));
    type(editor(), "lineEdit_price2", QStringLiteral("昨收价*1.01"));
    chooseSecurity(editor(), OtherStock);
    QCOMPARE(code(editor(), "combx_priceMode"), CompareMax);
    QCOMPARE(price1().text(), QString());
    QCOMPARE(price2().text(), QString());
}

void tst_price_fields::pricesCanBeChosenWhenNoServiceAnswersAnything()
{
    script().staticTexts.clear();
    script().tradeDates = QList<QDate>();
    log().expectWarning(QStringLiteral("AutoParamSetting::InitDateEffectivePeriod"));
    constructShown();
    QCOMPARE(codes(editor(), "combx_priceMode"), QStringList({ NoLimit, Custom, CompareMax, CompareMin }));
    QCOMPARE(price1().text(), QStringLiteral("0.00"));
    QCOMPARE(price1().FormulaItems(), QStringList({ QStringLiteral("昨收价") }));
    QCOMPARE(price1().isEnabled(), false);
    choose(editor(), "combx_priceMode", CompareMin);
    QCOMPARE(price1().text(), QString());
    QCOMPARE(isOffered(editor(), "lineEdit_price2"), true);
}

QTEST_MAIN(tst_price_fields)
#include "tst_price_fields.moc"
