#pragma once

#include "SymbolIndex.h"
#include <QHash>
#include <QObject>
#include <QThreadPool>
#include <memory>

/// The indexes of the runs of symbols that boxes search, prepared on one thread of its own: the codes of all runs
/// first, then their names. Belongs to the user interface thread, which never waits for it but where it says so.
class SymbolIndexes : public QObject {
    Q_OBJECT

public:
    static SymbolIndexes& instance();

    /// Begins to prepare the indexes of the runs that have none yet. `nameOf` is asked on the worker thread.
    void prepare(const QVector<QStringList>& runs, const SymbolIndex::NameOf& nameOf);
    /// The index of a run, one per run: runs that share their data share the index. Null when it was not asked for by
    /// `prepare`.
    std::shared_ptr<const SymbolIndex> of(const QStringList& run) const;

    /// Waits until everything that was asked for is ready.
    void waitForFinished();
    /// Gives up what is being prepared and forgets every index. Once it returns, no thread reads names any more.
    void forget();

Q_SIGNALS:
    /// The codes or the names of another run are ready. Emitted from the worker thread.
    void advanced();

private:
    SymbolIndexes();
    ~SymbolIndexes() override;

    void start(const std::shared_ptr<SymbolIndex>& index);

    QHash<const QString*, std::shared_ptr<SymbolIndex>> m_indexes;
    QThreadPool m_pool;
};
