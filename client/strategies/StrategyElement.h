#pragma once

#include "Status.h"

#include <QString>
#include <QVector>

#include <vector>

/// One element of a strategy file with everything in it.
struct StrategyElement {
    struct Attribute {
        QString name; ///< "xsi:" in front if it belongs to XML Schema, "?:" if it belongs to another namespace
        QString value;
    };

    QString name;              ///< without prefix; with the file's prefix if the namespace does not belong to FIXatdl
    bool isForeign = false;    ///< the namespace does not belong to FIXatdl
    bool isInOddSpace = false; ///< the namespace is one of FIXatdl, but not the one of this element
    QString type;              ///< xsi:type without prefix; empty if there is none
    bool isTypeInOddSpace = false;
    QString text; ///< the character data, without those parts that are blank
    QVector<Attribute> attributes;
    std::vector<StrategyElement> children;
    qint64 line = 0; ///< where the start tag ends
};

/// A strategy file as elements.
struct StrategyDocument {
    StrategyElement root;
    QVector<Status> warnings; ///< with their lines

    /// Parses a text, which must have passed `StrategyMarkup::check`. Fails with the line if the text is not XML,
    /// declares document types or entities, or exceeds `StrategyLimits`. `warnings` precede those of the document.
    static Result<StrategyDocument> parse(const QString& text, const QVector<Status>& warnings);
};
