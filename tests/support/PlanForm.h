#pragma once

#include "AutoPlanField.h"
#include "EditorForm.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloConstants.h"
#include "OrloDoubleSpinBox.h"
#include "Orlo_Fields.h"
#include "Script.h"
#include "VorSearchBox.h"
#include <QAbstractButton>
#include <QJsonDocument>
#include <QLineEdit>
#include <QLocale>
#include <QWidget>

// Fills the editor's form as a trader would, and makes the plans that a trader may have stored.

/// What a trader enters into a form whose account is chosen already: 1000 of a security in a custom price formula, at
/// most 100 a day.
inline void fillPlan(const QWidget& form, const QString& symbol, const QString& instructionType = QStringLiteral("1"))
{
    choose(form, "combx_instructionType", instructionType);
    chooseSecurity(form, symbol);
    choose(form, "combx_priceMode", QStringLiteral("6"));
    type(form, "lineEdit_price1", QStringLiteral("昨收价*1.01"));
    enter(form, "le_targetTotalNum", 1000);
    enter(form, "le_entrustMaxNum", 100);
}

/// A stored plan, as the plan service answers it: 1000 shares of a symbol by active management, to begin on 2024-06-03.
inline QMap<QString, QVariant> storedPlan(const QString& id, const QString& symbol, const QString& tradingAccount)
{
    using namespace AutoPlanField;
    const QMap<QString, QVariant> other{ { BaseField::securitySubType, QStringLiteral("any") },
        { Progress::CurrentQty, QStringLiteral("100") } };
    const QByteArray otherText = QJsonDocument::fromVariant(other).toJson(QJsonDocument::Compact);
    return {
        { BaseField::autoPlanId, id },
        { Orlo_Fields::AutoPlan::templateCode, QStringLiteral("TW-01") },
        { Orlo_Fields::AutoPlan::subType, QStringLiteral("1") },
        { Kelvo_Fields::UserAccount::tradingAccount, tradingAccount },
        { Kelvo_Fields::UserAccount::securityAccount, QStringLiteral("stored security account") },
        { Kelvo_Fields::Security::symbol, symbol },
        { BaseField::orderSide, Kelvo_Values::OrderSide::buy },
        { BaseField::priceModel, QStringLiteral("6") },
        { BaseField::priceFormula1, QStringLiteral("昨收价*1.02") },
        { BaseField::totalQty, QStringLiteral("1000") },
        { BaseField::InstMode, QStringLiteral("1") },
        { BaseField::beginDate,
            QLocale::c().toString(QDate(2024, 6, 3), OrloConstants::DateTimeFormatString::STD_DATE_FORMAT) },
        { BaseField::endDate,
            QLocale::c().toString(QDate(2024, 6, 28), OrloConstants::DateTimeFormatString::STD_DATE_FORMAT) },
        { BaseField::planOtherParam, QString::fromUtf8(otherText) },
    };
}

/// Replaces entries of a stored plan's other parameters.
inline void setOtherParam(QMap<QString, QVariant>& plan, const QString& key, const QVariant& value)
{
    const QString& otherParam = AutoPlanField::BaseField::planOtherParam;
    QVariantMap other = QJsonDocument::fromJson(plan.value(otherParam).toString().toUtf8()).toVariant().toMap();
    other.insert(key, value);
    plan.insert(otherParam, QString::fromUtf8(QJsonDocument::fromVariant(other).toJson(QJsonDocument::Compact)));
}
