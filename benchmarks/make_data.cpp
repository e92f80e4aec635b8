// Generates a database for the benchmarks: make_data FILE SECURITIES ACCOUNTS PLANS INSTRUCTIONS
// The accounts belong to the user "bench". The first account has 250 positions. The first plan has the instructions. If
// there is one account, it has all plans, which are equal; otherwise they differ in account, security and period.
#include "AccountStore.h"
#include "AuthorityStore.h"
#include "AutoPlanField.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "ErrorText.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"
#include "PositionStore.h"
#include "SampleSession.h"
#include "SecurityStore.h"

#include <QCoreApplication>
#include <QFile>

#include <random>

namespace {

using namespace PlanCodes;

const QString Owner = QStringLiteral("bench");
constexpr int FirstAccount = 900001;
constexpr int Positions = 250;

void require(const Status& status)
{
    if (!status)
        qFatal("%s", qPrintable(errorText(status)));
}

QString numberOf(int account)
{
    return QString::number(FirstAccount + account);
}

StoredAccount storedAccount(int index)
{
    const QString number = numberOf(index);
    StoredAccount account;
    account.tradingAccount = number;
    account.fundAccount = QStringLiteral("F") + number;
    account.name = QStringLiteral("账户") + number;
    account.clientNo = QStringLiteral("C") + number;
    account.assetProperty = AccountAsset::Ordinary;
    account.branchNo = QStringLiteral("B001");
    for (const QString& exchange : { Kelvo_Values::Exchange::sh, Kelvo_Values::Exchange::sz, Orlo_Values::Exchange::bj,
             Orlo_Values::Exchange::HkStockCirculation })
        account.exchangeAccounts.insert(exchange, exchange + number);
    return account;
}

void writeAccount(Database& database, int index)
{
    const StoredAccount account = storedAccount(index);
    AccountStore accounts(database);
    AuthorityStore authorities(database);
    require(accounts.add(account));
    require(accounts.assign(Owner, account.tradingAccount));
    for (const QString& type : { InstructionType::Ordinary, InstructionType::Bond, InstructionType::HkConnect }) {
        const QString chain = QStringLiteral("CHAIN-%1-%2").arg(account.tradingAccount, type);
        require(authorities.grant(Owner, account.tradingAccount, type));
        require(authorities.setRuleProperty(Owner, account.tradingAccount, type, index % 2));
        require(authorities.addChain(account.tradingAccount, type, chain));
        require(
            authorities.addChainUsers(chain, ChainRole::Execute, { QStringLiteral("苏砚"), QStringLiteral("陆珩") }));
        require(
            authorities.addChainUsers(chain, ChainRole::Forward, { QStringLiteral("顾湫"), QStringLiteral("程澜") }));
    }
}

void writePositions(Database& database)
{
    PositionStore store(database);
    const QString& exchange = Kelvo_Values::Exchange::sh;
    const QStringList symbols = *SecurityStore(database).firstSymbols(
        Kelvo_Values::MdcSubSecurityType::Ashares, Kelvo_Values::SymbolPost::sh, Positions);
    for (const QString& symbol : symbols)
        require(store.set({ numberOf(0), exchange + numberOf(0), symbol, 200000000, 200000000 }));
}

QMap<QString, QVariant> planRecord()
{
    QMap<QString, QVariant> record = SampleSession::record();
    record.insert(Kelvo_Fields::UserAccount::userID, Owner);
    record.insert(Kelvo_Fields::UserAccount::tradingAccount, numberOf(0));
    record.insert(Kelvo_Fields::UserAccount::securityAccount, Kelvo_Values::Exchange::sh + numberOf(0));
    record.insert(AutoPlanField::BaseField::orderSide, Kelvo_Values::OrderSide::sell);
    record.insert(AutoPlanField::BaseField::totalQty, QStringLiteral("100000000"));
    return record;
}

/// Plans of four years, of which about one in a hundred is due on the day of the data.
class PlanRecords {
public:
    PlanRecords(Database& database, int accounts, int plans)
        : m_accounts(accounts)
        , m_plans(plans)
        , m_symbols(*database.texts(QStringLiteral("SELECT symbol FROM securities ORDER BY position"), {}))
    {
    }

    QMap<QString, QVariant> record(int plan)
    {
        QMap<QString, QVariant> record = planRecord();
        if (m_accounts == 1)
            return record;
        const QDate begin = SampleSession::today().addDays(10 - Days + qint64(plan) * Days / m_plans);
        const auto any = [this](int of) { return static_cast<int>(m_random() % static_cast<unsigned>(of)); };
        record.insert(Kelvo_Fields::UserAccount::tradingAccount, numberOf(any(m_accounts)));
        record.insert(Kelvo_Fields::Security::symbol, m_symbols.at(any(m_symbols.size())));
        record.insert(AutoPlanField::BaseField::beginDate, begin.toString(Qt::ISODate));
        record.insert(AutoPlanField::BaseField::endDate, begin.addDays(any(30)).toString(Qt::ISODate));
        return record;
    }

private:
    static constexpr int Days = 1500;

    const int m_accounts;
    const int m_plans;
    const QStringList m_symbols;
    std::minstd_rand m_random; // the same in each run
};

QString writePlans(ClientSession& session, int accounts, int count)
{
    PlanStore plans = session.plans();
    PlanRecords records(session.database(), accounts, count);
    const Change change{ Owner, QDateTime(SampleSession::today(), QTime(9, 30)) };
    QString first;
    for (int i = 0; i < count; ++i) {
        const Result<QString> id = plans.create(records.record(i), change);
        require(id.status());
        if (first.isEmpty())
            first = *id;
    }
    return first;
}

void writeInstructions(ClientSession& session, const QString& plan, int count)
{
    InstructionStore store = session.instructions();
    for (int i = 0; i < count; ++i) {
        const bool ended = i % 2 == 0;
        require(store
                    .add(plan, SampleSession::today(),
                        { { FieldId::EndState, ended ? EndState::Ended : EndState::Running },
                            { FieldId::TargetType, InstructionTargetType::QtyOrder },
                            { FieldId::Price, QStringLiteral("12.34") }, { FieldId::IssuedQty, QStringLiteral("200") },
                            { FieldId::FilledQty, QStringLiteral("100") },
                            { FieldId::IssuedAmount, QStringLiteral("2468.00") },
                            { Orlo_Fields::Security::cumAmount, QStringLiteral("1234.00") } },
                        session.changeNow())
                    .status());
    }
}

void make(const QString& file, int securities, int accounts, int plans, int instructions)
{
    ClientSession& session = ClientSession::instance();
    ClientSession::Options options;
    options.marketSize = securities;
    setClientToday(SampleSession::today());
    require(session.open(file, QString(), ClientSession::Progress(), options));
    require(UserStore(session.database()).add({ Owner, QStringLiteral("基准") }));
    require(session.database().transaction([&] {
        for (int i = 0; i < accounts; ++i)
            writeAccount(session.database(), i);
        writePositions(session.database());
        if (plans > 0)
            writeInstructions(session, writePlans(session, accounts, plans), instructions);
        return Status();
    }));
    session.close();
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 6)
        qFatal("Usage: make_data FILE SECURITIES ACCOUNTS PLANS INSTRUCTIONS");
    // Renamed only when it is complete.
    const QString part = arguments.at(1) + QStringLiteral(".part");
    for (const char* end : { "", "-wal", "-shm" })
        QFile::remove(part + QLatin1String(end));
    make(part, arguments.at(2).toInt(), arguments.at(3).toInt(), arguments.at(4).toInt(), arguments.at(5).toInt());
    return QFile::rename(part, arguments.at(1)) ? EXIT_SUCCESS : EXIT_FAILURE;
}
