#include "Options.h"

#include "Appearance.h"
#include "ClientClock.h"
#include "CommandForms.h"
#include "ErrorText.h"
#include "Language.h"
#include "OrloConstants.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QHash>
#include <QLocale>
#include <QTranslator>

namespace {

const QString LanguageOption = QStringLiteral("language");

/// Qt's own texts about command lines, in Chinese.
class ParserTexts : public QTranslator {
public:
    bool isEmpty() const override { return false; }

    QString translate(const char* context, const char* source, const char*, int) const override
    {
        static const QHash<QByteArray, QString> texts{
            { "Usage: %1", QStringLiteral("用法：%1") },
            { "[options]", QStringLiteral("[选项]") },
            { "Arguments:", QStringLiteral("参数：") },
            { "Options:", QStringLiteral("选项：") },
            { "Unknown option '%1'.", QStringLiteral("未知选项：%1") },
            { "Unknown options: %1.", QStringLiteral("未知选项：%1") },
            { "Missing value after '%1'.", QStringLiteral("选项%1缺少取值") },
            { "Unexpected value after '%1'.", QStringLiteral("选项%1不带取值") },
        };
        return qstrcmp(context, "QCommandLineParser") == 0 ? texts.value(source) : QString();
    }
};

class CommandLine {
    Q_DECLARE_TR_FUNCTIONS(CommandLine)

public:
    explicit CommandLine(Program program)
        : m_program(program)
    {
        m_parser.addOptions({ m_help, m_user, m_database, m_skin, m_language, m_securities });
        if (m_program == Program::Client) {
            m_parser.setApplicationDescription(tr("交易计划客户端：新建、修改、复制自动交易计划。"));
            m_parser.addOptions({ m_issueDay, m_day, m_strategies, m_template });
            m_parser.addOptions(m_flags);
            m_parser.addPositionalArgument(tr("命令"), commandsText(), tr("[命令 参数]"));
        } else {
            m_parser.setApplicationDescription(
                tr("自动演示：逐项填写并提交计划，核对数据库中的记录，把各步的图片写入该目录。"));
            m_parser.addPositionalArgument(tr("目录"), tr("写入图片和数据库的目录。"));
        }
    }

    Result<Options> read(const QStringList& arguments)
    {
        if (!m_parser.parse(arguments))
            return { Error::MalformedCommandLine, { m_parser.errorText() } };
        Options options;
        if (m_parser.isSet(m_help)) {
            options.help = m_parser.helpText();
            return options;
        }
        if (Status status = check(); !status)
            return status;
        take(options);
        return options;
    }

private:
    Status check() const
    {
        if (Status status = m_program == Program::Client ? checkCommand() : checkFolder(); !status)
            return status;
        const QStringList options = m_parser.optionNames();
        for (const QString& name : options) {
            if (!flagNames().contains(name) && m_parser.value(name).trimmed().isEmpty())
                return { Error::OptionWithoutValue, { name } };
        }
        return checkValues();
    }

    /// The names of the options without a value.
    QStringList flagNames() const
    {
        QStringList names;
        for (const QCommandLineOption& flag : m_flags)
            names += flag.names();
        return names;
    }

    Status checkFolder() const
    {
        const QStringList folders = m_parser.positionalArguments();
        if (folders.size() > 1)
            return { Error::ExtraArgument, { folders.at(1) } };
        return folders.value(0).isEmpty() ? Error::NoFolder : Status();
    }

    Status checkCommand() const
    {
        const QStringList words = m_parser.positionalArguments();
        if (words.isEmpty())
            return checkFlags();
        const Command given = commandOf(words);
        const QMap<QString, CommandForm> forms = commandForms();
        const auto form = forms.constFind(given.name);
        if (words == QStringList(adminCommand()))
            return { Error::CommandWithoutArgument, { adminCommand(), adminNames().join(QLatin1Char('|')) } };
        if (form == forms.cend())
            return { Error::ExtraArgument, { given.name.section(QLatin1Char(' '), -1) } };
        if (form->most >= 0 && given.arguments.size() > form->most)
            return { Error::ExtraArgument, { given.arguments.at(form->most) } };
        if (given.arguments.size() < form->fewest || given.arguments.contains(QString()))
            return { Error::CommandWithoutArgument, { given.name, form->arguments } };
        return checkOptionsOf(given.name, form->options);
    }

    Status checkOptionsOf(const QString& command, const QStringList& options) const
    {
        const QStringList names = m_parser.optionNames();
        for (const QString& name : names) {
            if (!options.contains(name) && !m_language.names().contains(name))
                return { Error::OptionNotOfCommand, { name, command } };
        }
        return {};
    }

    /// The options that belong to commands only.
    Status checkFlags() const
    {
        const QStringList names = m_parser.optionNames();
        for (const QString& name : names) {
            const bool isOfCommands = m_day.names().contains(name) || m_template.names().contains(name);
            if (isOfCommands || (flagNames().contains(name) && !isOfProgram(name)))
                return { Error::OptionOfCommand, { name, listText(ownersOf(name)) } };
        }
        return {};
    }

    bool isOfProgram(const QString& flag) const
    {
        const bool isPreview = m_parser.isSet(Flag::IssuePreview);
        if (flag == Flag::Empty)
            return !isIssueSet();
        return flag == Flag::IssuePreview || (flag == Flag::Simulate && isIssueSet())
            || (flag == Flag::Json && isPreview);
    }

    /// What has a flag: commands, and options that issue a day.
    QStringList ownersOf(const QString& flag) const
    {
        QStringList owners = commandsWith(flag);
        if (flag == Flag::Simulate)
            owners << QStringLiteral("--issue-day");
        if (flag == Flag::Simulate || flag == Flag::Json)
            owners << QStringLiteral("--issue-preview");
        return owners;
    }

    Status checkValues() const
    {
        if (m_parser.isSet(m_skin) && !skinNames().contains(m_parser.value(m_skin)))
            return { Error::UnknownSkin, { m_parser.value(m_skin), listText(skinNames()) } };
        if (m_parser.isSet(m_language) && !languageCodes().contains(m_parser.value(m_language)))
            return { Error::UnknownLanguage, { m_parser.value(m_language), listText(languageCodes()) } };
        bool isNumber = false;
        const int securities = m_parser.value(m_securities).toInt(&isNumber);
        if (m_parser.isSet(m_securities) && (!isNumber || securities <= 0))
            return { Error::NotPositiveWhole,
                { QStringLiteral(QT_TRANSLATE_NOOP("Caption", "证券数量")), m_parser.value(m_securities) } };
        if (!strategies().isEmpty() && !QFileInfo(strategies()).isDir())
            return { Error::NoStrategyFolder, { strategies() } };
        for (const QCommandLineOption& day : { m_issueDay, m_day }) {
            if (isSet(day) && !dayOf(day).isValid())
                return { Error::MalformedDay, { m_parser.value(day) } };
        }
        return {};
    }

    void take(Options& options) const
    {
        options.user = m_parser.value(m_user);
        options.database = m_parser.value(m_database);
        options.skin = m_parser.isSet(m_skin) ? m_parser.value(m_skin) : usualSkin();
        options.strategies = strategies();
        options.securities = m_parser.value(m_securities).toInt();
        const QStringList arguments = m_parser.positionalArguments();
        if (m_program == Program::Client) {
            const Command given = commandOf(arguments);
            options.command = given.name;
            options.arguments = given.arguments;
            options.templatePlan = m_parser.value(m_template);
            for (const QString& name : flagNames()) {
                if (m_parser.isSet(name))
                    options.flags.insert(name);
            }
        } else {
            options.folder = arguments.value(0);
        }
        if (isIssueSet())
            options.issueDay = isSet(m_issueDay) ? dayOf(m_issueDay) : clientToday();
        if (isSet(m_day))
            options.day = dayOf(m_day);
    }

    /// The one that the user has switched to; pictures of the walk-through do not depend on it.
    QString usualSkin() const { return m_program == Program::Client ? rememberedSkin() : skinNames().constFirst(); }

    bool isIssueSet() const
    {
        return isSet(m_issueDay) || (m_program == Program::Client && m_parser.isSet(Flag::IssuePreview));
    }

    // Qt warns about queries for options that the program does not have.
    QString strategies() const { return m_program == Program::Client ? m_parser.value(m_strategies) : QString(); }

    bool isSet(const QCommandLineOption& option) const
    {
        return m_program == Program::Client && m_parser.isSet(option);
    }

    QDate dayOf(const QCommandLineOption& option) const
    {
        return QLocale::c().toDate(m_parser.value(option), OrloConstants::DateTimeFormatString::STD_DATE_FORMAT);
    }

    const Program m_program;
    const QCommandLineOption m_help{ { QStringLiteral("h"), QStringLiteral("help") }, tr("显示本说明并退出。") };
    const QCommandLineOption m_user{ QStringLiteral("user"), tr("登录的用户编号，默认为示例数据的第一个用户。"),
        tr("用户") };
    const QCommandLineOption m_database{ QStringLiteral("database"),
        tr("数据库文件，不存在时新建并写入示例数据，默认在用户的数据目录中；或服务器上数据库的地址。"), tr("文件") };
    const QCommandLineOption m_skin{ QStringLiteral("skin"), tr("皮肤：light（默认）或dark。"), tr("皮肤") };
    const QCommandLineOption m_language{ LanguageOption, tr("语言：zh（默认）或en；数据和其中的名称仍为中文。"),
        tr("语言") };
    const QCommandLineOption m_securities{ QStringLiteral("securities"), tr("新建数据库时示例证券的数量，例如100000。"),
        tr("数量") };
    const QCommandLineOption m_strategies{ QStringLiteral("strategies"),
        tr("FIXatdl策略文件（*.xml）所在的文件夹，文件变化后自动重新读取。"), tr("文件夹") };
    const QCommandLineOption m_issueDay{ QStringLiteral("issue-day"),
        tr("为今天（yyyy-MM-dd）有效的计划下达指令，列出结果并退出；其他日期须加--simulate。"), tr("日期") };
    const QCommandLineOption m_day{ QStringLiteral("day"),
        tr("命令journal和export journal的日期（yyyy-MM-dd），默认为今天。"), tr("日期") };
    const QCommandLineOption m_template{ QStringLiteral("template"),
        tr("import plans中没有的列取自该计划，每行生成一个计划。"), tr("计划编号") };
    const QList<QCommandLineOption> m_flags{
        { Flag::IssuePreview, tr("列出今天或--issue-day的日期会下达的指令并退出，不下达。") },
        { Flag::Simulate, tr("下达或预览时不限于今天和市场的委托时间。") },
        { Flag::Json,
            tr("以JSON输出命令history、journal、check-strategies、import、export、admin "
               "list和--issue-preview的结果。") },
        { Flag::Replace, tr("import删除文件中没有的内容，先列出并询问。") },
        { Flag::DryRun, tr("import只检查并列出会发生的变化，不保存。") },
        { Flag::Yes, tr("import --replace不再询问。") },
        { Flag::LeaveOut, tr("import plans --template略去有错误的行，导入其余各行。") },
        { Flag::Empty, tr("新建的数据库不写入示例数据。") },
        { Flag::Sample, tr("admin init写入示例数据。") },
        { Flag::Review, tr("admin grant的指令须经复核。") },
        { Flag::PasswordFromInput, tr("admin add-user从标准输入的第一行读取密码。") },
        { Flag::GeneratePassword, tr("admin add-user为新用户生成密码并显示。") },
    };
    QCommandLineParser m_parser;
};

} // namespace

QString languageIn(const QStringList& arguments)
{
    QCommandLineParser parser;
    const QCommandLineOption language(LanguageOption, QString(), QStringLiteral("code"));
    parser.addOption(language);
    // Other options are unknown here, which does not matter.
    parser.parse(arguments);
    const QString code = parser.value(language);
    return languageCodes().contains(code) ? code : languageCodes().constFirst();
}

Result<Options> readOptions(const QStringList& arguments, Program program)
{
    ParserTexts texts;
    if (languageIn(arguments) == languageCodes().constFirst())
        QCoreApplication::installTranslator(&texts);
    return CommandLine(program).read(arguments);
}
