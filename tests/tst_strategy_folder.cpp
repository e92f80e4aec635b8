#include "AlgoTradeLogicNew.h"
#include "LoggedTest.h"
#include "StrategyFolder.h"
#include "StrategyLibrary.h"
#include "StrategyTexts.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace StrategyTexts;

namespace {

constexpr int Patience = 10000 * TEST_TIMEOUT_SCALE;

void write(const QString& path, const QString& text)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text.toUtf8());
}

QString named(const QString& name, const QString& more = {})
{
    return root(QStringLiteral("<Strategy name=\"%1\" version=\"1\" wireValue=\"x\" providerID=\"ME\">%2</Strategy>")
                    .arg(name, more));
}

QStringList userNames()
{
    return StrategyLibrary::instance().names().mid(5);
}

} // namespace

class StrategyFolderTest : public LoggedTest {
    Q_OBJECT

private:
    void prepare() override
    {
        qRegisterMetaType<QList<AesStrategy>>("QList<AesStrategy>");
        m_folder = std::make_unique<QTemporaryDir>();
    }

private Q_SLOTS:
    void theFilesOfTheFolderAreReadAndTheQueryIsAnswered()
    {
        write(path("b.xml"), named(QStringLiteral("B")));
        write(path("a.xml"), named(QStringLiteral("A")));
        write(path("c.txt"), named(QStringLiteral("C")));
        write(path("d.xml"), QStringLiteral("<Strategies"));
        QSignalSpy answers(AlgoTradeLogicNew::GetInstance(), &AlgoTradeLogicNew::sigQryAlgoStrategiesRsp);
        open();
        QCOMPARE(userNames(), QStringList({ QStringLiteral("A@ME"), QStringLiteral("B@ME") }));
        QTRY_COMPARE_WITH_TIMEOUT(answers.size(), 1, Patience);
        const QVector<StrategyFile> files = StrategyFolder::instance().files();
        QCOMPARE(files.size(), 3);
        QVERIFY(!files.at(2).failure);
    }

    void aChangedFileIsReadAgainWithoutARestart()
    {
        write(path("a.xml"), named(QStringLiteral("A")));
        write(path("b.xml"), named(QStringLiteral("B")));
        open();
        QCOMPARE(userNames().size(), 2);
        QSignalSpy changes(&StrategyFolder::instance(), &StrategyFolder::changed);
        write(path("a.xml"), named(QStringLiteral("Longer")));
        QFile::remove(path("b.xml"));
        // Without a call: the folder is looked at from time to time.
        QVERIFY(changes.wait(Patience));
        QCOMPARE(userNames(), QStringList{ QStringLiteral("Longer@ME") });
    }

    void whatHasNotChangedIsNotReported()
    {
        write(path("a.xml"), named(QStringLiteral("A")));
        open();
        QSignalSpy changes(&StrategyFolder::instance(), &StrategyFolder::changed);
        StrategyFolder::instance().refresh();
        QTRY_VERIFY_WITH_TIMEOUT(!StrategyFolder::instance().isReading(), Patience);
        QCoreApplication::processEvents();
        QCOMPARE(changes.size(), 0);
    }

    void aFolderThatVanishesTakesItsStrategiesAway()
    {
        write(path("a.xml"), named(QStringLiteral("A")));
        open();
        QSignalSpy changes(&StrategyFolder::instance(), &StrategyFolder::changed);
        QVERIFY(m_folder->remove());
        StrategyFolder::instance().refresh();
        QVERIFY(changes.wait(Patience));
        QCOMPARE(userNames(), QStringList());
    }

    void noFolderLeavesTheBuiltInStrategies()
    {
        write(path("a.xml"), named(QStringLiteral("A")));
        open();
        QSignalSpy changes(&StrategyFolder::instance(), &StrategyFolder::changed);
        StrategyFolder::instance().open(QString());
        QVERIFY(changes.wait(Patience));
        QCOMPARE(userNames(), QStringList());
        QCOMPARE(StrategyLibrary::instance().names().size(), 5);
    }

    void theCommandReportsFilesAsText()
    {
        write(path("a.xml"),
            named(QStringLiteral("A"), QStringLiteral("\n<Parameter name=\"P\" xsi:type=\"UTCTimestamp_t\"/>")));
        const QByteArray report = run({ path("a.xml") }, 0);
        QCOMPARE(QString::fromUtf8(report),
            QStringLiteral("a.xml：1个策略\n"
                           "策略A（第2行）：不可用\n"
                           "原因 第3行：参数P的类型UTCTimestamp_t含有日期，计划跨多个交易日，请改用LocalMktTime_t\n"
                           "提示 第3行：参数P既没有控件也没有constValue，不会发出\n"));
    }

    void theCommandReportsFilesAsJson()
    {
        write(path("a.xml"),
            root(QStringLiteral("<Strategy name=\"A\" version=\"1\" wireValue=\"x\"><Parameter name=\"P\" "
                                "xsi:type=\"Int_t\" fixTag=\"7001\" constValue=\"5\"/></Strategy>\n"
                                "<Strategy name=\"B\"><Banana/></Strategy>")));
        write(path("b.xml"), QStringLiteral("<Strategies"));
        const QJsonArray files =
            QJsonDocument::fromJson(run({ path("a.xml"), path("b.xml"), QStringLiteral("--json") }, 1)).array();
        QCOMPARE(files.size(), 2);
        const QJsonObject good = files.at(0).toObject();
        QCOMPARE(good.value(QStringLiteral("state")).toString(), QStringLiteral("read"));
        const QJsonArray strategies = good.value(QStringLiteral("strategies")).toArray();
        QCOMPARE(strategies.at(0).toObject().value(QStringLiteral("state")).toString(), QStringLiteral("offered"));
        QCOMPARE(
            strategies.at(0).toObject().value(QStringLiteral("fields")).toString(), QStringLiteral("847=x|7001=5"));
        const QJsonObject refused = strategies.at(1).toObject();
        QCOMPARE(refused.value(QStringLiteral("state")).toString(), QStringLiteral("refused"));
        const QJsonObject reason = refused.value(QStringLiteral("reasons")).toArray().at(0).toObject();
        QCOMPARE(reason.value(QStringLiteral("line")).toInt(), 3);
        QCOMPARE(reason.value(QStringLiteral("reason")).toString(), QStringLiteral("元素Banana未知或不能出现在这里"));
        QCOMPARE(files.at(1).toObject().value(QStringLiteral("state")).toString(), QStringLiteral("refused"));
    }

    void hostileFilesEndWithAMessage_data()
    {
        QTest::addColumn<QByteArray>("start");
        QTest::addColumn<QByteArray>("part"); // repeated until the file has its size
        QTest::addColumn<qint64>("size");
        QTest::addColumn<QString>("message");
        const QByteArray root = "<Strategies xmlns=\"http://www.fixprotocol.org/FIXatdl-1-1/Core\"";
        constexpr qint64 Full = 4000000;
        QTest::newRow("one line of a gigabyte")
            << QByteArray() << QByteArray(1 << 20, ' ') << (qint64(1) << 30) << QStringLiteral("超过4194304字节");
        QTest::newRow("nesting") << root + ">" << QByteArray("<a>") << Full << QStringLiteral("元素嵌套超过64层");
        QTest::newRow("attributes") << root << QByteArray(" a=\"\"") << Full << QStringLiteral("元素的属性超过50个");
        QTest::newRow("quotes") << root + " a=" << QByteArray("\"'") << Full << QStringLiteral("b.xml：拒绝");
        QTest::newRow("elements") << root + "><Strategy name=\"a\">" << QByteArray("<a/>") << Full
                                  << QStringLiteral("元素超过100000个");
        QTest::newRow("text") << root + "><Strategy name=\"a\">" << QByteArray("x") << Full
                              << QStringLiteral("文件不完整");
        QTest::newRow("entities") << QByteArray("<!DOCTYPE s [<!ENTITY a \"b\">")
                                  << QByteArray("<!ENTITY c \"&a;&a;&a;\">") << Full << QStringLiteral("b.xml：拒绝");
        QTest::newRow("another encoding half way")
            << root + ">" << QByteArray(1 << 20, ' ') + "\xFF" << Full << QStringLiteral("含有不是UTF-8编码的字节");
    }

    void hostileFilesEndWithAMessage()
    {
        QFETCH(QByteArray, start);
        QFETCH(QByteArray, part);
        QFETCH(qint64, size);
        QFETCH(QString, message);
        QFile file(path("b.xml"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(start);
        if (size > (qint64(1) << 29)) {
            // A file with a hole takes no room.
            QVERIFY(file.resize(size));
        } else {
            const int times = static_cast<int>(size / part.size());
            file.write(part.repeated(times));
        }
        file.close();
        // The memory of the program is limited to what the file may need.
        QProcess program;
        program.start(QStringLiteral("/bin/sh"),
            { QStringLiteral("-c"), QStringLiteral("ulimit -v 2000000; exec \"$0\" check-strategies \"$1\""),
                QStringLiteral(PLANDESK_PROGRAM), file.fileName() });
        QVERIFY(program.waitForFinished(Patience));
        QCOMPARE(program.exitCode(), 1);
        const QString output = QString::fromUtf8(program.readAllStandardOutput());
        QVERIFY2(output.contains(message), qPrintable(output.left(500)));
    }

private:
    QString path(const char* name) const { return m_folder->filePath(QLatin1String(name)); }

    void open() const
    {
        QSignalSpy changes(&StrategyFolder::instance(), &StrategyFolder::changed);
        StrategyFolder::instance().open(m_folder->path());
        QVERIFY(changes.wait(Patience));
    }

    static QByteArray run(const QStringList& arguments, int code)
    {
        QProcess program;
        program.start(QStringLiteral(PLANDESK_PROGRAM), QStringList{ QStringLiteral("check-strategies") } + arguments);
        if (!program.waitForFinished(Patience) || program.exitCode() != code)
            return program.readAllStandardError();
        return program.readAllStandardOutput();
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(StrategyFolderTest)
#include "tst_strategy_folder.moc"
