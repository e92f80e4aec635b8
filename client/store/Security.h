#pragma once

#include <QString>
#include <QtGlobal>

/// Suffixes of symbols besides those of `Kelvo_Values::SymbolPost`.
namespace SymbolSuffix {
inline const QString Bj = QStringLiteral(".BJ");
inline const QString Hk = QStringLiteral(".HK");
} // namespace SymbolSuffix

/// Special-treatment flags besides `Orlo_Values::StFlag::Normal`.
namespace SpecialTreatment {
/// Other risk warning; the name begins with "ST".
inline const QString St = QStringLiteral("ST");
/// Delisting risk warning; the name begins with "*ST".
inline const QString StarSt = QStringLiteral("*ST");
} // namespace SpecialTreatment

/// One security of the market.
struct Security {
    /// Code, point and market, for example "600000.SH".
    QString symbol;
    QString name;
    /// `Kelvo_Values::MdcSecurityType`.
    QString type;
    /// `MdcSubSecurityType` of `Kelvo_Values` or `Orlo_Values`.
    QString subType;
    /// `Exchange` of `Kelvo_Values` or `Orlo_Values`.
    QString exchange;
    /// Decimals of the price; a tick is one unit of the last one.
    int pricePrecision = 2;
    /// Displayed quantity = stored quantity × factor; never 0.
    int displayFactor = 1;
    /// Lot step in displayed units; never 0.
    int quantityStep = 1;
    /// Daily price limit up and down in thousandths of the previous close; 0 means no limit.
    int limitPerMille = 0;
    /// `Orlo_Values::StFlag::Normal` or a flag of `SpecialTreatment`.
    QString stFlag;
    /// A sentence about the special treatment; empty if there is none.
    QString stText;
    /// Last close in ticks; 0 if there is none yet.
    qint64 previousClose = 0;

    bool hasPriceLimit() const { return limitPerMille > 0; }
    /// The displayed quantity of a stored one. Both may be as large as their types allow.
    double displayed(qint64 stored) const { return static_cast<double>(stored) * displayFactor; }
};
