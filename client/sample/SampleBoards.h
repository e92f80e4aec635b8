#pragma once

#include <QString>
#include <QVector>

/// Codes of a board: `size` codes from `first` on.
struct CodeRange {
    int first;
    int size;
    /// Sub-type of the securities in the range.
    QString subType;
};

/// How the names and prices of a board's securities look.
enum class SampleKind { Share, Fund, Trust, Convertible, Bond, AssetBacked, DirectedConvertible, HongKong };

/// Securities that share their rules.
struct SampleBoard {
    SampleKind kind;
    QString type;
    QString exchange;
    QString suffix;
    QVector<CodeRange> ranges;
    /// Securities in a market of standard size.
    int standardCount;
    int limitPerMille;
    int pricePrecision;
    int displayFactor;
    /// In displayed units; 0 means that each security has its own.
    int quantityStep;

    /// Codes that the ranges hold together.
    int capacity() const;
};

/// The boards of the sample market in the market's order.
const QVector<SampleBoard>& sampleBoards();
