#include "WriterProcess.h"

#include <QElapsedTimer>
#include <QProcessEnvironment>

#include <csignal>

namespace {

// Long, so that a busy machine does not fail a test.
constexpr int Timeout = 120000;
// For those that write thousands of plans.
constexpr int LongestRun = 3600000;

} // namespace

WriterProcess::~WriterProcess()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    m_process.waitForFinished(Timeout);
}

bool WriterProcess::start(const QString& file, const QStringList& arguments)
{
    return launch(file, arguments) && waitUntilReady();
}

bool WriterProcess::waitUntilReady()
{
    while (!output().contains("ready\n")) {
        if (!m_process.waitForReadyRead(Timeout))
            return false;
    }
    return true;
}

bool WriterProcess::launch(const QString& file, const QStringList& arguments)
{
    m_output.clear();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("*.info=false;*.debug=false"));
    m_process.setProcessEnvironment(environment);
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QStringLiteral(PLAN_WRITER_PROGRAM), QStringList{ file } + arguments);
    return m_process.waitForStarted(Timeout);
}

void WriterProcess::killAfter(qint64 microseconds)
{
    QElapsedTimer clock;
    clock.start();
    // Waits for whole milliseconds in an event loop and for the rest in a busy loop, because timers are not exact
    // enough.
    for (qint64 left = microseconds / 1000; left > 1; left = microseconds / 1000 - clock.elapsed()) {
        if (m_process.waitForFinished(static_cast<int>(left) - 1))
            return;
    }
    while (clock.nsecsElapsed() / 1000 < microseconds) { }
    ::kill(static_cast<pid_t>(m_process.processId()), SIGKILL);
    m_process.waitForFinished(Timeout);
}

bool WriterProcess::finish()
{
    closeInput();
    const bool finished = m_process.state() == QProcess::NotRunning || m_process.waitForFinished(LongestRun);
    return finished && m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
}

bool WriterProcess::release()
{
    return finish();
}

const QByteArray& WriterProcess::output()
{
    m_process.waitForReadyRead(0);
    m_output += m_process.readAllStandardOutput();
    return m_output;
}
