#pragma once

#include "AccountStore.h"
#include "ImportRow.h"
#include "Market.h"
#include "PlanAlgorithms.h"
#include "PlanStore.h"

/// Plan records as rows of a file, in the columns of `TransferForms::plans`.
class PlanSheet {
public:
    /// `market` must stay loaded.
    PlanSheet(Database& database, const Market& market, const StoredUser& user);

    /// The record of a row, which is empty if a cell is refused. What has no column is taken from `base`, the record of
    /// the plan that the row changes.
    Result<PlanStore::Record> record(ImportRow& row, const PlanStore::Record& base);
    /// The row of a plan.
    QStringList texts(const StoredPlan& plan) const;

    /// The identity of a row: a plan's number with its creation, another text in that column, or else all its cells.
    static QString reference(const ImportRow& row);
    /// A request id that a text always has.
    static QString requestOf(const StoredUser& user, const QString& text);
    static bool isEqual(const PlanStore::Record& one, const PlanStore::Record& other);

private:
    class Reading;

    Result<StoredAccount> account(const QString& number);
    const Security* securityOf(const QString& symbol) const;

    Database& m_database;
    const Market& m_market;
    const StoredUser m_user;
    PlanAlgorithms m_algorithms;
    QHash<QString, StoredAccount> m_accounts;
};
