#pragma once

#include "AlgoErrorCode.h"
#include "Status.h"
#include "StrategyDefinition.h"

#include <QMap>
#include <QStringList>
#include <QVariant>

/// The state of an algorithm parameter widget without its inputs: the offered algorithms, the plan's base data and the
/// confirmed strategy with its parameters.
///
/// The confirmed map holds the base data at the time of the confirmation, the parameters, and the strategy's name under
/// `AutoPlanField::BaseField::algoStrategyName`, so that a stored map names its strategy.
class AlgorithmChoice {
public:
    /// Sets the lists; they take effect on `refresh`.
    void setWhiteList(const QStringList& names) { m_whiteList = names; }
    void setBlackList(const QStringList& names) { m_blackList = names; }
    /// Computes the offered algorithms: those of the white list that the library has, in the order of the list, or the
    /// whole library if the list is empty; without those of the black list.
    void refresh();
    QStringList offered() const { return m_offered; }

    /// Sets the strategy whose parameters are entered; empty for none. Does not change what is confirmed.
    void load(const QString& strategy) { m_loaded = strategy; }
    QString loaded() const { return m_loaded; }

    /// Sets the plan's base data. If the map names a strategy and its parameters are valid, loads and confirms it with
    /// the unchanged map; the lists restrict a choice, not a stored plan. `reset` first clears the confirmed strategy
    /// and ignores a strategy in the map.
    AlgoErrorCode takeBaseData(const QMap<QString, QVariant>& data, bool reset);
    /// The base data set last, without strategy and parameters.
    QMap<QString, QVariant> baseData() const { return m_baseData; }

    /// Confirms a strategy with checked values; empty values are left out.
    void confirm(const StrategyDefinition& strategy, const QMap<QString, QString>& values);
    QString confirmedName() const;
    QMap<QString, QVariant> confirmedMap() const { return m_confirmed; }

    /// Clears the strategy, its parameters and the base data, but not the lists.
    void clear();

    /// The strategy's parameters in a map, as text. If the map names the strategy, an absent parameter is empty;
    /// otherwise it is absent here, too.
    static QMap<QString, QString> parameterValues(
        const StrategyDefinition& strategy, const QMap<QString, QVariant>& map);

private:
    AlgoErrorCode takeStrategy(const QMap<QString, QVariant>& data, const QString& name);
    bool lacksBaseData() const;

    QStringList m_whiteList;
    QStringList m_blackList;
    QStringList m_offered;
    QString m_loaded;
    QMap<QString, QVariant> m_baseData;
    QMap<QString, QVariant> m_confirmed;
};
