#include "AutoPlanField.h"
#include "EditorTest.h"
#include "FormView.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "PlanVocabulary.h"
#include "VorSearchBox.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

namespace {

const QString Created = QStringLiteral("tip: 交易自动规划创建成功!");
const QString Modified = QStringLiteral("tip: 交易计划P1修改成功!");

} // namespace

/// What OK does with valid and invalid plans, and which objects may be deleted meanwhile.
class SubmissionTest : public EditorTest {
    Q_OBJECT

private:
    /// A form with one account and a stored plan to edit.
    void open()
    {
        openSampleMarket();
        script().accounts = script().accounts.mid(0, 1);
        script().positions = QList<FieldMap>();
        storePlan(PlanId, PlanSample());
        constructShown();
    }

    /// The same, filled with a new plan or with the stored one.
    void openFilled(bool edit = false)
    {
        open();
        fill(edit);
        script().forget();
    }

    void fill(bool edit = false)
    {
        if (edit)
            editor().editPlan(PlanId);
        else
            fillForm(editor(), PlanSample());
    }

    /// Makes the next OK end in a kind of box: a warning, a question, a tip or an error.
    void provoke(const QString& kind)
    {
        if (kind == QLatin1String("warning"))
            type(editor(), "lineEdit_price1", QString());
        if (kind.endsWith(QLatin1String("question")))
            choose(editor(), "combx_tradeSide", Kelvo_Values::OrderSide::sell);
        if (kind == QLatin1String("error"))
            refuse(QStringLiteral("拒绝"));
        script().questionAnswer = kind == QLatin1String("declined question") ? 0 : 1;
        script().forget();
    }

    void refuse(const QString& reason) { script().createAnswer = script().modifyAnswer = reason; }
    void chooseReduction() { choose(editor(), "combx_planType", AutoPlanTemplate::ReduceHoldings); }

    /// The changes of the form after an action, and "signal" if the host got its signal.
    QStringList changesOf(const std::function<void()>& action)
    {
        const model::FormView view(editor());
        const model::FormState before = view.state();
        const QSignalSpy done(&editor(), &AutoParamSetting::signalBtnCancelClicked);
        action();
        return model::differences(before, view.state()) + (done.count() > 0 ? lines("signal") : QStringList());
    }

    void kindsOfBoxes()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<bool>("edit");
        QTest::addColumn<int>("sentBefore");
        QTest::addColumn<int>("sentInAll");
        QTest::newRow("a warning") << "warning" << false << 0 << 0;
        QTest::newRow("a question that is accepted") << "question" << false << 0 << 1;
        QTest::newRow("a question that is declined") << "declined question" << false << 0 << 0;
        QTest::newRow("the tip of a creation") << "tip" << false << 1 << 1;
        QTest::newRow("the error of a creation") << "error" << false << 1 << 1;
        QTest::newRow("the tip of a modification") << "tip" << true << 1 << 1;
        QTest::newRow("the error of a modification") << "error" << true << 1 << 1;
    }

private Q_SLOTS:
    // --- What is sent

    void aPlanIsSentAndTheFormIsCleared_data()
    {
        QTest::addColumn<bool>("edit");
        QTest::newRow("a new plan") << false;
        QTest::newRow("an edited one") << true;
    }

    void aPlanIsSentAndTheFormIsCleared()
    {
        QFETCH(bool, edit);
        openFilled(edit);
        const QSignalSpy accepted(&editor(), &AutoParamSetting::signalBtnOkClicked);
        connect(&editor(), &AutoParamSetting::signalBtnCancelClicked, this,
            [this] { script().step(QStringLiteral("signalBtnCancelClicked")); });
        QCOMPARE(ok(), QStringList{ edit ? Modified : Created });
        QCOMPARE(script().boxes.constFirst().parent, static_cast<QWidget*>(&editor()));
        QCOMPARE(script().createdRecords.size(), edit ? 0 : 1);
        QCOMPARE(script().modifiedRecords.size(), edit ? 1 : 0);
        const FieldMap record = (script().createdRecords + script().modifiedRecords).constFirst();
        QCOMPARE(record.value(AutoPlanField::BaseField::autoPlanId), edit ? QVariant(PlanId) : QVariant());
        // The record, the service and the box, then the form is cleared, and the host gets its signal last.
        const QStringList steps = script().steps;
        const int user = steps.indexOf(QStringLiteral("GetLoginAccountDetail()"));
        const QString operation = edit ? QStringLiteral("modifyPlan") : QStringLiteral("CreateNewPlan");
        const int send = steps.indexOf(script().callsOf(operation).value(0));
        QVERIFY(0 <= user && user < send);
        QCOMPARE(steps.value(send - 1),
            edit ? QStringLiteral("GetPlanInfo(P1)")
                 : QStringLiteral("CBusinessDataBase::GetSecuritySubTypeBySymbol(600000.K_SH)"));
        QVERIFY(steps.value(send + 1).startsWith(QStringLiteral("ShowTipMsgBox(")));
        QCOMPARE(steps.value(send + 2), QStringLiteral("le_symbol.setSymbol(\"\")"));
        QCOMPARE(steps.indexOf(QStringLiteral("signalBtnCancelClicked")), steps.size() - 1);
        // Once for the rule about plans that have begun, once for the security account.
        QCOMPARE(script().countOf(QStringLiteral("GetPlanInfo")), edit ? 2 : 0);
        QCOMPARE(accepted.count(), 0);
        QCOMPARE(field<VorSearchBox>(editor(), "le_symbol")->getSymbol(), QString());
        // Cleared, the form fails in the rules.
        QCOMPARE(ok(), QStringList{ QStringLiteral("warning: 指令类型必填，请重新编辑！") });
        QCOMPARE(sent(), 1);
    }

    void aPlanThatFailsARuleIsNotSent_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::newRow("it breaks one") << "warning";
        QTest::newRow("its trader declines a question") << "declined question";
    }

    void aPlanThatFailsARuleIsNotSent()
    {
        QFETCH(QString, kind);
        openFilled();
        provoke(kind);
        QCOMPARE(changesOf([this] { press(editor(), "btn_ok"); }), QStringList());
        QCOMPARE(script().boxes.size(), 1);
        QVERIFY(kind.endsWith(script().boxes.constFirst().kind));
        QCOMPARE(sent(), 0);
        QCOMPARE(script().countOf(QStringLiteral("GetLoginAccountDetail")), 0);
    }

    void aRefusalIsShownAndCanBeSentAgain_data()
    {
        QTest::addColumn<QString>("reason");
        QTest::newRow("a sentence") << "资金不足，请入金！";
        QTest::newRow("a blank") << " ";
        QTest::newRow("with what looks like places to fill") << "%1 失败 %2";
        QTest::newRow("over two lines") << "第一行\n第二行";
        QTest::newRow("the text of success") << "交易自动规划创建成功!";
    }

    void aRefusalIsShownAndCanBeSentAgain()
    {
        QFETCH(QString, reason);
        for (const bool edit : { false, true }) {
            script().reset();
            openFilled(edit);
            refuse(reason);
            QCOMPARE(changesOf([this] { press(editor(), "btn_ok"); }), QStringList());
            const QString prefix =
                edit ? QStringLiteral("error: 交易计划P1修改失败，失败原因：") : QStringLiteral("error: ");
            QCOMPARE(said(), QStringList{ prefix + reason });
            QCOMPARE(script().boxes.constFirst().parent, static_cast<QWidget*>(&editor()));
            refuse(QString());
            QCOMPARE(ok(), QStringList{ edit ? Modified : Created });
            const QList<FieldMap> records = script().createdRecords + script().modifiedRecords;
            QCOMPARE(records.size(), 2);
            QCOMPARE(records.at(1), records.at(0));
        }
    }

    void anIdWithAPlaceholderIsShownUnchanged()
    {
        open();
        storePlan(QStringLiteral("P%2"), PlanSample());
        editor().editPlan(QStringLiteral("P%2"));
        refuse(QStringLiteral("原因"));
        QCOMPARE(ok(), QStringList{ QStringLiteral("error: 交易计划P%2修改失败，失败原因：原因") });
    }

    void anEditKeepsTheStoredSecurityAccount_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<QString>("sentAccount");
        QTest::newRow("another than the account's data give") << QVariant(QStringLiteral("A999")) << "A999";
        QTest::newRow("a number becomes text") << QVariant(123456) << "123456";
        QTest::newRow("none is stored") << QVariant() << QString();
    }

    void anEditKeepsTheStoredSecurityAccount()
    {
        QFETCH(QVariant, stored);
        QFETCH(QString, sentAccount);
        const QString& key = Kelvo_Fields::UserAccount::securityAccount;
        open();
        FieldMap& plan = script().plans[PlanId];
        plan.remove(key);
        if (stored.isValid())
            plan.insert(key, stored);
        fill(true);
        press(editor(), "btn_ok");
        QCOMPARE(script().modifiedRecords.value(0).value(key), QVariant(sentAccount));
    }

    void anEditOfAPlanThatCouldNotBeLoadedIsLeftToTheService()
    {
        open();
        script().modifyAnswer = QStringLiteral("计划不存在");
        log().expectWarning(QStringLiteral("未找到计划ID【P9】的计划信息"));
        editor().editPlan(QStringLiteral("P9"));
        fill();
        script().plans.insert(
            QStringLiteral("P9"), { { AutoPlanField::BaseField::beginDate, QStringLiteral("2024/06/03") } });
        QCOMPARE(ok(), QStringList{ QStringLiteral("error: 交易计划P9修改失败，失败原因：计划不存在") });
        QCOMPARE(script().createdRecords.size(), 0);
        const FieldMap record = script().modifiedRecords.value(0);
        QCOMPARE(record.value(AutoPlanField::BaseField::autoPlanId), QVariant(QStringLiteral("P9")));
        QCOMPARE(record.value(Kelvo_Fields::UserAccount::securityAccount), QVariant(QString()));
    }

    void leavingAnEditedPlanCreatesAgain()
    {
        openFilled(true);
        editor().resetEnable();
        fill();
        QCOMPARE(ok(), QStringList{ Created });
        QCOMPARE(script().modifiedRecords.size(), 0);
    }

    void okOnTheClearedFormMissesTheAccountFirst()
    {
        openSampleMarket();
        storePlan(PlanId, PlanSample());
        constructShown();
        fill();
        QCOMPARE(ok(), QStringList{ Created });
        QCOMPARE(ok(), QStringList{ QStringLiteral("warning: 未绑定资金帐号！") });
        // Unless an edit has locked it.
        fill(true);
        QCOMPARE(ok(), QStringList{ Modified });
        QCOMPARE(ok(), QStringList{ QStringLiteral("warning: 指令类型必填，请重新编辑！") });
    }

    void okOnAFormThatNoServiceFilledFailsInTheRules()
    {
        script().staticTexts.clear();
        script().tradeDates = QList<QDate>();
        log().expectWarning(QStringLiteral("AutoParamSetting::InitDateEffectivePeriod"));
        constructShown();
        QCOMPARE(ok(), QStringList{ QStringLiteral("warning: 未绑定资金帐号！") });
        QCOMPARE(sent(), 0);
    }

    // --- OK inside OK

    void okPressedAgainWhileABoxIsOpenSendsNothing_data() { kindsOfBoxes(); }

    void okPressedAgainWhileABoxIsOpenSendsNothing()
    {
        QFETCH(QString, kind);
        QFETCH(bool, edit);
        QFETCH(int, sentInAll);
        openFilled(edit);
        provoke(kind);
        bool wasOpen = false;
        script().whileBoxOpen = [this, &wasOpen] {
            wasOpen = true;
            press(editor(), "btn_ok");
            QTest::mouseClick(field<QAbstractButton>(editor(), "btn_ok"), Qt::LeftButton);
        };
        press(editor(), "btn_ok");
        QVERIFY(wasOpen);
        QCOMPARE(sent(), sentInAll);
        QCOMPARE(script().boxes.size(), kind == QLatin1String("question") ? 2 : 1);
    }

    void okWorksAgainAfterItsBoxes()
    {
        openFilled();
        refuse(QStringLiteral("拒绝"));
        script().whileBoxOpen = [this] { press(editor(), "btn_ok"); };
        press(editor(), "btn_ok");
        QCOMPARE(sent(), 1);
        refuse(QString());
        press(editor(), "btn_ok");
        QCOMPARE(sent(), 2);
        // After success too.
        fill();
        press(editor(), "btn_ok");
        QCOMPARE(sent(), 3);
    }

    void okIsLiveAgainBeforeTheFormIsCleared_data() { aPlanIsSentAndTheFormIsCleared_data(); }

    void okIsLiveAgainBeforeTheFormIsCleared()
    {
        QFETCH(bool, edit);
        openFilled(edit);
        const QAbstractButton* const button = field<QAbstractButton>(editor(), "btn_ok");
        QStringList silent;
        QStringList live;
        script().onCall = [&](const ScriptCall& call) {
            (button->signalsBlocked() ? silent : live).append(call.operation);
        };
        press(editor(), "btn_ok");
        QCOMPARE(silent.size() + live.size(), script().calls.size());
        QCOMPARE(silent.constLast(), QStringLiteral("ShowTipMsgBox"));
        QCOMPARE(live.value(0), QStringLiteral("le_symbol.setSymbol"));
        QVERIFY(!button->signalsBlocked());
    }

    void okPressedByTheHostOnItsSignalFailsInTheRules()
    {
        openFilled();
        const QSignalSpy done(&editor(), &AutoParamSetting::signalBtnCancelClicked);
        QStringList heard;
        connect(&editor(), &AutoParamSetting::signalBtnCancelClicked, this, [this, &heard] { heard = ok(); });
        press(editor(), "btn_ok");
        QCOMPARE(sent(), 1);
        QCOMPARE(done.count(), 1);
        QCOMPARE(heard, QStringList{ QStringLiteral("warning: 指令类型必填，请重新编辑！") });
    }

    void theHostMaySendTheNextPlanOnItsSignal()
    {
        openFilled(true);
        const QSignalSpy done(&editor(), &AutoParamSetting::signalBtnCancelClicked);
        connect(&editor(), &AutoParamSetting::signalBtnCancelClicked, this, [this, &done] {
            if (done.count() > 1)
                return;
            editor().resetEnable();
            fill();
            press(editor(), "btn_ok");
        });
        press(editor(), "btn_ok");
        QCOMPARE(script().modifiedRecords.size(), 1);
        QCOMPARE(script().createdRecords.size(), 1);
        QCOMPARE(done.count(), 2);
    }

    void theResultNamesThePlanThatWasSent()
    {
        openFilled(true);
        script().onCall = [this](const ScriptCall& call) {
            if (call.operation == QLatin1String("modifyPlan"))
                editor().resetEnable();
        };
        QCOMPARE(ok(), QStringList{ Modified });
    }

    // --- The end of the editor

    void theEditorMayBeDeletedWhileABoxIsOpen_data() { kindsOfBoxes(); }

    void theEditorMayBeDeletedWhileABoxIsOpen()
    {
        QFETCH(QString, kind);
        QFETCH(bool, edit);
        QFETCH(int, sentBefore);
        openFilled(edit);
        provoke(kind);
        const QSignalSpy done(&editor(), &AutoParamSetting::signalBtnCancelClicked);
        QString shown;
        script().whileBoxOpen = [this, &shown] {
            shown = script().boxes.constLast().kind;
            destroy();
            script().forget();
        };
        QTest::mouseClick(field<QAbstractButton>(editor(), "btn_ok"), Qt::LeftButton);
        QVERIFY(kind.endsWith(shown) && !shown.isEmpty());
        QCOMPARE(sent(), sentBefore);
        QCOMPARE(script().calls, QStringList());
        QCOMPARE(done.count(), 0);
    }

    void theEditorMayBeDeletedWhileTheServiceWorks_data()
    {
        QTest::addColumn<bool>("edit");
        QTest::addColumn<QString>("answer");
        QTest::newRow("it creates") << false << QString();
        QTest::newRow("it refuses to create") << false << "拒绝";
        QTest::newRow("it modifies") << true << QString();
        QTest::newRow("it refuses to modify") << true << "拒绝";
    }

    void theEditorMayBeDeletedWhileTheServiceWorks()
    {
        QFETCH(bool, edit);
        QFETCH(QString, answer);
        openFilled(edit);
        refuse(answer);
        const QSignalSpy done(&editor(), &AutoParamSetting::signalBtnCancelClicked);
        destroyDuring(edit ? QStringLiteral("modifyPlan") : QStringLiteral("CreateNewPlan"));
        QTest::mouseClick(field<QAbstractButton>(editor(), "btn_ok"), Qt::LeftButton);
        QCOMPARE(sent(), 1);
        QCOMPARE(script().calls, QStringList());
        QCOMPARE(done.count(), 0);
    }

    void theHostMayDeleteTheEditorOnItsSignal_data()
    {
        QTest::addColumn<QByteArray>("button");
        QTest::newRow("of a sent plan") << QByteArray("btn_ok");
        QTest::newRow("of Cancel") << QByteArray("btn_cancel");
    }

    void theHostMayDeleteTheEditorOnItsSignal()
    {
        QFETCH(QByteArray, button);
        openFilled();
        connect(&editor(), &AutoParamSetting::signalBtnCancelClicked, this, [this] { destroy(); });
        const QPointer<AutoParamSetting> alive(&editor());
        QTest::mouseClick(field<QAbstractButton>(editor(), button.constData()), Qt::LeftButton);
        QVERIFY(alive.isNull());
        QCOMPARE(sent(), button == "btn_ok" ? 1 : 0);
    }

    void theEditorMayBeDeletedWhileTheAgreementIsOpen_data()
    {
        QTest::addColumn<QString>("way");
        QTest::newRow("at once") << "at once";
        QTest::newRow("chosen by the keyboard") << "keyboard";
        QTest::newRow("later") << "later";
    }

    void theEditorMayBeDeletedWhileTheAgreementIsOpen()
    {
        QFETCH(QString, way);
        script().unsignedClients = lines("C-acc1");
        openFilled();
        const QPointer<AutoParamSetting> alive(&editor());
        script().whileAgreementOpen = [this, way] {
            if (way == QLatin1String("later")) {
                editor().deleteLater();
                QCoreApplication::processEvents();
                QCoreApplication::sendPostedEvents(&editor(), QEvent::DeferredDelete);
            } else {
                destroy();
            }
            script().forget();
        };
        if (way == QLatin1String("keyboard"))
            QTest::keyClick(box(editor(), "combx_planType"), Qt::Key_End);
        else
            chooseReduction();
        QVERIFY(!script().whileAgreementOpen);
        QVERIFY(alive.isNull());
        QCOMPARE(script().calls, QStringList());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        destroy();
    }

    void theEditorMayBeDeletedWhileAnAgreementIsOpenInsideAnother_data()
    {
        QTest::addColumn<bool>("underTheInnerOne");
        QTest::newRow("under the inner one") << true;
        QTest::newRow("under the outer one, the inner one closed") << false;
    }

    void theEditorMayBeDeletedWhileAnAgreementIsOpenInsideAnother()
    {
        QFETCH(bool, underTheInnerOne);
        script().unsignedClients = lines("C-acc1");
        openFilled();
        const QPointer<QComboBox> planTypes = box(editor(), "combx_planType");
        bool isLeftForTheOuterSignal = false;
        script().whileAgreementOpen = [&] {
            script().whileAgreementOpen = [&] {
                if (underTheInnerOne)
                    destroy();
            };
            choose(editor(), "combx_planType", AutoPlanTemplate::CumulativeQty);
            chooseReduction();
            if (!underTheInnerOne)
                destroy();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            isLeftForTheOuterSignal = !planTypes.isNull();
            script().forget();
        };
        chooseReduction();
        QVERIFY(!script().whileAgreementOpen);
        QVERIFY(isLeftForTheOuterSignal);
        QCOMPARE(script().calls, QStringList());
        QVERIFY(!planTypes.isNull());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(planTypes.isNull());
    }
};

QTEST_MAIN(SubmissionTest)
#include "tst_submission.moc"
