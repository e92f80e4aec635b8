#include "AesStrategy.h"
#include "EditorTest.h"
#include "FormView.h"
#include "IVorSkin.h"
#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "OrloComboBox.h"
#include "OrloSubTitleWidget.h"
#include "Orlo_Values.h"
#include "PlanVocabulary.h"

#include <QLineEdit>
#include <QMetaMethod>
#include <QPushButton>
#include <QSequentialIterable>
#include <QSignalSpy>
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

/// A client's class that derives from the editor; it must link.
class ClientsEditor : public AutoParamSetting {
public:
    using AutoParamSetting::AutoParamSetting;
};

/// Translates every text of one context to the same text.
class OneContextTranslator : public QTranslator {
public:
    QString translate(const char* context, const char*, const char*, int) const override
    {
        return qstrcmp(context, "AutoParamSetting") == 0 ? QStringLiteral("translated") : QString();
    }

    bool isEmpty() const override { return false; }
};

/// The calls of filling the form before it is wired. Lines with a sign occur only with a selected account, which may
/// only do ordinary trading; without one, name and type of the account are empty.
QStringList filling(const QString& account)
{
    const bool isChosen = !account.isEmpty();
    QStringList calls;
    for (QString line : lines(R"(
        GetCurrentSecurityAccountByTradingAccount(ACCOUNT)
        GetAccountAssetPropByTradingAccount(ACCOUNT)
        hasOrderAuthority(ACCOUNT, 1)
        +GetStaticCfgValue(AutoPlanInstructionType, 1)
        hasOrderAuthority(ACCOUNT, 5)
        hasOrderAuthority(ACCOUNT, 9)
        GetStaticCfgValue(InstructionTargetType, tt_QtyOrder)
        GetCurrentUserInstructionRuleProper(ACCOUNT, TYPE)
        le_symbol.setSymbol("")
        +GetAllSymbolByTypeList(k_MdcSecurityType_StockType, [k_MdcSubSecurityType_Ashares, k_MdcSubSecurityType_Gemstock, o_MdcSubSecurityType_ScienTechInnovateBoard, o_MdcSubSecurityType_BjSelectedStock], [], false, [])
        +GetAllSymbolByType(k_MdcSecurityType_FundType, k_MdcSubSecurityType_TradingopenindexfundETF, "", false, [])
        +GetAllSymbolByTypeList(k_MdcSecurityType_FundType, [o_MdcSubSecurityType_Reits], [.K_SH, .K_SZ], false, [])
        le_symbol.setSecurityList([])
        le_symbol.setSearchMode(1)
        le_symbol.setMinMatchLength(6)
        GetSecurityTypeBySymbol("")
        lineEdit_price1.SetFunctionItems([])
        IsSymbolHasPriceLimit("")
        lineEdit_price1.SetFormulaItems([昨收价])
        lineEdit_price2.SetFormulaItems([昨收价])
        GetCurrentUserInstructionRuleProper(ACCOUNT, TYPE)
        le_targetTotalNum.SetShowType(0)
        le_targetTotalNum.setEmptyMode(false)
        le_entrustMaxNum.SetShowType(0)
        le_entrustMaxNum.setEmptyMode(false)
        le_reduceHRatio.SetShowType(2)
        le_reduceHRatio.setEmptyMode(true)
        +getChainKeyForTraddingAccout(ACCOUNT, 1)
        +GetForwardUsers(chain-ACCOUNT-1, 0)
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
        lineEdit_price2.setMode(1))")) {
        const bool needsAccount = line.startsWith(QLatin1Char('+'));
        if (needsAccount && !isChosen)
            continue;
        line.replace(QStringLiteral("ACCOUNT"), isChosen ? account : QStringLiteral("\"\""));
        line.replace(QStringLiteral("TYPE"), isChosen ? QStringLiteral("1") : QStringLiteral("\"\""));
        calls.append(line.mid(needsAccount ? 1 : 0));
    }
    return calls;
}

/// The fields that a reset enables, in the order of the calls.
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

/// The calls that enable them; a client's box has its own operation for it, except the reduction mode.
QStringList unlocking(const QStringList& names)
{
    QStringList steps;
    for (const QString& name : names) {
        if (name.startsWith(QLatin1String("combx_")) && name != QLatin1String("combx_reduceHMode"))
            steps.append(name + QStringLiteral(".ResetEnable()"));
        steps.append(name + QStringLiteral(".setEnabled(true)"));
    }
    return steps;
}

} // namespace

/// The class: its meta-object, construction, connections, skin and reset.
class WidgetClassTest : public EditorTest {
    Q_OBJECT

private:
    void constructWithAccount()
    {
        script().addOrdinaryAccount(Account);
        construct();
    }

private Q_SLOTS:
    // --- The meta-object

    void theMetaObjectHasEighteenMethodsAndNothingElse()
    {
        const QMetaObject& meta = AutoParamSetting::staticMetaObject;
        QStringList methods;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            const QMetaMethod method = meta.method(i);
            const bool isSignal = method.methodType() == QMetaMethod::Signal;
            QCOMPARE(method.methodType(), isSignal ? QMetaMethod::Signal : QMetaMethod::Slot);
            QCOMPARE(method.access(), isSignal ? QMetaMethod::Public : QMetaMethod::Private);
            QCOMPARE(method.returnType(), static_cast<int>(QMetaType::Void));
            methods.append(QStringLiteral("%1 %2 %3")
                               .arg(isSignal ? QStringLiteral("signal") : QStringLiteral("slot"),
                                   QString::fromLatin1(method.methodSignature()),
                                   QString::fromLatin1(method.parameterNames().join(' ')))
                               .trimmed());
        }
        QCOMPARE(methods, lines(R"(
            signal signalBtnCancelClicked()
            signal signalBtnOkClicked(QList<QVariantMap>) dataLst
            signal signalQuerySymbolMAInfo(QString,QString) tradingAccount symbol
            slot slotComboxAccountChanged()
            slot slotComboxInstructionTypeChanged()
            slot slotComboxInstructionTargetTypeChanged()
            slot slotComboxPlanTypeChanged()
            slot slotSymbolChange()
            slot slotSymbolNameChange(QString)
            slot slotComboxTradeSideChanged()
            slot slotComboxPriceTypeChanged()
            slot slotComboxEntrustTypeChanged()
            slot slotComboxPriceModeChanged()
            slot slotComboxInstructionModeChanged()
            slot slotBtnAlgoParamSettingClicked()
            slot slotBtnOkClicked()
            slot slotUpdateAlgoWhiteList()
            slot slotQuerySymbolMAResponse(QString,QStringList,QString) symbol priceList failReason)"));
        QCOMPARE(meta.className(), "AutoParamSetting");
        QCOMPARE(meta.superClass(), &QWidget::staticMetaObject);
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
        QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
        QCOMPARE(meta.classInfoCount(), meta.classInfoOffset());
        QCOMPARE(meta.constructorCount(), 0);
    }

    void theSkinInterfaceFollowsTheWidget()
    {
        construct();
        auto* const whole = static_cast<void*>(&editor());
        auto* const skin = static_cast<void*>(static_cast<IVorSkin*>(&editor()));
        QCOMPARE(static_cast<void*>(static_cast<QWidget*>(&editor())), whole);
        QCOMPARE(skin, static_cast<void*>(static_cast<char*>(whole) + sizeof(QWidget)));
        QCOMPARE(editor().qt_metacast("AutoParamSetting"), whole);
        QCOMPARE(editor().qt_metacast("IVorSkin"), skin);
        QCOMPARE(editor().qt_metacast("QWidget"), whole);
        QCOMPARE(editor().qt_metacast("QObject"), static_cast<void*>(static_cast<QObject*>(&editor())));
        for (const char* const other : { "QDialog", "autoparamsetting", static_cast<const char*>(nullptr) })
            QCOMPARE(editor().qt_metacast(other), nullptr);
    }

    void textsAreTranslatedInTheContextOfTheEditor()
    {
        OneContextTranslator translator;
        QVERIFY(QCoreApplication::installTranslator(&translator));
        QCOMPARE(AutoParamSetting::tr("some text"), QStringLiteral("translated"));
        QCOMPARE(AutoParamSetting::tr("some text", "with a remark", 2), QStringLiteral("translated"));
        QCoreApplication::removeTranslator(&translator);
        QCOMPARE(AutoParamSetting::tr("some text"), QStringLiteral("some text"));
    }

    void aClientMayDeriveFromTheEditor()
    {
        QWidget window;
        ClientsEditor derived(&window);
        static_cast<IVorSkin*>(&derived)->loadSkin(QStringLiteral("QLabel { color: red }"));
        QCOMPARE(derived.styleSheet(), QStringLiteral("QLabel { color: red }"));
    }

    void theParentIsTaken()
    {
        QWidget window;
        AutoParamSetting child(&window);
        QCOMPARE(child.parentWidget(), &window);
        QCOMPARE(child.windowFlags(), QWidget(&window).windowFlags());
        QVERIFY(!child.isWindow());
        AutoParamSetting alone(nullptr);
        QVERIFY(alone.isWindow());
        QCOMPARE(alone.windowTitle(), QStringLiteral("Form"));
    }

    // --- Construction

    void widgetsAreSetUpInTheirOrder()
    {
        const QStringList steps = stepsOf([this] { construct(); });
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
            GetFundAccountListByFundProp(3, 16, false, [], true)
            combx_fundAccount.SetAccountList([])
            combx_fundAccount.setEnabled(false))");
        QCOMPARE(steps.mid(0, expected.size()), expected);
        QVERIFY(field<OrloComboBox>(editor(), "combx_fundAccount")->isSearchEnabled());
        QCOMPARE(
            field<OrloSubTitleWidget>(editor(), "subTitleWidget_detailParam")->Title(), QStringLiteral("交易计划参数"));
        QCOMPARE(field<QPushButton>(editor(), "btn_algoParamSetting")->minimumWidth(), 82);
        QCOMPARE(field<QPushButton>(editor(), "btn_algoParamSetting")->maximumWidth(), 82);
        for (const char* const name : { "lineEdit_price1", "lineEdit_price2" })
            QCOMPARE(field<QLineEdit>(editor(), name)->maxLength(), 300);
    }

    void fieldsAreFilledInTheirOrder()
    {
        construct();
        const QStringList landmarks = lines(R"(
            combx_fundAccount.SetAccountList(
            GetCurrentSecurityAccountByTradingAccount(
            combx_instructionTargetType.append(
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
        QStringList reached;
        for (const QString& step : qAsConst(script().steps)) {
            const int next = reached.size();
            if (next < landmarks.size() && step.startsWith(landmarks.at(next)))
                reached.append(landmarks.at(next));
        }
        QCOMPARE(reached, landmarks);
    }

    void servicesAreAskedInTheirOrder_data()
    {
        QTest::addColumn<int>("accounts");
        QTest::newRow("without an account: the empty list is handed over, the types are computed twice") << 0;
        QTest::newRow("with one: it is chosen, and its types cascade when all is wired") << 1;
        QTest::newRow("with two: none is chosen, nothing reacts") << 2;
    }

    void servicesAreAskedInTheirOrder()
    {
        QFETCH(int, accounts);
        script().tradeDates = QList<QDate>{ QDate(2024, 5, 7), QDate(2024, 5, 9) };
        for (const QString& account : { Account, OtherAccount }) {
            if (script().accounts.size() < accounts)
                script().addAccount(account, { Kelvo_Values::Exchange::sh }, { AutoPlanInstructionType::Ordinary });
        }
        construct();
        QStringList expected;
        // From the last to the first, until an authority fits.
        for (int i = accounts - 1; i >= 0; --i)
            expected += lines(R"(
                GetCurrentSecurityAccountByTradingAccount(NAME)
                hasOrderAuthority(NAME, 1))")
                            .replaceInStrings(QStringLiteral("NAME"), script().accounts.at(i).tradingAccount);
        const char* const lists[] = { "", "acc1", "acc1, acc2" };
        expected.append(QStringLiteral("combx_fundAccount.SetAccountList([%1])").arg(QLatin1String(lists[accounts])));
        if (accounts > 0)
            expected.append(QStringLiteral("GetUnsignedClientNoList(o_ProtocolId_AutoPlanReduceAgree)"));
        expected += filling(accounts == 1 ? Account : QString());
        const QString first = QStringLiteral("GetFundAccountListByFundProp(3, 16, false, [], true)");
        const QStringList calls = script().calls.mid(script().calls.indexOf(first) + 1);
        QCOMPARE(calls.mid(0, expected.size()), expected);
        QCOMPARE(isUsable(editor(), "combx_fundAccount"), accounts == 2);
        // A locked box emits no signal, so the editor checks its account again.
        script().forget();
        if (accounts < 2)
            callSlot("slotComboxAccountChanged");
        QCOMPARE(calls.mid(expected.size()), script().calls);
    }

    // --- Connections. Each reaction occurs exactly once: there is one connection, not two.

    void eachChoiceReactsOnce_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("operation");
        QTest::addColumn<int>("count");
        const auto row = [](const char* name, const QString& code, const char* operation, int count) {
            QTest::newRow(name) << QByteArray(name) << code << QString::fromLatin1(operation) << count;
        };
        row("combx_fundAccount", OtherAccount, "GetAccountAssetPropByTradingAccount", 1);
        // Once as a step of its own slot, and once through the target type that it refills.
        row("combx_instructionType", AutoPlanInstructionType::Bond, "le_symbol.setSecurityList", 2);
        row("combx_instructionTargetType", InstructionTargetType::AmountOrder, "le_symbol.setSecurityList", 1);
        row("combx_planType", AutoPlanTemplate::SameElements, "GetForwardUsers", 1);
        row("combx_priceMode", AutoPlanPriceModel::Custom, "lineEdit_price1.SetFunctionItems", 1);
        row("combx_priceType", Orlo_Values::HKTimeInForce::BeforeTrade, "GetCurrentUserInstructionRuleProper", 1);
    }

    void eachChoiceReactsOnce()
    {
        QFETCH(QByteArray, name);
        QFETCH(QString, code);
        QFETCH(QString, operation);
        QFETCH(int, count);
        script().ruleProperty = AutoPlanRuleProperty::Review;
        script().addOrdinaryAccount(Account);
        script().addOrdinaryAccount(OtherAccount);
        construct();
        choose(editor(), "combx_fundAccount", Account);
        script().forget();
        choose(editor(), name.constData(), code);
        QCOMPARE(script().countOf(operation), count);
    }

    void marginChoicesReactOnce()
    {
        script().addCreditAccount(Account);
        script().addStock(Stock);
        construct();
        chooseSecurity(editor(), Stock);
        script().forget();
        choose(editor(), "combx_tradeSide", Kelvo_Values::OrderSide::sell);
        QCOMPARE(script().countOf(QStringLiteral("GetSecuritySubTypeBySymbol")), 1);
        script().forget();
        box(editor(), "combx_entrustType")->setCurrentIndex(1);
        QCOMPARE(script().calls, lines("GetCurrentUserInstructionRuleProper(acc1, 2)"));
        QCOMPARE(script().steps.count(QStringLiteral("combx_instructionMode.clear()")), 1);
    }

    void cancelEmitsOnceAndChangesNothing()
    {
        script().addOrdinaryAccount(Account);
        constructShown();
        type(editor(), "le_remark", QStringLiteral("stays"));
        const QSignalSpy cancelled(&editor(), &AutoParamSetting::signalBtnCancelClicked);
        const QSignalSpy accepted(&editor(), &AutoParamSetting::signalBtnOkClicked);
        const QStringList steps =
            stepsOf([this] { QTest::mouseClick(field<QPushButton>(editor(), "btn_cancel"), Qt::LeftButton); });
        QCOMPARE(steps, QStringList());
        QCOMPARE(cancelled.count(), 1);
        QCOMPARE(accepted.count(), 0);
        QCOMPARE(text(editor(), "le_remark"), QStringLiteral("stays"));
        QVERIFY(editor().isVisible());
    }

    void listsOfStrategiesCanBeQueuedAndIterated()
    {
        construct();
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
        QVERIFY(QMetaType::isRegistered(QMetaType::type("AesStrategy")));
        const int list = QMetaType::type("QList<AesStrategy>");
        QVERIFY(QMetaType::isRegistered(list));
        QVERIFY(
            QMetaType::hasRegisteredConverterFunction(list, qMetaTypeId<QtMetaTypePrivate::QSequentialIterableImpl>()));
#else
        QVERIFY(QMetaType::fromName("AesStrategy").isRegistered());
        QVERIFY(QMetaType::fromName("QList<AesStrategy>").isRegistered());
#endif
        const QVariant strategies = QVariant::fromValue(QList<AesStrategy>{ AesStrategy(), AesStrategy() });
        QCOMPARE(strategies.value<QSequentialIterable>().size(), 2);
    }

    // --- Reset

    void resettingGoesStepByStep()
    {
        script().tradeDates = QList<QDate>{ QDate(2024, 5, 7) };
        script().addOrdinaryAccount(OtherAccount);
        constructWithAccount();
        choose(editor(), "combx_fundAccount", Account);
        lockAll(editor());
        const QStringList names = lockableNames();
        const QStringList steps = stepsOf([this] { editor().resetEnable(); });
        QCOMPARE(steps,
            unlocking(names.mid(0, 17)) + lines(R"(
            date_effectivePeriod_Multi.SetStartCalendarEnabled(true)
            GetTradeDateList(k_Exchange_sh, "")
            date_effectivePeriod_Multi.SetExceptDateList([])
            date_effectivePeriod_Single.SetExceptDateList([])
            date_effectivePeriod_Multi.SetMinDate(2024-05-07)
            date_effectivePeriod_Multi.SetMaxDate(2024-05-07)
            date_effectivePeriod_Multi.SetStartEndDate(2024-05-07, 2024-05-07)
            date_effectivePeriod_Single.SetMinDate(2024-05-07)
            date_effectivePeriod_Single.SetMaxDate(2024-08-07)
            date_effectivePeriod_Single.SetDate(2024-05-07))")
                + unlocking(names.mid(17)) + lines(R"(
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

    void resettingKeepsTheSideOfAReductionLocked()
    {
        constructWithAccount();
        choose(editor(), "combx_planType", AutoPlanTemplate::ReduceHoldings);
        lockAll(editor());
        field<QWidget>(editor(), "combx_tradeSide")->setEnabled(true);
        script().forget();
        editor().resetEnable();
        QCOMPARE(script().countOf(QStringLiteral("combx_tradeSide.ResetEnable")), 0);
        for (const QString& name : lockableNames()) {
            const bool locked = name == QLatin1String("combx_tradeSide") || name == QLatin1String("lineEdit_price1");
            QVERIFY2(isUsable(editor(), name.toLatin1().constData()) != locked, qPrintable(name));
        }
    }

    void resettingReadsThePlanTypeWhenItComesToTheSide()
    {
        script().addOrdinaryAccount(Account);
        construct();
        script().onCall = [this](const ScriptCall& call) {
            if (call.operation == QLatin1String("combx_planType.ResetEnable"))
                choose(editor(), "combx_planType", AutoPlanTemplate::ReduceHoldings);
        };
        editor().resetEnable();
        QVERIFY(!isUsable(editor(), "combx_tradeSide"));
    }

    void resettingKeepsValuesAndVisibility()
    {
        openSampleMarket();
        constructShown();
        PlanSample plan = PlanSample().withPlanType(AutoPlanTemplate::AverageQty);
        plan.side = Kelvo_Values::OrderSide::sell;
        plan.remark = QStringLiteral("stays");
        fillForm(editor(), plan.withPriceMode(AutoPlanPriceModel::NoLimit));
        field<QWidget>(editor(), "btn_algoParamSetting")->setEnabled(false);
        field<QWidget>(editor(), "la_remark")->hide();
        const model::FormView view(editor());
        model::FormState expected = view.state();
        editor().resetEnable();
        // The dates are set again.
        expected.range.start = expected.range.end = QDate(2024, 5, 7);
        QCOMPARE(model::differences(expected, view.state()), QStringList());
    }

    // --- Skin, end and log

    void aSkinReplacesTheStyleSheet()
    {
        construct();
        editor().setStyleSheet(QStringLiteral("QLabel { color: blue }"));
        editor().loadSkin(QVariant());
        QCOMPARE(editor().styleSheet(), QStringLiteral("QLabel { color: blue }"));
        auto* const skinned = static_cast<IVorSkin*>(editor().qt_metacast("IVorSkin"));
        for (const QString& skin : { QStringLiteral("QLineEdit { color: green }"), QString() }) {
            skinned->loadSkin(skin);
            QCOMPARE(editor().styleSheet(), skin);
        }
    }

    void deletingTheEditorLeavesNothingBehind()
    {
        script().addOrdinaryAccount(Account);
        QWidget window;
        for (int i = 0; i < 3; ++i) {
            auto* const shortLived = new AutoParamSetting(&window);
            QCOMPARE(window.findChildren<AutoParamSetting*>().size(), 1);
            delete shortLived;
            QCOMPARE(window.children().size(), 0);
        }
        QCoreApplication::processEvents();
    }

    void logLinesNameTheirSource()
    {
        constructWithAccount();
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
};

QTEST_MAIN(WidgetClassTest)
#include "tst_widget_class.moc"
