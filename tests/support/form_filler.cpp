// A client whose form is filled in by mouse and keyboard, and which waits then to be killed. Prints "filled" and the
// driver's problems.
//   form_filler DATABASE new SYMBOL | form_filler DATABASE edit PLAN

#include "AutoParamSetting.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "EditorDialog.h"
#include "FormDriver.h"
#include "MainWindow.h"
#include "PlanCodes.h"
#include "SampleSession.h"
#include "TestClock.h"

#include <QApplication>
#include <QTest>

#include <cstdio>

using namespace PlanCodes;

namespace {

PlanForm form(const QString& symbol)
{
    const QString reviewedAccount = QStringLiteral("100002");
    return PlanForm::ordinary(reviewedAccount, symbol)
        .priced(PriceModel::Custom, QStringLiteral("17.49"))
        .byAlgorithm(QStringLiteral("TWAP"));
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    setToday(SampleSession::today());
    setClientToday(SampleSession::today());
    if (arguments.size() != 4 || !ClientSession::instance().open(arguments.at(1), QString()))
        return 1;
    MainWindow window;
    window.show();
    const bool isNew = arguments.at(2) == QStringLiteral("new");
    if (!isNew)
        window.selectPlan(arguments.at(3));
    if (!takeKeyboard(&window))
        return 1;
    QTest::keyClick(&window, isNew ? Qt::Key_N : Qt::Key_E, Qt::ControlModifier);
    FormDriver driver(window.editorDialog()->editor());
    if (isNew)
        driver.fill(form(arguments.at(3)));
    driver.type("le_targetTotalNum", QStringLiteral("12 cows"));
    driver.type("le_remark", QStringLiteral("half"));
    std::printf("filled %s\n", driver.takeProblems().join(QLatin1Char(' ')).toLocal8Bit().constData());
    std::fflush(stdout);
    return QApplication::exec();
}
