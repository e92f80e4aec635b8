#include "ErrorText.h"

#include <QCoreApplication>

namespace {

struct Sentence {
    Error error;
    const char* text;
};

/// The sentences in the order of the codes. %1, %2, ... are replaced by the details and then by the cause.
constexpr Sentence Sentences[] = {
    { Error::None, "" },
    // --- The database
    { Error::DatabaseNotOpen, "数据库未打开" },
    { Error::DatabaseBusy, "数据库正被其他程序占用，请稍后再试" },
    { Error::DatabaseReadOnly, "数据库文件只读，无法写入" },
    { Error::DatabaseCorrupt, "数据库文件已损坏" },
    { Error::DiskFull, "磁盘空间不足，无法写入数据库" },
    { Error::NotADatabase, "该文件不是数据库文件" },
    { Error::DiskFailed, "读写数据库文件出错（代码%1）" },
    { Error::DatabaseFailed, "数据库操作失败：%1" },
    { Error::ContentTooLarge, "数据库的内容过大，无法读写" },
    { Error::DatabaseFileChanged, "数据库文件已被删除、替换、覆盖、移动或链接，不能继续使用，请核对文件后重新启动" },
    { Error::TransactionEnded, "数据库事务已中止，内容未保存" },
    { Error::NumbersExhausted, "数据库的编号已用尽，无法新建" },
    { Error::CannotOpenDatabase, "无法打开数据库“%1”：%2" },
    { Error::NoDatabaseFile, "未指定数据库文件" },
    { Error::DatabaseIsFolder, "该路径是文件夹" },
    { Error::CannotCreateFolder, "无法创建所在文件夹" },
    { Error::ForeignDatabase, "该文件属于其他程序" },
    { Error::NewerDatabase, "数据库版本%1高于本程序支持的版本%2，请升级程序" },
    { Error::NoWriteAheadLog, "数据库无法启用预写日志" },
    { Error::FolderNotWritable, "数据库所在的文件夹不可写，无法建立预写日志" },
    { Error::MigrationFailed, "升级数据库失败，%1" },
    { Error::UnknownObject, "数据库含有来历不明的%1“%2”" },
    { Error::ChangedObject, "数据库的%1“%2”被改动过" },
    { Error::MissingObject, "数据库缺少%1“%2”" },
    { Error::InspectionTooLong, "检查数据库超过%1秒" },
    { Error::DatabaseTooLarge, "数据库文件超过%1 GiB" },
    { Error::BackupFailed, "无法备份数据库“%1”：%2" },
    { Error::FileExists, "文件%1已存在" },
    // --- The database on a server
    { Error::MalformedLocation, "数据库地址不正确，应为postgresql://用户@主机:端口/库名或service=服务名" },
    { Error::PasswordInLocation, "数据库地址中不能写密码，请改用密码文件、服务文件或环境变量" },
    { Error::NoServerDriver, "没有安装Qt的PostgreSQL驱动（QPSQL），无法连接数据库服务器" },
    { Error::NoConnection, "无法连接数据库服务器（%1）" },
    { Error::ConnectionLost, "与数据库服务器的连接已断开" },
    { Error::ServerNotSetUp, "该数据库尚未初始化，请联系管理员" },
    { Error::OlderDatabase, "数据库版本%1低于本程序要求的版本%2，请联系管理员升级" },
    { Error::NotPermitted, "数据库服务器拒绝了该操作，当前用户没有权限" },
    { Error::UserIsRole, "在数据库服务器上，登录的角色“%1”就是用户，不能另行指定用户" },
    { Error::BackupOfServer, "数据库在服务器上，请由管理员备份" },
    // --- Stored plans and instructions
    { Error::EmptyPlan, "计划内容为空" },
    { Error::FieldNotText, "计划字段“%1”的值不是文本" },
    { Error::FieldUnknown, "计划字段“%1”未知，不能保存" },
    { Error::FieldTooLong, "计划字段“%1”超过%2个字符" },
    { Error::FieldNotStorable, "计划字段“%1”含有无法保存的字符" },
    { Error::UnknownPlan, "计划“%1”不存在" },
    { Error::PlanNotRead, "不知道对计划“%1”的修改以哪个版本为基础，请重新打开计划后再修改" },
    { Error::PlanIsNewer, "计划“%1”已有更新的版本，请重新打开后再修改" },
    { Error::PlanChangedMeanwhile, "计划已被%1于%2修改（%3），本次修改未保存，请核对后重新提交" },
    { Error::OutcomeUnknown, "无法确认是否已保存（%1），再次提交时会先核对，不会重复保存" },
    { Error::UnknownInstruction, "指令%1不存在" },
    { Error::DamagedCloses, "证券“%1”的收盘价已损坏" },
    { Error::DamagedPlan, "计划“%1”的内容已损坏" },
    { Error::DamagedHistory, "历史记录%1已损坏" },
    { Error::PlanValueUnknown, "计划“%1”的%2“%3”不存在" },
    { Error::PlanValueInvalid, "计划“%1”的%2“%3”无效" },
    { Error::InstructionInvalid, "指令%1的内容“%2”无效" },
    { Error::SecurityInvalid, "证券“%1”的价格精度、数量系数、步长或涨跌幅超出范围" },
    { Error::PositionInvalid, "账户“%1”的证券“%2”的持仓无效" },
    { Error::SignatureInvalid, "客户“%1”对协议“%2”的签署无效" },
    { Error::LimitInvalid, "账户“%1”的限额例外%2无效" },
    // --- The sample data
    { Error::MarketSizeOutOfRange, "样本市场的证券数量须在%1到%2之间" },
    { Error::NoLastClose, "样本市场缺少最后一个收盘日" },
    { Error::SampleCancelled, "样本市场的生成已取消" },
    { Error::TodayNotInCalendar, "交易日历不包含今天（%1），无法生成示例行情" },
    // --- The session
    { Error::UnknownUser, "用户“%1”不存在" },
    { Error::PlansNeedLogin, "尚未登录，无法处理计划" },
    { Error::AveragesNeedLogin, "尚未登录，无法查询均价" },
    { Error::TradeDaysNeedLogin, "尚未登录，无法查询交易日" },
    { Error::IssuingNeedsLogin, "尚未登录，无法下达指令" },
    { Error::SigningNeedsLogin, "尚未登录，无法签署协议" },
    // --- Agreements
    { Error::UnknownAgreement, "协议“%1”不存在" },
    { Error::NoSigner, "请选择签署协议的客户" },
    { Error::ForeignClient, "客户“%1”不属于当前用户" },
    // --- The trade calendar
    { Error::NoClosureHeadings, "休市表第1行不是表头“%1”" },
    { Error::BadClosureLine, "休市表第%1行%2" },
    { Error::ClosureColumns, "应有4列，实有%1列" },
    { Error::NotADate, "日期“%1”无效" },
    { Error::NoCalendar, "没有市场“%1”的交易日历" },
    { Error::BeyondCalendar, "交易日历只到%1为止，无法确定%2之后的交易日" },
    { Error::ClosureYearMissing, "市场“%1”缺少%2年的休市安排" },
    { Error::ClosureFileUnreadable, "无法使用休市表“%1”：%2" },
    { Error::CalendarEnds, "交易日历只到%1，还剩%2天，请用import-closures命令导入之后的休市安排" },
    { Error::CalendarEnded, "交易日历已于%1结束，请用import-closures命令导入之后的休市安排" },
    // --- Checks of a plan
    { Error::PlanHasId, "新建计划不能带有计划编号" },
    { Error::NoOtherParam, "缺少计划扩展信息" },
    { Error::OtherParamNotJson, "计划扩展信息不是有效的JSON对象" },
    { Error::UnknownCode, "%1“%2”未知" },
    { Error::NoAccount, "未指定账户" },
    { Error::UnknownAccount, "账户“%1”不存在" },
    { Error::NoAuthority, "没有账户“%1”的下单权限" },
    { Error::NoSecurity, "未指定证券" },
    { Error::UnknownSecurity, "证券“%1”不存在" },
    { Error::WrongExchange, "证券“%1”不在市场“%2”交易" },
    { Error::NoSecurityAccount, "账户“%1”在该证券的市场没有证券账户" },
    { Error::ForeignSecurityAccount, "证券账户“%1”不属于该账户" },
    { Error::NotPositiveWhole, "%1“%2”不是正整数" },
    { Error::NotWhole, "%1“%2”不是整数" },
    { Error::NotPositive, "%1“%2”不是正数" },
    { Error::NotNumber, "%1“%2”不是数字" },
    { Error::RatioOutOfRange, "减持占比“%1”不在0到1之间" },
    { Error::BadFormula, "%1公式不正确：%2" },
    { Error::InvalidDate, "%1无效" },
    { Error::NotATradeDay, "%1%2不是交易日" },
    { Error::NotInCalendar, "%1%2不在交易日历之内" },
    { Error::EndBeforeBegin, "结束日期早于开始日期" },
    { Error::RemarkTooLong, "备注超过%1个字符" },
    { Error::FieldNotChangeable, "%1不支持修改" },
    { Error::BeginNotChangeable, "计划已开始执行，开始日期不支持修改" },
    { Error::BeginInPast, "开始日期%1早于今天" },
    { Error::ForeignCreator, "计划的创建人“%1”不是当前用户" },
    { Error::TypeNotOfAccount, "账户“%1”不能使用指令类型“%2”" },
    { Error::SideNotOfType, "指令类型“%1”只能卖出" },
    { Error::ReviewRequired, "账户“%1”的指令须经复核，不能主动管理" },
    { Error::ReductionBuys, "减持计划不能买入" },
    { Error::NoExecutor, "减持计划未指定执行人" },
    { Error::UnknownExecutor, "“%1”不是该账户的执行人" },
    { Error::UnknownAssignee, "该账户的计划不能分配给“%1”" },
    { Error::TargetTypeMissing, "按金额的计划缺少指令单类型" },
    { Error::TotalBelowUsed, "目标低于该计划已成交和在下达的总和%1" },
    { Error::NoUsablePrice, "按最近的收盘价得不出价格：%1" },
    // --- Limits of an account
    { Error::NoLimits, "没有账户的交易限额" },
    { Error::QuantityAboveLimit, "数量%1超过账户的最大数量%2" },
    { Error::AmountAboveLimit, "金额%1元超过账户的最大金额%2元" },
    { Error::PriceOutsideBand, "价格%1不在账户允许的%2至%3之间" },
    // --- The instructions of a day
    { Error::NoCloses, "证券“%1”没有收盘价" },
    { Error::PriceOutOfRange, "价格不足一个最小变动单位或过大" },
    { Error::LessThanOneLot, "剩余数量或金额不足一手" },
    // --- Conversion of bonds into shares
    { Error::NotACreditAccount, "只有信用账户可以在信用交易中转股" },
    { Error::ConversionNotASale, "债券转股只能以卖出方向申报" },
    { Error::NotConvertible, "证券“%1”不是可转换债券" },
    { Error::NothingToConvert, "账户没有可用的“%1”持仓" },
    // --- Programs
    { Error::MalformedCommandLine, "%1" },
    { Error::ExtraArgument, "多余的参数：%1" },
    { Error::NoFolder, "缺少目录" },
    { Error::OptionWithoutValue, "选项--%1缺少取值" },
    { Error::UnknownSkin, "没有皮肤“%1”，可选：%2" },
    { Error::UnknownLanguage, "没有语言“%1”，可选：%2" },
    { Error::MalformedDay, "日期“%1”无效，格式为yyyy-MM-dd" },
    { Error::NoDisplay, "没有可用的显示设备；可用plandesk-walkthrough或--issue-day在没有窗口时运行" },
    { Error::NoTranslation, "不能读取翻译文件%1" },
    { Error::CommandWithoutArgument, "命令%1应有一个参数" },
    { Error::OptionOfCommand, "选项--%1只用于命令%2" },
    { Error::OptionNotOfCommand, "命令%2没有选项--%1" },
    { Error::FileNotWritten, "无法写入文件%1" },
    { Error::DatabaseHasSecurities, "数据库%1中已有%2只证券，--securities只用于新建的数据库" },
    // --- Price formulas
    { Error::FormulaErrorAt, "%2（第%1个字符）" },
    { Error::FormulaEmpty, "公式为空" },
    { Error::FormulaTooLong, "公式超过%1个字符" },
    { Error::FormulaTooDeep, "括号嵌套超过%1层" },
    { Error::FormulaIncomplete, "公式不完整" },
    { Error::FormulaSyntax, "公式语法不正确" },
    { Error::UnsupportedCharacter, "不支持的字符“%1”" },
    { Error::MalformedNumber, "数字“%1”格式不正确" },
    { Error::UnknownName, "未知的名称“%1”" },
    { Error::MissingParenthesis, "缺少右括号" },
    { Error::MisplacedParenthesis, "括号位置不正确" },
    { Error::MisplacedComma, "逗号位置不正确" },
    { Error::CommaOutsideFunction, "逗号只能用于函数的参数之间" },
    { Error::TooManyArguments, "函数的参数过多，应为2个" },
    { Error::TooFewArguments, "函数的参数不足，应为2个" },
    { Error::DivisionByZero, "除数为零" },
    { Error::PriceNotAvailable, "该证券没有“%1”的数据" },
    { Error::PriceNotFinite, "公式的结果不是有限的数" },
    { Error::PriceNotPositive, "公式的结果不大于零" },
    // --- Strategy files
    { Error::StrategyFileRefused, "%1 %2" },
    { Error::StrategyFileUnreadable, "%1：%2" },
    { Error::StrategyFileLine, "第%1行：%2" },
    { Error::NotAFile, "文件不存在或不是普通文件" },
    { Error::FileNotOpened, "文件无法打开" },
    { Error::FileTooLarge, "文件超过%1字节" },
    { Error::FileIncomplete, "文件不完整" },
    { Error::InvalidXml, "XML格式不正确" },
    { Error::NotUtf8, "编码不是UTF-8" },
    { Error::TooManyAttributes, "元素的属性超过%1个" },
    { Error::WrongRoot, "根元素应为FIXatdl 1.1的Strategies，而不是%1" },
    { Error::NoStrategy, "文件中没有策略" },
    { Error::DtdNotAllowed, "不允许DTD和实体声明" },
    { Error::EntityNotAllowed, "不允许实体引用" },
    { Error::ProcessingInstruction, "不支持处理指令%1" },
    { Error::TextBetweenElements, "元素之间有文字“%1”" },
    { Error::NamespaceBelowRoot, "命名空间只能在根元素上声明" },
    { Error::UnsupportedElement, "元素%1不支持或不能出现在这里" },
    { Error::UnsupportedAttribute, "元素%1的属性%2不支持" },
    { Error::MissingAttribute, "元素%1缺少属性%2" },
    { Error::AttributeOfOtherType, "类型%1不能有属性%2" },
    { Error::AttributeTooLong, "属性%1超过%2个字符" },
    { Error::AttributeNotInteger, "属性%1的值“%2”应为%3至%4的整数" },
    { Error::AttributeNotBoolean, "属性%1的值“%2”应为true或false" },
    { Error::AttributeNotIdentifier, "属性%1的值“%2”应以字母开头，只含字母、数字和下划线，最多64个字符" },
    { Error::UnsupportedAttributeValue, "属性%1的值“%2”不支持，只支持%3" },
    { Error::InvalidUse, "属性use的值“%1”应为required或optional" },
    { Error::EqualBooleanValues, "属性trueWireValue与falseWireValue相同" },
    { Error::TypeOfOtherNamespace, "类型“%1”不属于%2" },
    { Error::UnsupportedParameterType, "参数类型“%1”不支持" },
    { Error::TimeWithDate, "参数类型UTCTimestamp_t含有日期，计划跨多个交易日，请改用LocalMktTime_t" },
    { Error::UnsupportedControlType, "控件类型“%1”不支持" },
    { Error::UnsupportedOperator, "比较符“%1”不支持" },
    { Error::ElementInDescription, "Description中不能有元素%1" },
    { Error::DescriptionTooLong, "Description超过%1个字符" },
    { Error::TooManyStrategies, "策略超过%1个" },
    { Error::TooManyParameters, "参数超过%1个" },
    { Error::TooManyEnumPairs, "EnumPair超过%1个" },
    { Error::TooManyControls, "控件超过%1个" },
    { Error::TooManyListItems, "ListItem超过%1个" },
    { Error::TooManyRules, "StrategyEdit超过%1个" },
    { Error::PanelsTooDeep, "StrategyPanel嵌套超过%1层" },
    { Error::DuplicateStrategy, "策略名“%1”重复" },
    { Error::SecondLayout, "策略%1有多个StrategyLayout" },
    { Error::NoPanel, "StrategyLayout中没有StrategyPanel" },
    { Error::SecondPanel, "StrategyLayout中只能有一个StrategyPanel" },
    { Error::ControlsBesidePanels, "StrategyPanel中不能同时有Control和StrategyPanel" },
    { Error::BooleanWithEnumPairs, "Boolean_t参数不能有EnumPair" },
    { Error::RuleWithoutComparison, "StrategyEdit中没有Edit" },
    { Error::SecondComparison, "StrategyEdit中只支持一个Edit" },
    { Error::ComparisonWithoutOperand, "Edit应有field2或value之一" },
    // --- Strategies
    { Error::DuplicateParameter, "参数名“%1”重复" },
    { Error::ParameterWithoutControl, "参数%1既没有控件也没有constValue" },
    { Error::InvalidParameterAttribute, "参数%1的%2“%3”%4" },
    { Error::LimitsOfOtherType, "参数%1的类型不能有minValue或maxValue" },
    { Error::LimitsReversed, "参数%1的minValue大于maxValue" },
    { Error::DuplicateEnumId, "参数%1的enumID“%2”重复" },
    { Error::DuplicateWireValue, "参数%1的wireValue“%2”重复" },
    { Error::DuplicateControl, "控件ID“%1”重复" },
    { Error::SecondControl, "参数“%1”有多个控件" },
    { Error::ControlWithoutParameter, "控件%1的参数“%2”不存在" },
    { Error::ControlOfConstant, "控件%1的参数%2是常量，不能有控件" },
    { Error::ControlOfOtherType, "控件%1的类型与参数%2的类型不符" },
    { Error::ListItemsOfOtherType, "控件%1的类型不能有ListItem" },
    { Error::DuplicateListItem, "控件%1的ListItem“%2”重复" },
    { Error::ListItemsDiffer, "控件%1的ListItem与参数%2的EnumPair不一致" },
    { Error::InvalidStep, "控件%1的步长“%2”应为大于零且符合参数类型的数字" },
    { Error::InvalidDefault, "控件%1的默认值“%2”%3" },
    { Error::RuleWithoutParameter, "校验规则的参数“%1”不存在" },
    { Error::InvalidRuleValue, "参数%1的校验值“%2”%3" },
    { Error::RuleOfOtherTypes, "校验规则的参数%1与%2类型不同，不能比较" },
    // --- Values of strategy parameters
    { Error::ValueMissing, "必填" },
    { Error::ValueNotConstant, "固定为%1" },
    { Error::ValueNotListed, "不是可选的值" },
    { Error::ValueNotNumber, "应为数字" },
    { Error::ValueNotInteger, "应为整数" },
    { Error::ValueTooFine, "最多%1位小数" },
    { Error::ValueTooSmall, "应不小于%1" },
    { Error::ValueTooLarge, "应不大于%1" },
    { Error::ValueOutOfRange, "应在%1至%2之间" },
    { Error::ValueNotTime, "应为时间，如09:30:00" },
    { Error::ValueNotPrintable, "含有不可见字符" },
    { Error::ValueNotCharacter, "应为一个字符" },
    { Error::ValueTooLong, "最多%1个字符" },
    // --- Choice and parameters of a strategy
    { Error::UnknownStrategy, "未找到该算法" },
    { Error::StrategyNotDefined, "未找到算法【%1】的参数定义！" },
    { Error::StrategyNotOffered, "算法【%1】不在可选范围内，请重新选择！" },
    { Error::InvalidParameter, "%1 %2" },
    { Error::InvalidInput, "“%1”%2！" },
    { Error::InvalidInputInUnit, "“%1”%3（单位：%2）！" },
    { Error::RuleBroken, "%1" },
    // --- Typed numbers and dates
    { Error::NumberMalformed, QT_TRANSLATE_NOOP("Error", "请输入数字，不带千分位和其他符号") },
    { Error::NumberNotWhole, QT_TRANSLATE_NOOP("Error", "只能输入整数") },
    { Error::NumberTooFine, QT_TRANSLATE_NOOP("Error", "最多输入%1位小数") },
    { Error::NumberIncomplete, QT_TRANSLATE_NOOP("Error", "数字不完整") },
    { Error::NumberTooSmall, QT_TRANSLATE_NOOP("Error", "不能小于%1") },
    { Error::NumberTooLarge, QT_TRANSLATE_NOOP("Error", "不能大于%1") },
    { Error::DateMalformed, QT_TRANSLATE_NOOP("Error", "请输入有效日期，格式为yyyy-MM-dd") },
    { Error::DateTooEarly, QT_TRANSLATE_NOOP("Error", "%1早于最早可选日期%2") },
    { Error::DateTooLate, QT_TRANSLATE_NOOP("Error", "%1晚于最晚可选日期%2") },
    { Error::DateExcluded, QT_TRANSLATE_NOOP("Error", "%1不是交易日，不能选择") },
    { Error::LastBeforeFirst, QT_TRANSLATE_NOOP("Error", "结束日期不能早于开始日期%1") },
};

constexpr bool isComplete()
{
    size_t code = 0;
    for (const Sentence& sentence : Sentences) {
        if (static_cast<size_t>(sentence.error) != code++)
            return false;
    }
    return code == static_cast<size_t>(Error::Count);
}
static_assert(isComplete(), "every code has its sentence, in the order of the codes");

} // namespace

QString errorText(const Status& status)
{
    QStringList values = status.details();
    if (!status.cause())
        values << errorText(status.cause());
    const QString text = QCoreApplication::translate("Error", Sentences[static_cast<size_t>(status.error())].text);
    // All at once, so that a placeholder inside a detail is not replaced.
    switch (values.size()) {
    case 0:
        return text;
    case 1:
        return text.arg(values.at(0));
    case 2:
        return text.arg(values.at(0), values.at(1));
    case 3:
        return text.arg(values.at(0), values.at(1), values.at(2));
    default:
        return text.arg(values.at(0), values.at(1), values.at(2), values.at(3));
    }
}
