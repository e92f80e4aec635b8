#include "FileMove.h"

#include "Backup.h"
#include "CopyStream.h"
#include "LoginRoles.h"
#include "RowReader.h"
#include "ServerLocation.h"
#include "UserStore.h"

#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

// Rows between two reports of the progress.
constexpr qint64 ReportedRows = 100000;
constexpr int LongestShownRow = 200;

/// The columns that number new rows, with their tables.
const QMap<QString, QString>& numberedColumns()
{
    static const QMap<QString, QString> columns{
        { QStringLiteral("history"), QStringLiteral("number") },
        { QStringLiteral("limit_exceptions"), QStringLiteral("number") },
        { QStringLiteral("plans"), QStringLiteral("number") },
        { QStringLiteral("securities"), QStringLiteral("position") },
    };
    return columns;
}

QByteArray lineOf(const RowReader& row, const MovedTable& table)
{
    QByteArray line;
    for (int column = 0; column < table.columns.size(); ++column) {
        if (column > 0)
            line += '\t';
        if (row.isNull(column))
            line += CopyStream::nullField();
        else
            line += table.binary.at(column) ? CopyStream::binaryField(row.bytes(column))
                                            : CopyStream::field(row.bytes(column));
    }
    return line;
}

QString shown(const QByteArray& line)
{
    return Administration::tr("“%1”").arg(
        QString::fromUtf8(line).left(LongestShownRow).replace(QLatin1Char('\t'), QLatin1Char(' ')));
}

QString forShell(const QString& word)
{
    static const QRegularExpression plain(QStringLiteral("^[A-Za-z0-9_./:@-]+$"));
    if (plain.match(word).hasMatch())
        return word;
    return QLatin1Char('\'') + QString(word).replace(QLatin1Char('\''), QLatin1String("'\\''")) + QLatin1Char('\'');
}

} // namespace

FileMove::FileMove(Administration& administration, const Progress& progress)
    : m_administration(administration)
    , m_server(administration.database())
    , m_progress(progress)
{
}

Result<QStringList> FileMove::run(const QString& file)
{
    if (ServerLocation::isServer(file))
        return Error::MoveOfServer;
    Database copy;
    if (Status status = openCopy(file, copy); !status)
        return status;
    return moveFrom(copy);
}

// The copy is one state of the file, and an older one can be migrated in it. Its name is not needed once it is open: a
// program that is killed leaves nothing behind.
Status FileMove::openCopy(const QString& file, Database& copy) const
{
    QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("copy.sqlite"));
    m_progress(Administration::tr("正在读取文件"));
    if (Status status = backUpDatabase(file, name); !status)
        return status;
    Status status = copy.open(name);
    return status ? copy.checkPages() : status;
}

Result<QStringList> FileMove::moveFrom(Database& file)
{
    const auto tables = MovedTables::read(file);
    if (!tables)
        return tables.status();
    m_tables = *tables;
    QString done;
    const Result<QStringList> moved = m_administration.run([&](Database&, QStringList&) { return move(file, done); });
    if (moved)
        return report(done.arg(m_rows));
    if (m_server.commitFailed() && !m_isWritten)
        return Status(Error::MoveOutcomeUnknown, {}, moved.status());
    const bool isInterrupted = moved.status().error() == Error::ConnectionLost;
    return isInterrupted ? Status(Error::MoveInterrupted, {}, moved.status()) : moved.status();
}

Status FileMove::move(Database& file, QString& done)
{
    const Result<int> written = isWritten();
    if (!written)
        return written.status();
    m_isWritten = *written != 0;
    if (m_isWritten) {
        done = Administration::tr("内容已在服务器上，没有变化，核对%1行");
        return compareAll(file, Error::OtherDataOnServer);
    }
    done = Administration::tr("已搬移并核对%1行");
    Status status = writeAll(file);
    return status ? compareAll(file, Error::MovedRowsDiffer) : status;
}

Result<int> FileMove::isWritten()
{
    QStringList queries{ QStringLiteral("EXISTS (SELECT FROM rights_history)") };
    for (const MovedTable& table : qAsConst(m_tables)) {
        if (table.name != QLatin1String("account_limits"))
            queries << QStringLiteral("EXISTS (SELECT FROM %1)").arg(table.name);
    }
    const auto written = m_server.value(
        QStringLiteral("SELECT CASE WHEN %1 THEN 1 ELSE 0 END").arg(queries.join(QStringLiteral(" OR "))));
    return written ? Result<int>(written->toInt()) : written.status();
}

// The limits of an instruction held when it was issued, and positions have followed it. A server's database begins with
// the usual limits.
Status FileMove::writeAll(Database& file)
{
    Status status =
        m_server.configure(QStringLiteral("ALTER TABLE instructions DISABLE TRIGGER instructions_within_limits,"
                                          " DISABLE TRIGGER is_booked, DISABLE TRIGGER fill_is_limited;"
                                          " DELETE FROM account_limits"));
    for (const MovedTable& table : qAsConst(m_tables)) {
        if (status)
            status = write(file, table);
    }
    const auto& numbered = numberedColumns();
    for (auto column = numbered.cbegin(); column != numbered.cend() && status; ++column)
        status = continueNumbers(file, column.key(), column.value());
    return status
        ? m_server.configure(QStringLiteral("ALTER TABLE instructions ENABLE TRIGGER instructions_within_limits,"
                                            " ENABLE TRIGGER is_booked, ENABLE TRIGGER fill_is_limited; ANALYZE %1")
                                 .arg(MovedTables::names().join(QStringLiteral(", "))))
        : status;
}

Status FileMove::write(Database& file, const MovedTable& table)
{
    RowReader rows(file, table.query());
    CopyStream::Writer writer(m_server, table.target());
    qint64 written = 0;
    while (rows.next()) {
        writer.write(lineOf(rows, table));
        count(Administration::tr("搬移"), table, ++written);
    }
    const Status status = rows.status() ? writer.finish() : rows.status();
    return status ? Status() : m_server.note(Status(Error::TableNotMoved, { table.name }, status));
}

Status FileMove::continueNumbers(Database& file, const QString& table, const QString& column)
{
    const auto last = file.value(QStringLiteral("SELECT max(coalesce((SELECT max(%1) FROM %2), 0),"
                                                " coalesce((SELECT seq FROM sqlite_sequence WHERE name = '%2'), 0))")
                                     .arg(column, table));
    if (!last)
        return last.status();
    return m_server.configure(QStringLiteral("ALTER TABLE %1 ALTER COLUMN %2 RESTART WITH %3")
                                  .arg(table, column)
                                  .arg(last->toLongLong() + 1));
}

Status FileMove::compareAll(Database& file, Error difference)
{
    for (const MovedTable& table : qAsConst(m_tables)) {
        if (Status status = compare(file, table, difference); !status)
            return status;
    }
    return {};
}

Status FileMove::compare(Database& file, const MovedTable& table, Error difference)
{
    RowReader rows(file, table.query());
    CopyStream::Reader reader(m_server, table.serverQuery());
    QByteArray present;
    qint64 compared = 0;
    for (bool hasRow = rows.next(), isPresent = reader.next(present); hasRow || isPresent;
         hasRow = rows.next(), isPresent = reader.next(present)) {
        const QByteArray expected = hasRow ? lineOf(rows, table) : QByteArray();
        if (!isPresent && reader.status())
            return { difference, { table.name, Administration::tr("缺少%1").arg(shown(expected)) } };
        if (!hasRow && rows.status())
            return { difference, { table.name, Administration::tr("多出%1").arg(shown(present)) } };
        if (hasRow && isPresent && expected != present)
            return { difference,
                { table.name, Administration::tr("的%1与文件的%2不同").arg(shown(present), shown(expected)) } };
        count(Administration::tr("核对"), table, ++compared);
    }
    m_rows += compared;
    return rows.status() ? m_server.note(reader.status()) : rows.status();
}

void FileMove::count(const QString& action, const MovedTable& table, qint64 rows)
{
    if (rows % ReportedRows == 0)
        m_progress(Administration::tr("%1%2：%3行").arg(action, table.name, QString::number(rows)));
}

Result<QStringList> FileMove::report(const QString& done)
{
    const auto users = UserStore(m_server).users();
    if (!users)
        return users.status();
    QStringList lines{ done };
    for (const StoredUser& user : *users) {
        const Result<LoginRoles::Role> role = LoginRoles(m_server).role(user.id);
        if (!role)
            return role.status();
        if (!role->isActive())
            lines << Administration::tr(
                "用户%1不能登录，请运行：plandesk admin add-user %2 %3 --generate-password --database %4")
                         .arg(user.id, forShell(user.id), forShell(user.name), forShell(m_server.location()));
    }
    return lines;
}
