#include "PlanSheet.h"

#include "AutoPlanField.h"
#include "EntrustTypes.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OfferedSecurities.h"
#include "Orlo_Fields.h"
#include "PlanCodes.h"
#include "PlanTexts.h"
#include "StoredTexts.h"
#include "StoredTime.h"

#include <QUuid>

#include <algorithm>

namespace Base = AutoPlanField::BaseField;
namespace UserAccount = Kelvo_Fields::UserAccount;
using namespace PlanCodes;
using namespace TransferForms;

namespace {

using Record = PlanStore::Record;

constexpr double LargestQuantity = 1e14;
constexpr double LargestAmount = 1e13;
constexpr int DecimalsOfAmount = 2;
constexpr int DecimalsOfRatio = 4;
constexpr int YearsOfReduction = 100;
const QString OnlyReductionMode = QStringLiteral("1");

QMap<QString, QVariant> otherOf(const Record& record)
{
    return PlanTexts::otherParam(record.value(Base::planOtherParam).toString()).value_or(QMap<QString, QVariant>());
}

// The same in all languages, so that a file can be imported in another one.
QString stateWord(PlanState state)
{
    static const QStringList names{ StateName::Active, StateName::Paused, StateName::Stopped, StateName::Archived };
    return CodeWords::planStates().word(names.at(static_cast<int>(state)));
}

/// The code of an entrust type, by its name or its number; null if there is none.
QString entrustCode(const QString& text)
{
    for (const EntrustType& type : entrustTypes()) {
        const QString number = QString::number(static_cast<int>(type.number));
        if (text == type.name || text == number)
            return number;
    }
    return QString();
}

QString entrustName(const QString& number)
{
    const EntrustType type = entrustTypeOfNumber(static_cast<VorMarginTradeType>(number.toInt()));
    return type.code.isEmpty() ? number : type.name;
}

} // namespace

/// The reading of one row.
class PlanSheet::Reading {
public:
    Reading(ImportRow& row, const StoredAccount& account, const Security& security, const Record& base)
        : m_row(row)
        , m_account(account)
        , m_security(security)
        , m_base(base)
        , m_record(base)
        , m_other(otherOf(base))
    {
    }

    Record record(const QString& user)
    {
        readIdentity(user);
        readPrices();
        readTargets();
        readDates();
        readHandling();
        checkSecurity();
        m_record.insert(Base::planOtherParam, PlanTexts::jsonText(m_other));
        return m_record;
    }

private:
    void readIdentity(const QString& user)
    {
        m_record.insert(UserAccount::userID, m_base.value(UserAccount::userID, user));
        m_record.insert(Orlo_Fields::AutoPlan::templateCode, m_row.code(PlanColumn::PlanType, CodeWords::planTypes()));
        m_record.insert(
            Orlo_Fields::AutoPlan::subType, m_row.code(PlanColumn::InstructionType, CodeWords::instructionTypes()));
        m_record.insert(UserAccount::tradingAccount, m_account.tradingAccount);
        m_record.insert(Kelvo_Fields::Security::symbol, m_security.symbol);
        m_record.insert(UserAccount::securityExchange, m_security.exchange);
        m_record.insert(UserAccount::securityAccount,
            m_base.value(UserAccount::securityAccount, m_account.exchangeAccounts.value(m_security.exchange)));
        m_record.insert(Base::orderSide, m_row.code(PlanColumn::Side, CodeWords::sides()));
        if (!m_base.isEmpty())
            return;
        m_record.insert(FieldId::Branch, m_account.branchNo);
        m_other.insert(Base::securitySubType, m_security.subType);
    }

    // Without a mode, one price is a formula, and none means no limit.
    void readPrices()
    {
        const QString price = m_row.text(PlanColumn::Price1);
        const QString second = m_row.text(PlanColumn::Price2);
        const QString usual = price.isEmpty() ? PriceModel::NoLimit : PriceModel::Custom;
        const QString mode = m_row.code(PlanColumn::PriceMode, CodeWords::priceModes(),
            second.isEmpty() ? std::optional<QString>(usual) : std::nullopt);
        const bool isUnlimited = mode == PriceModel::NoLimit;
        const QString zero = QString::number(0.0, 'f', m_security.pricePrecision);
        m_record.insert(Base::priceModel, mode);
        if (!isUnlimited || m_base.value(Base::priceModel) != mode) {
            m_record.insert(Base::priceFormula1, isUnlimited ? zero : price);
            setText(m_record, Base::priceFixed, isUnlimited ? zero : QString());
        }
        setText(m_record, Base::priceFormula2, second);
        if (isUnlimited && !price.isEmpty() && price.toDouble() != 0)
            m_row.refuse(PlanColumn::Price1, { Error::UnknownCode, { caption(PlanColumn::Price1), price } });
    }

    void readTargets()
    {
        const auto quantity = storedQuantity(PlanColumn::Quantity);
        const auto daily = storedQuantity(PlanColumn::DailyQuantity);
        const auto amount = amountOf(PlanColumn::Amount);
        const auto dailyAmount = amountOf(PlanColumn::DailyAmount);
        if (amount && quantity)
            m_row.refuse(PlanColumn::Amount, Error::QuantityAndAmount);
        const QString given = m_row.text(PlanColumn::Quantity) + m_row.text(PlanColumn::Amount);
        if (given.isEmpty() && !isReduction())
            m_row.refuse(PlanColumn::Quantity, { Error::CellMissing, { caption(PlanColumn::Quantity) } });
        const auto whole = static_cast<qint64>(amount.value_or(0) / m_security.displayFactor);
        m_record.insert(Base::totalQty, QString::number(quantity.value_or(whole)));
        setText(m_other, FieldId::TargetType, amount ? InstructionTargetType::AmountOrder : QString());
        setNumber(Base::tradeAmount, amount, QString::number(amount.value_or(0), 'f', DecimalsOfAmount));
        setNumber(
            Base::dayMaxTradeAmount, dailyAmount, QString::number(dailyAmount.value_or(0), 'f', DecimalsOfAmount));
        const auto wholeDaily = static_cast<qint64>(dailyAmount.value_or(0) / m_security.displayFactor);
        setText(m_other, AutoPlanField::Progress::CurrentQty,
            isReduction() ? QString() : QString::number(daily.value_or(wholeDaily)));
        readRatio();
    }

    void readRatio()
    {
        NumberUnit share;
        share.isRatio = true;
        const auto ratio = m_row.number(PlanColumn::Ratio, { 0, 1, DecimalsOfRatio }, share);
        setNumber(Base::JCRatio, ratio, decimalText(ratio.value_or(0), DecimalsOfRatio, true));
        setText(m_other, Base::JCModel, isReduction() ? OnlyReductionMode : QString());
    }

    void readDates()
    {
        const QDate begin = m_row.neededText(PlanColumn::Begin).isEmpty() ? QDate() : m_row.date(PlanColumn::Begin);
        const bool isOpen = isReduction() && m_row.text(PlanColumn::End).isEmpty();
        const QDate end = isOpen                          ? begin.addYears(YearsOfReduction)
            : m_row.neededText(PlanColumn::End).isEmpty() ? QDate()
                                                          : m_row.date(PlanColumn::End);
        m_record.insert(Base::beginDate, PlanTexts::text(begin));
        m_record.insert(Base::endDate, PlanTexts::text(end));
    }

    void readHandling()
    {
        const bool hasAlgorithm = !m_row.text(PlanColumn::Algorithm).isEmpty();
        m_record.insert(Base::InstMode,
            m_row.code(PlanColumn::Mode, CodeWords::instructionModes(),
                hasAlgorithm ? InstMode::AlgoReview : InstMode::ActiveManage));
        setText(m_record, Base::expectedUser, m_row.text(PlanColumn::Assignee));
        setText(m_record, Base::executeUser, m_row.text(PlanColumn::Executor));
        setText(m_record, Base::remark, m_row.text(PlanColumn::Remark));
        setText(m_other, Kelvo_Fields::Security::timeInForce,
            m_row.code(PlanColumn::PriceType, CodeWords::priceTypes(), QString()));
        const QString entrust = m_row.text(PlanColumn::EntrustType);
        const QString number = entrust.isEmpty() ? QString() : entrustCode(entrust);
        if (!entrust.isEmpty() && number.isNull())
            m_row.refuse(
                PlanColumn::EntrustType, { Error::UnknownCode, { caption(PlanColumn::EntrustType), entrust } });
        setText(m_other, FieldId::MarginSide, number);
        readAlgorithm();
    }

    // A stored plan keeps its security.
    void checkSecurity()
    {
        const QString type = m_record.value(Orlo_Fields::AutoPlan::subType).toString();
        const QMap<QString, QVariant> otherBase = otherOf(m_base);
        const bool byAmount = isAmount(m_other);
        if (type.isEmpty()
            || (m_base.value(Orlo_Fields::AutoPlan::subType) == type && isAmount(otherBase) == byAmount
                && m_base.value(Kelvo_Fields::Security::symbol) == m_security.symbol))
            return;
        const QStringList details{ m_security.symbol, CodeWords::instructionTypes().word(type) };
        if (!OfferedSecurities::contains(m_security, type, false))
            m_row.refuse(PlanColumn::Symbol, { Error::SecurityNotOffered, details });
        else if (byAmount && !OfferedSecurities::contains(m_security, type, true))
            m_row.refuse(PlanColumn::Amount, { Error::AmountNotOffered, details });
    }

    static bool isAmount(const QMap<QString, QVariant>& other)
    {
        return other.value(FieldId::TargetType) == InstructionTargetType::AmountOrder;
    }

    void readAlgorithm()
    {
        const QString parameters = m_row.text(PlanColumn::Parameters);
        const auto map = PlanTexts::otherParam(parameters);
        if (!parameters.isEmpty() && !map)
            m_row.refuse(PlanColumn::Parameters, Error::ParametersNotJson);
        setText(m_other, Base::algoStrategyName, m_row.text(PlanColumn::Algorithm));
        m_other.remove(Base::algoParam);
        if (map)
            m_other.insert(Base::algoParam, *map);
    }

    // A stored number may have other decimals.
    void setNumber(const QString& key, const std::optional<double>& number, const QString& text)
    {
        const QString stored = m_other.value(key).toString();
        if (!number || stored.isEmpty() || stored.toDouble() != *number)
            setText(m_other, key, number ? text : QString());
    }

    static void setText(QMap<QString, QVariant>& map, const QString& key, const QString& text)
    {
        if (text.isEmpty())
            map.remove(key);
        else
            map.insert(key, text);
    }

    static QString caption(int column) { return TransferForms::plans().columns.at(column).name(); }

    bool isReduction() const { return m_record.value(Orlo_Fields::AutoPlan::templateCode) == PlanType::ReduceHoldings; }

    std::optional<qint64> storedQuantity(int column)
    {
        const bool isBond = m_security.type == Kelvo_Values::MdcSecurityType::BondType;
        const NumberUnit unit{ isBond ? QStringLiteral("张") : QStringLiteral("股"), m_security.quantityStep, false };
        const auto number = m_row.number(column, { 0, LargestQuantity, 0 }, unit);
        if (!number)
            return std::nullopt;
        const auto shown = static_cast<qint64>(*number);
        if (shown % m_security.displayFactor != 0)
            m_row.refuse(
                column, { Error::NotInUnits, { QString::number(shown), QString::number(m_security.displayFactor) } });
        return shown / m_security.displayFactor;
    }

    std::optional<double> amountOf(int column)
    {
        return m_row.number(column, { 0, LargestAmount, DecimalsOfAmount }, { QStringLiteral("元"), 1, false });
    }

    ImportRow& m_row;
    const StoredAccount& m_account;
    const Security& m_security;
    const Record& m_base;
    Record m_record;
    QMap<QString, QVariant> m_other;
};

PlanSheet::PlanSheet(Database& database, const Market& market, const StoredUser& user)
    : m_database(database)
    , m_market(market)
    , m_user(user)
    , m_algorithms(database, user)
{
}

Result<StoredAccount> PlanSheet::account(const QString& number)
{
    const auto known = m_accounts.constFind(number);
    if (known != m_accounts.cend())
        return *known;
    const Result<StoredAccount> read = AccountStore(m_database).account(number);
    if (read)
        m_accounts.insert(number, *read);
    return read;
}

// Spreadsheets often have codes without a market.
const Security* PlanSheet::securityOf(const QString& symbol) const
{
    if (symbol.contains(QLatin1Char('.')))
        return m_market.find(symbol);
    const Security* only = nullptr;
    for (const QString& suffix :
        { Kelvo_Values::SymbolPost::sh, Kelvo_Values::SymbolPost::sz, SymbolSuffix::Bj, SymbolSuffix::Hk }) {
        const Security* const found = m_market.find(symbol + suffix);
        if (found && only)
            return nullptr;
        only = found ? found : only;
    }
    return only;
}

Result<Record> PlanSheet::record(ImportRow& row, const Record& base)
{
    const QString symbol = row.neededText(PlanColumn::Symbol).toUpper();
    const Security* const security = securityOf(symbol);
    if (!symbol.isEmpty() && !security)
        row.refuse(PlanColumn::Symbol, { Error::UnknownSecurity, { symbol } });
    const QString number = row.neededText(PlanColumn::Account);
    const Result<StoredAccount> owner = account(number);
    if (!owner)
        return owner.status();
    if (!number.isEmpty() && owner->tradingAccount.isEmpty())
        row.refuse(PlanColumn::Account, { Error::UnknownAccount, { number } });
    if (row.isRefused())
        return Record();
    Record record = Reading(row, *owner, *security, base).record(m_user.id);
    if (Status status = m_algorithms.complete(row, *security, base, record); !status)
        return status;
    return row.isRefused() ? Record() : record;
}

QStringList PlanSheet::texts(const StoredPlan& plan) const
{
    const QMap<QString, QVariant> other = otherOf(plan.record);
    const auto text = [&plan](const QString& key) { return plan.record.value(key).toString(); };
    const auto extra = [&other](const QString& key) { return other.value(key).toString(); };
    const QString symbol = text(Kelvo_Fields::Security::symbol);
    const Security* const security = m_market.find(symbol);
    const int factor = security ? security->displayFactor : 1;
    const bool isAmount = extra(FieldId::TargetType) == InstructionTargetType::AmountOrder;
    const bool isUnlimited = text(Base::priceModel) == PriceModel::NoLimit;
    const bool isReduction = text(Orlo_Fields::AutoPlan::templateCode) == PlanType::ReduceHoldings;
    const auto shown = [factor](const QString& stored) {
        return stored.isEmpty() ? stored : QString::number(stored.toLongLong() * factor);
    };
    const QString entrust = extra(FieldId::MarginSide);
    const QMap<QString, QVariant> parameters = other.value(Base::algoParam).toMap();
    QStringList row;
    row << plan.id << QString::number(plan.version) << StoredTime::toText(plan.created) << stateWord(plan.state)
        << text(UserAccount::tradingAccount) << CodeWords::instructionTypes().word(text(Orlo_Fields::AutoPlan::subType))
        << CodeWords::planTypes().word(text(Orlo_Fields::AutoPlan::templateCode)) << symbol
        << CodeWords::sides().word(text(Base::orderSide)) << CodeWords::priceModes().word(text(Base::priceModel))
        << (isUnlimited ? QString() : text(Base::priceFormula1)) << text(Base::priceFormula2)
        << (isAmount || (isReduction && text(Base::totalQty) == QLatin1String("0")) ? QString()
                                                                                    : shown(text(Base::totalQty)))
        << extra(Base::tradeAmount) << (isAmount ? QString() : shown(extra(AutoPlanField::Progress::CurrentQty)))
        << extra(Base::dayMaxTradeAmount) << extra(Base::JCRatio) << text(Base::beginDate) << text(Base::endDate)
        << CodeWords::instructionModes().word(text(Base::InstMode)) << text(Base::expectedUser)
        << text(Base::executeUser) << CodeWords::priceTypes().word(extra(Kelvo_Fields::Security::timeInForce))
        << (entrust.isEmpty() ? entrust : entrustName(entrust)) << extra(Base::algoStrategyName)
        << (parameters.isEmpty() ? QString() : PlanTexts::jsonText(parameters)) << text(Base::remark);
    return row;
}

QString PlanSheet::reference(const ImportRow& row)
{
    const QString plan = row.text(PlanColumn::Plan);
    if (!plan.isEmpty())
        return plan + QLatin1Char('@') + row.text(PlanColumn::Created);
    QStringList cells;
    for (int column = PlanColumn::Account; column <= PlanColumn::Remark; ++column)
        cells << row.cell(column);
    return cells.join(QLatin1Char('\x1F'));
}

QString PlanSheet::requestOf(const StoredUser& user, const QString& text)
{
    static const QUuid rows(QStringLiteral("{8c2f0d7e-6a53-4f0e-9b1d-2f6f5a9f3c41}"));
    return QUuid::createUuidV5(rows, user.id + QLatin1Char('\x1E') + text).toString(QUuid::WithoutBraces);
}

bool PlanSheet::isEqual(const Record& one, const Record& other)
{
    Record first = one;
    Record second = other;
    first.remove(Base::planOtherParam);
    second.remove(Base::planOtherParam);
    return first == second && otherOf(one) == otherOf(other);
}
