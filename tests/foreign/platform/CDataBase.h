#pragma once

#include <QString>

class CDataBase {
public:
    static CDataBase* GetInstance()
    {
        static CDataBase only;
        return &only;
    }
    QString GetStaticCfgValue(const QString& category, const QString& key) const
    {
        return category + QLatin1Char(' ') + key;
    }
};
