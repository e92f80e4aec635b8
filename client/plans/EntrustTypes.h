#pragma once

#include "VorMarginTradeType.h"
#include <QString>
#include <QVector>

/// Everything that is known about one entrust type.
struct EntrustType {
    VorMarginTradeType number = VorMarginTradeType::None; ///< as stored in plans
    QString code;                                         ///< `Orlo_Values::SideUnion`
    QString name;                                         ///< as shown to the trader
};

/// All entrust types. The plain purchase has no number of its own, for it is none of a margin instruction.
const QVector<EntrustType>& entrustTypes();

/// The entrust type of a code; one with an empty code when there is none.
EntrustType entrustTypeOfCode(const QString& code);
/// The entrust type of a number; one with an empty code when there is none.
EntrustType entrustTypeOfNumber(VorMarginTradeType number);
