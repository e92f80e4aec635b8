#include "FormState.h"

namespace model {

namespace {

struct Designed {
    const char* name;
    const char* text;
};

/// In the order of the enumeration.
constexpr Designed Form[] = {
    { "combx_fundAccount", "账户名称" },
    { "combx_instructionType", "指令类型" },
    { "combx_instructionTargetType", "指令单类型" },
    { "combx_planType", "计划类型" },
    { "combx_tradeSide", "交易方向" },
    { "combx_priceType", "报价类型" },
    { "combx_entrustType", "委托类别" },
    { "combx_priceMode", "价格模式" },
    { "combx_instructionMode", "下单模式" },
    { "combx_assignTo", "分配给" },
    { "combx_reduceHMode", "减持模式" },
    { "le_targetTotalNum", "目标总量" },
    { "le_entrustMaxNum", "每日最大委托量" },
    { "le_reduceHRatio", "减持占比" },
    { "date_effectivePeriod_Multi", "生效时段" },
    { "date_effectivePeriod_Single", "生效时段" },
    { "le_symbol", "证券代码" },
    { "le_exchange", "市场" },
    { "lineEdit_price1", "价格" },
    { "lineEdit_price2", "价格2" },
    { "le_remark", "备注" },
    { "btn_algoParamSetting", "算法参数设置" },
    { "btn_ok", "确认" },
    { "btn_cancel", "取消" },
    { "la_fundAccountName", "账户名称" },
    { "la_instructType", "指令类型" },
    { "label", "指令单类型" },
    { "la_plainType", "计划类型" },
    { "la_securityId", "证券代码" },
    { "la_symbolName", "TextLabel" },
    { "la_exchange", "市场" },
    { "la_tradeSide", "交易方向" },
    { "la_priceType", "报价类型" },
    { "la_entrustType", "委托类别" },
    { "la_priceMode", "价格模式" },
    { "label_price1", "价格" },
    { "label_27", "元" },
    { "label_price2", "价格2" },
    { "label_28", "元" },
    { "la_targetTotalNum", "目标总量" },
    { "label_targetQtyStep", "" },
    { "lab_targetTotalNumUnit", "股" },
    { "la_entrustMaxNum", "每日最大委托量" },
    { "label_maxEntrustQtyStep", "" },
    { "lab_entrustMaxNumUnit", "股" },
    { "la_reduceHRatio", "减持占比" },
    { "la_orderMode", "下单模式" },
    { "la_assignTo", "分配给" },
    { "la_effectivePeriod", "生效时段" },
    { "la_reduceHMode", "减持模式" },
    { "la_remark", "备注" },
    { "widget_symbol", "" },
    { "widget", "" },
    { "widget_2", "" },
    { "widget_orderMode", "" },
    { "date_widget", "" },
    { "widget_okAndCancel", "" },
    { "widget_up", "" },
    { "widget_down", "" },
};
static_assert(sizeof(Form) / sizeof(Form[0]) == WidgetCount, "every widget has its name");

QString number(double value)
{
    return QString::number(value, 'g', 17);
}

QString readable(const BoxState& box)
{
    QStringList items;
    for (const Item& item : box.items)
        items.append(QStringLiteral("%1(%2)").arg(item.text, item.code));
    const QString chosen = box.current < 0 ? QStringLiteral("none") : box.text();
    return QStringLiteral("%1 out of [%2]").arg(chosen, items.join(QStringLiteral(", ")));
}

QString readable(const NumberState& state)
{
    return QStringLiteral("\"%1\" = %2 with %3 decimals").arg(state.text, number(state.value)).arg(state.decimals);
}

QString readable(const QDate& date)
{
    return date.toString(Qt::ISODate);
}

QString readable(const DateState& state)
{
    QStringList excluded;
    for (const QDate& date : state.excluded)
        excluded.append(readable(date));
    return QStringLiteral("range %1 to %2, date %3, bounds %4 to %5, start %6, without [%7]")
        .arg(readable(state.start), readable(state.end), readable(state.date), readable(state.earliest),
            readable(state.latest), state.startIsFree ? QStringLiteral("free") : QStringLiteral("fixed"),
            excluded.join(QStringLiteral(", ")));
}

QString readable(const WidgetState& state)
{
    return QStringLiteral("%1, %2, \"%3\"")
        .arg(state.shown ? QStringLiteral("shown") : QStringLiteral("hidden"),
            state.enabled ? QStringLiteral("enabled") : QStringLiteral("disabled"), state.text);
}

QString readable(const QStringList& texts)
{
    return QLatin1Char('[') + texts.join(QStringLiteral(", ")) + QLatin1Char(']');
}

QString readable(const QString& text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

template <class Value> void compare(QStringList& found, const char* what, const Value& expected, const Value& got)
{
    if (!(expected == got))
        found.append(QStringLiteral("%1: expected %2, got %3")
                         .arg(QString::fromLatin1(what), readable(expected), readable(got)));
}

} // namespace

QString nameOf(Widget widget)
{
    return QString::fromLatin1(Form[widget].name);
}

QString captionOf(Widget widget)
{
    return QString::fromUtf8(Form[widget].text);
}

bool WidgetState::operator==(const WidgetState& other) const
{
    return shown == other.shown && enabled == other.enabled && text == other.text;
}

bool NumberState::operator==(const NumberState& other) const
{
    return number(value) == number(other.value) && decimals == other.decimals && text == other.text;
}

bool DateState::operator==(const DateState& other) const
{
    return start == other.start && end == other.end && date == other.date && earliest == other.earliest
        && latest == other.latest && startIsFree == other.startIsFree && excluded == other.excluded;
}

FormState designedForm()
{
    FormState form;
    for (int i = AlgoButton; i < SymbolPlace; ++i)
        form.widgets.at(static_cast<std::size_t>(i)).text = QString::fromUtf8(Form[i].text);
    for (NumberState& state : form.numbers)
        state.text = QStringLiteral("0.00");
    return form;
}

QStringList differences(const FormState& expected, const FormState& found)
{
    QStringList different;
    for (std::size_t i = 0; i < WidgetCount; ++i)
        compare(different, Form[i].name, expected.widgets.at(i), found.widgets.at(i));
    for (std::size_t i = 0; i < BoxCount; ++i)
        compare(different, Form[i].name, expected.boxes.at(i), found.boxes.at(i));
    for (std::size_t i = 0; i < NumberCount; ++i)
        compare(different, Form[TargetTotal + i].name, expected.numbers.at(i), found.numbers.at(i));
    compare(different, Form[Range].name, expected.range, found.range);
    compare(different, Form[Single].name, expected.single, found.single);
    compare(different, "functions offered in lineEdit_price1", expected.functions1, found.functions1);
    compare(different, "functions offered in lineEdit_price2", expected.functions2, found.functions2);
    compare(different, "names offered in lineEdit_price1", expected.names1, found.names1);
    compare(different, "names offered in lineEdit_price2", expected.names2, found.names2);
    compare(different, "chosen security", expected.symbol, found.symbol);
    return different;
}

} // namespace model
