#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <QVector>

/// A row of one of the advisor's tables.
struct AdvisorRow {
    /// How the row is emphasised.
    enum class Mark { Plain, Shaded, Faint, Good, Bad, Doubtful };

    QStringList cells;
    Mark mark = Mark::Plain;
    QString key;            ///< what the row is about: the object name of a field, or the name of a price; may be empty
    QStringList hints = {}; ///< tool tips of cells that are shortened; none for all others

    bool operator==(const AdvisorRow& other) const
    {
        return cells == other.cells && mark == other.mark && key == other.key && hints == other.hints;
    }
};

using AdvisorRows = QVector<AdvisorRow>;

/// A column of one of the tables.
struct AdvisorColumn {
    QString heading;
    int share; ///< its part of the width, compared with the other columns
    bool isNumber = false;
};

using AdvisorColumns = QVector<AdvisorColumn>;

/// The context of the advisor's texts, and how it writes numbers.
class Advisor {
    Q_DECLARE_TR_FUNCTIONS(Advisor)

public:
    /// A number with separators between thousands.
    static QString number(double value, int decimals = 0);
};
