#pragma once

#include <QAtomicInt>
#include <QHash>
#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>
#include <mutex>

/// The few services that the widgets ask, with answers that a test sets.
struct WidgetServices {
    static WidgetServices& instance();

    QHash<QString, QString> names; ///< symbol to Chinese name
    QAtomicInt nameLookups;
    QString agreementTitle;
    QString agreementText;
    QString signFailure; ///< reason that signing answers; empty for success
    QList<QPair<QString, QStringList>> signatures;
};

/// While one is there, no thread but the interface's gets a name: it waits for it.
class HeldNames {
public:
    HeldNames();
    void release() { m_lock.unlock(); }

private:
    std::unique_lock<std::mutex> m_lock;
};
