#pragma once

#include "SymbolIndex.h"

#include <QHash>
#include <QObject>
#include <QThreadPool>

#include <memory>

/// The indexes of the runs of symbols that search boxes use, prepared on a worker thread: the codes of all runs first,
/// then their names. Lives on the user interface thread and blocks it only where documented.
class SymbolIndexes : public QObject {
    Q_OBJECT

public:
    /// Those of the names, and those of the names' initials. Both are separate because few search by initials.
    static SymbolIndexes& instance();
    static SymbolIndexes& ofInitials();

    /// Starts to prepare the indexes of the runs that have none yet. `nameOf` is called on the worker thread.
    void prepare(const QVector<QStringList>& runs, const SymbolIndex::NameOf& nameOf);
    /// The index of a run, one per run: runs that share their data share the index. Null if it was not passed to
    /// `prepare`.
    std::shared_ptr<const SymbolIndex> of(const QStringList& run) const;

    /// Blocks until everything that was passed to `prepare` is ready.
    void waitForFinished();
    /// Stops the preparation and deletes every index. After it returns, no thread reads names.
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
