#include "IssueReport.h"
#include "Language.h"
#include "MainWindow.h"
#include "Options.h"
#include "OrloWidget.h"
#include "SessionStart.h"
#include "services/StrategyQuery.h"
#include "session/ClientSession.h"
#include "walkthrough/WalkThrough.h"
#include "widgets/Skins.h"

#include <QApplication>
#include <QLoggingCategory>
#include <QTextStream>

namespace {

constexpr int success = 0;
constexpr int failure = 1;
constexpr int misuse = 2;

bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
        || !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

void print(FILE* stream, const QString& text)
{
    QTextStream(stream) << text.trimmed() << QLatin1Char('\n');
}

/// Says what is wrong where the user looks: on the console, and in a box when the program was started for its window.
int refuse(const QString& reason, bool inWindow)
{
    print(stderr, QStringLiteral("plandesk: ") + reason);
    if (inWindow)
        OrloWidget::ShowErrorMsgBox(reason, nullptr);
    return misuse;
}

int issueDay(const QDate& day)
{
    const IssueResult result = InstructionIssuer::issueDay(day);
    if (!result.reason.isEmpty()) {
        print(stderr, QStringLiteral("plandesk: ") + result.reason);
        return failure;
    }
    print(stdout, issueReport(day, result));
    return success;
}

QtMessageHandler usualHandler = nullptr;

// The offscreen window system says of each window what it cannot do.
void leaveOutWindowSystem(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support")))
        usualHandler(type, context, text);
}

/// Offscreen there is no desktop whose font could be taken: windows then look as on a plain X server.
void settleOffscreen()
{
    if (QGuiApplication::platformName() != QLatin1String("offscreen"))
        return;
    usualHandler = qInstallMessageHandler(leaveOutWindowSystem);
    QApplication::setFont(QFont(QStringLiteral("Sans Serif"), 9));
}

int showWindow(const Options& options)
{
    MainWindow window;
    window.setSkin(options.skin);
    window.show();
    StrategyQuery::start();
    return QApplication::exec();
}

int walkThrough(const Options& options)
{
    MainWindow window;
    window.setSkin(options.skin);
    window.show();
    return WalkThrough(window, options.walkthrough).run() ? success : failure;
}

int run(const Options& options, bool display)
{
    if (!options.help.isEmpty()) {
        print(stdout, options.help);
        return success;
    }
    if (!options.error.isEmpty())
        return refuse(options.error, false);
    if (options.wantsWindow() && !display)
        return refuse(QStringLiteral("没有可用的显示设备；可用--walkthrough或--issue-day在没有窗口时运行"), false);
    qApp->setStyleSheet(skinSheet(options.skin));
    QString reason = useLanguage(options.language);
    if (reason.isEmpty())
        reason = startSession(options);
    if (!reason.isEmpty())
        return refuse(reason, options.wantsWindow());
    if (options.issueDay.isValid())
        return issueDay(options.issueDay);
    return options.walkthrough.isEmpty() ? showWindow(options) : walkThrough(options);
}

} // namespace

int main(int argc, char** argv)
{
    const bool display = hasDisplay();
    if (!display)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Lines for developers; QT_LOGGING_RULES brings them back.
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false\ndefault.info=false"));
    qSetMessagePattern(
        QStringLiteral("%{time yyyy-MM-dd HH:mm:ss.zzz} %{type} %{file}:%{line} %{function} %{message}"));
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("plandesk"));
    QApplication::setStyle(QStringLiteral("Fusion"));
    settleOffscreen();
    return run(readOptions(QApplication::arguments()), display);
}
