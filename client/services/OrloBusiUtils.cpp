#include "OrloBusiUtils.h"

#include "plans/EntrustTypes.h"

QString OrloBusiUtils::GetSideUnionChineseName(const QString& sideUnion)
{
    return entrustTypeOfCode(sideUnion).name;
}
