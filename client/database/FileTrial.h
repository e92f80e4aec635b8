#pragma once

#include "Database.h"

#include <QLockFile>
#include <QTemporaryFile>

#include <optional>

/// Tries changes in a private copy of a database file, where they take as long as they need without a lock on the file,
/// and then makes the same changes in the file at once.
class FileTrial {
public:
    /// Removes the copies of programs that were killed. `file`: an opened file.
    explicit FileTrial(Database& file);
    ~FileTrial();
    FileTrial(const FileTrial&) = delete;
    FileTrial& operator=(const FileTrial&) = delete;

    /// Runs `work` within a transaction of the copy. If it succeeds, its changes are kept for `apply`.
    Status run(const std::function<Status(Database& copy)>& work);
    /// Makes the changes in one transaction. Absent if they do not fit, because somebody has changed the file since
    /// it was copied; nothing is stored then.
    std::optional<Status> apply();

private:
    Status copyFile();
    Status makeChanges(bool& isPossible);

    Database& m_file;
    const QString m_folder; ///< of the copy
    QLockFile m_lock;       ///< held as long as the folder may exist
    QTemporaryFile m_changes;
    QString m_version; ///< of the file's contents in the copy
};
