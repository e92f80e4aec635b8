#include "AutoParamSetting.h"
#include "AutoPlanLogic.h"
#include "OrloAccountComboBox.h"
#include <QComboBox>
#include <QLocale>
#include <QTextStream>
#include <QtTest>

namespace {

using Record = AutoPlanLogic::Record;

/// Fills the form in by mouse and keyboard. Its fields are known by their object names.
class Trader {
public:
    explicit Trader(const QWidget& form)
        : m_form(form)
    {
    }

    void click(const char* name) const { QTest::mouseClick(field(name), Qt::LeftButton); }

    /// Enters a field by the mouse, replaces what is in it and confirms.
    void type(const char* name, const QString& text) const
    {
        click(name);
        QTest::keyClick(field(name), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(field(name), text);
        QTest::keyClick(field(name), Qt::Key_Return);
    }

    /// Goes down a box, item by item.
    void down(const char* name, int steps = 1) const
    {
        for (int step = 0; step < steps; ++step)
            QTest::keyClick(field(name), Qt::Key_Down);
    }

private:
    QWidget* field(const char* name) const
    {
        auto* const found = m_form.findChild<QWidget*>(QLatin1String(name));
        if (found == nullptr)
            qFatal("The form has no field %s", name);
        return found;
    }

    const QWidget& m_form;
};

void fillIn(const QWidget& form)
{
    const Trader trader(form);
    trader.down("combx_fundAccount", 2);
    trader.down("combx_planType");
    trader.type("le_symbol", QStringLiteral("beta@XSHG"));
    trader.down("combx_priceMode");
    trader.type("lineEdit_price1", QStringLiteral("12.345"));
    trader.type("le_targetTotalNum", QStringLiteral("12000"));
    trader.type("le_entrustMaxNum", QStringLiteral("1500"));
    trader.down("combx_assignTo");
    trader.type("le_remark", QStringLiteral("by hand"));
    trader.click("btn_ok");
}

Record expectedRecord()
{
    const QString day = QLocale::c().toString(QDate::currentDate().addDays(2), QStringLiteral("dd.MM.yyyy"));
    return {
        { QStringLiteral("10112"), QStringLiteral("branch 2") },
        { QStringLiteral("account"), QStringLiteral("two") },
        { QStringLiteral("exchange"), QStringLiteral("XSHG") },
        { QStringLiteral("holder"), QStringLiteral("holder two") },
        { QStringLiteral("plan.assignee"), QStringLiteral("day desk") },
        { QStringLiteral("plan.formula1"), QStringLiteral("12.345") },
        { QStringLiteral("plan.from"), day },
        { QStringLiteral("plan.id"), QStringLiteral("P1") },
        { QStringLiteral("plan.instruction"), QStringLiteral("1") },
        { QStringLiteral("plan.mode"), QStringLiteral("1") },
        { QStringLiteral("plan.more"), QStringLiteral("{\"more.daily\":\"150\",\"more.kind\":\"stock/main\"}") },
        { QStringLiteral("plan.note"), QStringLiteral("by hand") },
        { QStringLiteral("plan.priceMode"), QStringLiteral("6") },
        { QStringLiteral("plan.quantity"), QStringLiteral("1200") },
        { QStringLiteral("plan.side"), QStringLiteral("B") },
        { QStringLiteral("plan.to"), day },
        { QStringLiteral("plan.type"), QStringLiteral("TW-02") },
        { QStringLiteral("security"), QStringLiteral("beta@XSHG") },
        { QStringLiteral("who"), QStringLiteral("stranger") },
    };
}

bool showsAccountsInFull(const QWidget& form)
{
    const auto* const box =
        dynamic_cast<OrloAccountComboBox*>(form.findChild<QComboBox*>(QStringLiteral("combx_fundAccount")));
    return box != nullptr && box->displayMode() == OrloAccountComboBox::DisplayMode::Full;
}

void print(const Record& record)
{
    QTextStream out(stdout);
    for (auto it = record.cbegin(); it != record.cend(); ++it)
        out << it.key() << " = " << it.value().toString() << '\n';
}

} // namespace

/// Creates one plan and prints what arrived in this client's plan service; 0 when it is the plan that was filled in.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    AutoParamSetting editor(nullptr);
    bool closed = false;
    QObject::connect(&editor, &AutoParamSetting::signalBtnCancelClicked, &editor, [&closed] { closed = true; });
    editor.show();
    if (!QTest::qWaitForWindowActive(&editor))
        qFatal("The form gets no keyboard");
    fillIn(editor);

    const QMap<QString, Record> plans = AutoPlanLogic::instance().plans();
    for (const Record& plan : plans)
        print(plan);
    return closed && showsAccountsInFull(editor) && plans.size() == 1 && plans.first() == expectedRecord() ? 0 : 1;
}
