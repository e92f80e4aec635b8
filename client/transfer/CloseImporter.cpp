#include "CloseImporter.h"

#include <algorithm>
#include <cmath>

using namespace TransferForms;

namespace {

constexpr qint64 MostWaiting = 1 << 20;
constexpr double HighestPrice = 1e9;
constexpr int MostDigits = 15;
const QDate FirstDay(2000, 1, 1);

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// A date in the form yyyy-MM-dd, without its way through a QString; invalid for another text.
QDate plainDate(std::string_view text)
{
    if (text.size() != 10 || text[4] != '-' || text[7] != '-')
        return {};
    const auto number = [text](size_t from, size_t count) {
        int value = 0;
        for (const char c : text.substr(from, count))
            value = isDigit(c) ? 10 * value + (c - '0') : -100000;
        return value;
    };
    return QDate(number(0, 4), number(5, 2), number(8, 2));
}

/// Digits with at most one point as ticks; absent for another text or more decimals.
std::optional<qint64> plainTicks(std::string_view text, int precision)
{
    const size_t point = std::min(text.find('.'), text.size());
    const size_t decimals = text.size() - std::min(point + 1, text.size());
    if (point == 0 || text.size() > MostDigits || decimals > static_cast<size_t>(precision))
        return std::nullopt;
    qint64 ticks = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        if (i == point)
            continue;
        if (!isDigit(text[i]))
            return std::nullopt;
        ticks = 10 * ticks + (text[i] - '0');
    }
    for (size_t i = decimals; i < static_cast<size_t>(precision); ++i)
        ticks *= 10;
    return ticks > 0 ? std::optional<qint64>(ticks) : std::nullopt;
}

} // namespace

CloseImporter::CloseImporter(Database& database, const TradeCalendar& calendar, bool replaces, ImportReport& report)
    : m_store(database)
    , m_calendar(calendar)
    , m_replaces(replaces)
    , m_report(report)
{
}

int CloseImporter::Days::numberOf(qint64 julianDay) const
{
    const qint64 place = julianDay - first;
    return place >= 0 && place < numbers.size() ? numbers.at(static_cast<int>(place)) : -1;
}

const CloseImporter::Days* CloseImporter::daysOf(const QString& exchange)
{
    const auto known = m_days.find(exchange);
    if (known != m_days.end())
        return &known->second;
    Days days;
    days.first = FirstDay.toJulianDay();
    const QDate last = m_calendar.lastKnownDay(exchange);
    for (QDate date = FirstDay; date <= last; date = date.addDays(1)) {
        const bool trades = m_calendar.day(exchange, date) == TradeCalendar::Day::Trades;
        days.numbers << (trades ? days.dates.size() : -1);
        if (trades)
            days.dates << date;
    }
    return &m_days.emplace(exchange, days).first->second;
}

Status CloseImporter::load()
{
    if (m_isLoaded)
        return {};
    m_isLoaded = true;
    const Status status = m_store.readAll([this](Security&& security) {
        Known known;
        known.symbol = security.symbol;
        known.precision = security.pricePrecision;
        known.hasCloses = security.previousClose > 0;
        known.days = daysOf(security.exchange);
        m_symbols.push_back(security.symbol.toStdString());
        m_securities.push_back(known);
    });
    m_numbers.reserve(m_symbols.size());
    for (size_t i = 0; i < m_symbols.size(); ++i)
        m_numbers.emplace(m_symbols.at(i), static_cast<int>(i));
    m_waiting.resize(m_securities.size());
    return status;
}

int CloseImporter::securityOf(ImportRow& row)
{
    const std::string_view symbol = row.bytes(CloseColumn::Symbol);
    if (m_last >= 0 && m_symbols.at(static_cast<size_t>(m_last)) == symbol)
        return m_last;
    auto found = m_numbers.find(symbol);
    if (found == m_numbers.end()) {
        const std::string typed = row.text(CloseColumn::Symbol).toUpper().toStdString();
        found = m_numbers.find(typed);
    }
    m_last = found == m_numbers.end() ? -1 : found->second;
    if (m_last < 0 && !row.neededText(CloseColumn::Symbol).isEmpty())
        row.refuse(CloseColumn::Symbol, { Error::UnknownSecurity, { row.text(CloseColumn::Symbol) } });
    return m_last;
}

std::optional<int> CloseImporter::dayOf(ImportRow& row, const Known& known)
{
    QDate date = plainDate(row.bytes(CloseColumn::Day));
    if (!date.isValid() && !row.neededText(CloseColumn::Day).isEmpty())
        date = row.date(CloseColumn::Day);
    if (!date.isValid())
        return std::nullopt;
    const int number = known.days->numberOf(date.toJulianDay());
    if (number >= 0)
        return number;
    row.refuse(CloseColumn::Day, { Error::NotADayOfSecurity, { known.symbol, date.toString(Qt::ISODate) } });
    return std::nullopt;
}

std::optional<qint64> CloseImporter::ticksOf(ImportRow& row, const Known& known)
{
    if (const auto ticks = plainTicks(row.bytes(CloseColumn::Close), known.precision))
        return ticks;
    const double scale = std::pow(10, known.precision);
    const auto yuan = row.neededNumber(CloseColumn::Close, { 1 / scale, HighestPrice, known.precision });
    return yuan ? std::optional<qint64>(std::llround(*yuan * scale)) : std::nullopt;
}

Status CloseImporter::take(ImportRow& row)
{
    if (Status status = load(); !status)
        return status;
    const int number = securityOf(row);
    if (number < 0)
        return {};
    const auto place = static_cast<size_t>(number);
    const auto day = dayOf(row, m_securities[place]);
    const auto ticks = ticksOf(row, m_securities[place]);
    if (!day || !ticks || row.isRefused())
        return {};
    m_waiting[place].push_back({ *ticks, static_cast<quint32>(row.line()), static_cast<qint16>(*day) });
    return ++m_waitingCount < MostWaiting ? Status() : flush(false);
}

Status CloseImporter::finish()
{
    const Status status = load();
    return status ? flush(true) : status;
}

// Closes that leave a gap wait for those that may fill it, as long as they leave room for others.
Status CloseImporter::flush(bool isLast)
{
    qint64 left = 0;
    for (size_t i = 0; i < m_waiting.size(); ++i) {
        if (m_waiting[i].empty())
            continue;
        bool isAdded = false;
        if (Status status = add(m_securities[i], m_waiting[i], isLast || left > MostWaiting / 2, isAdded); !status)
            return status;
        if (isAdded)
            std::vector<Close>().swap(m_waiting[i]);
        left += static_cast<qint64>(m_waiting[i].size());
    }
    m_waitingCount = left;
    return {};
}

void CloseImporter::refuse(qint64 line, const Status& reason)
{
    m_report.refuse({ line, 0, QString(), reason });
}

bool CloseImporter::isWithoutDuplicates(const Known& known, const std::vector<Close>& closes)
{
    const auto same = std::adjacent_find(
        closes.cbegin(), closes.cend(), [](const Close& a, const Close& b) { return a.day == b.day; });
    if (same == closes.cend())
        return true;
    const QString key = known.symbol + QLatin1Char(' ') + known.days->dates.at(same->day).toString(Qt::ISODate);
    refuse((same + 1)->line, { Error::DuplicateLine, { key, QString::number(same->line) } });
    return false;
}

/// The stored closes, none of a security that the file replaces.
Status CloseImporter::storedRange(Known& known, Range& range)
{
    const bool startsAnew = m_replaces && !known.isInFile;
    if (!known.hasCloses)
        return {};
    const Result<CloseHistory> stored = m_store.closes(known.symbol);
    if (!stored)
        return stored.status();
    const int last = known.days->numberOf(stored->lastDay.toJulianDay());
    range.first = last + 1 - stored->ticks.size();
    if (last < 0 || range.first < 0)
        return { Error::DamagedCloses, { known.symbol } };
    if (startsAnew) {
        known.firstBefore = static_cast<qint16>(range.first);
        known.lastBefore = static_cast<qint16>(last);
        range = Range();
        return {};
    }
    range.ticks.assign(stored->ticks.cbegin(), stored->ticks.cend());
    return {};
}

Status CloseImporter::add(Known& known, std::vector<Close>& closes, bool isLast, bool& isAdded)
{
    constexpr qint64 Missing = -1;
    std::sort(closes.begin(), closes.end(),
        [](const Close& a, const Close& b) { return std::pair(a.day, a.line) < std::pair(b.day, b.line); });
    isAdded = !isWithoutDuplicates(known, closes);
    Range before;
    if (Status status = storedRange(known, before); !status || isAdded)
        return status;
    Range after = before;
    if (before.ticks.empty())
        after.first = closes.front().day;
    const int first = std::min<int>(after.first, closes.front().day);
    after.ticks.insert(after.ticks.begin(), static_cast<size_t>(after.first - first), Missing);
    after.first = first;
    after.ticks.resize(static_cast<size_t>(std::max<int>(after.end(), closes.back().day + 1) - first), Missing);
    for (const Close& close : closes)
        after.ticks[static_cast<size_t>(close.day - first)] = close.ticks;
    const auto gap = std::find(after.ticks.cbegin(), after.ticks.cend(), Missing);
    if (gap != after.ticks.cend() && !isLast)
        return {};
    isAdded = true;
    known.isInFile = true;
    if (gap != after.ticks.cend()) {
        const int day = first + static_cast<int>(gap - after.ticks.cbegin());
        const auto next = std::find_if(closes.cbegin(), closes.cend(), [day](const Close& c) { return c.day > day; });
        refuse(next == closes.cend() ? closes.back().line : next->line,
            { Error::CloseMissing, { known.symbol, known.days->dates.at(day).toString(Qt::ISODate) } });
        return {};
    }
    for (const Close& close : closes) {
        const bool isNew = close.day < before.first || close.day >= before.end() || before.ticks.empty();
        const bool differs = isNew || before.ticks[static_cast<size_t>(close.day - before.first)] != close.ticks;
        ++(isNew ? m_report.added : differs ? m_report.changed : m_report.unchanged);
    }
    if (after.ticks == before.ticks)
        return {};
    known.hasCloses = true;
    return m_store.setCloses(known.symbol,
        { known.days->dates.at(after.end() - 1), QVector<qint64>(after.ticks.cbegin(), after.ticks.cend()) });
}

Status CloseImporter::findRemovals()
{
    for (const Known& known : m_securities) {
        if (!known.hasCloses)
            continue;
        if (!known.isInFile) {
            m_report.removals << ImportTexts::tr("证券%1的全部收盘价").arg(known.symbol);
            continue;
        }
        if (known.lastBefore < 0)
            continue;
        const Result<CloseHistory> now = m_store.closes(known.symbol);
        if (!now)
            return now.status();
        const int last = known.days->numberOf(now->lastDay.toJulianDay());
        if (known.lastBefore > last || known.firstBefore < last + 1 - now->ticks.size())
            m_report.removals << ImportTexts::tr("证券%1的文件中没有的收盘价").arg(known.symbol);
    }
    return {};
}

Status CloseImporter::remove()
{
    Status status;
    for (const Known& known : m_securities) {
        if (status && known.hasCloses && !known.isInFile)
            status = m_store.setCloses(known.symbol, {});
    }
    return status;
}
