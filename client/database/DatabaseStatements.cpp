// The statements that run on an open connection.
#include "Database.h"
#include "DatabaseEngine.h"

#include <QSqlError>

namespace {

// More than the statements that one operation repeats.
constexpr int MostPrepared = 64;
constexpr qint64 RowsBetweenChecks = 65536;

void bind(QSqlQuery& query, const QVariantList& values)
{
    for (int i = 0; i < values.size(); ++i) {
        // With Qt 6, a variant of a null text is not null, but the driver stores NULL all the same.
        const bool nullText = values.at(i).userType() == QMetaType::QString && values.at(i).toString().isNull();
        query.bindValue(i, nullText ? QVariant(QLatin1String("")) : values.at(i));
    }
}

/// While it exists, the engine limits how long a statement may take.
class LimitedStatement {
public:
    LimitedStatement(DatabaseEngine& engine, qint64 spent)
        : m_engine(engine)
    {
        m_engine.beginStatement(spent);
    }
    ~LimitedStatement() { m_engine.endStatement(); }
    LimitedStatement(const LimitedStatement&) = delete;
    LimitedStatement& operator=(const LimitedStatement&) = delete;

private:
    DatabaseEngine& m_engine;
};

/// Others change the connection or the schema, and cannot be prepared by all engines.
bool isPrepared(const QString& statement, const QVariantList& values, const SqlDialect& dialect)
{
    const bool isLocalFrame = dialect.isLocal && (statement == dialect.begin || statement == dialect.commit);
    return isLocalFrame || !values.isEmpty() || statement.startsWith(QLatin1String("SELECT "))
        || statement.startsWith(QLatin1String("INSERT ")) || statement.startsWith(QLatin1String("UPDATE "))
        || statement.startsWith(QLatin1String("DELETE "));
}

} // namespace

Status Database::execute(const QString& statement, const QVariantList& values)
{
    return transaction([&] { return run(statement, values, [](QSqlQuery&) { return Status(); }); });
}

Result<int> Database::change(const QString& statement, const QVariantList& values)
{
    int changed = 0;
    Status status = transaction([&] {
        return run(statement, values, [&changed](const QSqlQuery& query) {
            changed = query.numRowsAffected();
            return Status();
        });
    });
    return status ? Result<int>(changed) : status;
}

Result<qint64> Database::insert(const QString& statement, const QVariantList& values)
{
    if (!m_inTransaction && dialect().nestsChanges)
        return insertAlone(statement, values);
    qint64 number = 0;
    // For RETURNING, SQLite would make a table each time.
    const auto lastNumber = [&number](const QSqlQuery& query) {
        number = query.lastInsertId().toLongLong();
        return Status();
    };
    Status status = transaction([&] {
        return dialect().isLocal
            ? run(statement, values, lastNumber)
            : read(statement, values, [&number](const QSqlQuery& row) { number = row.value(0).toLongLong(); });
    });
    return status ? Result<qint64>(number) : status;
}

// Without an answer it is not known whether the transaction was committed. All other failures are the server's answer.
Result<qint64> Database::insertAlone(const QString& statement, const QVariantList& values)
{
    m_commitFailed = false;
    m_sinceBegin.start();
    if (!isOpen())
        return notOpen();
    Result<qint64> number = 0;
    {
        const LimitedStatement limited(*m_engine, 0);
        number = m_engine->insertAlone(statement, values);
    }
    m_commitFailed = number.status().error() == Error::ConnectionLost;
    if (number)
        m_engine->countCommit();
    else
        m_engine->rollBack();
    return number;
}

Status Database::read(const QString& statement, const QVariantList& values, const TakeRow& take)
{
    return run(statement, values, [this, &take](QSqlQuery& query) {
        for (qint64 rows = 1; query.next(); ++rows) {
            if (const Status possible = rows % RowsBetweenChecks == 0 ? m_engine->checkRows(rows) : Status(); !possible)
                return note(possible);
            take(query);
        }
        return note(statusOf(!query.lastError().isValid(), query));
    });
}

Result<QVariant> Database::value(const QString& statement, const QVariantList& values)
{
    QVariant found;
    Status status = read(statement, values, [&found](const QSqlQuery& row) {
        if (!found.isValid())
            found = row.value(0);
    });
    return status ? Result<QVariant>(found) : status;
}

// A file from elsewhere may have an index without end, which is counted without reading a row.
Result<int> Database::count(const QString& statement, const QVariantList& values)
{
    if (!isOpen())
        return notOpen();
    int counted = 0;
    const Status status = m_engine->withinTime([&] {
        const Result<QVariant> found = value(statement, values);
        counted = found ? found->toInt() : 0;
        return found.status();
    });
    return status ? Result<int>(counted) : status;
}

Result<QStringList> Database::texts(const QString& statement, const QVariantList& values)
{
    QStringList found;
    Status status = read(statement, values, [&found](const QSqlQuery& row) { found << row.value(0).toString(); });
    return status ? Result<QStringList>(found) : status;
}

Status Database::readLocked(const QString& statement, const QVariantList& values, const TakeRow& take)
{
    return read(m_inTransaction ? statement + m_engine->dialect().rowLock : statement, values, take);
}

Status Database::lock(const QString& statement, const QVariantList& values)
{
    const bool locksRows = m_inTransaction && !m_engine->dialect().rowLock.isEmpty();
    return locksRows ? readLocked(statement, values, [](const QSqlQuery&) {}) : Status();
}

Status Database::configure(const QString& statement)
{
    return run(statement, {}, [](QSqlQuery&) { return Status(); });
}

// A statement is prepared once. It is taken out while it runs, because `use` may run the same one. One that fails is
// kept, because a server cannot forget it before the transaction is rolled back.
Status Database::run(const QString& statement, const QVariantList& values, const std::function<Status(QSqlQuery&)>& use)
{
    if (!m_failure)
        return m_failure;
    if (!isOpen())
        return notOpen();
    std::shared_ptr<QSqlQuery> query = m_prepared.take(statement);
    const bool prepares = isPrepared(statement, values, dialect());
    bool done = true;
    bool isReady = prepares;
    {
        const LimitedStatement limited(*m_engine, m_inTransaction || m_isCommitting ? sinceBegin() : 0);
        if (!query) {
            query = std::make_shared<QSqlQuery>(m_connection);
            query->setForwardOnly(m_engine->streamsRows());
            done = prepares ? query->prepare(statement) : query->exec(statement);
            isReady = done && prepares;
        }
        if (isReady) {
            bind(*query, values);
            done = query->exec();
        }
    }
    Status status = note(statusOf(done, *query));
    if (status)
        status = use(*query);
    query->finish();
    if (isReady && (!status || m_prepared.size() < MostPrepared))
        m_prepared.insert(statement, query);
    return status;
}

Status Database::statusOf(bool done, const QSqlQuery& query)
{
    return done ? Status() : m_engine->failure(query.lastError());
}
