#include "ClientSession.h"

#include "AgreementStore.h"
#include "ClientClock.h"
#include "ConfigurationStore.h"
#include "PlanEvents.h"
#include "SampleAccounts.h"
#include "SampleData.h"
#include "ServerLocation.h"
#include "ValueReader.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QSemaphore>
#include <QThread>

#include <algorithm>
#include <chrono>

namespace {

constexpr std::chrono::milliseconds UntilIdle(200);
// A call of the user, from the begin of its transaction.
constexpr std::chrono::milliseconds LongestCall(4800);
constexpr std::chrono::milliseconds BetweenAttempts(100);
constexpr std::chrono::seconds BetweenRepetitions(1);

void closeWithTheApplication()
{
    ClientSession::instance().close();
}

} // namespace

ClientSession::ClientSession()
{
    m_idle.setSingleShot(true);
    m_idle.setInterval(UntilIdle);
    QObject::connect(&m_idle, &QTimer::timeout, &m_idle, [this] { m_database.prepareWal(); });
    m_repetition.setSingleShot(true);
    QObject::connect(&m_repetition, &QTimer::timeout, &m_repetition, [this] { repeatLookUps(); });
    m_endOfEvent.setSingleShot(true);
    QObject::connect(&m_endOfEvent, &QTimer::timeout, &m_endOfEvent, [this] { forgetEvent(); });
    const auto noteStored = [this] {
        m_idle.start();
        forgetEvent();
    };
    QObject::connect(&PlanEvents::instance(), &PlanEvents::planStored, &m_idle, noteStored);
    QObject::connect(&PlanEvents::instance(), &PlanEvents::plansStored, &m_idle, noteStored);
}

ClientSession::~ClientSession()
{
    close();
}

ClientSession& ClientSession::instance()
{
    static ClientSession session;
    return session;
}

Status ClientSession::open(const QString& file, const QString& userId)
{
    return open(file, userId, Progress(), Options());
}

Status ClientSession::open(const QString& file, const QString& userId, const Progress& progress, const Options& options)
{
    close();
    Status status = openFor(file, userId, progress, options);
    m_open = bool(status);
    if (m_open) {
        m_market.prepareSearch();
        startMovingAverages();
        startPageCheck();
        m_idle.start();
    } else {
        close();
    }
    return status;
}

Status ClientSession::takeImported(const Market& market)
{
    if (!m_open)
        return {};
    ClosureFiles::reload();
    if (m_market.market().symbols().toStringList() != market.symbols().toStringList())
        ++m_listsNumber;
    m_market.take(market);
    m_market.prepareSearch();
    m_unsigned.clear();
    forgetEvent();
    Status status = logIn(m_database.role().isEmpty() ? m_user.id : QString());
    Q_EMIT PlanEvents::instance().plansChanged();
    return status;
}

void ClientSession::close()
{
    m_open = false;
    m_idle.stop();
    m_repetition.stop();
    m_averages.reset();
    m_checker.reset();
    m_watch.reset();
    m_finder.reset();
    m_lookUps.clear();
    m_instructions.clear();
    m_versions.clear();
    m_requests.clear();
    m_texts.clear();
    forgetEvent();
    m_unsigned.clear();
    m_accounts.clear();
    m_market.clear();
    m_user = StoredUser();
    m_database.close();
}

PlanStore ClientSession::plans()
{
    return PlanStore(m_database, m_user);
}

InstructionStore ClientSession::instructions()
{
    return InstructionStore(m_database);
}

Change ClientSession::changeNow(const QString& request) const
{
    return { m_user.id, clientNow(), request };
}

Result<InstructionCache::Instructions> ClientSession::instructionsOf(const QString& planId)
{
    if (!m_open)
        return InstructionCache::Instructions();
    const Result<StoredPlan> known = plan(planId);
    if (!known)
        return known.status();
    return known->id.isEmpty() ? InstructionCache::Instructions() : m_instructions.ofPlan(planId);
}

void ClientSession::prefetchInstructions(const QString& planId)
{
    if (m_open)
        m_instructions.prefetch(planId);
}

Result<QString> ClientSession::staticText(const QString& category, const QString& key)
{
    if (!m_open)
        return QString();
    if (m_texts.isEmpty()) {
        const auto texts = StaticTextStore(m_database).texts();
        if (!texts)
            return texts.status();
        m_texts = *texts;
    }
    return m_texts.value({ category, key });
}

// One cascade of choices asks for the same lists several times.
Result<QStringList> ClientSession::whiteList(
    const QString& instructionType, const QString& targetType, const QString& symbol)
{
    return listOf({ instructionType, targetType, symbol },
        [&] { return StrategyStore(m_database).whiteList(instructionType, targetType, symbol); });
}

Result<QStringList> ClientSession::blackList(const QString& targetType)
{
    return listOf({ targetType }, [&] { return StrategyStore(m_database).blackList(targetType); });
}

Result<QStringList> ClientSession::listOf(const QStringList& key, const std::function<Result<QStringList>()>& read)
{
    if (!m_open)
        return QStringList();
    const auto known = m_lists.constFind(key);
    if (known != m_lists.cend())
        return *known;
    const Result<QStringList> list = read();
    if (list)
        m_lists.insert(key, *list);
    m_endOfEvent.start();
    return list;
}

Result<StoredPlan> ClientSession::plan(const QString& planId)
{
    if (!m_open)
        return StoredPlan();
    if (m_plan.id == planId && !planId.isEmpty())
        return m_plan;
    const Result<StoredPlan> plan = plans().plan(planId);
    m_plan = plan.valueOr(StoredPlan());
    m_endOfEvent.start();
    return plan;
}

void ClientSession::forgetEvent()
{
    m_lists.clear();
    m_plan = StoredPlan();
}

Result<QStringList> ClientSession::unsignedClients(const QString& protocolId)
{
    if (!m_open)
        return QStringList();
    const auto known = m_unsigned.constFind(protocolId);
    if (known != m_unsigned.cend())
        return *known;
    const Result<QStringList> clients = AgreementStore(m_database).unsignedClientNumbers(protocolId, m_user.id);
    if (clients)
        m_unsigned.insert(protocolId, *clients);
    return clients;
}

void ClientSession::watch()
{
    if (!m_open)
        return;
    m_watch = std::make_unique<DatabaseWatch>(m_database, [this] { return reopen(); });
    PlanEvents& events = PlanEvents::instance();
    QObject::connect(m_watch.get(), &DatabaseWatch::changed, m_watch.get(), [this] {
        m_areAccountsOld = true;
        m_unsigned.clear();
    });
    QObject::connect(m_watch.get(), &DatabaseWatch::changed, &events, &PlanEvents::plansChanged);
    QObject::connect(m_watch.get(), &DatabaseWatch::lost, &events, &PlanEvents::connectionLost);
    QObject::connect(m_watch.get(), &DatabaseWatch::stillLost, &events, &PlanEvents::connectionStillLost);
    QObject::connect(m_watch.get(), &DatabaseWatch::restored, &events, &PlanEvents::connectionRestored);
}

// The user's rights may have changed meanwhile. Without them, there are none.
Status ClientSession::reopen()
{
    if (Status status = m_database.reopen(); !status)
        return status;
    m_unsigned.clear();
    Status status = logIn(QString());
    if (status)
        m_repetition.start(0);
    return status;
}

Result<qint64> ClientSession::lookUp(const QString& request, const Find& find, const Known& known)
{
    const Result<qint64> found = m_database.isOpen() ? find(m_database) : lookUpElsewhere(find);
    if (found) {
        m_lookUps.remove(request);
    } else {
        m_lookUps.insert(request, { find, known });
        m_repetition.start(BetweenRepetitions);
    }
    return found;
}

// A COMMIT on its way may still arrive, so the server's process that would execute it is ended first.
Result<qint64> ClientSession::lookUpElsewhere(const Find& find)
{
    struct Answer {
        QSemaphore given;
        Result<qint64> found{ Error::ConnectionLost };
    };
    const auto answer = std::make_shared<Answer>();
    const QDeadlineTimer end(std::max<qint64>(0, LongestCall.count() - m_database.sinceBegin()));
    if (!m_finder)
        m_finder = std::make_unique<DatabaseThread>(QStringLiteral("look-up"), m_database);
    m_finder->run([=, process = m_database.process(), location = m_database.location()](
                      Database& database, const Status& opened) {
        Status status = opened;
        while (!status && !end.hasExpired()) {
            QThread::msleep(BetweenAttempts.count());
            status = database.open(location);
        }
        if (status)
            status = database.endProcess(process);
        answer->found = status ? find(database) : Result<qint64>(status);
        database.close();
        answer->given.release();
    });
    return answer->given.tryAcquire(1, static_cast<int>(end.remainingTime())) ? answer->found : Error::ConnectionLost;
}

// A box reports each outcome; meanwhile the connection may be lost and restored again. A server that was just
// started may be too slow at first.
void ClientSession::repeatLookUps()
{
    while (!m_lookUps.isEmpty()) {
        const QString request = m_lookUps.firstKey();
        const auto lookUp = m_lookUps.value(request);
        const Result<qint64> found = lookUp.first(m_database);
        if (!found) {
            m_repetition.start(BetweenRepetitions);
            return;
        }
        m_lookUps.remove(request);
        lookUp.second(*found);
    }
}

bool ClientSession::askMovingAverages(const QString& symbol)
{
    if (m_open)
        m_averages->ask(symbol);
    return m_open;
}

Status ClientSession::openFor(
    const QString& file, const QString& userId, const Progress& progress, const Options& options)
{
    m_database.setPatient(options.isPatient && !ServerLocation::isServer(file));
    if (Status status = m_database.open(file); !status)
        return status;
    if (Status status = fillNew(userId, progress, options); !status)
        return status;
    if (Status status = m_market.load(m_database); !status)
        return status;
    return logIn(userId);
}

// An administrator fills the database of a server. Looks again under the write lock: another client may have written
// the data in the meantime.
Status ClientSession::fillNew(const QString& userId, const Progress& progress, const Options& options)
{
    if (!m_database.role().isEmpty())
        return {};
    const Result<int> isNew = SampleData::isUnwritten(m_database);
    if (!isNew || *isNew == 0)
        return isNew.status();
    return m_database.transaction([&]() -> Status {
        const Result<int> isStillNew = SampleData::isUnwritten(m_database);
        if (!isStillNew || *isStillNew == 0)
            return isStillNew.status();
        if (!options.isEmpty)
            return SampleData::write(m_database, options.marketSize, progress);
        const QString first = userId.isEmpty() ? SampleAccounts::defaultUser() : userId;
        Status status = SampleData::writeTexts(m_database);
        return status ? UserStore(m_database).add({ first, first }) : status;
    });
}

Status ClientSession::logIn(const QString& userId)
{
    const QString role = m_database.role();
    if (!role.isEmpty() && !userId.isEmpty())
        return { Error::UserIsRole, { role } };
    const QString usual = role.isEmpty() ? SampleAccounts::defaultUser() : role;
    const QString wanted = userId.isEmpty() ? usual : userId;
    const Result<StoredUser> known = UserStore(m_database).user(wanted);
    if (!known)
        return known.status();
    if (known->id.isEmpty())
        return { Error::UnknownUser, { wanted } };
    m_user = *known;
    const Status status = readAccounts();
    if (!status)
        m_accounts.clear();
    return status;
}

Status ClientSession::refreshAccounts()
{
    if (!m_open || !m_areAccountsOld)
        return {};
    const Result<QString> version = factsVersion();
    if (version && *version == m_accountsVersion)
        m_areAccountsOld = false;
    return m_areAccountsOld ? readAccounts() : Status();
}

Result<QString> ClientSession::factsVersion()
{
    QString version;
    ValueReader reader(m_database);
    reader.addFactsVersion(version);
    const Status status = reader.read();
    return status ? Result<QString>(version) : status;
}

Status ClientSession::readAccounts()
{
    AccountDirectory present;
    // First, because they may change while they are read.
    const Result<QString> version = factsVersion();
    if (!version)
        return version.status();
    if (Status status = present.load(m_database, m_user.id); !status)
        return status;
    m_areAccountsOld = false;
    m_accountsVersion = *version;
    if (!(present == m_accounts))
        ++m_listsNumber;
    m_accounts = present;
    return {};
}

void ClientSession::startMovingAverages()
{
    static const bool registered = (qAddPostRoutine(closeWithTheApplication), true);
    Q_UNUSED(registered);
    m_averages = std::make_unique<MovingAverageWorker>(m_database);
    // Emitted on the worker's thread, so receivers must expect another thread.
    QObject::connect(m_averages.get(), &MovingAverageWorker::answered, &PlanEvents::instance(),
        &PlanEvents::averagesAnswered, Qt::DirectConnection);
}

// The file may be large, so the session does not wait. Every read reports damage that it meets by itself. A server
// checks its files itself.
void ClientSession::startPageCheck()
{
    if (!m_database.role().isEmpty())
        return;
    m_checker = std::make_unique<PageChecker>(m_database);
    QObject::connect(m_checker.get(), &PageChecker::failed, &PlanEvents::instance(), &PlanEvents::report);
}
