#pragma once

#include "VorMarginTradeType.h"

#include <QString>
#include <QVector>

/// The properties of an entrust type.
struct EntrustType {
    VorMarginTradeType number = VorMarginTradeType::None; ///< as stored in plans
    QString code;                                         ///< `Orlo_Values::SideUnion`
    QString name;                                         ///< as shown to the trader
};

/// All entrust types. The plain purchase has no number, because margin instructions do not have it.
const QVector<EntrustType>& entrustTypes();

/// The entrust type with a code; one with an empty code if there is none.
EntrustType entrustTypeOfCode(const QString& code);
/// The entrust type with a number; one with an empty code if there is none.
EntrustType entrustTypeOfNumber(VorMarginTradeType number);
