#include "FormulaCompletion.h"
#include "HintReader.h"
#include "LoggedTest.h"
#include "OrloFormulaNormal.h"

#include <QSignalSpy>
#include <QTest>

class FormulaInputTest : public FieldTest {
    Q_OBJECT

private:
    void prepare() override
    {
        FieldTest::prepare();
        m_edit = new OrloFormulaNormal(&window());
        m_edit->setMode(1);
        m_edit->setMaxLength(300);
        m_edit->SetFormulaItems(names("昨收价 涨停价 MA20 MA5"));
        m_edit->SetFunctionItems(names("max(,) min(,)"));
        showWith(m_edit);
    }

    static QStringList names(const char* text) { return QString::fromUtf8(text).split(QLatin1Char(' ')); }
    QStringList rows() const { return suggestions(m_edit); }
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(m_edit, code, modifiers);
    }

    OrloFormulaNormal* m_edit = nullptr;

private Q_SLOTS:
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
        QCOMPARE(FormulaCompletion::matches(QStringLiteral("ma"), names("XMA MA5 昨收价")), names("MA5 XMA"));
    }

    void typingOffersWhatFits()
    {
        QTest::keyClicks(m_edit, QStringLiteral("m"));
        QCOMPARE(rows(), names("MA20 MA5 max(,) min(,)"));
        QTest::keyClicks(m_edit, QStringLiteral("i"));
        QCOMPARE(rows(), names("min(,)"));
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

    void tabAlsoChooses()
    {
        QTest::keyClicks(m_edit, QStringLiteral("MA2"));
        key(Qt::Key_Tab);
        QCOMPARE(m_edit->text(), QStringLiteral("MA20"));
        QVERIFY(m_edit->hasFocus());
        key(Qt::Key_Tab);
        QVERIFY(nextField().hasFocus());
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

    void aNumberAndACompleteNameOfferNothing()
    {
        for (const char* const typed : { "1.5", "+MA5" }) {
            QTest::keyClicks(m_edit, QLatin1String(typed));
            QCOMPARE(rows(), QStringList());
        }
    }

    void chineseNamesAreFoundByAnyPart()
    {
        m_edit->insert(QStringLiteral("收"));
        QCOMPARE(rows(), names("昨收价"));
        key(Qt::Key_Return);
        QCOMPARE(m_edit->text(), QStringLiteral("昨收价"));
    }

    void escapeClosesTheList()
    {
        QTest::keyClicks(m_edit, QStringLiteral("m"));
        key(Qt::Key_Escape);
        QCOMPARE(rows(), QStringList());
        QCOMPARE(m_edit->text(), QStringLiteral("m"));
        QVERIFY(window().isVisible());
    }

    void leavingTheFieldClosesTheList()
    {
        QTest::keyClicks(m_edit, QStringLiteral("m"));
        nextField().setFocus();
        QCOMPARE(rows(), QStringList());
    }

    void aTextThatWouldBeTooLongIsRefusedWithAHint()
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
        QCOMPARE(m_edit->FormulaItems(), names("MA10"));
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
};

QTEST_MAIN(FormulaInputTest)
#include "tst_formula_input.moc"
