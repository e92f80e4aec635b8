#include "EditorTest.h"
#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "OrloDoubleSpinBox.h"
#include "Orlo_Values.h"
#include "PlanVocabulary.h"

#include <QDialog>
#include <QPointer>
#include <QSignalBlocker>
#include <QtTest>

/// The chain of choices: instruction type, target type, plan type, side, entrust type and instruction mode. tst_choices
/// compares what each choice offers with the model; these tests cover the order of the steps and the special cases.
class TypeFieldsTest : public EditorTest {
    Q_OBJECT

private:
    void constructWithAccount(int ruleProperty = AutoPlanRuleProperty::NoReview)
    {
        script().ruleProperty = ruleProperty;
        script().addOrdinaryAccount(Account);
        construct();
    }

    void constructCredit()
    {
        script().addCreditAccount(Account);
        script().addStock(Stock);
        construct();
        chooseSecurity(editor(), Stock);
    }

    /// Shows the editor; the account's client has not signed.
    void constructUnsigned(const QString& client = QStringLiteral("C-acc1"))
    {
        script().unsignedClients = QStringList{ client };
        script().executeUsers = lines("王五");
        script().addOrdinaryAccount(Account);
        constructShown();
        script().forget();
    }

    void chooseReduction() { choose(editor(), "combx_planType", AutoPlanTemplate::ReduceHoldings); }

private Q_SLOTS:
    // --- Instruction and target types

    void instructionTypesAreAskedForInTheirOrder_data()
    {
        QTest::addColumn<QString>("account");
        QTest::addColumn<QString>("expected");
        QTest::newRow("a credit account") << "credit"
                                          << R"(
            GetCurrentSecurityAccountByTradingAccount(credit)
            GetAccountAssetPropByTradingAccount(credit)
            hasOrderAuthority(credit, 2)
            GetStaticCfgValue(AutoPlanInstructionType, 2))";
        QTest::newRow("another account") << "other"
                                         << R"(
            GetCurrentSecurityAccountByTradingAccount(other)
            GetAccountAssetPropByTradingAccount(other)
            hasOrderAuthority(other, 1)
            GetStaticCfgValue(AutoPlanInstructionType, 1)
            hasOrderAuthority(other, 5)
            GetStaticCfgValue(AutoPlanInstructionType, 5)
            hasOrderAuthority(other, 9)
            GetStaticCfgValue(AutoPlanInstructionType, 9))";
    }

    void instructionTypesAreAskedForInTheirOrder()
    {
        QFETCH(QString, account);
        QFETCH(QString, expected);
        script().addCreditAccount(QStringLiteral("credit"));
        script().addOrdinaryAccount(QStringLiteral("other"));
        construct();
        choose(editor(), "combx_fundAccount", account);
        // Without the cascade, which other tests cover.
        box(editor(), "combx_instructionType")->disconnect(&editor());
        script().forget();
        callSlot("slotComboxAccountChanged");
        QCOMPARE(script().calls, lines(expected.toUtf8().constData()));
    }

    void anAccountWithoutTypesLeavesTheBoxEmpty()
    {
        script().addOrdinaryAccount(Account);
        script().addOrdinaryAccount(OtherAccount);
        construct();
        choose(editor(), "combx_fundAccount", Account);
        script().accounts[1].types.clear();
        choose(editor(), "combx_fundAccount", OtherAccount);
        QCOMPARE(codes(editor(), "combx_instructionType"), QStringList());
    }

    void theRulePropertyIsAskedForAfterTheFirstTargetType()
    {
        constructWithAccount(AutoPlanRuleProperty::Review);
        const QStringList steps =
            stepsOf([this] { choose(editor(), "combx_instructionType", AutoPlanInstructionType::Bond); });
        QCOMPARE(steps.mid(0, 4), lines(R"(
            combx_instructionType announces 债券
            combx_instructionTargetType.clear()
            GetStaticCfgValue(InstructionTargetType, tt_QtyOrder)
            combx_instructionTargetType.append(按数量, tt_QtyOrder))"));
        const int last = steps.indexOf(QStringLiteral("combx_instructionTargetType.append(按金额, tt_AmountOrder)"));
        QVERIFY(last > 4);
        QCOMPARE(steps.mid(last - 2, 2), lines(R"(
            GetCurrentUserInstructionRuleProper(acc1, 5)
            GetStaticCfgValue(InstructionTargetType, tt_AmountOrder))"));
    }

    // --- Entrust types

    void entrustTypesFollowSecurityAndSide_data()
    {
        namespace SubType = Orlo_Values::MdcSubSecurityType;
        QTest::addColumn<QString>("subType");
        QTest::addColumn<QString>("side");
        QTest::addColumn<bool>("conversion");
        QTest::addColumn<QString>("expected");
        const QString unionBuy = Orlo_Values::SideUnion::normalBuy;
        const QString buy = Kelvo_Values::OrderSide::buy;
        const QString sell = Kelvo_Values::OrderSide::sell;
        const QString share = Kelvo_Values::MdcSubSecurityType::Ashares;
        const QString convertible = SubType::ConvertableBondTypeList.first();
        const QString sales = QStringLiteral("collateralSell marginSellNormal marginSell financingSell");
        QTest::newRow("a share is bought in four ways, convertible or not")
            << share << unionBuy << true << "collateralBuy financingBuy marginBuyNormal marginBuy";
        QTest::newRow("a share is sold in four ways") << share << sell << false << sales;
        QTest::newRow("a share that may be converted is sold in five ways")
            << share << sell << true << sales + QStringLiteral(" BondConversion");
        QTest::newRow("the plan's own buy code is none of the entrust types'") << share << buy << false << sales;
        QTest::newRow("a security without a sub-type is sold in four ways") << "" << sell << false << sales;
        for (const QString& side : { unionBuy, sell }) {
            QTest::newRow(qPrintable(QStringLiteral("a rights issue of shares is paid: ") + side))
                << SubType::PaidRationStock << side << true << "paidRationShare";
            QTest::newRow(qPrintable(QStringLiteral("a rights issue of bonds is paid: ") + side))
                << SubType::PaidRationBond << side << false << "paidRationShare";
        }
        QTest::newRow("a convertible bond is bought as collateral")
            << convertible << unionBuy << true << "collateralBuy";
        QTest::newRow("an exchangeable bond is sold as collateral")
            << SubType::ConvertableBondTypeList.last() << sell << true << "collateralSell";
        QTest::newRow("a convertible bond with the plan's buy code is sold")
            << convertible << buy << true << "collateralSell";
        QTest::newRow("a convertible sub-type in capitals is any other")
            << convertible.toUpper() << sell << false << sales;
    }

    void entrustTypesFollowSecurityAndSide()
    {
        QFETCH(QString, subType);
        QFETCH(QString, side);
        QFETCH(bool, conversion);
        QFETCH(QString, expected);
        constructCredit();
        script().securities[Stock].subType = subType;
        script().bondConversionEnabled = conversion;
        chooseSilently(editor(), "combx_tradeSide", side);
        script().forget();
        callSlot("slotComboxTradeSideChanged");
        QStringList expectedCodes;
        for (const QString& name : expected.split(QLatin1Char(' ')))
            expectedCodes.append(QStringLiteral("o_SideUnion_") + name);
        QCOMPARE(codes(editor(), "combx_entrustType"), expectedCodes);
        QCOMPARE(box(editor(), "combx_entrustType")->currentIndex(), 0);
        // Asked for ordinary sales only, without a message, with the values of the account box.
        const QString asked = QStringLiteral("checkMarginBondConvertEnable(acc1, 600000.K_SH, %1, false)").arg(side);
        QCOMPARE(script().callsOf(QStringLiteral("checkMarginBondConvertEnable")),
            expected.contains(QLatin1String("marginSell")) ? QStringList(asked) : QStringList());
    }

    void entrustTypesAreLogged()
    {
        constructCredit();
        log().clear();
        choose(editor(), "combx_tradeSide", Kelvo_Values::OrderSide::sell);
        const QList<LogLine> found =
            log().linesWith(QtDebugMsg, QStringLiteral("AutoParamSetting::InitComboxEntrustType"));
        QCOMPARE(found.size(), 1);
        for (const char* const value : { "acc1", "600000.K_SH", "k_side_sell", "k_MdcSubSecurityType_Ashares" })
            QVERIFY2(found.first().text.contains(QLatin1String(value)), value);
    }

    void entrustTypesNeedEverythingAboveThem_data()
    {
        QTest::addColumn<QByteArray>("missing");
        for (const QByteArray name : { "combx_fundAccount", "combx_instructionType", "combx_tradeSide", "le_symbol" })
            QTest::newRow(name) << name;
    }

    void entrustTypesNeedEverythingAboveThem()
    {
        QFETCH(QByteArray, missing);
        constructCredit();
        QVERIFY(box(editor(), "combx_entrustType")->count() > 0);
        if (missing == "le_symbol") {
            const QSignalBlocker blocker(field<QWidget>(editor(), missing));
            chooseSecurity(editor(), QString());
        } else {
            chooseNothing(editor(), missing);
        }
        script().forget();
        log().clear();
        callSlot("slotComboxTradeSideChanged");
        QCOMPARE(codes(editor(), "combx_entrustType"), QStringList());
        QCOMPARE(script().calls, QStringList());
        QCOMPARE(log().lines().size(), 0);
    }

    // --- Instruction modes

    void modesOfAMarginPlanFollowItsEntrustType_data()
    {
        QTest::addColumn<QString>("entrustType");
        QTest::addColumn<bool>("byAlgorithm");
        using namespace Orlo_Values::SideUnion;
        for (const QString& type : { collateralBuy, collateralSell, marginBuy, marginSell, financingBuy })
            QTest::newRow(qPrintable(type)) << type << true;
        for (const QString& type : { financingSell, marginBuyNormal, marginSellNormal, BondConversion, paidRationShare,
                 normalBuy, QString(), collateralBuy.toUpper() })
            QTest::newRow(qPrintable(type)) << type << false;
    }

    void modesOfAMarginPlanFollowItsEntrustType()
    {
        QFETCH(QString, entrustType);
        QFETCH(bool, byAlgorithm);
        using namespace AutoPlanInstMode;
        script().ruleProperty = AutoPlanRuleProperty::Review;
        constructCredit();
        choose(editor(), "combx_priceMode", AutoPlanPriceModel::Custom);
        chooseSilently(editor(), "combx_entrustType", QStringLiteral("before"));
        box(editor(), "combx_entrustType")->addItem(QStringLiteral("looked at"), entrustType);
        box(editor(), "combx_entrustType")->setCurrentText(QStringLiteral("looked at"));
        QCOMPARE(codes(editor(), "combx_instructionMode"),
            byAlgorithm ? QStringList({ NormalTradeReview, AlgoTradeReview }) : QStringList{ NormalTradeReview });
    }

    void theFirstModeIsChosenAndAnnounced()
    {
        constructWithAccount(AutoPlanRuleProperty::Review);
        choose(editor(), "combx_priceMode", AutoPlanPriceModel::Custom);
        choose(editor(), "combx_instructionMode", AutoPlanInstMode::AlgoTradeReview);
        // Unlike the other boxes, this one is cleared without blocking its signals.
        QCOMPARE(stepsOf([this] { callSlot("slotComboxPriceTypeChanged"); }), lines(R"(
            GetCurrentUserInstructionRuleProper(acc1, 1)
            combx_instructionMode.clear()
            combx_instructionMode announces ""
            btn_algoParamSetting.hide()
            combx_instructionMode.append(普通交易复核, 2)
            combx_instructionMode announces 普通交易复核
            combx_instructionMode.append(算法交易复核, 3))"));
        QCOMPARE(code(editor(), "combx_instructionMode"), AutoPlanInstMode::NormalTradeReview);
    }

    void withoutReviewTheButtonIsHiddenAgain()
    {
        constructWithAccount();
        field<QWidget>(editor(), "btn_algoParamSetting")->show();
        const QStringList steps = stepsOf([this] { callSlot("slotComboxPriceTypeChanged"); });
        QCOMPARE(steps.count(QStringLiteral("btn_algoParamSetting.hide()")), 1);
        QVERIFY(!isOffered(editor(), "btn_algoParamSetting"));
    }

    void modesAreLogged()
    {
        constructWithAccount();
        choose(editor(), "combx_priceMode", AutoPlanPriceModel::CompareMax);
        log().clear();
        callSlot("slotComboxEntrustTypeChanged");
        const QList<LogLine> found = log().lines();
        QCOMPARE(found.size(), 1);
        QCOMPARE(found.first().type, QtDebugMsg);
        QVERIFY(QRegularExpression(QStringLiteral("^AutoParamSetting::InitComboxInstructionMode .*1.*0.*"
                                                  "o_HKTimeInForce_InTrade.*7.*F-acc1"))
                    .match(found.first().text)
                    .hasMatch());
    }

    void aLockedModeOfAnEditedPlanStays()
    {
        constructWithAccount(AutoPlanRuleProperty::Review);
        choose(editor(), "combx_priceMode", AutoPlanPriceModel::Custom);
        choose(editor(), "combx_instructionMode", AutoPlanInstMode::AlgoTradeReview);
        log().expectWarning(QStringLiteral("计划复制失败"));
        editor().editPlan(PlanId);
        log().clear();
        QCOMPARE(stepsOf([this] { callSlot("slotComboxPriceTypeChanged"); }), QStringList());
        QCOMPARE(log().lines().size(), 0);
        QCOMPARE(code(editor(), "combx_instructionMode"), AutoPlanInstMode::AlgoTradeReview);
        QVERIFY(isOffered(editor(), "btn_algoParamSetting"));
        field<QWidget>(editor(), "combx_instructionMode")->setEnabled(true);
        QVERIFY(stepsOf([this] {
            callSlot("slotComboxPriceTypeChanged");
        }).contains(QStringLiteral("combx_instructionMode.clear()")));
    }

    void aLockedModeOfANewPlanIsRebuilt()
    {
        constructWithAccount();
        field<QWidget>(editor(), "combx_instructionMode")->setEnabled(false);
        QVERIFY(stepsOf([this] {
            callSlot("slotComboxPriceTypeChanged");
        }).contains(QStringLiteral("combx_instructionMode.clear()")));
    }

    void thePanelGetsNewModesUnderReviewOnly()
    {
        constructWithAccount(AutoPlanRuleProperty::Review);
        script().forget();
        callSlot("slotComboxPriceTypeChanged");
        QCOMPARE(script().countOf(QStringLiteral("panel.ReInit")), 0);
        press(editor(), "btn_algoParamSetting");
        script().forget();
        callSlot("slotComboxPriceTypeChanged");
        script().ruleProperty = AutoPlanRuleProperty::NoReview;
        callSlot("slotComboxPriceTypeChanged");
        QCOMPARE(script().calls, lines(R"(
            GetCurrentUserInstructionRuleProper(acc1, 1)
            panel.ReInit()
            GetCurrentUserInstructionRuleProper(acc1, 1))"));
    }

    // --- Reactions

    void aBoxIsClearedSilentlyAndEmitsItsFirstItem()
    {
        constructWithAccount();
        choose(editor(), "combx_planType", AutoPlanTemplate::SameElements);
        const QStringList steps = stepsOf([this] { callSlot("slotComboxInstructionTargetTypeChanged"); });
        QCOMPARE(steps.filter(QStringLiteral("combx_planType")), lines(R"(
            combx_planType.clear()
            combx_planType.append(累计数量, TW-01)
            combx_planType announces 累计数量
            combx_planType.append(平均数量, TW-02)
            combx_planType.append(相同要素, TW-03)
            combx_planType.append(减持, JC-01))"));
    }

    void aRefilledBoxIsLive_data()
    {
        QTest::addColumn<QByteArray>("slot");
        QTest::addColumn<QByteArray>("name");
        const auto row = [](const char* slot, const char* name) {
            QTest::newRow(name) << QByteArray(slot) << QByteArray(name);
        };
        row("slotComboxAccountChanged", "combx_instructionType");
        row("slotComboxInstructionTypeChanged", "combx_instructionTargetType");
        row("slotComboxInstructionTypeChanged", "combx_planType");
        row("slotComboxInstructionTypeChanged", "combx_tradeSide");
        row("slotComboxTradeSideChanged", "combx_entrustType");
        row("", "combx_priceType");
        row("", "combx_priceMode");
    }

    /// If a host has blocked a box's signals, the next refill unblocks them. Without a slot the editor is reset.
    void aRefilledBoxIsLive()
    {
        QFETCH(QByteArray, slot);
        QFETCH(QByteArray, name);
        constructWithAccount();
        QComboBox* const refilled = box(editor(), name.constData());
        refilled->blockSignals(true);
        if (slot.isEmpty())
            editor().resetEnable();
        else
            callSlot(slot.constData());
        QVERIFY(!refilled->signalsBlocked());
    }

    void anotherInstructionTypeReactsStepByStep()
    {
        constructWithAccount();
        const QStringList assignees = lines(R"(
            combx_assignTo.clear()
            combx_assignTo announces ""
            getChainKeyForTraddingAccout(acc1, 9)
            GetForwardUsers(chain-acc1-9, 0)
            combx_assignTo.append(默认不指定, "")
            combx_assignTo announces 默认不指定)");
        const QStringList planTypesAndSecurities = lines(R"(
            combx_planType.clear()
            combx_planType.append(累计数量, TW-01)
            combx_planType announces 累计数量)")
            + assignees + lines(R"(
            combx_planType.append(平均数量, TW-02)
            combx_planType.append(相同要素, TW-03)
            le_symbol.setSymbol("")
            GetAllSymbolByType(k_MdcSecurityType_StockType, o_MdcSubSecurityType_HStcokCirculation, "", false, [])
            le_symbol.setSecurityList([])
            le_symbol.setSearchMode(1)
            le_symbol.setMinMatchLength(6))");
        const QStringList modes = lines(R"(
            GetCurrentUserInstructionRuleProper(acc1, 9)
            combx_instructionMode.clear()
            combx_instructionMode announces ""
            combx_instructionMode.append(主动管理, 1)
            combx_instructionMode announces 主动管理)");
        const QStringList steps =
            stepsOf([this] { choose(editor(), "combx_instructionType", AutoPlanInstructionType::HkConnect); });
        QCOMPARE(steps,
            lines(R"(
            combx_instructionType announces 港股通
            combx_instructionTargetType.clear()
            GetStaticCfgValue(InstructionTargetType, tt_QtyOrder)
            combx_instructionTargetType.append(按数量, tt_QtyOrder)
            combx_instructionTargetType announces 按数量)")
                + planTypesAndSecurities + lines(R"(
            GetSecurityTypeBySymbol(""))")
                + modes + lines(R"(
            getWhiteAlgoNameList(9, tt_QtyOrder, "")
            getBlackAlgoNameList(tt_QtyOrder)
            GetCurrentUserInstructionRuleProper(acc1, 9))")
                + planTypesAndSecurities + lines(R"(
            combx_tradeSide.clear()
            combx_tradeSide.append(卖出, k_side_sell)
            combx_tradeSide announces 卖出
            la_priceType.show()
            combx_priceType.show())")
                + modes + lines(R"(
            GetSecurityTypeBySymbol("")
            lineEdit_price1.SetFunctionItems([])
            IsSymbolHasPriceLimit("")
            lineEdit_price1.SetFormulaItems([昨收价])
            lineEdit_price2.SetFormulaItems([昨收价]))")
                + assignees);
    }

    void anotherTargetTypeReactsStepByStep()
    {
        constructWithAccount(AutoPlanRuleProperty::Review);
        const QStringList steps =
            stepsOf([this] { choose(editor(), "combx_instructionTargetType", InstructionTargetType::AmountOrder); });
        QCOMPARE(steps, lines(R"(
            combx_instructionTargetType announces 按金额
            combx_planType.clear()
            combx_planType.append(累计数量, TW-01)
            combx_planType announces 累计数量
            combx_assignTo.clear()
            combx_assignTo announces ""
            getChainKeyForTraddingAccout(acc1, 1)
            GetForwardUsers(chain-acc1-1, 0)
            combx_assignTo.append(默认不指定, "")
            combx_assignTo announces 默认不指定
            combx_planType.append(平均数量, TW-02)
            combx_planType.append(相同要素, TW-03)
            le_symbol.setSymbol("")
            GetAllSymbolByTypeList(k_MdcSecurityType_StockType, [k_MdcSubSecurityType_Ashares, k_MdcSubSecurityType_Gemstock, o_MdcSubSecurityType_ScienTechInnovateBoard, o_MdcSubSecurityType_BjSelectedStock], [], false, [])
            le_symbol.setSecurityList([])
            le_symbol.setSearchMode(1)
            le_symbol.setMinMatchLength(6)
            GetCurrentUserInstructionRuleProper(acc1, 1)
            combx_instructionMode.clear()
            combx_instructionMode announces ""
            btn_algoParamSetting.hide()
            combx_instructionMode.append(算法交易复核, 3)
            combx_instructionMode announces 算法交易复核
            btn_algoParamSetting.show()
            getWhiteAlgoNameList(1, tt_AmountOrder, "")
            getBlackAlgoNameList(tt_AmountOrder))"));
    }

    void anUnknownTargetTypeLeavesDecimalsAlone()
    {
        constructWithAccount();
        field<OrloDoubleSpinBox>(editor(), "le_targetTotalNum")->setDecimals(5);
        field<OrloDoubleSpinBox>(editor(), "le_entrustMaxNum")->setDecimals(6);
        box(editor(), "combx_instructionTargetType")->addItem(QStringLiteral("other"), QStringLiteral("other"));
        choose(editor(), "combx_instructionTargetType", QStringLiteral("other"));
        QCOMPARE(field<OrloDoubleSpinBox>(editor(), "le_targetTotalNum")->decimals(), 5);
        QCOMPARE(field<OrloDoubleSpinBox>(editor(), "le_entrustMaxNum")->decimals(), 6);
    }

    void anotherInstructionTypeLooksAtTheSecurityOnceMore()
    {
        constructWithAccount();
        // The test sets the market after the prices were prepared: only another update of the security clears it.
        script().onCall = [this](const ScriptCall& call) {
            if (call.operation == QLatin1String("lineEdit_price2.SetFormulaItems"))
                type(editor(), "le_exchange", QStringLiteral("by hand"));
        };
        choose(editor(), "combx_instructionType", AutoPlanInstructionType::Bond);
        QCOMPARE(script().calls.last(), QStringLiteral("GetForwardUsers(chain-acc1-5, 0)"));
        QCOMPARE(text(editor(), "le_exchange"), QString());
    }

    void theAlgorithmButtonIsHiddenWithoutAMode()
    {
        constructWithAccount(AutoPlanRuleProperty::Review);
        QVERIFY(isOffered(editor(), "btn_algoParamSetting"));
        box(editor(), "combx_instructionMode")->setCurrentIndex(-1);
        QVERIFY(!isOffered(editor(), "btn_algoParamSetting"));
    }

    // --- The plan type

    void anOrdinaryPlanTypeReactsStepByStep()
    {
        script().addOrdinaryAccount(Account);
        constructShown();
        chooseReduction();
        const QStringList steps = stepsOf([this] { choose(editor(), "combx_planType", AutoPlanTemplate::AverageQty); });
        // The whole layout is set between unlocking the side and refilling the assignees.
        QCOMPARE(steps.mid(0, 2), lines("combx_planType announces 平均数量\ncombx_tradeSide.setEnabled(true)"));
        QStringList layout = steps.mid(2, steps.size() - 6);
        layout.sort();
        QCOMPARE(layout, lines(R"(
            combx_reduceHMode.hide()
            date_effectivePeriod_Multi.show()
            date_effectivePeriod_Single.hide()
            la_entrustMaxNum.show()
            la_reduceHMode.hide()
            la_reduceHRatio.hide()
            lab_entrustMaxNumUnit.show()
            lab_targetTotalNumUnit.show()
            le_entrustMaxNum.show()
            le_reduceHRatio.hide())"));
        QCOMPARE(steps.mid(steps.size() - 4), lines(R"(
            getChainKeyForTraddingAccout(acc1, 1)
            GetForwardUsers(chain-acc1-1, 0)
            combx_assignTo.append(默认不指定, "")
            combx_assignTo announces 默认不指定)"));
    }

    void aReductionSellsAndLocksTheSide()
    {
        constructWithAccount();
        QStringList expected = lines(R"(
            combx_planType announces 减持
            combx_tradeSide announces 卖出
            combx_tradeSide.setEnabled(false))");
        for (const bool sellsAlready : { false, true }) {
            choose(editor(), "combx_planType", AutoPlanTemplate::CumulativeQty);
            if (sellsAlready)
                expected.removeAt(1);
            else
                choose(editor(), "combx_tradeSide", Kelvo_Values::OrderSide::buy);
            QCOMPARE(stepsOf([this] { chooseReduction(); }).mid(0, expected.size()), expected);
            QCOMPARE(code(editor(), "combx_tradeSide"), Kelvo_Values::OrderSide::sell);
        }
    }

    void aReductionAsksForMissingSignatures()
    {
        constructUnsigned();
        bool laidOut = false;
        bool assigned = true;
        script().whileAgreementOpen = [this, &laidOut, &assigned] {
            laidOut = isOffered(editor(), "le_reduceHRatio") && !isUsable(editor(), "combx_tradeSide");
            assigned = texts(editor(), "combx_assignTo").contains(QStringLiteral("王五"));
        };
        chooseReduction();
        QCOMPARE(script().calls, lines(R"(
            GetUnsignedClientNoList(o_ProtocolId_AutoPlanReduceAgree)
            OrloAgreementSignWidget(true, true, AutoParamSetting)
            OrloAgreementSignWidget.SetAccountSelectable(true)
            OrloAgreementSignWidget.SetAgreement(o_ProtocolId_AutoPlanReduceAgree)
            OrloAgreementSignWidget.SetSignCountDown(15)
            OrloAgreementSignWidget.SetClientNoList([C-acc1])
            OrloAgreementSignWidget.shown(modally)
            getChainKeyForTraddingAccout(acc1, 1)
            GetExcuteUsers(chain-acc1-1))"));
        QVERIFY(laidOut);
        QVERIFY(!assigned);
        QCOMPARE(texts(editor(), "combx_assignTo"), lines("王五"));
        QCOMPARE(editor().findChildren<QDialog*>().size(), 0);
        // The scripted dialog is always declined; the plan type stays, and the dialog is not shown a second time.
        QCOMPARE(code(editor(), "combx_planType"), AutoPlanTemplate::ReduceHoldings);
        QCOMPARE(said(), QStringList());
    }

    void theDialogIsNotShownWithoutNeed_data()
    {
        QTest::addColumn<bool>("isShown");
        QTest::addColumn<QString>("client");
        QTest::newRow("in a hidden editor") << false << "C-acc1";
        QTest::newRow("for a client of no offered account") << true << "C-somebody-else";
    }

    void theDialogIsNotShownWithoutNeed()
    {
        QFETCH(bool, isShown);
        QFETCH(QString, client);
        constructUnsigned(client);
        host().setVisible(isShown);
        chooseReduction();
        QCOMPARE(script().calls, lines(R"(
            GetUnsignedClientNoList(o_ProtocolId_AutoPlanReduceAgree)
            getChainKeyForTraddingAccout(acc1, 1)
            GetExcuteUsers(chain-acc1-1))"));
    }

    void theBoxGoesWithTheEditorAfterTheAgreement()
    {
        constructUnsigned();
        const QPointer<QComboBox> planTypes(box(editor(), "combx_planType"));
        chooseReduction();
        QCOMPARE(script().countOf(QStringLiteral("OrloAgreementSignWidget")), 1);
        QVERIFY(planTypes);
        destroy();
        QVERIFY(planTypes.isNull());
    }
};

QTEST_MAIN(TypeFieldsTest)
#include "tst_type_fields.moc"
