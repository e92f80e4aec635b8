#include "StoreReads.h"

#include "Administration.h"
#include "AgreementStore.h"
#include "AlertCalendar.h"
#include "AlertStore.h"
#include "CashStore.h"
#include "ClientSession.h"
#include "ConfigurationStore.h"
#include "InstructionTargetType.h"
#include "JournalStore.h"
#include "Kelvo_Fields.h"
#include "LimitStore.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"
#include "PlanTexts.h"
#include "PositionStore.h"
#include "RightsReport.h"
#include "SampleSession.h"
#include "SecurityStore.h"
#include "UserStore.h"
#include "ValueReader.h"

#include <QJsonDocument>

#include <memory>

namespace {

using namespace PlanCodes;
using StoreReads::Answer;
using StoreReads::Read;
using Reads = QVector<QPair<const char*, Read>>;

const QString Plan = QStringLiteral("AP00000001");
const QString Second = QStringLiteral("AP00000002");
constexpr qint64 PlanNumber = 1;
const QString Trader = QStringLiteral("trader01");
const QString Account = QStringLiteral("100001");
const QString Request = QStringLiteral("request of the test");
const QString& Agreement = Orlo_Values::ProtocolId::AutoPlanReduceAgree;

ClientSession& client()
{
    return ClientSession::instance();
}

Database& database()
{
    return client().database();
}

QDate today()
{
    return SampleSession::today();
}

// The sample looks up its record's security.
QMap<QString, QVariant> record;

QString share()
{
    return record.value(Kelvo_Fields::Security::symbol).toString();
}

PlanSlice slice()
{
    PlanSlice slice;
    slice.limit = 20;
    return slice;
}

// --- Texts of what is read

QString text(const QString& found)
{
    return found;
}

QString text(int found)
{
    return QString::number(found);
}

QString text(qint64 found)
{
    return QString::number(found);
}

QString text(const QDateTime& found)
{
    return found.toString(Qt::ISODate);
}

QString text(const QMap<QString, QVariant>& found)
{
    return PlanTexts::jsonText(found);
}

QString text(const std::optional<qint64>& found)
{
    return found ? QString::number(*found) : QStringLiteral("absent");
}

QString text(const AccountLimits& found)
{
    return text(found.quantity) + text(found.amount) + text(found.priceBandPerMille);
}

QString text(const StoredUser& found)
{
    return found.id + found.name;
}

QString text(const StoredAccount& found)
{
    return found.tradingAccount + found.fundAccount + found.name + found.clientNo + found.assetProperty + found.branchNo
        + QStringList(found.exchangeAccounts.values()).join(QLatin1Char(','));
}

QString text(const Rights& found)
{
    return text(int(found.authority)) + text(found.ruleProperty) + found.chainKey;
}

QString text(const OrderRights& found)
{
    return text(int(found.isOwn)) + found.assetProperty + found.securityAccount + text(int(found.authority))
        + text(found.ruleProperty) + text(int(found.knowsExecutor)) + text(int(found.knowsAssignee));
}

QString text(const StoredAgreement& found)
{
    return found.protocol + found.title + found.content;
}

QString text(const StoredPosition& found)
{
    return found.securityAccount + found.symbol + text(found.quantity) + text(found.tradeableQuantity);
}

QString text(const CloseHistory& found)
{
    return found.lastDay.toString(Qt::ISODate) + text(found.ticks.size());
}

QString text(const Security& found)
{
    return found.symbol + found.name + found.exchange;
}

QString text(const StoredPlan& found)
{
    return found.id + text(found.version) + text(int(found.state)) + text(found.record);
}

QString text(const PlanLandmark& found)
{
    return text(found.place.number) + text(found.position);
}

QString text(const HistoryEntry& found)
{
    return text(found.plan) + text(found.version) + text(found.before) + text(found.after);
}

QString text(const PlanUse& found)
{
    return QStringLiteral("%1 %2 ").arg(found.quantity).arg(found.yuan) + found.openSince.toString(Qt::ISODate);
}

QString text(const PlanProgress& found)
{
    return text(found.used) + QStringLiteral(" %1 ").arg(found.filledQuantity) + found.lastDay.toString(Qt::ISODate)
        + found.refusal;
}

QString text(const Alert& found)
{
    return text(int(found.kind)) + found.subject + found.text + text(found.plan);
}

QString text(const JournalEntry& found)
{
    return text(int(found.kind)) + text(found.plan) + found.user + text(found.time) + found.instruction
        + text(found.fields) + found.reason + text(int(found.after));
}

// --- Answers of reads

Answer each(const Result<QStringList>& read)
{
    return read;
}

template <typename T> Answer each(const Result<QVector<T>>& read)
{
    if (!read)
        return read.status();
    QStringList texts;
    for (const T& found : *read)
        texts << text(found);
    return texts;
}

template <typename Map> Answer byKey(const Result<Map>& read)
{
    if (!read)
        return read.status();
    QStringList texts;
    for (auto it = read->cbegin(); it != read->cend(); ++it)
        texts << text(it.key()) + text(it.value());
    texts.sort();
    return texts;
}

template <typename T> Answer one(const Result<T>& read)
{
    return read ? Answer(QStringList(text(*read))) : read.status();
}

/// A value that is read with others. `add` adds it to what is read.
template <typename T> Answer added(const std::function<void(ValueReader& reader, T& value)>& add)
{
    T value{};
    ValueReader reader(database());
    add(reader, value);
    const Status status = reader.read();
    return status ? Answer(QStringList(text(value))) : status;
}

// --- Reads of each store

Reads userReads()
{
    return {
        { "users", [] { return each(UserStore(database()).users()); } },
        { "one user", [] { return one(UserStore(database()).user(QStringLiteral("trader02"))); } },
        { "use of a user's name", [] { return one(UserStore(database()).isNameUsed(QStringLiteral("赵执行"))); } },
    };
}

Reads accountReads()
{
    return {
        { "accounts of a user", [] { return each(AccountStore(database()).accountsOf(Trader)); } },
        { "all accounts", [] { return each(AccountStore(database()).accounts()); } },
        { "one account", [] { return one(AccountStore(database()).account(Account)); } },
        { "used accounts", [] { return each(AccountStore(database()).usedAccounts()); } },
        { "cash",
            [] {
                const auto cash = CashStore(database()).available(Account, today());
                return cash ? Answer(QStringList(text(*cash))) : cash.status();
            } },
        { "cash with others",
            [] {
                return added<std::optional<qint64>>([](ValueReader& reader, std::optional<qint64>& fen) {
                    CashStore::addTo(reader, Account, today(), fen);
                });
            } },
        { "limits of an account", [] { return one(LimitStore(database()).own(Account)); } },
        { "usual limits", [] { return one(LimitStore(database()).own(QString())); } },
        { "limits with others",
            [] {
                return added<AccountLimits>([](ValueReader& reader, AccountLimits& limits) {
                    LimitStore::addTo(reader, Account, Trader, today(), limits);
                });
            } },
    };
}

Reads rightsReads()
{
    return {
        { "rights",
            [] {
                return one(
                    AuthorityStore(database()).rights(Trader, QStringLiteral("100002"), InstructionType::Ordinary));
            } },
        { "rights with others",
            [] {
                return added<OrderRights>([](ValueReader& reader, OrderRights& rights) {
                    const QString exchange = client().market().find(share())->exchange;
                    AuthorityStore::addTo(reader,
                        { Trader, Account, exchange, InstructionType::Ordinary, QStringLiteral("赵执行"), QString() },
                        rights);
                });
            } },
        { "types of an account", [] { return each(AuthorityStore(database()).types(Trader, Account)); } },
        { "types with a chain", [] { return each(AuthorityStore(database()).chainTypes(Account)); } },
        { "chain", [] { return one(AuthorityStore(database()).chainKey(Account, InstructionType::Ordinary)); } },
        { "executors",
            [] {
                return each(AuthorityStore(database())
                                .chainUsers(client().accounts().chainKey(Account, InstructionType::Ordinary),
                                    ChainRole::Execute));
            } },
        { "directory of a login",
            [] {
                AccountDirectory directory;
                const Status status = directory.load(database(), Trader);
                return status ? Answer(QStringList{ text(directory.accounts().size()),
                           text(directory.ruleProperty(QStringLiteral("100002"), InstructionType::Ordinary)) })
                              : status;
            } },
    };
}

Reads agreementReads()
{
    return {
        { "agreement", [] { return one(AgreementStore(database()).agreement(Agreement)); } },
        { "signature", [] { return one(AgreementStore(database()).signedTime(Agreement, QStringLiteral("C10001"))); } },
        { "unsigned clients",
            [] {
                return each(AgreementStore(database()).unsignedClientNumbers(Agreement, QStringLiteral("trader07")));
            } },
        { "white list",
            [] {
                return each(StrategyStore(database())
                                .whiteList(InstructionType::HkConnect, InstructionTargetType::QtyOrder, share()));
            } },
        { "black list", [] { return each(StrategyStore(database()).blackList(InstructionTargetType::AmountOrder)); } },
        { "static texts",
            [] {
                const auto texts = StaticTextStore(database()).texts();
                if (!texts)
                    return Answer(texts.status());
                QStringList sorted = texts->values();
                sorted.sort();
                return Answer(sorted);
            } },
    };
}

Reads marketReads()
{
    return {
        { "positions", [] { return each(PositionStore(database()).positions(Account, QString(), share(), today())); } },
        { "all positions", [] { return each(PositionStore(database()).all()); } },
        { "stored positions", [] { return each(PositionStore(database()).stored(Account, QString(), share())); } },
        { "held securities", [] { return byKey(PositionStore(database()).held(Account)); } },
        { "what may be sold, with others",
            [] {
                const QString securityAccount = record.value(Kelvo_Fields::UserAccount::securityAccount).toString();
                return added<qint64>([&securityAccount](ValueReader& reader, qint64& quantity) {
                    PositionStore::addTo(reader, Account, securityAccount, share(), today(), quantity);
                });
            } },
        { "closes", [] { return one(SecurityStore(database()).closes(share())); } },
        { "closes with others",
            [] {
                return added<CloseHistory>(
                    [](ValueReader& reader, CloseHistory& closes) { SecurityStore::addTo(reader, share(), closes); });
            } },
        { "number of securities", [] { return one(SecurityStore(database()).count()); } },
        { "one security", [] { return one(SecurityStore(database()).security(share())); } },
        { "used symbols", [] { return each(SecurityStore(database()).usedSymbols()); } },
        { "first symbols",
            [] {
                const QString subType = client().market().find(share())->subType;
                return each(SecurityStore(database()).firstSymbols(subType, QString(), 10));
            } },
        { "market",
            [] {
                Market market;
                const Status status = market.load(database());
                return status ? Answer(QStringList(text(market.count()))) : status;
            } },
    };
}

Reads planReads()
{
    return {
        { "record", [] { return one(client().plans().record(Plan)); } },
        { "plan", [] { return one(client().plans().plan(Plan)); } },
        { "locked plan", [] { return one(client().plans().lockedPlan(Plan)); } },
        { "plans",
            [] {
                return each(client().plans().plans({ Plan, Second }));
            } },
        { "plans by id",
            [] {
                return byKey(client().plans().plansById({ Plan, Second }));
            } },
        { "unended plans", [] { return each(client().plans().unended(Account, share(), today(), 10)); } },
        { "newest plans", [] { return each(client().plans().newestOf(Account, 10)); } },
        { "running plans", [] { return each(client().plans().runningOf(Account, today())); } },
        { "plans of a day",
            [] {
                const auto plans = client().plans().plansOfDay(today());
                return plans ? Answer(plans->issued + plans->due) : plans.status();
            } },
        { "some plans of a day",
            [] {
                const auto plans = client().plans().plansOfDay(today(), QStringList(Second));
                return plans ? Answer(plans->issued + plans->due) : plans.status();
            } },
    };
}

Reads listReads()
{
    return {
        { "page of plans", [] { return each(client().plans().page(0, 50)); } },
        { "number of plans", [] { return one(client().plans().count()); } },
        { "places of plans", [] { return each(client().plans().landmarks({}, 1)); } },
        { "ids of plans", [] { return each(client().plans().ids({}, slice())); } },
        { "number of a slice", [] { return one(client().plans().countOf({}, slice())); } },
        { "page of running plans",
            [] {
                PlanList list;
                list.order = PlanOrder::Security;
                list.filter = PlanFilter::Running;
                list.today = today();
                return each(client().plans().page(list, slice()));
            } },
        { "page of found plans",
            [] {
                PlanList list;
                list.search = PlanSearch();
                list.search->symbolStart = share().left(2);
                return each(client().plans().page(list, slice()));
            } },
    };
}

Reads instructionReads()
{
    return {
        { "instructions", [] { return byKey(client().instructions().ofPlan(Plan)); } },
        { "instructions of a day", [] { return byKey(client().instructions().ofDay(Plan, today())); } },
        { "days of a plan",
            [] {
                const auto days = client().instructions().daysOf(Plan);
                return days ? Answer(days->instructions.keys() + QStringList(days->refusals.values())) : days.status();
            } },
        { "use of plans", [] { return byKey(client().instructions().used({ Plan }, today())); } },
        { "use with others",
            [] {
                return added<PlanUse>(
                    [](ValueReader& reader, PlanUse& use) { InstructionStore::addTo(reader, Plan, use); });
            } },
        { "progress of plans", [] { return byKey(client().instructions().progress({ Plan })); } },
    };
}

Reads historyReads()
{
    return {
        { "history of a plan", [] { return each(HistoryStore(database()).ofPlan(PlanNumber)); } },
        { "later history of a plan", [] { return each(HistoryStore(database()).after(PlanNumber, 1)); } },
        { "plan of a request", [] { return one(HistoryStore(database()).planOfRequest(Request)); } },
        { "plan of a request, with others",
            [] {
                return added<qint64>(
                    [](ValueReader& reader, qint64& plan) { HistoryStore::addTo(reader, Request, plan); });
            } },
        { "page of the journal",
            [] {
                return each(JournalStore(database(), client().user()).page({ today(), QString(), 0, 100 }));
            } },
        { "number of entries in the journal",
            [] {
                return one(JournalStore(database(), client().user()).count({ today(), QString(), 0, 0 }));
            } },
        { "alerts",
            [] {
                const AlertDays days = alertDays(client().calendar(), today().addDays(3));
                return each(AlertStore(database(), client().user()).alerts(days, 5));
            } },
        { "report of rights",
            [administration = std::make_shared<Administration>()] {
                Database& own = administration->database();
                const Status status = own.isOpen() ? own.configure(QStringLiteral("PRAGMA shrink_memory"))
                                                   : administration->openDatabase(database().location());
                if (!status)
                    return Answer(status);
                const auto report = RightsReport::json(*administration);
                return report ? Answer(QStringList(QString::fromUtf8(QJsonDocument(*report).toJson())))
                              : report.status();
            } },
    };
}

} // namespace

Status StoreReads::addContents()
{
    record = SampleSession::record();
    return database().transaction([] {
        const Change change = client().changeNow();
        const auto plan = client().plans().lockedPlan(Plan);
        Status status =
            plan ? client().plans().replaceState(*plan, PlanState::Paused, QStringLiteral("x"), change) : plan.status();
        if (status)
            status = client().plans().create(record, client().changeNow(Request)).status();
        if (status)
            status = client().instructions().refuse(Plan, today().addDays(1), QStringLiteral("no price"), change);
        if (status)
            status = CashStore(database()).set(Account, 100000000);
        return status ? LimitStore(database()).set(Account, { 1000000, 100000000, 100 }) : status;
    });
}

QVector<QPair<const char*, Read>> StoreReads::all()
{
    return userReads() + accountReads() + rightsReads() + agreementReads() + marketReads() + planReads() + listReads()
        + instructionReads() + historyReads();
}
