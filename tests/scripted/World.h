#pragma once

#include "SymbolList.h"
#include "tagUserAccountInfo.h"

#include <QDate>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>

using FieldMap = QMap<QString, QVariant>;

/// The answer of a service: a fixed value, or a function of the arguments.
template <class Result, class... Arguments> class Answer {
public:
    using Function = std::function<Result(const Arguments&...)>;

    /// Returns a default value until an answer is assigned.
    Answer() { *this = Result(); }
    Answer& operator=(const Result& always)
    {
        m_function = [always](const Arguments&...) { return always; };
        return *this;
    }
    Answer& operator=(const Function& function)
    {
        m_function = function;
        return *this;
    }

    Result operator()(const Arguments&... arguments) const { return m_function(arguments...); }

private:
    Function m_function;
};

/// One account, and the user's authorities for it.
struct ScriptAccount : tagUserAccountInfo {
    bool isCredit = false;
    QStringList exchanges; ///< exchanges with a security account
    QStringList types;     ///< instruction types that the user may place
};

/// The client's data of one security.
struct ScriptSecurity {
    QString exchange;
    QString type;
    QString subType;
    QString chineseName;
    int qtyStep = 0;
    int displayFactor = 1;
    int pricePrecision = 2;
    bool hasPriceLimit = false;
    QString stFlag;        ///< empty counts as `Orlo_Values::StFlag::Normal`
    QString stDescription; ///< the sentence about a special treatment
};

/// A query for the symbols of a type; empty lists do not restrict it.
struct SymbolQuery {
    QString type;
    QStringList subTypes;
    QStringList suffixes;
};

/// A client and its services, as plain data and typed answers. The scripted platform answers from it, and the model of
/// the editor reads it. At first there is no account, and the trade dates are the weekdays from 2024-05-01 to
/// 2025-04-30.
struct World {
    World();

    // --- Accounts
    QList<ScriptAccount> accounts;
    int ruleProperty = 0;              ///< for every account and type except those below
    QMap<QString, int> ruleProperties; ///< by "account/type"
    FieldMap loginAccountDetail;
    QStringList unsignedClients;
    bool signsWhenAsked = false;               ///< whether the trader signs the agreement when its dialog opens
    Answer<QStringList, QString> executeUsers; ///< by chain
    Answer<QStringList, QString> forwardUsers; ///< by chain
    Answer<QList<FieldMap>, QString, QString, QString> positions; ///< by account, security account, symbol

    // --- Securities
    QMap<QString, ScriptSecurity> securities;
    std::function<SymbolList(const SymbolQuery&)> symbols;         ///< by default the matching ones of `securities`
    QMap<QString, QString> staticTexts;                            ///< by "category/key"
    Answer<bool, QString, QString, QString> bondConversionEnabled; ///< by account, symbol, side

    // --- Plans
    QString createAnswer;
    QString modifyAnswer;
    QMap<QString, FieldMap> plans; ///< by id
    /// The answer of `GetPlanOtherParamFromPlanInfo`; by default the decoded text of the record.
    std::function<FieldMap(const FieldMap& record)> otherParam;
    Answer<QMap<QString, FieldMap>, QString> planInstructions; ///< by plan id
    Answer<QList<QDate>, QString> tradeDates;                  ///< by exchange
    Answer<QString, QString> tradeDatesError;                  ///< by exchange

    // --- Algorithms
    QMap<QString, QString> strategyAliases;                        ///< the known strategies by name
    Answer<QStringList, QString, QString, QString> whiteAlgoNames; ///< by instruction type, target type, symbol
    Answer<QStringList, QString> blackAlgoNames;                   ///< by target type
    QStringList authorityAlgoNames;
    QString panelLoadAnswer = QStringLiteral("0");

    /// Adds an account with a security account on each exchange and authority for each instruction type. Fund account
    /// "F-", client number "C-" and branch "B-" are made from the trading account.
    void addAccount(const QString& tradingAccount, const QStringList& exchanges, const QStringList& instructionTypes,
        bool isCredit = false);
    /// Adds an account that may do everything except margin trading, on all four exchanges.
    void addOrdinaryAccount(const QString& tradingAccount);
    /// Adds a credit account on Shanghai and Shenzhen.
    void addCreditAccount(const QString& tradingAccount);
    /// Adds a security; the end of its symbol gives the exchange.
    void addStock(const QString& symbol);
    void addBond(const QString& symbol, int displayFactor = 1);
    void addHkStock(const QString& symbol, int qtyStep);
    /// Stores a created plan and returns its new id, "P" and a number.
    QString storePlan(const FieldMap& record);

    /// The first account with a trading account; an empty one if there is none.
    ScriptAccount account(const QString& tradingAccount) const;
    ScriptSecurity security(const QString& symbol) const;
    /// "S-account-exchange"; empty if the account is not on the exchange.
    QString securityAccount(const QString& tradingAccount, const QString& exchange) const;
    int rule(const QString& tradingAccount, const QString& instructionType) const;
    QString chain(const QString& tradingAccount, const QString& instructionType) const;
    QString staticText(const QString& category, const QString& key) const;
    SymbolList symbolsOf(const SymbolQuery& query) const;
    FieldMap otherParamOf(const FieldMap& record) const;
};

/// The four exchanges.
QStringList exchanges();
/// Entrust types by their number in a record.
QStringList entrustTypes();
