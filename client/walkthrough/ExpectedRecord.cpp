#include "ExpectedRecord.h"

#include "Algo_Fields.h"
#include "Algo_Values.h"
#include "AutoPlanField.h"
#include "CDataBase.h"
#include "ControlValue.h"
#include "InstructionBusinessDataInterface.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloConstants.h"
#include "Orlo_Fields.h"
#include "ParameterValue.h"
#include "PlanCodes.h"
#include "StrategyLibrary.h"

#include <QDate>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>

namespace Base = AutoPlanField::BaseField;
namespace Content = Algo_Fields::AlgoInstContentInfo;
namespace UserAccount = Kelvo_Fields::UserAccount;
using namespace PlanCodes;

namespace {

constexpr int AmountDecimals = 2;
constexpr int EndlessYears = 100;

QString lateEnd(const QString& begin)
{
    const QString& format = OrloConstants::DateTimeFormatString::STD_DATE_FORMAT;
    return QLocale::c().toString(QLocale::c().toDate(begin, format).addYears(EndlessYears), format);
}

QString amountText(const QString& typed)
{
    return QString::number(typed.toDouble(), 'f', AmountDecimals);
}

QString orderProperty(const QString& entrustType)
{
    return CDataBase::GetInstance()->GetStaticCfgValue(
        OrloConstants::DictionaryKey::SideUnion2AlgoDefines, entrustType);
}

QString shown(const QVariant& value)
{
    return value.userType() == QMetaType::QVariantMap
        ? QString::fromUtf8(QJsonDocument(QJsonObject::fromVariantMap(value.toMap())).toJson(QJsonDocument::Compact))
        : value.toString();
}

template <class Value>
void compare(const QMap<QString, Value>& expected, const QMap<QString, Value>& stored, QStringList& differences)
{
    for (auto it = expected.cbegin(); it != expected.cend(); ++it) {
        if (!stored.contains(it.key()))
            differences << QStringLiteral("缺少%1（应为“%2”）").arg(it.key(), shown(*it));
        else if (stored.value(it.key()) != *it)
            differences
                << QStringLiteral("%1为“%2”，应为“%3”").arg(it.key(), shown(stored.value(it.key())), shown(*it));
    }
    for (auto it = stored.cbegin(); it != stored.cend(); ++it) {
        if (!expected.contains(it.key()))
            differences << QStringLiteral("多出%1（“%2”）").arg(it.key(), shown(*it));
    }
}

} // namespace

ExpectedRecord::ExpectedRecord(
    const PlanForm& form, const ShownDates& dates, const QString& userId, DatabaseProbe& probe)
    : m_form(form)
    , m_security(probe.security(form.symbol))
{
    addIdentity(userId, probe);
    addPrices();
    addPersonAndDates(dates);
    addOther();
}

QStringList ExpectedRecord::differences(const QMap<QString, QString>& stored) const
{
    QStringList found;
    QMap<QString, QString> fields = stored;
    const QString other = fields.take(Base::planOtherParam);
    compare(m_fields, fields, found);
    compare(m_other, QJsonDocument::fromJson(other.toUtf8()).object().toVariantMap(), found);
    return found;
}

PlanStore::Record ExpectedRecord::record() const
{
    PlanStore::Record record;
    for (auto field = m_fields.cbegin(); field != m_fields.cend(); ++field)
        record.insert(field.key(), *field);
    const QJsonDocument other(QJsonObject::fromVariantMap(m_other));
    record.insert(Base::planOtherParam, QString::fromUtf8(other.toJson(QJsonDocument::Compact)));
    return record;
}

QString ExpectedRecord::wholeNumber(const QString& typed) const
{
    return QString::number(static_cast<qint64>(typed.toDouble()) / m_security.displayFactor);
}

void ExpectedRecord::addIdentity(const QString& userId, DatabaseProbe& probe)
{
    m_fields.insert(UserAccount::userID, userId);
    m_fields.insert(UserAccount::tradingAccount, m_form.account);
    m_fields.insert(UserAccount::securityExchange, m_security.exchange);
    m_fields.insert(UserAccount::securityAccount, probe.securityAccount(m_form.account, m_security.exchange));
    m_fields.insert(FieldId::Branch, probe.branchOf(m_form.account));
    m_fields.insert(Kelvo_Fields::Security::symbol, m_form.symbol);
    m_fields.insert(Orlo_Fields::AutoPlan::templateCode, m_form.planType);
    m_fields.insert(Orlo_Fields::AutoPlan::subType, m_form.instructionType);
    m_fields.insert(Base::orderSide, m_form.side);
    m_fields.insert(Base::totalQty, wholeNumber(m_form.target));
    m_fields.insert(Base::InstMode, m_form.instructionMode);
}

void ExpectedRecord::addPrices()
{
    const bool unlimited = m_form.priceMode == PriceModel::NoLimit;
    const QString noPrice = QString::number(0.0, 'f', m_security.pricePrecision);
    m_fields.insert(Base::priceModel, m_form.priceMode);
    m_fields.insert(Base::priceFormula1, unlimited ? noPrice : m_form.price1);
    if (unlimited)
        m_fields.insert(Base::priceFixed, noPrice);
    if (!m_form.price2.isEmpty())
        m_fields.insert(Base::priceFormula2, m_form.price2);
}

void ExpectedRecord::addPersonAndDates(const ShownDates& dates)
{
    if (!m_form.assignee.isEmpty())
        m_fields.insert(m_form.isReduction() ? Base::executeUser : Base::expectedUser, m_form.assignee);
    m_fields.insert(Base::beginDate, dates.begin);
    m_fields.insert(Base::endDate, m_form.isReduction() ? lateEnd(dates.begin) : dates.end);
    if (!m_form.remark.isEmpty())
        m_fields.insert(Base::remark, m_form.remark);
}

void ExpectedRecord::addOther()
{
    m_other.insert(Base::securitySubType, m_security.subType);
    if (m_form.isByAmount()) {
        m_other.insert(FieldId::TargetType, m_form.targetType);
        m_other.insert(Base::tradeAmount, amountText(m_form.target));
        m_other.insert(Base::dayMaxTradeAmount, amountText(m_form.perDay));
    }
    if (m_form.isReduction()) {
        m_other.insert(Base::JCRatio, m_form.ratio);
        m_other.insert(Base::JCModel, QStringLiteral("1"));
    } else {
        m_other.insert(AutoPlanField::Progress::CurrentQty, wholeNumber(m_form.perDay));
    }
    if (!m_form.priceType.isEmpty())
        m_other.insert(Kelvo_Fields::Security::timeInForce, m_form.priceType);
    if (!m_form.entrustType.isEmpty()) {
        const auto number = InstructionBusinessDataInterface::transSideUnion2Enum(m_form.entrustType);
        m_other.insert(FieldId::MarginSide, QString::number(static_cast<int>(number)));
    }
    if (m_form.strategy.isEmpty())
        return;
    m_other.insert(Base::algoStrategyName, m_form.strategy);
    m_other.insert(Base::algoParam, algorithm());
}

QMap<QString, QVariant> ExpectedRecord::algorithm() const
{
    const bool buys = m_form.side == Kelvo_Values::OrderSide::buy;
    QMap<QString, QVariant> map{ { Content::TradingAccount, m_form.account }, { Content::Symbol, m_form.symbol },
        { Content::OrderSide, buys ? Algo_Values::AlgoOrderSide::BuyValue : Algo_Values::AlgoOrderSide::SellValue },
        { Content::EntrustProp, orderProperty(m_form.entrustType) }, { Base::algoStrategyName, m_form.strategy } };
    const StrategyDefinition strategy = StrategyLibrary::instance().strategy(m_form.strategy);
    const QMap<QString, QString> defaults = ControlValue::defaults(strategy);
    for (const StrategyParameter& parameter : strategy.parameters) {
        QString value = defaults.value(parameter.name);
        if (m_form.parameters.contains(parameter.name))
            value = ParameterValue::entered(parameter, m_form.parameters.value(parameter.name));
        if (!value.isEmpty())
            map.insert(parameter.name, value);
    }
    return map;
}
