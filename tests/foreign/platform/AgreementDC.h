#pragma once

#include <QStringList>

class AgreementDC {
public:
    static AgreementDC& instance()
    {
        static AgreementDC only;
        return only;
    }
    QStringList GetUnsignedClientNoList(const QString&) const { return {}; }
};
