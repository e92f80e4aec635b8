#pragma once

#include "PlanStore.h"
#include "Security.h"

#include <QDate>
#include <QString>
#include <QVector>
#include <QWidget>

struct StoredAccount;

/// A field whose text cannot be used, and why.
struct RefusedInput {
    QString field; ///< its object name
    QString caption;
    QString reason;

    bool operator==(const RefusedInput& other) const { return field == other.field && reason == other.reason; }
};

/// The values of the plan editor's form at one moment: codes of the boxes' items, and texts for all other fields.
struct FormReading {
    QString account; ///< trading account
    QString instructionType;
    QString targetType;
    QString planType;
    QString symbol;
    QString side;
    QString priceType; ///< empty if the form does not ask for it, like the following
    QString entrustType;
    QString priceMode;
    QString price1;
    QString price2;
    QString target; ///< displayed units or yuan; empty if the field is
    QString perDay;
    QString ratio;
    QString instructionMode;
    QString algorithm;        ///< name of the chosen algorithm; empty if its parameters are not set
    QString algorithmAccount; ///< the algorithm's own account and side
    QString algorithmSide;
    QString assignee; ///< as displayed; empty if there is none
    QString reductionMode;
    QDate begin;
    QDate end; ///< invalid for a plan with a single date
    QString remark;
    QVector<RefusedInput> refused; ///< these fields have no value
    bool hasPerDay = true;
    bool hasPrice2 = false;
    bool hasSteps = false;

    /// Reads a form, whose fields are found by their object names.
    static FormReading of(const QWidget& form);

    bool isReduction() const;
    bool isAmount() const;
    bool isBuy() const;
    bool runsAlgorithm() const;
    double targetValue() const { return target.toDouble(); }
    double perDayValue() const { return perDay.toDouble(); }
    /// The last day of the period; for a plan without one, a century after the first.
    QDate lastDay() const;

    /// The record of the plan, as the form would send it, without the parameters of an algorithm.
    PlanStore::Record record(const QString& userId, const Security& security, const StoredAccount& account) const;

    bool operator==(const FormReading& other) const;
    bool operator!=(const FormReading& other) const { return !(*this == other); }
};
