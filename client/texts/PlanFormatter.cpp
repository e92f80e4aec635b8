#include "PlanFormatter.h"

#include "AlgoTradeLogicNew.h"
#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "CBusinessDataBase.h"
#include "CDataBase.h"
#include "CodeWords.h"
#include "ControlValue.h"
#include "DecimalText.h"
#include "ErrorText.h"
#include "InstructionBusinessDataInterface.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloBusiUtils.h"
#include "OrloBusinessDataInterface.h"
#include "OrloConstants.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"
#include "ParameterTypes.h"
#include "ParameterValue.h"
#include "PlanCodes.h"
#include "PlanLife.h"
#include "StrategyLibrary.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

namespace Base = AutoPlanField::BaseField;
namespace UserAccount = Kelvo_Fields::UserAccount;
using namespace PlanCodes;

namespace {

/// Those of the form's field.
constexpr int RatioDecimals = 4;

/// The word in the window's language.
QString worded(const CodeWords& words, const QString& code)
{
    return captionText(words.word(code));
}

QString configured(const QString& category, const QString& code)
{
    return CDataBase::GetInstance()->GetStaticCfgValue(category, code, code);
}

QString timeText(const QDateTime& time)
{
    return QLocale::c().toString(time, QStringLiteral("yyyy-MM-dd HH:mm"));
}

/// A number in groups of three digits with its unit; any other text as it is.
QString counted(const QString& number, const QString& unit)
{
    return isPlainNumber(number) ? QStringLiteral("%1 %2").arg(groupedText(number), unit) : number;
}

/// The texts of the chosen entries; empty if no entry has the value.
QString itemTexts(const StrategyControl& control, const StrategyParameter& parameter, const QString& value)
{
    if (!control.choosesItems())
        return {};
    const QString id = ControlValue::ofParameter(control, parameter, value);
    const QStringList ids = control.isMultiple() ? id.split(QLatin1Char(' ')) : QStringList{ id };
    QStringList texts;
    for (const EnumeratedValue& item : control.items) {
        if (ids.contains(item.id))
            texts.append(item.text);
    }
    return listText(texts);
}

QString parameterText(const StrategyControl& control, const StrategyParameter& parameter, const QString& value)
{
    if (control.isButton())
        return ControlValue::ofParameter(control, parameter, value) == QLatin1String("true") ? PlanFormatter::tr("是")
                                                                                             : PlanFormatter::tr("否");
    const QString entries = itemTexts(control, parameter, value);
    if (!entries.isEmpty())
        return entries;
    const bool isShare = parameter.type == ParameterType::Percentage;
    const QString unit = isShare ? QStringLiteral("%") : control.unit;
    const QString shown = ParameterValue::shown(parameter, value);
    if (ParameterTypes::isNumber(parameter.type))
        return counted(shown, unit).trimmed();
    return QStringLiteral("%1 %2").arg(shown, unit).trimmed();
}

QString strategyParameters(const StrategyDefinition& strategy, const QMap<QString, QVariant>& values)
{
    QStringList lines;
    for (const StrategyControl& control : strategy.controls) {
        const QString value = values.value(control.parameter).toString();
        const StrategyParameter* const parameter = strategy.parameter(control.parameter);
        const QString label = control.label.isEmpty() ? control.parameter : control.label;
        // Of the buttons of a group, the checked one says it.
        const bool isOther = parameter && control.type == ControlType::RadioButton
            && ControlValue::ofParameter(control, *parameter, value) != QLatin1String("true");
        if (!value.isEmpty() && parameter && !isOther)
            lines << PlanFormatter::tr("%1：%2").arg(label, parameterText(control, *parameter, value));
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace

PlanFormatter::PlanFormatter(const StoredPlan& plan)
    : m_plan(plan)
    , m_other(AutoPlanLogic::instance().GetPlanOtherParamFromPlanInfo(plan.record))
{
}

QString PlanFormatter::state() const
{
    return PlanLife::word(m_plan.state);
}

QString PlanFormatter::planType() const
{
    return worded(CodeWords::planTypes(), text(Orlo_Fields::AutoPlan::templateCode));
}

QString PlanFormatter::instructionType() const
{
    return configured(StaticCategory::InstructionType, text(Orlo_Fields::AutoPlan::subType));
}

QString PlanFormatter::targetType() const
{
    return configured(
        StaticCategory::TargetType, isAmount() ? InstructionTargetType::AmountOrder : InstructionTargetType::QtyOrder);
}

QString PlanFormatter::security() const
{
    return QStringLiteral("%1 %2").arg(symbol(), OrloBusinessDataInterface::GetSecurityChineseName(symbol())).trimmed();
}

QString PlanFormatter::side() const
{
    return worded(CodeWords::sides(), text(Base::orderSide));
}

QString PlanFormatter::target() const
{
    return isAmount() ? amount(other(Base::tradeAmount)) : quantity(text(Base::totalQty));
}

QString PlanFormatter::perDay() const
{
    const QString stored = other(isAmount() ? Base::dayMaxTradeAmount : AutoPlanField::Progress::CurrentQty);
    if (isPlainNumber(stored) && qFuzzyIsNull(stored.toDouble()))
        return PlanFormatter::tr("不限");
    return isAmount() ? amount(stored) : quantity(stored);
}

QString PlanFormatter::issued(const QString& number, bool isByAmount) const
{
    return counted(number, isByAmount ? PlanFormatter::tr("元") : unit());
}

double PlanFormatter::total() const
{
    return isAmount() ? other(Base::tradeAmount).toDouble() : text(Base::totalQty).toDouble() * factor();
}

QString PlanFormatter::partText(double part) const
{
    return groupedText(QString::number(part, 'f', isAmount() ? 2 : 0));
}

QString PlanFormatter::priceMode() const
{
    return worded(CodeWords::priceModes(), text(Base::priceModel));
}

QString PlanFormatter::price() const
{
    const QString model = text(Base::priceModel);
    const QString formula = text(Base::priceFormula1);
    if (model == PriceModel::Custom)
        return formula;
    if (model == PriceModel::CompareMax || model == PriceModel::CompareMin)
        return PlanFormatter::tr("%1：%2；%3").arg(priceMode(), formula, text(Base::priceFormula2));
    return priceMode();
}

QString PlanFormatter::period() const
{
    const QString begin = text(Base::beginDate);
    return isReduction() ? PlanFormatter::tr("%1 起").arg(begin)
                         : PlanFormatter::tr("%1 至 %2").arg(begin, text(Base::endDate));
}

QString PlanFormatter::creation() const
{
    return QStringLiteral("%1 %2").arg(m_plan.creator, timeText(m_plan.created));
}

QVector<QPair<QString, QString>> PlanFormatter::fields(const QString& state) const
{
    Fields all;
    if (m_plan.id.isEmpty())
        return all;
    addBasics(all, state);
    addPrices(all);
    addTargets(all);
    addAlgorithm(all);
    addHistory(all);
    Fields given;
    for (const auto& field : qAsConst(all)) {
        if (!field.second.isEmpty())
            given << field;
    }
    return given;
}

void PlanFormatter::addBasics(Fields& fields, const QString& state) const
{
    fields << qMakePair(PlanFormatter::tr("计划编号"), m_plan.id) << qMakePair(PlanFormatter::tr("状态"), state)
           << qMakePair(PlanFormatter::tr("账户名称"), account())
           << qMakePair(PlanFormatter::tr("证券账户"), text(UserAccount::securityAccount))
           << qMakePair(PlanFormatter::tr("指令类型"), instructionType())
           << qMakePair(PlanFormatter::tr("指令单类型"), targetType())
           << qMakePair(PlanFormatter::tr("计划类型"), planType()) << qMakePair(PlanFormatter::tr("证券"), security())
           << qMakePair(PlanFormatter::tr("市场"), exchange()) << qMakePair(PlanFormatter::tr("交易方向"), side())
           << qMakePair(PlanFormatter::tr("报价类型"), priceType())
           << qMakePair(PlanFormatter::tr("委托类别"), entrustType());
}

void PlanFormatter::addPrices(Fields& fields) const
{
    const QString model = text(Base::priceModel);
    const bool compares = model == PriceModel::CompareMax || model == PriceModel::CompareMin;
    fields << qMakePair(PlanFormatter::tr("价格模式"), priceMode());
    if (model != PriceModel::NoLimit)
        fields << qMakePair(
            compares ? PlanFormatter::tr("价格1") : PlanFormatter::tr("价格"), amount(text(Base::priceFormula1)));
    if (compares)
        fields << qMakePair(PlanFormatter::tr("价格2"), amount(text(Base::priceFormula2)));
}

void PlanFormatter::addTargets(Fields& fields) const
{
    const bool sameEveryDay = text(Orlo_Fields::AutoPlan::templateCode) == PlanType::SameElements;
    fields << qMakePair(PlanFormatter::tr("目标总量"), target())
           << qMakePair(sameEveryDay ? PlanFormatter::tr("每日计划量") : PlanFormatter::tr("每日最大委托量"), perDay())
           << qMakePair(PlanFormatter::tr("减持占比"), ratio())
           << qMakePair(PlanFormatter::tr("下单模式"), instructionMode())
           << qMakePair(isReduction() ? PlanFormatter::tr("执行人") : PlanFormatter::tr("分配给"), assignee())
           << qMakePair(PlanFormatter::tr("生效时段"), period())
           << qMakePair(PlanFormatter::tr("减持模式"),
                  isReduction() ? PlanFormatter::tr("连续90天减持不超过总股本1%") : QString())
           << qMakePair(PlanFormatter::tr("备注"), text(Base::remark));
}

void PlanFormatter::addAlgorithm(Fields& fields) const
{
    const QString name = other(Base::algoStrategyName);
    if (name.isEmpty())
        return;
    const StrategyDefinition strategy = StrategyLibrary::instance().strategy(name);
    fields << qMakePair(PlanFormatter::tr("算法"), algorithm())
           << qMakePair(
                  PlanFormatter::tr("算法参数"), strategyParameters(strategy, m_other.value(Base::algoParam).toMap()));
}

void PlanFormatter::addHistory(Fields& fields) const
{
    fields << qMakePair(PlanFormatter::tr("创建"), creation());
    if (m_plan.version > 1)
        fields << qMakePair(PlanFormatter::tr("修改"),
            PlanFormatter::tr("第%1版 %2").arg(QString::number(m_plan.version), timeText(m_plan.changed)));
}

QString PlanFormatter::symbol() const
{
    return text(Kelvo_Fields::Security::symbol);
}

bool PlanFormatter::isReduction() const
{
    return text(Orlo_Fields::AutoPlan::templateCode) == PlanType::ReduceHoldings;
}

bool PlanFormatter::isAmount() const
{
    return other(FieldId::TargetType) == InstructionTargetType::AmountOrder;
}

int PlanFormatter::factor() const
{
    return OrloBusinessDataInterface::GetDispFactorBySymbol(symbol());
}

QString PlanFormatter::quantity(const QString& stored) const
{
    bool isNumber = false;
    const qint64 number = stored.toLongLong(&isNumber);
    if (!isNumber)
        return stored;
    return counted(QString::number(number * factor()), unit());
}

QString PlanFormatter::unit() const
{
    const QString type = OrloBusinessDataInterface::GetSecurityTypeBySymbol(symbol());
    return type == Kelvo_Values::MdcSecurityType::BondType ? PlanFormatter::tr("张") : PlanFormatter::tr("股");
}

QString PlanFormatter::amount(const QString& stored) const
{
    return counted(stored, PlanFormatter::tr("元"));
}

QString PlanFormatter::ratio() const
{
    const QString stored = other(Base::JCRatio);
    NumberUnit share;
    share.isRatio = true;
    return isPlainNumber(stored) ? numberInWords(stored.toDouble(), RatioDecimals, share) : stored;
}

QString PlanFormatter::account() const
{
    const QString tradingAccount = text(UserAccount::tradingAccount);
    const tagUserAccountInfo account =
        CBusinessDataBase::GetInstance()->GetAccountDetailsByTradinngAccount(tradingAccount);
    if (account.accountName.isEmpty())
        return tradingAccount;
    return PlanFormatter::tr("%1（%2）").arg(account.accountName, account.fundAccount);
}

QString PlanFormatter::exchange() const
{
    return configured(OrloConstants::DictionaryKey::exchangeChineseName, text(UserAccount::securityExchange));
}

QString PlanFormatter::priceType() const
{
    QString code = other(Kelvo_Fields::Security::timeInForce);
    if (code.isEmpty())
        code = other(Kelvo_Fields::Security::transActTime);
    return worded(CodeWords::priceTypes(), code);
}

QString PlanFormatter::entrustType() const
{
    const int number = m_other.value(FieldId::MarginSide).toInt();
    const QString code = InstructionBusinessDataInterface::transEnum2SideUnion(static_cast<VorMarginTradeType>(number));
    return OrloBusiUtils::GetSideUnionChineseName(code);
}

QString PlanFormatter::instructionMode() const
{
    return worded(CodeWords::instructionModes(), text(Base::InstMode));
}

QString PlanFormatter::assignee() const
{
    if (isReduction())
        return text(Base::executeUser);
    const QString user = text(Base::expectedUser);
    return user.isEmpty() ? QStringLiteral("默认不指定") : user;
}

QString PlanFormatter::algorithm() const
{
    const QString name = other(Base::algoStrategyName);
    const QString alias = AlgoTradeLogicNew::GetInstance()->GetStrategy(name).alias;
    return alias.isEmpty() || alias == name ? name : PlanFormatter::tr("%1（%2）").arg(alias, name);
}
