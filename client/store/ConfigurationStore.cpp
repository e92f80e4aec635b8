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

Result<QStringList> StrategyStore::whiteList(
    const QString& instructionType, const QString& targetType, const QString& symbol)
{
    QMap<QString, QStringList> lists;
    const Status status = m_database.read(
        QStringLiteral("SELECT symbol, strategy FROM strategy_lists WHERE list = ? AND instruction_type = ?"
                       " AND target_type = ? AND symbol IN (?, '') ORDER BY position"),
        { White, instructionType, targetType, symbol },
        [&lists](const QSqlQuery& row) { lists[row.value(0).toString()] << row.value(1).toString(); });
    if (!status)
        return status;
    return lists.contains(symbol) ? lists.value(symbol) : lists.value(QString());
}

Status StrategyStore::setBlackList(const QString& targetType, const QStringList& names)
{
    return setList({ Black, QString(), targetType, QString() }, names);
}

Result<QStringList> StrategyStore::blackList(const QString& targetType)
{
    return m_database.texts(
        QStringLiteral("SELECT strategy FROM strategy_lists WHERE list = ? AND target_type = ? ORDER BY position"),
        { Black, targetType });
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

StaticTextStore::StaticTextStore(Database& database)
    : m_database(database)
{
}

Status StaticTextStore::set(const QString& category, const QString& key, const QString& text)
{
    return m_database.execute(QStringLiteral("INSERT INTO static_texts (category, key, text) VALUES (?, ?, ?)"
                                             " ON CONFLICT (category, key) DO UPDATE SET text = excluded.text"),
        { category, key, text });
}

Result<QHash<QPair<QString, QString>, QString>> StaticTextStore::texts()
{
    QHash<QPair<QString, QString>, QString> texts;
    const Status status = m_database.read(
        QStringLiteral("SELECT category, key, text FROM static_texts"), {}, [&texts](const QSqlQuery& row) {
            texts.insert({ row.value(0).toString(), row.value(1).toString() }, row.value(2).toString());
        });
    return status ? Result<QHash<QPair<QString, QString>, QString>>(texts) : status;
}
