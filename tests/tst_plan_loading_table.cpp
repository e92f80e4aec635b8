#include "EditorTest.h"
#include "OpenedPlan.h"
#include "OrloDateEdit.h"
#include "VorSearchBox.h"
#include <QtTest>

Q_DECLARE_METATYPE(PlanKind)

namespace {

const QDate Today(2024, 5, 6);
const QDate FirstDay(2024, 5, 7);

/// The same for every field.
struct OpenedFields : OpenedPlan {
    using OpenedPlan::OpenedPlan;

    QMap<QString, bool> enabledFields() const
    {
        return {
            { QStringLiteral("combx_fundAccount"), !edits },
            { QStringLiteral("combx_instructionType"), !edits },
            { QStringLiteral("combx_instructionTargetType"), !edits },
            { QStringLiteral("combx_planType"), !edits },
            { QStringLiteral("le_symbol"), !edits },
            { QStringLiteral("le_exchange"), false },
            { QStringLiteral("combx_tradeSide"), !edits && !reduces() },
            { QStringLiteral("combx_priceType"), true },
            { QStringLiteral("combx_entrustType"), !edits },
            { QStringLiteral("combx_priceMode"), true },
            { QStringLiteral("lineEdit_price1"), kind.reconciledPriceMode() != QLatin1String("1") },
            { QStringLiteral("lineEdit_price2"), true },
            { QStringLiteral("le_targetTotalNum"), true },
            { QStringLiteral("le_entrustMaxNum"), !(edits && reduces()) },
            { QStringLiteral("le_reduceHRatio"), !(edits && reduces()) },
            { QStringLiteral("combx_instructionMode"), !edits },
            { QStringLiteral("btn_algoParamSetting"), true },
            { QStringLiteral("combx_assignTo"), !edits },
            { QStringLiteral("date_effectivePeriod_Multi"), true },
            { QStringLiteral("date_effectivePeriod_Single"), !(edits && kind.started && stored.reducesHoldings()) },
            { QStringLiteral("combx_reduceHMode"), !(edits && reduces()) },
            { QStringLiteral("le_remark"), true },
            { QStringLiteral("btn_ok"), true },
            { QStringLiteral("btn_cancel"), true },
        };
    }

    QMap<QString, bool> shownFields() const
    {
        const bool compares = comparesPrices();
        return {
            { QStringLiteral("le_targetTotalNum"), true },
            { QStringLiteral("le_entrustMaxNum"), !reduces() },
            { QStringLiteral("le_reduceHRatio"), reduces() },
            { QStringLiteral("combx_reduceHMode"), reduces() },
            { QStringLiteral("date_effectivePeriod_Multi"), !reduces() },
            { QStringLiteral("date_effectivePeriod_Single"), reduces() },
            { QStringLiteral("combx_priceType"), isType("9") },
            { QStringLiteral("combx_entrustType"), isType("2") },
            { QStringLiteral("lineEdit_price1"), true },
            { QStringLiteral("lineEdit_price2"), compares },
            { QStringLiteral("label_price2"), compares },
            { QStringLiteral("btn_algoParamSetting"), mode() == QLatin1String("3") },
            { QStringLiteral("label_targetQtyStep"), isType("9") },
            { QStringLiteral("label_maxEntrustQtyStep"), isType("9") },
        };
    }

    QMap<QString, QString> codes() const
    {
        return {
            { QStringLiteral("combx_fundAccount"), stored.account },
            { QStringLiteral("combx_instructionType"), kind.instructionType },
            { QStringLiteral("combx_instructionTargetType"), targetType() },
            { QStringLiteral("combx_planType"), planType() },
            { QStringLiteral("combx_tradeSide"), stored.side.isEmpty() ? QStringLiteral("k_side_buy") : stored.side },
            { QStringLiteral("combx_entrustType"), stored.entrustType },
            { QStringLiteral("combx_priceType"), priceType() },
            { QStringLiteral("combx_priceMode"), kind.reconciledPriceMode() },
            { QStringLiteral("combx_instructionMode"), mode() },
            { QStringLiteral("combx_reduceHMode"), QStringLiteral("1") },
        };
    }

    QMap<QString, QString> texts() const
    {
        const bool hasSecondPrice = stored.priceMode > QLatin1String("6");
        return {
            { QStringLiteral("la_symbolName"), Script::instance().securities.value(stored.symbol).chineseName },
            { QStringLiteral("lineEdit_price1"), price1() },
            { QStringLiteral("lineEdit_price2"), hasSecondPrice ? stored.price2 : QString() },
            { QStringLiteral("le_targetTotalNum"), numberText(stored.target) },
            { QStringLiteral("le_entrustMaxNum"), stored.reducesHoldings() ? QString() : numberText(stored.daily) },
            { QStringLiteral("le_reduceHRatio"), stored.reducesHoldings() ? QStringLiteral("0.25") : QString() },
            { QStringLiteral("le_remark"), stored.remark },
            { QStringLiteral("la_assignTo"), reduces() ? QStringLiteral("执行人") : QStringLiteral("分配给") },
        };
    }
};

} // namespace

/// Stored plans of every kind, opened for an edit and for a copy: what may be changed and what is shown.
class PlanLoadingTableTest : public EditorTest {
    Q_OBJECT

private Q_SLOTS:
    void aStoredPlanIsOpened_data();
    void aStoredPlanIsOpened();

private:
    void compareFields(const OpenedFields& plan);
    void compareDates(const OpenedPlan& plan);
};

void PlanLoadingTableTest::aStoredPlanIsOpened_data()
{
    QTest::addColumn<PlanKind>("kind");
    QTest::addColumn<bool>("edits");
    const QList<PlanKind> kinds = PlanKind::all();
    QCOMPARE(kinds.size(), 4 * 4 * 2 * 3 * 2 * 2);
    for (const PlanKind& kind : kinds) {
        QTest::newRow(qPrintable(QStringLiteral("edit of ") + kind.sentence())) << kind << true;
        QTest::newRow(qPrintable(QStringLiteral("copy of ") + kind.sentence())) << kind << false;
    }
}

void PlanLoadingTableTest::aStoredPlanIsOpened()
{
    QFETCH(PlanKind, kind);
    QFETCH(bool, edits);
    setToday(Today);
    openSampleMarket();
    script().ruleProperty = kind.ruleProperty;
    const OpenedFields plan(kind, edits);
    storePlan(QStringLiteral("P1"), plan.stored);
    constructShown();
    if (edits)
        editor().editPlan(QStringLiteral("P1"));
    else
        editor().copyPlan(QStringLiteral("P1"));
    compareFields(plan);
    if (!QTest::currentTestFailed())
        compareDates(plan);
    QCOMPARE(script().boxes.size(), 0);
}

void PlanLoadingTableTest::compareFields(const OpenedFields& plan)
{
    const QMap<QString, bool> enabled = plan.enabledFields();
    for (auto it = enabled.cbegin(); it != enabled.cend(); ++it)
        QVERIFY2(isUsable(editor(), qPrintable(it.key())) == it.value(), qPrintable(it.key()));
    const QMap<QString, bool> shown = plan.shownFields();
    for (auto it = shown.cbegin(); it != shown.cend(); ++it)
        QVERIFY2(isOffered(editor(), qPrintable(it.key())) == it.value(), qPrintable(it.key()));
    const QMap<QString, QString> chosen = plan.codes();
    for (auto it = chosen.cbegin(); it != chosen.cend(); ++it)
        QVERIFY2(code(editor(), qPrintable(it.key())) == it.value(),
            qPrintable(it.key() + QStringLiteral(" holds ") + code(editor(), qPrintable(it.key()))));
    const QMap<QString, QString> written = plan.texts();
    for (auto it = written.cbegin(); it != written.cend(); ++it)
        QVERIFY2(text(editor(), qPrintable(it.key())) == it.value(),
            qPrintable(it.key() + QStringLiteral(" reads ") + text(editor(), qPrintable(it.key()))));
    QCOMPARE(field<VorSearchBox>(editor(), "le_symbol")->getSymbol(), plan.stored.symbol);
    QCOMPARE(codes(editor(), "combx_instructionMode"), plan.modes());
    QCOMPARE(box(editor(), "combx_assignTo")->currentText(), plan.assignee());
    QCOMPARE(codes(editor(), "combx_priceMode").contains(QStringLiteral("1")),
        !(plan.edits && plan.kind.reconciledMode() == QLatin1String("2")));
}

void PlanLoadingTableTest::compareDates(const OpenedPlan& plan)
{
    const OrloDateEdit* const range = field<OrloDateEdit>(editor(), "date_effectivePeriod_Multi");
    const OrloDateEdit* const single = field<OrloDateEdit>(editor(), "date_effectivePeriod_Single");
    const bool reduces = plan.stored.reducesHoldings();
    const bool ofRange = plan.takesDatesOver() && !reduces;
    const bool ofSingle = plan.takesDatesOver() && reduces;
    const bool bound = plan.edits && plan.kind.started;
    QCOMPARE(range->GetStartDate(), ofRange ? plan.stored.begin : FirstDay);
    QCOMPARE(range->GetEndDate(), ofRange ? plan.stored.end : FirstDay);
    QCOMPARE(single->GetDate(), ofSingle ? plan.stored.begin : FirstDay);
    QCOMPARE(range->property("minDate").toDate(), bound && !reduces ? plan.stored.begin : FirstDay);
    QCOMPARE(range->property("startCalendarEnabled"), bound && !reduces ? QVariant(false) : QVariant());
    QCOMPARE(single->property("minDate").toDate(), bound && reduces ? plan.stored.begin : FirstDay);
    QCOMPARE(single->property("maxDate").toDate(), bound && reduces ? plan.stored.begin : FirstDay.addMonths(3));
}

QTEST_MAIN(PlanLoadingTableTest)
#include "tst_plan_loading_table.moc"
