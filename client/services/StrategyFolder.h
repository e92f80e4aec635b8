#pragma once

#include "StrategyFile.h"

#include <QDateTime>
#include <QFutureWatcher>
#include <QObject>
#include <QTimer>

/// The user's folder of strategy files. Reads them on a worker thread, and again when they have changed, puts the
/// usable strategies into the library and then answers a strategy query. It belongs to the user interface thread.
class StrategyFolder : public QObject {
    Q_OBJECT

public:
    /// A file of the folder at the time when it was read.
    struct Entry {
        QString path;
        QDateTime changed;
        qint64 size = 0;
        StrategyFile file;
    };
    using Entries = QVector<Entry>;

    static StrategyFolder& instance();

    /// Reads the files "*.xml" of a folder from now on; an empty path takes the user's strategies away.
    void open(const QString& path);
    QString path() const { return m_path; }
    /// What the files contained when they were read last.
    QVector<StrategyFile> files() const { return m_files; }
    /// Reads the files that have changed, now.
    void refresh();
    /// True while files are being read.
    bool isReading() const { return m_reading.isRunning(); }

Q_SIGNALS:
    /// The files were read for the first time or have changed.
    void changed();

private:
    StrategyFolder();

    void take();

    QString m_path;
    Entries m_entries;
    QVector<StrategyFile> m_files;
    QFutureWatcher<Entries> m_reading;
    QString m_readPath; ///< the folder that is being read
    QTimer m_timer;
    bool m_isRead = false; ///< the folder was read at least once
};
