#include "LoggedTest.h"
#include "OrloAgreementSignWidget.h"
#include "TestStatus.h"
#include "WidgetServices.h"

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

class AgreementSignTest : public LoggedTest {
    Q_OBJECT

private:
    void prepare() override
    {
        m_boxText.clear();
        WidgetServices::instance() = WidgetServices();
        WidgetServices::instance().agreementTitle = QStringLiteral("减持计划风险揭示书");
        WidgetServices::instance().agreementText = QStringLiteral("请阅读<全文>。");
    }

    void fill(OrloAgreementSignWidget& dialog, int seconds = 0)
    {
        dialog.SetAccountSelectable(true);
        dialog.SetAgreement(QStringLiteral("P1"));
        dialog.SetSignCountDown(seconds);
        dialog.SetClientNoList({ QStringLiteral("C1"), QStringLiteral("C2") });
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    }
    template <typename Widget> static Widget* child(const QWidget& dialog, const char* name)
    {
        return dialog.findChild<Widget*>(QString::fromLatin1(name));
    }
    static QPushButton* signButton(const QWidget& dialog) { return child<QPushButton>(dialog, "btnSign"); }

    /// Confirms the next message box and stores its text.
    void confirmNextBox()
    {
        QTimer::singleShot(0, this, [this] {
            const QWidget* box = QApplication::activeModalWidget();
            m_boxText = box->findChild<QLabel*>(QStringLiteral("msgBoxText"))->text();
            QTest::mouseClick(child<QPushButton>(*box, "btnConfirm"), Qt::LeftButton);
        });
    }

    static const QList<QPair<QString, QStringList>>& signatures() { return WidgetServices::instance().signatures; }

    QString m_boxText;

private Q_SLOTS:
    void itShowsTheAgreementAndTheClients()
    {
        OrloAgreementSignWidget dialog(true, true, nullptr);
        fill(dialog);
        QCOMPARE(dialog.windowTitle(), QStringLiteral("减持计划风险揭示书"));
        QCOMPARE(child<QPlainTextEdit>(dialog, "agreementText")->toPlainText(), QStringLiteral("请阅读<全文>。"));
        QVERIFY(child<QPlainTextEdit>(dialog, "agreementText")->isReadOnly());
        const auto* clients = child<QListWidget>(dialog, "clientList");
        QCOMPARE(clients->count(), 2);
        QCOMPARE(clients->item(1)->text(), QStringLiteral("C2"));
        QCOMPARE(clients->item(1)->checkState(), Qt::Checked);
    }

    void whatCannotBeReadIsNotSigned()
    {
        WidgetServices::instance().agreementText.clear();
        OrloAgreementSignWidget dialog(true, true, nullptr);
        fill(dialog);
        QVERIFY(!signButton(dialog)->isEnabled());
        QCOMPARE(child<QPlainTextEdit>(dialog, "agreementText")->placeholderText(),
            QStringLiteral("无法读取协议的内容，不能签署。"));
        QTest::mouseClick(signButton(dialog), Qt::LeftButton);
        QCOMPARE(signatures().size(), 0);
    }

    void textAndClientsCanBeLeftOut()
    {
        OrloAgreementSignWidget dialog(false, false, nullptr);
        fill(dialog);
        QVERIFY(!child<QPlainTextEdit>(dialog, "agreementText")->isVisible());
        QVERIFY(!child<QListWidget>(dialog, "clientList")->isVisible());
        QVERIFY(signButton(dialog)->isEnabled());
    }

    void signingWaitsForTheCountdown()
    {
        OrloAgreementSignWidget dialog(true, true, nullptr);
        dialog.SetSignCountDown(2);
        dialog.SetClientNoList({ QStringLiteral("C1") });
        QVERIFY(!signButton(dialog)->isEnabled());
        QCOMPARE(signButton(dialog)->text(), QStringLiteral("签署（2）"));
        dialog.show();
        QTest::mouseClick(signButton(dialog), Qt::LeftButton);
        QCOMPARE(signatures().size(), 0);
        QTRY_COMPARE(signButton(dialog)->text(), QStringLiteral("签署（1）"));
        QVERIFY(!signButton(dialog)->isEnabled());
        QTRY_VERIFY(signButton(dialog)->isEnabled());
        QCOMPARE(signButton(dialog)->text(), QStringLiteral("签署"));
    }

    void chosenClientsSign()
    {
        OrloAgreementSignWidget dialog(true, true, nullptr);
        fill(dialog);
        auto* clients = child<QListWidget>(dialog, "clientList");
        clients->setCurrentRow(0);
        QTest::keyClick(clients, Qt::Key_Space);
        QCOMPARE(clients->item(0)->checkState(), Qt::Unchecked);
        QTest::mouseClick(signButton(dialog), Qt::LeftButton);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QVERIFY(!dialog.isVisible());
        QCOMPARE(signatures().size(), 1);
        QCOMPARE(signatures().first().first, QStringLiteral("P1"));
        QCOMPARE(signatures().first().second, QStringList{ QStringLiteral("C2") });
    }

    void allClientsSignWithoutAChoice()
    {
        OrloAgreementSignWidget dialog(true, true, nullptr);
        fill(dialog);
        dialog.SetAccountSelectable(false);
        QVERIFY(!(child<QListWidget>(dialog, "clientList")->item(0)->flags() & Qt::ItemIsUserCheckable));
        QTest::keyClick(signButton(dialog), Qt::Key_Space);
        QCOMPARE(signatures().first().second.size(), 2);
    }

    void signingWithoutAClientIsReported()
    {
        OrloAgreementSignWidget dialog(true, true, nullptr);
        fill(dialog);
        auto* clients = child<QListWidget>(dialog, "clientList");
        for (int row = 0; row < clients->count(); ++row)
            clients->item(row)->setCheckState(Qt::Unchecked);
        confirmNextBox();
        QTest::mouseClick(signButton(dialog), Qt::LeftButton);
        QCOMPARE(m_boxText, QStringLiteral("请选择签署客户！"));
        QCOMPARE(signatures().size(), 0);
        QVERIFY(dialog.isVisible());
    }

    void aFailureIsReportedAndTheDialogStays()
    {
        WidgetServices::instance().signing = Error::DatabaseBusy;
        OrloAgreementSignWidget dialog(true, true, nullptr);
        fill(dialog);
        confirmNextBox();
        QTest::mouseClick(signButton(dialog), Qt::LeftButton);
        QCOMPARE(m_boxText, errorText(Error::DatabaseBusy));
        QVERIFY(dialog.isVisible());
    }

    void cancelAndEscapeSignNothing()
    {
        OrloAgreementSignWidget dialog(true, true, nullptr);
        fill(dialog);
        QTest::keyClick(&dialog, Qt::Key_Escape);
        QVERIFY(!dialog.isVisible());
        dialog.show();
        QTest::mouseClick(child<QPushButton>(dialog, "btnCancel"), Qt::LeftButton);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(signatures().size(), 0);
    }

    void withoutClientsTheButtonIsDisabled()
    {
        OrloAgreementSignWidget dialog(true, true, nullptr);
        dialog.SetSignCountDown(0);
        QVERIFY(!signButton(dialog)->isEnabled());
    }

    void theDialogCanBeDeletedWithItsParent()
    {
        auto* parent = new QWidget;
        QPointer<OrloAgreementSignWidget> dialog(new OrloAgreementSignWidget(true, true, parent));
        QTimer::singleShot(0, this, [parent] { delete parent; });
        QCOMPARE(dialog->exec(), int(QDialog::Rejected));
        QVERIFY(!dialog);
    }
};

QTEST_MAIN(AgreementSignTest)
#include "tst_agreement_sign.moc"
