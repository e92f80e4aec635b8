#pragma once

#include "DatabaseThread.h"
#include "InstructionStore.h"
#include "PlanRights.h"
#include "PlanStore.h"
#include "SecurityStore.h"

#include <QDate>
#include <QObject>
#include <QVector>

/// What the stored facts about a plan in the form depend on.
struct FactsQuestion {
    StoredUser user;
    QDate today;
    QString planId; ///< the edited plan; empty for a new one
    QString account;
    QString securityAccount;
    QString exchange;
    QString symbol;
    QString instructionType;
    QString assignee; ///< by name, or the executor of a reduction
    QString executor;
    bool isReduction = false;

    /// Whether both are about the same account and security.
    bool hasSameSubject(const FactsQuestion& other) const;
    bool operator==(const FactsQuestion& other) const;
};

/// What is stored about the account and the security of a plan in the form.
struct AdvisorFacts {
    CloseHistory closes;
    /// What may be sold today, in stored units, and on the first day on which an order of the plan may go out.
    qint64 tradeableQuantity = 0;
    qint64 tradeableNext = 0;
    /// What can be spent on that day, in fen; absent if it is not known.
    std::optional<qint64> cash;
    PlanRights rights;
    /// Clients of the user that have not signed the agreement about reductions; only read for a reduction.
    QStringList unsignedClients;
    /// The edited plan, what its instructions use, and what of it is filled; a default plan (empty id) for a new one.
    StoredPlan edited;
    PlanUse used;
    PlanUse filled;
    bool isIssuedToday = false;
    /// Plans of the account on the security that may still be issued, and its newest plans on any, without the edited
    /// one.
    QVector<StoredPlan> openPlans;
    QHash<QString, PlanUse> usedByOpen; ///< by plan id
    QVector<StoredPlan> recentPlans;
};

/// Reads the facts on another thread, because the window must not wait for a database. Emits nothing after its
/// destruction.
class FactsReader : public QObject {
    Q_OBJECT

public:
    /// Most plans that are read of each kind.
    static constexpr int MostPlans = 50;

    /// `session`: see `DatabaseThread`; the database is opened with the first question.
    explicit FactsReader(const Database& session);

    /// Asks; earlier questions that have not started are skipped.
    void ask(const FactsQuestion& question);
    /// Asks what an account holds of each security.
    void askHoldings(const QString& account);

Q_SIGNALS:
    void answered(const FactsQuestion& question, const Result<AdvisorFacts>& facts);
    /// `held`: in stored units, by symbol.
    void holdingsAnswered(const QString& account, const Result<QHash<QString, qint64>>& held);

private:
    std::atomic_int m_asked{ 0 };
    DatabaseThread m_thread; ///< destroyed before the data of its jobs
};
