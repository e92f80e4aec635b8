#include "PlanChanges.h"

#include "AutoPlanField.h"
#include "ErrorText.h"
#include "Kelvo_Fields.h"
#include "Orlo_Fields.h"
#include "PlanCodes.h"
#include "PlanTexts.h"

#include <QPair>
#include <QSet>
#include <QVector>

namespace BaseField = AutoPlanField::BaseField;
namespace UserAccount = Kelvo_Fields::UserAccount;
using namespace PlanCodes;
using Record = PlanStore::Record;

namespace {

/// Keys with their captions, in the order of the form.
// A table with a row for each field. NOLINTNEXTLINE(readability-function-size)
const QVector<QPair<QString, QString>>& knownFields()
{
    static const QVector<QPair<QString, QString>> fields{
        { UserAccount::tradingAccount, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "账户")) },
        { UserAccount::securityAccount, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "证券账户")) },
        { FieldId::Branch, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "营业部")) },
        { Orlo_Fields::AutoPlan::subType, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "指令类型")) },
        { FieldId::TargetType, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "指令单类型")) },
        { Orlo_Fields::AutoPlan::templateCode, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "计划类型")) },
        { Kelvo_Fields::Security::symbol, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "证券代码")) },
        { BaseField::securitySubType, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "证券子类型")) },
        { UserAccount::securityExchange, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "市场")) },
        { BaseField::orderSide, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "交易方向")) },
        { Kelvo_Fields::Security::timeInForce, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "报价类型")) },
        { Kelvo_Fields::Security::transActTime, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "报价类型")) },
        { FieldId::MarginSide, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "委托类别")) },
        { BaseField::priceModel, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "价格模式")) },
        { BaseField::priceFixed, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "价格")) },
        { BaseField::priceFormula1, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "价格1")) },
        { BaseField::priceFormula2, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "价格2")) },
        { BaseField::totalQty, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "目标总量")) },
        { BaseField::tradeAmount, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "目标金额")) },
        { AutoPlanField::Progress::CurrentQty, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "每日委托量")) },
        { BaseField::dayMaxTradeAmount, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "每日最大金额")) },
        { BaseField::JCRatio, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "减持占比")) },
        { BaseField::JCModel, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "减持模式")) },
        { BaseField::InstMode, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "下单模式")) },
        { BaseField::expectedUser, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "分配给")) },
        { BaseField::executeUser, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "执行人")) },
        { BaseField::beginDate, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "开始日期")) },
        { BaseField::endDate, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "结束日期")) },
        { BaseField::algoStrategyName, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "算法")) },
        { BaseField::algoParam, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "算法参数")) },
        { BaseField::remark, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "备注")) },
        { UserAccount::userID, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "操作用户")) },
    };
    return fields;
}

/// The record's fields and other parameters in one map.
Record flat(Record record)
{
    const QString json = record.take(BaseField::planOtherParam).toString();
    const auto others = PlanTexts::otherParam(json).value_or(Record());
    for (auto other = others.cbegin(); other != others.cend(); ++other)
        record.insert(other.key(), other.value());
    return record;
}

} // namespace

QString PlanChanges::caption(const QString& key)
{
    for (const auto& field : knownFields()) {
        if (field.first == key)
            return field.second;
    }
    return key;
}

QStringList PlanChanges::captions(const Record& before, const Record& after)
{
    const Record first = flat(before);
    const Record second = flat(after);
    QStringList changed;
    QSet<QString> left = QSet<QString>(first.keyBegin(), first.keyEnd());
    left.unite(QSet<QString>(second.keyBegin(), second.keyEnd()));
    const auto compare = [&](const QString& key) {
        if (left.remove(key) && first.value(key) != second.value(key))
            changed << captionText(caption(key));
    };
    for (const auto& field : knownFields())
        compare(field.first);
    // Other keys, of records that another version of the client wrote.
    const auto others = left.values();
    for (const QString& key : others)
        compare(key);
    changed.removeDuplicates();
    return changed;
}
