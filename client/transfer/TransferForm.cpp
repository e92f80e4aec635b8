#include "TransferForm.h"

#include "Kelvo_Values.h"
#include "Language.h"
#include "Orlo_Values.h"

#include <QCoreApplication>

namespace {

using Column = TransferForm::Column;

Column text(const char* id, const char* caption)
{
    return { QString::fromLatin1(id), QString::fromUtf8(caption), CellType::Text, false };
}

Column code(const char* id, const char* caption)
{
    return { QString::fromLatin1(id), QString::fromUtf8(caption), CellType::Code, false };
}

Column needed(const char* id, const char* caption, CellType type = CellType::Text)
{
    return { QString::fromLatin1(id), QString::fromUtf8(caption), type, true };
}

Column neededCode(const char* id, const char* caption)
{
    return needed(id, caption, CellType::Code);
}

Column number(const char* id, const char* caption)
{
    return { QString::fromLatin1(id), QString::fromUtf8(caption), CellType::Number, false };
}

Column day(const char* id, const char* caption)
{
    return { QString::fromLatin1(id), QString::fromUtf8(caption), CellType::Date, false };
}

Column named(Column column, const char* others)
{
    column.others = QString::fromUtf8(others).split(QLatin1Char(' '));
    return column;
}

Column symbol()
{
    return named(neededCode("symbol", "证券代码"), "代码 code");
}

Column securityAccount(const QString& exchange, const char* caption)
{
    return { exchange, QString::fromUtf8(caption), CellType::Code, false };
}

} // namespace

QString TransferForm::Column::name() const
{
    return languageInUse() == languageCodes().constFirst() ? caption : id;
}

QString TransferForm::name() const
{
    return QCoreApplication::translate("TransferForm", caption);
}

int TransferForm::columnNamed(const QString& name) const
{
    for (int i = 0; i < columns.size(); ++i) {
        const Column& column = columns.at(i);
        if (name == column.caption || name.compare(column.id, Qt::CaseInsensitive) == 0
            || column.others.contains(name, Qt::CaseInsensitive))
            return i;
    }
    return -1;
}

QVector<TableColumn> TransferForm::tableColumns() const
{
    QVector<TableColumn> all;
    for (const Column& column : columns)
        all << TableColumn{ column.id, column.caption, column.type };
    return all;
}

const TransferForm& TransferForms::closures()
{
    static const TransferForm form{ QStringLiteral("closures"), QT_TRANSLATE_NOOP("TransferForm", "休市日"),
        { neededCode("market", "市场"), needed("date", "日期", CellType::Date), needed("holiday", "节日"),
            neededCode("status", "状态") } };
    return form;
}

const TransferForm& TransferForms::securities()
{
    static const TransferForm form{ QStringLiteral("securities"), QT_TRANSLATE_NOOP("TransferForm", "证券"),
        { symbol(), named(needed("name", "证券名称"), "名称 简称 证券简称"),
            named(neededCode("type", "证券类别"), "类别"), named(neededCode("sub-type", "证券子类"), "子类 板块 board"),
            named(needed("decimals", "价格小数位", CellType::Number), "小数位"),
            named(needed("factor", "数量系数", CellType::Number), "系数"),
            named(needed("step", "数量步长", CellType::Number), "步长 每手 lot"),
            named(neededCode("limit", "涨跌幅"), "涨跌幅限制"), code("flag", "特别处理"),
            text("flag-text", "特别处理说明") } };
    return form;
}

const TransferForm& TransferForms::closes()
{
    static const TransferForm form{ QStringLiteral("closes"), QT_TRANSLATE_NOOP("TransferForm", "收盘价"),
        { symbol(), named(needed("date", "日期", CellType::Date), "交易日 day"),
            named(needed("close", "收盘价", CellType::Number), "收盘 price") } };
    return form;
}

const TransferForm& TransferForms::accounts()
{
    static const TransferForm form{ QStringLiteral("accounts"), QT_TRANSLATE_NOOP("TransferForm", "账户"),
        { named(neededCode("account", "账户"), "交易账户"), text("name", "名称"), code("fund", "资金账号"),
            code("client", "客户号"), code("branch", "营业部"), code("asset", "资产属性"),
            securityAccount(Kelvo_Values::Exchange::sh, "上海证券账户"),
            securityAccount(Kelvo_Values::Exchange::sz, "深圳证券账户"),
            securityAccount(Orlo_Values::Exchange::bj, "北京证券账户"),
            securityAccount(Orlo_Values::Exchange::HkStockCirculation, "港股通证券账户") } };
    return form;
}

const TransferForm& TransferForms::users()
{
    static const TransferForm form{ QStringLiteral("users"), QT_TRANSLATE_NOOP("TransferForm", "用户和权限"),
        { named(neededCode("user", "用户编号"), "用户 id"), needed("name", "姓名"),
            named(code("account", "账户"), "交易账户"), code("types", "指令类型"),
            named(code("review", "复核"), "须复核") } };
    return form;
}

const TransferForm& TransferForms::chains()
{
    static const TransferForm form{ QStringLiteral("chains"), QT_TRANSLATE_NOOP("TransferForm", "审批链"),
        { named(neededCode("account", "账户"), "交易账户"), neededCode("instruction-type", "指令类型"),
            text("executors", "执行人"), text("reviewers", "复核人") } };
    return form;
}

const TransferForm& TransferForms::positions()
{
    static const TransferForm form{ QStringLiteral("positions"), QT_TRANSLATE_NOOP("TransferForm", "持仓"),
        { named(neededCode("account", "账户"), "交易账户"), symbol(), code("security-account", "证券账户"),
            named(needed("quantity", "持仓数量", CellType::Number), "持仓 数量"),
            named(needed("tradeable", "可卖数量", CellType::Number), "可卖 可用数量") } };
    return form;
}

const TransferForm& TransferForms::plans()
{
    static const TransferForm form{ QStringLiteral("plans"), QT_TRANSLATE_NOOP("TransferForm", "计划"),
        { named(code("plan", "计划编号"), "编号 reference"), number("version", "版本"), code("created", "创建时间"),
            code("state", "状态"), named(neededCode("account", "账户"), "交易账户"),
            neededCode("instruction-type", "指令类型"), neededCode("plan-type", "计划类型"), symbol(),
            named(neededCode("side", "交易方向"), "方向 买卖"), code("price-mode", "价格模式"),
            named(code("price", "价格"), "价格1 price1"), code("price2", "价格2"),
            named(number("quantity", "目标总量"), "数量 目标数量"), named(number("amount", "目标金额"), "金额"),
            named(number("daily", "每日最大委托量"), "每日计划量 每日数量"), number("daily-amount", "每日最大金额"),
            text("ratio", "减持占比"), named(needed("begin", "开始日期", CellType::Date), "开始"),
            named(day("end", "结束日期"), "结束"), code("mode", "下单模式"), text("assignee", "分配给"),
            text("executor", "执行人"), code("price-type", "报价类型"), code("entrust-type", "委托类别"),
            text("algorithm", "算法"), text("parameters", "算法参数"), text("remark", "备注") } };
    return form;
}

const TransferForm& TransferForms::planSheet()
{
    static const TransferForm form = [] {
        TransferForm sheet = plans();
        for (int i = 0; i < sheet.columns.size(); ++i)
            sheet.columns[i].isRequired = i == PlanColumn::Symbol;
        return sheet;
    }();
    return form;
}

QVector<TransferForm> TransferForms::importable()
{
    return { closures(), securities(), closes(), accounts(), users(), chains(), positions(), plans() };
}

const TransferForm& TransferForms::instructions()
{
    static const TransferForm form{ QStringLiteral("instructions"), QT_TRANSLATE_NOOP("TransferForm", "指令"),
        { text("instruction", "指令编号"), text("plan", "计划编号"), day("date", "日期"), text("account", "账户"),
            symbol(), text("side", "交易方向"), text("price", "价格"), number("quantity", "委托数量"),
            number("filled", "成交数量"), number("amount", "委托金额"), number("filled-amount", "成交金额"),
            text("ended", "已结束") } };
    return form;
}

const TransferForm& TransferForms::history()
{
    static const TransferForm form{ QStringLiteral("history"), QT_TRANSLATE_NOOP("TransferForm", "历史"),
        { text("time", "时间"), text("user", "用户"), text("client", "客户端"), text("plan", "计划编号"),
            number("version", "版本"), text("event", "事件"), text("subject", "对象"), text("before", "之前"),
            text("after", "之后") } };
    return form;
}

const TransferForm& TransferForms::journal()
{
    static const TransferForm form{ QStringLiteral("journal"), QT_TRANSLATE_NOOP("TransferForm", "日志"),
        { day("date", "日期"), text("time", "时间"), text("plan", "计划编号"), text("account", "账户"), symbol(),
            text("side", "交易方向"), text("event", "事项"), text("text", "内容"), text("user", "用户") } };
    return form;
}

QVector<TransferForm> TransferForms::exportable()
{
    return { closures(), securities(), closes(), accounts(), users(), chains(), positions(), plans(), instructions(),
        history(), journal() };
}
