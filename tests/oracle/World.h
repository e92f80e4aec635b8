#pragma once

#include <QDate>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <vector>

// What the client's services know and answer, as plain data. The oracle and the scripted platform are both fed from it.

namespace oracle {

using FieldMap = QMap<QString, QVariant>;

struct Account {
    QString trading;
    QString fund;
    QString client;
    QString branch;
    bool isCredit = false;
    QStringList exchanges; ///< on which it has a security account
    QStringList types;     ///< instruction types that the user may place
};

struct Security {
    QString symbol;
    QString exchange;
    QString type;
    QString subType;
    QString name;
    int step = 100;
    int factor = 1;
    int precision = 2;
    bool hasLimits = true;
    QString stFlag; ///< empty counts as normal
    QString stText;
};

/// How the plan service answers for its trade dates.
enum class Calendar { Weekdays, LongHoliday, EveryDay, Failure, FailureWithDates, Empty };
constexpr int CalendarCount = 6;

/// The accounts of a client come in these kinds.
enum class AccountKind {
    Ordinary,
    OrdinaryShanghai,
    Credit,
    HongKongOnly,
    BeijingBonds,
    BeijingStocks,
    CreditBeijing,
    NoAuthority,
    Twin
};
constexpr int AccountKindCount = 9;

struct World {
    QDate today = QDate(2024, 5, 6);
    QList<Account> accounts;
    QMap<QString, Security> securities;
    QMap<QString, int> rules;          ///< by "account/type"; 0 where absent
    QMap<QString, Calendar> calendars; ///< by exchange; weekdays where absent
    QStringList unsignedClients;
    int users = 0;      ///< which lists of users the chains have
    int algorithms = 0; ///< which algorithms are allowed and which the user is entitled to
    int holdings = 0;   ///< how much is held
    int spent = 0;      ///< what stored plans have issued so far
    bool convertsBonds = false;
    bool signsWhenAsked = false; ///< whether the trader signs the agreement when the dialog opens
    QString panelAnswer = QStringLiteral("0");
    QString serviceAnswer; ///< of create and modify
    QMap<QString, FieldMap> plans;
    int plansMade = 0;

    Security security(const QString& symbol) const;
    Account account(const QString& trading) const;
    QString securityAccount(const QString& trading, const QString& exchange) const;
    int rule(const QString& trading, const QString& type) const;
    QString configText(const QString& category, const QString& key) const;
    QMap<QString, QString> configTexts() const;

    QString chain(const QString& trading, const QString& type) const;
    QStringList executors(const QString& chainKey) const;
    QStringList forwardUsers(const QString& chainKey) const;

    QStringList whiteAlgorithms(const QString& type, const QString& target, const QString& symbol) const;
    QStringList blackAlgorithms(const QString& target) const;
    QStringList entitledAlgorithms() const;
    /// Alias by name, of the known strategies.
    QMap<QString, QString> strategies() const;

    QList<FieldMap> positions(const QString& trading, const QString& securityAccount, const QString& symbol) const;
    QMap<QString, FieldMap> instructions(const QString& planId) const;
    bool bondConversion(const QString& trading, const QString& symbol, const QString& side) const;

    QList<QDate> tradeDates(const QString& exchange) const;
    QString tradeDatesError(const QString& exchange) const;

    /// Symbols of a type in the market's order, as the two list queries answer them; empty lists do not restrict.
    QStringList symbols(const QString& type, const QStringList& subTypes, const QStringList& suffixes) const;

    FieldMap otherParam(const FieldMap& record) const;
    /// Keeps a created plan under a new id, which is returned.
    QString store(FieldMap record);
};

/// The accounts, each of a kind; numbers beyond the kinds count from the beginning.
QList<Account> accountsOf(const std::vector<int>& kinds);
/// The market in which every sequence trades.
QMap<QString, Security> sampleSecurities();
/// The exchanges of that market.
QStringList exchanges();
/// Entrust types by their number in a record.
QStringList entrustTypes();

/// A stored plan made from small numbers, also one that no editor would have built. The world tells accounts and today.
FieldMap planOf(const World& world, const std::vector<int>& numbers);
constexpr int PlanNumbers = 30;

} // namespace oracle
