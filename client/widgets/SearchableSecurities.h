#pragma once

#include <QObject>
#include <QStringList>
#include <QVector>

/// The securities of a search box, as a child of it. The box offers only its choice to the editor; the client's own
/// widgets find the list here.
class SearchableSecurities : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    QVector<QStringList> runs;
};
