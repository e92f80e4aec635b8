#include "CDataBase.h"

#include "session/ClientSession.h"

CDataBase* CDataBase::GetInstance()
{
    static CDataBase configuration;
    return &configuration;
}

QString CDataBase::GetStaticCfgValue(const QString& category, const QString& key, const QString& defaultValue)
{
    const QString text = ClientSession::instance().staticText(category, key);
    return text.isEmpty() ? defaultValue : text;
}
