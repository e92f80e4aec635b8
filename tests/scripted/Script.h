#pragma once

#include "AlgoErrorCode.h"
#include "SymbolList.h"
#include "tagUserAccountInfo.h"
#include <QDate>
#include <QList>
#include <QMap>
#include <QPoint>
#include <QStringList>
#include <QVariant>
#include <functional>

/// What the scripted platform knows about one security.
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

/// One message box that was shown.
struct ScriptBox {
    QString kind; ///< "warning", "error", "tip" or "question"
    QString text;
    QWidget* parent = nullptr; ///< to be compared, not to be used: it may be gone
};

/// Everything that the scripted platform answers and everything that it was asked. `reset()` between test functions.
class Script {
public:
    static Script& instance();

    /// Back to a client in which nobody has an account: every list is empty, every number the one that stands for
    /// "unknown", the trade dates are the weekdays of the twelve months from 2024-05-01.
    void reset();

    // --- What was asked

    /// Every call of a service and every changing operation of a platform widget, in order, with all arguments:
    /// `hasOrderAuthority(acc1, 1)`, `combx_fundAccount.setSearchEnabled(true)`. An empty text is written `""`, a list
    /// `[a, b]`, a map `{key: value}`. Operations of two services with one name carry their class:
    /// `CBusinessDataBase::GetSecuritySubTypeBySymbol(s)`.
    QStringList calls;
    /// The calls and between them what happened in the form: `combx_planType.clear()`,
    /// `combx_planType.append(减持, JC-01)`, `combx_planType announces 减持`, and, while `watch` is on,
    /// `la_remark.hide()`, `la_remark.show()`, `le_remark.setEnabled(false)`.
    QStringList steps;
    /// Whether shown, hidden, enabled and disabled widgets are written into `steps`.
    void watch(bool on);
    /// Forgets calls, steps and boxes; the answers stay.
    void forget();

    /// The calls of one operation: those that begin with `operation` and a bracket.
    QStringList callsOf(const QString& operation) const;
    int countOf(const QString& operation) const;

    // --- Accounts

    QList<tagUserAccountInfo> accounts;                     ///< `GetFundAccountListByFundProp`
    QMap<QString, QMap<QString, QString>> securityAccounts; ///< account → exchange → security account
    QMap<QString, QString> assetProperties;                 ///< by account
    QMap<QString, QStringList> authorities;                 ///< instruction types by account
    int ruleProperty = 0;                                   ///< for every account and type but those below
    QMap<QString, int> ruleProperties;                      ///< by "account/type"
    QMap<QString, QVariant> loginAccountDetail;
    QStringList unsignedClients;
    QStringList executeUsers;
    QStringList forwardUsers;
    QList<QMap<QString, QVariant>> positions;

    /// Adds an account with a security account on each exchange and authority for each instruction type. Fund account
    /// "F-", client number "C-", branch "B-" and security accounts "S-…-exchange" are made from the trading account.
    void addAccount(const QString& tradingAccount, const QStringList& exchanges, const QStringList& instructionTypes,
        const QString& assetProperty = QString());
    /// An account that may do everything but margin trading, on all four exchanges.
    void addOrdinaryAccount(const QString& tradingAccount);
    /// A credit account on Shanghai and Shenzhen.
    void addCreditAccount(const QString& tradingAccount);

    // --- Securities

    QMap<QString, ScriptSecurity> securities;
    /// Answers the two symbol list queries; gets the call as it is recorded. Answers an empty list unless set.
    std::function<SymbolList(const QString& call)> symbols;
    QMap<QString, QString> staticTexts; ///< by "category/key"
    bool bondConversionEnabled = false;

    /// Adds a security whose exchange is told by its end.
    void addStock(const QString& symbol);
    void addBond(const QString& symbol, int displayFactor = 1);
    void addHkStock(const QString& symbol, int qtyStep);

    // --- Plans

    QString createAnswer;
    QString modifyAnswer;
    QMap<QString, QMap<QString, QVariant>> plans; ///< by id
    /// Answers `GetPlanOtherParamFromPlanInfo`; decodes the record's text unless set.
    std::function<QMap<QString, QVariant>(const QMap<QString, QVariant>& record)> otherParam;
    QMap<QString, QMap<QString, QMap<QString, QVariant>>> planInstructions; ///< by plan id, by instruction id
    QMap<QString, QList<QDate>> tradeDates;                                 ///< by exchange, before the general list
    QList<QDate> generalTradeDates;
    QString tradeDatesError;
    bool datesHaveCaptions = false; ///< each date field made from now on holds a caption and an input of its own
    QList<QMap<QString, QVariant>> createdRecords;
    QList<QMap<QString, QVariant>> modifiedRecords;

    // --- Algorithms

    QMap<QString, QString> strategyAliases; ///< the known strategies by name
    QStringList whiteAlgoNames;
    QStringList blackAlgoNames;
    QStringList authorityAlgoNames;
    QString panelLoadAnswer;
    AlgoErrorCode panelBaseDataAnswer = AlgoErrorCode::Ok;
    QString panelStrategy;                 ///< forgotten by the panel's `ClearParams`
    QMap<QString, QVariant> panelParams;   ///< forgotten by the panel's `ClearParams`
    bool panelHasParams = false;           ///< forgotten by the panel's `ClearParams`
    QMap<QString, QVariant> panelBaseData; ///< as last handed over
    QPoint widgetPos;

    // --- Boxes

    QList<ScriptBox> boxes;
    int questionAnswer = 1;                   ///< where no answer is queued
    QList<int> questionAnswers;               ///< taken one by one
    std::function<void()> whileBoxOpen;       ///< runs once, while the next message box is open
    std::function<void()> whileAgreementOpen; ///< runs once, while the agreement dialog is open
    /// Runs after each recorded call, with the call.
    std::function<void(const QString& call)> onCall;

    // --- For the implementation of the platform

    /// Writes a call into `calls` and `steps`.
    void record(const QString& operation, const QVariantList& arguments);
    /// Writes a change of the form into `steps`.
    void step(const QString& text);

private:
    Script();
};
