// Lists of plans against a list that is filtered and sorted here.
#include "AutoPlanField.h"
#include "ClientSession.h"
#include "Kelvo_Fields.h"
#include "SessionTest.h"
#include "TestStatus.h"

#include <algorithm>

namespace BaseField = AutoPlanField::BaseField;

Q_DECLARE_METATYPE(PlanList)

namespace {

const QDateTime Morning(QDate(2024, 5, 6), QTime(9, 30));
constexpr int Plans = 130;

/// A sequence that looks random and is the same in each run.
int spread(int plan, int of)
{
    return static_cast<int>((plan * 7919LL + plan / of * 31LL) % of);
}

QString text(const StoredPlan& plan, const QString& key)
{
    return plan.record.value(key).toString();
}

QString symbolOf(const StoredPlan& plan)
{
    return text(plan, Kelvo_Fields::Security::symbol);
}

QStringList idsOf(const QVector<StoredPlan>& plans)
{
    QStringList ids;
    for (const StoredPlan& plan : plans)
        ids << plan.id;
    return ids;
}

PlanSearch searchFor(
    qint64 first, qint64 last, const QString& start, const QStringList& symbols = {}, const QStringList& accounts = {})
{
    return { first, last, start, symbols, false, accounts };
}

} // namespace

class PlanListsTest : public LoggedTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_session = std::make_unique<SampleSession>();
        QCOMPARE(m_session->opened(), Status());
        QCOMPARE(m_database.open(m_session->ownersFile()), Status());
        m_user = *UserStore(m_database).user(QStringLiteral("trader01"));
        m_symbols = *m_database.texts(QStringLiteral("SELECT symbol FROM securities ORDER BY symbol LIMIT 4"), {});
        QCOMPARE(m_database.transaction([this] { return createAll(); }), Status());
        m_all = *PlanStore(m_database).page(0, Plans + 1);
        QCOMPARE(m_all.size(), Plans);
        m_accounts = *m_database.texts(
            QStringLiteral("SELECT trading_account FROM user_accounts AS u WHERE u.user = ?"), { m_user.id });
        QCOMPARE(m_accounts.size(), 3);
    }

    void cleanupTestCase()
    {
        m_database.close();
        m_session.reset();
    }

    void everySliceHasThePlansOfTheList_data()
    {
        QTest::addColumn<PlanList>("list");
        const QVector<QPair<const char*, PlanOrder>> orders{ { "by number", PlanOrder::Number },
            { "by security", PlanOrder::Security }, { "by end", PlanOrder::End } };
        const QVector<QPair<const char*, PlanFilter>> filters{ { "all", PlanFilter::All },
            { "current", PlanFilter::Current }, { "archived", PlanFilter::Archived }, { "of today", PlanFilter::Today },
            { "running", PlanFilter::Running }, { "failed", PlanFilter::Failed }, { "own", PlanFilter::Own } };
        const QVector<QPair<const char*, std::optional<PlanSearch>>> searches{ { "", std::nullopt },
            { ", some numbers", searchFor(20, 90, {}) }, { ", some symbols", searchFor(0, 0, m_symbols.at(1).left(5)) },
            { ", of names", searchFor(0, 0, {}, { m_symbols.at(0), m_symbols.at(1) }) },
            { ", of accounts", searchFor(0, 0, {}, {}, { QStringLiteral("100002") }) },
            { ", of any", searchFor(7, 7, m_symbols.at(3).left(4), { m_symbols.at(2) }, { QStringLiteral("200001") }) },
            { ", of nothing", PlanSearch() } };
        for (const auto& order : orders)
            for (const auto& filter : filters)
                for (const auto& search : searches)
                    for (const bool isDescending : { true, false })
                        for (const bool isSmall : { true, false })
                            QTest::addRow("%s, %s%s, %s, %s", order.first, filter.first, search.first,
                                isDescending ? "descending" : "ascending", isSmall ? "collected" : "in order")
                                << PlanList{ order.second, isDescending, filter.second, SampleSession::today(),
                                       search.second, isSmall };
    }

    void everySliceHasThePlansOfTheList()
    {
        QFETCH(const PlanList, list);
        const QVector<StoredPlan> expected = listed(list);
        const QStringList ids = idsOf(expected);
        PlanStore store(m_database, m_user);
        QCOMPARE(*store.count(list), expected.size());
        QCOMPARE(forward(store, list), ids);
        QCOMPARE(backward(store, list), ids);
        QCOMPARE(idsOf(*store.page(list, { 5, 3, {}, false, false, {} })), ids.mid(3, 5));

        constexpr int Step = 10;
        const QVector<PlanLandmark> landmarks = *store.landmarks(list, Step);
        QCOMPARE(landmarks.size(), (expected.size() + Step - 1) / Step);
        for (int i = 0; i < landmarks.size(); ++i) {
            QCOMPARE(landmarks.at(i).position, Step * i);
            QCOMPARE(landmarks.at(i).place.number, *PlanId::toNumber(ids.at(Step * i)));
            const PlanSlice from{ 4, 2, landmarks.at(i).place, true, false, {} };
            QCOMPARE(idsOf(*store.page(list, from)), ids.mid(Step * i + 2, 4));
            // The user's accounts have as many first plans as this has at most.
            const PlanSlice few{ 2, 0, landmarks.at(i).place, true, false, {} };
            QCOMPARE(idsOf(*store.page(list, few)), ids.mid(Step * i, 2));
        }
        if (expected.size() > 4) {
            const PlanSlice between{ Plans, 0, list.placeOf(expected.at(1)), true, false,
                list.placeOf(expected.at(4)) };
            QCOMPARE(*store.countOf(list, between), 3);
        }
    }

    void theListsDifferFromEachOther()
    {
        QSet<QStringList> lists;
        for (const PlanFilter filter : { PlanFilter::All, PlanFilter::Current, PlanFilter::Today, PlanFilter::Running,
                 PlanFilter::Failed, PlanFilter::Own, PlanFilter::Archived }) {
            const int plans = listed({ PlanOrder::Number, true, filter, SampleSession::today(), {}, false }).size();
            QVERIFY(plans > 3 && plans < Plans);
            lists << idsOf(listed({ PlanOrder::Number, true, filter, SampleSession::today(), {}, false }));
        }
        QCOMPARE(lists.size(), 7);
    }

    void withoutAUserEveryPlanIsListed()
    {
        PlanStore store(m_database);
        for (const bool isSmall : { true, false }) {
            const PlanList list{ PlanOrder::Security, false, PlanFilter::All, {}, {}, isSmall };
            QVector<StoredPlan> expected = m_all;
            sort(list, expected);
            QCOMPARE(forward(store, list), idsOf(expected));
            QCOMPARE(store.landmarks(list, Plans)->size(), 1);
        }
        QCOMPARE(*store.count(), Plans);
    }

    void aCountStopsWhenThereAreEnough()
    {
        PlanStore store(m_database, m_user);
        const int counted = *store.count({}, 20);
        QVERIFY2(counted >= 20 && counted <= 3 * 20, qPrintable(QString::number(counted)));
    }

private:
    Status createAll()
    {
        const QStringList accounts{ QStringLiteral("100001"), QStringLiteral("100002"), QStringLiteral("200001"),
            QStringLiteral("100003"), QStringLiteral("100005") };
        const QStringList creators{ m_user.id, QStringLiteral("trader02") };
        for (int i = 0; i < Plans; ++i) {
            const QDate begin = SampleSession::today().addDays(spread(i, 9) - 6);
            auto record = with(SampleSession::record(), Kelvo_Fields::UserAccount::tradingAccount,
                accounts.at(spread(i, accounts.size())));
            record = with(record, Kelvo_Fields::Security::symbol, m_symbols.at(spread(i / 2, 4)));
            record = with(record, BaseField::beginDate, begin.toString(Qt::ISODate));
            record = with(record, BaseField::endDate, begin.addDays(spread(i, 5)).toString(Qt::ISODate));
            record = with(record, BaseField::expectedUser, i % 7 == 0 ? m_user.name : QStringLiteral("方汀"));
            record = with(record, BaseField::executeUser, i % 11 == 0 ? m_user.name : QString());
            const auto id = PlanStore(m_database).create(record, { creators.at(i / 3 % 2), Morning });
            if (!id)
                return id.status();
        }
        Status done;
        for (const QString& statement :
            { QStringLiteral("UPDATE plans SET state = 'paused', version = version + 1 WHERE number % 13 = 0"),
                QStringLiteral("UPDATE plans SET state = 'archived', version = version + 1 WHERE number % 8 = 3"
                               " AND state = 'active'"),
                QStringLiteral("UPDATE plans SET completed_day = '2024-05-06' WHERE number % 17 = 0"),
                QStringLiteral("UPDATE plans SET completed_day = '2024-05-03' WHERE number % 19 = 0"),
                QStringLiteral("INSERT INTO refused_days SELECT number, '2024-05-03', 'r', 'trader01',"
                               " '2024-05-03T01:30:00.000Z' FROM plans WHERE number % 5 = 0"),
                QStringLiteral("INSERT INTO instructions (plan, position, day)"
                               " SELECT number, 1, '2024-05-06' FROM plans WHERE number % 10 = 0") }) {
            if (done)
                done = m_database.execute(statement);
        }
        return done;
    }

    bool isListed(const PlanList& list, const StoredPlan& plan) const
    {
        const QString account = text(plan, Kelvo_Fields::UserAccount::tradingAccount);
        const bool isAssigned =
            text(plan, BaseField::expectedUser) == m_user.name || text(plan, BaseField::executeUser) == m_user.name;
        const bool isOfOwnAccount = m_accounts.contains(account);
        const QString today = list.today.toString(Qt::ISODate);
        const bool isActive = plan.state == PlanState::Active && text(plan, BaseField::endDate) >= today;
        const bool isDue = isActive && text(plan, BaseField::beginDate) <= today;
        const bool isArchived = plan.state == PlanState::Archived;
        if (list.filter != PlanFilter::All && isArchived != (list.filter == PlanFilter::Archived))
            return false;
        switch (list.filter) {
        case PlanFilter::All:
        case PlanFilter::Current:
        case PlanFilter::Archived:
            break;
        case PlanFilter::Today:
            if (!isDue || (plan.completed.isValid() && plan.completed != list.today))
                return false;
            break;
        case PlanFilter::Running:
            if (!isDue || plan.completed.isValid() || hasFailed(plan))
                return false;
            break;
        case PlanFilter::Failed:
            if (!isActive || plan.completed.isValid() || !hasFailed(plan))
                return false;
            break;
        case PlanFilter::Own:
            if (!isAssigned && plan.creator != m_user.id)
                return false;
            break;
        }
        return (isOfOwnAccount || isAssigned) && (!list.search || isFound(*list.search, plan));
    }

    static bool hasFailed(const StoredPlan& plan)
    {
        const qint64 number = *PlanId::toNumber(plan.id);
        return number % 5 == 0 && number % 10 != 0;
    }

    static bool isFound(const PlanSearch& search, const StoredPlan& plan)
    {
        const qint64 number = *PlanId::toNumber(plan.id);
        return (search.lastNumber > 0 && number >= search.firstNumber && number <= search.lastNumber)
            || (!search.symbolStart.isEmpty() && symbolOf(plan).startsWith(search.symbolStart))
            || search.symbols.contains(symbolOf(plan))
            || search.tradingAccounts.contains(text(plan, Kelvo_Fields::UserAccount::tradingAccount));
    }

    static void sort(const PlanList& list, QVector<StoredPlan>& plans)
    {
        const auto key = [&list](const StoredPlan& plan) {
            const PlanPlace place = list.placeOf(plan);
            return qMakePair(place.value, place.number);
        };
        std::sort(plans.begin(), plans.end(), [&](const StoredPlan& one, const StoredPlan& other) {
            return list.isDescending ? key(one) > key(other) : key(one) < key(other);
        });
    }

    QVector<StoredPlan> listed(const PlanList& list) const
    {
        QVector<StoredPlan> plans;
        for (const StoredPlan& plan : m_all) {
            if (isListed(list, plan))
                plans << plan;
        }
        sort(list, plans);
        return plans;
    }

    /// All ids, read in slices from the start, or from the end.
    static QStringList forward(PlanStore& store, const PlanList& list)
    {
        QStringList ids;
        QVector<StoredPlan> page = *store.page(list, { 17, 0, {}, false, false, {} });
        while (!page.isEmpty()) {
            ids << idsOf(page);
            page = *store.page(list, { 17, 0, list.placeOf(page.constLast()), false, false, {} });
        }
        return ids;
    }

    static QStringList backward(PlanStore& store, const PlanList& list)
    {
        QStringList ids;
        QVector<StoredPlan> page = *store.page(list, { 17, 0, {}, false, true, {} });
        while (!page.isEmpty()) {
            ids = idsOf(page) + ids;
            page = *store.page(list, { 17, 0, list.placeOf(page.constFirst()), false, true, {} });
        }
        return ids;
    }

    std::unique_ptr<SampleSession> m_session;
    Database m_database;
    QVector<StoredPlan> m_all;
    StoredUser m_user;
    QStringList m_symbols;
    QStringList m_accounts; ///< the user's
};

QTEST_MAIN(PlanListsTest)
#include "tst_plan_lists.moc"
