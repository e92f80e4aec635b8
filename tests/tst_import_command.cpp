#include "LoggedTest.h"
#include "SourceText.h"
#include "TableReader.h"
#include "TestStatus.h"

#include <QDir>
#include <QFile>
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
        QCOMPARE(rows, 3);
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
        QCOMPARE(plandesk({ QStringLiteral("export"), QStringLiteral("closures") }).code, 1);
    }

private:
    ProgramEnd run(QProcess& program, const QByteArray& input) const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_DATA_HOME"), m_folder->path());
        environment.insert(QStringLiteral("PATH"),
            m_folder->filePath(QStringLiteral("bin:")) + environment.value(QStringLiteral("PATH")));
        program.setProcessEnvironment(environment);
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
