#pragma once

#include <QApplication>
#include <QString>
#include <QVector>
#include <QWidget>

#include <benchmark/benchmark.h>

#include <functional>
#include <memory>

/// The application, configured like `plandesk` (style, skin, no debug log lines), with a session on a database from
/// `make_data`. Removes `--database=FILE` and `--user=ID` from the command line and passes the rest to Google
/// Benchmark. The current date of the client and the editor is the date of the data.
class BenchmarkClient {
public:
    /// Exits with a message if the session cannot be opened.
    BenchmarkClient(int& argc, char** argv);
    ~BenchmarkClient();

    /// Runs the registered benchmarks and returns the exit status for `main`.
    int run();

private:
    void open(const QString& database, const QString& user);

    int& m_argc;
    char** m_argv;
    std::unique_ptr<QApplication> m_application;
};

/// Shows a window and processes events until it has been painted.
void showPainted(QWidget& window);
/// Processes all pending events, including paint events.
void settle();
/// Measures the iterations of one benchmark, which must use manual time. The destructor sets the counters "least_ms"
/// and "median_ms".
class Timing {
public:
    explicit Timing(benchmark::State& state);
    ~Timing();

    /// Runs `work` as one iteration and returns its time in seconds.
    double run(const std::function<void()>& work);
    /// Records an iteration that was measured elsewhere.
    void note(double seconds);

private:
    benchmark::State& m_state;
    QVector<double> m_seconds;
};

/// Measures opening a window until it has been painted, a new one in each iteration.
void measureOpening(benchmark::State& state, const std::function<std::unique_ptr<QWidget>()>& open);
/// Returns the time of `work` in seconds.
double secondsOf(const std::function<void()>& work);
/// Returns the median of the values, which must not be empty.
double median(QVector<double> values);
/// Returns the resident memory of this process in MiB, after returning free memory to the system.
double residentMebibytes();
