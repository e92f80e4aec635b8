#pragma once

#include "Status.h"
#include "StrategyDefinition.h"

#include <QGridLayout>
#include <QMap>
#include <QWidget>

#include <functional>

/// The inputs of one strategy, one row per parameter: label, input, unit, range.
class ParameterForm : public QWidget {
    Q_OBJECT

public:
    /// The first invalid input.
    struct Fault {
        Status status;     ///< success if every input is valid
        QString parameter; ///< name of the input's parameter; empty on success
    };

    ParameterForm(const StrategyDefinition& strategy, QWidget* parent);

    QString strategyName() const { return m_strategy.name; }
    StrategyDefinition strategy() const { return m_strategy; }

    /// Sets the decimals of prices for which the strategy's file has none.
    void setPriceDecimals(int decimals);

    /// Shows values; inputs without a value in the map do not change.
    void setValues(const QMap<QString, QString>& values);
    /// The entered values by parameter, including constants; empty texts for empty inputs.
    QMap<QString, QString> values() const;
    /// Checks the inputs in the order of the rows, then the strategy's rules.
    [[nodiscard]] Fault check() const;
    /// The last input in tab order; null if there is none.
    QWidget* lastInput() const { return m_rows.isEmpty() ? nullptr : m_rows.constLast().lastFocus; }
    /// Marks the input of a parameter as invalid and gives it the focus; an empty name removes the mark.
    void markFault(const QString& parameter);

    /// The defaults of the strategy's file.
    static QMap<QString, QString> defaults(const StrategyDefinition& strategy);

private:
    struct Row {
        StrategyParameter parameter;
        StrategyControl control;
        QWidget* input = nullptr;
        QWidget* lastFocus = nullptr; ///< the input itself unless it consists of several widgets
        std::function<QString()> value;
        std::function<void(const QString&)> setValue;
    };

    static Status check(const Row& row);
    void addSection(const QString& title);
    void addRow(const StrategyControl& control, const StrategyParameter& parameter);
    void addRemarks(const Row& row, int line);
    void makeInput(Row& row);
    void makeText(Row& row);
    void makeStepper(Row& row);
    void makeDropDown(Row& row);
    void makeRadioButtons(Row& row);
    void makeCheckBox(Row& row);

    StrategyDefinition m_strategy;
    QGridLayout* m_grid = nullptr;
    QList<Row> m_rows;
};
