#pragma once

#include "ValueReader.h"

#include <QDate>

#include <optional>

/// The cash of accounts, where the client knows it.
class CashStore {
public:
    explicit CashStore(Database& database);

    /// Replaces what is known of an account, in fen, without reservations. Absent: not known from now on.
    Status set(const QString& tradingAccount, const std::optional<qint64>& fen);
    /// What can be spent on a day, in fen: without what its open purchases reserve. Absent if it is not known.
    Result<std::optional<qint64>> available(const QString& tradingAccount, const QDate& day);
    /// Adds the same to what is read.
    static void addTo(ValueReader& reader, const QString& tradingAccount, const QDate& day, std::optional<qint64>& fen);

private:
    Database& m_database;
};
