#include "AlgorithmChoice.h"

#include "Algo_Fields.h"
#include "AutoPlanField.h"
#include "EditEvaluation.h"
#include "ErrorText.h"
#include "StrategyLibrary.h"

#include <QDebug>

namespace BaseField = AutoPlanField::BaseField;
namespace Content = Algo_Fields::AlgoInstContentInfo;

namespace {

QMap<QString, QVariant> withoutParameters(QMap<QString, QVariant> map, const StrategyDefinition& strategy)
{
    for (const StrategyParameter& parameter : strategy.parameters)
        map.remove(parameter.name);
    map.remove(BaseField::algoStrategyName);
    return map;
}

} // namespace

void AlgorithmChoice::refresh()
{
    const QStringList known = StrategyLibrary::instance().names();
    const QStringList candidates = m_whiteList.isEmpty() ? known : m_whiteList;
    m_offered.clear();
    for (const QString& name : candidates) {
        if (known.contains(name) && !m_blackList.contains(name) && !m_offered.contains(name))
            m_offered.append(name);
    }
}

AlgoErrorCode AlgorithmChoice::takeBaseData(const QMap<QString, QVariant>& data, bool reset)
{
    if (reset)
        m_confirmed.clear();
    const QString named = data.value(BaseField::algoStrategyName).toString();
    const QString concerned = named.isEmpty() ? m_loaded : named;
    m_baseData = withoutParameters(data, StrategyLibrary::instance().strategy(concerned));

    AlgoErrorCode result = concerned.isEmpty() ? AlgoErrorCode::UnknownStrategy : AlgoErrorCode::Ok;
    if (!named.isEmpty() && !reset)
        result = takeStrategy(data, named);
    return result == AlgoErrorCode::Ok && lacksBaseData() ? AlgoErrorCode::MissingField : result;
}

AlgoErrorCode AlgorithmChoice::takeStrategy(const QMap<QString, QVariant>& data, const QString& name)
{
    m_confirmed.clear();
    const StrategyDefinition strategy = StrategyLibrary::instance().strategy(name);
    const Status status = strategy.name.isEmpty() ? Error::UnknownStrategy
                                                  : StrategyRules::check(strategy, parameterValues(strategy, data));
    if (!status) {
        qWarning().noquote() << "AlgorithmChoice::takeStrategy" << name.left(64) << errorText(status).left(200);
        return AlgoErrorCode::UnknownStrategy;
    }
    m_loaded = name;
    m_confirmed = data;
    return AlgoErrorCode::Ok;
}

bool AlgorithmChoice::lacksBaseData() const
{
    for (const QString& key : { Content::TradingAccount, Content::Symbol, Content::OrderSide }) {
        if (m_baseData.value(key).toString().isEmpty())
            return true;
    }
    return false;
}

void AlgorithmChoice::confirm(const StrategyDefinition& strategy, const QMap<QString, QString>& values)
{
    m_loaded = strategy.name;
    m_confirmed = m_baseData;
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        if (!it.value().isEmpty())
            m_confirmed.insert(it.key(), it.value());
    }
    m_confirmed.insert(BaseField::algoStrategyName, strategy.name);
}

QString AlgorithmChoice::confirmedName() const
{
    return m_confirmed.value(BaseField::algoStrategyName).toString();
}

void AlgorithmChoice::clear()
{
    m_loaded.clear();
    m_baseData.clear();
    m_confirmed.clear();
}

QMap<QString, QString> AlgorithmChoice::parameterValues(
    const StrategyDefinition& strategy, const QMap<QString, QVariant>& map)
{
    const bool complete = map.value(BaseField::algoStrategyName).toString() == strategy.name;
    QMap<QString, QString> values;
    for (const StrategyParameter& parameter : strategy.parameters) {
        if (complete || map.contains(parameter.name))
            values.insert(parameter.name, map.value(parameter.name).toString());
    }
    return values;
}
