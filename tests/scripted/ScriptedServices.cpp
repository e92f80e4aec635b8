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
#include <QJsonDocument>
#include <QJsonObject>

namespace {

Script& script()
{
    return Script::instance();
}

ScriptSecurity securityOf(const QString& symbol)
{
    return script().securities.value(symbol);
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
    if (script().otherParam)
        return script().otherParam(record);
    const QString text = record.value(AutoPlanField::BaseField::planOtherParam).toString();
    return QJsonDocument::fromJson(text.toUtf8()).object().toVariantMap();
}

QMap<QString, QMap<QString, QVariant>> AutoPlanLogic::GetPlanInstruction(QString planId)
{
    script().record(QStringLiteral("GetPlanInstruction"), { planId });
    return script().planInstructions.value(planId);
}

QList<QDate> AutoPlanLogic::GetTradeDateList(const QString& exchange, QString& error)
{
    script().record(QStringLiteral("GetTradeDateList"), { exchange, error });
    error = script().tradeDatesError;
    return script().tradeDates.value(exchange, script().generalTradeDates);
}

// --- BusinessDataInterface

QList<QMap<QString, QVariant>> BusinessDataInterface::GetPositionListByAccount(const tagUserAccountInfo& account,
    const QString& securityAccount, const QString& symbol, const QString& currency, const QString& portfolio,
    const QString& strategy, const QString& seat)
{
    script().record(QStringLiteral("GetPositionListByAccount"),
        { account.tradingAccount, securityAccount, symbol, currency, portfolio, strategy, seat });
    return script().positions;
}

// --- CBusinessDataBase

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
    for (const tagUserAccountInfo& account : qAsConst(script().accounts)) {
        if (account.tradingAccount == tradingAccount)
            return account;
    }
    return {};
}

SymbolList CBusinessDataBase::GetAllSymbolByTypeList(const QString& securityType, const QStringList& subTypes,
    const QStringList& suffixes, bool withExpired, const QStringList& excluded)
{
    script().record(
        QStringLiteral("GetAllSymbolByTypeList"), { securityType, subTypes, suffixes, withExpired, excluded });
    return script().symbols ? script().symbols(script().calls.last()) : SymbolList();
}

SymbolList CBusinessDataBase::GetAllSymbolByType(const QString& securityType, const QString& subType,
    const QString& suffix, bool withExpired, const QStringList& excluded)
{
    script().record(QStringLiteral("GetAllSymbolByType"), { securityType, subType, suffix, withExpired, excluded });
    return script().symbols ? script().symbols(script().calls.last()) : SymbolList();
}

QString CBusinessDataBase::GetSecuritySubTypeBySymbol(const QString& symbol)
{
    script().record(QStringLiteral("CBusinessDataBase::GetSecuritySubTypeBySymbol"), { symbol });
    return securityOf(symbol).subType;
}

bool CBusinessDataBase::IsSymbolHasPriceLimit(const QString& symbol)
{
    script().record(QStringLiteral("IsSymbolHasPriceLimit"), { symbol });
    return securityOf(symbol).hasPriceLimit;
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
    return script().authorities.value(tradingAccount).contains(instructionType);
}

int InstructionBusinessDataInterface::GetCurrentUserInstructionRuleProper(
    const QString& tradingAccount, const QString& instructionType)
{
    script().record(QStringLiteral("GetCurrentUserInstructionRuleProper"), { tradingAccount, instructionType });
    return script().ruleProperties.value(tradingAccount + QLatin1Char('/') + instructionType, script().ruleProperty);
}

QString InstructionBusinessDataInterface::getChainKeyForTraddingAccout(
    const QString& tradingAccount, QString instructionType)
{
    script().record(QStringLiteral("getChainKeyForTraddingAccout"), { tradingAccount, instructionType });
    return QStringLiteral("chain-%1-%2").arg(tradingAccount, instructionType);
}

QStringList InstructionBusinessDataInterface::GetExcuteUsers(const QString& chainKey)
{
    script().record(QStringLiteral("GetExcuteUsers"), { chainKey });
    return script().executeUsers;
}

QStringList InstructionBusinessDataInterface::GetForwardUsers(const QString& chainKey, VorInstructionNodeType nodeType)
{
    script().record(QStringLiteral("GetForwardUsers"), { chainKey, static_cast<int>(nodeType) });
    return script().forwardUsers;
}

QStringList InstructionBusinessDataInterface::getWhiteAlgoNameList(
    const QString& instructionType, const QString& targetType, const QString& symbol)
{
    script().record(QStringLiteral("getWhiteAlgoNameList"), { instructionType, targetType, symbol });
    return script().whiteAlgoNames;
}

QStringList InstructionBusinessDataInterface::getBlackAlgoNameList(const QString& targetType)
{
    script().record(QStringLiteral("getBlackAlgoNameList"), { targetType });
    return script().blackAlgoNames;
}

namespace {

QStringList sideUnionsByNumber()
{
    using namespace Orlo_Values::SideUnion;
    return { QString(), collateralBuy, collateralSell, marginBuy, marginSell, financingBuy, financingSell,
        marginBuyNormal, marginSellNormal, BondConversion, paidRationShare };
}

} // namespace

VorMarginTradeType InstructionBusinessDataInterface::transSideUnion2Enum(const QString& sideUnion)
{
    script().record(QStringLiteral("transSideUnion2Enum"), { sideUnion });
    return static_cast<VorMarginTradeType>(qMax(0, sideUnionsByNumber().indexOf(sideUnion)));
}

QString InstructionBusinessDataInterface::transEnum2SideUnion(const VorMarginTradeType& tradeType)
{
    script().record(QStringLiteral("transEnum2SideUnion"), { static_cast<int>(tradeType) });
    return sideUnionsByNumber().value(static_cast<int>(tradeType));
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
    return script().accounts;
}

QMap<QString, QString> OrloBusinessDataInterface::GetCurrentSecurityAccountByTradingAccount(
    const QString& tradingAccount)
{
    script().record(QStringLiteral("GetCurrentSecurityAccountByTradingAccount"), { tradingAccount });
    return script().securityAccounts.value(tradingAccount);
}

QString OrloBusinessDataInterface::GetCurrentSecurityAccountByTradingAndExchange(
    const QString& tradingAccount, const QString& exchange)
{
    script().record(QStringLiteral("GetCurrentSecurityAccountByTradingAndExchange"), { tradingAccount, exchange });
    return script().securityAccounts.value(tradingAccount).value(exchange);
}

QString OrloBusinessDataInterface::GetAccountAssetPropByTradingAccount(const QString& tradingAccount)
{
    script().record(QStringLiteral("GetAccountAssetPropByTradingAccount"), { tradingAccount });
    return script().assetProperties.value(tradingAccount);
}

QString OrloBusinessDataInterface::GetFirstSecurityExchangeBySymbol(const QString& symbol)
{
    script().record(QStringLiteral("GetFirstSecurityExchangeBySymbol"), { symbol });
    return securityOf(symbol).exchange;
}

QString OrloBusinessDataInterface::GetSecurityTypeBySymbol(const QString& symbol)
{
    script().record(QStringLiteral("GetSecurityTypeBySymbol"), { symbol });
    return securityOf(symbol).type;
}

QString OrloBusinessDataInterface::GetSecuritySubTypeBySymbol(const QString& symbol)
{
    script().record(QStringLiteral("GetSecuritySubTypeBySymbol"), { symbol });
    return securityOf(symbol).subType;
}

QString OrloBusinessDataInterface::GetSecurityChineseName(const QString& symbol)
{
    script().record(QStringLiteral("GetSecurityChineseName"), { symbol });
    return securityOf(symbol).chineseName;
}

int OrloBusinessDataInterface::GetQtyStepBySymbol(const QString& symbol)
{
    script().record(QStringLiteral("GetQtyStepBySymbol"), { symbol });
    return securityOf(symbol).qtyStep;
}

int OrloBusinessDataInterface::GetDispFactorBySymbol(const QString& symbol)
{
    script().record(QStringLiteral("GetDispFactorBySymbol"), { symbol });
    return securityOf(symbol).displayFactor;
}

int OrloBusinessDataInterface::GetPricePrecisionBySymbol(const QString& symbol, const QString& exchange)
{
    script().record(QStringLiteral("GetPricePrecisionBySymbol"), { symbol, exchange });
    return securityOf(symbol).pricePrecision;
}

QString OrloBusinessDataInterface::GetSymbolStType(const QString& symbol, QString& description)
{
    script().record(QStringLiteral("GetSymbolStType"), { symbol });
    const ScriptSecurity security = securityOf(symbol);
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
    return script().bondConversionEnabled;
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
    // Taken out first: a hook that opens another box is not to run again.
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
