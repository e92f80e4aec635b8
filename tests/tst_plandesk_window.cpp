#include "Appearance.h"
#include "AutoParamSetting.h"
#include "AutoPlanField.h"
#include "ClientSession.h"
#include "EditorDialog.h"
#include "FormDriver.h"
#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "LogCatcher.h"
#include "MainWindow.h"
#include "MessageBoxResponder.h"
#include "Options.h"
#include "PlanCodes.h"
#include "PlanFormatter.h"
#include "PlanTableModel.h"
#include "SampleSession.h"
#include "TestClock.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPointer>
#include <QProcess>
#include <QTableView>
#include <QtTest>

namespace BaseField = AutoPlanField::BaseField;
using namespace PlanCodes;
using Record = QMap<QString, QVariant>;

namespace {

const QSize formSize(517, 710);

Options read(const QStringList& arguments)
{
    return readOptions(QStringList{ QStringLiteral("plandesk") } + arguments, Program::Client);
}

PlanForm ordinaryForm()
{
    PlanForm form;
    form.account = QStringLiteral("100001");
    form.instructionType = InstructionType::Ordinary;
    form.symbol = SampleSession::symbolOf(Kelvo_Values::MdcSubSecurityType::Ashares, Kelvo_Values::SymbolPost::sh);
    form.target = QStringLiteral("1000");
    return form;
}

struct ProgramEnd {
    int code = -1;
    QString output;
    QString errors;
};

ProgramEnd runProgram(const QStringList& arguments,
    const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment(),
    const QString& file = QStringLiteral(PLANDESK_PROGRAM))
{
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(file, arguments);
    constexpr int timeout = 100000; // milliseconds, for a walk-through on a busy machine
    if (!program.waitForFinished(timeout))
        return ProgramEnd();
    return { program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()),
        QString::fromUtf8(program.readAllStandardError()) };
}

QProcessEnvironment withoutDisplay()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : { "DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM" })
        environment.remove(QLatin1String(name));
    return environment;
}

/// The environment on a machine where this variable alone names a language.
QProcessEnvironment inLanguage(const QString& variable, const QString& locale)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("LC_ALL"));
    environment.insert(QStringLiteral("LANG"), QStringLiteral("C.UTF-8"));
    environment.insert(variable, locale);
    return environment;
}

} // namespace

class TestPlandeskWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void options_that_do_not_fit_are_told_in_chinese_data();
    void options_that_do_not_fit_are_told_in_chinese();
    void without_options_the_window_is_wanted();
    void every_option_is_read();
    void the_help_names_every_option();

    void the_program_refuses_what_it_cannot_do_data();
    void the_program_refuses_what_it_cannot_do();
    void without_a_display_no_window_is_tried();
    void the_program_issues_a_day_and_lists_the_result();
    void a_day_is_issued_whatever_digits_the_machine_writes_data();
    void a_day_is_issued_whatever_digits_the_machine_writes();
    void the_walk_through_passes_whatever_digits_the_machine_writes_data();
    void the_walk_through_passes_whatever_digits_the_machine_writes();

    void the_table_reads_the_pages_that_are_shown();
    void the_table_has_more_rows_when_more_are_wanted();
    void every_plan_is_found_by_its_id();
    void a_plan_is_told_in_words();
    void codes_that_are_none_are_shown_as_they_are();

    void a_created_plan_is_listed_and_current();
    void the_editor_is_used_again_after_a_stored_plan();
    void a_form_left_with_values_is_replaced();
    void editing_starts_by_shortcut_enter_and_double_click();
    void a_copy_of_a_plan_is_a_new_plan();
    void without_a_plan_there_is_nothing_to_edit();
    void closing_a_changed_form_asks();
    void closing_an_unchanged_form_does_not_ask();
    void the_window_stays_while_its_form_is_wanted();
    void enter_in_a_field_presses_no_button();
    void the_skin_reaches_the_editor();
    void the_day_is_issued_from_the_menu();

private:
    void openWindow();
    bool press(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void pressForEditor(Qt::Key key);
    EditorDialog& dialog() const { return *m_window->editorDialog(); }
    AutoParamSetting* editor() const { return dialog().editor(); }
    QString createPlan();

    std::unique_ptr<SampleSession> m_session;
    std::unique_ptr<LogCatcher> m_log;
    std::unique_ptr<MainWindow> m_window;
    MessageBoxResponder m_boxes;
};

void TestPlandeskWindow::initTestCase()
{
    setToday(SampleSession::today());
    QApplication::setFont(QFont(QStringLiteral("Sans Serif"), 9));
}

void TestPlandeskWindow::init()
{
    m_log = std::make_unique<LogCatcher>();
    m_session = std::make_unique<SampleSession>();
    QCOMPARE(m_session->reason(), QString());
}

void TestPlandeskWindow::cleanup()
{
    m_window.reset();
    qApp->setStyleSheet(QString());
    m_session.reset();
    QCOMPARE(m_boxes.take().size(), 0);
    QCOMPARE(m_log->trouble(), QStringList());
    m_log.reset();
}

void TestPlandeskWindow::openWindow()
{
    m_window = std::make_unique<MainWindow>();
    m_window->setSkin(QStringLiteral("light"));
    m_window->show();
    QVERIFY(takeKeyboard(m_window.get()));
}

bool TestPlandeskWindow::press(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    if (!takeKeyboard(widget->window()))
        return false;
    QTest::keyClick(widget, key, modifiers);
    return true;
}

void TestPlandeskWindow::pressForEditor(Qt::Key key)
{
    QVERIFY(press(m_window.get(), key, Qt::ControlModifier));
    QVERIFY(dialog().isVisible());
    QVERIFY(takeKeyboard(&dialog()));
}

/// Creates a plan through the form; its id, empty when it was not stored.
QString TestPlandeskWindow::createPlan()
{
    const int before = ClientSession::instance().plans().count();
    pressForEditor(Qt::Key_N);
    FormDriver driver(editor());
    driver.fill(ordinaryForm());
    m_boxes.expect(QStringLiteral("msgBoxTip"));
    driver.confirm();
    const bool isDone = driver.takeProblems().isEmpty() && m_boxes.take().size() == 1
        && ClientSession::instance().plans().count() == before + 1;
    return isDone ? ClientSession::instance().plans().page(0, 1).constFirst().id : QString();
}

void TestPlandeskWindow::options_that_do_not_fit_are_told_in_chinese_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const QString& arguments, const QString& error) {
        QTest::newRow(name) << arguments.split(QLatin1Char(' ')) << error;
    };
    row("an unknown option", QStringLiteral("--colour red"), QStringLiteral("未知选项：colour"));
    row("an option without its value", QStringLiteral("--user"), QStringLiteral("选项--user缺少取值"));
    row("an option with an empty value", QStringLiteral("--database="), QStringLiteral("选项--database缺少取值"));
    row("a value where none belongs", QStringLiteral("--help=yes"), QStringLiteral("选项--help不带取值"));
    row("a word too many", QStringLiteral("plans.db"), QStringLiteral("多余的参数：plans.db"));
    row("a skin that is none", QStringLiteral("--skin pink"), QStringLiteral("没有皮肤“pink”，可选：light、dark"));
    row("a language that is none", QStringLiteral("--language fr"), QStringLiteral("没有语言“fr”，可选：zh、en"));
    row("a number that is none", QStringLiteral("--securities many"), QStringLiteral("证券数量“many”不是正整数"));
    row("a number below one", QStringLiteral("--securities 0"), QStringLiteral("证券数量“0”不是正整数"));
    row("a day that is none", QStringLiteral("--issue-day 2024-02-30"),
        QStringLiteral("日期“2024-02-30”无效，格式为yyyy-MM-dd"));
    row("a day in another form", QStringLiteral("--issue-day 2024-5-6"),
        QStringLiteral("日期“2024-5-6”无效，格式为yyyy-MM-dd"));
    row("a job of the other program", QStringLiteral("--walkthrough folder"), QStringLiteral("未知选项：walkthrough"));
}

void TestPlandeskWindow::options_that_do_not_fit_are_told_in_chinese()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, error);
    QCOMPARE(read(arguments).error, error);
    QVERIFY(!read(arguments).wantsWindow());
}

void TestPlandeskWindow::without_options_the_window_is_wanted()
{
    const Options options = read({});
    QCOMPARE(options.error, QString());
    QVERIFY(options.wantsWindow());
    QCOMPARE(options.skin, QStringLiteral("light"));
    QCOMPARE(options.language, QStringLiteral("zh"));
    QCOMPARE(options.securities, 0);
    QCOMPARE(options.user, QString());
}

void TestPlandeskWindow::every_option_is_read()
{
    const Options window = read({ QStringLiteral("--user"), QStringLiteral("trader07"), QStringLiteral("--database"),
        QStringLiteral("a.db"), QStringLiteral("--skin"), QStringLiteral("dark"), QStringLiteral("--securities"),
        QStringLiteral("100000"), QStringLiteral("--user"), QStringLiteral("trader03") });
    QCOMPARE(window.error, QString());
    QCOMPARE(window.user, QStringLiteral("trader03"));
    QCOMPARE(window.database, QStringLiteral("a.db"));
    QCOMPARE(window.skin, QStringLiteral("dark"));
    QCOMPARE(window.securities, 100000);
    QCOMPARE(read({ QStringLiteral("--language=en") }).language, QStringLiteral("en"));
    QCOMPARE(read({ QStringLiteral("--issue-day=2024-05-06") }).issueDay, QDate(2024, 5, 6));
}

void TestPlandeskWindow::the_help_names_every_option()
{
    const QString help = read({ QStringLiteral("--help") }).help;
    for (const char* name : { "user", "database", "skin", "language", "securities", "issue-day", "help" })
        QVERIFY2(help.contains(QStringLiteral("--") + QLatin1String(name)), name);
    QVERIFY(help.startsWith(QStringLiteral("用法：")));
}

void TestPlandeskWindow::the_program_refuses_what_it_cannot_do_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");
    const QString day = QStringLiteral("--issue-day=2024-05-06");
    const QString file = QStringLiteral("--database=%1").arg(QStringLiteral("FILE"));
    QTest::newRow("an unknown option") << QStringList{ QStringLiteral("--colour") }
                                       << QStringLiteral("未知选项：colour");
    QTest::newRow("an unknown user") << QStringList{ file, day, QStringLiteral("--user=nobody") }
                                     << QStringLiteral("用户“nobody”不存在");
    QTest::newRow("a folder as the database")
        << QStringList{ QStringLiteral("--database=/"), day } << QStringLiteral("plandesk: ");
    QTest::newRow("another size than the database has")
        << QStringList{ file, day, QStringLiteral("--securities=500") } << QStringLiteral("中已有200只证券");
}

void TestPlandeskWindow::the_program_refuses_what_it_cannot_do()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    arguments.replaceInStrings(QStringLiteral("FILE"), m_session->file());
    const ProgramEnd end = runProgram(arguments);
    QCOMPARE(end.code, 2);
    QVERIFY2(end.errors.contains(message), qPrintable(end.errors));
    QCOMPARE(end.output, QString());
}

void TestPlandeskWindow::without_a_display_no_window_is_tried()
{
    const ProgramEnd window = runProgram({ QStringLiteral("--database"), m_session->file() }, withoutDisplay());
    QCOMPARE(window.code, 2);
    QVERIFY2(window.errors.contains(QStringLiteral("没有可用的显示设备")), qPrintable(window.errors));
    const ProgramEnd help = runProgram({ QStringLiteral("--help") }, withoutDisplay());
    QCOMPARE(help.code, 0);
    QVERIFY2(help.output.startsWith(QStringLiteral("用法：")), qPrintable(help.output));
}

void TestPlandeskWindow::the_program_issues_a_day_and_lists_the_result()
{
    const QString plan = m_session->create(SampleSession::record());
    const QStringList arguments{ QStringLiteral("--database"), m_session->file(), QStringLiteral("--issue-day"),
        QStringLiteral("2024-05-07") };
    const ProgramEnd end = runProgram(arguments);
    QCOMPARE(end.code, 0);
    QCOMPARE(end.output, QStringLiteral("2024-05-07：新下达指令1条，此前已下达的计划0个，未下达的计划0个。\n"));
    QCOMPARE(ClientSession::instance().instructions().ofPlan(plan).size(), 1);
    QCOMPARE(runProgram(arguments).output,
        QStringLiteral("2024-05-07：新下达指令0条，此前已下达的计划1个，未下达的计划0个。\n"));
}

void TestPlandeskWindow::a_day_is_issued_whatever_digits_the_machine_writes_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("locale");
    for (const char* locale :
        { "ar_EG", "as_IN", "bn_BD", "ckb_IQ", "dz_BT", "fa_IR", "mr_IN", "my_MM", "ne_NP", "ps_AF" })
        QTest::newRow(locale) << QStringLiteral("LC_ALL") << QString::fromLatin1(locale) + QStringLiteral(".UTF-8");
    QTest::newRow("of numbers alone") << QStringLiteral("LC_NUMERIC") << QStringLiteral("fa_IR.UTF-8");
}

void TestPlandeskWindow::a_day_is_issued_whatever_digits_the_machine_writes()
{
    QFETCH(QString, variable);
    QFETCH(QString, locale);
    QVERIFY(QLocale(locale).zeroDigit() != QLatin1Char('0'));
    m_session->create(SampleSession::record());
    const ProgramEnd end = runProgram({ QStringLiteral("--database"), m_session->file(), QStringLiteral("--issue-day"),
                                          QStringLiteral("2024-05-07") },
        inLanguage(variable, locale));
    QCOMPARE(end.code, 0);
    QCOMPARE(end.output, QStringLiteral("2024-05-07：新下达指令1条，此前已下达的计划0个，未下达的计划0个。\n"));
}

void TestPlandeskWindow::the_walk_through_passes_whatever_digits_the_machine_writes_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("locale");
    QTest::newRow("of a locale") << QStringLiteral("LC_ALL") << QStringLiteral("my_MM.UTF-8");
    QTest::newRow("of numbers alone") << QStringLiteral("LC_NUMERIC") << QStringLiteral("fa_IR.UTF-8");
}

void TestPlandeskWindow::the_walk_through_passes_whatever_digits_the_machine_writes()
{
    QFETCH(QString, variable);
    QFETCH(QString, locale);
    QTemporaryDir folder;
    const ProgramEnd end =
        runProgram({ folder.path() }, inLanguage(variable, locale), QStringLiteral(WALKTHROUGH_PROGRAM));
    QVERIFY2(end.code == 0, qPrintable(end.output + end.errors));
    QVERIFY2(end.output.contains(QStringLiteral("核对一致的计划9个，问题0个")), qPrintable(end.output));
}

void TestPlandeskWindow::the_table_reads_the_pages_that_are_shown()
{
    QStringList ids;
    for (int i = 0; i < 120; ++i)
        ids.prepend(m_session->create(SampleSession::record()));
    PlanTableModel model;
    model.refresh();
    QCOMPARE(model.rowCount(), 120);
    QCOMPARE(model.index(1, PlanTableModel::Target).data().toString(), QStringLiteral("1,000 股"));

    // What was shown is kept, what was not is read now.
    Record changed = SampleSession::record();
    changed.insert(BaseField::totalQty, QStringLiteral("2000"));
    for (int row : { 1, 60 })
        QCOMPARE(
            ClientSession::instance().plans().modify(ids.at(row), changed, QDateTime::currentDateTime()), QString());
    QCOMPARE(model.index(1, PlanTableModel::Target).data().toString(), QStringLiteral("1,000 股"));
    QCOMPARE(model.index(60, PlanTableModel::Target).data().toString(), QStringLiteral("2,000 股"));
    model.refresh();
    QCOMPARE(model.index(1, PlanTableModel::Target).data().toString(), QStringLiteral("2,000 股"));
    QCOMPARE(model.index(119, PlanTableModel::Id).data().toString(), ids.constLast());
    QCOMPARE(model.plan(120).id, QString());
}

void TestPlandeskWindow::the_table_has_more_rows_when_more_are_wanted()
{
    ClientSession& session = ClientSession::instance();
    const Record record = SampleSession::record();
    QStringList ids;
    const QString reason = session.database().transaction([&] {
        for (int i = 0; i < 900; ++i)
            ids.prepend(session.plans().create(record, session.user().id, QDateTime::currentDateTime()).id);
        return QString();
    });
    QCOMPARE(reason, QString());
    PlanTableModel model;
    model.refresh();
    QCOMPARE(model.planCount(), 900);
    QCOMPARE(model.rowCount(), 200);
    QVERIFY(model.canFetchMore(QModelIndex()));
    model.fetchMore(QModelIndex());
    QCOMPARE(model.rowCount(), 400);
    model.refresh();
    QCOMPARE(model.rowCount(), 400);

    const QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    QCOMPARE(model.reveal(ids.at(399)), 399);
    QCOMPARE(inserted.count(), 0);
    QCOMPARE(model.reveal(ids.at(500)), 500);
    QCOMPARE(inserted.count(), 1);
    QCOMPARE(model.rowCount(), 501);
    QCOMPARE(model.index(500, PlanTableModel::Id).data().toString(), ids.at(500));
    model.fetchMore(QModelIndex());
    QCOMPARE(model.rowCount(), 900);
    QVERIFY(!model.canFetchMore(QModelIndex()));
}

void TestPlandeskWindow::every_plan_is_found_by_its_id()
{
    QStringList ids;
    for (int i = 0; i < 7; ++i)
        ids.prepend(m_session->create(SampleSession::record()));
    PlanTableModel model;
    model.refresh();
    for (int row = 0; row < ids.size(); ++row)
        QCOMPARE(model.reveal(ids.at(row)), row);
    QCOMPARE(model.reveal(QStringLiteral("AP00000099")), -1);
    QCOMPARE(model.reveal(QStringLiteral("no id")), -1);
    QCOMPARE(model.reveal(QString()), -1);

    // Rows move when a plan is stored that the table has not been told of.
    ids.prepend(m_session->create(SampleSession::record()));
    QCOMPARE(model.reveal(ids.at(3)), 3);
    QCOMPARE(model.index(3, PlanTableModel::Id).data().toString(), ids.at(3));
    QCOMPARE(model.reveal(ids.constFirst()), 0);
}

void TestPlandeskWindow::a_plan_is_told_in_words()
{
    Record record = SampleSession::withOther(SampleSession::record(),
        { { FieldId::TargetType, InstructionTargetType::AmountOrder },
            { BaseField::tradeAmount, QStringLiteral("1234567.50") },
            { BaseField::dayMaxTradeAmount, QStringLiteral("900.00") },
            { BaseField::algoStrategyName, QStringLiteral("TWAP") },
            { BaseField::algoParam,
                QVariantMap{ { QStringLiteral("SliceInterval"), QStringLiteral("60") },
                    { QStringLiteral("MaxParticipation"), QStringLiteral("0.2") },
                    { QStringLiteral("ForceFinish"), QStringLiteral("N") } } } });
    record.insert(BaseField::InstMode, InstMode::AlgoReview);
    record.insert(BaseField::remark, QStringLiteral("说明"));
    const QString id = m_session->create(record);
    const PlanFormatter words(ClientSession::instance().plans().plan(id));
    QMap<QString, QString> texts;
    for (const auto& field : words.fields())
        texts.insert(field.first, field.second);
    QCOMPARE(texts.value(QStringLiteral("计划编号")), id);
    QCOMPARE(texts.value(QStringLiteral("账户名称")), QStringLiteral("稳健一号（F100001）"));
    QCOMPARE(texts.value(QStringLiteral("指令类型")), QStringLiteral("普通交易"));
    QCOMPARE(texts.value(QStringLiteral("指令单类型")), QStringLiteral("按金额"));
    QCOMPARE(texts.value(QStringLiteral("计划类型")), QStringLiteral("累计数量"));
    QCOMPARE(texts.value(QStringLiteral("市场")), QStringLiteral("上海证券交易所"));
    QCOMPARE(texts.value(QStringLiteral("目标总量")), QStringLiteral("1,234,567.50 元"));
    QCOMPARE(texts.value(QStringLiteral("每日最大委托量")), QStringLiteral("900.00 元"));
    QCOMPARE(texts.value(QStringLiteral("价格模式")), QStringLiteral("不限价"));
    QCOMPARE(texts.value(QStringLiteral("生效时段")), QStringLiteral("2024-05-06 至 2024-05-10"));
    QCOMPARE(texts.value(QStringLiteral("备注")), QStringLiteral("说明"));
    QVERIFY(!texts.contains(QStringLiteral("价格")));
    QVERIFY(!texts.contains(QStringLiteral("减持占比")));
    const QStringList parameters = texts.value(QStringLiteral("算法参数")).split(QLatin1Char('\n'));
    QCOMPARE(parameters.size(), 3);
    QVERIFY2(parameters.constFirst().endsWith(QStringLiteral("：60 秒")), qPrintable(parameters.constFirst()));
    QVERIFY2(parameters.at(1).endsWith(QStringLiteral("：20 %")), qPrintable(parameters.at(1)));
    QVERIFY2(parameters.at(2).endsWith(QStringLiteral("：否")), qPrintable(parameters.at(2)));
}

void TestPlandeskWindow::codes_that_are_none_are_shown_as_they_are()
{
    StoredPlan plan;
    plan.id = QStringLiteral("AP00000001");
    plan.record = { { BaseField::orderSide, QStringLiteral("up") }, { BaseField::priceModel, QStringLiteral("99") },
        { BaseField::totalQty, QStringLiteral("nan") }, { BaseField::planOtherParam, QStringLiteral("[1,") } };
    const PlanFormatter words(plan);
    QCOMPARE(words.side(), QStringLiteral("up"));
    QCOMPARE(words.priceMode(), QStringLiteral("99"));
    QCOMPARE(words.target(), QStringLiteral("nan"));
    QCOMPARE(words.security(), QString());
    QCOMPARE(PlanFormatter(StoredPlan()).fields().size(), 0);
}

void TestPlandeskWindow::a_created_plan_is_listed_and_current()
{
    openWindow();
    QCOMPARE(m_window->currentPlan(), QString());
    const QString id = createPlan();
    QVERIFY(!id.isEmpty());
    QVERIFY(!dialog().isVisible());
    QCOMPARE(m_window->currentPlan(), id);
    const QList<QLabel*> labels = m_window->findChild<QWidget*>(QStringLiteral("planDetails"))->findChildren<QLabel*>();
    QStringList texts;
    for (const QLabel* label : labels)
        texts << label->text();
    QVERIFY(texts.contains(id));
    QVERIFY(texts.contains(QStringLiteral("1,000 股")));
}

void TestPlandeskWindow::the_editor_is_used_again_after_a_stored_plan()
{
    openWindow();
    const QString first = createPlan();
    const QPointer<AutoParamSetting> editor = this->editor();
    const QString second = createPlan();
    QCOMPARE(this->editor(), editor.data());
    QVERIFY(!second.isEmpty() && second != first);

    // Opened and left as it was, the form is still good for another plan.
    pressForEditor(Qt::Key_N);
    QCOMPARE(this->editor(), editor.data());
    FormDriver(this->editor()).cancel();
    pressForEditor(Qt::Key_E);
    QCOMPARE(this->editor(), editor.data());
    m_boxes.expect(QStringLiteral("msgBoxTip"));
    FormDriver(this->editor()).confirm();
    QCOMPARE(m_boxes.take().value(0).text, QStringLiteral("交易计划%1修改成功!").arg(second));

    // After an edit every field is free again.
    pressForEditor(Qt::Key_N);
    QCOMPARE(this->editor(), editor.data());
    QVERIFY(this->editor()->findChild<QWidget*>(QStringLiteral("combx_fundAccount"))->isEnabled());
    QVERIFY(this->editor()->findChild<QLineEdit*>(QStringLiteral("le_symbol"))->text().isEmpty());
}

void TestPlandeskWindow::a_form_left_with_values_is_replaced()
{
    openWindow();
    QVERIFY(!createPlan().isEmpty());
    const QPointer<AutoParamSetting> editor = this->editor();
    pressForEditor(Qt::Key_D);
    QCOMPARE(this->editor(), editor.data());
    FormDriver(this->editor()).cancel();
    pressForEditor(Qt::Key_N);
    QVERIFY(this->editor() != editor.data());
    QVERIFY(this->editor()->findChild<QLineEdit*>(QStringLiteral("le_symbol"))->text().isEmpty());
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!editor);
}

void TestPlandeskWindow::editing_starts_by_shortcut_enter_and_double_click()
{
    const QString id = m_session->create(SampleSession::record());
    openWindow();
    auto* const table = m_window->findChild<QTableView*>(QStringLiteral("planTable"));
    const QString title = QStringLiteral("修改计划 %1").arg(id);
    QVERIFY(press(m_window.get(), Qt::Key_E, Qt::ControlModifier));
    QCOMPARE(dialog().windowTitle(), title);
    dialog().leave();
    QVERIFY(press(table, Qt::Key_Return));
    QVERIFY(dialog().isVisible());
    dialog().leave();
    const QPoint cell = table->visualRect(table->model()->index(0, 2)).center();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, cell);
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, cell);
    QVERIFY(dialog().isVisible());
    QCOMPARE(dialog().windowTitle(), title);
    QVERIFY(!editor()->findChild<QWidget*>(QStringLiteral("le_symbol"))->isEnabled());
    QCOMPARE(table->actions().size(), 3);
    QCOMPARE(table->contextMenuPolicy(), Qt::ActionsContextMenu);
}

void TestPlandeskWindow::a_copy_of_a_plan_is_a_new_plan()
{
    openWindow();
    const QString id = createPlan();
    pressForEditor(Qt::Key_D);
    QCOMPARE(dialog().windowTitle(), QStringLiteral("复制计划 %1").arg(id));
    m_boxes.expect(QStringLiteral("msgBoxTip"));
    FormDriver(editor()).confirm();
    QCOMPARE(m_boxes.take().value(0).text, QStringLiteral("交易自动规划创建成功!"));
    QVERIFY(m_window->currentPlan() != id);
    PlanStore plans = ClientSession::instance().plans();
    QCOMPARE(plans.count(), 2);
    QCOMPARE(plans.record(m_window->currentPlan()), plans.record(id));
}

void TestPlandeskWindow::without_a_plan_there_is_nothing_to_edit()
{
    openWindow();
    for (Qt::Key key : { Qt::Key_E, Qt::Key_D }) {
        QVERIFY(press(m_window.get(), key, Qt::ControlModifier));
        QVERIFY(!dialog().isVisible());
    }
    QVERIFY(!m_window->findChild<QAction*>(QStringLiteral("action_edit"))->isEnabled());
    QVERIFY(!m_window->findChild<QAction*>(QStringLiteral("action_copy"))->isEnabled());
}

void TestPlandeskWindow::closing_a_changed_form_asks()
{
    openWindow();
    pressForEditor(Qt::Key_N);
    QCOMPARE(editor()->size(), formSize);
    FormDriver(editor()).type("le_remark", QStringLiteral("x"));
    m_boxes.expect(QStringLiteral("msgBoxQuestion"), false);
    QVERIFY(press(&dialog(), Qt::Key_Escape));
    QVERIFY(dialog().isVisible());
    QCOMPARE(m_boxes.take().value(0).text, QStringLiteral("计划尚未提交，关闭后填写的内容将丢失，是否关闭？"));
    m_boxes.expect(QStringLiteral("msgBoxQuestion"), true);
    dialog().close();
    QVERIFY(!dialog().isVisible());
    QCOMPARE(m_boxes.take().size(), 1);
}

void TestPlandeskWindow::closing_an_unchanged_form_does_not_ask()
{
    m_session->create(SampleSession::record());
    openWindow();
    for (Qt::Key key : { Qt::Key_N, Qt::Key_E, Qt::Key_D }) {
        pressForEditor(key);
        QVERIFY(press(&dialog(), Qt::Key_Escape));
        QVERIFY(!dialog().isVisible());
    }
    QCOMPARE(m_boxes.take().size(), 0);
}

void TestPlandeskWindow::the_window_stays_while_its_form_is_wanted()
{
    openWindow();
    pressForEditor(Qt::Key_N);
    FormDriver(editor()).type("le_remark", QStringLiteral("x"));
    m_boxes.expect(QStringLiteral("msgBoxQuestion"), false);
    QVERIFY(!m_window->close());
    QVERIFY(m_window->isVisible() && dialog().isVisible());
    QCOMPARE(m_boxes.take().size(), 1);
    m_boxes.expect(QStringLiteral("msgBoxQuestion"), true);
    QVERIFY(m_window->close());
    QVERIFY(!m_window->isVisible() && !dialog().isVisible());
    QCOMPARE(m_boxes.take().size(), 1);
}

void TestPlandeskWindow::enter_in_a_field_presses_no_button()
{
    openWindow();
    pressForEditor(Qt::Key_N);
    QVERIFY(press(editor()->findChild<QLineEdit*>(QStringLiteral("le_remark")), Qt::Key_Return));
    QVERIFY(dialog().isVisible());
    QCOMPARE(m_boxes.take().size(), 0);
}

void TestPlandeskWindow::the_skin_reaches_the_editor()
{
    openWindow();
    QCOMPARE(qApp->styleSheet(), skinSheet(QStringLiteral("light")));
    pressForEditor(Qt::Key_N);
    QCOMPARE(editor()->styleSheet(), skinSheet(QStringLiteral("light")));
    dialog().leave();
    QVERIFY(press(m_window.get(), Qt::Key_F8));
    QCOMPARE(m_window->skin(), QStringLiteral("dark"));
    QCOMPARE(qApp->styleSheet(), skinSheet(QStringLiteral("dark")));
    QCOMPARE(editor()->styleSheet(), skinSheet(QStringLiteral("dark")));
    m_log->expectWarning(QStringLiteral("there is no skin"));
    m_window->setSkin(QStringLiteral("pink"));
    QCOMPARE(m_window->skin(), QStringLiteral("dark"));
}

void TestPlandeskWindow::the_day_is_issued_from_the_menu()
{
    const QString id = m_session->create(SampleSession::record());
    openWindow();
    m_boxes.expect(QStringLiteral("msgBoxTip"));
    QVERIFY(press(m_window.get(), Qt::Key_I, Qt::ControlModifier));
    QCOMPARE(m_boxes.take().value(0).text,
        QStringLiteral("2024-05-06：新下达指令1条，此前已下达的计划0个，未下达的计划0个。"));
    QCOMPARE(m_window->currentPlan(), id);
    QStringList texts;
    for (const QLabel* label : m_window->findChild<QWidget*>(QStringLiteral("planDetails"))->findChildren<QLabel*>())
        texts << label->text();
    QVERIFY(texts.contains(QStringLiteral("已下达指令")));
    QVERIFY(texts.contains(QStringLiteral("下达 300，成交 300，已结束")));
}

QTEST_MAIN(TestPlandeskWindow)
#include "tst_plandesk_window.moc"
