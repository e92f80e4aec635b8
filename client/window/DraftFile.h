#pragma once

#include "FormDraft.h"

#include <QThreadPool>

#include <memory>

class QLockFile;

/// The drafts of the open forms, in a file beside the user's settings that only he can read. Each running client has
/// its own; what a client leaves behind that was killed, the next one of the same user and database takes over.
class DraftFile {
public:
    DraftFile();
    /// Returns when everything is written.
    ~DraftFile();

    /// Those that were taken over and neither opened nor dropped since.
    const QVector<FormDraft>& left() const { return m_left; }
    /// Writes a draft, or its new contents, on another thread.
    void keep(const FormDraft& draft);
    /// Removes a draft, if there is such.
    void drop(const QString& id);

private:
    void takeOver();
    void write();

    QString m_file; ///< empty if none can be used
    std::unique_ptr<QLockFile> m_lock;
    QVector<FormDraft> m_left;
    QVector<FormDraft> m_open;
    QThreadPool m_writer;
};
