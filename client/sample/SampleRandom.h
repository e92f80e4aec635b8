#pragma once

#include <QtGlobal>

/// A small generator whose numbers depend on the seed alone, not on library or machine (splitmix64).
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
