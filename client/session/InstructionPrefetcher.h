#pragma once

#include "DatabaseThread.h"
#include "InstructionStore.h"

#include <QObject>

/// Reads the instructions of a plan, which may be thousands, in advance on another thread. Emits nothing after its
/// destruction.
class InstructionPrefetcher : public QObject {
    Q_OBJECT

public:
    using Instructions = QMap<QString, InstructionStore::Fields>;

    /// `session`: see `DatabaseThread`; the database is opened with the first request.
    explicit InstructionPrefetcher(const Database& session);

    /// Requests a plan's instructions; earlier requests that have not started are skipped. `token` is the present
    /// change token of the database.
    void read(const QString& planId, const QString& token);

Q_SIGNALS:
    /// Both are emitted from the prefetcher's thread.
    void arrived(const QString& planId, const QString& token, const InstructionPrefetcher::Instructions& instructions);
    void failed(const Status& failure);

private:
    std::atomic_int m_requested{ 0 };
    DatabaseThread m_thread; ///< destroyed before the data of its jobs
};
