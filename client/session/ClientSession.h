#pragma once

#include "AccountDirectory.h"
#include "InstructionCache.h"
#include "InstructionStore.h"
#include "MovingAverageWorker.h"
#include "PlanStore.h"
#include "SampleMarket.h"
#include "SearchableMarket.h"
#include "TradeCalendar.h"
#include "UserStore.h"

#include <QTimer>

#include <memory>

/// The one session of the client: an opened database and the user who is logged in. All services answer from it, and
/// answer empty while it is closed. Belongs to the user interface thread.
class ClientSession {
public:
    struct Options {
        /// Securities of the sample market that a new database gets; 0 means its usual size.
        int marketSize = 0;
    };
    /// Told how much of the sample data is written; false stops it, and the session stays closed.
    using Progress = SampleMarket::Progress;

    static ClientSession& instance();

    /// Opens a database for a user, closing an earlier session. A new database gets the sample data first. An empty
    /// user id logs the sample's first user in. When it fails the session is closed. The search for securities is
    /// prepared once events are worked off.
    Status open(const QString& file, const QString& userId, const Progress& progress, const Options& options);
    Status open(const QString& file, const QString& userId);
    /// Ends the session; answers that are still being computed are dropped. Does nothing while closed.
    void close();
    bool isOpen() const { return m_open; }

    /// The user who is logged in; one with an empty id while closed.
    const StoredUser& user() const { return m_user; }
    /// Every user of the opened database.
    QVector<StoredUser> users();

    /// The following are empty while the session is closed.
    const Market& market() const { return m_market.market(); }
    const AccountDirectory& accounts() const { return m_accounts; }
    const TradeCalendar& calendar() const { return TradeCalendar::builtIn(); }
    Database& database() { return m_database; }
    PlanStore plans();
    InstructionStore instructions();

    /// Instructions of a plan as the store has them; see `InstructionCache`.
    QMap<QString, InstructionStore::Fields> instructionsOf(const QString& planId);
    /// Has the instructions of a plan that is likely to be asked for read ahead; does nothing while closed.
    void prefetchInstructions(const QString& planId);

    /// A static text of the database; empty when there is none. Remembered until the session is closed.
    QString staticText(const QString& category, const QString& key);
    /// Clients of the user's accounts who have not signed an agreement. Remembered until something is signed.
    QStringList unsignedClients(const QString& protocolId);
    void forgetSignatures() { m_unsigned.clear(); }

    /// Starts a moving-average query; false while closed. The answer comes by `PlanEvents`.
    bool askMovingAverages(const QString& symbol);

private:
    ClientSession();
    ~ClientSession();

    Status openFor(const QString& file, const QString& userId, const Progress& progress, const Options& options);
    Status logIn(const QString& userId);
    void startMovingAverages();

    bool m_open = false;
    Database m_database;
    StoredUser m_user;
    SearchableMarket m_market;
    AccountDirectory m_accounts;
    std::unique_ptr<MovingAverageWorker> m_averages;
    InstructionCache m_instructions{ m_database };
    QTimer m_idle; ///< runs out when the trader is likely to be at the form again
    QHash<QPair<QString, QString>, QString> m_texts;
    QHash<QString, QStringList> m_unsigned;
};
