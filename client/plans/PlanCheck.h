#pragma once

#include "AccountDirectory.h"
#include "Market.h"
#include "TradeCalendar.h"

#include <QDate>
#include <QMap>
#include <QVariant>

/// What a plan must satisfy before it is stored. Each rule answers an empty text or the reason in Chinese; the first
/// reason counts.
class PlanCheck {
public:
    using Record = QMap<QString, QVariant>;

    /// Longest remark in characters.
    static constexpr int longestRemark = 200;

    PlanCheck(const Market& market, const AccountDirectory& accounts, const TradeCalendar& calendar);

    /// Why a record cannot become a new plan.
    QString creationError(const Record& record);
    /// Why a stored plan cannot be changed to a record; `today` tells whether it has started.
    QString modificationError(const Record& stored, const Record& record, const QDate& today);

private:
    using Rule = QString (PlanCheck::*)() const;

    QString firstReason(const Record& record);
    QString text(const QString& key) const;
    QString other(const QString& key) const;
    bool isReduction() const;
    bool isAmount() const;

    QString checkTexts() const;
    QString checkOtherParam() const;
    QString checkCodes() const;
    QString checkOtherCodes() const;
    QString checkAccount() const;
    QString checkSecurity() const;
    QString checkTotal() const;
    QString checkPerDay() const;
    QString checkAmounts() const;
    QString checkRatio() const;
    QString checkFormulas() const;
    QString checkBegin() const;
    QString checkEnd() const;
    QString checkRemark() const;

    QString checkTradeDay(const QString& caption, const QDate& date) const;

    const Market& m_market;
    const AccountDirectory& m_accounts;
    const TradeCalendar& m_calendar;
    Record m_record;
    QMap<QString, QVariant> m_other;
};
