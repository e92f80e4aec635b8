#include "FormulaItems.h"

#include "PlanVocabulary.h"
#include <algorithm>

QStringList inPromptOrder(QStringList names)
{
    const QStringList& order = AutoPlanFormula::PromptOrder;
    std::stable_sort(names.begin(), names.end(),
        [&order](const QString& a, const QString& b) { return order.indexOf(a) < order.indexOf(b); });
    return names;
}

QStringList functionItems(const QString& priceMode)
{
    return priceMode == AutoPlanPriceModel::Custom ? AutoPlanFormula::CompareFunctions : QStringList();
}

QString zeroPrice(int decimals)
{
    return QString::number(0.0, 'f', decimals);
}
