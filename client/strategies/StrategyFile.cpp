#include "StrategyFile.h"

#include "ElementReader.h"
#include "StrategyMarkup.h"
#include "StrategyText.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

namespace {

constexpr int MaxTag = 99999999;

Status unreadable(const QString& name, const Status& cause)
{
    return { Error::StrategyFileUnreadable, { name }, cause };
}

Result<StrategyDocument> parse(const QByteArray& bytes)
{
    QVector<Status> warnings;
    const Result<QByteArray> text = StrategyText::toUtf8(bytes, warnings);
    if (!text)
        return text.status();
    if (Status status = StrategyMarkup::check(*text); !status)
        return status;
    return StrategyDocument::parse(QString::fromUtf8(*text), warnings);
}

SharedParts readRootAttributes(const StrategyElement& root, StrategyRemarks& remarks, StrategyRemarks& unknown)
{
    ElementReader reader(root, remarks);
    SharedParts shared;
    reader.expected("strategyIdentifierTag");
    shared.identifierTag = reader.number("strategyIdentifierTag", 1, MaxTag, 0);
    shared.versionTag = reader.number("versionIdentifierTag", 1, MaxTag, 0);
    shared.sendsParameterGroup = reader.flag("tag957Support", false);
    reader.text("imageLocation");
    for (const char* const withoutEffect : { "draftFlagIdentifierTag", "changeStrategyOnCxlRpl" })
        reader.text(withoutEffect);
    reader.finish(unknown);
    ElementReader others(root, unknown);
    others.number("draftFlagIdentifierTag", 1, MaxTag, 0);
    others.flag("changeStrategyOnCxlRpl", false);
    return shared;
}

void readNamedEdit(const StrategyElement& edit, SharedParts& shared, StrategyRemarks& remarks)
{
    ElementReader reader(edit, remarks);
    const QString id = reader.expected("id");
    if (id.isEmpty())
        return;
    const bool isSecond = shared.edits.contains(id);
    if (isSecond)
        reader.warn({ Error::DuplicateEdit, { id.left(64) } });
    shared.edits.insert(id, isSecond ? nullptr : &edit);
}

/// Values that every strategy needs refuse the file; what belongs to no strategy is only a warning.
SharedParts readShared(const StrategyElement& root, StrategyFile& file)
{
    StrategyRemarks remarks;
    StrategyRemarks unknown;
    SharedParts shared = readRootAttributes(root, remarks, unknown);
    ElementContents::refuseText(root, unknown);
    ElementContents::checkPlaces(
        root, { QStringLiteral("Description"), QStringLiteral("Edit"), QStringLiteral("Strategy") }, remarks);
    for (const StrategyElement& child : root.children) {
        if (child.name == QLatin1String("Edit"))
            readNamedEdit(child, shared, remarks);
        else if (child.name == QLatin1String("Description"))
            ElementContents::textOf(child, unknown);
        else if (child.name != QLatin1String("Strategy"))
            ElementContents::refuseChild(child, unknown);
    }
    file.warnings += remarks.warnings + unknown.warnings;
    if (!unknown.refusal)
        file.warnings.append(unknown.refusal);
    if (!remarks.refusal)
        file.failure = Status(Error::StrategyFileRefused, { file.name }, remarks.refusal);
    return shared;
}

void readStrategies(const StrategyElement& root, const SharedParts& shared, StrategyFile& file)
{
    QSet<QString> names;
    for (const StrategyElement& child : root.children) {
        if (child.name != QLatin1String("Strategy"))
            continue;
        if (file.strategies.size() >= StrategyLimits::MaxParts) {
            const QStringList limit{ QStringLiteral("Strategy"), QString::number(StrategyLimits::MaxParts) };
            file.failure = Status(Error::StrategyFileRefused, { file.name },
                StrategyRemarks::inLine(child.line, { Error::TooMany, limit }));
            return file.strategies.clear();
        }
        ReadStrategy strategy = StrategyReader::read(child, shared);
        // Names are unique for each provider.
        const QString key = strategy.definition.provider + QLatin1Char('\n') + strategy.definition.name;
        if (names.contains(key))
            strategy.remarks.refuse(child.line, { Error::DuplicateStrategy, { strategy.definition.name } });
        names.insert(key);
        file.strategies.append(strategy);
    }
}

} // namespace

StrategyFile StrategyFile::read(const QString& path)
{
    StrategyFile result;
    result.name = QFileInfo(path).fileName();
    QFile file(path);
    // Only regular files: opening a pipe would block until something writes to it.
    if (!QFileInfo(path).isFile())
        result.failure = unreadable(result.name, Error::NotAFile);
    else if (!file.open(QIODevice::ReadOnly))
        result.failure = unreadable(result.name, Error::FileNotOpened);
    return result.failure ? read(file, result.name) : result;
}

StrategyFile StrategyFile::read(QIODevice& device, const QString& name)
{
    StrategyFile result;
    result.name = name;
    const QByteArray bytes = device.read(StrategyLimits::MaxSize + 1);
    if (bytes.size() > StrategyLimits::MaxSize) {
        result.failure = unreadable(name, { Error::FileTooLarge, { QString::number(StrategyLimits::MaxSize) } });
        return result;
    }
    const Result<StrategyDocument> document = parse(bytes);
    if (!document) {
        result.failure = Status(Error::StrategyFileRefused, { name }, document.status());
        return result;
    }
    result.warnings = document->warnings;
    const StrategyElement& root = document->root;
    const SharedParts shared = readShared(root, result);
    if (result.failure)
        readStrategies(root, shared, result);
    if (result.failure && result.strategies.isEmpty())
        result.failure =
            Status(Error::StrategyFileRefused, { name }, StrategyRemarks::inLine(root.line, Error::NoStrategy));
    return result;
}
