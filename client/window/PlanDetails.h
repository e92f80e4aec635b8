#pragma once

#include "PlanStore.h"

#include <QScrollArea>
#include <QVector>

struct PlanDays;
class QFormLayout;

/// Shows every field of a plan as caption and text, its instructions and its history.
class PlanDetails : public QScrollArea {
    Q_OBJECT

public:
    explicit PlanDetails(QWidget* parent = nullptr);

    /// Shows a plan; a default plan (empty id) shows a hint instead. A plan that is already shown stays scrolled.
    void showPlan(const StoredPlan& plan);

private:
    enum class Kind { Heading, Field, Entry, Text };
    struct Row {
        Kind kind;
        QString caption; ///< of a field; the time of an entry
        QString text;

        bool operator==(const Row& other) const;
    };
    using Rows = QVector<Row>;

    static Rows rowsOf(const StoredPlan& plan);
    static Rows dayRows(const StoredPlan& plan, const Result<PlanDays>& stored);
    static Rows historyRows(const QString& planId);
    static void add(const Row& row, QFormLayout* rows);
    void show(const Rows& rows);

    QString m_planId;
    Rows m_rows;
};
