#pragma once

#include "Status.h"

#include <QString>
#include <QStringList>

/// Stored agreements and their signatures.

/// Title of an agreement (`Orlo_Values::ProtocolId`); empty if the store has no such agreement.
QString agreementTitle(const QString& protocolId);

/// Text of an agreement as plain text; empty if the store has no such agreement.
QString agreementText(const QString& protocolId);

/// Stores the clients' signatures of an agreement with the logged-in user and the present time, all of them or none. If
/// COMMIT failed, they are looked up; `OutcomeUnknown` if that fails, too.
Status signAgreement(const QString& protocolId, const QStringList& clientNumbers);
