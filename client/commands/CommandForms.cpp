#include "CommandForms.h"

namespace {

const QString Database = QStringLiteral("database");
const QString Day = QStringLiteral("day");
const QString Securities = QStringLiteral("securities");

QMap<QString, CommandForm> ordinaryForms()
{
    const QString file = CommandTexts::tr("文件");
    return {
        { QStringLiteral("backup"), { file, 1, 1, { Database }, CommandTexts::tr("把数据库备份到新文件") } },
        { checkStrategiesCommand(),
            { CommandTexts::tr("文件..."), 1, -1, { Flag::Json }, CommandTexts::tr("检查FIXatdl策略文件") } },
        { QStringLiteral("history"),
            { CommandTexts::tr("计划编号"), 1, 1, { Database, Flag::Json, QStringLiteral("user") },
                CommandTexts::tr("列出计划的历史") } },
        { QStringLiteral("journal"),
            { QString(), 0, 0, { Database, Day, Flag::Json, QStringLiteral("user") },
                CommandTexts::tr("列出今天或--day的日期的日志") } },
        { QStringLiteral("move-to"),
            { CommandTexts::tr("数据库地址"), 1, 1, { Database }, CommandTexts::tr("把文件的内容搬到服务器") } },
        { QStringLiteral("import"),
            { CommandTexts::tr("类别 文件..."), 2, -1,
                { Database, QStringLiteral("user"), Flag::Replace, Flag::DryRun, Flag::Yes, Flag::Json, Flag::Empty,
                    QStringLiteral("template"), Flag::LeaveOut, QStringLiteral("strategies") },
                CommandTexts::tr("导入证券、收盘价、账户、用户、审批链、持仓、休市日或计划") } },
        { QStringLiteral("export"),
            { CommandTexts::tr("类别 [文件]"), 1, 2, { Database, Day, QStringLiteral("user"), Flag::Json },
                CommandTexts::tr("把一类内容导出为CSV、XLSX或JSON") } },
        { QStringLiteral("import-closures"), { file, 1, 1, {}, CommandTexts::tr("导入休市表，延长交易日历") } },
    };
}

QMap<QString, CommandForm> adminForms()
{
    return {
        { QStringLiteral("init"),
            { QString(), 0, 0, { Database, Flag::Sample, Securities }, CommandTexts::tr("在服务器的数据库中建表") } },
        { QStringLiteral("migrate"), { QString(), 0, 0, { Database }, CommandTexts::tr("升级服务器的数据库") } },
        { QStringLiteral("add-user"),
            { CommandTexts::tr("用户编号 姓名"), 2, 2, { Database, Flag::PasswordFromInput, Flag::GeneratePassword },
                CommandTexts::tr("新建用户和登录角色") } },
        { QStringLiteral("grant"),
            { CommandTexts::tr("用户编号 账户 指令类型..."), 3, -1, { Database, Flag::Review },
                CommandTexts::tr("分配账户和指令类型") } },
        { QStringLiteral("revoke"),
            { CommandTexts::tr("用户编号 [账户 [指令类型...]]"), 1, -1, { Database },
                CommandTexts::tr("停用用户，或收回账户或指令类型") } },
        { QStringLiteral("add-account"),
            { CommandTexts::tr("账户 [名称=取值...]"), 1, -1, { Database }, CommandTexts::tr("新建或修改账户") } },
        { QStringLiteral("set-chain"),
            { CommandTexts::tr("账户 指令类型 名称=姓名,..."), 3, -1, { Database },
                CommandTexts::tr("设置执行人和复核人") } },
        { QStringLiteral("set-cash"),
            { CommandTexts::tr("账户 元|unknown"), 2, 2, { Database }, CommandTexts::tr("设置可用资金") } },
        { QStringLiteral("set-limits"),
            { CommandTexts::tr("账户|usual 名称=取值..."), 2, -1, { Database }, CommandTexts::tr("设置限额") } },
        { QStringLiteral("list"),
            { QString(), 0, 0, { Database, Flag::Json }, CommandTexts::tr("列出用户、权限、账户和限额") } },
    };
}

} // namespace

QMap<QString, CommandForm> commandForms()
{
    QMap<QString, CommandForm> forms = ordinaryForms();
    const QMap<QString, CommandForm> admin = adminForms();
    for (auto form = admin.cbegin(); form != admin.cend(); ++form)
        forms.insert(adminCommand() + QLatin1Char(' ') + form.key(), form.value());
    return forms;
}

QString checkStrategiesCommand()
{
    return QStringLiteral("check-strategies");
}

QString adminCommand()
{
    return QStringLiteral("admin");
}

QStringList adminNames()
{
    return adminForms().keys();
}

QStringList commandsWith(const QString& option)
{
    QStringList names;
    const QMap<QString, CommandForm> forms = commandForms();
    for (auto form = forms.cbegin(); form != forms.cend(); ++form) {
        if (form->options.contains(option))
            names << form.key();
    }
    return names;
}

Command commandOf(const QStringList& words)
{
    const int length = words.value(0) == adminCommand() ? 2 : 1;
    return { words.mid(0, length).join(QLatin1Char(' ')), words.mid(length) };
}

QString commandsText()
{
    QStringList lines;
    const QMap<QString, CommandForm> forms = commandForms();
    for (auto form = forms.cbegin(); form != forms.cend(); ++form) {
        const QString command = QStringLiteral("%1 %2").arg(form.key(), form->arguments).trimmed();
        lines << CommandTexts::tr("%1：%2").arg(command, form->purpose);
    }
    return lines.join(CommandTexts::tr("；\n"));
}
