#include "Program.h"

#include "Appearance.h"
#include "ClientClock.h"
#include "Commands.h"
#include "Console.h"
#include "ErrorText.h"
#include "Language.h"
#include "OrloWidget.h"
#include "SessionStart.h"

#include <QApplication>
#include <QLoggingCategory>

namespace {

bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
        || !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

/// Whether the program was started without a command line, by its icon.
bool isStartedByIcon()
{
    return QCoreApplication::arguments().size() == 1;
}

/// Shows an error on the console, and also in a box if nobody reads the console. A box would stop a script.
int refuse(const Status& status, bool inWindow)
{
    const QString text = errorText(status);
    printLine(stderr, QStringLiteral("plandesk: ") + text);
    if (inWindow)
        OrloWidget::ShowErrorMsgBox(text, nullptr);
    return Misuse;
}

QtMessageHandler usualHandler = nullptr;

// The offscreen platform plug-in logs a limitation for each window.
void leaveOutWindowSystem(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support")))
        usualHandler(type, context, text);
}

/// Offscreen there is no desktop font, so windows get the font of a plain X server.
void settleOffscreen()
{
    if (QGuiApplication::platformName() != QLatin1String("offscreen"))
        return;
    usualHandler = qInstallMessageHandler(leaveOutWindowSystem);
    QApplication::setFont(QFont(QStringLiteral("Sans Serif"), 9));
}

Status prepare(const Options& options)
{
    qApp->setStyleSheet(skinSheet(options.skin));
    return startSession(options);
}

int run(const Result<Options>& options, bool display, const std::function<int(const Options&)>& work)
{
    if (!options)
        return refuse(options.status(), false);
    if (!options->help.isEmpty()) {
        printLine(stdout, options->help);
        return Success;
    }
    if (!options->command.isEmpty())
        return runCommand(*options);
    if (options->wantsWindow() && !display)
        return refuse(Error::NoDisplay, false);
    if (const Status status = prepare(*options); !status)
        return refuse(status, options->wantsWindow() && isStartedByIcon());
    if (const Status status = checkCalendar(clientToday()); !status)
        printLine(stderr, QStringLiteral("plandesk: ") + errorText(status));
    return work(*options);
}

} // namespace

int runProgram(int argc, char** argv, Program program, const std::function<int(const Options&)>& work)
{
    // The editor takes the local date for today.
    useMarketTime();
    const bool display = hasDisplay();
    if (!display)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Hides log lines for developers; QT_LOGGING_RULES enables them again.
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false\ndefault.info=false"));
    qSetMessagePattern(
        QStringLiteral("%{time yyyy-MM-dd HH:mm:ss.zzz} %{type} %{file}:%{line} %{function} %{message}"));
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("plandesk"));
    QApplication::setStyle(QStringLiteral("Fusion"));
    settleOffscreen();
    const QStringList arguments = QApplication::arguments();
    // Before the options are read, so that messages about them are in the language.
    if (const Status status = useLanguage(languageIn(arguments)); !status)
        return refuse(status, false);
    return run(readOptions(arguments, program), display, work);
}
