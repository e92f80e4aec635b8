#include "MovedTables.h"

#include "Database.h"

#include <QMap>

namespace {

QString quoted(const QString& name)
{
    return QLatin1Char('"') + name + QLatin1Char('"');
}

QString queryOf(const MovedTable& table, const QStringList& expressions)
{
    const QString separator = QStringLiteral(", ");
    return QStringLiteral("SELECT %1 FROM %2 ORDER BY %3")
        .arg(expressions.join(separator), table.name, table.keys.join(separator));
}

Result<MovedTable> readTable(Database& file, const QString& name)
{
    MovedTable table;
    table.name = name;
    QMap<int, QString> keys;
    Status status = file.read(QStringLiteral("SELECT name, type, pk FROM pragma_table_info(?) ORDER BY cid"), { name },
        [&](const QSqlQuery& row) {
            const QString column = quoted(row.value(0).toString());
            table.columns << column;
            table.binary << (row.value(1).toString() == QLatin1String("BLOB"));
            if (row.value(2).toInt() > 0)
                keys.insert(row.value(2).toInt(), column);
        });
    table.keys = keys.values();
    return status ? Result<MovedTable>(table) : status;
}

} // namespace

QString MovedTable::target() const
{
    return QStringLiteral("%1 (%2)").arg(name, columns.join(QStringLiteral(", ")));
}

QString MovedTable::query() const
{
    return queryOf(*this, columns);
}

QString MovedTable::serverQuery() const
{
    QStringList expressions = columns;
    for (int i = 0; i < columns.size(); ++i) {
        if (binary.at(i))
            expressions[i] = QStringLiteral("'\\x' || encode(%1, 'hex')").arg(columns.at(i));
    }
    return queryOf(*this, expressions);
}

const QStringList& MovedTables::names()
{
    static const QStringList names{ QStringLiteral("users"), QStringLiteral("accounts"),
        QStringLiteral("user_accounts"), QStringLiteral("exchange_accounts"), QStringLiteral("order_authorities"),
        QStringLiteral("rule_properties"), QStringLiteral("approval_chains"), QStringLiteral("chain_users"),
        QStringLiteral("agreements"), QStringLiteral("signatures"), QStringLiteral("account_limits"),
        QStringLiteral("limit_exceptions"), QStringLiteral("account_cash"), QStringLiteral("securities"),
        QStringLiteral("closing_prices"), QStringLiteral("positions"), QStringLiteral("strategy_lists"),
        QStringLiteral("static_texts"), QStringLiteral("plans"), QStringLiteral("instructions"),
        QStringLiteral("refused_days"), QStringLiteral("done_alerts"), QStringLiteral("history") };
    return names;
}

Result<QVector<MovedTable>> MovedTables::read(Database& file)
{
    QVector<MovedTable> tables;
    for (const QString& name : names()) {
        const Result<MovedTable> table = readTable(file, name);
        if (!table)
            return table.status();
        tables << *table;
    }
    return tables;
}
