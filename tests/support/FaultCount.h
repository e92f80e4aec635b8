#pragma once

#include <QObject>
#include <QPair>
#include <QString>
#include <QVector>

/// Counts what was tried, acknowledged, stored and lost. The destructor prints it as a line of the report of
/// `scripts/faults`, also of a test that ended early, unless nothing was tried.
class FaultCount {
public:
    explicit FaultCount(const QString& what);
    ~FaultCount();
    FaultCount(const FaultCount&) = delete;
    FaultCount& operator=(const FaultCount&) = delete;

    /// Counts an attempt. What was acknowledged and is not stored is lost.
    void add(bool isAcknowledged, bool isStored);
    /// Counts a file that must stay as it is, whose contents were acknowledged before.
    void addFile(bool isUnchanged) { add(true, isUnchanged); }
    int lost() const { return m_lost; }
    /// The name of the line.
    void setName(const QString& what) { m_what = what; }

private:
    QString m_what;
    int m_tried = 0;
    int m_acknowledged = 0;
    int m_stored = 0;
    int m_lost = 0;
};

/// Counts the plans and changes that the plan service refuses and acknowledges.
class SentPlans {
public:
    explicit SentPlans(const QString& what);

    /// Looks in the history of a database for what was acknowledged since the last call. `location`: its owner's.
    void compare(const QString& location);
    int lost() const { return m_count.lost(); }

private:
    FaultCount m_count;
    QVector<QPair<QString, QString>> m_acknowledged; ///< plan and user, once for each time
    QObject m_context;
};
