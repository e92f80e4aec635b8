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
