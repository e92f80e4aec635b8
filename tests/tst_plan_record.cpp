#include "Algo_Fields.h"
#include "Algo_Values.h"
#include "EditorTest.h"
#include "OrloDateEdit.h"
#include "Orlo_Values.h"
#include "PlanForm.h"

#include <QJsonObject>
#include <QtTest>

namespace {

using Record = QMap<QString, QVariant>;
namespace Base = AutoPlanField::BaseField;

const QString Account = QStringLiteral("acc1");
const QString Stock = QStringLiteral("600000.K_SH");
const QString Bond = QStringLiteral("110000.K_SH");
const QString HkStock = QStringLiteral("00700.HK");

const QString Reduction = QStringLiteral("JC-01");

QVariantMap otherOf(const Record& record)
{
    return QJsonDocument::fromJson(record.value(Base::planOtherParam).toString().toUtf8()).object().toVariantMap();
}

/// The record without its other parameters, which are looked at on their own.
Record mainOf(Record record)
{
    record.remove(Base::planOtherParam);
    return record;
}

} // namespace

class tst_plan_record : public EditorTest {
    Q_OBJECT

private Q_SLOTS:
    void anOrdinaryPlanIsRecorded();
    void everyValueIsText();
    void theServicesAreAskedInOrder();
    void theServicesOfAnAlgorithmPlanAreAskedInOrder();
    void theAccountIsLogged();
    void theUserIsRecordedAsText_data();
    void theUserIsRecordedAsText();
    void anUnknownAccountHasEmptyFields();
    void anAccountThatIsNotOnTheExchangeHasNoSecurityAccount();
    void anUnknownSecurityHasEmptyFields();

    void thePriceModeDecidesTheFormulas_data();
    void thePriceModeDecidesTheFormulas();
    void noLimitRecordsAnEmptyInputAsWell();
    void theQuantityIsStoredInWholeUnits_data();
    void theQuantityIsStoredInWholeUnits();
    void aBondIsStoredInLots();
    void aDisplayFactorOfZeroCountsAsOne();

    void thePlanTypeDecidesTheAssignee_data();
    void thePlanTypeDecidesTheAssignee();
    void anAssigneeBoxWithoutAChoiceIsRecordedAsEmpty();
    void aRangeOfDatesIsRecorded();
    void aReductionEndsAHundredYearsLater_data();
    void aReductionEndsAHundredYearsLater();
    void theSingleDateWinsWhereBothAreVisible();
    void whatIsNotVisibleIsNotRecorded();

    void aQuantityOrderHasNoTargetType();
    void anAmountOrderRecordsItsAmounts();
    void aReductionRecordsRatioAndMode();
    void anAlgorithmPlanRecordsItsParametersAsAMap();
    void theAlgorithmIsLeftOutInOtherModes();
    void aHongKongPlanRecordsItsPriceType_data();
    void aHongKongPlanRecordsItsPriceType();
    void aCreditPlanRecordsItsEntrustTypeAsANumber_data();
    void aCreditPlanRecordsItsEntrustTypeAsANumber();
    void otherPlansRecordNeitherPriceTypeNorEntrustType();
    void theOtherParametersAreCompactText();
    void aRemarkIsRecordedUnlessItIsEmpty_data();
    void aRemarkIsRecordedUnlessItIsEmpty();
    void recordingChangesNothingInTheForm();

private:
    void open();
    void fillReduction();
    void fillAlgorithmPlan();
    Record send();
    Record sendAfter(const std::function<void()>& lastChange);
};

void tst_plan_record::open()
{
    if (script().accounts.isEmpty())
        script().addOrdinaryAccount(Account);
    script().addStock(Stock);
    script().addBond(Bond, 10);
    script().addHkStock(HkStock, 100);
    script().loginAccountDetail.insert(Kelvo_Fields::UserAccount::userID, QStringLiteral("user7"));
    script().positions = QList<FieldMap>{ { { Kelvo_Fields::Security::tradeableQty, 1000000 } } };
    constructShown();
}

/// A holdings reduction of 1000 shares by the first executor.
void tst_plan_record::fillReduction()
{
    fillPlan(editor(), Stock);
    choose(editor(), "combx_planType", Reduction);
    enter(editor(), "le_reduceHRatio", 0.05);
}

/// A purchase by amount, which leaves algorithmic review as the only mode.
void tst_plan_record::fillAlgorithmPlan()
{
    choose(editor(), "combx_instructionTargetType", InstructionTargetType::AmountOrder);
    fillPlan(editor(), Stock);
    choose(editor(), "combx_instructionTargetType", InstructionTargetType::AmountOrder);
    chooseSecurity(editor(), Stock);
    choose(editor(), "combx_priceMode", QStringLiteral("6"));
    type(editor(), "lineEdit_price1", QStringLiteral("昨收价"));
    script().strategyAliases.insert(QStringLiteral("TWAP"), QStringLiteral("时间加权"));
    press(editor(), "btn_algoParamSetting");
    script().panelHasParams = true;
    script().panelStrategy = QStringLiteral("TWAP");
    script().panelParams = { { Algo_Fields::AlgoInstContentInfo::TradingAccount, Account },
        { Algo_Fields::AlgoInstContentInfo::OrderSide, Algo_Values::AlgoOrderSide::BuyValue },
        { QStringLiteral("MaxShare"), 0.25 }, { QStringLiteral("Slices"), 12 } };
}

Record tst_plan_record::send()
{
    script().forget();
    log().clear();
    press(editor(), "btn_ok");
    if (script().createdRecords.size() != 1)
        qFatal("No record was sent: %s", qPrintable(script().calls.join(QLatin1Char('\n'))));
    return script().createdRecords.constFirst();
}

/// Changes the form behind the rules: while they ask about holdings that do not suffice.
Record tst_plan_record::sendAfter(const std::function<void()>& lastChange)
{
    script().positions = QList<FieldMap>();
    choose(editor(), "combx_tradeSide", Kelvo_Values::OrderSide::sell);
    script().whileBoxOpen = lastChange;
    const Record record = send();
    if (script().boxes.value(0).kind != QStringLiteral("question"))
        qFatal("The rules have not asked");
    return record;
}

void tst_plan_record::anOrdinaryPlanIsRecorded()
{
    open();
    fillPlan(editor(), Stock);
    const Record expected{ { Kelvo_Fields::UserAccount::userID, QStringLiteral("user7") },
        { Orlo_Fields::AutoPlan::templateCode, QStringLiteral("TW-01") },
        { Orlo_Fields::AutoPlan::subType, QStringLiteral("1") }, { Kelvo_Fields::UserAccount::tradingAccount, Account },
        { QStringLiteral("10112"), QStringLiteral("B-acc1") }, { Kelvo_Fields::Security::symbol, Stock },
        { Kelvo_Fields::UserAccount::securityExchange, Kelvo_Values::Exchange::sh },
        { Kelvo_Fields::UserAccount::securityAccount, QStringLiteral("S-acc1-k_Exchange_sh") },
        { Base::orderSide, Kelvo_Values::OrderSide::buy }, { Base::priceModel, QStringLiteral("6") },
        { Base::priceFormula1, QStringLiteral("昨收价*1.01") }, { Base::totalQty, QStringLiteral("1000") },
        { Base::InstMode, QStringLiteral("1") }, { Base::beginDate, QStringLiteral("2024/05/07") },
        { Base::endDate, QStringLiteral("2024/05/07") },
        { Base::planOtherParam,
            QStringLiteral(R"({"pf_BaseField_securitySubType":"k_MdcSubSecurityType_Ashares",)"
                           R"("pf_Progress_CurrentQty":"100"})") } };
    QCOMPARE(send(), expected);
}

void tst_plan_record::everyValueIsText()
{
    script().loginAccountDetail.insert(Kelvo_Fields::UserAccount::userID, 42);
    script().ruleProperty = 1;
    open();
    fillAlgorithmPlan();
    type(editor(), "le_remark", QStringLiteral("备注"));
    const Record record = send();
    for (auto it = record.cbegin(); it != record.cend(); ++it)
        QVERIFY2(it.value().type() == QVariant::String, qPrintable(it.key()));
}

void tst_plan_record::theServicesAreAskedInOrder()
{
    open();
    fillPlan(editor(), Stock);
    send();
    const int start = script().calls.indexOf(QStringLiteral("GetLoginAccountDetail()"));
    QCOMPARE(script().calls.mid(start, 5),
        QStringList({ QStringLiteral("GetLoginAccountDetail()"),
            QStringLiteral("GetFirstSecurityExchangeBySymbol(600000.K_SH)"),
            QStringLiteral("GetCurrentSecurityAccountByTradingAndExchange(acc1, k_Exchange_sh)"),
            QStringLiteral("GetDispFactorBySymbol(600000.K_SH)"),
            QStringLiteral("CBusinessDataBase::GetSecuritySubTypeBySymbol(600000.K_SH)") }));
    QVERIFY(script().calls.value(start + 5).startsWith(QStringLiteral("CreateNewPlan(")));
}

void tst_plan_record::theServicesOfAnAlgorithmPlanAreAskedInOrder()
{
    script().ruleProperty = 1;
    open();
    fillAlgorithmPlan();
    send();
    const int start = script().calls.indexOf(QStringLiteral("GetLoginAccountDetail()"));
    QCOMPARE(script().calls.mid(start + 3, 4),
        QStringList({ QStringLiteral("GetDispFactorBySymbol(600000.K_SH)"), QStringLiteral("panel.GetParamMap()"),
            QStringLiteral("panel.GetStrategyName()"),
            QStringLiteral("CBusinessDataBase::GetSecuritySubTypeBySymbol(600000.K_SH)") }));
    QVERIFY(script().calls.value(start + 7).startsWith(QStringLiteral("CreateNewPlan(")));
}

void tst_plan_record::theAccountIsLogged()
{
    open();
    fillPlan(editor(), Stock);
    send();
    const QList<LogLine> lines =
        log().linesWith(QtDebugMsg, QStringLiteral("AutoParamSetting::procUiDataByCreatePlan"));
    QCOMPARE(lines.size(), 1);
    const QString text = lines.constFirst().text;
    QVERIFY2(text.startsWith(QStringLiteral("AutoParamSetting::procUiDataByCreatePlan")), qPrintable(text));
    const int symbol = text.indexOf(Stock);
    const int fundAccount = text.indexOf(QStringLiteral("F-acc1"));
    const int securityAccount = text.indexOf(QStringLiteral("S-acc1-k_Exchange_sh"));
    const int exchange = text.lastIndexOf(QStringLiteral("k_Exchange_sh"));
    QVERIFY2(0 < symbol && symbol < fundAccount && fundAccount < securityAccount && securityAccount < exchange,
        qPrintable(text));
}

void tst_plan_record::theUserIsRecordedAsText_data()
{
    QTest::addColumn<QVariant>("id");
    QTest::addColumn<QString>("recorded");
    QTest::newRow("a text") << QVariant(QStringLiteral("user7")) << QStringLiteral("user7");
    QTest::newRow("a number") << QVariant(42) << QStringLiteral("42");
    QTest::newRow("nobody is logged in") << QVariant() << QString();
}

void tst_plan_record::theUserIsRecordedAsText()
{
    QFETCH(QVariant, id);
    QFETCH(QString, recorded);
    open();
    script().loginAccountDetail.clear();
    if (id.isValid())
        script().loginAccountDetail.insert(Kelvo_Fields::UserAccount::userID, id);
    fillPlan(editor(), Stock);
    const Record record = send();
    QVERIFY(record.contains(Kelvo_Fields::UserAccount::userID));
    QCOMPARE(record.value(Kelvo_Fields::UserAccount::userID), QVariant(recorded));
}

void tst_plan_record::anUnknownAccountHasEmptyFields()
{
    open();
    fillPlan(editor(), Stock);
    const Record record = sendAfter([this] {
        QComboBox* const accounts = box(editor(), "combx_fundAccount");
        const QSignalBlocker silence(accounts);
        accounts->setItemData(0, QStringLiteral("closed account"), Qt::UserRole);
    });
    QCOMPARE(record.value(Kelvo_Fields::UserAccount::tradingAccount).toString(), QStringLiteral("closed account"));
    QVERIFY(record.contains(QStringLiteral("10112")));
    QCOMPARE(record.value(QStringLiteral("10112")), QVariant(QString()));
    QVERIFY(record.contains(Kelvo_Fields::UserAccount::securityAccount));
    QCOMPARE(record.value(Kelvo_Fields::UserAccount::securityAccount), QVariant(QString()));
}

void tst_plan_record::anAccountThatIsNotOnTheExchangeHasNoSecurityAccount()
{
    script().addAccount(Account, { Kelvo_Values::Exchange::sz }, { QStringLiteral("1") });
    open();
    fillPlan(editor(), Stock);
    const Record record = send();
    QCOMPARE(record.value(Kelvo_Fields::UserAccount::securityExchange).toString(), Kelvo_Values::Exchange::sh);
    QVERIFY(record.contains(Kelvo_Fields::UserAccount::securityAccount));
    QCOMPARE(record.value(Kelvo_Fields::UserAccount::securityAccount), QVariant(QString()));
}

void tst_plan_record::anUnknownSecurityHasEmptyFields()
{
    open();
    fillPlan(editor(), QStringLiteral("999999.K_SH"));
    const Record record = send();
    QCOMPARE(record.value(Kelvo_Fields::Security::symbol).toString(), QStringLiteral("999999.K_SH"));
    QCOMPARE(record.value(Kelvo_Fields::UserAccount::securityExchange), QVariant(QString()));
    QCOMPARE(record.value(Kelvo_Fields::UserAccount::securityAccount), QVariant(QString()));
    QVERIFY(otherOf(record).contains(Base::securitySubType));
    QCOMPARE(otherOf(record).value(Base::securitySubType).toString(), QString());
}

void tst_plan_record::thePriceModeDecidesTheFormulas_data()
{
    QTest::addColumn<QString>("priceMode");
    QTest::addColumn<QStringList>("prices");
    const QString absent = QStringLiteral("(absent)");
    QTest::newRow("no limit: the zero twice")
        << QStringLiteral("1") << QStringList{ QStringLiteral("0.00"), QStringLiteral("0.00"), absent };
    QTest::newRow("custom: one formula") << QStringLiteral("6")
                                         << QStringList{ QStringLiteral(" 昨收价 "), absent, absent };
    QTest::newRow("the larger: two formulas")
        << QStringLiteral("7") << QStringList{ QStringLiteral(" 昨收价 "), absent, QStringLiteral("跌停价+0.01") };
    QTest::newRow("the smaller: two formulas")
        << QStringLiteral("8") << QStringList{ QStringLiteral(" 昨收价 "), absent, QStringLiteral("跌停价+0.01") };
}

void tst_plan_record::thePriceModeDecidesTheFormulas()
{
    QFETCH(QString, priceMode);
    QFETCH(QStringList, prices);
    open();
    fillPlan(editor(), Stock);
    choose(editor(), "combx_priceMode", priceMode);
    if (priceMode != QStringLiteral("1"))
        type(editor(), "lineEdit_price1", QStringLiteral(" 昨收价 "));
    // Also where the second input is hidden: what it holds is not recorded then.
    type(editor(), "lineEdit_price2", QStringLiteral("跌停价+0.01"));
    const Record record = send();
    QCOMPARE(record.value(Base::priceModel).toString(), priceMode);
    QStringList recorded;
    for (const QString& key : { Base::priceFormula1, Base::priceFixed, Base::priceFormula2 })
        recorded.append(record.value(key, QStringLiteral("(absent)")).toString());
    QCOMPARE(recorded, prices);
}

void tst_plan_record::noLimitRecordsAnEmptyInputAsWell()
{
    open();
    fillPlan(editor(), Stock);
    choose(editor(), "combx_priceMode", QStringLiteral("1"));
    const Record record = sendAfter([this] { type(editor(), "lineEdit_price1", QString()); });
    QVERIFY(record.contains(Base::priceFormula1));
    QCOMPARE(record.value(Base::priceFormula1), QVariant(QString()));
    QVERIFY(record.contains(Base::priceFixed));
    QCOMPARE(record.value(Base::priceFixed), QVariant(QString()));
    QVERIFY(!record.contains(Base::priceFormula2));
}

void tst_plan_record::theQuantityIsStoredInWholeUnits_data()
{
    QTest::addColumn<double>("total");
    QTest::addColumn<double>("daily");
    QTest::addColumn<int>("factor");
    QTest::addColumn<QString>("storedTotal");
    QTest::addColumn<QString>("storedDaily");
    QTest::newRow("a factor of ten drops the remainder")
        << 1999.7 << 100.5 << 10 << QStringLiteral("199") << QStringLiteral("10");
    QTest::newRow("a factor of one drops the fraction")
        << 1999.7 << 100.5 << 1 << QStringLiteral("1999") << QStringLiteral("100");
    QTest::newRow("nothing a day") << 5.0 << 0.0 << 10 << QStringLiteral("0") << QStringLiteral("0");
    QTest::newRow("the largest of the inputs, without an exponent")
        << 2000000000.0 << 2000000000.0 << 1 << QStringLiteral("2000000000") << QStringLiteral("2000000000");
}

void tst_plan_record::theQuantityIsStoredInWholeUnits()
{
    QFETCH(double, total);
    QFETCH(double, daily);
    QFETCH(int, factor);
    QFETCH(QString, storedTotal);
    QFETCH(QString, storedDaily);
    script().ruleProperty = 1;
    open();
    script().securities[Stock].displayFactor = factor;
    fillAlgorithmPlan();
    enter(editor(), "le_targetTotalNum", total);
    enter(editor(), "le_entrustMaxNum", daily);
    const Record record = send();
    QCOMPARE(record.value(Base::totalQty).toString(), storedTotal);
    QCOMPARE(otherOf(record).value(AutoPlanField::Progress::CurrentQty).toString(), storedDaily);
}

void tst_plan_record::aBondIsStoredInLots()
{
    open();
    fillPlan(editor(), Bond, QStringLiteral("5"));
    const Record record = send();
    QCOMPARE(record.value(Orlo_Fields::AutoPlan::subType).toString(), QStringLiteral("5"));
    QCOMPARE(record.value(Base::totalQty).toString(), QStringLiteral("100"));
    QCOMPARE(otherOf(record),
        QVariantMap({ { AutoPlanField::Progress::CurrentQty, QStringLiteral("10") },
            { Base::securitySubType, QStringLiteral("o_bond_treasury") } }));
}

void tst_plan_record::aDisplayFactorOfZeroCountsAsOne()
{
    open();
    script().securities[Stock].displayFactor = 0;
    fillPlan(editor(), Stock);
    log().expectWarning(QStringLiteral("AutoParamSetting::checkParam display factor 0"), 2);
    log().expectWarning(QStringLiteral("AutoParamSetting::procUiDataByCreatePlan display factor 0 counts as 1"));
    const Record record = send();
    QCOMPARE(record.value(Base::totalQty).toString(), QStringLiteral("1000"));
    QCOMPARE(otherOf(record).value(AutoPlanField::Progress::CurrentQty).toString(), QStringLiteral("100"));
    QCOMPARE(log().linesWith(QtWarningMsg, QString()).size(), 3);
}

void tst_plan_record::thePlanTypeDecidesTheAssignee_data()
{
    QTest::addColumn<QString>("planType");
    QTest::addColumn<QString>("assignee");
    QTest::addColumn<QString>("expectedUser");
    QTest::addColumn<QString>("executeUser");
    const QString nobody = QStringLiteral("默认不指定");
    const QString absent = QStringLiteral("(absent)");
    const QString user = QStringLiteral("王五");
    for (const QString& planType : { QStringLiteral("TW-01"), QStringLiteral("TW-02"), QStringLiteral("TW-03") }) {
        QTest::newRow(qPrintable(planType + QStringLiteral(" for nobody"))) << planType << nobody << absent << absent;
        QTest::newRow(qPrintable(planType + QStringLiteral(" for a user"))) << planType << user << user << absent;
    }
    QTest::newRow("a reduction by an executor") << Reduction << user << absent << user;
    QTest::newRow("a reduction by an executor of that very name") << Reduction << nobody << absent << nobody;
}

void tst_plan_record::thePlanTypeDecidesTheAssignee()
{
    QFETCH(QString, planType);
    QFETCH(QString, assignee);
    QFETCH(QString, expectedUser);
    QFETCH(QString, executeUser);
    script().forwardUsers = QStringList{ QStringLiteral("王五") };
    script().executeUsers = QStringList{ QStringLiteral("王五"), QStringLiteral("默认不指定") };
    open();
    fillReduction();
    choose(editor(), "combx_planType", planType);
    box(editor(), "combx_assignTo")->setCurrentText(assignee);
    QCOMPARE(box(editor(), "combx_assignTo")->currentText(), assignee);
    const Record record = send();
    QCOMPARE(record.value(Orlo_Fields::AutoPlan::templateCode).toString(), planType);
    const QString absent = QStringLiteral("(absent)");
    QCOMPARE(record.value(Base::expectedUser, absent).toString(), expectedUser);
    QCOMPARE(record.value(Base::executeUser, absent).toString(), executeUser);
}

void tst_plan_record::anAssigneeBoxWithoutAChoiceIsRecordedAsEmpty()
{
    open();
    fillPlan(editor(), Stock);
    box(editor(), "combx_assignTo")->setCurrentIndex(-1);
    const Record record = send();
    QVERIFY(record.contains(Base::expectedUser));
    QCOMPARE(record.value(Base::expectedUser), QVariant(QString()));
}

void tst_plan_record::aRangeOfDatesIsRecorded()
{
    open();
    fillPlan(editor(), Stock);
    field<OrloDateEdit>(editor(), "date_effectivePeriod_Multi")
        ->SetStartEndDate(QDate(2024, 5, 8), QDate(2024, 12, 31));
    const Record record = send();
    QCOMPARE(record.value(Base::beginDate).toString(), QStringLiteral("2024/05/08"));
    QCOMPARE(record.value(Base::endDate).toString(), QStringLiteral("2024/12/31"));
}

void tst_plan_record::aReductionEndsAHundredYearsLater_data()
{
    QTest::addColumn<QDate>("begin");
    QTest::addColumn<QString>("beginText");
    QTest::addColumn<QString>("endText");
    QTest::newRow("an ordinary day") << QDate(2024, 5, 6) << QStringLiteral("2024/05/06")
                                     << QStringLiteral("2124/05/06");
    QTest::newRow("a leap day that both years have")
        << QDate(2024, 2, 29) << QStringLiteral("2024/02/29") << QStringLiteral("2124/02/29");
    QTest::newRow("a leap day that the later year lacks")
        << QDate(2000, 2, 29) << QStringLiteral("2000/02/29") << QStringLiteral("2100/02/28");
}

void tst_plan_record::aReductionEndsAHundredYearsLater()
{
    QFETCH(QDate, begin);
    QFETCH(QString, beginText);
    QFETCH(QString, endText);
    script().executeUsers = QStringList{ QStringLiteral("王五") };
    open();
    fillReduction();
    field<OrloDateEdit>(editor(), "date_effectivePeriod_Single")->SetDate(begin);
    // The range is hidden: what it holds does not count.
    field<OrloDateEdit>(editor(), "date_effectivePeriod_Multi")->SetStartEndDate(QDate(2030, 1, 1), QDate(2030, 1, 2));
    const Record record = send();
    QCOMPARE(record.value(Base::beginDate).toString(), beginText);
    QCOMPARE(record.value(Base::endDate).toString(), endText);
}

void tst_plan_record::theSingleDateWinsWhereBothAreVisible()
{
    open();
    fillPlan(editor(), Stock);
    const Record record = sendAfter([this] {
        OrloDateEdit* const single = field<OrloDateEdit>(editor(), "date_effectivePeriod_Single");
        single->show();
        single->SetDate(QDate(2024, 5, 20));
    });
    QCOMPARE(record.value(Base::beginDate).toString(), QStringLiteral("2024/05/20"));
    QCOMPARE(record.value(Base::endDate).toString(), QStringLiteral("2124/05/20"));
}

void tst_plan_record::whatIsNotVisibleIsNotRecorded()
{
    open();
    fillPlan(editor(), HkStock, QStringLiteral("9"));
    const Record record = sendAfter([this] { host().hide(); });
    QVERIFY(!record.contains(Base::beginDate));
    QVERIFY(!record.contains(Base::endDate));
    QCOMPARE(otherOf(record),
        QVariantMap({ { Base::securitySubType, Orlo_Values::MdcSubSecurityType::HStcokCirculation } }));
}

void tst_plan_record::aQuantityOrderHasNoTargetType()
{
    open();
    fillPlan(editor(), Stock);
    const QVariantMap other = otherOf(send());
    QCOMPARE(other,
        QVariantMap({ { Base::securitySubType, Kelvo_Values::MdcSubSecurityType::Ashares },
            { AutoPlanField::Progress::CurrentQty, QStringLiteral("100") } }));
}

void tst_plan_record::anAmountOrderRecordsItsAmounts()
{
    script().ruleProperty = 1;
    open();
    fillAlgorithmPlan();
    enter(editor(), "le_targetTotalNum", 123456.5);
    enter(editor(), "le_entrustMaxNum", 1000);
    const QVariantMap other = otherOf(send());
    QCOMPARE(other.value(QStringLiteral("57134")).toString(), InstructionTargetType::AmountOrder);
    QCOMPARE(other.value(Base::tradeAmount).toString(), QStringLiteral("123456.50"));
    QCOMPARE(other.value(Base::dayMaxTradeAmount).toString(), QStringLiteral("1000.00"));
    QCOMPARE(other.value(AutoPlanField::Progress::CurrentQty).toString(), QStringLiteral("1000"));
}

void tst_plan_record::aReductionRecordsRatioAndMode()
{
    script().executeUsers = QStringList{ QStringLiteral("王五") };
    open();
    fillReduction();
    const Record record = send();
    QCOMPARE(otherOf(record),
        QVariantMap({ { Base::securitySubType, Kelvo_Values::MdcSubSecurityType::Ashares },
            { Base::JCRatio, QStringLiteral("0.05") }, { Base::JCModel, QStringLiteral("1") } }));
    QCOMPARE(record.value(Base::totalQty).toString(), QStringLiteral("1000"));
    QCOMPARE(record.value(Base::orderSide).toString(), Kelvo_Values::OrderSide::sell);
}

void tst_plan_record::anAlgorithmPlanRecordsItsParametersAsAMap()
{
    script().ruleProperty = 1;
    open();
    fillAlgorithmPlan();
    const QStringList names = script().panelParams.keys();
    const Record record = send();
    QCOMPARE(record.value(Base::InstMode).toString(), QStringLiteral("3"));
    const QVariantMap other = otherOf(record);
    QCOMPARE(other.value(Base::algoStrategyName).toString(), QStringLiteral("TWAP"));
    const QVariant parameters = other.value(Base::algoParam);
    QVERIFY(parameters.type() == QVariant::Map);
    QCOMPARE(names.size(), 4);
    QCOMPARE(parameters.toMap().keys(), names);
    QCOMPARE(parameters.toMap().value(QStringLiteral("MaxShare")).toDouble(), 0.25);
    QCOMPARE(parameters.toMap().value(QStringLiteral("Slices")).toInt(), 12);
    QCOMPARE(other.keys().size(), 7);
}

void tst_plan_record::theAlgorithmIsLeftOutInOtherModes()
{
    script().ruleProperty = 1;
    open();
    fillAlgorithmPlan();
    choose(editor(), "combx_instructionTargetType", InstructionTargetType::QtyOrder);
    fillPlan(editor(), Stock);
    choose(editor(), "combx_instructionMode", QStringLiteral("2"));
    const Record record = send();
    QCOMPARE(record.value(Base::InstMode).toString(), QStringLiteral("2"));
    QVERIFY(!otherOf(record).contains(Base::algoParam));
    QVERIFY(!otherOf(record).contains(Base::algoStrategyName));
    QCOMPARE(script().countOf(QStringLiteral("panel.GetParamMap")), 0);
    QCOMPARE(script().countOf(QStringLiteral("panel.GetStrategyName")), 0);
}

void tst_plan_record::aHongKongPlanRecordsItsPriceType_data()
{
    QTest::addColumn<QString>("priceType");
    QTest::newRow("enhanced limit") << Orlo_Values::HKTimeInForce::InTrade;
    QTest::newRow("auction limit") << Orlo_Values::HKTimeInForce::BeforeTrade;
}

void tst_plan_record::aHongKongPlanRecordsItsPriceType()
{
    QFETCH(QString, priceType);
    open();
    fillPlan(editor(), HkStock, QStringLiteral("9"));
    choose(editor(), "combx_priceType", priceType);
    const Record record = send();
    QCOMPARE(otherOf(record),
        QVariantMap({ { Base::securitySubType, Orlo_Values::MdcSubSecurityType::HStcokCirculation },
            { AutoPlanField::Progress::CurrentQty, QStringLiteral("100") },
            { Kelvo_Fields::Security::timeInForce, priceType } }));
    QCOMPARE(record.value(Kelvo_Fields::UserAccount::securityExchange).toString(),
        Orlo_Values::Exchange::HkStockCirculation);
    QCOMPARE(script().countOf(QStringLiteral("transSideUnion2Enum")), 0);
}

void tst_plan_record::aCreditPlanRecordsItsEntrustTypeAsANumber_data()
{
    QTest::addColumn<QString>("subType");
    QTest::addColumn<QString>("entrustType");
    QTest::addColumn<QString>("number");
    using namespace Orlo_Values;
    const QString share = Kelvo_Values::MdcSubSecurityType::Ashares;
    QTest::newRow("collateral sale") << share << SideUnion::collateralSell << QStringLiteral("2");
    QTest::newRow("margin sale") << share << SideUnion::marginSell << QStringLiteral("4");
    QTest::newRow("financing sale") << share << SideUnion::financingSell << QStringLiteral("6");
    QTest::newRow("ordinary margin sale") << share << SideUnion::marginSellNormal << QStringLiteral("8");
    QTest::newRow("bond conversion") << share << SideUnion::BondConversion << QStringLiteral("9");
    QTest::newRow("paid rationed share, in two digits")
        << MdcSubSecurityType::PaidRationStock << SideUnion::paidRationShare << QStringLiteral("10");
    QTest::newRow("none chosen") << share << QString() << QStringLiteral("0");
}

void tst_plan_record::aCreditPlanRecordsItsEntrustTypeAsANumber()
{
    QFETCH(QString, subType);
    QFETCH(QString, entrustType);
    QFETCH(QString, number);
    script().addCreditAccount(Account);
    script().bondConversionEnabled = true;
    open();
    script().securities[Stock].subType = subType;
    fillPlan(editor(), Stock, QStringLiteral("2"));
    if (entrustType.isEmpty())
        box(editor(), "combx_entrustType")->setCurrentIndex(-1);
    else
        choose(editor(), "combx_entrustType", entrustType);
    const Record record = send();
    QCOMPARE(record.value(Orlo_Fields::AutoPlan::subType).toString(), QStringLiteral("2"));
    const QVariant recorded = otherOf(record).value(QStringLiteral("MarginInstructionSideType"));
    QVERIFY(recorded.type() == QVariant::String);
    QCOMPARE(recorded.toString(), number);
    QCOMPARE(script().countOf(QStringLiteral("transSideUnion2Enum")), 1);
    QVERIFY(!otherOf(record).contains(Kelvo_Fields::Security::timeInForce));
}

void tst_plan_record::otherPlansRecordNeitherPriceTypeNorEntrustType()
{
    open();
    fillPlan(editor(), Bond, QStringLiteral("5"));
    const QVariantMap other = otherOf(send());
    QVERIFY(!other.contains(Kelvo_Fields::Security::timeInForce));
    QVERIFY(!other.contains(QStringLiteral("MarginInstructionSideType")));
    QCOMPARE(script().countOf(QStringLiteral("transSideUnion2Enum")), 0);
}

void tst_plan_record::theOtherParametersAreCompactText()
{
    script().ruleProperty = 1;
    open();
    script().securities[Stock].subType = QStringLiteral("子类\"型\"");
    fillAlgorithmPlan();
    script().panelParams = { { Algo_Fields::AlgoInstContentInfo::TradingAccount, Account },
        { Algo_Fields::AlgoInstContentInfo::OrderSide, Algo_Values::AlgoOrderSide::BuyValue } };
    QCOMPARE(send().value(Base::planOtherParam).toString(),
        QStringLiteral(R"({"57134":"tt_AmountOrder",)"
                       R"("pf_BaseField_algoParam":{"af_AlgoInstContentInfo_OrderSide":"av_AlgoOrderSide_BuyValue",)"
                       R"("af_AlgoInstContentInfo_TradingAccount":"acc1"},)"
                       R"("pf_BaseField_algoStrategyName":"TWAP",)"
                       R"("pf_BaseField_dayMaxTradeAmount":"100.00",)"
                       R"("pf_BaseField_securitySubType":"子类\"型\"",)"
                       R"("pf_BaseField_tradeAmount":"1000.00",)"
                       R"("pf_Progress_CurrentQty":"100"})"));
}

void tst_plan_record::aRemarkIsRecordedUnlessItIsEmpty_data()
{
    QTest::addColumn<QString>("remark");
    QTest::newRow("empty") << QString();
    QTest::newRow("a blank counts") << QStringLiteral(" ");
    QTest::newRow("as typed") << QStringLiteral(" 分批\"买入\" %1 {}\\ ");
}

void tst_plan_record::aRemarkIsRecordedUnlessItIsEmpty()
{
    QFETCH(QString, remark);
    open();
    fillPlan(editor(), Stock);
    type(editor(), "le_remark", remark);
    const Record record = send();
    QCOMPARE(record.contains(Base::remark), !remark.isEmpty());
    QCOMPARE(record.value(Base::remark).toString(), remark);
}

void tst_plan_record::recordingChangesNothingInTheForm()
{
    open();
    script().createAnswer = QStringLiteral("拒绝");
    fillPlan(editor(), Stock);
    script().forget();
    script().watch(true);
    press(editor(), "btn_ok");
    press(editor(), "btn_ok");
    script().watch(false);
    QCOMPARE(script().createdRecords.size(), 2);
    QCOMPARE(script().createdRecords.at(0), script().createdRecords.at(1));
    QCOMPARE(mainOf(script().createdRecords.at(0)).size(), 15);
    QCOMPARE(script().steps, script().calls);
    const QRegularExpression widgetOperation(QStringLiteral("^(combx|date|le|lineEdit)_\\w+\\."));
    QCOMPARE(script().calls.filter(widgetOperation), QStringList());
}

QTEST_MAIN(tst_plan_record)
#include "tst_plan_record.moc"
