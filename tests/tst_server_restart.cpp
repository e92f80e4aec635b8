// The client's window while its server is killed, or stopped, and started again.
#include "AutoPlanField.h"
#include "ClientWindowTest.h"
#include "ErrorText.h"
#include "FaultServer.h"
#include "PlanTable.h"
#include "TestStatus.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QtTest>

namespace BaseField = AutoPlanField::BaseField;

namespace {

constexpr int ThreeSeconds = 3000 * TEST_TIMEOUT_SCALE;

} // namespace

class ServerRestartTest : public ClientWindowTest {
    Q_OBJECT

protected:
    void tidyUp() override
    {
        FaultServer::start();
        m_server.close();
        ClientWindowTest::tidyUp();
    }

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("TEST_DATABASE", "server");
        FaultServer::makeRoom();
        FaultServer::start();
    }

    void anOpenFormIsSentWhenTheServerIsBack_data()
    {
        QTest::addColumn<QString>("mode");
        QTest::newRow("killed") << QStringLiteral("immediate");
        QTest::newRow("stopped") << QStringLiteral("fast");
    }

    void anOpenFormIsSentWhenTheServerIsBack()
    {
        QFETCH(QString, mode);
        openWindow();
        const QString plan = createPlan();
        QCOMPARE(window().currentPlan(), plan);
        pressForEditor(Qt::Key_E);
        dialogDriver().type("le_targetTotalNum", QStringLiteral("3000"));
        QVERIFY(!line()->isVisible());

        log().allowLostConnection();
        FaultServer::stop(mode);
        QTRY_VERIFY_WITH_TIMEOUT(line()->isVisible(), ThreeSeconds);
        QCOMPARE(line()->text(), QStringLiteral("与服务器的连接已断开，正在重新连接……"));
        QCOMPARE(send("msgBoxError"),
            QStringLiteral("交易计划%1修改失败，失败原因：%2").arg(plan, errorText(Error::ConnectionLost)));
        QVERIFY(dialog().isVisible());
        QCOMPARE(totalOfForm(), QStringLiteral("3,000"));

        FaultServer::start();
        QTRY_VERIFY_WITH_TIMEOUT(!line()->isVisible(), Patience);
        QVERIFY(dialog().isVisible());
        QCOMPARE(totalOfForm(), QStringLiteral("3,000"));
        QCOMPARE(send(), QStringLiteral("交易计划%1修改成功!").arg(plan));
        QCOMPARE(m_server.open(session().ownersFile()), Status());
        const auto stored = PlanStore(m_server).plan(plan);
        QCOMPARE(stored->version, 2);
        QCOMPARE(stored->record.value(BaseField::totalQty).toString(), QStringLiteral("3000"));
        // Changes by others are noticed again.
        QCOMPARE(PlanStore(m_server)
                     .create(stored->record, { QStringLiteral("trader01"), QDateTime::currentDateTimeUtc() })
                     .status(),
            Status());
        QTRY_COMPARE_WITH_TIMEOUT(field<PlanTable>(window(), "planTable")->planCount(), 2, Patience);
    }

    void aStateIsSetBeforeAndAfterwards()
    {
        const QString plan = createSamples(1).constFirst();
        openWindow();
        setState("action_pause", QStringLiteral("1个计划已暂停"));
        log().allowLostConnection();
        FaultServer::stop(QStringLiteral("fast"));
        QTRY_VERIFY_WITH_TIMEOUT(line()->isVisible(), ThreeSeconds);
        FaultServer::start();
        QTRY_VERIFY_WITH_TIMEOUT(!line()->isVisible(), Patience);
        setState("action_resume", QStringLiteral("1个计划已恢复"));
        QCOMPARE(boxes().take().size(), 0);
        QCOMPARE(plans().plan(plan)->version, 3);
    }

private:
    void setState(const char* action, const QString& done) const
    {
        field<QAction>(window(), action)->trigger();
        QTRY_COMPARE_WITH_TIMEOUT(text(window(), "status"), done, Patience);
    }

    QLabel* line() const { return field<QLabel>(window(), "outdated"); }
    QString totalOfForm() const
    {
        return field<QWidget>(*dialogEditor(), "le_targetTotalNum")->findChild<QLineEdit*>()->text();
    }

    Database m_server; ///< another client
};

QTEST_MAIN(ServerRestartTest)
#include "tst_server_restart.moc"
