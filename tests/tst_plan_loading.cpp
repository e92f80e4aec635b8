#include "Algo_Fields.h"
#include "AutoPlanField.h"
#include "EditorTest.h"
#include "InstructionBusinessDataInterface.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloConstants.h"
#include "OrloDateEdit.h"
#include "OrloDecimalLineEdit.h"
#include "OrloFormulaNormal.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"
#include "ParamListWidget_single.h"
#include "PlanSample.h"
#include "VorSearchBox.h"
#include <QSignalSpy>
#include <QTranslator>
#include <QtTest>

namespace Base = AutoPlanField::BaseField;
namespace Content = Algo_Fields::AlgoInstContentInfo;

using FieldMap = QMap<QString, QVariant>;

Q_DECLARE_METATYPE(PlanSample)

namespace {

const QString PlanId = QStringLiteral("P1");
const QString Stock = QStringLiteral("600000.K_SH");

/// Amounts of a bond, sold from the second account under review: nothing of it is a new form's own choice.
PlanSample unusualPlan()
{
    PlanSample plan = PlanSample::ofType(QStringLiteral("5")).withPlanType(QStringLiteral("TW-02"));
    plan.account = QStringLiteral("acc2");
    plan.targetType = InstructionTargetType::AmountOrder;
    plan.side = Kelvo_Values::OrderSide::sell;
    plan.mode = QStringLiteral("3");
    plan.target = 250000.5;
    plan.daily = 50000.25;
    return plan.withPriceMode(QStringLiteral("8"));
}

PlanSample algorithmPlan()
{
    return PlanSample().withMode(QStringLiteral("3"));
}

QList<OrloDecimalLineEdit*> numbers(const AutoParamSetting& editor)
{
    return { field<OrloDecimalLineEdit>(editor, "le_targetTotalNum"),
        field<OrloDecimalLineEdit>(editor, "le_entrustMaxNum"), field<OrloDecimalLineEdit>(editor, "le_reduceHRatio") };
}

/// Answers every text of every context.
class EveryTextTranslator : public QTranslator {
public:
    QString translate(const char*, const char*, const char*, int) const override
    {
        return QStringLiteral("translated %1");
    }

    bool isEmpty() const override { return false; }
};

} // namespace

/// A stored plan is taken into the form, step by step, and the form is emptied again.
class PlanLoadingTest : public EditorTest {
    Q_OBJECT

private Q_SLOTS:
    void theFormIsFilledInItsOrder();
    void theModeIsChosenAfterTheNumbers();
    void thePriceTypeIsChosenBeforeThePriceModesAreRebuilt();
    void eachFieldAsksItsServiceOnce();
    void theTypesAreAnnouncedAndTheSecurityIsNot();
    void theModeIsReconciledWithTheRule_data();
    void theModeIsReconciledWithTheRule();
    void missingFieldsReadAsEmpty();
    void quantitiesAreShownInDisplayedUnitsAndAmountsAsTheyAre_data();
    void quantitiesAreShownInDisplayedUnitsAndAmountsAsTheyAre();
    void aDisplayFactorOfZeroCountsAsOneAndIsLogged();
    void thePriceTypeIsAlsoReadFromItsOlderPlace_data();
    void thePriceTypeIsAlsoReadFromItsOlderPlace();
    void anEditedAlgorithmPlanOffersNoAuction_data();
    void anEditedAlgorithmPlanOffersNoAuction();
    void functionsAreOfferedToCustomFormulas_data();
    void functionsAreOfferedToCustomFormulas();
    void theEntrustTypeIsFoundByItsNumber();
    void datesFollowTheBegin_data();
    void datesFollowTheBegin();
    void aStartedReductionIsBoundBeforeItsDayIsSet();
    void aPlanWithoutAReadableBeginCountsAsStarted_data();
    void aPlanWithoutAReadableBeginCountsAsStarted();
    void anEditLocksWhatIdentifiesThePlan_data();
    void anEditLocksWhatIdentifiesThePlan();
    void aResetUnlocksAnEditedPlan();
    void aSecondEditIsOfferedTheFirstOnesModesUnlessReset_data();
    void aSecondEditIsOfferedTheFirstOnesModesUnlessReset();
    void anAmountPlanOpenedWithoutReviewIsSentByQuantity();
    void anUnknownPlanIsLogged_data();
    void anUnknownPlanIsLogged();
    void whatOnlyTheLogShowsIsNotTranslated();
    void missingExtensionDataIsLogged_data();
    void missingExtensionDataIsLogged();
    void anOddOtherParameterTextHarmsNothing_data();
    void anOddOtherParameterTextHarmsNothing();
    void theServicesAnswerIsTakenNotTheText();
    void aNumberThatIsNoneLeavesItsFieldEmpty_data();
    void aNumberThatIsNoneLeavesItsFieldEmpty();
    void aCodeThatNoBoxOffersLeavesNoChoice_data();
    void aCodeThatNoBoxOffersLeavesNoChoice();
    void anUnknownReductionModeLeavesNoChoice();
    void theAlgorithmPanelIsHandedThePlan();
    void theAlgorithmPanelIsMadeOnce();
    void aStrategyWithoutNameHandsNothingOver();
    void theAccountOfTheAlgorithmIsKept();
    void aPlanWithoutAlgorithmMakesNoPanel();
    void theEditorMayDieUnderTheAgreement_data();
    void theEditorMayDieUnderTheAgreement();
    void theEditorMayDieWhileItIsFilled_data();
    void theEditorMayDieWhileItIsFilled();
    void aSentPlanEmptiesTheForm_data();
    void aSentPlanEmptiesTheForm();
    void emptyingIsSilentButForSideAndAssignee();
    void emptyingAsksInItsOrder();
    void theOnlyAccountStaysChosen();
    void anEditedAccountStaysChosen();

private:
    void store(const PlanSample& plan);
    void open(const PlanSample& plan, bool edits);
    void openStored(bool edits);
    QStringList formState() const;
    const OrloDateEdit* range() const { return field<OrloDateEdit>(editor(), "date_effectivePeriod_Multi"); }
    const OrloDateEdit* single() const { return field<OrloDateEdit>(editor(), "date_effectivePeriod_Single"); }
};

void PlanLoadingTest::store(const PlanSample& plan)
{
    if (script().accounts.isEmpty())
        openSampleMarket();
    storePlan(PlanId, plan);
}

void PlanLoadingTest::openStored(bool edits)
{
    constructShown();
    script().forget();
    log().clear();
    if (edits)
        editor().editPlan(PlanId);
    else
        editor().copyPlan(PlanId);
}

void PlanLoadingTest::open(const PlanSample& plan, bool edits)
{
    store(plan);
    if (plan.mode != QLatin1String("1"))
        script().ruleProperty = 1;
    openStored(edits);
}

QStringList PlanLoadingTest::formState() const
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

void PlanLoadingTest::theFormIsFilledInItsOrder()
{
    open(unusualPlan(), false);
    const QStringList landmarks = {
        QStringLiteral("GetPlanInfo(P1)"),
        QStringLiteral("GetPlanOtherParamFromPlanInfo(P1)"),
        QStringLiteral("GetCurrentUserInstructionRuleProper(acc2, 5)"),
        QStringLiteral("combx_fundAccount announces F-acc2"),
        QStringLiteral("combx_instructionType announces 债券"),
        QStringLiteral("combx_instructionTargetType announces 按金额"),
        QStringLiteral("combx_planType announces 平均数量"),
        QStringLiteral("le_symbol.setSymbol(113001.K_SH)"),
        QStringLiteral("signalQuerySymbolMAInfo(acc2, 113001.K_SH)"),
        QStringLiteral("GetSecurityChineseName(113001.K_SH)"),
        QStringLiteral("combx_tradeSide announces 卖出"),
        QStringLiteral("transEnum2SideUnion(0)"),
        QStringLiteral("combx_priceType.clear()"),
        QStringLiteral("combx_priceMode.clear()"),
        QStringLiteral("combx_priceMode announces 不限价"),
        QStringLiteral("combx_priceMode announces 比较值取最小"),
        QStringLiteral("le_targetTotalNum.setValue(250000.5)"),
        QStringLiteral("le_entrustMaxNum.setValue(50000.25)"),
        QStringLiteral("le_reduceHRatio.clear()"),
        QStringLiteral("CreateStrategyWgt(2, AutoParamSetting, av_AlgoGlobalType_instruction, [], [], 3)"),
        QStringLiteral("panel.setAlgoWhiteList([])"),
        QStringLiteral("panel.setAlgoBlackList([])"),
        QStringLiteral("panel.RefreshAlgoList()"),
    };
    int from = 0;
    for (const QString& landmark : landmarks) {
        const int found = script().steps.indexOf(landmark, from);
        QVERIFY2(found >= from, qPrintable(landmark));
        from = found + 1;
    }
    const QStringList rest = script().steps.mid(from);
    QCOMPARE(rest.size(), 3);
    QCOMPARE(rest.at(0), QStringLiteral("GetStaticCfgValue(oc_DictionaryKey_SideUnion2AlgoDefines, \"\")"));
    QVERIFY(rest.at(1).startsWith(QStringLiteral("panel.setBaseInfoData(")));
    QCOMPARE(rest.at(2), QStringLiteral("date_effectivePeriod_Multi.SetStartEndDate(2024-05-08, 2024-05-17)"));
    QCOMPARE(script().calls.mid(0, 3), landmarks.mid(0, 3));
}

void PlanLoadingTest::theModeIsChosenAfterTheNumbers()
{
    open(algorithmPlan(), false);
    const int numbers = script().steps.indexOf(QStringLiteral("le_reduceHRatio.clear()"));
    const QStringList announced = script().steps.filter(QStringLiteral("combx_instructionMode announces"));
    QVERIFY(numbers > 0);
    QCOMPARE(announced.last(), QStringLiteral("combx_instructionMode announces 算法交易复核"));
    QVERIFY(script().steps.lastIndexOf(announced.last()) > numbers);
}

void PlanLoadingTest::thePriceTypeIsChosenBeforeThePriceModesAreRebuilt()
{
    PlanSample plan = PlanSample::ofType(QStringLiteral("9"));
    plan.priceType = Orlo_Values::HKTimeInForce::BeforeTrade;
    open(plan, false);
    const int chosen = script().steps.lastIndexOf(QStringLiteral("combx_priceType announces 竞价限价盘"));
    QVERIFY(chosen > 0);
    QVERIFY(script().steps.indexOf(QStringLiteral("combx_priceMode.clear()")) > chosen);
}

void PlanLoadingTest::eachFieldAsksItsServiceOnce()
{
    open(PlanSample(), false);
    const QStringList unlimited = { QStringLiteral("GetSecurityTypeBySymbol(600000.K_SH)"),
        QStringLiteral("lineEdit_price1.SetFunctionItems([])"), QStringLiteral("IsSymbolHasPriceLimit(600000.K_SH)"),
        QStringLiteral("lineEdit_price1.SetFormulaItems([昨收价, 涨停价, 跌停价])"),
        QStringLiteral("lineEdit_price2.SetFormulaItems([昨收价, 涨停价, 跌停价])"),
        QStringLiteral("GetPricePrecisionBySymbol(600000.K_SH, \"\")"),
        QStringLiteral("GetCurrentUserInstructionRuleProper(acc1, 1)") };
    const QString functions = QStringLiteral("lineEdit_price1.SetFunctionItems([max(,), min(,)])");
    QStringList custom = unlimited;
    custom[1] = functions;
    QStringList expected = { QStringLiteral("transEnum2SideUnion(0)"),
        QStringLiteral("GetCurrentUserInstructionRuleProper(acc1, 1)") };
    expected += unlimited + custom;
    expected += functions;
    expected += QStringList{ QStringLiteral("GetDispFactorBySymbol(600000.K_SH)"),
        QStringLiteral("le_targetTotalNum.setValue(1000)"), QStringLiteral("le_entrustMaxNum.setValue(300)"),
        QStringLiteral("le_reduceHRatio.clear()"),
        QStringLiteral("date_effectivePeriod_Multi.SetStartEndDate(2024-05-08, 2024-05-17)") };
    const int name = script().calls.indexOf(QStringLiteral("GetSecurityChineseName(600000.K_SH)"));
    QVERIFY(name > 0);
    QCOMPARE(script().calls.mid(name + 1), expected);
    QCOMPARE(script().boxes.size(), 0);
}

void PlanLoadingTest::theTypesAreAnnouncedAndTheSecurityIsNot()
{
    store(unusualPlan());
    script().ruleProperty = 1;
    constructShown();
    const QSignalSpy codeSpy(field<VorSearchBox>(editor(), "le_symbol"), &VorSearchBox::selectStockCodeChange);
    const QSignalSpy nameSpy(field<VorSearchBox>(editor(), "le_symbol"), &VorSearchBox::selectStockNameChange);
    editor().copyPlan(PlanId);
    QCOMPARE(codeSpy.count(), 0);
    QCOMPARE(nameSpy.count(), 0);
    QCOMPARE(script().countOf(QStringLiteral("signalQuerySymbolMAInfo")), 1);
    QCOMPARE(text(editor(), "la_symbolName"), QStringLiteral("债券113001.K_SH"));
    QCOMPARE(code(editor(), "combx_instructionTargetType"), InstructionTargetType::AmountOrder);
}

void PlanLoadingTest::theModeIsReconciledWithTheRule_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("rule");
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QString>("priceMode");
    const QString active = QStringLiteral("1");
    const QString review = QStringLiteral("2");
    const QString algorithm = QStringLiteral("3");
    const QString unlimited = QStringLiteral("1");
    const QString larger = QStringLiteral("7");
    QTest::newRow("active, without review") << active << 0 << active << larger;
    QTest::newRow("active, under review") << active << 1 << algorithm << unlimited;
    QTest::newRow("reviewed, without review") << review << 0 << active << unlimited;
    QTest::newRow("reviewed, under review") << review << 1 << review << larger;
    QTest::newRow("algorithm, without review") << algorithm << 0 << active << unlimited;
    QTest::newRow("algorithm, under review") << algorithm << 1 << algorithm << larger;
    QTest::newRow("active, under another rule") << active << 2 << active << larger;
    QTest::newRow("reviewed, under another rule") << review << 2 << QString() << larger;
    QTest::newRow("algorithm, under another rule") << algorithm << 2 << QString() << larger;
    QTest::newRow("an unknown mode, under review") << QStringLiteral("9") << 1 << QString() << larger;
    QTest::newRow("no mode, without review") << QString() << 0 << QString() << larger;
}

void PlanLoadingTest::theModeIsReconciledWithTheRule()
{
    QFETCH(QString, stored);
    QFETCH(int, rule);
    QFETCH(QString, mode);
    QFETCH(QString, priceMode);
    for (const bool edits : { false, true }) {
        store(PlanSample().withMode(stored).withPriceMode(QStringLiteral("7")));
        script().ruleProperty = 2;
        script().ruleProperties.insert(QStringLiteral("acc1/1"), rule);
        openStored(edits);
        QCOMPARE(code(editor(), "combx_instructionMode"), mode);
        QCOMPARE(code(editor(), "combx_priceMode"), priceMode);
        QCOMPARE(text(editor(), "lineEdit_price1"),
            priceMode == QLatin1String("1") ? QStringLiteral("0.00") : QStringLiteral("昨收价*1.01"));
        QCOMPARE(text(editor(), "lineEdit_price2"), QStringLiteral("涨停价"));
        QCOMPARE(isOffered(editor(), "lineEdit_price2"), priceMode != QLatin1String("1"));
    }
}

void PlanLoadingTest::missingFieldsReadAsEmpty()
{
    openSampleMarket();
    storePlan(PlanId, { { QStringLiteral("unrelated"), 1 } });
    script().otherParam = [](const FieldMap&) { return FieldMap{ { QStringLiteral("unrelated"), 1 } }; };
    log().expectWarning(QStringLiteral("stored text is no date"));
    openStored(false);
    for (const char* const name : { "combx_fundAccount", "combx_instructionType", "combx_planType", "combx_tradeSide",
             "combx_entrustType", "combx_priceMode", "combx_instructionMode" })
        QVERIFY2(code(editor(), name).isEmpty(), name);
    QCOMPARE(code(editor(), "combx_instructionTargetType"), InstructionTargetType::QtyOrder);
    QCOMPARE(box(editor(), "combx_assignTo")->currentText(), QStringLiteral("默认不指定"));
    QCOMPARE(field<OrloDecimalLineEdit>(editor(), "le_targetTotalNum")->value(), 0.0);
    QVERIFY(!text(editor(), "le_targetTotalNum").isEmpty());
    QCOMPARE(text(editor(), "le_remark"), QString());
    QCOMPARE(range()->GetStartDate(), QDate(2024, 5, 7));
}

void PlanLoadingTest::quantitiesAreShownInDisplayedUnitsAndAmountsAsTheyAre_data()
{
    QTest::addColumn<PlanSample>("plan");
    QTest::addColumn<QStringList>("shown");
    PlanSample bond = PlanSample::ofType(QStringLiteral("5"));
    PlanSample reduction = PlanSample::reduction();
    QTest::newRow("a stock") << PlanSample() << QStringList{ QStringLiteral("1000"), QStringLiteral("300"), QString() };
    QTest::newRow("a bond in lots of ten")
        << bond << QStringList{ QStringLiteral("1000"), QStringLiteral("300"), QString() };
    QTest::newRow("amounts of that bond")
        << unusualPlan() << QStringList{ QStringLiteral("250000.50"), QStringLiteral("50000.25"), QString() };
    QTest::newRow("a reduction") << reduction
                                 << QStringList{ QStringLiteral("1000"), QString(), QStringLiteral("0.25") };
}

void PlanLoadingTest::quantitiesAreShownInDisplayedUnitsAndAmountsAsTheyAre()
{
    QFETCH(PlanSample, plan);
    QFETCH(QStringList, shown);
    open(plan, false);
    QStringList texts;
    for (const OrloDecimalLineEdit* const number : numbers(editor()))
        texts.append(number->GetStrValue());
    QCOMPARE(texts, shown);
}

void PlanLoadingTest::aDisplayFactorOfZeroCountsAsOneAndIsLogged()
{
    store(PlanSample());
    script().securities[Stock].displayFactor = 0;
    log().expectWarning(QStringLiteral("AutoParamSetting::copyPlan display factor 0 counts as 1"));
    openStored(false);
    QCOMPARE(numbers(editor()).first()->GetStrValue(), QStringLiteral("1000"));
}

void PlanLoadingTest::thePriceTypeIsAlsoReadFromItsOlderPlace_data()
{
    QTest::addColumn<QVariant>("newer");
    QTest::addColumn<QVariant>("older");
    QTest::addColumn<QString>("shown");
    const QString inTrade = Orlo_Values::HKTimeInForce::InTrade;
    const QString auction = Orlo_Values::HKTimeInForce::BeforeTrade;
    QTest::newRow("only the newer") << QVariant(auction) << QVariant() << auction;
    QTest::newRow("only the older") << QVariant() << QVariant(auction) << auction;
    QTest::newRow("an empty newer one") << QVariant(QString()) << QVariant(auction) << auction;
    QTest::newRow("both") << QVariant(auction) << QVariant(inTrade) << auction;
    QTest::newRow("neither") << QVariant() << QVariant() << QString();
    QTest::newRow("an unknown newer one") << QVariant(QStringLiteral("x")) << QVariant(auction) << QString();
}

void PlanLoadingTest::thePriceTypeIsAlsoReadFromItsOlderPlace()
{
    QFETCH(QVariant, newer);
    QFETCH(QVariant, older);
    QFETCH(QString, shown);
    openSampleMarket();
    const PlanSample plan = PlanSample::ofType(QStringLiteral("9"));
    FieldMap other = otherParamOf(plan);
    other.remove(Kelvo_Fields::Security::timeInForce);
    if (newer.isValid())
        other.insert(Kelvo_Fields::Security::timeInForce, newer);
    if (older.isValid())
        other.insert(Kelvo_Fields::Security::transActTime, older);
    storePlan(PlanId, withOtherParam(recordOf(plan), other));
    openStored(false);
    QCOMPARE(code(editor(), "combx_priceType"), shown);
}

void PlanLoadingTest::anEditedAlgorithmPlanOffersNoAuction_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<bool>("edits");
    QTest::addColumn<bool>("offersAuction");
    QTest::newRow("edit of an actively managed plan") << QStringLiteral("1") << true << true;
    QTest::newRow("edit of a reviewed plan") << QStringLiteral("2") << true << true;
    QTest::newRow("edit of an algorithm plan") << QStringLiteral("3") << true << false;
    QTest::newRow("copy of an algorithm plan") << QStringLiteral("3") << false << true;
}

void PlanLoadingTest::anEditedAlgorithmPlanOffersNoAuction()
{
    QFETCH(QString, mode);
    QFETCH(bool, edits);
    QFETCH(bool, offersAuction);
    open(PlanSample::ofType(QStringLiteral("9")).withMode(mode), edits);
    QCOMPARE(codes(editor(), "combx_priceType").contains(Orlo_Values::HKTimeInForce::BeforeTrade), offersAuction);
    QCOMPARE(code(editor(), "combx_priceType"), Orlo_Values::HKTimeInForce::InTrade);
}

void PlanLoadingTest::functionsAreOfferedToCustomFormulas_data()
{
    QTest::addColumn<QString>("priceMode");
    QTest::addColumn<QStringList>("functions");
    QTest::newRow("no limit") << QStringLiteral("1") << QStringList();
    QTest::newRow("custom") << QStringLiteral("6") << QStringList{ QStringLiteral("max(,)"), QStringLiteral("min(,)") };
    QTest::newRow("the larger") << QStringLiteral("7") << QStringList();
    QTest::newRow("the smaller") << QStringLiteral("8") << QStringList();
}

void PlanLoadingTest::functionsAreOfferedToCustomFormulas()
{
    QFETCH(QString, priceMode);
    QFETCH(QStringList, functions);
    open(PlanSample().withPriceMode(priceMode), false);
    QCOMPARE(field<OrloFormulaNormal>(editor(), "lineEdit_price1")->FunctionItems(), functions);
    QCOMPARE(field<OrloFormulaNormal>(editor(), "lineEdit_price2")->FunctionItems(), QStringList());
    QCOMPARE(text(editor(), "lineEdit_price2"), priceMode > QLatin1String("6") ? QStringLiteral("涨停价") : QString());
}

void PlanLoadingTest::theEntrustTypeIsFoundByItsNumber()
{
    open(PlanSample::ofType(QStringLiteral("2")), false);
    const int number =
        static_cast<int>(InstructionBusinessDataInterface::transSideUnion2Enum(Orlo_Values::SideUnion::marginSell));
    QVERIFY(number > 0);
    QCOMPARE(script().callsOf(QStringLiteral("transEnum2SideUnion")),
        QStringList{ QStringLiteral("transEnum2SideUnion(%1)").arg(number) });
    QCOMPARE(code(editor(), "combx_entrustType"), Orlo_Values::SideUnion::marginSell);
}

void PlanLoadingTest::datesFollowTheBegin_data()
{
    QTest::addColumn<bool>("reduces");
    QTest::addColumn<QDate>("begin");
    QTest::addColumn<bool>("edits");
    QTest::addColumn<bool>("takenOver");
    QTest::addColumn<bool>("bound");
    const QDate today(2024, 5, 6);
    for (const bool reduces : { false, true }) {
        const QByteArray kind = reduces ? "a reduction" : "a range";
        QTest::newRow(kind + " from tomorrow, edited") << reduces << today.addDays(1) << true << true << false;
        QTest::newRow(kind + " from tomorrow, copied") << reduces << today.addDays(1) << false << true << false;
        QTest::newRow(kind + " from today, edited") << reduces << today << true << true << true;
        QTest::newRow(kind + " from today, copied") << reduces << today << false << false << false;
        QTest::newRow(kind + " from yesterday, edited") << reduces << today.addDays(-1) << true << true << true;
        QTest::newRow(kind + " from yesterday, copied") << reduces << today.addDays(-1) << false << false << false;
    }
}

void PlanLoadingTest::datesFollowTheBegin()
{
    QFETCH(bool, reduces);
    QFETCH(QDate, begin);
    QFETCH(bool, edits);
    QFETCH(bool, takenOver);
    QFETCH(bool, bound);
    PlanSample plan = reduces ? PlanSample::reduction() : PlanSample();
    plan.begin = begin;
    open(plan, edits);
    const QDate first(2024, 5, 7);
    QCOMPARE(range()->GetStartDate(), takenOver && !reduces ? begin : first);
    QCOMPARE(range()->GetEndDate(), takenOver && !reduces ? plan.end : first);
    QCOMPARE(single()->GetDate(), takenOver && reduces ? begin : first);
    QCOMPARE(range()->property("minDate").toDate(), bound && !reduces ? begin : first);
    QCOMPARE(range()->property("maxDate").toDate(), QDate(2025, 4, 30));
    QCOMPARE(range()->property("startCalendarEnabled"), bound && !reduces ? QVariant(false) : QVariant());
    QVERIFY(range()->isEnabled());
    QCOMPARE(single()->isEnabled(), !(bound && reduces));
    QCOMPARE(single()->property("minDate").toDate(), bound && reduces ? begin : first);
    QCOMPARE(single()->property("maxDate").toDate(), bound && reduces ? begin : first.addMonths(3));
}

void PlanLoadingTest::aStartedReductionIsBoundBeforeItsDayIsSet()
{
    PlanSample plan = PlanSample::reduction();
    plan.begin = QDate(2024, 5, 2);
    open(plan, true);
    const QStringList calls = script().calls.filter(QStringLiteral("date_effectivePeriod_Single."));
    const QStringList expected = { QStringLiteral("date_effectivePeriod_Single.SetMinDate(2024-05-02)"),
        QStringLiteral("date_effectivePeriod_Single.SetMaxDate(2024-05-02)"),
        QStringLiteral("date_effectivePeriod_Single.SetDate(2024-05-02)") };
    QCOMPARE(calls.mid(calls.size() - expected.size()), expected);
}

void PlanLoadingTest::aPlanWithoutAReadableBeginCountsAsStarted_data()
{
    QTest::addColumn<bool>("reduces");
    QTest::addColumn<QVariant>("begin");
    QTest::addColumn<bool>("edits");
    for (const bool reduces : { false, true }) {
        const QByteArray kind = reduces ? "a reduction" : "a range";
        const QVariant unreadable = QStringLiteral("2024-13-45");
        QTest::newRow(kind + " with an unreadable begin, edited") << reduces << unreadable << true;
        QTest::newRow(kind + " with an unreadable begin, copied") << reduces << unreadable << false;
        QTest::newRow(kind + " without begin, edited") << reduces << QVariant() << true;
        QTest::newRow(kind + " without begin, copied") << reduces << QVariant() << false;
    }
}

void PlanLoadingTest::aPlanWithoutAReadableBeginCountsAsStarted()
{
    QFETCH(bool, reduces);
    QFETCH(QVariant, begin);
    QFETCH(bool, edits);
    openSampleMarket();
    const PlanSample plan = reduces ? PlanSample::reduction() : PlanSample();
    FieldMap record = recordOf(plan);
    record.remove(Base::beginDate);
    if (begin.isValid())
        record.insert(Base::beginDate, begin);
    storePlan(PlanId, record);
    log().expectWarning(
        QStringLiteral("AutoParamSetting::copyPlan stored text is no date \"%1\"").arg(begin.toString()));
    openStored(edits);
    const QDate first(2024, 5, 7);
    const bool rangeIsBound = edits && !reduces;
    QCOMPARE(range()->GetStartDate(), rangeIsBound ? QDate() : first);
    QCOMPARE(range()->GetEndDate(), rangeIsBound ? plan.end : first);
    QCOMPARE(range()->property("minDate").toDate(), rangeIsBound ? QDate() : first);
    QCOMPARE(range()->property("startCalendarEnabled"), rangeIsBound ? QVariant(false) : QVariant());
    const bool singleIsBound = edits && reduces;
    QCOMPARE(single()->GetDate(), singleIsBound ? QDate() : first);
    QCOMPARE(single()->property("minDate").toDate(), singleIsBound ? QDate() : first);
    QCOMPARE(single()->property("maxDate").toDate(), singleIsBound ? QDate() : first.addMonths(3));
    QCOMPARE(single()->isEnabled(), !singleIsBound);
    QCOMPARE(text(editor(), "le_targetTotalNum"), QStringLiteral("1000"));
}

void PlanLoadingTest::anEditLocksWhatIdentifiesThePlan_data()
{
    QTest::addColumn<PlanSample>("plan");
    QTest::addColumn<QStringList>("locked");
    const QStringList before = { QStringLiteral("combx_fundAccount"), QStringLiteral("combx_instructionType"),
        QStringLiteral("combx_instructionTargetType"), QStringLiteral("combx_planType"), QStringLiteral("le_symbol") };
    const QStringList side = { QStringLiteral("combx_tradeSide") };
    const QStringList entrust = { QStringLiteral("combx_entrustType") };
    const QStringList reduction = { QStringLiteral("le_entrustMaxNum"), QStringLiteral("le_reduceHRatio"),
        QStringLiteral("combx_reduceHMode") };
    const QStringList last = { QStringLiteral("combx_instructionMode"), QStringLiteral("combx_assignTo") };
    QTest::newRow("an ordinary plan") << PlanSample() << before + side + entrust + last;
    QTest::newRow("a reduction, whose side is locked already")
        << PlanSample::reduction() << before + entrust + reduction + last;
}

void PlanLoadingTest::anEditLocksWhatIdentifiesThePlan()
{
    QFETCH(PlanSample, plan);
    QFETCH(QStringList, locked);
    store(plan);
    constructShown();
    script().forget();
    script().watch(true);
    editor().editPlan(PlanId);
    script().watch(false);
    QStringList seen;
    const int last = script().steps.lastIndexOf(script().calls.last());
    for (const QString& step : script().steps.mid(last + 1)) {
        QVERIFY2(step.endsWith(QStringLiteral(".setEnabled(false)")), qPrintable(step));
        seen.append(step.section(QLatin1Char('.'), 0, 0));
    }
    QCOMPARE(seen, locked);
}

void PlanLoadingTest::aResetUnlocksAnEditedPlan()
{
    open(PlanSample::reduction(), true);
    editor().resetEnable();
    for (const char* const name : { "combx_fundAccount", "combx_instructionType", "combx_instructionTargetType",
             "combx_planType", "le_symbol", "combx_entrustType", "le_entrustMaxNum", "le_reduceHRatio",
             "combx_reduceHMode", "combx_instructionMode", "combx_assignTo", "date_effectivePeriod_Single" })
        QVERIFY2(isUsable(editor(), name), name);
    QVERIFY(!isUsable(editor(), "combx_tradeSide"));
    field<QLineEdit>(editor(), "lineEdit_price1")->setText(QStringLiteral("1"));
    press(editor(), "btn_ok");
    QCOMPARE(script().createdRecords.size(), 1);
    QCOMPARE(script().modifiedRecords.size(), 0);
}

void PlanLoadingTest::aSecondEditIsOfferedTheFirstOnesModesUnlessReset_data()
{
    QTest::addColumn<bool>("resets");
    QTest::addColumn<QStringList>("offered");
    QTest::newRow("without a reset") << false << QStringList{ QStringLiteral("主动管理") };
    QTest::newRow("after a reset") << true
                                   << QStringList{ QStringLiteral("普通交易复核"), QStringLiteral("算法交易复核") };
}

void PlanLoadingTest::aSecondEditIsOfferedTheFirstOnesModesUnlessReset()
{
    QFETCH(bool, resets);
    QFETCH(QStringList, offered);
    open(PlanSample(), true);
    storePlan(QStringLiteral("P2"), PlanSample().withMode(QStringLiteral("2")));
    script().ruleProperty = 1;
    if (resets)
        editor().resetEnable();
    editor().editPlan(QStringLiteral("P2"));
    const auto* const modes = field<QComboBox>(editor(), "combx_instructionMode");
    QStringList texts;
    for (int i = 0; i < modes->count(); ++i)
        texts.append(modes->itemText(i));
    QCOMPARE(texts, offered);
}

void PlanLoadingTest::anAmountPlanOpenedWithoutReviewIsSentByQuantity()
{
    PlanSample plan;
    plan.targetType = InstructionTargetType::AmountOrder;
    plan.target = 50000;
    plan.daily = 20000;
    open(plan, true);
    press(editor(), "btn_ok");
    QCOMPARE(script().modifiedRecords.size(), 1);
    const QMap<QString, QVariant> sent = script().modifiedRecords.first();
    QCOMPARE(sent.value(AutoPlanField::BaseField::totalQty).toString(), QStringLiteral("50000"));
    const QString other = sent.value(AutoPlanField::BaseField::planOtherParam).toString();
    QVERIFY2(!other.contains(QLatin1String("57134")), qPrintable(other));
}

void PlanLoadingTest::anUnknownPlanIsLogged_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<bool>("edits");
    QTest::newRow("copy") << QStringLiteral("gone") << false;
    QTest::newRow("edit") << QStringLiteral("gone") << true;
    QTest::newRow("copy of an id like a placeholder") << QStringLiteral("%1") << false;
    QTest::newRow("copy of an empty id") << QString() << false;
}

void PlanLoadingTest::anUnknownPlanIsLogged()
{
    QFETCH(QString, id);
    QFETCH(bool, edits);
    openSampleMarket();
    constructShown();
    fillForm(editor(), PlanSample());
    const QStringList before = formState();
    script().forget();
    log().clear();
    log().expectWarning(QStringLiteral("计划复制失败"));
    if (edits)
        editor().editPlan(id);
    else
        editor().copyPlan(id);
    QCOMPARE(script().calls.size(), 1);
    QCOMPARE(script().callsOf(QStringLiteral("GetPlanInfo")).size(), 1);
    QCOMPARE(script().boxes.size(), 0);
    QCOMPARE(log().lines().size(), 1);
    QCOMPARE(log().lines().first().type, QtWarningMsg);
    QCOMPARE(log().lines().first().text,
        QStringLiteral("AutoParamSetting::copyPlan 计划复制失败，失败原因：未找到计划ID【") + id
            + QStringLiteral("】的计划信息"));
    QVERIFY(log().lines().first().line > 0);
    QVERIFY(!log().lines().first().file.isEmpty());
    if (!edits) {
        QCOMPARE(formState(), before);
        return;
    }
    for (const char* const name :
        { "combx_fundAccount", "combx_instructionType", "combx_instructionTargetType", "combx_planType", "le_symbol",
            "combx_tradeSide", "combx_entrustType", "combx_instructionMode", "combx_assignTo" }) {
        QVERIFY2(!isUsable(editor(), name), name);
        field<QWidget>(editor(), name)->setEnabled(true);
    }
    QCOMPARE(formState(), before);
}

void PlanLoadingTest::whatOnlyTheLogShowsIsNotTranslated()
{
    FieldMap record = recordOf(PlanSample());
    record.remove(Base::planOtherParam);
    openSampleMarket();
    storePlan(PlanId, record);
    constructShown();
    EveryTextTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    log().clear();
    log().expectWarning(QStringLiteral("计划复制失败"), 2);
    editor().copyPlan(QStringLiteral("gone"));
    editor().copyPlan(PlanId);
    QCOMPARE(log().lines().size(), 2);
    QVERIFY(QCoreApplication::removeTranslator(&translator));
}

void PlanLoadingTest::missingExtensionDataIsLogged_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::newRow("none") << QVariant();
    QTest::newRow("an empty text") << QVariant(QString());
    QTest::newRow("no JSON") << QVariant(QStringLiteral("{\"a\":"));
    QTest::newRow("an array") << QVariant(QStringLiteral("[{\"a\":1}]"));
    QTest::newRow("an empty object") << QVariant(QStringLiteral("{}"));
    QTest::newRow("a megabyte that is no JSON") << QVariant(QString(1 << 20, QLatin1Char('{')));
    QTest::newRow("a bare number") << QVariant(QStringLiteral("12"));
}

void PlanLoadingTest::missingExtensionDataIsLogged()
{
    QFETCH(QVariant, stored);
    openSampleMarket();
    FieldMap record = recordOf(PlanSample());
    record.remove(Base::planOtherParam);
    if (stored.isValid())
        record.insert(Base::planOtherParam, stored);
    storePlan(PlanId, record);
    constructShown();
    const QStringList before = formState();
    script().forget();
    log().clear();
    log().expectWarning(QStringLiteral("计划复制失败"), 2);
    editor().copyPlan(PlanId);
    QCOMPARE(script().calls,
        (QStringList{ QStringLiteral("GetPlanInfo(P1)"), QStringLiteral("GetPlanOtherParamFromPlanInfo(P1)") }));
    QCOMPARE(log().lines().size(), 1);
    QCOMPARE(log().lines().first().text,
        QStringLiteral("AutoParamSetting::copyPlan 计划复制失败，失败原因：未找到计划ID【P1】的计划扩展信息"));
    QCOMPARE(formState(), before);
    editor().editPlan(PlanId);
    QVERIFY(!isUsable(editor(), "combx_fundAccount"));
    QVERIFY(!isUsable(editor(), "combx_assignTo"));
    QCOMPARE(script().boxes.size(), 0);
}

void PlanLoadingTest::anOddOtherParameterTextHarmsNothing_data()
{
    QTest::addColumn<QVariant>("value");
    QVariant nested = QStringLiteral("x");
    for (int depth = 0; depth < 400; ++depth)
        nested = FieldMap{ { QStringLiteral("a"), nested } };
    QTest::newRow("deeply nested") << nested;
    QTest::newRow("a megabyte") << QVariant(QString(1 << 20, QLatin1Char('x')));
    QTest::newRow("a list") << QVariant(QVariantList{ 1, QStringLiteral("2"), QVariant() });
}

void PlanLoadingTest::anOddOtherParameterTextHarmsNothing()
{
    QFETCH(QVariant, value);
    openSampleMarket();
    FieldMap other = otherParamOf(PlanSample());
    other.insert(QStringLiteral("unrelated"), value);
    other.insert(Base::algoParam, value);
    script().otherParam = [other](const FieldMap&) { return other; };
    store(PlanSample());
    openStored(true);
    QCOMPARE(text(editor(), "le_targetTotalNum"), QStringLiteral("1000"));
    QCOMPARE(text(editor(), "le_entrustMaxNum"), QStringLiteral("300"));
}

void PlanLoadingTest::theServicesAnswerIsTakenNotTheText()
{
    store(PlanSample());
    FieldMap other = otherParamOf(PlanSample());
    other.insert(AutoPlanField::Progress::CurrentQty, 77);
    script().otherParam = [other](const FieldMap&) { return other; };
    openStored(false);
    QCOMPARE(text(editor(), "le_entrustMaxNum"), QStringLiteral("77"));
}

void PlanLoadingTest::aNumberThatIsNoneLeavesItsFieldEmpty_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<bool>("warns");
    QTest::newRow("no number") << QStringLiteral("many") << QString() << true;
    QTest::newRow("nan") << QStringLiteral("nan") << QString() << true;
    QTest::newRow("infinity") << QStringLiteral("inf") << QString() << true;
    QTest::newRow("beyond what a number holds") << QStringLiteral("1e400") << QString() << true;
    QTest::newRow("beyond what the field holds") << QStringLiteral("2000000001") << QString() << true;
    QTest::newRow("very large") << QStringLiteral("1e300") << QString() << true;
    QTest::newRow("negative") << QStringLiteral("-5") << QString() << true;
    QTest::newRow("with grouping") << QStringLiteral("1,000") << QString() << true;
    QTest::newRow("hexadecimal") << QStringLiteral("0x10") << QString() << true;
    QTest::newRow("the largest") << QStringLiteral("2000000000") << QStringLiteral("2000000000") << false;
    QTest::newRow("zero") << QStringLiteral("0") << QStringLiteral("0") << false;
    QTest::newRow("with an exponent") << QStringLiteral("1e3") << QStringLiteral("1000") << false;
    QTest::newRow("none") << QString() << QStringLiteral("0") << false;
}

void PlanLoadingTest::aNumberThatIsNoneLeavesItsFieldEmpty()
{
    QFETCH(QString, stored);
    QFETCH(QString, shown);
    QFETCH(bool, warns);
    openSampleMarket();
    FieldMap other = otherParamOf(PlanSample());
    other.insert(AutoPlanField::Progress::CurrentQty, stored);
    FieldMap record = withOtherParam(recordOf(PlanSample()), other);
    record.insert(Base::totalQty, stored);
    storePlan(PlanId, record);
    if (warns) {
        log().expectWarning(QStringLiteral("le_targetTotalNum"));
        log().expectWarning(QStringLiteral("le_entrustMaxNum"));
    }
    openStored(true);
    QCOMPARE(field<OrloDecimalLineEdit>(editor(), "le_targetTotalNum")->GetStrValue(), shown);
    QCOMPARE(field<OrloDecimalLineEdit>(editor(), "le_entrustMaxNum")->GetStrValue(), shown);
    QCOMPARE(range()->GetStartDate(), QDate(2024, 5, 8));
    if (!shown.isEmpty())
        return;
    press(editor(), "btn_ok");
    QCOMPARE(script().boxes.size(), 1);
    QCOMPARE(script().boxes.first().text, QStringLiteral("未输入目标总量！"));
    QCOMPARE(script().modifiedRecords.size(), 0);
}

void PlanLoadingTest::aCodeThatNoBoxOffersLeavesNoChoice_data()
{
    QTest::addColumn<PlanSample>("plan");
    QTest::addColumn<QString>("boxName");
    QTest::addColumn<QString>("said");
    PlanSample plan;
    plan.account = QStringLiteral("gone");
    QTest::newRow("account") << plan << QStringLiteral("combx_fundAccount") << QStringLiteral("未绑定资金帐号！");
    plan = PlanSample();
    plan.instructionType = QStringLiteral("7");
    QTest::newRow("instruction type") << plan << QStringLiteral("combx_instructionType")
                                      << QStringLiteral("指令类型必填，请重新编辑！");
    plan = PlanSample().withPlanType(QStringLiteral("tw-01"));
    QTest::newRow("plan type in lower case") << plan << QStringLiteral("combx_planType") << QString();
    plan = PlanSample();
    plan.side = QStringLiteral("neither");
    QTest::newRow("side") << plan << QStringLiteral("combx_tradeSide") << QString();
    QTest::newRow("price mode") << PlanSample().withPriceMode(QStringLiteral("2")) << QStringLiteral("combx_priceMode")
                                << QStringLiteral("价格2公式必填，请重新编辑！");
    QTest::newRow("mode") << PlanSample().withMode(QStringLiteral("9")) << QStringLiteral("combx_instructionMode")
                          << QStringLiteral("下单模式必填，请重新编辑！");
    plan = PlanSample();
    plan.assignee = QStringLiteral("离职者");
    QTest::newRow("assignee") << plan << QStringLiteral("combx_assignTo") << QString();
    plan = PlanSample::reduction();
    plan.assignee = QStringLiteral("离职者");
    QTest::newRow("executor") << plan << QStringLiteral("combx_assignTo") << QStringLiteral("执行人必填，请重新编辑！");
    plan = PlanSample::ofType(QStringLiteral("2"));
    plan.entrustType = Orlo_Values::SideUnion::financingBuy;
    QTest::newRow("entrust type of the other side") << plan << QStringLiteral("combx_entrustType") << QString();
    plan = PlanSample::ofType(QStringLiteral("9"));
    plan.priceType = QStringLiteral("x");
    QTest::newRow("price type") << plan << QStringLiteral("combx_priceType") << QString();
}

void PlanLoadingTest::aCodeThatNoBoxOffersLeavesNoChoice()
{
    QFETCH(PlanSample, plan);
    QFETCH(QString, boxName);
    QFETCH(QString, said);
    for (const bool edits : { false, true }) {
        store(plan);
        openStored(edits);
        QCOMPARE(box(editor(), qPrintable(boxName))->currentIndex(), -1);
        script().forget();
        press(editor(), "btn_ok");
        QCOMPARE(script().boxes.size(), 1);
        if (!said.isEmpty())
            QCOMPARE(script().boxes.first().text, said);
    }
}

void PlanLoadingTest::anUnknownReductionModeLeavesNoChoice()
{
    openSampleMarket();
    const PlanSample plan = PlanSample::reduction();
    for (const QString& mode : { QStringLiteral("1"), QStringLiteral("2") }) {
        FieldMap other = otherParamOf(plan);
        other.insert(Base::JCModel, mode);
        storePlan(PlanId, withOtherParam(recordOf(plan), other));
        openStored(true);
        QCOMPARE(box(editor(), "combx_reduceHMode")->currentIndex(), mode == QLatin1String("1") ? 0 : -1);
        press(editor(), "btn_ok");
        QCOMPARE(script().modifiedRecords.size(), 1);
        script().modifiedRecords.clear();
        QCOMPARE(box(editor(), "combx_reduceHMode")->currentIndex(), 0);
    }
}

void PlanLoadingTest::theAlgorithmPanelIsHandedThePlan()
{
    openSampleMarket();
    script().whiteAlgoNames = QStringList{ QStringLiteral("TWAP"), QStringLiteral("POV") };
    script().blackAlgoNames = QStringList{ QStringLiteral("SNIPER") };
    PlanSample plan = PlanSample::ofType(QStringLiteral("2")).withMode(QStringLiteral("3"));
    script().staticTexts.insert(
        OrloConstants::DictionaryKey::SideUnion2AlgoDefines + QLatin1Char('/') + plan.entrustType,
        QStringLiteral("sells on margin"));
    FieldMap other = otherParamOf(plan);
    other.insert(Base::algoParam,
        FieldMap{ { QStringLiteral("rate"), QStringLiteral("0.2") }, { Content::Symbol, QStringLiteral("old") },
            { Content::OrderSide, QStringLiteral("old") }, { Content::EntrustProp, QStringLiteral("old") } });
    storePlan(PlanId, withOtherParam(recordOf(plan), other));
    script().ruleProperty = 1;
    openStored(false);
    const QStringList expected = {
        QStringLiteral("CreateStrategyWgt(2, AutoParamSetting, av_AlgoGlobalType_instruction, [TWAP, POV], [], 3)"),
        QStringLiteral("panel.setAlgoWhiteList([TWAP, POV])"),
        QStringLiteral("panel.setAlgoBlackList([SNIPER])"),
        QStringLiteral("panel.RefreshAlgoList()"),
    };
    const int created = script().calls.indexOf(expected.first());
    QVERIFY(created > 0);
    QCOMPARE(script().calls.mid(created, 4), expected);
    QCOMPARE(script().countOf(QStringLiteral("panel.setBaseInfoData")), 1);
    QVERIFY(script().callsOf(QStringLiteral("panel.setBaseInfoData")).first().endsWith(QStringLiteral("}, false)")));
    QCOMPARE(script().panelBaseData,
        (FieldMap{ { QStringLiteral("rate"), QStringLiteral("0.2") },
            { Content::TradingAccount, QStringLiteral("credit") }, { Content::Symbol, Stock },
            { Content::OrderSide, QStringLiteral("av_AlgoOrderSide_SellValue") },
            { Content::EntrustProp, QStringLiteral("sells on margin") } }));
    const ParamListWidget_single* const panel = field<ParamListWidget_single>(editor(), "");
    QCOMPARE(panel->windowFlags(), Qt::WindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint));
    QCOMPARE(panel->windowModality(), Qt::ApplicationModal);
    QVERIFY(!panel->isVisible());
}

void PlanLoadingTest::theAlgorithmPanelIsMadeOnce()
{
    open(algorithmPlan(), false);
    editor().copyPlan(PlanId);
    QCOMPARE(script().countOf(QStringLiteral("CreateStrategyWgt")), 1);
    QCOMPARE(script().countOf(QStringLiteral("panel.RefreshAlgoList")), 2);
    QCOMPARE(script().countOf(QStringLiteral("panel.setBaseInfoData")), 2);
}

void PlanLoadingTest::aStrategyWithoutNameHandsNothingOver()
{
    openSampleMarket();
    FieldMap other = otherParamOf(algorithmPlan());
    other.remove(Base::algoStrategyName);
    storePlan(PlanId, withOtherParam(recordOf(algorithmPlan()), other));
    script().ruleProperty = 1;
    openStored(false);
    QCOMPARE(script().countOf(QStringLiteral("CreateStrategyWgt")), 1);
    QCOMPARE(script().countOf(QStringLiteral("panel.RefreshAlgoList")), 1);
    QCOMPARE(script().countOf(QStringLiteral("panel.setBaseInfoData")), 0);
}

void PlanLoadingTest::theAccountOfTheAlgorithmIsKept()
{
    openSampleMarket();
    PlanSample plan = algorithmPlan();
    plan.side = QStringLiteral("neither");
    FieldMap other = otherParamOf(plan);
    other.insert(Base::algoParam, FieldMap{ { Content::TradingAccount, QStringLiteral("acc2") } });
    storePlan(PlanId, withOtherParam(recordOf(plan), other));
    script().ruleProperty = 1;
    openStored(false);
    QCOMPARE(script().panelBaseData,
        (FieldMap{ { Content::TradingAccount, QStringLiteral("acc2") }, { Content::Symbol, Stock },
            { Content::EntrustProp, QString() } }));
}

void PlanLoadingTest::aPlanWithoutAlgorithmMakesNoPanel()
{
    open(PlanSample().withMode(QStringLiteral("2")), true);
    QCOMPARE(script().countOf(QStringLiteral("CreateStrategyWgt")), 0);
    QCOMPARE(code(editor(), "combx_instructionMode"), QStringLiteral("2"));
}

void PlanLoadingTest::theEditorMayDieUnderTheAgreement_data()
{
    QTest::addColumn<bool>("edits");
    QTest::newRow("edit") << true;
    QTest::newRow("copy") << false;
}

void PlanLoadingTest::theEditorMayDieUnderTheAgreement()
{
    QFETCH(bool, edits);
    store(PlanSample::reduction());
    script().unsignedClients = QStringList{ QStringLiteral("C-acc1") };
    script().whileAgreementOpen = [this] { destroy(); };
    openStored(edits);
    QCOMPARE(script().countOf(QStringLiteral("OrloAgreementSignWidget.shown")), 1);
    QCOMPARE(script().countOf(QStringLiteral("GetSecurityChineseName")), 0);
}

void PlanLoadingTest::theEditorMayDieWhileItIsFilled_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<bool>("edits");
    for (const bool edits : { false, true }) {
        const QByteArray kind = edits ? ", edited" : ", copied";
        QTest::newRow("the averages are asked for" + kind) << QStringLiteral("signalQuerySymbolMAInfo") << edits;
        QTest::newRow("the panel is handed the plan" + kind) << QStringLiteral("panel.setBaseInfoData") << edits;
    }
}

void PlanLoadingTest::theEditorMayDieWhileItIsFilled()
{
    QFETCH(QString, operation);
    QFETCH(bool, edits);
    store(algorithmPlan());
    script().ruleProperty = 1;
    destroyDuring(operation);
    openStored(edits);
    QCOMPARE(script().calls, QStringList());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// --- Emptying the form

void PlanLoadingTest::aSentPlanEmptiesTheForm_data()
{
    QTest::addColumn<PlanSample>("plan");
    QTest::newRow("an ordinary plan") << PlanSample();
    QTest::newRow("two formulas, reviewed")
        << PlanSample().withPriceMode(QStringLiteral("7")).withMode(QStringLiteral("2"));
    QTest::newRow("two formulas, by algorithm")
        << PlanSample().withPriceMode(QStringLiteral("7")).withMode(QStringLiteral("3"));
    QTest::newRow("amounts by algorithm") << unusualPlan();
    QTest::newRow("a reduction") << PlanSample::reduction();
    QTest::newRow("a margin plan") << PlanSample::ofType(QStringLiteral("2"));
    PlanSample auction = PlanSample::ofType(QStringLiteral("9"));
    auction.priceType = Orlo_Values::HKTimeInForce::BeforeTrade;
    auction.target = 500;
    QTest::newRow("Hong Kong, for the auction") << auction;
}

void PlanLoadingTest::aSentPlanEmptiesTheForm()
{
    QFETCH(PlanSample, plan);
    openSampleMarket();
    if (plan.mode != QLatin1String("1"))
        script().ruleProperty = 1;
    plan.remark = QStringLiteral("备注");
    constructShown();
    fillForm(editor(), plan);
    script().staticTexts.insert(
        OrloConstants::DictionaryKey::exchangeChineseName + QLatin1Char('/'), QStringLiteral("market"));
    press(editor(), "btn_ok");
    QCOMPARE(script().boxes.last().text, QStringLiteral("交易自动规划创建成功!"));
    for (const char* const name : { "combx_fundAccount", "combx_instructionType" })
        QVERIFY2(box(editor(), name)->currentIndex() == -1, name);
    for (const char* const name : { "combx_planType", "combx_tradeSide", "combx_priceType", "combx_priceMode",
             "combx_instructionMode", "combx_assignTo", "combx_reduceHMode" })
        QVERIFY2(box(editor(), name)->currentIndex() == 0, name);
    for (const char* const name : { "la_symbolName", "le_exchange", "lineEdit_price1", "lineEdit_price2",
             "le_targetTotalNum", "le_entrustMaxNum", "le_reduceHRatio", "le_remark" })
        QVERIFY2(text(editor(), name).isEmpty(), name);
    for (const char* const name : { "lineEdit_price2", "le_reduceHRatio", "btn_algoParamSetting", "combx_reduceHMode" })
        QVERIFY2(!isOffered(editor(), name), name);
    QCOMPARE(field<VorSearchBox>(editor(), "le_symbol")->getSymbol(), QString());
    const QDate first(2024, 5, 7);
    QCOMPARE(range()->GetStartDate(), first);
    QCOMPARE(range()->GetEndDate(), first);
    QCOMPARE(single()->GetDate(), first);
    QVERIFY(!script().panelHasParams);
}

void PlanLoadingTest::emptyingIsSilentButForSideAndAssignee()
{
    openSampleMarket();
    script().ruleProperty = 1;
    constructShown();
    PlanSample plan = unusualPlan();
    plan.assignee = QStringLiteral("甲");
    fillForm(editor(), plan);
    script().forget();
    press(editor(), "btn_ok");
    QStringList announced;
    for (const QString& step : qAsConst(script().steps)) {
        if (step.contains(QStringLiteral(" announces ")))
            announced.append(step);
    }
    QCOMPARE(announced,
        (QStringList{
            QStringLiteral("combx_tradeSide announces 买入"), QStringLiteral("combx_assignTo announces 默认不指定") }));
}

void PlanLoadingTest::emptyingAsksInItsOrder()
{
    openSampleMarket();
    script().ruleProperty = 1;
    constructShown();
    fillForm(editor(), unusualPlan());
    setToday(QDate(2024, 5, 8));
    press(editor(), "btn_ok");
    const int tip = script().calls.indexOf(QStringLiteral("ShowTipMsgBox(交易自动规划创建成功!, AutoParamSetting)"));
    QVERIFY(tip > 0);
    QCOMPARE(script().calls.mid(tip + 1),
        (QStringList{ QStringLiteral("le_symbol.setSymbol(\"\")"), QStringLiteral("le_targetTotalNum.clear()"),
            QStringLiteral("le_entrustMaxNum.clear()"), QStringLiteral("le_reduceHRatio.clear()"),
            QStringLiteral("panel.ClearParams()"),
            QStringLiteral("date_effectivePeriod_Multi.SetStartEndDate(2024-05-09, 2024-05-09)"),
            QStringLiteral("date_effectivePeriod_Single.SetDate(2024-05-09)") }));
}

void PlanLoadingTest::theOnlyAccountStaysChosen()
{
    openSampleMarket();
    script().accounts = script().accounts.mid(0, 1);
    constructShown();
    QVERIFY(!isUsable(editor(), "combx_fundAccount"));
    fillForm(editor(), PlanSample());
    press(editor(), "btn_ok");
    QCOMPARE(code(editor(), "combx_fundAccount"), QStringLiteral("acc1"));
    QCOMPARE(code(editor(), "combx_instructionType"), QString());
}

void PlanLoadingTest::anEditedAccountStaysChosen()
{
    open(PlanSample(), true);
    press(editor(), "btn_ok");
    QCOMPARE(script().boxes.last().text, QStringLiteral("交易计划P1修改成功!"));
    QCOMPARE(code(editor(), "combx_fundAccount"), QStringLiteral("acc1"));
    QCOMPARE(box(editor(), "combx_instructionType")->currentIndex(), -1);
    QVERIFY(!isUsable(editor(), "combx_fundAccount"));
    press(editor(), "btn_ok");
    QCOMPARE(script().boxes.last().text, QStringLiteral("指令类型必填，请重新编辑！"));
}

QTEST_MAIN(PlanLoadingTest)
#include "tst_plan_loading.moc"
