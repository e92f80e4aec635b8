#include "Accessibility.h"

#include "AutoParamSetting.h"
#include "ui_AutoParamSetting.h"

namespace {

struct Description {
    QWidget* field;
    QString text;
};

QList<Description> upperDescriptions(const Ui::AutoParamSetting& ui)
{
    return {
        { ui.combx_fundAccount, AutoParamSetting::tr("计划所用的资金账户") },
        { ui.combx_instructionType, AutoParamSetting::tr("可选的类型取决于账户的权限") },
        { ui.combx_instructionTargetType, AutoParamSetting::tr("目标按数量还是按金额填写") },
        { ui.combx_planType, AutoParamSetting::tr("目标如何分配到各个交易日") },
        { ui.le_symbol, AutoParamSetting::tr("输入代码或名称，从列表中选择证券") },
        { ui.le_exchange, AutoParamSetting::tr("随所选证券显示，不能修改") },
        { ui.combx_tradeSide, AutoParamSetting::tr("可选的方向取决于指令类型和计划类型") },
        { ui.combx_priceType, AutoParamSetting::tr("港股通委托的报价类型") },
        { ui.combx_entrustType, AutoParamSetting::tr("委托的业务类别") },
    };
}

QList<Description> lowerDescriptions(const Ui::AutoParamSetting& ui)
{
    const QString formula = AutoParamSetting::tr("价格或价格公式，单位：元");
    const QString period = AutoParamSetting::tr("计划生效的交易日");
    return {
        { ui.combx_priceMode, AutoParamSetting::tr("委托价格如何确定") },
        { ui.lineEdit_price1, formula },
        { ui.lineEdit_price2, formula },
        { ui.le_reduceHRatio, AutoParamSetting::tr("0到1之间的比例") },
        { ui.combx_instructionMode, AutoParamSetting::tr("指令如何管理和复核") },
        { ui.btn_algoParamSetting, AutoParamSetting::tr("选择算法并填写其参数") },
        { ui.combx_assignTo, AutoParamSetting::tr("执行指令的用户") },
        { ui.date_effectivePeriod_Multi, period },
        { ui.date_effectivePeriod_Single, period },
        { ui.combx_reduceHMode, AutoParamSetting::tr("减持须遵守的限制") },
        { ui.le_remark, AutoParamSetting::tr("可不填写") },
        { ui.btn_ok, AutoParamSetting::tr("检查并提交计划") },
        { ui.btn_cancel, AutoParamSetting::tr("不提交计划，关闭") },
    };
}

} // namespace

void Accessibility::nameFields(const Ui::AutoParamSetting& ui)
{
    for (QWidget* const section : { ui.widget_up, ui.widget_down }) {
        // Direct children only: the client names the labels inside its own widgets.
        const auto captions = section->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
        for (QLabel* const caption : captions) {
            if (QWidget* const field = caption->buddy())
                field->setAccessibleName(caption->text());
        }
    }
    // The two date fields share one caption; only one of them is shown at a time.
    ui.date_effectivePeriod_Single->setAccessibleName(ui.la_effectivePeriod->text());
    const QList<Description> descriptions = upperDescriptions(ui) + lowerDescriptions(ui);
    for (const Description& description : descriptions)
        description.field->setAccessibleDescription(description.text);
    setUnit(ui.lab_targetTotalNumUnit, ui.le_targetTotalNum, ui.lab_targetTotalNumUnit->text());
    setUnit(ui.lab_entrustMaxNumUnit, ui.le_entrustMaxNum, ui.lab_entrustMaxNumUnit->text());
}

void Accessibility::setCaption(QLabel* caption, const QString& text)
{
    caption->setText(text);
    if (QWidget* const field = caption->buddy())
        field->setAccessibleName(text);
}

void Accessibility::setUnit(QLabel* label, QWidget* field, const QString& unit)
{
    label->setText(unit);
    field->setAccessibleDescription(AutoParamSetting::tr("单位：%1").arg(unit));
}
