#pragma once

#include <QString>

struct OrloBusiUtils {
    static QString GetSideUnionChineseName(const QString& sideUnion) { return sideUnion; }
};
