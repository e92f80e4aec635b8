#include "StrategyReport.h"

#include "ClientClock.h"
#include "ControlValue.h"
#include "ErrorText.h"
#include "WireValue.h"

#include <QJsonArray>

namespace {

/// A remark without its line.
QString reasonOf(const Status& remark)
{
    return errorText(remark.error() == Error::StrategyFileLine ? remark.cause() : remark);
}

QJsonObject remarkJson(const Status& remark)
{
    QJsonObject object{ { QStringLiteral("reason"), reasonOf(remark) } };
    if (remark.error() == Error::StrategyFileLine)
        object.insert(QStringLiteral("line"), remark.details().value(0).toInt());
    return object;
}

QJsonArray remarksJson(const QVector<Status>& remarks)
{
    QJsonArray array;
    for (const Status& remark : remarks)
        array.append(remarkJson(remark));
    return array;
}

/// Why a strategy is refused or not offered.
QVector<Status> reasonsOf(const ReadStrategy& strategy)
{
    return strategy.isRead() ? strategy.remarks.obstacles : QVector<Status>{ strategy.remarks.refusal };
}

QJsonObject strategyJson(const ReadStrategy& strategy)
{
    const StrategyDefinition& definition = strategy.definition;
    QJsonObject object{
        { QStringLiteral("name"), definition.name },
        { QStringLiteral("uiRep"), definition.alias },
        { QStringLiteral("line"), definition.line },
        { QStringLiteral("state"), StrategyReport::state(strategy) },
        { QStringLiteral("reasons"), remarksJson(reasonsOf(strategy)) },
        { QStringLiteral("warnings"), remarksJson(strategy.remarks.warnings) },
    };
    if (!strategy.isRead())
        return object;
    object.insert(QStringLiteral("parameters"), static_cast<int>(definition.parameters.size()));
    object.insert(QStringLiteral("controls"), static_cast<int>(definition.controls.size()));
    object.insert(
        QStringLiteral("fields"), WireValue::fields(definition, ControlValue::defaults(definition), clientToday()));
    return object;
}

/// What did not let the file be read, without its name.
Status failureOf(const StrategyFile& file)
{
    return file.failure.cause();
}

void addRemarks(QStringList& lines, const QString& kind, const QVector<Status>& remarks)
{
    for (const Status& remark : remarks)
        lines.append(QStringLiteral("%1 %2").arg(kind, errorText(remark)));
}

} // namespace

QString StrategyReport::state(const ReadStrategy& strategy)
{
    if (!strategy.isRead())
        return QStringLiteral("refused");
    return strategy.isUsable() ? QStringLiteral("offered") : QStringLiteral("not offered");
}

QString StrategyReport::stateText(const ReadStrategy& strategy)
{
    if (!strategy.isRead())
        return StrategyReport::tr("拒绝");
    return strategy.isUsable() ? StrategyReport::tr("可用") : StrategyReport::tr("不可用");
}

QStringList StrategyReport::lines(const StrategyFile& file)
{
    if (!file.failure)
        return { StrategyReport::tr("%1：拒绝 %2").arg(file.name, errorText(failureOf(file))) };
    QStringList lines{ StrategyReport::tr("%1：%2个策略").arg(file.name, QString::number(file.strategies.size())) };
    addRemarks(lines, StrategyReport::tr("提示"), file.warnings);
    for (const ReadStrategy& strategy : file.strategies) {
        lines.append(
            StrategyReport::tr("策略%1（第%2行）：%3")
                .arg(strategy.definition.name, QString::number(strategy.definition.line), stateText(strategy)));
        addRemarks(lines, StrategyReport::tr("原因"), reasonsOf(strategy));
        addRemarks(lines, StrategyReport::tr("提示"), strategy.remarks.warnings);
    }
    return lines;
}

QJsonObject StrategyReport::json(const StrategyFile& file)
{
    QJsonObject object{
        { QStringLiteral("file"), file.name },
        { QStringLiteral("state"), file.failure ? QStringLiteral("read") : QStringLiteral("refused") },
        { QStringLiteral("warnings"), remarksJson(file.warnings) },
    };
    if (!file.failure) {
        object.insert(QStringLiteral("reasons"), QJsonArray{ remarkJson(failureOf(file)) });
        return object;
    }
    QJsonArray strategies;
    for (const ReadStrategy& strategy : file.strategies)
        strategies.append(strategyJson(strategy));
    object.insert(QStringLiteral("strategies"), strategies);
    return object;
}
