#pragma once

#include "Market.h"

#include <QHash>
#include <QStringList>
#include <QVector>

/// Finds securities by code, name or pinyin initials, from the first character on.
class SecurityFinder {
public:
    /// `runs`: the securities to find, whose names are those of `market`, which must outlive the finder.
    SecurityFinder(const QVector<QStringList>& runs, const Market& market);

    /// Held quantities by symbol. Those of other securities than the finder's are left out.
    void setHeld(const QHash<QString, qint64>& held);
    /// In stored units; 0 for a security that is not held.
    qint64 heldOf(const QString& symbol) const { return m_held.value(symbol); }

    /// At most `limit` symbols: those that are held first, then by code, name and initials. An empty text matches what
    /// is held.
    QStringList find(const QString& text, int limit) const;
    /// Whether there is nothing to find.
    bool isEmpty() const { return m_runs.isEmpty(); }
    /// Whether everything can be searched; the indexes are prepared on another thread.
    bool isReady() const;

private:
    struct Holding {
        QString symbol;
        QString code;
        QString name; ///< in its search form, like the code
        QString initials;
    };

    QString nameOf(const QString& symbol) const;
    void prepare() const;

    QVector<QStringList> m_runs;
    const Market& m_market;
    QHash<QString, qint64> m_held;
    QVector<Holding> m_holdings; ///< by code
};
