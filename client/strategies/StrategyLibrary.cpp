#include "StrategyLibrary.h"

#include "ErrorText.h"
#include "StrategyFile.h"

#include <QDebug>

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
        addFile(path);
}

QStringList StrategyLibrary::names() const
{
    QStringList result;
    for (const StrategyDefinition& strategy : m_strategies)
        result.append(strategy.name);
    return result;
}

QList<AesStrategy> StrategyLibrary::strategies() const
{
    QList<AesStrategy> result;
    for (const StrategyDefinition& strategy : m_strategies)
        result.append(summary(strategy));
    return result;
}

StrategyDefinition StrategyLibrary::strategy(const QString& name) const
{
    for (const StrategyDefinition& candidate : m_strategies) {
        if (candidate.name == name)
            return candidate;
    }
    return {};
}

AesStrategy StrategyLibrary::summary(const StrategyDefinition& strategy)
{
    return { strategy.name, strategy.alias, strategy.provider, strategy.version };
}

void StrategyLibrary::addFile(const QString& path)
{
    const Result<QList<StrategyDefinition>> strategies = StrategyFile::read(path);
    if (strategies)
        m_strategies += *strategies;
    else
        qWarning().noquote() << "StrategyLibrary::addFile" << errorText(strategies.status());
}
