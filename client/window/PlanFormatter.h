#pragma once

#include "PlanStore.h"

#include <QPair>
#include <QString>
#include <QVector>

/// Formats a stored plan for the trader. An unknown code is shown as stored; a missing field is an empty text.
class PlanFormatter {
public:
    explicit PlanFormatter(const StoredPlan& plan);

    QString state() const;
    QString planType() const;
    QString instructionType() const;
    QString targetType() const;
    /// Symbol and name.
    QString security() const;
    QString side() const;
    /// The plan's total in displayed units or yuan, with its unit.
    QString target() const;
    QString perDay() const;
    /// A quantity or amount of one of the plan's instructions, with its unit.
    QString issued(const QString& number, bool isByAmount) const;
    QString priceMode() const;
    /// Begin and end; only the begin for a plan without an end.
    QString period() const;
    /// Who created the plan, and when.
    QString creation() const;

    /// Every field as caption and text, in the order of the form, without missing fields. Empty for a default plan.
    QVector<QPair<QString, QString>> fields() const;

private:
    using Fields = QVector<QPair<QString, QString>>;

    QString text(const QString& key) const { return m_plan.record.value(key).toString(); }
    QString other(const QString& key) const { return m_other.value(key).toString(); }
    QString symbol() const;
    bool isReduction() const;
    bool isAmount() const;
    QString quantity(const QString& stored) const;
    QString unit() const;
    QString amount(const QString& stored) const;
    QString ratio() const;

    QString account() const;
    QString exchange() const;
    QString priceType() const;
    QString entrustType() const;
    QString instructionMode() const;
    QString assignee() const;
    QString algorithm() const;

    void addBasics(Fields& fields) const;
    void addPrices(Fields& fields) const;
    void addTargets(Fields& fields) const;
    void addAlgorithm(Fields& fields) const;
    void addHistory(Fields& fields) const;

    const StoredPlan m_plan;
    const QMap<QString, QVariant> m_other;
};
