#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QtGlobal>

/// A line of the log with its source location.
struct LogLine {
    QtMsgType type = QtDebugMsg;
    QString text;
    QString file;     ///< empty if the line has no context
    int line = 0;     ///< 0 if the line has no context
    QString function; ///< empty if the line has no context
};

/// Captures the log during its lifetime. `problems()` reports unexpected warnings and errors, and expected ones that
/// are missing. Debug and information lines are kept and not printed.
class LogCatcher {
public:
    LogCatcher();
    ~LogCatcher();
    LogCatcher(const LogCatcher&) = delete;
    LogCatcher& operator=(const LogCatcher&) = delete;

    /// Expects `count` warnings or errors whose text contains `part`.
    void expectWarning(const QString& part, int count = 1);

    /// Accepts any number of warnings or errors whose text contains `part`.
    void allowWarning(const QString& part);
    /// Accepts what the client, Qt and its driver report if the connection to a server is lost.
    void allowLostConnection();

    /// Every line since the last `clear()`, in order.
    QList<LogLine> lines() const;
    /// The lines of one level whose text contains `part`.
    QList<LogLine> linesWith(QtMsgType type, const QString& part) const;
    /// The texts of all warnings and errors, except those of the offscreen platform plug-in.
    QStringList warnings() const;
    /// Stops printing unexpected warnings, for tests that read `warnings()`.
    void keepSilent() { m_isSilent = true; }
    /// Clears the lines; keeps expectations and problems.
    void clear();

    /// Unexpected warnings, and expected ones that are missing, one sentence each.
    QStringList problems() const;

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& text);
    void take(QtMsgType type, const QMessageLogContext& context, const QString& text);
    bool isExpected(const QString& text);

    bool m_isSilent = false;
    QtMessageHandler m_previous = nullptr;
    LogCatcher* m_outer = nullptr;
    QList<LogLine> m_lines;
    QStringList m_expected;
    QStringList m_allowed;
    QStringList m_unexpected;
};
