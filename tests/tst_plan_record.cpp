#include "Algo_Fields.h"
#include "Algo_Values.h"
#include "AutoPlanField.h"
#include "EditorTest.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"
#include "PlanVocabulary.h"

#include <QRegularExpression>
#include <QSignalBlocker>
#include <QtTest>

namespace {

namespace Base = AutoPlanField::BaseField;
namespace UserAccount = Kelvo_Fields::UserAccount;

PlanSample byAlgorithm()
{
    PlanSample plan = PlanSample().withMode(AutoPlanInstMode::AlgoTradeReview);
    plan.targetType = InstructionTargetType::AmountOrder;
    return plan;
}

/// The texts of some keys; "absent" for a missing one.
QStringList textsOf(const FieldMap& record, const QStringList& keys)
{
    QStringList found;
    for (const QString& key : keys)
        found.append(record.value(key, QStringLiteral("absent")).toString());
    return found;
}

} // namespace

/// The record of a plan. tst_stored_plans compares the record of every kind of plan with the model.
class PlanRecordTest : public EditorTest {
    Q_OBJECT

private:
    FieldMap send()
    {
        script().forget();
        log().clear();
        press(editor(), "btn_ok");
        if (script().createdRecords.size() != 1)
            qFatal("No record was sent: %s", qPrintable(script().calls.join(QLatin1Char('\n'))));
        return script().createdRecords.constFirst();
    }

    FieldMap sendOther() { return script().otherParamOf(send()); }

    /// Changes the form between two rules: while the question about insufficient holdings is open.
    FieldMap sendAfter(const std::function<void()>& lastChange)
    {
        script().positions = QList<FieldMap>();
        choose(editor(), "combx_tradeSide", Kelvo_Values::OrderSide::sell);
        script().whileBoxOpen = lastChange;
        const FieldMap record = send();
        if (script().boxes.value(0).kind != QStringLiteral("question"))
            qFatal("The rules have not asked");
        return record;
    }

    QStringList callsFromTheRecordOn() const
    {
        return script().calls.mid(script().calls.indexOf(QStringLiteral("GetLoginAccountDetail()")));
    }

private Q_SLOTS:
    void anOrdinaryPlanIsRecorded()
    {
        openFilledWith(PlanSample());
        const FieldMap expected{ { UserAccount::userID, QStringLiteral("trader") },
            { Orlo_Fields::AutoPlan::templateCode, AutoPlanTemplate::CumulativeQty },
            { Orlo_Fields::AutoPlan::subType, AutoPlanInstructionType::Ordinary },
            { UserAccount::tradingAccount, Account }, { AutoPlanFieldId::Account10112, QStringLiteral("B-acc1") },
            { Kelvo_Fields::Security::symbol, Stock }, { UserAccount::securityExchange, Kelvo_Values::Exchange::sh },
            { UserAccount::securityAccount, QStringLiteral("S-acc1-k_Exchange_sh") },
            { Base::orderSide, Kelvo_Values::OrderSide::buy }, { Base::priceModel, AutoPlanPriceModel::Custom },
            { Base::priceFormula1, QStringLiteral("昨收价*1.01") }, { Base::totalQty, QStringLiteral("1000") },
            { Base::InstMode, AutoPlanInstMode::ActiveManage }, { Base::beginDate, QStringLiteral("2024/05/08") },
            { Base::endDate, QStringLiteral("2024/05/17") },
            { Base::planOtherParam,
                QStringLiteral(R"({"pf_BaseField_securitySubType":"k_MdcSubSecurityType_Ashares",)"
                               R"("pf_Progress_CurrentQty":"300"})") } };
        QCOMPARE(send(), expected);
        QCOMPARE(callsFromTheRecordOn().mid(0, 5), lines(R"(
            GetLoginAccountDetail()
            GetFirstSecurityExchangeBySymbol(600000.K_SH)
            GetCurrentSecurityAccountByTradingAndExchange(acc1, k_Exchange_sh)
            GetDispFactorBySymbol(600000.K_SH)
            CBusinessDataBase::GetSecuritySubTypeBySymbol(600000.K_SH))"));
        const QList<LogLine> logged =
            log().linesWith(QtDebugMsg, QStringLiteral("AutoParamSetting::procUiDataByCreatePlan"));
        QCOMPARE(logged.size(), 1);
        QVERIFY(QRegularExpression(QStringLiteral("600000\\.K_SH.*F-acc1.*S-acc1-k_Exchange_sh.*k_Exchange_sh"))
                    .match(logged.constFirst().text)
                    .hasMatch());
    }

    void anAlgorithmPlanIsRecordedInTextsAndOneMap()
    {
        openFilledWith(byAlgorithm());
        type(editor(), "le_remark", QStringLiteral("备注"));
        script().panelParams = { { Algo_Fields::AlgoInstContentInfo::TradingAccount, Account },
            { Algo_Fields::AlgoInstContentInfo::OrderSide, Algo_Values::AlgoOrderSide::BuyValue },
            { QStringLiteral("MaxShare"), 0.25 }, { QStringLiteral("Slices"), 12 } };
        script().securities[Stock].subType = QStringLiteral("子类\"型\"");
        script().loginAccountDetail.insert(UserAccount::userID, 42);
        const FieldMap record = send();
        for (auto it = record.cbegin(); it != record.cend(); ++it)
            QVERIFY2(it.value().userType() == QMetaType::QString, qPrintable(it.key()));
        QCOMPARE(record.value(UserAccount::userID).toString(), QStringLiteral("42"));
        const QStringList otherParam = lines(R"(
            {"57134":"tt_AmountOrder",
            "pf_BaseField_algoParam":{"MaxShare":0.25,"Slices":12,
            "af_AlgoInstContentInfo_OrderSide":"av_AlgoOrderSide_BuyValue",
            "af_AlgoInstContentInfo_TradingAccount":"acc1"},
            "pf_BaseField_algoStrategyName":"TWAP",
            "pf_BaseField_dayMaxTradeAmount":"300.00",
            "pf_BaseField_securitySubType":%1,
            "pf_BaseField_tradeAmount":"1000.00",
            "pf_Progress_CurrentQty":"300"})");
        QCOMPARE(record.value(Base::planOtherParam).toString(),
            otherParam.join(QString()).arg(QStringLiteral("\"子类\\\"型\\\"\"")));
        QCOMPARE(callsFromTheRecordOn().mid(3, 4), lines(R"(
            GetDispFactorBySymbol(600000.K_SH)
            panel.GetParamMap()
            panel.GetStrategyName()
            CBusinessDataBase::GetSecuritySubTypeBySymbol(600000.K_SH))"));
    }

    // --- What is unknown

    void withoutAUserTheFieldIsEmpty()
    {
        openFilledWith(PlanSample());
        script().loginAccountDetail.clear();
        QCOMPARE(send().value(UserAccount::userID), QVariant(QString()));
    }

    void anUnknownAccountHasEmptyFields()
    {
        openFilledWith(PlanSample());
        const FieldMap record = sendAfter([this] {
            QComboBox* const accounts = box(editor(), "combx_fundAccount");
            const QSignalBlocker silence(accounts);
            accounts->setItemData(0, QStringLiteral("closed account"), Qt::UserRole);
        });
        QCOMPARE(record.value(UserAccount::tradingAccount).toString(), QStringLiteral("closed account"));
        QCOMPARE(record.value(AutoPlanFieldId::Account10112), QVariant(QString()));
        QCOMPARE(record.value(UserAccount::securityAccount), QVariant(QString()));
    }

    void anAccountThatIsNotOnTheExchangeHasNoSecurityAccount()
    {
        openSampleMarket();
        script().accounts[0].exchanges = QStringList{ Kelvo_Values::Exchange::sz };
        openFilledWith(PlanSample());
        const FieldMap record = send();
        QCOMPARE(record.value(UserAccount::securityExchange).toString(), Kelvo_Values::Exchange::sh);
        QCOMPARE(record.value(UserAccount::securityAccount), QVariant(QString()));
    }

    void anUnknownSecurityHasEmptyFields()
    {
        PlanSample plan;
        plan.symbol = Unknown;
        openFilledWith(plan);
        const FieldMap record = send();
        QCOMPARE(record.value(Kelvo_Fields::Security::symbol).toString(), Unknown);
        QCOMPARE(record.value(UserAccount::securityExchange), QVariant(QString()));
        QCOMPARE(record.value(UserAccount::securityAccount), QVariant(QString()));
        QCOMPARE(script().otherParamOf(record).value(Base::securitySubType), QVariant(QString()));
    }

    // --- Prices and quantities

    void thePriceModeDecidesTheFormulas_data()
    {
        QTest::addColumn<QString>("priceMode");
        QTest::addColumn<QStringList>("prices");
        using namespace AutoPlanPriceModel;
        const QStringList two{ QStringLiteral(" 昨收价 "), QStringLiteral("absent"), QStringLiteral("跌停价+0.01") };
        QTest::newRow("no limit: the zero twice") << NoLimit << lines("0.00\n0.00\nabsent");
        QTest::newRow("custom: one formula")
            << Custom << QStringList{ two.at(0), QStringLiteral("absent"), QStringLiteral("absent") };
        QTest::newRow("the larger: two formulas") << CompareMax << two;
        QTest::newRow("the smaller: two formulas") << CompareMin << two;
    }

    void thePriceModeDecidesTheFormulas()
    {
        QFETCH(QString, priceMode);
        QFETCH(QStringList, prices);
        openFilledWith(PlanSample());
        choose(editor(), "combx_priceMode", priceMode);
        if (priceMode != AutoPlanPriceModel::NoLimit)
            type(editor(), "lineEdit_price1", QStringLiteral(" 昨收价 "));
        // Also if the second input is hidden: its content is not recorded then.
        type(editor(), "lineEdit_price2", QStringLiteral("跌停价+0.01"));
        QCOMPARE(textsOf(send(), { Base::priceFormula1, Base::priceFixed, Base::priceFormula2 }), prices);
    }

    void noLimitRecordsAnEmptyInputAsWell()
    {
        openFilledWith(PlanSample());
        choose(editor(), "combx_priceMode", AutoPlanPriceModel::NoLimit);
        const FieldMap record = sendAfter([this] { type(editor(), "lineEdit_price1", QString()); });
        QCOMPARE(textsOf(record, { Base::priceFormula1, Base::priceFixed, Base::priceFormula2 }),
            QStringList({ QString(), QString(), QStringLiteral("absent") }));
    }

    void theQuantityIsStoredInWholeUnits_data()
    {
        QTest::addColumn<double>("total");
        QTest::addColumn<double>("daily");
        QTest::addColumn<int>("factor");
        QTest::addColumn<QString>("stored");
        QTest::newRow("a factor of ten drops the remainder") << 1999.7 << 100.5 << 10 << "199 10";
        QTest::newRow("a factor of one drops the fraction") << 1999.7 << 100.5 << 1 << "1999 100";
        QTest::newRow("nothing a day") << 5.0 << 0.0 << 10 << "0 0";
        QTest::newRow("the largest of the inputs, without an exponent")
            << 2000000000.0 << 2000000000.0 << 1 << "2000000000 2000000000";
    }

    void theQuantityIsStoredInWholeUnits()
    {
        QFETCH(double, total);
        QFETCH(double, daily);
        QFETCH(int, factor);
        QFETCH(QString, stored);
        openFilledWith(byAlgorithm());
        script().securities[Stock].displayFactor = factor;
        enter(editor(), "le_targetTotalNum", total);
        enter(editor(), "le_entrustMaxNum", daily);
        const FieldMap record = send();
        QCOMPARE(record.value(Base::totalQty).toString() + QLatin1Char(' ')
                + script().otherParamOf(record).value(AutoPlanField::Progress::CurrentQty).toString(),
            stored);
    }

    void aDisplayFactorOfZeroCountsAsOne()
    {
        openFilledWith(PlanSample());
        script().securities[Stock].displayFactor = 0;
        log().expectWarning(QStringLiteral("AutoParamSetting::checkParam display factor 0"), 2);
        log().expectWarning(QStringLiteral("AutoParamSetting::procUiDataByCreatePlan display factor 0 counts as 1"));
        const FieldMap record = send();
        QCOMPARE(record.value(Base::totalQty).toString(), QStringLiteral("1000"));
        QCOMPARE(log().linesWith(QtWarningMsg, QString()).size(), 3);
    }

    // --- Assignee and dates

    void thePlanTypeDecidesTheAssignee_data()
    {
        QTest::addColumn<QString>("planType");
        QTest::addColumn<QString>("assignee");
        QTest::addColumn<QString>("recorded");
        using namespace AutoPlanTemplate;
        for (const QString& planType : { CumulativeQty, AverageQty, SameElements }) {
            QTest::newRow(qPrintable(planType + QStringLiteral(" without a user")))
                << planType << AutoPlanAssignee::NotSpecified << "absent absent";
            QTest::newRow(qPrintable(planType + QStringLiteral(" for a user"))) << planType << "王五"
                                                                                << "王五 absent";
        }
        QTest::newRow("a reduction by an executor") << ReduceHoldings << "王五"
                                                    << "absent 王五";
        QTest::newRow("a reduction by an executor of that very name")
            << ReduceHoldings << AutoPlanAssignee::NotSpecified << "absent 默认不指定";
    }

    void thePlanTypeDecidesTheAssignee()
    {
        QFETCH(QString, planType);
        QFETCH(QString, assignee);
        QFETCH(QString, recorded);
        openSampleMarket();
        script().forwardUsers = lines("王五");
        script().executeUsers = lines("王五\n默认不指定");
        PlanSample plan = PlanSample().withPlanType(planType);
        plan.assignee = assignee;
        openFilledWith(plan);
        const FieldMap record = send();
        QCOMPARE(textsOf(record, { Base::expectedUser, Base::executeUser }).join(QLatin1Char(' ')), recorded);
    }

    void anAssigneeBoxWithoutAChoiceIsRecordedAsEmpty()
    {
        openFilledWith(PlanSample());
        chooseNothing(editor(), "combx_assignTo");
        QCOMPARE(textsOf(send(), { Base::expectedUser }), QStringList{ QString() });
    }

    void aReductionEndsAHundredYearsLater_data()
    {
        QTest::addColumn<QDate>("begin");
        QTest::addColumn<QString>("recorded");
        QTest::newRow("an ordinary day") << QDate(2024, 5, 6) << "2024/05/06 2124/05/06";
        QTest::newRow("a leap day that both years have") << QDate(2024, 2, 29) << "2024/02/29 2124/02/29";
        QTest::newRow("a leap day that the later year lacks") << QDate(2000, 2, 29) << "2000/02/29 2100/02/28";
    }

    void aReductionEndsAHundredYearsLater()
    {
        QFETCH(QDate, begin);
        QFETCH(QString, recorded);
        PlanSample plan = PlanSample::reduction();
        plan.begin = begin;
        openFilledWith(plan);
        // The range is hidden: its content is not used.
        pickRange(editor(), QDate(2030, 1, 1), QDate(2030, 1, 2));
        QCOMPARE(textsOf(send(), { Base::beginDate, Base::endDate }).join(QLatin1Char(' ')), recorded);
    }

    void theSingleDateWinsWhereBothAreVisible()
    {
        openFilledWith(PlanSample());
        const FieldMap record = sendAfter([this] {
            field<QWidget>(editor(), "date_effectivePeriod_Single")->show();
            pickDate(editor(), QDate(2024, 5, 20));
        });
        QCOMPARE(textsOf(record, { Base::beginDate, Base::endDate }), lines("2024/05/20\n2124/05/20"));
    }

    void whatIsNotVisibleIsNotRecorded()
    {
        openFilledWith(PlanSample::ofType(AutoPlanInstructionType::HkConnect));
        const FieldMap record = sendAfter([this] { host().hide(); });
        QVERIFY(!record.contains(Base::beginDate));
        QVERIFY(!record.contains(Base::endDate));
        QCOMPARE(script().otherParamOf(record),
            FieldMap({ { Base::securitySubType, Orlo_Values::MdcSubSecurityType::HStcokCirculation } }));
    }

    // --- Other parameters

    void theAlgorithmIsLeftOutInOtherModes()
    {
        openFilledWith(PlanSample().withMode(AutoPlanInstMode::AlgoTradeReview));
        fillForm(editor(), PlanSample().withMode(AutoPlanInstMode::NormalTradeReview));
        script().panelHasParams = true;
        const FieldMap other = sendOther();
        QVERIFY(!other.contains(Base::algoParam) && !other.contains(Base::algoStrategyName));
        QCOMPARE(script().countOf(QStringLiteral("panel.GetParamMap")), 0);
        QCOMPARE(script().countOf(QStringLiteral("panel.GetStrategyName")), 0);
    }

    void aCreditPlanRecordsItsEntrustTypeAsANumber_data()
    {
        QTest::addColumn<QString>("subType");
        QTest::addColumn<QString>("entrustType");
        QTest::addColumn<QString>("number");
        using namespace Orlo_Values;
        const QString share = Kelvo_Values::MdcSubSecurityType::Ashares;
        QTest::newRow("collateral sale") << share << SideUnion::collateralSell << "2";
        QTest::newRow("margin sale") << share << SideUnion::marginSell << "4";
        QTest::newRow("financing sale") << share << SideUnion::financingSell << "6";
        QTest::newRow("ordinary margin sale") << share << SideUnion::marginSellNormal << "8";
        QTest::newRow("bond conversion") << share << SideUnion::BondConversion << "9";
        QTest::newRow("paid rationed share, in two digits")
            << MdcSubSecurityType::PaidRationStock << SideUnion::paidRationShare << "10";
        QTest::newRow("none chosen") << share << QString() << "0";
    }

    void aCreditPlanRecordsItsEntrustTypeAsANumber()
    {
        QFETCH(QString, subType);
        QFETCH(QString, entrustType);
        QFETCH(QString, number);
        openSampleMarket();
        script().bondConversionEnabled = true;
        script().securities[Stock].subType = subType;
        PlanSample plan = PlanSample::ofType(AutoPlanInstructionType::Credit);
        plan.entrustType = entrustType;
        openFilledWith(plan);
        if (entrustType.isEmpty())
            box(editor(), "combx_entrustType")->setCurrentIndex(-1);
        const FieldMap other = sendOther();
        QCOMPARE(other.value(AutoPlanFieldId::MarginInstructionSideType), QVariant(number));
        QCOMPARE(script().countOf(QStringLiteral("transSideUnion2Enum")), 1);
        QVERIFY(!other.contains(Kelvo_Fields::Security::timeInForce));
    }

    void aRemarkIsRecordedUnlessItIsEmpty_data()
    {
        QTest::addColumn<QString>("remark");
        QTest::newRow("empty") << QString();
        QTest::newRow("a blank counts") << " ";
        QTest::newRow("as typed") << " 分批\"买入\" %1 {}\\ ";
    }

    void aRemarkIsRecordedUnlessItIsEmpty()
    {
        QFETCH(QString, remark);
        PlanSample plan;
        plan.remark = remark;
        openFilledWith(plan);
        QCOMPARE(textsOf(send(), { Base::remark }).constFirst(), remark.isEmpty() ? QStringLiteral("absent") : remark);
    }

    void recordingChangesNothingInTheForm()
    {
        openFilledWith(PlanSample());
        script().createAnswer = QStringLiteral("拒绝");
        const QStringList steps = stepsOf([this] {
            press(editor(), "btn_ok");
            press(editor(), "btn_ok");
        });
        QCOMPARE(script().createdRecords.size(), 2);
        QCOMPARE(script().createdRecords.at(0), script().createdRecords.at(1));
        QCOMPARE(steps, script().calls);
        const QRegularExpression widgetOperation(QStringLiteral("^(combx|date|le|lineEdit)_\\w+\\."));
        QCOMPARE(steps.filter(widgetOperation), QStringList());
    }
};

QTEST_MAIN(PlanRecordTest)
#include "tst_plan_record.moc"
