#include "HintReader.h"
#include "LoggedTest.h"
#include "SuggestionPopup.h"
#include "SymbolIndex.h"
#include "SymbolSearch.h"
#include "VorSearchBox.h"
#include "WidgetServices.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

namespace {

QString sh(int number)
{
    return QStringLiteral("600%1.SH").arg(number, 3, 10, QLatin1Char('0'));
}

const QString Preparing = QStringLiteral("证券列表正在准备，请稍候");

} // namespace

class SearchBoxTest : public FieldTest {
    Q_OBJECT

private:
    void prepare() override
    {
        FieldTest::prepare();
        SymbolIndexes::instance().forget();
        WidgetServices::instance() = WidgetServices();
        auto& names = WidgetServices::instance().names;
        QStringList stocks;
        for (int i = 0; i < 120; ++i) {
            stocks.append(sh(i));
            names[sh(i)] = QStringLiteral("东海科技股份%1号").arg(i);
        }
        stocks << QStringLiteral("000001.SZ") << QStringLiteral("300750.SZ");
        names[QStringLiteral("000001.SZ")] = QStringLiteral("南山银行控股集团");
        names[QStringLiteral("300750.SZ")] = QStringLiteral("Alpha芯片ETF");
        m_market = SymbolList(stocks);
        m_market += SymbolList({ QStringLiteral("600000.BJ"), QStringLiteral("000001.SH") });
        m_box = new VorSearchBox(&window());
        m_box->setSecurityList(m_market);
        SymbolIndexes::instance().waitForFinished();
        WidgetServices::instance().nameLookups = 0;
        m_box->setSearchMode(1);
        m_box->setMinMatchLength(6);
        showWith(m_box);
    }

    SuggestionPopup* list() const { return m_box->findChild<SuggestionPopup*>(); }

    QStringList rows() const { return suggestions(m_box); }

    /// Sets another list, whose preparation waits until the names are released.
    void setUnpreparedList(const SymbolList& symbols)
    {
        m_box->setSecurityList(SymbolList({ QStringLiteral("blocks") }));
        m_box->setSearchMode(0);
        type(QStringLiteral("blocks"));
        QTRY_COMPARE(rows().size(), 1);
        m_box->clear();
        m_box->setSearchMode(1);
        m_box->setSecurityList(symbols);
    }

    static void finishPreparation()
    {
        SymbolIndexes::instance().waitForFinished();
        QCoreApplication::processEvents();
    }

    void type(const QString& text) { QTest::keyClicks(m_box, text); }

    SymbolList m_market;
    VorSearchBox* m_box = nullptr;

private Q_SLOTS:
    void longNamesWithEqualPartsArePreparedInTime()
    {
        QStringList run;
        for (int i = 0; i < 200; ++i)
            run << QString::number(i);
        SymbolIndex index(run, [](const QString&) { return QString(20000, QLatin1Char('x')); });
        index.begin();
        QElapsedTimer clock;
        clock.start();
        index.prepareNames();
        QVERIFY(clock.elapsed() < 5000 * TEST_TIMEOUT_SCALE);
        QStringList found;
        index.appendByName(QStringLiteral("XX"), 10, found);
        QCOMPARE(found.size(), 10);
    }

    void nothingMatchesBeforeTheLeastNumberOfCharacters()
    {
        type(QStringLiteral("60000"));
        QCOMPARE(rows(), QStringList());
        QCOMPARE(WidgetServices::instance().nameLookups, 0);
        type(QStringLiteral("1"));
        QCOMPARE(rows(), QStringList{ QStringLiteral("600001.SH  东海科技股份1号") });
    }

    void theTextFindsCodesAndNames_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("leastLength");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("found");
        const auto row = [](const char* name, int mode, int leastLength, const char* text, const char* found) {
            QTest::newRow(name) << mode << leastLength << QString::fromUtf8(text) << QString::fromLatin1(found);
        };
        row("the beginning of a code in lower case", 0, 6, "600007.s", "600007.SH");
        row("a part of a name in mode 0", 0, 3, "行控股", "");
        row("a part of a name in mode 1", 1, 3, "行控股", "000001.SZ");
        row("a name in lower case", 1, 3, "alpha", "300750.SZ");
        row("full-width digits", 1, 6, "３００７５０", "300750.SZ");
        row("the exact code first, although it is in a later run", 1, 1, "600000", "600000.SH 600000.BJ");
    }

    void theTextFindsCodesAndNames()
    {
        QFETCH(int, mode);
        QFETCH(int, leastLength);
        QFETCH(QString, text);
        QFETCH(QString, found);
        m_box->setSearchMode(mode);
        m_box->setMinMatchLength(leastLength);
        m_box->insert(text);
        QStringList codes;
        for (const QString& row : rows())
            codes << row.section(QLatin1Char(' '), 0, 0);
        QCOMPARE(codes.join(QLatin1Char(' ')), found);
    }

    void atMostFiftyRowsAreLaidOut()
    {
        m_box->setMinMatchLength(2);
        type(QStringLiteral("600"));
        QCOMPARE(rows().size(), 50);
        QVERIFY(list()->uniformItemSizes());
        QCOMPARE(list()->markedRow(), -1);
    }

    void aKeyChoosesFromTheList()
    {
        QSignalSpy codes(m_box, &VorSearchBox::selectStockCodeChange);
        m_box->setMinMatchLength(3);
        type(QStringLiteral("600"));
        QTest::keyClick(m_box, Qt::Key_Down);
        QTest::keyClick(m_box, Qt::Key_Down);
        QTest::keyClick(m_box, Qt::Key_Up);
        QTest::keyClick(m_box, Qt::Key_Down);
        QCOMPARE(list()->markedRow(), 1);
        QCOMPARE(codes.count(), 0);
        QTest::keyClick(m_box, Qt::Key_Return);
        QCOMPARE(codes.count(), 1);
        QCOMPARE(m_box->getSymbol(), sh(0));
        QCOMPARE(m_box->text(), sh(0));
        QVERIFY(!list()->isVisible());
    }

    void escapeClosesTheListAndKeepsTheText()
    {
        type(QStringLiteral("600001"));
        QVERIFY(list()->isVisible());
        QTest::keyClick(m_box, Qt::Key_Escape);
        QVERIFY(!list()->isVisible());
        QCOMPARE(m_box->text(), QStringLiteral("600001"));
        QCOMPARE(m_box->getSymbol(), QString());
        QTest::keyClick(m_box, Qt::Key_Down);
        QVERIFY2(list()->isVisible(), "Down opens the list again");
    }

    void aClickChoosesFromTheList()
    {
        m_box->setMinMatchLength(3);
        type(QStringLiteral("600"));
        const QRect third = list()->visualRect(list()->model()->index(2, 0));
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier, third.center());
        QCOMPARE(m_box->getSymbol(), sh(1));
    }

    void enterTakesTextThatCanMeanOneSecurityOnly_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("chosen");
        QTest::newRow("a code that one market has") << QStringLiteral("300750") << QStringLiteral("300750.SZ");
        QTest::newRow("a code with its market") << QStringLiteral("000001.sz") << QStringLiteral("000001.SZ");
        QTest::newRow("a code that two markets have") << QStringLiteral("000001") << QString();
        QTest::newRow("a beginning that one symbol has") << QStringLiteral("600000.B") << QStringLiteral("600000.BJ");
        QTest::newRow("full-width digits") << QStringLiteral("３００７５０") << QStringLiteral("300750.SZ");
        QTest::newRow("blanks around a code") << QStringLiteral(" 300750 ") << QStringLiteral("300750.SZ");
    }

    void enterTakesTextThatCanMeanOneSecurityOnly()
    {
        QFETCH(QString, typed);
        QFETCH(QString, chosen);
        m_box->insert(typed);
        QTest::keyClick(m_box, Qt::Key_Return);
        QCOMPARE(m_box->getSymbol(), chosen);
        QCOMPARE(m_box->text(), chosen.isEmpty() ? typed : chosen);
        QCOMPARE(hintAt(m_box), chosen.isEmpty() ? QStringLiteral("有多只证券匹配，请从列表中选择") : QString());
    }

    void leavingTheFieldTakesACompleteCode()
    {
        QSignalSpy codes(m_box, &VorSearchBox::selectStockCodeChange);
        type(QStringLiteral("300750"));
        QTest::keyClick(m_box, Qt::Key_Tab);
        QVERIFY(nextField().hasFocus());
        QCOMPARE(m_box->getSymbol(), QStringLiteral("300750.SZ"));
        QCOMPARE(codes.count(), 1);
        QVERIFY(!list()->isVisible());
    }

    void textThatMatchesNothingIsKeptWithAHint()
    {
        type(QStringLiteral("999999"));
        QCOMPARE(hintAt(m_box), QStringLiteral("没有匹配的证券"));
        QTest::keyClick(m_box, Qt::Key_Tab);
        QCOMPARE(m_box->text(), QStringLiteral("999999"));
        QCOMPARE(m_box->getSymbol(), QString());
        QCOMPARE(hintAt(m_box), QStringLiteral("没有匹配的证券"));
    }

    void tooShortATextSaysHowManyCharactersAreNeeded()
    {
        type(QStringLiteral("30075"));
        QTest::keyClick(m_box, Qt::Key_Return);
        QCOMPARE(hintAt(m_box), QStringLiteral("请至少输入6个字符"));
        QCOMPARE(m_box->getSymbol(), QString());
    }

    void editingClearsTheChoiceOnce()
    {
        m_box->setSymbol(sh(3));
        QSignalSpy codes(m_box, &VorSearchBox::selectStockCodeChange);
        QSignalSpy names(m_box, &VorSearchBox::selectStockNameChange);
        QTest::keyClick(m_box, Qt::Key_Backspace);
        QCOMPARE(m_box->getSymbol(), QString());
        QCOMPARE(codes.count(), 1);
        QCOMPARE(codes.first().first().toString(), QString());
        QCOMPARE(names.count(), 1);
        QTest::keyClick(m_box, Qt::Key_Backspace);
        QCOMPARE(codes.count(), 1);
    }

    void setSymbolAnnouncesCodeThenNameAndOnlyChanges()
    {
        QStringList heard;
        connect(m_box, &VorSearchBox::selectStockCodeChange, this, [&](const QString& code) { heard << code; });
        connect(m_box, &VorSearchBox::selectStockNameChange, this, [&](const QString& name) { heard << name; });
        m_box->setSymbol(QString());
        QCOMPARE(heard, QStringList());
        m_box->setSymbol(sh(3));
        m_box->setSymbol(sh(3));
        QCOMPARE(heard, (QStringList{ sh(3), QStringLiteral("东海科技股份3号") }));
        heard.clear();
        m_box->setSymbol(QString());
        QCOMPARE(heard, (QStringList{ QString(), QString() }));
        QCOMPARE(m_box->text(), QString());
    }

    void setSymbolTakesWhatTheListDoesNotHold()
    {
        m_box->setSymbol(QStringLiteral("00700.HK"));
        QCOMPARE(m_box->getSymbol(), QStringLiteral("00700.HK"));
        QCOMPARE(m_box->text(), QStringLiteral("00700.HK"));
    }

    void blockedSignalsLookUpNoName()
    {
        QSignalSpy codes(m_box, &VorSearchBox::selectStockCodeChange);
        {
            const QSignalBlocker silent(m_box);
            m_box->setSymbol(sh(3));
        }
        QCOMPARE(codes.count(), 0);
        QCOMPARE(WidgetServices::instance().nameLookups, 0);
        QCOMPARE(m_box->getSymbol(), sh(3));
    }

    void aNewListLeavesTheChoice()
    {
        m_box->setSymbol(sh(3));
        QSignalSpy codes(m_box, &VorSearchBox::selectStockCodeChange);
        m_box->setSecurityList(SymbolList());
        QCOMPARE(m_box->getSymbol(), sh(3));
        QCOMPARE(codes.count(), 0);
    }

    void aReceiverOfTheChoiceCanDeleteTheBox()
    {
        connect(m_box, &VorSearchBox::selectStockCodeChange, this, [this] { delete std::exchange(m_box, nullptr); });
        m_box->setSymbol(sh(3));
        QVERIFY(!m_box);
    }

    void aReceiverOfTheChoiceCanChooseAnother()
    {
        QStringList names;
        connect(m_box, &VorSearchBox::selectStockNameChange, this, [&](const QString& name) { names << name; });
        connect(m_box, &VorSearchBox::selectStockCodeChange, this, [this] { m_box->setSymbol(sh(4)); });
        m_box->setSymbol(sh(3));
        QCOMPARE(m_box->getSymbol(), sh(4));
        QCOMPARE(names, QStringList{ QStringLiteral("东海科技股份4号") });
    }

    void aKeystrokeReadsTheNamesOfTheRowsShown()
    {
        QAtomicInt& lookups = WidgetServices::instance().nameLookups;
        type(QStringLiteral("300750"));
        QCOMPARE(rows().size(), 1);
        QTest::keyClick(m_box, Qt::Key_Backspace);
        type(QStringLiteral("0.SZ"));
        QCOMPARE(rows().size(), 1);
        QCOMPARE(lookups, 5);
    }

    void theIndexIsSharedByBoxes()
    {
        const QStringList run{ sh(1), sh(2) };
        const SymbolList list(run);
        for (int i = 0; i < 2; ++i) {
            WidgetServices::instance().nameLookups = 0;
            VorSearchBox box;
            box.setSecurityList(list);
            SymbolIndexes::instance().waitForFinished();
            QCOMPARE(WidgetServices::instance().nameLookups, i == 0 ? 2 : 0);
        }
    }

    void codesOfSeveralRunsComeInOrder()
    {
        SymbolList list({ QStringLiteral("110005.SH"), QStringLiteral("110001.SH"), QStringLiteral("110003.SH") });
        list += SymbolList({ QStringLiteral("110002.SZ"), QStringLiteral("110001.SH"), QStringLiteral("110004.SZ") });
        m_box->setSecurityList(list);
        m_box->setSearchMode(0);
        m_box->setMinMatchLength(1);
        SymbolIndexes::instance().waitForFinished();
        type(QStringLiteral("11"));
        QStringList codes;
        for (const QString& row : rows())
            codes << row.left(6);
        QCOMPARE(codes.join(QLatin1Char(' ')), QStringLiteral("110001 110002 110003 110004 110005"));
    }

    void theListIsMadeReadyWhenTheBoxGetsTheFocus()
    {
        VorSearchBox box(&window());
        box.show();
        const auto* const popup = box.findChild<SuggestionPopup*>();
        QVERIFY(!popup->testAttribute(Qt::WA_WState_Created));
        box.setFocus();
        QTRY_VERIFY(popup->testAttribute(Qt::WA_WState_Created));
        QVERIFY(!popup->isVisible());
        QCOMPARE(popup->model()->rowCount(), 0);
    }

    void glyphsAreRenderedAheadOnce()
    {
        const auto letters = SymbolSearch(m_market.runs()).letters();
        // 东海科技股份号 南山银行控股集团 Alpha芯片ETF in upper case, and the ten digits: 股 occurs twice.
        QCOMPARE(letters.count(true), 7 + 7 + 2 + 7 + 10);
        GlyphPrewarmer ahead(&nextField());
        const auto* const idle = ahead.findChild<QTimer*>();
        QVERIFY(!idle->isActive());
        ahead.draw(letters);
        QVERIFY(idle->isActive());
        QTRY_VERIFY(!idle->isActive());
        ahead.draw(letters);
        QVERIFY(!idle->isActive());
    }

    void aListInPreparationIsReportedAndThenOffered()
    {
        HeldNames held;
        setUnpreparedList({ sh(7), sh(8) });
        type(QStringLiteral("600007"));
        QCOMPARE(rows(), QStringList());
        QCOMPARE(hintAt(m_box), Preparing);
        held.release();
        QTRY_COMPARE(rows(), QStringList{ QStringLiteral("600007.SH  东海科技股份7号") });
        QCOMPARE(hintAt(m_box), QString());
        QCOMPARE(list()->markedRow(), 0);
        QCOMPARE(m_box->getSymbol(), QString());
    }

    void codesAreOfferedBeforeTheNamesAreReady()
    {
        HeldNames held;
        m_box->setSecurityList({ sh(7), sh(8) });
        type(QStringLiteral("600007"));
        QTRY_COMPARE(rows().size(), 1);
        m_box->clear();
        m_box->insert(QStringLiteral("技股份8号"));
        m_box->setMinMatchLength(1);
        QTest::keyClick(m_box, Qt::Key_Down);
        QCOMPARE(rows(), QStringList());
        QCOMPARE(hintAt(m_box), Preparing);
        held.release();
        QTRY_COMPARE(rows(), QStringList{ QStringLiteral("600008.SH  东海科技股份8号") });
    }

    void namesThatJoinLaterLeaveTheMarkedRow()
    {
        const QString named = QStringLiteral("000002.SZ");
        WidgetServices::instance().names[named] = QStringLiteral("含600的名称");
        HeldNames held;
        m_box->setSecurityList({ sh(7), sh(8), named });
        m_box->setMinMatchLength(3);
        type(QStringLiteral("600"));
        QTRY_COMPARE(rows().size(), 2);
        QTest::keyClick(m_box, Qt::Key_Down);
        QTest::keyClick(m_box, Qt::Key_Down);
        QCOMPARE(list()->markedRow(), 1);
        held.release();
        QTRY_COMPARE(rows().size(), 3);
        QCOMPARE(list()->markedRow(), 1);
    }

    void aListThatWasClosedStaysClosedWhenNamesJoin()
    {
        HeldNames held;
        m_box->setSecurityList({ sh(7), sh(8) });
        m_box->setMinMatchLength(3);
        type(QStringLiteral("600"));
        QTRY_COMPARE(rows().size(), 2);
        QTest::keyClick(m_box, Qt::Key_Escape);
        held.release();
        finishPreparation();
        QCOMPARE(rows(), QStringList());
        QCOMPARE(hintAt(m_box), QString());
    }

    void enterDuringPreparationChoosesOnceItIsDone_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("chosen");
        QTest::addColumn<QString>("hint");
        QTest::newRow("a code that one market has")
            << QStringLiteral("300750") << QStringLiteral("300750.SZ") << QString();
        QTest::newRow("a code that two markets have")
            << QStringLiteral("000001") << QString() << QStringLiteral("有多只证券匹配，请从列表中选择");
        QTest::newRow("nothing") << QStringLiteral("999999") << QString() << QStringLiteral("没有匹配的证券");
    }

    void enterDuringPreparationChoosesOnceItIsDone()
    {
        QFETCH(QString, typed);
        QFETCH(QString, chosen);
        QFETCH(QString, hint);
        SymbolIndexes::instance().forget();
        HeldNames held;
        setUnpreparedList(m_market);
        QSignalSpy codes(m_box, &VorSearchBox::selectStockCodeChange);
        type(typed);
        QTest::keyClick(m_box, Qt::Key_Return);
        QCOMPARE(m_box->text(), typed);
        QCOMPARE(m_box->getSymbol(), QString());
        QCOMPARE(hintAt(m_box), Preparing);
        held.release();
        QTRY_COMPARE(hintAt(m_box), hint);
        QCOMPARE(m_box->getSymbol(), chosen);
        QCOMPARE(m_box->text(), chosen.isEmpty() ? typed : chosen);
        QCOMPARE(codes.count(), chosen.isEmpty() ? 0 : 1);
    }

    void enterWaitsForTheNamesThatTheTextMayMean()
    {
        const QString named = QStringLiteral("000002.SZ");
        WidgetServices::instance().names[named] = QStringLiteral("含60000的名称");
        HeldNames held;
        m_box->setSecurityList({ sh(7), named });
        m_box->setMinMatchLength(3);
        type(QStringLiteral("60000"));
        QTRY_COMPARE(rows().size(), 1);
        QCOMPARE(list()->markedRow(), -1);
        QTest::keyClick(m_box, Qt::Key_Return);
        QCOMPARE(m_box->getSymbol(), QString());
        QCOMPARE(hintAt(m_box), Preparing);
        held.release();
        QTRY_COMPARE(rows().size(), 2);
        QCOMPARE(m_box->getSymbol(), QString());
        QCOMPARE(hintAt(m_box), QStringLiteral("有多只证券匹配，请从列表中选择"));
    }

    void leavingDuringPreparationKeepsTheTextAndChoosesOnceItIsDone()
    {
        SymbolIndexes::instance().forget();
        HeldNames held;
        setUnpreparedList(m_market);
        type(QStringLiteral("300750"));
        QTest::keyClick(m_box, Qt::Key_Tab);
        QVERIFY(nextField().hasFocus());
        QCOMPARE(m_box->text(), QStringLiteral("300750"));
        QCOMPARE(m_box->getSymbol(), QString());
        QCOMPARE(hintAt(m_box), Preparing);
        held.release();
        QTRY_COMPARE(m_box->getSymbol(), QStringLiteral("300750.SZ"));
        QVERIFY(nextField().hasFocus());
        QCOMPARE(rows(), QStringList());
        QCOMPARE(hintAt(m_box), QString());
    }

    void aChoiceDuringPreparationEndsTheWait()
    {
        HeldNames held;
        setUnpreparedList({ sh(7), sh(8) });
        type(QStringLiteral("600007"));
        QTest::keyClick(m_box, Qt::Key_Return);
        m_box->setSymbol(sh(8));
        held.release();
        finishPreparation();
        QCOMPARE(m_box->getSymbol(), sh(8));
        QCOMPARE(rows(), QStringList());
    }

    void otherTextDuringPreparationIsTheOneOffered()
    {
        HeldNames held;
        setUnpreparedList({ sh(7), sh(8) });
        type(QStringLiteral("600007"));
        QTest::keyClick(m_box, Qt::Key_Return);
        QTest::keyClick(m_box, Qt::Key_Backspace);
        type(QStringLiteral("8"));
        held.release();
        QTRY_COMPARE(rows(), QStringList{ QStringLiteral("600008.SH  东海科技股份8号") });
        QCOMPARE(m_box->getSymbol(), QString());
    }

    void aNewListDuringPreparationIsTheOneOffered()
    {
        HeldNames held;
        setUnpreparedList({ sh(7), sh(8) });
        m_box->setMinMatchLength(3);
        type(QStringLiteral("600"));
        m_box->setSecurityList({ sh(9) });
        held.release();
        QTRY_COMPARE(rows(), QStringList{ QStringLiteral("600009.SH  东海科技股份9号") });
        m_box->setSecurityList(SymbolList());
        QCOMPARE(rows(), QStringList());
    }

    void aBoxCanBeDeletedDuringPreparation()
    {
        HeldNames held;
        setUnpreparedList({ sh(7), sh(8) });
        type(QStringLiteral("600007"));
        QTest::keyClick(m_box, Qt::Key_Return);
        QCOMPARE(hintAt(m_box), Preparing);
        delete std::exchange(m_box, nullptr);
        held.release();
        finishPreparation();
    }

    void anIndexCanBeDroppedDuringPreparation()
    {
        QStringList many;
        for (int i = 0; i < 100000; ++i)
            many << QString::number(i * 7919 % 1000003);
        const auto nameOf = [](const QString& symbol) { return symbol; };
        SymbolIndexes& indexes = SymbolIndexes::instance();
        indexes.prepare({ many }, nameOf);
        const auto given = indexes.of(many);
        indexes.forget();
        QVERIFY(!given->hasNames());
        QVERIFY(!indexes.of(many));
        indexes.prepare({ many }, nameOf);
        const auto again = indexes.of(many);
        QVERIFY(again != given);
        indexes.waitForFinished();
        QVERIFY(again->hasCodes() && again->hasNames());
    }
};

QTEST_MAIN(SearchBoxTest)
#include "tst_search_box.moc"
