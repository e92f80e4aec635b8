#include "AuthorityStore.h"
#include "ChainAdministration.h"
#include "ErrorText.h"
#include "MasterImporters.h"

#include <QRegularExpression>

using namespace TransferForms;

namespace {

QString keyOf(const QString& account, const QString& type)
{
    return QStringLiteral("%1 %2").arg(account, captionText(CodeWords::instructionTypes().word(type)));
}

QString namesIn(const ImportRow& row, int column)
{
    static const QRegularExpression separators(QStringLiteral("[、,，;；/]+\\s*"));
    return row.text(column).split(separators, Qt::SkipEmptyParts).join(QLatin1Char(','));
}

} // namespace

ChainImporter::ChainImporter(Database& database, ImportReport& report)
    : m_database(database)
    , m_report(report)
{
}

Status ChainImporter::take(ImportRow& row)
{
    const QString account = row.neededText(ChainColumn::Account);
    const QString type = row.code(ChainColumn::Type, CodeWords::instructionTypes());
    m_keys.check(row, ChainColumn::Account, keyOf(account, type));
    ChainAdministration::Items items;
    for (const int column : { ChainColumn::Executors, ChainColumn::Reviewers }) {
        if (row.has(column))
            items.insert(form().columns.at(column).id, namesIn(row, column));
    }
    if (row.isRefused())
        return {};
    const Result<QString> chain = AuthorityStore(m_database).chainKey(account, type);
    if (!chain)
        return chain.status();
    QStringList lines;
    if (const Status status = ChainAdministration::write(m_database, account, type, items, lines); !status)
        row.refuse(status);
    else
        m_report.count(chain->isEmpty() && !lines.isEmpty(), lines);
    return {};
}

Status ChainImporter::findRemovals()
{
    const auto accounts = AccountStore(m_database).accounts();
    Status status = accounts.status();
    for (const StoredAccount& account : accounts.valueOr({})) {
        if (status)
            status = findRemovals(account.tradingAccount);
    }
    return status;
}

Status ChainImporter::findRemovals(const QString& account)
{
    AuthorityStore store(m_database);
    const Result<QStringList> types = store.chainTypes(account);
    for (const QString& type : types.valueOr({})) {
        if (m_keys.contains(keyOf(account, type)))
            continue;
        const Result<QString> chain = store.chainKey(account, type);
        if (!chain)
            return chain.status();
        const auto executors = store.chainUsers(*chain, ChainRole::Execute);
        const auto reviewers = store.chainUsers(*chain, ChainRole::Forward);
        if (!executors || !reviewers)
            return executors ? reviewers.status() : executors.status();
        if (executors->isEmpty() && reviewers->isEmpty())
            continue;
        m_removals << qMakePair(account, type);
        m_report.removals << keyOf(account, type);
    }
    return types.status();
}

// The chain itself stays without users.
Status ChainImporter::remove()
{
    Status status;
    QStringList lines;
    const ChainAdministration::Items none{ { form().columns.at(ChainColumn::Executors).id, QString() },
        { form().columns.at(ChainColumn::Reviewers).id, QString() } };
    for (const auto& removal : qAsConst(m_removals)) {
        if (status)
            status = ChainAdministration::write(m_database, removal.first, removal.second, none, lines);
    }
    return status;
}
