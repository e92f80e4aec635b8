#include "Commands.h"

#include "Backup.h"
#include "ClosureFiles.h"
#include "ErrorText.h"
#include "Options.h"
#include "Program.h"
#include "SessionStart.h"

#include <QFileInfo>
#include <QMap>

#include <functional>

namespace {

using Command = std::function<Result<QString>(const Options& options)>;

Result<QString> importClosures(const Options& options)
{
    const Result<QDate> last = ClosureFiles::install(options.file);
    if (!last)
        return last.status();
    return QStringLiteral("交易日历到%1").arg(last->toString(Qt::ISODate));
}

Result<QString> backUp(const Options& options)
{
    const QString file = QFileInfo(options.file).absoluteFilePath();
    if (Status status = backUpDatabase(databaseOf(options), file); !status)
        return status;
    return QStringLiteral("数据库已备份到%1").arg(file);
}

const QMap<QString, Command>& commands()
{
    static const QMap<QString, Command> all{
        { QStringLiteral("backup"), backUp },
        { QStringLiteral("import-closures"), importClosures },
    };
    return all;
}

} // namespace

QStringList commandNames()
{
    return commands().keys();
}

int runCommand(const Options& options)
{
    const Result<QString> report = commands().value(options.command)(options);
    if (!report) {
        printLine(stderr, QStringLiteral("plandesk: ") + errorText(report.status()));
        return Failure;
    }
    printLine(stdout, *report);
    return Success;
}
