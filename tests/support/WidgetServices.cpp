#include "WidgetServices.h"

#include "OrloBusinessDataInterface.h"
#include "services/Signatures.h"

WidgetServices& WidgetServices::instance()
{
    static WidgetServices services;
    return services;
}

QString OrloBusinessDataInterface::GetSecurityChineseName(const QString& symbol)
{
    ++WidgetServices::instance().nameLookups;
    return WidgetServices::instance().names.value(symbol);
}

QString agreementTitle(const QString&)
{
    return WidgetServices::instance().agreementTitle;
}

QString agreementText(const QString&)
{
    return WidgetServices::instance().agreementText;
}

QString signAgreement(const QString& protocolId, const QStringList& clientNumbers)
{
    WidgetServices& services = WidgetServices::instance();
    if (services.signFailure.isEmpty())
        services.signatures.append({ protocolId, clientNumbers });
    return services.signFailure;
}
