#include "LoggedTest.h"
#include "OrloAccountComboBox.h"
#include "OrloComboBox.h"

#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

class ComboBoxTest : public FieldTest {
    Q_OBJECT

private:
    void prepare() override
    {
        FieldTest::prepare();
        m_box = new OrloComboBox(&window());
        m_box->addItems({ QStringLiteral("普通账户"), QStringLiteral("信用账户"), QStringLiteral("Margin"),
            QStringLiteral("港股通账户") });
        m_box->setSearchEnabled();
        showWith(m_box);
    }

    QWidget* popup() const { return m_box->findChild<QWidget*>(QStringLiteral("comboSearchPopup")); }
    QLineEdit* search() const { return popup()->findChild<QLineEdit*>(); }
    QListView* items() const { return popup()->findChild<QListView*>(); }

    static QList<tagUserAccountInfo> accounts()
    {
        return { { QStringLiteral("T1"), QStringLiteral("880001"), QStringLiteral("甲账户"), QStringLiteral("C1"), {} },
            { QStringLiteral("T2"), QStringLiteral("880002"), QStringLiteral("乙账户"), QStringLiteral("C2"), {} } };
    }

    OrloComboBox* m_box = nullptr;

private Q_SLOTS:
    void theBoxIsNeverEditable()
    {
        QVERIFY(!m_box->isEditable());
        QVERIFY(m_box->isSearchEnabled());
        m_box->showPopup();
        QVERIFY(!m_box->isEditable());
    }

    void theFirstAppendedItemAnnouncesItself()
    {
        {
            const QSignalBlocker silent(m_box);
            m_box->clear();
        }
        QSignalSpy texts(m_box, &QComboBox::currentTextChanged);
        m_box->addItem(QStringLiteral("甲"), QStringLiteral("1"));
        m_box->addItem(QStringLiteral("乙"), QStringLiteral("2"));
        QCOMPARE(texts.count(), 1);
        QCOMPARE(texts.first().first().toString(), QStringLiteral("甲"));
    }

    void longTextsDoNotWidenTheBox()
    {
        const int before = m_box->sizeHint().width();
        m_box->addItem(QString(200, QLatin1Char('W')));
        QCOMPARE(m_box->sizeHint().width(), before);
        QCOMPARE(m_box->sizeAdjustPolicy(), QComboBox::AdjustToMinimumContentsLengthWithIcon);
    }

    void theWheelNeedsTheFocus()
    {
        nextField().setFocus();
        turnWheel(m_box, -1);
        QCOMPARE(m_box->currentIndex(), 0);
        QVERIFY(!(m_box->focusPolicy() & ~Qt::StrongFocus));
        m_box->setFocus();
        QTRY_VERIFY(m_box->hasFocus());
        turnWheel(m_box, -1);
        QCOMPARE(m_box->currentIndex(), 1);
    }

    void resetEnableUnlocks()
    {
        m_box->setEnabled(false);
        m_box->ResetEnable();
        QVERIFY(m_box->isEnabled());
    }

    void withoutSearchThePopupIsThePlainOne()
    {
        m_box->setSearchEnabled(false);
        m_box->showPopup();
        QVERIFY(!popup());
        QVERIFY(m_box->view()->isVisible());
        m_box->hidePopup();
        QVERIFY(!m_box->view()->isVisible());
    }

    void typingInThePopupNarrowsTheItems()
    {
        QSignalSpy changes(m_box, QOverload<int>::of(&QComboBox::currentIndexChanged));
        QTest::keyClick(m_box, Qt::Key_F4);
        QVERIFY(popup() && popup()->isVisible());
        QCOMPARE(items()->model()->rowCount(), 4);
        QTest::keyClicks(search(), QStringLiteral("mar"));
        QCOMPARE(items()->model()->rowCount(), 1);
        QCOMPARE(m_box->currentIndex(), 0);
        QCOMPARE(m_box->count(), 4);
        QCOMPARE(changes.count(), 0);
        QTest::keyClick(search(), Qt::Key_Escape);
        m_box->showPopup();
        QVERIFY2(search()->text().isEmpty(), "a popup that opens again shows every item");
        QCOMPARE(items()->model()->rowCount(), 4);
    }

    void enterChoosesWithTheSignalsOfAPlainBox()
    {
        QStringList heard;
        connect(m_box, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [&](int row) { heard << QStringLiteral("index %1").arg(row); });
        connect(m_box, &QComboBox::currentTextChanged, this, [&](const QString& text) { heard << text; });
        connect(m_box, QOverload<int>::of(&QComboBox::activated), this,
            [&](int row) { heard << QStringLiteral("activated %1").arg(row); });
        m_box->showPopup();
        search()->insert(QStringLiteral("港股"));
        QTest::keyClick(search(), Qt::Key_Return);
        const QStringList expected{ QStringLiteral("index 3"), QStringLiteral("港股通账户"),
            QStringLiteral("activated 3") };
        QCOMPARE(heard, expected);
        QVERIFY(!popup()->isVisible());
    }

    void choosingTheCurrentItemIsNoChange()
    {
        QSignalSpy texts(m_box, &QComboBox::currentTextChanged);
        QSignalSpy choices(m_box, QOverload<int>::of(&QComboBox::activated));
        m_box->showPopup();
        QTest::keyClick(search(), Qt::Key_Return);
        QCOMPARE(texts.count(), 0);
        QCOMPARE(choices.count(), 1);
    }

    void escapeChoosesNothing()
    {
        m_box->showPopup();
        QTest::keyClick(search(), Qt::Key_Down);
        QTest::keyClick(search(), Qt::Key_Escape);
        QCOMPARE(m_box->currentIndex(), 0);
        QVERIFY(!popup()->isVisible());
    }

    void aClickChooses()
    {
        m_box->showPopup();
        const QRect second = items()->visualRect(items()->model()->index(1, 0));
        QTest::mouseClick(items()->viewport(), Qt::LeftButton, Qt::NoModifier, second.center());
        QCOMPARE(m_box->currentIndex(), 1);
    }

    void arrowKeysMoveInTheList()
    {
        m_box->showPopup();
        QTest::keyClick(search(), Qt::Key_Up);
        QTest::keyClick(search(), Qt::Key_PageDown);
        QTest::keyClick(search(), Qt::Key_Up);
        QTest::keyClick(search(), Qt::Key_Return);
        QCOMPARE(m_box->currentIndex(), 2);
    }

    void noMatchLeavesNothingToChoose()
    {
        m_box->showPopup();
        QTest::keyClicks(search(), QStringLiteral("zzz"));
        QTest::keyClick(search(), Qt::Key_Return);
        QCOMPARE(m_box->currentIndex(), 0);
        QVERIFY(popup()->isVisible());
    }

    void anEmptyBoxOpensNoPopup()
    {
        m_box->clear();
        m_box->showPopup();
        QVERIFY(!popup());
    }

    void aChoiceCanDeleteTheBox()
    {
        auto* box = new OrloComboBox;
        box->addItems({ QStringLiteral("a"), QStringLiteral("b") });
        box->setSearchEnabled();
        connect(box, &QComboBox::currentTextChanged, box, [box] { box->deleteLater(); });
        box->show();
        box->showPopup();
        QPointer<OrloComboBox> alive(box);
        QTest::keyClick(box->findChild<QLineEdit*>(), Qt::Key_Down);
        QTest::keyClick(box->findChild<QLineEdit*>(), Qt::Key_Return);
        QTRY_VERIFY(!alive);
    }

    void accountsAreShownAsTheModeSays_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("text");
        QTest::newRow("0 is the fund account") << 0 << QStringLiteral("880001");
        QTest::newRow("1 is the name") << 1 << QStringLiteral("甲账户");
        QTest::newRow("2 is both") << 2 << QStringLiteral("甲账户（880001）");
    }

    void accountsAreShownAsTheModeSays()
    {
        QFETCH(int, mode);
        QFETCH(QString, text);
        OrloAccountComboBox box(nullptr, OrloAccountComboBox::DisplayMode(mode));
        box.SetAccountList(accounts());
        QCOMPARE(box.currentText(), text);
        QCOMPARE(box.currentData().toString(), QStringLiteral("T1"));
        QCOMPARE(static_cast<int>(box.displayMode()), mode);
    }

    void theFirstAccountIsCompleteWhenItAnnouncesItself()
    {
        OrloAccountComboBox box(nullptr, OrloAccountComboBox::DisplayMode::FundAccount);
        QStringList heard;
        connect(&box, &QComboBox::currentTextChanged, this,
            [&] { heard << box.GetCurTradingAccount() << box.GetCurFundAccount(); });
        box.SetAccountList(accounts());
        QCOMPARE(heard, (QStringList{ QStringLiteral("T1"), QStringLiteral("880001") }));
        QCOMPARE(box.count(), 2);
    }

    void aNewListReplacesTheEarlier()
    {
        OrloAccountComboBox box(nullptr, OrloAccountComboBox::DisplayMode::FundAccount);
        box.SetAccountList(accounts());
        box.setCurrentIndex(1);
        box.SetAccountList({ accounts().last() });
        QCOMPARE(box.count(), 1);
        QCOMPARE(box.GetCurTradingAccount(), QStringLiteral("T2"));
    }

    void anEmptyListLeavesNoAccount()
    {
        OrloAccountComboBox box(nullptr, OrloAccountComboBox::DisplayMode::FundAccount);
        box.SetAccountList(accounts());
        QSignalSpy texts(&box, &QComboBox::currentTextChanged);
        box.SetAccountList({});
        QCOMPARE(box.count(), 0);
        QCOMPARE(box.GetCurTradingAccount(), QString());
        QCOMPARE(box.GetCurFundAccount(), QString());
        QCOMPARE(texts.count(), 1);
    }
};

QTEST_MAIN(ComboBoxTest)
#include "tst_combo_box.moc"
