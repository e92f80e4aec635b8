// Measures the client on the server of scripts/team-server against bare libpq on the same server: OK, the first page of
// the plan table, a change by another client until it is painted, and plans that many clients store at once.
#include "BenchmarkClient.h"
#include "ClientSession.h"
#include "ErrorText.h"
#include "MainWindow.h"
#include "SampleSession.h"
#include "SubmittedForm.h"

#include <QSemaphore>
#include <QTableView>
#include <QThread>

#include <libpq-fe.h>
#include <poll.h>

#include <memory>
#include <vector>

namespace {

constexpr int PlansPerRun = 55;
constexpr int ChangesPerRun = 55;
constexpr int Clients = 50;
constexpr int PlansPerClient = 100;
constexpr int PollMilliseconds = 5000;

/// A connection by libpq alone. Ends the program if something fails.
class BareClient {
public:
    explicit BareClient(const QString& location)
        : m_connection(PQconnectdb(location.toUtf8().constData()), PQfinish)
    {
        if (PQstatus(m_connection.get()) != CONNECTION_OK)
            qFatal("%s", PQerrorMessage(m_connection.get()));
    }

    void run(const QByteArray& statement)
    {
        send(statement);
        awaitAnswer();
    }

    void send(const QByteArray& statement)
    {
        if (PQsendQuery(m_connection.get(), statement.constData()) != 1)
            qFatal("%s: %s", statement.constData(), PQerrorMessage(m_connection.get()));
    }

    void awaitAnswer()
    {
        while (PGresult* const answer = PQgetResult(m_connection.get())) {
            const auto state = PQresultStatus(answer);
            PQclear(answer);
            if (state != PGRES_COMMAND_OK && state != PGRES_TUPLES_OK)
                qFatal("%s", PQerrorMessage(m_connection.get()));
        }
    }

    /// Waits for the next notice and returns its channel.
    QByteArray nextNotice()
    {
        PGnotify* notice = PQnotifies(m_connection.get());
        while (!notice) {
            pollfd socket{ PQsocket(m_connection.get()), POLLIN, 0 };
            if (poll(&socket, 1, PollMilliseconds) != 1 || !PQconsumeInput(m_connection.get()))
                qFatal("no notice");
            notice = PQnotifies(m_connection.get());
        }
        const QByteArray channel(notice->relname);
        PQfreemem(notice);
        return channel;
    }

private:
    const std::unique_ptr<PGconn, void (*)(PGconn*)> m_connection;
};

/// A session on a new database.
class ServerSession {
public:
    ServerSession()
    {
        if (!m_session.opened())
            qFatal("the session could not be opened");
    }

    QString owner() const { return m_session.ownersFile(); }
    QString user() const { return m_session.file(); }
    /// Creates a plan and returns its id.
    QString create() { return m_session.create(SampleSession::record()); }

    /// Stores copies of the first plan until there are `count` plans.
    void multiply(qint64 count)
    {
        create();
        BareClient client(owner());
        client.run("INSERT INTO plandesk.plans (version, creator, created_time, changed_time, plan_type,"
                   " instruction_type, trading_account, symbol, side, begin_date, end_date, fields)"
                   " SELECT version, creator, created_time, changed_time, plan_type, instruction_type, trading_account,"
                   " symbol, side, begin_date, end_date, fields FROM plandesk.plans, generate_series(2, "
            + QByteArray::number(count) + ")");
        client.run("VACUUM ANALYZE plandesk.plans");
    }

private:
    SampleSession m_session;
};

void confirmOnServer(benchmark::State& state)
{
    const ServerSession session;
    SubmittedForm form;
    BareClient bare(session.owner());
    bare.run("CREATE TABLE public.bare (number bigserial PRIMARY KEY, text text)");
    const QByteArray insertion = "INSERT INTO public.bare (text) VALUES ('" + QByteArray(1000, 'x') + "')";
    Timing timing(state);
    QVector<double> bareSeconds;
    for (auto _ : state) {
        form.fill();
        const double seconds = form.submit();
        if (seconds == 0)
            state.SkipWithError("the plan was not stored");
        timing.note(seconds);
        SubmittedForm::rest();
        bareSeconds << secondsOf([&] {
            bare.run("BEGIN");
            bare.run(insertion);
            bare.run("COMMIT");
        });
    }
    state.counters["bare_median_ms"] = median(bareSeconds) * 1000;
}

void firstPage(benchmark::State& state)
{
    ServerSession session;
    session.multiply(state.range(0));
    measureOpening(state, [] { return std::make_unique<MainWindow>(); });
}

/// Counts how often a widget is painted.
class Paints : public QObject {
public:
    explicit Paints(QWidget& widget) { widget.installEventFilter(this); }

    int count = 0;

    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

/// The round trip of a notice by libpq, with as many listening clients. Notices of changes arrived before.
double secondsOfNotice(BareClient& sender, BareClient& receiver)
{
    const double seconds = secondsOf([&] {
        sender.send("NOTIFY bare");
        while (receiver.nextNotice() != "bare") { }
    });
    sender.awaitAnswer();
    return seconds;
}

void changeOfAnother(benchmark::State& state)
{
    ServerSession session;
    session.create();
    MainWindow window;
    showPainted(window);
    auto* const table = window.findChild<QTableView*>(QStringLiteral("planTable"));
    Paints paints(*table->viewport());
    std::vector<std::unique_ptr<BareClient>> others;
    for (int i = 1; i < Clients; ++i) {
        others.push_back(std::make_unique<BareClient>(session.user()));
        others.back()->run("LISTEN plandesk; LISTEN bare");
    }
    // Like each statement of the client that is run more than once.
    others.front()->run("PREPARE change AS UPDATE plandesk.plans SET version = version + 1 WHERE number = 1");
    Timing timing(state);
    QVector<double> bareSeconds;
    for (auto _ : state) {
        SubmittedForm::rest();
        paints.count = 0;
        timing.run([&] {
            others.front()->send("EXECUTE change");
            while (paints.count == 0)
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        });
        others.front()->awaitAnswer();
        SubmittedForm::rest();
        bareSeconds << secondsOfNotice(*others.front(), *others.back());
    }
    state.counters["bare_median_ms"] = median(bareSeconds) * 1000;
}

/// Creates and edits plans on a connection of its own.
void writePlans(const QString& location, const PlanStore::Record& record, QSemaphore& start)
{
    Database database;
    if (!database.open(location))
        qFatal("the database could not be opened");
    PlanStore plans(database);
    const Change change{ QStringLiteral("trader01"), QDateTime::currentDateTime() };
    start.acquire();
    for (int i = 0; i < PlansPerClient; ++i) {
        const Result<QString> id = plans.create(record, change);
        const Status status = id ? plans.modify(*id, 1, record, change) : id.status();
        if (!status)
            qFatal("%s", qPrintable(errorText(status)));
    }
}

double plansPerSecond(const ServerSession& session, int clients)
{
    const PlanStore::Record record = SampleSession::record();
    QSemaphore start;
    std::vector<std::unique_ptr<QThread>> threads;
    for (int i = 0; i < clients; ++i) {
        threads.emplace_back(QThread::create([&] { writePlans(session.user(), record, start); }));
        threads.back()->start();
    }
    SubmittedForm::rest();
    const double seconds = secondsOf([&] {
        start.release(clients);
        for (const auto& thread : threads)
            thread->wait();
    });
    return clients * PlansPerClient / seconds;
}

void manyClients(benchmark::State& state)
{
    const ServerSession session;
    for (auto _ : state) {
        const double one = plansPerSecond(session, 1);
        const double many = plansPerSecond(session, Clients);
        state.counters["one"] = one;
        state.counters["many"] = many;
        const int stored = *ClientSession::instance().plans().count();
        if (stored != (1 + Clients) * PlansPerClient)
            state.SkipWithError("plans are missing");
    }
}

BENCHMARK(confirmOnServer)->Iterations(PlansPerRun)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(firstPage)->Arg(1000)->Arg(1000000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(changeOfAnother)->Iterations(ChangesPerRun)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(manyClients)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("TEST_DATABASE", "server");
    BenchmarkClient client(argc, argv);
    return client.run();
}
