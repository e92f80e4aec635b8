#include "AutoPlanField.h"
#include "ClientFormTest.h"
#include "EditorDialog.h"
#include "EditorForm.h"
#include "HostileTexts.h"
#include "MainWindow.h"
#include "OrloAgreementSignWidget.h"
#include "OrloWidget.h"
#include "Orlo_Values.h"
#include "ParameterForm.h"
#include "PlanCodes.h"
#include "TestStatus.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QtTest>

using namespace HostileTexts;
using namespace PlanCodes;

namespace {

/// Makes every text of a column hostile.
bool spoil(const QString& file, const QString& table, const QString& column)
{
    bool done = false;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("spoil"));
        database.setDatabaseName(file);
        QSqlQuery query(database);
        done = database.open()
            && query.exec(QStringLiteral("UPDATE %1 SET %2 = '%3' || %2").arg(table, column, hostile(QString())));
    }
    QSqlDatabase::removeDatabase(QStringLiteral("spoil"));
    return done;
}

StrategyDefinition hostileStrategy()
{
    StrategyParameter parameter;
    parameter.name = QStringLiteral("P");
    StrategyControl control;
    control.id = QStringLiteral("c");
    control.parameter = parameter.name;
    control.label = hostile(QStringLiteral("标签"));
    control.unit = hostile(QStringLiteral("单位"));
    control.tooltip = hostile(QStringLiteral("提示"));
    control.helpText = hostile(QStringLiteral("说明"));
    StrategyPanel panel;
    panel.title = hostile(QStringLiteral("分组"));
    panel.hasBorder = true;
    panel.items.append({ false, 0 });
    StrategyDefinition strategy;
    strategy.panels << StrategyPanel() << panel;
    strategy.panels.first().items.append({ true, 1 });
    strategy.parameters << parameter;
    strategy.controls << control;
    return strategy;
}

} // namespace

/// Texts from data are shown as they are, in every widget, even if they look like HTML.
class HostileTextsTest : public ClientFormTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        startSession();
        ClientSession::instance().close();
        const QList<QPair<QString, QString>> columns{
            { QStringLiteral("securities"), QStringLiteral("name") },
            { QStringLiteral("accounts"), QStringLiteral("name") },
            { QStringLiteral("users"), QStringLiteral("name") },
            { QStringLiteral("agreements"), QStringLiteral("title") },
            { QStringLiteral("static_texts"), QStringLiteral("text") },
            { QStringLiteral("chain_users"), QStringLiteral("user_name") },
        };
        for (const auto& column : columns)
            QVERIFY2(spoil(session().file(), column.first, column.second), qPrintable(column.first));
        QCOMPARE(session().reopen(), Status());
        QMap<QString, QVariant> record = SampleSession::record();
        record.insert(AutoPlanField::BaseField::remark, hostile(QStringLiteral("备注")));
        m_plan = session().create(record);
        QCOMPARE(session().reason(), QString());
    }

    void cleanupTestCase() { endSession(); }

    void inTheWindow()
    {
        MainWindow window;
        window.show();
        const Finding found = lookAtWidgets();
        QCOMPARE(found.rich, QStringList());
        QVERIFY(found.places.contains(QStringLiteral("planTable item")));
        QVERIFY(found.places.contains(QStringLiteral("planTable item's tip")));
        QVERIFY(found.places.contains(QStringLiteral("QLabel ")));
    }

    void inTheForm()
    {
        openPlan(m_plan, true);
        // Too narrow for the text, which is then in the tool tip.
        editor().findChild<QWidget*>(QStringLiteral("la_symbolName"))->setFixedWidth(40);
        editor().window()->grab();
        const Finding found = lookAtWidgets();
        QCOMPARE(found.rich, QStringList());
        QVERIFY(found.places.contains(QStringLiteral("OrloElidedLabel la_symbolName")));
        QVERIFY(found.places.contains(QStringLiteral("OrloElidedLabel la_symbolName tool tip")));
    }

    void inTheListOfSecurities()
    {
        open();
        choose(editor(), "combx_fundAccount", FreeAccount);
        choose(editor(), "combx_instructionType", InstructionType::Ordinary);
        QVERIFY(takeKeyboard(editor().window()));
        auto* const symbol = field<QLineEdit>(editor(), "le_symbol");
        symbol->setFocus();
        const auto suggestions = [symbol] { return symbol->findChild<QWidget*>(QStringLiteral("suggestions")); };
        QTest::keyClicks(symbol, share().section(QLatin1Char('.'), 0, 0));
        QTRY_VERIFY(suggestions() && suggestions()->isVisible());
        const Finding found = lookAtWidgets();
        QCOMPARE(found.rich, QStringList());
        QVERIFY(found.places.contains(QStringLiteral("suggestions item")));
    }

    void inABox()
    {
        Finding found;
        boxes().expect(QStringLiteral("msgBoxWarning"));
        boxes().setOnShown([&found](QWidget*) { found = lookAtWidgets(); });
        OrloWidget::ShowWarningMsgBox(hostile(QStringLiteral("文字")), nullptr);
        boxes().setOnShown({});
        QCOMPARE(found.rich, QStringList());
        QVERIFY(found.places.contains(QStringLiteral("QLabel msgBoxText")));
    }

    void inAnAgreement()
    {
        OrloAgreementSignWidget dialog(true, true, nullptr);
        dialog.SetAgreement(Orlo_Values::ProtocolId::AutoPlanReduceAgree);
        dialog.SetClientNoList({ hostile(QStringLiteral("1")) });
        const Finding found = lookAtWidgets();
        QCOMPARE(found.rich, QStringList());
        QVERIFY(found.places.contains(QStringLiteral("QLabel agreementTitle")));
    }

    void inTheParametersOfAnAlgorithm()
    {
        const ParameterForm form(hostileStrategy(), nullptr);
        const Finding found = lookAtWidgets();
        QCOMPARE(found.rich, QStringList());
        const QStringList expected{ QStringLiteral("QLabel "), QStringLiteral("QLabel unit_P"),
            QStringLiteral("QLineEdit input_P tool tip") };
        for (const QString& place : expected)
            QVERIFY2(found.places.contains(place), qPrintable(place));
    }

private:
    QString m_plan;
};

QTEST_MAIN(HostileTextsTest)
#include "tst_hostile_texts.moc"
