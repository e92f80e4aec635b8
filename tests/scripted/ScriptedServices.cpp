#include "AgreementDC.h"
#include "AlgoTradeLogicNew.h"
#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "BusinessDataInterface.h"
#include "CBusinessDataBase.h"
#include "CDataBase.h"
#include "InstructionBusinessDataInterface.h"
#include "OrloBusiUtils.h"
#include "OrloBusinessDataInterface.h"
#include "OrloTradeLogic.h"
#include "OrloUtils.h"
#include "OrloWidget.h"
#include "Orlo_Values.h"
#include "Script.h"

namespace {

Script& script()
{
    return Script::instance();
}

QString nameOf(const QWidget* widget)
{
    return widget == nullptr ? QStringLiteral("null") : widget->objectName();
}

} // namespace

// --- AgreementDC

AgreementDC& AgreementDC::instance()
{
    static AgreementDC agreements;
    return agreements;
}

QStringList AgreementDC::GetUnsignedClientNoList(const QString& protocolId)
{
    script().record(QStringLiteral("GetUnsignedClientNoList"), { protocolId });
    return script().unsignedClients;
}

// --- AlgoTradeLogicNew

AlgoTradeLogicNew::AlgoTradeLogicNew() = default;
AlgoTradeLogicNew::~AlgoTradeLogicNew() = default;

AlgoTradeLogicNew* AlgoTradeLogicNew::GetInstance()
{
    static AlgoTradeLogicNew logic;
    return &logic;
}

AesStrategy AlgoTradeLogicNew::GetStrategy(const QString& name)
{
    script().record(QStringLiteral("GetStrategy"), { name });
    if (!script().strategyAliases.contains(name))
        return {};
    return { name, script().strategyAliases.value(name), QStringLiteral("provider"), QStringLiteral("1") };
}

// --- AutoPlanLogic

AutoPlanLogic::AutoPlanLogic()
{
    connect(
        this, &AutoPlanLogic::signalQuerySymbolMAInfo, this, [](const QString& tradingAccount, const QString& symbol) {
            script().record(QStringLiteral("signalQuerySymbolMAInfo"), { tradingAccount, symbol });
        });
}

AutoPlanLogic::~AutoPlanLogic() = default;

AutoPlanLogic& AutoPlanLogic::instance()
{
    static AutoPlanLogic logic;
    return logic;
}

QString AutoPlanLogic::CreateNewPlan(QMap<QString, QVariant> record)
{
    script().createdRecords.append(record);
    script().record(QStringLiteral("CreateNewPlan"), { record });
    return script().createAnswer;
}

QString AutoPlanLogic::modifyPlan(const QMap<QString, QVariant>& record)
{
    script().modifiedRecords.append(record);
    script().record(QStringLiteral("modifyPlan"), { record });
    return script().modifyAnswer;
}

QMap<QString, QVariant> AutoPlanLogic::GetPlanInfo(QString planId)
{
    script().record(QStringLiteral("GetPlanInfo"), { planId });
    return script().plans.value(planId);
}

QMap<QString, QVariant> AutoPlanLogic::GetPlanOtherParamFromPlanInfo(const QMap<QString, QVariant>& record)
{
    script().record(QStringLiteral("GetPlanOtherParamFromPlanInfo"),
        { record.value(AutoPlanField::BaseField::autoPlanId).toString() });
    return script().otherParamOf(record);
}

QMap<QString, QMap<QString, QVariant>> AutoPlanLogic::GetPlanInstruction(QString planId)
{
    script().record(QStringLiteral("GetPlanInstruction"), { planId });
    return script().planInstructions(planId);
}

QList<QDate> AutoPlanLogic::GetTradeDateList(const QString& exchange, QString& error)
{
    script().record(QStringLiteral("GetTradeDateList"), { exchange, error });
    error = script().tradeDatesError(exchange);
    return script().tradeDates(exchange);
}

// --- BusinessDataInterface

QList<QMap<QString, QVariant>> BusinessDataInterface::GetPositionListByAccount(const tagUserAccountInfo& account,
    const QString& securityAccount, const QString& symbol, const QString& currency, const QString& portfolio,
    const QString& strategy, const QString& seat)
{
    script().record(QStringLiteral("GetPositionListByAccount"),
        { account.tradingAccount, securityAccount, symbol, currency, portfolio, strategy, seat });
    return script().positions(account.tradingAccount, securityAccount, symbol);
}

// --- CBusinessDataBase

namespace {

/// The editor neither asks for expired securities nor excludes any.
SymbolList symbolsOf(const SymbolQuery& query, bool withExpired, const QStringList& excluded)
{
    if (withExpired || !excluded.isEmpty())
        return { QStringLiteral("asked wrongly") };
    return script().symbolsOf(query);
}

} // namespace

CBusinessDataBase* CBusinessDataBase::GetInstance()
{
    static CBusinessDataBase data;
    return &data;
}

QMap<QString, QVariant> CBusinessDataBase::GetLoginAccountDetail()
{
    script().record(QStringLiteral("GetLoginAccountDetail"), {});
    return script().loginAccountDetail;
}

tagUserAccountInfo CBusinessDataBase::GetAccountDetailsByTradinngAccount(const QString& tradingAccount)
{
    script().record(QStringLiteral("GetAccountDetailsByTradinngAccount"), { tradingAccount });
    return script().account(tradingAccount);
}

SymbolList CBusinessDataBase::GetAllSymbolByTypeList(const QString& securityType, const QStringList& subTypes,
    const QStringList& suffixes, bool withExpired, const QStringList& excluded)
{
    script().record(
        QStringLiteral("GetAllSymbolByTypeList"), { securityType, subTypes, suffixes, withExpired, excluded });
    return symbolsOf({ securityType, subTypes, suffixes }, withExpired, excluded);
}

SymbolList CBusinessDataBase::GetAllSymbolByType(const QString& securityType, const QString& subType,
    const QString& suffix, bool withExpired, const QStringList& excluded)
{
    script().record(QStringLiteral("GetAllSymbolByType"), { securityType, subType, suffix, withExpired, excluded });
    const QStringList suffixes = suffix.isEmpty() ? QStringList() : QStringList(suffix);
    return symbolsOf({ securityType, { subType }, suffixes }, withExpired, excluded);
}

QString CBusinessDataBase::GetSecuritySubTypeBySymbol(const QString& symbol)
{
    script().record(QStringLiteral("CBusinessDataBase::GetSecuritySubTypeBySymbol"), { symbol });
    return script().security(symbol).subType;
}

bool CBusinessDataBase::IsSymbolHasPriceLimit(const QString& symbol)
{
    script().record(QStringLiteral("IsSymbolHasPriceLimit"), { symbol });
    return script().security(symbol).hasPriceLimit;
}

// --- CDataBase

CDataBase* CDataBase::GetInstance()
{
    static CDataBase data;
    return &data;
}

QString CDataBase::GetStaticCfgValue(const QString& category, const QString& key, const QString& defaultValue)
{
    script().record(QStringLiteral("GetStaticCfgValue"), { category, key });
    return script().staticTexts.value(category + QLatin1Char('/') + key, defaultValue);
}

// --- InstructionBusinessDataInterface

bool InstructionBusinessDataInterface::hasOrderAuthority(QString tradingAccount, QString instructionType)
{
    script().record(QStringLiteral("hasOrderAuthority"), { tradingAccount, instructionType });
    return script().account(tradingAccount).types.contains(instructionType);
}

int InstructionBusinessDataInterface::GetCurrentUserInstructionRuleProper(
    const QString& tradingAccount, const QString& instructionType)
{
    script().record(QStringLiteral("GetCurrentUserInstructionRuleProper"), { tradingAccount, instructionType });
    return script().rule(tradingAccount, instructionType);
}

QString InstructionBusinessDataInterface::getChainKeyForTraddingAccout(
    const QString& tradingAccount, QString instructionType)
{
    script().record(QStringLiteral("getChainKeyForTraddingAccout"), { tradingAccount, instructionType });
    return script().chain(tradingAccount, instructionType);
}

QStringList InstructionBusinessDataInterface::GetExcuteUsers(const QString& chainKey)
{
    script().record(QStringLiteral("GetExcuteUsers"), { chainKey });
    return script().executeUsers(chainKey);
}

QStringList InstructionBusinessDataInterface::GetForwardUsers(const QString& chainKey, VorInstructionNodeType nodeType)
{
    script().record(QStringLiteral("GetForwardUsers"), { chainKey, static_cast<int>(nodeType) });
    if (nodeType != VorInstructionNodeType::Forward)
        return { QStringLiteral("asked wrongly") };
    return script().forwardUsers(chainKey);
}

QStringList InstructionBusinessDataInterface::getWhiteAlgoNameList(
    const QString& instructionType, const QString& targetType, const QString& symbol)
{
    script().record(QStringLiteral("getWhiteAlgoNameList"), { instructionType, targetType, symbol });
    return script().whiteAlgoNames(instructionType, targetType, symbol);
}

QStringList InstructionBusinessDataInterface::getBlackAlgoNameList(const QString& targetType)
{
    script().record(QStringLiteral("getBlackAlgoNameList"), { targetType });
    return script().blackAlgoNames(targetType);
}

VorMarginTradeType InstructionBusinessDataInterface::transSideUnion2Enum(const QString& sideUnion)
{
    script().record(QStringLiteral("transSideUnion2Enum"), { sideUnion });
    return static_cast<VorMarginTradeType>(qMax(0, entrustTypes().indexOf(sideUnion)));
}

QString InstructionBusinessDataInterface::transEnum2SideUnion(const VorMarginTradeType& tradeType)
{
    script().record(QStringLiteral("transEnum2SideUnion"), { static_cast<int>(tradeType) });
    return entrustTypes().value(static_cast<int>(tradeType));
}

// --- OrloBusiUtils

QString OrloBusiUtils::GetSideUnionChineseName(const QString& sideUnion)
{
    script().record(QStringLiteral("GetSideUnionChineseName"), { sideUnion });
    return QStringLiteral("委托类别-") + sideUnion;
}

// --- OrloBusinessDataInterface

QList<tagUserAccountInfo> OrloBusinessDataInterface::GetFundAccountListByFundProp(
    int fundProperty, int assetProperty, bool withClosed, const QStringList& accountTypes, bool onlyUsable)
{
    script().record(QStringLiteral("GetFundAccountListByFundProp"),
        { fundProperty, assetProperty, withClosed, accountTypes, onlyUsable });
    QList<tagUserAccountInfo> accounts;
    for (const ScriptAccount& account : qAsConst(script().accounts))
        accounts.append(account);
    return accounts;
}

QMap<QString, QString> OrloBusinessDataInterface::GetCurrentSecurityAccountByTradingAccount(
    const QString& tradingAccount)
{
    script().record(QStringLiteral("GetCurrentSecurityAccountByTradingAccount"), { tradingAccount });
    QMap<QString, QString> held;
    for (const QString& exchange : script().account(tradingAccount).exchanges)
        held.insert(exchange, script().securityAccount(tradingAccount, exchange));
    return held;
}

QString OrloBusinessDataInterface::GetCurrentSecurityAccountByTradingAndExchange(
    const QString& tradingAccount, const QString& exchange)
{
    script().record(QStringLiteral("GetCurrentSecurityAccountByTradingAndExchange"), { tradingAccount, exchange });
    return script().securityAccount(tradingAccount, exchange);
}

QString OrloBusinessDataInterface::GetAccountAssetPropByTradingAccount(const QString& tradingAccount)
{
    script().record(QStringLiteral("GetAccountAssetPropByTradingAccount"), { tradingAccount });
    // Any other property works, too: the editor only checks for that of credit accounts.
    const bool isCredit = script().account(tradingAccount).isCredit;
    return isCredit ? Orlo_Values::FundAccountType::Credit : QStringLiteral("another property");
}

QString OrloBusinessDataInterface::GetFirstSecurityExchangeBySymbol(const QString& symbol)
{
    script().record(QStringLiteral("GetFirstSecurityExchangeBySymbol"), { symbol });
    return script().security(symbol).exchange;
}

QString OrloBusinessDataInterface::GetSecurityTypeBySymbol(const QString& symbol)
{
    script().record(QStringLiteral("GetSecurityTypeBySymbol"), { symbol });
    return script().security(symbol).type;
}

QString OrloBusinessDataInterface::GetSecuritySubTypeBySymbol(const QString& symbol)
{
    script().record(QStringLiteral("GetSecuritySubTypeBySymbol"), { symbol });
    return script().security(symbol).subType;
}

QString OrloBusinessDataInterface::GetSecurityChineseName(const QString& symbol)
{
    script().record(QStringLiteral("GetSecurityChineseName"), { symbol });
    return script().security(symbol).chineseName;
}

int OrloBusinessDataInterface::GetQtyStepBySymbol(const QString& symbol)
{
    script().record(QStringLiteral("GetQtyStepBySymbol"), { symbol });
    return script().security(symbol).qtyStep;
}

int OrloBusinessDataInterface::GetDispFactorBySymbol(const QString& symbol)
{
    script().record(QStringLiteral("GetDispFactorBySymbol"), { symbol });
    return script().security(symbol).displayFactor;
}

int OrloBusinessDataInterface::GetPricePrecisionBySymbol(const QString& symbol, const QString& exchange)
{
    script().record(QStringLiteral("GetPricePrecisionBySymbol"), { symbol, exchange });
    return script().security(symbol).pricePrecision;
}

QString OrloBusinessDataInterface::GetSymbolStType(const QString& symbol, QString& description)
{
    script().record(QStringLiteral("GetSymbolStType"), { symbol });
    const ScriptSecurity security = script().security(symbol);
    description = security.stDescription;
    return security.stFlag.isEmpty() ? Orlo_Values::StFlag::Normal : security.stFlag;
}

// --- OrloTradeLogic

OrloTradeLogic& OrloTradeLogic::instance()
{
    static OrloTradeLogic logic;
    return logic;
}

bool OrloTradeLogic::checkMarginBondConvertEnable(
    const QString& account, const QString& symbol, const QString& side, bool withMessage)
{
    script().record(QStringLiteral("checkMarginBondConvertEnable"), { account, symbol, side, withMessage });
    return script().bondConversionEnabled(account, symbol, side);
}

// --- OrloUtils

QPoint OrloUtils::GetWidgetPos(QWidget* widget, int place)
{
    script().record(QStringLiteral("GetWidgetPos"), { nameOf(widget), place });
    return script().widgetPos;
}

// --- OrloWidget

namespace {

void showBox(
    const QString& kind, const QString& operation, const QString& text, QWidget* parent, const QVariantList& more = {})
{
    script().boxes.append(ScriptBox{ kind, text, parent });
    script().record(operation, QVariantList{ text, nameOf(parent) } + more);
    // Removed first, so that a hook that opens another box does not run again.
    const std::function<void()> hook = std::move(script().whileBoxOpen);
    script().whileBoxOpen = nullptr;
    if (hook)
        hook();
}

} // namespace

void OrloWidget::ShowWarningMsgBox(const QString& text, QWidget* parent)
{
    showBox(QStringLiteral("warning"), QStringLiteral("ShowWarningMsgBox"), text, parent);
}

void OrloWidget::ShowErrorMsgBox(const QString& text, QWidget* parent)
{
    showBox(QStringLiteral("error"), QStringLiteral("ShowErrorMsgBox"), text, parent);
}

void OrloWidget::ShowTipMsgBox(const QString& text, QWidget* parent)
{
    showBox(QStringLiteral("tip"), QStringLiteral("ShowTipMsgBox"), text, parent);
}

int OrloWidget::ShowQuestionMsgBox(const QString& text, QWidget* parent, int defaultAnswer)
{
    showBox(QStringLiteral("question"), QStringLiteral("ShowQuestionMsgBox"), text, parent, { defaultAnswer });
    return script().questionAnswers.isEmpty() ? script().questionAnswer : script().questionAnswers.takeFirst();
}
