#pragma once

#include "DatabaseThread.h"
#include "InstructionStore.h"

#include <QObject>

/// Reads the instructions of a plan ahead, of which there may be thousands, on a thread of its own. Nothing is
/// announced once the prefetcher is gone.
class InstructionPrefetcher : public QObject {
    Q_OBJECT

public:
    using Instructions = QMap<QString, InstructionStore::Fields>;

    /// `fileName`: the database, opened when the first plan is asked for.
    explicit InstructionPrefetcher(const QString& fileName);

    /// Asks for a plan's instructions; plans that were asked for before and not read yet are passed over. `token` is
    /// the change token of the database at that time.
    void read(const QString& planId, const QString& token);

Q_SIGNALS:
    /// Emitted from the prefetcher's thread. A plan whose database cannot be read is never answered.
    void arrived(const QString& planId, const QString& token, const InstructionPrefetcher::Instructions& instructions);

private:
    std::atomic_int m_asked{ 0 };
    DatabaseThread m_thread; ///< ends before what its jobs read
};
