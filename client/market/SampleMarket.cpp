#include "market/SampleMarket.h"

#include "Orlo_Values.h"
#include "market/SampleBoards.h"
#include "market/SampleNames.h"
#include "market/SamplePrices.h"

#include <QMap>

#include <algorithm>
#include <numeric>

namespace {

constexpr int smallestSize = 200;
constexpr int fullHistory = 260;
constexpr int daysWithoutLimit = 5;
constexpr int progressStep = 500;

bool canGrow(const SampleBoard& board)
{
    return board.kind == SampleKind::Bond || board.kind == SampleKind::AssetBacked;
}

int roomToGrow(const SampleBoard& board)
{
    return canGrow(board) ? board.capacity() - board.standardCount : 0;
}

int totalRoom()
{
    const auto& boards = sampleBoards();
    return std::accumulate(
        boards.cbegin(), boards.cend(), 0, [](int sum, const SampleBoard& board) { return sum + roomToGrow(board); });
}

int scaledCount(const SampleBoard& board, int size)
{
    const int standard = SampleMarket::standardSize();
    if (size < standard)
        return qMax(1, static_cast<int>(qint64(board.standardCount) * size / standard));
    return board.standardCount + static_cast<int>(qint64(roomToGrow(board)) * (size - standard) / totalRoom());
}

/// Securities of each board, together `size`.
QVector<int> countsFor(int size)
{
    QVector<int> counts;
    for (const SampleBoard& board : sampleBoards())
        counts << scaledCount(board, size);
    // What rounding left over goes to the board that is largest anyway, a bond board in a market that has grown.
    *std::max_element(counts.begin(), counts.end()) += size - std::accumulate(counts.cbegin(), counts.cend(), 0);
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
    return isNew ? static_cast<int>(random.between(1, fullHistory - 1)) : fullHistory;
}

void applySpecialTreatment(Security& security, int nameIndex, SampleRandom& random)
{
    const bool delisting = random.chance(40);
    security.stFlag = delisting ? SpecialTreatment::starSt : SpecialTreatment::st;
    security.name = SampleNames::specialTreatmentName(security.stFlag, nameIndex);
    security.limitPerMille = 50;
    const QString warning = delisting ? QStringLiteral("退市风险警示") : QStringLiteral("其他风险警示");
    security.stText = QStringLiteral("证券【%1 %2】已被实施%3").arg(security.symbol, security.name, warning);
}

/// Writes the boards one after the other and counts along.
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

    QString write()
    {
        m_store.beginAdding();
        const QVector<int> counts = countsFor(m_size);
        for (int i = 0; i < counts.size(); ++i) {
            const QString reason = writeBoard(sampleBoards().at(i), counts.at(i));
            if (!reason.isEmpty())
                return reason;
        }
        return report() ? QString() : stopped();
    }

private:
    QString writeBoard(const SampleBoard& board, int count)
    {
        CodePicker codes(board, count, seedOf(m_options.seed, board.suffix) + quint64(board.ranges.constFirst().first));
        for (int i = 0; i < count; ++i) {
            if (m_done % progressStep == 0 && !report())
                return stopped();
            Security security;
            codes.pick(i, security);
            const QString reason = writeSecurity(board, security);
            if (!reason.isEmpty())
                return reason;
            ++m_done;
        }
        return QString();
    }

    QString writeSecurity(const SampleBoard& board, Security& security)
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
        if (days <= daysWithoutLimit)
            security.limitPerMille = 0;
        else if (board.limitPerMille == 100 && random.chance(3))
            applySpecialTreatment(security, nameIndex, random);
    }

    // Shares of both markets draw from one list of names.
    int nextNameIndex(SampleKind kind) { return m_names[kind == SampleKind::HongKong ? SampleKind::Share : kind]++; }

    bool report() { return !m_progress || m_progress(m_done, m_size); }
    static QString stopped() { return QStringLiteral("样本市场的生成已取消"); }

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
    const auto& boards = sampleBoards();
    return std::accumulate(
        boards.cbegin(), boards.cend(), 0, [](int sum, const SampleBoard& board) { return sum + board.standardCount; });
}

int SampleMarket::largestSize()
{
    return standardSize() + totalRoom();
}

int SampleMarket::closesPerSecurity()
{
    return fullHistory;
}

QString SampleMarket::write(Database& database, const SampleMarketOptions& options, const Progress& progress)
{
    const int size = options.size == 0 ? standardSize() : options.size;
    if (size < smallestSize || size > largestSize())
        return QStringLiteral("样本市场的证券数量须在%1到%2之间").arg(smallestSize).arg(largestSize());
    if (!options.lastDay.isValid())
        return QStringLiteral("样本市场缺少最后一个收盘日");
    return database.transaction([&] { return MarketWriter(database, options, size, progress).write(); });
}
