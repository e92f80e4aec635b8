// The table of plans, by keys and the mouse.
#include "AutoPlanField.h"
#include "ClientClock.h"
#include "ClientWindowTest.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "PlanCodes.h"
#include "PlanTable.h"
#include "TestStatus.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPaintEvent>
#include <QScrollBar>
#include <QtTest>

#include <chrono>

namespace BaseField = AutoPlanField::BaseField;

namespace {

const Change ByColleague{ QStringLiteral("trader02"), QDateTime(QDate(2024, 5, 6), QTime(9, 30)) };
constexpr int Many = 1234;
constexpr int MostRows = 500;
constexpr int VeryMany = 100000;
// On a machine at rest it is a hundredth of this.
constexpr std::chrono::seconds OneKey(5);

/// What is painted of a widget.
class PaintedRegion : public QObject {
public:
    explicit PaintedRegion(QWidget& widget) { widget.installEventFilter(this); }

    QRegion region;

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            region += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
};

} // namespace

class PlanTableTest : public ClientWindowTest {
    Q_OBJECT

protected:
    void tidyUp() override
    {
        m_colleague.close();
        ClientWindowTest::tidyUp();
    }

    /// The state that the details show of the plan in a row, after a click on it.
    QString stateInDetails(int row)
    {
        const QRect place = table().visualRect(table().model()->index(row, 0));
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, place.center());
        const auto labels = field<QWidget>(window(), "planDetails")->findChildren<QLabel*>();
        for (const QLabel* const label : labels) {
            if (label->text() == QStringLiteral("状态") && label->buddy())
                return static_cast<const QLabel*>(label->buddy())->text();
        }
        return {};
    }

private Q_SLOTS:
    void everyPlanIsReachedPageByPage()
    {
        const QStringList plans = openOnMany();
        QStringList seen{ window().currentPlan() };
        while (seen.constLast() != plans.constLast()) {
            QVERIFY(seen.size() < 2 * Many);
            const QString before = window().currentPlan();
            press(&table(), Qt::Key_Down);
            QVERIFY(window().currentPlan() != before);
            QVERIFY(isCurrentVisible());
            seen << window().currentPlan();
        }
        QCOMPARE(seen, plans);
        while (window().currentPlan() != plans.constFirst()) {
            const QString before = window().currentPlan();
            press(&table(), Qt::Key_PageUp);
            QVERIFY(window().currentPlan() > before);
            QVERIFY(isCurrentVisible());
        }
        QVERIFY(table().model()->rowCount() <= MostRows);
    }

    void theKeysForTheEndsReachThem()
    {
        const QStringList plans = openOnMany();
        press(&table(), Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(window().currentPlan(), plans.constLast());
        QVERIFY(isCurrentVisible());
        QVERIFY(table().model()->rowCount() <= MostRows);
        QCOMPARE(bar().value(), bar().maximum());
        press(&table(), Qt::Key_Up);
        QCOMPARE(window().currentPlan(), plans.at(Many - 2));
        press(&table(), Qt::Key_Home);
        QCOMPARE(window().currentPlan(), plans.constFirst());
        QVERIFY(isCurrentVisible());
        QCOMPARE(bar().value(), 0);
    }

    void aLetterKeyInAFullTableSearchesAtOnce()
    {
        create({});
        QCOMPARE(session().multiply(VeryMany), Status());
        openWindow();
        press(&table(), Qt::Key_End, Qt::ControlModifier);
        while (table().model()->rowCount() < MostRows)
            press(&table(), Qt::Key_PageUp);
        QElapsedTimer timer;
        timer.start();
        press(&table(), Qt::Key_9);
        const qint64 taken = timer.elapsed();
        QVERIFY2(
            taken < std::chrono::milliseconds(OneKey).count() * TEST_TIMEOUT_SCALE, qPrintable(QString::number(taken)));
        const auto* const search = field<QLineEdit>(window(), "le_search");
        QVERIFY(search->hasFocus());
        QCOMPARE(search->text(), QStringLiteral("9"));
        QCOMPARE(shownIds(), QStringList{ QStringLiteral("AP00000009") });
    }

    void rowsStayIfOthersCannotBeRead()
    {
        const QStringList plans = openOnMany();
        const auto ids = [this] {
            QStringList rows;
            for (int row = 0; row < table().model()->rowCount(); ++row)
                rows << cell(row, PlanColumns::Id);
            return rows;
        };
        const QStringList before = ids();
        Database& database = ClientSession::instance().database();
        QCOMPARE(database.execute(QStringLiteral("ALTER TABLE plans RENAME TO gone")), Status());
        log().allowWarning(QStringLiteral("数据库操作失败"));
        bar().setValue(bar().maximum());
        QCOMPARE(ids(), before);
        bar().setValue(Many / 2);
        QCOMPARE(ids(), before);
        window().selectPlan(plans.constLast());
        QCOMPARE(ids(), before);
        QCOMPARE(window().currentPlan(), plans.constFirst());
        press(&table(), Qt::Key_PageDown);
        QCOMPARE(ids(), before);
        press(&table(), Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(ids(), before);
        press(&table(), Qt::Key_F5);
        QCOMPARE(ids(), before);
        QVERIFY(!window().currentPlan().isEmpty());
        QCOMPARE(database.execute(QStringLiteral("ALTER TABLE gone RENAME TO plans")), Status());
        press(&table(), Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(window().currentPlan(), plans.constLast());
    }

    void theWheelAndTheScrollBarMoveInTheWholeList()
    {
        const QStringList plans = openOnMany();
        QCOMPARE(bar().maximum() + bar().pageStep(), Many);
        for (const int position : { 700, 710, 300, Many, 1, 0 }) {
            bar().setValue(position);
            QCoreApplication::processEvents();
            QCOMPARE(bar().value(), qMin(position, bar().maximum()));
            QVERIFY(isShownFrom(plans, bar().value()));
        }
        int first = 0;
        while (first < bar().maximum()) {
            turnWheel(-1);
            const int next = bar().value();
            QVERIFY(next > first && next <= first + bar().pageStep());
            first = next;
            QVERIFY(isShownFrom(plans, first));
        }
        QVERIFY(table().model()->rowCount() <= MostRows);
    }

    void theCurrentPlanStaysWhileTheTableIsScrolled()
    {
        const QStringList plans = openOnMany();
        press(&table(), Qt::Key_Down);
        bar().setValue(900);
        QCOMPARE(window().currentPlan(), plans.at(1));
        press(&window(), Qt::Key_F5);
        QCOMPARE(window().currentPlan(), plans.at(1));
        QCOMPARE(idOf(table().rowAt(0)), plans.at(900));
        press(&table(), Qt::Key_Down);
        QCOMPARE(window().currentPlan(), plans.at(2));
        QVERIFY(isCurrentVisible());
    }

    void aClickOnAColumnSortsByIt()
    {
        const QStringList symbols = someSymbols(3);
        QStringList plans;
        for (int i = 0; i < 9; ++i)
            plans << create({ { Kelvo_Fields::Security::symbol, symbols.at(i % 3) },
                { BaseField::endDate, QStringLiteral("2024-05-%1").arg(20 - i) } });
        openWindow();
        std::sort(plans.begin(), plans.end());
        QCOMPARE(shownIds(), reversed(plans));
        clickColumn(PlanColumns::Id);
        QCOMPARE(shownIds(), plans);
        clickColumn(PlanColumns::Period);
        QCOMPARE(shownIds(), reversed(plans));
        clickColumn(PlanColumns::Period);
        QCOMPARE(shownIds(), plans);
        clickColumn(PlanColumns::Security);
        QCOMPARE(shownIds().mid(0, 3), QStringList({ plans.at(0), plans.at(3), plans.at(6) }));
        QCOMPARE(table().horizontalHeader()->sortIndicatorSection(), int(PlanColumns::Security));
        const QStringList bySecurity = shownIds();
        clickColumn(PlanColumns::Side);
        QCOMPARE(shownIds(), bySecurity);
        QCOMPARE(table().horizontalHeader()->sortIndicatorSection(), int(PlanColumns::Security));
    }

    void filtersAreChosenByButtons()
    {
        const QString due = create({});
        const QString later = create({ { BaseField::beginDate, QStringLiteral("2024-05-07") } });
        const QString own = session().create(SampleSession::record());
        openWindow();
        QCOMPARE(shownIds(), QStringList({ own, later, due }));
        clickFilter("filter_today");
        QCOMPARE(shownIds(), QStringList({ own, due }));
        QCOMPARE(status(), QStringLiteral("共2个计划"));
        clickFilter("filter_own");
        QCOMPARE(shownIds(), QStringList{ own });
        QCOMPARE(window().currentPlan(), own);
        clickFilter("filter_all");
        QCOMPARE(shownIds(), QStringList({ own, later, due }));
    }

    void aNewDayChangesStatesAndFilters()
    {
        const QString due = create({});
        const QString later = create({ { BaseField::beginDate, QStringLiteral("2024-05-07") } });
        openWindow();
        QCOMPARE(cell(0, PlanColumns::State), QStringLiteral("未开始"));
        setClientToday(QDate(2024, 5, 7));
        press(&window(), Qt::Key_F5);
        QCOMPARE(cell(0, PlanColumns::State), QStringLiteral("进行中"));
        setClientToday(QDate(2024, 5, 6));
        clickFilter("filter_today");
        QCOMPARE(shownIds(), QStringList(due));
        setClientToday(QDate(2024, 5, 7));
        press(&window(), Qt::Key_F5);
        QCOMPARE(shownIds(), QStringList({ later, due }));
    }

    void aNewDayIsNoticedByItself()
    {
        create({ { BaseField::beginDate, QStringLiteral("2024-05-07") } });
        openWindow();
        setClientToday(QDate(2024, 5, 7));
        QMetaObject::invokeMethod(window().findChild<QTimer*>(QStringLiteral("regularly")), "timeout");
        QTRY_COMPARE_WITH_TIMEOUT(cell(0, PlanColumns::State), QStringLiteral("进行中"), Patience);
    }

    void aPlanThatLeavesTheFilterIsNotCurrent()
    {
        const QString plan = create({});
        openWindow();
        clickFilter("filter_today");
        QCOMPARE(window().currentPlan(), plan);
        QCOMPARE(PlanStore(colleague()).setState(plan, 1, PlanState::Paused, {}, ByColleague), Status());
        press(&window(), Qt::Key_F5);
        QCOMPARE(shownIds(), QStringList());
        QCOMPARE(window().currentPlan(), QString());
        QCOMPARE(status(), QStringLiteral("共0个计划"));
    }

    void plansAreSearchedForByAllTheirNames_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QVector<int>>("found");
        QTest::newRow("a number") << QStringLiteral("2") << QVector<int>{ 2 };
        QTest::newRow("an id") << QStringLiteral("AP00000003") << QVector<int>{ 3 };
        QTest::newRow("the start of an id, in small letters") << QStringLiteral("ap0000000") << QVector<int>{ 3, 2, 1 };
        QTest::newRow("a code") << QStringLiteral("CODE") << QVector<int>{ 2 };
        QTest::newRow("a full-width code") << QStringLiteral("WIDE") << QVector<int>{ 2 };
        QTest::newRow("a part of a name") << QStringLiteral("NAME") << QVector<int>{ 2 };
        QTest::newRow("an account's name") << QStringLiteral("稳健一号") << QVector<int>{ 2, 1 };
        QTest::newRow("a fund account") << QStringLiteral("f100002") << QVector<int>{ 3 };
        QTest::newRow("what no plan has") << QStringLiteral("zzz") << QVector<int>{};
    }

    void plansAreSearchedForByAllTheirNames()
    {
        QFETCH(QString, typed);
        QFETCH(const QVector<int>, found);
        const QStringList symbols = someSymbols(2);
        const QString& wanted = symbols.at(1);
        const QStringList plans{ create({ { Kelvo_Fields::Security::symbol, symbols.at(0) } }),
            create({ { Kelvo_Fields::Security::symbol, wanted } }),
            create({ { Kelvo_Fields::Security::symbol, symbols.at(0) },
                { Kelvo_Fields::UserAccount::tradingAccount, QStringLiteral("100002") } }) };
        typed.replace(QStringLiteral("CODE"), wanted.left(6));
        typed.replace(QStringLiteral("WIDE"), fullWidth(wanted.left(6)));
        typed.replace(QStringLiteral("NAME"), ClientSession::instance().market().find(wanted)->name);
        openWindow();
        press(&window(), Qt::Key_F, Qt::ControlModifier);
        QVERIFY(search().hasFocus());
        // A test cannot press keys for other characters.
        QGuiApplication::clipboard()->setText(typed);
        QTest::keyClick(&search(), Qt::Key_V, Qt::ControlModifier);
        QStringList expected;
        for (const int number : found)
            expected << plans.at(number - 1);
        QCOMPARE(shownIds(), expected);
        QCOMPARE(status(), QStringLiteral("共%1个计划").arg(found.size()));
        QCOMPARE(window().currentPlan(), expected.value(0));
        press(&search(), Qt::Key_Return);
        QVERIFY(table().hasFocus());
        QVERIFY(!dialog().isVisible());
        press(&window(), Qt::Key_F, Qt::ControlModifier);
        press(&search(), Qt::Key_Escape);
        QCOMPARE(shownIds(), reversed(plans));
        QVERIFY(table().hasFocus());
    }

    void aSearchWithinAFilterAndAnOrder()
    {
        const QStringList symbols = someSymbols(2);
        QStringList plans;
        for (int i = 0; i < 6; ++i)
            plans << create({ { Kelvo_Fields::Security::symbol, symbols.at(i % 2) },
                { BaseField::beginDate, i < 4 ? QStringLiteral("2024-05-06") : QStringLiteral("2024-05-07") } });
        openWindow();
        clickColumn(PlanColumns::Id);
        clickFilter("filter_today");
        press(&window(), Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(&search(), symbols.at(0));
        QCOMPARE(shownIds(), QStringList({ plans.at(0), plans.at(2) }));
    }

    void aLetterInTheTableBeginsASearch()
    {
        openOnMany();
        QTest::keyClick(&table(), Qt::Key_A);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_P);
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("00000007"));
        QCOMPARE(search().text(), QStringLiteral("ap00000007"));
        QCOMPARE(shownIds(), QStringList{ QStringLiteral("AP00000007") });
    }

    void onlyARowThatDiffersIsPainted()
    {
        QStringList plans;
        for (int i = 0; i < 8; ++i)
            plans.prepend(create({}));
        openWindow();
        PaintedRegion painted(*table().viewport());
        // What the window reads on other threads when it starts is shown first.
        const auto paintsNothing = [&] {
            painted.region = QRegion();
            press(&window(), Qt::Key_F5);
            QCoreApplication::processEvents();
            return painted.region.isEmpty();
        };
        QTRY_VERIFY(paintsNothing());
        const auto record = with(SampleSession::record(), BaseField::totalQty, QStringLiteral("2000"));
        QCOMPARE(PlanStore(colleague()).modify(plans.at(3), 1, record, ByColleague), Status());
        press(&window(), Qt::Key_F5);
        QCoreApplication::processEvents();
        const QRect row = table().visualRect(table().model()->index(3, 0));
        QCOMPARE(painted.region.boundingRect().top(), row.top());
        QCOMPARE(painted.region.boundingRect().height(), row.height());
    }

    void severalPlansAreSelectedAndKept()
    {
        const QStringList plans = openOnMany();
        QCOMPARE(table().selectedPlans(), QStringList{ plans.at(0) });
        press(&table(), Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(table().selectedPlans(), plans.mid(0, 2));
        bar().setValue(800);
        QCoreApplication::processEvents();
        clickRow(0, Qt::ControlModifier);
        QCOMPARE(sorted(table().selectedPlans()), sorted({ plans.at(0), plans.at(1), plans.at(800) }));
        press(&window(), Qt::Key_F5);
        bar().setValue(0);
        QCoreApplication::processEvents();
        QVERIFY(table().selectionModel()->isRowSelected(1, QModelIndex()));
        QVERIFY(!table().selectionModel()->isRowSelected(2, QModelIndex()));
        QCOMPARE(table().selectedPlans().size(), 3);
        clickRow(5);
        QCOMPARE(table().selectedPlans(), QStringList{ plans.at(5) });
    }

    void everyPlanIsSelectedByOneKey()
    {
        const QStringList plans = openOnMany();
        press(&table(), Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(sorted(table().selectedPlans()), sorted(plans));
        QCOMPARE(window().currentPlan(), plans.at(0));
        press(&window(), Qt::Key_F5);
        bar().setValue(900);
        QCoreApplication::processEvents();
        QVERIFY(table().selectionModel()->isRowSelected(table().rowAt(0), QModelIndex()));
        QCOMPARE(table().selectedPlans().size(), Many);
        clickFilter("filter_failed");
        press(&table(), Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(table().selectedPlans(), QStringList());
    }

    void aRangeReachesBeyondTheRows()
    {
        const QStringList plans = openOnMany();
        press(&table(), Qt::Key_Down);
        press(&table(), Qt::Key_End, Qt::ShiftModifier);
        QCOMPARE(window().currentPlan(), plans.constLast());
        QCOMPARE(sorted(table().selectedPlans()), sorted(plans.mid(1)));
        press(&table(), Qt::Key_Up, Qt::ShiftModifier);
        QCOMPARE(sorted(table().selectedPlans()), sorted(plans.mid(1, Many - 2)));
        press(&table(), Qt::Key_Home, Qt::ShiftModifier);
        QCOMPARE(table().selectedPlans(), plans.mid(0, 2));
        // A click begins another range, which a click elsewhere ends.
        clickRow(0);
        bar().setValue(800);
        QCoreApplication::processEvents();
        clickRow(3, Qt::ShiftModifier);
        QCOMPARE(sorted(table().selectedPlans()), sorted(plans.mid(0, 804)));
        for (int i = 0; i < 3; ++i)
            press(&table(), Qt::Key_PageDown, Qt::ShiftModifier);
        const int last = plans.indexOf(window().currentPlan());
        QVERIFY(last > 804);
        QCOMPARE(sorted(table().selectedPlans()), sorted(plans.mid(0, last + 1)));
        press(&table(), Qt::Key_Down);
        QCOMPARE(table().selectedPlans(), QStringList{ plans.at(last + 1) });
    }

    void moreThanCanBeSelectedIsSaid()
    {
        constexpr int TooMany = 10001;
        QStringList ids;
        const Status created = colleague().transaction([&] {
            while (ids.size() < TooMany)
                ids.prepend(create({}));
            return Status();
        });
        QCOMPARE(created, Status());
        openWindow();
        const QString said = QStringLiteral("一次最多选择10000个计划，请先筛选或搜索");
        press(&table(), Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(status(), said);
        QCOMPARE(table().selectedPlans(), QStringList{ ids.at(0) });
        press(&table(), Qt::Key_Down);
        press(&table(), Qt::Key_End, Qt::ShiftModifier);
        QCOMPARE(table().selectedPlans().size(), 10000);
    }

    void aSearchThatFindsTooManyNamesSaysSo()
    {
        endSession();
        const SampleSession many(QStringLiteral("trader01"), 6000);
        QCOMPARE(many.opened(), Status());
        openWindow();
        const QString said = QStringLiteral("共0个计划（名称含有这些字的证券过多，只搜索了前1000只，请输入更多的字）");
        press(&window(), Qt::Key_F, Qt::ControlModifier);
        search().setText(QStringLiteral("1"));
        QTRY_COMPARE(status(), said);
        search().setText(many.symbolOf(Kelvo_Values::MdcSubSecurityType::Ashares, QStringLiteral(".SH")));
        QTRY_COMPARE(status(), QStringLiteral("共0个计划"));
    }

    void selectedPlansAreCopiedAsRows()
    {
        const QStringList plans = { create({}), create({}), create({}) };
        openWindow();
        clickRow(0);
        clickRow(2, Qt::ControlModifier);
        press(&table(), Qt::Key_C, Qt::ControlModifier);
        const QStringList lines = QGuiApplication::clipboard()->text().split(QLatin1Char('\n'));
        QCOMPARE(lines.size(), 3);
        QCOMPARE(lines.at(2), QString());
        const QStringList first = lines.at(0).split(QLatin1Char('\t'));
        QCOMPARE(first.size(), int(PlanColumns::Count));
        QCOMPARE(first.at(PlanColumns::Id), plans.at(2));
        QCOMPARE(first.at(PlanColumns::Target), QStringLiteral("1,000 股"));
        QCOMPARE(lines.at(1).section(QLatin1Char('\t'), 0, 0), plans.at(0));
    }

    void columnsAreMovedHiddenAndRemembered()
    {
        create({});
        openWindow();
        QHeaderView* header = table().horizontalHeader();
        dragColumn(PlanColumns::Account, header->sectionViewportPosition(PlanColumns::Id) + 2);
        QCOMPARE(header->logicalIndex(0), int(PlanColumns::Account));
        chooseColumn(PlanColumns::State);
        QVERIFY(table().isColumnHidden(PlanColumns::State));
        widenColumn(PlanColumns::Account, 40);
        const int width = table().columnWidth(PlanColumns::Account);
        closeWindow();
        openWindow();
        header = table().horizontalHeader();
        QCOMPARE(header->logicalIndex(0), int(PlanColumns::Account));
        QCOMPARE(header->logicalIndex(1), int(PlanColumns::Id));
        QVERIFY(table().isColumnHidden(PlanColumns::State));
        QVERIFY(!table().isColumnHidden(PlanColumns::Side));
        QCOMPARE(table().columnWidth(PlanColumns::Account), width);
        chooseColumn(PlanColumns::State);
        QVERIFY(!table().isColumnHidden(PlanColumns::State));
    }

    void theColumnsShowTheLifeOfAPlan()
    {
        const QString issued = create({});
        const QString refused = create({});
        const QString later = create({ { BaseField::beginDate, QStringLiteral("2024-05-07") } });
        InstructionStore instructions(colleague());
        QCOMPARE(instructions
                     .add(issued, SampleSession::today(),
                         { { PlanCodes::FieldId::IssuedQty, QStringLiteral("300") },
                             { PlanCodes::FieldId::FilledQty, QStringLiteral("100") } },
                         ByColleague)
                     .status(),
            Status());
        QCOMPARE(
            instructions.refuse(refused, SampleSession::today(), QStringLiteral("无收盘价"), ByColleague), Status());
        openWindow();
        QCOMPARE(shownIds(), QStringList({ later, refused, issued }));
        QCOMPARE(cell(0, PlanColumns::State), QStringLiteral("未开始"));
        QCOMPARE(cell(0, PlanColumns::RemainingDays), QStringLiteral("4天"));
        QCOMPARE(cell(0, PlanColumns::LastResult), QString());
        QCOMPARE(cell(0, PlanColumns::Progress), QStringLiteral("0 / 0"));
        QCOMPARE(cell(1, PlanColumns::State), QStringLiteral("异常"));
        QCOMPARE(cell(1, PlanColumns::LastResult), QStringLiteral("05-06 无收盘价"));
        QCOMPARE(cell(2, PlanColumns::State), QStringLiteral("进行中"));
        QCOMPARE(cell(2, PlanColumns::RemainingDays), QStringLiteral("5天"));
        QCOMPARE(cell(2, PlanColumns::LastResult), QStringLiteral("05-06 已下达"));
        QCOMPARE(cell(2, PlanColumns::Progress), QStringLiteral("100 / 300"));
        QCOMPARE(table().model()->index(2, PlanColumns::Progress).data(PlanTableModel::ProgressRole).toSizeF(),
            QSizeF(0.3, 0.1));
        for (int row = 0; row < 3; ++row)
            QCOMPARE(stateInDetails(row), cell(row, PlanColumns::State));
        clickFilter("filter_failed");
        QCOMPARE(shownIds(), QStringList{ refused });
        clickFilter("filter_running");
        QCOMPARE(shownIds(), QStringList{ issued });
    }

    void theWindowShowsTheLastResultAtFirst()
    {
        constexpr int UsualTable = 1366 - 300 - 20;
        const auto restore = qScopeGuard([font = QApplication::font()] { QApplication::setFont(font); });
        QApplication::setFont(QFont(QStringLiteral("Sans Serif"), 9));
        openWindow();
        const QHeaderView& header = *table().horizontalHeader();
        for (const int column : { PlanColumns::Progress, PlanColumns::RemainingDays, PlanColumns::LastResult }) {
            const int end = header.sectionPosition(column) + header.sectionSize(column);
            QVERIFY2(end <= UsualTable, qPrintable(PlanColumns::title(column) + QString::number(end)));
        }
        const auto widthOf = [this](const QString& text) { return table().fontMetrics().horizontalAdvance(text); };
        QVERIFY(header.sectionSize(PlanColumns::PerDay) > widthOf(QStringLiteral("100,000.00 元")) + 6);
        QVERIFY(header.sectionSize(PlanColumns::LastResult) > widthOf(QStringLiteral("05-06 已下达")) + 6);
        QVERIFY(header.sectionSize(PlanColumns::RemainingDays) > widthOf(QStringLiteral("260天")) + 6);
    }

    void sidesHaveTheColoursOfTheMarket()
    {
        create({ { BaseField::orderSide, Kelvo_Values::OrderSide::sell } });
        create({ { BaseField::orderSide, Kelvo_Values::OrderSide::buy } });
        create({});
        openWindow();
        for (const char* const skin : { "dark", "light" }) {
            window().setSkin(QLatin1String(skin));
            QVERIFY(hasInk(1, PlanColumns::Side, table().buyColor()));
            QVERIFY(hasInk(2, PlanColumns::Side, table().sellColor()));
            QVERIFY(!hasInk(1, PlanColumns::Side, table().sellColor()));
            QVERIFY(!hasInk(1, PlanColumns::Id, table().buyColor()));
            QVERIFY(table().buyColor().red() > table().buyColor().green());
            QVERIFY(table().sellColor().green() > table().sellColor().red());
        }
        QCOMPARE(table().model()->index(0, PlanColumns::Target).data(Qt::TextAlignmentRole).toInt(),
            int(Qt::AlignRight | Qt::AlignVCenter));
    }

private:
    QString cell(int row, int column) const { return table().model()->index(row, column).data().toString(); }

    /// Whether a pixel of a cell has a colour.
    bool hasInk(int row, int column, const QColor& ink) const
    {
        table().scrollTo(table().model()->index(row, column));
        const QRect place = table().visualRect(table().model()->index(row, column));
        const QImage image = table().viewport()->grab(place).toImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == ink)
                    return true;
            }
        }
        return false;
    }

    void drag(const QPoint& from, const QPoint& to)
    {
        QWidget* const header = table().horizontalHeader()->viewport();
        QTest::mousePress(header, Qt::LeftButton, Qt::NoModifier, from);
        for (const QPoint& place : { (from + to) / 2, to }) {
            QMouseEvent move(
                QEvent::MouseMove, place, header->mapToGlobal(place), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(header, &move);
        }
        QTest::mouseRelease(header, Qt::LeftButton, Qt::NoModifier, to);
    }

    void dragColumn(int column, int x)
    {
        const QHeaderView& header = *table().horizontalHeader();
        drag(QPoint(header.sectionViewportPosition(column) + 20, 5), QPoint(x, 5));
    }

    void widenColumn(int column, int pixels)
    {
        const QHeaderView& header = *table().horizontalHeader();
        const QPoint end(header.sectionViewportPosition(column) + header.sectionSize(column) - 1, 5);
        drag(end, end + QPoint(pixels, 0));
    }

    /// Chooses a column in the header's menu.
    void chooseColumn(int column)
    {
        QTimer::singleShot(0, this, [column] {
            auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            QVERIFY(menu);
            QTest::mouseClick(
                menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(menu->actions().at(column)).center());
        });
        QHeaderView* const header = table().horizontalHeader();
        const QPoint place(30, 5);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, header->viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(header->viewport(), &event);
    }

    PlanTable& table() const { return *field<PlanTable>(window(), "planTable"); }
    QScrollBar& bar() const { return *table().positionBar(); }
    QLineEdit& search() const { return *field<QLineEdit>(window(), "le_search"); }
    QString status() const { return text(window(), "status"); }
    QString idOf(int row) const { return table().model()->index(row, PlanColumns::Id).data().toString(); }
    bool isCurrentVisible() const
    {
        return table().viewport()->rect().contains(table().visualRect(table().currentIndex()).center())
            && idOf(table().currentIndex().row()) == window().currentPlan();
    }

    /// Whether the first visible row is that of a position; at the end, where it may be cut, whether the last row is
    /// visible.
    bool isShownFrom(const QStringList& plans, int position) const
    {
        if (position < bar().maximum())
            return idOf(table().rowAt(0)) == plans.at(position);
        const int last = table().model()->rowCount() - 1;
        return idOf(last) == plans.constLast()
            && table().viewport()->rect().contains(table().visualRect(table().model()->index(last, 0)).center());
    }

    QStringList shownIds() const
    {
        QStringList ids;
        for (int row = 0; row < table().model()->rowCount(); ++row)
            ids << idOf(row);
        return ids;
    }

    static QStringList sorted(QStringList ids)
    {
        ids.sort();
        return ids;
    }

    static QStringList reversed(QStringList ids)
    {
        std::reverse(ids.begin(), ids.end());
        return ids;
    }

    static QString fullWidth(const QString& digits)
    {
        QString wide;
        for (const QChar digit : digits)
            wide += QChar(digit.unicode() + 0xfee0);
        return wide;
    }

    /// Symbols in their order.
    QStringList someSymbols(int count)
    {
        return *colleague().texts(QStringLiteral("SELECT symbol FROM securities ORDER BY symbol LIMIT ?"), { count });
    }

    Database& colleague()
    {
        if (!m_colleague.isOpen()) {
            const auto open = [this] { QCOMPARE(m_colleague.open(session().ownersFile()), Status()); };
            open();
        }
        return m_colleague;
    }

    /// The id of a new plan of the sample record with other fields.
    QString create(const QMap<QString, QString>& fields)
    {
        PlanStore::Record record = SampleSession::record();
        for (auto field = fields.cbegin(); field != fields.cend(); ++field)
            record.insert(field.key(), *field);
        return PlanStore(colleague()).create(record, ByColleague).valueOr(QString());
    }

    /// Opens the window on more plans than rows, when they have been counted. Returns their ids, the newest first.
    QStringList openOnMany()
    {
        QStringList ids;
        const Status created = colleague().transaction([&] {
            while (ids.size() < Many)
                ids.prepend(create({}));
            return Status();
        });
        openWindow();
        const auto counted = [&] {
            QCOMPARE(created, Status());
            QTRY_COMPARE(status(), QStringLiteral("共%1个计划").arg(Many));
        };
        counted();
        return ids;
    }

    void clickColumn(int column)
    {
        const QHeaderView& header = *table().horizontalHeader();
        const QPoint place(header.sectionViewportPosition(column) + 10, header.height() / 2);
        QTest::mouseClick(header.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    }

    void clickFilter(const char* name) { QTest::mouseClick(field<QAbstractButton>(window(), name), Qt::LeftButton); }

    /// `row`: counted from the first visible one.
    void clickRow(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        const QPoint place = table().visualRect(table().model()->index(table().rowAt(0) + row, 1)).center();
        QTest::mouseClick(table().viewport(), Qt::LeftButton, modifiers, place);
    }

    void turnWheel(int notches)
    {
        const QPoint place = table().viewport()->rect().center();
        QWheelEvent wheel(place, table().viewport()->mapToGlobal(place), QPoint(), QPoint(0, 120 * notches),
            Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(table().viewport(), &wheel);
        QCoreApplication::processEvents();
    }

    Database m_colleague;
};

QTEST_MAIN(PlanTableTest)
#include "tst_plan_table.moc"
