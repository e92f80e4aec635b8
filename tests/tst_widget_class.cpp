#include "AesStrategy.h"
#include "AlgoTradeLogicNew.h"
#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "EditorTest.h"
#include "IVorSkin.h"
#include "Kelvo_Values.h"
#include "OrloComboBox.h"
#include "OrloDateEdit.h"
#include "OrloDoubleSpinBox.h"
#include "OrloFormulaNormal.h"
#include "OrloPushButton.h"
#include "OrloSubTitleWidget.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"
#include "ParamListWidget_single.h"
#include "VorSearchBox.h"
#include <QLineEdit>
#include <QMetaMethod>
#include <QSequentialIterable>
#include <QSignalSpy>
#include <QThread>
#include <QTranslator>
#include <QtTest>
#include <algorithm>
#include <type_traits>

static_assert(std::is_convertible_v<AutoParamSetting*, QWidget*>, "the editor is a widget");
static_assert(std::is_convertible_v<AutoParamSetting*, IVorSkin*>, "the editor takes a skin");
static_assert(std::has_virtual_destructor_v<AutoParamSetting>, "the editor is deleted through its base");
static_assert(!std::has_virtual_destructor_v<IVorSkin>, "the skin interface has no virtual but loadSkin");
static_assert(std::is_constructible_v<AutoParamSetting, QWidget*>, "the editor needs its parent only");

namespace {

/// A class of a client that derives from the editor: it must link.
class ClientsEditor : public AutoParamSetting {
public:
    using AutoParamSetting::AutoParamSetting;
};

QString const translation = QStringLiteral("translated");

/// Answers every text of one context with one translation.
class OneContextTranslator : public QTranslator {
public:
    QString translate(const char* context, const char*, const char*, int) const override
    {
        return qstrcmp(context, "AutoParamSetting") == 0 ? translation : QString();
    }

    bool isEmpty() const override { return false; }
};

/// The lines that tell what is hidden.
QStringList hidden(const QStringList& steps)
{
    return steps.filter(QStringLiteral(".hide()"));
}

} // namespace

/// The class: its meta-object, its construction, its wiring, its skin and its way back to a new plan.
class WidgetClassTest : public EditorTest {
    Q_OBJECT

private Q_SLOTS:
    void theMetaObjectHasEighteenMethodsInTheirOrder_data();
    void theMetaObjectHasEighteenMethodsInTheirOrder();
    void theMetaObjectHoldsNothingElse();
    void slotsMayNotBeCalledFromOutside();
    void theSkinInterfaceFollowsTheWidget();
    void metacastFindsBothBases();
    void textsAreTranslatedInTheContextOfTheEditor();
    void aClientMayDeriveFromTheEditor();
    void anEditorMayStandWithoutAParent();
    void theParentIsTaken();

    void widgetsAreSetUpInTheirOrder();
    void fieldsAreFilledInTheirOrder();
    void rowsThatAreShownLaterAreHidden_data();
    void rowsThatAreShownLaterAreHidden();
    void otherRowsAreOffered();
    void headingsAndStylesAreSet();
    void servicesAreAskedInTheirOrderWithoutAnAccount();
    void servicesAreAskedInTheirOrderWithOneAccount();
    void servicesAreAskedInTheirOrderWithTwoAccounts();
    void instructionTypesAreComputedTwiceWithOneAccountOnly_data();
    void instructionTypesAreComputedTwiceWithOneAccountOnly();
    void theFormIsReadyForANewPlan();
    void nothingIsAnnouncedBeforeTheWiring();
    void theReductionModeIsTheOnlyOne();
    void formulasArePromptedAndLimited();
    void dateFieldsKnowTheirModesAndWeekends();

    void strategiesRefreshTheLists();
    void theAccountRebuildsTheInstructionTypes();
    void theInstructionTypeReacts();
    void theTargetTypeReacts();
    void thePlanTypeReacts();
    void theSecurityReacts();
    void theNameOfTheSecurityIsShown();
    void theTradeSideRebuildsTheEntrustTypes();
    void theEntrustTypeRebuildsTheModes();
    void thePriceTypeRebuildsTheModes();
    void thePriceModeReacts();
    void theInstructionModeShowsTheAlgorithmButton();
    void theAlgorithmButtonOpensTheParameters();
    void okValidates();
    void cancelEmitsOnceAndChangesNothing();
    void okNeverEmitsItsOwnSignal();
    void theAverageQueryGoesToTheService();
    void theAverageAnswerComesBack();
    void answersFromOtherThreadsAreQueued();
    void listsOfStrategiesCanBeQueuedAndIterated();
    void aDeletedEditorHearsNothing();

    void resettingGoesStepByStep();
    void resettingKeepsTheSideOfAReductionLocked();
    void resettingReadsThePlanTypeWhenItComesToTheSide();
    void resettingForgetsTheEditedPlan();
    void resettingKeepsValuesAndVisibility();

    void anInvalidSkinIsIgnored();
    void aSkinReplacesTheStyleSheet();
    void theSkinComesThroughItsInterface();
    void deletingTheEditorLeavesNothingBehind();
    void deletingTheEditorDeletesThePanel();
    void logLinesTellTheirPlace();
};

// --- The meta-object

void WidgetClassTest::theMetaObjectHasEighteenMethodsInTheirOrder_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("isSignal");
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<QList<QByteArray>>("names");
    const auto row = [](int index, bool isSignal, const char* signature, const QList<QByteArray>& names = {}) {
        QTest::addRow("%d is %s", index, signature) << index << isSignal << QByteArray(signature) << names;
    };
    row(0, true, "signalBtnCancelClicked()");
    row(1, true, "signalBtnOkClicked(QList<QVariantMap>)", { "dataLst" });
    row(2, true, "signalQuerySymbolMAInfo(QString,QString)", { "tradingAccount", "symbol" });
    row(3, false, "slotComboxAccountChanged()");
    row(4, false, "slotComboxInstructionTypeChanged()");
    row(5, false, "slotComboxInstructionTargetTypeChanged()");
    row(6, false, "slotComboxPlanTypeChanged()");
    row(7, false, "slotSymbolChange()");
    row(8, false, "slotSymbolNameChange(QString)", { "" });
    row(9, false, "slotComboxTradeSideChanged()");
    row(10, false, "slotComboxPriceTypeChanged()");
    row(11, false, "slotComboxEntrustTypeChanged()");
    row(12, false, "slotComboxPriceModeChanged()");
    row(13, false, "slotComboxInstructionModeChanged()");
    row(14, false, "slotBtnAlgoParamSettingClicked()");
    row(15, false, "slotBtnOkClicked()");
    row(16, false, "slotUpdateAlgoWhiteList()");
    row(17, false, "slotQuerySymbolMAResponse(QString,QStringList,QString)", { "symbol", "priceList", "failReason" });
}

void WidgetClassTest::theMetaObjectHasEighteenMethodsInTheirOrder()
{
    QFETCH(int, index);
    QFETCH(bool, isSignal);
    QFETCH(QByteArray, signature);
    QFETCH(QList<QByteArray>, names);
    const QMetaObject& meta = AutoParamSetting::staticMetaObject;
    const QMetaMethod method = meta.method(meta.methodOffset() + index);
    QCOMPARE(method.methodSignature(), signature);
    QCOMPARE(method.methodType(), isSignal ? QMetaMethod::Signal : QMetaMethod::Slot);
    QCOMPARE(method.access(), isSignal ? QMetaMethod::Public : QMetaMethod::Private);
    QCOMPARE(method.parameterNames(), names);
    QCOMPARE(method.returnType(), static_cast<int>(QMetaType::Void));
}

void WidgetClassTest::theMetaObjectHoldsNothingElse()
{
    const QMetaObject& meta = AutoParamSetting::staticMetaObject;
    QCOMPARE(meta.className(), "AutoParamSetting");
    QCOMPARE(meta.superClass(), &QWidget::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 18);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
    QCOMPARE(meta.classInfoCount(), meta.classInfoOffset());
    QCOMPARE(meta.constructorCount(), 0);
}

void WidgetClassTest::slotsMayNotBeCalledFromOutside()
{
    const QMetaObject& meta = AutoParamSetting::staticMetaObject;
    int slotCount = 0;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        if (meta.method(i).methodType() == QMetaMethod::Slot && meta.method(i).access() == QMetaMethod::Private)
            ++slotCount;
    }
    QCOMPARE(slotCount, 15);
}

void WidgetClassTest::theSkinInterfaceFollowsTheWidget()
{
    construct();
    void* const whole = &editor();
    QCOMPARE(static_cast<void*>(static_cast<QWidget*>(&editor())), whole);
    QCOMPARE(static_cast<void*>(static_cast<IVorSkin*>(&editor())),
        static_cast<void*>(static_cast<char*>(whole) + sizeof(QWidget)));
}

void WidgetClassTest::metacastFindsBothBases()
{
    construct();
    QCOMPARE(editor().qt_metacast("AutoParamSetting"), static_cast<void*>(&editor()));
    QCOMPARE(editor().qt_metacast("IVorSkin"), static_cast<void*>(static_cast<IVorSkin*>(&editor())));
    QCOMPARE(editor().qt_metacast("QWidget"), static_cast<void*>(static_cast<QWidget*>(&editor())));
    QCOMPARE(editor().qt_metacast("QObject"), static_cast<void*>(static_cast<QObject*>(&editor())));
    QCOMPARE(editor().qt_metacast("QDialog"), nullptr);
    QCOMPARE(editor().qt_metacast("autoparamsetting"), nullptr);
    QCOMPARE(editor().qt_metacast(nullptr), nullptr);
}

void WidgetClassTest::textsAreTranslatedInTheContextOfTheEditor()
{
    OneContextTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QCOMPARE(AutoParamSetting::tr("some text"), translation);
    QCOMPARE(AutoParamSetting::tr("some text", "with a remark", 2), translation);
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(AutoParamSetting::tr("some text"), QStringLiteral("some text"));
}

void WidgetClassTest::aClientMayDeriveFromTheEditor()
{
    QWidget window;
    ClientsEditor derived(&window);
    static_cast<IVorSkin*>(&derived)->loadSkin(QStringLiteral("QLabel { color: red }"));
    QCOMPARE(derived.styleSheet(), QStringLiteral("QLabel { color: red }"));
}

void WidgetClassTest::anEditorMayStandWithoutAParent()
{
    AutoParamSetting alone(nullptr);
    QVERIFY(alone.isWindow());
    QCOMPARE(alone.windowTitle(), QStringLiteral("Form"));
}

void WidgetClassTest::theParentIsTaken()
{
    QWidget window;
    AutoParamSetting child(&window);
    QCOMPARE(child.parentWidget(), &window);
    QCOMPARE(child.windowFlags(), QWidget(&window).windowFlags());
    QVERIFY(!child.isWindow());
}

// --- Construction

void WidgetClassTest::widgetsAreSetUpInTheirOrder()
{
    script().watch(true);
    construct();
    script().watch(false);
    const QStringList expected = lines(R"(
        combx_fundAccount.setSearchEnabled(true)
        le_exchange.setEnabled(false)
        btn_algoParamSetting.setStyleType(style_text)
        la_reduceHRatio.hide()
        le_reduceHRatio.hide()
        la_reduceHMode.hide()
        combx_reduceHMode.hide()
        date_effectivePeriod_Single.hide()
        la_priceType.hide()
        combx_priceType.hide()
        la_entrustType.hide()
        combx_entrustType.hide()
        btn_ok.setStyleType(style_highlight)
        btn_cancel.setStyleType(style_normal)
        subTitleWidget_basicParam.SetTitle(基本参数)
        subTitleWidget_detailParam.SetTitle(交易计划参数)
        label_targetQtyStep.hide()
        label_maxEntrustQtyStep.hide()
        GetFundAccountListByFundProp(3, 16, false, [], true))");
    QVERIFY(script().steps.size() > expected.size());
    QCOMPARE(script().steps.mid(0, expected.size()), expected);
    QCOMPARE(field<QPushButton>(editor(), "btn_algoParamSetting")->minimumWidth(), 82);
    QCOMPARE(field<QPushButton>(editor(), "btn_algoParamSetting")->maximumWidth(), 82);
}

void WidgetClassTest::fieldsAreFilledInTheirOrder()
{
    construct();
    const QStringList landmarks = lines(R"(
        combx_fundAccount.SetAccountList(
        GetCurrentSecurityAccountByTradingAccount(
        GetCurrentUserInstructionRuleProper(
        combx_planType.append(
        le_symbol.setSymbol(
        combx_tradeSide.append(
        combx_priceType.append(
        combx_priceMode.append(
        lineEdit_price1.SetFormulaItems(
        le_targetTotalNum.SetShowType(
        combx_assignTo.append(
        date_effectivePeriod_Multi.SetMode(
        combx_reduceHMode.append()");
    int from = 0;
    for (const QString& landmark : landmarks) {
        const QStringList rest = script().steps.mid(from);
        const auto found = std::find_if(
            rest.cbegin(), rest.cend(), [&landmark](const QString& step) { return step.startsWith(landmark); });
        QVERIFY2(found != rest.cend(), qPrintable(landmark));
        from += static_cast<int>(found - rest.cbegin()) + 1;
    }
}

void WidgetClassTest::rowsThatAreShownLaterAreHidden_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char* const name :
        { "la_reduceHRatio", "le_reduceHRatio", "la_reduceHMode", "combx_reduceHMode", "date_effectivePeriod_Single",
            "la_priceType", "combx_priceType", "la_entrustType", "combx_entrustType", "label_targetQtyStep",
            "label_maxEntrustQtyStep", "label_price2", "lineEdit_price2", "label_28", "btn_algoParamSetting" })
        QTest::newRow(name) << QByteArray(name);
}

void WidgetClassTest::rowsThatAreShownLaterAreHidden()
{
    QFETCH(QByteArray, name);
    constructShown();
    QVERIFY(!field<QWidget>(editor(), name.constData())->isVisible());
}

void WidgetClassTest::otherRowsAreOffered()
{
    constructShown();
    for (const char* const name : { "la_fundAccountName", "combx_fundAccount", "la_instructType",
             "combx_instructionType", "label", "combx_instructionTargetType", "la_plainType", "combx_planType",
             "la_securityId", "le_symbol", "la_symbolName", "la_exchange", "le_exchange", "la_tradeSide",
             "combx_tradeSide", "la_priceMode", "combx_priceMode", "label_price1", "lineEdit_price1", "label_27",
             "la_targetTotalNum", "le_targetTotalNum", "lab_targetTotalNumUnit", "la_entrustMaxNum", "le_entrustMaxNum",
             "lab_entrustMaxNumUnit", "la_orderMode", "combx_instructionMode", "la_assignTo", "combx_assignTo",
             "la_effectivePeriod", "date_effectivePeriod_Multi", "la_remark", "le_remark", "btn_ok", "btn_cancel" })
        QVERIFY2(field<QWidget>(editor(), name)->isVisible(), name);
}

void WidgetClassTest::headingsAndStylesAreSet()
{
    construct();
    QCOMPARE(field<OrloSubTitleWidget>(editor(), "subTitleWidget_basicParam")->Title(), QStringLiteral("基本参数"));
    QCOMPARE(
        field<OrloSubTitleWidget>(editor(), "subTitleWidget_detailParam")->Title(), QStringLiteral("交易计划参数"));
    QCOMPARE(field<OrloPushButton>(editor(), "btn_algoParamSetting")->styleType(), OrloPushButton::BtnStyleType::Text);
    QCOMPARE(field<OrloPushButton>(editor(), "btn_ok")->styleType(), OrloPushButton::BtnStyleType::Highlight);
    QCOMPARE(field<OrloPushButton>(editor(), "btn_cancel")->styleType(), OrloPushButton::BtnStyleType::Normal);
    QVERIFY(field<OrloComboBox>(editor(), "combx_fundAccount")->isSearchEnabled());
    QVERIFY(!isUsable(editor(), "le_exchange"));
    QCOMPARE(text(editor(), "label_targetQtyStep"), QString());
    QCOMPARE(text(editor(), "label_maxEntrustQtyStep"), QString());
}

void WidgetClassTest::servicesAreAskedInTheirOrderWithoutAnAccount()
{
    script().tradeDates = QList<QDate>{ QDate(2024, 5, 7), QDate(2024, 5, 9) };
    construct();
    QCOMPARE(script().calls, lines(R"(
        combx_fundAccount.setSearchEnabled(true)
        btn_algoParamSetting.setStyleType(style_text)
        btn_ok.setStyleType(style_highlight)
        btn_cancel.setStyleType(style_normal)
        subTitleWidget_basicParam.SetTitle(基本参数)
        subTitleWidget_detailParam.SetTitle(交易计划参数)
        GetFundAccountListByFundProp(3, 16, false, [], true)
        combx_fundAccount.SetAccountList([])
        GetCurrentSecurityAccountByTradingAccount("")
        GetAccountAssetPropByTradingAccount("")
        hasOrderAuthority("", 1)
        hasOrderAuthority("", 5)
        hasOrderAuthority("", 9)
        GetStaticCfgValue(InstructionTargetType, tt_QtyOrder)
        GetCurrentUserInstructionRuleProper("", "")
        le_symbol.setSymbol("")
        le_symbol.setSecurityList([])
        le_symbol.setSearchMode(1)
        le_symbol.setMinMatchLength(6)
        GetSecurityTypeBySymbol("")
        lineEdit_price1.SetFunctionItems([])
        IsSymbolHasPriceLimit("")
        lineEdit_price1.SetFormulaItems([昨收价])
        lineEdit_price2.SetFormulaItems([昨收价])
        GetCurrentUserInstructionRuleProper("", "")
        le_targetTotalNum.SetShowType(0)
        le_targetTotalNum.setEmptyMode(false)
        le_entrustMaxNum.SetShowType(0)
        le_entrustMaxNum.setEmptyMode(false)
        le_reduceHRatio.SetShowType(2)
        le_reduceHRatio.setEmptyMode(true)
        date_effectivePeriod_Multi.SetMode(1, false)
        date_effectivePeriod_Multi.SetExceptDayOfWeek([7, 6])
        date_effectivePeriod_Single.SetMode(0, false)
        date_effectivePeriod_Single.SetExceptDayOfWeek([7, 6])
        GetTradeDateList(k_Exchange_sh, "")
        date_effectivePeriod_Multi.SetExceptDateList([2024-05-08])
        date_effectivePeriod_Single.SetExceptDateList([2024-05-08])
        date_effectivePeriod_Multi.SetMinDate(2024-05-07)
        date_effectivePeriod_Multi.SetMaxDate(2024-05-09)
        date_effectivePeriod_Multi.SetStartEndDate(2024-05-07, 2024-05-07)
        date_effectivePeriod_Single.SetMinDate(2024-05-07)
        date_effectivePeriod_Single.SetMaxDate(2024-08-07)
        date_effectivePeriod_Single.SetDate(2024-05-07)
        lineEdit_price1.setMode(1)
        lineEdit_price2.setMode(1)
        GetCurrentSecurityAccountByTradingAccount("")
        GetAccountAssetPropByTradingAccount("")
        hasOrderAuthority("", 1)
        hasOrderAuthority("", 5)
        hasOrderAuthority("", 9))"));
}

void WidgetClassTest::servicesAreAskedInTheirOrderWithOneAccount()
{
    script().tradeDates = QList<QDate>{ QDate(2024, 5, 7) };
    script().addAccount(QStringLiteral("acc1"), { Kelvo_Values::Exchange::sh }, { QStringLiteral("1") });
    construct();
    QCOMPARE(script().calls, lines(R"(
        combx_fundAccount.setSearchEnabled(true)
        btn_algoParamSetting.setStyleType(style_text)
        btn_ok.setStyleType(style_highlight)
        btn_cancel.setStyleType(style_normal)
        subTitleWidget_basicParam.SetTitle(基本参数)
        subTitleWidget_detailParam.SetTitle(交易计划参数)
        GetFundAccountListByFundProp(3, 16, false, [], true)
        GetCurrentSecurityAccountByTradingAccount(acc1)
        hasOrderAuthority(acc1, 1)
        combx_fundAccount.SetAccountList([acc1])
        GetUnsignedClientNoList(o_ProtocolId_AutoPlanReduceAgree)
        GetCurrentSecurityAccountByTradingAccount(acc1)
        GetAccountAssetPropByTradingAccount(acc1)
        hasOrderAuthority(acc1, 1)
        GetStaticCfgValue(AutoPlanInstructionType, 1)
        hasOrderAuthority(acc1, 5)
        hasOrderAuthority(acc1, 9)
        GetStaticCfgValue(InstructionTargetType, tt_QtyOrder)
        GetCurrentUserInstructionRuleProper(acc1, 1)
        le_symbol.setSymbol("")
        GetAllSymbolByTypeList(k_MdcSecurityType_StockType, [k_MdcSubSecurityType_Ashares, k_MdcSubSecurityType_Gemstock, o_MdcSubSecurityType_ScienTechInnovateBoard, o_MdcSubSecurityType_BjSelectedStock], [], false, [])
        GetAllSymbolByType(k_MdcSecurityType_FundType, k_MdcSubSecurityType_TradingopenindexfundETF, "", false, [])
        GetAllSymbolByTypeList(k_MdcSecurityType_FundType, [o_MdcSubSecurityType_Reits], [.K_SH, .K_SZ], false, [])
        le_symbol.setSecurityList([])
        le_symbol.setSearchMode(1)
        le_symbol.setMinMatchLength(6)
        GetSecurityTypeBySymbol("")
        lineEdit_price1.SetFunctionItems([])
        IsSymbolHasPriceLimit("")
        lineEdit_price1.SetFormulaItems([昨收价])
        lineEdit_price2.SetFormulaItems([昨收价])
        GetCurrentUserInstructionRuleProper(acc1, 1)
        le_targetTotalNum.SetShowType(0)
        le_targetTotalNum.setEmptyMode(false)
        le_entrustMaxNum.SetShowType(0)
        le_entrustMaxNum.setEmptyMode(false)
        le_reduceHRatio.SetShowType(2)
        le_reduceHRatio.setEmptyMode(true)
        getChainKeyForTraddingAccout(acc1, 1)
        GetForwardUsers(chain-acc1-1, 0)
        date_effectivePeriod_Multi.SetMode(1, false)
        date_effectivePeriod_Multi.SetExceptDayOfWeek([7, 6])
        date_effectivePeriod_Single.SetMode(0, false)
        date_effectivePeriod_Single.SetExceptDayOfWeek([7, 6])
        GetTradeDateList(k_Exchange_sh, "")
        date_effectivePeriod_Multi.SetExceptDateList([])
        date_effectivePeriod_Single.SetExceptDateList([])
        date_effectivePeriod_Multi.SetMinDate(2024-05-07)
        date_effectivePeriod_Multi.SetMaxDate(2024-05-07)
        date_effectivePeriod_Multi.SetStartEndDate(2024-05-07, 2024-05-07)
        date_effectivePeriod_Single.SetMinDate(2024-05-07)
        date_effectivePeriod_Single.SetMaxDate(2024-08-07)
        date_effectivePeriod_Single.SetDate(2024-05-07)
        lineEdit_price1.setMode(1)
        lineEdit_price2.setMode(1)
        GetCurrentSecurityAccountByTradingAccount(acc1)
        GetAccountAssetPropByTradingAccount(acc1)
        hasOrderAuthority(acc1, 1)
        GetStaticCfgValue(AutoPlanInstructionType, 1)
        GetStaticCfgValue(InstructionTargetType, tt_QtyOrder)
        getChainKeyForTraddingAccout(acc1, 1)
        GetForwardUsers(chain-acc1-1, 0)
        le_symbol.setSymbol("")
        GetAllSymbolByTypeList(k_MdcSecurityType_StockType, [k_MdcSubSecurityType_Ashares, k_MdcSubSecurityType_Gemstock, o_MdcSubSecurityType_ScienTechInnovateBoard, o_MdcSubSecurityType_BjSelectedStock], [], false, [])
        GetAllSymbolByType(k_MdcSecurityType_FundType, k_MdcSubSecurityType_TradingopenindexfundETF, "", false, [])
        GetAllSymbolByTypeList(k_MdcSecurityType_FundType, [o_MdcSubSecurityType_Reits], [.K_SH, .K_SZ], false, [])
        le_symbol.setSecurityList([])
        le_symbol.setSearchMode(1)
        le_symbol.setMinMatchLength(6)
        GetSecurityTypeBySymbol("")
        GetCurrentUserInstructionRuleProper(acc1, 1)
        getWhiteAlgoNameList(1, tt_QtyOrder, "")
        getBlackAlgoNameList(tt_QtyOrder)
        GetCurrentUserInstructionRuleProper(acc1, 1)
        getChainKeyForTraddingAccout(acc1, 1)
        GetForwardUsers(chain-acc1-1, 0)
        le_symbol.setSymbol("")
        GetAllSymbolByTypeList(k_MdcSecurityType_StockType, [k_MdcSubSecurityType_Ashares, k_MdcSubSecurityType_Gemstock, o_MdcSubSecurityType_ScienTechInnovateBoard, o_MdcSubSecurityType_BjSelectedStock], [], false, [])
        GetAllSymbolByType(k_MdcSecurityType_FundType, k_MdcSubSecurityType_TradingopenindexfundETF, "", false, [])
        GetAllSymbolByTypeList(k_MdcSecurityType_FundType, [o_MdcSubSecurityType_Reits], [.K_SH, .K_SZ], false, [])
        le_symbol.setSecurityList([])
        le_symbol.setSearchMode(1)
        le_symbol.setMinMatchLength(6)
        GetCurrentUserInstructionRuleProper(acc1, 1)
        GetSecurityTypeBySymbol("")
        lineEdit_price1.SetFunctionItems([])
        IsSymbolHasPriceLimit("")
        lineEdit_price1.SetFormulaItems([昨收价])
        lineEdit_price2.SetFormulaItems([昨收价])
        getChainKeyForTraddingAccout(acc1, 1)
        GetForwardUsers(chain-acc1-1, 0)
        hasOrderAuthority(acc1, 5)
        hasOrderAuthority(acc1, 9))"));
}

void WidgetClassTest::servicesAreAskedInTheirOrderWithTwoAccounts()
{
    script().tradeDates = QList<QDate>{ QDate(2024, 5, 7) };
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    script().addOrdinaryAccount(QStringLiteral("acc2"));
    construct();
    QCOMPARE(script().calls, lines(R"(
        combx_fundAccount.setSearchEnabled(true)
        btn_algoParamSetting.setStyleType(style_text)
        btn_ok.setStyleType(style_highlight)
        btn_cancel.setStyleType(style_normal)
        subTitleWidget_basicParam.SetTitle(基本参数)
        subTitleWidget_detailParam.SetTitle(交易计划参数)
        GetFundAccountListByFundProp(3, 16, false, [], true)
        GetCurrentSecurityAccountByTradingAccount(acc2)
        hasOrderAuthority(acc2, 1)
        GetCurrentSecurityAccountByTradingAccount(acc1)
        hasOrderAuthority(acc1, 1)
        combx_fundAccount.SetAccountList([acc1, acc2])
        GetUnsignedClientNoList(o_ProtocolId_AutoPlanReduceAgree)
        GetCurrentSecurityAccountByTradingAccount("")
        GetAccountAssetPropByTradingAccount("")
        hasOrderAuthority("", 1)
        hasOrderAuthority("", 5)
        hasOrderAuthority("", 9)
        GetStaticCfgValue(InstructionTargetType, tt_QtyOrder)
        GetCurrentUserInstructionRuleProper("", "")
        le_symbol.setSymbol("")
        le_symbol.setSecurityList([])
        le_symbol.setSearchMode(1)
        le_symbol.setMinMatchLength(6)
        GetSecurityTypeBySymbol("")
        lineEdit_price1.SetFunctionItems([])
        IsSymbolHasPriceLimit("")
        lineEdit_price1.SetFormulaItems([昨收价])
        lineEdit_price2.SetFormulaItems([昨收价])
        GetCurrentUserInstructionRuleProper("", "")
        le_targetTotalNum.SetShowType(0)
        le_targetTotalNum.setEmptyMode(false)
        le_entrustMaxNum.SetShowType(0)
        le_entrustMaxNum.setEmptyMode(false)
        le_reduceHRatio.SetShowType(2)
        le_reduceHRatio.setEmptyMode(true)
        date_effectivePeriod_Multi.SetMode(1, false)
        date_effectivePeriod_Multi.SetExceptDayOfWeek([7, 6])
        date_effectivePeriod_Single.SetMode(0, false)
        date_effectivePeriod_Single.SetExceptDayOfWeek([7, 6])
        GetTradeDateList(k_Exchange_sh, "")
        date_effectivePeriod_Multi.SetExceptDateList([])
        date_effectivePeriod_Single.SetExceptDateList([])
        date_effectivePeriod_Multi.SetMinDate(2024-05-07)
        date_effectivePeriod_Multi.SetMaxDate(2024-05-07)
        date_effectivePeriod_Multi.SetStartEndDate(2024-05-07, 2024-05-07)
        date_effectivePeriod_Single.SetMinDate(2024-05-07)
        date_effectivePeriod_Single.SetMaxDate(2024-08-07)
        date_effectivePeriod_Single.SetDate(2024-05-07)
        lineEdit_price1.setMode(1)
        lineEdit_price2.setMode(1))"));
}

void WidgetClassTest::instructionTypesAreComputedTwiceWithOneAccountOnly_data()
{
    QTest::addColumn<int>("accounts");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<int>("times");
    QTest::newRow("no account locks the box and computes twice") << 0 << false << 2;
    QTest::newRow("one account locks the box and computes twice") << 1 << false << 2;
    QTest::newRow("two accounts leave the choice and compute once") << 2 << true << 1;
    QTest::newRow("five accounts leave the choice and compute once") << 5 << true << 1;
}

void WidgetClassTest::instructionTypesAreComputedTwiceWithOneAccountOnly()
{
    QFETCH(int, accounts);
    QFETCH(bool, enabled);
    QFETCH(int, times);
    for (int i = 0; i < accounts; ++i)
        script().addOrdinaryAccount(QStringLiteral("acc%1").arg(i));
    construct();
    QCOMPARE(isUsable(editor(), "combx_fundAccount"), enabled);
    QCOMPARE(script().countOf(QStringLiteral("GetAccountAssetPropByTradingAccount")), times);
}

void WidgetClassTest::theFormIsReadyForANewPlan()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    constructShown();
    QCOMPARE(code(editor(), "combx_fundAccount"), QStringLiteral("acc1"));
    QCOMPARE(codes(editor(), "combx_instructionType"), lines("1\n5\n9"));
    QCOMPARE(codes(editor(), "combx_instructionTargetType"), lines("tt_QtyOrder"));
    QCOMPARE(codes(editor(), "combx_planType"), lines("TW-01\nTW-02\nTW-03\nJC-01"));
    QCOMPARE(codes(editor(), "combx_tradeSide"), lines("k_side_buy\nk_side_sell"));
    QCOMPARE(codes(editor(), "combx_priceMode"), lines("1\n6\n7\n8"));
    QCOMPARE(codes(editor(), "combx_instructionMode"), lines("1"));
    QCOMPARE(texts(editor(), "combx_assignTo"), lines("默认不指定"));
    QCOMPARE(text(editor(), "la_symbolName"), QString());
    QCOMPARE(text(editor(), "lineEdit_price1"), QStringLiteral("0.00"));
    for (const char* const name : { "combx_instructionType", "combx_planType", "combx_tradeSide", "combx_priceMode",
             "combx_instructionMode", "combx_assignTo", "combx_reduceHMode" })
        QCOMPARE(box(editor(), name)->currentIndex(), 0);
    QCOMPARE(script().createdRecords.size(), 0);
    QCOMPARE(script().boxes.size(), 0);
}

void WidgetClassTest::nothingIsAnnouncedBeforeTheWiring()
{
    // The first filling happens before the wiring: with two accounts no reaction has run at all.
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    script().addOrdinaryAccount(QStringLiteral("acc2"));
    construct();
    QCOMPARE(script().countOf(QStringLiteral("getWhiteAlgoNameList")), 0);
    QCOMPARE(script().countOf(QStringLiteral("GetTradeDateList")), 1);
    QCOMPARE(script().countOf(QStringLiteral("le_symbol.setSymbol")), 1);
    QCOMPARE(box(editor(), "combx_fundAccount")->currentIndex(), -1);
    QCOMPARE(codes(editor(), "combx_instructionType"), QStringList());
    QCOMPARE(codes(editor(), "combx_planType"), lines("TW-01\nTW-02\nTW-03"));
}

void WidgetClassTest::theReductionModeIsTheOnlyOne()
{
    construct();
    QCOMPARE(codes(editor(), "combx_reduceHMode"), lines("1"));
    QCOMPARE(texts(editor(), "combx_reduceHMode"), lines("连续90天减持不超过总股本1%"));
}

void WidgetClassTest::formulasArePromptedAndLimited()
{
    construct();
    QCOMPARE(field<QLineEdit>(editor(), "lineEdit_price1")->maxLength(), 300);
    QCOMPARE(field<QLineEdit>(editor(), "lineEdit_price2")->maxLength(), 300);
    QCOMPARE(script().callsOf(QStringLiteral("lineEdit_price1.setMode")), lines("lineEdit_price1.setMode(1)"));
    QCOMPARE(script().callsOf(QStringLiteral("lineEdit_price2.setMode")), lines("lineEdit_price2.setMode(1)"));
}

void WidgetClassTest::dateFieldsKnowTheirModesAndWeekends()
{
    construct();
    const QVariantList weekend = { 7, 6 };
    const auto* const range = field<OrloDateEdit>(editor(), "date_effectivePeriod_Multi");
    const auto* const single = field<OrloDateEdit>(editor(), "date_effectivePeriod_Single");
    QCOMPARE(range->property("mode").toInt(), 1);
    QCOMPARE(range->property("withTime"), QVariant(false));
    QCOMPARE(range->property("exceptDaysOfWeek").toList(), weekend);
    QCOMPARE(single->property("mode"), QVariant(0));
    QCOMPARE(single->property("withTime"), QVariant(false));
    QCOMPARE(single->property("exceptDaysOfWeek").toList(), weekend);
}

// --- Wiring. Each reaction is seen exactly once: one connection, not two.

void WidgetClassTest::strategiesRefreshTheLists()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    script().forget();
    Q_EMIT AlgoTradeLogicNew::GetInstance()->sigQryAlgoStrategiesRsp({ AesStrategy() });
    QCOMPARE(script().calls, lines(R"(
        getWhiteAlgoNameList(1, tt_QtyOrder, "")
        getBlackAlgoNameList(tt_QtyOrder))"));
}

void WidgetClassTest::theAccountRebuildsTheInstructionTypes()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    script().addCreditAccount(QStringLiteral("acc2"));
    construct();
    script().forget();
    choose(editor(), "combx_fundAccount", QStringLiteral("acc2"));
    QCOMPARE(script().countOf(QStringLiteral("GetAccountAssetPropByTradingAccount")), 1);
    QCOMPARE(codes(editor(), "combx_instructionType"), lines("2"));
    script().forget();
    choose(editor(), "combx_fundAccount", QStringLiteral("acc1"));
    QCOMPARE(script().countOf(QStringLiteral("GetAccountAssetPropByTradingAccount")), 1);
    QCOMPARE(codes(editor(), "combx_instructionType"), lines("1\n5\n9"));
}

void WidgetClassTest::theInstructionTypeReacts()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    script().forget();
    choose(editor(), "combx_instructionType", QStringLiteral("5"));
    // Once as its own reaction's step, and once through the target type that it refills.
    QCOMPARE(script().countOf(QStringLiteral("le_symbol.setSecurityList")), 2);
    QCOMPARE(script().countOf(QStringLiteral("GetStaticCfgValue")), 1);
}

void WidgetClassTest::theTargetTypeReacts()
{
    script().ruleProperty = 1;
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    script().forget();
    choose(editor(), "combx_instructionTargetType", QStringLiteral("tt_AmountOrder"));
    QCOMPARE(script().countOf(QStringLiteral("le_symbol.setSecurityList")), 1);
    QCOMPARE(script().countOf(QStringLiteral("getBlackAlgoNameList")), 1);
    QCOMPARE(script().countOf(QStringLiteral("GetStaticCfgValue")), 0);
}

void WidgetClassTest::thePlanTypeReacts()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    script().forget();
    choose(editor(), "combx_planType", QStringLiteral("TW-03"));
    QCOMPARE(script().calls, lines(R"(
        getChainKeyForTraddingAccout(acc1, 1)
        GetForwardUsers(chain-acc1-1, 0))"));
    QCOMPARE(text(editor(), "la_entrustMaxNum"), QStringLiteral("每日计划量"));
}

void WidgetClassTest::theSecurityReacts()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    script().addStock(QStringLiteral("600000.K_SH"));
    construct();
    script().forget();
    field<VorSearchBox>(editor(), "le_symbol")->setSymbol(QStringLiteral("600000.K_SH"));
    QCOMPARE(script().countOf(QStringLiteral("GetTradeDateList")), 1);
    QCOMPARE(script().countOf(QStringLiteral("signalQuerySymbolMAInfo")), 1);
}

void WidgetClassTest::theNameOfTheSecurityIsShown()
{
    construct();
    script().forget();
    Q_EMIT field<VorSearchBox>(editor(), "le_symbol")->selectStockNameChange(QStringLiteral("浦江银行"));
    QCOMPARE(text(editor(), "la_symbolName"), QStringLiteral("浦江银行"));
    QCOMPARE(script().calls, QStringList());
}

void WidgetClassTest::theTradeSideRebuildsTheEntrustTypes()
{
    script().addCreditAccount(QStringLiteral("acc1"));
    script().addStock(QStringLiteral("600000.K_SH"));
    construct();
    field<VorSearchBox>(editor(), "le_symbol")->setSymbol(QStringLiteral("600000.K_SH"));
    script().forget();
    choose(editor(), "combx_tradeSide", Kelvo_Values::OrderSide::sell);
    QCOMPARE(script().countOf(QStringLiteral("GetSecuritySubTypeBySymbol")), 1);
    QCOMPARE(script().steps.count(QStringLiteral("combx_entrustType.clear()")), 1);
}

void WidgetClassTest::theEntrustTypeRebuildsTheModes()
{
    script().addCreditAccount(QStringLiteral("acc1"));
    script().addStock(QStringLiteral("600000.K_SH"));
    construct();
    field<VorSearchBox>(editor(), "le_symbol")->setSymbol(QStringLiteral("600000.K_SH"));
    script().forget();
    box(editor(), "combx_entrustType")->setCurrentIndex(1);
    QCOMPARE(script().calls, lines("GetCurrentUserInstructionRuleProper(acc1, 2)"));
    QCOMPARE(script().steps.count(QStringLiteral("combx_instructionMode.clear()")), 1);
}

void WidgetClassTest::thePriceTypeRebuildsTheModes()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    choose(editor(), "combx_instructionType", QStringLiteral("9"));
    script().forget();
    choose(editor(), "combx_priceType", Orlo_Values::HKTimeInForce::BeforeTrade);
    QCOMPARE(script().calls, lines("GetCurrentUserInstructionRuleProper(acc1, 9)"));
    QCOMPARE(script().steps.count(QStringLiteral("combx_instructionMode.clear()")), 1);
}

void WidgetClassTest::thePriceModeReacts()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    script().forget();
    choose(editor(), "combx_priceMode", QStringLiteral("6"));
    QCOMPARE(script().calls, lines(R"(
        GetSecurityTypeBySymbol("")
        lineEdit_price1.SetFunctionItems([max(,), min(,)])
        IsSymbolHasPriceLimit("")
        lineEdit_price1.SetFormulaItems([昨收价])
        lineEdit_price2.SetFormulaItems([昨收价])
        GetCurrentUserInstructionRuleProper(acc1, 1))"));
}

void WidgetClassTest::theInstructionModeShowsTheAlgorithmButton()
{
    script().ruleProperty = 1;
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    choose(editor(), "combx_priceMode", QStringLiteral("6"));
    QCOMPARE(codes(editor(), "combx_instructionMode"), lines("2\n3"));
    QVERIFY(!isOffered(editor(), "btn_algoParamSetting"));
    choose(editor(), "combx_instructionMode", QStringLiteral("3"));
    QVERIFY(isOffered(editor(), "btn_algoParamSetting"));
    choose(editor(), "combx_instructionMode", QStringLiteral("2"));
    QVERIFY(!isOffered(editor(), "btn_algoParamSetting"));
}

void WidgetClassTest::theAlgorithmButtonOpensTheParameters()
{
    construct();
    script().forget();
    field<QPushButton>(editor(), "btn_algoParamSetting")->click();
    QCOMPARE(script().calls, lines("ShowWarningMsgBox(未选择资金帐号！, AutoParamSetting)"));
}

void WidgetClassTest::okValidates()
{
    constructShown();
    script().forget();
    QTest::mouseClick(field<QPushButton>(editor(), "btn_ok"), Qt::LeftButton);
    QCOMPARE(script().calls, lines("ShowWarningMsgBox(未绑定资金帐号！, AutoParamSetting)"));
}

void WidgetClassTest::cancelEmitsOnceAndChangesNothing()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    constructShown();
    field<QLineEdit>(editor(), "le_remark")->setText(QStringLiteral("stays"));
    choose(editor(), "combx_planType", QStringLiteral("TW-02"));
    script().forget();
    script().watch(true);
    QSignalSpy cancelled(&editor(), &AutoParamSetting::signalBtnCancelClicked);
    QSignalSpy accepted(&editor(), &AutoParamSetting::signalBtnOkClicked);
    QTest::mouseClick(field<QPushButton>(editor(), "btn_cancel"), Qt::LeftButton);
    script().watch(false);
    QCOMPARE(cancelled.count(), 1);
    QCOMPARE(accepted.count(), 0);
    QCOMPARE(script().steps, QStringList());
    QCOMPARE(text(editor(), "le_remark"), QStringLiteral("stays"));
    QCOMPARE(code(editor(), "combx_planType"), QStringLiteral("TW-02"));
    QVERIFY(editor().isVisible());
}

void WidgetClassTest::okNeverEmitsItsOwnSignal()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    script().addStock(QStringLiteral("600000.K_SH"));
    constructShown();
    field<VorSearchBox>(editor(), "le_symbol")->setSymbol(QStringLiteral("600000.K_SH"));
    field<OrloDoubleSpinBox>(editor(), "le_targetTotalNum")->setValue(100);
    QSignalSpy cancelled(&editor(), &AutoParamSetting::signalBtnCancelClicked);
    QSignalSpy accepted(&editor(), &AutoParamSetting::signalBtnOkClicked);
    field<QPushButton>(editor(), "btn_ok")->click();
    QCOMPARE(script().createdRecords.size(), 1);
    QCOMPARE(accepted.count(), 0);
    QCOMPARE(cancelled.count(), 1);
}

void WidgetClassTest::theAverageQueryGoesToTheService()
{
    construct();
    script().forget();
    QSignalSpy forwarded(&AutoPlanLogic::instance(), &AutoPlanLogic::signalQuerySymbolMAInfo);
    Q_EMIT editor().signalQuerySymbolMAInfo(QStringLiteral("acc1"), QStringLiteral("600000.K_SH"));
    QCOMPARE(forwarded.count(), 1);
    QCOMPARE(forwarded.first(), QVariantList({ QStringLiteral("acc1"), QStringLiteral("600000.K_SH") }));
    QCOMPARE(script().calls, lines("signalQuerySymbolMAInfo(acc1, 600000.K_SH)"));
}

void WidgetClassTest::theAverageAnswerComesBack()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    script().addStock(QStringLiteral("600000.K_SH"));
    construct();
    field<VorSearchBox>(editor(), "le_symbol")->setSymbol(QStringLiteral("600000.K_SH"));
    script().forget();
    log().clear();
    Q_EMIT AutoPlanLogic::instance().signalQuerySymbolMAResponse(
        QStringLiteral("600000.K_SH"), { QStringLiteral("MA5"), QStringLiteral("MA20") }, QString());
    QCOMPARE(log().linesWith(QtDebugMsg, QStringLiteral("slotQuerySymbolMAResponse")).size(), 1);
    QCOMPARE(field<OrloFormulaNormal>(editor(), "lineEdit_price2")->FormulaItems(),
        lines("昨收价\n涨停价\n跌停价\nMA20\nMA5"));
}

namespace {

/// Runs something on a thread of its own and waits until it has ended.
void onAnotherThread(const std::function<void()>& work)
{
    const std::unique_ptr<QThread> thread(QThread::create(work));
    thread->start();
    thread->wait();
}

} // namespace

void WidgetClassTest::answersFromOtherThreadsAreQueued()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    script().forget();
    log().clear();
    Qt::HANDLE caller = nullptr;
    script().onCall = [&caller](const ScriptCall&) { caller = QThread::currentThreadId(); };
    onAnotherThread([] {
        Q_EMIT AlgoTradeLogicNew::GetInstance()->sigQryAlgoStrategiesRsp({ AesStrategy(), AesStrategy() });
        Q_EMIT AutoPlanLogic::instance().signalQuerySymbolMAResponse(
            QStringLiteral("s"), QStringList(), QStringLiteral("no closes"));
    });
    QCOMPARE(script().calls, QStringList());
    QCOMPARE(log().linesWith(QtDebugMsg, QStringLiteral("slotQuerySymbolMAResponse")).size(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(script().countOf(QStringLiteral("getWhiteAlgoNameList")), 1);
    QCOMPARE(log().linesWith(QtDebugMsg, QStringLiteral("slotQuerySymbolMAResponse")).size(), 1);
    QCOMPARE(caller, QThread::currentThreadId());
}

void WidgetClassTest::listsOfStrategiesCanBeQueuedAndIterated()
{
    construct();
    QVERIFY(QMetaType::isRegistered(QMetaType::type("AesStrategy")));
    const int list = QMetaType::type("QList<AesStrategy>");
    QVERIFY(QMetaType::isRegistered(list));
    QVERIFY(QMetaType::hasRegisteredConverterFunction(list, qMetaTypeId<QtMetaTypePrivate::QSequentialIterableImpl>()));
    const QVariant strategies = QVariant::fromValue(QList<AesStrategy>{ AesStrategy(), AesStrategy() });
    QCOMPARE(strategies.value<QSequentialIterable>().size(), 2);
}

void WidgetClassTest::aDeletedEditorHearsNothing()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    destroy();
    script().forget();
    log().clear();
    Q_EMIT AlgoTradeLogicNew::GetInstance()->sigQryAlgoStrategiesRsp({});
    Q_EMIT AutoPlanLogic::instance().signalQuerySymbolMAResponse(QString(), QStringList(), QString());
    QCOMPARE(script().calls, QStringList());
    QCOMPARE(log().lines().size(), 0);
}

// --- Back to a new plan

namespace {

QStringList lockableNames()
{
    return lines(R"(
        combx_fundAccount
        combx_instructionType
        combx_instructionTargetType
        combx_planType
        le_symbol
        combx_tradeSide
        combx_entrustType
        combx_priceType
        combx_priceMode
        lineEdit_price1
        lineEdit_price2
        le_targetTotalNum
        le_entrustMaxNum
        le_reduceHRatio
        combx_instructionMode
        combx_assignTo
        date_effectivePeriod_Single
        combx_reduceHMode
        le_remark)");
}

void lockAll(const QWidget& form)
{
    for (const QString& name : lockableNames())
        field<QWidget>(form, name.toLatin1().constData())->setEnabled(false);
}

} // namespace

void WidgetClassTest::resettingGoesStepByStep()
{
    script().tradeDates = QList<QDate>{ QDate(2024, 5, 7) };
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    script().addOrdinaryAccount(QStringLiteral("acc2"));
    construct();
    choose(editor(), "combx_fundAccount", QStringLiteral("acc1"));
    lockAll(editor());
    script().forget();
    script().watch(true);
    editor().resetEnable();
    script().watch(false);
    QCOMPARE(script().steps, lines(R"(
        combx_fundAccount.ResetEnable()
        combx_fundAccount.setEnabled(true)
        combx_instructionType.ResetEnable()
        combx_instructionType.setEnabled(true)
        combx_instructionTargetType.ResetEnable()
        combx_instructionTargetType.setEnabled(true)
        combx_planType.ResetEnable()
        combx_planType.setEnabled(true)
        le_symbol.setEnabled(true)
        combx_tradeSide.ResetEnable()
        combx_tradeSide.setEnabled(true)
        combx_entrustType.ResetEnable()
        combx_entrustType.setEnabled(true)
        combx_priceType.ResetEnable()
        combx_priceType.setEnabled(true)
        combx_priceMode.ResetEnable()
        combx_priceMode.setEnabled(true)
        lineEdit_price1.setEnabled(true)
        lineEdit_price2.setEnabled(true)
        le_targetTotalNum.setEnabled(true)
        le_entrustMaxNum.setEnabled(true)
        le_reduceHRatio.setEnabled(true)
        combx_instructionMode.ResetEnable()
        combx_instructionMode.setEnabled(true)
        combx_assignTo.ResetEnable()
        combx_assignTo.setEnabled(true)
        date_effectivePeriod_Single.setEnabled(true)
        date_effectivePeriod_Multi.SetStartCalendarEnabled(true)
        GetTradeDateList(k_Exchange_sh, "")
        date_effectivePeriod_Multi.SetExceptDateList([])
        date_effectivePeriod_Single.SetExceptDateList([])
        date_effectivePeriod_Multi.SetMinDate(2024-05-07)
        date_effectivePeriod_Multi.SetMaxDate(2024-05-07)
        date_effectivePeriod_Multi.SetStartEndDate(2024-05-07, 2024-05-07)
        date_effectivePeriod_Single.SetMinDate(2024-05-07)
        date_effectivePeriod_Single.SetMaxDate(2024-08-07)
        date_effectivePeriod_Single.SetDate(2024-05-07)
        combx_reduceHMode.setEnabled(true)
        le_remark.setEnabled(true)
        combx_priceType.clear()
        combx_priceType.append(增强限价盘, o_HKTimeInForce_InTrade)
        combx_priceType announces 增强限价盘
        GetCurrentUserInstructionRuleProper(acc1, 1)
        combx_instructionMode.clear()
        combx_instructionMode announces ""
        combx_instructionMode.append(主动管理, 1)
        combx_instructionMode announces 主动管理
        combx_priceType.append(竞价限价盘, o_HKTimeInForce_BeforeTrade)
        combx_priceMode.clear()
        combx_priceMode.append(不限价, 1)
        combx_priceMode announces 不限价
        GetSecurityTypeBySymbol("")
        lineEdit_price1.SetFunctionItems([])
        IsSymbolHasPriceLimit("")
        lineEdit_price1.SetFormulaItems([昨收价])
        lineEdit_price2.SetFormulaItems([昨收价])
        lineEdit_price1.setEnabled(false)
        GetCurrentUserInstructionRuleProper(acc1, 1)
        combx_instructionMode.clear()
        combx_instructionMode announces ""
        combx_instructionMode.append(主动管理, 1)
        combx_instructionMode announces 主动管理
        combx_priceMode.append(自定义, 6)
        combx_priceMode.append(比较值取最大, 7)
        combx_priceMode.append(比较值取最小, 8))"));
}

void WidgetClassTest::resettingKeepsTheSideOfAReductionLocked()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    choose(editor(), "combx_planType", QStringLiteral("JC-01"));
    lockAll(editor());
    field<QWidget>(editor(), "combx_tradeSide")->setEnabled(true);
    script().forget();
    editor().resetEnable();
    QVERIFY(!isUsable(editor(), "combx_tradeSide"));
    QCOMPARE(script().countOf(QStringLiteral("combx_tradeSide.ResetEnable")), 0);
    for (const QString& name : lockableNames()) {
        const bool locked = name == QLatin1String("combx_tradeSide") || name == QLatin1String("lineEdit_price1");
        QVERIFY2(isUsable(editor(), name.toLatin1().constData()) != locked, qPrintable(name));
    }
}

void WidgetClassTest::resettingReadsThePlanTypeWhenItComesToTheSide()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    script().onCall = [this](const QString& call) {
        if (call == QLatin1String("combx_planType.ResetEnable()"))
            choose(editor(), "combx_planType", QStringLiteral("JC-01"));
    };
    editor().resetEnable();
    QVERIFY(!isUsable(editor(), "combx_tradeSide"));
}

void WidgetClassTest::resettingForgetsTheEditedPlan()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    script().addStock(QStringLiteral("600000.K_SH"));
    constructShown();
    log().expectWarning(QStringLiteral("计划复制失败"));
    editor().editPlan(QStringLiteral("plan1"));
    editor().resetEnable();
    field<VorSearchBox>(editor(), "le_symbol")->setSymbol(QStringLiteral("600000.K_SH"));
    field<OrloDoubleSpinBox>(editor(), "le_targetTotalNum")->setValue(100);
    script().forget();
    field<QPushButton>(editor(), "btn_ok")->click();
    QCOMPARE(script().createdRecords.size(), 1);
    QCOMPARE(script().modifiedRecords.size(), 0);
}

void WidgetClassTest::resettingKeepsValuesAndVisibility()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    script().addStock(QStringLiteral("600000.K_SH"));
    constructShown();
    field<VorSearchBox>(editor(), "le_symbol")->setSymbol(QStringLiteral("600000.K_SH"));
    choose(editor(), "combx_planType", QStringLiteral("TW-02"));
    choose(editor(), "combx_tradeSide", Kelvo_Values::OrderSide::sell);
    field<OrloDoubleSpinBox>(editor(), "le_targetTotalNum")->setValue(700);
    field<QLineEdit>(editor(), "le_remark")->setText(QStringLiteral("stays"));
    field<QWidget>(editor(), "btn_algoParamSetting")->setEnabled(false);
    field<QWidget>(editor(), "la_remark")->hide();
    script().forget();
    script().watch(true);
    editor().resetEnable();
    script().watch(false);
    QCOMPARE(hidden(script().steps), QStringList());
    QCOMPARE(script().steps.filter(QStringLiteral(".show()")), QStringList());
    QVERIFY(!isUsable(editor(), "btn_algoParamSetting"));
    QCOMPARE(code(editor(), "combx_fundAccount"), QStringLiteral("acc1"));
    QCOMPARE(field<VorSearchBox>(editor(), "le_symbol")->getSymbol(), QStringLiteral("600000.K_SH"));
    QCOMPARE(code(editor(), "combx_planType"), QStringLiteral("TW-02"));
    QCOMPARE(code(editor(), "combx_tradeSide"), Kelvo_Values::OrderSide::sell);
    QCOMPARE(field<OrloDoubleSpinBox>(editor(), "le_targetTotalNum")->value(), 700.0);
    QCOMPARE(text(editor(), "le_remark"), QStringLiteral("stays"));
}

// --- Skin, end and log

void WidgetClassTest::anInvalidSkinIsIgnored()
{
    construct();
    editor().setStyleSheet(QStringLiteral("QLabel { color: blue }"));
    editor().loadSkin(QVariant());
    QCOMPARE(editor().styleSheet(), QStringLiteral("QLabel { color: blue }"));
}

void WidgetClassTest::aSkinReplacesTheStyleSheet()
{
    construct();
    editor().setStyleSheet(QStringLiteral("QLabel { color: blue }"));
    editor().loadSkin(QStringLiteral("QLineEdit { color: green }"));
    QCOMPARE(editor().styleSheet(), QStringLiteral("QLineEdit { color: green }"));
    editor().loadSkin(QString());
    QCOMPARE(editor().styleSheet(), QString());
}

void WidgetClassTest::theSkinComesThroughItsInterface()
{
    construct();
    auto* const skinned = static_cast<IVorSkin*>(editor().qt_metacast("IVorSkin"));
    QVERIFY(skinned != nullptr);
    skinned->loadSkin(QStringLiteral("QLabel { color: red }"));
    QCOMPARE(editor().styleSheet(), QStringLiteral("QLabel { color: red }"));
}

void WidgetClassTest::deletingTheEditorLeavesNothingBehind()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    QWidget window;
    for (int i = 0; i < 3; ++i) {
        auto* const short_lived = new AutoParamSetting(&window);
        QCOMPARE(window.findChildren<AutoParamSetting*>().size(), 1);
        delete short_lived;
        QCOMPARE(window.children().size(), 0);
    }
    QCoreApplication::processEvents();
}

void WidgetClassTest::deletingTheEditorDeletesThePanel()
{
    script().ruleProperty = 1;
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    field<QPushButton>(editor(), "btn_algoParamSetting")->click();
    const QPointer<ParamListWidget_single> panel = editor().findChild<ParamListWidget_single*>();
    QVERIFY(panel != nullptr);
    QCOMPARE(panel->parentWidget(), &editor());
    destroy();
    QVERIFY(panel == nullptr);
}

void WidgetClassTest::logLinesTellTheirPlace()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    int found = 0;
    for (const LogLine& line : log().lines()) {
        if (!line.text.startsWith(QLatin1String("AutoParamSetting::")))
            continue;
        ++found;
        QVERIFY2(line.file.endsWith(QLatin1String(".cpp")), qPrintable(line.text));
        QVERIFY2(line.line > 0, qPrintable(line.text));
        const QString function = line.text.section(QLatin1Char(' '), 0, 0);
        QVERIFY2(line.function.contains(function + QLatin1Char('(')), qPrintable(line.text + line.function));
    }
    QVERIFY(found >= 3);
}

QTEST_MAIN(WidgetClassTest)
#include "tst_widget_class.moc"
