#pragma once

#include "Status.h"

#include <QVector>

/// What is to be said about a strategy of a file. Each remark has its line of the file.
struct StrategyRemarks {
    /// The first reason why the strategy cannot be read; success if it can.
    Status refusal;
    /// Why the strategy is not offered although it is valid.
    QVector<Status> obstacles;
    /// Departures from the standard that change nothing.
    QVector<Status> warnings;

    void refuse(qint64 line, const Status& error)
    {
        if (refusal)
            refusal = inLine(line, error);
    }
    void hinder(qint64 line, const Status& error) { add(obstacles, line, error); }
    void warn(qint64 line, const Status& error) { add(warnings, line, error); }
    /// Warns that an attribute has not its own value but what is meant by it, unless that is the same.
    void warnTakenAs(qint64 line, const char* attribute, const QString& value, const QString& meaning)
    {
        // An entry without an id has its text with other spaces.
        if (QString(meaning).replace(QChar::Nbsp, QLatin1Char(' ')) != value)
            warn(line, { Error::ValueTakenAs, { QLatin1String(attribute), value.left(64), meaning.left(64) } });
    }

    /// `error` with its line of the file.
    static Status inLine(qint64 line, const Status& error)
    {
        return { Error::StrategyFileLine, { QString::number(line) }, error };
    }

private:
    static constexpr int Most = 100;

    static void add(QVector<Status>& list, qint64 line, const Status& error)
    {
        const Status remark = inLine(line, error);
        if (list.size() < Most && !list.contains(remark))
            list.append(remark);
    }
};
