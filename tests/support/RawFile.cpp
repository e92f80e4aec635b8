#include "RawFile.h"

#include <QFile>
#include <QVector>

#include <sqlite3.h>

namespace {

constexpr int BusyTimeout = 5000; // milliseconds

int runAll(sqlite3_stmt* statement)
{
    while (sqlite3_step(statement) == SQLITE_ROW) { }
    return sqlite3_finalize(statement);
}

} // namespace

RawFile::RawFile(const QString& fileName)
{
    sqlite3_open(QFile::encodeName(fileName).constData(), &m_connection);
    sqlite3_busy_timeout(m_connection, BusyTimeout);
}

RawFile::~RawFile()
{
    sqlite3_close(m_connection);
}

int RawFile::execute(const QByteArray& statements, const QStringList& values)
{
    QVector<QByteArray> texts;
    for (const QString& text : values)
        texts << text.toUtf8();
    const char* rest = statements.constData();
    int code = SQLITE_OK;
    while (code == SQLITE_OK && *rest != '\0') {
        sqlite3_stmt* statement = nullptr;
        code = sqlite3_prepare_v2(m_connection, rest, -1, &statement, &rest);
        for (int i = 0; i < texts.size(); ++i)
            sqlite3_bind_text(statement, i + 1, texts.at(i).constData(), static_cast<int>(texts.at(i).size()), nullptr);
        if (code == SQLITE_OK)
            code = runAll(statement);
    }
    return code;
}

bool RawFile::run(const QString& statements, const QStringList& values)
{
    const bool done = execute(statements.toUtf8(), values) == SQLITE_OK;
    if (!done)
        qWarning("%s", sqlite3_errmsg(m_connection));
    return done;
}

QString RawFile::value(const QString& query)
{
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(m_connection, query.toUtf8().constData(), -1, &statement, nullptr);
    QString found;
    if (sqlite3_step(statement) == SQLITE_ROW)
        found = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
    sqlite3_finalize(statement);
    return found;
}
