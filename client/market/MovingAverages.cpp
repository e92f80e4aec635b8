#include "MovingAverages.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

const QVector<int> Spans{ 5, 10, 20, 60, 120, 250 };

} // namespace

const QStringList& MovingAverages::names()
{
    static const QStringList all = [] {
        QStringList list;
        for (const int span : Spans)
            list << QStringLiteral("MA%1").arg(span);
        return list;
    }();
    return all;
}

QStringList MovingAverages::available(int closes)
{
    const auto enough = std::count_if(Spans.cbegin(), Spans.cend(), [closes](int span) { return span <= closes; });
    return names().mid(0, static_cast<int>(enough));
}

std::optional<double> MovingAverages::value(const QString& name, const QVector<qint64>& ticks, int pricePrecision)
{
    const int index = names().indexOf(name);
    if (index < 0 || ticks.size() < Spans.at(index))
        return std::nullopt;
    const qint64 sum = std::accumulate(ticks.cend() - Spans.at(index), ticks.cend(), qint64(0));
    return static_cast<double>(sum) / (Spans.at(index) * std::pow(10.0, pricePrecision));
}
