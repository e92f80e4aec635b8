#pragma once

#include <QStringList>
#include <QVector>
#include <initializer_list>

/// Symbols in order, as the securities cache answers them. Joining two lists copies no symbol: a list holds the
/// implicitly shared runs that it was joined from, so its cost does not grow with the market.
class SymbolList {
public:
    SymbolList() = default;

    SymbolList(const QStringList& symbols) { appendRun(symbols); } ///< one run

    /// One run of the symbols in the braces.
    SymbolList(std::initializer_list<QString> symbols)
        : SymbolList(QStringList(symbols))
    {
    }

    /// Appends the other list's symbols, also those that are there already.
    SymbolList& operator+=(const SymbolList& other)
    {
        for (const QStringList& run : other.m_runs)
            appendRun(run);
        return *this;
    }

    bool isEmpty() const { return m_runs.isEmpty(); } ///< true when there is no symbol at all

    /// Number of symbols in all runs.
    int size() const
    {
        int count = 0;
        for (const QStringList& run : m_runs)
            count += run.size();
        return count;
    }

    /// The runs in order, none of them empty.
    const QVector<QStringList>& runs() const { return m_runs; }

    /// All symbols in one list; copies.
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
