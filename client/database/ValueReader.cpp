#include "ValueReader.h"

#include "SqlDialect.h"

ValueReader::ValueReader(Database& database)
    : m_database(database)
{
}

void ValueReader::add(const QStringList& expressions, const QVariantList& values, const Take& take)
{
    m_parts << Part{ static_cast<int>(m_expressions.size()), take };
    m_expressions << expressions;
    m_values << values;
}

void ValueReader::addFactsVersion(QString& version)
{
    const QString& expression = m_database.dialect().factsVersion;
    add({ expression }, {}, [this, &version](const QSqlQuery& row, int column) {
        const QString ofFile = m_database.contentVersion();
        version = ofFile.isEmpty() ? row.value(column).toString() : ofFile;
        return Status();
    });
}

Status ValueReader::read()
{
    Status taken;
    const auto takeAll = [&](const QSqlQuery& row) {
        for (const Part& part : qAsConst(m_parts)) {
            taken = part.take(row, part.column);
            if (!taken)
                return;
        }
    };
    const QString statement = QStringLiteral("SELECT ") + m_expressions.join(QStringLiteral(", "));
    const Status status = m_database.read(statement, m_values, takeAll);
    return status ? taken : status;
}
