#include "FormDraft.h"

#include "AlgoTradeLogicNew.h"
#include "OrloFormulaNormal.h"
#include "ParamListWidget_single.h"
#include "SearchableSecurities.h"
#include "VorSearchBox.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QCoreApplication>
#include <QJsonArray>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>

#include <algorithm>

namespace {

/// In the order in which a trader fills them in.
constexpr const char* Fields[] = { "combx_fundAccount", "combx_instructionType", "combx_instructionTargetType",
    "combx_planType", "le_symbol", "combx_tradeSide", "combx_instructionMode", "combx_priceType", "combx_entrustType",
    "combx_priceMode", "lineEdit_price1", "lineEdit_price2", "le_targetTotalNum", "le_entrustMaxNum", "le_reduceHRatio",
    "combx_reduceHMode", "combx_assignTo", "le_start", "le_end", "le_date", "le_remark" };
/// A choice may change a field above it; after that many rounds it is as the trader left it, or never will be.
constexpr int Rounds = 3;

using Value = FormDraft::Value;

QWidget* usable(const QWidget& form, const QString& name)
{
    auto* const field = form.findChild<QWidget*>(name);
    return field && field->isVisibleTo(&form) && field->isEnabledTo(&form) ? field : nullptr;
}

QLineEdit* lineOf(QWidget* field)
{
    auto* const line = qobject_cast<QLineEdit*>(field);
    return line ? line : field->findChild<QLineEdit*>();
}

Value valueOf(const QWidget& form, const QString& name)
{
    QWidget* const field = usable(form, name);
    if (!field)
        return { name, {}, {} };
    if (const auto* const box = qobject_cast<QComboBox*>(field))
        return { name, box->currentData().toString(), box->currentText() };
    const auto* const search = qobject_cast<VorSearchBox*>(field);
    return { name, search ? search->getSymbol() : QString(), lineOf(field)->text() };
}

/// A number is shown with and without separators.
bool isShown(const QWidget& form, const Value& value)
{
    const Value shown = valueOf(form, value.field);
    const auto plain = [](QString text) { return text.remove(QLatin1Char(',')); };
    return usable(form, value.field) && shown.code == value.code
        && (!value.code.isEmpty() || plain(shown.text) == plain(value.text));
}

void choose(QComboBox* box, const Value& value)
{
    const auto exactly = Qt::MatchExactly | Qt::MatchCaseSensitive;
    const int row =
        value.code.isEmpty() ? box->findText(value.text, exactly) : box->findData(value.code, Qt::UserRole, exactly);
    if (row >= 0)
        box->setCurrentIndex(row);
}

void enterSecurity(VorSearchBox* box, const Value& value)
{
    const auto* const list = box->findChild<const SearchableSecurities*>();
    const auto has = [&value](const QStringList& run) { return run.contains(value.code); };
    if (value.code.isEmpty())
        box->setText(value.text);
    else if (list && std::any_of(list->runs.cbegin(), list->runs.cend(), has))
        box->setSymbol(value.code);
}

// A number and a date are read from what is typed, and taken by Enter.
void type(QLineEdit* line, const QString& text)
{
    line->selectAll();
    line->insert(text);
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(line, &enter);
}

void enter(QWidget* field, const Value& value)
{
    if (auto* const box = qobject_cast<QComboBox*>(field))
        choose(box, value);
    else if (auto* const search = qobject_cast<VorSearchBox*>(field))
        enterSecurity(search, value);
    else if (auto* const formula = qobject_cast<OrloFormulaNormal*>(field))
        formula->setText(value.text);
    else
        type(lineOf(field), value.text);
}

bool setAlgorithm(const QWidget& form, const QString& name, const QVariantMap& parameters, const QString& symbol)
{
    auto* const button = qobject_cast<QAbstractButton*>(usable(form, QStringLiteral("btn_algoParamSetting")));
    if (!button || symbol.isEmpty())
        return false;
    button->click();
    auto* const panel = form.findChild<ParamListWidget_single*>();
    if (!panel)
        return false;
    const AesStrategy strategy = AlgoTradeLogicNew::GetInstance()->GetStrategy(name);
    if (panel->LoadStrategy(strategy, {}, parameters, symbol) == QStringLiteral("0"))
        panel->findChild<QAbstractButton*>(QStringLiteral("btn_ok"))->click();
    panel->hide();
    return panel->GetStrategyName() == name;
}

} // namespace

void FormDraft::read(const QWidget& form)
{
    time = QDateTime::currentDateTime();
    values.clear();
    for (const char* const name : Fields) {
        if (usable(form, QLatin1String(name)))
            values << valueOf(form, QLatin1String(name));
    }
    const auto* const panel = form.findChild<const ParamListWidget_single*>();
    const bool isSet = panel && panel->HasParams();
    algorithm = isSet ? panel->GetStrategyName() : QString();
    parameters = isSet ? panel->GetParamMap() : QVariantMap();
}

QStringList FormDraft::fill(QWidget& form) const
{
    for (int round = 0; round < Rounds; ++round) {
        for (const Value& value : values) {
            QWidget* const field = usable(form, value.field);
            if (field && !isShown(form, value))
                enter(field, value);
        }
    }
    QStringList lost;
    for (const Value& value : values) {
        if (!isShown(form, value)) {
            const auto* const field = form.findChild<QWidget*>(value.field);
            lost << QStringLiteral("%1 %2").arg(field ? field->accessibleName() : value.field, value.text);
        }
    }
    const QString symbol = valueOf(form, QStringLiteral("le_symbol")).code;
    if (!algorithm.isEmpty() && !setAlgorithm(form, algorithm, parameters, symbol))
        lost << QCoreApplication::translate("FormDraft", "算法参数 %1").arg(algorithm);
    return lost;
}

QString FormDraft::summary() const
{
    QString what = plan.isEmpty() ? QCoreApplication::translate("FormDraft", "新建计划")
                                  : QCoreApplication::translate("FormDraft", "修改计划 %1").arg(plan);
    for (const Value& value : values) {
        if (value.field == QLatin1String("le_symbol") || value.field == QLatin1String("combx_tradeSide")
            || value.field == QLatin1String("le_targetTotalNum"))
            what += QLatin1Char(' ') + value.text;
    }
    return QStringLiteral("%1 (%2)").arg(what, QLocale::c().toString(time, QStringLiteral("MM-dd HH:mm")));
}

QJsonObject FormDraft::toJson() const
{
    QJsonArray fields;
    for (const Value& value : values)
        fields << QJsonArray{ value.field, value.code, value.text };
    return { { QStringLiteral("id"), id }, { QStringLiteral("plan"), plan }, { QStringLiteral("version"), version },
        { QStringLiteral("time"), time.toString(Qt::ISODate) }, { QStringLiteral("fields"), fields },
        { QStringLiteral("algorithm"), algorithm },
        { QStringLiteral("parameters"), QJsonObject::fromVariantMap(parameters) } };
}

FormDraft FormDraft::fromJson(const QJsonObject& json)
{
    FormDraft draft;
    draft.id = json.value(QStringLiteral("id")).toString();
    draft.plan = json.value(QStringLiteral("plan")).toString();
    draft.version = json.value(QStringLiteral("version")).toInt();
    draft.time = QDateTime::fromString(json.value(QStringLiteral("time")).toString(), Qt::ISODate);
    const QJsonArray fields = json.value(QStringLiteral("fields")).toArray();
    for (const QJsonValue field : fields)
        draft.values << Value{ field.toArray().at(0).toString(), field.toArray().at(1).toString(),
            field.toArray().at(2).toString() };
    draft.algorithm = json.value(QStringLiteral("algorithm")).toString();
    draft.parameters = json.value(QStringLiteral("parameters")).toObject().toVariantMap();
    return draft;
}
