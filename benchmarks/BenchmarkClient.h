#pragma once

#include <QApplication>
#include <QString>
#include <QVector>
#include <QWidget>
#include <benchmark/benchmark.h>
#include <functional>
#include <memory>

/// The application as `plandesk` has it (style, skin, no developers' log lines) with a session on a database that
/// `make_data` has made. Takes `--database=FILE` and `--user=ID` off the command line, and leaves the rest of it to
/// Google Benchmark. The client's and the editor's today is the day for which the data were made.
class BenchmarkClient {
public:
    /// Ends the program with a message when there is no such session.
    BenchmarkClient(int& argc, char** argv);
    ~BenchmarkClient();

    /// Runs the registered benchmarks; what `main` returns.
    int run();

private:
    void open(const QString& database, const QString& user);

    int& m_argc;
    char** m_argv;
    std::unique_ptr<QApplication> m_application;
};

/// Shows a window and works events off until it has been painted once.
void showPainted(QWidget& window);
/// Works off what is queued, painting included.
void settle();
/// Times the iterations of one benchmark, whose time must be manual. When it goes, the benchmark gets the counters
/// "least_ms" and "median_ms".
class Timing {
public:
    explicit Timing(benchmark::State& state);
    ~Timing();

    /// Runs `work` as one iteration; returns its seconds.
    double run(const std::function<void()>& work);
    /// Takes an iteration that was timed elsewhere.
    void note(double seconds);

private:
    benchmark::State& m_state;
    QVector<double> m_seconds;
};

/// Seconds that `work` takes.
double secondsOf(const std::function<void()>& work);
/// The middle one of some values, of which there must be one at least.
double median(QVector<double> values);
/// Resident memory of this process in MiB, after free memory was given back to the system.
double residentMebibytes();
