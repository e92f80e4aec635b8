#include "EditorTest.h"
#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "OrloDoubleSpinBox.h"
#include "Orlo_Values.h"
#include "ParamListWidget_single.h"
#include "VorSearchBox.h"
#include <QDialog>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QtTest>

namespace {

QString const stock = QStringLiteral("600000.K_SH");

QStringList words(const QString& text)
{
    return text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

/// The chain of choices: instruction type, target type, plan type, side, entrust type and instruction mode.
class TypeFieldsTest : public EditorTest {
    Q_OBJECT

private Q_SLOTS:
    void instructionTypesFollowTheAccount_data();
    void instructionTypesFollowTheAccount();
    void instructionTypesAreAskedForInTheirOrder_data();
    void instructionTypesAreAskedForInTheirOrder();
    void anAccountWithoutTypesLeavesTheBoxEmpty();

    void targetTypesFollowTheRuleProperty_data();
    void targetTypesFollowTheRuleProperty();
    void theRulePropertyIsAskedForAfterTheFirstTargetType();

    void planTypesFollowInstructionAndTargetType_data();
    void planTypesFollowInstructionAndTargetType();
    void sidesFollowTheInstructionType_data();
    void sidesFollowTheInstructionType();

    void entrustTypesFollowSecurityAndSide_data();
    void entrustTypesFollowSecurityAndSide();
    void entrustTypesHaveTheirChineseNames();
    void entrustTypesAreLogged();
    void entrustTypesNeedEverythingAboveThem_data();
    void entrustTypesNeedEverythingAboveThem();
    void bondConversionIsAskedForWithoutAMessage();
    void bondConversionIsAskedForInOrdinarySalesOnly_data();
    void bondConversionIsAskedForInOrdinarySalesOnly();

    void modesWithoutReview_data();
    void modesWithoutReview();
    void modesUnderReview_data();
    void modesUnderReview();
    void modesOfAMarginPlanFollowItsEntrustType_data();
    void modesOfAMarginPlanFollowItsEntrustType();
    void theFirstModeIsChosenAndAnnounced();
    void modesAreLogged();
    void aLockedModeOfAnEditedPlanStays();
    void anUnlockedModeOfAnEditedPlanIsRebuilt();
    void aLockedModeOfANewPlanIsRebuilt();
    void thePanelIsToldOfNewModesUnderReviewOnly();

    void aBoxIsEmptiedInSilenceAndAnnouncesItsFirstItem();
    void aRefilledBoxIsLive_data();
    void aRefilledBoxIsLive();
    void anotherInstructionTypeReactsStepByStep();
    void theMarginTypeShowsTheEntrustType();
    void theConnectTypeShowsThePriceType();
    void rowsOfTypesAreShown_data();
    void rowsOfTypesAreShown();
    void anotherTargetTypeReactsStepByStep();
    void decimalsFollowTheTargetType();
    void anUnknownTargetTypeLeavesDecimalsAlone();
    void anotherTargetTypeTakesTheReductionAway();
    void anotherInstructionTypeClearsThePrices();
    void anotherInstructionTypeLooksAtTheSecurityOnceMore();
    void theAlgorithmButtonFollowsTheMode();
    void onlyOneTypeOfAConnectAccountCascadesAtOnce();

    void theCaptionOfTheDailyQuantityFollowsThePlanType_data();
    void theCaptionOfTheDailyQuantityFollowsThePlanType();
    void anOrdinaryPlanTypeReactsStepByStep();
    void aReductionSellsAndLocksTheSide();
    void aReductionThatSellsKeepsTheSide();
    void anotherPlanTypeUnlocksTheSideButKeepsIt();
    void aReductionAsksForMissingSignatures();
    void aHiddenEditorAsksForNoSignature();
    void signedClientsAreNotAsked();
    void theResultOfSigningIsNotLookedAt();
    void theEditorMayGoWhileTheAgreementIsOpen();
    void theBoxGoesWithTheEditorAfterTheAgreement();

private:
    void constructCredit();
    void chooseSymbol(const QString& symbol);
    QStringList stepsOf(const std::function<void()>& action);
};

void TypeFieldsTest::constructCredit()
{
    script().addCreditAccount(QStringLiteral("acc1"));
    script().addStock(stock);
    construct();
    chooseSymbol(stock);
}

void TypeFieldsTest::chooseSymbol(const QString& symbol)
{
    field<VorSearchBox>(editor(), "le_symbol")->setSymbol(symbol);
}

/// The calls and what happens in the form while something is done.
QStringList TypeFieldsTest::stepsOf(const std::function<void()>& action)
{
    script().forget();
    script().watch(true);
    action();
    script().watch(false);
    return script().steps;
}

// --- Instruction types

void TypeFieldsTest::instructionTypesFollowTheAccount_data()
{
    QTest::addColumn<bool>("credit");
    QTest::addColumn<QString>("exchanges");
    QTest::addColumn<QString>("authorities");
    QTest::addColumn<QString>("expected");
    const QString sh = QStringLiteral("k_Exchange_sh");
    const QString sz = QStringLiteral("k_Exchange_sz");
    const QString bj = QStringLiteral("o_Exchange_bj");
    const QString hk = QStringLiteral("o_Exchange_HkStockCirculation");
    const QString every = QStringList{ sh, sz, bj, hk }.join(QLatin1Char(' '));
    QTest::newRow("a credit account in Shanghai trades on margin") << true << sh << "2"
                                                                   << "2";
    QTest::newRow("a credit account in Shenzhen trades on margin") << true << sz << "2"
                                                                   << "2";
    QTest::newRow("a credit account in Beijing only is offered nothing") << true << bj << "1 2"
                                                                         << "";
    QTest::newRow("a credit account in Beijing and Hong Kong is offered nothing")
        << true << (bj + QLatin1Char(' ') + hk) << "1 2 5 9"
        << "";
    QTest::newRow("a credit account is offered nothing else") << true << every << "1 2 5 9"
                                                              << "2";
    QTest::newRow("a credit account without the authority is offered nothing") << true << every << "1 5 9"
                                                                               << "";
    QTest::newRow("another account is never offered margin trading") << false << every << "1 2 5 9"
                                                                     << "1 5 9";
    QTest::newRow("another account with the margin authority only is offered nothing") << false << sh << "2"
                                                                                       << "";
    QTest::newRow("ordinary trading in Shanghai") << false << sh << "1"
                                                  << "1";
    QTest::newRow("ordinary trading in Shenzhen") << false << sz << "1"
                                                  << "1";
    QTest::newRow("ordinary trading in Beijing") << false << bj << "1"
                                                 << "1";
    QTest::newRow("ordinary trading does not come with Hong Kong") << false << hk << "1 9"
                                                                   << "9";
    QTest::newRow("bonds in Shanghai") << false << sh << "5"
                                       << "5";
    QTest::newRow("bonds in Shenzhen") << false << sz << "5"
                                       << "5";
    QTest::newRow("bonds in Beijing") << false << bj << "1 5"
                                      << "1 5";
    QTest::newRow("bonds in Beijing without ordinary trading") << false << (bj + QLatin1Char(' ') + hk) << "5 9"
                                                               << "5 9";
    QTest::newRow("bonds do not come with Hong Kong") << false << hk << "5 9"
                                                      << "9";
    QTest::newRow("the connect needs its exchange") << false << sh << "1 9"
                                                    << "1";
    QTest::newRow("the connect stands last") << false << every << "9 5 1"
                                             << "1 5 9";
}

void TypeFieldsTest::instructionTypesFollowTheAccount()
{
    QFETCH(bool, credit);
    QFETCH(QString, exchanges);
    QFETCH(QString, authorities);
    QFETCH(QString, expected);
    script().addAccount(QStringLiteral("acc1"), words(exchanges), words(authorities),
        credit);
    construct();
    // Where nothing is offered the account itself must still be, or the row proves nothing.
    QCOMPARE(codes(editor(), "combx_fundAccount"), lines("acc1"));
    QCOMPARE(codes(editor(), "combx_instructionType"), words(expected));
    QCOMPARE(code(editor(), "combx_instructionType"), words(expected).value(0));
}

void TypeFieldsTest::instructionTypesAreAskedForInTheirOrder_data()
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

void TypeFieldsTest::instructionTypesAreAskedForInTheirOrder()
{
    QFETCH(QString, account);
    QFETCH(QString, expected);
    script().addCreditAccount(QStringLiteral("credit"));
    script().addOrdinaryAccount(QStringLiteral("other"));
    construct();
    choose(editor(), "combx_fundAccount", account);
    // Without the cascade, which is looked at elsewhere.
    box(editor(), "combx_instructionType")->disconnect(&editor());
    script().forget();
    callSlot("slotComboxAccountChanged");
    QCOMPARE(script().calls, lines(expected.toUtf8().constData()));
}

void TypeFieldsTest::anAccountWithoutTypesLeavesTheBoxEmpty()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    script().addOrdinaryAccount(QStringLiteral("acc2"));
    construct();
    choose(editor(), "combx_fundAccount", QStringLiteral("acc1"));
    script().accounts[1].types.clear();
    choose(editor(), "combx_fundAccount", QStringLiteral("acc2"));
    QCOMPARE(codes(editor(), "combx_instructionType"), QStringList());
    QCOMPARE(box(editor(), "combx_instructionType")->currentIndex(), -1);
}

// --- Target types

void TypeFieldsTest::targetTypesFollowTheRuleProperty_data()
{
    QTest::addColumn<int>("property");
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("byAmount");
    for (const char* const type : { "1", "2", "5", "9" }) {
        const bool mainland = qstrcmp(type, "9") != 0;
        QTest::addRow("property 1 and type %s", type) << 1 << QString::fromLatin1(type) << mainland;
        for (const int property : { 0, 2, -1, 11 })
            QTest::addRow("property %d and type %s", property, type) << property << QString::fromLatin1(type) << false;
    }
}

void TypeFieldsTest::targetTypesFollowTheRuleProperty()
{
    QFETCH(int, property);
    QFETCH(QString, type);
    QFETCH(bool, byAmount);
    script().ruleProperties.insert(QStringLiteral("acc1/") + type, property);
    if (type == QLatin1String("2"))
        script().addCreditAccount(QStringLiteral("acc1"));
    else
        script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    choose(editor(), "combx_instructionType", type);
    QStringList expected = { InstructionTargetType::QtyOrder };
    if (byAmount)
        expected.append(InstructionTargetType::AmountOrder);
    QCOMPARE(codes(editor(), "combx_instructionTargetType"), expected);
    QCOMPARE(texts(editor(), "combx_instructionTargetType"), byAmount ? lines("按数量\n按金额") : lines("按数量"));
    QCOMPARE(code(editor(), "combx_instructionTargetType"), InstructionTargetType::QtyOrder);
}

void TypeFieldsTest::theRulePropertyIsAskedForAfterTheFirstTargetType()
{
    script().ruleProperty = 1;
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    const QStringList steps = stepsOf([this] { choose(editor(), "combx_instructionType", QStringLiteral("5")); });
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

// --- Plan types and sides

void TypeFieldsTest::planTypesFollowInstructionAndTargetType_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("target");
    QTest::addColumn<bool>("reduction");
    const QString quantity = QStringLiteral("tt_QtyOrder");
    const QString amount = QStringLiteral("tt_AmountOrder");
    QTest::newRow("ordinary trading by quantity offers the reduction") << "1" << quantity << true;
    QTest::newRow("ordinary trading by amount does not") << "1" << amount << false;
    QTest::newRow("margin trading by quantity does not") << "2" << quantity << false;
    QTest::newRow("margin trading by amount does not") << "2" << amount << false;
    QTest::newRow("bonds by quantity do not") << "5" << quantity << false;
    QTest::newRow("bonds by amount do not") << "5" << amount << false;
    QTest::newRow("the connect does not") << "9" << quantity << false;
}

void TypeFieldsTest::planTypesFollowInstructionAndTargetType()
{
    QFETCH(QString, type);
    QFETCH(QString, target);
    QFETCH(bool, reduction);
    script().ruleProperty = 1;
    if (type == QLatin1String("2"))
        script().addCreditAccount(QStringLiteral("acc1"));
    else
        script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    choose(editor(), "combx_instructionType", type);
    choose(editor(), "combx_instructionTargetType", target);
    QCOMPARE(codes(editor(), "combx_planType"),
        reduction ? lines("TW-01\nTW-02\nTW-03\nJC-01") : lines("TW-01\nTW-02\nTW-03"));
    QCOMPARE(texts(editor(), "combx_planType"),
        reduction ? lines("累计数量\n平均数量\n相同要素\n减持") : lines("累计数量\n平均数量\n相同要素"));
    QCOMPARE(box(editor(), "combx_planType")->currentIndex(), 0);
}

void TypeFieldsTest::sidesFollowTheInstructionType_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("buys");
    QTest::newRow("ordinary trading buys and sells") << "1" << true;
    QTest::newRow("margin trading buys and sells") << "2" << true;
    QTest::newRow("bonds are bought and sold") << "5" << true;
    QTest::newRow("the connect sells only") << "9" << false;
}

void TypeFieldsTest::sidesFollowTheInstructionType()
{
    QFETCH(QString, type);
    QFETCH(bool, buys);
    if (type == QLatin1String("2"))
        script().addCreditAccount(QStringLiteral("acc1"));
    else
        script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    choose(editor(), "combx_instructionType", type);
    QCOMPARE(codes(editor(), "combx_tradeSide"),
        buys ? QStringList({ Kelvo_Values::OrderSide::buy, Kelvo_Values::OrderSide::sell })
             : QStringList{ Kelvo_Values::OrderSide::sell });
    QCOMPARE(texts(editor(), "combx_tradeSide"), buys ? lines("买入\n卖出") : lines("卖出"));
    QCOMPARE(box(editor(), "combx_tradeSide")->currentIndex(), 0);
}

// --- Entrust types

void TypeFieldsTest::entrustTypesFollowSecurityAndSide_data()
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
    const QString allSales = QStringLiteral("collateralSell marginSellNormal marginSell financingSell");
    QTest::newRow("a share with the buy code of entrust types is bought in four ways")
        << share << unionBuy << false << "collateralBuy financingBuy marginBuyNormal marginBuy";
    QTest::newRow("a share is bought in four ways, convertible or not")
        << share << unionBuy << true << "collateralBuy financingBuy marginBuyNormal marginBuy";
    QTest::newRow("a share is sold in four ways") << share << sell << false << allSales;
    QTest::newRow("a share that may be converted is sold in five ways")
        << share << sell << true << (allSales + QStringLiteral(" BondConversion"));
    QTest::newRow("the plan's own buy code is none of the entrust types'") << share << buy << false << allSales;
    QTest::newRow("a security without a sub-type is sold in four ways") << "" << sell << false << allSales;
    QTest::newRow("a rights issue of shares is paid when bought")
        << SubType::PaidRationStock << unionBuy << true << "paidRationShare";
    QTest::newRow("a rights issue of shares is paid when sold")
        << SubType::PaidRationStock << sell << true << "paidRationShare";
    QTest::newRow("a rights issue of bonds is paid when bought")
        << SubType::PaidRationBond << unionBuy << false << "paidRationShare";
    QTest::newRow("a rights issue of bonds is paid when sold")
        << SubType::PaidRationBond << sell << false << "paidRationShare";
    for (const QString& subType : SubType::ConvertableBondTypeList) {
        QTest::newRow(qPrintable(subType + QStringLiteral(" is bought as collateral")))
            << subType << unionBuy << true << "collateralBuy";
        QTest::newRow(qPrintable(subType + QStringLiteral(" is sold as collateral")))
            << subType << sell << true << "collateralSell";
        QTest::newRow(qPrintable(subType + QStringLiteral(" is sold as collateral with the plan's buy code")))
            << subType << buy << true << "collateralSell";
    }
    QTest::newRow("a convertible sub-type in capitals is any other")
        << SubType::ConvertableBondTypeList.first().toUpper() << sell << false << allSales;
}

void TypeFieldsTest::entrustTypesFollowSecurityAndSide()
{
    QFETCH(QString, subType);
    QFETCH(QString, side);
    QFETCH(bool, conversion);
    QFETCH(QString, expected);
    constructCredit();
    script().securities[stock].subType = subType;
    script().bondConversionEnabled = conversion;
    QComboBox* const sides = box(editor(), "combx_tradeSide");
    if (sides->findData(side) < 0)
        sides->addItem(QStringLiteral("another buy"), side);
    sides->setCurrentIndex(-1);
    choose(editor(), "combx_tradeSide", side);
    QStringList expectedCodes;
    for (const QString& name : words(expected))
        expectedCodes.append(QStringLiteral("o_SideUnion_") + name);
    QCOMPARE(codes(editor(), "combx_entrustType"), expectedCodes);
    QCOMPARE(box(editor(), "combx_entrustType")->currentIndex(), 0);
}

void TypeFieldsTest::entrustTypesHaveTheirChineseNames()
{
    constructCredit();
    script().forget();
    choose(editor(), "combx_tradeSide", Kelvo_Values::OrderSide::sell);
    QCOMPARE(texts(editor(), "combx_entrustType"), lines(R"(
        委托类别-o_SideUnion_collateralSell
        委托类别-o_SideUnion_marginSellNormal
        委托类别-o_SideUnion_marginSell
        委托类别-o_SideUnion_financingSell)"));
    QCOMPARE(script().countOf(QStringLiteral("GetSideUnionChineseName")), 4);
}

void TypeFieldsTest::entrustTypesAreLogged()
{
    constructCredit();
    log().clear();
    choose(editor(), "combx_tradeSide", Kelvo_Values::OrderSide::sell);
    const QList<LogLine> found = log().linesWith(QtDebugMsg, QStringLiteral("AutoParamSetting::InitComboxEntrustType"));
    QCOMPARE(found.size(), 1);
    for (const char* const value : { "acc1", "600000.K_SH", "k_side_sell", "k_MdcSubSecurityType_Ashares" })
        QVERIFY2(found.first().text.contains(QLatin1String(value)), value);
}

void TypeFieldsTest::entrustTypesNeedEverythingAboveThem_data()
{
    QTest::addColumn<QString>("missing");
    QTest::newRow("an account") << "account";
    QTest::newRow("a security") << "security";
    QTest::newRow("a side") << "side";
    QTest::newRow("the margin type") << "type";
}

void TypeFieldsTest::entrustTypesNeedEverythingAboveThem()
{
    QFETCH(QString, missing);
    constructCredit();
    QVERIFY(box(editor(), "combx_entrustType")->count() > 0);
    {
        // In silence, so that only the one thing is missing when the entrust types are asked for.
        const QSignalBlocker account(box(editor(), "combx_fundAccount"));
        const QSignalBlocker type(box(editor(), "combx_instructionType"));
        const QSignalBlocker side(box(editor(), "combx_tradeSide"));
        const QSignalBlocker symbol(field<VorSearchBox>(editor(), "le_symbol"));
        if (missing == QLatin1String("account"))
            box(editor(), "combx_fundAccount")->setCurrentIndex(-1);
        if (missing == QLatin1String("security"))
            chooseSymbol(QString());
        if (missing == QLatin1String("side"))
            box(editor(), "combx_tradeSide")->setCurrentIndex(-1);
        if (missing == QLatin1String("type"))
            box(editor(), "combx_instructionType")->setCurrentIndex(-1);
    }
    script().forget();
    log().clear();
    callSlot("slotComboxTradeSideChanged");
    QCOMPARE(codes(editor(), "combx_entrustType"), QStringList());
    QCOMPARE(script().calls, QStringList());
    QCOMPARE(log().lines().size(), 0);
}

void TypeFieldsTest::bondConversionIsAskedForWithoutAMessage()
{
    constructCredit();
    script().forget();
    choose(editor(), "combx_tradeSide", Kelvo_Values::OrderSide::sell);
    // The account box's own data is what the rule is asked with.
    QCOMPARE(script().callsOf(QStringLiteral("checkMarginBondConvertEnable")),
        lines("checkMarginBondConvertEnable(acc1, 600000.K_SH, k_side_sell, false)"));
}

void TypeFieldsTest::bondConversionIsAskedForInOrdinarySalesOnly_data()
{
    QTest::addColumn<QString>("subType");
    QTest::newRow("a rights issue") << Orlo_Values::MdcSubSecurityType::PaidRationStock;
    QTest::newRow("a convertible bond") << Orlo_Values::MdcSubSecurityType::ConvertableBondTypeList.first();
}

void TypeFieldsTest::bondConversionIsAskedForInOrdinarySalesOnly()
{
    QFETCH(QString, subType);
    constructCredit();
    script().securities[stock].subType = subType;
    script().forget();
    choose(editor(), "combx_tradeSide", Kelvo_Values::OrderSide::sell);
    QCOMPARE(script().countOf(QStringLiteral("checkMarginBondConvertEnable")), 0);
}

// --- Instruction modes

void TypeFieldsTest::modesWithoutReview_data()
{
    QTest::addColumn<int>("property");
    QTest::addColumn<QString>("type");
    for (const int property : { 0, 2, -1 }) {
        for (const char* const type : { "1", "2", "5", "9" })
            QTest::addRow("property %d and type %s", property, type) << property << QString::fromLatin1(type);
    }
}

void TypeFieldsTest::modesWithoutReview()
{
    QFETCH(int, property);
    QFETCH(QString, type);
    script().ruleProperty = property;
    if (type == QLatin1String("2"))
        script().addCreditAccount(QStringLiteral("acc1"));
    else
        script().addOrdinaryAccount(QStringLiteral("acc1"));
    constructShown();
    choose(editor(), "combx_instructionType", type);
    for (const char* const priceMode : { "6", "7", "8", "1" }) {
        field<QWidget>(editor(), "btn_algoParamSetting")->show();
        choose(editor(), "combx_priceMode", QLatin1String(priceMode));
        QCOMPARE(codes(editor(), "combx_instructionMode"), lines("1"));
        QCOMPARE(texts(editor(), "combx_instructionMode"), lines("主动管理"));
        QVERIFY(!isOffered(editor(), "btn_algoParamSetting"));
    }
}

void TypeFieldsTest::modesUnderReview_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("priceMode");
    QTest::addColumn<QString>("priceType");
    QTest::addColumn<QString>("expected");
    const QString quantity = QStringLiteral("tt_QtyOrder");
    const QString amount = QStringLiteral("tt_AmountOrder");
    const QString within = Orlo_Values::HKTimeInForce::InTrade;
    const QString before = Orlo_Values::HKTimeInForce::BeforeTrade;
    for (const char* const type : { "1", "5" }) {
        const QString code = QString::fromLatin1(type);
        QTest::addRow("type %s by quantity without a limit", type) << code << quantity << "1" << within << "3";
        for (const char* const priceMode : { "6", "7", "8" }) {
            QTest::addRow("type %s by quantity at price mode %s", type, priceMode)
                << code << quantity << QString::fromLatin1(priceMode) << within << "2 3";
        }
        QTest::addRow("type %s by quantity whatever the price type", type)
            << code << quantity << "6" << before << "2 3";
        QTest::addRow("type %s by amount without a limit", type) << code << amount << "1" << within << "3";
        QTest::addRow("type %s by amount with a limit", type) << code << amount << "6" << within << "3";
    }
    QTest::newRow("the connect without a limit, within trade") << "9" << quantity << "1" << within << "3";
    QTest::newRow("the connect with a limit, within trade") << "9" << quantity << "6" << within << "2 3";
    QTest::newRow("the connect without a limit, before trade") << "9" << quantity << "1" << before << "";
    QTest::newRow("the connect with a limit, before trade") << "9" << quantity << "7" << before << "2";
}

void TypeFieldsTest::modesUnderReview()
{
    QFETCH(QString, type);
    QFETCH(QString, target);
    QFETCH(QString, priceMode);
    QFETCH(QString, priceType);
    QFETCH(QString, expected);
    script().ruleProperty = 1;
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    choose(editor(), "combx_instructionType", type);
    choose(editor(), "combx_instructionTargetType", target);
    choose(editor(), "combx_priceType", priceType);
    choose(editor(), "combx_priceMode", priceMode);
    QCOMPARE(codes(editor(), "combx_instructionMode"), words(expected));
    QStringList names;
    for (const QString& mode : words(expected))
        names.append(mode == QLatin1String("2") ? QStringLiteral("普通交易复核") : QStringLiteral("算法交易复核"));
    QCOMPARE(texts(editor(), "combx_instructionMode"), names);
    QCOMPARE(isOffered(editor(), "btn_algoParamSetting"), expected == QLatin1String("3"));
}

void TypeFieldsTest::modesOfAMarginPlanFollowItsEntrustType_data()
{
    QTest::addColumn<QString>("entrustType");
    QTest::addColumn<bool>("byAlgorithm");
    const auto row = [](const char* name, bool byAlgorithm) {
        QTest::newRow(name) << QStringLiteral("o_SideUnion_") + QLatin1String(name) << byAlgorithm;
    };
    row("collateralBuy", true);
    row("collateralSell", true);
    row("marginBuy", true);
    row("marginSell", true);
    row("financingBuy", true);
    row("financingSell", false);
    row("marginBuyNormal", false);
    row("marginSellNormal", false);
    row("BondConversion", false);
    row("paidRationShare", false);
    row("normalBuy", false);
    QTest::newRow("no entrust type") << "" << false;
    QTest::newRow("collateralBuy in capitals") << "O_SIDEUNION_COLLATERALBUY" << false;
}

void TypeFieldsTest::modesOfAMarginPlanFollowItsEntrustType()
{
    QFETCH(QString, entrustType);
    QFETCH(bool, byAlgorithm);
    script().ruleProperty = 1;
    constructCredit();
    choose(editor(), "combx_priceMode", QStringLiteral("6"));
    QComboBox* const types = box(editor(), "combx_entrustType");
    types->addItem(QStringLiteral("before"), QStringLiteral("before"));
    choose(editor(), "combx_entrustType", QStringLiteral("before"));
    QCOMPARE(codes(editor(), "combx_instructionMode"), lines("2"));
    types->addItem(QStringLiteral("looked at"), entrustType);
    types->setCurrentIndex(types->count() - 1);
    QCOMPARE(codes(editor(), "combx_instructionMode"), byAlgorithm ? lines("2\n3") : lines("2"));
}

void TypeFieldsTest::theFirstModeIsChosenAndAnnounced()
{
    script().ruleProperty = 1;
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    choose(editor(), "combx_priceMode", QStringLiteral("6"));
    choose(editor(), "combx_instructionMode", QStringLiteral("3"));
    // Unlike the other boxes this one is emptied with its signals live.
    const QStringList steps = stepsOf([this] { callSlot("slotComboxPriceTypeChanged"); });
    QCOMPARE(steps, lines(R"(
        GetCurrentUserInstructionRuleProper(acc1, 1)
        combx_instructionMode.clear()
        combx_instructionMode announces ""
        btn_algoParamSetting.hide()
        combx_instructionMode.append(普通交易复核, 2)
        combx_instructionMode announces 普通交易复核
        combx_instructionMode.append(算法交易复核, 3))"));
    QCOMPARE(code(editor(), "combx_instructionMode"), QStringLiteral("2"));
}

void TypeFieldsTest::modesAreLogged()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    choose(editor(), "combx_priceMode", QStringLiteral("7"));
    log().clear();
    callSlot("slotComboxEntrustTypeChanged");
    const QList<LogLine> found = log().lines();
    QCOMPARE(found.size(), 1);
    QCOMPARE(found.first().type, QtDebugMsg);
    const QString text = found.first().text;
    QVERIFY(text.startsWith(QLatin1String("AutoParamSetting::InitComboxInstructionMode")));
    const QStringList values = { QStringLiteral("1"), QStringLiteral("0"), QStringLiteral("o_HKTimeInForce_InTrade"),
        QStringLiteral("7"), QStringLiteral("F-acc1") };
    int from = 0;
    for (const QString& value : values) {
        from = text.indexOf(value, from);
        QVERIFY2(from >= 0, qPrintable(value));
        from += value.size();
    }
}

void TypeFieldsTest::aLockedModeOfAnEditedPlanStays()
{
    script().ruleProperty = 1;
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    choose(editor(), "combx_priceMode", QStringLiteral("6"));
    choose(editor(), "combx_instructionMode", QStringLiteral("3"));
    log().expectWarning(QStringLiteral("计划复制失败"));
    editor().editPlan(QStringLiteral("plan1"));
    QVERIFY(!isUsable(editor(), "combx_instructionMode"));
    log().clear();
    const QStringList steps = stepsOf([this] { callSlot("slotComboxPriceTypeChanged"); });
    QCOMPARE(steps, QStringList());
    QCOMPARE(log().lines().size(), 0);
    QCOMPARE(code(editor(), "combx_instructionMode"), QStringLiteral("3"));
    QVERIFY(isOffered(editor(), "btn_algoParamSetting"));
}

void TypeFieldsTest::anUnlockedModeOfAnEditedPlanIsRebuilt()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    log().expectWarning(QStringLiteral("计划复制失败"));
    editor().editPlan(QStringLiteral("plan1"));
    field<QWidget>(editor(), "combx_instructionMode")->setEnabled(true);
    script().forget();
    callSlot("slotComboxPriceTypeChanged");
    QCOMPARE(script().steps.count(QStringLiteral("combx_instructionMode.clear()")), 1);
}

void TypeFieldsTest::aLockedModeOfANewPlanIsRebuilt()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    field<QWidget>(editor(), "combx_instructionMode")->setEnabled(false);
    script().forget();
    callSlot("slotComboxPriceTypeChanged");
    QCOMPARE(script().steps.count(QStringLiteral("combx_instructionMode.clear()")), 1);
}

void TypeFieldsTest::thePanelIsToldOfNewModesUnderReviewOnly()
{
    script().ruleProperty = 1;
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    script().forget();
    callSlot("slotComboxPriceTypeChanged");
    QCOMPARE(script().countOf(QStringLiteral("panel.ReInit")), 0);
    field<QPushButton>(editor(), "btn_algoParamSetting")->click();
    QVERIFY(editor().findChild<ParamListWidget_single*>() != nullptr);
    script().forget();
    callSlot("slotComboxPriceTypeChanged");
    QCOMPARE(script().calls, lines(R"(
        GetCurrentUserInstructionRuleProper(acc1, 1)
        panel.ReInit())"));
    script().ruleProperty = 0;
    script().forget();
    callSlot("slotComboxPriceTypeChanged");
    QCOMPARE(script().calls, lines("GetCurrentUserInstructionRuleProper(acc1, 1)"));
}

// --- Reactions

void TypeFieldsTest::aBoxIsEmptiedInSilenceAndAnnouncesItsFirstItem()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    choose(editor(), "combx_planType", QStringLiteral("TW-03"));
    const QStringList steps = stepsOf([this] {
        callSlot("slotComboxInstructionTargetTypeChanged");
    }).filter(QStringLiteral("combx_planType"));
    QCOMPARE(steps, lines(R"(
        combx_planType.clear()
        combx_planType.append(累计数量, TW-01)
        combx_planType announces 累计数量
        combx_planType.append(平均数量, TW-02)
        combx_planType.append(相同要素, TW-03)
        combx_planType.append(减持, JC-01))"));
}

void TypeFieldsTest::aRefilledBoxIsLive_data()
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

/// A host that had blocked a box gets its announcements again with the next refill. Without a slot the editor is reset.
void TypeFieldsTest::aRefilledBoxIsLive()
{
    QFETCH(QByteArray, slot);
    QFETCH(QByteArray, name);
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    QComboBox* const refilled = box(editor(), name.constData());
    refilled->blockSignals(true);
    if (slot.isEmpty())
        editor().resetEnable();
    else
        callSlot(slot.constData());
    QVERIFY(!refilled->signalsBlocked());
}

void TypeFieldsTest::anotherInstructionTypeReactsStepByStep()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    const QStringList steps = stepsOf([this] { choose(editor(), "combx_instructionType", QStringLiteral("9")); });
    QCOMPARE(steps, lines(R"(
        combx_instructionType announces 港股通
        combx_instructionTargetType.clear()
        GetStaticCfgValue(InstructionTargetType, tt_QtyOrder)
        combx_instructionTargetType.append(按数量, tt_QtyOrder)
        combx_instructionTargetType announces 按数量
        combx_planType.clear()
        combx_planType.append(累计数量, TW-01)
        combx_planType announces 累计数量
        combx_assignTo.clear()
        combx_assignTo announces ""
        getChainKeyForTraddingAccout(acc1, 9)
        GetForwardUsers(chain-acc1-9, 0)
        combx_assignTo.append(默认不指定, "")
        combx_assignTo announces 默认不指定
        combx_planType.append(平均数量, TW-02)
        combx_planType.append(相同要素, TW-03)
        le_symbol.setSymbol("")
        GetAllSymbolByType(k_MdcSecurityType_StockType, o_MdcSubSecurityType_HStcokCirculation, "", false, [])
        le_symbol.setSecurityList([])
        le_symbol.setSearchMode(1)
        le_symbol.setMinMatchLength(6)
        GetSecurityTypeBySymbol("")
        GetCurrentUserInstructionRuleProper(acc1, 9)
        combx_instructionMode.clear()
        combx_instructionMode announces ""
        combx_instructionMode.append(主动管理, 1)
        combx_instructionMode announces 主动管理
        getWhiteAlgoNameList(9, tt_QtyOrder, "")
        getBlackAlgoNameList(tt_QtyOrder)
        GetCurrentUserInstructionRuleProper(acc1, 9)
        combx_planType.clear()
        combx_planType.append(累计数量, TW-01)
        combx_planType announces 累计数量
        combx_assignTo.clear()
        combx_assignTo announces ""
        getChainKeyForTraddingAccout(acc1, 9)
        GetForwardUsers(chain-acc1-9, 0)
        combx_assignTo.append(默认不指定, "")
        combx_assignTo announces 默认不指定
        combx_planType.append(平均数量, TW-02)
        combx_planType.append(相同要素, TW-03)
        le_symbol.setSymbol("")
        GetAllSymbolByType(k_MdcSecurityType_StockType, o_MdcSubSecurityType_HStcokCirculation, "", false, [])
        le_symbol.setSecurityList([])
        le_symbol.setSearchMode(1)
        le_symbol.setMinMatchLength(6)
        combx_tradeSide.clear()
        combx_tradeSide.append(卖出, k_side_sell)
        combx_tradeSide announces 卖出
        la_priceType.show()
        combx_priceType.show()
        GetCurrentUserInstructionRuleProper(acc1, 9)
        combx_instructionMode.clear()
        combx_instructionMode announces ""
        combx_instructionMode.append(主动管理, 1)
        combx_instructionMode announces 主动管理
        GetSecurityTypeBySymbol("")
        lineEdit_price1.SetFunctionItems([])
        IsSymbolHasPriceLimit("")
        lineEdit_price1.SetFormulaItems([昨收价])
        lineEdit_price2.SetFormulaItems([昨收价])
        combx_assignTo.clear()
        combx_assignTo announces ""
        getChainKeyForTraddingAccout(acc1, 9)
        GetForwardUsers(chain-acc1-9, 0)
        combx_assignTo.append(默认不指定, "")
        combx_assignTo announces 默认不指定)"));
}

void TypeFieldsTest::theMarginTypeShowsTheEntrustType()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    script().addCreditAccount(QStringLiteral("acc2"));
    constructShown();
    const QStringList steps = stepsOf([this] { choose(editor(), "combx_fundAccount", QStringLiteral("acc2")); });
    QCOMPARE(code(editor(), "combx_instructionType"), QStringLiteral("2"));
    QCOMPARE(steps.filter(QStringLiteral(".show()")), lines("la_entrustType.show()\ncombx_entrustType.show()"));
}

void TypeFieldsTest::theConnectTypeShowsThePriceType()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    constructShown();
    choose(editor(), "combx_instructionType", QStringLiteral("9"));
    const QStringList steps = stepsOf([this] { choose(editor(), "combx_instructionType", QStringLiteral("1")); });
    QCOMPARE(steps.filter(QStringLiteral(".hide()")), lines("la_priceType.hide()\ncombx_priceType.hide()"));
}

void TypeFieldsTest::rowsOfTypesAreShown_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("priceType");
    QTest::addColumn<bool>("entrustType");
    QTest::newRow("ordinary trading shows neither row") << "1" << false << false;
    QTest::newRow("margin trading shows the entrust type") << "2" << false << true;
    QTest::newRow("bonds show neither row") << "5" << false << false;
    QTest::newRow("the connect shows the price type") << "9" << true << false;
}

void TypeFieldsTest::rowsOfTypesAreShown()
{
    QFETCH(QString, type);
    QFETCH(bool, priceType);
    QFETCH(bool, entrustType);
    if (type == QLatin1String("2"))
        script().addCreditAccount(QStringLiteral("acc1"));
    else
        script().addOrdinaryAccount(QStringLiteral("acc1"));
    constructShown();
    choose(editor(), "combx_instructionType", type);
    QCOMPARE(field<QWidget>(editor(), "la_priceType")->isVisible(), priceType);
    QCOMPARE(field<QWidget>(editor(), "combx_priceType")->isVisible(), priceType);
    QCOMPARE(field<QWidget>(editor(), "la_entrustType")->isVisible(), entrustType);
    QCOMPARE(field<QWidget>(editor(), "combx_entrustType")->isVisible(), entrustType);
}

void TypeFieldsTest::anotherTargetTypeReactsStepByStep()
{
    script().ruleProperty = 1;
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
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
    QCOMPARE(text(editor(), "lab_targetTotalNumUnit"), QStringLiteral("元"));
    QCOMPARE(text(editor(), "lab_entrustMaxNumUnit"), QStringLiteral("元"));
}

void TypeFieldsTest::decimalsFollowTheTargetType()
{
    script().ruleProperty = 1;
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    for (const int round : { 1, 2 }) {
        Q_UNUSED(round)
        choose(editor(), "combx_instructionTargetType", InstructionTargetType::AmountOrder);
        QCOMPARE(field<OrloDoubleSpinBox>(editor(), "le_targetTotalNum")->decimals(), 2);
        QCOMPARE(field<OrloDoubleSpinBox>(editor(), "le_entrustMaxNum")->decimals(), 2);
        choose(editor(), "combx_instructionTargetType", InstructionTargetType::QtyOrder);
        QCOMPARE(field<OrloDoubleSpinBox>(editor(), "le_targetTotalNum")->decimals(), 0);
        QCOMPARE(field<OrloDoubleSpinBox>(editor(), "le_entrustMaxNum")->decimals(), 0);
    }
    QCOMPARE(field<OrloDoubleSpinBox>(editor(), "le_reduceHRatio")->decimals(), 4);
}

void TypeFieldsTest::anUnknownTargetTypeLeavesDecimalsAlone()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    field<OrloDoubleSpinBox>(editor(), "le_targetTotalNum")->setDecimals(5);
    field<OrloDoubleSpinBox>(editor(), "le_entrustMaxNum")->setDecimals(6);
    box(editor(), "combx_instructionTargetType")->addItem(QStringLiteral("other"), QStringLiteral("other"));
    choose(editor(), "combx_instructionTargetType", QStringLiteral("other"));
    QCOMPARE(field<OrloDoubleSpinBox>(editor(), "le_targetTotalNum")->decimals(), 5);
    QCOMPARE(field<OrloDoubleSpinBox>(editor(), "le_entrustMaxNum")->decimals(), 6);
}

void TypeFieldsTest::anotherTargetTypeTakesTheReductionAway()
{
    script().ruleProperty = 1;
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    constructShown();
    choose(editor(), "combx_planType", QStringLiteral("JC-01"));
    QVERIFY(field<QWidget>(editor(), "le_reduceHRatio")->isVisible());
    choose(editor(), "combx_instructionTargetType", InstructionTargetType::AmountOrder);
    QCOMPARE(codes(editor(), "combx_planType"), lines("TW-01\nTW-02\nTW-03"));
    QCOMPARE(code(editor(), "combx_planType"), QStringLiteral("TW-01"));
    QVERIFY(!field<QWidget>(editor(), "le_reduceHRatio")->isVisible());
    QVERIFY(isUsable(editor(), "combx_tradeSide"));
}

void TypeFieldsTest::anotherInstructionTypeClearsThePrices()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    choose(editor(), "combx_priceMode", QStringLiteral("7"));
    field<QLineEdit>(editor(), "lineEdit_price1")->setText(QStringLiteral("昨收价"));
    field<QLineEdit>(editor(), "lineEdit_price2")->setText(QStringLiteral("12.3"));
    choose(editor(), "combx_instructionType", QStringLiteral("5"));
    QCOMPARE(text(editor(), "lineEdit_price1"), QString());
    QCOMPARE(text(editor(), "lineEdit_price2"), QString());
    QCOMPARE(code(editor(), "combx_priceMode"), QStringLiteral("7"));
}

void TypeFieldsTest::anotherInstructionTypeLooksAtTheSecurityOnceMore()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    // The market is written by hand after the prices were prepared: only a second look at the security empties it.
    script().onCall = [this](const ScriptCall& call) {
        if (call.operation == QLatin1String("lineEdit_price2.SetFormulaItems"))
            field<QLineEdit>(editor(), "le_exchange")->setText(QStringLiteral("by hand"));
    };
    choose(editor(), "combx_instructionType", QStringLiteral("5"));
    QCOMPARE(script().calls.last(), QStringLiteral("GetForwardUsers(chain-acc1-5, 0)"));
    QCOMPARE(text(editor(), "le_exchange"), QString());
}

void TypeFieldsTest::theAlgorithmButtonFollowsTheMode()
{
    script().ruleProperty = 1;
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    constructShown();
    // Without a limit the algorithmic review is the only mode.
    QVERIFY(field<QWidget>(editor(), "btn_algoParamSetting")->isVisible());
    choose(editor(), "combx_priceMode", QStringLiteral("6"));
    QVERIFY(!field<QWidget>(editor(), "btn_algoParamSetting")->isVisible());
    choose(editor(), "combx_instructionMode", QStringLiteral("3"));
    QVERIFY(field<QWidget>(editor(), "btn_algoParamSetting")->isVisible());
    box(editor(), "combx_instructionMode")->setCurrentIndex(-1);
    QVERIFY(!field<QWidget>(editor(), "btn_algoParamSetting")->isVisible());
}

void TypeFieldsTest::onlyOneTypeOfAConnectAccountCascadesAtOnce()
{
    script().addAccount(QStringLiteral("acc1"), { Orlo_Values::Exchange::HkStockCirculation }, { QStringLiteral("9") });
    constructShown();
    QCOMPARE(codes(editor(), "combx_instructionType"), lines("9"));
    QCOMPARE(texts(editor(), "combx_tradeSide"), lines("卖出"));
    QVERIFY(field<QWidget>(editor(), "la_priceType")->isVisible());
    QVERIFY(field<QWidget>(editor(), "combx_priceType")->isVisible());
}

// --- The plan type

void TypeFieldsTest::theCaptionOfTheDailyQuantityFollowsThePlanType_data()
{
    QTest::addColumn<QString>("planType");
    QTest::addColumn<QString>("caption");
    QTest::newRow("a cumulative quantity is limited per day") << "TW-01"
                                                              << "每日最大委托量";
    QTest::newRow("an average quantity is limited per day") << "TW-02"
                                                            << "每日最大委托量";
    QTest::newRow("the same elements are planned per day") << "TW-03"
                                                           << "每日计划量";
    QTest::newRow("a reduction is limited per day") << "JC-01"
                                                    << "每日最大委托量";
}

void TypeFieldsTest::theCaptionOfTheDailyQuantityFollowsThePlanType()
{
    QFETCH(QString, planType);
    QFETCH(QString, caption);
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    box(editor(), "combx_planType")->setCurrentIndex(-1);
    field<QLabel>(editor(), "la_entrustMaxNum")->setText(QStringLiteral("another caption"));
    choose(editor(), "combx_planType", planType);
    QCOMPARE(text(editor(), "la_entrustMaxNum"), caption);
}

void TypeFieldsTest::anOrdinaryPlanTypeReactsStepByStep()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    constructShown();
    choose(editor(), "combx_planType", QStringLiteral("JC-01"));
    const QStringList steps = stepsOf([this] { choose(editor(), "combx_planType", QStringLiteral("TW-02")); });
    // Everything of the layout lies between unlocking the side and refilling the assignees.
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

void TypeFieldsTest::aReductionSellsAndLocksTheSide()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    QCOMPARE(code(editor(), "combx_tradeSide"), Kelvo_Values::OrderSide::buy);
    const QStringList steps = stepsOf([this] { choose(editor(), "combx_planType", QStringLiteral("JC-01")); });
    QCOMPARE(steps.mid(0, 3), lines(R"(
        combx_planType announces 减持
        combx_tradeSide announces 卖出
        combx_tradeSide.setEnabled(false))"));
    QCOMPARE(code(editor(), "combx_tradeSide"), Kelvo_Values::OrderSide::sell);
    QVERIFY(!isUsable(editor(), "combx_tradeSide"));
    QVERIFY(isOffered(editor(), "le_reduceHRatio"));
    QVERIFY(!isOffered(editor(), "le_entrustMaxNum"));
}

void TypeFieldsTest::aReductionThatSellsKeepsTheSide()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    choose(editor(), "combx_tradeSide", Kelvo_Values::OrderSide::sell);
    const QStringList steps = stepsOf([this] { choose(editor(), "combx_planType", QStringLiteral("JC-01")); });
    QCOMPARE(steps.filter(QStringLiteral("combx_tradeSide")), lines("combx_tradeSide.setEnabled(false)"));
    QCOMPARE(code(editor(), "combx_tradeSide"), Kelvo_Values::OrderSide::sell);
}

void TypeFieldsTest::anotherPlanTypeUnlocksTheSideButKeepsIt()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    choose(editor(), "combx_planType", QStringLiteral("JC-01"));
    choose(editor(), "combx_planType", QStringLiteral("TW-01"));
    QVERIFY(isUsable(editor(), "combx_tradeSide"));
    QCOMPARE(code(editor(), "combx_tradeSide"), Kelvo_Values::OrderSide::sell);
}

void TypeFieldsTest::aReductionAsksForMissingSignatures()
{
    script().unsignedClients = lines("C-acc1");
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    constructShown();
    bool laidOut = false;
    bool assigned = true;
    script().executeUsers = lines("王五");
    script().whileAgreementOpen = [this, &laidOut, &assigned] {
        laidOut = field<QWidget>(editor(), "le_reduceHRatio")->isVisible() && !isUsable(editor(), "combx_tradeSide");
        assigned = texts(editor(), "combx_assignTo").contains(QStringLiteral("王五"));
    };
    script().forget();
    choose(editor(), "combx_planType", QStringLiteral("JC-01"));
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
}

void TypeFieldsTest::aHiddenEditorAsksForNoSignature()
{
    script().unsignedClients = lines("C-acc1");
    script().executeUsers = lines("王五");
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    script().forget();
    choose(editor(), "combx_planType", QStringLiteral("JC-01"));
    QCOMPARE(script().calls, lines(R"(
        GetUnsignedClientNoList(o_ProtocolId_AutoPlanReduceAgree)
        getChainKeyForTraddingAccout(acc1, 1)
        GetExcuteUsers(chain-acc1-1))"));
}

void TypeFieldsTest::signedClientsAreNotAsked()
{
    script().unsignedClients = lines("C-somebody-else");
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    constructShown();
    script().forget();
    choose(editor(), "combx_planType", QStringLiteral("JC-01"));
    QCOMPARE(script().calls, lines(R"(
        GetUnsignedClientNoList(o_ProtocolId_AutoPlanReduceAgree)
        getChainKeyForTraddingAccout(acc1, 1)
        GetExcuteUsers(chain-acc1-1))"));
}

void TypeFieldsTest::theResultOfSigningIsNotLookedAt()
{
    script().unsignedClients = lines("C-acc1");
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    constructShown();
    // The scripted dialog is always declined; the plan type stays, and nobody is asked a second time.
    choose(editor(), "combx_planType", QStringLiteral("JC-01"));
    QCOMPARE(code(editor(), "combx_planType"), QStringLiteral("JC-01"));
    QCOMPARE(script().countOf(QStringLiteral("OrloAgreementSignWidget")), 1);
    QCOMPARE(script().boxes.size(), 0);
}

void TypeFieldsTest::theEditorMayGoWhileTheAgreementIsOpen()
{
    script().unsignedClients = lines("C-acc1");
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    constructShown();
    script().whileAgreementOpen = [this] { destroy(); };
    script().forget();
    choose(editor(), "combx_planType", QStringLiteral("JC-01"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(script().calls.last(), QStringLiteral("OrloAgreementSignWidget.shown(modally)"));
}

void TypeFieldsTest::theBoxGoesWithTheEditorAfterTheAgreement()
{
    script().unsignedClients = lines("C-acc1");
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    constructShown();
    const QPointer<QComboBox> planTypes(box(editor(), "combx_planType"));
    choose(editor(), "combx_planType", QStringLiteral("JC-01"));
    QCOMPARE(script().countOf(QStringLiteral("OrloAgreementSignWidget")), 1);
    QVERIFY(planTypes);
    destroy();
    QVERIFY(planTypes.isNull());
}

QTEST_MAIN(TypeFieldsTest)
#include "tst_type_fields.moc"
