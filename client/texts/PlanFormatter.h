#pragma once

#include "PlanStore.h"

#include <QCoreApplication>
#include <QPair>
#include <QString>
#include <QVector>

/// Formats a stored plan for the trader. An unknown code is shown as stored; a missing field is an empty text.
class PlanFormatter {
    Q_DECLARE_TR_FUNCTIONS(PlanFormatter)

public:
    explicit PlanFormatter(const StoredPlan& plan);

    /// The word for the stored state.
    QString state() const;
    QString planType() const;
    QString instructionType() const;
    QString targetType() const;
    /// Symbol and name.
    QString security() const;
    QString side() const;
    /// The plan's total in displayed units or yuan, with its unit.
    QString target() const;
    /// The daily quantity or maximum in the same way; says so if there is no maximum.
    QString perDay() const;
    /// A quantity or amount of one of the plan's instructions, with its unit.
    QString issued(const QString& number, bool isByAmount) const;
    /// Whether the total is an amount instead of a quantity.
    bool isAmount() const;
    /// The total as a number: in displayed units or yuan; 0 if unknown.
    double total() const;
    /// A part of the total as it is shown, without its unit.
    QString partText(double part) const;
    QString priceMode() const;
    /// The price's formula, or both if they are compared; the price mode if there is none.
    QString price() const;
    /// Name and fund account; the trading account if it is not the user's.
    QString account() const;
    /// Who executes a reduction, or whom another plan is assigned to.
    QString assignee() const;
    /// Begin and end; only the begin for a plan without an end.
    QString period() const;
    /// Who created the plan, and when.
    QString creation() const;

    /// Every field as caption and text, in the order of the form, without missing fields. Empty for a default plan.
    QVector<QPair<QString, QString>> fields() const { return fields(state()); }
    /// The same with another word for the state, for example that of the plan's stage on a day.
    QVector<QPair<QString, QString>> fields(const QString& state) const;

private:
    using Fields = QVector<QPair<QString, QString>>;

    QString text(const QString& key) const { return m_plan.record.value(key).toString(); }
    QString other(const QString& key) const { return m_other.value(key).toString(); }
    QString symbol() const;
    bool isReduction() const;
    int factor() const;
    QString quantity(const QString& stored) const;
    QString unit() const;
    QString amount(const QString& stored) const;
    QString ratio() const;

    QString exchange() const;
    QString priceType() const;
    QString entrustType() const;
    QString instructionMode() const;
    QString algorithm() const;

    void addBasics(Fields& fields, const QString& state) const;
    void addPrices(Fields& fields) const;
    void addTargets(Fields& fields) const;
    void addAlgorithm(Fields& fields) const;
    void addHistory(Fields& fields) const;

    const StoredPlan m_plan;
    const QMap<QString, QVariant> m_other;
};
