#include "PlanCheck.h"

#include "AutoPlanField.h"
#include "DayPrice.h"
#include "EntrustTypes.h"
#include "ErrorText.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"
#include "PlanTexts.h"
#include "PriceFormula.h"

namespace BaseField = AutoPlanField::BaseField;
namespace UserAccount = Kelvo_Fields::UserAccount;
using namespace PlanCodes;

namespace {

// A number that no entrust type has.
constexpr int noEntrustType = 0;

struct CodeRule {
    QString key;
    QString caption;
    QStringList codes;
};

QVector<CodeRule> codeRules()
{
    return {
        { Orlo_Fields::AutoPlan::templateCode, QStringLiteral("计划类型"),
            { PlanType::CumulativeQty, PlanType::AverageQty, PlanType::SameElements, PlanType::ReduceHoldings } },
        { Orlo_Fields::AutoPlan::subType, QStringLiteral("指令类型"),
            { InstructionType::Ordinary, InstructionType::Credit, InstructionType::Bond, InstructionType::HkConnect } },
        { BaseField::orderSide, QStringLiteral("交易方向"),
            { Kelvo_Values::OrderSide::buy, Kelvo_Values::OrderSide::sell } },
        { BaseField::priceModel, QStringLiteral("价格模式"),
            { PriceModel::NoLimit, PriceModel::Custom, PriceModel::CompareMax, PriceModel::CompareMin } },
        { BaseField::InstMode, QStringLiteral("下单模式"),
            { InstMode::ActiveManage, InstMode::NormalReview, InstMode::AlgoReview } },
    };
}

QString formulaError(const QString& caption, const QString& formula)
{
    const Status status = PriceFormula::check(formula, priceNames());
    return status ? QString() : QStringLiteral("%1公式不正确：%2").arg(caption, errorText(status));
}

/// What identifies a plan and stays for its life: the record's keys with their captions.
QVector<QPair<QString, QString>> identityFields()
{
    return {
        { UserAccount::tradingAccount, QStringLiteral("账户") },
        { UserAccount::securityAccount, QStringLiteral("证券账户") },
        { Kelvo_Fields::Security::symbol, QStringLiteral("证券代码") },
        { UserAccount::securityExchange, QStringLiteral("市场") },
        { Orlo_Fields::AutoPlan::subType, QStringLiteral("指令类型") },
        { Orlo_Fields::AutoPlan::templateCode, QStringLiteral("计划类型") },
        { BaseField::orderSide, QStringLiteral("交易方向") },
    };
}

QString changedIdentity(const PlanCheck::Record& stored, const PlanCheck::Record& record)
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
        return QStringLiteral("指令单类型");
    return differ(FieldId::MarginSide, QString::number(noEntrustType)) ? QStringLiteral("委托类别") : QString();
}

} // namespace

PlanCheck::PlanCheck(const Market& market, const AccountDirectory& accounts, const TradeCalendar& calendar)
    : m_market(market)
    , m_accounts(accounts)
    , m_calendar(calendar)
{
}

QString PlanCheck::creationError(const Record& record)
{
    if (record.contains(BaseField::autoPlanId))
        return QStringLiteral("新建计划不能带有计划编号");
    const QString reason = firstReason(record);
    if (!reason.isEmpty())
        return reason;
    const QString securityAccount =
        m_accounts.find(text(UserAccount::tradingAccount))->exchangeAccounts.value(text(UserAccount::securityExchange));
    if (securityAccount.isEmpty())
        return QStringLiteral("账户“%1”在该证券的市场没有证券账户").arg(text(UserAccount::tradingAccount));
    if (securityAccount != text(UserAccount::securityAccount))
        return QStringLiteral("证券账户“%1”不属于该账户").arg(text(UserAccount::securityAccount));
    return QString();
}

QString PlanCheck::modificationError(const Record& stored, const Record& record, const QDate& today)
{
    const QString reason = firstReason(record);
    if (!reason.isEmpty())
        return reason;
    const QString changed = changedIdentity(stored, record);
    if (!changed.isEmpty())
        return QStringLiteral("%1不支持修改").arg(changed);
    const QDate begin = PlanTexts::date(stored.value(BaseField::beginDate).toString());
    if (begin.isValid() && begin <= today && PlanTexts::text(begin) != text(BaseField::beginDate))
        return QStringLiteral("计划已开始执行，开始日期不支持修改");
    return QString();
}

QString PlanCheck::firstReason(const Record& record)
{
    static const QVector<Rule> rules{
        &PlanCheck::checkTexts,
        &PlanCheck::checkOtherParam,
        &PlanCheck::checkCodes,
        &PlanCheck::checkOtherCodes,
        &PlanCheck::checkAccount,
        &PlanCheck::checkSecurity,
        &PlanCheck::checkTotal,
        &PlanCheck::checkPerDay,
        &PlanCheck::checkAmounts,
        &PlanCheck::checkRatio,
        &PlanCheck::checkFormulas,
        &PlanCheck::checkBegin,
        &PlanCheck::checkEnd,
        &PlanCheck::checkRemark,
    };
    m_record = record;
    m_other = PlanTexts::otherParam(text(BaseField::planOtherParam)).value_or(QMap<QString, QVariant>());
    for (const Rule rule : rules) {
        const QString reason = (this->*rule)();
        if (!reason.isEmpty())
            return reason;
    }
    return QString();
}

QString PlanCheck::text(const QString& key) const
{
    return m_record.value(key).toString();
}

QString PlanCheck::other(const QString& key) const
{
    return m_other.value(key).toString();
}

bool PlanCheck::isReduction() const
{
    return text(Orlo_Fields::AutoPlan::templateCode) == PlanType::ReduceHoldings;
}

bool PlanCheck::isAmount() const
{
    return other(FieldId::TargetType) == InstructionTargetType::AmountOrder;
}

QString PlanCheck::checkTexts() const
{
    for (auto field = m_record.cbegin(); field != m_record.cend(); ++field) {
        if (field.value().type() != QVariant::String)
            return QStringLiteral("计划字段“%1”的值不是文本").arg(field.key());
    }
    return QString();
}

QString PlanCheck::checkOtherParam() const
{
    if (!m_record.contains(BaseField::planOtherParam))
        return QStringLiteral("缺少计划扩展信息");
    if (!PlanTexts::otherParam(text(BaseField::planOtherParam)))
        return QStringLiteral("计划扩展信息不是有效的JSON对象");
    return QString();
}

QString PlanCheck::checkCodes() const
{
    const auto rules = codeRules();
    for (const CodeRule& rule : rules) {
        if (!rule.codes.contains(text(rule.key)))
            return QStringLiteral("%1“%2”未知").arg(rule.caption, text(rule.key));
    }
    return QString();
}

QString PlanCheck::checkOtherCodes() const
{
    using namespace InstructionTargetType;
    const QString target = other(FieldId::TargetType);
    if (!target.isEmpty() && target != QtyOrder && target != AmountOrder)
        return QStringLiteral("指令单类型“%1”未知").arg(target);
    const QString priceType = other(Kelvo_Fields::Security::timeInForce);
    if (!priceType.isEmpty() && priceType != Orlo_Values::HKTimeInForce::InTrade
        && priceType != Orlo_Values::HKTimeInForce::BeforeTrade)
        return QStringLiteral("报价类型“%1”未知").arg(priceType);
    if (!m_other.contains(FieldId::MarginSide))
        return QString();
    const auto number = PlanTexts::wholeNumber(other(FieldId::MarginSide));
    const bool known = number
        && (*number == noEntrustType || !entrustTypeOfNumber(static_cast<VorMarginTradeType>(*number)).code.isEmpty());
    return known ? QString() : QStringLiteral("委托类别“%1”未知").arg(other(FieldId::MarginSide));
}

QString PlanCheck::checkAccount() const
{
    const QString account = text(UserAccount::tradingAccount);
    if (account.isEmpty())
        return QStringLiteral("未指定账户");
    if (!m_accounts.find(account))
        return QStringLiteral("账户“%1”不存在").arg(account);
    if (!m_accounts.hasAuthority(account, text(Orlo_Fields::AutoPlan::subType)))
        return QStringLiteral("没有账户“%1”的下单权限").arg(account);
    return QString();
}

QString PlanCheck::checkSecurity() const
{
    const QString symbol = text(Kelvo_Fields::Security::symbol);
    if (symbol.isEmpty())
        return QStringLiteral("未指定证券");
    const Security* security = m_market.find(symbol);
    if (!security)
        return QStringLiteral("证券“%1”不存在").arg(symbol);
    if (security->exchange != text(UserAccount::securityExchange))
        return QStringLiteral("证券“%1”不在市场“%2”交易").arg(symbol, text(UserAccount::securityExchange));
    return QString();
}

// A reduction may leave its total to the holdings, and an amount order counts in yuan: there zero is no mistake.
QString PlanCheck::checkTotal() const
{
    const auto total = PlanTexts::wholeNumber(text(BaseField::totalQty));
    const bool mayBeZero = isReduction() || isAmount();
    if (!total || (*total == 0 && !mayBeZero))
        return QStringLiteral("目标总量“%1”不是正整数").arg(text(BaseField::totalQty));
    return QString();
}

QString PlanCheck::checkPerDay() const
{
    const QString& key = AutoPlanField::Progress::CurrentQty;
    if (m_other.contains(key) && !PlanTexts::wholeNumber(other(key)))
        return QStringLiteral("每日委托量“%1”不是整数").arg(other(key));
    return QString();
}

QString PlanCheck::checkAmounts() const
{
    if (!isAmount())
        return QString();
    const auto total = PlanTexts::decimalNumber(other(BaseField::tradeAmount));
    if (!total || *total <= 0)
        return QStringLiteral("目标金额“%1”不是正数").arg(other(BaseField::tradeAmount));
    const QString perDay = other(BaseField::dayMaxTradeAmount);
    if (!perDay.isEmpty() && !PlanTexts::decimalNumber(perDay))
        return QStringLiteral("每日最大金额“%1”不是数字").arg(perDay);
    return QString();
}

QString PlanCheck::checkRatio() const
{
    if (!isReduction())
        return QString();
    const auto ratio = PlanTexts::decimalNumber(other(BaseField::JCRatio));
    if (!ratio || *ratio <= 0 || *ratio > 1)
        return QStringLiteral("减持占比“%1”不在0到1之间").arg(other(BaseField::JCRatio));
    return QString();
}

QString PlanCheck::checkFormulas() const
{
    const QString model = text(BaseField::priceModel);
    if (model == PriceModel::NoLimit)
        return QString();
    const bool compares = model == PriceModel::CompareMax || model == PriceModel::CompareMin;
    const QString first = compares ? QStringLiteral("价格1") : QStringLiteral("价格");
    const QString reason = formulaError(first, text(BaseField::priceFormula1));
    if (!reason.isEmpty() || !compares)
        return reason;
    return formulaError(QStringLiteral("价格2"), text(BaseField::priceFormula2));
}

QString PlanCheck::checkBegin() const
{
    return checkTradeDay(QStringLiteral("开始日期"), PlanTexts::date(text(BaseField::beginDate)));
}

// A reduction has no end of its own: its end date stands a century ahead, beyond any calendar.
QString PlanCheck::checkEnd() const
{
    const QDate end = PlanTexts::date(text(BaseField::endDate));
    if (!end.isValid())
        return QStringLiteral("结束日期无效");
    if (end < PlanTexts::date(text(BaseField::beginDate)))
        return QStringLiteral("结束日期早于开始日期");
    return isReduction() ? QString() : checkTradeDay(QStringLiteral("结束日期"), end);
}

QString PlanCheck::checkTradeDay(const QString& caption, const QDate& date) const
{
    if (!date.isValid())
        return QStringLiteral("%1无效").arg(caption);
    switch (m_calendar.day(text(UserAccount::securityExchange), date)) {
    case TradeCalendar::Day::Trades:
        return QString();
    case TradeCalendar::Day::Closed:
        return QStringLiteral("%1%2不是交易日").arg(caption, PlanTexts::text(date));
    case TradeCalendar::Day::Unknown:
        break;
    }
    return QStringLiteral("%1%2不在交易日历之内").arg(caption, PlanTexts::text(date));
}

QString PlanCheck::checkRemark() const
{
    if (text(BaseField::remark).size() > longestRemark)
        return QStringLiteral("备注超过%1个字符").arg(longestRemark);
    return QString();
}
