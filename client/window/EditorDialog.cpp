#include "EditorDialog.h"

#include "AdvisorPanel.h"
#include "AdvisorSide.h"
#include "AutoParamSetting.h"
#include "ChangeNotice.h"
#include "ClientSession.h"
#include "ConflictDialog.h"
#include "FormArrangement.h"
#include "FormDates.h"
#include "FormInputs.h"
#include "MessageFocus.h"
#include "NoticeLine.h"
#include "OrloWidget.h"
#include "PlanCodes.h"
#include "PlanEvents.h"
#include "PlanSubmission.h"
#include "Popups.h"
#include "WindowPlace.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QTimer>
#include <QUuid>
#include <QVBoxLayout>

#include <chrono>
#include <utility>

namespace {

constexpr QSize EditorSize(517, 710);
// A narrower form cuts texts of a large font.
constexpr int NarrowestForm = 470;
constexpr std::chrono::milliseconds UntilFormIsShown(200);
constexpr std::chrono::milliseconds UntilKept(100);

/// The first field of the form that accepts the focus.
QWidget* firstField(QWidget* form)
{
    for (QWidget* next = form->nextInFocusChain(); next != form; next = next->nextInFocusChain()) {
        if (form->isAncestorOf(next) && next->isEnabled() && next->isVisible() && (next->focusPolicy() & Qt::TabFocus))
            return next;
    }
    return form;
}

} // namespace

// Without a parent, so that the window of the plans can be put in front of it.
EditorDialog::EditorDialog()
    : QDialog(nullptr, Qt::Window)
    , m_notice(new ChangeNotice(this))
    , m_oldLists(new NoticeLine(QStringLiteral("oldLists"), this))
    , m_area(new QScrollArea(this))
    , m_side(new AdvisorSide(this))
    , m_advisor(m_side->panel())
{
    setObjectName(QStringLiteral("planEditor"));
    new WindowPlace(this, QStringLiteral("form"));
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setWidgetResizable(true);
    // The focus of a field scrolls the area; the area itself as a tab stop would show nothing.
    m_area->setFocusPolicy(Qt::NoFocus);
    auto* const room = new QVBoxLayout(this);
    room->setContentsMargins(0, 0, 0, 0);
    room->setSpacing(0);
    room->addWidget(m_notice);
    room->addWidget(m_oldLists);
    m_oldLists->setButton(QStringLiteral("btnTakeLists"), tr("更新列表"));
    connect(m_oldLists, &NoticeLine::wanted, this, &EditorDialog::takeLists);
    auto* const halves = new QHBoxLayout;
    halves->setSpacing(0);
    halves->addWidget(m_area, 1);
    halves->addWidget(m_side);
    room->addLayout(halves, 1);
    connect(m_notice, &ChangeNotice::differencesWanted, this, &EditorDialog::showConflict);
    connect(m_side, &AdvisorSide::shown, this, [this](int more) {
        if (isVisible())
            resize(QSize(width() + more, height()).boundedTo(screen()->availableSize()));
    });
    connect(
        new QShortcut(QKeySequence(Qt::Key_F4), this), &QShortcut::activated, m_advisor, &AdvisorPanel::chooseSecurity);
    connect(new QShortcut(QKeySequence(Qt::Key_F6), this), &QShortcut::activated, this, &EditorDialog::focusAdvisor);
    for (const Qt::Key enter : { Qt::Key_Return, Qt::Key_Enter })
        connect(newControlShortcut(enter, this), &QShortcut::activated, this, &EditorDialog::confirm);
    connect(&PlanEvents::instance(), &PlanEvents::planStored, this, &EditorDialog::planStored);
    connect(&PlanEvents::instance(), &PlanEvents::planConflict, this, &EditorDialog::noteConflict);
    connect(&PlanEvents::instance(), &PlanEvents::planRefused, this, [this] { m_isSending = false; });
    connect(&PlanEvents::instance(), &PlanEvents::outcomeUnknown, this, [this] {
        if (std::exchange(m_isSending, false))
            m_sentWith = FormInputs::contents(*m_editor);
    });
    connect(this, &QDialog::finished, &m_changes, &QTimer::stop);
    connect(this, &QDialog::finished, this, &EditorDialog::unpin);
    m_changes.setSingleShot(true);
    m_changes.setInterval(UntilKept);
    connect(&m_changes, &QTimer::timeout, this, &EditorDialog::changed);
}

EditorDialog::~EditorDialog()
{
    unpin();
}

void EditorDialog::openNew()
{
    prepare(tr("新建计划"));
    present();
}

void EditorDialog::openEdit(const QString& planId)
{
    prepare(tr("修改计划 %1").arg(planId));
    m_advisor->setPlan(planId);
    m_holdsValues = true;
    unpin();
    m_editor->editPlan(planId);
    // The version that the form has read.
    pin(planId, ClientSession::instance().versions().of(planId));
    present();
    // A change is checked against the plan's instructions, which may be thousands.
    QTimer::singleShot(UntilFormIsShown, this, [planId] { ClientSession::instance().prefetchInstructions(planId); });
}

void EditorDialog::openCopy(const QString& planId)
{
    prepare(tr("复制计划 %1").arg(planId));
    m_holdsValues = true;
    m_editor->copyPlan(planId);
    present();
}

void EditorDialog::openDraft(const FormDraft& draft)
{
    if (draft.plan.isEmpty()) {
        openNew();
    } else {
        openEdit(draft.plan);
        pin(draft.plan, draft.version);
    }
    m_draftId = draft.id;
    m_holdsValues = true;
    const QStringList lost = draft.fill(*m_editor);
    lookForChange();
    if (!lost.isEmpty())
        OrloWidget::ShowWarningMsgBox(tr("以下内容已不能恢复，请核对：\n%1").arg(lost.join(QLatin1Char('\n'))), this);
}

FormDraft EditorDialog::draft() const
{
    FormDraft draft;
    draft.id = m_draftId;
    draft.plan = m_pinnedPlan;
    draft.version = m_pinnedVersion;
    draft.read(*m_editor);
    return draft;
}

void EditorDialog::setSkin(const QString& sheet)
{
    m_skin = sheet;
    if (m_editor)
        m_editor->loadSkin(m_skin);
}

bool EditorDialog::isChanged() const
{
    return isVisible() && m_storedPlan.isEmpty() && FormInputs::contents(*m_editor) != m_openedWith;
}

void EditorDialog::leave()
{
    if (isChanged())
        m_holdsValues = true;
    QDialog::reject();
}

void EditorDialog::reject()
{
    const QPointer<EditorDialog> self(this);
    constexpr int No = 0;
    if (isChanged()
        && OrloWidget::ShowQuestionMsgBox(tr("计划尚未提交，关闭后填写的内容将丢失，是否关闭？"), this, No) == No)
        return;
    if (self)
        leave();
}

// Enter only acts on the field or the button with the focus; no other button of the form reacts to it.
void EditorDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        QDialog::keyPressEvent(event);
}

void EditorDialog::prepare(const QString& title)
{
    setWindowTitle(title);
    m_storedPlan.clear();
    m_draftId = QUuid::createUuid().toString(QUuid::WithoutBraces);
    m_isSending = false;
    m_sentWith.clear();
    m_advisor->setPlan(QString());
    if (!m_editor || m_holdsValues || m_lists != ClientSession::instance().listsNumber()) {
        makeEditor();
        return;
    }
    FormDates::forgetEntered(*m_editor);
    m_editor->resetEnable();
}

void EditorDialog::makeEditor()
{
    if (QWidget* const former = m_area->takeWidget())
        former->deleteLater();
    m_editor = new AutoParamSetting(this);
    m_editor->setAttribute(Qt::WA_StyledBackground);
    m_holdsValues = false;
    m_lists = ClientSession::instance().listsNumber();
    m_oldLists->hide();
    if (!m_skin.isEmpty())
        m_editor->loadSkin(m_skin);
    connect(m_editor, &AutoParamSetting::signalBtnCancelClicked, this, &EditorDialog::leave);
    m_area->setWidget(m_editor);
    FormDates::tabThrough(*m_editor);
    FormDates::keepEntered(*m_editor);
    FormInputs::provideUnits(*m_editor);
    connect(new MessageFocus(m_editor), &MessageFocus::fieldShown, m_area,
        [this](QWidget* field) { m_area->ensureWidgetVisible(field); });
    const auto* const ok = m_editor->findChild<QAbstractButton*>(QStringLiteral("btn_ok"));
    connect(ok, &QAbstractButton::pressed, this, [this] {
        const auto check = [self = QPointer<EditorDialog>(this)] { return self ? self->checkSent() : Status(); };
        PlanSubmission::setFormCheck(check);
    });
    m_editor->installEventFilter(this);
    m_advisor->follow(m_editor);
    followChanges();
}

void EditorDialog::followChanges()
{
    const auto merge = [this] {
        if (isVisible() && !m_changes.isActive())
            m_changes.start();
    };
    const QList<QComboBox*> boxes = m_editor->findChildren<QComboBox*>();
    for (const QComboBox* const box : boxes)
        connect(box, &QComboBox::currentTextChanged, this, merge);
    const QList<QLineEdit*> lines = m_editor->findChildren<QLineEdit*>();
    for (const QLineEdit* const line : lines)
        connect(line, &QLineEdit::textChanged, this, merge);
}

// From the form to the advisor's tables, one after the other, and back to the field that had the focus.
void EditorDialog::focusAdvisor()
{
    QWidget* const focused = focusWidget();
    if (focused && m_editor->isAncestorOf(focused))
        m_lastField = focused;
    if (m_side->focusNext())
        return;
    QWidget* const field = m_lastField ? m_lastField.data() : firstField(m_editor);
    field->setFocus(Qt::ShortcutFocusReason);
}

// The trader's choices show and hide rows, and no row may be compressed.
bool EditorDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_editor && event->type() == QEvent::LayoutRequest && isVisible())
        fit();
    // The window of the algorithm's parameters was closed.
    if (watched == m_editor && event->type() == QEvent::WindowActivate && isVisible())
        m_changes.start();
    return QDialog::eventFilter(watched, event);
}

void EditorDialog::fit()
{
    FormArrangement::explainSteps(*m_editor);
    FormArrangement::fitNarrowLabels(*m_editor);
    FormArrangement::lineUpCaptions(*m_editor);
    const QSize room = screen()->availableSize() - (frameGeometry().size() - size());
    const int height = qMax(EditorSize.height(), m_editor->sizeHint().height());
    // If the form is higher than the screen, the scroll bar is beside it, not over it.
    const int bar = height > room.height() ? m_area->verticalScrollBar()->sizeHint().width() : 0;
    // On a narrow screen, the form is narrower rather than scrolled.
    const int usual = qBound(NarrowestForm, room.width() - bar - AdvisorSide::ToggleWidth, EditorSize.width());
    const QSize wanted(qMax(m_editor->minimumSizeHint().width(), usual), height);
    const int notice = noticeHeight(wanted.width());
    m_editor->setMinimumSize(wanted);
    m_side->fitInto(room.width() - wanted.width() - bar);
    m_area->setMinimumWidth(qMin(room.width() - AdvisorSide::ToggleWidth, wanted.width() + bar));
    const int beside = bar + m_side->wantedWidth();
    const QSize former = isVisible() ? size() : QSize();
    const QSize enough = (wanted + QSize(beside, notice)).boundedTo(room).expandedTo(former);
    if (enough == former)
        return;
    resize(enough);
    keepOnScreen(this);
}

int EditorDialog::noticeHeight(int width) const
{
    const auto heightOf = [width](const QWidget* line) { return line->isHidden() ? 0 : line->heightForWidth(width); };
    return heightOf(m_notice) + heightOf(m_oldLists);
}

void EditorDialog::present()
{
    fit();
    show();
    firstField(m_editor)->setFocus(Qt::OtherFocusReason);
    m_area->verticalScrollBar()->setValue(0);
    raise();
    activateWindow();
    m_openedWith = FormInputs::contents(*m_editor);
}

// As a click on OK. A field takes its text when it loses the focus.
void EditorDialog::confirm()
{
    while (QWidget* const popup = QApplication::activePopupWidget())
        popup->close();
    auto* const ok = m_editor->findChild<QAbstractButton*>(QStringLiteral("btn_ok"));
    const QPointer<QWidget> field = focusWidget();
    ok->setFocus(Qt::ShortcutFocusReason);
    ok->click();
    if (field && ok->hasFocus())
        field->setFocus(Qt::ShortcutFocusReason);
}

// The service asks before it stores a plan, of this form since OK was pressed.
Status EditorDialog::checkSent()
{
    if (!isVisible())
        return {};
    const Status typed = FormInputs::checkTyped(*m_editor);
    m_isSending = bool(typed);
    return typed;
}

// After a reduction some rows are only restored by the choice of another plan type.
void EditorDialog::planStored(const QString& planId)
{
    if (!std::exchange(m_isSending, false))
        return;
    m_storedPlan = planId;
    auto* const type = m_editor->findChild<QComboBox*>(QStringLiteral("combx_planType"));
    m_holdsValues = type->currentData() == PlanCodes::PlanType::ReduceHoldings;
}

void EditorDialog::pin(const QString& planId, int version)
{
    unpin();
    m_pinnedPlan = planId;
    m_pinnedVersion = version;
    ClientSession::instance().versions().pin(m_pinnedPlan, m_pinnedVersion);
}

void EditorDialog::unpin()
{
    ClientSession::instance().versions().unpin(m_pinnedPlan, m_pinnedVersion);
    m_pinnedPlan.clear();
    m_notice->clear();
}

void EditorDialog::closeStored()
{
    if (!isVisible() || FormInputs::contents(*m_editor) != m_sentWith)
        return;
    // The form was not cleared.
    m_holdsValues = true;
    QDialog::reject();
}

void EditorDialog::lookForChange()
{
    lookForLists();
    if (m_pinnedPlan.isEmpty() || m_pinnedVersion == 0 || !m_storedPlan.isEmpty())
        return;
    const auto change = PlanSubmission::changeSince(m_pinnedPlan, m_pinnedVersion);
    if (!change || !*change || m_notice->isAbout((*change)->stored.version))
        return;
    m_notice->showChange(**change, m_pinnedVersion);
    fit();
}

// The lists of a form that is being filled in change only when the trader wants it.
void EditorDialog::lookForLists()
{
    if (!isVisible() || !m_oldLists->isHidden() || m_lists == ClientSession::instance().listsNumber())
        return;
    m_oldLists->showText(tr("账户、权限或证券已有变化，本表单仍是原来的列表。"));
    fit();
}

// As a form that was left and is continued.
void EditorDialog::takeLists()
{
    const QString title = windowTitle();
    openDraft(draft());
    setWindowTitle(title);
}

// The editor shows the service's refusal in a box first.
void EditorDialog::noteConflict(const PlanConflict& conflict)
{
    if (!isVisible() || conflict.stored.id != m_pinnedPlan)
        return;
    const auto afterTheBox = [this, conflict] {
        auto* const box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (box && box != this)
            connect(
                box, &QDialog::finished, this, [this, conflict] { showConflict(conflict); }, Qt::QueuedConnection);
        else
            showConflict(conflict);
    };
    QMetaObject::invokeMethod(this, afterTheBox, Qt::QueuedConnection);
}

void EditorDialog::showConflict(const PlanConflict& conflict)
{
    auto* const dialog = new ConflictDialog(conflict, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::finished, this, [this, shown = conflict.stored](int choice) {
        if (choice == ConflictDialog::Reload)
            openEdit(shown.id);
        else if (choice == ConflictDialog::Keep)
            pin(shown.id, shown.version);
        lookForChange();
    });
    dialog->open();
}
