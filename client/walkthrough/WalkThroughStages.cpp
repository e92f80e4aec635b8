// The trader's actions in each stage.
#include "AutoParamSetting.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "EditorDialog.h"
#include "ErrorText.h"
#include "ExpectedRecord.h"
#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "Language.h"
#include "MainWindow.h"
#include "OrloConstants.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"
#include "WalkThrough.h"

#include <QLocale>

namespace SubType = Kelvo_Values::MdcSubSecurityType;
using namespace PlanCodes;

namespace {

const QString Tip = QStringLiteral("msgBoxTip");
const QString Warning = QStringLiteral("msgBoxWarning");
const QString Question = QStringLiteral("msgBoxQuestion");
const char* const Created = "交易自动规划创建成功!";

QString dateText(const QDate& date)
{
    return QLocale::c().toString(date, OrloConstants::DateTimeFormatString::STD_DATE_FORMAT);
}

/// The trading day `steps` trading days away; invalid beyond the calendar.
QDate tradeDay(const QString& exchange, int steps)
{
    const TradeCalendar& calendar = ClientSession::instance().calendar();
    QDate day = clientToday();
    for (int left = qAbs(steps); left > 0;) {
        day = day.addDays(steps > 0 ? 1 : -1);
        if (calendar.day(exchange, day) == TradeCalendar::Day::Unknown)
            return QDate();
        if (calendar.day(exchange, day) == TradeCalendar::Day::Trades)
            --left;
    }
    return day;
}

} // namespace

PlanForm WalkThrough::ordinaryForm()
{
    const QString share = m_probe.firstOf(SubType::Ashares, Kelvo_Values::Exchange::sh).symbol;
    PlanForm form =
        PlanForm::ordinary(m_freeAccount, share).priced(PriceModel::Custom, QStringLiteral("max(昨收价*0.99,MA5)"));
    form.target = QStringLiteral("120000");
    form.perDay = QStringLiteral("8000");
    form.endSteps = 9;
    form.remark = QStringLiteral("分批建仓，每日不超过八千股");
    return form;
}

void WalkThrough::createOrdinary()
{
    beginStage(QStringLiteral("ordinary"), QStringLiteral("普通交易，按数量"));
    createPlan(ordinaryForm());
    m_ordinaryPlan = newestPlan();
}

void WalkThrough::createBond()
{
    beginStage(QStringLiteral("bond"), QStringLiteral("债券交易"));
    PlanForm form =
        ordinaryForm().priced(PriceModel::CompareMin, QStringLiteral("昨收价*1.01"), QStringLiteral("涨停价"));
    form.instructionType = InstructionType::Bond;
    form.planType = PlanType::AverageQty;
    form.symbol =
        m_probe
            .firstOf(Orlo_Values::MdcSubSecurityType::ConvertableBondTypeList.constFirst(), Kelvo_Values::Exchange::sh)
            .symbol;
    form.target = QStringLiteral("5000");
    form.perDay = QStringLiteral("500");
    form.beginSteps = 2;
    form.remark.clear();
    createPlan(form);
}

void WalkThrough::createHongKong()
{
    beginStage(QStringLiteral("hongkong"), QStringLiteral("港股通交易"));
    const DatabaseProbe::Security share = m_probe.held(m_freeAccount, Orlo_Values::Exchange::HkStockCirculation,
        Orlo_Values::MdcSubSecurityType::HStcokCirculation, true);
    PlanForm form = ordinaryForm();
    form.instructionType = InstructionType::HkConnect;
    form.planType = PlanType::SameElements;
    form.symbol = share.symbol;
    form.side = Kelvo_Values::OrderSide::sell;
    form.priceType = Orlo_Values::HKTimeInForce::BeforeTrade;
    form.price1 = QStringLiteral("昨收价*1.02");
    form.target = QString::number(4 * share.quantityStep);
    form.perDay = QString::number(share.quantityStep);
    form.endSteps = 3;
    form.remark = QStringLiteral("竞价时段卖出");
    createPlan(form);
}

void WalkThrough::createReduction()
{
    beginStage(QStringLiteral("reduction"), QStringLiteral("减持"));
    const AccountDirectory& accounts = ClientSession::instance().accounts();
    const QString chain = accounts.chainKey(m_freeAccount, InstructionType::Ordinary);
    PlanForm form = ordinaryForm()
                        .priced(PriceModel::Custom, QStringLiteral("昨收价"))
                        .reducing(QStringLiteral("0.15"), accounts.executors(chain).value(1));
    form.symbol = m_probe.held(m_freeAccount, Kelvo_Values::Exchange::sh, SubType::Ashares, true).symbol;
    form.target = QStringLiteral("100000");
    form.beginSteps = 1;
    form.remark.clear();
    createPlan(form);
}

void WalkThrough::createWithAlgorithm()
{
    beginStage(QStringLiteral("algorithm"), QStringLiteral("算法交易复核"));
    PlanForm form = ordinaryForm()
                        .priced(PriceModel::NoLimit, QString())
                        .byAlgorithm(QStringLiteral("TWAP"),
                            { { QStringLiteral("StartTime"), QStringLiteral("10:00:00") },
                                { QStringLiteral("SliceInterval"), QStringLiteral("120") } });
    form.account = m_reviewedAccount;
    form.remark = QStringLiteral("按时间均匀买入");
    createPlan(form);
}

void WalkThrough::createByAmount()
{
    beginStage(QStringLiteral("amount"), QStringLiteral("按金额"));
    PlanForm form = ordinaryForm()
                        .byAmount(QStringLiteral("1500000.5"), QStringLiteral("100000"))
                        .byAlgorithm(QStringLiteral("VWAP"));
    form.account = m_reviewedAccount;
    form.remark.clear();
    createPlan(form);
}

void WalkThrough::editStarted()
{
    beginStage(QStringLiteral("started"), QStringLiteral("修改已开始的计划"));
    PlanForm form = ordinaryForm();
    const QString& exchange = Kelvo_Values::Exchange::sh;
    ShownDates dates{ dateText(tradeDay(exchange, -1)), dateText(tradeDay(exchange, 3)) };
    const QString plan = storeStartedPlan(form, dates);
    m_window.selectPlan(plan);
    if (plan.isEmpty() || !openEditor(Qt::Key_E))
        return;
    FormDriver driver(m_dialog.editor());
    driver.type("le_targetTotalNum", QStringLiteral("3000"));
    pictureForm(QStringLiteral("form"));
    send({ { Warning, editorText("目标数量不得小于该计划已成交和在下达总和，请重新输入！"), true } });
    if (!m_dialog.isVisible())
        problem(QStringLiteral("修改被拒绝后，表单没有保留"));
    form.target = QStringLiteral("60000");
    driver.type("le_targetTotalNum", form.target);
    driver.stepDate("date_effectivePeriod_Multi", "le_end", 2);
    dates = driver.dates();
    collect(driver.takeProblems());
    pictureForm(QStringLiteral("corrected"));
    send({ { Tip, editorText("交易计划%1修改成功!").arg(plan), true } });
    checkStored(plan, form, dates);
}

/// Stores a plan that began on an earlier day, with an instruction of that day. The form cannot create one.
QString WalkThrough::storeStartedPlan(const PlanForm& form, const ShownDates& dates)
{
    ClientSession& session = ClientSession::instance();
    const ExpectedRecord record(form, dates, session.user().id, m_probe);
    const Result<QString> plan =
        session.plans().create(record.record(), { session.user().id, QDateTime::currentDateTime().addDays(-3) });
    const InstructionStore::Fields instruction{ { FieldId::EndState, EndState::Ended },
        { FieldId::TargetType, InstructionTargetType::QtyOrder }, { FieldId::IssuedQty, QStringLiteral("8000") },
        { FieldId::FilledQty, QStringLiteral("5000") } };
    Status status = plan.status();
    if (status)
        status = session.instructions()
                     .add(*plan, tradeDay(Kelvo_Values::Exchange::sh, -1), instruction, session.changeNow())
                     .status();
    if (!status)
        problem(errorText(status));
    press(Qt::Key_F5);
    return plan.valueOr(QString());
}

void WalkThrough::copyOrdinary()
{
    beginStage(QStringLiteral("copy"), QStringLiteral("复制"));
    m_window.selectPlan(m_ordinaryPlan);
    if (!openEditor(Qt::Key_D))
        return;
    PlanForm form = ordinaryForm();
    form.remark = QStringLiteral("复制自%1").arg(m_ordinaryPlan);
    FormDriver driver(m_dialog.editor());
    driver.type("le_remark", form.remark);
    pictureForm(QStringLiteral("form"));
    const ShownDates dates = driver.dates();
    if (dates.begin != m_ordinaryDates.begin || dates.end != m_ordinaryDates.end)
        problem(QStringLiteral("复制未开始的计划时，生效时段没有带出"));
    collect(driver.takeProblems());
    send({ { Tip, editorText(Created), true } });
    checkStored(newestPlan(), form, dates);
}

void WalkThrough::answerQuestion()
{
    beginStage(QStringLiteral("question"), QStringLiteral("拒绝，然后接受询问"));
    const DatabaseProbe::Security share =
        m_probe.held(m_freeAccount, Kelvo_Values::Exchange::sh, SubType::Ashares, false);
    PlanForm form = ordinaryForm();
    form.symbol = share.symbol;
    form.side = Kelvo_Values::OrderSide::sell;
    form.target = QString::number(share.held + 1000);
    form.perDay = QStringLiteral("100");
    if (!openEditor(Qt::Key_N))
        return;
    FormDriver driver(m_dialog.editor());
    driver.fill(form);
    collect(driver.takeProblems());
    const ShownDates dates = driver.dates();
    const QString text =
        editorText("当前账号【%1】的持仓可用小于目标总量，是否继续%2计划？继续请点击【确认】，"
                   "否则点击【取消】")
            .arg(ClientSession::instance().accounts().find(form.account)->fundAccount, editorText("创建"));
    const QString before = newestPlan();
    send({ { Question, text, false } });
    if (newestPlan() != before || !m_dialog.isVisible())
        problem(QStringLiteral("拒绝询问后，计划仍被提交"));
    send({ { Question, text, true }, { Tip, editorText(Created), true } });
    checkStored(newestPlan(), form, dates);
}

void WalkThrough::showOtherSkin()
{
    beginStage(QStringLiteral("skin"), QStringLiteral("换肤"));
    const QString former = m_window.skin();
    press(Qt::Key_F8);
    if (m_window.skin() == former)
        problem(QStringLiteral("皮肤没有更换"));
    m_window.selectPlan(m_ordinaryPlan);
    picture(&m_window, QStringLiteral("window"));
    if (!openEditor(Qt::Key_D))
        return;
    pictureForm(QStringLiteral("form"));
    FormDriver(m_dialog.editor()).cancel();
    if (m_dialog.isVisible())
        problem(QStringLiteral("取消后，编辑器没有关闭"));
}

void WalkThrough::createPlan(const PlanForm& form)
{
    if (!openEditor(Qt::Key_N))
        return;
    FormDriver driver(m_dialog.editor());
    driver.setOnPanel([this](QWidget* panel) { picture(panel, QStringLiteral("panel")); });
    driver.fill(form);
    collect(driver.takeProblems());
    pictureForm(QStringLiteral("form"));
    const ShownDates dates = driver.dates();
    if (m_stage == QLatin1String("ordinary"))
        m_ordinaryDates = dates;
    send({ { Tip, editorText(Created), true } });
    checkStored(newestPlan(), form, dates);
    picture(&m_window, QStringLiteral("window"));
}
