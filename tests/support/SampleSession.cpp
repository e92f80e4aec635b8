#include "SampleSession.h"

#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloBusinessDataInterface.h"
#include "Orlo_Fields.h"
#include "PlanCodes.h"
#include "PositionStore.h"
#include "SampleData.h"
#include "SecurityStore.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace BaseField = AutoPlanField::BaseField;
using namespace PlanCodes;

SampleSession::SampleSession(const QString& userId, int marketSize)
{
    setClientToday(today());
    m_database.emplace(QStringLiteral("sample %1").arg(marketSize), [marketSize](Database& database) {
        return database.transaction([&] { return SampleData::write(database, marketSize, {}); });
    });
    m_opened = open(userId, marketSize);
}

SampleSession::~SampleSession()
{
    ClientSession::instance().close();
    setClientToday(QDate());
}

// On a server, the user is the role of the location.
Status SampleSession::open(const QString& userId, int marketSize)
{
    ClientSession::Options options;
    options.marketSize = marketSize;
    const QString user = TestDatabase::isOnServer() ? QString() : userId;
    return ClientSession::instance().open(file(userId), user, ClientSession::Progress(), options);
}

Status SampleSession::reopen(const QString& userId)
{
    ClientSession::instance().close();
    return open(userId, 0);
}

QString SampleSession::symbolOf(const QString& subType, const QString& suffix)
{
    return SecurityStore(ClientSession::instance().database()).firstSymbols(subType, suffix, 1)->value(0);
}

QMap<QString, QVariant> SampleSession::record()
{
    const QString account = QStringLiteral("100001");
    const QString symbol = symbolOf(Kelvo_Values::MdcSubSecurityType::Ashares, Kelvo_Values::SymbolPost::sh);
    const QString exchange = Kelvo_Values::Exchange::sh;
    const QMap<QString, QVariant> plain{
        { Kelvo_Fields::UserAccount::userID, QStringLiteral("trader01") },
        { Orlo_Fields::AutoPlan::templateCode, PlanType::CumulativeQty },
        { Orlo_Fields::AutoPlan::subType, InstructionType::Ordinary },
        { Kelvo_Fields::UserAccount::tradingAccount, account },
        { FieldId::Branch, QStringLiteral("B001") },
        { Kelvo_Fields::Security::symbol, symbol },
        { Kelvo_Fields::UserAccount::securityExchange, exchange },
        { Kelvo_Fields::UserAccount::securityAccount,
            OrloBusinessDataInterface::GetCurrentSecurityAccountByTradingAndExchange(account, exchange) },
        { BaseField::orderSide, Kelvo_Values::OrderSide::buy },
        { BaseField::priceModel, PriceModel::NoLimit },
        { BaseField::priceFormula1, QStringLiteral("0.00") },
        { BaseField::priceFixed, QStringLiteral("0.00") },
        { BaseField::totalQty, QStringLiteral("1000") },
        { BaseField::InstMode, InstMode::ActiveManage },
        { BaseField::beginDate, QStringLiteral("2024-05-06") },
        { BaseField::endDate, QStringLiteral("2024-05-10") },
    };
    return withOther(plain, { { AutoPlanField::Progress::CurrentQty, QStringLiteral("300") } });
}

QMap<QString, QVariant> SampleSession::withOther(
    const QMap<QString, QVariant>& record, const QMap<QString, QVariant>& entries)
{
    QMap<QString, QVariant> other = AutoPlanLogic::instance().GetPlanOtherParamFromPlanInfo(record);
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry)
        other.insert(entry.key(), entry.value());
    const QJsonDocument document(QJsonObject::fromVariantMap(other));
    QMap<QString, QVariant> changed = record;
    changed.insert(BaseField::planOtherParam, QString::fromUtf8(document.toJson(QJsonDocument::Compact)));
    return changed;
}

QString SampleSession::create(const QMap<QString, QVariant>& record)
{
    m_reason = AutoPlanLogic::instance().CreateNewPlan(record);
    return m_reason.isEmpty() ? ClientSession::instance().plans().page(0, 1)->value(0).id : QString();
}

Status SampleSession::multiply(int count) const
{
    Database file;
    if (Status status = file.open(ownersFile()); !status)
        return status;
    const QString columns = QStringLiteral("version, creator, created_time, changed_time, plan_type, instruction_type,"
                                           " trading_account, symbol, side, begin_date, end_date, fields");
    return file.execute(QStringLiteral("INSERT INTO plans (%1) WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL"
                                       " SELECT i + 1 FROM n WHERE i + 1 < ?) SELECT %1 FROM n, plans WHERE number = 1")
                            .arg(columns),
        { count });
}

Status SampleSession::setHoldings(qint64 quantity) const
{
    Database file;
    if (Status status = file.open(ownersFile()); !status)
        return status;
    const auto plan = record();
    const auto text = [&plan](const QString& key) { return plan.value(key).toString(); };
    return PositionStore(file).set({ text(Kelvo_Fields::UserAccount::tradingAccount),
        text(Kelvo_Fields::UserAccount::securityAccount), text(Kelvo_Fields::Security::symbol), quantity, quantity });
}

QMap<QString, QVariant> with(QMap<QString, QVariant> record, const QString& key, const QString& value)
{
    if (value.isNull())
        record.remove(key);
    else
        record.insert(key, value);
    return record;
}

QMap<QString, QVariant> reduction(const QMap<QString, QVariant>& record)
{
    QMap<QString, QVariant> changed = with(record, Orlo_Fields::AutoPlan::templateCode, PlanType::ReduceHoldings);
    changed.insert(BaseField::orderSide, Kelvo_Values::OrderSide::sell);
    changed.insert(BaseField::endDate, QStringLiteral("2124-05-06"));
    changed.insert(BaseField::executeUser, QStringLiteral("苏砚"));
    return SampleSession::withOther(
        changed, { { BaseField::JCRatio, QStringLiteral("0.5") }, { BaseField::JCModel, QStringLiteral("1") } });
}

QMap<QString, QVariant> amountPlan(const QMap<QString, QVariant>& record, const QString& amount)
{
    return SampleSession::withOther(
        record, { { FieldId::TargetType, InstructionTargetType::AmountOrder }, { BaseField::tradeAmount, amount } });
}

QMap<QString, QVariant> customPrice(const QMap<QString, QVariant>& record, const QString& formula)
{
    const QMap<QString, QVariant> changed = with(record, BaseField::priceModel, PriceModel::Custom);
    return with(with(changed, BaseField::priceFormula1, formula), BaseField::priceFixed, QString());
}
