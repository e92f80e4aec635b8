#pragma once

#include "AesStrategy.h"
#include "strategies/StrategyDefinition.h"
#include <QList>
#include <QMutex>
#include <QStringList>

/// Every strategy of the client: those that come with it, then those of an optional folder. May be used from several
/// threads.
class StrategyLibrary {
public:
    /// The client's own library.
    static StrategyLibrary& instance();

    /// A library of the built-in strategies.
    StrategyLibrary();

    /// Folder of further strategy files ("*.xml", in the order of their names); empty for none. Takes effect with
    /// `reload`.
    void setFolder(const QString& folder);

    /// Reads everything afresh. A file that is refused, or that names a strategy already known, is left out and
    /// reported by `problems` and in the log; the others are read all the same.
    void reload();

    /// Names in library order.
    QStringList names() const;
    /// The strategies in library order.
    QList<AesStrategy> strategies() const;
    /// The strategy of a name; a default-constructed one when there is none.
    StrategyDefinition strategy(const QString& name) const;
    /// What was refused at the last reading, one message per file.
    QStringList problems() const;

    /// The strategy as the algorithm service hands it out.
    static AesStrategy summary(const StrategyDefinition& strategy);

private:
    struct Contents {
        QList<StrategyDefinition> strategies;
        QStringList problems;
    };
    static void addFile(Contents& contents, const QString& path);
    static Contents readAll(const QString& folder);

    mutable QMutex m_mutex;
    QString m_folder;
    Contents m_contents;
};
