#include "AutoParamSetting.h"
#include "AutoPlanField.h"
#include "CBusinessDataBase.h"
#include "ComboItems.h"
#include "InstructionBusinessDataInterface.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "OrloBusinessDataInterface.h"
#include "OrloConstants.h"
#include "Orlo_Fields.h"
#include "ParamListWidget_single.h"
#include "PlanVocabulary.h"
#include "QuantityRounding.h"
#include "ui_AutoParamSetting.h"

#include <QDebug>
#include <QJsonDocument>
#include <QLocale>

namespace {

namespace Base = AutoPlanField::BaseField;

// A reduction has no end, but every record has an end date.
constexpr int OpenEndYears = 100;

QString wholeNumberText(qint32 value)
{
    return QString::number(value, 'f', 0);
}

// `QDate::toString()` would use the digits of the system's language.
QString dateText(const QDate& date)
{
    return QLocale::c().toString(date, OrloConstants::DateTimeFormatString::STD_DATE_FORMAT);
}

QString loggedInUser()
{
    return CBusinessDataBase::GetInstance()
        ->GetLoginAccountDetail()
        .value(Kelvo_Fields::UserAccount::userID)
        .toString();
}

void insertAccountAndSecurity(
    FieldMap& record, const Ui::AutoParamSetting& ui, const QMap<QString, tagUserAccountInfo>& accounts)
{
    const QString tradingAccount = ui.combx_fundAccount->GetCurTradingAccount();
    record.insert(Kelvo_Fields::UserAccount::tradingAccount, tradingAccount);
    record.insert(AutoPlanFieldId::Account10112, accounts.value(tradingAccount).branchNo);

    const QString symbol = ui.le_symbol->getSymbol();
    const QString exchange = OrloBusinessDataInterface::GetFirstSecurityExchangeBySymbol(symbol);
    record.insert(Kelvo_Fields::Security::symbol, symbol);
    record.insert(Kelvo_Fields::UserAccount::securityExchange, exchange);

    const QString securityAccount =
        OrloBusinessDataInterface::GetCurrentSecurityAccountByTradingAndExchange(tradingAccount, exchange);
    record.insert(Kelvo_Fields::UserAccount::securityAccount, securityAccount);
    qDebug() << "AutoParamSetting::procUiDataByCreatePlan" << symbol << ui.combx_fundAccount->GetCurFundAccount()
             << securityAccount << exchange;
}

void insertPrice(FieldMap& record, const Ui::AutoParamSetting& ui)
{
    const QString priceMode = currentCode(ui.combx_priceMode);
    record.insert(Base::priceModel, priceMode);
    record.insert(Base::priceFormula1, ui.lineEdit_price1->text());
    // The fixed price exists only in the no-limit mode; in the other modes the formulas apply.
    if (priceMode == AutoPlanPriceModel::NoLimit)
        record.insert(Base::priceFixed, ui.lineEdit_price1->text());
    if (priceMode == AutoPlanPriceModel::CompareMax || priceMode == AutoPlanPriceModel::CompareMin)
        record.insert(Base::priceFormula2, ui.lineEdit_price2->text());
}

void insertAssignee(FieldMap& record, const Ui::AutoParamSetting& ui)
{
    const QString user = ui.combx_assignTo->currentText();
    // A reduction requires an executor, so the text is always stored.
    if (currentCode(ui.combx_planType) == AutoPlanTemplate::ReduceHoldings)
        record.insert(Base::executeUser, user);
    else if (user != AutoPlanAssignee::NotSpecified)
        record.insert(Base::expectedUser, user);
}

void insertDates(FieldMap& record, const Ui::AutoParamSetting& ui)
{
    if (ui.date_effectivePeriod_Multi->isVisible()) {
        record.insert(Base::beginDate, dateText(ui.date_effectivePeriod_Multi->GetStartDate()));
        record.insert(Base::endDate, dateText(ui.date_effectivePeriod_Multi->GetEndDate()));
    }
    if (ui.date_effectivePeriod_Single->isVisible()) {
        const QDate date = ui.date_effectivePeriod_Single->GetDate();
        record.insert(Base::beginDate, dateText(date));
        record.insert(Base::endDate, dateText(date.addYears(OpenEndYears)));
    }
}

// A missing target type means a quantity order, as in every plan stored before amounts were introduced.
void insertTarget(FieldMap& other, const Ui::AutoParamSetting& ui, int factor)
{
    const QString targetType = currentCode(ui.combx_instructionTargetType);
    if (targetType == InstructionTargetType::AmountOrder) {
        other.insert(AutoPlanFieldId::TargetType, targetType);
        other.insert(Base::tradeAmount, ui.le_targetTotalNum->GetStrValue());
        other.insert(Base::dayMaxTradeAmount, ui.le_entrustMaxNum->GetStrValue());
    }
    // Stored for amounts too: the key depends only on the field's visibility.
    if (ui.le_entrustMaxNum->isVisible())
        other.insert(
            AutoPlanField::Progress::CurrentQty, wholeNumberText(storedQuantity(ui.le_entrustMaxNum->value(), factor)));
}

void insertAlgorithm(FieldMap& other, const Ui::AutoParamSetting& ui, const ParamListWidget_single* algorithm)
{
    if (!algorithm || currentCode(ui.combx_instructionMode) != AutoPlanInstMode::AlgoTradeReview)
        return;
    other.insert(Base::algoParam, algorithm->GetParamMap());
    other.insert(Base::algoStrategyName, algorithm->GetStrategyName());
}

void insertReduction(FieldMap& other, const Ui::AutoParamSetting& ui)
{
    if (currentCode(ui.combx_planType) != AutoPlanTemplate::ReduceHoldings)
        return;
    other.insert(Base::JCRatio, ui.le_reduceHRatio->GetStrValue());
    other.insert(Base::JCModel, currentCode(ui.combx_reduceHMode));
}

void insertOrderTypes(FieldMap& other, const Ui::AutoParamSetting& ui)
{
    if (ui.combx_priceType->isVisible())
        other.insert(Kelvo_Fields::Security::timeInForce, currentCode(ui.combx_priceType));
    if (ui.combx_entrustType->isVisible()) {
        const VorMarginTradeType type =
            InstructionBusinessDataInterface::transSideUnion2Enum(currentCode(ui.combx_entrustType));
        other.insert(AutoPlanFieldId::MarginInstructionSideType, QString::number(static_cast<int>(type)));
    }
}

} // namespace

QMap<QString, QVariant> AutoParamSetting::procUiDataByCreatePlan()
{
    FieldMap record;
    FieldMap other;
    record.insert(Kelvo_Fields::UserAccount::userID, loggedInUser());
    record.insert(Orlo_Fields::AutoPlan::templateCode, currentCode(ui->combx_planType));
    record.insert(Orlo_Fields::AutoPlan::subType, currentCode(ui->combx_instructionType));
    insertAccountAndSecurity(record, *ui, m_accountInfoMap);
    record.insert(Base::orderSide, currentCode(ui->combx_tradeSide));
    insertPrice(record, *ui);

    const QString symbol = ui->le_symbol->getSymbol();
    const int factor = usableDisplayFactor(
        OrloBusinessDataInterface::GetDispFactorBySymbol(symbol), "AutoParamSetting::procUiDataByCreatePlan");
    record.insert(Base::totalQty, wholeNumberText(storedQuantity(ui->le_targetTotalNum->value(), factor)));
    record.insert(Base::InstMode, currentCode(ui->combx_instructionMode));
    insertAssignee(record, *ui);
    insertDates(record, *ui);

    insertTarget(other, *ui, factor);
    insertAlgorithm(other, *ui, m_algoParamWidget);
    other.insert(Base::securitySubType, CBusinessDataBase::GetInstance()->GetSecuritySubTypeBySymbol(symbol));
    insertReduction(other, *ui);
    insertOrderTypes(other, *ui);
    const QJsonDocument document = QJsonDocument::fromVariant(other);
    if (!document.isNull())
        record.insert(Base::planOtherParam, QString::fromUtf8(document.toJson(QJsonDocument::Compact)));

    if (!ui->le_remark->text().isEmpty())
        record.insert(Base::remark, ui->le_remark->text());
    return record;
}
