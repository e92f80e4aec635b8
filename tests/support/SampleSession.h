#pragma once

#include <QDate>
#include <QMap>
#include <QString>
#include <QTemporaryDir>
#include <QVariant>

/// The real client on a database of its own in a temporary folder, with a small sample market, on a set day. The
/// destructor closes the session.
class SampleSession {
public:
    /// A Monday, the first trade day after a closure of five days.
    static QDate today() { return QDate(2024, 5, 6); }

    /// `userId`: who logs in; `marketSize` 200 is the smallest that the sample offers.
    explicit SampleSession(const QString& userId = QStringLiteral("trader01"), int marketSize = 200);
    ~SampleSession();

    /// Why the last operation failed; empty if it succeeded.
    QString reason() const { return m_reason; }
    QString file() const { return m_folder.filePath(QStringLiteral("plans.db")); }
    /// Closes and opens again, as the next start of the client does.
    QString reopen(const QString& userId = QStringLiteral("trader01"));

    /// The first security of a sub-type whose symbol ends with a suffix.
    static QString symbolOf(const QString& subType, const QString& suffix);
    /// A complete record of an ordinary plan that buys 1,000 shares in Shanghai, at most 300 a day, without a price
    /// limit, from today through Friday.
    static QMap<QString, QVariant> record();
    /// The record with other entries in its other-parameter map.
    static QMap<QString, QVariant> withOther(
        const QMap<QString, QVariant>& record, const QMap<QString, QVariant>& entries);
    /// Creates the plan and returns its id; empty if it is refused, see `reason()`.
    QString create(const QMap<QString, QVariant>& record);

private:
    QTemporaryDir m_folder;
    QString m_reason;
};
