#pragma once

#include "LoggedTest.h"
#include "PlanLedger.h"
#include "SampleSession.h"
#include "WriterProcess.h"

#include <QRandomGenerator>
#include <QtTest>

#include <memory>
#include <vector>

/// A test with other clients that write to a database on a server, and are killed or lose it. Each function has a new
/// sample database, with one plan that all writers change.
class WriterTest : public LoggedTest {
protected:
    void prepare() override;
    void tidyUp() override;

    /// Closed, unless the test function opens it again.
    SampleSession& session() const { return *m_session; }
    PlanLedger& ledger() { return m_ledger; }

    /// Starts writers and waits until they are ready. Of three steps, each writer makes a plan with the first, changes
    /// it with the second, and changes the common plan with the third. 0 steps: it writes until it is killed.
    void startWriters(int number, int steps);
    /// Kills a writer after a time, and reads what it sent.
    void kill(int writer, qint64 microseconds);
    void killWriters();
    /// Waits until they end by themselves.
    void finishWriters();
    /// Waits until the running writers got so many more acknowledgements, or refusals for a reason. False if they do
    /// not.
    [[nodiscard]] bool waitForAcknowledged(int number) { return waitFor(number, QStringLiteral("\nstored ")); }
    [[nodiscard]] bool waitForRefused(int number, const QString& reason) { return waitFor(number, reason); }
    /// Waits until each running writer was refused, for any reason, or still waits after an earlier refusal.
    [[nodiscard]] bool waitUntilEachIsRefused();

    /// Whether everything that was acknowledged is stored, whole and once. Prints the figures.
    void checkStored(const QString& what);
    /// Whether clients that are gone left no connection, transaction or lock.
    void checkNothingIsLeft();
    /// Whether the common plan has exactly the changes that were acknowledged.
    void checkCommonPlan();
    /// Whether writers were refused for one of these reasons only, each within 5 seconds.
    void checkRefusals(const QStringList& reasons);

    /// Sends a new plan with a mark of its own by the opened session. Returns the reason why it is refused.
    QString create();
    QString modify(const QString& planId, int version);
    /// Ids of the plans that `create` stored.
    const QStringList& created() const { return m_created; }

private:
    bool waitFor(int number, const QString& answer);
    int count(const QString& answer);
    QString nextMark() { return QStringLiteral("t-%1").arg(++m_marks); }

    std::unique_ptr<SampleSession> m_session;
    PlanLedger m_ledger;
    PlanLedger::Record m_base;
    QString m_common;
    QStringList m_created;
    std::vector<std::unique_ptr<WriterProcess>> m_writers;
    int m_started = 0;
    int m_marks = 0;
};
