#pragma once

#include "AccountDirectory.h"
#include "ClosureFiles.h"
#include "DatabaseWatch.h"
#include "InstructionCache.h"
#include "InstructionStore.h"
#include "MovingAverageWorker.h"
#include "PageChecker.h"
#include "PlanRequests.h"
#include "PlanStore.h"
#include "PlanVersions.h"
#include "SampleMarket.h"
#include "SearchableMarket.h"
#include "TradeCalendar.h"
#include "UserStore.h"

#include <QTimer>

#include <memory>

/// The only session of the client: an opened database and the logged-in user. All services use it and return empty
/// values while it is closed. Use it on the user interface thread only.
class ClientSession {
public:
    struct Options {
        /// Number of securities in the sample market of a new database; 0 means the default.
        int marketSize = 0;
        /// Whether a new database gets the user who logs in instead of the sample.
        bool isEmpty = false;
        /// Whether a file may be waited for while others write, because there is no window that would not react.
        bool isPatient = false;
    };
    /// Called with the progress of writing the sample data. Returning false stops it, and the session stays closed.
    using Progress = SampleMarket::Progress;

    static ClientSession& instance();

    /// Opens a database for a user, and closes an earlier session. A new database gets the sample data first. An empty
    /// user id logs in the sample's first user. If it fails, the session is closed. The search for securities is
    /// prepared when pending events have been processed.
    Status open(const QString& file, const QString& userId, const Progress& progress, const Options& options);
    Status open(const QString& file, const QString& userId);
    /// Takes what this client has imported: the securities as they are now, and accounts, rights and closures, which it
    /// reads again. Does nothing while closed.
    Status takeImported(const Market& market);
    /// Closes the session and drops answers that are still being computed. Does nothing while closed.
    void close();
    bool isOpen() const { return m_open; }

    /// The logged-in user; one with an empty id while closed.
    const StoredUser& user() const { return m_user; }

    /// The following are empty while the session is closed.
    const Market& market() const { return m_market.market(); }
    const AccountDirectory& accounts() const { return m_accounts; }
    /// Reads the accounts and rights again if others have changed them. If it fails, those that were read before stay.
    Status refreshAccounts();
    /// Changes with the accounts and rights, and with the securities that there are: a caller that keeps a copy of them
    /// reads it again when this differs.
    int listsNumber() const { return m_listsNumber; }
    const TradeCalendar& calendar() const { return ClosureFiles::calendar(); }
    Database& database() { return m_database; }
    /// The plans of the user's accounts and those assigned to the user.
    PlanStore plans();
    InstructionStore instructions();
    /// A change that the user makes now, for the history.
    Change changeNow(const QString& request = {}) const;
    /// The versions of plans that were read, and the requests whose outcome is unknown. Empty in a new session.
    PlanVersions& versions() { return m_versions; }
    PlanRequests& requests() { return m_requests; }

    /// The stored instructions of one of `plans`, empty for any other; see `InstructionCache`.
    Result<InstructionCache::Instructions> instructionsOf(const QString& planId);
    /// Starts reading the instructions of a plan that is likely to be needed next; does nothing while closed.
    void prefetchInstructions(const QString& planId);

    /// The following are read once in each event, because one choice asks for them several times.

    /// One of `plans`; a default plan (empty id) for any other.
    Result<StoredPlan> plan(const QString& planId);
    /// See `StrategyStore`.
    Result<QStringList> whiteList(const QString& instructionType, const QString& targetType, const QString& symbol);
    Result<QStringList> blackList(const QString& targetType);

    /// A static text of the database; empty if there is none. Cached until the session is closed.
    Result<QString> staticText(const QString& category, const QString& key);
    /// Clients of the user's accounts that have not signed an agreement. Cached until the next signature.
    Result<QStringList> unsignedClients(const QString& protocolId);
    void forgetSignatures() { m_unsigned.clear(); }

    /// Starts to look for changes by others and for the loss of the connection, which `PlanEvents` reports, until
    /// `endWatch` or the end of the session. Does nothing while closed.
    void watch();
    void endWatch() { m_watch.reset(); }
    /// True while the connection to a server is lost, as far as it is watched.
    bool isConnectionLost() const { return m_watch && m_watch->isLost(); }

    /// Finds what a transaction may have stored whose COMMIT has failed: a number, or 0. `find` runs on this
    /// connection, or on another thread with another one, until five seconds after the transaction began. If that
    /// fails, it is repeated until it succeeds, and `known` is called with the number, unless `dropLookUp` is called
    /// before.
    using Find = std::function<Result<qint64>(Database& database)>;
    using Known = std::function<void(qint64 found)>;
    Result<qint64> lookUp(const QString& request, const Find& find, const Known& known);
    void dropLookUp(const QString& request) { m_lookUps.remove(request); }

    /// Starts a moving-average query; false while closed. `PlanEvents` emits the answer.
    bool askMovingAverages(const QString& symbol);

private:
    ClientSession();
    ~ClientSession();

    Status openFor(const QString& file, const QString& userId, const Progress& progress, const Options& options);
    Status fillNew(const QString& userId, const Progress& progress, const Options& options);
    Status logIn(const QString& userId);
    Status readAccounts();
    Result<QString> factsVersion();
    Status reopen();
    Result<qint64> lookUpElsewhere(const Find& find);
    void repeatLookUps();
    Result<QStringList> listOf(const QStringList& key, const std::function<Result<QStringList>()>& read);
    void forgetEvent();
    void startMovingAverages();
    void startPageCheck();

    bool m_open = false;
    Database m_database;
    StoredUser m_user;
    SearchableMarket m_market;
    AccountDirectory m_accounts;
    int m_listsNumber = 0;         ///< grows when accounts, rights or securities have changed
    bool m_areAccountsOld = false; ///< others have changed something since they were read
    QString m_accountsVersion;     ///< of the facts from which they were read
    std::unique_ptr<MovingAverageWorker> m_averages;
    std::unique_ptr<PageChecker> m_checker;
    std::unique_ptr<DatabaseWatch> m_watch;
    InstructionCache m_instructions{ m_database };
    PlanVersions m_versions;
    PlanRequests m_requests;
    QMap<QString, QPair<Find, Known>> m_lookUps; ///< those without an answer, by request
    std::unique_ptr<DatabaseThread> m_finder;    ///< started on first use
    QTimer m_idle;                               ///< fires when the trader is likely to be back at the form
    QTimer m_repetition;                         ///< of look-ups without an answer
    QTimer m_endOfEvent;
    StoredPlan m_plan;                       ///< read in this event
    QHash<QStringList, QStringList> m_lists; ///< read in this event, by their keys
    QHash<QPair<QString, QString>, QString> m_texts;
    QHash<QString, QStringList> m_unsigned;
};
