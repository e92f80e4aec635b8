#include "AutoParamSetting.h"
#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "CBusinessDataBase.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "EditorForm.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "LogCatcher.h"
#include "OrloBusinessDataInterface.h"
#include "OrloConstants.h"
#include "OrloDateEdit.h"
#include "OrloDecimalLineEdit.h"
#include "Orlo_Values.h"
#include "ParamListWidget_single.h"
#include "PlanCodes.h"
#include "SampleSession.h"
#include "TestClock.h"
#include "VorSearchBox.h"

#include <QAbstractButton>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPointer>
#include <QtTest>

namespace BaseField = AutoPlanField::BaseField;
namespace UserAccount = Kelvo_Fields::UserAccount;
using namespace PlanCodes;
using Record = QMap<QString, QVariant>;

namespace {

const QDate begin(2024, 5, 8);
const QDate end(2024, 5, 17);
const QDate later(2024, 5, 9);
const QDate firstDayLater(2024, 5, 10);
const QString freeAccount = QStringLiteral("100001");
const QString reviewedAccount = QStringLiteral("100002");
const QString creditAccount = QStringLiteral("200001");

/// A plan as the sample's first user may fill it in.
struct Plan {
    QString account;
    QString instructionType;
    QString targetType;
    QString planType;
    QString mode;
    QString priceMode;

    bool isReduction() const { return planType == PlanType::ReduceHoldings; }
    bool sells() const { return isReduction() || instructionType == InstructionType::HkConnect; }
    bool isAmount() const { return targetType == InstructionTargetType::AmountOrder; }

    QString sentence() const
    {
        return QStringLiteral("%1 of %2, type %3, by %4, mode %5, price mode %6")
            .arg(planType, account, instructionType, isAmount() ? QStringLiteral("amount") : QStringLiteral("quantity"),
                mode, priceMode);
    }

    QString symbol() const
    {
        if (instructionType == InstructionType::HkConnect)
            return SampleSession::symbolOf(Orlo_Values::MdcSubSecurityType::HStcokCirculation, QString());
        const QString subType = instructionType == InstructionType::Bond
            ? Orlo_Values::MdcSubSecurityType::ConvertableBondTypeList.first()
            : Kelvo_Values::MdcSubSecurityType::Ashares;
        return SampleSession::symbolOf(subType, Kelvo_Values::SymbolPost::sh);
    }

    /// Every plan that the form offers to the two ordinary accounts and the credit account.
    static QList<Plan> all();
};

void appendPriced(QList<Plan>& plans, Plan plan)
{
    for (const QString& priceMode :
        { PriceModel::NoLimit, PriceModel::Custom, PriceModel::CompareMax, PriceModel::CompareMin }) {
        plan.priceMode = priceMode;
        if (plan.mode != InstMode::NormalReview || priceMode != PriceModel::NoLimit)
            plans.append(plan);
    }
}

void appendReviewed(QList<Plan>& plans, Plan plan)
{
    for (const QString& mode : { InstMode::NormalReview, InstMode::AlgoReview }) {
        plan.mode = mode;
        appendPriced(plans, plan);
    }
    if (plan.isReduction() || plan.instructionType == InstructionType::HkConnect)
        return;
    plan.targetType = InstructionTargetType::AmountOrder;
    appendPriced(plans, plan);
}

QList<Plan> Plan::all()
{
    QList<Plan> plans;
    for (const QString& planType :
        { PlanType::CumulativeQty, PlanType::AverageQty, PlanType::SameElements, PlanType::ReduceHoldings }) {
        for (const QString& type : { InstructionType::Ordinary, InstructionType::Bond, InstructionType::HkConnect }) {
            if (planType == PlanType::ReduceHoldings && type != InstructionType::Ordinary)
                continue;
            Plan plan{ freeAccount, type, InstructionTargetType::QtyOrder, planType, InstMode::ActiveManage, {} };
            appendPriced(plans, plan);
            plan.account = reviewedAccount;
            appendReviewed(plans, plan);
        }
        if (planType != PlanType::ReduceHoldings)
            appendReviewed(plans,
                Plan{ creditAccount, InstructionType::Credit, InstructionTargetType::QtyOrder, planType, {}, {} });
    }
    return plans;
}

QStringList differences(const Record& actual, const Record& expected)
{
    QStringList found;
    QStringList keys = actual.keys() + expected.keys();
    keys.removeDuplicates();
    for (const QString& key : qAsConst(keys)) {
        if (key != BaseField::planOtherParam
            && (actual.contains(key) != expected.contains(key) || actual.value(key) != expected.value(key)))
            found.append(QStringLiteral("%1: %2 in place of %3")
                             .arg(key, actual.value(key).toString(), expected.value(key).toString()));
    }
    return found;
}

/// Both levels of two records.
QString allDifferences(const Record& actual, const Record& expected)
{
    AutoPlanLogic& service = AutoPlanLogic::instance();
    const QStringList found = differences(actual, expected)
        + differences(service.GetPlanOtherParamFromPlanInfo(actual), service.GetPlanOtherParamFromPlanInfo(expected));
    return found.join(QStringLiteral("; "));
}

QString dateText(const QDate& date)
{
    return QLocale::c().toString(date, OrloConstants::DateTimeFormatString::STD_DATE_FORMAT);
}

/// Confirms every message box that opens and remembers what it said.
class BoxReader : public QObject {
public:
    BoxReader() { qApp->installEventFilter(this); }

    QStringList take()
    {
        QStringList taken;
        taken.swap(m_said);
        return taken;
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* const dialog = qobject_cast<QDialog*>(watched);
        if (dialog == nullptr || event->type() != QEvent::Show
            || !dialog->objectName().startsWith(QLatin1String("msgBox")))
            return false;
        QStringList texts;
        for (const QLabel* const label : dialog->findChildren<QLabel*>())
            texts.append(label->text());
        m_said.append(texts.join(QString()));
        QMetaObject::invokeMethod(dialog, &QDialog::accept, Qt::QueuedConnection);
        return false;
    }

private:
    QStringList m_said;
};

} // namespace

Q_DECLARE_METATYPE(Plan)

/// What is filled in on the real client, stored and opened again is sent once more as it was.
class RoundTripEndToEndTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void aFilledPlanComesBackAsItWasSent_data();
    void aFilledPlanComesBackAsItWasSent();
    void aReviewedPlanOfAFreeUserBecomesActive_data();
    void aReviewedPlanOfAFreeUserBecomesActive();
    void anActivePlanOfAReviewedUserWantsAnAlgorithm();

private:
    void goTo(const QDate& day);
    void open();
    void openPlan(const QString& planId, bool edits);
    void fill(const Plan& plan);
    void fillNumbers(const Plan& plan);
    void fillAlgorithm();
    QString newestPlan() const { return ClientSession::instance().plans().page(0, 1).value(0).id; }
    Record stored(const QString& planId) const { return ClientSession::instance().plans().record(planId); }
    /// Presses OK and returns what the boxes said.
    QStringList ok();

    std::unique_ptr<SampleSession> m_session;
    std::unique_ptr<LogCatcher> m_log;
    std::unique_ptr<QWidget> m_host;
    AutoParamSetting* m_editor = nullptr;
    BoxReader m_boxes;
};

void RoundTripEndToEndTest::initTestCase()
{
    m_session = std::make_unique<SampleSession>();
    QCOMPARE(m_session->reason(), QString());
}

void RoundTripEndToEndTest::init()
{
    m_log = std::make_unique<LogCatcher>();
    goTo(SampleSession::today());
}

void RoundTripEndToEndTest::cleanup()
{
    m_host.reset();
    m_boxes.take();
    const QStringList trouble = m_log->trouble();
    m_log.reset();
    QCOMPARE(trouble, QStringList());
}

void RoundTripEndToEndTest::goTo(const QDate& day)
{
    setToday(day);
    setClientToday(day);
}

void RoundTripEndToEndTest::open()
{
    m_host = std::make_unique<QWidget>();
    m_editor = new AutoParamSetting(m_host.get());
    m_host->resize(m_editor->size());
    m_host->show();
}

void RoundTripEndToEndTest::openPlan(const QString& planId, bool edits)
{
    open();
    if (edits)
        m_editor->editPlan(planId);
    else
        m_editor->copyPlan(planId);
}

void RoundTripEndToEndTest::fill(const Plan& plan)
{
    choose(*m_editor, "combx_fundAccount", plan.account);
    choose(*m_editor, "combx_instructionType", plan.instructionType);
    choose(*m_editor, "combx_instructionTargetType", plan.targetType);
    choose(*m_editor, "combx_planType", plan.planType);
    field<VorSearchBox>(*m_editor, "le_symbol")->setSymbol(plan.symbol());
    choose(*m_editor, "combx_tradeSide", plan.sells() ? Kelvo_Values::OrderSide::sell : Kelvo_Values::OrderSide::buy);
    if (plan.instructionType == InstructionType::Credit)
        choose(*m_editor, "combx_entrustType", Orlo_Values::SideUnion::marginBuy);
    choose(*m_editor, "combx_priceMode", plan.priceMode);
    if (plan.priceMode != PriceModel::NoLimit)
        field<QLineEdit>(*m_editor, "lineEdit_price1")->setText(QStringLiteral("昨收价*1.01"));
    if (plan.priceMode == PriceModel::CompareMax || plan.priceMode == PriceModel::CompareMin)
        field<QLineEdit>(*m_editor, "lineEdit_price2")->setText(QStringLiteral("昨收价+0.05"));
    fillNumbers(plan);
    choose(*m_editor, "combx_instructionMode", plan.mode);
    if (plan.mode == InstMode::AlgoReview)
        fillAlgorithm();
    box(*m_editor, "combx_assignTo")->setCurrentIndex(box(*m_editor, "combx_assignTo")->count() - 1);
    field<QLineEdit>(*m_editor, "le_remark")->setText(QStringLiteral("往返"));
}

void RoundTripEndToEndTest::fillNumbers(const Plan& plan)
{
    const int step = qMax(100, OrloBusinessDataInterface::GetQtyStepBySymbol(plan.symbol()));
    auto* const target = field<OrloDecimalLineEdit>(*m_editor, "le_targetTotalNum");
    auto* const daily = field<OrloDecimalLineEdit>(*m_editor, "le_entrustMaxNum");
    target->setValue(plan.isAmount() ? 250000.5 : 10 * step);
    if (plan.isReduction()) {
        field<OrloDecimalLineEdit>(*m_editor, "le_reduceHRatio")->setValue(0.0125);
        field<OrloDateEdit>(*m_editor, "date_effectivePeriod_Single")->SetDate(begin);
        return;
    }
    daily->setValue(plan.isAmount() ? 20000.25 : step);
    field<OrloDateEdit>(*m_editor, "date_effectivePeriod_Multi")->SetStartEndDate(begin, end);
}

void RoundTripEndToEndTest::fillAlgorithm()
{
    field<QAbstractButton>(*m_editor, "btn_algoParamSetting")->click();
    const auto* const panel = field<ParamListWidget_single>(*m_editor, "algorithmPanel");
    QVERIFY(panel->isVisible());
    field<QAbstractButton>(*panel, "btn_ok")->click();
    QVERIFY(!panel->isVisible());
}

QStringList RoundTripEndToEndTest::ok()
{
    m_boxes.take();
    // The panel has a button of the same name.
    for (QAbstractButton* const button : m_editor->findChildren<QAbstractButton*>(QStringLiteral("btn_ok"))) {
        if (button->window() == m_host.get())
            button->click();
    }
    return m_boxes.take();
}

void RoundTripEndToEndTest::aFilledPlanComesBackAsItWasSent_data()
{
    QTest::addColumn<Plan>("plan");
    for (const Plan& plan : Plan::all())
        QTest::newRow(qPrintable(plan.sentence())) << plan;
}

void RoundTripEndToEndTest::aFilledPlanComesBackAsItWasSent()
{
    QFETCH(Plan, plan);
    const QStringList created = { QStringLiteral("交易自动规划创建成功!") };
    open();
    fill(plan);
    QCOMPARE(ok(), created);
    const QString id = newestPlan();
    const Record record = stored(id);
    QCOMPARE(record.value(BaseField::beginDate).toString(), dateText(begin));
    Record copiedLater = record;
    copiedLater.insert(BaseField::beginDate, dateText(firstDayLater));
    copiedLater.insert(BaseField::endDate, dateText(plan.isReduction() ? firstDayLater.addYears(100) : firstDayLater));

    int version = 1;
    for (const QDate& day : { SampleSession::today(), later }) {
        goTo(day);
        openPlan(id, false);
        QCOMPARE(ok(), created);
        QVERIFY(newestPlan() != id);
        QCOMPARE(allDifferences(stored(newestPlan()), day == later ? copiedLater : record), QString());

        openPlan(id, true);
        QCOMPARE(ok(), QStringList{ QStringLiteral("交易计划%1修改成功!").arg(id) });
        QCOMPARE(ClientSession::instance().plans().plan(id).version, ++version);
        QCOMPARE(allDifferences(stored(id), record), QString());
    }
}

namespace {

/// The record as if another of the user's accounts had sent it.
Record ofAccount(Record record, const QString& account)
{
    const QString exchange = record.value(UserAccount::securityExchange).toString();
    record.insert(UserAccount::tradingAccount, account);
    record.insert(UserAccount::securityAccount,
        OrloBusinessDataInterface::GetCurrentSecurityAccountByTradingAndExchange(account, exchange));
    record.insert(
        FieldId::Branch, CBusinessDataBase::GetInstance()->GetAccountDetailsByTradinngAccount(account).branchNo);
    return record;
}

/// What is left of a reviewed plan when its user is not under review.
Record madeActive(Record record)
{
    Record other = AutoPlanLogic::instance().GetPlanOtherParamFromPlanInfo(record);
    other.remove(BaseField::algoParam);
    other.remove(BaseField::algoStrategyName);
    record.remove(BaseField::planOtherParam);
    record.remove(BaseField::priceFormula2);
    const int decimals = OrloBusinessDataInterface::GetPricePrecisionBySymbol(
        record.value(Kelvo_Fields::Security::symbol).toString(), QString());
    record.insert(BaseField::InstMode, InstMode::ActiveManage);
    record.insert(BaseField::priceModel, PriceModel::NoLimit);
    record.insert(BaseField::priceFormula1, QString::number(0.0, 'f', decimals));
    record.insert(BaseField::priceFixed, QString::number(0.0, 'f', decimals));
    return SampleSession::withOther(record, other);
}

} // namespace

void RoundTripEndToEndTest::aReviewedPlanOfAFreeUserBecomesActive_data()
{
    QTest::addColumn<Plan>("plan");
    for (const Plan& plan : Plan::all()) {
        if (plan.account == reviewedAccount && plan.priceMode == PriceModel::CompareMax)
            QTest::newRow(qPrintable(plan.sentence())) << plan;
    }
}

void RoundTripEndToEndTest::aReviewedPlanOfAFreeUserBecomesActive()
{
    QFETCH(Plan, plan);
    open();
    fill(plan);
    QCOMPARE(ok().size(), 1);
    const Record record = ofAccount(stored(newestPlan()), freeAccount);
    const QString id = m_session->create(record);
    QVERIFY2(!id.isEmpty(), qPrintable(m_session->reason()));

    openPlan(id, true);
    QCOMPARE(code(*m_editor, "combx_instructionMode"), InstMode::ActiveManage);
    if (plan.isAmount()) {
        // Amounts are not for users without review, and an edit may not make a quantity of one.
        QCOMPARE(box(*m_editor, "combx_instructionTargetType")->currentIndex(), -1);
        QCOMPARE(ok(), QStringList{ QStringLiteral("交易计划%1修改失败，失败原因：指令单类型不支持修改").arg(id) });
        QCOMPARE(allDifferences(stored(id), record), QString());
        return;
    }
    QCOMPARE(ok(), QStringList{ QStringLiteral("交易计划%1修改成功!").arg(id) });
    QCOMPARE(allDifferences(stored(id), madeActive(record)), QString());

    const QString second = m_session->create(record);
    openPlan(second, false);
    QCOMPARE(ok(), QStringList{ QStringLiteral("交易自动规划创建成功!") });
    QCOMPARE(allDifferences(stored(newestPlan()), madeActive(record)), QString());
}

void RoundTripEndToEndTest::anActivePlanOfAReviewedUserWantsAnAlgorithm()
{
    open();
    fill(Plan{ freeAccount, InstructionType::Ordinary, InstructionTargetType::QtyOrder, PlanType::CumulativeQty,
        InstMode::ActiveManage, PriceModel::Custom });
    QCOMPARE(ok().size(), 1);
    const Record record = ofAccount(stored(newestPlan()), reviewedAccount);
    const QString id = m_session->create(record);
    openPlan(id, true);
    QCOMPARE(code(*m_editor, "combx_instructionMode"), InstMode::AlgoReview);
    QCOMPARE(code(*m_editor, "combx_priceMode"), PriceModel::NoLimit);
    QCOMPARE(ok(), QStringList{ QStringLiteral("未设置算法参数！") });
    fillAlgorithm();
    QCOMPARE(ok(), QStringList{ QStringLiteral("交易计划%1修改成功!").arg(id) });
    QCOMPARE(stored(id).value(BaseField::InstMode).toString(), InstMode::AlgoReview);
}

QTEST_MAIN(RoundTripEndToEndTest)
#include "tst_round_trip_end_to_end.moc"
