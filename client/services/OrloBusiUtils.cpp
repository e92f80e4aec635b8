#include "OrloBusiUtils.h"

#include "services/EntrustTypes.h"

QString OrloBusiUtils::GetSideUnionChineseName(const QString& sideUnion)
{
    return entrustTypeOfCode(sideUnion).name;
}
