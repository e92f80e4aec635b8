#pragma once

#include <QString>

/// Display texts of codes.
class OrloBusiUtils {
public:
    OrloBusiUtils() = delete;

    /// Chinese name of an entrust type (`Orlo_Values::SideUnion`); empty when the code is none.
    static QString GetSideUnionChineseName(const QString& sideUnion);
};
