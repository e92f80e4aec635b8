#include "AutoPlanField.h"
#include "EditorTest.h"
#include "OrloDoubleSpinBox.h"
#include "PlanVocabulary.h"
#include "VorSearchBox.h"
#include <QPushButton>
#include <QtTest>

/// The account, the assignee and the two layouts of the form.
class AccountFieldsTest : public EditorTest {
    Q_OBJECT

private Q_SLOTS:
    void anEmptyListLocksTheEmptyBox();
    void theListIsHandedOverBeforeTheBoxIsLocked();
    void theListIsAskedForOnce();
    void anAccountIsOfferedByItsAuthorityAndExchanges_data();
    void anAccountIsOfferedByItsAuthorityAndExchanges();
    void authoritiesAreAskedUntilOneFits_data();
    void authoritiesAreAskedUntilOneFits();
    void accountsAreLookedAtFromTheLastToTheFirst();
    void offeredAccountsKeepTheirOrder();
    void severalAccountsLeaveTheChoice();
    void oneAccountIsChosenAndLocked();
    void oneUsableAccountOfThreeIsChosenAndLocked();
    void noUsableAccountLocksTheEmptyBox();
    void theLaterRecordOfAnAccountCounts();
    void unsignedNumbersAreAskedForOnceAtTheStart();
    void unsignedClientsAreThoseOfOfferedAccounts_data();
    void unsignedClientsAreThoseOfOfferedAccounts();
    void aChosenAccountRebuildsTheInstructionTypes();

    void withoutAnAccountNobodyIsNamed();
    void usersAreOfferedOnceAndInOrder();
    void withoutUsersNobodyIsOffered();
    void userItemsCarryNoCode();
    void aReductionOffersItsExecutorsOnly();
    void aReductionWithoutExecutorsOffersNobody();
    void aReductionWithoutAnAccountAsksForItsChain();
    void executorsAreLogged();
    void theFirstAssigneeIsChosenAgainAfterEachRefill();
    void theChainIsThatOfTheInstructionType();

    void theLayoutFollowsThePlanType_data();
    void theLayoutFollowsThePlanType();
    void theLayoutComesBack();

private:
    void constructWithoutAccountButReduction();
};

// --- The account

void AccountFieldsTest::anEmptyListLocksTheEmptyBox()
{
    construct();
    QCOMPARE(codes(editor(), "combx_fundAccount"), QStringList());
    QVERIFY(!isUsable(editor(), "combx_fundAccount"));
    QCOMPARE(script().callsOf(QStringLiteral("combx_fundAccount.SetAccountList")),
        lines("combx_fundAccount.SetAccountList([])"));
    QCOMPARE(script().countOf(QStringLiteral("GetUnsignedClientNoList")), 0);
}

void AccountFieldsTest::theListIsHandedOverBeforeTheBoxIsLocked()
{
    script().watch(true);
    construct();
    script().watch(false);
    const int handedOver = script().steps.indexOf(QStringLiteral("combx_fundAccount.SetAccountList([])"));
    const int locked = script().steps.indexOf(QStringLiteral("combx_fundAccount.setEnabled(false)"));
    QVERIFY(handedOver >= 0);
    QVERIFY(locked > handedOver);
}

void AccountFieldsTest::theListIsAskedForOnce()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    QCOMPARE(script().callsOf(QStringLiteral("GetFundAccountListByFundProp")),
        lines("GetFundAccountListByFundProp(3, 16, false, [], true)"));
}

void AccountFieldsTest::anAccountIsOfferedByItsAuthorityAndExchanges_data()
{
    QTest::addColumn<QString>("types");
    QTest::addColumn<QString>("exchanges");
    QTest::addColumn<bool>("offered");
    const QString sh = QStringLiteral("k_Exchange_sh");
    const QString sz = QStringLiteral("k_Exchange_sz");
    const QString bj = QStringLiteral("o_Exchange_bj");
    const QString hk = QStringLiteral("o_Exchange_HkStockCirculation");
    QTest::newRow("ordinary trading in Shanghai is offered") << "1" << sh << true;
    QTest::newRow("ordinary trading in Shenzhen is offered") << "1" << sz << true;
    QTest::newRow("ordinary trading in Beijing is offered") << "1" << bj << true;
    QTest::newRow("ordinary trading in Hong Kong only is not offered") << "1" << hk << false;
    QTest::newRow("Hong Kong connect with its exchange is offered") << "9" << hk << true;
    QTest::newRow("Hong Kong connect in Shanghai only is not offered") << "9" << sh << false;
    QTest::newRow("Hong Kong connect in Shenzhen only is not offered") << "9" << sz << false;
    QTest::newRow("Hong Kong connect in Beijing only is not offered") << "9" << bj << false;
    QTest::newRow("margin trading in Shanghai is offered") << "2" << sh << true;
    QTest::newRow("margin trading in Shenzhen is offered") << "2" << sz << true;
    QTest::newRow("margin trading in Beijing only is not offered") << "2" << bj << false;
    QTest::newRow("margin trading in Hong Kong only is not offered") << "2" << hk << false;
    QTest::newRow("bonds in Shanghai are offered") << "5" << sh << true;
    QTest::newRow("bonds in Shenzhen are offered") << "5" << sz << true;
    QTest::newRow("bonds in Beijing only are not offered") << "5" << bj << false;
    QTest::newRow("bonds in Hong Kong only are not offered") << "5" << hk << false;
    QTest::newRow("bonds in Beijing and Hong Kong are not offered") << "5" << (bj + QLatin1Char(' ') + hk) << false;
    QTest::newRow("bonds in Beijing with ordinary trading are offered") << "1 5" << bj << true;
    QTest::newRow("ordinary trading in Hong Kong with its connect is offered") << "1 9" << hk << true;
    QTest::newRow("no authority is not offered") << "" << (sh + QLatin1Char(' ') + sz) << false;
    QTest::newRow("an unknown authority is not offered") << "3" << sh << false;
    QTest::newRow("no exchange is not offered") << "1 2 5 9"
                                                << "" << false;
    QTest::newRow("an unknown exchange is not offered") << "1 2 5 9"
                                                        << "elsewhere" << false;
}

void AccountFieldsTest::anAccountIsOfferedByItsAuthorityAndExchanges()
{
    QFETCH(QString, types);
    QFETCH(QString, exchanges);
    QFETCH(bool, offered);
    script().addAccount(QStringLiteral("acc1"), exchanges.split(QLatin1Char(' '), Qt::SkipEmptyParts),
        types.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    construct();
    QCOMPARE(codes(editor(), "combx_fundAccount"), offered ? lines("acc1") : QStringList());
    QVERIFY(!isUsable(editor(), "combx_fundAccount"));
}

void AccountFieldsTest::authoritiesAreAskedUntilOneFits_data()
{
    QTest::addColumn<QString>("types");
    QTest::addColumn<QString>("exchange");
    QTest::addColumn<QString>("asked");
    QTest::newRow("ordinary trading needs no second question") << "1 2 5 9"
                                                               << "k_Exchange_sh"
                                                               << "1";
    QTest::newRow("the connect is asked second") << "9 2 5"
                                                 << "o_Exchange_HkStockCirculation"
                                                 << "1 9";
    QTest::newRow("margin trading is asked third") << "2 5"
                                                   << "k_Exchange_sz"
                                                   << "1 9 2";
    QTest::newRow("bonds are asked last") << "5"
                                          << "k_Exchange_sz"
                                          << "1 9 2 5";
    QTest::newRow("everything is asked where nothing fits") << ""
                                                            << "k_Exchange_sz"
                                                            << "1 9 2 5";
}

void AccountFieldsTest::authoritiesAreAskedUntilOneFits()
{
    QFETCH(QString, types);
    QFETCH(QString, exchange);
    QFETCH(QString, asked);
    script().addAccount(QStringLiteral("acc1"), { exchange }, types.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    construct();
    const int given = script().calls.indexOf(script().callsOf(QStringLiteral("combx_fundAccount.SetAccountList"))[0]);
    QStringList expected;
    for (const QString& type : asked.split(QLatin1Char(' ')))
        expected.append(QStringLiteral("hasOrderAuthority(acc1, %1)").arg(type));
    QCOMPARE(script().calls.mid(0, given).filter(QStringLiteral("hasOrderAuthority(")), expected);
}

void AccountFieldsTest::accountsAreLookedAtFromTheLastToTheFirst()
{
    for (const char* const name : { "acc1", "acc2", "acc3" })
        script().addOrdinaryAccount(QLatin1String(name));
    construct();
    QCOMPARE(script().callsOf(QStringLiteral("GetCurrentSecurityAccountByTradingAccount")).mid(0, 3), lines(R"(
        GetCurrentSecurityAccountByTradingAccount(acc3)
        GetCurrentSecurityAccountByTradingAccount(acc2)
        GetCurrentSecurityAccountByTradingAccount(acc1))"));
}

void AccountFieldsTest::offeredAccountsKeepTheirOrder()
{
    script().addOrdinaryAccount(QStringLiteral("acc3"));
    script().addAccount(QStringLiteral("unusable1"), {}, {});
    script().addCreditAccount(QStringLiteral("acc1"));
    script().addAccount(QStringLiteral("unusable2"), {}, {});
    script().addOrdinaryAccount(QStringLiteral("acc2"));
    construct();
    QCOMPARE(codes(editor(), "combx_fundAccount"), lines("acc3\nacc1\nacc2"));
    QCOMPARE(script().callsOf(QStringLiteral("combx_fundAccount.SetAccountList")),
        lines("combx_fundAccount.SetAccountList([acc3, acc1, acc2])"));
}

void AccountFieldsTest::severalAccountsLeaveTheChoice()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    script().addOrdinaryAccount(QStringLiteral("acc2"));
    construct();
    QVERIFY(isUsable(editor(), "combx_fundAccount"));
    QCOMPARE(box(editor(), "combx_fundAccount")->currentIndex(), -1);
    QCOMPARE(codes(editor(), "combx_instructionType"), QStringList());
    choose(editor(), "combx_fundAccount", QStringLiteral("acc2"));
    QCOMPARE(codes(editor(), "combx_instructionType"), lines("1\n5\n9"));
}

void AccountFieldsTest::oneAccountIsChosenAndLocked()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    QVERIFY(!isUsable(editor(), "combx_fundAccount"));
    QCOMPARE(box(editor(), "combx_fundAccount")->currentIndex(), 0);
    QCOMPARE(code(editor(), "combx_fundAccount"), QStringLiteral("acc1"));
}

void AccountFieldsTest::oneUsableAccountOfThreeIsChosenAndLocked()
{
    script().addAccount(QStringLiteral("unusable1"), { QStringLiteral("o_Exchange_bj") }, { QStringLiteral("5") });
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    script().addAccount(QStringLiteral("unusable2"), {}, { QStringLiteral("1") });
    construct();
    QVERIFY(!isUsable(editor(), "combx_fundAccount"));
    QCOMPARE(codes(editor(), "combx_fundAccount"), lines("acc1"));
    QCOMPARE(code(editor(), "combx_fundAccount"), QStringLiteral("acc1"));
}

void AccountFieldsTest::noUsableAccountLocksTheEmptyBox()
{
    script().addAccount(QStringLiteral("unusable1"), {}, {});
    script().addAccount(QStringLiteral("unusable2"), {}, {});
    construct();
    QVERIFY(!isUsable(editor(), "combx_fundAccount"));
    QCOMPARE(codes(editor(), "combx_fundAccount"), QStringList());
    QCOMPARE(script().callsOf(QStringLiteral("combx_fundAccount.SetAccountList")),
        lines("combx_fundAccount.SetAccountList([])"));
    QCOMPARE(script().countOf(QStringLiteral("GetUnsignedClientNoList")), 1);
}

void AccountFieldsTest::theLaterRecordOfAnAccountCounts()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    script().accounts[0].branchNo = QStringLiteral("earlier");
    script().accounts[1].branchNo = QStringLiteral("later");
    script().addStock(QStringLiteral("600000.K_SH"));
    constructShown();
    QCOMPARE(codes(editor(), "combx_fundAccount"), lines("acc1\nacc1"));
    choose(editor(), "combx_fundAccount", QStringLiteral("acc1"));
    field<VorSearchBox>(editor(), "le_symbol")->setSymbol(QStringLiteral("600000.K_SH"));
    field<OrloDoubleSpinBox>(editor(), "le_targetTotalNum")->setValue(100);
    field<QPushButton>(editor(), "btn_ok")->click();
    QCOMPARE(script().createdRecords.size(), 1);
    QCOMPARE(script().createdRecords.first().value(AutoPlanFieldId::Account10112), QVariant(QStringLiteral("later")));
}

void AccountFieldsTest::unsignedNumbersAreAskedForOnceAtTheStart()
{
    script().unsignedClients = lines("C-acc1");
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    constructShown();
    QCOMPARE(script().callsOf(QStringLiteral("GetUnsignedClientNoList")),
        lines("GetUnsignedClientNoList(o_ProtocolId_AutoPlanReduceAgree)"));
    QCOMPARE(script().countOf(QStringLiteral("OrloAgreementSignWidget")), 0);
    QCOMPARE(script().boxes.size(), 0);
}

void AccountFieldsTest::unsignedClientsAreThoseOfOfferedAccounts_data()
{
    QTest::addColumn<QString>("unsignedClients");
    QTest::addColumn<QString>("asked");
    QTest::newRow("nobody is unsigned") << ""
                                        << "";
    QTest::newRow("a client of the first account") << "C-acc1"
                                                   << "C-acc1";
    QTest::newRow("clients of both accounts") << "C-acc2 C-acc1"
                                              << "C-acc1, C-acc2";
    QTest::newRow("a client without an offered account is left out") << "C-acc2 C-unusable C-elsewhere"
                                                                     << "C-acc2";
    QTest::newRow("only clients without an offered account") << "C-unusable C-elsewhere"
                                                             << "";
    QTest::newRow("a client who is told twice is asked once") << "C-acc1 C-acc1"
                                                              << "C-acc1";
    QTest::newRow("numbers are compared case-sensitively") << "c-acc1"
                                                           << "";
}

void AccountFieldsTest::unsignedClientsAreThoseOfOfferedAccounts()
{
    QFETCH(QString, unsignedClients);
    QFETCH(QString, asked);
    script().unsignedClients = unsignedClients.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    script().addOrdinaryAccount(QStringLiteral("acc2"));
    script().addOrdinaryAccount(QStringLiteral("acc3"));
    script().accounts[2].clientNo = QStringLiteral("C-acc1");
    script().addAccount(QStringLiteral("unusable"), {}, {});
    constructShown();
    choose(editor(), "combx_fundAccount", QStringLiteral("acc1"));
    script().forget();
    choose(editor(), "combx_planType", QStringLiteral("JC-01"));
    QCOMPARE(script().callsOf(QStringLiteral("OrloAgreementSignWidget.SetClientNoList")),
        asked.isEmpty() ? QStringList()
                        : QStringList{ QStringLiteral("OrloAgreementSignWidget.SetClientNoList([%1])").arg(asked) });
}

void AccountFieldsTest::aChosenAccountRebuildsTheInstructionTypes()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    script().addCreditAccount(QStringLiteral("acc2"));
    construct();
    choose(editor(), "combx_fundAccount", QStringLiteral("acc1"));
    script().forget();
    callSlot("slotComboxAccountChanged");
    QCOMPARE(script().steps.first(), QStringLiteral("combx_instructionType.clear()"));
    QCOMPARE(script().calls.mid(0, 4), lines(R"(
        GetCurrentSecurityAccountByTradingAccount(acc1)
        GetAccountAssetPropByTradingAccount(acc1)
        hasOrderAuthority(acc1, 1)
        GetStaticCfgValue(AutoPlanInstructionType, 1))"));
}

// --- The assignee

/// A form without an account, in which a holdings reduction is chosen all the same.
void AccountFieldsTest::constructWithoutAccountButReduction()
{
    construct();
    box(editor(), "combx_planType")->addItem(QStringLiteral("减持"), QStringLiteral("JC-01"));
    script().forget();
    log().clear();
    choose(editor(), "combx_planType", QStringLiteral("JC-01"));
}

void AccountFieldsTest::withoutAnAccountNobodyIsNamed()
{
    script().forwardUsers = lines("李四");
    construct();
    QCOMPARE(texts(editor(), "combx_assignTo"), lines("默认不指定"));
    QCOMPARE(code(editor(), "combx_assignTo"), QString());
    QCOMPARE(box(editor(), "combx_assignTo")->currentIndex(), 0);
    QCOMPARE(script().countOf(QStringLiteral("getChainKeyForTraddingAccout")), 0);
    QCOMPARE(script().countOf(QStringLiteral("GetForwardUsers")), 0);
}

void AccountFieldsTest::usersAreOfferedOnceAndInOrder()
{
    script().forwardUsers = lines("王五\nb\n李四\nB\n2\nb\n10\n李四");
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    QCOMPARE(texts(editor(), "combx_assignTo"), lines("默认不指定\n10\n2\nB\nb\n李四\n王五"));
    QCOMPARE(box(editor(), "combx_assignTo")->currentIndex(), 0);
}

void AccountFieldsTest::withoutUsersNobodyIsOffered()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    QCOMPARE(texts(editor(), "combx_assignTo"), lines("默认不指定"));
    QCOMPARE(box(editor(), "combx_assignTo")->currentIndex(), 0);
}

void AccountFieldsTest::userItemsCarryNoCode()
{
    script().forwardUsers = lines("李四\n王五");
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    const QComboBox* const assignees = box(editor(), "combx_assignTo");
    QCOMPARE(assignees->itemData(0).toString(), QString());
    QVERIFY(!assignees->itemData(1).isValid());
    QVERIFY(!assignees->itemData(2).isValid());
}

void AccountFieldsTest::aReductionOffersItsExecutorsOnly()
{
    script().executeUsers = lines("王五\n李四\n王五");
    script().forwardUsers = lines("赵六");
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    script().forget();
    choose(editor(), "combx_planType", QStringLiteral("JC-01"));
    QCOMPARE(texts(editor(), "combx_assignTo"), lines("王五\n李四\n王五"));
    QCOMPARE(box(editor(), "combx_assignTo")->currentIndex(), 0);
    QCOMPARE(script().calls, lines(R"(
        GetUnsignedClientNoList(o_ProtocolId_AutoPlanReduceAgree)
        getChainKeyForTraddingAccout(acc1, 1)
        GetExcuteUsers(chain-acc1-1))"));
}

void AccountFieldsTest::aReductionWithoutExecutorsOffersNobody()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    choose(editor(), "combx_planType", QStringLiteral("JC-01"));
    QCOMPARE(texts(editor(), "combx_assignTo"), QStringList());
    QCOMPARE(box(editor(), "combx_assignTo")->currentIndex(), -1);
}

void AccountFieldsTest::aReductionWithoutAnAccountAsksForItsChain()
{
    script().executeUsers = lines("王五");
    constructWithoutAccountButReduction();
    QCOMPARE(script().calls, lines(R"(
        GetUnsignedClientNoList(o_ProtocolId_AutoPlanReduceAgree)
        getChainKeyForTraddingAccout("", "")
        GetExcuteUsers(chain--))"));
    QCOMPARE(texts(editor(), "combx_assignTo"), lines("王五"));
}

void AccountFieldsTest::executorsAreLogged()
{
    script().executeUsers = lines("王五\n李四\n赵六");
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    log().clear();
    choose(editor(), "combx_planType", QStringLiteral("JC-01"));
    const QList<LogLine> found = log().linesWith(QtDebugMsg, QStringLiteral("AutoParamSetting::InitComboxAssignTo"));
    QCOMPARE(found.size(), 1);
    QVERIFY(found.first().text.startsWith(QLatin1String("AutoParamSetting::InitComboxAssignTo")));
    QVERIFY(found.first().text.contains(QLatin1String("chain-acc1-1")));
    QVERIFY(found.first().text.endsWith(QLatin1String(" 3")));
    log().clear();
    choose(editor(), "combx_planType", QStringLiteral("TW-01"));
    QCOMPARE(log().linesWith(QtDebugMsg, QStringLiteral("InitComboxAssignTo")).size(), 0);
}

void AccountFieldsTest::theFirstAssigneeIsChosenAgainAfterEachRefill()
{
    script().forwardUsers = lines("李四");
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    box(editor(), "combx_assignTo")->setCurrentIndex(1);
    script().forget();
    choose(editor(), "combx_planType", QStringLiteral("TW-02"));
    QCOMPARE(box(editor(), "combx_assignTo")->currentIndex(), 0);
    // The box is emptied with its signals live, unlike the others.
    QCOMPARE(script().steps.filter(QStringLiteral("combx_assignTo")), lines(R"(
        combx_assignTo.clear()
        combx_assignTo announces ""
        combx_assignTo.append(默认不指定, "")
        combx_assignTo announces 默认不指定
        combx_assignTo.append(李四, ""))"));
}

void AccountFieldsTest::theChainIsThatOfTheInstructionType()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    script().forget();
    choose(editor(), "combx_instructionType", QStringLiteral("5"));
    QCOMPARE(script().callsOf(QStringLiteral("getChainKeyForTraddingAccout")).last(),
        QStringLiteral("getChainKeyForTraddingAccout(acc1, 5)"));
    QCOMPARE(
        script().callsOf(QStringLiteral("GetForwardUsers")).last(), QStringLiteral("GetForwardUsers(chain-acc1-5, 0)"));
}

// --- The layouts

void AccountFieldsTest::theLayoutFollowsThePlanType_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("inReductions");
    QTest::addColumn<bool>("inOthers");
    const auto row = [](const char* name, bool inReductions, bool inOthers) {
        QTest::newRow(name) << QByteArray(name) << inReductions << inOthers;
    };
    row("la_targetTotalNum", true, true);
    row("le_targetTotalNum", true, true);
    row("la_entrustMaxNum", false, true);
    row("le_entrustMaxNum", false, true);
    row("lab_entrustMaxNumUnit", false, true);
    row("lab_targetTotalNumUnit", false, true);
    row("la_reduceHRatio", true, false);
    row("le_reduceHRatio", true, false);
    row("la_reduceHMode", true, false);
    row("combx_reduceHMode", true, false);
    row("date_effectivePeriod_Multi", false, true);
    row("date_effectivePeriod_Single", true, false);
}

void AccountFieldsTest::theLayoutFollowsThePlanType()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, inReductions);
    QFETCH(bool, inOthers);
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    constructShown();
    QWidget* const widget = field<QWidget>(editor(), name.constData());
    QCOMPARE(widget->isVisible(), inOthers);
    for (const char* const type : { "JC-01", "TW-01", "JC-01", "TW-02", "JC-01", "TW-03" }) {
        const bool reduces = qstrcmp(type, "JC-01") == 0;
        // Turned over first, so that the layout itself must set it.
        widget->setVisible(reduces ? !inReductions : !inOthers);
        choose(editor(), "combx_planType", QLatin1String(type));
        QVERIFY2(widget->isVisible() == (reduces ? inReductions : inOthers), type);
    }
}

void AccountFieldsTest::theLayoutComesBack()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    constructShown();
    QCOMPARE(text(editor(), "la_assignTo"), QStringLiteral("分配给"));
    choose(editor(), "combx_planType", QStringLiteral("JC-01"));
    QCOMPARE(text(editor(), "la_assignTo"), QStringLiteral("执行人"));
    choose(editor(), "combx_planType", QStringLiteral("TW-03"));
    QCOMPARE(text(editor(), "la_assignTo"), QStringLiteral("分配给"));
}

QTEST_MAIN(AccountFieldsTest)
#include "tst_account_fields.moc"
