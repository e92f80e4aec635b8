#pragma once

#include <QStringList>
#include <QVector>

#include <initializer_list>

/// An ordered list of symbols, as returned by the securities cache. Appending a list does not copy symbols: the list
/// holds implicitly shared runs, so the cost does not depend on the size of the market.
class SymbolList {
public:
    SymbolList() = default;

    SymbolList(const QStringList& symbols) { appendRun(symbols); } ///< constructs a list of one run

    /// Constructs a list of one run with the given symbols.
    SymbolList(std::initializer_list<QString> symbols)
        : SymbolList(QStringList(symbols))
    {
    }

    /// Appends the symbols of another list, including duplicates.
    SymbolList& operator+=(const SymbolList& other)
    {
        for (const QStringList& run : other.m_runs)
            appendRun(run);
        return *this;
    }

    bool isEmpty() const { return m_runs.isEmpty(); } ///< returns true if the list has no symbols

    /// Returns the number of symbols in all runs.
    int size() const
    {
        int count = 0;
        for (const QStringList& run : m_runs)
            count += run.size();
        return count;
    }

    /// Returns the runs in order. No run is empty.
    const QVector<QStringList>& runs() const { return m_runs; }

    /// Returns a copy of all symbols in one list.
    QStringList toStringList() const
    {
        QStringList all;
        all.reserve(size());
        for (const QStringList& run : m_runs)
            all += run;
        return all;
    }

private:
    void appendRun(const QStringList& run)
    {
        if (!run.isEmpty())
            m_runs.append(run);
    }

    QVector<QStringList> m_runs;
};
