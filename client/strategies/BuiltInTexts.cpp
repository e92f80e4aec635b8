#include "BuiltInTexts.h"

#include <QCoreApplication>

namespace {

const char* const Context = "BuiltInTexts";

/// The texts of the files, which the tool that collects texts does not read.
[[maybe_unused]] const char* const Texts[] = {
    QT_TRANSLATE_NOOP("BuiltInTexts", "时间加权"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "成交量加权"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "比例跟量"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "冰山"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "狙击"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "在开始与结束时间之间，按相等的时间间隔分批下单。"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "按历史成交量分布安排各时段的下单数量，使成交均价接近市场均价。"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "按同期市场成交量的一定比例跟随下单。"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "每次只显示一小部分数量，成交后再补单。"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "不主动挂单，对手盘出现合适的数量和价格时立即吃单。"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "开始时间须早于结束时间！"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "目标参与率不得大于最大参与率！"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "执行时段"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "执行约束"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "显示"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "触发"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "价格"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "开始时间"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "结束时间"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "下单间隔"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "补单等待"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "最大参与率"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "目标参与率"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "最大价格偏离"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "收盘前完成剩余数量"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "积极程度"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "成交量分布"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "显示数量"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "显示数量浮动"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "触发数量"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "吃单比例"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "最差价格"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "委托价偏移"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "交易员备注"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "秒"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "股"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "元"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "档"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "低"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "中"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "高"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "近5个交易日"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "近20个交易日"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "近60个交易日"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "成交量占同期市场成交量的上限"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "委托价相对开始时刻最新价的最大不利偏离"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "相对同方向最优价，正数更积极"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "对手方最优价上的数量达到此数时出手"),
    QT_TRANSLATE_NOOP("BuiltInTexts", "不填则只受计划的限价约束"),
};

void translate(QString& text)
{
    if (!text.isEmpty())
        text = QCoreApplication::translate(Context, text.toUtf8().constData());
}

} // namespace

void translateBuiltIn(StrategyDefinition& strategy)
{
    translate(strategy.alias);
    translate(strategy.description);
    for (StrategyPanel& panel : strategy.panels)
        translate(panel.title);
    for (StrategyRule& rule : strategy.rules)
        translate(rule.message);
    for (StrategyControl& control : strategy.controls) {
        for (QString* const text : { &control.label, &control.unit, &control.tooltip, &control.helpText })
            translate(*text);
        for (EnumeratedValue& item : control.items)
            translate(item.text);
    }
}
