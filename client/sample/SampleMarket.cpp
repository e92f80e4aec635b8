#include "SampleMarket.h"

#include "Orlo_Values.h"
#include "SampleBoards.h"
#include "SampleNames.h"
#include "SamplePrices.h"

#include <QMap>

#include <algorithm>
#include <numeric>

namespace {

constexpr int SmallestSize = 200;
constexpr int FullHistory = 260;
constexpr int DaysWithoutLimit = 5;
constexpr int ProgressStep = 500;

bool canGrow(const SampleBoard& board)
{
    return board.kind == SampleKind::Bond || board.kind == SampleKind::AssetBacked;
}

int standardSum(int sum, const SampleBoard& board)
{
    return sum + board.standardCount;
}

/// Number of securities that can be added to the boards of a market of standard size, or to the further boards.
int roomOf(bool further)
{
    int room = 0;
    for (const SampleBoard& board : sampleBoards()) {
        if (canGrow(board) && (board.standardCount == 0) == further)
            room += board.capacity() - board.standardCount;
    }
    return room;
}

/// The board's share of `extra`, in proportion to its part of `room`.
int grownCount(const SampleBoard& board, int extra, int room)
{
    const int own = canGrow(board) ? board.capacity() - board.standardCount : 0;
    return board.standardCount + static_cast<int>(qint64(own) * qMin(extra, room) / room);
}

/// The further boards are empty until all others are full.
int scaledCount(const SampleBoard& board, int size)
{
    const int standard = SampleMarket::standardSize();
    if (board.standardCount > 0 && size < standard)
        return qMax(1, static_cast<int>(qint64(board.standardCount) * size / standard));
    const int room = roomOf(false);
    if (board.standardCount > 0)
        return grownCount(board, size - standard, room);
    return grownCount(board, qMax(0, size - standard - room), roomOf(true));
}

/// The largest board with room for another security. In a market beyond the standard size this is a bond board.
int boardForOneMore(const QVector<int>& counts)
{
    int largest = -1;
    for (int i = 0; i < counts.size(); ++i) {
        const bool hasRoom = counts.at(i) < sampleBoards().at(i).capacity();
        if (hasRoom && (largest < 0 || counts.at(i) > counts.at(largest)))
            largest = i;
    }
    return largest;
}

/// Securities of each board, together `size`.
QVector<int> countsFor(int size)
{
    QVector<int> counts;
    for (const SampleBoard& board : sampleBoards())
        counts << scaledCount(board, size);
    // The remainder of the rounding.
    int rest = size - std::accumulate(counts.cbegin(), counts.cend(), 0);
    for (; rest > 0; --rest)
        ++counts[boardForOneMore(counts)];
    *std::max_element(counts.begin(), counts.end()) += rest;
    return counts;
}

quint64 seedOf(quint64 seed, const QString& symbol)
{
    quint64 hash = 0xCBF29CE484222325u ^ seed;
    for (const QChar c : symbol)
        hash = (hash ^ c.unicode()) * 0x100000001B3u;
    return hash;
}

/// The board's codes that are listed: `count` of them, spread over its ranges.
class CodePicker {
public:
    CodePicker(const SampleBoard& board, int count, quint64 seed)
        : m_board(board)
        , m_count(count)
        , m_capacity(board.capacity())
        , m_random(seed)
    {
    }

    /// Sets symbol and sub-type of the `index`-th security.
    void pick(int index, Security& security)
    {
        const int gap = m_capacity / m_count;
        int offset = static_cast<int>(qint64(index) * m_capacity / m_count + m_random.between(0, gap - 1));
        auto range = m_board.ranges.cbegin();
        for (; offset >= range->size; ++range)
            offset -= range->size;
        const int digits = m_board.kind == SampleKind::HongKong ? 5 : 6;
        security.symbol =
            QStringLiteral("%1%2").arg(range->first + offset, digits, 10, QLatin1Char('0')).arg(m_board.suffix);
        security.subType = range->subType;
    }

private:
    const SampleBoard& m_board;
    const int m_count;
    const int m_capacity;
    SampleRandom m_random;
};

int hongKongLot(SampleRandom& random)
{
    static const QVector<int> lots{ 100, 200, 200, 400, 500, 500, 500, 1000, 1000, 1000, 1000, 2000, 2000, 2000, 2500,
        4000, 5000, 10000 };
    return lots.at(static_cast<int>(random.between(0, lots.size() - 1)));
}

int historyLength(const SampleBoard& board, SampleRandom& random)
{
    const bool isNew = board.kind != SampleKind::HongKong && random.chance(3);
    return isNew ? static_cast<int>(random.between(1, FullHistory - 1)) : FullHistory;
}

void applySpecialTreatment(Security& security, int nameIndex, SampleRandom& random)
{
    const bool delisting = random.chance(40);
    security.stFlag = delisting ? SpecialTreatment::StarSt : SpecialTreatment::St;
    security.name = SampleNames::specialTreatmentName(security.stFlag, nameIndex);
    security.limitPerMille = 50;
    const QString warning = delisting ? QStringLiteral("退市风险警示") : QStringLiteral("其他风险警示");
    security.stText = QStringLiteral("证券【%1 %2】已被实施%3").arg(security.symbol, security.name, warning);
}

/// Writes the boards one after the other and counts the securities.
class MarketWriter {
public:
    MarketWriter(
        Database& database, const SampleMarketOptions& options, int size, const SampleMarket::Progress& progress)
        : m_store(database)
        , m_options(options)
        , m_size(size)
        , m_progress(progress)
    {
    }

    Status write()
    {
        const QVector<int> counts = countsFor(m_size);
        for (int i = 0; i < counts.size(); ++i) {
            if (Status status = writeBoard(sampleBoards().at(i), counts.at(i)); !status)
                return status;
        }
        return report() ? Status() : Error::SampleCancelled;
    }

private:
    Status writeBoard(const SampleBoard& board, int count)
    {
        CodePicker codes(board, count, seedOf(m_options.seed, board.suffix) + quint64(board.ranges.constFirst().first));
        for (int i = 0; i < count; ++i) {
            if (m_done % ProgressStep == 0 && !report())
                return Error::SampleCancelled;
            Security security;
            codes.pick(i, security);
            if (Status status = writeSecurity(board, security); !status)
                return status;
            ++m_done;
        }
        return {};
    }

    Status writeSecurity(const SampleBoard& board, Security& security)
    {
        SampleRandom random(seedOf(m_options.seed, security.symbol));
        const int days = historyLength(board, random);
        describe(board, security, days, random);
        const CloseHistory closes{ m_options.lastDay,
            SamplePrices::closes(board.kind, days, security.limitPerMille, random) };
        return m_store.add(security, closes);
    }

    void describe(const SampleBoard& board, Security& security, int days, SampleRandom& random)
    {
        const int nameIndex = nextNameIndex(board.kind);
        security.name = SampleNames::name(board.kind, nameIndex, random);
        security.type = board.type;
        security.exchange = board.exchange;
        security.pricePrecision = board.pricePrecision;
        security.displayFactor = board.displayFactor;
        security.quantityStep = board.quantityStep > 0 ? board.quantityStep : hongKongLot(random);
        security.limitPerMille = board.limitPerMille;
        security.stFlag = Orlo_Values::StFlag::Normal;
        if (board.kind != SampleKind::Share)
            return;
        if (days <= DaysWithoutLimit)
            security.limitPerMille = 0;
        else if (board.limitPerMille == 100 && random.chance(3))
            applySpecialTreatment(security, nameIndex, random);
    }

    // Shares of both markets use the same list of names.
    int nextNameIndex(SampleKind kind) { return m_names[kind == SampleKind::HongKong ? SampleKind::Share : kind]++; }

    bool report() { return !m_progress || m_progress(m_done, m_size); }

    SecurityStore m_store;
    const SampleMarketOptions m_options;
    const int m_size;
    const SampleMarket::Progress& m_progress;
    QMap<SampleKind, int> m_names;
    int m_done = 0;
};

} // namespace

int SampleMarket::standardSize()
{
    return std::accumulate(sampleBoards().cbegin(), sampleBoards().cend(), 0, standardSum);
}

int SampleMarket::largestSize()
{
    return standardSize() + roomOf(false) + roomOf(true);
}

Status SampleMarket::write(Database& database, const SampleMarketOptions& options, const Progress& progress)
{
    const int size = options.size == 0 ? standardSize() : options.size;
    if (size < SmallestSize || size > largestSize())
        return { Error::MarketSizeOutOfRange, { QString::number(SmallestSize), QString::number(largestSize()) } };
    if (!options.lastDay.isValid())
        return Error::NoLastClose;
    return database.transaction([&] { return MarketWriter(database, options, size, progress).write(); });
}
