#include "ClientSession.h"
#include "CommandForms.h"
#include "Console.h"
#include "ErrorText.h"
#include "InstructionIssuer.h"
#include "IssueTexts.h"
#include "MainWindow.h"
#include "Program.h"
#include "StrategyFolder.h"
#include "StrategyQuery.h"
#include "StrategySheet.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTimer>

#include <algorithm>

namespace {

int fail(const Status& status)
{
    printLine(stderr, QStringLiteral("plandesk: ") + errorText(status));
    return Failure;
}

IssueMode modeOf(const Options& options)
{
    return options.flags.contains(Flag::Simulate) ? IssueMode::Simulated : IssueMode::Live;
}

int preview(const Options& options)
{
    DayIssue issue(ClientSession::instance().database(), InstructionIssuer::scene(options.issueDay, modeOf(options)));
    const Result<DayPlans> plans = issue.plans();
    const auto rows =
        plans ? issue.preview(plans->due, [](int) { return true; }) : Result<QVector<IssueRow>>(plans.status());
    if (!rows)
        return fail(rows.status());
    QStringList lines;
    QJsonArray array;
    for (const IssueRow& row : *rows) {
        lines << IssueTexts::line(row);
        array << IssueTexts::json(row);
    }
    const bool isJson = options.flags.contains(Flag::Json);
    printLine(stdout, isJson ? QString::fromUtf8(QJsonDocument(array).toJson()) : lines.join(QLatin1Char('\n')));
    const bool isComplete =
        std::all_of(rows->cbegin(), rows->cend(), [](const IssueRow& row) { return bool(row.reason); });
    return isComplete ? Success : Incomplete;
}

int issueDay(const Options& options)
{
    const Status live = InstructionIssuer::liveError(options.issueDay);
    if (!live && modeOf(options) == IssueMode::Live)
        return fail(live);
    if (options.flags.contains(Flag::IssuePreview))
        return preview(options);
    const Result<IssueResult> result = InstructionIssuer::issueDay(options.issueDay, modeOf(options));
    if (!result)
        return fail(result.status());
    printLine(stdout, IssueTexts::report(options.issueDay, *result));
    if (!result->failure)
        return Failure;
    return result->skipped.isEmpty() ? Success : Incomplete;
}

int showWindow(const Options& options)
{
    MainWindow window;
    window.setSkin(options.skin);
    window.show();
    // After the window has been painted, so that it does not wait for the files.
    const QString folder = options.strategies.isEmpty() ? StrategySheet::rememberedFolder() : options.strategies;
    if (folder.isEmpty())
        StrategyQuery::start();
    else
        QTimer::singleShot(0, [folder] { StrategyFolder::instance().open(folder); });
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    return runProgram(argc, argv, Program::Client,
        [](const Options& options) { return options.issueDay.isValid() ? issueDay(options) : showWindow(options); });
}
