#include "LoggedTest.h"
#include "OrloWidget.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>

class MessageBoxesTest : public LoggedTest {
    Q_OBJECT

private:
    void prepare() override
    {
        m_boxes = 0;
        m_parent = new QWidget;
        m_parent->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_parent));
    }

    void tidyUp() override
    {
        delete m_parent;
        QCOMPARE(m_boxes, 1);
    }

    /// Does something with the box once it is open.
    void whenOpen(const std::function<void(QDialog*)>& act)
    {
        QTimer::singleShot(0, this, [this, act] {
            auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            QVERIFY(box);
            ++m_boxes;
            act(box);
        });
    }

    QPushButton* button(const QDialog* box, const char* name) const
    {
        return box->findChild<QPushButton*>(QString::fromLatin1(name));
    }

    QPointer<QWidget> m_parent;
    int m_boxes = 0;

private Q_SLOTS:
    void eachKindHasItsNameAndText_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("warning") << QStringLiteral("msgBoxWarning");
        QTest::newRow("error") << QStringLiteral("msgBoxError");
        QTest::newRow("tip") << QStringLiteral("msgBoxTip");
        QTest::newRow("question") << QStringLiteral("msgBoxQuestion");
    }

    void eachKindHasItsNameAndText()
    {
        QFETCH(QString, name);
        const QString text = QStringLiteral("未输入目标总量！");
        whenOpen([&](QDialog* box) {
            QCOMPARE(box->objectName(), name);
            QCOMPARE(box->findChild<QLabel*>(QStringLiteral("msgBoxText"))->text(), text);
            QCOMPARE(button(box, "btnConfirm")->text(), QStringLiteral("确认"));
            QCOMPARE(button(box, "btnCancel") != nullptr, name == QStringLiteral("msgBoxQuestion"));
            QTest::mouseClick(button(box, "btnConfirm"), Qt::LeftButton);
        });
        if (name == QStringLiteral("msgBoxWarning"))
            OrloWidget::ShowWarningMsgBox(text, m_parent);
        else if (name == QStringLiteral("msgBoxError"))
            OrloWidget::ShowErrorMsgBox(text, m_parent);
        else if (name == QStringLiteral("msgBoxTip"))
            OrloWidget::ShowTipMsgBox(text, m_parent);
        else
            QVERIFY(OrloWidget::ShowQuestionMsgBox(text, m_parent, 0) != 0);
        QVERIFY2(!m_parent->findChild<QDialog*>(), "nothing of the box is left");
    }

    void textIsPlainAndWrapped()
    {
        const QString text = QStringLiteral("<b>原因</b>&amp;很长") + QString(80, QChar(0x56fd));
        whenOpen([&](QDialog* box) {
            const auto* label = box->findChild<QLabel*>(QStringLiteral("msgBoxText"));
            QCOMPARE(label->text(), text);
            QCOMPARE(label->textFormat(), Qt::PlainText);
            QVERIFY(label->wordWrap());
            QVERIFY(box->width() < 600);
            QTest::keyClick(box, Qt::Key_Escape);
        });
        OrloWidget::ShowErrorMsgBox(text, m_parent);
    }

    void aVeryLongTextScrolls()
    {
        const QString text(100000, QLatin1Char('x'));
        whenOpen([&](QDialog* box) {
            QCOMPARE(box->findChild<QPlainTextEdit*>(QStringLiteral("msgBoxText"))->toPlainText(), text);
            QVERIFY(box->width() < 600);
            QVERIFY(box->height() < 500);
            QTest::keyClick(button(box, "btnConfirm"), Qt::Key_Return);
        });
        OrloWidget::ShowErrorMsgBox(text, m_parent);
    }

    void aQuestionIsAnsweredByKeyOrMouse_data()
    {
        QTest::addColumn<int>("defaultAnswer");
        QTest::addColumn<QString>("input");
        QTest::addColumn<bool>("goesOn");
        QTest::newRow("Enter takes a declining default") << 0 << QStringLiteral("Enter") << false;
        QTest::newRow("Enter takes an accepting default") << 1 << QStringLiteral("Enter") << true;
        QTest::newRow("Escape declines whatever the default") << 1 << QStringLiteral("Escape") << false;
        QTest::newRow("the confirming button accepts") << 0 << QStringLiteral("btnConfirm") << true;
        QTest::newRow("the cancelling button declines") << 1 << QStringLiteral("btnCancel") << false;
        QTest::newRow("Tab and Enter take the other button") << 0 << QStringLiteral("Tab") << true;
    }

    void aQuestionIsAnsweredByKeyOrMouse()
    {
        QFETCH(int, defaultAnswer);
        QFETCH(QString, input);
        QFETCH(bool, goesOn);
        whenOpen([&](QDialog* box) {
            QVERIFY(QTest::qWaitForWindowExposed(box));
            box->activateWindow();
            QTRY_VERIFY(box->focusWidget());
            QCOMPARE(box->focusWidget(), button(box, defaultAnswer ? "btnConfirm" : "btnCancel"));
            if (input == QStringLiteral("Tab"))
                QTest::keyClick(box->focusWidget(), Qt::Key_Tab);
            if (input == QStringLiteral("Enter") || input == QStringLiteral("Tab"))
                QTest::keyClick(box->focusWidget(), Qt::Key_Return);
            else if (input == QStringLiteral("Escape"))
                QTest::keyClick(box, Qt::Key_Escape);
            else
                QTest::mouseClick(box->findChild<QPushButton*>(input), Qt::LeftButton);
        });
        QCOMPARE(OrloWidget::ShowQuestionMsgBox(QStringLiteral("是否继续？"), m_parent, defaultAnswer) != 0, goesOn);
    }

    void closingAQuestionDeclines()
    {
        whenOpen([](QDialog* box) { box->close(); });
        QCOMPARE(OrloWidget::ShowQuestionMsgBox(QStringLiteral("是否继续？"), m_parent, 1), 0);
    }

    void boxesAreModalToTheProgram()
    {
        whenOpen([this](QDialog* box) {
            QCOMPARE(box->windowModality(), Qt::ApplicationModal);
            QCOMPARE(box->parentWidget(), m_parent.data());
            box->accept();
        });
        OrloWidget::ShowTipMsgBox(QStringLiteral("好"), m_parent);
    }

    void aBoxReturnsIfItsParentIsDeleted_data()
    {
        QTest::addColumn<bool>("question");
        QTest::newRow("a tip returns") << false;
        QTest::newRow("a question is declined") << true;
    }

    void aBoxReturnsIfItsParentIsDeleted()
    {
        QFETCH(bool, question);
        whenOpen([this](QDialog*) { delete m_parent; });
        if (question)
            QCOMPARE(OrloWidget::ShowQuestionMsgBox(QStringLiteral("是否继续？"), m_parent, 1), 0);
        else
            OrloWidget::ShowTipMsgBox(QStringLiteral("好"), m_parent);
        QVERIFY(!m_parent);
    }

    void aBoxNeedsNoParent()
    {
        whenOpen([](QDialog* box) {
            QCOMPARE(box->windowModality(), Qt::ApplicationModal);
            box->accept();
        });
        QVERIFY(OrloWidget::ShowQuestionMsgBox(QStringLiteral("是否继续？"), nullptr, 0) != 0);
    }
};

QTEST_MAIN(MessageBoxesTest)
#include "tst_message_boxes.moc"
