#pragma once

#include <QDate>
#include <QList>
#include <QMap>
#include <QObject>
#include <QStringList>
#include <QVariant>

/// The client's plan service: stores plans, issues their instructions each day, provides the trade calendar and answers
/// the moving-average query. One object per process. It is called on the user interface thread, and all calls are
/// synchronous.
class AutoPlanLogic : public QObject {
    Q_OBJECT

public:
    /// Returns the service, which lives as long as the process.
    static AutoPlanLogic& instance();

    /// Creates a plan from a complete record without an id. Returns an empty text if the plan was stored. Otherwise
    /// stores nothing and returns the reason as a text to show.
    QString CreateNewPlan(QMap<QString, QVariant> record);

    /// Replaces the plan whose id the record contains under `AutoPlanField::BaseField::autoPlanId`. Returns an empty
    /// text if the change was stored. Otherwise leaves the plan unchanged and returns the reason as a text to show.
    QString modifyPlan(const QMap<QString, QVariant>& record);

    /// Returns the stored record of a plan, including its id under `AutoPlanField::BaseField::autoPlanId`; empty if
    /// the id is unknown.
    QMap<QString, QVariant> GetPlanInfo(QString planId);

    /// Returns the decoded other-parameter map of a stored record; empty if the record has none or the text is not a
    /// JSON object.
    QMap<QString, QVariant> GetPlanOtherParamFromPlanInfo(const QMap<QString, QVariant>& record);

    /// Returns the field maps of the instructions issued for a plan so far, by instruction id. In a map, "12013" is
    /// "1" if the instruction has ended, "14" is the filled and "38" the issued quantity in displayed units, "57134"
    /// the target type, `Orlo_Fields::Security::cumAmount` the filled and "217201" the issued amount in yuan. Empty
    /// if there are no instructions or the id is unknown.
    QMap<QString, QMap<QString, QVariant>> GetPlanInstruction(QString planId);

    /// Returns the trading days of an exchange in ascending order, including future ones. On failure, returns an
    /// empty list and sets `error` to the reason; on success, `error` stays empty.
    QList<QDate> GetTradeDateList(const QString& exchange, QString& error);

Q_SIGNALS:
    /// Requests the moving averages of a security. Callers emit this signal; the service is connected to it.
    void signalQuerySymbolMAInfo(const QString& tradingAccount, const QString& symbol);

    /// Answers the request, possibly from another thread: `values` holds the names of the security's moving averages
    /// ("MA5", "MA10" and so on); `failReason` is not empty if they are unavailable.
    void signalQuerySymbolMAResponse(const QString& symbol, const QStringList& values, const QString& failReason);

private:
    AutoPlanLogic();
    ~AutoPlanLogic() override;
};
