#pragma once

#include "AesStrategy.h"
#include "AlgoErrorCode.h"

#include <QMap>
#include <QStringList>
#include <QVariant>
#include <QWidget>

#include <memory>

/// Panel in which the trader chooses an algorithm for one security and enters its parameters. `OrloStrategyFactory`
/// creates the panel. It keeps the chosen strategy and its parameters until they are cleared.
class ParamListWidget_single : public QWidget {
    Q_OBJECT

public:
    explicit ParamListWidget_single(QWidget* parent = nullptr); ///< constructs a panel without a strategy
    ~ParamListWidget_single() override;

    /// Loads a strategy into the panel, with default values and the current values, and shows the panel if the strategy
    /// has a name. Returns "0" on success, otherwise the reason as a text to show.
    virtual QString LoadStrategy(const AesStrategy& strategy, const QMap<QString, QVariant>& defaults,
        const QMap<QString, QVariant>& parameters, const QString& symbol) = 0;
    /// Returns the parameters that the trader has confirmed, and the base data; empty if no parameters are set.
    virtual QMap<QString, QVariant> GetParamMap() const = 0;
    /// Returns the name of the confirmed strategy; empty if no strategy is confirmed.
    virtual QString GetStrategyName() const = 0;
    /// Rebuilds the list of offered algorithms from the white and black lists.
    virtual void RefreshAlgoList() = 0;
    /// Updates the panel after the plan's instruction mode or security has changed. A confirmed strategy is kept.
    virtual void ReInit() = 0;
    /// Returns true if a strategy is confirmed and its parameters are set.
    virtual bool HasParams() const = 0;
    /// Clears the strategy and its parameters.
    virtual void ClearParams() = 0;

    /// Sets the names that may be offered. An empty list does not restrict. `RefreshAlgoList` applies the list.
    void setAlgoWhiteList(QStringList names);
    /// Sets the names that must not be offered. `RefreshAlgoList` applies the list.
    void setAlgoBlackList(QStringList names);
    /// Returns the algorithms that the user may use, restricted by both lists.
    QStringList getAuthorityAlgoList() const;
    /// Sets the plan's base data (`Algo_Fields::AlgoInstContentInfo`). With `resetParams`, clears the parameters first.
    /// Without it, map entries that are parameters of the strategy set their values, and a strategy whose name is in
    /// the map under `AutoPlanField::BaseField::algoStrategyName` is loaded.
    AlgoErrorCode setBaseInfoData(QMap<QString, QVariant> baseData, bool resetParams);

protected:
    class Private;
    std::unique_ptr<Private> d; ///< private data of the implementation
};
