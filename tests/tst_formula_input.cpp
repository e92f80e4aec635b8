#include "FormulaCompletion.h"
#include "HintReader.h"
#include "LogCatcher.h"
#include "OrloFormulaNormal.h"
#include "SuggestionPopup.h"
#include <QSignalSpy>
#include <QTest>

class FormulaInputTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_log = new LogCatcher;
        m_window = new QWidget;
        m_edit = new OrloFormulaNormal(m_window);
        m_other = new QLineEdit(m_window);
        m_other->move(0, 60);
        m_edit->setMode(1);
        m_edit->setMaxLength(300);
        m_edit->SetFormulaItems(
            { QStringLiteral("昨收价"), QStringLiteral("涨停价"), QStringLiteral("MA20"), QStringLiteral("MA5") });
        m_edit->SetFunctionItems({ QStringLiteral("max(,)"), QStringLiteral("min(,)") });
        m_window->resize(300, 120);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window));
        m_window->activateWindow();
        m_edit->setFocus();
        QTRY_VERIFY(m_edit->hasFocus());
    }

    void cleanup()
    {
        delete m_window;
        QCOMPARE(m_log->trouble(), QStringList());
        delete m_log;
    }

    void theTokenIsTheNameBeforeTheCursor_data()
    {
        QTest::addColumn<QString>("formula");
        QTest::addColumn<int>("cursor");
        QTest::addColumn<QString>("token");
        QTest::newRow("a name") << QStringLiteral("MA5") << 2 << QStringLiteral("MA");
        QTest::newRow("a Chinese name in brackets") << QStringLiteral("max(昨收,1)") << 6 << QStringLiteral("昨收");
        QTest::newRow("behind an operator") << QStringLiteral("1+") << 2 << QString();
        QTest::newRow("a number") << QStringLiteral("12") << 2 << QString();
        QTest::newRow("decimals") << QStringLiteral("1.5") << 3 << QString();
        QTest::newRow("nothing") << QString() << 0 << QString();
    }

    void theTokenIsTheNameBeforeTheCursor()
    {
        QFETCH(QString, formula);
        QFETCH(int, cursor);
        QFETCH(QString, token);
        QCOMPARE(FormulaCompletion::tokenBefore(formula, cursor), token);
    }

    void namesThatBeginWithTheTokenComeFirst()
    {
        const QStringList offers{ QStringLiteral("XMA"), QStringLiteral("MA5"), QStringLiteral("昨收价") };
        const QStringList expected{ QStringLiteral("MA5"), QStringLiteral("XMA") };
        QCOMPARE(FormulaCompletion::fitting(QStringLiteral("ma"), offers), expected);
    }

    void typingOffersWhatFits()
    {
        QTest::keyClicks(m_edit, QStringLiteral("m"));
        const QStringList expected{ QStringLiteral("MA20"), QStringLiteral("MA5"), QStringLiteral("max(,)"),
            QStringLiteral("min(,)") };
        QCOMPARE(rows(), expected);
        QTest::keyClicks(m_edit, QStringLiteral("i"));
        QCOMPARE(rows(), QStringList{ QStringLiteral("min(,)") });
        QVERIFY(m_edit->hasFocus());
    }

    void modeZeroOffersOnlyWhenAsked()
    {
        m_edit->setMode(0);
        QTest::keyClicks(m_edit, QStringLiteral("m"));
        QCOMPARE(rows(), QStringList());
        key(Qt::Key_Space, Qt::ControlModifier);
        QCOMPARE(rows().size(), 4);
        QCOMPARE(m_edit->text(), QStringLiteral("m"));
    }

    void enterPutsTheNameInPlaceOfTheToken()
    {
        QSignalSpy returns(m_edit, &QLineEdit::returnPressed);
        QTest::keyClicks(m_edit, QStringLiteral("ma"));
        key(Qt::Key_Down);
        key(Qt::Key_Return);
        QCOMPARE(m_edit->text(), QStringLiteral("MA5"));
        QCOMPARE(m_edit->cursorPosition(), 3);
        QCOMPARE(rows(), QStringList());
        QCOMPARE(returns.count(), 0);
    }

    void tabChoosesToo()
    {
        QTest::keyClicks(m_edit, QStringLiteral("MA2"));
        key(Qt::Key_Tab);
        QCOMPARE(m_edit->text(), QStringLiteral("MA20"));
        QVERIFY(m_edit->hasFocus());
        key(Qt::Key_Tab);
        QVERIFY(m_other->hasFocus());
    }

    void aFunctionPutsTheCursorIntoItsBrackets()
    {
        QTest::keyClicks(m_edit, QStringLiteral("max"));
        key(Qt::Key_Return);
        QCOMPARE(m_edit->text(), QStringLiteral("max(,)"));
        QCOMPARE(m_edit->cursorPosition(), 4);
        QTest::keyClicks(m_edit, QStringLiteral("1"));
        QCOMPARE(m_edit->text(), QStringLiteral("max(1,)"));
    }

    void aNameIsOfferedInsideALongerFormula()
    {
        m_edit->setText(QStringLiteral("max(,昨收价*1.02)"));
        m_edit->setCursorPosition(4);
        QTest::keyClicks(m_edit, QStringLiteral("ma2"));
        key(Qt::Key_Return);
        QCOMPARE(m_edit->text(), QStringLiteral("max(MA20,昨收价*1.02)"));
        QCOMPARE(m_edit->cursorPosition(), 8);
    }

    void behindAnOperatorEverythingIsOfferedAndEnterStaysTheForms()
    {
        QSignalSpy returns(m_edit, &QLineEdit::returnPressed);
        QTest::keyClicks(m_edit, QStringLiteral("1+"));
        QCOMPARE(rows().size(), 6);
        key(Qt::Key_Return);
        QCOMPARE(returns.count(), 1);
        QCOMPARE(m_edit->text(), QStringLiteral("1+"));
        key(Qt::Key_Down);
        key(Qt::Key_Return);
        QCOMPARE(m_edit->text(), QStringLiteral("1+昨收价"));
    }

    void aNumberOffersNothing()
    {
        QTest::keyClicks(m_edit, QStringLiteral("1.5"));
        QCOMPARE(rows(), QStringList());
    }

    void aCompleteNameOffersNothing()
    {
        QTest::keyClicks(m_edit, QStringLiteral("MA5"));
        QCOMPARE(rows(), QStringList());
    }

    void chineseNamesAreFoundByAnyPart()
    {
        m_edit->insert(QStringLiteral("收"));
        QCOMPARE(rows(), QStringList{ QStringLiteral("昨收价") });
        key(Qt::Key_Return);
        QCOMPARE(m_edit->text(), QStringLiteral("昨收价"));
    }

    void escapeClosesTheList()
    {
        QTest::keyClicks(m_edit, QStringLiteral("m"));
        key(Qt::Key_Escape);
        QCOMPARE(rows(), QStringList());
        QCOMPARE(m_edit->text(), QStringLiteral("m"));
        QVERIFY(m_window->isVisible());
    }

    void leavingTheFieldClosesTheList()
    {
        QTest::keyClicks(m_edit, QStringLiteral("m"));
        m_other->setFocus();
        QCOMPARE(rows(), QStringList());
    }

    void whatWouldBeTooLongIsRefusedWithAHint()
    {
        m_edit->setMaxLength(5);
        QTest::keyClicks(m_edit, QStringLiteral("1+m"));
        key(Qt::Key_Return);
        QCOMPARE(m_edit->text(), QStringLiteral("1+m"));
        QCOMPARE(hintAt(m_edit), QStringLiteral("最多输入5个字符"));
    }

    void newItemsLeaveTheText()
    {
        m_edit->setText(QStringLiteral("MA5*2"));
        m_edit->SetFormulaItems({ QStringLiteral("MA10") });
        m_edit->SetFunctionItems({});
        QCOMPARE(m_edit->text(), QStringLiteral("MA5*2"));
        QCOMPARE(m_edit->FormulaItems(), QStringList{ QStringLiteral("MA10") });
        QCOMPARE(m_edit->FunctionItems(), QStringList());
    }

    void oneUndoTakesACompletionBack()
    {
        QTest::keyClicks(m_edit, QStringLiteral("ma"));
        key(Qt::Key_Return);
        QCOMPARE(m_edit->text(), QStringLiteral("MA20"));
        m_edit->undo();
        QCOMPARE(m_edit->text(), QStringLiteral("ma"));
    }

    void aReadOnlyInputOffersNothing()
    {
        m_edit->setReadOnly(true);
        key(Qt::Key_Space, Qt::ControlModifier);
        QCOMPARE(rows(), QStringList());
    }

private:
    SuggestionPopup* list() const { return m_edit->findChild<SuggestionPopup*>(); }

    QStringList rows() const
    {
        if (!list()->isVisible())
            return {};
        QStringList texts;
        for (int row = 0; row < list()->model()->rowCount(); ++row)
            texts.append(list()->model()->index(row, 0).data().toString());
        return texts;
    }
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(m_edit, code, modifiers);
    }

    LogCatcher* m_log = nullptr;
    QWidget* m_window = nullptr;
    OrloFormulaNormal* m_edit = nullptr;
    QLineEdit* m_other = nullptr;
};

QTEST_MAIN(FormulaInputTest)
#include "tst_formula_input.moc"
