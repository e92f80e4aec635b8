#include "SessionStart.h"

#include "ClientSession.h"
#include "CommandForms.h"
#include "ServerLocation.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProgressDialog>
#include <QStandardPaths>
#include <QTextStream>

namespace {

const QString DatabaseName = QStringLiteral("plandesk.sqlite");

/// The default file, in the user's data folder.
QString usualDatabase()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)).filePath(DatabaseName);
}

/// Shows the progress of writing the sample data; nothing for a database that has them.
class SampleProgress {
public:
    explicit SampleProgress(bool inWindow)
        : m_inWindow(inWindow)
    {
    }

    bool operator()(int done, int total) { return m_inWindow ? showDialog(done, total) : print(done, total); }

private:
    bool showDialog(int done, int total)
    {
        if (!m_dialog) {
            m_dialog = std::make_unique<QProgressDialog>(
                QCoreApplication::translate("SessionStart", "首次启动，正在生成示例行情……"),
                QCoreApplication::translate("SessionStart", "取消"), 0, total);
            m_dialog->setWindowTitle(QCoreApplication::translate("SessionStart", "交易计划"));
            m_dialog->setWindowModality(Qt::ApplicationModal);
            m_dialog->setMinimumDuration(0);
        }
        m_dialog->setValue(done);
        return !m_dialog->wasCanceled();
    }

    bool print(int done, int total)
    {
        const int tenth = total > 0 ? 10 * done / total : 10;
        if (tenth > m_tenth)
            QTextStream(stderr) << QCoreApplication::translate("SessionStart", "生成示例行情 %1%").arg(10 * tenth)
                                << QLatin1Char('\n');
        m_tenth = tenth;
        return true;
    }

    const bool m_inWindow;
    std::unique_ptr<QProgressDialog> m_dialog;
    int m_tenth = 0;
};

Status checkSize(const Options& options, const QString& file)
{
    const int present = ClientSession::instance().market().count();
    if (options.securities == 0 || options.securities == present)
        return {};
    return { Error::DatabaseHasSecurities, { file, QString::number(present) } };
}

} // namespace

QString databaseOf(const Options& options)
{
    QString file = options.database;
    if (ServerLocation::isServer(file))
        return file;
    if (file.isEmpty())
        file = options.folder.isEmpty() ? usualDatabase() : QDir(options.folder).filePath(DatabaseName);
    return QFileInfo(file).absoluteFilePath();
}

Status startSession(const Options& options)
{
    const QString file = databaseOf(options);
    // Only the window and the walk-through create a database; elsewhere the file's name is mistyped.
    const bool isMissing = !ServerLocation::isServer(file) && !QFileInfo::exists(file);
    if (!options.wantsWindow() && options.folder.isEmpty() && isMissing)
        return Status(Error::CannotOpenDatabase, { file }, Error::NotAFile);
    ClientSession::Options sample;
    sample.marketSize = options.securities;
    sample.isEmpty = options.flags.contains(Flag::Empty);
    sample.isPatient = !options.wantsWindow() && options.folder.isEmpty();
    SampleProgress progress(options.wantsWindow());
    Status status = ClientSession::instance().open(file, options.user, std::ref(progress), sample);
    return status ? checkSize(options, file) : status;
}
