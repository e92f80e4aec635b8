#include "AutoParamSetting.h"
#include "AutoPlanField.h"
#include "EditorForm.h"
#include "Exploration.h"
#include "Orlo_Values.h"
#include "PlanSample.h"
#include "PlanVocabulary.h"
#include "RoundTrip.h"
#include "TestClock.h"

#include <QtTest>

using namespace model;

namespace {

const QString PlanId = QStringLiteral("P1");

/// The sample market with a stored plan.
World worldWith(const PlanSample& plan, int ruleProperty)
{
    Script::instance().reset();
    openSampleMarket();
    World world = Script::instance();
    world.ruleProperty = ruleProperty;
    world.storePlan(recordOf(plan));
    return world;
}

/// The differences between editor and model after the plan is opened for edit or copy and OK is pressed twice.
QStringList differencesOf(const World& world, StepKind way)
{
    Exploration exploration(world);
    for (const Action& action : { opening(way, PlanId), acceptance(), acceptance() }) {
        exploration.take(action);
        if (!exploration.differences().isEmpty())
            return exploration.history() + exploration.differences();
    }
    return {};
}

/// Whether the form offers everything that the plan needs under its rule.
bool canBeFilled(const PlanKind& kind)
{
    const bool isConnect = kind.instructionType == AutoPlanInstructionType::HkConnect;
    const bool isReviewed = kind.ruleProperty == AutoPlanRuleProperty::Review;
    const bool byAlgorithm = kind.mode == AutoPlanInstMode::AlgoTradeReview;
    if (isReviewed == (kind.mode == AutoPlanInstMode::ActiveManage))
        return false;
    if (kind.sample().isByAmount() && (isConnect || !byAlgorithm))
        return false;
    return !kind.sample().reducesHoldings()
        || (kind.instructionType == AutoPlanInstructionType::Ordinary && !kind.sample().isByAmount());
}

} // namespace

/// Compares stored plans of every kind with the model: what an edit and a copy show, and what they send.
class StoredPlansTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { setToday(QDate(2024, 5, 6)); }

    void aStoredPlanIsOpenedAndSent_data()
    {
        QTest::addColumn<PlanKind>("kind");
        const QList<PlanKind> kinds = PlanKind::all();
        QCOMPARE(kinds.size(), 4 * 4 * 2 * 3 * 2 * 2);
        for (const PlanKind& kind : kinds)
            QTest::newRow(qPrintable(kind.sentence())) << kind;
    }

    void aStoredPlanIsOpenedAndSent()
    {
        QFETCH(PlanKind, kind);
        for (const StepKind way : { EditPlan, CopyPlan })
            QCOMPARE(differencesOf(worldWith(kind.sample(), kind.ruleProperty), way), QStringList());
    }

    void theBeginDecidesOverTheDates_data()
    {
        QTest::addColumn<PlanSample>("plan");
        QTest::addColumn<QVariant>("begin");
        for (const PlanSample& plan : { PlanSample(), PlanSample::reduction() }) {
            const QByteArray kind = plan.reducesHoldings() ? "a reduction" : "a range";
            const auto row = [&](const char* name, const QVariant& begin) {
                QTest::newRow(kind + ' ' + name) << plan << begin;
            };
            row("from tomorrow", QStringLiteral("2024/05/07"));
            row("from today", QStringLiteral("2024/05/06"));
            row("from yesterday", QStringLiteral("2024/05/05"));
            row("with an unreadable begin", QStringLiteral("2024-13-45"));
            row("without a begin", QVariant());
        }
    }

    void theBeginDecidesOverTheDates()
    {
        QFETCH(PlanSample, plan);
        QFETCH(QVariant, begin);
        World world = worldWith(plan, 0);
        FieldMap& record = world.plans[PlanId];
        record.remove(AutoPlanField::BaseField::beginDate);
        if (begin.isValid())
            record.insert(AutoPlanField::BaseField::beginDate, begin);
        for (const StepKind way : { EditPlan, CopyPlan })
            QCOMPARE(differencesOf(world, way), QStringList());
    }

    void aFilledPlanIsSentAsItsRecordAndComesBack_data()
    {
        QTest::addColumn<PlanKind>("kind");
        for (const PlanKind& kind : PlanKind::all()) {
            if (!kind.started && canBeFilled(kind))
                QTest::newRow(qPrintable(kind.sentence())) << kind;
        }
    }

    void aFilledPlanIsSentAsItsRecordAndComesBack()
    {
        QFETCH(PlanKind, kind);
        using namespace AutoPlanPriceModel;
        for (const QString& priceMode : { NoLimit, Custom, CompareMax, CompareMin }) {
            const bool isReviewed = kind.mode == AutoPlanInstMode::NormalTradeReview;
            if (isReviewed && priceMode == NoLimit)
                continue;
            World world = worldWith(kind.sample(), kind.ruleProperty);
            PlanSample plan = kind.sample();
            plan.price2.clear();
            plan = plan.withPriceMode(priceMode);
            if (priceMode == NoLimit)
                plan.price1 = QString::number(0.0, 'f', world.security(plan.symbol).pricePrecision);
            const FieldMap record = recordOf(plan);
            QCOMPARE(sentWhenFilled(world, plan), record);
            world.plans.clear();
            world.storePlan(record);
            QCOMPARE(roundTripErrors(world, PlanId), QStringList());
        }
    }

private:
    static FieldMap sentWhenFilled(const World& world, const PlanSample& plan)
    {
        const LogCatcher log;
        Script& script = Script::instance();
        script.reset(world);
        QWidget host;
        auto* const editor = new AutoParamSetting(&host);
        host.show();
        fillForm(*editor, plan);
        press(*editor, "btn_ok");
        return script.createdRecords.value(0);
    }
};

QTEST_MAIN(StoredPlansTest)
#include "tst_stored_plans.moc"
