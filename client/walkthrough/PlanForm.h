#pragma once

#include <QMap>
#include <QString>

/// The values that a trader fills in: codes of the boxes' items, and typed texts for all other fields. An empty text
/// leaves a field unchanged.
struct PlanForm {
    QString account; ///< trading account
    QString instructionType;
    QString targetType;
    QString planType;
    QString symbol;
    QString side;
    QString priceType;
    QString entrustType;
    QString priceMode;
    QString price1;
    QString price2;
    QString target; ///< displayed units or yuan
    QString perDay; ///< displayed units or yuan
    QString ratio;
    QString instructionMode;
    QString strategy;                  ///< name of an algorithm
    QMap<QString, QString> parameters; ///< typed texts by parameter of the algorithm; the others keep their defaults
    QString assignee;                  ///< as displayed
    int beginSteps = 0;                ///< trading days from the begin offered by the form
    int endSteps = 0;                  ///< trading days from the end that the form shows then
    QString remark;

    /// An ordinary plan that buys 10,000 units, at most 500 a day, without a price limit and without review.
    static PlanForm ordinary(const QString& account, const QString& symbol);

    /// The following return the same plan with other values.
    PlanForm priced(const QString& mode, const QString& first, const QString& second = QString()) const;
    PlanForm byAlgorithm(const QString& strategyName, const QMap<QString, QString>& values = {}) const;
    PlanForm byAmount(const QString& total, const QString& daily) const;
    /// A sale by a reduction of holdings on a single day.
    PlanForm reducing(const QString& percentage, const QString& executor) const;

    bool isByAmount() const;
    bool isReduction() const;
};

/// The dates that the form showed when it was sent.
struct ShownDates {
    QString begin;
    QString end; ///< empty for a plan with a single date
};
