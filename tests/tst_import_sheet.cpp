// The window that imports files, and sheets of securities with a plan as template, filled in by mouse and keyboard.
#include "AutoPlanField.h"
#include "ClientClock.h"
#include "ClientWindowTest.h"
#include "DataFolder.h"
#include "ErrorText.h"
#include "ImportSheet.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "PlanEvents.h"
#include "TestStatus.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTimer>
#include <QtTest>

namespace {

const QByteArray SecurityHeadings = "symbol,name,type,sub-type,decimals,factor,step,limit\n";

} // namespace

class ImportSheetTest : public ClientWindowTest {
    Q_OBJECT

private Q_SLOTS:
    void aFileIsShownBeforeItIsImported()
    {
        openWindow();
        openSheet("securities");
        choose(write("证券.csv", SecurityHeadings + "600999.SH,新股,股票,主板,2,1,100,10%\n" + line(share(), "新名")));
        QCOMPARE(row(0), QStringLiteral("新增|证券.csv|2||证券600999.SH：新增新股"));
        QVERIFY2(
            row(1).startsWith(QStringLiteral("修改|证券.csv|3||证券%1：证券名称由“").arg(share())), qPrintable(row(1)));
        QCOMPARE(rows()->rowCount(), 2);
        QCOMPARE(text("importText"), QStringLiteral("证券.csv：新增1，修改1，不变0（试运行，没有保存）"));
        QVERIFY(!ClientSession::instance().market().find(QStringLiteral("600999.SH")));
        click("btn_import");
        waitForTheEnd();
        QCOMPARE(text("importText"), QStringLiteral("证券.csv：新增1，修改1，不变0"));
        QVERIFY(!button("btn_import")->isEnabled());
        // The open client knows them.
        QCOMPARE(ClientSession::instance().market().find(QStringLiteral("600999.SH"))->name, QStringLiteral("新股"));
        QCOMPARE(ClientSession::instance().market().find(share())->name, QStringLiteral("新名"));
    }

    void nothingIsImportedIntoARestoredBackup()
    {
        openWindow();
        openSheet("securities");
        const QString file = write("a.csv", SecurityHeadings + "600999.SH,新股,股票,主板,2,1,100,10%\n");
        choose(file);
        const QByteArray restored = restoreBackup();
        QVERIFY(!restored.isEmpty());
        click("btn_import");
        waitForTheEnd();
        QVERIFY2(text("importText").contains(errorText(Error::DatabaseFileChanged)), qPrintable(text("importText")));
        QCOMPARE(fileContent(), restored);
        choose(file);
        QVERIFY2(text("importText").contains(errorText(Error::DatabaseFileChanged)), qPrintable(text("importText")));
        QCOMPARE(fileContent(), restored);
    }

    void anImportedSecurityCanBePlannedAtOnce()
    {
        openWindow();
        openSheet("securities");
        choose(write("a.csv", SecurityHeadings + "600999.SH,新股,股票,主板,2,1,100,10%\n"));
        click("btn_import");
        waitForTheEnd();
        openSheet("closes");
        choose(write("b.csv", "symbol,date,close\n600999.SH,2024-04-30,10\n"));
        click("btn_import");
        waitForTheEnd();
        QVERIFY(press(sheet(), Qt::Key_Escape));
        pressForEditor(Qt::Key_N);
        FormDriver driver = dialogDriver();
        driver.fill(PlanForm::ordinary(FreeAccount, QStringLiteral("600999.SH")));
        QCOMPARE(driver.takeProblems(), QStringList());
        QVERIFY(!send().isEmpty());
        QCOMPARE(*plans().count(), 1);
    }

    void anImportedAccountIsOfferedAtOnce()
    {
        openWindow();
        importAccount();
        QVERIFY(press(sheet(), Qt::Key_Escape));
        pressForEditor(Qt::Key_N);
        QVERIFY(offersAccount());
        dialog().leave();
    }

    void importedClosuresChangeTheEndThatTheWindowShows()
    {
        const DataFolder folder;
        setClientToday(QDate(2027, 10, 2));
        openWindow();
        const auto* const end = field<QLabel>(window(), "calendarEnd");
        QVERIFY(end->isVisible());
        QVERIFY2(end->text().startsWith(QStringLiteral("交易日历只到2027-12-31")), qPrintable(end->text()));
        openSheet("closures");
        choose(write("2028.csv",
            "market,date,holiday,status\nmainland,2028-01-01,元旦,announced\nhongkong,2028-01-01,元旦,computed\n"));
        click("btn_import");
        waitForTheEnd();
        QTRY_VERIFY_WITH_TIMEOUT(!end->isVisible(), Patience);
    }

    void anOpenFormTakesImportedAccountsWhenTheTraderWants()
    {
        openFilledForm();
        const QStringList before = filled();
        importAccount();
        QVERIFY(oldLists()->isVisible());
        QVERIFY(!offersAccount());
        QCOMPARE(filled(), before);
        takeLists();
        QVERIFY(!oldLists()->isVisible());
        QVERIFY(offersAccount());
        QCOMPARE(filled(), before);
        QCOMPARE(dialog().windowTitle(), QStringLiteral("新建计划"));
        QVERIFY(dialog().isChanged());
        QVERIFY(!send().isEmpty());
        QCOMPARE(*plans().count(), 1);
    }

    void theFormOfAPlanKeepsItsChangesWithNewLists()
    {
        const QString plan = createSamples(1).constFirst();
        openWindow();
        pressForEditor(Qt::Key_E);
        dialogDriver().type("le_remark", QStringLiteral("改后"));
        importAccount();
        QVERIFY(oldLists()->isVisible());
        takeLists();
        QCOMPARE(dialog().windowTitle(), QStringLiteral("修改计划 ") + plan);
        QCOMPARE(dialog().editedPlan(), plan);
        QVERIFY(!send().isEmpty());
        QCOMPARE(plans().record(plan)->value(AutoPlanField::BaseField::remark).toString(), QStringLiteral("改后"));
        QCOMPARE(plans().plan(plan)->version, 2);
    }

    void anOpenFormTakesImportedSecuritiesWhenTheTraderWants()
    {
        openFilledForm();
        openSheet("securities");
        choose(write("a.csv", SecurityHeadings + line(share(), "新名")));
        click("btn_import");
        waitForTheEnd();
        // The list has the same securities.
        QVERIFY(!oldLists()->isVisible());
        choose(write("a.csv", SecurityHeadings + "600999.SH,新股,股票,主板,2,1,100,10%\n"));
        click("btn_import");
        waitForTheEnd();
        openSheet("closes");
        choose(write("b.csv", "symbol,date,close\n600999.SH,2024-04-30,10\n"));
        click("btn_import");
        waitForTheEnd();
        QTRY_VERIFY_WITH_TIMEOUT(oldLists()->isVisible(), Patience);
        takeLists();
        FormDriver driver = dialogDriver();
        field<QLineEdit>(*dialogEditor(), "le_symbol")->clear();
        driver.enterSymbol(QStringLiteral("600999.SH"));
        QCOMPARE(driver.takeProblems(), QStringList());
        QVERIFY(!send().isEmpty());
        QCOMPARE(fields(newestPlan()).constFirst(), QStringLiteral("600999.SH"));
    }

    void anImportOfPricesSaysNothingInAForm()
    {
        openFilledForm();
        openSheet("positions");
        const QString account = FreeAccount;
        choose(write("a.csv",
            "account,symbol,quantity,tradeable\n" + account.toUtf8() + ',' + share().toUtf8() + ",1000,1000\n"));
        QSignalSpy changes(&PlanEvents::instance(), &PlanEvents::plansChanged);
        click("btn_import");
        waitForTheEnd();
        QCOMPARE(changes.count(), 1);
        dialog().lookForChange();
        QVERIFY(!oldLists()->isVisible());
        dialog().leave();
    }

    void aBadFileIsListedAndNotImported()
    {
        openWindow();
        openSheet("securities");
        choose(write("a.csv", SecurityHeadings + "600999.SH,新股,股,主板,2,1,100,10%\n"));
        QCOMPARE(row(0), QStringLiteral("错误|a.csv|2|3|type：证券类别“股”未知"));
        QCOMPARE(text("importText"), QStringLiteral("a.csv：新增0，修改0，不变0，错误1，没有导入"));
        QVERIFY(!button("btn_import")->isEnabled());
        // The corrected file, without another choice.
        write("a.csv", SecurityHeadings + "600999.SH,新股,股票,主板,2,1,100,10%\n");
        click("btn_preview");
        waitForTheEnd();
        QVERIFY(button("btn_import")->isEnabled());
        choose(m_folder.filePath(QStringLiteral("missing.csv")), false);
    }

    void whatWouldBeRemovedIsSaidFirst()
    {
        openWindow();
        const int before = stored("positions");
        QVERIFY(before > 2);
        openSheet("positions");
        const QString account = FreeAccount;
        choose(write("a.csv",
            "account,symbol,quantity,tradeable\n" + account.toUtf8() + ',' + share().toUtf8() + ",1000,1000\n"));
        clickBox("cb_replace");
        QVERIFY(!button("btn_import")->isEnabled());
        click("btn_preview");
        waitForTheEnd();
        QVERIFY2(row(0).startsWith(QStringLiteral("删除|a.csv|||")), qPrintable(row(0)));
        const QString question = boxOf([this] { click("btn_import"); }, "msgBoxQuestion", false);
        QVERIFY2(question.startsWith(QStringLiteral("将删除")), qPrintable(question));
        QCOMPARE(stored("positions"), before);
        boxOf([this] { click("btn_import"); }, "msgBoxQuestion");
        waitForTheEnd();
        QCOMPARE(stored("positions"), 1);
    }

    void onlyOneFileReplaces()
    {
        openWindow();
        openSheet("positions");
        const QByteArray headings = "account,symbol,quantity,tradeable\n";
        const QByteArray row = QString(FreeAccount).toUtf8() + ',' + share().toUtf8() + ",1000,1000\n";
        const QString file = write("a.csv", headings + row);
        choose(file);
        clickBox("cb_replace");
        QVERIFY(button("cb_replace")->isChecked());
        choose(QStringLiteral("\"%1\" \"%2\"").arg(file, write("b.csv", headings + row)));
        QCOMPARE(text("importFiles"), QStringLiteral("a.csv、b.csv"));
        QVERIFY(!button("cb_replace")->isChecked());
        QVERIFY(!button("cb_replace")->isEnabled());
        choose(file);
        QVERIFY(button("cb_replace")->isEnabled());
    }

    void enterPreviewsAndNeverClosesTheSheet()
    {
        const QString plan = createSamples(1).constFirst();
        openWindow();
        openSheet("plans");
        pasteText(sheetOf(1));
        waitForTheEnd();
        auto* const name = sheet()->findChild<QLineEdit*>(QStringLiteral("le_template"));
        QTest::keyClicks(name, plan);
        QCOMPARE(rows()->rowCount(), 0);
        for (const Qt::Key key : { Qt::Key_Return, Qt::Key_Enter }) {
            QVERIFY(press(name, key));
            QVERIFY(sheet()->isVisible());
            waitForTheEnd();
            QCOMPARE(text("importText"), QStringLiteral("剪贴板：新增1，修改0，不变0（试运行，没有保存）"));
        }
        for (const char* const other : { "importRows", "combx_importKind", "btn_preview" }) {
            QVERIFY(press(sheet()->findChild<QWidget*>(QLatin1String(other)), Qt::Key_Return));
            QVERIFY2(sheet()->isVisible(), other);
            waitForTheEnd();
        }
        QCOMPARE(*plans().count(), 1);
        QVERIFY(press(name, Qt::Key_Escape));
        QVERIFY(!sheet()->isVisible());
    }

    void changedSettingsNeedAnotherPreview()
    {
        openWindow();
        openSheet("securities");
        choose(write("a.csv", SecurityHeadings + line(share(), "新名")));
        QVERIFY(button("btn_import")->isEnabled());
        QTest::keyClick(kinds(), Qt::Key_Down);
        QVERIFY(!button("btn_import")->isEnabled());
        QCOMPARE(rows()->rowCount(), 0);
    }

    void anImportIsCancelled()
    {
        const QString plan = createSamples(1).constFirst();
        openSheetOf(plan);
        // Pressed as soon as the import runs, by an event that a blocked window would not take.
        QTimer::singleShot(0, this, [this] { click("btn_close"); });
        pasteText(sheetOf(2000));
        waitForTheEnd();
        QCOMPARE(text("importText"), QStringLiteral("剪贴板：已取消"));
        QVERIFY(!button("btn_import")->isEnabled());
        click("btn_preview");
        waitForTheEnd();
        QCOMPARE(text("importText"), QStringLiteral("剪贴板：新增2000，修改0，不变0（试运行，没有保存）"));
        QTimer::singleShot(0, this, [this] { click("btn_close"); });
        click("btn_import");
        waitForTheEnd();
        QCOMPARE(text("importText"), QStringLiteral("剪贴板：已取消"));
        QVERIFY(sheet()->isVisible());
        QCOMPARE(*plans().count(), 1);
    }

    void oneTemplateMakesManyPlans()
    {
        const QString plan = createSamples(1).constFirst();
        const QStringList symbols = shares();
        openSheetOf(plan);
        const QString sheetText =
            QStringLiteral("代码\t数量\t金额\t价格\t结束\n%1\t2000\t\t\t\n%2\t\t50万\t10.01\t2024-05-09\n"
                           "%3\t0.5\t\t\t\nX\t1\t\t\t\n")
                .arg(symbols.at(0), symbols.at(1).section(QLatin1Char('.'), 0, 0), symbols.at(2));
        pasteText(sheetText);
        waitForTheEnd();
        QCOMPARE(row(0), QStringLiteral("错误|剪贴板|4|2|数量：只能输入整数"));
        QCOMPARE(row(1), QStringLiteral("错误|剪贴板|5|1|代码：证券“X”不存在"));
        QCOMPARE(row(2), QStringLiteral("新增|剪贴板|2||新增计划：%1").arg(symbols.at(0)));
        QCOMPARE(row(3), QStringLiteral("新增|剪贴板|3||新增计划：%1").arg(symbols.at(1)));
        QVERIFY(!button("btn_import")->isEnabled());
        QCOMPARE(*plans().count(), 1);
        clickBox("cb_leaveOut");
        click("btn_import");
        waitForTheEnd();
        QCOMPARE(text("importText"), QStringLiteral("剪贴板：新增2，修改0，不变0，略去错误2"));
        QCOMPARE(row(2), QStringLiteral("新增|剪贴板|2||新增计划AP00000002：%1").arg(symbols.at(0)));
        QCOMPARE(fields(QStringLiteral("AP00000002")),
            QStringList({ symbols.at(0), QStringLiteral("2000"), QStringLiteral("1"), QStringLiteral("2024-05-10") }));
        QCOMPARE(fields(QStringLiteral("AP00000003")).constLast(), QStringLiteral("2024-05-09"));
        // The table has them without a refresh.
        QTRY_COMPARE_WITH_TIMEOUT(field<QTableView>(window(), "planTable")->model()->rowCount(), 3, Patience);
        // Sent again, no row is stored twice.
        pasteText(sheetText);
        waitForTheEnd();
        QCOMPARE(text("importText"), QStringLiteral("剪贴板：新增0，修改0，不变2，错误2，没有导入"));
        click("btn_import");
        waitForTheEnd();
        QCOMPARE(*plans().count(), 3);
    }

    void aSheetWithFullWidthCharactersMakesPlans()
    {
        const QString plan = createSamples(1).constFirst();
        openSheetOf(plan);
        const QString symbol = shares().at(0);
        QVERIFY(symbol.startsWith(QLatin1String("60")) && symbol.endsWith(QLatin1String(".SH")));
        pasteText(QStringLiteral("代码\t数量\t价格\t结束\n６０%1．ｓｈ\t２，０００\t（１０．０１）\t２０２４／５／９\n")
                      .arg(symbol.mid(2, 4)));
        waitForTheEnd();
        QCOMPARE(row(0), QStringLiteral("新增|剪贴板|2||新增计划：%1").arg(symbol));
        click("btn_import");
        waitForTheEnd();
        QCOMPARE(fields(QStringLiteral("AP00000002")),
            QStringList({ symbol, QStringLiteral("2000"), QStringLiteral("6"), QStringLiteral("2024-05-09") }));
        const PlanStore::Record record = plans().record(QStringLiteral("AP00000002")).valueOr({});
        QCOMPARE(record.value(AutoPlanField::BaseField::priceFormula1).toString(), QStringLiteral("(10.01)"));
    }

    void anUnknownTemplateIsRefused()
    {
        openWindow();
        openSheet("plans");
        QTest::keyClicks(sheet()->findChild<QLineEdit*>(QStringLiteral("le_template")), QStringLiteral("AP00000099"));
        pasteText(sheetOf(1));
        waitForTheEnd();
        QCOMPARE(text("importText"), QStringLiteral("剪贴板：计划“AP00000099”不存在"));
        QVERIFY(!button("btn_import")->isEnabled());
    }

private:
    ImportSheet* sheet() const { return window().findChild<ImportSheet*>(); }
    QAbstractItemModel* rows() const { return sheet()->findChild<ImportSheetModel*>(); }
    QComboBox* kinds() const { return sheet()->findChild<QComboBox*>(QStringLiteral("combx_importKind")); }
    QString text(const char* name) const { return sheet()->findChild<QLabel*>(QLatin1String(name))->text(); }
    void click(const char* name) const { QTest::mouseClick(button(name), Qt::LeftButton); }
    void clickBox(const char* name) const
    {
        QTest::mouseClick(button(name), Qt::LeftButton, {}, QPoint(8, button(name)->height() / 2));
    }

    QWidget* oldLists() const { return field<QWidget>(dialog(), "oldLists"); }

    QStringList filled() const
    {
        QStringList fields;
        for (const FormDraft::Value& value : dialog().draft().values)
            fields << value.field + QLatin1Char('=') + value.code + QLatin1Char(' ') + value.text;
        return fields;
    }

    /// Opens a form and fills it in.
    void openFilledForm()
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        FormDriver driver = dialogDriver();
        driver.fill(ordinary());
        driver.type("le_remark", QStringLiteral("备注一"));
        QCOMPARE(driver.takeProblems(), QStringList());
    }

    void takeLists()
    {
        QVERIFY(takeKeyboard(&dialog()));
        QTest::mouseClick(field<QAbstractButton>(dialog(), "btnTakeLists"), Qt::LeftButton);
    }

    /// Imports the account 9001 with the user's right to it, while a form is open.
    void importAccount()
    {
        openSheet("accounts");
        choose(write("a.csv", "account,name,fund,client,branch,asset,XSHG\n9001,九号,F9,C9,B009,普通,A900\n"));
        click("btn_import");
        waitForTheEnd();
        openSheet("users");
        const QString name = ClientSession::instance().user().name;
        choose(write("b.csv", "user,name,account,types\ntrader01," + name.toUtf8() + ",9001,普通\n"));
        click("btn_import");
        waitForTheEnd();
        QTRY_VERIFY_WITH_TIMEOUT(!dialog().isVisible() || oldLists()->isVisible(), Patience);
    }

    bool offersAccount() const
    {
        return field<QComboBox>(*dialogEditor(), "combx_fundAccount")->findData(QStringLiteral("9001")) >= 0;
    }

    QAbstractButton* button(const char* name) const
    {
        return sheet()->findChild<QAbstractButton*>(QLatin1String(name));
    }

    QString row(int number) const
    {
        QStringList cells;
        for (int column = 0; column < ImportSheetModel::ColumnCount; ++column)
            cells << rows()->index(number, column).data().toString();
        return cells.join(QLatin1Char('|'));
    }

    void openSheet(const char* kind)
    {
        window().findChild<QAction*>(QStringLiteral("action_import"))->trigger();
        QVERIFY(sheet()->isVisible());
        QVERIFY(takeKeyboard(sheet()));
        while (
            kinds()->currentData().toString() != QLatin1String(kind) && kinds()->currentIndex() < kinds()->count() - 1)
            QTest::keyClick(kinds(), Qt::Key_Down);
        QCOMPARE(kinds()->currentData().toString(), QLatin1String(kind));
    }

    void openSheetOf(const QString& plan)
    {
        openWindow();
        window().selectPlan(plan);
        window().findChild<QAction*>(QStringLiteral("action_sheet"))->trigger();
        QVERIFY(sheet()->isVisible());
        QCOMPARE(sheet()->findChild<QLineEdit*>(QStringLiteral("le_template"))->text(), plan);
    }

    void waitForTheEnd() const
    {
        QTRY_VERIFY_WITH_TIMEOUT(button("btn_close")->text() == QStringLiteral("关闭"), Patience);
    }

    void choose(const QString& file, bool exists = true)
    {
        chooseFile([this] { click("btn_files"); }, file, exists);
        waitForTheEnd();
    }

    void pasteText(const QString& text) const
    {
        QGuiApplication::clipboard()->setText(text);
        click("btn_paste");
    }

    QString write(const char* name, const QByteArray& contents) const
    {
        QFile file(m_folder.filePath(QString::fromUtf8(name)));
        if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
            qFatal("No file");
        return file.fileName();
    }

    static QByteArray line(const QString& symbol, const char* name)
    {
        return symbol.toUtf8() + ',' + name + ",股票,主板,2,1,100,10%\n";
    }

    static QStringList shares()
    {
        using namespace Kelvo_Values;
        return ClientSession::instance()
            .market()
            .symbols(MdcSecurityType::StockType, { MdcSubSecurityType::Ashares }, { SymbolPost::sh })
            .toStringList();
    }

    static QString sheetOf(int count)
    {
        QString text = QStringLiteral("代码\t数量\n");
        const QStringList symbols = shares();
        for (int i = 0; i < count; ++i)
            text += QStringLiteral("%1\t%2\n").arg(symbols.at(i % symbols.size())).arg(100 + 100 * (i / 50));
        return text;
    }

    static int stored(const char* table)
    {
        Database& database = ClientSession::instance().database();
        return database.value(QStringLiteral("SELECT count(*) FROM %1").arg(QLatin1String(table)))->toInt();
    }

    static QStringList fields(const QString& plan)
    {
        namespace Base = AutoPlanField::BaseField;
        const PlanStore::Record record = plans().record(plan).valueOr({});
        return { record.value(Kelvo_Fields::Security::symbol).toString(), record.value(Base::totalQty).toString(),
            record.value(Base::priceModel).toString(), record.value(Base::endDate).toString() };
    }

    QTemporaryDir m_folder;
};

QTEST_MAIN(ImportSheetTest)
#include "tst_import_sheet.moc"
