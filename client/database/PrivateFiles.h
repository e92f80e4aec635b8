#pragma once

#include <QString>

/// Files and folders that only their owner can read and write.
namespace PrivateFiles {

/// Creates a folder and its missing parents with mode 0700. Present ones stay as they are. False if it fails.
bool makeFolder(const QString& path);

/// Creates an empty file with mode 0600. False if it exists or cannot be created.
bool makeFile(const QString& path);

/// Writes a file and its entry in the folder to the disk. False if it fails.
bool flush(const QString& path);

} // namespace PrivateFiles
