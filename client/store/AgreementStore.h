#pragma once

#include "Database.h"
#include "HistoryStore.h"

#include <QDateTime>
#include <QStringList>

struct StoredAgreement {
    QString protocol;
    QString title;
    /// The text that a client reads before signing.
    QString content;
};

/// Agreements and their signatures.
class AgreementStore {
public:
    explicit AgreementStore(Database& database);

    Status add(const StoredAgreement& agreement);
    /// A default agreement (empty protocol) if unknown.
    Result<StoredAgreement> agreement(const QString& protocol);

    /// Stores a client's signature. If the client has already signed, keeps the first signature and returns success.
    Status sign(const QString& protocol, const QString& clientNo, const Change& change);
    /// Invalid if the client has not signed.
    Result<QDateTime> signedTime(const QString& protocol, const QString& clientNo);
    /// Client numbers of the user's accounts that have not signed, ascending, each once.
    Result<QStringList> unsignedClientNumbers(const QString& protocol, const QString& userId);

private:
    Database& m_database;
};
