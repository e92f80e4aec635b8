#include "AutoParamSetting.h"
#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloConstants.h"
#include "Orlo_Fields.h"

#include <QComboBox>
#include <QLocale>
#include <QTextStream>
#include <QtTest>

namespace {

using Record = QMap<QString, QVariant>;

/// Fills in the form by mouse and keyboard. Finds the fields by their object names.
class Trader {
public:
    explicit Trader(const QWidget& form)
        : m_form(form)
    {
    }

    void click(const char* name) const { QTest::mouseClick(field(name), Qt::LeftButton); }

    /// Clicks a field, replaces its content and confirms.
    void type(const char* name, const QString& text) const
    {
        click(name);
        QTest::keyClick(field(name), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(field(name), text);
        QTest::keyClick(field(name), Qt::Key_Return);
    }

    /// Goes down the items of a box one by one.
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

void fillIn(const Trader& trader)
{
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

Record expectedRecord(const QString& id)
{
    using namespace AutoPlanField;
    using namespace Kelvo_Fields::UserAccount;
    const QString day =
        QLocale::c().toString(QDate::currentDate().addDays(2), OrloConstants::DateTimeFormatString::STD_DATE_FORMAT);
    const QString other = QStringLiteral("{\"%1\":\"%2\",\"%3\":\"%4\"}")
                              .arg(BaseField::securitySubType, Kelvo_Values::MdcSubSecurityType::Ashares,
                                  Progress::CurrentQty, QStringLiteral("150"));
    return {
        { QStringLiteral("10112"), QStringLiteral("branch two") },
        { tradingAccount, QStringLiteral("two") },
        { securityExchange, Kelvo_Values::Exchange::sh },
        { securityAccount, QStringLiteral("holder two") },
        { BaseField::expectedUser, QStringLiteral("day desk") },
        { BaseField::priceFormula1, QStringLiteral("12.345") },
        { BaseField::beginDate, day },
        { BaseField::autoPlanId, id },
        { Orlo_Fields::AutoPlan::subType, QStringLiteral("1") },
        { BaseField::InstMode, QStringLiteral("1") },
        { BaseField::planOtherParam, other },
        { BaseField::remark, QStringLiteral("by hand") },
        { BaseField::priceModel, QStringLiteral("6") },
        { BaseField::totalQty, QStringLiteral("1200") },
        { BaseField::orderSide, Kelvo_Values::OrderSide::buy },
        { BaseField::endDate, day },
        { Orlo_Fields::AutoPlan::templateCode, QStringLiteral("TW-02") },
        { Kelvo_Fields::Security::symbol, QStringLiteral("beta@XSHG") },
        { userID, QStringLiteral("stranger") },
    };
}

/// Prints what this client's plan service has stored, and checks it against the plan that was filled in.
bool isAsFilledIn(const QString& id)
{
    const Record stored = AutoPlanLogic::instance().GetPlanInfo(id);
    QTextStream out(stdout);
    for (auto it = stored.cbegin(); it != stored.cend(); ++it)
        out << it.key() << " = " << it.value().toString() << '\n';
    return stored == expectedRecord(id);
}

bool showsAccountsInFull(const QWidget& form)
{
    const auto* const box = form.findChild<QComboBox*>(QStringLiteral("combx_fundAccount"));
    return box->itemText(1) == QLatin1String("two of client two");
}

} // namespace

/// Creates, edits and copies a plan. Returns 0 if this client's plan service gets all three as they were filled in.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    AutoParamSetting editor(nullptr);
    int closed = 0;
    QObject::connect(&editor, &AutoParamSetting::signalBtnCancelClicked, &editor, [&closed] { ++closed; });
    editor.show();
    if (!QTest::qWaitForWindowActive(&editor))
        qFatal("The form gets no keyboard");
    const Trader trader(editor);
    fillIn(trader);
    const bool created = isAsFilledIn(QStringLiteral("P1"));

    editor.editPlan(QStringLiteral("P1"));
    trader.click("btn_ok");
    const bool edited = isAsFilledIn(QStringLiteral("P1"));

    editor.resetEnable();
    editor.copyPlan(QStringLiteral("P1"));
    trader.click("btn_ok");
    const bool copied = isAsFilledIn(QStringLiteral("P2"));
    return showsAccountsInFull(editor) && created && edited && copied && closed == 3 ? 0 : 1;
}
