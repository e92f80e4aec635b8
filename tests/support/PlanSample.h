#pragma once

#include "AutoParamSetting.h"
#include "PlanVocabulary.h"

#include <QDate>
#include <QList>
#include <QMap>
#include <QString>
#include <QVariant>

/// A plan as a trader sees it in the form: displayed quantities, codes for choices, texts for the rest. By default an
/// ordinary plan that buys 1,000 shares, at most 300 a day, by a custom formula, without review.
struct PlanSample {
    QString account = QStringLiteral("acc1");
    QString instructionType = AutoPlanInstructionType::Ordinary;
    QString targetType; ///< empty counts as by quantity
    QString planType = AutoPlanTemplate::CumulativeQty;
    QString symbol = QStringLiteral("600000.K_SH");
    QString side;        ///< empty counts as buy
    QString entrustType; ///< margin plans only
    QString priceType;   ///< Hong Kong connect only
    QString priceMode = AutoPlanPriceModel::Custom;
    QString price1 = QStringLiteral("昨收价*1.01");
    QString price2;
    double target = 1000;
    double daily = 300;
    double ratio = 0.25; ///< holdings reduction only
    QString mode = AutoPlanInstMode::ActiveManage;
    QString assignee; ///< empty means no user
    QDate begin = QDate(2024, 5, 8);
    QDate end = QDate(2024, 5, 17);
    QString remark;

    bool reducesHoldings() const { return planType == AutoPlanTemplate::ReduceHoldings; }
    bool isByAmount() const;
    /// The same plan with another plan type, and so on.
    PlanSample withPlanType(const QString& code) const;
    PlanSample withMode(const QString& code) const;
    PlanSample withPriceMode(const QString& code) const;

    /// A plan of an instruction type with an account, a security, a side and order properties that fit it.
    static PlanSample ofType(const QString& instructionType);
    /// A holdings reduction, carried out by user "执行甲".
    static PlanSample reduction();
};

/// One row of the table of stored plans: a plan of each type, under each rule, started or not.
struct PlanKind {
    QString planType;
    QString instructionType;
    QString targetType;
    QString mode;
    int ruleProperty = AutoPlanRuleProperty::NoReview;
    bool started = false;

    /// The stored plan: it began on 2024-05-02 or begins on 2024-05-08. Modes "1", "2" and "3" come with the price
    /// modes "6", "7" and "8"; an actively managed sale in Hong Kong is for the opening auction.
    PlanSample sample() const;
    QString sentence() const;

    /// Every plan type, instruction type, target type, mode and rule, started and not.
    static QList<PlanKind> all();
};

Q_DECLARE_METATYPE(PlanSample)
Q_DECLARE_METATYPE(PlanKind)

/// Two ordinary accounts and a credit account, the users "甲" and "乙", the executors "执行甲" and "执行乙", a stock
/// and a bond with a display factor of 10 in Shanghai, and a Hong Kong stock in steps of 500.
void openSampleMarket();

/// Fills in the form field by field, like a trader, without blocking signals. The form must be visible.
void fillForm(const AutoParamSetting& editor, const PlanSample& plan);

/// The record that a plan service stores for the plan, without its id.
QMap<QString, QVariant> recordOf(const PlanSample& plan);
/// The other-parameter map of that record.
QMap<QString, QVariant> otherParamOf(const PlanSample& plan);
/// A record with another map of other parameters.
QMap<QString, QVariant> withOtherParam(const QMap<QString, QVariant>& record, const QMap<QString, QVariant>& other);
/// Stores the plan in the scripted plan service under an id.
void storePlan(const QString& planId, const QMap<QString, QVariant>& record);
void storePlan(const QString& planId, const PlanSample& plan);

/// Makes the scripted plan service store the plans that it gets as "P1", "P2" and so on, and the scripted algorithm
/// panel keep its parameters, so that both can return them later.
void keepWhatIsSent();
