// The commands in English: neither output nor errors have a Chinese text that is not data.
#include "ChineseTexts.h"
#include "ClientSession.h"
#include "ProgramRun.h"
#include "SessionTest.h"
#include "StrategyTexts.h"
#include "TestStatus.h"

#include <QFile>
#include <QTemporaryDir>

#include <memory>

namespace {

QStringList words(const char* text)
{
    return QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QString sample(const char* kind)
{
    return QStringLiteral(PROJECT_FOLDER "/docs/import/%1.csv").arg(QLatin1String(kind));
}

} // namespace

class EnglishCommandsTest : public SessionTest {
    Q_OBJECT

private:
    void prepare() override
    {
        SessionTest::prepare();
        m_folder = std::make_unique<QTemporaryDir>();
        m_chinese = std::make_unique<ChineseTexts>(session().file());
        // What a message says can be typed.
        m_chinese->allow({ QStringLiteral("50,000 or 5万") });
    }

    QString write(const char* name, const QString& text) const
    {
        const QString path = m_folder->filePath(QLatin1String(name));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
            return QString();
        return path;
    }

    /// Runs the program in English and checks that it ends with a code and says something in English.
    void check(const QStringList& arguments, int code, const QByteArray& input = {})
    {
        const ProgramEnd end = runProgram(QStringLiteral(PLANDESK_PROGRAM),
            arguments + QStringList{ QStringLiteral("--language"), QStringLiteral("en") },
            QProcessEnvironment::systemEnvironment(), input);
        const QString text = end.output + end.errors;
        QVERIFY2(end.code == code, qPrintable(text));
        QVERIFY(!text.isEmpty());
        QCOMPARE(m_chinese->linesIn(text).join(QLatin1Char('\n')), QString());
    }

    QStringList onDatabase(const char* arguments) const
    {
        return words(arguments) + QStringList{ QStringLiteral("--database"), session().file() };
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ChineseTexts> m_chinese;

private Q_SLOTS:
    void theHelp() { check({ QStringLiteral("--help") }, 0); }

    void wrongOptions_data()
    {
        QTest::addColumn<QString>("arguments");
        for (const char* const line :
            { "--colour red", "--user", "--database=", "--help=yes", "plans.db", "--skin pink", "--securities many",
                "--strategies /no/such/folder", "--issue-day 2024-02-30", "--json", "--simulate", "--day 2024-05-06",
                "history AP00000001 --issue-preview", "history", "admin", "admin grant a", "import closes" })
            QTest::newRow(line) << QString::fromUtf8(line);
    }

    void wrongOptions()
    {
        QFETCH(QString, arguments);
        check(arguments.split(QLatin1Char(' ')), 2);
    }

    void whatCannotBeDone()
    {
        check(onDatabase("--issue-day=2024-05-06 --user=nobody"), 2);
        check(onDatabase("--issue-day=2024-05-06 --securities=500"), 2);
        check(onDatabase("--issue-day=2024-05-07"), 1);
        check(onDatabase("history AP00000099"), 1);
        check(onDatabase("admin list"), 0);
        check(onDatabase("admin revoke trader01"), 1);
        check(onDatabase("move-to elsewhere.sqlite"), 1);
        check(onDatabase("import stocks x.csv"), 1);
        check(onDatabase("import plans x.csv --replace"), 1);
        check(onDatabase("export stocks"), 1);
        check(onDatabase("export plans plans.doc"), 1);
        check(words("backup copy.sqlite --database /no/such/file.sqlite"), 1);
        check(words("import-closures /no/such/file.csv"), 1);
    }

    void theDayItsHistoryAndItsJournal()
    {
        QVERIFY(!session().create(SampleSession::record()).isEmpty());
        QVERIFY(!session().create(amountPlan(SampleSession::record())).isEmpty());
        QVERIFY(ClientSession::instance().plans().create(
            customPrice(SampleSession::record(), QStringLiteral("1-1")), ClientSession::instance().changeNow()));
        const QStringList day{ QStringLiteral("--issue-day=2024-05-06"), QStringLiteral("--simulate") };
        check(onDatabase("--issue-preview") + day, 3);
        check(onDatabase("--issue-preview --json") + day, 3);
        check(onDatabase("") + day, 3);
        check(onDatabase("") + day, 3);
        for (const char* const plan : { "history AP00000001", "history AP00000002", "history AP00000001 --json" })
            check(onDatabase(plan), 0);
        check(onDatabase("journal --day 2024-05-06"), 0);
        check(onDatabase("journal --day 2024-05-06 --json"), 0);
    }

    void strategyFiles()
    {
        const QString bad = write("bad.xml",
            StrategyTexts::strategy(QStringLiteral(
                "<Parameter name=\"P\" xsi:type=\"UTCTimestamp_t\" fixTag=\"7001\" use=\"required\"/>")));
        check({ QStringLiteral("check-strategies"), bad }, 0);
        check({ QStringLiteral("check-strategies"), bad, QStringLiteral("--json") }, 0);
        check({ QStringLiteral("check-strategies"), write("worse.xml", QStringLiteral("<Strategies/>")) }, 1);
        check({ QStringLiteral("check-strategies"), QStringLiteral("/no/such/file.xml") }, 1);
    }

    void importsAndExports()
    {
        m_chinese->allow(words("甲一股份 乙二科技 *ST丙三 丁四转债 戊五控股 稳健 信用一号 王一 李二 买一 卖一"));
        const QStringList own{ QStringLiteral("--database"), m_folder->filePath(QStringLiteral("own.sqlite")) };
        for (const QString& kind : words("securities closes accounts users positions plans")) {
            const QStringList import = words("import") + QStringList{ kind, sample(kind.toLatin1().constData()) } + own;
            const QStringList more = words(kind == QLatin1String("plans") ? "--user wang" : "--empty");
            check(import + more + words("--dry-run"), 0);
            check(import + more, 0);
        }
        const QString one = write("one.csv",
            QStringLiteral("symbol,name,type,sub-type,decimals,factor,step,limit\n"
                           "600000.SH,甲一,股票,主板,2,1,100,5%\n"));
        m_chinese->allow({ QStringLiteral("甲一") });
        const QStringList replace = words("import securities --replace") + QStringList{ one } + own;
        check(replace + words("--dry-run"), 1);
        check(words("import positions --replace")
                + QStringList{ write("none.csv", QStringLiteral("account,symbol,quantity,tradeable\n")) } + own,
            1, "no\n");
        const QString exported = m_folder->filePath(QStringLiteral("plans.csv"));
        check(words("export plans") + QStringList{ exported } + words("--user wang") + own, 0);
    }

    void changesOfCodes()
    {
        m_chinese->allow(words("甲一股份 戊五控股 王一 李二"));
        const QStringList own{ QStringLiteral("--database"), m_folder->filePath(QStringLiteral("own.sqlite")) };
        for (const char* const kind : { "securities", "accounts", "users", "chains" })
            check(words("import --empty") + QStringList{ QLatin1String(kind), sample(kind) } + own, 0);
        const auto change = [&](const char* kind, const char* text) {
            check(words("import --dry-run")
                    + QStringList{ QLatin1String(kind), write("change.csv", QString::fromUtf8(text)) } + own,
                0);
        };
        change("securities",
            "symbol,name,type,sub-type,decimals,factor,step,limit,flag\n00001.HK,戊五控股,基金,ETF,3,1,500,5%,*ST\n"
            "600000.SH,甲一股份,债券,国债,2,1,100,无,\n");
        change("accounts", "account,asset,XSHG,XSHE\n8001,信用,A9,\n");
        change("users", "user,name,account,types,review\nwang,王一,8001,普通,是\n");
        change("chains", "account,instruction-type,executors\n8001,普通,王一\n");
    }

    void faultsOfFiles_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("text");
        QTest::newRow("headings") << "securities"
                                  << "code,name,colour,colour\n1,2,3,4\n";
        QTest::newRow("cells") << "securities"
                               << "symbol,name,type,sub-type,decimals,factor,step,limit\n"
                                  "600000,,x,y,9,0,z,w\n600001.SH,n,stock,,1\n";
        QTest::newRow("numbers and dates") << "closes"
                                           << "symbol,date,close\n600000.SH,5-6,x\n600000.SH,2024-05-04,-1\n";
        QTest::newRow("an account") << "accounts"
                                    << "account,name,asset\n9001,,q\n";
        QTest::newRow("a new account") << "accounts"
                                       << "account,name\n9001,n\n";
        QTest::newRow("closures") << "closures"
                                  << "market,date,holiday,status\n香港,2031-01-01,x,暂定\n";
        QTest::newRow("rights") << "users"
                                << "user,name,account,types,review\na,,x,7,9\n";
        QTest::newRow("positions") << "positions"
                                   << "account,symbol,quantity,tradeable\nx,y,z,w\n100001,,1,2\n";
        QTest::newRow("plans") << "plans"
                               << "account,instruction-type,plan-type,symbol,side,begin,quantity,amount,price,state\n"
                                  "x,y,z,w,v,u,1,2,+,3\n100001,1,TW-01,,buy,2024-05-06,,,,paused\n";
        QTest::newRow("a quote") << "closes"
                                 << "symbol,date,close\n\"a,b\n";
    }

    void faultsOfFiles()
    {
        QFETCH(QString, kind);
        QFETCH(QString, text);
        check(onDatabase("import") + QStringList{ kind, write("bad.csv", text) }, 1);
    }
};

QTEST_GUILESS_MAIN(EnglishCommandsTest)
#include "tst_english_commands.moc"
