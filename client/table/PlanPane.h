#pragma once

#include "PlanList.h"
#include "Status.h"

#include <QWidget>

class PlanTable;
class QAbstractButton;
class QButtonGroup;
class QHBoxLayout;
class QLineEdit;

/// The table of plans with its filters, its search and its scroll bar.
class PlanPane : public QWidget {
    Q_OBJECT

public:
    explicit PlanPane(QWidget* parent);

    PlanTable* table() const { return m_table; }
    /// Makes a plan the current one, in the list of all plans, or of the archived ones, if it is not in
    /// this one.
    void goTo(const QString& planId);

Q_SIGNALS:
    /// Another list is shown, or it could not be read.
    void listChanged(const Status& read);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QHBoxLayout* buildBar();
    QAbstractButton* addFilter(const QString& name, const QString& text, PlanFilter filter);
    void buildSearch();
    void beginSearch(const QString& text);
    void apply();

    PlanTable* m_table;
    QButtonGroup* m_filters;
    QLineEdit* m_search;
};
