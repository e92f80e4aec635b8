#pragma once

#include "AdvisedPlan.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <memory>
#include <optional>

class ForecastChart;
class ForecastTable;
class QLabel;
class RowView;

/// The panel beside the plan editor that says what the plan in the form will do. It reads the form by its fields' names
/// and follows every change before the next paint.
class AdvisorPanel : public QWidget {
    Q_OBJECT

public:
    explicit AdvisorPanel(QWidget* parent = nullptr);
    ~AdvisorPanel() override;

    /// Follows a form from now on.
    void follow(QWidget* form);
    /// The plan that the form edits; empty for a new one.
    void setPlan(const QString& planId);

    /// Shows what follows from the form now. The panel calls it after each change.
    void refresh();
    /// Whether it shows what follows from the form and from what is stored.
    bool isSettled() const;
    /// Opens the window in which a security is found, if the form's can be chosen.
    void chooseSecurity();
    /// Gives the focus to the next of its tables; returns false after the last one.
    bool focusNext();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QLabel* newLabel(const char* name);
    void addTable(RowView* table, const QString& name);
    void buildSecurity();
    void buildFormula();
    void buildForecast();
    void buildRules();
    void scheduleRefresh();
    FactsQuestion questionOf(const FormReading& form, const StoredAccount* account) const;
    FactsReader& reader();
    void ask(const FactsQuestion& question);
    void askAgain();
    void take(const FactsQuestion& question, const Result<AdvisorFacts>& facts);
    void present(const AdvisedPlan& plan);
    void presentFormula(const AdvisedPlan& plan);
    void presentForecast(const AdvisedPlan& plan);
    void presentRules(const AdvisedPlan& plan);
    void insertName(const QString& name);
    void goTo(const QString& field);
    void noteFocus(const QWidget* focused);

    QPointer<QWidget> m_form;
    QString m_planId;
    QTimer m_refresh;
    std::unique_ptr<FactsReader> m_reader;
    FactsQuestion m_question;                    ///< the last one
    std::optional<Result<AdvisorFacts>> m_facts; ///< absent until the first answer about its subject
    bool m_isAsking = false;

    QVector<RowView*> m_tables;
    RowView* m_security;
    QLabel* m_price;
    RowView* m_names;
    QString m_priceField; ///< the price that had the focus last
    QLabel* m_headline;
    QLabel* m_reduction;
    ForecastChart* m_chart;
    ForecastTable* m_days;
    QLabel* m_summary;
    RowView* m_rules;
};
