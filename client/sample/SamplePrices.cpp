#include "SamplePrices.h"

#include "TickPrice.h"

#include <QtGlobal>

namespace {

/// First price in ticks and the half width of a day's move in hundredths of a percent.
struct PriceRange {
    qint64 low;
    qint64 high;
    int move;
};

PriceRange rangeOf(SampleKind kind)
{
    switch (kind) {
    case SampleKind::Share:
        return { 300, 9000, 180 };
    case SampleKind::Fund:
        return { 500, 4000, 120 };
    case SampleKind::Trust:
        return { 2000, 9000, 60 };
    case SampleKind::Convertible:
        return { 98000, 180000, 130 };
    case SampleKind::DirectedConvertible:
        return { 97000, 125000, 50 };
    case SampleKind::HongKong:
        return { 600, 160000, 200 };
    case SampleKind::Bond:
    case SampleKind::AssetBacked:
        break;
    }
    return { 96000, 108000, 12 };
}

qint64 nextClose(qint64 previous, qint64 first, int move, SampleRandom& random)
{
    const qint64 drift = random.between(-move, move) + random.between(-move, move);
    // The pull towards the first price bounds a long walk.
    return previous + previous * drift / 10000 + (first - previous) / 50;
}

} // namespace

QVector<qint64> SamplePrices::closes(SampleKind kind, int days, int limitPerMille, SampleRandom& random)
{
    const PriceRange range = rangeOf(kind);
    const qint64 spread = random.between(0, 1000) * random.between(0, 1000);
    const qint64 first = range.low + (range.high - range.low) * spread / 1000000;
    QVector<qint64> ticks;
    ticks.reserve(days);
    ticks << first;
    while (ticks.size() < days) {
        const qint64 previous = ticks.constLast();
        const qint64 close = qMax<qint64>(1, nextClose(previous, first, range.move, random));
        const TickPrice::Limits limits = TickPrice::limits(previous, limitPerMille);
        ticks << (limitPerMille > 0 ? qBound(limits.down, close, limits.up) : close);
    }
    return ticks;
}
