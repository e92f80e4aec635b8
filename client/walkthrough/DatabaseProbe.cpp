#include "DatabaseProbe.h"

#include "AutoPlanField.h"
#include "Kelvo_Fields.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"
#include "PlanStore.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QUuid>

DatabaseProbe::DatabaseProbe(const QString& databaseFile)
    : m_connectionName(QUuid::createUuid().toString())
{
    QSqlDatabase connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connectionName);
    connection.setDatabaseName(databaseFile);
    connection.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
    if (!connection.open())
        m_error = connection.lastError().text();
}

DatabaseProbe::~DatabaseProbe()
{
    QSqlDatabase::database(m_connectionName, false).close();
    QSqlDatabase::removeDatabase(m_connectionName);
}

QStringList DatabaseProbe::planIds()
{
    QStringList ids;
    const auto rows = ask(QStringLiteral("SELECT number FROM plans ORDER BY number"));
    for (const QVariantList& row : rows)
        ids << PlanId::fromNumber(row.constFirst().toLongLong());
    return ids;
}

QMap<QString, QString> DatabaseProbe::record(const QString& planId)
{
    const QVector<QPair<QString, QString>> columns{ { QStringLiteral("plan_type"),
                                                        Orlo_Fields::AutoPlan::templateCode },
        { QStringLiteral("instruction_type"), Orlo_Fields::AutoPlan::subType },
        { QStringLiteral("trading_account"), Kelvo_Fields::UserAccount::tradingAccount },
        { QStringLiteral("symbol"), Kelvo_Fields::Security::symbol },
        { QStringLiteral("side"), AutoPlanField::BaseField::orderSide },
        { QStringLiteral("assignee"), AutoPlanField::BaseField::expectedUser },
        { QStringLiteral("executor"), AutoPlanField::BaseField::executeUser },
        { QStringLiteral("begin_date"), AutoPlanField::BaseField::beginDate },
        { QStringLiteral("end_date"), AutoPlanField::BaseField::endDate } };
    QMap<QString, QString> record;
    const QVariantList number{ PlanId::toNumber(planId).value_or(0) };
    for (const auto& column : columns) {
        const auto values =
            ask(QStringLiteral("SELECT %1 FROM plans WHERE number = ? AND %1 IS NOT NULL").arg(column.first), number);
        for (const QVariantList& value : values)
            record.insert(column.second, value.constFirst().toString());
    }
    const auto others = ask(QStringLiteral("SELECT key, value FROM plans, json_each(fields) WHERE number = ?"), number);
    for (const QVariantList& field : others)
        record.insert(field.at(0).toString(), field.at(1).toString());
    return record;
}

DatabaseProbe::Security DatabaseProbe::security(const QString& symbol)
{
    return read(QStringLiteral("WHERE symbol = ?"), { symbol });
}

DatabaseProbe::Security DatabaseProbe::firstOf(const QString& subType, const QString& exchange)
{
    return read(QStringLiteral("WHERE sub_type = ? AND exchange = ? AND st_flag = ? ORDER BY position LIMIT 1"),
        { subType, exchange, Orlo_Values::StFlag::Normal });
}

DatabaseProbe::Security DatabaseProbe::held(
    const QString& tradingAccount, const QString& exchange, const QString& subType, bool most)
{
    const auto positions =
        ask(QStringLiteral("SELECT p.symbol, p.tradeable_quantity * s.display_factor FROM positions AS p"
                           " JOIN securities AS s ON s.symbol = p.symbol"
                           " WHERE p.trading_account = ? AND s.exchange = ? AND s.sub_type = ?"
                           " ORDER BY p.tradeable_quantity, s.position"),
            { tradingAccount, exchange, subType });
    if (positions.isEmpty())
        return Security();
    const QVariantList& chosen = most ? positions.constLast() : positions.constFirst();
    Security found = security(chosen.at(0).toString());
    found.held = chosen.at(1).toLongLong();
    return found;
}

QString DatabaseProbe::branchOf(const QString& tradingAccount)
{
    return text(QStringLiteral("SELECT branch_no FROM accounts WHERE trading_account = ?"), { tradingAccount });
}

QString DatabaseProbe::securityAccount(const QString& tradingAccount, const QString& exchange)
{
    return text(QStringLiteral("SELECT security_account FROM exchange_accounts"
                               " WHERE trading_account = ? AND exchange = ?"),
        { tradingAccount, exchange });
}

QVector<QVariantList> DatabaseProbe::ask(const QString& question, const QVariantList& values)
{
    QSqlQuery query(QSqlDatabase::database(m_connectionName, false));
    query.prepare(question);
    for (const QVariant& value : values)
        query.addBindValue(value);
    QVector<QVariantList> rows;
    query.exec();
    while (query.next()) {
        QVariantList row;
        for (int column = 0; column < query.record().count(); ++column)
            row << query.value(column);
        rows << row;
    }
    m_error = query.lastError().text();
    return rows;
}

QString DatabaseProbe::text(const QString& question, const QVariantList& values)
{
    return ask(question, values).value(0).value(0).toString();
}

DatabaseProbe::Security DatabaseProbe::read(const QString& rest, const QVariantList& values)
{
    const QVariantList row = ask(QStringLiteral("SELECT symbol, exchange, sub_type, price_precision, display_factor,"
                                                " quantity_step FROM securities ")
            + rest,
        values)
                                 .value(0);
    if (row.isEmpty())
        return Security();
    return { row.at(0).toString(), row.at(1).toString(), row.at(2).toString(), row.at(3).toInt(), row.at(4).toInt(),
        row.at(5).toInt(), 0 };
}
