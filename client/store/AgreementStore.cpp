#include "AgreementStore.h"

AgreementStore::AgreementStore(Database& database)
    : m_database(database)
{
}

Status AgreementStore::add(const StoredAgreement& agreement)
{
    return m_database.execute(QStringLiteral("INSERT INTO agreements (protocol, title, content) VALUES (?, ?, ?)"),
        { agreement.protocol, agreement.title, agreement.content });
}

StoredAgreement AgreementStore::agreement(const QString& protocol)
{
    QSqlQuery query = m_database.query(
        QStringLiteral("SELECT protocol, title, content FROM agreements WHERE protocol = ?"), { protocol });
    if (!query.next())
        return StoredAgreement();
    return { query.value(0).toString(), query.value(1).toString(), query.value(2).toString() };
}

Status AgreementStore::sign(
    const QString& protocol, const QString& clientNo, const QString& userId, const QDateTime& now)
{
    return m_database.execute(
        QStringLiteral("INSERT INTO signatures (protocol, client_no, user, signed_time) VALUES (?, ?, ?, ?)"
                       " ON CONFLICT (protocol, client_no) DO NOTHING"),
        { protocol, clientNo, userId, now.toString(Qt::ISODateWithMs) });
}

QDateTime AgreementStore::signedTime(const QString& protocol, const QString& clientNo)
{
    QSqlQuery query =
        m_database.query(QStringLiteral("SELECT signed_time FROM signatures WHERE protocol = ? AND client_no = ?"),
            { protocol, clientNo });
    return query.next() ? QDateTime::fromString(query.value(0).toString(), Qt::ISODateWithMs) : QDateTime();
}

QStringList AgreementStore::unsignedClientNumbers(const QString& protocol, const QString& userId)
{
    QSqlQuery query = m_database.query(
        QStringLiteral("SELECT DISTINCT client_no FROM accounts JOIN user_accounts USING (trading_account)"
                       " WHERE user = ? AND client_no NOT IN (SELECT client_no FROM signatures WHERE protocol = ?)"
                       " ORDER BY client_no"),
        { userId, protocol });
    QStringList numbers;
    while (query.next())
        numbers << query.value(0).toString();
    return numbers;
}
