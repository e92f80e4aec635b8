#pragma once

#include "PlanScope.h"
#include "StoredPlan.h"
#include "UserStore.h"

#include <QVector>

/// What a user should look at.
struct Alert {
    enum class Kind {
        Failed, ///< got no instruction on its last day; the text says why
        Missed, ///< neither got an instruction on a trade day nor was refused one
        Ends,   ///< ends on the next trade day
        Changed ///< is the user's, and someone else made its present version; the text is the id of that user
    };

    Kind kind = Kind::Failed;
    StoredPlan plan;
    /// The day, or the version: an alert about another one is another alert.
    QString subject;
    QString text;
};

/// The days that alerts are about.
struct AlertDays {
    /// A day on which some exchanges trade.
    struct TradeDay {
        QDate day;
        QStringList exchanges;
    };

    /// The trade days before today that are looked at, and the next ones.
    QVector<TradeDay> past;
    QVector<TradeDay> next;
    QDate today;
    /// A plan that became active at this time of a past day or later was not due on it, in the market's time.
    QTime latestStart;
};

/// The alerts of a user about the plans that he sees, from the stored data, without those that he has worked off.
class AlertStore {
public:
    AlertStore(Database& database, const StoredUser& user);

    /// At most a number of each kind, oldest plans first.
    Result<QVector<Alert>> alerts(const AlertDays& days, int mostOfKind);
    /// Notes that alerts have been worked off. `OutcomeUnknown` if COMMIT was not answered; noting them again is
    /// harmless.
    Status setDone(const QVector<Alert>& alerts);

private:
    SqlQuery undone(Alert::Kind kind, const QString& subject) const;
    Status read(Alert::Kind kind, const SqlQuery& query, int most, QVector<Alert>& alerts);
    Status readFailed(const AlertDays& days, int most, QVector<Alert>& alerts);
    Status readMissed(const AlertDays& days, int most, QVector<Alert>& alerts);
    Status readEnds(const AlertDays& days, int most, QVector<Alert>& alerts);
    Status readChanged(const AlertDays& days, int most, QVector<Alert>& alerts);
    Status readPlans(QVector<Alert>& alerts);

    Database& m_database;
    const StoredUser m_user;
};
