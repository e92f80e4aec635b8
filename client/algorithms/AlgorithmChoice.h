#pragma once

#include "AlgoErrorCode.h"
#include "Status.h"
#include "StrategyDefinition.h"
#include <QMap>
#include <QStringList>
#include <QVariant>

/// What an algorithm parameter widget knows, without its inputs: the algorithms it may offer, the plan's base data and
/// the confirmed strategy with its parameters.
///
/// The confirmed map holds the base data as they were at the confirmation, the parameters, and the strategy's name
/// under `AutoPlanField::BaseField::algoStrategyName`, so that a stored map names its strategy by itself.
class AlgorithmChoice {
public:
    /// Sets the lists; they take effect with `refresh`.
    void setWhiteList(const QStringList& names) { m_whiteList = names; }
    void setBlackList(const QStringList& names) { m_blackList = names; }
    /// Works out the offered algorithms: the library's within the white list, in its order (an empty one does not
    /// restrict, then in library order), without the black list.
    void refresh();
    QStringList offered() const { return m_offered; }

    /// Names the strategy that takes parameters from now on; empty for none. What is confirmed stays so.
    void load(const QString& strategy) { m_loaded = strategy; }
    QString loaded() const { return m_loaded; }

    /// Takes the plan's base data. A strategy that the map names, with parameters that it accepts, is loaded and
    /// confirmed at once with the map as it is; the lists bind a choice, not what a stored plan holds. `reset` forgets
    /// the confirmed strategy first and reads no strategy from the map.
    AlgoErrorCode takeBaseData(const QMap<QString, QVariant>& data, bool reset);
    /// The base data of the last hand-over, without strategy and parameters.
    QMap<QString, QVariant> baseData() const { return m_baseData; }

    /// Confirms a strategy with values that have been checked; empty values are left out.
    void confirm(const StrategyDefinition& strategy, const QMap<QString, QString>& values);
    QString confirmedName() const;
    QMap<QString, QVariant> confirmedMap() const { return m_confirmed; }

    /// Forgets the strategy, its parameters and the base data; the lists stay.
    void clear();

    /// The strategy's parameters in a map, as text. In a map that names the strategy every parameter counts, and an
    /// absent one has been left empty; otherwise absent ones are absent.
    static QMap<QString, QString> parameterValues(
        const StrategyDefinition& strategy, const QMap<QString, QVariant>& map);
    /// Checks the values of a strategy: its parameters, then its rules.
    static Status check(const StrategyDefinition& strategy, const QMap<QString, QString>& values);

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
