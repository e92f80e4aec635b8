#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QtGlobal>

/// One line of the log with its place in the source.
struct LogLine {
    QtMsgType type = QtDebugMsg;
    QString text;
    QString file;     ///< empty where the line was built without its context
    int line = 0;     ///< 0 where the line was built without its context
    QString function; ///< empty where the line was built without its context
};

/// Takes the log of a test function while it lives. A warning or error that nobody expects counts against the test:
/// `trouble()` tells it, and so it does of an expected warning that never came. Debug and information lines are kept
/// for reading and not printed.
class LogCatcher {
public:
    LogCatcher();
    ~LogCatcher();
    LogCatcher(const LogCatcher&) = delete;
    LogCatcher& operator=(const LogCatcher&) = delete;

    /// Announces `count` warnings or errors whose text contains `part`.
    void expectWarning(const QString& part, int count = 1);

    /// Every line since the last `clear()`, in order.
    QList<LogLine> lines() const;
    /// The lines of one level whose text contains `part`.
    QList<LogLine> linesWith(QtMsgType type, const QString& part) const;
    /// The texts of all warnings and errors but the windowing system's own.
    QStringList warnings() const;
    /// Prints no unannounced warning from now on: they are looked at by `warnings()`.
    void keepSilent() { m_isSilent = true; }
    /// Forgets the lines; announcements and trouble stay.
    void clear();

    /// What went wrong, one sentence each: unannounced warnings, and announced ones that are missing.
    QStringList trouble() const;

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& text);
    void take(QtMsgType type, const QMessageLogContext& context, const QString& text);
    bool isExpected(const QString& text);

    bool m_isSilent = false;
    QtMessageHandler m_previous = nullptr;
    LogCatcher* m_outer = nullptr;
    QList<LogLine> m_lines;
    QStringList m_expected;
    QStringList m_unexpected;
};
