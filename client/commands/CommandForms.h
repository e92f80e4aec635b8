#pragma once

#include <QCoreApplication>
#include <QMap>
#include <QStringList>

/// Names of the commands' options without a value.
namespace Flag {
inline const QString Json = QStringLiteral("json");
inline const QString IssuePreview = QStringLiteral("issue-preview");
inline const QString Simulate = QStringLiteral("simulate");
inline const QString Sample = QStringLiteral("sample");
inline const QString Review = QStringLiteral("review");
inline const QString PasswordFromInput = QStringLiteral("password-stdin");
inline const QString GeneratePassword = QStringLiteral("generate-password");
inline const QString Replace = QStringLiteral("replace");
inline const QString DryRun = QStringLiteral("dry-run");
inline const QString Yes = QStringLiteral("yes");
inline const QString LeaveOut = QStringLiteral("leave-out");
inline const QString Empty = QStringLiteral("empty");
} // namespace Flag

/// The context of the commands' texts.
class CommandTexts {
    Q_DECLARE_TR_FUNCTIONS(Commands)
};

/// What a command looks like on the command line.
struct CommandForm {
    QString arguments; ///< as shown to the user
    int fewest;        ///< arguments
    int most;          ///< arguments; -1 for any number
    QStringList options;
    QString purpose;
};

/// A command of a command line.
struct Command {
    QString name;
    QStringList arguments;
};

/// The commands by name, which the program executes instead of showing its window. Those of an administrator have two
/// words, the first of which is `adminCommand`.
QMap<QString, CommandForm> commandForms();
QString adminCommand();
QString checkStrategiesCommand();
/// The second words.
QStringList adminNames();
/// The commands that have an option.
QStringList commandsWith(const QString& option);
/// The command's name and arguments; an empty name without words.
Command commandOf(const QStringList& words);
/// A line for each command.
QString commandsText();
