#include "PlanAlgorithms.h"

#include "Algo_Fields.h"
#include "Algo_Values.h"
#include "AutoPlanField.h"
#include "ControlValue.h"
#include "EditEvaluation.h"
#include "EntrustTypes.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloConstants.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"
#include "PlanStrategies.h"
#include "PlanTexts.h"
#include "StrategyLibrary.h"

namespace Base = AutoPlanField::BaseField;
namespace Content = Algo_Fields::AlgoInstContentInfo;
using namespace PlanCodes;
using namespace TransferForms;

namespace {

using Record = PlanStore::Record;
using Fields = QMap<QString, QVariant>;

constexpr int Reviewed = 1;

QString text(const Fields& fields, const QString& key)
{
    return fields.value(key).toString();
}

Fields otherOf(const Record& record)
{
    return PlanTexts::otherParam(text(record, Base::planOtherParam)).value_or(Fields());
}

bool runsAlgorithm(const Record& plan)
{
    return text(plan, Base::InstMode) == InstMode::AlgoReview;
}

bool isAmount(const Fields& other)
{
    return text(other, FieldId::TargetType) == InstructionTargetType::AmountOrder;
}

bool isUnlimited(const Record& plan)
{
    return text(plan, Base::priceModel) == PriceModel::NoLimit;
}

QString entrustCode(const Fields& other)
{
    return entrustTypeOfNumber(static_cast<VorMarginTradeType>(text(other, FieldId::MarginSide).toInt())).code;
}

bool allowsAlgorithms(const Record& plan, const Fields& other)
{
    namespace Union = Orlo_Values::SideUnion;
    const QString type = text(plan, Orlo_Fields::AutoPlan::subType);
    if (type == InstructionType::HkConnect)
        return text(other, Kelvo_Fields::Security::timeInForce) == Orlo_Values::HKTimeInForce::InTrade;
    const QStringList entrustTypes{ Union::collateralBuy, Union::collateralSell, Union::marginBuy, Union::marginSell,
        Union::financingBuy };
    return type != InstructionType::Credit || entrustTypes.contains(entrustCode(other));
}

/// Whether the algorithm, and what it is for, are the same.
bool isSameChoice(const Record& before, const Fields& otherBefore, const Record& plan, const Fields& other)
{
    for (const QString& key : { Base::InstMode, Kelvo_Fields::UserAccount::tradingAccount,
             Kelvo_Fields::Security::symbol, Base::orderSide, Base::priceModel }) {
        if (text(before, key) != text(plan, key))
            return false;
    }
    return text(otherBefore, Base::algoStrategyName) == text(other, Base::algoStrategyName)
        && otherBefore.value(Base::algoParam) == other.value(Base::algoParam);
}

/// The values of the parameters: the given ones, constants, and those of hidden fields. Empty ones are left out.
QMap<QString, QString> valuesOf(const StrategyDefinition& strategy, const Fields& given)
{
    QMap<QString, QString> values;
    for (const StrategyParameter& parameter : strategy.parameters) {
        QString value = text(given, parameter.name);
        const StrategyControl* const control = strategy.controlOf(parameter.name);
        const bool isHidden = control && control->type == ControlType::HiddenField;
        if (value.isEmpty())
            value = isHidden ? ControlValue::defaults(strategy).value(parameter.name) : parameter.constValue;
        if (!value.isEmpty())
            values.insert(parameter.name, value);
    }
    return values;
}

} // namespace

PlanAlgorithms::PlanAlgorithms(Database& database, const StoredUser& user)
    : m_authorities(database)
    , m_lists(database)
    , m_texts(database)
    , m_user(user.id)
{
}

Status PlanAlgorithms::complete(ImportRow& row, const Security& security, const Record& before, Record& plan)
{
    Fields other = otherOf(plan);
    if (isSameChoice(before, otherOf(before), plan, other))
        return {};
    if (Status status = checkMode(row, plan, other); !status)
        return status;
    const QString name = text(other, Base::algoStrategyName);
    if (!runsAlgorithm(plan)) {
        if (!name.isEmpty() || other.contains(Base::algoParam))
            row.refuse(PlanColumn::Mode, Error::AlgorithmNeedsMode);
        return {};
    }
    if (name.isEmpty())
        row.refuse(PlanColumn::Algorithm, { Error::CellMissing, { row.caption(PlanColumn::Algorithm) } });
    if (row.isRefused())
        return {};
    if (Status status = checkOffer(row, security, plan, other); !status || row.isRefused())
        return status;
    const Result<Fields> order = orderOf(plan, other);
    if (!order)
        return order.status();
    takeParameters(row, *order, other);
    plan.insert(Base::planOtherParam, PlanTexts::jsonText(other));
    return {};
}

void PlanAlgorithms::takeParameters(ImportRow& row, const Fields& order, Fields& other)
{
    const StrategyDefinition strategy = StrategyLibrary::instance().strategy(text(other, Base::algoStrategyName));
    const Fields given = other.value(Base::algoParam).toMap();
    for (auto it = given.cbegin(); it != given.cend(); ++it) {
        if (!strategy.parameter(it.key()) && !order.contains(it.key()))
            row.refuse(PlanColumn::Parameters, { Error::UnknownAlgorithmParameter, { strategy.name, it.key() } });
    }
    const QMap<QString, QString> values = valuesOf(strategy, given);
    if (const Status status = StrategyRules::check(strategy, values); !status)
        row.refuse(PlanColumn::Parameters, status);
    Fields parameters = order;
    for (auto it = values.cbegin(); it != values.cend(); ++it)
        parameters.insert(it.key(), it.value());
    other.insert(Base::algoParam, parameters);
}

// The plan service checks the opposite, that a plan is reviewed where it must be.
Status PlanAlgorithms::checkMode(ImportRow& row, const Record& plan, const Fields& other)
{
    const QString mode = text(plan, Base::InstMode);
    if (mode == InstMode::ActiveManage)
        return {};
    const auto rights = m_authorities.rights(
        m_user, text(plan, Kelvo_Fields::UserAccount::tradingAccount), text(plan, Orlo_Fields::AutoPlan::subType));
    if (!rights)
        return rights.status();
    const bool isOffered = runsAlgorithm(plan) ? allowsAlgorithms(plan, other) : !isAmount(other) && !isUnlimited(plan);
    if (rights->ruleProperty != Reviewed)
        row.refuse(PlanColumn::Mode, { Error::ModeNeedsReview, { CodeWords::instructionModes().word(mode) } });
    else if (!isOffered)
        row.refuse(PlanColumn::Mode, { Error::ModeNotOffered, { CodeWords::instructionModes().word(mode) } });
    return {};
}

Status PlanAlgorithms::checkOffer(ImportRow& row, const Security& security, const Record& plan, const Fields& other)
{
    const QString name = text(other, Base::algoStrategyName);
    const QString target = isAmount(other) ? InstructionTargetType::AmountOrder : InstructionTargetType::QtyOrder;
    const Result<QStringList> listed =
        m_lists.whiteList(text(plan, Orlo_Fields::AutoPlan::subType), target, security.symbol);
    const Result<QStringList> forbidden = m_lists.blackList(target);
    if (!listed || !forbidden)
        return listed ? forbidden.status() : listed.status();
    const QStringList allowed = PlanStrategies::allowed(*listed, security);
    if (StrategyLibrary::instance().strategy(name).name.isEmpty())
        row.refuse(PlanColumn::Algorithm, { Error::StrategyNotDefined, { name } });
    else if ((!allowed.isEmpty() && !allowed.contains(name)) || forbidden->contains(name))
        row.refuse(PlanColumn::Algorithm, { Error::StrategyNotOffered, { name } });
    else if (isUnlimited(plan) && PlanStrategies::needsLimit(name))
        row.refuse(PlanColumn::PriceMode, { Error::StrategyNeedsLimit, { name } });
    return {};
}

/// What the form hands to an algorithm, and its name.
Result<QMap<QString, QVariant>> PlanAlgorithms::orderOf(const Record& plan, const Fields& other)
{
    using namespace Algo_Values::AlgoOrderSide;
    const Result<QString> property = orderProperty(entrustCode(other));
    if (!property)
        return property.status();
    const bool buys = text(plan, Base::orderSide) == Kelvo_Values::OrderSide::buy;
    return Fields{ { Content::TradingAccount, text(plan, Kelvo_Fields::UserAccount::tradingAccount) },
        { Content::Symbol, text(plan, Kelvo_Fields::Security::symbol) },
        { Content::OrderSide, buys ? BuyValue : SellValue }, { Content::EntrustProp, *property },
        { Base::algoStrategyName, text(other, Base::algoStrategyName) } };
}

Result<QString> PlanAlgorithms::orderProperty(const QString& entrustCode)
{
    if (!m_knownTexts) {
        const auto texts = m_texts.texts();
        if (!texts)
            return texts.status();
        m_knownTexts = *texts;
    }
    return m_knownTexts->value({ OrloConstants::DictionaryKey::SideUnion2AlgoDefines, entrustCode });
}
