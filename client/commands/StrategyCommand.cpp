#include "StrategyCommand.h"

#include "CommandForms.h"
#include "Console.h"
#include "Options.h"
#include "StrategyReport.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace {

bool isRefused(const StrategyFile& file)
{
    return !file.failure
        || std::any_of(file.strategies.cbegin(), file.strategies.cend(),
            [](const ReadStrategy& strategy) { return !strategy.isRead(); });
}

} // namespace

int checkStrategies(const Options& options)
{
    QVector<StrategyFile> files;
    for (const QString& path : options.arguments)
        files.append(StrategyFile::read(path));
    if (options.flags.contains(Flag::Json)) {
        QJsonArray array;
        for (const StrategyFile& file : qAsConst(files))
            array.append(StrategyReport::json(file));
        printLine(stdout, QString::fromUtf8(QJsonDocument(array).toJson()).trimmed());
    } else {
        for (const StrategyFile& file : qAsConst(files)) {
            const QStringList lines = StrategyReport::lines(file);
            for (const QString& line : lines)
                printLine(stdout, oneLine(line));
        }
    }
    return std::any_of(files.cbegin(), files.cend(), isRefused) ? Failure : Success;
}
