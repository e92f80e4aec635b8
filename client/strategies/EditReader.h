#pragma once

#include "StrategyDefinition.h"
#include "StrategyElement.h"
#include "StrategyRemarks.h"

#include <QHash>

/// Reads conditions into `StrategyDefinition::edits`. All parameters and controls of the strategy must be known.
class EditReader {
public:
    /// What the fields of a condition are.
    enum Fields { Parameters, Controls };

    /// `named` are the conditions that others refer to, those of the strategy and of the file.
    EditReader(
        const QHash<QString, const StrategyElement*>& named, StrategyDefinition& strategy, StrategyRemarks& remarks);

    /// Reads the only condition of a rule. Returns its index; -1 if it is refused or refers to a field of the order
    /// that the client does not know.
    int readRule(const StrategyElement& rule, Fields fields);

private:
    int readAny(const StrategyElement& element, Fields fields);
    int readReference(const StrategyElement& element, Fields fields);
    int readEdit(const StrategyElement& element, Fields fields);
    int readCombination(const StrategyElement& element, EditOperator combination, Fields fields);
    int readComparison(const StrategyElement& element, EditOperator comparison, Fields fields);
    int fieldIndex(const StrategyElement& element, const QString& name, Fields fields);
    Result<QString> readValue(
        const StrategyElement& element, const StrategyEdit& edit, const QString& text, Fields fields);
    Result<QString> parameterValue(
        const StrategyElement& element, const StrategyParameter& parameter, const QString& text);
    void takeOperand(StrategyEdit& edit, const StrategyElement& element, const QString& text, Fields fields);
    bool takeOtherField(StrategyEdit& edit, const StrategyElement& element, const QString& name, Fields fields);
    void compareControls(StrategyEdit& edit) const;
    void compareParameters(StrategyEdit& edit, const StrategyElement& element);
    int leaveOut(const StrategyElement& element, const QString& field);
    int append(const StrategyEdit& edit);

    const QHash<QString, const StrategyElement*>& m_named;
    StrategyDefinition& m_strategy;
    StrategyRemarks& m_remarks;
    /// What a reference leads to.
    struct Known {
        int edit = -1; ///< -1 if the condition needs `field`
        QString field; ///< field of the order that the client does not know
    };

    QHash<QString, Known> m_known[2]; ///< conditions that were read by reference, for each kind of fields
    QStringList m_open;               ///< references that are being read
    QString m_unknownField;           ///< field of the order for which the last condition was left out
};
