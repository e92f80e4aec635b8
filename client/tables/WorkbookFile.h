#pragma once

#include "Status.h"

#include <QByteArray>
#include <QIODevice>

#include <memory>

struct zip;
struct zip_file;

/// The files in a workbook, unpacked as they are read.
class WorkbookArchive {
public:
    WorkbookArchive(const QByteArray& bytes, qint64 largestContents);
    ~WorkbookArchive();
    WorkbookArchive(const WorkbookArchive&) = delete;
    WorkbookArchive& operator=(const WorkbookArchive&) = delete;

    /// Why nothing more can be read: there is no archive, or its contents are too large.
    const Status& status() const { return m_status; }
    bool contains(const QString& name) const;

private:
    friend class WorkbookFile;

    zip* m_archive = nullptr;
    const qint64 m_largest;
    qint64 m_read = 0; ///< bytes of all files
    Status m_status;
};

/// One of them, as a device for an XML reader. Ends with an error in a tag that is so long that its attributes would
/// take too much time, and in texts and nested elements that would take too much memory.
class WorkbookFile : public QIODevice {
public:
    WorkbookFile(WorkbookArchive& archive, const QString& name);
    ~WorkbookFile() override;

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* data, qint64 most) override;
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    bool isTooComplex(const char* data, qint64 size);
    void endTag();

    WorkbookArchive& m_archive;
    zip_file* m_file;
    int m_tagLength = 0;  ///< 0 outside of tags
    int m_textLength = 0; ///< since the last tag
    char m_quote = '\0';  ///< within an attribute
    char m_first = '\0';  ///< of the tag
    char m_last = '\0';
    int m_depth = 0; ///< of elements
};
