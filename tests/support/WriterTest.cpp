#include "WriterTest.h"

#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "ClientSession.h"
#include "Database.h"
#include "PlanEvents.h"
#include "PlanStore.h"
#include "TestStatus.h"

#include <algorithm>
#include <vector>

namespace {

// Long, so that a busy machine does not fail a test.
constexpr int Timeout = 120000 * TEST_TIMEOUT_SCALE;
constexpr int LongestCall = 5000 * TEST_TIMEOUT_SCALE;

} // namespace

void WriterTest::prepare()
{
    m_session = std::make_unique<SampleSession>();
    QCOMPARE(m_session->opened(), Status());
    m_base = SampleSession::record();
    m_ledger = PlanLedger();
    m_ledger.setBase(m_base);
    m_created.clear();
    QCOMPARE(create(), QString());
    m_common = m_created.takeFirst();
    ClientSession::instance().close();
}

void WriterTest::tidyUp()
{
    m_writers.clear();
    m_session.reset();
}

void WriterTest::startWriters(int number, int steps)
{
    const size_t before = m_writers.size();
    for (int i = 0; i < number; ++i) {
        m_writers.push_back(std::make_unique<WriterProcess>());
        const QString name = QStringLiteral("w%1").arg(++m_started);
        QVERIFY(m_writers.back()->launch(m_session->file(), { name, QString::number(steps), m_common }));
    }
    for (size_t i = before; i < m_writers.size(); ++i)
        QVERIFY(m_writers.at(i)->waitUntilReady());
}

void WriterTest::kill(int writer, qint64 microseconds)
{
    const auto found = m_writers.begin() + writer;
    (*found)->killAfter(microseconds);
    m_ledger.read((*found)->output());
    m_writers.erase(found);
}

void WriterTest::killWriters()
{
    while (!m_writers.empty())
        kill(0, 0);
}

void WriterTest::finishWriters()
{
    for (const auto& writer : m_writers) {
        QVERIFY(writer->finish());
        m_ledger.read(writer->output());
    }
    m_writers.clear();
}

int WriterTest::count(const QString& answer)
{
    int found = 0;
    for (const auto& writer : m_writers)
        found += writer->output().count(answer.toUtf8());
    return found;
}

bool WriterTest::waitFor(int number, const QString& answer)
{
    const int wanted = count(answer) + number;
    return QTest::qWaitFor([this, wanted, answer] { return count(answer) >= wanted; }, Timeout);
}

bool WriterTest::waitUntilEachIsRefused()
{
    const QByteArray refused("\nrefused ");
    std::vector<int> before;
    for (const auto& writer : m_writers) {
        const QByteArray output = writer->output();
        const bool isWaiting = output.lastIndexOf(refused) >= qMax(0, output.lastIndexOf('\n', -2));
        before.push_back(isWaiting ? -1 : output.count(refused));
    }
    const auto areRefused = [&] {
        return std::equal(m_writers.cbegin(), m_writers.cend(), before.cbegin(),
            [&](const auto& writer, int former) { return writer->output().count(refused) > former; });
    };
    return QTest::qWaitFor(areRefused, Timeout);
}

void WriterTest::checkStored(const QString& what)
{
    const QString location = m_session->ownersFile();
    m_ledger.report(what, location);
    QCOMPARE(m_ledger.problems(), QStringList());
    QCOMPARE(m_ledger.differences(location), QStringList());
    QCOMPARE(m_ledger.historyDifferences(location), QStringList());
}

void WriterTest::checkNothingIsLeft()
{
    Database database;
    QCOMPARE(database.open(m_session->ownersFile()), Status());
    const auto left = [&database](const char* query) {
        const auto number = database.value(QString::fromLatin1(query));
        return number ? number->toInt() : -1;
    };
    QTRY_COMPARE_WITH_TIMEOUT(left("SELECT count(*) FROM pg_stat_activity WHERE datname = current_database()"
                                   " AND backend_type = 'client backend' AND pid <> pg_backend_pid()"),
        0, LongestCall);
    QCOMPARE(left("SELECT count(*) FROM pg_locks AS l JOIN pg_database AS d ON d.oid = l.database"
                  " WHERE d.datname = current_database() AND l.pid <> pg_backend_pid()"
                  " AND l.pid NOT IN (SELECT pid FROM pg_stat_activity WHERE backend_type = 'autovacuum worker')"),
        0);
    QCOMPARE(left("SELECT count(*) FROM pg_prepared_xacts"), 0);
}

void WriterTest::checkCommonPlan()
{
    Database database;
    QCOMPARE(database.open(m_session->ownersFile()), Status());
    QCOMPARE(PlanStore(database).plan(m_common)->version, 1 + m_ledger.sharedChanges(m_common));
}

void WriterTest::checkRefusals(const QStringList& reasons)
{
    for (const QString& refusal : m_ledger.refusals()) {
        const auto is = [&refusal](const QString& reason) { return refusal.endsWith(reason); };
        QVERIFY2(std::any_of(reasons.cbegin(), reasons.cend(), is), qPrintable(refusal));
        QVERIFY2(refusal.section(QLatin1Char(' '), 0, 0).toInt() < LongestCall, qPrintable(refusal));
    }
}

QString WriterTest::create()
{
    const QString mark = nextMark();
    m_ledger.attempt(mark);
    // The connection may be lost after the plan was stored.
    const QObject context;
    const auto take = [this](const QString& id) { m_created << id; };
    QObject::connect(&PlanEvents::instance(), &PlanEvents::planStored, &context, take);
    const QString reason = AutoPlanLogic::instance().CreateNewPlan(PlanLedger::recordOf(m_base, mark));
    if (reason.isEmpty())
        m_ledger.acknowledge(m_created.constLast(), 1, mark);
    return reason;
}

QString WriterTest::modify(const QString& planId, int version)
{
    const QString mark = nextMark();
    m_ledger.attemptChange(planId, version, mark);
    const QString reason = AutoPlanLogic::instance().modifyPlan(
        with(PlanLedger::recordOf(m_base, mark), AutoPlanField::BaseField::autoPlanId, planId));
    if (reason.isEmpty())
        m_ledger.acknowledge(planId, version, mark);
    return reason;
}
