// What others change while the client's window is open.
#include "AuthorityStore.h"
#include "AutoPlanField.h"
#include "ClientWindowTest.h"
#include "ConflictDialog.h"
#include "ErrorText.h"
#include "Kelvo_Fields.h"
#include "NoticeMerger.h"
#include "PlanCodes.h"
#include "PlanDetails.h"
#include "PlanEvents.h"
#include "PlanTable.h"
#include "TestStatus.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableWidget>
#include <QWindow>
#include <QtTest>

namespace BaseField = AutoPlanField::BaseField;

namespace {

const QString Colleague = QStringLiteral("trader02");
const QDateTime ChangeTime = QDateTime::fromString(QStringLiteral("2024-05-06T10:30:00.000Z"), Qt::ISODateWithMs);
constexpr int Samples = 60;

} // namespace

class LiveChangesTest : public ClientWindowTest {
    Q_OBJECT

protected:
    void tidyUp() override
    {
        m_colleague.close();
        ClientWindowTest::tidyUp();
    }

private Q_SLOTS:
    void aChangeByAnotherClientAppearsByItself()
    {
        const QString plan = createSamples(1).constFirst();
        openWindow();
        QCOMPARE(targetOf(0), QStringLiteral("1,000 股"));
        changeAsColleague(plan);
        QTRY_COMPARE_WITH_TIMEOUT(targetOf(0), QStringLiteral("2,000 股"), Patience);
        QTRY_VERIFY_WITH_TIMEOUT(
            detailTexts().contains(QStringLiteral("trader02 修改为第2版：目标总量 1,000 股→2,000 股")), Patience);
        QCOMPARE(window().currentPlan(), plan);
    }

    void aRightThatIsTakenAwayIsNotOfferedInAnOpenForm()
    {
        using namespace PlanCodes;
        openWindow();
        pressForEditor(Qt::Key_N);
        choose(*dialogEditor(), "combx_fundAccount", FreeAccount);
        const auto* const types = field<QComboBox>(*dialogEditor(), "combx_instructionType");
        QVERIFY(types->findData(InstructionType::Bond) >= 0);
        const QString user = ClientSession::instance().user().id;
        QCOMPARE(AuthorityStore(colleague()).revoke(user, FreeAccount, InstructionType::Bond), Status());
        QTRY_VERIFY_WITH_TIMEOUT(
            !ClientSession::instance().accounts().hasAuthority(FreeAccount, InstructionType::Bond), Patience);
        choose(*dialogEditor(), "combx_fundAccount", ReviewedAccount);
        choose(*dialogEditor(), "combx_fundAccount", FreeAccount);
        QVERIFY(types->count() > 0);
        QVERIFY(types->findData(InstructionType::Bond) < 0);
    }

    void anInstructionOfAnotherClientAppearsByItself()
    {
        const QString plan = createSamples(1).constFirst();
        openWindow();
        QCOMPARE(
            InstructionStore(colleague()).add(plan, SampleSession::today(), {}, { Colleague, ChangeTime }).status(),
            Status());
        QTRY_VERIFY_WITH_TIMEOUT(detailTexts().contains(QStringLiteral("已下达指令")), Patience);
    }

    void theCurrentRowStaysInItsPlace()
    {
        const QStringList plans = createAsColleague(Samples);
        openWindow();
        window().selectPlan(plans.at(Samples / 2));
        const int place = currentPlace();
        QVERIFY(place > 0);
        createAsColleague(3);
        QTRY_COMPARE_WITH_TIMEOUT(table().planCount(), Samples + 3, Patience);
        QCOMPARE(window().currentPlan(), plans.at(Samples / 2));
        QVERIFY(table().selectionModel()->isRowSelected(Samples / 2 + 3, QModelIndex()));
        QCOMPARE(currentPlace(), place);
        QCOMPARE(text(window(), "status"), QStringLiteral("共63个计划，上方有3个新计划"));
        table().scrollToTop();
        QVERIFY(press(&window(), Qt::Key_F5));
        QCOMPARE(text(window(), "status"), QStringLiteral("共63个计划"));
    }

    void newPlansThatAreVisibleAreNotCountedAsAbove()
    {
        createAsColleague(1);
        openWindow();
        createAsColleague(5);
        QTRY_COMPARE_WITH_TIMEOUT(table().planCount(), 6, Patience);
        QCOMPARE(text(window(), "status"), QStringLiteral("共6个计划"));
    }

    void theFirstRowStaysInItsPlace()
    {
        const QStringList plans = createAsColleague(Samples);
        openWindow();
        QCOMPARE(window().currentPlan(), plans.constFirst());
        createAsColleague(1);
        QTRY_COMPARE_WITH_TIMEOUT(table().planCount(), Samples + 1, Patience);
        QCOMPARE(window().currentPlan(), plans.constFirst());
        QCOMPARE(currentPlace(), 0);
    }

    void aTableThatWasScrolledAwayStaysThere()
    {
        const QStringList plans = createAsColleague(Samples);
        openWindow();
        window().selectPlan(plans.at(1));
        table().verticalScrollBar()->setValue(20);
        const QString first = idOf(table().rowAt(0));
        createAsColleague(2);
        QTRY_COMPARE_WITH_TIMEOUT(table().planCount(), Samples + 2, Patience);
        QCOMPARE(idOf(table().rowAt(0)), first);
        QCOMPARE(table().verticalScrollBar()->value(), 22);
        QCOMPARE(window().currentPlan(), plans.at(1));
    }

    void aPlanThatAppearsBetweenOthersMovesOnlyThoseBelow()
    {
        createAsColleague(Samples / 2);
        const QString assigned = createOfOthers();
        const QStringList plans = createAsColleague(Samples / 2);
        openWindow();
        window().selectPlan(plans.at(Samples / 4));
        const int place = currentPlace();
        assign(assigned, ClientSession::instance().user().name);
        QTRY_COMPARE_WITH_TIMEOUT(table().planCount(), Samples + 1, Patience);
        QCOMPARE(idOf(Samples / 2), assigned);
        QCOMPARE(window().currentPlan(), plans.at(Samples / 4));
        QCOMPARE(currentPlace(), place);
    }

    void aCurrentPlanThatIsGoneIsNotReplaced()
    {
        createAsColleague(2);
        const QString assigned = createOfOthers();
        assign(assigned, ClientSession::instance().user().name);
        openWindow();
        QCOMPARE(window().currentPlan(), assigned);
        assign(assigned, QString());
        QTRY_COMPARE_WITH_TIMEOUT(table().planCount(), 2, Patience);
        QCOMPARE(window().currentPlan(), QString());
        QTRY_VERIFY_WITH_TIMEOUT(detailTexts().contains(QStringLiteral("选择一个计划，查看全部内容。")), Patience);
    }

    void anAccountThatIsGrantedMeanwhileIsOffered()
    {
        // A server gives notice of plans and instructions only.
        if (TestDatabase::isOnServer())
            return;
        createSamples(1);
        QCOMPARE(session().reopen(Colleague), Status());
        openWindow();
        QCOMPARE(boxOf([this] { press(&window(), Qt::Key_N, Qt::ControlModifier); }, "msgBoxWarning"),
            errorText({ Error::UserWithoutAccount, { Colleague } }));
        QCOMPARE(AccountStore(colleague()).assign(Colleague, FreeAccount), Status());
        QCOMPARE(
            AuthorityStore(colleague()).grant(Colleague, FreeAccount, PlanCodes::InstructionType::Ordinary), Status());
        QTRY_COMPARE_WITH_TIMEOUT(field<QTableView>(window(), "planTable")->model()->rowCount(), 1, Patience);
        pressForEditor(Qt::Key_N);
        FormDriver driver = dialogDriver();
        driver.fill(ordinary());
        QCOMPARE(driver.takeProblems(), QStringList());
    }

    void anAccountThatIsTakenAwayIsNotOfferedByTheNextForm()
    {
        // A server gives notice of plans and instructions only.
        if (TestDatabase::isOnServer())
            return;
        createSamples(1);
        openWindow();
        pressForEditor(Qt::Key_N);
        const AutoParamSetting* const before = dialogEditor();
        QVERIFY(press(&dialog(), Qt::Key_Escape));
        QVERIFY(!dialog().isVisible());
        QCOMPARE(AccountStore(colleague()).unassign(QStringLiteral("trader01"), FreeAccount), Status());
        QTRY_COMPARE_WITH_TIMEOUT(window().currentPlan(), QString(), Patience);
        pressForEditor(Qt::Key_N);
        QVERIFY(dialogEditor() != before);
        QVERIFY(!ClientSession::instance().accounts().find(FreeAccount));
        QVERIFY(press(&dialog(), Qt::Key_Escape));
    }

    void ownChangesAreNotNoticed()
    {
        const QString plan = createSamples(1).constFirst();
        openWindow();
        const QSignalSpy changes(&PlanEvents::instance(), &PlanEvents::plansChanged);
        createSamples(2);
        changeAsColleague(plan);
        QTRY_COMPARE_WITH_TIMEOUT(changes.count(), 1, Patience);
        QCoreApplication::processEvents();
        QCOMPARE(changes.count(), 1);
    }

    void withoutAWindowNothingIsNoticed()
    {
        const QString plan = createSamples(1).constFirst();
        openWindow();
        const QSignalSpy changes(&PlanEvents::instance(), &PlanEvents::plansChanged);
        closeWindow();
        changeAsColleague(plan);
        // A file is looked at once a second.
        QVERIFY(!QTest::qWaitFor([&changes] { return changes.count() > 0; }, 1500));
    }

    void detailsThatStayEqualAreKept()
    {
        const QString plan = createSamples(2).constFirst();
        openWindow();
        window().selectPlan(plan);
        auto* const details = window().findChild<PlanDetails*>();
        window().resize(window().width(), 300);
        QCoreApplication::processEvents();
        QScrollBar* const bar = details->verticalScrollBar();
        bar->setValue(bar->maximum() / 2);
        const int scrolled = bar->value();
        QVERIFY(scrolled > 0);
        const QWidget* const shown = details->widget();
        createAsColleague(1);
        QTRY_COMPARE_WITH_TIMEOUT(table().planCount(), 3, Patience);
        QCoreApplication::processEvents();
        QCOMPARE(details->widget(), shown);
        changeAsColleague(plan);
        QTRY_VERIFY_WITH_TIMEOUT(details->widget() != shown, Patience);
        QCOMPARE(bar->value(), scrolled);
    }

    void theTableWaitsForThePressedMouse()
    {
        const QString plan = createSamples(1).constFirst();
        openWindow();
        const QPoint corner(5, 5);
        QTest::mousePress(window().windowHandle(), Qt::LeftButton, Qt::NoModifier, corner);
        const QSignalSpy changes(&PlanEvents::instance(), &PlanEvents::plansChanged);
        changeAsColleague(plan);
        QTRY_COMPARE_WITH_TIMEOUT(changes.count(), 1, Patience);
        QCOMPARE(targetOf(0), QStringLiteral("1,000 股"));
        QTest::mouseRelease(window().windowHandle(), Qt::LeftButton, Qt::NoModifier, corner);
        QTRY_COMPARE_WITH_TIMEOUT(targetOf(0), QStringLiteral("2,000 股"), Patience);
    }

    void manyChangesAreMerged()
    {
        const QString plan = createSamples(1).constFirst();
        openWindow();
        const QSignalSpy refreshes(table().model(), &QAbstractItemModel::dataChanged);
        QElapsedTimer passed;
        passed.start();
        constexpr int Changes = 50;
        for (int version = 1; version <= Changes; ++version) {
            changeAsColleague(plan, version);
            QCoreApplication::processEvents();
        }
        const QString last = QStringLiteral("trader02 修改为第%1版").arg(Changes + 1);
        QTRY_VERIFY_WITH_TIMEOUT(!detailTexts().filter(last).isEmpty(), Patience);
        // Each refresh changes every cell of the row.
        const auto count = refreshes.count() / PlanColumns::Count;
        QVERIFY2(count <= 2 + passed.elapsed() / 200, qPrintable(QString::number(count)));
    }

    void anOpenFormSaysThatItsPlanWasChanged()
    {
        const QString plan = createSamples(1).constFirst();
        openWindow();
        pressForEditor(Qt::Key_E);
        dialogDriver().type("le_targetTotalNum", QStringLiteral("3000"));
        QVERIFY(!notice()->isVisible());
        changeAsColleague(plan);
        QTRY_VERIFY_WITH_TIMEOUT(notice()->isVisible(), Patience);
        QCOMPARE(notice()->findChild<QLabel*>()->text(),
            QStringLiteral("您正在修改第1版，方汀已于2024-05-06 18:30:00保存了第2版。"));
        QCOMPARE(totalOfForm(), QStringLiteral("3,000"));
        QCOMPARE(PlanStore(colleague()).setState(plan, 2, PlanState::Paused, {}, { Colleague, ChangeTime }), Status());
        QTRY_VERIFY_WITH_TIMEOUT(
            notice()->findChild<QLabel*>()->text().endsWith(QStringLiteral("保存了第3版。")), Patience);
        QVERIFY(dialog().isVisible());
    }

    void theFormIsKeptOnTopOfTheChangeThatWasShown()
    {
        const QString plan = openEditAndChange();
        QTest::mouseClick(field<QPushButton>(*notice(), "btnShowChange"), Qt::LeftButton);
        const auto* const shown = field<QTableWidget>(*conflict(), "conflictFields");
        QCOMPARE(shown->rowCount(), 1);
        QCOMPARE(shown->item(0, 1)->text(), QStringLiteral("1,000 股"));
        QCOMPARE(shown->item(0, 2)->text(), QStringLiteral("2,000 股"));
        QVERIFY(shown->isColumnHidden(3));
        QTest::mouseClick(field<QPushButton>(*conflict(), "btnKeep"), Qt::LeftButton);
        QVERIFY(!notice()->isVisible());
        QCOMPARE(totalOfForm(), QStringLiteral("3,000"));
        QCOMPARE(send(), QStringLiteral("交易计划%1修改成功!").arg(plan));
        QCOMPARE(plans().plan(plan)->version, 3);
        QCOMPARE(plans().plan(plan)->record.value(BaseField::totalQty).toString(), QStringLiteral("3000"));
    }

    void theChangeIsReadIntoTheForm()
    {
        openEditAndChange();
        QTest::mouseClick(field<QPushButton>(*notice(), "btnShowChange"), Qt::LeftButton);
        QTest::mouseClick(field<QPushButton>(*conflict(), "btnReload"), Qt::LeftButton);
        QVERIFY(!notice()->isVisible());
        QCOMPARE(totalOfForm(), QStringLiteral("2,000"));
    }

    void aNoticeEndsWithItsForm()
    {
        openEditAndChange();
        dialog().leave();
        pressForEditor(Qt::Key_N);
        QVERIFY(!notice()->isVisible());
    }

    void changesOfOtherPlansAreNotOfTheForm()
    {
        const QStringList plans = createSamples(2);
        openWindow();
        window().selectPlan(plans.constFirst());
        pressForEditor(Qt::Key_E);
        changeAsColleague(plans.at(1));
        QTRY_COMPARE_WITH_TIMEOUT(targetOf(1), QStringLiteral("2,000 股"), Patience);
        QCoreApplication::processEvents();
        QVERIFY(!notice()->isVisible());
    }

    void theFirstNoticeActsAtOnceAndTheLastIsNotLost()
    {
        int actions = 0;
        bool mayAct = true;
        NoticeMerger merger([&actions] { ++actions; }, [&mayAct] { return mayAct; });
        merger.notice();
        QCOMPARE(actions, 1);
        merger.notice();
        merger.notice();
        QCOMPARE(actions, 1);
        QTRY_COMPARE_WITH_TIMEOUT(actions, 2, Patience);
        mayAct = false;
        merger.notice();
        QCOMPARE(actions, 2);
        mayAct = true;
        QTRY_COMPARE_WITH_TIMEOUT(actions, 3, Patience);
    }

    void aNoticeDuringAnActionLeadsToAnother()
    {
        int actions = 0;
        NoticeMerger* self = nullptr;
        NoticeMerger merger(
            [&] {
                if (++actions == 1)
                    self->notice();
            },
            [] { return true; });
        self = &merger;
        merger.notice();
        QTRY_COMPARE_WITH_TIMEOUT(actions, 2, Patience);
    }

private:
    PlanTable& table() const { return *field<PlanTable>(window(), "planTable"); }
    QString idOf(int row) const { return table().model()->index(row, PlanColumns::Id).data().toString(); }
    QString targetOf(int row) const { return table().model()->index(row, PlanColumns::Target).data().toString(); }
    /// Above the current row, in pixels.
    int currentPlace() const { return table().visualRect(table().currentIndex()).top(); }

    QStringList detailTexts() const
    {
        QStringList texts;
        for (const QLabel* const label : window().findChild<PlanDetails*>()->findChildren<QLabel*>())
            texts << label->text();
        return texts;
    }

    QWidget* notice() const { return field<QWidget>(dialog(), "changeNotice"); }
    ConflictDialog* conflict() const { return dialog().findChild<ConflictDialog*>(); }
    QString totalOfForm() const
    {
        return field<QWidget>(*dialogEditor(), "le_targetTotalNum")->findChild<QLineEdit*>()->text();
    }

    /// Opens a plan of 1,000 shares, types 3,000 and lets the colleague make it 2,000.
    QString openEditAndChange()
    {
        const QString plan = createSamples(1).constFirst();
        openWindow();
        pressForEditor(Qt::Key_E);
        dialogDriver().type("le_targetTotalNum", QStringLiteral("3000"));
        changeAsColleague(plan);
        const auto shown = [this] { QTRY_VERIFY_WITH_TIMEOUT(notice()->isVisible(), Patience); };
        shown();
        return plan;
    }

    Database& colleague()
    {
        if (!m_colleague.isOpen()) {
            const auto open = [this] { QCOMPARE(m_colleague.open(session().ownersFile()), Status()); };
            open();
        }
        return m_colleague;
    }

    void changeAsColleague(const QString& plan, int version = 1)
    {
        const auto record = with(SampleSession::record(), BaseField::totalQty, QString::number(1000 * (version + 1)));
        QCOMPARE(PlanStore(colleague()).modify(plan, version, record, { Colleague, ChangeTime }), Status());
    }

    /// Ids of new plans of the sample record, the newest first.
    QStringList createAsColleague(int count)
    {
        const auto record = SampleSession::record();
        QStringList ids;
        const Status status = colleague().transaction([&] {
            Status created;
            while (ids.size() < count && created) {
                const auto id = PlanStore(colleague()).create(record, { Colleague, ChangeTime });
                created = id.status();
                ids.prepend(id.valueOr(QString()));
            }
            return created;
        });
        return status ? ids : QStringList();
    }

    /// A plan of an account of others, which the user does not see unless it is assigned to him.
    QString createOfOthers() { return *PlanStore(colleague()).create(recordOfOthers(), { Colleague, ChangeTime }); }
    static PlanStore::Record recordOfOthers()
    {
        return with(SampleSession::record(), Kelvo_Fields::UserAccount::tradingAccount, QStringLiteral("100003"));
    }

    void assign(const QString& plan, const QString& userName)
    {
        PlanStore store(colleague());
        const auto record = with(recordOfOthers(), BaseField::expectedUser, userName);
        QCOMPARE(store.modify(plan, store.plan(plan)->version, record, { Colleague, ChangeTime }), Status());
    }

    Database m_colleague;
};

QTEST_MAIN(LiveChangesTest)
#include "tst_live_changes.moc"
