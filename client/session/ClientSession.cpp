#include "ClientSession.h"

#include "AgreementStore.h"
#include "AutoPlanField.h"
#include "ConfigurationStore.h"
#include "PlanEvents.h"
#include "SampleAccounts.h"
#include "SampleData.h"

#include <QCoreApplication>

#include <chrono>

namespace {

constexpr std::chrono::milliseconds UntilIdle(200);

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
    QObject::connect(&PlanEvents::instance(), &PlanEvents::planStored, &m_idle, [this] { m_idle.start(); });
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
        m_idle.start();
    } else {
        close();
    }
    return status;
}

void ClientSession::close()
{
    m_open = false;
    m_idle.stop();
    m_averages.reset();
    m_instructions.clear();
    m_texts.clear();
    m_unsigned.clear();
    m_accounts.clear();
    m_market.clear();
    m_user = StoredUser();
    m_database.close();
}

QVector<StoredUser> ClientSession::users()
{
    return m_open ? UserStore(m_database).users() : QVector<StoredUser>();
}

PlanStore ClientSession::plans()
{
    return PlanStore(m_database, AutoPlanField::BaseField::planOtherParam);
}

InstructionStore ClientSession::instructions()
{
    return InstructionStore(m_database);
}

QMap<QString, InstructionStore::Fields> ClientSession::instructionsOf(const QString& planId)
{
    return m_open ? m_instructions.ofPlan(planId) : InstructionCache::Instructions();
}

void ClientSession::prefetchInstructions(const QString& planId)
{
    if (m_open)
        m_instructions.prefetch(planId);
}

QString ClientSession::staticText(const QString& category, const QString& key)
{
    if (!m_open)
        return QString();
    const auto known = m_texts.constFind({ category, key });
    if (known != m_texts.cend())
        return *known;
    return *m_texts.insert({ category, key }, StaticTextStore(m_database).text(category, key));
}

QStringList ClientSession::unsignedClients(const QString& protocolId)
{
    if (!m_open)
        return {};
    const auto known = m_unsigned.constFind(protocolId);
    if (known != m_unsigned.cend())
        return *known;
    return *m_unsigned.insert(protocolId, AgreementStore(m_database).unsignedClientNumbers(protocolId, m_user.id));
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
    Status status = m_database.open(file);
    if (status && UserStore(m_database).users().isEmpty())
        status = m_database.transaction([&] { return SampleData::write(m_database, options.marketSize, progress); });
    if (status)
        status = m_market.load(m_database);
    return status ? logIn(userId) : status;
}

Status ClientSession::logIn(const QString& userId)
{
    UserStore store(m_database);
    const QString wanted = userId.isEmpty() ? SampleAccounts::defaultUser() : userId;
    m_user = store.user(wanted);
    if (m_user.id.isEmpty())
        return { Error::UnknownUser, { wanted } };
    m_accounts.load(m_database, m_user.id);
    return {};
}

void ClientSession::startMovingAverages()
{
    static const bool registered = (qAddPostRoutine(closeWithTheApplication), true);
    Q_UNUSED(registered);
    m_averages = std::make_unique<MovingAverageWorker>(m_database.fileName());
    // Emitted on the worker's thread, so receivers must expect another thread.
    QObject::connect(m_averages.get(), &MovingAverageWorker::answered, &PlanEvents::instance(),
        &PlanEvents::averagesAnswered, Qt::DirectConnection);
}
