#include "EditorTest.h"
#include "OrloDateEdit.h"
#include "PlanForm.h"

#include <QComboBox>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

namespace {

using Record = QMap<QString, QVariant>;

const QString Account = QStringLiteral("acc1");
const QString Stock = QStringLiteral("600000.K_SH");
const QString Id = QStringLiteral("P1");

/// What every field of a form shows, by object name.
QMap<QString, QString> contents(const QWidget& form)
{
    QMap<QString, QString> shown;
    for (const QComboBox* const combo : form.findChildren<QComboBox*>())
        shown.insert(combo->objectName(), QStringLiteral("%1 %2").arg(combo->currentIndex()).arg(combo->currentText()));
    for (const QLineEdit* const edit : form.findChildren<QLineEdit*>())
        shown.insert(edit->parent()->objectName() + QLatin1Char('.') + edit->objectName(), edit->text());
    for (const OrloDateEdit* const dates : form.findChildren<OrloDateEdit*>())
        shown.insert(dates->objectName(),
            dates->GetStartDate().toString() + dates->GetEndDate().toString() + dates->GetDate().toString());
    return shown;
}

} // namespace

class tst_submission : public EditorTest {
    Q_OBJECT

private Q_SLOTS:
    void aNewPlanIsCreated();
    void aNewPlanTakesItsStepsInOrder();
    void aPlanThatFailsARuleIsNotSent();
    void aDeclinedQuestionSendsNothing();
    void anAcceptedQuestionSends();
    void aRefusedCreationShowsItsReasonAsItStands_data();
    void aRefusedCreationShowsItsReasonAsItStands();
    void aRefusedCreationCanBeSentAgain();
    void aCopiedPlanIsCreated();

    void anEditedPlanIsModified();
    void anEditedPlanTakesItsStepsInOrder();
    void anEditKeepsTheStoredSecurityAccount_data();
    void anEditKeepsTheStoredSecurityAccount();
    void anEditOfAPlanThatCouldNotBeLoadedIsLeftToTheService();
    void aRefusedModificationShowsIdAndReason_data();
    void aRefusedModificationShowsIdAndReason();
    void aRefusedModificationCanBeSentAgain();
    void leavingAnEditedPlanCreatesAgain();

    void okOnTheClearedFormFailsInTheRules_data();
    void okOnTheClearedFormFailsInTheRules();
    void okOnAFormThatNoServiceFilledFailsInTheRules();
    void theDeclaredSignalOfOkIsNeverEmitted();

    void okPressedAgainWhileABoxIsOpenSendsNothing_data();
    void okPressedAgainWhileABoxIsOpenSendsNothing();
    void okWorksAgainAfterItsBoxes();
    void okIsLiveAgainBeforeTheFormIsCleared_data();
    void okIsLiveAgainBeforeTheFormIsCleared();
    void okPressedByTheHostThatIsToldFailsInTheRules();
    void theHostThatIsToldMaySendTheNextPlan();
    void theResultNamesThePlanThatWasSent();
    void theEditorMayBeDeletedWhileABoxIsOpen_data();
    void theEditorMayBeDeletedWhileABoxIsOpen();
    void theEditorMayBeDeletedWhileTheServiceWorks_data();
    void theEditorMayBeDeletedWhileTheServiceWorks();
    void theHostMayDeleteTheEditorWhenItIsDone();
    void theHostMayDeleteTheEditorOnCancel();
    void theEditorMayBeDeletedWhileTheAgreementIsOpen();
    void theEditorMayBeDeletedWhileTheAgreementIsOpenFromTheKeyboard();
    void theEditorMayBeDeletedLaterWhileTheAgreementIsOpen();
    void theEditorMayBeDeletedWhileAnAgreementIsOpenInsideAnother_data();
    void theEditorMayBeDeletedWhileAnAgreementIsOpenInsideAnother();

private:
    void open();
    void fill() { fillPlan(editor(), Stock); }
    void fillEdited();
    /// Makes the rules ask about holdings that do not suffice.
    void sellWithoutHoldings();
    int sent() const { return script().createdRecords.size() + script().modifiedRecords.size(); }
    ScriptBox onlyBox() const;
};

void tst_submission::open()
{
    if (script().accounts.isEmpty())
        script().addOrdinaryAccount(Account);
    script().addStock(Stock);
    script().plans.insert(Id, storedPlan(Id, Stock, Account));
    constructShown();
}

void tst_submission::fillEdited()
{
    editor().editPlan(Id);
}

void tst_submission::sellWithoutHoldings()
{
    choose(editor(), "combx_tradeSide", Kelvo_Values::OrderSide::sell);
}

ScriptBox tst_submission::onlyBox() const
{
    return script().boxes.size() == 1 ? script().boxes.constFirst()
                                      : ScriptBox{ QStringLiteral("%1 boxes").arg(script().boxes.size()), {}, {} };
}

void tst_submission::aNewPlanIsCreated()
{
    open();
    fill();
    const QSignalSpy done(&editor(), &AutoParamSetting::signalBtnCancelClicked);
    script().forget();
    press(editor(), "btn_ok");
    QCOMPARE(script().createdRecords.size(), 1);
    QVERIFY(!script().createdRecords.constFirst().contains(AutoPlanField::BaseField::autoPlanId));
    QCOMPARE(script().countOf(QStringLiteral("modifyPlan")), 0);
    QCOMPARE(script().countOf(QStringLiteral("GetPlanInfo")), 0);
    QCOMPARE(onlyBox().kind, QStringLiteral("tip"));
    QCOMPARE(onlyBox().text, QStringLiteral("交易自动规划创建成功!"));
    QCOMPARE(onlyBox().parent, static_cast<QWidget*>(&editor()));
    QCOMPARE(done.count(), 1);
    QCOMPARE(field<VorSearchBox>(editor(), "le_symbol")->getSymbol(), QString());
    QCOMPARE(box(editor(), "combx_instructionType")->currentIndex(), -1);
    QCOMPARE(text(editor(), "lineEdit_price1"), QString());
    QCOMPARE(field<OrloDoubleSpinBox>(editor(), "le_targetTotalNum")->GetStrValue(), QString());
}

void tst_submission::aNewPlanTakesItsStepsInOrder()
{
    open();
    fill();
    connect(&editor(), &AutoParamSetting::signalBtnCancelClicked, this,
        [this] { script().step(QStringLiteral("signalBtnCancelClicked")); });
    script().forget();
    press(editor(), "btn_ok");
    const QStringList steps = script().steps;
    const int record = steps.indexOf(QStringLiteral("GetLoginAccountDetail()"));
    const int create = steps.indexOf(script().callsOf(QStringLiteral("CreateNewPlan")).value(0));
    const int tip = steps.indexOf(QStringLiteral("ShowTipMsgBox(交易自动规划创建成功!, AutoParamSetting)"));
    const int clear = steps.indexOf(QStringLiteral("le_symbol.setSymbol(\"\")"));
    QVERIFY(0 <= record);
    QVERIFY(record < create);
    QCOMPARE(tip, create + 1);
    QVERIFY(tip < clear);
    QCOMPARE(steps.indexOf(QStringLiteral("signalBtnCancelClicked")), steps.size() - 1);
}

void tst_submission::aPlanThatFailsARuleIsNotSent()
{
    open();
    fill();
    type(editor(), "lineEdit_price1", QStringLiteral("昨收价;"));
    const QSignalSpy done(&editor(), &AutoParamSetting::signalBtnCancelClicked);
    const QMap<QString, QString> before = contents(editor());
    script().forget();
    press(editor(), "btn_ok");
    QCOMPARE(sent(), 0);
    QCOMPARE(script().countOf(QStringLiteral("GetLoginAccountDetail")), 0);
    QCOMPARE(onlyBox().kind, QStringLiteral("warning"));
    QCOMPARE(onlyBox().text, QStringLiteral("价格公式包含特殊字符;，请重新编辑！"));
    QCOMPARE(done.count(), 0);
    QCOMPARE(contents(editor()), before);
}

void tst_submission::aDeclinedQuestionSendsNothing()
{
    open();
    fill();
    sellWithoutHoldings();
    script().questionAnswer = 0;
    const QSignalSpy done(&editor(), &AutoParamSetting::signalBtnCancelClicked);
    const QMap<QString, QString> before = contents(editor());
    script().forget();
    press(editor(), "btn_ok");
    QCOMPARE(sent(), 0);
    QCOMPARE(onlyBox().kind, QStringLiteral("question"));
    QCOMPARE(done.count(), 0);
    QCOMPARE(contents(editor()), before);
}

void tst_submission::anAcceptedQuestionSends()
{
    open();
    fill();
    sellWithoutHoldings();
    script().forget();
    press(editor(), "btn_ok");
    QCOMPARE(script().createdRecords.size(), 1);
    QCOMPARE(script().boxes.size(), 2);
    QCOMPARE(script().boxes.at(0).kind, QStringLiteral("question"));
    QCOMPARE(script().boxes.at(1).kind, QStringLiteral("tip"));
}

void tst_submission::aRefusedCreationShowsItsReasonAsItStands_data()
{
    QTest::addColumn<QString>("reason");
    QTest::newRow("a sentence") << QStringLiteral("资金不足，请入金！");
    QTest::newRow("a blank") << QStringLiteral(" ");
    QTest::newRow("with what looks like places to fill") << QStringLiteral("%1 失败 %2");
    QTest::newRow("over two lines") << QStringLiteral("第一行\n第二行");
    QTest::newRow("the text of success") << QStringLiteral("交易自动规划创建成功!");
}

void tst_submission::aRefusedCreationShowsItsReasonAsItStands()
{
    QFETCH(QString, reason);
    open();
    fill();
    script().createAnswer = reason;
    const QSignalSpy done(&editor(), &AutoParamSetting::signalBtnCancelClicked);
    const QMap<QString, QString> before = contents(editor());
    script().forget();
    press(editor(), "btn_ok");
    QCOMPARE(script().createdRecords.size(), 1);
    QCOMPARE(onlyBox().kind, QStringLiteral("error"));
    QCOMPARE(onlyBox().text, reason);
    QCOMPARE(onlyBox().parent, static_cast<QWidget*>(&editor()));
    QCOMPARE(done.count(), 0);
    QCOMPARE(contents(editor()), before);
}

void tst_submission::aRefusedCreationCanBeSentAgain()
{
    open();
    fill();
    script().createAnswer = QStringLiteral("拒绝");
    press(editor(), "btn_ok");
    script().createAnswer.clear();
    script().forget();
    press(editor(), "btn_ok");
    QCOMPARE(script().createdRecords.size(), 2);
    QCOMPARE(script().createdRecords.at(1), script().createdRecords.at(0));
    QCOMPARE(onlyBox().text, QStringLiteral("交易自动规划创建成功!"));
}

void tst_submission::aCopiedPlanIsCreated()
{
    open();
    editor().copyPlan(Id);
    script().forget();
    press(editor(), "btn_ok");
    QCOMPARE(script().createdRecords.size(), 1);
    QCOMPARE(script().modifiedRecords.size(), 0);
    const Record record = script().createdRecords.constFirst();
    QVERIFY(!record.contains(AutoPlanField::BaseField::autoPlanId));
    QCOMPARE(
        record.value(Kelvo_Fields::UserAccount::securityAccount).toString(), QStringLiteral("S-acc1-k_Exchange_sh"));
    QCOMPARE(onlyBox().kind, QStringLiteral("tip"));
    QCOMPARE(onlyBox().text, QStringLiteral("交易自动规划创建成功!"));
}

void tst_submission::anEditedPlanIsModified()
{
    open();
    fillEdited();
    const QSignalSpy done(&editor(), &AutoParamSetting::signalBtnCancelClicked);
    script().forget();
    press(editor(), "btn_ok");
    QCOMPARE(script().createdRecords.size(), 0);
    QCOMPARE(script().modifiedRecords.size(), 1);
    const Record record = script().modifiedRecords.constFirst();
    QCOMPARE(record.value(AutoPlanField::BaseField::autoPlanId), QVariant(Id));
    QCOMPARE(record.value(AutoPlanField::BaseField::totalQty).toString(), QStringLiteral("1000"));
    QCOMPARE(onlyBox().kind, QStringLiteral("tip"));
    QCOMPARE(onlyBox().text, QStringLiteral("交易计划P1修改成功!"));
    QCOMPARE(onlyBox().parent, static_cast<QWidget*>(&editor()));
    QCOMPARE(done.count(), 1);
    QCOMPARE(field<VorSearchBox>(editor(), "le_symbol")->getSymbol(), QString());
    QCOMPARE(text(editor(), "lineEdit_price1"), QString());
}

void tst_submission::anEditedPlanTakesItsStepsInOrder()
{
    open();
    fillEdited();
    connect(&editor(), &AutoParamSetting::signalBtnCancelClicked, this,
        [this] { script().step(QStringLiteral("signalBtnCancelClicked")); });
    script().forget();
    press(editor(), "btn_ok");
    const QStringList steps = script().steps;
    const int modify = steps.indexOf(script().callsOf(QStringLiteral("modifyPlan")).value(0));
    QVERIFY(modify > 2);
    QCOMPARE(steps.mid(modify - 2, 2),
        QStringList({ QStringLiteral("CBusinessDataBase::GetSecuritySubTypeBySymbol(600000.K_SH)"),
            QStringLiteral("GetPlanInfo(P1)") }));
    QCOMPARE(steps.value(modify + 1), QStringLiteral("ShowTipMsgBox(交易计划P1修改成功!, AutoParamSetting)"));
    QVERIFY(modify + 1 < steps.indexOf(QStringLiteral("le_symbol.setSymbol(\"\")")));
    QCOMPARE(steps.indexOf(QStringLiteral("signalBtnCancelClicked")), steps.size() - 1);
    // Once for the rule about plans that have begun, once for the security account.
    QCOMPARE(script().countOf(QStringLiteral("GetPlanInfo")), 2);
}

void tst_submission::anEditKeepsTheStoredSecurityAccount_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QString>("sentAccount");
    QTest::newRow("another than the account's data give") << QVariant(QStringLiteral("A999")) << QStringLiteral("A999");
    QTest::newRow("a number becomes text") << QVariant(123456) << QStringLiteral("123456");
    QTest::newRow("none is stored") << QVariant() << QString();
}

void tst_submission::anEditKeepsTheStoredSecurityAccount()
{
    QFETCH(QVariant, stored);
    QFETCH(QString, sentAccount);
    open();
    Record& plan = script().plans[Id];
    plan.remove(Kelvo_Fields::UserAccount::securityAccount);
    if (stored.isValid())
        plan.insert(Kelvo_Fields::UserAccount::securityAccount, stored);
    fillEdited();
    press(editor(), "btn_ok");
    QCOMPARE(script().modifiedRecords.size(), 1);
    const Record record = script().modifiedRecords.constFirst();
    QVERIFY(record.contains(Kelvo_Fields::UserAccount::securityAccount));
    QCOMPARE(record.value(Kelvo_Fields::UserAccount::securityAccount), QVariant(sentAccount));
}

void tst_submission::anEditOfAPlanThatCouldNotBeLoadedIsLeftToTheService()
{
    open();
    script().modifyAnswer = QStringLiteral("计划不存在");
    log().expectWarning(QStringLiteral("计划复制失败，失败原因：未找到计划ID【P9】的计划信息"));
    editor().editPlan(QStringLiteral("P9"));
    fill();
    script().plans.insert(
        QStringLiteral("P9"), { { AutoPlanField::BaseField::beginDate, QStringLiteral("2024/06/03") } });
    script().forget();
    press(editor(), "btn_ok");
    QCOMPARE(script().createdRecords.size(), 0);
    QCOMPARE(script().modifiedRecords.size(), 1);
    const Record record = script().modifiedRecords.constFirst();
    QCOMPARE(record.value(AutoPlanField::BaseField::autoPlanId), QVariant(QStringLiteral("P9")));
    QCOMPARE(record.value(Kelvo_Fields::UserAccount::securityAccount), QVariant(QString()));
    QCOMPARE(onlyBox().kind, QStringLiteral("error"));
    QCOMPARE(onlyBox().text, QStringLiteral("交易计划P9修改失败，失败原因：计划不存在"));
}

void tst_submission::aRefusedModificationShowsIdAndReason_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("reason");
    QTest::addColumn<QString>("message");
    QTest::newRow("a sentence") << Id << QStringLiteral("计划已终止！")
                                << QStringLiteral("交易计划P1修改失败，失败原因：计划已终止！");
    QTest::newRow("a blank") << Id << QStringLiteral(" ") << QStringLiteral("交易计划P1修改失败，失败原因： ");
    QTest::newRow("a reason that looks like a place to fill")
        << Id << QStringLiteral("%1") << QStringLiteral("交易计划P1修改失败，失败原因：%1");
    QTest::newRow("an id that looks like a place to fill")
        << QStringLiteral("P%2") << QStringLiteral("原因") << QStringLiteral("交易计划P%2修改失败，失败原因：原因");
}

void tst_submission::aRefusedModificationShowsIdAndReason()
{
    QFETCH(QString, id);
    QFETCH(QString, reason);
    QFETCH(QString, message);
    open();
    script().plans.insert(id, storedPlan(id, Stock, Account));
    editor().editPlan(id);
    script().modifyAnswer = reason;
    const QSignalSpy done(&editor(), &AutoParamSetting::signalBtnCancelClicked);
    const QMap<QString, QString> before = contents(editor());
    script().forget();
    press(editor(), "btn_ok");
    QCOMPARE(script().modifiedRecords.size(), 1);
    QCOMPARE(onlyBox().kind, QStringLiteral("error"));
    QCOMPARE(onlyBox().text, message);
    QCOMPARE(onlyBox().parent, static_cast<QWidget*>(&editor()));
    QCOMPARE(done.count(), 0);
    QCOMPARE(contents(editor()), before);
}

void tst_submission::aRefusedModificationCanBeSentAgain()
{
    open();
    fillEdited();
    script().modifyAnswer = QStringLiteral("拒绝");
    press(editor(), "btn_ok");
    script().modifyAnswer.clear();
    script().forget();
    press(editor(), "btn_ok");
    QCOMPARE(script().createdRecords.size(), 0);
    QCOMPARE(script().modifiedRecords.size(), 2);
    QCOMPARE(script().modifiedRecords.at(1), script().modifiedRecords.at(0));
    QCOMPARE(onlyBox().text, QStringLiteral("交易计划P1修改成功!"));
}

void tst_submission::leavingAnEditedPlanCreatesAgain()
{
    open();
    fillEdited();
    editor().resetEnable();
    fill();
    script().forget();
    press(editor(), "btn_ok");
    QCOMPARE(script().modifiedRecords.size(), 0);
    QCOMPARE(script().createdRecords.size(), 1);
    QCOMPARE(onlyBox().text, QStringLiteral("交易自动规划创建成功!"));
}

void tst_submission::okOnTheClearedFormFailsInTheRules_data()
{
    QTest::addColumn<bool>("severalAccounts");
    QTest::addColumn<bool>("edit");
    QTest::addColumn<QString>("message");
    QTest::newRow("after a creation with the only account")
        << false << false << QStringLiteral("指令类型必填，请重新编辑！");
    QTest::newRow("after a creation with one of two accounts") << true << false << QStringLiteral("未绑定资金帐号！");
    QTest::newRow("after a modification") << false << true << QStringLiteral("指令类型必填，请重新编辑！");
    QTest::newRow("after a modification, which locks the account")
        << true << true << QStringLiteral("指令类型必填，请重新编辑！");
}

void tst_submission::okOnTheClearedFormFailsInTheRules()
{
    QFETCH(bool, severalAccounts);
    QFETCH(bool, edit);
    QFETCH(QString, message);
    script().addOrdinaryAccount(Account);
    if (severalAccounts)
        script().addOrdinaryAccount(QStringLiteral("acc2"));
    open();
    choose(editor(), "combx_fundAccount", Account);
    if (edit)
        fillEdited();
    else
        fill();
    press(editor(), "btn_ok");
    QCOMPARE(sent(), 1);
    script().forget();
    press(editor(), "btn_ok");
    QCOMPARE(sent(), 1);
    QCOMPARE(onlyBox().kind, QStringLiteral("warning"));
    QCOMPARE(onlyBox().text, message);
}

void tst_submission::okOnAFormThatNoServiceFilledFailsInTheRules()
{
    script().staticTexts.clear();
    script().tradeDates = QList<QDate>();
    log().expectWarning(QStringLiteral("AutoParamSetting::InitDateEffectivePeriod"));
    constructShown();
    press(editor(), "btn_ok");
    QCOMPARE(sent(), 0);
    QCOMPARE(onlyBox().kind, QStringLiteral("warning"));
    QCOMPARE(onlyBox().text, QStringLiteral("未绑定资金帐号！"));
}

void tst_submission::theDeclaredSignalOfOkIsNeverEmitted()
{
    open();
    const QSignalSpy ok(&editor(), &AutoParamSetting::signalBtnOkClicked);
    press(editor(), "btn_ok");
    fill();
    press(editor(), "btn_ok");
    fillEdited();
    press(editor(), "btn_ok");
    QCOMPARE(script().createdRecords.size(), 1);
    QCOMPARE(script().modifiedRecords.size(), 1);
    QCOMPARE(ok.count(), 0);
}

void tst_submission::okPressedAgainWhileABoxIsOpenSendsNothing_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("edit");
    QTest::addColumn<int>("sentInAll");
    QTest::addColumn<int>("boxesInAll");
    QTest::newRow("a warning") << QStringLiteral("warning") << false << 0 << 1;
    QTest::newRow("a question that is accepted") << QStringLiteral("question") << false << 1 << 2;
    QTest::newRow("a question that is declined") << QStringLiteral("declined question") << false << 0 << 1;
    QTest::newRow("the tip of a creation") << QStringLiteral("tip") << false << 1 << 1;
    QTest::newRow("the error of a creation") << QStringLiteral("error") << false << 1 << 1;
    QTest::newRow("the tip of a modification") << QStringLiteral("tip") << true << 1 << 1;
    QTest::newRow("the error of a modification") << QStringLiteral("error") << true << 1 << 1;
}

void tst_submission::okPressedAgainWhileABoxIsOpenSendsNothing()
{
    QFETCH(QString, kind);
    QFETCH(bool, edit);
    QFETCH(int, sentInAll);
    QFETCH(int, boxesInAll);
    open();
    if (edit)
        fillEdited();
    else
        fill();
    if (kind == QStringLiteral("warning"))
        type(editor(), "lineEdit_price1", QString());
    if (kind.endsWith(QStringLiteral("question")))
        sellWithoutHoldings();
    script().questionAnswer = kind == QStringLiteral("declined question") ? 0 : 1;
    if (kind == QStringLiteral("error"))
        script().createAnswer = script().modifyAnswer = QStringLiteral("拒绝");
    script().forget();
    bool wasOpen = false;
    script().whileBoxOpen = [this, &wasOpen] {
        wasOpen = true;
        press(editor(), "btn_ok");
        QTest::mouseClick(field<QAbstractButton>(editor(), "btn_ok"), Qt::LeftButton);
    };
    press(editor(), "btn_ok");
    QVERIFY(wasOpen);
    QCOMPARE(sent(), sentInAll);
    QCOMPARE(script().boxes.size(), boxesInAll);
}

void tst_submission::okWorksAgainAfterItsBoxes()
{
    open();
    fill();
    script().createAnswer = QStringLiteral("拒绝");
    script().whileBoxOpen = [this] { press(editor(), "btn_ok"); };
    press(editor(), "btn_ok");
    QCOMPARE(sent(), 1);
    script().createAnswer.clear();
    press(editor(), "btn_ok");
    QCOMPARE(sent(), 2);
    // After success too.
    fill();
    press(editor(), "btn_ok");
    QCOMPARE(sent(), 3);
}

void tst_submission::okIsLiveAgainBeforeTheFormIsCleared_data()
{
    QTest::addColumn<bool>("edit");
    QTest::newRow("after a creation") << false;
    QTest::newRow("after a modification") << true;
}

void tst_submission::okIsLiveAgainBeforeTheFormIsCleared()
{
    QFETCH(bool, edit);
    open();
    if (edit)
        fillEdited();
    else
        fill();
    const QAbstractButton* const ok = field<QAbstractButton>(editor(), "btn_ok");
    QStringList silent;
    QStringList live;
    script().forget();
    script().onCall = [&](const ScriptCall& call) { (ok->signalsBlocked() ? silent : live).append(call.text()); };
    press(editor(), "btn_ok");
    QCOMPARE(silent.size() + live.size(), script().calls.size());
    QVERIFY(silent.constLast().startsWith(QStringLiteral("ShowTipMsgBox(")));
    QCOMPARE(live.value(0), QStringLiteral("le_symbol.setSymbol(\"\")"));
    QVERIFY(!ok->signalsBlocked());
}

void tst_submission::okPressedByTheHostThatIsToldFailsInTheRules()
{
    open();
    fill();
    const QSignalSpy done(&editor(), &AutoParamSetting::signalBtnCancelClicked);
    connect(&editor(), &AutoParamSetting::signalBtnCancelClicked, this, [this] {
        script().forget();
        press(editor(), "btn_ok");
    });
    press(editor(), "btn_ok");
    QCOMPARE(sent(), 1);
    QCOMPARE(done.count(), 1);
    QCOMPARE(onlyBox().kind, QStringLiteral("warning"));
    QCOMPARE(onlyBox().text, QStringLiteral("指令类型必填，请重新编辑！"));
}

void tst_submission::theHostThatIsToldMaySendTheNextPlan()
{
    open();
    fillEdited();
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

void tst_submission::theResultNamesThePlanThatWasSent()
{
    open();
    fillEdited();
    script().onCall = [this](const QString& call) {
        if (call.startsWith(QLatin1String("modifyPlan(")))
            editor().resetEnable();
    };
    press(editor(), "btn_ok");
    QCOMPARE(onlyBox().text, QStringLiteral("交易计划P1修改成功!"));
}

void tst_submission::theEditorMayBeDeletedWhileABoxIsOpen_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("edit");
    QTest::addColumn<int>("sentInAll");
    QTest::newRow("a warning") << QStringLiteral("warning") << false << 0;
    QTest::newRow("a question that is accepted") << QStringLiteral("question") << false << 0;
    QTest::newRow("a question that is declined") << QStringLiteral("declined question") << false << 0;
    QTest::newRow("the tip of a creation") << QStringLiteral("tip") << false << 1;
    QTest::newRow("the error of a creation") << QStringLiteral("error") << false << 1;
    QTest::newRow("the tip of a modification") << QStringLiteral("tip") << true << 1;
    QTest::newRow("the error of a modification") << QStringLiteral("error") << true << 1;
}

void tst_submission::theEditorMayBeDeletedWhileABoxIsOpen()
{
    QFETCH(QString, kind);
    QFETCH(bool, edit);
    QFETCH(int, sentInAll);
    open();
    if (edit)
        fillEdited();
    else
        fill();
    if (kind == QStringLiteral("warning"))
        type(editor(), "lineEdit_price1", QString());
    if (kind.endsWith(QStringLiteral("question")))
        sellWithoutHoldings();
    script().questionAnswer = kind == QStringLiteral("declined question") ? 0 : 1;
    if (kind == QStringLiteral("error"))
        script().createAnswer = script().modifyAnswer = QStringLiteral("拒绝");
    const QSignalSpy done(&editor(), &AutoParamSetting::signalBtnCancelClicked);
    QString shown;
    script().whileBoxOpen = [this, &shown] {
        shown = script().boxes.constLast().kind;
        destroy();
        script().forget();
    };
    QTest::mouseClick(field<QAbstractButton>(editor(), "btn_ok"), Qt::LeftButton);
    QVERIFY(kind.endsWith(shown) && !shown.isEmpty());
    QCOMPARE(sent(), sentInAll);
    QCOMPARE(script().calls, QStringList());
    QCOMPARE(script().boxes.size(), 0);
    QCOMPARE(done.count(), 0);
}

void tst_submission::theEditorMayBeDeletedWhileTheServiceWorks_data()
{
    QTest::addColumn<bool>("edit");
    QTest::addColumn<QString>("answer");
    QTest::newRow("it creates") << false << QString();
    QTest::newRow("it refuses to create") << false << QStringLiteral("拒绝");
    QTest::newRow("it modifies") << true << QString();
    QTest::newRow("it refuses to modify") << true << QStringLiteral("拒绝");
}

void tst_submission::theEditorMayBeDeletedWhileTheServiceWorks()
{
    QFETCH(bool, edit);
    QFETCH(QString, answer);
    open();
    if (edit)
        fillEdited();
    else
        fill();
    script().createAnswer = script().modifyAnswer = answer;
    const QSignalSpy done(&editor(), &AutoParamSetting::signalBtnCancelClicked);
    destroyDuring(edit ? QStringLiteral("modifyPlan") : QStringLiteral("CreateNewPlan"));
    QTest::mouseClick(field<QAbstractButton>(editor(), "btn_ok"), Qt::LeftButton);
    QCOMPARE(sent(), 1);
    QCOMPARE(script().calls, QStringList());
    QCOMPARE(script().boxes.size(), 0);
    QCOMPARE(done.count(), 0);
}

void tst_submission::theHostMayDeleteTheEditorWhenItIsDone()
{
    open();
    fill();
    connect(&editor(), &AutoParamSetting::signalBtnCancelClicked, this, [this] { destroy(); });
    const QPointer<AutoParamSetting> alive(&editor());
    press(editor(), "btn_ok");
    QVERIFY(alive.isNull());
    QCOMPARE(sent(), 1);
}

void tst_submission::theHostMayDeleteTheEditorOnCancel()
{
    open();
    fill();
    connect(&editor(), &AutoParamSetting::signalBtnCancelClicked, this, [this] { destroy(); });
    const QPointer<AutoParamSetting> alive(&editor());
    QTest::mouseClick(field<QAbstractButton>(editor(), "btn_cancel"), Qt::LeftButton);
    QVERIFY(alive.isNull());
    QCOMPARE(sent(), 0);
}

void tst_submission::theEditorMayBeDeletedWhileTheAgreementIsOpen()
{
    script().unsignedClients = QStringList{ QStringLiteral("C-acc1") };
    open();
    fill();
    script().whileAgreementOpen = [this] {
        destroy();
        script().forget();
    };
    choose(editor(), "combx_planType", QStringLiteral("JC-01"));
    QVERIFY(!script().whileAgreementOpen);
    QCOMPARE(script().calls, QStringList());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void tst_submission::theEditorMayBeDeletedWhileTheAgreementIsOpenFromTheKeyboard()
{
    script().unsignedClients = QStringList{ QStringLiteral("C-acc1") };
    open();
    fill();
    script().whileAgreementOpen = [this] {
        destroy();
        script().forget();
    };
    QTest::keyClick(box(editor(), "combx_planType"), Qt::Key_End);
    QVERIFY(!script().whileAgreementOpen);
    QCOMPARE(script().calls, QStringList());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void tst_submission::theEditorMayBeDeletedLaterWhileTheAgreementIsOpen()
{
    script().unsignedClients = QStringList{ QStringLiteral("C-acc1") };
    open();
    fill();
    const QPointer<AutoParamSetting> alive(&editor());
    script().whileAgreementOpen = [this] {
        editor().deleteLater();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(&editor(), QEvent::DeferredDelete);
        script().forget();
    };
    choose(editor(), "combx_planType", QStringLiteral("JC-01"));
    QVERIFY(alive.isNull());
    QCOMPARE(script().calls, QStringList());
    destroy();
}

void tst_submission::theEditorMayBeDeletedWhileAnAgreementIsOpenInsideAnother_data()
{
    QTest::addColumn<bool>("underTheInnerOne");
    QTest::newRow("under the inner one") << true;
    QTest::newRow("under the outer one, the inner one closed") << false;
}

void tst_submission::theEditorMayBeDeletedWhileAnAgreementIsOpenInsideAnother()
{
    QFETCH(bool, underTheInnerOne);
    script().unsignedClients = QStringList{ QStringLiteral("C-acc1") };
    open();
    fill();
    const QPointer<QComboBox> planTypes = box(editor(), "combx_planType");
    bool isLeftForTheOuterSignal = false;
    script().whileAgreementOpen = [&] {
        script().whileAgreementOpen = [&] {
            if (underTheInnerOne)
                destroy();
        };
        choose(editor(), "combx_planType", QStringLiteral("TW-01"));
        choose(editor(), "combx_planType", QStringLiteral("JC-01"));
        if (!underTheInnerOne)
            destroy();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        isLeftForTheOuterSignal = !planTypes.isNull();
        script().forget();
    };
    choose(editor(), "combx_planType", QStringLiteral("JC-01"));
    QVERIFY(!script().whileAgreementOpen);
    QVERIFY(isLeftForTheOuterSignal);
    QCOMPARE(script().calls, QStringList());
    QVERIFY(!planTypes.isNull());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(planTypes.isNull());
}

QTEST_MAIN(tst_submission)
#include "tst_submission.moc"
