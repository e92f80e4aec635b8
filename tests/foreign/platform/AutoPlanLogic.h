#pragma once

#include <QDate>
#include <QMap>
#include <QObject>
#include <QVariant>

/// Keeps plans as long as the program runs.
class AutoPlanLogic : public QObject {
    Q_OBJECT

public:
    using Record = QMap<QString, QVariant>;

    static AutoPlanLogic& instance();

    QString CreateNewPlan(Record record);
    QString modifyPlan(const Record& record);
    Record GetPlanInfo(const QString& planId) const { return m_plans.value(planId); }
    Record GetPlanOtherParamFromPlanInfo(const Record& record) const;
    QMap<QString, Record> GetPlanInstruction(const QString&) const { return {}; }
    /// Every second day of a month.
    QList<QDate> GetTradeDateList(const QString& exchange, QString& error) const;

    /// This client's own window asks for these.
    const QMap<QString, Record>& plans() const { return m_plans; }

signals:
    void signalQuerySymbolMAInfo(const QString& tradingAccount, const QString& symbol);
    void signalQuerySymbolMAResponse(const QString& symbol, const QStringList& values, const QString& failReason);

private:
    QMap<QString, Record> m_plans;
};
