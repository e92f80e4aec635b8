#pragma once

/// Entrust type of a margin instruction as a number, see `InstructionBusinessDataInterface::transSideUnion2Enum`.
/// The numbers are stored in plans and must not change.
enum class VorMarginTradeType {
    None = 0,
    CollateralBuy = 1,
    CollateralSell = 2,
    MarginBuy = 3,
    MarginSell = 4,
    FinancingBuy = 5,
    FinancingSell = 6,
    MarginBuyNormal = 7,
    MarginSellNormal = 8,
    BondConversion = 9,
    PaidRationShare = 10,
};
