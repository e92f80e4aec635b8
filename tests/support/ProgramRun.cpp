#include "ProgramRun.h"

ProgramEnd runProgram(
    const QString& file, const QStringList& arguments, const QProcessEnvironment& environment, const QByteArray& input)
{
    constexpr int Timeout = 100000; // milliseconds, for a walk-through on a busy machine
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(file, arguments);
    program.write(input);
    program.closeWriteChannel();
    if (!program.waitForFinished(Timeout))
        return ProgramEnd();
    return { program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()),
        QString::fromUtf8(program.readAllStandardError()) };
}
