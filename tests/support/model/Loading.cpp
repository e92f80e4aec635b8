#include "Algo_Fields.h"
#include "Algo_Values.h"
#include "AutoPlanField.h"
#include "EditorModel.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloConstants.h"
#include "Orlo_Fields.h"
#include "PlanVocabulary.h"
#include "Today.h"

#include <QLocale>

// Opening a stored plan, and the reset to a new one.

namespace model {

namespace {

namespace Base = AutoPlanField::BaseField;
namespace Content = Algo_Fields::AlgoInstContentInfo;

QString value(const FieldMap& map, const QString& key)
{
    return map.value(key).toString();
}

QDate date(const FieldMap& record, const QString& key)
{
    return QLocale::c().toDate(value(record, key), OrloConstants::DateTimeFormatString::STD_DATE_FORMAT);
}

} // namespace

void EditorModel::editPlan(const QString& planId)
{
    m_planId = planId;
    copyPlan(planId);
    enable({ FundAccount, InstructionType, TargetType, PlanType, Symbol, TradeSide, EntrustType }, false);
    if (isReduction())
        enable({ DayMax, Ratio, ReduceMode }, false);
    enable({ InstructionMode, AssignTo }, false);
}

void EditorModel::copyPlan(const QString& planId)
{
    const FieldMap record = m_world.plans.value(planId);
    if (record.isEmpty()) {
        effects.warnings.append(QStringLiteral("计划复制失败，失败原因：未找到计划ID【%1】的计划信息").arg(planId));
        return;
    }
    const FieldMap other = m_world.otherParamOf(record);
    if (other.isEmpty()) {
        effects.warnings.append(QStringLiteral("计划复制失败，失败原因：未找到计划ID【%1】的计划扩展信息").arg(planId));
        return;
    }
    load(record, other);
}

void EditorModel::load(const FieldMap& record, const FieldMap& other)
{
    const QString trading = value(record, Kelvo_Fields::UserAccount::tradingAccount);
    const QString type = value(record, Orlo_Fields::AutoPlan::subType);
    const int rule = m_world.rule(trading, type);
    QString mode = value(record, Base::InstMode);
    QString priceMode = value(record, Base::priceModel);
    const bool mustBeReviewed = mode == AutoPlanInstMode::ActiveManage && rule == 1;
    const bool mustBeActive =
        (mode == AutoPlanInstMode::NormalTradeReview || mode == AutoPlanInstMode::AlgoTradeReview) && rule == 0;
    if (mustBeReviewed || mustBeActive) {
        mode = mustBeReviewed ? AutoPlanInstMode::AlgoTradeReview : AutoPlanInstMode::ActiveManage;
        priceMode = AutoPlanPriceModel::NoLimit;
    }
    loadChoices(record, other);
    fillPriceTypes(mode);
    if (type == AutoPlanInstructionType::HkConnect)
        loadPriceType(other);
    fillPriceModes(mode);
    selectCode(PriceMode, priceMode);
    loadPrices(record, priceMode);
    loadQuantities(record, other);
    selectCode(InstructionMode, mode);
    if (mode == AutoPlanInstMode::AlgoTradeReview)
        loadAlgorithm(
            record, other, entrustTypes().value(other.value(AutoPlanFieldId::MarginInstructionSideType).toInt()));
    loadAssignee(record);
    loadDates(record);
    if (value(record, Orlo_Fields::AutoPlan::templateCode) == AutoPlanTemplate::ReduceHoldings)
        selectCode(ReduceMode, value(other, Base::JCModel));
    setText(Remark, value(record, Base::remark));
}

/// From the account to the entrust type, with the effects of each choice.
void EditorModel::loadChoices(const FieldMap& record, const FieldMap& other)
{
    selectCode(FundAccount, value(record, Kelvo_Fields::UserAccount::tradingAccount));
    selectCode(InstructionType, value(record, Orlo_Fields::AutoPlan::subType));
    selectCode(TargetType, other.value(AutoPlanFieldId::TargetType, InstructionTargetType::QtyOrder).toString());
    selectCode(PlanType, value(record, Orlo_Fields::AutoPlan::templateCode));
    form.symbol = value(record, Kelvo_Fields::Security::symbol);
    setText(Symbol, form.symbol);
    symbolChanged();
    setText(SymbolName, m_world.security(form.symbol).chineseName);
    selectCode(TradeSide, value(record, Base::orderSide));
    selectCode(EntrustType, entrustTypes().value(other.value(AutoPlanFieldId::MarginInstructionSideType).toInt()));
}

/// Older plans store it under another key.
void EditorModel::loadPriceType(const FieldMap& other)
{
    const QString priceType = value(other, Kelvo_Fields::Security::timeInForce);
    selectCode(PriceType, priceType.isEmpty() ? value(other, Kelvo_Fields::Security::transActTime) : priceType);
}

void EditorModel::loadPrices(const FieldMap& record, const QString& priceMode)
{
    form.functions1.clear();
    if (priceMode == AutoPlanPriceModel::Custom)
        form.functions1 = QStringList{ QStringLiteral("max(,)"), QStringLiteral("min(,)") };
    if (priceMode == AutoPlanPriceModel::NoLimit)
        setText(Price1, QString::number(0.0, 'f', m_world.security(form.symbol).pricePrecision));
    else
        setText(Price1, value(record, Base::priceFormula1));
    setText(Price2, value(record, Base::priceFormula2));
}

void EditorModel::loadQuantities(const FieldMap& record, const FieldMap& other)
{
    const bool byAmount = value(other, AutoPlanFieldId::TargetType) == InstructionTargetType::AmountOrder;
    const bool reduces = value(record, Orlo_Fields::AutoPlan::templateCode) == AutoPlanTemplate::ReduceHoldings;
    const int factor = m_world.security(form.symbol).displayFactor;
    const double total =
        byAmount ? other.value(Base::tradeAmount).toDouble() : record.value(Base::totalQty).toDouble() * factor;
    const double daily = byAmount ? other.value(Base::dayMaxTradeAmount).toDouble()
                                  : other.value(AutoPlanField::Progress::CurrentQty).toDouble() * factor;
    setNumber(TargetTotal, total);
    if (reduces) {
        clearNumber(DayMax);
        setNumber(Ratio, other.value(Base::JCRatio).toDouble());
    } else {
        setNumber(DayMax, daily);
        clearNumber(Ratio);
    }
}

void EditorModel::loadAlgorithm(const FieldMap& record, const FieldMap& other, const QString& entrustType)
{
    createPanel({});
    effects.outward << call(QStringLiteral("panel.setAlgoWhiteList"), { m_white })
                    << call(QStringLiteral("panel.setAlgoBlackList"), { m_black })
                    << QStringLiteral("panel.RefreshAlgoList()");
    if (value(other, Base::algoStrategyName).isEmpty())
        return;
    FieldMap params = other.value(Base::algoParam).toMap();
    if (!params.contains(Content::TradingAccount))
        params.insert(Content::TradingAccount, value(record, Kelvo_Fields::UserAccount::tradingAccount));
    params.insert(Content::Symbol, form.symbol);
    const QString side = value(record, Base::orderSide);
    if (side == Kelvo_Values::OrderSide::buy)
        params.insert(Content::OrderSide, Algo_Values::AlgoOrderSide::BuyValue);
    if (side == Kelvo_Values::OrderSide::sell)
        params.insert(Content::OrderSide, Algo_Values::AlgoOrderSide::SellValue);
    const QString& dictionary = OrloConstants::DictionaryKey::SideUnion2AlgoDefines;
    params.insert(Content::EntrustProp, m_world.staticText(dictionary, entrustType));
    handOver(params);
}

void EditorModel::loadAssignee(const FieldMap& record)
{
    const bool reduces = value(record, Orlo_Fields::AutoPlan::templateCode) == AutoPlanTemplate::ReduceHoldings;
    QString user = value(record, reduces ? Base::executeUser : Base::expectedUser);
    if (!reduces && user.isEmpty())
        user = AutoPlanAssignee::NotSpecified;
    const QVector<Item>& items = box(AssignTo).items;
    int index = 0;
    while (index < items.size() && items.at(index).text != user)
        ++index;
    select(AssignTo, index < items.size() ? index : -1);
}

void EditorModel::loadDates(const FieldMap& record)
{
    const bool reduces = value(record, Orlo_Fields::AutoPlan::templateCode) == AutoPlanTemplate::ReduceHoldings;
    const QDate begin = date(record, Base::beginDate), end = date(record, Base::endDate);
    if (!begin.isValid())
        effects.warnings.append(QStringLiteral("stored text is no date"));
    // An invalid date is before every other one.
    const bool hasBegun = begin <= today();
    if (hasBegun && m_planId.isEmpty())
        return;
    if (reduces) {
        form.single.date = begin;
        if (hasBegun) {
            form.single.earliest = form.single.latest = begin;
            enable({ Single }, false);
        }
        return;
    }
    form.range.start = begin;
    form.range.end = end;
    if (hasBegun) {
        form.range.earliest = begin;
        form.range.startIsFree = false;
    }
}

void EditorModel::resetEnable()
{
    m_planId.clear();
    enable({ FundAccount, InstructionType, TargetType, PlanType, Symbol }, true);
    enable({ TradeSide }, !isReduction());
    enable({ EntrustType, PriceType, PriceMode, Price1, Price2, TargetTotal, DayMax, Ratio, InstructionMode, AssignTo,
               Single },
        true);
    form.range.startIsFree = true;
    fillPeriod();
    enable({ ReduceMode, Remark }, true);
    fillPriceTypes(QString());
    fillPriceModes(QString());
}

} // namespace model
