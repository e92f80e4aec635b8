#pragma once

#include "PlanLedger.h"

#include <QProcess>

/// A second client on the same database, see plan_writer.cpp. The destructor kills it if it still runs.
class WriterProcess {
public:
    ~WriterProcess();

    /// Starts it with the location as its first argument. Returns true once it is ready to write or holds the lock.
    bool start(const QString& file, const QStringList& arguments);
    /// Starts it without waiting. Returns false if there is no such program.
    bool launch(const QString& file, const QStringList& arguments);
    bool waitUntilReady();
    /// Lets it run for a time, then kills it.
    void killAfter(qint64 microseconds);
    /// Closes its input, without waiting.
    void closeInput() { m_process.closeWriteChannel(); }
    /// Waits until it has finished. Returns false if that takes more than an hour or it fails.
    bool finish();
    /// Releases the lock.
    bool release();
    /// Its output so far.
    const QByteArray& output();

private:
    QProcess m_process;
    QByteArray m_output;
};
