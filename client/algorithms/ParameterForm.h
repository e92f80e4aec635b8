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
    /// The first input that cannot be taken.
    struct Fault {
        Status status;     ///< success when every input can be taken
        QString parameter; ///< name of the input's parameter; empty on success
    };

    ParameterForm(const StrategyDefinition& strategy, QWidget* parent);

    QString strategyName() const { return m_strategy.name; }
    StrategyDefinition strategy() const { return m_strategy; }

    /// Decimals of a price where the strategy's file leaves them open.
    void setPriceDecimals(int decimals);

    /// Shows values; those of other names are left alone.
    void setValues(const QMap<QString, QString>& values);
    /// Every parameter's value as entered, constants included; an empty text where nothing is entered.
    QMap<QString, QString> values() const;
    /// Checks what is entered, in the order of the rows, then the relations between them.
    [[nodiscard]] Fault check() const;
    /// The last input in the order of the Tab key; null when there is none.
    QWidget* lastInput() const { return m_rows.isEmpty() ? nullptr : m_rows.constLast().lastFocus; }
    /// Marks the input of a parameter as faulty and gives it the focus; an empty name takes the mark away.
    void markFault(const QString& parameter);

    /// Colour of what is wrong, on light and on dark skins.
    static QColor faultColor();
    /// The defaults of the strategy's file.
    static QMap<QString, QString> defaults(const StrategyDefinition& strategy);

private:
    struct Row {
        StrategyParameter parameter;
        StrategyControl control;
        QWidget* input = nullptr;
        QWidget* lastFocus = nullptr; ///< the input itself unless it consists of several
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
