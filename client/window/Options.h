#pragma once

#include "Status.h"

#include <QDate>
#include <QString>
#include <QStringList>

/// The programs of the client.
enum class Program { Client, WalkThrough };

/// What a program was asked to do on its command line.
struct Options {
    QString user;       ///< user id; empty for the sample's first user
    QString database;   ///< database file; empty for the one in the user's data folder
    QString skin;       ///< name of a skin, see `skinNames`
    QString language;   ///< code of the form's language, see `languageCodes`
    int securities = 0; ///< securities of a new database; 0 for the usual number
    QString folder;     ///< folder of the walk-through; empty for the client
    QDate issueDay;     ///< day to issue instructions for; invalid for the window
    QString help;       ///< text to print instead of anything else; empty when none was asked for

    /// True when the window is wanted, which needs a display.
    bool wantsWindow() const { return help.isEmpty() && folder.isEmpty() && !issueDay.isValid(); }
};

/// Reads a command line, the program's name first. Needs the application object.
Result<Options> readOptions(const QStringList& arguments, Program program);
