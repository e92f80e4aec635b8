#include "AgreementDC.h"
#include "AlgoTradeLogicNew.h"
#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "BusinessDataInterface.h"
#include "CBusinessDataBase.h"
#include "CDataBase.h"
#include "InstructionBusinessDataInterface.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloBusiUtils.h"
#include "OrloBusinessDataInterface.h"
#include "OrloStrategyFactory.h"
#include "OrloTradeLogic.h"
#include "Orlo_Values.h"

#include <QJsonDocument>
#include <QJsonObject>

using Record = QMap<QString, QVariant>;

namespace {

/// The only object of a class; it exists until the process ends.
template <class Service> Service& only()
{
    static Service service;
    return service;
}

/// Plans by id, kept until the program ends.
QMap<QString, Record>& plans()
{
    return only<QMap<QString, Record>>();
}

tagUserAccountInfo account(const QString& name)
{
    return { name, QStringLiteral("client ") + name, QStringLiteral("branch ") + name };
}

} // namespace

// --- Plans

AutoPlanLogic& AutoPlanLogic::instance()
{
    return only<AutoPlanLogic>();
}

QString AutoPlanLogic::CreateNewPlan(Record record)
{
    const QString id = QStringLiteral("P%1").arg(plans().size() + 1);
    record.insert(AutoPlanField::BaseField::autoPlanId, id);
    plans().insert(id, record);
    return {};
}

QString AutoPlanLogic::modifyPlan(const Record& record)
{
    plans().insert(record.value(AutoPlanField::BaseField::autoPlanId).toString(), record);
    return {};
}

Record AutoPlanLogic::GetPlanInfo(QString planId)
{
    return plans().value(planId);
}

Record AutoPlanLogic::GetPlanOtherParamFromPlanInfo(const Record& record)
{
    const QString text = record.value(AutoPlanField::BaseField::planOtherParam).toString();
    return QJsonDocument::fromJson(text.toUtf8()).object().toVariantMap();
}

QMap<QString, Record> AutoPlanLogic::GetPlanInstruction(QString)
{
    return {};
}

/// Every second day of a month.
QList<QDate> AutoPlanLogic::GetTradeDateList(const QString&, QString&)
{
    QList<QDate> dates;
    for (int day = 2; day <= 30; day += 2)
        dates.append(QDate::currentDate().addDays(day));
    return dates;
}

// --- Accounts and users

QList<tagUserAccountInfo> OrloBusinessDataInterface::GetFundAccountListByFundProp(
    int, int, bool, const QStringList&, bool)
{
    return { account(QStringLiteral("one")), account(QStringLiteral("two")) };
}

QMap<QString, QString> OrloBusinessDataInterface::GetCurrentSecurityAccountByTradingAccount(const QString& account)
{
    return { { Kelvo_Values::Exchange::sh, QStringLiteral("holder ") + account } };
}

QString OrloBusinessDataInterface::GetCurrentSecurityAccountByTradingAndExchange(
    const QString& account, const QString& exchange)
{
    return GetCurrentSecurityAccountByTradingAccount(account).value(exchange);
}

QString OrloBusinessDataInterface::GetAccountAssetPropByTradingAccount(const QString&)
{
    return QStringLiteral("cash");
}

CBusinessDataBase* CBusinessDataBase::GetInstance()
{
    return &only<CBusinessDataBase>();
}

Record CBusinessDataBase::GetLoginAccountDetail()
{
    return { { Kelvo_Fields::UserAccount::userID, QStringLiteral("stranger") } };
}

tagUserAccountInfo CBusinessDataBase::GetAccountDetailsByTradinngAccount(const QString& tradingAccount)
{
    return account(tradingAccount);
}

QList<Record> BusinessDataInterface::GetPositionListByAccount(const tagUserAccountInfo&, const QString&, const QString&,
    const QString&, const QString&, const QString&, const QString&)
{
    return {};
}

AgreementDC& AgreementDC::instance()
{
    return only<AgreementDC>();
}

QStringList AgreementDC::GetUnsignedClientNoList(const QString&)
{
    return {};
}

// --- Instructions

bool InstructionBusinessDataInterface::hasOrderAuthority(QString, QString instructionType)
{
    return instructionType == QLatin1String("1");
}

int InstructionBusinessDataInterface::GetCurrentUserInstructionRuleProper(const QString&, const QString&)
{
    return 0;
}

QString InstructionBusinessDataInterface::getChainKeyForTraddingAccout(const QString& tradingAccount, QString)
{
    return tradingAccount;
}

QStringList InstructionBusinessDataInterface::GetExcuteUsers(const QString&)
{
    return {};
}

QStringList InstructionBusinessDataInterface::GetForwardUsers(const QString&, VorInstructionNodeType nodeType)
{
    if (nodeType != VorInstructionNodeType::Colleague)
        return {};
    return { QStringLiteral("night desk"), QStringLiteral("day desk") };
}

QStringList InstructionBusinessDataInterface::getWhiteAlgoNameList(const QString&, const QString&, const QString&)
{
    return {};
}

QStringList InstructionBusinessDataInterface::getBlackAlgoNameList(const QString&)
{
    return {};
}

VorMarginTradeType InstructionBusinessDataInterface::transSideUnion2Enum(const QString&)
{
    return VorMarginTradeType();
}

QString InstructionBusinessDataInterface::transEnum2SideUnion(const VorMarginTradeType&)
{
    return {};
}

OrloTradeLogic& OrloTradeLogic::instance()
{
    return only<OrloTradeLogic>();
}

bool OrloTradeLogic::checkMarginBondConvertEnable(const QString&, const QString&, const QString&, bool)
{
    return false;
}

// --- A market of two shares, of which ten are one stored unit

QString OrloBusinessDataInterface::GetFirstSecurityExchangeBySymbol(const QString&)
{
    return Kelvo_Values::Exchange::sh;
}

QString OrloBusinessDataInterface::GetSecurityTypeBySymbol(const QString&)
{
    return Kelvo_Values::MdcSecurityType::StockType;
}

QString OrloBusinessDataInterface::GetSecuritySubTypeBySymbol(const QString&)
{
    return Kelvo_Values::MdcSubSecurityType::Ashares;
}

QString OrloBusinessDataInterface::GetSecurityChineseName(const QString& symbol)
{
    return symbol.section(QLatin1Char('@'), 0, 0);
}

int OrloBusinessDataInterface::GetQtyStepBySymbol(const QString&)
{
    return 100;
}

int OrloBusinessDataInterface::GetDispFactorBySymbol(const QString&)
{
    return 10;
}

int OrloBusinessDataInterface::GetPricePrecisionBySymbol(const QString&, const QString&)
{
    return 3;
}

QString OrloBusinessDataInterface::GetSymbolStType(const QString&, QString&)
{
    return Orlo_Values::StFlag::Normal;
}

QStringList CBusinessDataBase::GetAllSymbolByTypeList(
    const QString& securityType, const QStringList&, const QStringList&, bool, const QStringList&)
{
    if (securityType != Kelvo_Values::MdcSecurityType::StockType)
        return {};
    return { QStringLiteral("alpha@XSHG"), QStringLiteral("beta@XSHG") };
}

QStringList CBusinessDataBase::GetAllSymbolByType(
    const QString&, const QString&, const QString&, bool, const QStringList&)
{
    return {};
}

QString CBusinessDataBase::GetSecuritySubTypeBySymbol(const QString&)
{
    return Kelvo_Values::MdcSubSecurityType::Ashares;
}

bool CBusinessDataBase::IsSymbolHasPriceLimit(const QString&)
{
    return true;
}

// --- Texts

CDataBase* CDataBase::GetInstance()
{
    return &only<CDataBase>();
}

QString CDataBase::GetStaticCfgValue(const QString& category, const QString& key)
{
    return category + QLatin1Char(' ') + key;
}

QString OrloBusiUtils::GetSideUnionChineseName(const QString& sideUnion)
{
    return sideUnion;
}

// --- Algorithms, of which this client has none

AlgoTradeLogicNew* AlgoTradeLogicNew::GetInstance()
{
    return &only<AlgoTradeLogicNew>();
}

AesStrategy AlgoTradeLogicNew::GetStrategy(const QString& name)
{
    return { name };
}

OrloStrategyFactory& OrloStrategyFactory::instance()
{
    return only<OrloStrategyFactory>();
}

ParamListWidget_single* OrloStrategyFactory::CreateStrategyWgt(
    StrategyMode mode, QWidget* parent, const QString&, QStringList, QStringList, int)
{
    Q_ASSERT(mode == StrategyMode::Panel);
    return new ParamListWidget_single(parent);
}
