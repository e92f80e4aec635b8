// Imported plans with modes and algorithms.
#include "AutoPlanField.h"
#include "ClientSession.h"
#include "Kelvo_Fields.h"
#include "Language.h"
#include "PlanCodes.h"
#include "PlanTexts.h"
#include "StrategyLibrary.h"
#include "TestStatus.h"
#include "TransferTest.h"

#include <QtTest>

namespace Base = AutoPlanField::BaseField;

namespace {

const QByteArray Headings = "账户,指令类型,计划类型,证券代码,买卖,数量,开始,结束,价格,下单模式,算法,算法参数\n";
const QByteArray Start = "8001,普通,累计数量,600000.SH,买,1000,2024-05-06,2024-05-10,";

} // namespace

class ImportPlansTest : public TransferTest {
    Q_OBJECT

protected:
    void tidyUp() override
    {
        QVector<StrategyFile> none;
        StrategyLibrary::instance().setFiles(none);
        TransferTest::tidyUp();
    }

private Q_SLOTS:
    void anAlgorithmIsCheckedLikeInTheForm_data()
    {
        QTest::addColumn<QByteArray>("cells");
        QTest::addColumn<QString>("fault");
        const auto row = [](const char* name, const char* cells, const char* fault) {
            QTest::newRow(name) << QByteArray(cells) << QString::fromUtf8(fault);
        };
        row("a strategy of a file", ",,SLICE@DESK,\"{\"\"Slices\"\": 5}\"", "");
        row("an unknown parameter of a built-in one", ",算法交易复核,POV,\"{\"\"Rate\"\":\"\"0.1\"\"}\"",
            "算法【POV】没有参数“Rate”");
        row("an unknown one", ",,NOSUCH,\"{\"\"x\"\":\"\"y\"\"}\"", "第11列（算法）：未找到算法【NOSUCH】的参数定义！");
        row("an unknown parameter", ",,SLICE@DESK,\"{\"\"Slices\"\":5,\"\"bogus\"\":1}\"",
            "第12列（算法参数）：算法【SLICE@DESK】没有参数“bogus”");
        row("a missing parameter", ",,SLICE@DESK,", "第12列（算法参数）：Slices ");
        row("a wrong value", ",,SLICE@DESK,\"{\"\"Slices\"\":51}\"", "第12列（算法参数）：Slices ");
        row("no JSON", ",,SLICE@DESK,Slices=5", "第12列（算法参数）：算法参数不是JSON对象");
        row("a price limit is needed", ",,SNIPER,{}", "第");
        row("another mode", ",普通交易复核,SLICE@DESK,\"{\"\"Slices\"\":5}\"", "第10列（下单模式）：");
        row("parameters alone", ",主动管理,,\"{\"\"Slices\"\":5}\"",
            "第10列（下单模式）：算法只用于下单模式“算法交易复核”");
        row("a mode alone", ",算法交易复核,,", "第11列（算法）：算法为空");
        row("review of a plan without a limit", ",普通交易复核,,",
            "第10列（下单模式）：该计划不能使用下单模式“普通交易复核”");
    }

    void anAlgorithmIsCheckedLikeInTheForm()
    {
        QFETCH(QByteArray, cells);
        QFETCH(QString, fault);
        prepareReviewedUser();
        ImportReport report;
        const Status status = run(text("plans"), add(text("f"), Headings + Start + cells + '\n'), report);
        if (fault.isEmpty()) {
            QVERIFY2(status, qPrintable(reasons(report).join(QLatin1Char(' '))));
            return;
        }
        QVERIFY(!status);
        QVERIFY2(reasons(report).value(0).contains(fault), qPrintable(reasons(report).join(QLatin1Char(' '))));
    }

    void aSecurityMustSuitTheInstructionType_data()
    {
        QTest::addColumn<QByteArray>("row");
        QTest::addColumn<QString>("fault");
        const auto row = [](const char* name, const char* cells, const char* fault) {
            QTest::newRow(name) << QByteArray(cells) << QString::fromUtf8(fault);
        };
        row("a bond as an ordinary plan", "普通,113001.SH,100,",
            "第4列（证券代码）：证券113001.SH不能用于指令类型“普通交易”");
        row("a share as a bond", "债券,600000.SH,1000,", "第4列（证券代码）：证券600000.SH不能用于指令类型“债券交易”");
        row("a share of the mainland as one of Hong Kong", "港股通,600000.SH,1000,",
            "第4列（证券代码）：证券600000.SH不能用于指令类型“港股通交易”");
        row("a share of Hong Kong on credit", "信用,00001.HK,500,",
            "第4列（证券代码）：证券00001.HK不能用于指令类型“信用交易”");
        row("a fund by amount", "普通,510300.SH,,50000",
            "第7列（金额）：证券510300.SH在指令类型“普通交易”中不能按金额交易");
    }

    void aSecurityMustSuitTheInstructionType()
    {
        QFETCH(const QByteArray, row);
        QFETCH(const QString, fault);
        importUntil(QString());
        imported(text("securities"),
            add(text("f"),
                "证券代码,证券名称,类别,板块,小数位,系数,步长,涨跌幅\n510300.SH,己六ETF,基金,ETF,3,1,100,10%\n"));
        const QList<QByteArray> cells = row.split(',');
        const QByteArray plan = "8001," + cells.at(0) + ",累计数量," + cells.at(1) + ",买," + cells.at(2) + ','
            + cells.at(3) + ",2024-05-06,2024-05-10\n";
        ImportReport report;
        const QByteArray headings = "账户,指令类型,计划类型,证券代码,买卖,数量,金额,开始,结束\n";
        QVERIFY(!run(text("plans"), add(text("f"), headings + plan), report));
        QCOMPARE(reasons(report), QStringList{ text("f第2行") + fault });
    }

    void anAlgorithmNeedsAReviewedType()
    {
        importUntil(QString());
        readStrategies();
        ImportReport report;
        QVERIFY(
            !run(text("plans"), add(text("f"), Headings + Start + ",,SLICE@DESK,\"{\"\"Slices\"\":5}\"\n"), report));
        QCOMPARE(reasons(report),
            QStringList{ text("f第2行第10列（下单模式）：下单模式“算法交易复核”只用于须经复核的指令类型") });
    }

    void thePlanHasWhatTheFormAdds()
    {
        prepareReviewedUser();
        const QString file = add(text("f"), Headings + Start + ",,SLICE@DESK,\"{\"\"Slices\"\":5}\"\n");
        QCOMPARE(imported(text("plans"), file).added, qint64(1));
        PlanStore plans = ClientSession::instance().plans();
        const StoredPlan plan = plans.page(0, 1)->at(0);
        QCOMPARE(plan.record.value(Base::InstMode).toString(), QString(PlanCodes::InstMode::AlgoReview));
        const auto other = PlanTexts::otherParam(plan.record.value(Base::planOtherParam).toString());
        QCOMPARE(other->value(Base::algoStrategyName).toString(), text("SLICE@DESK"));
        const QVariantMap parameters = other->value(Base::algoParam).toMap();
        QCOMPARE(parameters.value(text("Slices")).toString(), text("5"));
        QCOMPARE(parameters.value(Base::algoStrategyName).toString(), text("SLICE@DESK"));
        QCOMPARE(parameters.size(), 6);
        QCOMPARE(counts(imported(text("plans"), file)), Counts({ 0, 0, 1, 0 }));
        // A stored plan keeps a strategy whose file is gone.
        const QByteArray csv = exported(text("plans"), TableFormat::Csv);
        QVector<StrategyFile> none;
        StrategyLibrary::instance().setFiles(none);
        QCOMPARE(counts(imported(text("plans"), add(text("f"), csv))), Counts({ 0, 0, 1, 0 }));
    }

    void plansAreImportedInAnotherLanguage()
    {
        importUntil(QString());
        logIn();
        imported(text("plans"), sample(text("plans")));
        QByteArray csv = exported(text("plans"), TableFormat::Csv);
        // As in a database that does not have them.
        csv.replace("AP0000000", "XP0000000");
        QCOMPARE(useLanguage(text("en")), Status());
        ImportReport report;
        const Status status = run(text("plans"), add(text("f"), csv), report);
        const QStringList faults = reasons(report);
        QCOMPARE(useLanguage(text("zh")), Status());
        QCOMPARE(faults, QStringList());
        QCOMPARE(status, Status());
        QCOMPARE(report.added, qint64(2));
    }

    void anExportWithoutPlansIsImported()
    {
        importUntil(QString());
        logIn();
        for (const TableFormat format : { TableFormat::Csv, TableFormat::Json, TableFormat::Workbook }) {
            ImportReport report;
            QCOMPARE(run(text("plans"), add(text("f"), exported(text("plans"), format)), report), Status());
            QCOMPARE(report.rows, qint64(0));
        }
    }

private:
    void readStrategies()
    {
        QVector<StrategyFile> files{ StrategyFile::read(strategyFile()) };
        StrategyLibrary::instance().setFiles(files);
    }

    void prepareReviewedUser()
    {
        importUntil(QString());
        imported(text("users"), add(text("f"), "user,name,account,types,review\nwang,王一,8001,普通,是\n"));
        readStrategies();
    }
};

QTEST_GUILESS_MAIN(ImportPlansTest)
#include "tst_import_plans.moc"
