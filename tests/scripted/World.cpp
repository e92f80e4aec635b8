#include "World.h"

#include "AutoPlanField.h"
#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include "PlanVocabulary.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

QList<QDate> weekdaysOfTwelveMonths()
{
    QList<QDate> dates;
    const QDate end(2025, 4, 30);
    for (QDate date(2024, 5, 1); date <= end; date = date.addDays(1)) {
        if (date.dayOfWeek() < Qt::Saturday)
            dates.append(date);
    }
    return dates;
}

QString exchangeOf(const QString& symbol)
{
    if (symbol.endsWith(Kelvo_Values::SymbolPost::sh))
        return Kelvo_Values::Exchange::sh;
    if (symbol.endsWith(Kelvo_Values::SymbolPost::sz))
        return Kelvo_Values::Exchange::sz;
    return Orlo_Values::Exchange::bj;
}

QString textKey(const QString& category, const QString& key)
{
    return category + QLatin1Char('/') + key;
}

bool fits(const SymbolQuery& query, const QString& symbol, const ScriptSecurity& security)
{
    if (security.type != query.type || !query.subTypes.contains(security.subType))
        return false;
    return query.suffixes.isEmpty()
        || std::any_of(query.suffixes.cbegin(), query.suffixes.cend(),
            [&symbol](const QString& suffix) { return symbol.endsWith(suffix); });
}

} // namespace

World::World()
{
    using namespace AutoPlanInstructionType;
    using AutoPlanStaticCfg::InstructionType;
    using AutoPlanStaticCfg::TargetType;
    tradeDates = weekdaysOfTwelveMonths();
    staticTexts = { { textKey(InstructionType, Ordinary), QStringLiteral("普通") },
        { textKey(InstructionType, Credit), QStringLiteral("信用") },
        { textKey(InstructionType, Bond), QStringLiteral("债券") },
        { textKey(InstructionType, HkConnect), QStringLiteral("港股通") },
        { textKey(TargetType, InstructionTargetType::QtyOrder), QStringLiteral("按数量") },
        { textKey(TargetType, InstructionTargetType::AmountOrder), QStringLiteral("按金额") } };
}

void World::addAccount(
    const QString& tradingAccount, const QStringList& exchangesHeld, const QStringList& instructionTypes, bool isCredit)
{
    ScriptAccount added;
    added.tradingAccount = tradingAccount;
    added.fundAccount = QStringLiteral("F-") + tradingAccount;
    added.accountName = QStringLiteral("N-") + tradingAccount;
    added.clientNo = QStringLiteral("C-") + tradingAccount;
    added.branchNo = QStringLiteral("B-") + tradingAccount;
    added.exchanges = exchangesHeld;
    added.types = instructionTypes;
    added.isCredit = isCredit;
    accounts.append(added);
}

void World::addOrdinaryAccount(const QString& tradingAccount)
{
    using namespace AutoPlanInstructionType;
    addAccount(tradingAccount, exchanges(), { Ordinary, Bond, HkConnect });
}

void World::addCreditAccount(const QString& tradingAccount)
{
    addAccount(tradingAccount, { Kelvo_Values::Exchange::sh, Kelvo_Values::Exchange::sz },
        { AutoPlanInstructionType::Credit }, true);
}

void World::addStock(const QString& symbol)
{
    ScriptSecurity security;
    security.exchange = exchangeOf(symbol);
    security.type = Kelvo_Values::MdcSecurityType::StockType;
    security.subType = Kelvo_Values::MdcSubSecurityType::Ashares;
    security.chineseName = QStringLiteral("股票") + symbol;
    security.hasPriceLimit = true;
    security.qtyStep = 100;
    securities.insert(symbol, security);
}

void World::addBond(const QString& symbol, int displayFactor)
{
    ScriptSecurity security;
    security.exchange = exchangeOf(symbol);
    security.type = Kelvo_Values::MdcSecurityType::BondType;
    security.subType = Orlo_Values::MdcSubSecurityType::AllBondNoRepurchaseTypeList.value(0);
    security.chineseName = QStringLiteral("债券") + symbol;
    security.displayFactor = displayFactor;
    security.pricePrecision = 3;
    security.qtyStep = 10;
    securities.insert(symbol, security);
}

void World::addHkStock(const QString& symbol, int qtyStep)
{
    ScriptSecurity security;
    security.exchange = Orlo_Values::Exchange::HkStockCirculation;
    security.type = Kelvo_Values::MdcSecurityType::StockType;
    security.subType = Orlo_Values::MdcSubSecurityType::HStcokCirculation;
    security.chineseName = QStringLiteral("港股") + symbol;
    security.pricePrecision = 3;
    security.qtyStep = qtyStep;
    securities.insert(symbol, security);
}

QString World::storePlan(const FieldMap& record)
{
    const QString id = QStringLiteral("P%1").arg(plans.size() + 1);
    FieldMap& stored = plans[id];
    stored = record;
    stored.insert(AutoPlanField::BaseField::autoPlanId, id);
    return id;
}

ScriptAccount World::account(const QString& tradingAccount) const
{
    const auto found = std::find_if(accounts.cbegin(), accounts.cend(),
        [&](const ScriptAccount& candidate) { return candidate.tradingAccount == tradingAccount; });
    return found == accounts.cend() ? ScriptAccount() : *found;
}

ScriptSecurity World::security(const QString& symbol) const
{
    return securities.value(symbol);
}

QString World::securityAccount(const QString& tradingAccount, const QString& exchange) const
{
    const bool isHeld = account(tradingAccount).exchanges.contains(exchange);
    return isHeld ? QStringLiteral("S-%1-%2").arg(tradingAccount, exchange) : QString();
}

int World::rule(const QString& tradingAccount, const QString& instructionType) const
{
    return ruleProperties.value(tradingAccount + QLatin1Char('/') + instructionType, ruleProperty);
}

QString World::chain(const QString& tradingAccount, const QString& instructionType) const
{
    return QStringLiteral("chain-%1-%2").arg(tradingAccount, instructionType);
}

QString World::staticText(const QString& category, const QString& key) const
{
    return staticTexts.value(textKey(category, key));
}

SymbolList World::symbolsOf(const SymbolQuery& query) const
{
    if (symbols)
        return symbols(query);
    QStringList found;
    for (auto it = securities.cbegin(); it != securities.cend(); ++it) {
        if (fits(query, it.key(), it.value()))
            found.append(it.key());
    }
    return found;
}

FieldMap World::otherParamOf(const FieldMap& record) const
{
    if (otherParam)
        return otherParam(record);
    const QString text = record.value(AutoPlanField::BaseField::planOtherParam).toString();
    return QJsonDocument::fromJson(text.toUtf8()).object().toVariantMap();
}

QStringList exchanges()
{
    return { Kelvo_Values::Exchange::sh, Kelvo_Values::Exchange::sz, Orlo_Values::Exchange::bj,
        Orlo_Values::Exchange::HkStockCirculation };
}

QStringList entrustTypes()
{
    using namespace Orlo_Values::SideUnion;
    return { QString(), collateralBuy, collateralSell, marginBuy, marginSell, financingBuy, financingSell,
        marginBuyNormal, marginSellNormal, BondConversion, paidRationShare };
}
