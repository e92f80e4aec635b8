#pragma once

#include <QHash>
#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>

/// The few services that the widgets ask, with answers that a test sets.
struct WidgetServices {
    static WidgetServices& instance();

    QHash<QString, QString> names; ///< symbol to Chinese name
    int nameLookups = 0;
    QString agreementTitle;
    QString agreementText;
    QString signFailure; ///< reason that signing answers; empty for success
    QList<QPair<QString, QStringList>> signatures;
};
