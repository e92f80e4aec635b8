#include "AdvisorPanel.h"
#include "AutoPlanField.h"
#include "ClientClock.h"
#include "ClientWindowTest.h"
#include "InstructionIssuer.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"
#include "PlanFacts.h"
#include "RowView.h"
#include "SecurityStore.h"
#include "TestStatus.h"
#include "TickPrice.h"

#include <QHeaderView>
#include <QLabel>
#include <QToolButton>
#include <QTreeView>
#include <QtTest>

Q_DECLARE_METATYPE(PlanForm)

namespace BaseField = AutoPlanField::BaseField;
using namespace PlanCodes;
using Mark = AdvisorRow::Mark;

namespace {

const QDate Today = SampleSession::today();
const QDate Tomorrow = Today.addDays(1);

} // namespace

/// The panel beside the plan editor, filled in by keys and mouse.
class AdvisorTest : public ClientWindowTest {
    Q_OBJECT

private:
    AdvisorPanel& panel() const { return *dialog().advisor(); }
    /// The rows of one of the panel's tables, each with its cells joined.
    QStringList rows(const char* table) const
    {
        QStringList texts;
        for (const AdvisorRow& row : field<RowView>(panel(), table)->rows())
            texts << row.cells.join(QStringLiteral(" | "));
        return texts;
    }
    /// The second cell of the row with a first cell.
    QString cell(const char* table, const QString& first) const
    {
        for (const AdvisorRow& row : field<RowView>(panel(), table)->rows()) {
            if (row.cells.constFirst() == first)
                return row.cells.value(1);
        }
        return {};
    }
    QString text(const char* label) const { return field<QLabel>(panel(), label)->text(); }
    Mark mark(const char* table, const QString& second) const
    {
        for (const AdvisorRow& row : field<RowView>(panel(), table)->rows()) {
            if (row.cells.value(1) == second)
                return row.mark;
        }
        return Mark::Plain;
    }
    /// The reason of a rule, and its mark.
    QString rule(const QString& caption) const
    {
        for (const AdvisorRow& row : field<RowView>(panel(), "rules")->rows()) {
            if (row.cells.value(1) == caption)
                return row.cells.constFirst() + QLatin1Char(' ') + row.cells.value(2);
        }
        return {};
    }
    /// Clicks the row of a table with a text in a column.
    void click(const char* table, int column, const QString& text)
    {
        auto* const view = field<RowView>(panel(), table);
        for (int row = 0; row < view->rows().size(); ++row) {
            if (view->rows().at(row).cells.value(column) != text)
                continue;
            const QModelIndex index = view->model()->index(row, column);
            view->scrollTo(index);
            QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(index).center());
            return;
        }
        QFAIL(qPrintable(text));
    }
    static const Security& security() { return *ClientSession::instance().market().find(share()); }
    static qint64 lastClose()
    {
        return SecurityStore(ClientSession::instance().database()).closes(share())->ticks.constLast();
    }
    static QString priceText(qint64 ticks) { return TickPrice::text(ticks, security().pricePrecision); }
    QString headline() const { return text("forecastHeadline"); }

    /// Opens the editor for a new plan, fills it in and waits until the panel has read what is stored.
    void openFilled(const PlanForm& form)
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        fill(form);
    }
    void fill(const PlanForm& form)
    {
        FormDriver driver = dialogDriver();
        driver.fill(form);
        const QStringList problems = driver.takeProblems();
        QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
        QVERIFY(QTest::qWaitFor([this] { return panel().isSettled(); }));
    }

private Q_SLOTS:
    void anEmptyFormHasNoSecurity()
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        QVERIFY(QTest::qWaitFor([this] { return panel().isSettled(); }));
        QCOMPARE(rows("advisorSecurity"), QStringList{ QStringLiteral("证券 | 尚未选择") });
        QCOMPARE(rows("forecastDays"), QStringList());
    }

    void theSecurityIsDescribed()
    {
        openFilled(ordinary());
        const TickPrice::Limits limits = TickPrice::limits(lastClose(), security().limitPerMille);
        const QStringList expected{
            QStringLiteral("证券 | %1 %2").arg(share(), security().name),
            QStringLiteral("每手 | %1股").arg(security().quantityStep),
            QStringLiteral("昨收价 | %1（2024-04-30）").arg(priceText(lastClose())),
            QStringLiteral("涨停 / 跌停 | %1 / %2").arg(priceText(limits.up), priceText(limits.down)),
            QStringLiteral("可卖数量 | 200,000股"),
            QStringLiteral("其他计划 | 无"),
        };
        QCOMPARE(rows("advisorSecurity"), expected);
    }

    void aBondIsCountedInItsUnit()
    {
        PlanForm form = ordinary();
        form.instructionType = InstructionType::Bond;
        form.symbol = SampleSession::symbolOf(
            Orlo_Values::MdcSubSecurityType::ConvertableBondTypeList.constFirst(), Kelvo_Values::SymbolPost::sh);
        openFilled(form);
        QCOMPARE(cell("advisorSecurity", QStringLiteral("每手")), QStringLiteral("10张"));
        QCOMPARE(cell("advisorSecurity", QStringLiteral("可卖数量")), QStringLiteral("200,000张"));
    }

    void aReductionHasNoEnd()
    {
        const QString plan = session().create(reduction(SampleSession::record()));
        openFilled(ordinary());
        QCOMPARE(cell("advisorSecurity", plan), QStringLiteral("方向相反：卖出，2024-05-06 起"));
    }

    void theForecastIsReadableAtAnyWidth_data()
    {
        QTest::addColumn<bool>("isAmount");
        QTest::addColumn<int>("width");
        for (const int width : { 240, 270, 300, 380 }) {
            QTest::addRow("quantities in %d pixels", width) << false << width;
            QTest::addRow("amounts in %d pixels", width) << true << width;
        }
    }

    void theForecastIsReadableAtAnyWidth()
    {
        QFETCH(bool, isAmount);
        QFETCH(int, width);
        // The closures of the next year are not announced yet.
        goTo(QDate(2026, 12, 28));
        PlanForm form = ordinary(ReviewedAccount);
        form.target = QStringLiteral("120000000");
        form.perDay = QStringLiteral("5000000");
        if (isAmount)
            form = form.byAmount(QStringLiteral("900000000.5"), QStringLiteral("150000000"));
        form.instructionMode.clear();
        form.endSteps = 6;
        openFilled(form);
        panel().setFixedWidth(width);
        QCoreApplication::processEvents();
        auto* const days = field<QTreeView>(dialog(), "forecastDays");
        const int margin = 2 * (days->style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1);
        QVERIFY2(days->model()->rowCount() > 6, qPrintable(headline()));
        int shown = 0;
        for (int column = 0; column < days->model()->columnCount(); ++column) {
            const int room = days->columnWidth(column);
            if (room == 0)
                continue;
            shown += room;
            QVERIFY(days->header()->sectionSizeHint(column) <= room);
            for (int row = 0; row < days->model()->rowCount(); ++row) {
                const QString text = days->model()->index(row, column).data().toString();
                QVERIFY2(days->fontMetrics().horizontalAdvance(text) + margin <= room, qPrintable(text));
            }
        }
        QVERIFY(shown <= days->viewport()->width());
        const QModelIndex last = days->model()->index(days->model()->rowCount() - 1, 0);
        QVERIFY(last.data().toString().endsWith(QLatin1Char('?')));
        const QString day = last.data(Qt::ToolTipRole).toString();
        QVERIFY2(day.contains(QStringLiteral("2027-01-")) && day.contains(QStringLiteral("未核实")), qPrintable(day));
        const QString issued = days->model()->index(0, 1).data(Qt::ToolTipRole).toString();
        QVERIFY2(issued.contains(QLatin1Char(',')), qPrintable(issued));
    }

    void noRowIsPaintedInHalf()
    {
        openFilled(ordinary());
        auto* const rules = field<RowView>(panel(), "rules");
        const int row = rules->visualRect(rules->model()->index(0, 0)).height();
        rules->setFixedHeight(rules->height() - rules->viewport()->height() + 3 * row);
        QCoreApplication::processEvents();
        const QImage whole = rules->viewport()->grab().toImage();
        rules->setFixedHeight(rules->height() + row / 2);
        QCoreApplication::processEvents();
        QCOMPARE(rules->viewport()->height(), 3 * row + row / 2);
        const QImage more = rules->viewport()->grab().toImage();
        QCOMPARE(more.copy(whole.rect()), whole);
        const QImage rest = more.copy(0, 3 * row, more.width(), row / 2);
        QImage blank = rest;
        blank.fill(rest.pixelColor(0, 0));
        QCOMPARE(rest, blank);
    }

    void otherPlansOnTheSecurityAreListed()
    {
        const QString same = session().create(SampleSession::record());
        const QString opposite =
            session().create(with(SampleSession::record(), BaseField::orderSide, Kelvo_Values::OrderSide::sell));
        // Neither of another account nor of another security.
        const QString other =
            SampleSession::symbolOf(Kelvo_Values::MdcSubSecurityType::Gemstock, Kelvo_Values::SymbolPost::sz);
        QVERIFY(!other.isEmpty());
        openFilled(ordinary());
        QCOMPARE(cell("advisorSecurity", same), QStringLiteral("买入，2024-05-06 – 2024-05-10"));
        QCOMPARE(cell("advisorSecurity", opposite), QStringLiteral("方向相反：卖出，2024-05-06 – 2024-05-10"));
        QCOMPARE(mark("advisorSecurity", cell("advisorSecurity", opposite)), Mark::Doubtful);
        QCOMPARE(mark("advisorSecurity", cell("advisorSecurity", same)), Mark::Plain);
        QCOMPARE(rule(QStringLiteral("反向计划（提醒）")), QStringLiteral("! 同一证券有反向计划%1").arg(opposite));
        // A plan that is stored meanwhile appears.
        const QString third = session().create(SampleSession::record());
        QVERIFY(QTest::qWaitFor([&] { return !cell("advisorSecurity", third).isEmpty(); }));
        FormDriver driver = dialogDriver();
        driver.choose("combx_fundAccount", ReviewedAccount);
        driver.choose("combx_instructionType", InstructionType::Ordinary);
        driver.enterSymbol(share());
        QVERIFY(QTest::qWaitFor([this] { return panel().isSettled(); }));
        QCOMPARE(cell("advisorSecurity", QStringLiteral("其他计划")), QStringLiteral("无"));
    }

    void theFormulaIsEvaluatedAtEachKey_data()
    {
        QTest::addColumn<QString>("formula");
        QTest::addColumn<QString>("sentence");
        QTest::addColumn<QString>("rule");
        QTest::addColumn<QString>("verdict");
        QTest::newRow("a price") << "昨收价"
                                 << "结果%1"
                                 << "价格可用（提醒）"
                                 << "✓ 通过";
        QTest::newRow("above the limit") << "昨收价*2"
                                         << "结果%2，高于涨停价，按%3"
                                         << "涨跌停（提醒）"
                                         << "! 高于涨停价，按%3";
        QTest::newRow("below the limit") << "昨收价/2"
                                         << "结果%4，低于跌停价，按%5"
                                         << "涨跌停（提醒）"
                                         << "! 低于跌停价，按%5";
        QTest::newRow("between two ticks") << "昨收价+0.0012"
                                           << "结果%6，不在最小价位上，按%1"
                                           << "最小价位（提醒）"
                                           << "! 不在最小价位上，按%1";
        QTest::newRow("not a price") << "1-1"
                                     << "没有可用的价格：公式的结果不大于零"
                                     << "价格可用（提醒）"
                                     << "! 公式的结果不大于零";
        QTest::newRow("not a formula") << "昨收价*"
                                       << "没有可用的价格：公式不完整"
                                       << "价格可用（提醒）"
                                       << "! 公式不完整";
    }

    void theFormulaIsEvaluatedAtEachKey()
    {
        QFETCH(QString, formula);
        QFETCH(QString, sentence);
        QFETCH(QString, rule);
        QFETCH(QString, verdict);
        openFilled(ordinary().priced(PriceModel::Custom, formula));
        const double close = TickPrice::toYuan(lastClose(), security().pricePrecision);
        const TickPrice::Limits limits = TickPrice::limits(lastClose(), security().limitPerMille);
        const auto number = [](double value) { return QString::number(value, 'f', 4); };
        const QStringList values{ priceText(lastClose()), number(close * 2), priceText(limits.up), number(close / 2),
            priceText(limits.down), number(close + 0.0012) };
        const auto filledIn = [&values](QString text) {
            for (int i = 0; i < values.size(); ++i)
                text.replace(QStringLiteral("%%1").arg(i + 1), values.at(i));
            return text;
        };
        QCOMPARE(text("formulaPrice"), filledIn(sentence));
        QCOMPARE(field<QLabel>(panel(), "formulaPrice")->property("faulty").toBool(),
            sentence.startsWith(QStringLiteral("没有")));
        QCOMPARE(this->rule(rule), filledIn(verdict));
    }

    void aNameIsInsertedAtTheCursor()
    {
        openFilled(ordinary().priced(PriceModel::CompareMax, QStringLiteral("昨收价"), QStringLiteral("*0.99")));
        QCOMPARE(cell("formulaNames", QStringLiteral("昨收价")), priceText(lastClose()));
        QCOMPARE(rows("formulaNames").size(), 9);
        // The second price had the focus last.
        auto* const second = field<QLineEdit>(*dialogEditor(), "lineEdit_price2");
        second->setFocus();
        second->setCursorPosition(0);
        click("formulaNames", 0, QStringLiteral("MA5"));
        QCOMPARE(second->text(), QStringLiteral("MA5*0.99"));
        QVERIFY(second->hasFocus());
        QCOMPARE(second->cursorPosition(), 3);
        QCOMPARE(field<QLineEdit>(*dialogEditor(), "lineEdit_price1")->text(), QStringLiteral("昨收价"));
    }

    void eachKeyIsFollowed()
    {
        openFilled(ordinary());
        // Enough for all numbers in full.
        panel().setMinimumWidth(500);
        QCOMPARE(headline(), QStringLiteral("需20个交易日，期间仅1个"));
        QCOMPARE(rows("forecastDays").size(), 1);
        auto* const target = field<QWidget>(*dialogEditor(), "le_targetTotalNum");
        target->setFocus();
        QTest::keyClick(target, Qt::Key_End);
        QTest::keyClick(target, Qt::Key_Backspace);
        QCoreApplication::processEvents();
        QCOMPARE(headline(), QStringLiteral("需2个交易日，期间仅1个"));
        FormDriver driver = dialogDriver();
        driver.stepDate("date_effectivePeriod_Multi", "le_end", 1);
        QCoreApplication::processEvents();
        QCOMPARE(headline(), QStringLiteral("预计2024-05-08完成，需2个交易日"));
        const double yuan = TickPrice::toYuan(lastClose(), security().pricePrecision);
        const QString amount = QLocale(QLocale::English).toString(500 * yuan, 'f', 2);
        const QStringList expected{ QStringLiteral("2024-05-07 | 500 | %1 | 500").arg(amount),
            QStringLiteral("2024-05-08 | 500 | %1 | 0").arg(amount) };
        QCOMPARE(rows("forecastDays"), expected);
    }

    void closedDaysAreShaded()
    {
        PlanForm form = ordinary();
        form.endSteps = 4;
        openFilled(form);
        QCOMPARE(rows("forecastDays").at(4), QStringLiteral("2024-05-11 | 休市 |  | "));
        QCOMPARE(mark("forecastDays", QStringLiteral("休市")), Mark::Shaded);
        QCOMPARE(rows("forecastDays").size(), 7);
    }

    void aReductionSaysWhatItsRatioMeans()
    {
        PlanForm form = ordinary().reducing(QStringLiteral("0.15"), Executor);
        form.target = QStringLiteral("100000");
        openFilled(form);
        QCOMPARE(text("forecastReduction"),
            QStringLiteral("每日最多15,000股，即目标的15%；总股本未知，未核对连续90天减持不超过总股本1%"));
        QCOMPARE(headline(), QStringLiteral("预计2024-05-15完成，需7个交易日"));
        QVERIFY(field<QWidget>(panel(), "forecastReduction")->isVisible());
    }

    void aPlanThatIsStoppedMeanwhileIsRefused()
    {
        const QString id = createSamples(1).constFirst();
        openWindow();
        window().selectPlan(id);
        pressForEditor(Qt::Key_E);
        QVERIFY(QTest::qWaitFor([this] { return panel().isSettled(); }));
        QCOMPARE(rule(QStringLiteral("计划服务")), QStringLiteral("✓ 通过"));
        Database file;
        QCOMPARE(file.open(session().ownersFile()), Status());
        const Change change{ QStringLiteral("trader03"), clientNow() };
        QCOMPARE(PlanStore(file).setState(id, 1, PlanState::Stopped, QString(), change), Status());
        QTRY_COMPARE(rule(QStringLiteral("计划服务")), QStringLiteral("✗ 未通过：计划%1已停止，不能修改").arg(id));
    }

    void anEditedPlanStartsWithWhatIsUsed()
    {
        const QString id = session().create(SampleSession::record());
        QCOMPARE(InstructionIssuer::issueDay(Today)->issued.size(), 1);
        openWindow();
        window().selectPlan(id);
        pressForEditor(Qt::Key_E);
        QVERIFY(QTest::qWaitFor([this] { return panel().isSettled(); }));
        const QStringList days = rows("forecastDays");
        QCOMPARE(days.size(), 4);
        QVERIFY(days.constFirst().startsWith(QStringLiteral("2024-05-07 | 300 |")));
        QVERIFY(days.constFirst().endsWith(QStringLiteral("| 400")));
        QCOMPARE(headline(), QStringLiteral("预计2024-05-09完成，需3个交易日"));
        FormDriver driver = dialogDriver();
        driver.type("le_targetTotalNum", QStringLiteral("200"));
        QCOMPARE(rule(QStringLiteral("目标与已用")), QStringLiteral("✗ 未通过：小于已成交和在下达的300股"));
    }

    void aRuleLeadsToItsField()
    {
        openFilled(ordinary());
        FormDriver driver = dialogDriver();
        driver.type("le_targetTotalNum", QString());
        QCOMPARE(rule(QStringLiteral("目标总量")), QStringLiteral("✗ 未通过：必填"));
        field<QWidget>(*dialogEditor(), "le_remark")->setFocus();
        click("rules", 1, QStringLiteral("目标总量"));
        QVERIFY(field<QWidget>(*dialogEditor(), "le_targetTotalNum")->hasFocus());
        click("rules", 1, QStringLiteral("按期完成（提醒）"));
        QVERIFY(
            field<QWidget>(*dialogEditor(), "date_effectivePeriod_Multi")->isAncestorOf(QApplication::focusWidget()));
    }

    void theRulesSayWhatTheFormWillDo_data()
    {
        QTest::addColumn<PlanForm>("form");
        QTest::addColumn<QString>("box");
        // The session, which has the share, is not open yet.
        const PlanForm plain = PlanForm::ordinary(FreeAccount, QStringLiteral("share"));
        const auto changed = [&plain](const std::function<void(PlanForm&)>& change) {
            PlanForm form = plain;
            change(form);
            return form;
        };
        const QString warning = QStringLiteral("msgBoxWarning");
        const QString question = QStringLiteral("msgBoxQuestion");
        const QString error = QStringLiteral("msgBoxError");
        QTest::newRow("a sound plan") << plain << QStringLiteral("msgBoxTip");
        QTest::newRow("no security") << changed([](PlanForm& form) { form.symbol.clear(); }) << warning;
        QTest::newRow("no target") << changed([](PlanForm& form) { form.target = QStringLiteral("0"); }) << warning;
        QTest::newRow("the same each day without a quantity") << changed([](PlanForm& form) {
            form.planType = PlanType::SameElements;
            form.perDay = QStringLiteral("0");
        }) << warning;
        QTest::newRow("an empty formula")
            << changed([](PlanForm& form) { form.priceMode = PriceModel::Custom; }) << warning;
        QTest::newRow("a special character") << plain.priced(PriceModel::Custom, QStringLiteral("昨收价#")) << warning;
        QTest::newRow("a reduction without a ratio") << plain.reducing(QString(), Executor) << warning;
        QTest::newRow("more than held") << changed([](PlanForm& form) {
            form.side = Kelvo_Values::OrderSide::sell;
            form.target = QStringLiteral("300000");
        }) << question;
        QTest::newRow("a formula without a price") << plain.priced(PriceModel::Custom, QStringLiteral("1-1")) << error;
        QTest::newRow("above the account's limit")
            << changed([](PlanForm& form) { form.target = QStringLiteral("200000000"); }) << error;
    }

    void theRulesSayWhatTheFormWillDo()
    {
        QFETCH(PlanForm, form);
        QFETCH(QString, box);
        if (!form.symbol.isEmpty())
            form.symbol = share();
        openFilled(form);
        const QStringList before = rows("rules");
        const int failed = static_cast<int>(before.filter(QRegularExpression(QStringLiteral("^✗"))).size());
        const int asked = static_cast<int>(before.filter(QRegularExpression(QStringLiteral("^\\?"))).size());
        QCOMPARE(before.size(), 42);
        const bool accepts = box != QStringLiteral("msgBoxQuestion");
        const QString seen = boxOf([this] { dialogDriver().confirm(); }, qPrintable(box), accepts);
        QVERIFY2(!seen.isEmpty(), qPrintable(before.join(QLatin1Char('\n'))));
        QCOMPARE(failed > 0, box == QStringLiteral("msgBoxWarning") || box == QStringLiteral("msgBoxError"));
        QCOMPARE(asked > 0, box == QStringLiteral("msgBoxQuestion"));
        if (box == QStringLiteral("msgBoxError"))
            QVERIFY(before.constFirst().startsWith(QStringLiteral("✗ | 计划服务 | ")));
    }

    void anInputThatCannotBeUsedFails_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("field");
        QTest::newRow("a daily maximum") << QStringLiteral("le_entrustMaxNum") << QStringLiteral("1,5")
                                         << QStringLiteral("每日的输入") << QStringLiteral("每日最大委托量");
        QTest::newRow("a target") << QStringLiteral("le_targetTotalNum") << QStringLiteral("1亿2000万")
                                  << QStringLiteral("目标的输入") << QStringLiteral("目标总量");
        QTest::newRow("a closed day") << QStringLiteral("le_end") << QStringLiteral("2024-05-11")
                                      << QStringLiteral("结束日期") << QStringLiteral("结束日期");
        QTest::newRow("half a date") << QStringLiteral("le_start") << QStringLiteral("2024-05")
                                     << QStringLiteral("开始日期") << QStringLiteral("开始日期");
    }

    void anInputThatCannotBeUsedFails()
    {
        QFETCH(QString, line);
        QFETCH(QString, typed);
        QFETCH(QString, caption);
        QFETCH(QString, field);
        openFilled(ordinary());
        QCOMPARE(rule(caption), QStringLiteral("✓ 通过"));
        FormDriver driver = dialogDriver();
        driver.type(qPrintable(line), typed);
        QVERIFY(QTest::qWaitFor([this] { return panel().isSettled(); }));
        QVERIFY2(rule(caption).startsWith(QStringLiteral("✗ 未通过：")), qPrintable(rule(caption)));
        QVERIFY(text("ruleSummary").startsWith(QStringLiteral("未通过")));
        QVERIFY2(headline().startsWith(field + QStringLiteral("的输入无法使用：")), qPrintable(headline()));
        QCOMPARE(rows("forecastDays"), QStringList());
        ::field<QWidget>(*dialogEditor(), "le_remark")->setFocus();
        click("rules", 1, caption);
        QVERIFY(::field<QWidget>(*dialogEditor(), qPrintable(line))->hasFocus());
    }

    void softRulesOnlyWarn()
    {
        PlanForm form = ordinary();
        form.target = QStringLiteral("10050");
        form.perDay = QStringLiteral("550");
        openFilled(form);
        QCOMPARE(rule(QStringLiteral("目标的零股（提醒）")), QStringLiteral("! 每手100，零头50股不会下达"));
        QCOMPARE(rule(QStringLiteral("每日的零股（提醒）")), QStringLiteral("! 每手100，零头50股不会下达"));
        QCOMPARE(text("ruleSummary"), QStringLiteral("提醒3项"));
        QCOMPARE(send(), QStringLiteral("交易自动规划创建成功!"));
    }

    void anUnusualSizeIsNoticed()
    {
        for (int i = 0; i < 5; ++i)
            session().create(SampleSession::record());
        PlanForm form = ordinary();
        openFilled(form);
        QCOMPARE(rule(QStringLiteral("通常规模（提醒）")), QStringLiteral("✓ 通过"));
        FormDriver driver = dialogDriver();
        driver.type("le_targetTotalNum", QStringLiteral("20000"));
        QVERIFY(rule(QStringLiteral("通常规模（提醒）")).endsWith(QStringLiteral("的20倍")));
    }

    void thePanelCanBeHiddenAndIsRemembered()
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        QVERIFY(panel().isVisible());
        const int both = dialog().width();
        QVERIFY(press(&dialog(), Qt::Key_F7));
        QVERIFY(!panel().isVisible());
        QVERIFY(dialog().width() < both);
        dialog().leave();
        closeWindow();
        openWindow();
        pressForEditor(Qt::Key_N);
        QVERIFY(!panel().isVisible());
        // Shown again, it follows the form.
        FormDriver driver = dialogDriver();
        driver.fill(ordinary());
        QTest::mouseClick(field<QToolButton>(dialog(), "advisorToggle"), Qt::LeftButton);
        QVERIFY(panel().isVisible());
        QVERIFY(QTest::qWaitFor([this] { return panel().isSettled(); }));
        QCOMPARE(headline(), QStringLiteral("需20个交易日，期间仅1个"));
    }

    void theKeyboardReachesThePanel()
    {
        openFilled(ordinary());
        field<QWidget>(*dialogEditor(), "le_remark")->setFocus();
        QStringList reached;
        for (int i = 0; i < 5; ++i) {
            QVERIFY(press(QApplication::focusWidget(), Qt::Key_F6));
            reached << QApplication::focusWidget()->objectName();
        }
        const QStringList expected{ QStringLiteral("advisorSecurity"), QStringLiteral("formulaNames"),
            QStringLiteral("forecastDays"), QStringLiteral("rules"), QStringLiteral("le_remark") };
        QCOMPARE(reached, expected);
    }

    void aFailedReadShowsItsReason()
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        QVERIFY(QFile::rename(session().file(), session().file() + QStringLiteral(".gone")));
        fill(ordinary());
        QVERIFY(cell("advisorSecurity", QStringLiteral("读取失败")).startsWith(QStringLiteral("无法打开数据库")));
        QCOMPARE(cell("advisorSecurity", QStringLiteral("可卖数量")), QString());
        QVERIFY(headline().startsWith(QStringLiteral("无法打开数据库")));
        QVERIFY(QFile::rename(session().file() + QStringLiteral(".gone"), session().file()));
    }
};

QTEST_MAIN(AdvisorTest)
#include "tst_advisor.moc"
