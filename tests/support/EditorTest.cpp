#include "EditorTest.h"

#include <QVBoxLayout>
#include <QtTest>

QStringList lines(const char* text)
{
    QStringList found;
    for (const QString& line : QString::fromUtf8(text).split(QLatin1Char('\n'))) {
        if (!line.trimmed().isEmpty())
            found.append(line.trimmed());
    }
    return found;
}

void EditorTest::addSecurities()
{
    script().addStock(Stock);
    script().addStock(OtherStock);
    script().addBond(Bond, 10);
    script().addHkStock(HkStock, 500);
}

AutoParamSetting& EditorTest::construct()
{
    destroy();
    m_host = std::make_unique<QWidget>();
    m_host->setObjectName(QStringLiteral("host"));
    auto* const layout = new QVBoxLayout(m_host.get());
    m_editor = new AutoParamSetting(m_host.get());
    layout->addWidget(m_editor);
    return *m_editor;
}

AutoParamSetting& EditorTest::constructShown()
{
    construct();
    m_host->show();
    return *m_editor;
}

void EditorTest::openWithAccount()
{
    script().addOrdinaryAccount(Account);
    addSecurities();
    constructShown();
    script().forget();
    log().clear();
}

void EditorTest::openFilledWith(const PlanSample& plan)
{
    if (script().accounts.isEmpty())
        openSampleMarket();
    if (plan.mode != AutoPlanInstMode::ActiveManage)
        script().ruleProperty = AutoPlanRuleProperty::Review;
    constructShown();
    fillForm(editor(), plan);
}

AutoParamSetting& EditorTest::editor() const
{
    if (m_editor == nullptr)
        qFatal("The test has not constructed an editor");
    return *m_editor;
}

QWidget& EditorTest::host() const
{
    if (m_host == nullptr)
        qFatal("The test has not constructed an editor");
    return *m_host;
}

void EditorTest::destroy()
{
    m_host.reset();
    m_editor = nullptr;
}

void EditorTest::destroyDuring(const QString& operation)
{
    script().onCall = [this, operation](const ScriptCall& call) {
        if (m_editor == nullptr || call.operation != operation)
            return;
        destroy();
        script().forget();
    };
}

void EditorTest::callSlot(const char* name)
{
    if (!QMetaObject::invokeMethod(&editor(), name, Qt::DirectConnection))
        qFatal("The editor has no such slot: %s", name);
}

void EditorTest::openPlan(const QString& planId, bool edits)
{
    if (edits)
        editor().editPlan(planId);
    else
        editor().copyPlan(planId);
}

QStringList EditorTest::ok()
{
    script().boxes.clear();
    press(editor(), "btn_ok");
    return said();
}

QStringList EditorTest::said() const
{
    QStringList sentences;
    for (const ScriptBox& shown : qAsConst(script().boxes))
        sentences.append(shown.kind + QStringLiteral(": ") + shown.text);
    return sentences;
}

QStringList EditorTest::stepsOf(const std::function<void()>& action)
{
    script().forget();
    script().watch(true);
    action();
    script().watch(false);
    return script().steps;
}

void EditorTest::init()
{
    Script::instance().reset();
    setToday(QDate(2024, 5, 6));
    m_log = std::make_unique<LogCatcher>();
}

void EditorTest::cleanup()
{
    destroy();
    const QStringList problems = m_log->problems();
    m_log.reset();
    Script::instance().reset();
    QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
}
