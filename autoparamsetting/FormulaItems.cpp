#include "FormulaItems.h"

#include "PlanVocabulary.h"

#include <algorithm>

QStringList inPromptOrder(QStringList names)
{
    const auto position = [](const QString& name) { return AutoPlanFormula::PromptOrder.indexOf(name); };
    std::stable_sort(names.begin(), names.end(),
        [position](const QString& a, const QString& b) { return position(a) < position(b); });
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
