#pragma once

#include <QString>
#include <QStringList>

// The editor's own codes and texts, written down a second time: the oracle shares nothing with the editor.

namespace oracle {

inline const QString OrdinaryType = QStringLiteral("1");
inline const QString CreditType = QStringLiteral("2");
inline const QString BondType = QStringLiteral("5");
inline const QString HkType = QStringLiteral("9");

inline const QString Cumulative = QStringLiteral("TW-01");
inline const QString Average = QStringLiteral("TW-02");
inline const QString Same = QStringLiteral("TW-03");
inline const QString Reduction = QStringLiteral("JC-01");

inline const QString ActiveMode = QStringLiteral("1");
inline const QString ReviewMode = QStringLiteral("2");
inline const QString AlgoMode = QStringLiteral("3");

inline const QString NoLimit = QStringLiteral("1");
inline const QString CustomPrice = QStringLiteral("6");
inline const QString LargerPrice = QStringLiteral("7");
inline const QString SmallerPrice = QStringLiteral("8");

inline const QString Nobody = QStringLiteral("默认不指定");

inline const QString TargetTypeKey = QStringLiteral("57134");
inline const QString BranchKey = QStringLiteral("10112");
inline const QString MarginSideKey = QStringLiteral("MarginInstructionSideType");

inline const QString InstructionTypeTexts = QStringLiteral("AutoPlanInstructionType");
inline const QString TargetTypeTexts = QStringLiteral("InstructionTargetType");

/// "category/key" of the static configuration.
inline QString configKey(const QString& category, const QString& key)
{
    return category + QLatin1Char('/') + key;
}

} // namespace oracle
