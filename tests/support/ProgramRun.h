#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

/// How a program ended.
struct ProgramEnd {
    int code = -1;
    QString output;
    QString errors;
};

/// Runs a program to its end; code -1 if it does not end.
ProgramEnd runProgram(const QString& file, const QStringList& arguments,
    const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment(), const QByteArray& input = {});
