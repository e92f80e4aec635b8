#include "SampleAccounts.h"

#include "AccountStore.h"
#include "AgreementStore.h"
#include "AuthorityStore.h"
#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"
#include "PositionStore.h"
#include "SecurityStore.h"
#include "UserStore.h"

#include <QVector>

namespace {

namespace Exchange {
using namespace Kelvo_Values::Exchange;
using namespace Orlo_Values::Exchange;
} // namespace Exchange

namespace SubType {
using namespace Kelvo_Values::MdcSubSecurityType;
using namespace Orlo_Values::MdcSubSecurityType;
} // namespace SubType

using namespace PlanCodes::InstructionType;

/// An account with its user's authorities.
struct SampleAccount {
    QString number;
    QString name;
    QString clientNo;
    QString assetProperty;
    QStringList exchanges;
    QStringList authorities;
    int ruleProperty;
    bool isSigned;
};

struct SampleUser {
    StoredUser user;
    QVector<SampleAccount> accounts;
};

const QStringList Executors{ QStringLiteral("苏砚"), QStringLiteral("陆珩"), QStringLiteral("沈棠") };
// One name is listed twice, as if a reviewer belonged to two groups of a chain.
const QStringList Reviewers{ QStringLiteral("顾湫"), QStringLiteral("程澜"), QStringLiteral("顾湫"),
    QStringLiteral("白霁") };

// A table with a row for each account. NOLINTNEXTLINE(readability-function-size)
QVector<SampleUser> accountOwners()
{
    const QString& ordinary = AccountAsset::Ordinary;
    const QString& credit = Orlo_Values::FundAccountType::Credit;
    const QStringList mainland{ Exchange::sh, Exchange::sz, Exchange::bj };
    const QStringList all = mainland + QStringList{ Exchange::HkStockCirculation };
    const QStringList shSz{ Exchange::sh, Exchange::sz };
    const QStringList bj{ Exchange::bj };
    return {
        { { QStringLiteral("trader01"), QStringLiteral("林岫") },
            { { QStringLiteral("100001"), QStringLiteral("稳健一号"), QStringLiteral("C10001"), ordinary, all,
                  { Ordinary, Bond, HkConnect }, 0, true },
                { QStringLiteral("100002"), QStringLiteral("进取二号"), QStringLiteral("C10002"), ordinary, all,
                    { Ordinary, Bond, HkConnect }, 1, true },
                { QStringLiteral("200001"), QStringLiteral("信用一号"), QStringLiteral("C10002"), credit, shSz,
                    { Credit }, 1, true } } },
        { { QStringLiteral("trader02"), QStringLiteral("方汀") }, {} },
        { { QStringLiteral("trader03"), QStringLiteral("叶溯") },
            { { QStringLiteral("100003"), QStringLiteral("成长三号"), QStringLiteral("C10003"), ordinary, mainland,
                { Ordinary, Bond }, 0, true } } },
        { { QStringLiteral("trader04"), QStringLiteral("秦榆") },
            { { QStringLiteral("200004"), QStringLiteral("信用四号"), QStringLiteral("C10004"), credit, shSz,
                { Credit }, 0, true } } },
        { { QStringLiteral("trader05"), QStringLiteral("江渡") },
            { { QStringLiteral("100005"), QStringLiteral("北债五号"), QStringLiteral("C10005"), ordinary, bj, { Bond },
                0, true } } },
        { { QStringLiteral("trader06"), QStringLiteral("何屿") },
            { { QStringLiteral("100006"), QStringLiteral("港股六号"), QStringLiteral("C10006"), ordinary,
                { Exchange::HkStockCirculation }, { HkConnect }, 1, true } } },
        { { QStringLiteral("trader07"), QStringLiteral("宋琅") },
            { { QStringLiteral("100007"), QStringLiteral("减持七号"), QStringLiteral("C10007"), ordinary, mainland,
                  { Ordinary }, 0, false },
                { QStringLiteral("100017"), QStringLiteral("减持八号"), QStringLiteral("C10017"), ordinary, mainland,
                    { Ordinary }, 1, true } } },
        { { QStringLiteral("trader08"), QStringLiteral("许峤") },
            { { QStringLiteral("200008"), QStringLiteral("信用北交"), QStringLiteral("C10008"), credit, bj,
                { Ordinary, Credit }, 1, true } } },
        { { QStringLiteral("trader09"), QStringLiteral("孟溪") },
            { { QStringLiteral("100009"), QStringLiteral("未开户九号"), QStringLiteral("C10009"), ordinary, {},
                { Ordinary, Bond, HkConnect }, 0, false } } },
        { { QStringLiteral("trader10"), QStringLiteral("韩野") },
            { { QStringLiteral("100010"), QStringLiteral("无权限十号"), QStringLiteral("C10010"), ordinary, all, {}, 0,
                false } } },
    };
}

/// Writes the sample until a step fails.
class AccountWriter {
public:
    AccountWriter(Database& database, const QDateTime& signedTime)
        : m_users(database)
        , m_accounts(database)
        , m_authorities(database)
        , m_agreements(database)
        , m_positions(database)
        , m_securities(database)
        , m_signedTime(signedTime)
    {
    }

    Status write()
    {
        Status status;
        const QVector<SampleUser> owners = accountOwners();
        for (const SampleUser& owner : owners) {
            if (status)
                status = m_users.add(owner.user);
            for (const SampleAccount& account : owner.accounts) {
                if (status)
                    status = writeAccount(owner.user.id, account);
            }
        }
        return status ? writeColleagues() : status;
    }

private:
    // The users in chains may log in, too; they have no accounts.
    Status writeColleagues()
    {
        QStringList names = Executors + Reviewers;
        names.removeDuplicates();
        Status status;
        for (int i = 0; i < names.size() && status; ++i)
            status = m_users.add({ QStringLiteral("reviewer%1").arg(i + 1, 2, 10, QLatin1Char('0')), names.at(i) });
        return status;
    }

    Status writeAccount(const QString& user, const SampleAccount& sample)
    {
        Status status = m_accounts.add({ sample.number, QStringLiteral("F") + sample.number, sample.name,
            sample.clientNo, sample.assetProperty, QStringLiteral("B001"), exchangeAccounts(sample) });
        if (status)
            status = m_accounts.assign(user, sample.number);
        for (const QString& type : sample.authorities) {
            if (status)
                status = writeAuthority(user, sample, type);
        }
        if (status && sample.isSigned)
            status = m_agreements.sign(
                Orlo_Values::ProtocolId::AutoPlanReduceAgree, sample.clientNo, { user, m_signedTime });
        return status ? writePositions(sample) : status;
    }

    static QString securityAccount(const SampleAccount& sample, const QString& exchange)
    {
        return exchange + sample.number;
    }

    static QMap<QString, QString> exchangeAccounts(const SampleAccount& sample)
    {
        QMap<QString, QString> accounts;
        for (const QString& exchange : sample.exchanges)
            accounts.insert(exchange, securityAccount(sample, exchange));
        return accounts;
    }

    Status writeAuthority(const QString& user, const SampleAccount& sample, const QString& type)
    {
        if (Status status = m_authorities.grant(user, sample.number, type); !status)
            return status;
        Status status = m_authorities.setRuleProperty(user, sample.number, type, sample.ruleProperty);
        return status ? writeChain(sample.number, type) : status;
    }

    // There is no user to forward a Hong Kong connect instruction to.
    Status writeChain(const QString& account, const QString& type)
    {
        const QString key = QStringLiteral("CHAIN-%1-%2").arg(account, type);
        if (Status status = m_authorities.addChain(account, type, key); !status)
            return status;
        Status status = m_authorities.addChainUsers(key, ChainRole::Execute, Executors);
        if (!status || type == HkConnect)
            return status;
        return m_authorities.addChainUsers(key, ChainRole::Forward, Reviewers);
    }

    Status writePositions(const SampleAccount& sample)
    {
        Status status = writeHoldings(sample, Exchange::sh, SubType::Ashares, Kelvo_Values::SymbolPost::sh, 1);
        if (status)
            status = writeHoldings(sample, Exchange::sz, SubType::Gemstock, Kelvo_Values::SymbolPost::sz, 1);
        if (status)
            status = writeHoldings(
                sample, Exchange::sh, SubType::ConvertableBondTypeList.constFirst(), Kelvo_Values::SymbolPost::sh, 10);
        if (status)
            status =
                writeHoldings(sample, Exchange::HkStockCirculation, SubType::HStcokCirculation, SymbolSuffix::Hk, 1);
        return status;
    }

    // One large and one small position of each kind; a part of it cannot be sold today.
    Status writeHoldings(const SampleAccount& sample, const QString& exchange, const QString& subType,
        const QString& suffix, int displayFactor)
    {
        if (!sample.exchanges.contains(exchange))
            return {};
        const Result<QStringList> symbols = m_securities.firstSymbols(subType, suffix, 2);
        if (!symbols)
            return symbols.status();
        const QVector<qint64> held{ 200000 / displayFactor, 500 / displayFactor };
        const QVector<qint64> sellable{ 200000 / displayFactor, 300 / displayFactor };
        Status status;
        for (int i = 0; i < symbols->size() && status; ++i)
            status = m_positions.set(
                { sample.number, securityAccount(sample, exchange), symbols->at(i), held.at(i), sellable.at(i) });
        return status;
    }

    UserStore m_users;
    AccountStore m_accounts;
    AuthorityStore m_authorities;
    AgreementStore m_agreements;
    PositionStore m_positions;
    SecurityStore m_securities;
    const QDateTime m_signedTime;
};

} // namespace

QString SampleAccounts::defaultUser()
{
    return QStringLiteral("trader01");
}

Status SampleAccounts::write(Database& database, const QDateTime& signedTime)
{
    return database.transaction([&] { return AccountWriter(database, signedTime).write(); });
}
