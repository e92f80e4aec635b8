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
    const Result<QStringList> own = list({ White, instructionType, targetType, symbol });
    return own && own->isEmpty() ? list({ White, instructionType, targetType, QString() }) : own;
}

Status StrategyStore::setBlackList(const QString& targetType, const QStringList& names)
{
    return setList({ Black, QString(), targetType, QString() }, names);
}

Result<QStringList> StrategyStore::blackList(const QString& targetType)
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

Result<QStringList> StrategyStore::list(const ListKey& key)
{
    return m_database.texts(QStringLiteral("SELECT strategy FROM strategy_lists WHERE list = ? AND instruction_type = ?"
                                           " AND target_type = ? AND symbol = ? ORDER BY position"),
        { key.list, key.instructionType, key.targetType, key.symbol });
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

Result<QString> StaticTextStore::text(const QString& category, const QString& key, const QString& fallback)
{
    const auto found = m_database.value(
        QStringLiteral("SELECT text FROM static_texts WHERE category = ? AND key = ?"), { category, key });
    if (!found)
        return found.status();
    return found->isValid() ? found->toString() : fallback;
}
