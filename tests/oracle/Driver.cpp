#include "Driver.h"

#include "AlgoTradeLogicNew.h"
#include "AutoParamSetting.h"
#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "FormReader.h"
#include "Kelvo_Fields.h"
#include "OrloDateEdit.h"
#include "OrloDecimalLineEdit.h"
#include "OrloFormulaNormal.h"
#include "Orlo_Values.h"
#include "ParamListWidget_single.h"
#include "Script.h"
#include "TestToday.h"
#include "VorSearchBox.h"
#include <QAbstractButton>
#include <QHash>
#include <QLabel>
#include <QVBoxLayout>
#include <cstdio>

namespace oracle {

namespace {

QStringList s_warnings;

void takeMessage(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qPrintable(message));
    const bool isAboutWindows = message.startsWith(QLatin1String("This plugin does not support"));
    if (type != QtDebugMsg && type != QtInfoMsg && !isAboutWindows)
        s_warnings.append(message);
}

/// The arguments of a recorded call; lists stay one argument.
QStringList argumentsOf(const QString& call)
{
    QStringList arguments{ QString() };
    int depth = 0;
    const int begin = call.indexOf(QLatin1Char('(')) + 1;
    for (int i = begin; i < call.size() - 1; ++i) {
        const QChar character = call.at(i);
        depth += character == QLatin1Char('[') ? 1 : character == QLatin1Char(']') ? -1 : 0;
        if (depth == 0 && character == QLatin1Char(',')) {
            arguments.append(QString());
            ++i;
        } else {
            arguments.last().append(character);
        }
    }
    for (QString& argument : arguments) {
        if (argument == QLatin1String("\"\""))
            argument.clear();
    }
    return arguments;
}

QStringList listOf(const QString& argument)
{
    const bool isList = argument.startsWith(QLatin1Char('['));
    const QString inner = isList ? argument.mid(1, argument.size() - 2) : argument;
    return inner.isEmpty() ? QStringList() : inner.split(QStringLiteral(", "));
}

SymbolList symbolsFor(const World& world, const QString& call)
{
    static QHash<QString, QStringList> known;
    const auto found = known.constFind(call);
    if (found != known.cend())
        return *found;
    const QStringList arguments = argumentsOf(call);
    const bool asExpected =
        arguments.size() == 5 && arguments.at(3) == QLatin1String("false") && arguments.at(4) == QLatin1String("[]");
    const QStringList symbols = asExpected
        ? world.symbols(arguments.at(0), listOf(arguments.at(1)), listOf(arguments.at(2)))
        : QStringList{ QStringLiteral("asked wrongly: ") + call };
    known.insert(call, symbols);
    return symbols;
}

/// Sets the answer to a call that depends on its arguments, before it is given.
void answer(const World& world, const QString& call)
{
    Script& script = Script::instance();
    const auto asks = [&call](const char* operation) { return call.startsWith(QLatin1String(operation)); };
    if (asks("GetExcuteUsers("))
        script.executeUsers = world.executors(argumentsOf(call).at(0));
    else if (asks("GetForwardUsers("))
        script.forwardUsers = argumentsOf(call).at(1) == QLatin1String("0")
            ? world.forwardUsers(argumentsOf(call).at(0))
            : QStringList{ call };
    else if (asks("getWhiteAlgoNameList("))
        script.whiteAlgoNames =
            world.whiteAlgorithms(argumentsOf(call).at(0), argumentsOf(call).at(1), argumentsOf(call).at(2));
    else if (asks("getBlackAlgoNameList("))
        script.blackAlgoNames = world.blackAlgorithms(argumentsOf(call).at(0));
    else if (asks("GetPositionListByAccount("))
        script.positions = world.positions(argumentsOf(call).at(0), argumentsOf(call).at(1), argumentsOf(call).at(2));
    else if (asks("checkMarginBondConvertEnable("))
        script.bondConversionEnabled =
            world.bondConversion(argumentsOf(call).at(0), argumentsOf(call).at(1), argumentsOf(call).at(2));
    else if (asks("GetTradeDateList("))
        script.tradeDatesError = world.tradeDatesError(argumentsOf(call).at(0));
}

/// The panel takes the strategy that its base data name, with its parameters.
void takeBaseData(const QString& call)
{
    Script& script = Script::instance();
    const QString& name = AutoPlanField::BaseField::algoStrategyName;
    if (!call.startsWith(QLatin1String("panel.setBaseInfoData(")) || !script.panelBaseData.contains(name))
        return;
    script.panelHasParams = true;
    script.panelStrategy = script.panelBaseData.value(name).toString();
    script.panelParams = script.panelBaseData;
}

ScriptSecurity scripted(const Security& security)
{
    ScriptSecurity made;
    made.exchange = security.exchange;
    made.type = security.type;
    made.subType = security.subType;
    made.chineseName = security.name;
    made.qtyStep = security.step;
    made.displayFactor = security.factor;
    made.pricePrecision = security.precision;
    made.hasPriceLimit = security.hasLimits;
    made.stFlag = security.stFlag;
    made.stDescription = security.stText;
    return made;
}

tagUserAccountInfo scripted(const Account& account)
{
    tagUserAccountInfo made;
    made.tradingAccount = account.trading;
    made.fundAccount = account.fund;
    made.accountName = QStringLiteral("name of ") + account.fund;
    made.clientNo = account.client;
    made.branchNo = account.branch;
    return made;
}

bool isOutward(const QString& call)
{
    static const char* const operations[] = { "CreateStrategyWgt(", "signalQuerySymbolMAInfo(",
        "OrloAgreementSignWidget", "le_symbol.setSecurityList(", "panel.set", "panel.ReInit(", "panel.ClearParams(",
        "panel.RefreshAlgoList(", "panel.LoadStrategy(" };
    for (const char* const operation : operations) {
        if (call.startsWith(QLatin1String(operation)))
            return true;
    }
    return false;
}

QList<QDate> datesOf(const QVariant& property)
{
    QList<QDate> dates;
    for (const QVariant& date : property.toList())
        dates.append(date.toDate());
    return dates;
}

DateState read(const OrloDateEdit& edit)
{
    DateState state;
    state.start = edit.GetStartDate();
    state.end = edit.GetEndDate();
    state.date = edit.GetDate();
    state.earliest = edit.property("minDate").toDate();
    state.latest = edit.property("maxDate").toDate();
    state.excluded = datesOf(edit.property("exceptDates"));
    const QVariant isFree = edit.property("startCalendarEnabled");
    state.startIsFree = !isFree.isValid() || isFree.toBool();
    return state;
}

BoxState read(const QComboBox& box)
{
    BoxState state;
    state.current = box.currentIndex();
    for (int i = 0; i < box.count(); ++i)
        state.items.append(Item{ box.itemText(i), box.itemData(i, Qt::UserRole).toString() });
    return state;
}

NumberState read(const OrloDecimalLineEdit& edit)
{
    NumberState state;
    state.value = edit.value();
    state.decimals = edit.decimals();
    state.text = edit.GetStrValue();
    return state;
}

} // namespace

class Driver::Private {
public:
    explicit Private(const World& given)
        : world(given)
    {
    }

    const World& world;
    std::unique_ptr<QWidget> host;
    AutoParamSetting* editor = nullptr;
    QtMessageHandler previous = nullptr;
    int closes = 0;
    std::array<QWidget*, WidgetCount> widgets{};

    template <class Class> Class* at(Widget widget) const
    {
        return static_cast<Class*>(widgets.at(static_cast<std::size_t>(widget)));
    }
    void find();
    QString textOf(Widget widget) const;
    ParamListWidget_single* panel() const { return editor->findChild<ParamListWidget_single*>(); }
};

/// Finds every widget once; a widget of another class than expected would prove nothing.
void Driver::Private::find()
{
    for (int i = 0; i < WidgetCount; ++i) {
        const QByteArray name = nameOf(static_cast<Widget>(i)).toLatin1();
        QWidget*& found = widgets.at(static_cast<std::size_t>(i));
        if (i < BoxCount)
            found = field<QComboBox>(*editor, name);
        else if (i < Range)
            found = field<OrloDecimalLineEdit>(*editor, name);
        else if (i < Symbol)
            found = field<OrloDateEdit>(*editor, name);
        else if (i < AlgoButton)
            found = field<QLineEdit>(*editor, name);
        else if (i < FundAccountLabel)
            found = field<QAbstractButton>(*editor, name);
        else if (i < SymbolPlace)
            found = field<QLabel>(*editor, name);
        else
            found = field<QWidget>(*editor, name);
    }
}

QString Driver::Private::textOf(Widget widget) const
{
    if (widget < Symbol || widget >= SymbolPlace)
        return {};
    if (widget < AlgoButton)
        return at<QLineEdit>(widget)->text();
    return widget < FundAccountLabel ? at<QAbstractButton>(widget)->text() : at<QLabel>(widget)->text();
}

Driver::Driver(const World& world)
    : d(new Private(world))
{
    Script::instance().reset();
    s_warnings.clear();
    d->previous = qInstallMessageHandler(takeMessage);
    Script::instance().onCall = [&world](const QString& call) {
        answer(world, call);
        takeBaseData(call);
    };
    Script::instance().symbols = [&world](const QString& call) { return symbolsFor(world, call); };
    feed();
    d->host = std::make_unique<QWidget>();
    auto* const layout = new QVBoxLayout(d->host.get());
    d->editor = new AutoParamSetting(d->host.get());
    layout->addWidget(d->editor);
    QObject::connect(d->editor, &AutoParamSetting::signalBtnCancelClicked, d->editor, [this] { ++d->closes; });
    d->find();
    d->host->show();
}

Driver::~Driver()
{
    d->host.reset();
    qInstallMessageHandler(d->previous);
    Script::instance().reset();
}

void Driver::feed()
{
    Script& script = Script::instance();
    const World& world = d->world;
    setToday(world.today);
    script.loginAccountDetail = { { Kelvo_Fields::UserAccount::userID, QStringLiteral("user1") } };
    script.accounts.clear();
    for (const Account& account : world.accounts) {
        script.accounts.append(scripted(account));
        QMap<QString, QString> held;
        for (const QString& exchange : account.exchanges)
            held.insert(exchange, world.securityAccount(account.trading, exchange));
        script.securityAccounts.insert(account.trading, held);
        script.assetProperties.insert(
            account.trading, account.isCredit ? Orlo_Values::FundAccountType::Credit : QString());
        script.authorities.insert(account.trading, account.types);
    }
    script.ruleProperties = world.rules;
    script.unsignedClients = world.unsignedClients;
    script.staticTexts = world.configTexts();
    for (const Security& security : world.securities)
        script.securities.insert(security.symbol, scripted(security));
    for (const QString& exchange : exchanges())
        script.tradeDates.insert(exchange, world.tradeDates(exchange));
    script.generalTradeDates = world.tradeDates(QString());
    script.plans = world.plans;
    for (const QString& id : QStringList(world.plans.keys()) + QStringList{ QStringLiteral("unknown") })
        script.planInstructions.insert(id, world.instructions(id));
    script.createAnswer = script.modifyAnswer = world.serviceAnswer;
    script.strategyAliases = world.strategies();
    script.authorityAlgoNames = world.entitledAlgorithms();
    script.panelLoadAnswer = world.panelAnswer;
}

void Driver::act(const Action& action)
{
    Script& script = Script::instance();
    switch (action.kind) {
    case ChooseInBox:
        return d->at<QComboBox>(action.widget)->setCurrentIndex(action.index);
    case ChooseSecurity:
        return static_cast<VorSearchBox*>(d->at<QWidget>(Symbol))->setSymbol(action.text);
    case TypePrice1:
    case TypePrice2:
    case TypeRemark:
        return d->at<QLineEdit>(action.widget)->setText(action.text);
    case EnterTargetTotal:
    case EnterDayMax:
    case EnterRatio:
        return d->at<OrloDecimalLineEdit>(action.widget)->setValue(action.number);
    case EmptyNumber:
        return d->at<OrloDecimalLineEdit>(action.widget)->clear();
    case PickRange:
        return d->at<OrloDateEdit>(Range)->SetStartEndDate(action.start, action.end);
    case PickDate:
        return d->at<OrloDateEdit>(Single)->SetDate(action.start);
    case PressAlgorithms:
        return d->at<QAbstractButton>(AlgoButton)->click();
    case PressOk:
        script.questionAnswers = action.answers;
        d->at<QAbstractButton>(OkButton)->click();
        script.questionAnswers.clear();
        return;
    case PressCancel:
        return d->at<QAbstractButton>(CancelButton)->click();
    case AveragesArrive:
        Q_EMIT AutoPlanLogic::instance().signalQuerySymbolMAResponse(
            action.text, action.texts, action.fails ? QStringLiteral("查询失败") : QString());
        return;
    case StrategiesArrive:
        Q_EMIT AlgoTradeLogicNew::GetInstance()->sigQryAlgoStrategiesRsp({});
        return;
    case EditPlan:
        return d->editor->editPlan(action.text);
    case CopyPlan:
        return d->editor->copyPlan(action.text);
    case ResetEnable:
        return d->editor->resetEnable();
    case HideOrShow:
        return d->host->setVisible(!d->host->isVisible());
    default:
        return;
    }
}

void Driver::confirmPanel(const QString& strategy)
{
    Script& script = Script::instance();
    script.panelHasParams = true;
    script.panelStrategy = strategy;
    script.panelParams = script.panelBaseData;
    script.panelParams.insert(AutoPlanField::BaseField::algoStrategyName, strategy);
    script.panelParams.insert(QStringLiteral("rate"), QStringLiteral("0.2"));
}

FormState Driver::form() const
{
    FormState state;
    for (int i = 0; i < WidgetCount; ++i) {
        const auto widget = static_cast<Widget>(i);
        const QWidget* const real = d->at<QWidget>(widget);
        state.widgets.at(static_cast<std::size_t>(i)) =
            WidgetState{ real->isVisibleTo(d->editor), real->isEnabled(), d->textOf(widget) };
    }
    for (int i = 0; i < BoxCount; ++i)
        state.boxes.at(static_cast<std::size_t>(i)) = read(*d->at<QComboBox>(static_cast<Widget>(i)));
    for (int i = 0; i < NumberCount; ++i)
        state.numbers.at(static_cast<std::size_t>(i)) =
            read(*d->at<OrloDecimalLineEdit>(static_cast<Widget>(TargetTotal + i)));
    state.range = read(*d->at<OrloDateEdit>(Range));
    state.single = read(*d->at<OrloDateEdit>(Single));
    const auto* const price1 = static_cast<OrloFormulaNormal*>(d->at<QLineEdit>(Price1));
    const auto* const price2 = static_cast<OrloFormulaNormal*>(d->at<QLineEdit>(Price2));
    state.functions1 = price1->FunctionItems();
    state.functions2 = price2->FunctionItems();
    state.names1 = price1->FormulaItems();
    state.names2 = price2->FormulaItems();
    state.symbol = static_cast<VorSearchBox*>(d->at<QLineEdit>(Symbol))->getSymbol();
    return state;
}

PanelState Driver::panel() const
{
    const Script& script = Script::instance();
    PanelState state;
    state.exists = d->panel() != nullptr;
    state.hasParams = script.panelHasParams;
    state.strategy = script.panelStrategy;
    state.params = script.panelParams;
    state.baseData = script.panelBaseData;
    return state;
}

Effects Driver::takeEffects()
{
    Script& script = Script::instance();
    Effects effects;
    for (const ScriptBox& box : qAsConst(script.boxes)) {
        const QString parent = box.parent == d->editor ? QString() : QStringLiteral(" beside the editor");
        effects.boxes.append(box.kind + QStringLiteral(": ") + box.text + parent);
    }
    for (const QString& call : qAsConst(script.calls)) {
        if (isOutward(call))
            effects.outward.append(call);
    }
    effects.created = script.createdRecords;
    effects.modified = script.modifiedRecords;
    effects.closes = d->closes;
    effects.warnings = s_warnings;
    ParamListWidget_single* const panel = d->panel();
    effects.panelShown = panel != nullptr && panel->isVisible();
    if (panel != nullptr)
        panel->hide();
    d->closes = 0;
    s_warnings.clear();
    script.createdRecords.clear();
    script.modifiedRecords.clear();
    script.forget();
    return effects;
}

} // namespace oracle
