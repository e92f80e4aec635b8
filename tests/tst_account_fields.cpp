#include "EditorTest.h"
#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include "PlanVocabulary.h"

#include <QtTest>

namespace {

QStringList words(const QString& text)
{
    return text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

/// The account, the assignee and the two layouts of the form. tst_choices compares the offered accounts with the model.
class AccountFieldsTest : public EditorTest {
    Q_OBJECT

private:
    void constructWithAccount()
    {
        script().addOrdinaryAccount(Account);
        construct();
        script().forget();
        log().clear();
    }

    void chooseReduction() { choose(editor(), "combx_planType", AutoPlanTemplate::ReduceHoldings); }

private Q_SLOTS:
    // --- The account

    void authoritiesAreAskedUntilOneFits_data()
    {
        QTest::addColumn<QString>("types");
        QTest::addColumn<QString>("exchange");
        QTest::addColumn<QString>("asked");
        const QString sh = Kelvo_Values::Exchange::sh;
        const QString sz = Kelvo_Values::Exchange::sz;
        const QString hk = Orlo_Values::Exchange::HkStockCirculation;
        QTest::newRow("ordinary trading needs no second question") << "1 2 5 9" << sh << "1";
        QTest::newRow("the connect is asked second") << "9 2 5" << hk << "1 9";
        QTest::newRow("margin trading is asked third") << "2 5" << sz << "1 9 2";
        QTest::newRow("bonds are asked last") << "5" << sz << "1 9 2 5";
        QTest::newRow("everything is asked where nothing fits") << "" << sz << "1 9 2 5";
    }

    void authoritiesAreAskedUntilOneFits()
    {
        QFETCH(QString, types);
        QFETCH(QString, exchange);
        QFETCH(QString, asked);
        script().addAccount(Account, { exchange }, words(types));
        construct();
        const int given =
            script().calls.indexOf(script().callsOf(QStringLiteral("combx_fundAccount.SetAccountList"))[0]);
        QStringList expected;
        for (const QString& type : words(asked))
            expected.append(QStringLiteral("hasOrderAuthority(acc1, %1)").arg(type));
        QCOMPARE(script().calls.mid(0, given).filter(QStringLiteral("hasOrderAuthority(")), expected);
    }

    void offeredAccountsKeepTheirOrder()
    {
        script().addOrdinaryAccount(QStringLiteral("acc3"));
        script().addAccount(QStringLiteral("unusable1"), {}, {});
        script().addCreditAccount(QStringLiteral("acc1"));
        script().addAccount(QStringLiteral("unusable2"), {}, {});
        script().addOrdinaryAccount(QStringLiteral("acc2"));
        construct();
        QCOMPARE(script().callsOf(QStringLiteral("combx_fundAccount.SetAccountList")),
            lines("combx_fundAccount.SetAccountList([acc3, acc1, acc2])"));
    }

    void noUsableAccountLocksTheEmptyBox()
    {
        script().addAccount(QStringLiteral("unusable1"), {}, {});
        script().addAccount(QStringLiteral("unusable2"), {}, {});
        construct();
        QVERIFY(!isUsable(editor(), "combx_fundAccount"));
        QCOMPARE(codes(editor(), "combx_fundAccount"), QStringList());
        QCOMPARE(script().countOf(QStringLiteral("GetUnsignedClientNoList")), 1);
    }

    void theLaterRecordOfAnAccountCounts()
    {
        script().addOrdinaryAccount(Account);
        script().addOrdinaryAccount(Account);
        script().accounts[0].branchNo = QStringLiteral("earlier");
        script().accounts[1].branchNo = QStringLiteral("later");
        script().addStock(Stock);
        constructShown();
        QCOMPARE(codes(editor(), "combx_fundAccount"), lines("acc1\nacc1"));
        choose(editor(), "combx_fundAccount", Account);
        chooseSecurity(editor(), Stock);
        enter(editor(), "le_targetTotalNum", 100);
        press(editor(), "btn_ok");
        QCOMPARE(script().createdRecords.size(), 1);
        QCOMPARE(
            script().createdRecords.first().value(AutoPlanFieldId::Account10112).toString(), QStringLiteral("later"));
    }

    void unsignedClientsAreThoseOfOfferedAccounts_data()
    {
        QTest::addColumn<QString>("unsignedClients");
        QTest::addColumn<QString>("asked");
        QTest::newRow("every client has signed") << QString() << QString();
        QTest::newRow("a client of the first account") << "C-acc1" << QStringLiteral("C-acc1");
        QTest::newRow("clients of both accounts") << "C-acc2 C-acc1" << QStringLiteral("C-acc1, C-acc2");
        QTest::newRow("a client without an offered account is left out")
            << "C-acc2 C-unusable C-elsewhere" << QStringLiteral("C-acc2");
        QTest::newRow("only clients without an offered account") << "C-unusable C-elsewhere" << QString();
        QTest::newRow("a client who is listed twice is asked once") << "C-acc1 C-acc1" << QStringLiteral("C-acc1");
        QTest::newRow("numbers are compared case-sensitively") << "c-acc1" << QString();
    }

    void unsignedClientsAreThoseOfOfferedAccounts()
    {
        QFETCH(QString, unsignedClients);
        QFETCH(QString, asked);
        script().unsignedClients = words(unsignedClients);
        for (const QString& account : { Account, OtherAccount, QStringLiteral("acc3") })
            script().addOrdinaryAccount(account);
        script().accounts[2].clientNo = QStringLiteral("C-acc1");
        script().addAccount(QStringLiteral("unusable"), {}, {});
        constructShown();
        choose(editor(), "combx_fundAccount", Account);
        script().forget();
        chooseReduction();
        const QString call = QStringLiteral("OrloAgreementSignWidget.SetClientNoList([%1])").arg(asked);
        QCOMPARE(script().callsOf(QStringLiteral("OrloAgreementSignWidget.SetClientNoList")),
            asked.isEmpty() ? QStringList() : QStringList{ call });
    }

    // --- The assignee

    void usersAreOfferedOnceAndInOrder()
    {
        script().forwardUsers = lines("王五\nb\n李四\nB\n2\nb\n10\n李四");
        constructWithAccount();
        QCOMPARE(texts(editor(), "combx_assignTo"), lines("默认不指定\n10\n2\nB\nb\n李四\n王五"));
        const QComboBox* const assignees = box(editor(), "combx_assignTo");
        QCOMPARE(assignees->currentIndex(), 0);
        QCOMPARE(assignees->itemData(0), QVariant(QString()));
        QVERIFY(!assignees->itemData(1).isValid());
    }

    void aReductionOffersItsExecutorsOnly_data()
    {
        QTest::addColumn<QStringList>("executors");
        QTest::newRow("in the order of the service") << lines("王五\n李四\n王五");
        QTest::newRow("none") << QStringList();
    }

    void aReductionOffersItsExecutorsOnly()
    {
        QFETCH(QStringList, executors);
        script().executeUsers = executors;
        script().forwardUsers = lines("赵六");
        constructWithAccount();
        chooseReduction();
        QCOMPARE(texts(editor(), "combx_assignTo"), executors);
        QCOMPARE(box(editor(), "combx_assignTo")->currentIndex(), executors.isEmpty() ? -1 : 0);
        QCOMPARE(script().calls, lines(R"(
            GetUnsignedClientNoList(o_ProtocolId_AutoPlanReduceAgree)
            getChainKeyForTraddingAccout(acc1, 1)
            GetExcuteUsers(chain-acc1-1))"));
    }

    void aReductionWithoutAnAccountAsksForItsChain()
    {
        script().executeUsers = lines("王五");
        construct();
        box(editor(), "combx_planType")->addItem(QStringLiteral("减持"), AutoPlanTemplate::ReduceHoldings);
        script().forget();
        chooseReduction();
        QCOMPARE(script().calls, lines(R"(
            GetUnsignedClientNoList(o_ProtocolId_AutoPlanReduceAgree)
            getChainKeyForTraddingAccout("", "")
            GetExcuteUsers(chain--))"));
        QCOMPARE(texts(editor(), "combx_assignTo"), lines("王五"));
    }

    void executorsAreLogged()
    {
        script().executeUsers = lines("王五\n李四\n赵六");
        constructWithAccount();
        chooseReduction();
        const QList<LogLine> found =
            log().linesWith(QtDebugMsg, QStringLiteral("AutoParamSetting::InitComboxAssignTo"));
        QCOMPARE(found.size(), 1);
        QVERIFY(found.first().text.contains(QLatin1String("chain-acc1-1")));
        QVERIFY(found.first().text.endsWith(QLatin1String(" 3")));
        log().clear();
        choose(editor(), "combx_planType", AutoPlanTemplate::CumulativeQty);
        QCOMPARE(log().linesWith(QtDebugMsg, QStringLiteral("InitComboxAssignTo")).size(), 0);
    }

    void theFirstAssigneeIsChosenAgainAfterEachRefill()
    {
        script().forwardUsers = lines("李四");
        constructWithAccount();
        box(editor(), "combx_assignTo")->setCurrentIndex(1);
        const QStringList steps = stepsOf([this] { choose(editor(), "combx_planType", AutoPlanTemplate::AverageQty); });
        // Unlike the others, this box is cleared without blocking its signals.
        QCOMPARE(steps.filter(QStringLiteral("combx_assignTo")), lines(R"(
            combx_assignTo.clear()
            combx_assignTo announces ""
            combx_assignTo.append(默认不指定, "")
            combx_assignTo announces 默认不指定
            combx_assignTo.append(李四, ""))"));
    }

    // --- The layouts

    void theLayoutFollowsThePlanType_data()
    {
        QTest::addColumn<bool>("inReductions");
        QTest::addColumn<bool>("inOthers");
        for (const char* const name : { "la_targetTotalNum", "le_targetTotalNum" })
            QTest::newRow(name) << true << true;
        for (const char* const name : { "la_entrustMaxNum", "le_entrustMaxNum", "lab_entrustMaxNumUnit",
                 "lab_targetTotalNumUnit", "date_effectivePeriod_Multi" })
            QTest::newRow(name) << false << true;
        for (const char* const name : { "la_reduceHRatio", "le_reduceHRatio", "la_reduceHMode", "combx_reduceHMode",
                 "date_effectivePeriod_Single" })
            QTest::newRow(name) << true << false;
    }

    void theLayoutFollowsThePlanType()
    {
        QFETCH(bool, inReductions);
        QFETCH(bool, inOthers);
        using namespace AutoPlanTemplate;
        script().addOrdinaryAccount(Account);
        constructShown();
        QWidget* const widget = field<QWidget>(editor(), QTest::currentDataTag());
        QCOMPARE(widget->isVisible(), inOthers);
        for (const QString& type :
            { ReduceHoldings, CumulativeQty, ReduceHoldings, AverageQty, ReduceHoldings, SameElements }) {
            const bool expected = type == ReduceHoldings ? inReductions : inOthers;
            // Inverted first, so that the layout itself must set it.
            widget->setVisible(!expected);
            choose(editor(), "combx_planType", type);
            QVERIFY2(widget->isVisible() == expected, qPrintable(type));
        }
    }
};

QTEST_MAIN(AccountFieldsTest)
#include "tst_account_fields.moc"
