#pragma once

#include "DatabaseThread.h"

#include <QObject>
#include <QStringList>

/// Answers moving-average queries from the stored closing prices on another thread. Emits nothing after its
/// destruction.
class MovingAverageWorker : public QObject {
    Q_OBJECT

public:
    /// `session`: see `DatabaseThread`; the database is opened with the first query.
    explicit MovingAverageWorker(const Database& session);

    /// Requests the averages of a security of the market. Answers arrive in the order of the queries.
    void ask(const QString& symbol);

Q_SIGNALS:
    /// Emitted from the worker's thread: names of the averages for which enough closes exist.
    void answered(const QString& symbol, const Result<QStringList>& names);

private:
    DatabaseThread m_thread;
};
