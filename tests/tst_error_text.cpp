#include "TestStatus.h"

#include <QtTest>

namespace {

void addRow(const char* sentence, const Status& status)
{
    QTest::newRow(sentence) << status << QString::fromUtf8(sentence);
}

void addDatabaseRows()
{
    addRow("数据库未打开", Error::DatabaseNotOpen);
    addRow("数据库正被其他程序或一次导入占用，请稍后再试", Error::DatabaseBusy);
    addRow("数据库文件只读，无法写入", Error::DatabaseReadOnly);
    addRow("数据库文件已损坏", Error::DatabaseCorrupt);
    addRow("磁盘空间不足，无法写入数据库", Error::DiskFull);
    addRow("该文件不是数据库文件", Error::NotADatabase);
    addRow("读写数据库文件出错（代码10）", { Error::DiskFailed, { QStringLiteral("10") } });
    addRow(
        "数据库文件已被删除、替换、覆盖、移动或链接，不能继续使用，请核对文件后重新启动", Error::DatabaseFileChanged);
    addRow("数据库事务已中止，内容未保存", Error::TransactionEnded);
    addRow("数据库的编号已用尽，无法新建", Error::NumbersExhausted);
    addRow("数据库的内容过大，无法读写", Error::ContentTooLarge);
    addRow("数据库操作失败：no such table", { Error::DatabaseFailed, { QStringLiteral("no such table") } });
    addRow("无法打开数据库“a.db”：该路径是文件夹",
        { Error::CannotOpenDatabase, { QStringLiteral("a.db") }, Error::DatabaseIsFolder });
    addRow("未指定数据库文件", Error::NoDatabaseFile);
    addRow("该路径是文件夹", Error::DatabaseIsFolder);
    addRow("无法创建所在文件夹", Error::CannotCreateFolder);
    addRow("该文件属于其他程序", Error::ForeignDatabase);
    addRow("数据库版本99高于本程序支持的版本3，请升级程序",
        { Error::NewerDatabase, { QStringLiteral("99"), QStringLiteral("3") } });
    addRow("数据库无法启用预写日志", Error::NoWriteAheadLog);
    addRow("数据库所在的文件夹不可写，无法建立预写日志", Error::FolderNotWritable);
    addRow("升级数据库失败，磁盘空间不足，无法写入数据库", { Error::MigrationFailed, {}, Error::DiskFull });
    addRow(
        "数据库含有来历不明的触发器“t”", { Error::UnknownObject, { QStringLiteral("触发器"), QStringLiteral("t") } });
    addRow("数据库的表“plans”被改动过", { Error::ChangedObject, { QStringLiteral("表"), QStringLiteral("plans") } });
    addRow("数据库缺少表“plans”", { Error::MissingObject, { QStringLiteral("表"), QStringLiteral("plans") } });
    addRow("检查数据库超过60秒", { Error::InspectionTooLong, { QStringLiteral("60") } });
    addRow("数据库文件超过64 GiB", { Error::DatabaseTooLarge, { QStringLiteral("64") } });
}

void addServerRows()
{
    addRow("数据库地址不正确，应为postgresql://用户@主机:端口/库名或service=服务名", Error::MalformedLocation);
    addRow("数据库地址中不能写密码，请改用密码文件、服务文件或环境变量", Error::PasswordInLocation);
    addRow("没有安装Qt的PostgreSQL驱动（QPSQL），无法连接数据库服务器", Error::NoServerDriver);
    addRow("无法连接数据库服务器（refused）", { Error::NoConnection, { QStringLiteral("refused") } });
    addRow("与数据库服务器的连接已断开", Error::ConnectionLost);
    addRow("内容正在被其他人修改，请稍后再试", Error::LockedByOthers);
    addRow("数据库服务器未能及时完成操作，请稍后再试", Error::ServerTooSlow);
    addRow("相同的内容已经保存", Error::AlreadyStored);
    addRow("该数据库尚未初始化，请由管理员运行plandesk admin init", Error::ServerNotSetUp);
    addRow("数据库版本1低于本程序要求的版本2，请由管理员运行plandesk admin migrate",
        { Error::OlderDatabase, { QStringLiteral("1"), QStringLiteral("2") } });
    addRow("数据库服务器拒绝了该操作，当前用户没有权限", Error::NotPermitted);
    addRow("在数据库服务器上，登录的角色“u”就是用户，不能另行指定用户", { Error::UserIsRole, { QStringLiteral("u") } });
    addRow("数据库在服务器上，请由管理员备份", Error::BackupOfServer);
    addRow("管理命令只用于服务器上的数据库，请用--database指定它的地址", Error::AdminNeedsServer);
    addRow("角色“u”不是该数据库的管理员", { Error::NotAdministrator, { QStringLiteral("u") } });
    addRow("角色“u”没有CREATEROLE属性，不能建立或停用登录角色", { Error::MayNotManageRoles, { QStringLiteral("u") } });
    addRow("用户编号“pg_x”不能作为登录角色，须为1到63字节，不以pg_开头，首尾没有空格，不含控制字符",
        { Error::UnusableUserId, { QStringLiteral("pg_x") } });
    addRow("角色“u”在服务器上有管理权限，不能作为用户", { Error::RoleWithPowers, { QStringLiteral("u") } });
    addRow("用户“u”已存在，姓名为“林岫”", { Error::UserHasOtherName, { QStringLiteral("u"), QStringLiteral("林岫") } });
    addRow("姓名“林岫”属于用户“u”，计划按姓名分配，姓名不能相同",
        { Error::NameOfOtherUser, { QStringLiteral("林岫"), QStringLiteral("u") } });
    addRow("姓名为空，或首尾有空格，或含控制字符", { Error::EmptyText, { QStringLiteral("姓名") } });
    addRow("标准输入的第一行没有密码", Error::NoPassword);
    addRow("新账户“1”缺少资金账号", { Error::AccountIncomplete, { QStringLiteral("1"), QStringLiteral("资金账号") } });
    addRow("“a”不是可用的“名称=取值”，名称有：fund",
        { Error::MalformedItem, { QStringLiteral("a"), QStringLiteral("fund") } });
    addRow("命令move-to搬移文件的内容，--database应是文件", Error::MoveOfServer);
    addRow("命令move-to的参数应是服务器上的数据库地址", Error::MoveToFile);
    addRow("表plans不能搬移，没有保存任何内容：磁盘空间不足，无法写入数据库",
        { Error::TableNotMoved, { QStringLiteral("plans") }, Error::DiskFull });
    addRow("服务器的数据库已有其他内容，没有搬移：表plans多出一行",
        { Error::OtherDataOnServer, { QStringLiteral("plans"), QStringLiteral("多出一行") } });
    addRow("核对不一致，没有保存任何内容：表plans多出一行",
        { Error::MovedRowsDiffer, { QStringLiteral("plans"), QStringLiteral("多出一行") } });
    addRow("无法确认是否已保存（与数据库服务器的连接已断开），请再运行一次，已保存时只核对",
        { Error::MoveOutcomeUnknown, {}, Error::ConnectionLost });
    addRow("搬移中断（与数据库服务器的连接已断开），服务器上没有变化，可以再运行一次",
        { Error::MoveInterrupted, {}, Error::ConnectionLost });
    addRow("最大数量不能大于5", { Error::LimitTooLarge, { QStringLiteral("最大数量"), QStringLiteral("5") } });
    addRow("数据库服务器只读（例如是备用服务器），无法写入", Error::ServerReadOnly);
    addRow("协议“p”没有内容，不能签署", { Error::EmptyAgreement, { QStringLiteral("p") } });
}

void addSampleRows()
{
    addRow("样本市场的证券数量须在200到9000之间",
        { Error::MarketSizeOutOfRange, { QStringLiteral("200"), QStringLiteral("9000") } });
    addRow("样本市场缺少最后一个收盘日", Error::NoLastClose);
    addRow("样本市场的生成已取消", Error::SampleCancelled);
    addRow("交易日历不包含今天（2030-01-02），无法生成示例行情",
        { Error::TodayNotInCalendar, { QStringLiteral("2030-01-02") } });
}

void addSessionRows()
{
    addRow("用户“nobody”不存在", { Error::UnknownUser, { QStringLiteral("nobody") } });
    addRow("尚未登录，无法处理计划", Error::PlansNeedLogin);
    addRow("尚未登录，无法查询均价", Error::AveragesNeedLogin);
    addRow("尚未登录，无法查询交易日", Error::TradeDaysNeedLogin);
    addRow("尚未登录，无法下达指令", Error::IssuingNeedsLogin);
    addRow("尚未登录，无法签署协议", Error::SigningNeedsLogin);
    addRow("协议“reduce”不存在", { Error::UnknownAgreement, { QStringLiteral("reduce") } });
    addRow("请选择签署协议的客户", Error::NoSigner);
    addRow("客户“C1”不属于当前用户", { Error::ForeignClient, { QStringLiteral("C1") } });
}

void addCalendarRows()
{
    addRow("休市表第1行不是表头“market,date”", { Error::NoClosureHeadings, { QStringLiteral("market,date") } });
    addRow("休市表第2行应有4列，实有3列",
        { Error::BadClosureLine, { QStringLiteral("2") }, { Error::ClosureColumns, { QStringLiteral("3") } } });
    addRow(
        "交易规则表第1行不是表头“exchange,board”", { Error::NoRulebookHeadings, { QStringLiteral("exchange,board") } });
    addRow("交易规则表第2行应有8列，实有3列",
        { Error::BadRulebookLine, { QStringLiteral("2") }, { Error::RulebookColumns, { QStringLiteral("3") } } });
    addRow("交易规则表第3行从2020-08-25起，应紧接上一期，从2020-08-24起",
        { Error::BadRulebookLine, { QStringLiteral("3") },
            { Error::RulebookGap, { QStringLiteral("2020-08-25"), QStringLiteral("2020-08-24") } } });
    addRow("日期“2026-02-30”无效", { Error::NotADate, { QStringLiteral("2026-02-30") } });
    addRow("没有市场“XNYS”的交易日历", { Error::NoCalendar, { QStringLiteral("XNYS") } });
    addRow("交易日历只到2027-12-31为止，无法确定2028-03-01之后的交易日",
        { Error::BeyondCalendar, { QStringLiteral("2027-12-31"), QStringLiteral("2028-03-01") } });
    addRow("市场“内地”缺少2028年的休市安排",
        { Error::ClosureYearMissing, { QStringLiteral("内地"), QStringLiteral("2028") } });
    addRow("无法使用休市表“a.csv”：文件无法打开",
        { Error::ClosureFileUnreadable, { QStringLiteral("a.csv") }, Error::FileNotOpened });
    addRow("交易日历只到2027-12-31，还剩90天，请用import-closures命令导入之后的休市安排",
        { Error::CalendarEnds, { QStringLiteral("2027-12-31"), QStringLiteral("90") } });
    addRow("交易日历已于2027-12-31结束，请用import-closures命令导入之后的休市安排",
        { Error::CalendarEnded, { QStringLiteral("2027-12-31") } });
}

void addPlanRows()
{
    addRow("计划内容为空", Error::EmptyPlan);
    addRow("指令AP00000001-000001不存在", { Error::UnknownInstruction, { QStringLiteral("AP00000001-000001") } });
    addRow("计划“AP00000001”不存在", { Error::UnknownPlan, { QStringLiteral("AP00000001") } });
    addRow("计划字段“remark”的值不是文本", { Error::FieldNotText, { QStringLiteral("remark") } });
    addRow("计划字段“colour”未知，不能保存", { Error::FieldUnknown, { QStringLiteral("colour") } });
    addRow("计划字段“remark”超过4000个字符",
        { Error::FieldTooLong, { QStringLiteral("remark"), QStringLiteral("4000") } });
    addRow("计划字段“remark”含有无法保存的字符", { Error::FieldNotStorable, { QStringLiteral("remark") } });
    addRow("证券“600000.SH”的收盘价已损坏", { Error::DamagedCloses, { QStringLiteral("600000.SH") } });
    addRow("计划“AP00000001”的内容已损坏", { Error::DamagedPlan, { QStringLiteral("AP00000001") } });
    addRow("历史记录7已损坏", { Error::DamagedHistory, { QStringLiteral("7") } });
    addRow("计划“AP00000001”的账户“9”不存在",
        { Error::PlanValueUnknown, { QStringLiteral("AP00000001"), QStringLiteral("账户"), QStringLiteral("9") } });
    addRow("计划“AP00000001”的开始日期“noon”无效",
        { Error::PlanValueInvalid,
            { QStringLiteral("AP00000001"), QStringLiteral("开始日期"), QStringLiteral("noon") } });
    addRow("指令AP00000001-000001的内容“38 x”无效",
        { Error::InstructionInvalid, { QStringLiteral("AP00000001-000001"), QStringLiteral("38 x") } });
    addRow("证券“600000.SH”的价格精度、数量系数、步长或涨跌幅超出范围",
        { Error::SecurityInvalid, { QStringLiteral("600000.SH") } });
    addRow("账户“9”的证券“600000.SH”的持仓无效",
        { Error::PositionInvalid, { QStringLiteral("9"), QStringLiteral("600000.SH") } });
    addRow("客户“C1”对协议“p”的签署无效", { Error::SignatureInvalid, { QStringLiteral("C1"), QStringLiteral("p") } });
    addRow("账户“9”的限额例外7无效", { Error::LimitInvalid, { QStringLiteral("9"), QStringLiteral("7") } });
    addRow("新建计划不能带有计划编号", Error::PlanHasId);
    addRow("缺少计划扩展信息", Error::NoOtherParam);
    addRow("计划扩展信息不是有效的JSON对象", Error::OtherParamNotJson);
    addRow("交易方向“0”未知", { Error::UnknownCode, { QStringLiteral("交易方向"), QStringLiteral("0") } });
    addRow("未指定账户", Error::NoAccount);
    addRow("账户“100001”不存在", { Error::UnknownAccount, { QStringLiteral("100001") } });
    addRow("没有账户“100001”的下单权限", { Error::NoAuthority, { QStringLiteral("100001") } });
    addRow("未指定证券", Error::NoSecurity);
    addRow("证券“600000.SH”不存在", { Error::UnknownSecurity, { QStringLiteral("600000.SH") } });
    addRow("证券“600000.SH”不在市场“深圳证券交易所”交易",
        { Error::WrongExchange, { QStringLiteral("600000.SH"), QStringLiteral("深圳证券交易所") } });
    addRow("账户“100001”在该证券的市场没有证券账户", { Error::NoSecurityAccount, { QStringLiteral("100001") } });
    addRow("证券账户“X1”不属于该账户", { Error::ForeignSecurityAccount, { QStringLiteral("X1") } });
}

void addPlanValueRows()
{
    addRow("目标总量“0”不是正整数", { Error::NotPositiveWhole, { QStringLiteral("目标总量"), QStringLiteral("0") } });
    addRow("每日委托量“-1”不是整数", { Error::NotWhole, { QStringLiteral("每日委托量"), QStringLiteral("-1") } });
    addRow("目标金额“0.00”不是正数", { Error::NotPositive, { QStringLiteral("目标金额"), QStringLiteral("0.00") } });
    addRow("目标金额“x”不是数字", { Error::NotNumber, { QStringLiteral("目标金额"), QStringLiteral("x") } });
    addRow("减持占比“2”不在0到1之间", { Error::RatioOutOfRange, { QStringLiteral("2") } });
    addRow("价格1公式不正确：公式为空", { Error::BadFormula, { QStringLiteral("价格1") }, Error::FormulaEmpty });
    addRow("开始日期无效", { Error::InvalidDate, { QStringLiteral("开始日期") } });
    addRow("开始日期2024-05-04不是交易日",
        { Error::NotATradeDay, { QStringLiteral("开始日期"), QStringLiteral("2024-05-04") } });
    addRow("结束日期2199-05-06不在交易日历之内",
        { Error::NotInCalendar, { QStringLiteral("结束日期"), QStringLiteral("2199-05-06") } });
    addRow("结束日期早于开始日期", Error::EndBeforeBegin);
    addRow("备注超过200个字符", { Error::RemarkTooLong, { QStringLiteral("200") } });
    addRow("账户不支持修改", { Error::FieldNotChangeable, { QStringLiteral("账户") } });
    addRow("计划已开始执行，开始日期不支持修改", Error::BeginNotChangeable);
    addRow("开始日期2024-04-30早于今天", { Error::BeginInPast, { QStringLiteral("2024-04-30") } });
    addRow("目标低于该计划已成交和在下达的总和800", { Error::TotalBelowUsed, { QStringLiteral("800") } });
    addRow("按金额的计划缺少指令单类型", Error::TargetTypeMissing);
    addRow("按最近的收盘价得不出价格：公式的结果不大于零", { Error::NoUsablePrice, {}, Error::PriceNotPositive });
}

void addRightsRows()
{
    const QString account = QStringLiteral("100001");
    addRow("计划的创建人“trader03”不是当前用户", { Error::ForeignCreator, { QStringLiteral("trader03") } });
    addRow(
        "账户“100001”不能使用指令类型“信用交易”", { Error::TypeNotOfAccount, { account, QStringLiteral("信用交易") } });
    addRow("指令类型“港股通交易”只能卖出", { Error::SideNotOfType, { QStringLiteral("港股通交易") } });
    addRow("账户“100001”的指令须经复核，不能主动管理", { Error::ReviewRequired, { account } });
    addRow("减持计划不能买入", Error::ReductionBuys);
    addRow("减持计划未指定执行人", Error::NoExecutor);
    addRow("“苏砚”不是该账户的执行人", { Error::UnknownExecutor, { QStringLiteral("苏砚") } });
    addRow("该账户的计划不能分配给“苏砚”", { Error::UnknownAssignee, { QStringLiteral("苏砚") } });
    addRow("没有账户的交易限额", Error::NoLimits);
    addRow("数量1001超过账户的最大数量1000",
        { Error::QuantityAboveLimit, { QStringLiteral("1001"), QStringLiteral("1000") } });
    addRow("金额10.50元超过账户的最大金额10元",
        { Error::AmountAboveLimit, { QStringLiteral("10.50"), QStringLiteral("10") } });
    addRow("价格12.00不在账户允许的9.00至11.00之间",
        { Error::PriceOutsideBand, { QStringLiteral("12.00"), QStringLiteral("9.00"), QStringLiteral("11.00") } });
}

void addIssuingRows()
{
    addRow("2024-05-04不是交易日", { Error::NotATradeDay, { QString(), QStringLiteral("2024-05-04") } });
    addRow("证券“600000.SH”没有收盘价", { Error::NoCloses, { QStringLiteral("600000.SH") } });
    addRow("价格不足一个最小变动单位或过大", Error::PriceOutOfRange);
    addRow("当日的份额不足一手", Error::LessThanOneLot);
    addRow("计划已完成，剩余不足一手", Error::NothingLeft);
    addRow("可卖数量不足一手", Error::NothingToSell);
    addRow("卖出的数量超过可卖数量，没有保存", Error::MoreThanSellable);
    addRow("成交的数量超过下达数量，没有保存", Error::MoreThanIssued);
    addRow("资金不足：可用90.00元，一手需要100.00元",
        { Error::NotEnoughCash, { QStringLiteral("90.00"), QStringLiteral("100.00") } });
    addRow("不在该市场的委托时间09:15至15:00内",
        { Error::OutsideTradeHours, { QStringLiteral("09:15"), QStringLiteral("15:00") } });
    addRow("2024-05-07不是今天（2024-05-06），只能模拟下达",
        { Error::NotToday, { QStringLiteral("2024-05-07"), QStringLiteral("2024-05-06") } });
    addRow("只有信用账户可以在信用交易中转股", Error::NotACreditAccount);
    addRow("债券转股只能以卖出方向申报", Error::ConversionNotASale);
    addRow("证券“600000.SH”不是可转换债券", { Error::NotConvertible, { QStringLiteral("600000.SH") } });
    addRow("账户没有可用的“110059.SH”持仓", { Error::NothingToConvert, { QStringLiteral("110059.SH") } });
}

void addProgramRows()
{
    addRow("未知选项：colour", { Error::MalformedCommandLine, { QStringLiteral("未知选项：colour") } });
    addRow("无法备份数据库“a.db”：文件b.db已存在",
        { Error::BackupFailed, { QStringLiteral("a.db") }, { Error::FileExists, { QStringLiteral("b.db") } } });
    addRow("多余的参数：b", { Error::ExtraArgument, { QStringLiteral("b") } });
    addRow("缺少目录", Error::NoFolder);
    addRow("命令backup应有参数：文件",
        { Error::CommandWithoutArgument, { QStringLiteral("backup"), QStringLiteral("文件") } });
    addRow(
        "选项--json只用于history", { Error::OptionOfCommand, { QStringLiteral("json"), QStringLiteral("history") } });
    addRow("命令backup没有选项--json",
        { Error::OptionNotOfCommand, { QStringLiteral("json"), QStringLiteral("backup") } });
    addRow("无法写入文件a.csv", { Error::FileNotWritten, { QStringLiteral("a.csv") } });
    addRow("策略文件夹“a”不存在", { Error::NoStrategyFolder, { QStringLiteral("a") } });
    addRow("选项--user缺少取值", { Error::OptionWithoutValue, { QStringLiteral("user") } });
    addRow("没有皮肤“pink”，可选：light、dark",
        { Error::UnknownSkin, { QStringLiteral("pink"), QStringLiteral("light、dark") } });
    addRow(
        "没有语言“fr”，可选：zh、en", { Error::UnknownLanguage, { QStringLiteral("fr"), QStringLiteral("zh、en") } });
    addRow("日期“2024-5-6”无效，格式为yyyy-MM-dd", { Error::MalformedDay, { QStringLiteral("2024-5-6") } });
    addRow("没有可用的显示设备；可用plandesk-walkthrough或--issue-day在没有窗口时运行", Error::NoDisplay);
    addRow("不能读取翻译文件a.qm", { Error::NoTranslation, { QStringLiteral("a.qm") } });
    addRow("数据库a.db中已有200只证券，--securities只用于新建的数据库",
        { Error::DatabaseHasSecurities, { QStringLiteral("a.db"), QStringLiteral("200") } });
}

void addFormulaRows()
{
    addRow("公式不完整（第3个字符）", { Error::FormulaErrorAt, { QStringLiteral("3") }, Error::FormulaIncomplete });
    addRow("公式为空", Error::FormulaEmpty);
    addRow("公式超过300个字符", { Error::FormulaTooLong, { QStringLiteral("300") } });
    addRow("括号嵌套超过20层", { Error::FormulaTooDeep, { QStringLiteral("20") } });
    addRow("公式不完整", Error::FormulaIncomplete);
    addRow("公式语法不正确", Error::FormulaSyntax);
    addRow("不支持的字符“^”", { Error::UnsupportedCharacter, { QStringLiteral("^") } });
    addRow("数字“1.2.3”格式不正确", { Error::MalformedNumber, { QStringLiteral("1.2.3") } });
    addRow("未知的名称“MA7”", { Error::UnknownName, { QStringLiteral("MA7") } });
    addRow("缺少右括号", Error::MissingParenthesis);
    addRow("括号位置不正确", Error::MisplacedParenthesis);
    addRow("逗号位置不正确", Error::MisplacedComma);
    addRow("逗号只能用于函数的参数之间", Error::CommaOutsideFunction);
    addRow("函数的参数过多，应为2个", Error::TooManyArguments);
    addRow("函数的参数不足，应为2个", Error::TooFewArguments);
    addRow("除数为零", Error::DivisionByZero);
    addRow("该证券没有“MA250”的数据", { Error::PriceNotAvailable, { QStringLiteral("MA250") } });
    addRow("公式的结果不是有限的数", Error::PriceNotFinite);
    addRow("公式的结果不大于零", Error::PriceNotPositive);
}

void addStrategyFileRows()
{
    addRow("a.xml 第3行：文件中没有策略",
        { Error::StrategyFileRefused, { QStringLiteral("a.xml") },
            { Error::StrategyFileLine, { QStringLiteral("3") }, Error::NoStrategy } });
    addRow("a.xml：文件不存在或不是普通文件",
        { Error::StrategyFileUnreadable, { QStringLiteral("a.xml") }, Error::NotAFile });
    addRow("第3行：文件中没有策略", { Error::StrategyFileLine, { QStringLiteral("3") }, Error::NoStrategy });
    addRow("--replace一次只能用于一个文件", Error::ReplaceOneFile);
    addRow("工作表最多有5行，请导出为CSV", { Error::TooManyRowsForSheet, { QStringLiteral("5") } });
    addRow("漏下达", Error::DayMissed);
    addRow("证券113001.SH不能用于指令类型“普通”",
        { Error::SecurityNotOffered, { QStringLiteral("113001.SH"), QStringLiteral("普通") } });
    addRow("证券510300.SH在指令类型“普通”中不能按金额交易",
        { Error::AmountNotOffered, { QStringLiteral("510300.SH"), QStringLiteral("普通") } });
    addRow("算法只用于下单模式“算法交易复核”", Error::AlgorithmNeedsMode);
    addRow("文件不存在或不是普通文件", Error::NotAFile);
    addRow("文件无法打开", Error::FileNotOpened);
    addRow("文件超过1048576字节", { Error::FileTooLarge, { QStringLiteral("1048576") } });
    addRow("文件不完整", Error::FileIncomplete);
    addRow("XML格式不正确", Error::InvalidXml);
    addRow("编码GBK不支持", { Error::UnknownEncoding, { QStringLiteral("GBK") } });
    addRow("含有不是GBK编码的字节", { Error::InvalidEncoding, { QStringLiteral("GBK") } });
    addRow("元素的属性超过50个", { Error::TooManyAttributes, { QStringLiteral("50") } });
    addRow("元素超过50个", { Error::TooManyElements, { QStringLiteral("50") } });
    addRow("元素嵌套超过64层", { Error::ElementsTooDeep, { QStringLiteral("64") } });
    addRow("根元素应为FIXatdl 1.1的Strategies，而不是Edit", { Error::WrongRoot, { QStringLiteral("Edit") } });
    addRow("文件中没有策略", Error::NoStrategy);
    addRow("不允许DTD和实体声明", Error::DtdNotAllowed);
}

void addRefusedStrategyRows()
{
    addRow("元素Edit中有文字“abc”", { Error::TextBetweenElements, { QStringLiteral("Edit"), QStringLiteral("abc") } });
    addRow("元素Edit的文字超过1000个字符", { Error::TextTooLong, { QStringLiteral("Edit"), QStringLiteral("1000") } });
    addRow("元素Edit超过50个", { Error::TooMany, { QStringLiteral("Edit"), QStringLiteral("50") } });
    addRow("规则和条件过多", Error::TooManyConditions);
    addRow("元素Edit未知或不能出现在这里", { Error::UnsupportedElement, { QStringLiteral("Edit") } });
    addRow(
        "元素Edit的属性name未知", { Error::UnsupportedAttribute, { QStringLiteral("Edit"), QStringLiteral("name") } });
    addRow("元素Edit缺少属性name", { Error::MissingAttribute, { QStringLiteral("Edit"), QStringLiteral("name") } });
    addRow("类型Int_t不能有属性name",
        { Error::AttributeOfOtherType, { QStringLiteral("Int_t"), QStringLiteral("name") } });
    addRow("属性name超过1000个字符", { Error::AttributeTooLong, { QStringLiteral("name"), QStringLiteral("1000") } });
    addRow("属性name的值“x”应为1至9的整数",
        { Error::AttributeNotInteger,
            { QStringLiteral("name"), QStringLiteral("x"), QStringLiteral("1"), QStringLiteral("9") } });
    addRow("属性name的值“x”应为true或false",
        { Error::AttributeNotBoolean, { QStringLiteral("name"), QStringLiteral("x") } });
    addRow("属性name的值“x”不能作为名称", { Error::AttributeNotName, { QStringLiteral("name"), QStringLiteral("x") } });
    addRow("属性name的值“x”应为a、b之一",
        { Error::UnsupportedAttributeValue, { QStringLiteral("name"), QStringLiteral("x"), QStringLiteral("a、b") } });
    addRow("属性trueWireValue与falseWireValue相同", Error::EqualBooleanValues);
    addRow("参数类型“Int_t”未知", { Error::UnsupportedParameterType, { QStringLiteral("Int_t") } });
    addRow("控件类型“Int_t”未知", { Error::UnsupportedControlType, { QStringLiteral("Int_t") } });
    addRow("时区“A/B”未知", { Error::UnknownTimeZone, { QStringLiteral("A/B") } });
    addRow("策略名“TWAP”重复", { Error::DuplicateStrategy, { QStringLiteral("TWAP") } });
    addRow("策略TWAP有多个StrategyLayout", { Error::SecondLayout, { QStringLiteral("TWAP") } });
    addRow("StrategyLayout中没有StrategyPanel", Error::NoPanel);
    addRow("Edit中没有Edit", { Error::RuleWithoutComparison, { QStringLiteral("Edit") } });
    addRow("Edit中只能有一个Edit", { Error::SecondComparison, { QStringLiteral("Edit") } });
    addRow("Edit不能同时有operator和logicOperator", Error::EditWithTwoOperators);
    addRow("Edit应有operator或logicOperator", Error::EditWithoutOperator);
    addRow("有logicOperator的Edit中没有Edit", Error::EditWithoutOperands);
    addRow("有logicOperator的Edit不能有属性name", { Error::EditFieldOfCombination, { QStringLiteral("name") } });
    addRow("Edit应有field2或value之一", Error::ComparisonWithoutOperand);
    addRow("Edit不能同时有field2和value", Error::ComparisonWithTwoOperands);
    addRow("EditRef引用的Edit“e_a”不存在", { Error::UnknownEdit, { QStringLiteral("e_a") } });
    addRow("Edit的id“e_a”重复", { Error::DuplicateEdit, { QStringLiteral("e_a") } });
    addRow("Edit“e_a”引用了自己", { Error::EditCycle, { QStringLiteral("e_a") } });
    addRow("参数名“Rate”重复", { Error::DuplicateParameter, { QStringLiteral("Rate") } });
    addRow("参数Rate的name“x”应为数字",
        { Error::InvalidParameterAttribute, { QStringLiteral("Rate"), QStringLiteral("name"), QStringLiteral("x") },
            Error::ValueNotNumber });
    addRow("参数Rate的下限大于上限", { Error::LimitsReversed, { QStringLiteral("Rate") } });
    addRow("参数Rate的enumID“e_a”重复", { Error::DuplicateEnumId, { QStringLiteral("Rate"), QStringLiteral("e_a") } });
    addRow("控件ID“c1”重复", { Error::DuplicateControl, { QStringLiteral("c1") } });
    addRow("参数“Rate”有多个控件", { Error::SecondControl, { QStringLiteral("Rate") } });
    addRow("控件c1的参数“Rate”不存在",
        { Error::ControlWithoutParameter, { QStringLiteral("c1"), QStringLiteral("Rate") } });
    addRow("控件c1的参数Rate是常量，不能有控件",
        { Error::ControlOfConstant, { QStringLiteral("c1"), QStringLiteral("Rate") } });
    addRow("控件c1的类型与参数Rate的类型不符",
        { Error::ControlOfOtherType, { QStringLiteral("c1"), QStringLiteral("Rate") } });
    addRow("控件c1的类型不能有ListItem", { Error::ListItemsOfOtherType, { QStringLiteral("c1") } });
    addRow("控件c1的ListItem“e_a”重复", { Error::DuplicateListItem, { QStringLiteral("c1"), QStringLiteral("e_a") } });
    addRow("控件c1的enumID“e_a”不是参数Rate的EnumPair",
        { Error::UnknownEnumId, { QStringLiteral("c1"), QStringLiteral("e_a"), QStringLiteral("Rate") } });
    addRow("控件c1的步长“0”应为大于零的数字", { Error::InvalidStep, { QStringLiteral("c1"), QStringLiteral("0") } });
    addRow("控件c1的默认值“x”应为数字",
        { Error::InvalidDefault, { QStringLiteral("c1"), QStringLiteral("x") }, Error::ValueNotNumber });
    addRow("校验规则的参数“Rate”不存在", { Error::RuleWithoutParameter, { QStringLiteral("Rate") } });
    addRow("状态规则的控件“c1”不存在", { Error::RuleWithoutControl, { QStringLiteral("c1") } });
    addRow("Rate的比较值“x”应为数字",
        { Error::InvalidRuleValue, { QStringLiteral("Rate"), QStringLiteral("x") }, Error::ValueNotNumber });
    addRow("校验规则的参数Rate与Other类型不同，不能比较",
        { Error::RuleOfOtherTypes, { QStringLiteral("Rate"), QStringLiteral("Other") } });
    addRow("控件c1的状态规则的值“x”应为数字",
        { Error::InvalidStateValue, { QStringLiteral("c1"), QStringLiteral("x") }, Error::ValueNotNumber });
    addRow("控件c1的状态规则循环改变控件的值", { Error::StateRuleCycle, { QStringLiteral("c1") } });
}

void addStrategyRemarkRows()
{
    addRow("参数Rate的类型Int_t含有日期，计划跨多个交易日，请改用LocalMktTime_t",
        { Error::ParameterWithDate, { QStringLiteral("Rate"), QStringLiteral("Int_t") } });
    addRow("参数Rate是二进制数据，无法填写", { Error::ParameterOfData, { QStringLiteral("Rate") } });
    addRow("参数Rate是FIX字段38，由计划自己填写",
        { Error::ParameterOfPlan, { QStringLiteral("Rate"), QStringLiteral("38") } });
    addRow("必填参数Rate既没有控件也没有constValue", { Error::ParameterWithoutControl, { QStringLiteral("Rate") } });
    addRow("参数Rate没有EnumPair，invertOnWire无法取反", { Error::InvertedWithoutValues, { QStringLiteral("Rate") } });
    addRow("fixMsgType为E，计划只发出单笔委托（D）", { Error::OtherMessage, { QStringLiteral("E") } });
    addRow("属性name大于1，计划只有一只证券", { Error::SeveralOrders, { QStringLiteral("name") } });
    addRow("RepeatingGroup用于多腿或篮子委托，计划只有一只证券", Error::RepeatingGroup);
    addRow("NOT中有多个Edit，含义不明确", Error::NotOfSeveral);
    addRow("名称“TWAP”已被其他策略占用，请用providerID区分", { Error::StrategyNameTaken, { QStringLiteral("TWAP") } });
    addRow("忽略处理指令run", { Error::ProcessingInstruction, { QStringLiteral("run") } });
    addRow("元素Edit应有属性name", { Error::AttributeExpected, { QStringLiteral("Edit"), QStringLiteral("name") } });
    addRow(
        "元素Edit中应有ListItem", { Error::ElementExpected, { QStringLiteral("Edit"), QStringLiteral("ListItem") } });
    addRow("属性name对Int_t没有作用，忽略",
        { Error::AttributeIgnored, { QStringLiteral("Int_t"), QStringLiteral("name") } });
    addRow(
        "属性name的值“x”不合标准的写法", { Error::NameNotStandard, { QStringLiteral("name"), QStringLiteral("x") } });
    addRow("属性name的值“x”按“true”处理",
        { Error::ValueTakenAs, { QStringLiteral("name"), QStringLiteral("x"), QStringLiteral("true") } });
    addRow("类型“Int_t”的写法不合标准", { Error::TypeNotStandard, { QStringLiteral("Int_t") } });
    addRow("元素Edit的命名空间不合标准", { Error::SpaceNotStandard, { QStringLiteral("Edit") } });
    addRow("元素Edit应在Edit之前", { Error::OrderNotStandard, { QStringLiteral("Edit"), QStringLiteral("Edit") } });
    addRow("StrategyPanel中同时有Control和StrategyPanel", Error::ControlsBesidePanels);
    addRow("StrategyLayout中有多个StrategyPanel", Error::SecondPanel);
    addRow(
        "参数Rate的wireValue“x”重复", { Error::DuplicateWireValue, { QStringLiteral("Rate"), QStringLiteral("x") } });
    addRow("参数Rate既没有控件也没有constValue，不会发出", { Error::ParameterNeverSent, { QStringLiteral("Rate") } });
    addRow(
        "参数Rate没有fixTag，文件也没有声明tag957Support", { Error::ParameterWithoutTag, { QStringLiteral("Rate") } });
    addRow("没有FIX字段FIX_Side的值，不检查这条规则", { Error::RuleSkipped, { QStringLiteral("FIX_Side") } });
    addRow("StateRule没有enabled、visible或value", Error::StateRuleWithoutEffect);
}

void addValueRows()
{
    addRow("必填", Error::ValueMissing);
    addRow("固定为4", { Error::ValueNotConstant, { QStringLiteral("4") } });
    addRow("不是可选的值", Error::ValueNotListed);
    addRow("应为数字", Error::ValueNotNumber);
    addRow("应为整数", Error::ValueNotInteger);
    addRow("最多2位小数", { Error::ValueTooFine, { QStringLiteral("2") } });
    addRow("应不小于1", { Error::ValueTooSmall, { QStringLiteral("1") } });
    addRow("应不大于5", { Error::ValueTooLarge, { QStringLiteral("5") } });
    addRow("应在1至5之间", { Error::ValueOutOfRange, { QStringLiteral("1"), QStringLiteral("5") } });
    addRow("应为时间，如09:30:00", Error::ValueNotTime);
    addRow("含有不可见字符", Error::ValueNotPrintable);
    addRow("应为一个字符", Error::ValueNotCharacter);
    addRow("最多1000个字符", { Error::ValueTooLong, { QStringLiteral("1000") } });
    addRow("至少2个字符", { Error::ValueTooShort, { QStringLiteral("2") } });
    addRow("的写法不正确", Error::ValueMalformed);
}

void addChoiceRows()
{
    addRow("未找到该算法", Error::UnknownStrategy);
    addRow("未找到算法【TWAP】的参数定义！", { Error::StrategyNotDefined, { QStringLiteral("TWAP") } });
    addRow("算法【TWAP】不在可选范围内，请重新选择！", { Error::StrategyNotOffered, { QStringLiteral("TWAP") } });
    addRow("Rate 应为数字", { Error::InvalidParameter, { QStringLiteral("Rate") }, Error::ValueNotNumber });
    addRow("“比例”应为数字！", { Error::InvalidInput, { QStringLiteral("比例") }, Error::ValueNotNumber });
    addRow("“比例”应为数字（单位：%）！",
        { Error::InvalidInputInUnit, { QStringLiteral("比例"), QStringLiteral("%") }, Error::ValueNotNumber });
    addRow("起须早于止！", { Error::RuleBroken, { QStringLiteral("起须早于止！") } });
}

void addInputRows()
{
    addRow("无法识别“abc”，请输入数字，例如50000、50,000或5万", { Error::NumberMalformed, { QStringLiteral("abc") } });
    addRow(
        "“1,5”中的逗号有歧义，千分位须每三位一个，小数点请用“.”", { Error::NumberGrouping, { QStringLiteral("1,5") } });
    addRow("无法识别单位“磅”，可用千、万、百万、千万、亿", { Error::NumberUnitUnknown, { QStringLiteral("磅") } });
    addRow("此处以元为单位，不能用手", { Error::NumberInOtherUnit, { QStringLiteral("元"), QStringLiteral("手") } });
    addRow("请先选择证券，才能以手为单位", Error::NumberLotUnknown);
    addRow("该证券不以手为单位交易，请输入股数", { Error::NumberWithoutLots, { QStringLiteral("股") } });
    addRow("只能输入整数", Error::NumberNotWhole);
    addRow("最多输入2位小数", { Error::NumberTooFine, { QStringLiteral("2") } });
    addRow("数字不完整", Error::NumberIncomplete);
    addRow("不能小于1", { Error::NumberTooSmall, { QStringLiteral("1") } });
    addRow("不能大于100", { Error::NumberTooLarge, { QStringLiteral("100") } });
    addRow("无法识别“abc”，请输入日期，例如2026-12-04、1204、12-4或+5",
        { Error::DateMalformed, { QStringLiteral("abc") } });
    addRow("没有“1301”这一天", { Error::NoSuchDate, { QStringLiteral("1301") } });
    addRow("可选的交易日不足100个", { Error::TooFewTradeDays, { QStringLiteral("100") } });
    addRow("2025-12-01早于最早可选日期2025-12-02",
        { Error::DateTooEarly, { QStringLiteral("2025-12-01"), QStringLiteral("2025-12-02") } });
    addRow("2025-12-03晚于最晚可选日期2025-12-02",
        { Error::DateTooLate, { QStringLiteral("2025-12-03"), QStringLiteral("2025-12-02") } });
    addRow("2025-12-06不是交易日，不能选择", { Error::DateExcluded, { QStringLiteral("2025-12-06") } });
    addRow("结束日期不能早于开始日期2025-12-01", { Error::LastBeforeFirst, { QStringLiteral("2025-12-01") } });
    addRow("结束日期的输入无法使用：没有“1301”这一天",
        { Error::InputRefused, { QStringLiteral("结束日期"), QStringLiteral("没有“1301”这一天") } });
}

} // namespace

class ErrorTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyFailureHasItsSentence_data()
    {
        QTest::addColumn<Status>("status");
        QTest::addColumn<QString>("sentence");
        addDatabaseRows();
        addServerRows();
        addSampleRows();
        addSessionRows();
        addCalendarRows();
        addPlanRows();
        addPlanValueRows();
        addRightsRows();
        addIssuingRows();
        addProgramRows();
        addFormulaRows();
        addStrategyFileRows();
        addRefusedStrategyRows();
        addStrategyRemarkRows();
        addValueRows();
        addChoiceRows();
        addInputRows();
    }

    void everyFailureHasItsSentence()
    {
        QFETCH(Status, status);
        QTEST(errorText(status), "sentence");
    }

    void successHasNoSentence() { QCOMPARE(errorText(Status()), QString()); }

    void aPlaceholderInADetailStaysAsItIs()
    {
        const Status unknown(Error::UnknownName, { QStringLiteral("%1") });
        QCOMPARE(errorText({ Error::FormulaErrorAt, { QStringLiteral("2") }, unknown }),
            QStringLiteral("未知的名称“%1”（第2个字符）"));
    }
};

QTEST_GUILESS_MAIN(ErrorTextTest)
#include "tst_error_text.moc"
