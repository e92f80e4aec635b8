#pragma once

#include "Status.h"

#include <QAtomicInt>
#include <QHash>
#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>

#include <mutex>

/// The services that the widgets call, with results that a test sets.
struct WidgetServices {
    static WidgetServices& instance();

    QHash<QString, QString> names; ///< symbol to Chinese name
    QAtomicInt nameLookups;
    QString agreementTitle;
    QString agreementText;
    Status signing; ///< the answer to a signature
    QList<QPair<QString, QStringList>> signatures;
};

/// While an instance exists, threads other than that of the user interface wait for names.
class HeldNames {
public:
    HeldNames();
    void release() { m_lock.unlock(); }

private:
    std::unique_lock<std::mutex> m_lock;
};
