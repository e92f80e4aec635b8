#pragma once

#include "DatabaseThread.h"

#include <QObject>
#include <QStringList>

/// Answers moving-average queries from the stored closing prices on a thread of its own. Nothing is announced once the
/// worker is gone.
class MovingAverageWorker : public QObject {
    Q_OBJECT

public:
    /// `fileName`: the database, opened when the first question arrives.
    explicit MovingAverageWorker(const QString& fileName);

    /// Asks for the averages of a security that the market knows. Answers come in the order of the questions.
    void ask(const QString& symbol);

Q_SIGNALS:
    /// Emitted from the worker's thread: names of the averages for which enough closes exist.
    void answered(const QString& symbol, const Result<QStringList>& names);

private:
    DatabaseThread m_thread;
};
