#include "EditorTest.h"
#include "InstructionTargetType.h"
#include "PlanVocabulary.h"
#include "VorSearchBox.h"

#include <QLabel>
#include <QtTest>

namespace {

QString words(const char* text)
{
    return QString::fromUtf8(text);
}

/// What a screen reader says of one field.
struct Spoken {
    const char* field;
    const char* caption;
    const char* name;
    const char* description;
};

constexpr Spoken SpokenFields[] = {
    { "combx_fundAccount", "la_fundAccountName", "账户名称", "计划所用的资金账户" },
    { "combx_instructionType", "la_instructType", "指令类型", "可选的类型取决于账户的权限" },
    { "combx_instructionTargetType", "label", "指令单类型", "目标按数量还是按金额填写" },
    { "combx_planType", "la_plainType", "计划类型", "目标如何分配到各个交易日" },
    { "le_symbol", "la_securityId", "证券代码", "输入代码或名称，从列表中选择证券" },
    { "le_exchange", "la_exchange", "市场", "随所选证券显示，不能修改" },
    { "combx_tradeSide", "la_tradeSide", "交易方向", "可选的方向取决于指令类型和计划类型" },
    { "combx_priceType", "la_priceType", "报价类型", "港股通委托的报价类型" },
    { "combx_entrustType", "la_entrustType", "委托类别", "委托的业务类别" },
    { "combx_priceMode", "la_priceMode", "价格模式", "委托价格如何确定" },
    { "lineEdit_price1", "label_price1", "价格", "价格或价格公式，单位：元" },
    { "lineEdit_price2", "label_price2", "价格2", "价格或价格公式，单位：元" },
    { "le_targetTotalNum", "la_targetTotalNum", "目标总量", "单位：股" },
    { "le_entrustMaxNum", "la_entrustMaxNum", "每日最大委托量", "单位：股" },
    { "le_reduceHRatio", "la_reduceHRatio", "减持占比", "0到1之间的比例" },
    { "combx_instructionMode", "la_orderMode", "下单模式", "指令如何管理和复核" },
    { "combx_assignTo", "la_assignTo", "分配给", "执行指令的用户" },
    { "date_effectivePeriod_Multi", "la_effectivePeriod", "生效时段", "计划生效的交易日" },
    { "combx_reduceHMode", "la_reduceHMode", "减持模式", "减持须遵守的限制" },
    { "le_remark", "la_remark", "备注", "可不填写" },
};

} // namespace

/// The form as a screen reader reads it: the fields' names, which come from their captions, and their descriptions.
class FieldNamesTest : public EditorTest {
    Q_OBJECT

private Q_SLOTS:
    void eachFieldIsNamedAfterItsCaptionAndDescribed_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < int(std::size(SpokenFields)); ++i)
            QTest::newRow(SpokenFields[i].field) << i;
    }

    void eachFieldIsNamedAfterItsCaptionAndDescribed()
    {
        QFETCH(int, index);
        const Spoken& of = SpokenFields[index];
        construct();
        const auto* const named = field<QWidget>(editor(), of.field);
        QCOMPARE(field<QLabel>(editor(), of.caption)->buddy(), named);
        QCOMPARE(named->accessibleName(), words(of.name));
        QCOMPARE(named->accessibleDescription(), words(of.description));
    }

    void noOtherLabelIsACaption()
    {
        construct();
        int captions = 0;
        for (const QLabel* const label : editor().findChildren<QLabel*>())
            captions += label->buddy() ? 1 : 0;
        QCOMPARE(captions, int(std::size(SpokenFields)));
    }

    void theSingleDateHasTheCaptionOfThePeriod()
    {
        construct();
        const auto* const date = field<QWidget>(editor(), "date_effectivePeriod_Single");
        QCOMPARE(date->accessibleName(), words("生效时段"));
        QCOMPARE(date->accessibleDescription(), words("计划生效的交易日"));
    }

    void buttonsAreDescribed()
    {
        construct();
        const auto description = [this](const char* name) {
            return field<QWidget>(editor(), name)->accessibleDescription();
        };
        QCOMPARE(description("btn_algoParamSetting"), words("选择算法并填写其参数"));
        QCOMPARE(description("btn_ok"), words("检查并提交计划"));
        QCOMPARE(description("btn_cancel"), words("不提交计划，关闭"));
    }

    void thePeriodIsThatOfTheDateWhichIsShown()
    {
        script().addOrdinaryAccount(QStringLiteral("acc1"));
        construct();
        const auto* const caption = field<QLabel>(editor(), "la_effectivePeriod");
        choose(editor(), "combx_planType", AutoPlanTemplate::ReduceHoldings);
        QCOMPARE(caption->buddy(), field<QWidget>(editor(), "date_effectivePeriod_Single"));
        choose(editor(), "combx_planType", AutoPlanTemplate::CumulativeQty);
        QCOMPARE(caption->buddy(), field<QWidget>(editor(), "date_effectivePeriod_Multi"));
    }

    void namesFollowTheCaptions()
    {
        script().addOrdinaryAccount(QStringLiteral("acc1"));
        construct();
        const auto name = [this](const char* of) { return field<QWidget>(editor(), of)->accessibleName(); };
        choose(editor(), "combx_priceMode", AutoPlanPriceModel::CompareMax);
        QCOMPARE(name("lineEdit_price1"), words("价格1"));
        choose(editor(), "combx_priceMode", AutoPlanPriceModel::Custom);
        QCOMPARE(name("lineEdit_price1"), words("价格"));
        choose(editor(), "combx_planType", AutoPlanTemplate::SameElements);
        QCOMPARE(name("le_entrustMaxNum"), words("每日计划量"));
        choose(editor(), "combx_planType", AutoPlanTemplate::ReduceHoldings);
        QCOMPARE(name("le_entrustMaxNum"), words("每日最大委托量"));
        QCOMPARE(name("combx_assignTo"), words("执行人"));
        choose(editor(), "combx_planType", AutoPlanTemplate::AverageQty);
        QCOMPARE(name("combx_assignTo"), words("分配给"));
    }

    void theUnitIsDescribedWithTheQuantities()
    {
        script().ruleProperty = AutoPlanRuleProperty::Review;
        script().addOrdinaryAccount(QStringLiteral("acc1"));
        construct();
        choose(editor(), "combx_instructionTargetType", InstructionTargetType::AmountOrder);
        for (const char* const name : { "le_targetTotalNum", "le_entrustMaxNum" })
            QCOMPARE(field<QWidget>(editor(), name)->accessibleDescription(), words("单位：元"));
    }

    void labelsInsideTheClientsWidgetsKeepToThemselves()
    {
        script().datesHaveCaptions = true;
        construct();
        for (const char* const name : { "date_effectivePeriod_Multi", "date_effectivePeriod_Single" }) {
            const auto* const caption = field<QWidget>(editor(), name)->findChild<QLabel*>();
            QVERIFY(caption != nullptr && caption->buddy() != nullptr);
            QCOMPARE(caption->buddy()->accessibleName(), words("inner name"));
        }
    }

    void aCaptionWithoutItsFieldChangesAlone()
    {
        script().addOrdinaryAccount(QStringLiteral("acc1"));
        construct();
        for (const char* const name : { "label_price1", "la_entrustMaxNum", "la_assignTo" })
            field<QLabel>(editor(), name)->setBuddy(nullptr);
        choose(editor(), "combx_priceMode", AutoPlanPriceModel::CompareMax);
        QCOMPARE(text(editor(), "label_price1"), words("价格1"));
        QCOMPARE(field<QWidget>(editor(), "lineEdit_price1")->accessibleName(), words("价格"));
        choose(editor(), "combx_planType", AutoPlanTemplate::SameElements);
        QCOMPARE(text(editor(), "la_entrustMaxNum"), words("每日计划量"));
        choose(editor(), "combx_planType", AutoPlanTemplate::ReduceHoldings);
        QCOMPARE(text(editor(), "la_assignTo"), words("执行人"));
    }

    void nothingHasAToolTip()
    {
        script().addHkStock(QStringLiteral("00700.K_HK"), 2000);
        construct();
        field<VorSearchBox>(editor(), "le_symbol")->setSymbol(QStringLiteral("00700.K_HK"));
        QCOMPARE(text(editor(), "label_targetQtyStep"), words("2000"));
        QCOMPARE(text(editor(), "label_maxEntrustQtyStep"), words("2000"));
        const QList<QWidget*> widgets = editor().findChildren<QWidget*>();
        QVERIFY(widgets.size() > 50);
        for (const QWidget* const widget : widgets)
            QCOMPARE(widget->toolTip(), QString());
    }
};

QTEST_MAIN(FieldNamesTest)
#include "tst_field_names.moc"
