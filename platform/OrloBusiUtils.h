#pragma once

#include <QString>

/// Provides display texts of codes.
class OrloBusiUtils {
public:
    OrloBusiUtils() = delete;

    /// Returns the Chinese name of an entrust type (`Orlo_Values::SideUnion`); empty for any other code.
    static QString GetSideUnionChineseName(const QString& sideUnion);
};
