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
    addRow("数据库正被其他程序占用，请稍后再试", Error::DatabaseBusy);
    addRow("数据库文件只读，无法写入", Error::DatabaseReadOnly);
    addRow("数据库文件已损坏", Error::DatabaseCorrupt);
    addRow("磁盘空间不足，无法写入数据库", Error::DiskFull);
    addRow("该文件不是数据库文件", Error::NotADatabase);
    addRow("数据库操作失败：no such table", { Error::DatabaseFailed, { QStringLiteral("no such table") } });
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

} // namespace

class ErrorTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyFailureHasItsSentence_data();
    void everyFailureHasItsSentence();
    void successHasNoSentence();
    void aPlaceholderInADetailStaysAsItIs();
};

void ErrorTextTest::everyFailureHasItsSentence_data()
{
    QTest::addColumn<Status>("status");
    QTest::addColumn<QString>("sentence");
    addDatabaseRows();
    addFormulaRows();
}

void ErrorTextTest::everyFailureHasItsSentence()
{
    QFETCH(Status, status);
    QTEST(errorText(status), "sentence");
}

void ErrorTextTest::successHasNoSentence()
{
    QCOMPARE(errorText(Status()), QString());
}

void ErrorTextTest::aPlaceholderInADetailStaysAsItIs()
{
    const Status unknown(Error::UnknownName, { QStringLiteral("%1") });
    QCOMPARE(errorText({ Error::FormulaErrorAt, { QStringLiteral("2") }, unknown }),
        QStringLiteral("未知的名称“%1”（第2个字符）"));
}

QTEST_GUILESS_MAIN(ErrorTextTest)
#include "tst_error_text.moc"
