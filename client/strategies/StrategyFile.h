#pragma once

#include "StrategyReader.h"

#include <QIODevice>
#include <QString>
#include <QVector>

/// What a strategy file contains, as far as it could be read.
struct StrategyFile {
    QString name;
    /// Why nothing of the file was read; success if the strategies were read or refused one by one.
    Status failure;
    /// Departures from the standard outside the strategies, with their lines.
    QVector<Status> warnings;
    QVector<ReadStrategy> strategies;

    /// Reads a FIXatdl 1.1 file; the path may be that of a resource. Nothing that the file links to is read.
    static StrategyFile read(const QString& path);
    /// Reads an open device; `name` is the file's name in messages.
    static StrategyFile read(QIODevice& device, const QString& name);
};
