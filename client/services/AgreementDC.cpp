#include "AgreementDC.h"

#include "session/ClientSession.h"

AgreementDC& AgreementDC::instance()
{
    static AgreementDC agreements;
    return agreements;
}

QStringList AgreementDC::GetUnsignedClientNoList(const QString& protocolId)
{
    return ClientSession::instance().unsignedClients(protocolId);
}
