#include "PlanColumns.h"

#include "AutoPlanField.h"
#include "ClientSession.h"
#include "Kelvo_Fields.h"
#include "MissedDays.h"
#include "PlanFormatter.h"
#include "PlanLife.h"
#include "PlanTexts.h"

#include <QCoreApplication>
#include <QLocale>

#include <tuple>

namespace {

struct Shown {
    const ListedPlan& listed;
    const PlanFormatter words;
    const QDate today;
};

struct Definition {
    const char* name;
    const char* title;
    const char* sample;
    bool isNumber;
    std::optional<PlanOrder> order;
    QString (*text)(const Shown& shown);
};

QDate dateOf(const StoredPlan& plan, const QString& key)
{
    return PlanTexts::date(plan.record.value(key).toString());
}

PlanStage stageOf(const Shown& shown)
{
    return PlanLife::stage(shown.listed.plan, !shown.listed.progress.refusal.isEmpty(), shown.today);
}

QString progressText(const Shown& shown)
{
    const PlanProgress& progress = shown.listed.progress;
    const bool isAmount = shown.words.isAmount();
    return QStringLiteral("%1 / %2").arg(shown.words.partText(isAmount ? progress.filledYuan : progress.filledQuantity),
        shown.words.partText(isAmount ? progress.used.yuan : progress.used.quantity));
}

// Empty for a plan that has ended, and for one whose last day the calendar does not know.
QString remainingDays(const Shown& shown)
{
    const PlanStage stage = stageOf(shown);
    if (stage == PlanStage::Archived || stage == PlanStage::Stopped || stage == PlanStage::Completed
        || stage == PlanStage::Expired)
        return QString();
    const StoredPlan& plan = shown.listed.plan;
    const QString exchange = plan.record.value(Kelvo_Fields::UserAccount::securityExchange).toString();
    const TradeCalendar& calendar = ClientSession::instance().calendar();
    const QDate end = dateOf(plan, AutoPlanField::BaseField::endDate);
    if (!(end <= calendar.lastKnownDay(exchange)))
        return QString();
    int days = 0;
    for (QDate day = qMax(shown.today, dateOf(plan, AutoPlanField::BaseField::beginDate)); day <= end;
         day = day.addDays(1))
        days += calendar.day(exchange, day) == TradeCalendar::Day::Trades ? 1 : 0;
    return QCoreApplication::translate("PlanColumns", "%1天").arg(days);
}

QString lastResult(const Shown& shown)
{
    const PlanProgress& progress = shown.listed.progress;
    const QDate missed =
        MissedDays::last(shown.listed.plan, progress.lastDay, ClientSession::instance().calendar(), shown.today);
    const QDate day = missed.isValid() ? missed : progress.lastDay;
    if (!day.isValid())
        return QString();
    const auto translated = [](const char* text) { return QCoreApplication::translate("PlanColumns", text); };
    const QString issued =
        progress.refusal.isEmpty() ? translated(QT_TRANSLATE_NOOP("PlanColumns", "已下达")) : progress.refusal;
    return QStringLiteral("%1 %2").arg(QLocale::c().toString(day, QStringLiteral("MM-dd")),
        missed.isValid() ? translated(QT_TRANSLATE_NOOP("PlanColumns", "漏下达")) : issued);
}

const Definition Definitions[PlanColumns::Count] = {
    { "id", QT_TRANSLATE_NOOP("PlanColumns", "计划编号"), "AP00000000", false, PlanOrder::Number,
        [](const Shown& shown) { return shown.listed.plan.id; } },
    { "account", QT_TRANSLATE_NOOP("PlanColumns", "账户"), QT_TRANSLATE_NOOP("PlanColumns", "四字账户（F000000）"),
        false, {}, [](const Shown& shown) { return shown.words.account(); } },
    { "state", QT_TRANSLATE_NOOP("PlanColumns", "状态"), QT_TRANSLATE_NOOP("PlanColumns", "已暂停"), false, {},
        [](const Shown& shown) { return PlanLife::word(stageOf(shown)); } },
    { "security", QT_TRANSLATE_NOOP("PlanColumns", "证券"), "600000.SH 四字证券", false, PlanOrder::Security,
        [](const Shown& shown) { return shown.words.security(); } },
    { "side", QT_TRANSLATE_NOOP("PlanColumns", "方向"), "方向", false, {},
        [](const Shown& shown) { return shown.words.side(); } },
    { "target", QT_TRANSLATE_NOOP("PlanColumns", "目标"), QT_TRANSLATE_NOOP("PlanColumns", "10,000,000.00 元"), true,
        {}, [](const Shown& shown) { return shown.words.target(); } },
    { "progress", QT_TRANSLATE_NOOP("PlanColumns", "成交 / 下达"), "1,000,000 / 1,000,000", true, {}, progressText },
    { "perDay", QT_TRANSLATE_NOOP("PlanColumns", "每日"), QT_TRANSLATE_NOOP("PlanColumns", "100,000.00 元"), true, {},
        [](const Shown& shown) { return shown.words.perDay(); } },
    { "remainingDays", QT_TRANSLATE_NOOP("PlanColumns", "剩余"), QT_TRANSLATE_NOOP("PlanColumns", "剩余剩余"), true, {},
        remainingDays },
    { "lastResult", QT_TRANSLATE_NOOP("PlanColumns", "最近结果"), QT_TRANSLATE_NOOP("PlanColumns", "00-00 四字结果"),
        false, {}, lastResult },
    { "price", QT_TRANSLATE_NOOP("PlanColumns", "价格"), "昨收盘价 * 1.01", false, {},
        [](const Shown& shown) { return shown.words.price(); } },
    { "period", QT_TRANSLATE_NOOP("PlanColumns", "生效时段"),
        QT_TRANSLATE_NOOP("PlanColumns", "0000-00-00 至 0000-00-00"), false, PlanOrder::End,
        [](const Shown& shown) { return shown.words.period(); } },
    { "assignee", QT_TRANSLATE_NOOP("PlanColumns", "分配给"), "默认不指定", false, {},
        [](const Shown& shown) { return shown.words.assignee(); } },
    { "planType", QT_TRANSLATE_NOOP("PlanColumns", "计划类型"), QT_TRANSLATE_NOOP("PlanColumns", "累计数量"), false, {},
        [](const Shown& shown) { return shown.words.planType(); } },
    { "instructionType", QT_TRANSLATE_NOOP("PlanColumns", "指令类型"), "港股通交易", false, {},
        [](const Shown& shown) { return shown.words.instructionType(); } },
    { "creation", QT_TRANSLATE_NOOP("PlanColumns", "创建人/时间"), "trader01 0000-00-00 00:00", false,
        PlanOrder::Number, [](const Shown& shown) { return shown.words.creation(); } },
};

} // namespace

bool ListedPlan::operator==(const ListedPlan& other) const
{
    const auto values = [](const PlanProgress& of) {
        return std::make_tuple(
            of.used.quantity, of.used.yuan, of.filledQuantity, of.filledYuan, of.lastDay, of.refusal);
    };
    return plan == other.plan && values(progress) == values(other.progress);
}

QString PlanColumns::name(int column)
{
    return QLatin1String(Definitions[column].name);
}

QString PlanColumns::title(int column)
{
    return QCoreApplication::translate("PlanColumns", Definitions[column].title);
}

QString PlanColumns::sample(int column)
{
    return QCoreApplication::translate("PlanColumns", Definitions[column].sample);
}

bool PlanColumns::isNumber(int column)
{
    return Definitions[column].isNumber;
}

std::optional<PlanOrder> PlanColumns::order(int column)
{
    return Definitions[column].order;
}

QStringList PlanColumns::texts(const ListedPlan& listed, const QDate& today)
{
    const Shown shown{ listed, PlanFormatter(listed.plan), today };
    QStringList texts;
    for (const Definition& column : Definitions)
        texts << column.text(shown);
    return texts;
}

QSizeF PlanColumns::shares(const ListedPlan& listed)
{
    const PlanFormatter words(listed.plan);
    const double total = words.total();
    if (!(total > 0))
        return {};
    const PlanProgress& progress = listed.progress;
    return words.isAmount() ? QSizeF(progress.used.yuan / total, progress.filledYuan / total)
                            : QSizeF(progress.used.quantity / total, progress.filledQuantity / total);
}
