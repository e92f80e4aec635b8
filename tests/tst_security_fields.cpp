#include "AutoPlanLogic.h"
#include "EditorTest.h"
#include "OrloFormulaNormal.h"
#include "Orlo_Values.h"
#include "PlanForm.h"

#include <QPointer>
#include <QSignalSpy>
#include <QtTest>
#include <thread>

namespace {

const QString Account = QStringLiteral("acc1");
const QString Stock = QStringLiteral("600000.K_SH");
const QString OtherStock = QStringLiteral("000001.K_SZ");
const QString Bond = QStringLiteral("110000.K_SH");
const QString HkStock = QStringLiteral("00700.HK");
const QString Unknown = QStringLiteral("999999.K_SH");

const QString Ordinary = QStringLiteral("1");
const QString Credit = QStringLiteral("2");
const QString BondTrading = QStringLiteral("5");
const QString HkConnect = QStringLiteral("9");

QString typeListQuery(const QString& type, const QStringList& subTypes, const QString& suffixes)
{
    return QStringLiteral("GetAllSymbolByTypeList(%1, [%2], %3, false, [])")
        .arg(type, subTypes.join(QStringLiteral(", ")), suffixes);
}

QString typeQuery(const QString& type, const QString& subType)
{
    return QStringLiteral("GetAllSymbolByType(%1, %2, \"\", false, [])").arg(type, subType);
}

} // namespace

class tst_security_fields : public EditorTest {
    Q_OBJECT

private Q_SLOTS:
    void aTypeOffersItsSecurities_data();
    void aTypeOffersItsSecurities();
    void withoutAnInstructionTypeNoSecurityIsOffered();
    void refillingTheSecuritiesForgetsTheChosenOne();

    void choosingNoSecurityEmptiesItsFieldsAndNothingElse();
    void aSecurityTakesItsStepsInOrder();
    void aSecurityRefillsTheEntrustTypesBetweenUnitAndPrices();
    void aSecurityTellsAnOpenAlgorithmPanel_data();
    void aSecurityTellsAnOpenAlgorithmPanel();
    void theExchangeIsShownByItsName_data();
    void theExchangeIsShownByItsName();
    void theNameOfTheSecurityIsShown();
    void theLotStepIsShownForHongKongConnectOnly_data();
    void theLotStepIsShownForHongKongConnectOnly();
    void anotherSecurityTakesTheLotStepAway();
    void theUnitFollowsSecurityAndTargetType_data();
    void theUnitFollowsSecurityAndTargetType();
    void theUnitStaysWithoutATargetType();
    void theUnitFollowsAnotherTargetTypeAtOnce();

    void aSecurityAsksForItsAverages();
    void withoutAnAccountTheAveragesAreAskedForAllTheSame();
    void theAveragesOfTheLastSecurityLastUntilTheAnswer();
    void anAnswerWithinTheQueryIsKept();
    void anAnswerForAnotherSecurityIsIgnored();
    void anAnswerWithAnErrorRebuildsThePricesWithoutAverages();
    void anErrorAfterAnAnswerKeepsTheAverages();
    void anAnswerForNoSecurityRebuildsThePrices();
    void anAnswerIsLogged();
    void anAnswerFromAnotherThreadArrives();
    void anAnswerAfterTheEditorIsGoneIsIgnored();
    void theHostMayDeleteTheEditorWhenItHearsTheQuery_data();
    void theHostMayDeleteTheEditorWhenItHearsTheQuery();
    void theServiceMayDeleteTheEditorWhenItHearsTheQuery();

    void theNumberInputsAreSetUp();
    void theDecimalsFollowTheTargetType();
    void anUnknownSecurityLeavesItsFieldsEmpty();

private:
    void open();
    void answer(const QString& symbol, const QStringList& names, const QString& error = QString());
    QStringList offeredNames() const { return field<OrloFormulaNormal>(editor(), "lineEdit_price1")->FormulaItems(); }
};

void tst_security_fields::open()
{
    script().addOrdinaryAccount(Account);
    script().addStock(Stock);
    script().addStock(OtherStock);
    script().addBond(Bond);
    script().addHkStock(HkStock, 500);
    constructShown();
    script().forget();
    log().clear();
}

void tst_security_fields::answer(const QString& symbol, const QStringList& names, const QString& error)
{
    Q_EMIT AutoPlanLogic::instance().signalQuerySymbolMAResponse(symbol, names, error);
}

void tst_security_fields::aTypeOffersItsSecurities_data()
{
    using namespace Kelvo_Values;
    using Other = QStringList;
    namespace MoreSubTypes = Orlo_Values::MdcSubSecurityType;
    QTest::addColumn<QString>("instructionType");
    QTest::addColumn<bool>("byAmount");
    QTest::addColumn<QStringList>("queries");
    const QString mainland = QStringLiteral("[.K_SH, .K_SZ]");
    const QString everywhere = QStringLiteral("[]");
    const QString ordinaryStocks = typeListQuery(MdcSecurityType::StockType,
        { MdcSubSecurityType::Ashares, MdcSubSecurityType::Gemstock, MoreSubTypes::ScienTechInnovateBoard,
            MoreSubTypes::BjSelectedStock },
        everywhere);
    const QString creditStocks = typeListQuery(MdcSecurityType::StockType,
        { MdcSubSecurityType::Ashares, MdcSubSecurityType::Smallandmediumstock, MdcSubSecurityType::Gemstock,
            MoreSubTypes::ScienTechInnovateBoard },
        everywhere);
    const QString funds = typeQuery(MdcSecurityType::FundType, MdcSubSecurityType::TradingopenindexfundETF);
    const QString trusts = typeListQuery(MdcSecurityType::FundType, { MoreSubTypes::Reits }, mainland);
    const QString convertibles =
        typeListQuery(MdcSecurityType::BondType, MoreSubTypes::ConvertableBondTypeList, mainland);
    const QString bonds = typeListQuery(MdcSecurityType::BondType,
        { QStringLiteral("o_bond_treasury"), QStringLiteral("o_bond_convertible"), QStringLiteral("o_bond_corporate"),
            MdcSubSecurityType::Assetbackedsecurities },
        mainland);
    const QString hkStocks = typeQuery(MdcSecurityType::StockType, MoreSubTypes::HStcokCirculation);
    QTest::newRow("ordinary by quantity") << Ordinary << false << Other{ ordinaryStocks, funds, trusts };
    QTest::newRow("ordinary by amount: neither funds nor trusts") << Ordinary << true << Other{ ordinaryStocks };
    QTest::newRow("credit by quantity") << Credit << false << Other{ creditStocks, convertibles, trusts };
    QTest::newRow("credit by amount: no trusts") << Credit << true << Other{ creditStocks, convertibles };
    QTest::newRow("bonds by quantity: no directed convertibles") << BondTrading << false << Other{ bonds };
    QTest::newRow("bonds by amount") << BondTrading << true << Other{ bonds };
    QTest::newRow("Hong Kong connect") << HkConnect << false << Other{ hkStocks };
}

void tst_security_fields::aTypeOffersItsSecurities()
{
    QFETCH(QString, instructionType);
    QFETCH(bool, byAmount);
    QFETCH(QStringList, queries);
    script().ruleProperty = 1;
    if (instructionType == Credit)
        script().addCreditAccount(Account);
    else
        script().addOrdinaryAccount(Account);
    construct();
    // Every query answers one symbol that tells which query it was.
    int asked = 0;
    script().symbols = [&asked](const SymbolQuery&) { return SymbolList({ QStringLiteral("of query %1").arg(asked++) }); };
    choose(editor(), "combx_instructionType", instructionType);
    const QString target = byAmount ? InstructionTargetType::AmountOrder : InstructionTargetType::QtyOrder;
    choose(editor(), "combx_instructionTargetType", target);
    // Once more from scratch, so that the calls of one refill are seen alone.
    script().forget();
    asked = 0;
    callSlot("slotComboxInstructionTargetTypeChanged");
    QStringList answers;
    for (int i = 0; i < queries.size(); ++i)
        answers.append(QStringLiteral("of query %1").arg(i));
    const QStringList expected = QStringList(QStringLiteral("le_symbol.setSymbol(\"\")")) + queries
        + QStringList{ QStringLiteral("le_symbol.setSecurityList([%1])").arg(answers.join(QStringLiteral(", "))),
              QStringLiteral("le_symbol.setSearchMode(1)"), QStringLiteral("le_symbol.setMinMatchLength(6)") };
    const int start = script().calls.indexOf(expected.constFirst());
    QCOMPARE(script().calls.mid(start, expected.size()), expected);
    QCOMPARE(script().countOf(QStringLiteral("le_symbol.setSecurityList")), 1);
}

void tst_security_fields::withoutAnInstructionTypeNoSecurityIsOffered()
{
    construct();
    QCOMPARE(codes(editor(), "combx_instructionType"), QStringList());
    QCOMPARE(script().countOf(QStringLiteral("GetAllSymbolByTypeList")), 0);
    QCOMPARE(script().countOf(QStringLiteral("GetAllSymbolByType")), 0);
    const int start = script().calls.indexOf(QStringLiteral("le_symbol.setSymbol(\"\")"));
    QCOMPARE(script().calls.mid(start, 4),
        QStringList({ QStringLiteral("le_symbol.setSymbol(\"\")"), QStringLiteral("le_symbol.setSecurityList([])"),
            QStringLiteral("le_symbol.setSearchMode(1)"), QStringLiteral("le_symbol.setMinMatchLength(6)") }));
}

void tst_security_fields::refillingTheSecuritiesForgetsTheChosenOne()
{
    script().ruleProperty = 1;
    open();
    chooseSecurity(editor(), Stock);
    QVERIFY(!text(editor(), "la_symbolName").isEmpty());
    choose(editor(), "combx_instructionTargetType", InstructionTargetType::AmountOrder);
    QCOMPARE(field<VorSearchBox>(editor(), "le_symbol")->getSymbol(), QString());
    QCOMPARE(text(editor(), "la_symbolName"), QString());
    QCOMPARE(text(editor(), "le_exchange"), QString());

    chooseSecurity(editor(), Stock);
    choose(editor(), "combx_instructionType", BondTrading);
    QCOMPARE(field<VorSearchBox>(editor(), "le_symbol")->getSymbol(), QString());
    QCOMPARE(text(editor(), "la_symbolName"), QString());
}

void tst_security_fields::choosingNoSecurityEmptiesItsFieldsAndNothingElse()
{
    script().staticTexts.insert(
        QStringLiteral("oc_DictionaryKey_exchangeChineseName/o_Exchange_HkStockCirculation"), QStringLiteral("港股通"));
    open();
    chooseSecurity(editor(), HkStock);
    choose(editor(), "combx_priceMode", QStringLiteral("6"));
    type(editor(), "lineEdit_price1", QStringLiteral("昨收价"));
    QCOMPARE(text(editor(), "le_exchange"), QStringLiteral("港股通"));
    QVERIFY(isOffered(editor(), "label_targetQtyStep"));
    script().forget();
    const QSignalSpy query(&editor(), &AutoParamSetting::signalQuerySymbolMAInfo);
    chooseSecurity(editor(), QString());
    QCOMPARE(script().calls, QStringList(QStringLiteral("le_symbol.setSymbol(\"\")")));
    QCOMPARE(query.count(), 0);
    QCOMPARE(text(editor(), "la_symbolName"), QString());
    QCOMPARE(text(editor(), "le_exchange"), QString());
    QCOMPARE(text(editor(), "label_targetQtyStep"), QString());
    QCOMPARE(text(editor(), "label_maxEntrustQtyStep"), QString());
    QVERIFY(!isOffered(editor(), "label_targetQtyStep"));
    QVERIFY(!isOffered(editor(), "label_maxEntrustQtyStep"));
    QCOMPARE(text(editor(), "lineEdit_price1"), QStringLiteral("昨收价"));
}

void tst_security_fields::aSecurityTakesItsStepsInOrder()
{
    open();
    script().tradeDates = QList<QDate>{ QDate(2024, 5, 7) };
    chooseSecurity(editor(), Stock);
    const QStringList expected{
        QStringLiteral("le_symbol.setSymbol(600000.K_SH)"),
        QStringLiteral("GetFirstSecurityExchangeBySymbol(600000.K_SH)"),
        QStringLiteral("GetStaticCfgValue(oc_DictionaryKey_exchangeChineseName, k_Exchange_sh)"),
        QStringLiteral("GetSecuritySubTypeBySymbol(600000.K_SH)"),
        // The unit.
        QStringLiteral("GetSecurityTypeBySymbol(600000.K_SH)"),
        // The prices and the instruction modes.
        QStringLiteral("GetSecurityTypeBySymbol(600000.K_SH)"),
        QStringLiteral("lineEdit_price1.SetFunctionItems([])"),
        QStringLiteral("IsSymbolHasPriceLimit(600000.K_SH)"),
        QStringLiteral("lineEdit_price1.SetFormulaItems([昨收价, 涨停价, 跌停价])"),
        QStringLiteral("lineEdit_price2.SetFormulaItems([昨收价, 涨停价, 跌停价])"),
        QStringLiteral("GetPricePrecisionBySymbol(600000.K_SH, \"\")"),
        QStringLiteral("GetCurrentUserInstructionRuleProper(acc1, 1)"),
        // The algorithms.
        QStringLiteral("getWhiteAlgoNameList(1, tt_QtyOrder, 600000.K_SH)"),
        QStringLiteral("getBlackAlgoNameList(tt_QtyOrder)"),
        // The averages.
        QStringLiteral("signalQuerySymbolMAInfo(acc1, 600000.K_SH)"),
        // The effective period.
        QStringLiteral("GetFirstSecurityExchangeBySymbol(600000.K_SH)"),
        QStringLiteral("GetTradeDateList(k_Exchange_sh, \"\")"),
        QStringLiteral("date_effectivePeriod_Multi.SetExceptDateList([])"),
        QStringLiteral("date_effectivePeriod_Single.SetExceptDateList([])"),
        QStringLiteral("date_effectivePeriod_Multi.SetMinDate(2024-05-07)"),
        QStringLiteral("date_effectivePeriod_Multi.SetMaxDate(2024-05-07)"),
        QStringLiteral("date_effectivePeriod_Multi.SetStartEndDate(2024-05-07, 2024-05-07)"),
        QStringLiteral("date_effectivePeriod_Single.SetMinDate(2024-05-07)"),
        QStringLiteral("date_effectivePeriod_Single.SetMaxDate(2024-08-07)"),
        QStringLiteral("date_effectivePeriod_Single.SetDate(2024-05-07)"),
    };
    QCOMPARE(script().calls, expected);
}

void tst_security_fields::aSecurityRefillsTheEntrustTypesBetweenUnitAndPrices()
{
    script().addCreditAccount(QStringLiteral("acc9"));
    script().addStock(Stock);
    constructShown();
    script().forget();
    chooseSecurity(editor(), Stock);
    const QStringList calls = script().calls;
    const int unit = calls.indexOf(QStringLiteral("GetSecurityTypeBySymbol(600000.K_SH)"));
    const int firstEntrustType = calls.indexOf(script().callsOf(QStringLiteral("GetSideUnionChineseName")).value(0));
    const int prices = calls.indexOf(QStringLiteral("IsSymbolHasPriceLimit(600000.K_SH)"));
    QVERIFY(unit >= 0);
    QVERIFY(unit < firstEntrustType);
    QVERIFY(firstEntrustType < prices);
}

void tst_security_fields::aSecurityTellsAnOpenAlgorithmPanel_data()
{
    QTest::addColumn<int>("ruleProperty");
    QTest::addColumn<int>("told");
    QTest::newRow("by the security alone") << 0 << 1;
    QTest::newRow("by the instruction modes as well, where they are rebuilt under review") << 1 << 2;
}

void tst_security_fields::aSecurityTellsAnOpenAlgorithmPanel()
{
    QFETCH(int, ruleProperty);
    QFETCH(int, told);
    script().ruleProperty = ruleProperty;
    open();
    chooseSecurity(editor(), Stock);
    QCOMPARE(script().countOf(QStringLiteral("panel.ReInit")), 0);
    press(editor(), "btn_algoParamSetting");
    script().forget();
    chooseSecurity(editor(), OtherStock);
    QCOMPARE(script().countOf(QStringLiteral("panel.ReInit")), told);
    const int lists = script().calls.indexOf(script().callsOf(QStringLiteral("getBlackAlgoNameList")).value(0));
    QCOMPARE(script().calls.mid(lists + 1, 2),
        QStringList(
            { QStringLiteral("panel.ReInit()"), QStringLiteral("signalQuerySymbolMAInfo(acc1, 000001.K_SZ)") }));
}

void tst_security_fields::theExchangeIsShownByItsName_data()
{
    QTest::addColumn<QString>("symbol");
    QTest::addColumn<QString>("name");
    QTest::newRow("Shanghai") << Stock << QStringLiteral("上海");
    QTest::newRow("Shenzhen") << OtherStock << QStringLiteral("深圳");
    QTest::newRow("an exchange without a name") << HkStock << QString();
}

void tst_security_fields::theExchangeIsShownByItsName()
{
    QFETCH(QString, symbol);
    QFETCH(QString, name);
    script().staticTexts.insert(
        QStringLiteral("oc_DictionaryKey_exchangeChineseName/k_Exchange_sh"), QStringLiteral("上海"));
    script().staticTexts.insert(
        QStringLiteral("oc_DictionaryKey_exchangeChineseName/k_Exchange_sz"), QStringLiteral("深圳"));
    open();
    chooseSecurity(editor(), symbol == Stock ? OtherStock : Stock);
    chooseSecurity(editor(), symbol);
    QCOMPARE(text(editor(), "le_exchange"), name);
    QVERIFY(!isUsable(editor(), "le_exchange"));
}

void tst_security_fields::theNameOfTheSecurityIsShown()
{
    open();
    chooseSecurity(editor(), Stock);
    QCOMPARE(text(editor(), "la_symbolName"), QStringLiteral("股票600000.K_SH"));
    script().forget();
    Q_EMIT field<VorSearchBox>(editor(), "le_symbol")->selectStockNameChange(QStringLiteral("另一名称"));
    QCOMPARE(text(editor(), "la_symbolName"), QStringLiteral("另一名称"));
    QCOMPARE(script().calls, QStringList());
}

void tst_security_fields::theLotStepIsShownForHongKongConnectOnly_data()
{
    QTest::addColumn<QString>("symbol");
    QTest::addColumn<QString>("subType");
    QTest::addColumn<int>("step");
    QTest::addColumn<bool>("shown");
    QTest::addColumn<QString>("stepText");
    const QString connect = Orlo_Values::MdcSubSecurityType::HStcokCirculation;
    QTest::newRow("a Hong Kong connect stock") << HkStock << connect << 500 << true << QStringLiteral("500");
    QTest::newRow("a step of one") << HkStock << connect << 1 << true << QStringLiteral("1");
    QTest::newRow("a step that nobody knows") << HkStock << connect << 0 << true << QStringLiteral("0");
    QTest::newRow("it is the sub-type that counts, not the exchange")
        << HkStock << Kelvo_Values::MdcSubSecurityType::Ashares << 500 << false << QString();
    QTest::newRow("a mainland stock") << Stock << Kelvo_Values::MdcSubSecurityType::Ashares << 100 << false
                                      << QString();
}

void tst_security_fields::theLotStepIsShownForHongKongConnectOnly()
{
    QFETCH(QString, symbol);
    QFETCH(QString, subType);
    QFETCH(int, step);
    QFETCH(bool, shown);
    QFETCH(QString, stepText);
    open();
    script().securities[symbol].subType = subType;
    script().securities[symbol].qtyStep = step;
    chooseSecurity(editor(), symbol);
    QCOMPARE(text(editor(), "label_targetQtyStep"), stepText);
    QCOMPARE(text(editor(), "label_maxEntrustQtyStep"), stepText);
    QCOMPARE(isOffered(editor(), "label_targetQtyStep"), shown);
    QCOMPARE(isOffered(editor(), "label_maxEntrustQtyStep"), shown);
    QStringList asked;
    if (shown)
        asked.append(QStringLiteral("GetQtyStepBySymbol(%1)").arg(symbol));
    QCOMPARE(script().callsOf(QStringLiteral("GetQtyStepBySymbol")), asked);
}

void tst_security_fields::anotherSecurityTakesTheLotStepAway()
{
    open();
    chooseSecurity(editor(), HkStock);
    QCOMPARE(text(editor(), "label_targetQtyStep"), QStringLiteral("500"));
    chooseSecurity(editor(), Stock);
    QCOMPARE(text(editor(), "label_targetQtyStep"), QString());
    QCOMPARE(text(editor(), "label_maxEntrustQtyStep"), QString());
    QVERIFY(!isOffered(editor(), "label_targetQtyStep"));
    QVERIFY(!isOffered(editor(), "label_maxEntrustQtyStep"));
}

void tst_security_fields::theUnitFollowsSecurityAndTargetType_data()
{
    QTest::addColumn<QString>("symbol");
    QTest::addColumn<bool>("byAmount");
    QTest::addColumn<QString>("unit");
    QTest::newRow("a stock by quantity") << Stock << false << QStringLiteral("股");
    QTest::newRow("a bond by quantity") << Bond << false << QStringLiteral("张");
    QTest::newRow("an unknown security by quantity") << Unknown << false << QStringLiteral("股");
    QTest::newRow("a stock by amount") << Stock << true << QStringLiteral("元");
    QTest::newRow("a bond by amount") << Bond << true << QStringLiteral("元");
}

void tst_security_fields::theUnitFollowsSecurityAndTargetType()
{
    QFETCH(QString, symbol);
    QFETCH(bool, byAmount);
    QFETCH(QString, unit);
    script().ruleProperty = 1;
    open();
    if (byAmount)
        choose(editor(), "combx_instructionTargetType", InstructionTargetType::AmountOrder);
    chooseSecurity(editor(), symbol == Bond ? Stock : Bond);
    chooseSecurity(editor(), symbol);
    QCOMPARE(text(editor(), "lab_targetTotalNumUnit"), unit);
    QCOMPARE(text(editor(), "lab_entrustMaxNumUnit"), unit);
}

void tst_security_fields::theUnitStaysWithoutATargetType()
{
    open();
    chooseSecurity(editor(), Bond);
    QCOMPARE(text(editor(), "lab_targetTotalNumUnit"), QStringLiteral("张"));
    box(editor(), "combx_instructionTargetType")->setCurrentIndex(-1);
    chooseSecurity(editor(), Stock);
    QCOMPARE(text(editor(), "lab_targetTotalNumUnit"), QStringLiteral("张"));
    QCOMPARE(text(editor(), "lab_entrustMaxNumUnit"), QStringLiteral("张"));
}

void tst_security_fields::theUnitFollowsAnotherTargetTypeAtOnce()
{
    script().ruleProperty = 1;
    open();
    chooseSecurity(editor(), Bond);
    choose(editor(), "combx_instructionTargetType", InstructionTargetType::AmountOrder);
    QCOMPARE(text(editor(), "lab_targetTotalNumUnit"), QStringLiteral("元"));
    QCOMPARE(text(editor(), "lab_entrustMaxNumUnit"), QStringLiteral("元"));
    // The security is gone with the target type, and with it the unit of bonds.
    choose(editor(), "combx_instructionTargetType", InstructionTargetType::QtyOrder);
    QCOMPARE(text(editor(), "lab_targetTotalNumUnit"), QStringLiteral("股"));
    QCOMPARE(text(editor(), "lab_entrustMaxNumUnit"), QStringLiteral("股"));
}

void tst_security_fields::aSecurityAsksForItsAverages()
{
    open();
    const QSignalSpy query(&editor(), &AutoParamSetting::signalQuerySymbolMAInfo);
    chooseSecurity(editor(), Stock);
    QCOMPARE(query.count(), 1);
    QCOMPARE(query.constFirst(), QVariantList({ Account, Stock }));
    QCOMPARE(script().callsOf(QStringLiteral("signalQuerySymbolMAInfo")),
        QStringList(QStringLiteral("signalQuerySymbolMAInfo(acc1, 600000.K_SH)")));
}

void tst_security_fields::withoutAnAccountTheAveragesAreAskedForAllTheSame()
{
    script().addOrdinaryAccount(Account);
    script().addOrdinaryAccount(QStringLiteral("acc2"));
    script().addStock(Stock);
    construct();
    QCOMPARE(box(editor(), "combx_fundAccount")->currentIndex(), -1);
    const QSignalSpy query(&editor(), &AutoParamSetting::signalQuerySymbolMAInfo);
    chooseSecurity(editor(), Stock);
    QCOMPARE(query.count(), 1);
    QCOMPARE(query.constFirst(), QVariantList({ QString(), Stock }));
}

void tst_security_fields::theAveragesOfTheLastSecurityLastUntilTheAnswer()
{
    open();
    chooseSecurity(editor(), Stock);
    answer(Stock, { QStringLiteral("MA5") });
    QCOMPARE(offeredNames().last(), QStringLiteral("MA5"));
    chooseSecurity(editor(), OtherStock);
    // The names are rebuilt before the averages are forgotten, and again with the answer.
    QCOMPARE(offeredNames().last(), QStringLiteral("MA5"));
    answer(OtherStock, {}, QStringLiteral("行情不足"));
    QCOMPARE(
        offeredNames(), QStringList({ QStringLiteral("昨收价"), QStringLiteral("涨停价"), QStringLiteral("跌停价") }));
}

void tst_security_fields::anAnswerWithinTheQueryIsKept()
{
    open();
    script().onCall = [this](const ScriptCall& call) {
        if (call.operation == QLatin1String("signalQuerySymbolMAInfo"))
            answer(Stock, { QStringLiteral("MA10") });
    };
    chooseSecurity(editor(), Stock);
    script().onCall = nullptr;
    QCOMPARE(offeredNames().last(), QStringLiteral("MA10"));
    // Still there when the names are rebuilt later.
    choose(editor(), "combx_priceMode", QStringLiteral("6"));
    QCOMPARE(offeredNames().last(), QStringLiteral("MA10"));
}

void tst_security_fields::anAnswerForAnotherSecurityIsIgnored()
{
    open();
    chooseSecurity(editor(), Stock);
    const QStringList before = offeredNames();
    script().forget();
    answer(OtherStock, { QStringLiteral("MA5") });
    QCOMPARE(script().calls, QStringList());
    choose(editor(), "combx_priceMode", QStringLiteral("6"));
    QCOMPARE(offeredNames(), before);
}

void tst_security_fields::anAnswerWithAnErrorRebuildsThePricesWithoutAverages()
{
    open();
    chooseSecurity(editor(), Stock);
    script().forget();
    answer(Stock, { QStringLiteral("MA5") }, QStringLiteral("查询失败"));
    QCOMPARE(script().calls,
        QStringList({ QStringLiteral("GetSecurityTypeBySymbol(600000.K_SH)"),
            QStringLiteral("lineEdit_price1.SetFunctionItems([])"),
            QStringLiteral("IsSymbolHasPriceLimit(600000.K_SH)"),
            QStringLiteral("lineEdit_price1.SetFormulaItems([昨收价, 涨停价, 跌停价])"),
            QStringLiteral("lineEdit_price2.SetFormulaItems([昨收价, 涨停价, 跌停价])"),
            QStringLiteral("GetPricePrecisionBySymbol(600000.K_SH, \"\")") }));
    QCOMPARE(script().boxes.size(), 0);
}

void tst_security_fields::anErrorAfterAnAnswerKeepsTheAverages()
{
    open();
    chooseSecurity(editor(), Stock);
    answer(Stock, { QStringLiteral("MA5") });
    answer(Stock, {}, QStringLiteral("查询失败"));
    QCOMPARE(offeredNames().last(), QStringLiteral("MA5"));
    answer(Stock, {});
    QCOMPARE(offeredNames().last(), QStringLiteral("跌停价"));
}

void tst_security_fields::anAnswerForNoSecurityRebuildsThePrices()
{
    open();
    answer(QString(), { QStringLiteral("MA5") });
    QCOMPARE(script().countOf(QStringLiteral("lineEdit_price1.SetFormulaItems")), 1);
    QCOMPARE(script().countOf(QStringLiteral("lineEdit_price2.SetFormulaItems")), 1);
    QCOMPARE(offeredNames(), QStringList(QStringLiteral("昨收价")));
}

void tst_security_fields::anAnswerIsLogged()
{
    open();
    log().clear();
    answer(Stock, { QStringLiteral("MA5"), QStringLiteral("MA60") }, QStringLiteral("查询失败"));
    QCOMPARE(log().lines().size(), 1);
    const LogLine line = log().lines().constFirst();
    QCOMPARE(line.type, QtDebugMsg);
    QVERIFY2(
        line.text.startsWith(QStringLiteral("AutoParamSetting::slotQuerySymbolMAResponse")), qPrintable(line.text));
    for (const QString& part : { Stock, QStringLiteral("MA5"), QStringLiteral("MA60"), QStringLiteral("查询失败") })
        QVERIFY2(line.text.contains(part), qPrintable(line.text));
}

void tst_security_fields::anAnswerFromAnotherThreadArrives()
{
    open();
    chooseSecurity(editor(), Stock);
    std::thread worker([this] { answer(Stock, { QStringLiteral("MA120") }); });
    worker.join();
    QCOMPARE(offeredNames().last(), QStringLiteral("跌停价"));
    QCoreApplication::processEvents();
    QCOMPARE(offeredNames().last(), QStringLiteral("MA120"));
}

void tst_security_fields::anAnswerAfterTheEditorIsGoneIsIgnored()
{
    open();
    chooseSecurity(editor(), Stock);
    // One answer is under way when the editor goes, another comes later.
    std::thread worker([this] { answer(Stock, { QStringLiteral("MA120") }); });
    worker.join();
    destroy();
    script().forget();
    QCoreApplication::processEvents();
    answer(Stock, { QStringLiteral("MA5") });
    QCOMPARE(script().calls, QStringList());
}

void tst_security_fields::theHostMayDeleteTheEditorWhenItHearsTheQuery_data()
{
    QTest::addColumn<int>("queries");
    QTest::newRow("at once") << 1;
    QTest::newRow("after it chose another security there") << 2;
}

void tst_security_fields::theHostMayDeleteTheEditorWhenItHearsTheQuery()
{
    QFETCH(int, queries);
    open();
    const QPointer<QWidget> searchBox = field<QWidget>(editor(), "le_symbol");
    int heard = 0;
    bool boxIsLeft = false;
    connect(&editor(), &AutoParamSetting::signalQuerySymbolMAInfo, this, [&] {
        if (++heard == queries) {
            destroy();
            script().forget();
            return;
        }
        chooseSecurity(editor(), OtherStock);
        // The inner signal has returned, the outer one has not.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        boxIsLeft = !searchBox.isNull();
    });
    chooseSecurity(editor(), Stock);
    QCOMPARE(heard, queries);
    QCOMPARE(script().calls, QStringList());
    QCOMPARE(boxIsLeft, queries > 1);
    QVERIFY(!searchBox.isNull());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(searchBox.isNull());
}

void tst_security_fields::theServiceMayDeleteTheEditorWhenItHearsTheQuery()
{
    open();
    destroyDuring(QStringLiteral("signalQuerySymbolMAInfo"));
    chooseSecurity(editor(), Stock);
    QCOMPARE(script().calls, QStringList());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void tst_security_fields::theNumberInputsAreSetUp()
{
    script().addOrdinaryAccount(Account);
    construct();
    for (const char* name : { "le_targetTotalNum", "le_entrustMaxNum" }) {
        const QString object = QLatin1String(name);
        QCOMPARE(script().callsOf(object + QStringLiteral(".SetShowType")),
            QStringList(object + QStringLiteral(".SetShowType(0)")));
        QCOMPARE(script().callsOf(object + QStringLiteral(".setEmptyMode")),
            QStringList(object + QStringLiteral(".setEmptyMode(false)")));
        QCOMPARE(field<OrloDoubleSpinBox>(editor(), name)->minimum(), 0.0);
        QCOMPARE(field<OrloDoubleSpinBox>(editor(), name)->maximum(), 2000000000.0);
        QCOMPARE(field<OrloDoubleSpinBox>(editor(), name)->decimals(), 0);
    }
    QCOMPARE(script().callsOf(QStringLiteral("le_reduceHRatio.SetShowType")),
        QStringList(QStringLiteral("le_reduceHRatio.SetShowType(2)")));
    QCOMPARE(script().callsOf(QStringLiteral("le_reduceHRatio.setEmptyMode")),
        QStringList(QStringLiteral("le_reduceHRatio.setEmptyMode(true)")));
    QCOMPARE(field<OrloDoubleSpinBox>(editor(), "le_reduceHRatio")->minimum(), 0.0);
    QCOMPARE(field<OrloDoubleSpinBox>(editor(), "le_reduceHRatio")->maximum(), 1.0);
    QCOMPARE(field<OrloDoubleSpinBox>(editor(), "le_reduceHRatio")->decimals(), 4);
}

void tst_security_fields::theDecimalsFollowTheTargetType()
{
    script().ruleProperty = 1;
    open();
    const OrloDoubleSpinBox& total = *field<OrloDoubleSpinBox>(editor(), "le_targetTotalNum");
    const OrloDoubleSpinBox& daily = *field<OrloDoubleSpinBox>(editor(), "le_entrustMaxNum");
    choose(editor(), "combx_instructionTargetType", InstructionTargetType::AmountOrder);
    QCOMPARE(total.decimals(), 2);
    QCOMPARE(daily.decimals(), 2);
    box(editor(), "combx_instructionTargetType")->setCurrentIndex(-1);
    QCOMPARE(total.decimals(), 2);
    QCOMPARE(daily.decimals(), 2);
    choose(editor(), "combx_instructionTargetType", InstructionTargetType::QtyOrder);
    QCOMPARE(total.decimals(), 0);
    QCOMPARE(daily.decimals(), 0);
}

void tst_security_fields::anUnknownSecurityLeavesItsFieldsEmpty()
{
    open();
    chooseSecurity(editor(), Unknown);
    QCOMPARE(text(editor(), "la_symbolName"), QString());
    QCOMPARE(text(editor(), "le_exchange"), QString());
    QVERIFY(!isOffered(editor(), "label_targetQtyStep"));
    QCOMPARE(script().callsOf(QStringLiteral("signalQuerySymbolMAInfo")),
        QStringList(QStringLiteral("signalQuerySymbolMAInfo(acc1, 999999.K_SH)")));
    QCOMPARE(script().callsOf(QStringLiteral("GetTradeDateList")),
        QStringList(QStringLiteral("GetTradeDateList(\"\", \"\")")));
}

QTEST_MAIN(tst_security_fields)
#include "tst_security_fields.moc"
