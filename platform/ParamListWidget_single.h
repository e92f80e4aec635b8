#pragma once

#include "AesStrategy.h"
#include "AlgoErrorCode.h"
#include <QMap>
#include <QStringList>
#include <QVariant>
#include <QWidget>
#include <memory>

/// Panel in which the trader chooses one algorithm for one security and fills in its parameters. Made by
/// `OrloStrategyFactory`; the chosen strategy and its parameters stay in the panel until they are cleared.
class ParamListWidget_single : public QWidget {
    Q_OBJECT

public:
    explicit ParamListWidget_single(QWidget* parent = nullptr); ///< without a strategy
    ~ParamListWidget_single() override;

    /// Loads a strategy into the panel, with default values and the values set so far, and shows the panel when
    /// the strategy has a name. Returns "0" on success, otherwise the reason, ready to be shown.
    virtual QString LoadStrategy(const AesStrategy& strategy, const QMap<QString, QVariant>& defaults,
        const QMap<QString, QVariant>& parameters, const QString& symbol) = 0;
    /// The parameters that the trader has confirmed, with the base data; empty when none are set.
    virtual QMap<QString, QVariant> GetParamMap() const = 0;
    /// Name of the confirmed strategy; empty when none is.
    virtual QString GetStrategyName() const = 0;
    /// Rebuilds the list of offered algorithms from the white and black lists.
    virtual void RefreshAlgoList() = 0;
    /// Tells the panel that the plan's instruction mode or security has changed: what depends on them is set up
    /// afresh, a confirmed strategy is kept.
    virtual void ReInit() = 0;
    /// True when a strategy is confirmed and its parameters are set.
    virtual bool HasParams() const = 0;
    /// Forgets the strategy and its parameters.
    virtual void ClearParams() = 0;

    /// Names that may be offered; an empty list does not restrict. Takes effect with `RefreshAlgoList`.
    void setAlgoWhiteList(QStringList names);
    /// Names that may not be offered. Takes effect with `RefreshAlgoList`.
    void setAlgoBlackList(QStringList names);
    /// The algorithms to which the user is entitled, within the two lists.
    QStringList getAuthorityAlgoList() const;
    /// Hands over the plan's base data (`Algo_Fields::AlgoInstContentInfo`). With `resetParams` the parameters are
    /// cleared first; without it, entries of the map that are parameters of the strategy are taken as their
    /// values, and a strategy name in the map under `AutoPlanField::BaseField::algoStrategyName` is loaded.
    AlgoErrorCode setBaseInfoData(QMap<QString, QVariant> baseData, bool resetParams);

protected:
    class Private;
    std::unique_ptr<Private> d; ///< each implementation's own
};
