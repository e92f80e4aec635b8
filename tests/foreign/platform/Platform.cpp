#include "AlgoTradeLogicNew.h"
#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "OrloWidget.h"
#include "VorSearchBox.h"
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

AlgoTradeLogicNew* AlgoTradeLogicNew::GetInstance()
{
    static AlgoTradeLogicNew only;
    return &only;
}

// --- Plans

AutoPlanLogic& AutoPlanLogic::instance()
{
    static AutoPlanLogic only;
    return only;
}

QString AutoPlanLogic::CreateNewPlan(Record record)
{
    const QString id = QStringLiteral("P%1").arg(m_plans.size() + 1);
    record.insert(AutoPlanField::BaseField::autoPlanId, id);
    m_plans.insert(id, record);
    return {};
}

QString AutoPlanLogic::modifyPlan(const Record& record)
{
    m_plans.insert(record.value(AutoPlanField::BaseField::autoPlanId).toString(), record);
    return {};
}

AutoPlanLogic::Record AutoPlanLogic::GetPlanOtherParamFromPlanInfo(const Record& record) const
{
    const QString text = record.value(AutoPlanField::BaseField::planOtherParam).toString();
    return QJsonDocument::fromJson(text.toUtf8()).object().toVariantMap();
}

QList<QDate> AutoPlanLogic::GetTradeDateList(const QString&, QString&) const
{
    QList<QDate> dates;
    for (int day = 2; day <= 30; day += 2)
        dates.append(QDate::currentDate().addDays(day));
    return dates;
}

// --- Boxes

namespace {

void print(const char* kind, const QString& text)
{
    QTextStream(stdout) << kind << ": " << text << '\n';
}

} // namespace

void OrloWidget::ShowWarningMsgBox(const QString& text, QWidget*)
{
    print("warning", text);
}

void OrloWidget::ShowErrorMsgBox(const QString& text, QWidget*)
{
    print("error", text);
}

void OrloWidget::ShowTipMsgBox(const QString& text, QWidget*)
{
    print("tip", text);
}

int OrloWidget::ShowQuestionMsgBox(const QString& text, QWidget*, int)
{
    print("question", text);
    return 1;
}

// --- Search

VorSearchBox::VorSearchBox(QWidget* parent)
    : QLineEdit(parent)
{
    connect(this, &QLineEdit::returnPressed, this, [this] {
        if (m_symbols.contains(text()))
            setSymbol(text());
    });
}

void VorSearchBox::setSymbol(const QString& symbol)
{
    setText(symbol);
    if (symbol == m_symbol)
        return;
    m_symbol = symbol;
    emit selectStockCodeChange(symbol);
    emit selectStockNameChange(symbol.section(QLatin1Char('@'), 0, 0));
}
