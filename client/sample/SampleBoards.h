#pragma once

#include <QString>
#include <QVector>

/// Codes of a board: `size` codes from `first` on.
struct CodeRange {
    int first;
    int size;
    /// Sub-type of the securities in the range.
    QString subType;
};

/// The kinds of names and prices of a board's securities.
enum class SampleKind { Share, Fund, Trust, Convertible, Bond, AssetBacked, DirectedConvertible, HongKong };

/// Securities that share their rules.
struct SampleBoard {
    SampleKind kind;
    QString type;
    QString exchange;
    QString suffix;
    QVector<CodeRange> ranges;
    /// Securities in a market of standard size.
    int standardCount;
    int limitPerMille;
    int pricePrecision;
    int displayFactor;
    /// In displayed units; 0 means that it differs between securities.
    int quantityStep;

    /// Total number of codes in the ranges.
    int capacity() const;
};

/// The boards of the sample market in the market's order.
const QVector<SampleBoard>& sampleBoards();

/// A small random number generator (splitmix64). Its numbers depend only on the seed, not on library or machine.
class SampleRandom {
public:
    explicit SampleRandom(quint64 seed)
        : m_state(seed)
    {
    }

    quint64 next()
    {
        m_state += 0x9E3779B97F4A7C15u;
        quint64 z = m_state;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }

    /// From `low` to `high`, both included.
    qint64 between(qint64 low, qint64 high)
    {
        return low + static_cast<qint64>(next() % static_cast<quint64>(high - low + 1));
    }

    /// True in `percent` of a hundred draws.
    bool chance(int percent) { return between(0, 99) < percent; }

private:
    quint64 m_state;
};
