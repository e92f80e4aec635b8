#pragma once

#include "PlanStore.h"

#include <QScrollArea>

class QFormLayout;

/// Shows every field of a plan as caption and text, its instructions and its history.
class PlanDetails : public QScrollArea {
    Q_OBJECT

public:
    explicit PlanDetails(QWidget* parent = nullptr);

    /// Shows a plan; a default plan (empty id) shows a hint instead.
    void showPlan(const StoredPlan& plan);

private:
    void addHeading(QFormLayout* rows, const QString& text);
    void addRow(QFormLayout* rows, const QString& caption, const QString& text);
    void addInstructions(QFormLayout* rows, const QString& planId);
    void addHistory(QFormLayout* rows, const QString& planId);
};
