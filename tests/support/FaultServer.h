#pragma once

#include <QString>
#include <QtGlobal>

/// The server of `scripts/team-server` in the folder TEAM_SERVER, which no other program uses meanwhile. It may be
/// killed, and its disk may be full.
namespace FaultServer {

/// Starts it, unless it is running.
void start();
/// `mode` as in PostgreSQL: "fast" ends all connections, "immediate" is like a crash.
void stop(const QString& mode);

/// Starts a replica of it, which ends with it, and returns its port.
quint16 startReplica();

/// Files of the server whose path contains a text cannot be written from now on.
void fillDisk(const QString& part);
void makeRoom();

} // namespace FaultServer
