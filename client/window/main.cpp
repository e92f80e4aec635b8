#include "Console.h"
#include "ErrorText.h"
#include "MainWindow.h"
#include "PlanFormatter.h"
#include "Program.h"
#include "StrategyQuery.h"

#include <QApplication>

namespace {

int issueDay(const QDate& day)
{
    const Result<IssueResult> result = InstructionIssuer::issueDay(day);
    if (!result) {
        printLine(stderr, QStringLiteral("plandesk: ") + errorText(result.status()));
        return Failure;
    }
    printLine(stdout, issueReport(day, *result));
    return Success;
}

int showWindow(const Options& options)
{
    MainWindow window;
    window.setSkin(options.skin);
    window.show();
    StrategyQuery::start();
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    return runProgram(argc, argv, Program::Client, [](const Options& options) {
        return options.issueDay.isValid() ? issueDay(options.issueDay) : showWindow(options);
    });
}
