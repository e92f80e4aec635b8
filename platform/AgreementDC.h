#pragma once

#include <QStringList>

/// Records which clients have signed which agreements. One object per process.
class AgreementDC {
public:
    static AgreementDC& instance(); ///< returns the service, which lives as long as the process

    /// Returns the numbers of the logged-in user's clients that have not signed an agreement
    /// (`Orlo_Values::ProtocolId`).
    QStringList GetUnsignedClientNoList(const QString& protocolId);

private:
    AgreementDC() = default;
};
