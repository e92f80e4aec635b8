#pragma once

#include <QMap>
#include <QSqlDatabase>
#include <QStringList>
#include <QVariant>

/// Reads a client's database through a separate read-only connection.
class DatabaseProbe {
public:
    /// A security as stored. A default-constructed one (empty symbol) means that there is none.
    struct Security {
        QString symbol;
        QString exchange;
        QString subType;
        int pricePrecision = 2;
        int displayFactor = 1;
        int quantityStep = 1;
        qint64 held = 0; ///< sellable quantity of the account in the query, in displayed units
    };

    explicit DatabaseProbe(const QString& databaseFile);
    ~DatabaseProbe();
    DatabaseProbe(const DatabaseProbe&) = delete;
    DatabaseProbe& operator=(const DatabaseProbe&) = delete;

    /// Why the last query failed; empty if it succeeded.
    QString error() const { return m_error; }

    /// Ids of all plans, oldest first.
    QStringList planIds();
    /// The record of a plan, including its other-parameter text; empty if there is none.
    QMap<QString, QString> record(const QString& planId);

    Security security(const QString& symbol);
    /// The first security of a sub-type on an exchange that is not under special treatment.
    Security firstOf(const QString& subType, const QString& exchange);
    /// The security of an exchange and sub-type with the account's largest or smallest quantity that may be sold.
    Security held(const QString& tradingAccount, const QString& exchange, const QString& subType, bool most);

    QString branchOf(const QString& tradingAccount);
    QString securityAccount(const QString& tradingAccount, const QString& exchange);

private:
    QVector<QVariantList> ask(const QString& question, const QVariantList& values = {});
    QString text(const QString& question, const QVariantList& values);
    Security read(const QString& rest, const QVariantList& values);

    const QString m_connectionName;
    QString m_error;
};
