#pragma once

#include "Status.h"

#include <QDate>
#include <QSet>
#include <QString>
#include <QStringList>

/// The programs of the client.
enum class Program { Client, WalkThrough };

/// The parsed command line of a program.
struct Options {
    QString user;          ///< user id; empty for the sample's first user
    QString database;      ///< database file; empty for the one in the user's data folder
    QString skin;          ///< name of a skin, see `skinNames`
    QString strategies;    ///< folder of strategy files; empty for none
    int securities = 0;    ///< securities of a new database; 0 for the default number
    QString folder;        ///< folder of the walk-through; empty for the client
    QDate issueDay;        ///< day to issue instructions for; invalid for the window
    QDate day;             ///< of the command; invalid for today
    QString command;       ///< name of a command, see `commandForms`; empty for none
    QStringList arguments; ///< of the command, as many as its form asks for
    QString templatePlan;  ///< plan that imported plans are made from; empty for none
    QSet<QString> flags;   ///< names of the command's options without a value
    QString help;          ///< text to print instead of anything else; empty unless requested

    /// True if the program shows its window, which needs a display.
    bool wantsWindow() const { return help.isEmpty() && folder.isEmpty() && command.isEmpty() && !issueDay.isValid(); }
};

/// The language that a command line names, a code of `languageCodes`; the default one unless it names another.
QString languageIn(const QStringList& arguments);
/// Parses a command line, which starts with the program's name. Needs the application object.
Result<Options> readOptions(const QStringList& arguments, Program program);
