#include "strategies/StrategyLibrary.h"
#include "strategies/StrategyFile.h"

#include <QDebug>
#include <QDir>
#include <QMutexLocker>
#include <algorithm>

namespace {

/// In the order in which the trader is offered them.
QStringList builtInFiles()
{
    return { QStringLiteral(":/plandesk/strategies/TWAP.xml"), QStringLiteral(":/plandesk/strategies/VWAP.xml"),
        QStringLiteral(":/plandesk/strategies/POV.xml"), QStringLiteral(":/plandesk/strategies/ICEBERG2.xml"),
        QStringLiteral(":/plandesk/strategies/SNIPER.xml") };
}

QStringList folderFiles(const QString& folder)
{
    if (folder.isEmpty())
        return {};
    QStringList paths;
    const QDir directory(folder);
    const QStringList names =
        directory.entryList({ QStringLiteral("*.xml") }, QDir::Files | QDir::Readable, QDir::Name);
    for (const QString& name : names)
        paths.append(directory.filePath(name));
    return paths;
}

bool holds(const QList<StrategyDefinition>& strategies, const QString& name)
{
    return std::any_of(strategies.cbegin(), strategies.cend(),
        [&](const StrategyDefinition& strategy) { return strategy.name == name; });
}

QString duplicateProblem(
    const QList<StrategyDefinition>& known, const StrategyFileContent& content, const QString& path)
{
    for (const StrategyDefinition& strategy : content.strategies) {
        if (!holds(known, strategy.name))
            continue;
        return StrategyFileError{ QFileInfo(path).fileName(), strategy.line,
            QStringLiteral("策略名“%1”已被占用").arg(strategy.name) }
            .text();
    }
    return {};
}

} // namespace

StrategyLibrary& StrategyLibrary::instance()
{
    static StrategyLibrary library;
    return library;
}

StrategyLibrary::StrategyLibrary()
    : m_contents(readAll({}))
{
}

void StrategyLibrary::setFolder(const QString& folder)
{
    const QMutexLocker locker(&m_mutex);
    m_folder = folder;
}

void StrategyLibrary::reload()
{
    QMutexLocker locker(&m_mutex);
    const QString folder = m_folder;
    locker.unlock();
    const Contents contents = readAll(folder);
    locker.relock();
    m_contents = contents;
}

QStringList StrategyLibrary::names() const
{
    const QMutexLocker locker(&m_mutex);
    QStringList result;
    for (const StrategyDefinition& strategy : m_contents.strategies)
        result.append(strategy.name);
    return result;
}

QList<AesStrategy> StrategyLibrary::strategies() const
{
    const QMutexLocker locker(&m_mutex);
    QList<AesStrategy> result;
    for (const StrategyDefinition& strategy : m_contents.strategies)
        result.append(summary(strategy));
    return result;
}

StrategyDefinition StrategyLibrary::strategy(const QString& name) const
{
    const QMutexLocker locker(&m_mutex);
    for (const StrategyDefinition& candidate : m_contents.strategies) {
        if (candidate.name == name)
            return candidate;
    }
    return {};
}

QStringList StrategyLibrary::problems() const
{
    const QMutexLocker locker(&m_mutex);
    return m_contents.problems;
}

AesStrategy StrategyLibrary::summary(const StrategyDefinition& strategy)
{
    return { strategy.name, strategy.alias, strategy.provider, strategy.version };
}

void StrategyLibrary::addFile(Contents& contents, const QString& path)
{
    const StrategyFileContent content = StrategyFile::read(path);
    const QString problem =
        content.isValid() ? duplicateProblem(contents.strategies, content, path) : content.error.text();
    if (problem.isEmpty()) {
        contents.strategies += content.strategies;
        return;
    }
    qWarning().noquote() << "StrategyLibrary::addFile" << problem;
    contents.problems.append(problem);
}

StrategyLibrary::Contents StrategyLibrary::readAll(const QString& folder)
{
    Contents contents;
    const QStringList paths = builtInFiles() + folderFiles(folder);
    for (const QString& path : paths)
        addFile(contents, path);
    return contents;
}
