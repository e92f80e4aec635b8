#include "LogCatcher.h"

#include <QMutex>
#include <QMutexLocker>

#include <algorithm>

namespace {

LogCatcher* s_current = nullptr;

QRecursiveMutex& guard()
{
    static QRecursiveMutex mutex;
    return mutex;
}

/// The offscreen platform plug-in logs this for every window.
bool isAboutTheWindowingSystem(const QString& text)
{
    return text.startsWith(QLatin1String("This plugin does not support"));
}

} // namespace

LogCatcher::LogCatcher()
{
    const QMutexLocker lock(&guard());
    m_outer = s_current;
    s_current = this;
    m_previous = qInstallMessageHandler(&LogCatcher::handle);
}

LogCatcher::~LogCatcher()
{
    const QMutexLocker lock(&guard());
    qInstallMessageHandler(m_previous);
    s_current = m_outer;
}

void LogCatcher::expectWarning(const QString& part, int count)
{
    const QMutexLocker lock(&guard());
    for (int i = 0; i < count; ++i)
        m_expected.append(part);
}

void LogCatcher::allowWarning(const QString& part)
{
    const QMutexLocker lock(&guard());
    m_allowed.append(part);
}

void LogCatcher::allowLostConnection()
{
    for (const char* const part : { "PlanEvents::report", "QSocketNotifier: Invalid socket",
             "server closed the connection unexpectedly", "no connection to the server",
             // The driver's first statement got no answer.
             "This version of PostgreSQL is not supported" })
        allowWarning(QString::fromLatin1(part));
}

QList<LogLine> LogCatcher::lines() const
{
    const QMutexLocker lock(&guard());
    return m_lines;
}

QStringList LogCatcher::warnings() const
{
    QStringList found;
    for (const LogLine& line : lines()) {
        if (line.type != QtDebugMsg && line.type != QtInfoMsg && !isAboutTheWindowingSystem(line.text))
            found.append(line.text);
    }
    return found;
}

QList<LogLine> LogCatcher::linesWith(QtMsgType type, const QString& part) const
{
    QList<LogLine> found;
    for (const LogLine& line : lines()) {
        if (line.type == type && line.text.contains(part))
            found.append(line);
    }
    return found;
}

void LogCatcher::clear()
{
    const QMutexLocker lock(&guard());
    m_lines.clear();
}

QStringList LogCatcher::problems() const
{
    const QMutexLocker lock(&guard());
    QStringList sentences = m_unexpected;
    for (const QString& part : m_expected)
        sentences.append(QStringLiteral("An announced warning is missing: ") + part);
    return sentences;
}

void LogCatcher::handle(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    const QMutexLocker lock(&guard());
    if (s_current != nullptr)
        s_current->take(type, context, text);
}

void LogCatcher::take(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    m_lines.append(
        LogLine{ type, text, QString::fromUtf8(context.file), context.line, QString::fromUtf8(context.function) });
    if (type == QtDebugMsg || type == QtInfoMsg || isAboutTheWindowingSystem(text) || isExpected(text))
        return;
    m_unexpected.append(QStringLiteral("An unannounced warning: ") + text);
    if (m_previous != nullptr && !m_isSilent)
        m_previous(type, context, text);
}

bool LogCatcher::isExpected(const QString& text)
{
    for (int i = 0; i < m_expected.size(); ++i) {
        if (text.contains(m_expected.at(i))) {
            m_expected.removeAt(i);
            return true;
        }
    }
    return std::any_of(
        m_allowed.cbegin(), m_allowed.cend(), [&text](const QString& part) { return text.contains(part); });
}
