#pragma once

#include <QDate>
#include <QList>
#include <QMap>
#include <QObject>
#include <QStringList>
#include <QVariant>

/// The client's plan service: stores plans, turns them into instructions day by day, knows the trade calendar and
/// answers the moving-average query. One per process; called on the user interface thread, every call synchronous.
class AutoPlanLogic : public QObject {
    Q_OBJECT

public:
    /// The service; lives as long as the process.
    static AutoPlanLogic& instance();

    /// Creates a plan from a complete record without an id. Returns an empty text when the plan is stored,
    /// otherwise the reason, ready to be shown; then nothing is stored.
    QString CreateNewPlan(QMap<QString, QVariant> record);

    /// Changes the plan that the record names under `AutoPlanField::BaseField::autoPlanId`. Returns an empty text
    /// when the change is stored, otherwise the reason, ready to be shown; then the stored plan is as it was.
    QString modifyPlan(const QMap<QString, QVariant>& record);

    /// The stored record of a plan, its id under `AutoPlanField::BaseField::autoPlanId` included; empty when the
    /// id is unknown.
    QMap<QString, QVariant> GetPlanInfo(QString planId);

    /// The decoded other-parameter map of a stored record; empty when the record has none or its text is no JSON
    /// object.
    QMap<QString, QVariant> GetPlanOtherParamFromPlanInfo(const QMap<QString, QVariant>& record);

    /// The instructions issued for a plan so far, by instruction id, each with its field map ("12013" is "1" once
    /// it has ended, "14" the filled and "38" the issued quantity in displayed units, "57134" the target type,
    /// `Orlo_Fields::Security::cumAmount` the filled and "217201" the issued amount in yuan). Empty when there are
    /// none or the id is unknown.
    QMap<QString, QMap<QString, QVariant>> GetPlanInstruction(QString planId);

    /// The days on which an exchange trades, ascending, reaching into the future. `error` is left empty on success
    /// and tells the reason otherwise; the list is then empty.
    QList<QDate> GetTradeDateList(const QString& exchange, QString& error);

Q_SIGNALS:
    /// The query: asks for the moving averages of a security. Emitted by whoever wants them; the service listens
    /// to its own signal.
    void signalQuerySymbolMAInfo(const QString& tradingAccount, const QString& symbol);

    /// The answer, possibly emitted from another thread: the names of the moving averages that the security has
    /// ("MA5", "MA10" and so on), or the reason why none can be told.
    void signalQuerySymbolMAResponse(const QString& symbol, const QStringList& values, const QString& failReason);

private:
    AutoPlanLogic();
    ~AutoPlanLogic() override;
};
