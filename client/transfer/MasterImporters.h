#pragma once

#include "AccountStore.h"
#include "Importer.h"
#include "PositionStore.h"
#include "SecurityStore.h"
#include "UserStore.h"

#include <QSet>

/// Finds lines that are about the same thing.
class LineKeys {
public:
    /// Refuses the row if an earlier one had the key.
    void check(ImportRow& row, int column, const QString& key);
    bool contains(const QString& key) const { return m_lines.contains(key); }

private:
    QHash<QString, qint64> m_lines;
};

class SecurityImporter : public Importer {
public:
    SecurityImporter(Database& database, ImportReport& report);

    const TransferForm& form() const override { return TransferForms::securities(); }
    Status take(ImportRow& row) override;
    Status findRemovals() override;
    Status remove() override;

private:
    Security read(ImportRow& row);
    Status checkUse(ImportRow& row, const Security& before, const Security& after);
    Status readUsed();

    SecurityStore m_store;
    ImportReport& m_report;
    LineKeys m_keys;
    QSet<QString> m_used;
    bool m_knowsUsed = false;
};

class AccountImporter : public Importer {
public:
    AccountImporter(Database& database, ImportReport& report);

    const TransferForm& form() const override { return TransferForms::accounts(); }
    Status take(ImportRow& row) override;
    Status findRemovals() override;
    Status remove() override;

private:
    Database& m_database;
    AccountStore m_store;
    ImportReport& m_report;
    LineKeys m_keys;
};

class UserImporter : public Importer {
public:
    UserImporter(Database& database, ImportReport& report);

    const TransferForm& form() const override { return TransferForms::users(); }
    Status take(ImportRow& row) override;
    Status findRemovals() override;
    Status remove() override;

private:
    static QStringList types(ImportRow& row, int column);
    /// Whether each of the row's types is reviewed: 1 or 0.
    static QMap<QString, int> rights(ImportRow& row);
    Status write(ImportRow& row, const StoredUser& user, const QString& account, QStringList& lines);

    Database& m_database;
    ImportReport& m_report;
    LineKeys m_keys;
    QHash<QString, QString> m_names;             ///< of the file's users
    QVector<QPair<QString, QString>> m_removals; ///< user and account
};

class ChainImporter : public Importer {
public:
    ChainImporter(Database& database, ImportReport& report);

    const TransferForm& form() const override { return TransferForms::chains(); }
    Status take(ImportRow& row) override;
    Status findRemovals() override;
    Status remove() override;

private:
    Status findRemovals(const QString& account);

    Database& m_database;
    ImportReport& m_report;
    LineKeys m_keys;
    QVector<QPair<QString, QString>> m_removals; ///< account and instruction type
};

class PositionImporter : public Importer {
public:
    PositionImporter(Database& database, ImportReport& report);

    const TransferForm& form() const override { return TransferForms::positions(); }
    Status take(ImportRow& row) override;
    Status findRemovals() override;
    Status remove() override;

private:
    Status securityOf(ImportRow& row, Security& security);
    Status accountOf(ImportRow& row, StoredAccount& account);
    StoredPosition read(ImportRow& row, const StoredAccount& account, const Security& security) const;

    PositionStore m_store;
    AccountStore m_accounts;
    SecurityStore m_securities;
    ImportReport& m_report;
    LineKeys m_keys;
    QVector<StoredPosition> m_removals;
};
