#include "FormReading.h"

#include "AccountStore.h"
#include "Algo_Fields.h"
#include "AutoPlanField.h"
#include "EntrustTypes.h"
#include "FieldMark.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloDateEdit.h"
#include "OrloDecimalLineEdit.h"
#include "Orlo_Fields.h"
#include "ParamListWidget_single.h"
#include "PlanCodes.h"
#include "PlanTexts.h"
#include "VorSearchBox.h"

#include <QComboBox>
#include <QJsonDocument>
#include <QJsonObject>

#include <tuple>

namespace BaseField = AutoPlanField::BaseField;
namespace Content = Algo_Fields::AlgoInstContentInfo;
namespace UserAccount = Kelvo_Fields::UserAccount;
using namespace PlanCodes;

namespace {

// A plan with a single date has no end.
constexpr int EndlessYears = 100;
const QString NotSpecified = QStringLiteral("默认不指定");

template <class Widget> const Widget* find(const QWidget& form, const char* name)
{
    return form.findChild<const Widget*>(QLatin1String(name));
}

/// Whether the form shows a field; the form itself may be hidden.
bool isShown(const QWidget& form, const char* name)
{
    const auto* const field = find<QWidget>(form, name);
    return field && field->isVisibleTo(&form);
}

QString code(const QWidget& form, const char* name)
{
    const auto* const box = find<QComboBox>(form, name);
    return box ? box->currentData(Qt::UserRole).toString() : QString();
}

QString shownCode(const QWidget& form, const char* name)
{
    return isShown(form, name) ? code(form, name) : QString();
}

QString text(const QWidget& form, const char* name)
{
    const auto* const line = find<QLineEdit>(form, name);
    return line ? line->text() : QString();
}

QString number(const QWidget& form, const char* name)
{
    const auto* const field = find<OrloDecimalLineEdit>(form, name);
    return field ? field->GetStrValue() : QString();
}

void readBoxes(const QWidget& form, FormReading& reading)
{
    reading.account = code(form, "combx_fundAccount");
    reading.instructionType = code(form, "combx_instructionType");
    reading.targetType = code(form, "combx_instructionTargetType");
    reading.planType = code(form, "combx_planType");
    reading.side = code(form, "combx_tradeSide");
    reading.priceType = shownCode(form, "combx_priceType");
    reading.entrustType = shownCode(form, "combx_entrustType");
    reading.priceMode = code(form, "combx_priceMode");
    reading.instructionMode = code(form, "combx_instructionMode");
    reading.reductionMode = shownCode(form, "combx_reduceHMode");
    if (const auto* const box = find<QComboBox>(form, "combx_assignTo"); box && box->currentIndex() >= 0)
        reading.assignee = box->currentText() == NotSpecified ? QString() : box->currentText();
}

void readTexts(const QWidget& form, FormReading& reading)
{
    if (const auto* const search = find<VorSearchBox>(form, "le_symbol"))
        reading.symbol = search->getSymbol();
    reading.price1 = text(form, "lineEdit_price1");
    reading.hasPrice2 = isShown(form, "lineEdit_price2");
    reading.price2 = reading.hasPrice2 ? text(form, "lineEdit_price2") : QString();
    reading.target = number(form, "le_targetTotalNum");
    reading.hasPerDay = isShown(form, "le_entrustMaxNum");
    reading.perDay = reading.hasPerDay ? number(form, "le_entrustMaxNum") : QString();
    reading.ratio = number(form, "le_reduceHRatio");
    reading.hasSteps = isShown(form, "label_targetQtyStep");
    reading.remark = text(form, "le_remark");
}

void readDates(const QWidget& form, FormReading& reading)
{
    const auto* const range = find<OrloDateEdit>(form, "date_effectivePeriod_Multi");
    const auto* const single = find<OrloDateEdit>(form, "date_effectivePeriod_Single");
    if (single && single->isVisibleTo(&form)) {
        reading.begin = single->GetDate();
    } else if (range) {
        reading.begin = range->GetStartDate();
        reading.end = range->GetEndDate();
    }
}

void readRefused(const QWidget& form, FormReading& reading)
{
    for (const char* const name :
        { "le_targetTotalNum", "le_entrustMaxNum", "le_reduceHRatio", "le_start", "le_end", "le_date" }) {
        const auto* const field = find<QWidget>(form, name);
        if (!field || !field->isVisibleTo(&form))
            continue;
        const QString reason = FieldMark::refusedInput(field);
        if (!reason.isEmpty())
            reading.refused << RefusedInput{ QLatin1String(name), field->accessibleName(), reason };
    }
}

void readAlgorithm(const QWidget& form, FormReading& reading)
{
    const auto* const panel = form.findChild<const ParamListWidget_single*>();
    if (!panel || !panel->HasParams())
        return;
    const QMap<QString, QVariant> parameters = panel->GetParamMap();
    reading.algorithm = panel->GetStrategyName();
    reading.algorithmAccount = parameters.value(Content::TradingAccount).toString();
    reading.algorithmSide = parameters.value(Content::OrderSide).toString();
}

QString storedQuantity(const QString& typed, const Security& security)
{
    return QString::number(static_cast<qint64>(typed.toDouble()) / security.displayFactor);
}

void addTarget(const FormReading& form, const Security& security, QVariantMap& other)
{
    if (form.isAmount()) {
        other.insert(FieldId::TargetType, form.targetType);
        other.insert(BaseField::tradeAmount, form.target);
        other.insert(BaseField::dayMaxTradeAmount, form.perDay);
    }
    if (form.hasPerDay)
        other.insert(AutoPlanField::Progress::CurrentQty, storedQuantity(form.perDay, security));
    if (form.isReduction()) {
        other.insert(BaseField::JCRatio, form.ratio);
        other.insert(BaseField::JCModel, form.reductionMode);
    }
}

QString otherParam(const FormReading& form, const Security& security)
{
    QVariantMap other{ { BaseField::securitySubType, security.subType } };
    addTarget(form, security, other);
    if (!form.priceType.isEmpty())
        other.insert(Kelvo_Fields::Security::timeInForce, form.priceType);
    if (!form.entrustType.isEmpty()) {
        const int number = static_cast<int>(entrustTypeOfCode(form.entrustType).number);
        other.insert(FieldId::MarginSide, QString::number(number));
    }
    const QJsonDocument document(QJsonObject::fromVariantMap(other));
    return QString::fromUtf8(document.toJson(QJsonDocument::Compact));
}

void addPrices(const FormReading& form, PlanStore::Record& record)
{
    record.insert(BaseField::priceModel, form.priceMode);
    record.insert(BaseField::priceFormula1, form.price1);
    if (form.priceMode == PriceModel::NoLimit)
        record.insert(BaseField::priceFixed, form.price1);
    if (form.priceMode == PriceModel::CompareMax || form.priceMode == PriceModel::CompareMin)
        record.insert(BaseField::priceFormula2, form.price2);
}

/// All values, for comparison.
auto values(const FormReading& form)
{
    return std::tie(form.account, form.instructionType, form.targetType, form.planType, form.symbol, form.side,
        form.priceType, form.entrustType, form.priceMode, form.price1, form.price2, form.target, form.perDay,
        form.ratio, form.instructionMode, form.algorithm, form.algorithmAccount, form.algorithmSide, form.assignee,
        form.reductionMode, form.begin, form.end, form.remark, form.refused, form.hasPerDay, form.hasPrice2,
        form.hasSteps);
}

} // namespace

FormReading FormReading::of(const QWidget& form)
{
    FormReading reading;
    readBoxes(form, reading);
    readTexts(form, reading);
    readDates(form, reading);
    readRefused(form, reading);
    readAlgorithm(form, reading);
    return reading;
}

bool FormReading::isReduction() const
{
    return planType == PlanType::ReduceHoldings;
}

bool FormReading::isAmount() const
{
    return targetType == InstructionTargetType::AmountOrder;
}

bool FormReading::isBuy() const
{
    return side == Kelvo_Values::OrderSide::buy;
}

bool FormReading::runsAlgorithm() const
{
    return instructionMode == InstMode::AlgoReview;
}

QDate FormReading::lastDay() const
{
    return isReduction() ? begin.addYears(EndlessYears) : end;
}

PlanStore::Record FormReading::record(
    const QString& userId, const Security& security, const StoredAccount& ofAccount) const
{
    PlanStore::Record record{
        { UserAccount::userID, userId },
        { Orlo_Fields::AutoPlan::templateCode, planType },
        { Orlo_Fields::AutoPlan::subType, instructionType },
        { UserAccount::tradingAccount, account },
        { FieldId::Branch, ofAccount.branchNo },
        { Kelvo_Fields::Security::symbol, symbol },
        { UserAccount::securityExchange, security.exchange },
        { UserAccount::securityAccount, ofAccount.exchangeAccounts.value(security.exchange) },
        { BaseField::orderSide, side },
        { BaseField::totalQty, storedQuantity(target, security) },
        { BaseField::InstMode, instructionMode },
        { BaseField::beginDate, PlanTexts::text(begin) },
        { BaseField::endDate, PlanTexts::text(lastDay()) },
        { BaseField::planOtherParam, otherParam(*this, security) },
    };
    addPrices(*this, record);
    if (!assignee.isEmpty())
        record.insert(isReduction() ? BaseField::executeUser : BaseField::expectedUser, assignee);
    if (!remark.isEmpty())
        record.insert(BaseField::remark, remark);
    return record;
}

bool FormReading::operator==(const FormReading& other) const
{
    return values(*this) == values(other);
}
