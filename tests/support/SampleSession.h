#pragma once

#include "TestDatabase.h"

#include <QDate>
#include <QMap>
#include <QString>
#include <QVariant>

#include <optional>

/// The real client on a database of its own with a small sample market, on a set day. The destructor closes the
/// session.
class SampleSession {
public:
    /// A Monday, the first trade day after a closure of five days.
    static QDate today() { return QDate(2024, 5, 6); }

    /// `userId`: who logs in; `marketSize` 200 is the smallest that the sample offers.
    explicit SampleSession(const QString& userId = QStringLiteral("trader01"), int marketSize = 200);
    ~SampleSession();

    /// Whether the session could be opened.
    const Status& opened() const { return m_opened; }
    /// The location of the database, for the user.
    QString file(const QString& userId = QStringLiteral("trader01")) const { return m_database->location(userId); }
    /// The location for an owner, who may change everything.
    QString ownersFile() const { return m_database->ownersLocation(); }
    /// Makes `file` lead through another port of the server, that of a proxy.
    void leadThrough(quint16 port) { m_database->leadThrough(port); }
    /// Closes and opens again, as the next start of the client does.
    Status reopen(const QString& userId = QStringLiteral("trader01"));

    /// The first security of a sub-type whose symbol ends with a suffix.
    static QString symbolOf(const QString& subType, const QString& suffix);
    /// A complete record of an ordinary plan that buys 1,000 shares in Shanghai, at most 300 a day, without a price
    /// limit, from today through Friday.
    static QMap<QString, QVariant> record();
    /// The record with other entries in its other-parameter map.
    static QMap<QString, QVariant> withOther(
        const QMap<QString, QVariant>& record, const QMap<QString, QVariant>& entries);
    /// Creates the plan and returns its id; empty if it is refused, see `reason`.
    QString create(const QMap<QString, QVariant>& record);
    /// What the plan service answered to the last `create`.
    QString reason() const { return m_reason; }
    /// Copies the only plan until there are `count`, without a history.
    Status multiply(int count) const;
    /// Sets how many shares of the record's security its account holds and may sell.
    Status setHoldings(qint64 quantity) const;

private:
    Status open(const QString& userId, int marketSize);

    std::optional<TestDatabase> m_database;
    Status m_opened;
    QString m_reason;
};

/// The record with another text in a field, or without the field for a null text.
QMap<QString, QVariant> with(QMap<QString, QVariant> record, const QString& key, const QString& value);

/// Variants of the sample's record: a reduction by half that the sample's executor handles, an amount order in yuan,
/// and a plan with one price formula.
QMap<QString, QVariant> reduction(const QMap<QString, QVariant>& record);
QMap<QString, QVariant> amountPlan(
    const QMap<QString, QVariant>& record, const QString& amount = QStringLiteral("100000.00"));
QMap<QString, QVariant> customPrice(const QMap<QString, QVariant>& record, const QString& formula);
