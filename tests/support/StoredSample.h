#pragma once

#include "AutoPlanField.h"
#include "PlanStore.h"

/// Plans for tests of stores, and what they refer to.
namespace StoredSample {

inline const QString& OtherParamKey = AutoPlanField::BaseField::planOtherParam;
inline const QDateTime Morning(QDate(2024, 5, 6), QTime(9, 30, 0, 125));
inline const QDateTime Noon(QDate(2024, 5, 6), QTime(12, 0));
inline const Change AtMorning{ QStringLiteral("u"), Morning };
inline const Change AtNoon{ QStringLiteral("u"), Noon };

inline PlanStore::Record sampleRecord()
{
    return { { QStringLiteral("symbol"), QStringLiteral("600000.SH") },
        { QStringLiteral("remark"), QStringLiteral("分批买入 \"一\"; DROP TABLE plans") },
        { QStringLiteral("expectedUser"), QStringLiteral("") },
        { OtherParamKey, QStringLiteral("{\"JCRatio\":\"0.5\"}") } };
}

/// Statements that add what the plans refer to.
inline QStringList parents()
{
    return {
        QStringLiteral("INSERT INTO users VALUES ('u', 'u'), ('trader01', 't'), ('restored', 'r')"),
        QStringLiteral("INSERT INTO securities VALUES (1, '600000.SH', 'n', 't', 's', 'e', 2, 1, 100, 100, '', ''),"
                       " (2, '000001.SZ', 'n', 't', 's', 'e', 2, 1, 100, 100, '', '')"),
    };
}

} // namespace StoredSample
