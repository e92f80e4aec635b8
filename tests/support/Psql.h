#pragma once

#include <QString>

/// What psql prints for statements in the schema of the client: the answer, or its errors and warnings. `password`: of
/// the role; empty for that of the password file.
QString psql(const QString& location, const QString& statements, const QString& password = {});
