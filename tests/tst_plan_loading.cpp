#include "Algo_Fields.h"
#include "Algo_Values.h"
#include "AutoPlanField.h"
#include "EditorTest.h"
#include "FormView.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloConstants.h"
#include "OrloDateEdit.h"
#include "OrloDecimalLineEdit.h"
#include "Orlo_Values.h"
#include "ParamListWidget_single.h"
#include "PlanVocabulary.h"
#include "VorSearchBox.h"

#include <QSignalSpy>
#include <QtTest>

namespace Base = AutoPlanField::BaseField;
namespace Content = Algo_Fields::AlgoInstContentInfo;

namespace {

/// An amount order that sells a bond from the second account, under review: none of these is a new form's default.
PlanSample unusualPlan()
{
    PlanSample plan = PlanSample::ofType(AutoPlanInstructionType::Bond).withPlanType(AutoPlanTemplate::AverageQty);
    plan.account = QStringLiteral("acc2");
    plan.targetType = InstructionTargetType::AmountOrder;
    plan.side = Kelvo_Values::OrderSide::sell;
    plan.mode = AutoPlanInstMode::AlgoTradeReview;
    plan.target = 250000.5;
    plan.daily = 50000.25;
    return plan.withPriceMode(AutoPlanPriceModel::CompareMin);
}

PlanSample algorithmPlan()
{
    return PlanSample().withMode(AutoPlanInstMode::AlgoTradeReview);
}

PlanSample connectPlan(const QString& priceType)
{
    PlanSample plan = PlanSample::ofType(AutoPlanInstructionType::HkConnect);
    plan.priceType = priceType;
    return plan;
}

} // namespace

/// Loading a stored plan into the form, step by step, and clearing the form again. tst_stored_plans compares what each
/// kind of plan shows with the model.
class PlanLoadingTest : public EditorTest {
    Q_OBJECT

private:
    void store(const PlanSample& plan)
    {
        if (script().accounts.isEmpty())
            openSampleMarket();
        storePlan(PlanId, plan);
        if (plan.mode != AutoPlanInstMode::ActiveManage)
            script().ruleProperty = AutoPlanRuleProperty::Review;
    }

    /// A plan with other parameters that no editor stores.
    void storeWith(const PlanSample& plan, const std::function<void(FieldMap& other)>& change)
    {
        store(plan);
        FieldMap other = otherParamOf(plan);
        change(other);
        storePlan(PlanId, withOtherParam(recordOf(plan), other));
    }

    void openStored(bool edits)
    {
        constructShown();
        script().forget();
        log().clear();
        openPlan(PlanId, edits);
    }

    void open(const PlanSample& plan, bool edits)
    {
        store(plan);
        openStored(edits);
    }

    void editAndCopy()
    {
        QTest::addColumn<bool>("edits");
        QTest::newRow("edit") << true;
        QTest::newRow("copy") << false;
    }

private Q_SLOTS:
    // --- The order

    void theFormIsFilledInItsOrder()
    {
        open(unusualPlan(), false);
        int from = 0;
        for (const QString& landmark : lines(R"(
            GetPlanInfo(P1)
            GetPlanOtherParamFromPlanInfo(P1)
            GetCurrentUserInstructionRuleProper(acc2, 5)
            combx_fundAccount announces F-acc2
            combx_instructionType announces 债券
            combx_instructionTargetType announces 按金额
            combx_planType announces 平均数量
            le_symbol.setSymbol(113001.K_SH)
            signalQuerySymbolMAInfo(acc2, 113001.K_SH)
            GetSecurityChineseName(113001.K_SH)
            combx_tradeSide announces 卖出
            transEnum2SideUnion(0)
            combx_priceType.clear()
            combx_priceMode.clear()
            combx_priceMode announces 不限价
            combx_priceMode announces 比较值取最小
            le_targetTotalNum.setValue(250000.5)
            le_entrustMaxNum.setValue(50000.25)
            le_reduceHRatio.clear()
            CreateStrategyWgt(2, AutoParamSetting, av_AlgoGlobalType_instruction, [], [], 3)
            panel.setAlgoWhiteList([])
            panel.setAlgoBlackList([])
            panel.RefreshAlgoList()
            GetStaticCfgValue(oc_DictionaryKey_SideUnion2AlgoDefines, ""))")) {
            const int found = script().steps.indexOf(landmark, from);
            QVERIFY2(found >= from, qPrintable(landmark));
            from = found + 1;
        }
        QCOMPARE(script().steps.size(), from + 2);
        QVERIFY(script().steps.at(from).startsWith(QStringLiteral("panel.setBaseInfoData(")));
        QCOMPARE(script().steps.last(),
            QStringLiteral("date_effectivePeriod_Multi.SetStartEndDate(2024-05-08, 2024-05-17)"));
        QCOMPARE(script().calls.indexOf(QStringLiteral("GetCurrentUserInstructionRuleProper(acc2, 5)")), 2);
    }

    void theModeIsChosenAfterTheNumbers()
    {
        open(algorithmPlan(), false);
        const QString chosen = QStringLiteral("combx_instructionMode announces 算法交易复核");
        const int numbers = script().steps.indexOf(QStringLiteral("le_reduceHRatio.clear()"));
        QVERIFY(0 < numbers && numbers < script().steps.lastIndexOf(chosen));
        QCOMPARE(script().steps.filter(QStringLiteral("combx_instructionMode announces")).last(), chosen);
    }

    void thePriceTypeIsChosenBeforeThePriceModesAreRebuilt()
    {
        open(connectPlan(Orlo_Values::HKTimeInForce::BeforeTrade), false);
        const int chosen = script().steps.lastIndexOf(QStringLiteral("combx_priceType announces 竞价限价盘"));
        QVERIFY(0 < chosen && chosen < script().steps.indexOf(QStringLiteral("combx_priceMode.clear()")));
    }

    void eachFieldAsksItsServiceOnce()
    {
        open(PlanSample(), false);
        const QStringList prices = lines(R"(
            GetSecurityTypeBySymbol(600000.K_SH)
            lineEdit_price1.SetFunctionItems([FUNCTIONS])
            IsSymbolHasPriceLimit(600000.K_SH)
            lineEdit_price1.SetFormulaItems([昨收价, 涨停价, 跌停价])
            lineEdit_price2.SetFormulaItems([昨收价, 涨停价, 跌停价])
            GetPricePrecisionBySymbol(600000.K_SH, "")
            GetCurrentUserInstructionRuleProper(acc1, 1))");
        QStringList unlimited = prices;
        QStringList custom = prices;
        const QStringList expected = lines(R"(
            transEnum2SideUnion(0)
            GetCurrentUserInstructionRuleProper(acc1, 1))")
            + unlimited.replaceInStrings(QStringLiteral("FUNCTIONS"), QString())
            + custom.replaceInStrings(QStringLiteral("FUNCTIONS"), QStringLiteral("max(,), min(,)")) + lines(R"(
            lineEdit_price1.SetFunctionItems([max(,), min(,)])
            GetDispFactorBySymbol(600000.K_SH)
            le_targetTotalNum.setValue(1000)
            le_entrustMaxNum.setValue(300)
            le_reduceHRatio.clear()
            date_effectivePeriod_Multi.SetStartEndDate(2024-05-08, 2024-05-17))");
        const int name = script().calls.indexOf(QStringLiteral("GetSecurityChineseName(600000.K_SH)"));
        QCOMPARE(script().calls.mid(name + 1), expected);
    }

    void theTypesAreAnnouncedAndTheSecurityIsNot()
    {
        store(unusualPlan());
        constructShown();
        const QSignalSpy codeSpy(field<VorSearchBox>(editor(), "le_symbol"), &VorSearchBox::selectStockCodeChange);
        const QSignalSpy nameSpy(field<VorSearchBox>(editor(), "le_symbol"), &VorSearchBox::selectStockNameChange);
        editor().copyPlan(PlanId);
        QCOMPARE(codeSpy.count() + nameSpy.count(), 0);
        QCOMPARE(script().countOf(QStringLiteral("signalQuerySymbolMAInfo")), 1);
        QCOMPARE(text(editor(), "la_symbolName"), QStringLiteral("债券113001.K_SH"));
    }

    void aStartedReductionIsBoundBeforeItsDayIsSet()
    {
        PlanSample plan = PlanSample::reduction();
        plan.begin = QDate(2024, 5, 2);
        open(plan, true);
        const QStringList calls = script().calls.filter(QStringLiteral("date_effectivePeriod_Single."));
        QCOMPARE(calls.mid(calls.size() - 3), lines(R"(
            date_effectivePeriod_Single.SetMinDate(2024-05-02)
            date_effectivePeriod_Single.SetMaxDate(2024-05-02)
            date_effectivePeriod_Single.SetDate(2024-05-02))"));
    }

    void anEditLocksWhatIdentifiesThePlan_data()
    {
        QTest::addColumn<PlanSample>("plan");
        QTest::addColumn<QStringList>("locked");
        const QStringList before = lines("combx_fundAccount\ncombx_instructionType\ncombx_instructionTargetType\n"
                                         "combx_planType\nle_symbol");
        const QStringList last = lines("combx_instructionMode\ncombx_assignTo");
        QTest::newRow("an ordinary plan")
            << PlanSample() << before + lines("combx_tradeSide\ncombx_entrustType") + last;
        QTest::newRow("a reduction, whose side is locked already")
            << PlanSample::reduction()
            << before + lines("combx_entrustType\nle_entrustMaxNum\nle_reduceHRatio\ncombx_reduceHMode") + last;
    }

    void anEditLocksWhatIdentifiesThePlan()
    {
        QFETCH(PlanSample, plan);
        QFETCH(QStringList, locked);
        store(plan);
        constructShown();
        const QStringList steps = stepsOf([this] { editor().editPlan(PlanId); });
        QStringList expected;
        for (const QString& name : locked)
            expected.append(name + QStringLiteral(".setEnabled(false)"));
        QCOMPARE(steps.mid(steps.lastIndexOf(script().calls.last()) + 1), expected);
    }

    // --- What is stored in other ways

    void aModeThatTheRuleDoesNotKnowLeavesNoChoice_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<int>("rule");
        QTest::addColumn<QString>("mode");
        using namespace AutoPlanInstMode;
        QTest::newRow("active, under another rule") << ActiveManage << 2 << ActiveManage;
        QTest::newRow("reviewed, under another rule") << NormalTradeReview << 2 << QString();
        QTest::newRow("algorithm, under another rule") << AlgoTradeReview << 2 << QString();
        QTest::newRow("an unknown mode, under review") << "9" << 1 << QString();
        QTest::newRow("no mode, without review") << QString() << 0 << QString();
    }

    void aModeThatTheRuleDoesNotKnowLeavesNoChoice()
    {
        QFETCH(QString, stored);
        QFETCH(int, rule);
        QFETCH(QString, mode);
        for (const bool edits : { false, true }) {
            store(PlanSample().withMode(stored).withPriceMode(AutoPlanPriceModel::CompareMax));
            script().ruleProperty = 7;
            script().ruleProperties.insert(QStringLiteral("acc1/1"), rule);
            openStored(edits);
            QCOMPARE(code(editor(), "combx_instructionMode"), mode);
            QCOMPARE(code(editor(), "combx_priceMode"), AutoPlanPriceModel::CompareMax);
            QCOMPARE(text(editor(), "lineEdit_price1"), QStringLiteral("昨收价*1.01"));
            QCOMPARE(text(editor(), "lineEdit_price2"), QStringLiteral("涨停价"));
        }
    }

    void missingAndUnreadableFieldsReadAsEmpty()
    {
        openSampleMarket();
        storePlan(PlanId, FieldMap{ { Base::beginDate, QStringLiteral("soon") } });
        script().otherParam = [](const FieldMap&) { return FieldMap{ { QStringLiteral("unrelated"), 1 } }; };
        log().expectWarning(QStringLiteral("AutoParamSetting::copyPlan stored text is no date \"soon\""));
        openStored(false);
        for (const char* const name : { "combx_fundAccount", "combx_instructionType", "combx_planType",
                 "combx_tradeSide", "combx_entrustType", "combx_priceMode", "combx_instructionMode" })
            QVERIFY2(code(editor(), name).isEmpty(), name);
        QCOMPARE(code(editor(), "combx_instructionTargetType"), InstructionTargetType::QtyOrder);
        QCOMPARE(box(editor(), "combx_assignTo")->currentText(), AutoPlanAssignee::NotSpecified);
        QCOMPARE(text(editor(), "le_targetTotalNum"), QStringLiteral("0.00"));
        QCOMPARE(text(editor(), "le_remark"), QString());
        QCOMPARE(field<OrloDateEdit>(editor(), "date_effectivePeriod_Multi")->GetStartDate(), QDate(2024, 5, 7));
    }

    void aDisplayFactorOfZeroCountsAsOneAndIsLogged()
    {
        store(PlanSample());
        script().securities[Stock].displayFactor = 0;
        log().expectWarning(QStringLiteral("AutoParamSetting::copyPlan display factor 0 counts as 1"));
        openStored(false);
        QCOMPARE(text(editor(), "le_targetTotalNum"), QStringLiteral("1000"));
    }

    void thePriceTypeIsAlsoReadFromItsOlderPlace_data()
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

    void thePriceTypeIsAlsoReadFromItsOlderPlace()
    {
        QFETCH(QVariant, newer);
        QFETCH(QVariant, older);
        QFETCH(QString, shown);
        storeWith(connectPlan(QString()), [&](FieldMap& other) {
            if (newer.isValid())
                other.insert(Kelvo_Fields::Security::timeInForce, newer);
            if (older.isValid())
                other.insert(Kelvo_Fields::Security::transActTime, older);
        });
        openStored(false);
        QCOMPARE(code(editor(), "combx_priceType"), shown);
    }

    void anUnknownPlanIsLogged_data()
    {
        QTest::addColumn<QString>("id");
        QTest::addColumn<bool>("edits");
        QTest::newRow("copy") << "gone" << false;
        QTest::newRow("edit") << "gone" << true;
        QTest::newRow("copy of an id like a placeholder") << "%1" << false;
        QTest::newRow("copy of an empty id") << QString() << false;
    }

    void anUnknownPlanIsLogged()
    {
        QFETCH(QString, id);
        QFETCH(bool, edits);
        openSampleMarket();
        constructShown();
        fillForm(editor(), PlanSample());
        const model::FormView view(editor());
        const model::FormState before = view.state();
        script().forget();
        log().clear();
        log().expectWarning(QStringLiteral("计划复制失败"));
        openPlan(id, edits);
        QCOMPARE(script().calls.size(), 1);
        QCOMPARE(script().countOf(QStringLiteral("GetPlanInfo")), 1);
        QCOMPARE(log().lines().size(), 1);
        QCOMPARE(log().lines().first().type, QtWarningMsg);
        QCOMPARE(log().lines().first().text,
            QStringLiteral("AutoParamSetting::copyPlan 计划复制失败，失败原因：未找到计划ID【") + id
                + QStringLiteral("】的计划信息"));
        if (edits) {
            for (const QString& name : lines("combx_fundAccount\ncombx_instructionType\ncombx_instructionTargetType\n"
                                             "combx_planType\nle_symbol\ncombx_tradeSide\ncombx_entrustType\n"
                                             "combx_instructionMode\ncombx_assignTo")) {
                QWidget* const locked = field<QWidget>(editor(), name.toLatin1().constData());
                QVERIFY2(!locked->isEnabled(), qPrintable(name));
                locked->setEnabled(true);
            }
        }
        QCOMPARE(model::differences(before, view.state()), QStringList());
    }

    void missingExtensionDataIsLogged_data()
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

    void missingExtensionDataIsLogged()
    {
        QFETCH(QVariant, stored);
        store(PlanSample());
        script().plans[PlanId].remove(Base::planOtherParam);
        if (stored.isValid())
            script().plans[PlanId].insert(Base::planOtherParam, stored);
        constructShown();
        const model::FormView view(editor());
        const model::FormState before = view.state();
        script().forget();
        log().clear();
        log().expectWarning(QStringLiteral("计划复制失败"), 2);
        editor().copyPlan(PlanId);
        QCOMPARE(script().calls, lines("GetPlanInfo(P1)\nGetPlanOtherParamFromPlanInfo(P1)"));
        QCOMPARE(log().lines().size(), 1);
        QCOMPARE(log().lines().first().text,
            QStringLiteral("AutoParamSetting::copyPlan 计划复制失败，失败原因：未找到计划ID【P1】的计划扩展信息"));
        QCOMPARE(model::differences(before, view.state()), QStringList());
        editor().editPlan(PlanId);
        QVERIFY(!isUsable(editor(), "combx_fundAccount"));
        QVERIFY(!isUsable(editor(), "combx_assignTo"));
        QCOMPARE(said(), QStringList());
    }

    void anOddOtherParameterIsHarmless_data()
    {
        QTest::addColumn<QVariant>("value");
        QVariant nested = QStringLiteral("x");
        for (int depth = 0; depth < 400; ++depth)
            nested = FieldMap{ { QStringLiteral("a"), nested } };
        QTest::newRow("deeply nested") << nested;
        QTest::newRow("a megabyte") << QVariant(QString(1 << 20, QLatin1Char('x')));
        QTest::newRow("a list") << QVariant(QVariantList{ 1, QStringLiteral("2"), QVariant() });
    }

    void anOddOtherParameterIsHarmless()
    {
        QFETCH(QVariant, value);
        store(PlanSample());
        FieldMap other = otherParamOf(PlanSample());
        other.insert(QStringLiteral("unrelated"), value);
        other.insert(Base::algoParam, value);
        // The service's map is used, not the text.
        other.insert(AutoPlanField::Progress::CurrentQty, 77);
        script().otherParam = [other](const FieldMap&) { return other; };
        openStored(true);
        QCOMPARE(text(editor(), "le_targetTotalNum"), QStringLiteral("1000"));
        QCOMPARE(text(editor(), "le_entrustMaxNum"), QStringLiteral("77"));
    }

    void anInvalidNumberLeavesItsFieldEmpty_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("shown");
        QTest::newRow("no number") << "many" << QString();
        QTest::newRow("nan") << "nan" << QString();
        QTest::newRow("infinity") << "inf" << QString();
        QTest::newRow("beyond what a number holds") << "1e400" << QString();
        QTest::newRow("beyond what the field holds") << "2000000001" << QString();
        QTest::newRow("very large") << "1e300" << QString();
        QTest::newRow("negative") << "-5" << QString();
        QTest::newRow("with grouping") << "1,000" << QString();
        QTest::newRow("hexadecimal") << "0x10" << QString();
        QTest::newRow("the largest") << "2000000000" << QStringLiteral("2000000000");
        QTest::newRow("zero") << "0" << QStringLiteral("0");
        QTest::newRow("with an exponent") << "1e3" << QStringLiteral("1000");
        QTest::newRow("none") << QString() << QStringLiteral("0");
    }

    void anInvalidNumberLeavesItsFieldEmpty()
    {
        QFETCH(QString, stored);
        QFETCH(QString, shown);
        storeWith(PlanSample(), [&](FieldMap& other) { other.insert(AutoPlanField::Progress::CurrentQty, stored); });
        script().plans[PlanId].insert(Base::totalQty, stored);
        if (shown.isEmpty()) {
            log().expectWarning(QStringLiteral("le_targetTotalNum"));
            log().expectWarning(QStringLiteral("le_entrustMaxNum"));
        }
        openStored(true);
        QCOMPARE(field<OrloDecimalLineEdit>(editor(), "le_targetTotalNum")->GetStrValue(), shown);
        QCOMPARE(field<OrloDecimalLineEdit>(editor(), "le_entrustMaxNum")->GetStrValue(), shown);
        QCOMPARE(field<OrloDateEdit>(editor(), "date_effectivePeriod_Multi")->GetStartDate(), QDate(2024, 5, 8));
        if (shown.isEmpty())
            QCOMPARE(ok(), lines("warning: 未输入目标总量！"));
    }

    void aCodeThatNoBoxOffersLeavesNoChoice_data()
    {
        QTest::addColumn<PlanSample>("plan");
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QString>("said");
        const auto row = [](const char* field, const PlanSample& plan, const char* name, const char* said) {
            QTest::newRow(field) << plan << QByteArray(name) << QString::fromUtf8(said);
        };
        const char* const created = "tip: 交易";
        PlanSample plan;
        plan.account = QStringLiteral("gone");
        row("account", plan, "combx_fundAccount", "warning: 未绑定资金帐号！");
        plan = PlanSample();
        plan.instructionType = QStringLiteral("7");
        row("instruction type", plan, "combx_instructionType", "warning: 指令类型必填，请重新编辑！");
        row("plan type in lower case", PlanSample().withPlanType(QStringLiteral("tw-01")), "combx_planType", created);
        plan = PlanSample();
        plan.side = QStringLiteral("neither");
        row("side", plan, "combx_tradeSide", created);
        row("price mode", PlanSample().withPriceMode(QStringLiteral("2")), "combx_priceMode",
            "warning: 价格2公式必填，请重新编辑！");
        row("mode", PlanSample().withMode(QStringLiteral("9")), "combx_instructionMode",
            "warning: 下单模式必填，请重新编辑！");
        plan = PlanSample();
        plan.assignee = QStringLiteral("离职者");
        row("assignee", plan, "combx_assignTo", created);
        plan = PlanSample::reduction();
        plan.assignee = QStringLiteral("离职者");
        row("executor", plan, "combx_assignTo", "warning: 执行人必填，请重新编辑！");
        plan = PlanSample::ofType(AutoPlanInstructionType::Credit);
        plan.entrustType = Orlo_Values::SideUnion::financingBuy;
        row("entrust type of the other side", plan, "combx_entrustType", created);
        row("price type", connectPlan(QStringLiteral("x")), "combx_priceType", created);
    }

    void aCodeThatNoBoxOffersLeavesNoChoice()
    {
        QFETCH(PlanSample, plan);
        QFETCH(QByteArray, name);
        QFETCH(QString, said);
        for (const bool edits : { false, true }) {
            store(plan);
            script().ruleProperty = AutoPlanRuleProperty::NoReview;
            openStored(edits);
            QCOMPARE(box(editor(), name)->currentIndex(), -1);
            script().questionAnswer = 0;
            const QStringList heard = ok();
            QCOMPARE(heard.size(), 1);
            QVERIFY2(heard.first().startsWith(said), qPrintable(heard.first()));
        }
    }

    void aSecondEditIsOfferedTheFirstOnesModesUnlessReset_data()
    {
        QTest::addColumn<bool>("resets");
        QTest::addColumn<QStringList>("offered");
        QTest::newRow("without a reset") << false << lines("主动管理");
        QTest::newRow("after a reset") << true << lines("普通交易复核\n算法交易复核");
    }

    void aSecondEditIsOfferedTheFirstOnesModesUnlessReset()
    {
        QFETCH(bool, resets);
        QFETCH(QStringList, offered);
        open(PlanSample(), true);
        storePlan(QStringLiteral("P2"), PlanSample().withMode(AutoPlanInstMode::NormalTradeReview));
        script().ruleProperty = AutoPlanRuleProperty::Review;
        if (resets)
            editor().resetEnable();
        editor().editPlan(QStringLiteral("P2"));
        QCOMPARE(texts(editor(), "combx_instructionMode"), offered);
    }

    // --- The algorithm panel

    void theAlgorithmPanelIsHandedThePlan()
    {
        PlanSample plan =
            PlanSample::ofType(AutoPlanInstructionType::Credit).withMode(AutoPlanInstMode::AlgoTradeReview);
        storeWith(plan, [](FieldMap& other) {
            const QString old = QStringLiteral("old");
            other.insert(Base::algoParam,
                FieldMap{ { QStringLiteral("rate"), QStringLiteral("0.2") }, { Content::Symbol, old },
                    { Content::OrderSide, old }, { Content::EntrustProp, old } });
        });
        script().whiteAlgoNames = lines("TWAP\nPOV");
        script().blackAlgoNames = lines("SNIPER");
        script().staticTexts.insert(
            OrloConstants::DictionaryKey::SideUnion2AlgoDefines + QLatin1Char('/') + plan.entrustType,
            QStringLiteral("sells on margin"));
        openStored(false);
        const QStringList expected = lines(R"(
            CreateStrategyWgt(2, AutoParamSetting, av_AlgoGlobalType_instruction, [TWAP, POV], [], 3)
            panel.setAlgoWhiteList([TWAP, POV])
            panel.setAlgoBlackList([SNIPER])
            panel.RefreshAlgoList())");
        QCOMPARE(script().calls.mid(script().calls.indexOf(expected.first()), 4), expected);
        QCOMPARE(script().countOf(QStringLiteral("panel.setBaseInfoData")), 1);
        QVERIFY(
            script().callsOf(QStringLiteral("panel.setBaseInfoData")).first().endsWith(QStringLiteral("}, false)")));
        QCOMPARE(script().panelBaseData,
            (FieldMap{ { QStringLiteral("rate"), QStringLiteral("0.2") },
                { Content::TradingAccount, QStringLiteral("credit") }, { Content::Symbol, Stock },
                { Content::OrderSide, Algo_Values::AlgoOrderSide::SellValue },
                { Content::EntrustProp, QStringLiteral("sells on margin") } }));
        QVERIFY(!field<ParamListWidget_single>(editor(), "")->isVisible());
        editor().copyPlan(PlanId);
        QCOMPARE(script().countOf(QStringLiteral("CreateStrategyWgt")), 1);
        QCOMPARE(script().countOf(QStringLiteral("panel.RefreshAlgoList")), 2);
    }

    void aStrategyWithoutNameHandsNothingOver()
    {
        storeWith(algorithmPlan(), [](FieldMap& other) { other.remove(Base::algoStrategyName); });
        openStored(false);
        QCOMPARE(script().countOf(QStringLiteral("panel.RefreshAlgoList")), 1);
        QCOMPARE(script().countOf(QStringLiteral("panel.setBaseInfoData")), 0);
    }

    void theAccountOfTheAlgorithmIsKept()
    {
        PlanSample plan = algorithmPlan();
        plan.side = QStringLiteral("neither");
        storeWith(plan, [](FieldMap& other) {
            other.insert(Base::algoParam, FieldMap{ { Content::TradingAccount, QStringLiteral("acc2") } });
        });
        openStored(false);
        QCOMPARE(script().panelBaseData,
            (FieldMap{ { Content::TradingAccount, QStringLiteral("acc2") }, { Content::Symbol, Stock },
                { Content::EntrustProp, QString() } }));
    }

    // --- The end of the editor

    void theEditorMayDieUnderTheAgreement_data() { editAndCopy(); }

    void theEditorMayDieUnderTheAgreement()
    {
        QFETCH(bool, edits);
        store(PlanSample::reduction());
        script().unsignedClients = lines("C-acc1");
        script().whileAgreementOpen = [this] { destroy(); };
        openStored(edits);
        QCOMPARE(script().countOf(QStringLiteral("OrloAgreementSignWidget.shown")), 1);
        QCOMPARE(script().countOf(QStringLiteral("GetSecurityChineseName")), 0);
    }

    void theEditorMayDieWhileItIsFilled_data() { editAndCopy(); }

    void theEditorMayDieWhileItIsFilled()
    {
        QFETCH(bool, edits);
        for (const QString& operation : lines("signalQuerySymbolMAInfo\npanel.setBaseInfoData")) {
            store(algorithmPlan());
            destroyDuring(operation);
            openStored(edits);
            QCOMPARE(script().calls, QStringList());
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            script().onCall = nullptr;
        }
    }

    // --- Emptying the form

    void emptyingTakesItsStepsInOrder()
    {
        openSampleMarket();
        script().ruleProperty = AutoPlanRuleProperty::Review;
        constructShown();
        PlanSample plan = unusualPlan();
        plan.assignee = QStringLiteral("甲");
        fillForm(editor(), plan);
        setToday(QDate(2024, 5, 8));
        script().forget();
        press(editor(), "btn_ok");
        const int tip =
            script().steps.indexOf(QStringLiteral("ShowTipMsgBox(交易自动规划创建成功!, AutoParamSetting)"));
        QVERIFY(tip > 0);
        // Without signals, except for the side, which also clears the entrust types, and the assignee.
        QCOMPARE(script().steps.mid(tip + 1), lines(R"(
            le_symbol.setSymbol("")
            combx_tradeSide announces 买入
            le_targetTotalNum.clear()
            le_entrustMaxNum.clear()
            le_reduceHRatio.clear()
            panel.ClearParams()
            combx_assignTo announces 默认不指定
            date_effectivePeriod_Multi.SetStartEndDate(2024-05-09, 2024-05-09)
            date_effectivePeriod_Single.SetDate(2024-05-09))"));
    }
};

QTEST_MAIN(PlanLoadingTest)
#include "tst_plan_loading.moc"
