#pragma once

#include "PlanLedger.h"

#include <QProcess>

/// A second client on the same file, see plan_writer.cpp. It is killed with the object when it still runs.
class WriterProcess {
public:
    ~WriterProcess();

    /// Starts it with the file as its first argument; true once it is ready to write or holds the lock.
    bool start(const QString& file, const QStringList& arguments);
    /// Starts it without waiting for anything; false when there is no such program.
    bool launch(const QString& file, const QStringList& arguments);
    /// Lets it run for that long from now on, then kills it.
    void killAfter(qint64 microseconds);
    /// Waits until it has done its work; false when it did not within two minutes or ended otherwise.
    bool finish();
    /// Lets the lock go.
    bool release();
    /// What it has printed so far.
    const QByteArray& output();

private:
    QProcess m_process;
    QByteArray m_output;
};
