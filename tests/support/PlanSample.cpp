#include "PlanSample.h"

#include "Algo_Fields.h"
#include "Algo_Values.h"
#include "AutoPlanField.h"
#include "EditorForm.h"
#include "InstructionBusinessDataInterface.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloConstants.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"
#include "ParamListWidget_single.h"
#include "Script.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>

namespace {

namespace Base = AutoPlanField::BaseField;
namespace Content = Algo_Fields::AlgoInstContentInfo;

const QString SampleStrategy = QStringLiteral("TWAP");

QMap<QString, QString> priceModesByMode()
{
    return { { AutoPlanInstMode::ActiveManage, AutoPlanPriceModel::Custom },
        { AutoPlanInstMode::NormalTradeReview, AutoPlanPriceModel::CompareMax },
        { AutoPlanInstMode::AlgoTradeReview, AutoPlanPriceModel::CompareMin } };
}

QString orBuy(const QString& side)
{
    return side.isEmpty() ? Kelvo_Values::OrderSide::buy : side;
}

QString orQuantity(const QString& targetType)
{
    return targetType.isEmpty() ? InstructionTargetType::QtyOrder : targetType;
}

QString dateText(const QDate& date)
{
    return QLocale::c().toString(date, OrloConstants::DateTimeFormatString::STD_DATE_FORMAT);
}

int factorOf(const PlanSample& plan)
{
    return Script::instance().securities.value(plan.symbol).displayFactor;
}

QString storedText(double displayed, int factor)
{
    return QString::number(static_cast<int>(displayed) / factor);
}

FieldMap algorithmParameters(const PlanSample& plan)
{
    const bool buys = orBuy(plan.side) == Kelvo_Values::OrderSide::buy;
    return {
        { Content::TradingAccount, plan.account },
        { Content::Symbol, plan.symbol },
        { Content::OrderSide, buys ? Algo_Values::AlgoOrderSide::BuyValue : Algo_Values::AlgoOrderSide::SellValue },
        { Content::EntrustProp, QString() },
        { Base::algoStrategyName, SampleStrategy },
        { QStringLiteral("rate"), QStringLiteral("0.2") },
    };
}

void fillTypes(const AutoParamSetting& editor, const PlanSample& plan)
{
    choose(editor, "combx_fundAccount", plan.account);
    choose(editor, "combx_instructionType", plan.instructionType);
    choose(editor, "combx_instructionTargetType", orQuantity(plan.targetType));
    choose(editor, "combx_planType", plan.planType);
    chooseSecurity(editor, plan.symbol);
    choose(editor, "combx_tradeSide", orBuy(plan.side));
    if (!plan.entrustType.isEmpty())
        choose(editor, "combx_entrustType", plan.entrustType);
    if (!plan.priceType.isEmpty())
        choose(editor, "combx_priceType", plan.priceType);
}

void fillPrice(const AutoParamSetting& editor, const PlanSample& plan)
{
    choose(editor, "combx_priceMode", plan.priceMode);
    if (plan.priceMode == AutoPlanPriceModel::NoLimit)
        return;
    type(editor, "lineEdit_price1", plan.price1);
    type(editor, "lineEdit_price2", plan.price2);
}

void fillQuantities(const AutoParamSetting& editor, const PlanSample& plan)
{
    enter(editor, "le_targetTotalNum", plan.target);
    if (plan.reducesHoldings())
        enter(editor, "le_reduceHRatio", plan.ratio);
    else
        enter(editor, "le_entrustMaxNum", plan.daily);
}

void fillAlgorithm(const AutoParamSetting& editor, const PlanSample& plan)
{
    press(editor, "btn_algoParamSetting");
    field<ParamListWidget_single>(editor, "")->hide();
    Script& script = Script::instance();
    script.panelHasParams = true;
    script.panelStrategy = SampleStrategy;
    script.panelParams = algorithmParameters(plan);
}

void fillDates(const AutoParamSetting& editor, const PlanSample& plan)
{
    if (plan.reducesHoldings())
        pickDate(editor, plan.begin);
    else
        pickRange(editor, plan.begin, plan.end);
}

void insertOrderTypes(FieldMap& other, const PlanSample& plan)
{
    if (!plan.priceType.isEmpty())
        other.insert(Kelvo_Fields::Security::timeInForce, plan.priceType);
    if (plan.entrustType.isEmpty())
        return;
    const int number = static_cast<int>(InstructionBusinessDataInterface::transSideUnion2Enum(plan.entrustType));
    other.insert(AutoPlanFieldId::MarginInstructionSideType, QString::number(number));
}

void insertAssignee(FieldMap& record, const PlanSample& plan)
{
    if (plan.reducesHoldings())
        record.insert(Base::executeUser, plan.assignee);
    else if (!plan.assignee.isEmpty())
        record.insert(Base::expectedUser, plan.assignee);
}

void keepParameters(Script& script)
{
    script.panelParams = script.panelBaseData;
    script.panelHasParams = true;
    script.panelStrategy = SampleStrategy;
}

} // namespace

bool PlanSample::isByAmount() const
{
    return targetType == InstructionTargetType::AmountOrder;
}

PlanSample PlanSample::withPlanType(const QString& code) const
{
    PlanSample plan = *this;
    plan.planType = code;
    return plan;
}

PlanSample PlanSample::withMode(const QString& code) const
{
    PlanSample plan = *this;
    plan.mode = code;
    return plan;
}

PlanSample PlanSample::withPriceMode(const QString& code) const
{
    PlanSample plan = *this;
    plan.priceMode = code;
    if (code == QLatin1String("1"))
        plan.price1 = QStringLiteral("0.00");
    if (code == QLatin1String("7") || code == QLatin1String("8"))
        plan.price2 = QStringLiteral("涨停价");
    return plan;
}

PlanSample PlanSample::ofType(const QString& instructionType)
{
    PlanSample plan;
    plan.instructionType = instructionType;
    if (instructionType == AutoPlanInstructionType::Credit) {
        plan.account = QStringLiteral("credit");
        plan.side = Kelvo_Values::OrderSide::sell;
        plan.entrustType = Orlo_Values::SideUnion::marginSell;
    } else if (instructionType == AutoPlanInstructionType::Bond) {
        plan.symbol = QStringLiteral("113001.K_SH");
    } else if (instructionType == AutoPlanInstructionType::HkConnect) {
        plan.symbol = QStringLiteral("00700.HK");
        plan.side = Kelvo_Values::OrderSide::sell;
        plan.priceType = Orlo_Values::HKTimeInForce::InTrade;
        plan.daily = 500;
    }
    return plan;
}

PlanSample PlanSample::reduction()
{
    PlanSample plan;
    plan.planType = AutoPlanTemplate::ReduceHoldings;
    plan.side = Kelvo_Values::OrderSide::sell;
    plan.assignee = QStringLiteral("执行甲");
    return plan;
}

PlanSample PlanKind::sample() const
{
    PlanSample plan = PlanSample::ofType(instructionType);
    plan.planType = planType;
    plan.targetType = targetType;
    plan.mode = mode;
    plan = plan.withPriceMode(priceModesByMode().value(mode));
    plan.assignee = plan.reducesHoldings() ? QStringLiteral("执行甲") : QStringLiteral("甲");
    plan.remark = QStringLiteral("备注甲");
    if (plan.reducesHoldings())
        plan.side = Kelvo_Values::OrderSide::sell;
    if (plan.isByAmount()) {
        plan.target = 250000;
        plan.daily = 50000;
    }
    if (!plan.priceType.isEmpty() && mode == AutoPlanInstMode::ActiveManage)
        plan.priceType = Orlo_Values::HKTimeInForce::BeforeTrade;
    if (started)
        plan.begin = QDate(2024, 5, 2);
    return plan;
}

QString PlanKind::sentence() const
{
    return QStringLiteral("%1 of type %2 by %3 in mode %4 under rule %5, %6")
        .arg(planType, instructionType,
            targetType == InstructionTargetType::AmountOrder ? QStringLiteral("amount") : QStringLiteral("quantity"),
            mode)
        .arg(ruleProperty)
        .arg(started ? QStringLiteral("started") : QStringLiteral("not started"));
}

QList<PlanKind> PlanKind::all()
{
    using namespace AutoPlanTemplate;
    using namespace AutoPlanInstructionType;
    using namespace AutoPlanInstMode;
    using namespace AutoPlanRuleProperty;
    QList<PlanKind> kinds;
    for (const QString& planType : { CumulativeQty, AverageQty, SameElements, ReduceHoldings })
        for (const QString& type : { Ordinary, Credit, Bond, HkConnect })
            for (const QString& target : { InstructionTargetType::QtyOrder, InstructionTargetType::AmountOrder })
                for (const QString& mode : { ActiveManage, NormalTradeReview, AlgoTradeReview })
                    for (const int rule : { NoReview, Review })
                        for (const bool started : { false, true })
                            kinds.append(PlanKind{ planType, type, target, mode, rule, started });
    return kinds;
}

void openSampleMarket()
{
    Script& script = Script::instance();
    script.addOrdinaryAccount(QStringLiteral("acc1"));
    script.addOrdinaryAccount(QStringLiteral("acc2"));
    script.addCreditAccount(QStringLiteral("credit"));
    script.loginAccountDetail = { { Kelvo_Fields::UserAccount::userID, QStringLiteral("trader") } };
    script.forwardUsers = QStringList{ QStringLiteral("甲"), QStringLiteral("乙") };
    script.executeUsers = QStringList{ QStringLiteral("执行甲"), QStringLiteral("执行乙") };
    script.addStock(QStringLiteral("600000.K_SH"));
    script.addBond(QStringLiteral("113001.K_SH"), 10);
    script.addHkStock(QStringLiteral("00700.HK"), 500);
    script.positions = QList<FieldMap>{ { { Kelvo_Fields::Security::tradeableQty, 1000000 } } };
}

void fillForm(const AutoParamSetting& editor, const PlanSample& plan)
{
    fillTypes(editor, plan);
    fillPrice(editor, plan);
    fillQuantities(editor, plan);
    choose(editor, "combx_instructionMode", plan.mode);
    if (plan.mode == AutoPlanInstMode::AlgoTradeReview)
        fillAlgorithm(editor, plan);
    if (!plan.assignee.isEmpty())
        chooseText(editor, "combx_assignTo", plan.assignee);
    fillDates(editor, plan);
    type(editor, "le_remark", plan.remark);
}

FieldMap otherParamOf(const PlanSample& plan)
{
    FieldMap other;
    if (plan.isByAmount()) {
        other.insert(AutoPlanFieldId::TargetType, plan.targetType);
        other.insert(Base::tradeAmount, QString::number(plan.target, 'f', 2));
        other.insert(Base::dayMaxTradeAmount, QString::number(plan.daily, 'f', 2));
    }
    if (!plan.reducesHoldings())
        other.insert(AutoPlanField::Progress::CurrentQty, storedText(plan.daily, factorOf(plan)));
    if (plan.mode == AutoPlanInstMode::AlgoTradeReview) {
        other.insert(Base::algoParam, algorithmParameters(plan));
        other.insert(Base::algoStrategyName, SampleStrategy);
    }
    other.insert(Base::securitySubType, Script::instance().securities.value(plan.symbol).subType);
    if (plan.reducesHoldings()) {
        other.insert(Base::JCRatio, QString::number(plan.ratio));
        other.insert(Base::JCModel, QStringLiteral("1"));
    }
    insertOrderTypes(other, plan);
    return other;
}

FieldMap recordOf(const PlanSample& plan)
{
    const ScriptSecurity security = Script::instance().securities.value(plan.symbol);
    FieldMap record = {
        { Kelvo_Fields::UserAccount::userID, QStringLiteral("trader") },
        { Orlo_Fields::AutoPlan::templateCode, plan.planType },
        { Orlo_Fields::AutoPlan::subType, plan.instructionType },
        { Kelvo_Fields::UserAccount::tradingAccount, plan.account },
        { AutoPlanFieldId::Account10112, QStringLiteral("B-") + plan.account },
        { Kelvo_Fields::Security::symbol, plan.symbol },
        { Kelvo_Fields::UserAccount::securityExchange, security.exchange },
        { Kelvo_Fields::UserAccount::securityAccount,
            Script::instance().securityAccount(plan.account, security.exchange) },
        { Base::orderSide, orBuy(plan.side) },
        { Base::priceModel, plan.priceMode },
        { Base::priceFormula1, plan.price1 },
        { Base::totalQty, storedText(plan.target, factorOf(plan)) },
        { Base::InstMode, plan.mode },
        { Base::beginDate, dateText(plan.begin) },
        { Base::endDate, dateText(plan.reducesHoldings() ? plan.begin.addYears(100) : plan.end) },
    };
    if (plan.priceMode == AutoPlanPriceModel::NoLimit)
        record.insert(Base::priceFixed, plan.price1);
    if (plan.priceMode == AutoPlanPriceModel::CompareMax || plan.priceMode == AutoPlanPriceModel::CompareMin)
        record.insert(Base::priceFormula2, plan.price2);
    insertAssignee(record, plan);
    if (!plan.remark.isEmpty())
        record.insert(Base::remark, plan.remark);
    return withOtherParam(record, otherParamOf(plan));
}

FieldMap withOtherParam(const FieldMap& record, const FieldMap& other)
{
    FieldMap changed = record;
    const QByteArray json = QJsonDocument(QJsonObject::fromVariantMap(other)).toJson(QJsonDocument::Compact);
    changed.insert(Base::planOtherParam, QString::fromUtf8(json));
    return changed;
}

void storePlan(const QString& planId, const FieldMap& record)
{
    FieldMap stored = record;
    stored.insert(Base::autoPlanId, planId);
    Script::instance().plans.insert(planId, stored);
}

void storePlan(const QString& planId, const PlanSample& plan)
{
    storePlan(planId, recordOf(plan));
}

void keepWhatIsSent()
{
    Script::instance().onCall = [](const ScriptCall& call) {
        Script& script = Script::instance();
        if (call.operation == QLatin1String("panel.setBaseInfoData"))
            keepParameters(script);
        else if (call.operation == QLatin1String("CreateNewPlan"))
            script.storePlan(script.createdRecords.last());
        else if (call.operation == QLatin1String("modifyPlan"))
            storePlan(script.modifiedRecords.last().value(Base::autoPlanId).toString(), script.modifiedRecords.last());
    };
}
