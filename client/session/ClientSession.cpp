#include "session/ClientSession.h"

#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include "calendar/ClientClock.h"
#include "sample/SampleAccounts.h"
#include "sample/SampleMarket.h"
#include "sample/SampleStrategyLists.h"
#include "sample/SampleTexts.h"
#include "search/SymbolIndexes.h"
#include "session/PlanNews.h"
#include "store/AgreementStore.h"
#include "store/StaticTextStore.h"
#include "store/TradeDayStore.h"

#include <QCoreApplication>

#include <chrono>

namespace {

constexpr std::chrono::milliseconds untilIdle(200);
// Longer than any run of closed days.
constexpr int longestClosure = 40;

QDate lastTradeDayBefore(const TradeCalendar& calendar, const QDate& today)
{
    const QString exchange = Kelvo_Values::Exchange::sh;
    QDate day = qMin(today.addDays(-1), calendar.lastKnownDay(exchange));
    for (int i = 0; i < longestClosure; ++i, day = day.addDays(-1)) {
        if (calendar.day(exchange, day) == TradeCalendar::Day::Trades)
            return day;
    }
    return QDate();
}

void closeWithTheApplication()
{
    ClientSession::instance().close();
}

} // namespace

// The indexes are there before the session and outlive it.
ClientSession::ClientSession()
    : m_market(std::make_unique<const Market>())
{
    SymbolIndexes::instance();
    m_idle.setSingleShot(true);
    m_idle.setInterval(untilIdle);
    QObject::connect(&m_idle, &QTimer::timeout, &m_idle, [this] { m_database.prepareLog(); });
    QObject::connect(&PlanNews::instance(), &PlanNews::planStored, &m_idle, [this] { m_idle.start(); });
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

QString ClientSession::open(const QString& file, const QString& userId)
{
    return open(file, userId, Progress(), Options());
}

QString ClientSession::open(
    const QString& file, const QString& userId, const Progress& progress, const Options& options)
{
    close();
    const QString reason = openFor(file, userId, progress, options);
    m_open = reason.isEmpty();
    if (m_open) {
        prepareSearch();
        startMovingAverages();
        m_idle.start();
    } else {
        close();
    }
    return reason;
}

void ClientSession::close()
{
    m_open = false;
    m_idle.stop();
    m_averages.reset();
    m_ahead.reset();
    m_instructions = KnownInstructions();
    m_texts.clear();
    m_unsigned.clear();
    m_accounts.clear();
    replaceMarket(std::make_unique<const Market>());
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
    if (!m_open)
        return {};
    const QString mark = m_database.contentsMark();
    if (!isKnown(planId, mark))
        m_instructions = { planId, mark, instructions().ofPlan(planId) };
    return m_instructions.instructions;
}

void ClientSession::readInstructionsAhead(const QString& planId)
{
    if (!m_open)
        return;
    const QString mark = m_database.contentsMark();
    if (mark.isEmpty() || isKnown(planId, mark))
        return;
    if (!m_ahead)
        startReadingAhead();
    m_ahead->read(planId, mark);
}

bool ClientSession::isKnown(const QString& planId, const QString& mark) const
{
    return !mark.isEmpty() && mark == m_instructions.mark && planId == m_instructions.plan;
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

QString ClientSession::openFor(
    const QString& file, const QString& userId, const Progress& progress, const Options& options)
{
    QString reason = m_database.open(file);
    if (reason.isEmpty() && UserStore(m_database).users().isEmpty())
        reason = m_database.transaction([&] { return makeSampleData(progress, options); });
    if (reason.isEmpty())
        reason = loadMarket();
    if (reason.isEmpty())
        reason = storeTradeDays();
    return reason.isEmpty() ? logIn(userId) : reason;
}

QString ClientSession::makeSampleData(const Progress& progress, const Options& options)
{
    SampleMarketOptions sample;
    sample.size = options.marketSize;
    sample.lastDay = lastTradeDayBefore(calendar(), clientToday());
    if (!sample.lastDay.isValid())
        return QStringLiteral("交易日历不包含今天（%1），无法生成示例行情").arg(clientToday().toString(Qt::ISODate));
    QString reason = SampleMarket::write(m_database, sample, progress);
    if (reason.isEmpty())
        reason = SampleTexts::write(m_database);
    if (reason.isEmpty())
        reason = SampleStrategyLists::write(m_database);
    return reason.isEmpty() ? SampleAccounts::write(m_database, QDateTime(sample.lastDay, QTime(9, 0))) : reason;
}

QString ClientSession::loadMarket()
{
    auto market = std::make_unique<Market>();
    const QString reason = market->load(m_database);
    if (reason.isEmpty())
        replaceMarket(std::move(market));
    return reason;
}

// Names are read on another thread while indexes are being prepared.
void ClientSession::replaceMarket(std::unique_ptr<const Market> market)
{
    SymbolIndexes::instance().forget();
    m_market = std::move(market);
}

QString ClientSession::logIn(const QString& userId)
{
    UserStore store(m_database);
    const QString wanted = userId.isEmpty() ? SampleAccounts::defaultUser() : userId;
    m_user = store.user(wanted);
    if (m_user.id.isEmpty())
        return QStringLiteral("用户“%1”不存在").arg(wanted);
    m_accounts.load(m_database, m_user.id);
    return QString();
}

// Only written when the calendar has grown since, so that a second session does not wait for the write lock.
QString ClientSession::storeTradeDays()
{
    TradeDayStore store(m_database);
    const QStringList exchanges{ Kelvo_Values::Exchange::sh, Kelvo_Values::Exchange::sz, Orlo_Values::Exchange::bj,
        Orlo_Values::Exchange::HkStockCirculation };
    for (const QString& exchange : exchanges) {
        QString error;
        const QList<QDate> days = calendar().tradeDays(exchange, clientToday(), error);
        if (!error.isEmpty() || days == store.days(exchange, clientToday()))
            continue;
        const QString reason = store.replace(exchange, days);
        if (!reason.isEmpty())
            return reason;
    }
    return QString();
}

// Once events are worked off: a window that is being built needs the processor more.
void ClientSession::prepareSearch()
{
    QTimer::singleShot(0, &SymbolIndexes::instance(), [this] {
        const auto nameOf = [this](const QString& symbol) {
            const Security* security = m_market->find(symbol);
            return security ? security->name : QString();
        };
        SymbolIndexes::instance().prepare(m_market->symbols().runs(), nameOf);
    });
}

void ClientSession::startMovingAverages()
{
    static const bool registered = (qAddPostRoutine(closeWithTheApplication), true);
    Q_UNUSED(registered);
    m_averages = std::make_unique<MovingAverageDesk>(m_database.fileName());
    // Passed on from the desk's thread: receivers see the answer as another thread's.
    QObject::connect(m_averages.get(), &MovingAverageDesk::answered, &AutoPlanLogic::instance(),
        &AutoPlanLogic::signalQuerySymbolMAResponse, Qt::DirectConnection);
}

// Received by the desk, so that nothing arrives once the desk is gone.
void ClientSession::startReadingAhead()
{
    m_ahead = std::make_unique<InstructionDesk>(m_database.fileName());
    QObject::connect(m_ahead.get(), &InstructionDesk::arrived, m_ahead.get(),
        [this](const QString& planId, const QString& mark, const InstructionDesk::Instructions& instructions) {
            if (mark == m_database.contentsMark())
                m_instructions = { planId, mark, instructions };
        });
}
