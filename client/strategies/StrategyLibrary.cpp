#include "StrategyLibrary.h"

#include "BuiltInTexts.h"
#include "ErrorText.h"

#include <QDebug>
#include <QFileInfo>

namespace {

/// In the order in which the panel offers them.
QStringList builtInFiles()
{
    return { QStringLiteral(":/plandesk/strategies/TWAP.xml"), QStringLiteral(":/plandesk/strategies/VWAP.xml"),
        QStringLiteral(":/plandesk/strategies/POV.xml"), QStringLiteral(":/plandesk/strategies/ICEBERG2.xml"),
        QStringLiteral(":/plandesk/strategies/SNIPER.xml") };
}

} // namespace

StrategyLibrary& StrategyLibrary::instance()
{
    static StrategyLibrary library;
    return library;
}

StrategyLibrary::StrategyLibrary()
{
    const QStringList paths = builtInFiles();
    for (const QString& path : paths)
        addBuiltIn(path);
    m_builtIn = m_strategies.size();
}

QStringList StrategyLibrary::names() const
{
    const QReadLocker locker(&m_lock);
    QStringList result;
    for (const StrategyDefinition& strategy : m_strategies)
        result.append(strategy.name);
    return result;
}

QList<AesStrategy> StrategyLibrary::strategies() const
{
    const QReadLocker locker(&m_lock);
    QList<AesStrategy> result;
    for (const StrategyDefinition& strategy : m_strategies)
        result.append(summary(strategy));
    return result;
}

StrategyDefinition StrategyLibrary::strategy(const QString& name) const
{
    const QReadLocker locker(&m_lock);
    const auto position = m_positions.constFind(name);
    return position == m_positions.cend() ? StrategyDefinition() : m_strategies.at(*position);
}

QStringList StrategyLibrary::namesNotFor(const TradedSecurity& security) const
{
    const QReadLocker locker(&m_lock);
    QStringList result;
    for (const StrategyDefinition& strategy : m_strategies) {
        if (!strategy.scope.contains(security))
            result.append(strategy.name);
    }
    return result;
}

AesStrategy StrategyLibrary::summary(const StrategyDefinition& strategy)
{
    return { strategy.name, strategy.alias, strategy.provider, strategy.version };
}

QString StrategyLibrary::keyOf(const StrategyDefinition& strategy, const StrategyFile& file)
{
    const QString owner = strategy.provider.isEmpty() ? QFileInfo(file.name).completeBaseName() : strategy.provider;
    return strategy.name + QLatin1Char('@') + owner;
}

void StrategyLibrary::setFiles(QVector<StrategyFile>& files)
{
    const QWriteLocker locker(&m_lock);
    while (m_strategies.size() > m_builtIn)
        m_positions.remove(m_strategies.takeLast().name);
    for (StrategyFile& file : files) {
        for (ReadStrategy& strategy : file.strategies) {
            if (!strategy.isUsable())
                continue;
            StrategyDefinition definition = strategy.definition;
            definition.name = keyOf(strategy.definition, file);
            if (m_positions.contains(definition.name)) {
                strategy.remarks.hinder(definition.line, { Error::StrategyNameTaken, { definition.name } });
                continue;
            }
            m_positions.insert(definition.name, m_strategies.size());
            m_strategies.append(definition);
        }
    }
}

void StrategyLibrary::addBuiltIn(const QString& path)
{
    const StrategyFile file = StrategyFile::read(path);
    if (!file.failure)
        qWarning().noquote() << "StrategyLibrary::addBuiltIn" << errorText(file.failure);
    for (const ReadStrategy& strategy : file.strategies) {
        if (!strategy.isUsable())
            qWarning().noquote() << "StrategyLibrary::addBuiltIn" << errorText(strategy.remarks.refusal);
        m_positions.insert(strategy.definition.name, m_strategies.size());
        m_strategies.append(strategy.definition);
        translateBuiltIn(m_strategies.last());
    }
}
