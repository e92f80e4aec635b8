#include "WidgetServices.h"

#include "BondConversion.h"
#include "OrloBusinessDataInterface.h"
#include "Signatures.h"

#include <QCoreApplication>
#include <QThread>

namespace {

std::mutex& gate()
{
    static std::mutex mutex;
    return mutex;
}

} // namespace

HeldNames::HeldNames()
    : m_lock(gate())
{
}

WidgetServices& WidgetServices::instance()
{
    static WidgetServices services;
    return services;
}

QString OrloBusinessDataInterface::GetSecurityChineseName(const QString& symbol)
{
    std::unique_lock<std::mutex> passed(gate(), std::defer_lock);
    if (QThread::currentThread() != qApp->thread())
        passed.lock();
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

Status bondConversionError(const QString&, const QString&, const QString&)
{
    return {};
}

Status signAgreement(const QString& protocolId, const QStringList& clientNumbers)
{
    WidgetServices& services = WidgetServices::instance();
    if (services.signing)
        services.signatures.append({ protocolId, clientNumbers });
    return services.signing;
}
