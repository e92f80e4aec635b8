// A plan that a colleague changes while its form is open, in the client's window, and the history that the window and
// the program show.
#include "AutoPlanField.h"
#include "ClientWindowTest.h"
#include "ConflictDialog.h"
#include "FaultCount.h"
#include "HistoryTexts.h"
#include "InstructionTargetType.h"
#include "PlanCodes.h"
#include "PlanDetails.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTableWidget>
#include <QtTest>

#include <algorithm>

namespace BaseField = AutoPlanField::BaseField;
using namespace PlanCodes;

namespace {

const QString Colleague = QStringLiteral("trader02");
const QDateTime ChangeTime = QDateTime::fromString(QStringLiteral("2024-05-06T10:30:00.000Z"), Qt::ISODateWithMs);

} // namespace

class PlanConflictTest : public ClientWindowTest {
    Q_OBJECT

private:
    void tidyUp() override
    {
        m_sent.compare(session().ownersFile());
        QCOMPARE(m_sent.lost(), 0);
        ClientWindowTest::tidyUp();
    }

    SentPlans m_sent{ QStringLiteral("two clients on one plan") };

private Q_SLOTS:
    void aRefusedFormIsKeptAndTheDifferenceShown()
    {
        const QString plan = openEditAndConflict();
        QCOMPARE(totalOfForm(), QStringLiteral("3,000"));
        QVERIFY(dialog().isVisible());
        QCOMPARE(conflict()->windowTitle(), QStringLiteral("计划%1已被修改").arg(plan));
        QCOMPARE(field<QLabel>(*conflict(), "conflictText")->text(),
            QStringLiteral("您打开计划后，%1于2024-05-06 18:30:00保存了第2版。请核对不同之处，选择如何继续。")
                .arg(colleaguesName()));
        QCOMPARE(shownRows(),
            (QStringList{ QStringLiteral("目标总量|1,000 股|2,000 股|3,000 股"), QStringLiteral("备注||改|") }));
    }

    void theKeptFormReplacesTheNewVersion()
    {
        const QString plan = openEditAndConflict();
        press(QStringLiteral("btnKeep"));
        QVERIFY(dialog().isVisible());
        QCOMPARE(totalOfForm(), QStringLiteral("3,000"));
        QCOMPARE(send(), QStringLiteral("交易计划%1修改成功!").arg(plan));
        QCOMPARE(plans().plan(plan)->version, 3);
        QCOMPARE(plans().plan(plan)->record.value(BaseField::totalQty).toString(), QStringLiteral("3000"));
    }

    void theKeptFormReplacesOnlyTheVersionThatWasShown()
    {
        const QString plan = openEditAndConflict();
        changeAsColleague(plan, 2);
        press(QStringLiteral("btnKeep"));
        QVERIFY(send("msgBoxError").contains(colleaguesName()));
        QCOMPARE(plans().plan(plan)->version, 3);
        QTRY_VERIFY_WITH_TIMEOUT(conflict(), Patience);
        press(QStringLiteral("btnLater"));
    }

    void theKeyboardReachesTheButtonsAndEnterKeepsTheForm()
    {
        openEditAndConflict();
        auto* const table = field<QTableWidget>(*conflict(), "conflictFields");
        table->setFocus();
        QTest::keyClick(table, Qt::Key_Tab);
        QCOMPARE(conflict()->focusWidget()->objectName(), QStringLiteral("btnReload"));
        table->setFocus();
        QTest::keyClick(table, Qt::Key_Return);
        QVERIFY(!conflict() || !conflict()->isVisible());
        QCOMPARE(totalOfForm(), QStringLiteral("3,000"));
    }

    void aRowIsAsHighAsItsTexts()
    {
        openEditAndConflict();
        const auto* const table = field<QTableWidget>(*conflict(), "conflictFields");
        QTRY_VERIFY_WITH_TIMEOUT(table->rowHeight(0) < 3 * table->fontMetrics().height(), Patience);
    }

    void theNewVersionIsReadIntoTheForm()
    {
        const QString plan = openEditAndConflict();
        press(QStringLiteral("btnReload"));
        QVERIFY(dialog().isVisible());
        QCOMPARE(totalOfForm(), QStringLiteral("2,000"));
        dialogDriver().type("le_targetTotalNum", QStringLiteral("2500"));
        QCOMPARE(send(), QStringLiteral("交易计划%1修改成功!").arg(plan));
        const StoredPlan stored = *plans().plan(plan);
        QCOMPARE(stored.version, 3);
        QCOMPARE(stored.record.value(BaseField::totalQty).toString(), QStringLiteral("2500"));
        QCOMPARE(stored.record.value(BaseField::remark).toString(), QStringLiteral("改"));
    }

    void withoutAChoiceTheFormIsRefusedAgain()
    {
        const QString plan = openEditAndConflict();
        press(QStringLiteral("btnLater"));
        QVERIFY(send("msgBoxError").contains(colleaguesName()));
        QCOMPARE(plans().plan(plan)->version, 2);
        QTRY_VERIFY_WITH_TIMEOUT(conflict(), Patience);
        press(QStringLiteral("btnLater"));
        dialog().leave();
        // The next form starts from the present version.
        QVERIFY(ClientWindowTest::press(&window(), Qt::Key_E, Qt::ControlModifier));
        dialogDriver().type("le_targetTotalNum", QStringLiteral("2600"));
        QCOMPARE(send(), QStringLiteral("交易计划%1修改成功!").arg(plan));
    }

    void theWindowShowsTheHistory()
    {
        const QString plan = createSamples(1).constFirst();
        changeAsColleague(plan);
        openWindow();
        const QStringList texts = detailTexts();
        QVERIFY2(texts.contains(QStringLiteral("trader01 新建")), qPrintable(texts.join(QLatin1Char('\n'))));
        QVERIFY2(texts.contains(QStringLiteral("trader02 修改为第2版：目标总量 1,000 股→2,000 股，备注 （空）→改")),
            qPrintable(texts.join(QLatin1Char('\n'))));
    }

    void theWindowSaysThatThereAreMoreEntries()
    {
        const QString more = QStringLiteral("最近的100条，全部历史见命令plandesk history");
        const QString plan = createSamples(1).constFirst();
        addEntries(plan, 99);
        openWindow();
        QCOMPARE(detailTexts().filter(QStringLiteral("指令变更")).size(), 99);
        QVERIFY(detailTexts().contains(QStringLiteral("trader01 新建")));
        QVERIFY(!detailTexts().contains(more));
        addEntries(plan, 1);
        QVERIFY(ClientWindowTest::press(&window(), Qt::Key_F5));
        QCOMPARE(detailTexts().filter(QStringLiteral("指令变更")).size(), 100);
        QVERIFY(!detailTexts().contains(QStringLiteral("trader01 新建")));
        QVERIFY(detailTexts().contains(more));
    }

    void theTextsOfTheHistoryHaveTheWidthOfThePane()
    {
        createSamples(1);
        openWindow();
        const auto* const details = window().findChild<PlanDetails*>();
        const auto labels = details->findChildren<QLabel*>();
        const auto created = std::find_if(labels.cbegin(), labels.cend(),
            [](const QLabel* label) { return label->text() == QStringLiteral("trader01 新建"); });
        QVERIFY(created != labels.cend());
        QTRY_VERIFY_WITH_TIMEOUT(4 * (*created)->width() > 3 * details->viewport()->width(), Patience);
    }

    void aDamagedEntryIsReported()
    {
        if (TestDatabase::isOnServer())
            return; // a server refuses what is not JSON
        const QString plan = createSamples(1).constFirst();
        const Result<qint64> number = ClientSession::instance().database().insert(
            QStringLiteral("INSERT INTO history (event, plan, version, before, user, time, client) VALUES"
                           " ('changed', ?, 2, '{bad}', 'trader02', '2024-05-06T10:30:00.000Z', 'c') RETURNING number"),
            { PlanId::toNumber(plan).value_or(0) });
        QCOMPARE(number.status(), Status());
        const QString damaged = QStringLiteral("历史记录%1已损坏").arg(*number);
        openWindow();
        QVERIFY(detailTexts().contains(damaged));
        for (const QStringList& format : { QStringList(), QStringList{ QStringLiteral("--json") } })
            QVERIFY(QString::fromUtf8(run(QStringList{ plan } + format, 1))
                        .endsWith(QStringLiteral("plandesk: %1\n").arg(damaged)));
    }

    void aLineHasNoControlCharacters()
    {
        HistoryEntry entry{ HistoryEvent::Signed, 0, 0, QStringLiteral("a\x1b[31m\nb\tc\u009b"), {}, {} };
        entry.user = QStringLiteral("u\r\b");
        entry.client = QStringLiteral("host\a:1");
        entry.time = ChangeTime.toLocalTime();
        QCOMPARE(HistoryTexts::line(entry),
            QStringLiteral("2024-05-06 18:30:00 签署协议：a\uFFFD[31m b\uFFFDc\uFFFD（u\uFFFD\uFFFD，host\uFFFD:1）"));
    }

    void amountsAreInYuan()
    {
        HistoryEntry entry{ HistoryEvent::Issued, 1, 1, QStringLiteral("AP00000001-000001"), {}, {} };
        entry.after = { { FieldId::TargetType, InstructionTargetType::AmountOrder },
            { FieldId::IssuedQty, QStringLiteral("300") }, { FieldId::IssuedAmount, QStringLiteral("10050.00") },
            { FieldId::FilledQty, QStringLiteral("100") }, { QStringLiteral("cumAmount"), QStringLiteral("0.29") },
            { FieldId::EndState, EndState::Ended } };
        QCOMPARE(HistoryTexts::event(entry),
            QStringLiteral("下达指令：AP00000001-000001 下达10,050.00元 成交0.29元 已结束"));
        entry.after.insert(FieldId::TargetType, InstructionTargetType::QtyOrder);
        QCOMPARE(HistoryTexts::event(entry), QStringLiteral("下达指令：AP00000001-000001 下达300 成交100 已结束"));
    }

    void theProgramPrintsTheHistory()
    {
        const QString plan = createSamples(1).constFirst();
        changeAsColleague(plan);
        const QStringList lines = QString::fromUtf8(run({ plan })).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 2);
        QVERIFY2(lines.at(1).startsWith(QStringLiteral("2024-05-06 18:30:00 修改为第2版：目标总量 1,000 股→2,000 股，"
                                                       "备注 （空）→改（trader02，")),
            qPrintable(lines.at(1)));

        const QJsonArray entries = QJsonDocument::fromJson(run({ plan, QStringLiteral("--json") })).array();
        QCOMPARE(entries.size(), 2);
        const QJsonObject change = entries.at(1).toObject();
        QCOMPARE(change.value(QStringLiteral("event")).toString(), QStringLiteral("changed"));
        QCOMPARE(change.value(QStringLiteral("plan")).toString(), plan);
        QCOMPARE(change.value(QStringLiteral("version")).toInt(), 2);
        QCOMPARE(change.value(QStringLiteral("time")).toString(), QStringLiteral("2024-05-06T10:30:00.000Z"));
        QCOMPARE(change.value(QStringLiteral("before")).toObject().value(BaseField::totalQty).toString(),
            QStringLiteral("1000"));
        QCOMPARE(change.value(QStringLiteral("after")).toObject().value(BaseField::totalQty).toString(),
            QStringLiteral("2000"));
    }

    void theHistoryOfAMissingFileCreatesNothing()
    {
        if (TestDatabase::isOnServer())
            return; // it has no file
        const QString missing = session().file() + QStringLiteral(".missing");
        QProcess program;
        program.start(QStringLiteral(PLANDESK_PROGRAM),
            { QStringLiteral("history"), QStringLiteral("AP00000001"), QStringLiteral("--database"), missing });
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitCode(), 1);
        QVERIFY(QString::fromUtf8(program.readAllStandardError()).contains(QStringLiteral("文件不存在")));
        QVERIFY(!QFile::exists(missing));
    }

    void aStateIsShownInWords()
    {
        const QString plan = createSamples(1).constFirst();
        Database other;
        QCOMPARE(other.open(session().ownersFile()), Status());
        QCOMPARE(
            PlanStore(other).setState(plan, 1, PlanState::Paused, QStringLiteral("午间"), { Colleague, ChangeTime }),
            Status());
        openWindow();
        const QStringList texts = detailTexts();
        QVERIFY(texts.contains(QStringLiteral("已暂停")));
        QVERIFY(texts.contains(QStringLiteral("trader02 状态变更为第2版：有效→已暂停（午间）")));
    }

    void aLongTextIsShortened()
    {
        if (TestDatabase::isOnServer())
            return; // json_set is SQLite's
        createSamples(1);
        Database& database = ClientSession::instance().database();
        QCOMPARE(database.execute(QStringLiteral("UPDATE plans SET fields = json_set(fields, '$.remark', ?)"),
                     { QString(100000, QLatin1Char('x')) }),
            Status());
        openWindow();
        QVERIFY(detailTexts().contains(QString(2000, QLatin1Char('x')) + QStringLiteral("……（共100000字）")));
    }

    void theProgramPrintsNoHistoryOfTheOthersPlans()
    {
        if (TestDatabase::isOnServer())
            return; // there a user logs in, see tst_server_rights
        const QString plan = createSamples(1).constFirst();
        QVERIFY(QString::fromUtf8(run({ plan, QStringLiteral("--user"), QStringLiteral("trader09") }, 1))
                    .endsWith(QStringLiteral("plandesk: 计划“%1”不存在\n").arg(plan)));
    }

    void theProgramKnowsNoHistoryOfAnUnknownPlan()
    {
        QVERIFY(QString::fromUtf8(run({ QStringLiteral("AP00000099") }, 1))
                    .endsWith(QStringLiteral("plandesk: 计划“AP00000099”不存在\n")));
    }

private:
    static QString colleaguesName() { return UserStore(ClientSession::instance().database()).user(Colleague)->name; }
    ConflictDialog* conflict() const { return dialog().findChild<ConflictDialog*>(); }
    QString totalOfForm() const
    {
        return field<QWidget>(*dialogEditor(), "le_targetTotalNum")->findChild<QLineEdit*>()->text();
    }

    QStringList detailTexts() const
    {
        QStringList texts;
        for (const QLabel* const label : window().findChild<PlanDetails*>()->findChildren<QLabel*>())
            texts << label->text();
        return texts;
    }

    void changeAsColleague(const QString& plan, int version = 1)
    {
        Database other;
        QCOMPARE(other.open(session().ownersFile()), Status());
        PlanStore::Record record = SampleSession::record();
        record.insert(BaseField::totalQty, QStringLiteral("2000"));
        record.insert(BaseField::remark, QStringLiteral("改"));
        QCOMPARE(PlanStore(other).modify(plan, version, record, { Colleague, ChangeTime }), Status());
    }

    void addEntries(const QString& plan, int count)
    {
        Database other;
        QCOMPARE(other.open(session().ownersFile()), Status());
        QCOMPARE(
            other.execute(QStringLiteral("INSERT INTO history (event, plan, version, subject, \"user\", time, client)"
                                         " WITH RECURSIVE n (n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM n"
                                         " WHERE n < ?) SELECT 'instruction changed', ?, 1, 'i', 'trader01',"
                                         " '2024-05-06T10:30:00.000Z', 'c' FROM n"),
                { count, PlanId::toNumber(plan).value_or(0) }),
            Status());
    }

    /// Opens a plan of 1,000 shares, lets a colleague make it 2,000, and sends 3,000.
    QString openEditAndConflict()
    {
        const QString plan = createSamples(1).constFirst();
        openWindow();
        pressForEditor(Qt::Key_E);
        changeAsColleague(plan);
        dialogDriver().type("le_targetTotalNum", QStringLiteral("3000"));
        m_refusal = send("msgBoxError");
        const auto shown = [&] {
            QTRY_VERIFY_WITH_TIMEOUT(conflict() && conflict()->isVisible(), Patience);
            QCOMPARE(m_refusal,
                QStringLiteral("交易计划%1修改失败，失败原因：计划已被%2于2024-05-06 18:30:00修改（目标总量、备注），"
                               "本次修改未保存，请核对后重新提交")
                    .arg(plan, colleaguesName()));
            QCOMPARE(plans().plan(plan)->version, 2);
        };
        shown();
        return plan;
    }

    QStringList shownRows() const
    {
        const auto* const table = field<QTableWidget>(*conflict(), "conflictFields");
        QStringList rows;
        for (int row = 0; row < table->rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < table->columnCount(); ++column)
                cells << table->item(row, column)->text();
            rows << cells.join(QLatin1Char('|'));
        }
        return rows;
    }

    void press(const QString& button)
    {
        QTest::mouseClick(conflict()->findChild<QPushButton*>(button), Qt::LeftButton);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!conflict());
    }

    QByteArray run(const QStringList& arguments, int code = 0)
    {
        QProcess program;
        program.start(QStringLiteral(PLANDESK_PROGRAM),
            QStringList{ QStringLiteral("history"), QStringLiteral("--database"), session().file() } + arguments);
        if (!program.waitForFinished() || program.exitCode() != code)
            return program.readAllStandardError();
        return code == 0 ? program.readAllStandardOutput() : program.readAllStandardError();
    }

    QString m_refusal;
};

QTEST_MAIN(PlanConflictTest)
#include "tst_plan_conflict.moc"
