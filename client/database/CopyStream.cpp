#include "CopyStream.h"

#include "Database.h"
#include "PostgresStatus.h"

#include <libpq-fe.h>

#include <memory>

namespace {

struct Clearer {
    void operator()(PGresult* result) const { PQclear(result); }
};
using Answer = std::unique_ptr<PGresult, Clearer>;

PGconn* connectionOf(Database& database)
{
    return *static_cast<PGconn* const*>(database.handle().constData());
}

/// The failure of an answer, with the line of the table that it belongs to.
Status failure(PGconn* connection, const PGresult* answer)
{
    const Status status = PostgresStatus::of(connection, answer);
    const QString place = QString::fromUtf8(PQresultErrorField(answer, PG_DIAG_CONTEXT));
    if (status.error() != Error::DatabaseFailed || place.isEmpty())
        return status;
    return { Error::DatabaseFailed,
        { status.details().constFirst() + QStringLiteral("（%1）").arg(place.section(QLatin1Char('\n'), -1)) } };
}

/// Takes the answers until the connection is free; returns the first failure.
Status finishAnswers(PGconn* connection)
{
    Status status;
    for (Answer answer(PQgetResult(connection)); answer; answer.reset(PQgetResult(connection))) {
        if (status && PQresultStatus(answer.get()) != PGRES_COMMAND_OK)
            status = failure(connection, answer.get());
    }
    return status;
}

Status start(PGconn* connection, const QString& statement, ExecStatusType expected)
{
    const Answer answer(PQexec(connection, statement.toUtf8().constData()));
    return PQresultStatus(answer.get()) == expected ? Status() : failure(connection, answer.get());
}

} // namespace

// As the server writes them, so that lines can be compared.
QByteArray CopyStream::field(const QByteArray& text)
{
    QByteArray escaped;
    escaped.reserve(text.size());
    static const QByteArray special("\b\f\n\r\t\v\\");
    static const QByteArray letters("bfnrtv\\");
    for (const char letter : text) {
        const auto index = special.indexOf(letter);
        if (index >= 0)
            escaped += '\\';
        escaped += index >= 0 ? letters.at(index) : letter;
    }
    return escaped;
}

QByteArray CopyStream::binaryField(const QByteArray& bytes)
{
    return "\\\\x" + bytes.toHex();
}

QByteArray CopyStream::nullField()
{
    return "\\N";
}

CopyStream::Writer::Writer(Database& database, const QString& target)
    : m_connection(connectionOf(database))
    , m_status(start(m_connection, QStringLiteral("COPY %1 FROM STDIN").arg(target), PGRES_COPY_IN))
    , m_isOpen(m_status)
{
}

CopyStream::Writer::~Writer()
{
    if (!m_isOpen)
        return;
    PQputCopyEnd(m_connection, "not finished");
    static_cast<void>(finishAnswers(m_connection));
}

void CopyStream::Writer::write(const QByteArray& line)
{
    const QByteArray whole = line + '\n';
    if (m_status && PQputCopyData(m_connection, whole.constData(), static_cast<int>(whole.size())) != 1)
        m_status = Error::ConnectionLost;
}

Status CopyStream::Writer::finish()
{
    if (!m_isOpen)
        return m_status;
    m_isOpen = false;
    PQputCopyEnd(m_connection, nullptr);
    const Status status = finishAnswers(m_connection);
    return m_status ? status : m_status;
}

CopyStream::Reader::Reader(Database& database, const QString& query)
    : m_connection(connectionOf(database))
    , m_status(start(m_connection, QStringLiteral("COPY (%1) TO STDOUT").arg(query), PGRES_COPY_OUT))
    , m_isOpen(m_status)
{
}

CopyStream::Reader::~Reader()
{
    QByteArray line;
    while (next(line)) { }
}

bool CopyStream::Reader::next(QByteArray& line)
{
    if (!m_isOpen)
        return false;
    char* text = nullptr;
    const int size = PQgetCopyData(m_connection, &text, 0);
    if (size > 0) {
        line = QByteArray(text, size - 1);
        PQfreemem(text);
        return true;
    }
    m_isOpen = false;
    m_status = finishAnswers(m_connection);
    return false;
}
