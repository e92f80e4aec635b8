#include "IssueTexts.h"

#include "AutoPlanField.h"
#include "ErrorText.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "PlanFormatter.h"
#include "TickPrice.h"

#include <QLocale>

namespace {

QString textIn(const IssueRow& row, const QString& key)
{
    return row.plan.record.value(key).toString();
}

QString amountText(double yuan)
{
    return QString::number(yuan, 'f', 2);
}

} // namespace

QString IssueTexts::report(const QDate& day, const IssueResult& result)
{
    QStringList lines{ IssueTexts::tr("%1：新下达指令%2条，此前已下达的计划%3个，未下达的计划%4个。")
                           .arg(day.toString(Qt::ISODate), QString::number(result.issued.size()),
                               QString::number(result.alreadyIssued.size()), QString::number(result.skipped.size())) };
    for (const IssueResult::Skipped& skipped : result.skipped)
        lines << IssueTexts::tr("%1：%2").arg(skipped.planId, errorText(skipped.reason));
    if (!result.failure)
        lines << IssueTexts::tr("其余计划未下达：%1").arg(errorText(result.failure));
    return lines.join(QLatin1Char('\n'));
}

QString IssueTexts::line(const IssueRow& row)
{
    const PlanFormatter words(row.plan);
    const QString plan =
        QStringLiteral("%1 %2 %3 %4")
            .arg(row.plan.id, textIn(row, Kelvo_Fields::UserAccount::tradingAccount), words.security(), words.side());
    const QString missed = row.missed.isValid()
        ? IssueTexts::tr("（%1漏下达，不补下达）").arg(row.missed.toString(Qt::ISODate))
        : QString();
    if (!row.reason)
        return IssueTexts::tr("%1 不能下达：%2").arg(plan, errorText(row.reason)) + missed;
    const auto limit = row.order.price.limit;
    const QString price = limit ? TickPrice::text(*limit, row.precision) : IssueTexts::tr("不限价");
    return IssueTexts::tr("%1 %2 数量%3 金额%4元")
               .arg(plan, price, QString::number(row.order.quantity), amountText(row.order.issuedYuan))
        + missed;
}

QJsonObject IssueTexts::json(const IssueRow& row)
{
    const bool isBuy = textIn(row, AutoPlanField::BaseField::orderSide) == Kelvo_Values::OrderSide::buy;
    const auto limit = row.order.price.limit;
    return {
        { QStringLiteral("plan"), row.plan.id },
        { QStringLiteral("account"), textIn(row, Kelvo_Fields::UserAccount::tradingAccount) },
        { QStringLiteral("symbol"), textIn(row, Kelvo_Fields::Security::symbol) },
        { QStringLiteral("side"), isBuy ? QStringLiteral("buy") : QStringLiteral("sell") },
        { QStringLiteral("price"), limit ? QJsonValue(TickPrice::text(*limit, row.precision)) : QJsonValue() },
        { QStringLiteral("quantity"), row.order.quantity },
        { QStringLiteral("amount"), amountText(row.order.issuedYuan) },
        { QStringLiteral("reason"), row.reason ? QJsonValue() : QJsonValue(errorText(row.reason)) },
        { QStringLiteral("missed"),
            row.missed.isValid() ? QJsonValue(row.missed.toString(Qt::ISODate)) : QJsonValue() },
    };
}
