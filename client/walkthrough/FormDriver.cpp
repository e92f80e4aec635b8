#include "FormDriver.h"

#include "OrloComboBox.h"
#include "ParamListWidget_single.h"
#include "VorSearchBox.h"

#include <QApplication>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>

namespace {

const QString Suggestions = QStringLiteral("suggestions");

/// The list of suggestions under a line edit; null while none is shown.
QWidget* shownSuggestions(const QWidget* line)
{
    QWidget* const list = line->findChild<QWidget*>(Suggestions);
    return list && list->isVisible() ? list : nullptr;
}

} // namespace

// Asks the application instead of the window: a window counts as active as soon as its dialog closes.
bool takeKeyboard(QWidget* window)
{
    if (QApplication::activeWindow() == window)
        return true;
    window->activateWindow();
    return QTest::qWaitFor([window] { return QApplication::activeWindow() == window; });
}

FormDriver::FormDriver(QWidget* form)
    : m_form(form)
{
}

void FormDriver::fill(const PlanForm& plan)
{
    choose("combx_fundAccount", plan.account);
    choose("combx_instructionType", plan.instructionType);
    choose("combx_instructionTargetType", plan.targetType);
    choose("combx_planType", plan.planType);
    if (!plan.symbol.isEmpty())
        enterSymbol(plan.symbol);
    choose("combx_tradeSide", plan.side);
    choose("combx_priceType", plan.priceType);
    choose("combx_entrustType", plan.entrustType);
    fillPrices(plan);
    fillTargets(plan);
    choose("combx_instructionMode", plan.instructionMode);
    if (!plan.strategy.isEmpty())
        setAlgorithm(plan.strategy, plan.parameters);
    chooseText("combx_assignTo", plan.assignee);
    fillDates(plan);
    if (!plan.remark.isEmpty())
        type("le_remark", plan.remark);
}

void FormDriver::confirm()
{
    if (auto* const ok = m_form->findChild<QPushButton*>(QStringLiteral("btn_ok")))
        QTest::mouseClick(ok, Qt::LeftButton);
    QApplication::processEvents();
}

void FormDriver::cancel()
{
    if (auto* const button = m_form->findChild<QPushButton*>(QStringLiteral("btn_cancel")))
        QTest::mouseClick(button, Qt::LeftButton);
    QApplication::processEvents();
}

// Some window systems do not return the focus to the form when a list over it closes.
void FormDriver::takeForm()
{
    if (!takeKeyboard(m_form->window()))
        m_problems << QStringLiteral("表单不能取得焦点");
}

void FormDriver::choose(const char* box, const QString& code)
{
    takeForm();
    auto* const combo = code.isEmpty() ? nullptr : find<QComboBox>(box);
    if (!combo || combo->currentData(Qt::UserRole).toString() == code)
        return;
    chooseRow(combo, combo->findData(code, Qt::UserRole, Qt::MatchExactly | Qt::MatchCaseSensitive));
    if (combo->currentData(Qt::UserRole).toString() != code)
        m_problems << QStringLiteral("%1未能选择“%2”").arg(combo->objectName(), code);
}

void FormDriver::chooseText(const char* box, const QString& text)
{
    takeForm();
    auto* const combo = text.isEmpty() ? nullptr : find<QComboBox>(box);
    if (!combo || combo->currentText() == text)
        return;
    chooseRow(combo, combo->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
    if (combo->currentText() != text)
        m_problems << QStringLiteral("%1未能选择“%2”").arg(combo->objectName(), text);
}

void FormDriver::type(const char* field, const QString& text)
{
    takeForm();
    auto* const input = find<QWidget>(field);
    if (!input)
        return;
    if (!input->isVisible() || !input->isEnabled())
        m_problems << QStringLiteral("%1不能输入").arg(input->objectName());
    else
        typeInto(input, text);
}

void FormDriver::enterSymbol(const QString& symbol)
{
    takeForm();
    auto* const box = find<VorSearchBox>("le_symbol");
    if (!box)
        return;
    typeCharacters(box, symbol);
    QTest::keyClick(box, Qt::Key_Return);
    // Right after the start the list may not be ready yet.
    const bool chosen = QTest::qWaitFor([box, symbol] { return box->getSymbol() == symbol; });
    QTest::keyClick(box, Qt::Key_Tab);
    QApplication::processEvents();
    if (!chosen || box->getSymbol() != symbol)
        m_problems << QStringLiteral("未能选择证券“%1”").arg(symbol);
}

void FormDriver::setAlgorithm(const QString& strategy, const QMap<QString, QString>& parameters)
{
    if (auto* const button = find<QPushButton>("btn_algoParamSetting"))
        QTest::mouseClick(button, Qt::LeftButton);
    auto* const panel = m_form->findChild<ParamListWidget_single*>();
    if (!panel || !panel->isVisible()) {
        m_problems << QStringLiteral("算法参数窗口没有打开");
        return;
    }
    FormDriver inPanel(panel);
    inPanel.choose("combx_strategy", strategy);
    for (auto it = parameters.cbegin(); it != parameters.cend(); ++it)
        inPanel.type(("input_" + it.key().toLatin1()).constData(), it.value());
    if (m_onPanel)
        m_onPanel(panel);
    inPanel.confirm();
    m_problems << inPanel.takeProblems();
    if (panel->isVisible() || !panel->HasParams())
        m_problems << QStringLiteral("算法参数未被接受");
}

void FormDriver::stepDate(const char* field, const char* line, int days)
{
    takeForm();
    auto* const dates = find<QWidget>(field);
    auto* const edit = dates ? dates->findChild<QLineEdit*>(QLatin1String(line)) : nullptr;
    if (!edit || !edit->isEnabled()) {
        m_problems << QStringLiteral("%1的日期不能修改").arg(QLatin1String(field));
        return;
    }
    QTest::mouseClick(edit, Qt::LeftButton);
    for (int i = 0; i < qAbs(days); ++i)
        QTest::keyClick(edit, days > 0 ? Qt::Key_Up : Qt::Key_Down);
}

ShownDates FormDriver::dates() const
{
    const auto* const range = m_form->findChild<QWidget*>(QStringLiteral("date_effectivePeriod_Multi"));
    const auto* const single = m_form->findChild<QWidget*>(QStringLiteral("date_effectivePeriod_Single"));
    const auto text = [](const QWidget* dates, const char* line) {
        return dates->findChild<QLineEdit*>(QLatin1String(line))->text();
    };
    if (range->isVisible())
        return { text(range, "le_start"), text(range, "le_end") };
    return { text(single, "le_date"), QString() };
}

QStringList FormDriver::takeProblems()
{
    return std::exchange(m_problems, {});
}

void FormDriver::chooseRow(QComboBox* box, int row)
{
    if (row < 0 || !box->isVisible() || !box->isEnabled())
        return;
    const auto* const searched = qobject_cast<OrloComboBox*>(box);
    if (searched && searched->isSearchEnabled()) {
        chooseBySearch(box, box->itemText(row));
        return;
    }
    QTest::mouseClick(box, Qt::LeftButton);
    QTest::keyClick(box->view(), Qt::Key_Home);
    for (int i = 0; i < row; ++i)
        QTest::keyClick(box->view(), Qt::Key_Down);
    QTest::keyClick(box->view(), Qt::Key_Return);
    QApplication::processEvents();
}

void FormDriver::chooseBySearch(QComboBox* box, const QString& text)
{
    QTest::mouseClick(box, Qt::LeftButton);
    auto* const search = box->findChild<QLineEdit*>(QStringLiteral("comboSearch"));
    if (!search || !search->isVisible())
        return;
    typeCharacters(search, text);
    QTest::keyClick(search, Qt::Key_Return);
    QApplication::processEvents();
}

// Tab makes a field accept the typed text.
void FormDriver::typeInto(QWidget* field, const QString& text)
{
    QTest::mouseClick(field, Qt::LeftButton);
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(field, Qt::Key_Delete);
    typeCharacters(field, text);
    if (shownSuggestions(field))
        QTest::keyClick(field, Qt::Key_Escape);
    QTest::keyClick(field, Qt::Key_Tab);
    QApplication::processEvents();
}

// Sends Chinese characters through the input method, everything else as keys.
void FormDriver::typeCharacters(QWidget* field, const QString& text)
{
    field->setFocus(Qt::MouseFocusReason);
    for (const QChar character : text) {
        if (character.unicode() < 0x80) {
            QTest::keyClick(field, character.toLatin1());
            continue;
        }
        QInputMethodEvent event;
        event.setCommitString(character);
        QApplication::sendEvent(field, &event);
    }
}

void FormDriver::fillPrices(const PlanForm& plan)
{
    choose("combx_priceMode", plan.priceMode);
    if (!plan.price1.isEmpty())
        type("lineEdit_price1", plan.price1);
    if (!plan.price2.isEmpty())
        type("lineEdit_price2", plan.price2);
}

void FormDriver::fillTargets(const PlanForm& plan)
{
    if (!plan.target.isEmpty())
        type("le_targetTotalNum", plan.target);
    if (!plan.perDay.isEmpty())
        type("le_entrustMaxNum", plan.perDay);
    if (!plan.ratio.isEmpty())
        type("le_reduceHRatio", plan.ratio);
}

void FormDriver::fillDates(const PlanForm& plan)
{
    const bool single = m_form->findChild<QWidget*>(QStringLiteral("date_effectivePeriod_Single"))->isVisible();
    const char* const field = single ? "date_effectivePeriod_Single" : "date_effectivePeriod_Multi";
    if (plan.beginSteps != 0)
        stepDate(field, single ? "le_date" : "le_start", plan.beginSteps);
    if (plan.endSteps != 0)
        stepDate(field, "le_end", plan.endSteps);
    QApplication::processEvents();
}
