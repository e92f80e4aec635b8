#include "ErrorText.h"

namespace {

/// The sentence of a code, with %1, %2, ... in the places of its details and, behind them, of its cause.
QString sentence(Error error)
{
    switch (error) {
    case Error::None:
        break;
    case Error::DatabaseNotOpen:
        return QStringLiteral("数据库未打开");
    case Error::DatabaseBusy:
        return QStringLiteral("数据库正被其他程序占用，请稍后再试");
    case Error::DatabaseReadOnly:
        return QStringLiteral("数据库文件只读，无法写入");
    case Error::DatabaseCorrupt:
        return QStringLiteral("数据库文件已损坏");
    case Error::DiskFull:
        return QStringLiteral("磁盘空间不足，无法写入数据库");
    case Error::NotADatabase:
        return QStringLiteral("该文件不是数据库文件");
    case Error::DatabaseFailed:
        return QStringLiteral("数据库操作失败：%1");
    // --- Price formulas
    case Error::FormulaErrorAt:
        return QStringLiteral("%2（第%1个字符）");
    case Error::FormulaEmpty:
        return QStringLiteral("公式为空");
    case Error::FormulaTooLong:
        return QStringLiteral("公式超过%1个字符");
    case Error::FormulaTooDeep:
        return QStringLiteral("括号嵌套超过%1层");
    case Error::FormulaIncomplete:
        return QStringLiteral("公式不完整");
    case Error::FormulaSyntax:
        return QStringLiteral("公式语法不正确");
    case Error::UnsupportedCharacter:
        return QStringLiteral("不支持的字符“%1”");
    case Error::MalformedNumber:
        return QStringLiteral("数字“%1”格式不正确");
    case Error::UnknownName:
        return QStringLiteral("未知的名称“%1”");
    case Error::MissingParenthesis:
        return QStringLiteral("缺少右括号");
    case Error::MisplacedParenthesis:
        return QStringLiteral("括号位置不正确");
    case Error::MisplacedComma:
        return QStringLiteral("逗号位置不正确");
    case Error::CommaOutsideFunction:
        return QStringLiteral("逗号只能用于函数的参数之间");
    case Error::TooManyArguments:
        return QStringLiteral("函数的参数过多，应为2个");
    case Error::TooFewArguments:
        return QStringLiteral("函数的参数不足，应为2个");
    case Error::DivisionByZero:
        return QStringLiteral("除数为零");
    case Error::PriceNotAvailable:
        return QStringLiteral("该证券没有“%1”的数据");
    case Error::PriceNotFinite:
        return QStringLiteral("公式的结果不是有限的数");
    case Error::PriceNotPositive:
        return QStringLiteral("公式的结果不大于零");
    }
    return QString();
}

} // namespace

QString errorText(const Status& status)
{
    QStringList values = status.details();
    if (!status.cause())
        values << errorText(status.cause());
    QString text = sentence(status.error());
    // All at once: a detail that holds a placeholder stays as it is.
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
