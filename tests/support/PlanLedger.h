#pragma once

#include "HistoryStore.h"
#include "StoredPlan.h"

#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVariant>

/// The plans that writers sent and those that were acknowledged, to be compared with the database. The whole record of
/// a plan follows from its mark, so that a mixture of two records is detected.
class PlanLedger {
public:
    using Record = QMap<QString, QVariant>;

    /// The record of a mark: `base` with a remark, a total, a daily quantity and a second formula of its own.
    static Record recordOf(const Record& base, const QString& mark);

    /// The records that all plans are made from.
    void setBase(const Record& base) { m_base = base; }

    /// A new plan is about to be sent.
    void attempt(const QString& mark);
    /// A change is about to be sent that will bring the plan to a version; 0 when others change the plan, too.
    void attemptChange(const QString& planId, int version, const QString& mark);
    /// The plan was acknowledged at a version with a mark; at version 0 the change is counted only.
    void acknowledge(const QString& planId, int version, const QString& mark);
    /// Reads the output of a writer; an incomplete last line is ignored. Lines "refused …" are in `refusals()`, unknown
    /// lines in `problems()`.
    void read(const QByteArray& output);

    int acknowledged() const { return m_acknowledgements; }
    int attempted() const { return m_attempts; }
    const QStringList& refusals() const { return m_refusals; }
    const QStringList& problems() const { return m_problems; }
    /// Acknowledged changes of a plan that several writers change.
    int sharedChanges(const QString& planId) const { return m_shared.value(planId); }

    /// Compares with the database of a file, which is opened as the next start of the client does. One sentence for
    /// each acknowledged plan that is missing or older, each stored plan that was not sent, and each mixed record.
    QStringList differences(const QString& file) const;
    /// Compares with the history: one sentence for each acknowledged mark that is not stored exactly once, each mark
    /// that is stored twice, each plan whose versions are not all there, whole and in order, and each change that was
    /// made from another version than the one before it.
    QStringList historyDifferences(const QString& file) const;
    /// Prints how many plans and changes were tried, acknowledged, stored in the file and lost.
    void report(const QString& what, const QString& file) const;

private:
    struct Plan {
        int version = 0; ///< acknowledged last
        QString mark;
    };

    bool wasSent(const QString& planId, int version, const QString& mark) const;
    void readLine(const QStringList& words, const QString& line);
    QString difference(const QString& planId, int version, const Record& record) const;
    QString historyDifference(const StoredPlan& plan, const QVector<HistoryEntry>& entries) const;

    Record m_base;
    QSet<QString> m_created;
    QMap<QPair<QString, int>, QSet<QString>> m_changes; ///< marks that were sent, by plan and version
    QMap<QString, Plan> m_plans;
    QMap<QString, QString> m_madeFrom; ///< the mark that a change was made from, by its own
    QSet<QString> m_marks;             ///< acknowledged
    QMap<QString, int> m_shared;       ///< acknowledged changes at version 0, by plan
    QStringList m_refusals;
    QStringList m_problems;
    int m_acknowledgements = 0;
    int m_attempts = 0;
};

/// Prints a line of the report of `scripts/faults`.
void reportFaults(const QString& what, int tried, int acknowledged, int stored, int lost);

/// The number in an environment variable, which `scripts/faults` sets; `usual` if it is not set.
int setting(const char* variable, int usual);

/// The seed of a run, which `FAULTS_SEED` repeats.
quint32 chosenSeed();
