#include "AgreementStore.h"

#include "HistoryStore.h"
#include "StoredTime.h"

AgreementStore::AgreementStore(Database& database)
    : m_database(database)
{
}

Status AgreementStore::add(const StoredAgreement& agreement)
{
    return m_database.execute(QStringLiteral("INSERT INTO agreements (protocol, title, content) VALUES (?, ?, ?)"),
        { agreement.protocol, agreement.title, agreement.content });
}

Result<StoredAgreement> AgreementStore::agreement(const QString& protocol)
{
    StoredAgreement found;
    Status status =
        m_database.read(QStringLiteral("SELECT protocol, title, content FROM agreements WHERE protocol = ?"),
            { protocol }, [&found](const QSqlQuery& row) {
                found = { row.value(0).toString(), row.value(1).toString(), row.value(2).toString() };
            });
    return status ? Result<StoredAgreement>(found) : status;
}

Status AgreementStore::sign(const QString& protocol, const QString& clientNo, const Change& change)
{
    return m_database.transaction([&]() -> Status {
        const Result<int> added = m_database.change(
            QStringLiteral("INSERT INTO signatures (protocol, client_no, \"user\", signed_time) VALUES (?, ?, ?, ?)"
                           " ON CONFLICT (protocol, client_no) DO NOTHING"),
            { protocol, clientNo, change.user, StoredTime::toText(change.time) });
        if (!added || *added == 0)
            return added.status();
        HistoryEntry entry{ HistoryEvent::Signed, 0, 0, protocol, {}, {} };
        entry.after.insert(QStringLiteral("client"), clientNo);
        return HistoryStore(m_database).add(entry, change);
    });
}

Result<QDateTime> AgreementStore::signedTime(const QString& protocol, const QString& clientNo)
{
    const auto found =
        m_database.value(QStringLiteral("SELECT signed_time FROM signatures WHERE protocol = ? AND client_no = ?"),
            { protocol, clientNo });
    if (!found)
        return found.status();
    return StoredTime::fromText(found->toString());
}

Result<QStringList> AgreementStore::unsignedClientNumbers(const QString& protocol, const QString& userId)
{
    return m_database.texts(
        QStringLiteral("SELECT DISTINCT client_no FROM accounts JOIN user_accounts USING (trading_account)"
                       " WHERE \"user\" = ? AND client_no NOT IN (SELECT client_no FROM signatures WHERE protocol = ?)"
                       " ORDER BY client_no"),
        { userId, protocol });
}
