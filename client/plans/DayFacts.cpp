#include "DayFacts.h"

#include "CashStore.h"
#include "Kelvo_Fields.h"
#include "PlanFacts.h"
#include "PlanTexts.h"

namespace {

constexpr double FenPerYuan = 100;

} // namespace

DayFacts::DayFacts(Database& database, const IssueScene& scene)
    : m_database(database)
    , m_scene(scene)
    , m_rights(database, scene.day)
{
}

Result<QVector<qint64>> DayFacts::closes(const Security& security)
{
    const auto known = m_closes.constFind(security.symbol);
    if (known != m_closes.cend())
        return *known;
    const Result<CloseHistory> read = SecurityStore(m_database).closes(security.symbol);
    if (!read)
        return read.status();
    return m_closes.insert(security.symbol, PlanFacts::closesBefore(*read, m_scene.calendar, security, m_scene.day))
        .value();
}

int DayFacts::daysUntil(const QString& exchange, const QString& lastDay)
{
    const auto known = m_days.constFind({ exchange, lastDay });
    if (known != m_days.cend())
        return *known;
    const QDate last = PlanTexts::date(lastDay);
    int days = 0;
    for (QDate date = m_scene.day; date <= last; date = date.addDays(1)) {
        const TradeCalendar::Day kind = m_scene.calendar.day(exchange, date);
        if (kind == TradeCalendar::Day::Unknown)
            break;
        days += kind == TradeCalendar::Day::Trades ? 1 : 0;
    }
    m_days.insert({ exchange, lastDay }, days);
    return days;
}

Result<double> DayFacts::sellable(const PlanStore::Record& record, const Security& security)
{
    const QStringList position = positionOf(record);
    const auto known = m_sellable.constFind(position);
    if (known != m_sellable.cend())
        return *known;
    const Result<double> read = PlanFacts::sellable(m_database, record, security, m_scene.day);
    if (read)
        m_sellable.insert(position, *read);
    return read;
}

Result<std::optional<double>> DayFacts::cash(const PlanStore::Record& record)
{
    const QString account = record.value(Kelvo_Fields::UserAccount::tradingAccount).toString();
    const auto known = m_cash.constFind(account);
    if (known != m_cash.cend())
        return *known;
    const auto read = CashStore(m_database).available(account, m_scene.day);
    if (!read)
        return read.status();
    std::optional<double> yuan;
    if (*read)
        yuan = static_cast<double>(read->value()) / FenPerYuan;
    return *m_cash.insert(account, yuan);
}

void DayFacts::take(const PlanStore::Record& record, const OrderTerms& terms, const DayOrder& order)
{
    if (terms.needsHoldings())
        m_sellable[positionOf(record)] -= static_cast<double>(order.quantity);
    std::optional<double>& cash = m_cash[record.value(Kelvo_Fields::UserAccount::tradingAccount).toString()];
    if (cash && terms.needsCash())
        *cash -= order.spentYuan();
    else if (cash && terms.earnsCash())
        *cash += order.filledYuan;
}

QStringList DayFacts::positionOf(const PlanStore::Record& record)
{
    return { record.value(Kelvo_Fields::UserAccount::tradingAccount).toString(),
        record.value(Kelvo_Fields::UserAccount::securityAccount).toString(),
        record.value(Kelvo_Fields::Security::symbol).toString() };
}
