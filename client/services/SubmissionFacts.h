#pragma once

#include "CheckedPlan.h"
#include "InstructionStore.h"
#include "SecurityStore.h"

#include <QHash>

class ClientSession;

/// What is stored about a record that is sent.
struct SubmissionFacts {
    /// Number of the plan that an earlier submission of the request stored; 0 if none did.
    qint64 planOfRequest = 0;
    PlanRights rights;
    CloseHistory closes;
    /// Quantity of the security that may be sold, in stored units.
    qint64 tradeableQuantity = 0;
    /// What the changed plan uses.
    PlanUse use;
    /// Their version, see `PlanStore::createIf`.
    QString version;

    /// `planId`: the changed plan; empty for a new one.
    static Result<SubmissionFacts> read(
        ClientSession& session, const PlanStore::Record& record, const QString& request, const QString& planId = {});

    PlanCheck::Known known(ClientSession& session, const PlanStore::Record& record) const;
};

/// The facts of the last new plans, for other plans of the same accounts, securities and handlers. They hold as long as
/// their version is that of the database, which is only known when a plan is stored.
class KeptFacts {
public:
    /// Null if there are none for a record.
    const SubmissionFacts* find(ClientSession& session, const PlanStore::Record& record) const;
    /// Keeps facts of the present version. Drops all others that had another one.
    void keep(ClientSession& session, const PlanStore::Record& record, const SubmissionFacts& facts);
    /// The session has stored a plan of their version, which is all that has changed.
    void noteStored(ClientSession& session);

    QString version() const { return m_version; }

private:
    QHash<QStringList, SubmissionFacts> m_facts;
    QString m_version;
};
