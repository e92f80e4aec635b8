#include "ConfigurationStore.h"

namespace {

const QString White = QStringLiteral("white");
const QString Black = QStringLiteral("black");

} // namespace

StrategyStore::StrategyStore(Database& database)
    : m_database(database)
{
}

Status StrategyStore::setWhiteList(
    const QString& instructionType, const QString& targetType, const QString& symbol, const QStringList& names)
{
    return setList({ White, instructionType, targetType, symbol }, names);
}

QStringList StrategyStore::whiteList(const QString& instructionType, const QString& targetType, const QString& symbol)
{
    const QStringList own = list({ White, instructionType, targetType, symbol });
    return own.isEmpty() ? list({ White, instructionType, targetType, QString() }) : own;
}

Status StrategyStore::setBlackList(const QString& targetType, const QStringList& names)
{
    return setList({ Black, QString(), targetType, QString() }, names);
}

QStringList StrategyStore::blackList(const QString& targetType)
{
    return list({ Black, QString(), targetType, QString() });
}

Status StrategyStore::setList(const ListKey& key, const QStringList& names)
{
    return m_database.transaction([&] {
        Status status = m_database.execute(
            QStringLiteral("DELETE FROM strategy_lists WHERE list = ? AND instruction_type = ? AND target_type = ?"
                           " AND symbol = ?"),
            { key.list, key.instructionType, key.targetType, key.symbol });
        for (int i = 0; i < names.size() && status; ++i) {
            status = m_database.execute(
                QStringLiteral("INSERT INTO strategy_lists (list, instruction_type, target_type, symbol, position,"
                               " strategy) VALUES (?, ?, ?, ?, ?, ?)"),
                { key.list, key.instructionType, key.targetType, key.symbol, i, names.at(i) });
        }
        return status;
    });
}

QStringList StrategyStore::list(const ListKey& key)
{
    QSqlQuery query =
        m_database.query(QStringLiteral("SELECT strategy FROM strategy_lists WHERE list = ? AND instruction_type = ?"
                                        " AND target_type = ? AND symbol = ? ORDER BY position"),
            { key.list, key.instructionType, key.targetType, key.symbol });
    QStringList names;
    while (query.next())
        names << query.value(0).toString();
    return names;
}

StaticTextStore::StaticTextStore(Database& database)
    : m_database(database)
{
}

Status StaticTextStore::set(const QString& category, const QString& key, const QString& text)
{
    return m_database.execute(
        QStringLiteral("INSERT OR REPLACE INTO static_texts (category, key, text) VALUES (?, ?, ?)"),
        { category, key, text });
}

QString StaticTextStore::text(const QString& category, const QString& key, const QString& fallback)
{
    QSqlQuery query = m_database.query(
        QStringLiteral("SELECT text FROM static_texts WHERE category = ? AND key = ?"), { category, key });
    return query.next() ? query.value(0).toString() : fallback;
}
