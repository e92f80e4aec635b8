#pragma once

#include "TableWriter.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

/// What a file of a kind contains: the columns with their names.
struct TransferForm {
    struct Column {
        /// The English name, which is also the key in JSON.
        QString id;
        /// The Chinese name.
        QString caption;
        CellType type = CellType::Text;
        bool isRequired = false;
        /// Other names, for example of other programs.
        QStringList others = {};

        /// The name in the language in use.
        QString name() const;
    };

    /// The name on the command line.
    QString id;
    /// As shown to the user, untranslated.
    const char* caption;
    QVector<Column> columns;

    /// As shown to the user.
    QString name() const;

    /// The number of the column with a name, in any case; -1 if there is none.
    int columnNamed(const QString& name) const;
    /// The columns of an exported file.
    QVector<TableColumn> tableColumns() const;
};

namespace TransferForms {

/// The columns of each kind, in the order of its form.
namespace SecurityColumn {
enum { Symbol, Name, Type, SubType, Decimals, Factor, Step, Limit, Flag, FlagText };
}
namespace CloseColumn {
enum { Symbol, Day, Close };
}
namespace AccountColumn {
enum { Account, Name, Fund, Client, Branch, Asset, FirstExchange };
}
namespace UserColumn {
enum { User, Name, Account, Types, Review };
}
namespace ChainColumn {
enum { Account, Type, Executors, Reviewers };
}
namespace PositionColumn {
enum { Account, Symbol, SecurityAccount, Quantity, Tradeable };
}
namespace ClosureColumn {
enum { Market, Day, Holiday, Status };
}
namespace PlanColumn {
enum {
    Plan,
    Version,
    Created,
    State,
    Account,
    InstructionType,
    PlanType,
    Symbol,
    Side,
    PriceMode,
    Price1,
    Price2,
    Quantity,
    Amount,
    DailyQuantity,
    DailyAmount,
    Ratio,
    Begin,
    End,
    Mode,
    Assignee,
    Executor,
    PriceType,
    EntrustType,
    Algorithm,
    Parameters,
    Remark
};
}

/// The kinds that can be imported, in the order in which one needs the others: closures, securities, closes, accounts,
/// users, chains, positions, plans.
const TransferForm& closures();
const TransferForm& securities();
const TransferForm& closes();
const TransferForm& accounts();
const TransferForm& users();
const TransferForm& chains();
const TransferForm& positions();
const TransferForm& plans();
/// Plans that take what their rows do not have from a template; only the security is needed.
const TransferForm& planSheet();
QVector<TransferForm> importable();

/// Those that are only exported.
const TransferForm& instructions();
const TransferForm& history();
const TransferForm& journal();
QVector<TransferForm> exportable();

} // namespace TransferForms
