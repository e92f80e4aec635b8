#include "PlanCheck.h"

#include "CodeWords.h"
#include "DayPrice.h"
#include "EntrustTypes.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include "PlanTexts.h"
#include "PriceFormula.h"

namespace BaseField = AutoPlanField::BaseField;
namespace UserAccount = Kelvo_Fields::UserAccount;
using namespace PlanCodes;

namespace {

// A number that no entrust type has.
constexpr int NoEntrustType = 0;
// Sums of amounts in yuan have errors of rounding.
constexpr double Tolerance = 1e-10;

struct CodeRule {
    QString key;
    QString caption;
    QStringList codes;
};

const QVector<CodeRule>& codeRules()
{
    static const QVector<CodeRule> rules{
        { Orlo_Fields::AutoPlan::templateCode, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "计划类型")),
            { PlanType::CumulativeQty, PlanType::AverageQty, PlanType::SameElements, PlanType::ReduceHoldings } },
        { Orlo_Fields::AutoPlan::subType, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "指令类型")),
            { InstructionType::Ordinary, InstructionType::Credit, InstructionType::Bond, InstructionType::HkConnect } },
        { BaseField::orderSide, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "交易方向")),
            { Kelvo_Values::OrderSide::buy, Kelvo_Values::OrderSide::sell } },
        { BaseField::priceModel, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "价格模式")),
            { PriceModel::NoLimit, PriceModel::Custom, PriceModel::CompareMax, PriceModel::CompareMin } },
        { BaseField::InstMode, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "下单模式")),
            { InstMode::ActiveManage, InstMode::NormalReview, InstMode::AlgoReview } },
    };
    return rules;
}

using PlanCheck::Rule;

Status hasNoId(const CheckedPlan& plan)
{
    return plan.record.contains(BaseField::autoPlanId) ? Error::PlanHasId : Status();
}

Status valuesAreTexts(const CheckedPlan& plan)
{
    for (auto field = plan.record.cbegin(); field != plan.record.cend(); ++field) {
        if (field.value().userType() != QMetaType::QString)
            return { Error::FieldNotText, { field.key() } };
    }
    return {};
}

Status otherParamIsReadable(const CheckedPlan& plan)
{
    if (!plan.record.contains(BaseField::planOtherParam))
        return Error::NoOtherParam;
    return plan.isOtherParamJson ? Status() : Error::OtherParamNotJson;
}

Status codesAreKnown(const CheckedPlan& plan)
{
    for (const CodeRule& rule : codeRules()) {
        if (!rule.codes.contains(plan.text(rule.key)))
            return { Error::UnknownCode, { rule.caption, plan.text(rule.key) } };
    }
    return {};
}

Status targetTypeIsKnown(const CheckedPlan& plan)
{
    if (!plan.otherParam.contains(FieldId::TargetType))
        return {};
    const QStringList known{ InstructionTargetType::QtyOrder, InstructionTargetType::AmountOrder };
    const QString target = plan.other(FieldId::TargetType);
    return known.contains(target)
        ? Status()
        : Status(Error::UnknownCode, { QStringLiteral(QT_TRANSLATE_NOOP("Caption", "指令单类型")), target });
}

// A plan without a target type is by quantity: an amount order that lost it would trade as many shares as yuan.
Status amountHasTargetType(const CheckedPlan& plan)
{
    return plan.otherParam.contains(BaseField::tradeAmount) && !plan.isAmount() ? Error::TargetTypeMissing : Status();
}

Status priceTypeIsKnown(const CheckedPlan& plan)
{
    using namespace Orlo_Values::HKTimeInForce;
    const QStringList known{ QString(), InTrade, BeforeTrade };
    const QString type = plan.other(Kelvo_Fields::Security::timeInForce);
    return known.contains(type)
        ? Status()
        : Status(Error::UnknownCode, { QStringLiteral(QT_TRANSLATE_NOOP("Caption", "报价类型")), type });
}

Status entrustTypeIsKnown(const CheckedPlan& plan)
{
    if (!plan.otherParam.contains(FieldId::MarginSide))
        return {};
    const QString text = plan.other(FieldId::MarginSide);
    const auto number = PlanTexts::wholeNumber(text);
    const bool known = number
        && (*number == NoEntrustType || !entrustTypeOfNumber(static_cast<VorMarginTradeType>(*number)).code.isEmpty());
    return known ? Status()
                 : Status(Error::UnknownCode, { QStringLiteral(QT_TRANSLATE_NOOP("Caption", "委托类别")), text });
}

Status accountMayTrade(const CheckedPlan& plan)
{
    return plan.known.rights.tradeError(plan.record);
}

Status securityTradesOnExchange(const CheckedPlan& plan)
{
    const QString symbol = plan.text(Kelvo_Fields::Security::symbol);
    if (symbol.isEmpty())
        return Error::NoSecurity;
    const Security* security = plan.known.market.find(symbol);
    if (!security)
        return { Error::UnknownSecurity, { symbol } };
    const QString exchange = plan.text(UserAccount::securityExchange);
    return security->exchange == exchange
        ? Status()
        : Status(Error::WrongExchange, { symbol, CodeWords::exchanges().word(exchange) });
}

// Zero is valid for a reduction, whose total may be its holdings, and for an amount order, which is in yuan.
Status totalIsGiven(const CheckedPlan& plan)
{
    const QString text = plan.text(BaseField::totalQty);
    const auto total = PlanTexts::wholeNumber(text);
    const bool mayBeZero = plan.isReduction() || plan.isAmount();
    if (!total || (*total == 0 && !mayBeZero))
        return { Error::NotPositiveWhole, { QStringLiteral(QT_TRANSLATE_NOOP("Caption", "目标总量")), text } };
    return {};
}

Status dailyQuantityIsWhole(const CheckedPlan& plan)
{
    const QString& key = AutoPlanField::Progress::CurrentQty;
    if (plan.otherParam.contains(key) && !PlanTexts::wholeNumber(plan.other(key)))
        return { Error::NotWhole, { QStringLiteral(QT_TRANSLATE_NOOP("Caption", "每日委托量")), plan.other(key) } };
    return {};
}

Status amountIsGiven(const CheckedPlan& plan)
{
    if (!plan.isAmount())
        return {};
    const QString text = plan.other(BaseField::tradeAmount);
    const auto amount = PlanTexts::decimalNumber(text);
    if (!amount || *amount <= 0)
        return { Error::NotPositive, { QStringLiteral(QT_TRANSLATE_NOOP("Caption", "目标金额")), text } };
    return {};
}

Status dailyAmountIsNumber(const CheckedPlan& plan)
{
    const QString text = plan.other(BaseField::dayMaxTradeAmount);
    if (plan.isAmount() && !text.isEmpty() && !PlanTexts::decimalNumber(text))
        return { Error::NotNumber, { QStringLiteral(QT_TRANSLATE_NOOP("Caption", "每日最大金额")), text } };
    return {};
}

Status ratioIsGiven(const CheckedPlan& plan)
{
    if (!plan.isReduction())
        return {};
    const auto ratio = PlanTexts::decimalNumber(plan.other(BaseField::JCRatio));
    if (!ratio || *ratio <= 0 || *ratio > 1)
        return { Error::RatioOutOfRange, { plan.other(BaseField::JCRatio) } };
    return {};
}

Status checkFormula(const QString& caption, const QString& formula)
{
    if (Status status = PriceFormula::check(formula, priceNames()); !status)
        return { Error::BadFormula, { caption }, status };
    return {};
}

Status formulasAreSound(const CheckedPlan& plan)
{
    const QString model = plan.text(BaseField::priceModel);
    if (model == PriceModel::NoLimit)
        return {};
    if (model == PriceModel::Custom)
        return checkFormula(QStringLiteral(QT_TRANSLATE_NOOP("Caption", "价格")), plan.text(BaseField::priceFormula1));
    if (Status status =
            checkFormula(QStringLiteral(QT_TRANSLATE_NOOP("Caption", "价格1")), plan.text(BaseField::priceFormula1));
        !status)
        return status;
    return checkFormula(QStringLiteral(QT_TRANSLATE_NOOP("Caption", "价格2")), plan.text(BaseField::priceFormula2));
}

Status checkTradeDay(const CheckedPlan& plan, const QString& caption, const QDate& date)
{
    switch (plan.known.calendar.day(plan.text(UserAccount::securityExchange), date)) {
    case TradeCalendar::Day::Trades:
        return {};
    case TradeCalendar::Day::Closed:
        return { Error::NotATradeDay, { caption, PlanTexts::text(date) } };
    case TradeCalendar::Day::Unknown:
        break;
    }
    return { Error::NotInCalendar, { caption, PlanTexts::text(date) } };
}

Status beginIsTradeDay(const CheckedPlan& plan)
{
    const QString caption = QStringLiteral(QT_TRANSLATE_NOOP("Caption", "开始日期"));
    const QDate begin = PlanTexts::date(plan.text(BaseField::beginDate));
    return begin.isValid() ? checkTradeDay(plan, caption, begin) : Status(Error::InvalidDate, { caption });
}

// A reduction has no end: its end date is a century ahead, beyond any calendar.
Status endIsTradeDay(const CheckedPlan& plan)
{
    const QString caption = QStringLiteral(QT_TRANSLATE_NOOP("Caption", "结束日期"));
    const QDate end = PlanTexts::date(plan.text(BaseField::endDate));
    if (!end.isValid())
        return { Error::InvalidDate, { caption } };
    if (end < PlanTexts::date(plan.text(BaseField::beginDate)))
        return Error::EndBeforeBegin;
    return plan.isReduction() ? Status() : checkTradeDay(plan, caption, end);
}

Status remarkIsShort(const CheckedPlan& plan)
{
    if (plan.text(BaseField::remark).size() > PlanCheck::LongestRemark)
        return { Error::RemarkTooLong, { QString::number(PlanCheck::LongestRemark) } };
    return {};
}

Status beginIsNotPast(const CheckedPlan& plan)
{
    const QString begin = plan.text(BaseField::beginDate);
    return PlanTexts::date(begin) < plan.known.today ? Status(Error::BeginInPast, { begin }) : Status();
}

Status securityAccountIsTheAccounts(const CheckedPlan& plan)
{
    const QString account = plan.text(UserAccount::tradingAccount);
    const QString owned = plan.known.rights.order.securityAccount;
    if (owned.isEmpty())
        return { Error::NoSecurityAccount, { account } };
    const QString given = plan.text(UserAccount::securityAccount);
    return given == owned ? Status() : Status(Error::ForeignSecurityAccount, { given });
}

const QVector<Rule>& recordRules()
{
    static const QVector<Rule> rules{
        valuesAreTexts,
        otherParamIsReadable,
        codesAreKnown,
        targetTypeIsKnown,
        amountHasTargetType,
        priceTypeIsKnown,
        entrustTypeIsKnown,
        accountMayTrade,
        securityTradesOnExchange,
        totalIsGiven,
        dailyQuantityIsWhole,
        amountIsGiven,
        dailyAmountIsNumber,
        ratioIsGiven,
        formulasAreSound,
        beginIsTradeDay,
        endIsTradeDay,
        remarkIsShort,
    };
    return rules;
}

CheckedPlan checkedPlan(const PlanStore::Record& record, const PlanCheck::Known& known)
{
    const auto other = PlanTexts::otherParam(record.value(BaseField::planOtherParam).toString());
    return { record, known, other.value_or(QMap<QString, QVariant>()), other.has_value() };
}

Status firstError(const QVector<Rule>& rules, const CheckedPlan& plan)
{
    for (const Rule rule : rules) {
        if (Status status = rule(plan); !status)
            return status;
    }
    return {};
}

/// The record keys that identify a plan and never change, with their captions.
QVector<QPair<QString, QString>> identityFields()
{
    return {
        { UserAccount::tradingAccount, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "账户")) },
        { UserAccount::securityAccount, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "证券账户")) },
        { Kelvo_Fields::Security::symbol, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "证券代码")) },
        { UserAccount::securityExchange, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "市场")) },
        { Orlo_Fields::AutoPlan::subType, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "指令类型")) },
        { Orlo_Fields::AutoPlan::templateCode, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "计划类型")) },
        { BaseField::orderSide, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "交易方向")) },
    };
}

/// Caption of the first identifying field that differs; empty if there is none.
QString changedIdentity(const PlanStore::Record& stored, const PlanStore::Record& record)
{
    const auto fields = identityFields();
    for (const auto& field : fields) {
        if (stored.value(field.first).toString() != record.value(field.first).toString())
            return field.second;
    }
    const auto before = PlanTexts::otherParam(stored.value(BaseField::planOtherParam).toString());
    const auto after = PlanTexts::otherParam(record.value(BaseField::planOtherParam).toString());
    const auto differ = [&](const QString& key, const QString& absent) {
        return (before ? before->value(key, absent) : absent).toString()
            != (after ? after->value(key, absent) : absent).toString();
    };
    if (differ(FieldId::TargetType, InstructionTargetType::QtyOrder))
        return QStringLiteral(QT_TRANSLATE_NOOP("Caption", "指令单类型"));
    return differ(FieldId::MarginSide, QString::number(NoEntrustType))
        ? QStringLiteral(QT_TRANSLATE_NOOP("Caption", "委托类别"))
        : QString();
}

// A reduction without a total has the present holdings as its target.
Status usedError(const CheckedPlan& plan, double used)
{
    const qint64 total = PlanTexts::wholeNumber(plan.text(BaseField::totalQty)).value_or(0);
    if (plan.isReduction() && total == 0)
        return {};
    const Security& security = *plan.known.market.find(plan.text(Kelvo_Fields::Security::symbol));
    const double target = plan.isAmount() ? PlanTexts::decimalNumber(plan.other(BaseField::tradeAmount)).value_or(0)
                                          : security.displayed(total);
    return target < used - Tolerance
        ? Status(Error::TotalBelowUsed, { QString::number(used, 'f', plan.isAmount() ? 2 : 0) })
        : Status();
}

} // namespace

Status PlanCheck::creationError(const PlanStore::Record& record, const Known& known)
{
    static const QVector<Rule> rules = QVector<Rule>{ hasNoId } + recordRules()
        + QVector<Rule>{ securityAccountIsTheAccounts, beginIsNotPast } + presentRules();
    return firstError(rules, checkedPlan(record, known));
}

Status PlanCheck::changeError(
    const PlanStore::Record& stored, const PlanStore::Record& record, double used, const Known& known)
{
    const CheckedPlan plan = checkedPlan(record, known);
    if (Status status = firstError(recordRules(), plan); !status)
        return status;
    const QString changed = changedIdentity(stored, record);
    if (!changed.isEmpty())
        return { Error::FieldNotChangeable, { changed } };
    const QDate begin = PlanTexts::date(stored.value(BaseField::beginDate).toString());
    const bool keepsBegin = PlanTexts::text(begin) == record.value(BaseField::beginDate).toString();
    if (begin.isValid() && begin <= known.today && !keepsBegin)
        return Error::BeginNotChangeable;
    const QVector<Rule> begins = keepsBegin ? QVector<Rule>() : QVector<Rule>{ beginIsNotPast };
    if (Status status = firstError(begins + presentRules(), plan); !status)
        return status;
    return usedError(plan, used);
}
