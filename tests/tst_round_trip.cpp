#include "AutoPlanField.h"
#include "EditorTest.h"
#include "InstructionTargetType.h"
#include "OpenedPlan.h"
#include "OrloConstants.h"
#include "PlanSample.h"
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QtTest>

namespace Base = AutoPlanField::BaseField;

using FieldMap = QMap<QString, QVariant>;

Q_DECLARE_METATYPE(PlanKind)
Q_DECLARE_METATYPE(PlanSample)

namespace {

const QDate Today(2024, 5, 6);
const QDate Later(2024, 5, 9);
const QDate FirstDay(2024, 5, 7);
const QDate FirstDayLater(2024, 5, 10);
const QString PlanId = QStringLiteral("P1");

/// What differs between two records, key by key; the other parameters are compared as a map.
QStringList differences(const FieldMap& actual, const FieldMap& expected, const QString& prefix = QString())
{
    QStringList found;
    QStringList keys = actual.keys() + expected.keys();
    keys.removeDuplicates();
    for (const QString& key : qAsConst(keys)) {
        const QVariant left = actual.value(key);
        const QVariant right = expected.value(key);
        if (key == Base::planOtherParam)
            found += differences(QJsonDocument::fromJson(left.toString().toUtf8()).object().toVariantMap(),
                QJsonDocument::fromJson(right.toString().toUtf8()).object().toVariantMap(), QStringLiteral("other "));
        else if (actual.contains(key) != expected.contains(key) || left != right)
            found.append(QStringLiteral("%1%2: %3 in place of %4")
                             .arg(prefix, key, actual.contains(key) ? left.toString() : QStringLiteral("nothing"),
                                 expected.contains(key) ? right.toString() : QStringLiteral("nothing")));
    }
    return found;
}

QString dateText(const QDate& date)
{
    return QLocale::c().toString(date, OrloConstants::DateTimeFormatString::STD_DATE_FORMAT);
}

FieldMap withDefaultDates(const FieldMap& record, bool reduces, const QDate& first)
{
    FieldMap changed = record;
    changed.insert(Base::beginDate, dateText(first));
    changed.insert(Base::endDate, dateText(reduces ? first.addYears(100) : first));
    return changed;
}

FieldMap withId(const FieldMap& record)
{
    FieldMap changed = record;
    changed.insert(Base::autoPlanId, PlanId);
    return changed;
}

} // namespace

/// What is filled in, sent, stored and opened again is sent once more as it was.
class RoundTripTest : public EditorTest {
    Q_OBJECT

private Q_SLOTS:
    void aFilledPlanComesBackAsItWasSent_data();
    void aFilledPlanComesBackAsItWasSent();
    void aStoredPlanIsSentAsItsUserMay_data();
    void aStoredPlanIsSentAsItsUserMay();

private:
    void openMarket(int ruleProperty);
    void openAgain(bool edits);
    /// Presses OK; what of the one record that is then sent differs from the expected one, empty when nothing does.
    QString sentOnce(const FieldMap& expected);
};

void RoundTripTest::openMarket(int ruleProperty)
{
    openSampleMarket();
    script().ruleProperty = ruleProperty;
    keepWhatIsSent();
}

void RoundTripTest::openAgain(bool edits)
{
    constructShown();
    script().forget();
    script().createdRecords.clear();
    script().modifiedRecords.clear();
    if (edits)
        editor().editPlan(PlanId);
    else
        editor().copyPlan(PlanId);
}

QString RoundTripTest::sentOnce(const FieldMap& expected)
{
    press(editor(), "btn_ok");
    const QList<FieldMap> records = script().createdRecords + script().modifiedRecords;
    if (records.size() == 1)
        return differences(records.first(), expected).join(QStringLiteral("; "));
    return QStringLiteral("%1 records were sent: %2")
        .arg(records.size())
        .arg(script().boxes.isEmpty() ? QString() : script().boxes.last().text);
}

void RoundTripTest::aFilledPlanComesBackAsItWasSent_data()
{
    QTest::addColumn<PlanSample>("plan");
    QTest::addColumn<int>("ruleProperty");
    QTest::addColumn<bool>("started");
    for (const PlanKind& kind : PlanKind::all()) {
        const OpenedPlan opened(kind, false);
        const bool canBeFilled = !kind.switchesMode() && opened.planType() == kind.planType
            && opened.targetType() == kind.targetType && opened.mode() == kind.mode;
        for (const char* const priceMode : { "1", "6", "7", "8" }) {
            const QString code = QString::fromLatin1(priceMode);
            if (!canBeFilled || (kind.mode == QLatin1String("2") && code == QLatin1String("1")))
                continue;
            PlanSample plan = kind.sample();
            plan.price2.clear();
            plan = plan.withPriceMode(code);
            if (code == QLatin1String("1") && kind.instructionType > QLatin1String("2"))
                plan.price1 = QStringLiteral("0.000");
            plan.begin = QDate(2024, 5, 8);
            QTest::newRow(qPrintable(kind.sentence() + QStringLiteral(", price mode ") + code))
                << plan << kind.ruleProperty << kind.started;
        }
    }
}

void RoundTripTest::aFilledPlanComesBackAsItWasSent()
{
    QFETCH(PlanSample, plan);
    QFETCH(int, ruleProperty);
    QFETCH(bool, started);
    openMarket(ruleProperty);
    constructShown();
    fillForm(editor(), plan);
    const FieldMap record = recordOf(plan);
    QCOMPARE(sentOnce(record), QString());

    setToday(started ? Later : Today);
    openAgain(false);
    QCOMPARE(sentOnce(started ? withDefaultDates(record, plan.reducesHoldings(), FirstDayLater) : record), QString());
    QCOMPARE(script().createdRecords.size(), 1);

    openAgain(true);
    QCOMPARE(sentOnce(withId(record)), QString());
    QCOMPARE(script().modifiedRecords.size(), 1);
    openAgain(true);
    QCOMPARE(sentOnce(withId(record)), QString());
}

void RoundTripTest::aStoredPlanIsSentAsItsUserMay_data()
{
    QTest::addColumn<PlanKind>("kind");
    QTest::addColumn<bool>("edits");
    for (const PlanKind& kind : PlanKind::all()) {
        // No editor has ever stored a reduction of another kind.
        const bool isReduction = kind.planType == QLatin1String("JC-01");
        if (isReduction && OpenedPlan(kind, false).planType().isEmpty())
            continue;
        QTest::newRow(qPrintable(QStringLiteral("edit of ") + kind.sentence())) << kind << true;
        QTest::newRow(qPrintable(QStringLiteral("copy of ") + kind.sentence())) << kind << false;
    }
}

void RoundTripTest::aStoredPlanIsSentAsItsUserMay()
{
    QFETCH(PlanKind, kind);
    QFETCH(bool, edits);
    openMarket(kind.ruleProperty);
    const OpenedPlan opened(kind, edits);
    storePlan(PlanId, opened.stored);
    openAgain(edits);
    if (opened.mode().isEmpty()) {
        press(editor(), "btn_ok");
        QCOMPARE(script().boxes.size(), 1);
        QCOMPARE(script().boxes.first().text, QStringLiteral("下单模式必填，请重新编辑！"));
        return;
    }
    if (opened.mode() == QLatin1String("3") && kind.switchesMode()) {
        press(editor(), "btn_ok");
        QCOMPARE(script().boxes.size(), 1);
        QCOMPARE(script().boxes.first().text, QStringLiteral("未设置算法参数！"));
        return;
    }
    PlanSample sent = opened.stored.withMode(opened.mode());
    sent.priceMode = kind.reconciledPriceMode();
    sent.price1 = opened.price1();
    sent.targetType = opened.targetType();
    FieldMap record = recordOf(sent);
    if (kind.started && !edits)
        record = withDefaultDates(record, sent.reducesHoldings(), FirstDay);
    QCOMPARE(sentOnce(edits ? withId(record) : record), QString());
}

QTEST_MAIN(RoundTripTest)
#include "tst_round_trip.moc"
