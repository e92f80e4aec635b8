#include "Database.h"
#include "LoggedTest.h"
#include "SourceText.h"
#include "TableReader.h"
#include "TestStatus.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

struct ProgramEnd {
    int code = -1;
    QString output;
    QString errors;
};

QString sample(const char* kind)
{
    return QStringLiteral(PROJECT_FOLDER "/docs/import/%1.csv").arg(QLatin1String(kind));
}

} // namespace

/// The commands `import` and `export` of the program.
class ImportCommandTest : public LoggedTest {
    Q_OBJECT

protected:
    void prepare() override
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("bin")));
        QVERIFY(QFile::link(QStringLiteral(PLANDESK_PROGRAM), m_folder->filePath(QStringLiteral("bin/plandesk"))));
        QVERIFY(QFile::link(QStringLiteral(PROJECT_FOLDER "/docs"), m_folder->filePath(QStringLiteral("docs"))));
    }

private Q_SLOTS:
    void theReadmeLeadsFromAnEmptyFileToPlans()
    {
        const QString readme = textOf(QStringLiteral(PROJECT_FOLDER "/README.md"));
        const QString lines =
            readme.section(QStringLiteral("```sh\nplandesk import"), 1).section(QStringLiteral("```"), 0, 0);
        const ProgramEnd end = shell(QStringLiteral("plandesk import") + lines);
        QVERIFY2(end.code == 0, qPrintable(end.errors + end.output));
        QFile file(m_folder->filePath(QStringLiteral("instructions.xlsx")));
        QVERIFY(file.open(QIODevice::ReadOnly));
        qint64 line = 0;
        int rows = 0;
        const auto count = [&rows](const TableRow&) {
            ++rows;
            return Status();
        };
        QCOMPARE(TableReader::read(file, line, count), Status());
        QCOMPARE(rows, 4);
    }

    void aMissingDatabaseIsCreatedOnlyWhenAsked()
    {
        const QStringList arguments{ QStringLiteral("import"), QStringLiteral("securities"), sample("securities"),
            QStringLiteral("--database"), QStringLiteral("my.sqlite") };
        const ProgramEnd refused = plandesk(arguments);
        QCOMPARE(refused.code, 1);
        QVERIFY(!QFile::exists(m_folder->filePath(QStringLiteral("my.sqlite"))));
        QCOMPARE(plandesk(arguments + QStringList{ QStringLiteral("--empty") }).output,
            QStringLiteral("securities.csv：新增5，修改0，不变0\n"));
        QCOMPARE(plandesk(arguments).output, QStringLiteral("securities.csv：新增0，修改0，不变5\n"));
    }

    void aFileThatIsRefusedIsReportedAndTheOthersAreImported()
    {
        const QString bad = write(QStringLiteral("bad.csv"), "代码,名称\n");
        const ProgramEnd end = plandesk({ QStringLiteral("import"), QStringLiteral("securities"), bad,
            sample("securities"), QStringLiteral("--database"), QStringLiteral("my.sqlite"), QStringLiteral("--empty"),
            QStringLiteral("--json") });
        QCOMPARE(end.code, 1);
        QVERIFY(end.errors.endsWith(QStringLiteral("plandesk: %1：有1处错误，没有导入任何内容\n").arg(bad)));
        const QJsonArray reports = QJsonDocument::fromJson(end.output.toUtf8()).array();
        QCOMPARE(reports.size(), 2);
        const QJsonObject first = reports.at(0).toObject();
        QCOMPARE(first.value(QStringLiteral("stored")), QJsonValue(false));
        QCOMPARE(first.value(QStringLiteral("faultCount")), QJsonValue(1));
        QCOMPARE(first.value(QStringLiteral("faults")).toArray().at(0).toObject().value(QStringLiteral("line")),
            QJsonValue(1));
        QCOMPARE(reports.at(1).toObject().value(QStringLiteral("added")), QJsonValue(5));
    }

    void whatWouldBeRemovedIsListedBeforeTheQuestion()
    {
        const QStringList rest{ QStringLiteral("--database"), QStringLiteral("my.sqlite") };
        const QStringList import{ QStringLiteral("import"), QStringLiteral("securities") };
        QCOMPARE(plandesk(import + QStringList{ sample("securities"), QStringLiteral("--empty") } + rest).code, 0);
        const QString one = write(QStringLiteral("one.csv"),
            "symbol,name,type,sub-type,decimals,factor,step,limit\n600000.SH,甲一股份,股票,主板,2,1,100,10%\n");
        const QStringList replace = import + QStringList{ one, QStringLiteral("--replace") } + rest;
        const ProgramEnd trial = plandesk(replace + QStringList{ QStringLiteral("--dry-run") });
        QCOMPARE(trial.code, 0);
        QVERIFY(trial.output.startsWith(QStringLiteral("删除：688001.SH\n")));
        const ProgramEnd no = plandesk(replace, "no\n");
        QCOMPARE(no.code, 1);
        QVERIFY(no.errors.contains(QStringLiteral("删除：688001.SH\n")));
        const ProgramEnd yes = plandesk(replace, "yes\n");
        QCOMPARE(yes.code, 0);
        QVERIFY(yes.output.endsWith(QStringLiteral("one.csv：新增0，修改0，不变1，删除4\n")));
    }

    void unknownKindsAreRefused()
    {
        const ProgramEnd import =
            plandesk({ QStringLiteral("import"), QStringLiteral("stocks"), sample("securities") });
        QCOMPARE(import.code, 1);
        QVERIFY(import.errors.contains(QStringLiteral("没有类别“stocks”")));
        QCOMPARE(plandesk({ QStringLiteral("import"), QStringLiteral("securities") }).code, 2);
        QCOMPARE(plandesk({ QStringLiteral("export"), QStringLiteral("stocks") }).code, 1);
    }

    void hostileFilesEndWithAMessage_data()
    {
        QTest::addColumn<QByteArray>("start");
        QTest::addColumn<QByteArray>("part"); // repeated until the file has its size
        QTest::addColumn<qint64>("size");
        QTest::addColumn<QString>("message");
        constexpr qint64 Full = 100000000;
        QTest::newRow("a gigabyte of nothing")
            << QByteArray("symbol,date,close\n") << QByteArray() << (qint64(1) << 30) << QStringLiteral("第2行");
        QTest::newRow("one line") << QByteArray("symbol,date,close\n") << QByteArray("x") << Full
                                  << QStringLiteral("超过1048576字节");
        QTest::newRow("quotes") << QByteArray("symbol,date,close\n\"") << QByteArray("\"\"") << Full
                                << QStringLiteral("超过1048576字节");
        QTest::newRow("nesting") << QByteArray() << QByteArray("[") << qint64(60000000)
                                 << QStringLiteral("JSON应为对象的数组");
        QTest::newRow("cells") << QByteArray("symbol,date,close\n") << QByteArray(",") << Full
                               << QStringLiteral("超过1000列");
        QTest::newRow("another encoding half way")
            << QByteArray("证券代码,日期,收盘价\n") + QByteArray(",,\n").repeated(1000000) + "\xD6\xD0,,\n"
            << QByteArray(",,\n") << Full << QStringLiteral("第1000002行：编码错误：内容不是UTF-8");
    }

    void hostileFilesEndWithAMessage()
    {
        QFETCH(QByteArray, start);
        QFETCH(QByteArray, part);
        QFETCH(qint64, size);
        QFETCH(QString, message);
        const QString path = write(QStringLiteral("hostile"), start);
        QFile file(path);
        QVERIFY(file.open(QIODevice::Append));
        if (part.isEmpty())
            QVERIFY(file.resize(size)); // a file with a hole takes no room
        for (qint64 written = 0; !part.isEmpty() && written < size;) {
            const QByteArray many = part.repeated(static_cast<int>(1000000 / part.size() + 1));
            QCOMPARE(file.write(many), qint64(many.size()));
            written += many.size();
        }
        file.close();
        const ProgramEnd end =
            shell(QStringLiteral("ulimit -v 2000000; plandesk import closes hostile --database my.sqlite --empty"));
        QCOMPARE(end.code, 1);
        QVERIFY2(end.output.contains(message), qPrintable(end.output.left(500) + end.errors.left(500)));
    }

    void aTemplateIsOnlyForPlans()
    {
        const QStringList start{ QStringLiteral("import"), QStringLiteral("plans"), sample("plans") };
        const ProgramEnd leavesOut = plandesk(start + QStringList{ QStringLiteral("--leave-out") });
        QCOMPARE(leavesOut.code, 1);
        QVERIFY(leavesOut.errors.contains(QStringLiteral("选项--leave-out只用于import plans --template")));
        const ProgramEnd other = plandesk({ QStringLiteral("import"), QStringLiteral("closes"), sample("closes"),
            QStringLiteral("--template"), QStringLiteral("AP00000001") });
        QCOMPARE(other.code, 1);
        QVERIFY(other.errors.contains(QStringLiteral("选项--template只用于import plans")));
    }

    void aSheetThatWasInterruptedIsSentAgainWithoutTwins()
    {
        const QStringList rest{ QStringLiteral("--database"), QStringLiteral("my.sqlite") };
        for (const char* const kind : { "securities", "closes", "accounts", "users", "positions" })
            QCOMPARE(plandesk(QStringList{ QStringLiteral("import"), QLatin1String(kind), sample(kind),
                                  QStringLiteral("--empty") }
                         + rest)
                         .code,
                0);
        const QStringList user = rest + QStringList{ QStringLiteral("--user"), QStringLiteral("wang") };
        const QStringList import{ QStringLiteral("import"), QStringLiteral("plans") };
        QCOMPARE(plandesk(import + QStringList{ sample("plans") } + user).code, 0);
        constexpr int Rows = 2000;
        QByteArray sheet = "代码,数量\n";
        for (int i = 1; i <= Rows; ++i)
            sheet += "600000.SH," + QByteArray::number(100 * i) + '\n';
        const QStringList command = import
            + QStringList{ write(QStringLiteral("sheet.csv"), sheet), QStringLiteral("--template"),
                  QStringLiteral("AP00000001") }
            + user;
        QProcess killed;
        killed.setWorkingDirectory(m_folder->path());
        killed.start(QStringLiteral(PLANDESK_PROGRAM), command);
        QVERIFY(killed.waitForStarted());
        // The transaction has begun to write, or has just ended.
        QTRY_VERIFY_WITH_TIMEOUT(killed.state() == QProcess::NotRunning
                || QFileInfo(m_folder->filePath(QStringLiteral("my.sqlite-wal"))).size() > 100000,
            100000);
        killed.kill();
        QVERIFY(killed.state() == QProcess::NotRunning || killed.waitForFinished());
        QCOMPARE(plandesk(command).code, 0);
        const ProgramEnd again = plandesk(command);
        QCOMPARE(again.output, QStringLiteral("sheet.csv：新增0，修改0，不变%1\n").arg(Rows));
        QCOMPARE(plandesk(QStringList{ QStringLiteral("export"), QStringLiteral("plans") } + user)
                     .output.count(QLatin1Char('\n')),
            Rows + 3);
    }

    void theCopyOfAKilledImportIsRemovedByTheNextOne()
    {
        const auto copies = [this] {
            return QDir(m_folder->path()).entryList({ QStringLiteral("plandesk-import-*") });
        };
        QByteArray many = "symbol,name,type,sub-type,decimals,factor,step,limit\n";
        for (int i = 0; i < 100000; ++i)
            many += QByteArray::number(600000 + i) + ".SH,n,股票,主板,2,1,100,10%\n";
        const QStringList rest{ QStringLiteral("--database"), QStringLiteral("my.sqlite") };
        QCOMPARE(plandesk(QStringList{ QStringLiteral("import"), QStringLiteral("securities"), sample("securities"),
                              QStringLiteral("--empty") }
                     + rest)
                     .code,
            0);
        const auto import = [&](const QString& file) {
            return QStringList{ QStringLiteral("import"), QStringLiteral("securities"), file } + rest;
        };
        QProcess killed;
        killed.setWorkingDirectory(m_folder->path());
        killed.setProcessEnvironment(environment());
        killed.start(QStringLiteral(PLANDESK_PROGRAM), import(write(QStringLiteral("many.csv"), many)));
        QTRY_VERIFY_WITH_TIMEOUT(copies().size() == 2, 100000);
        // A running one keeps its copy.
        const QStringList before = copies();
        const auto importSample = [&] { return plandesk(import(sample("securities"))).code; };
        QCOMPARE(importSample(), 0);
        QCOMPARE(copies(), before);
        killed.kill();
        QVERIFY(killed.waitForFinished());
        QCOMPARE(copies(), before);
        QCOMPARE(importSample(), 0);
        QCOMPARE(copies(), QStringList());
    }

    void aCommandWaitsForAnotherProgram()
    {
        const QStringList rest{ QStringLiteral("--database"), QStringLiteral("my.sqlite"), QStringLiteral("--user"),
            QStringLiteral("wang") };
        for (const char* const kind : { "securities", "closes", "accounts", "users", "positions", "plans" }) {
            const QStringList import{ QStringLiteral("import"), QLatin1String(kind), sample(kind),
                QStringLiteral("--empty") };
            QCOMPARE(plandesk(import + rest).code, 0);
        }
        Database other;
        QCOMPARE(other.open(m_folder->filePath(QStringLiteral("my.sqlite"))), Status());
        QProcess issue;
        issue.setProgram(QStringLiteral(PLANDESK_PROGRAM));
        issue.setWorkingDirectory(m_folder->path());
        issue.setArguments(
            QStringList{ QStringLiteral("--issue-day"), QStringLiteral("2027-12-20"), QStringLiteral("--simulate") }
            + rest);
        const Status held = other.transaction([&issue]() -> Status {
            constexpr int LongerThanAWindowWaits = 3000;
            issue.start();
            return issue.waitForFinished(LongerThanAWindowWaits) ? Error::DatabaseBusy : Error::None;
        });
        QCOMPARE(held, Status());
        QVERIFY(issue.waitForFinished(100000));
        QCOMPARE(issue.exitCode(), 0);
    }

    void onlyOneFileReplaces()
    {
        const ProgramEnd end = plandesk({ QStringLiteral("import"), QStringLiteral("securities"), sample("securities"),
            sample("securities"), QStringLiteral("--replace"), QStringLiteral("--yes"), QStringLiteral("--database"),
            QStringLiteral("my.sqlite"), QStringLiteral("--empty") });
        QCOMPARE(end.code, 1);
        QVERIFY(end.errors.contains(QStringLiteral("--replace一次只能用于一个文件")));
        QVERIFY(!QFile::exists(m_folder->filePath(QStringLiteral("my.sqlite"))));
    }

    void cashLimitsAndChainsOfAFileAreSet()
    {
        const QStringList rest{ QStringLiteral("--database"), QStringLiteral("my.sqlite") };
        const QStringList missing{ QStringLiteral("admin"), QStringLiteral("list") };
        QCOMPARE(plandesk(missing + rest).code, 1);
        QVERIFY(!QFile::exists(m_folder->filePath(QStringLiteral("my.sqlite"))));
        for (const char* const kind : { "accounts", "users" }) {
            const QStringList import{ QStringLiteral("import"), QLatin1String(kind), sample(kind),
                QStringLiteral("--empty") };
            QCOMPARE(plandesk(import + rest).code, 0);
        }
        const auto admin = [&](const char* words) {
            const QStringList all = QString::fromUtf8(words).split(QLatin1Char(' '));
            return plandesk(QStringList{ QStringLiteral("admin") } + all + rest);
        };
        QCOMPARE(admin("set-cash 8001 1000000").code, 0);
        QCOMPARE(admin("set-limits 8001 quantity=5000").code, 0);
        QCOMPARE(admin("set-chain 8001 1 executors=李二").code, 0);
        const QString list = admin("list").output;
        QVERIFY2(list.contains(QStringLiteral("最大数量5000")), qPrintable(list));
        QVERIFY2(list.contains(QStringLiteral("账户8001：指令类型1，执行人李二")), qPrintable(list));
        QVERIFY2(list.contains(QStringLiteral("用户wang：姓名王一，可以登录")), qPrintable(list));
        QCOMPARE(admin("revoke wang").code, 1);
    }

    void theJournalOfADayIsExported()
    {
        const QStringList rest{ QStringLiteral("--database"), QStringLiteral("my.sqlite"), QStringLiteral("--user"),
            QStringLiteral("wang") };
        for (const char* const kind : { "securities", "closes", "accounts", "users", "positions", "plans" }) {
            const QStringList import{ QStringLiteral("import"), QLatin1String(kind), sample(kind),
                QStringLiteral("--empty") };
            QCOMPARE(plandesk(import + rest).code, 0);
        }
        QCOMPARE(plandesk(QStringList{ QStringLiteral("--issue-day"), QStringLiteral("2027-12-20"),
                              QStringLiteral("--simulate") }
                     + rest)
                     .code,
            0);
        const QStringList command = QStringList{ QStringLiteral("export"), QStringLiteral("journal") } + rest;
        const QStringList lines =
            plandesk(command + QStringList{ QStringLiteral("--day"), QStringLiteral("2027-12-20") })
                .output.split(QStringLiteral("\r\n"));
        QCOMPARE(lines.value(0), QStringLiteral("日期,时间,计划编号,账户,证券代码,交易方向,事项,内容,用户"));
        QCOMPARE(lines.size(), 4);
        QVERIFY2(lines.at(1).startsWith(QStringLiteral("2027-12-20,")), qPrintable(lines.at(1)));
        QVERIFY2(lines.at(1).contains(QStringLiteral(",AP00000001,8001,600000.SH,买入,下达,\"AP00000001-000001 下达 ")),
            qPrintable(lines.at(1)));
        QCOMPARE(plandesk(command + QStringList{ QStringLiteral("--day"), QStringLiteral("2027-12-21") })
                     .output.count(QLatin1Char('\n')),
            1);
        QCOMPARE(plandesk(QStringList{ QStringLiteral("export"), QStringLiteral("plans"), QStringLiteral("--day"),
                              QStringLiteral("2027-12-21") }
                     + rest)
                     .code,
            1);
    }

private:
    /// With folders of its own for data and temporary files.
    QProcessEnvironment environment() const
    {
        QProcessEnvironment own = QProcessEnvironment::systemEnvironment();
        own.insert(QStringLiteral("XDG_DATA_HOME"), m_folder->path());
        own.insert(QStringLiteral("TMPDIR"), m_folder->path());
        own.insert(
            QStringLiteral("PATH"), m_folder->filePath(QStringLiteral("bin:")) + own.value(QStringLiteral("PATH")));
        return own;
    }

    ProgramEnd run(QProcess& program, const QByteArray& input) const
    {
        program.setProcessEnvironment(environment());
        program.setWorkingDirectory(m_folder->path());
        program.start();
        program.write(input);
        program.closeWriteChannel();
        if (!program.waitForFinished(100000))
            return ProgramEnd();
        return { program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()),
            QString::fromUtf8(program.readAllStandardError()) };
    }

    ProgramEnd plandesk(const QStringList& arguments, const QByteArray& input = {}) const
    {
        QProcess program;
        program.setProgram(QStringLiteral(PLANDESK_PROGRAM));
        program.setArguments(arguments);
        return run(program, input);
    }

    ProgramEnd shell(const QString& lines) const
    {
        QProcess program;
        program.setProgram(QStringLiteral("bash"));
        program.setArguments({ QStringLiteral("-ec"), lines });
        return run(program, {});
    }

    QString write(const QString& name, const QByteArray& contents) const
    {
        QFile file(m_folder->filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
            qFatal("No file");
        return file.fileName();
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(ImportCommandTest)

#include "tst_import_command.moc"
