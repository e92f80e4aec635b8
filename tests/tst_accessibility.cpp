#include "Appearance.h"
#include "AutoParamSetting.h"
#include "CalendarPopup.h"
#include "EditorDialog.h"
#include "EditorForm.h"
#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "LoggedTest.h"
#include "MainWindow.h"
#include "MessageBox.h"
#include "OrloElidedLabel.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"
#include "SampleSession.h"
#include "SkinSheet.h"
#include "TestClock.h"
#include "TestStatus.h"
#include "VorSearchBox.h"

#include <QAbstractSpinBox>
#include <QAccessible>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QStyleOptionComboBox>
#include <QTemporaryDir>
#include <QtTest>

using namespace PlanCodes;

namespace {

QString words(const char* text)
{
    return QString::fromUtf8(text);
}

QStringList list(const char* text)
{
    return words(text).split(QLatin1Char(' '));
}

/// The states in which the form is tested.
QStringList states()
{
    return { words("a new plan"), words("an ordinary plan"), words("the same each day"), words("a reduction"),
        words("Hong Kong"), words("a credit plan"), words("an algorithm"), words("an amount") };
}

void chooseSymbol(const QWidget& form, const QString& subType, const QString& suffix)
{
    field<VorSearchBox>(form, "le_symbol")->setSymbol(SampleSession::symbolOf(subType, suffix));
}

void chooseAccount(const QWidget& form, const char* account, const QString& instructionType)
{
    choose(form, "combx_fundAccount", words(account));
    choose(form, "combx_instructionType", instructionType);
}

void bring(const QWidget& form, const QString& state)
{
    if (state == words("a new plan"))
        return;
    const bool isReviewed = state == words("an algorithm") || state == words("an amount");
    chooseAccount(form, isReviewed ? "100002" : "100001", InstructionType::Ordinary);
    if (state == words("Hong Kong")) {
        choose(form, "combx_instructionType", InstructionType::HkConnect);
        chooseSymbol(form, Orlo_Values::MdcSubSecurityType::HStcokCirculation, QString());
        return;
    }
    if (state == words("a credit plan"))
        chooseAccount(form, "200001", InstructionType::Credit);
    chooseSymbol(form, Kelvo_Values::MdcSubSecurityType::Ashares, Kelvo_Values::SymbolPost::sh);
    choose(form, "combx_priceMode", PriceModel::CompareMax);
    if (state == words("the same each day"))
        choose(form, "combx_planType", PlanType::SameElements);
    if (state == words("a reduction"))
        choose(form, "combx_planType", PlanType::ReduceHoldings);
    if (state == words("an algorithm"))
        choose(form, "combx_instructionMode", InstMode::AlgoReview);
    if (state == words("an amount"))
        choose(form, "combx_instructionTargetType", InstructionTargetType::AmountOrder);
}

/// The tab order: object names of the fields. Each date is followed by its calendar button.
QStringList tabStops()
{
    return list("combx_fundAccount combx_instructionType combx_instructionTargetType combx_planType le_symbol "
                "combx_tradeSide combx_priceType combx_entrustType combx_priceMode lineEdit_price1 lineEdit_price2 "
                "le_targetTotalNum le_entrustMaxNum le_reduceHRatio combx_instructionMode btn_algoParamSetting "
                "combx_assignTo le_start btn_startCalendar le_end btn_endCalendar le_date btn_dateCalendar "
                "combx_reduceHMode le_remark btn_ok btn_cancel");
}

/// The visible and enabled widget of a name; null if there is none. The parts of both dates have the same names.
QWidget* usable(const QWidget& form, const QString& name)
{
    for (QWidget* const widget : form.findChildren<QWidget*>(name)) {
        if (widget->isVisible() && widget->isEnabled())
            return widget;
    }
    return nullptr;
}

QString titleOf(const QWidget* widget)
{
    const QString name = widget->objectName();
    return QLatin1String(widget->metaObject()->className()) + QLatin1Char(' ')
        + (name.isEmpty() ? widget->property("text").toString() : name);
}

/// Collects the visible, focusable nodes of an accessibility tree, without the entries of lists.
void collectFields(QAccessibleInterface* node, QList<QAccessibleInterface*>& found)
{
    if (!node || !node->isValid() || node->state().invisible)
        return;
    const bool isEntry = node->role() == QAccessible::ListItem || node->role() == QAccessible::Cell;
    if (node->state().focusable && !isEntry)
        found.append(node);
    for (int i = 0; i < node->childCount(); ++i)
        collectFields(node->child(i), found);
}

/// The errors in the accessibility tree of a widget, one sentence each.
QString namelessFields(QWidget* root, int* count = nullptr)
{
    QList<QAccessibleInterface*> fields;
    collectFields(QAccessible::queryAccessibleInterface(root), fields);
    QStringList faults;
    for (QAccessibleInterface* const field : qAsConst(fields)) {
        auto* const widget = qobject_cast<QWidget*>(field->object());
        const QString what = widget ? titleOf(widget) : words("a part");
        // The name of a combo box in the tree is its choice; its own name comes from the widget or the caption.
        const bool isBox = qobject_cast<QComboBox*>(widget);
        const bool isCaptioned = !field->relations(QAccessible::Label).isEmpty();
        const QString name = isBox ? widget->accessibleName() : field->text(QAccessible::Name);
        if (name.isEmpty() && !(isBox && isCaptioned))
            faults.append(what + words(" has no name"));
        if (name == words("TextLabel"))
            faults.append(what + words(" is named by an empty form"));
    }
    if (count)
        *count = fields.size();
    return faults.join(QLatin1Char('\n'));
}

/// The colours of a widget's outermost pixels, where the focus is shown. `shown` contains the widget.
QVector<QRgb> ring(QWidget& shown, const QWidget* widget)
{
    const QPoint corner = widget->mapTo(&shown, QPoint());
    const QImage picture = shown.grab(QRect(corner, widget->size())).toImage();
    QVector<QRgb> found;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qMin(qMin(x, y), qMin(picture.width() - 1 - x, picture.height() - 1 - y)) < 2)
                found.append(picture.pixel(x, y));
        }
    }
    return found;
}

/// The strongest contrast between the pixels of two rings.
double difference(const QVector<QRgb>& one, const QVector<QRgb>& other)
{
    double strongest = 1;
    for (int i = 0; i < qMin(one.size(), other.size()); ++i)
        strongest = qMax(strongest, contrast(QColor(one.at(i)), QColor(other.at(i))));
    return one.size() == other.size() ? strongest : 0;
}

/// Contrast of the text in a widget: its most frequent colour against the colour that differs most from it.
double paintedContrast(QWidget& shown, const QWidget* widget, const QRect& room)
{
    const QImage picture = shown.grab(room.translated(widget->mapTo(&shown, QPoint()))).toImage();
    QHash<QRgb, int> colours;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            ++colours[picture.pixel(x, y)];
    }
    const QList<int> counts = colours.values();
    const QRgb ground = colours.key(*std::max_element(counts.cbegin(), counts.cend()));
    double strongest = 1;
    for (auto colour = colours.cbegin(); colour != colours.cend(); ++colour)
        strongest = qMax(strongest, contrast(QColor(colour.key()), QColor(ground)));
    return strongest;
}

QRect comboRoom(QComboBox* box)
{
    QStyleOptionComboBox option;
    option.initFrom(box);
    return box->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, box);
}

QRect lineRoom(QLineEdit* line)
{
    QStyleOptionFrame option;
    option.initFrom(line);
    option.lineWidth = line->hasFrame() ? line->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, line) : 0;
    return line->style()->subElementRect(QStyle::SE_LineEditContents, &option, line);
}

QRect buttonRoom(QPushButton* button)
{
    QStyleOptionButton option;
    option.initFrom(button);
    return button->style()->subElementRect(QStyle::SE_PushButtonContents, &option, button);
}

/// A text that a widget shows, and the space available for it.
struct ShownText {
    QString text;
    QRect room;
    bool isWrapped = false;
};

ShownText shownText(QWidget* widget)
{
    if (auto* const label = qobject_cast<QLabel*>(widget)) {
        const int margin = label->margin();
        return { label->text(), label->contentsRect().adjusted(margin, margin, -margin, -margin), label->wordWrap() };
    }
    if (auto* const box = qobject_cast<QComboBox*>(widget))
        return { box->currentText(), comboRoom(box) };
    if (auto* const line = qobject_cast<QLineEdit*>(widget))
        return { line->text().isEmpty() ? line->placeholderText() : line->text(), lineRoom(line) };
    if (auto* const button = qobject_cast<QPushButton*>(widget))
        return { button->text(), buttonRoom(button) };
    if (auto* const button = qobject_cast<QAbstractButton*>(widget)) {
        const bool fits = button->width() >= button->sizeHint().width();
        return { button->text(), fits ? button->rect() : QRect() };
    }
    return {};
}

/// Reports every visible child widget whose text is cut off, one sentence each.
QString cutTexts(const QWidget* root, int* count = nullptr)
{
    QStringList faults;
    for (QWidget* const widget : root->findChildren<QWidget*>()) {
        const ShownText shown = shownText(widget);
        if (!widget->isVisible() || shown.text.isEmpty())
            continue;
        if (count)
            ++*count;
        const int flags = shown.isWrapped ? int(Qt::TextWordWrap) : int(Qt::TextSingleLine);
        const QRect bounds = shown.isWrapped ? QRect(0, 0, shown.room.width(), 9999) : QRect();
        const QSize needed = widget->fontMetrics().boundingRect(bounds, flags, shown.text).size();
        // A line with substituted fonts is higher than the line that the box is made for.
        const int ascent = widget->fontMetrics().tightBoundingRect(shown.text).height();
        if (needed.width() > shown.room.width() || (shown.isWrapped ? needed.height() : ascent) > shown.room.height())
            faults.append(QStringLiteral("%1 has %2 x %3 for %4 of %5 x %6")
                              .arg(titleOf(widget))
                              .arg(shown.room.width())
                              .arg(shown.room.height())
                              .arg(shown.text)
                              .arg(needed.width())
                              .arg(needed.height()));
    }
    return faults.join(QLatin1Char('\n'));
}

} // namespace

/// The form, the window and the boxes with a keyboard, a screen reader, a larger font or a zoom.
class AccessibilityTest : public LoggedTest {
    Q_OBJECT

private:
    void tidyUp() override
    {
        if (m_window && dialog().editor())
            dialog().leave();
        m_window.reset();
        qApp->setStyleSheet(QString());
    }

    static void addStates()
    {
        QTest::addColumn<QString>("state");
        for (const QString& state : states())
            QTest::newRow(qPrintable(state)) << state;
    }

    static void addSkins()
    {
        QTest::addColumn<QString>("skin");
        for (const QString& skin : skinNames())
            QTest::newRow(qPrintable(skin)) << skin;
    }

    static void addFonts()
    {
        QTest::addColumn<double>("fontFactor");
        QTest::newRow("the usual font") << 1.0;
        QTest::newRow("a font of one and a half times the size") << 1.5;
    }

    void open(const QString& skin = words("light"), double fontFactor = 1)
    {
        QFont font(QStringLiteral("Sans Serif"));
        font.setPointSizeF(9 * fontFactor);
        QApplication::setFont(font);
        m_window = std::make_unique<MainWindow>();
        m_window->setSkin(skin);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    }

    void openForm(const QString& state, const QString& skin = words("light"), double fontFactor = 1)
    {
        open(skin, fontFactor);
        dialog().openNew();
        bring(form(), state);
        QVERIFY(QTest::qWaitForWindowActive(&dialog()));
        QCoreApplication::processEvents();
    }

    QWidget* openPanel()
    {
        field<QPushButton>(form(), "btn_algoParamSetting")->click();
        QCoreApplication::processEvents();
        return form().findChild<QWidget*>(QStringLiteral("algorithmPanel"));
    }
    EditorDialog& dialog() const { return *m_window->editorDialog(); }
    AutoParamSetting& form() const { return *dialog().editor(); }

    QTemporaryDir m_settings;
    std::unique_ptr<SampleSession> m_session;
    std::unique_ptr<MainWindow> m_window;

private Q_SLOTS:
    void initTestCase()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
        setToday(SampleSession::today());
        QApplication::setStyle(QStringLiteral("Fusion"));
        m_session = std::make_unique<SampleSession>();
        QCOMPARE(m_session->opened(), Status());
        QVERIFY(!m_session->create(SampleSession::record()).isEmpty());
    }
    void eachCaptionNamesItsField_data() { addStates(); }
    void eachCaptionNamesItsField()
    {
        QFETCH(QString, state);
        openForm(state);
        int captions = 0;
        for (const QLabel* const caption : form().findChildren<QLabel*>()) {
            const QWidget* const named = caption->buddy();
            if (!named)
                continue;
            ++captions;
            QVERIFY2(caption->isVisible() == named->isVisible(), qPrintable(caption->objectName()));
            QVERIFY2(!caption->text().isEmpty(), qPrintable(caption->objectName()));
            QCOMPARE(named->accessibleName(), caption->text());
            QVERIFY2(!named->accessibleDescription().isEmpty(), qPrintable(named->objectName()));
        }
        QCOMPARE(captions, 20);
        int fields = 0;
        QCOMPARE(namelessFields(&form(), &fields), QString());
        QVERIFY(fields >= 17);
    }

    void theStepIsExplained()
    {
        openForm(words("an ordinary plan"));
        QCOMPARE(field<QWidget>(form(), "label_targetQtyStep")->toolTip(), QString());
        bring(form(), words("Hong Kong"));
        QCoreApplication::processEvents();
        const auto* const step = field<QLabel>(form(), "label_maxEntrustQtyStep");
        QVERIFY(step->text().toInt() >= 100);
        QCOMPARE(step->toolTip(), words("应为%1的整数倍").arg(step->text()));
    }
    void tabReachesEachFieldInItsOrder_data() { addStates(); }
    void tabReachesEachFieldInItsOrder()
    {
        QFETCH(QString, state);
        openForm(state);
        QStringList expected;
        for (const QString& name : tabStops()) {
            if (usable(form(), name))
                expected.append(name);
        }
        QVERIFY(expected.size() >= 14);
        field<QWidget>(form(), "combx_fundAccount")->setFocus(Qt::TabFocusReason);
        QStringList reached;
        for (int i = 0; i < expected.size(); ++i) {
            reached.append(QApplication::focusWidget()->objectName());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(reached.join(QLatin1Char(' ')), expected.join(QLatin1Char(' ')));
        QCOMPARE(QApplication::focusWidget()->objectName(), expected.constFirst());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget()->objectName(), words("btn_cancel"));
    }
    void theFocusIsVisible_data() { addSkins(); }
    void theFocusIsVisible()
    {
        QFETCH(QString, skin);
        openForm(words("an algorithm"), skin);
        QStringList unseen;
        for (const QString& name : tabStops()) {
            QWidget* const stop = usable(form(), name);
            if (!stop)
                continue;
            field<QWidget>(form(), name == words("btn_ok") ? "btn_cancel" : "btn_ok")->setFocus();
            const QVector<QRgb> without = ring(form(), stop);
            stop->setFocus(Qt::TabFocusReason);
            const double seen = difference(without, ring(form(), stop));
            if (seen < 1.5)
                unseen.append(QStringLiteral("%1 %2").arg(name).arg(seen));
        }
        QCOMPARE(unseen.join(QLatin1Char('\n')), QString());
    }
    void paintedTextsStandOut_data() { addSkins(); }
    void paintedTextsStandOut()
    {
        QFETCH(QString, skin);
        for (const QString& state : { words("a reduction"), words("Hong Kong"), words("an algorithm") }) {
            openForm(state, skin);
            field<QWidget>(form(), "btn_cancel")->setFocus();
            QStringList faint;
            for (QWidget* const widget : form().findChildren<QWidget*>()) {
                const ShownText shown = shownText(widget);
                if (!widget->isVisible() || shown.text.isEmpty())
                    continue;
                const double painted = paintedContrast(form(), widget, shown.room);
                if (painted < 4.5)
                    faint.append(QStringLiteral("%1 %2").arg(titleOf(widget)).arg(painted));
            }
            QCOMPARE(faint.join(QLatin1Char('\n')), QString());
        }
    }

    void noTextIsCut_data()
    {
        QTest::addColumn<QString>("state");
        QTest::addColumn<QString>("skin");
        QTest::addColumn<double>("fontFactor");
        for (const QString& state : states()) {
            for (const QString& skin : skinNames()) {
                for (const double factor : { 1.0, 1.5 })
                    QTest::newRow(qPrintable(QStringLiteral("%1, %2, font times %3").arg(state, skin).arg(factor)))
                        << state << skin << factor;
            }
        }
    }

    void noTextIsCut()
    {
        QFETCH(QString, state);
        QFETCH(QString, skin);
        QFETCH(double, fontFactor);
        openForm(state, skin, fontFactor);
        field<QLineEdit>(form(), "le_remark")->setText(words("备注"));
        QCoreApplication::processEvents();
        int count = 0;
        QCOMPARE(cutTexts(&form(), &count), QString());
        QVERIFY(count >= 30);
        for (const char* const name : { "btn_ok", "btn_cancel" }) {
            const auto* const button = field<QPushButton>(form(), name);
            QVERIFY2(button->height() >= button->sizeHint().height(), name);
        }
    }
    void captionsOfBothSectionsLineUp_data() { addFonts(); }
    void captionsOfBothSectionsLineUp()
    {
        QFETCH(double, fontFactor);
        openForm(words("an ordinary plan"), words("light"), fontFactor);
        int edge = 0;
        for (const QLabel* const caption : form().findChildren<QLabel*>()) {
            if (!caption->buddy() || !caption->isVisible())
                continue;
            const int right = caption->mapTo(&form(), QPoint(caption->width(), 0)).x();
            edge = edge == 0 ? right : edge;
            QVERIFY2(right == edge, qPrintable(caption->objectName()));
        }
        QCOMPARE(field<QWidget>(form(), "la_fundAccountName")->width(), 98);
        QCOMPARE(field<QWidget>(form(), "la_priceMode")->width(), 98);
    }

    void theAlgorithmPanelIsNamedAndUncut_data() { addFonts(); }
    void theAlgorithmPanelIsNamedAndUncut()
    {
        QFETCH(double, fontFactor);
        openForm(words("an algorithm"), words("light"), fontFactor);
        QWidget* const panel = openPanel();
        QVERIFY(panel && panel->isVisible());
        auto* const strategies = field<QComboBox>(*panel, "combx_strategy");
        QCOMPARE(strategies->count(), 5);
        for (int i = 0; i < strategies->count(); ++i) {
            strategies->setCurrentIndex(i);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCoreApplication::processEvents();
            QCOMPARE(namelessFields(panel), QString());
            QCOMPARE(cutTexts(panel), QString());
            for (const QWidget* const input : panel->findChildren<QWidget*>()) {
                if (input->objectName().startsWith(QLatin1String("input_")))
                    QVERIFY2(!input->accessibleDescription().isEmpty(), qPrintable(input->objectName()));
            }
        }
        panel->hide();
    }
    void errorsInThePanelStandOut_data() { addSkins(); }
    void errorsInThePanelStandOut()
    {
        QFETCH(QString, skin);
        openForm(words("an algorithm"), skin);
        QWidget* const panel = openPanel();
        QVERIFY(panel && panel->isVisible());
        field<QComboBox>(*panel, "combx_strategy")->setCurrentIndex(0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        auto* const input = field<QAbstractSpinBox>(*panel, "input_SliceInterval");
        input->findChild<QLineEdit*>()->setText(words("x"));
        field<QPushButton>(*panel, "btn_ok")->click();
        QVERIFY(panel->isVisible());
        QCoreApplication::processEvents();
        auto* const message = field<QLabel>(*panel, "lab_message");
        QVERIFY(message->isVisible());
        const SkinSheet sheet(skinSheet(skin));
        const QColor ink = sheet.colour({ words("QLabel#lab_message") }, words("color"));
        QCOMPARE(message->palette().color(QPalette::WindowText), ink);
        QCOMPARE(input->palette().color(QPalette::Text), ink);
        QVERIFY(paintedContrast(*panel, message, message->rect()) >= 4.5);
        panel->hide();
    }
    void theWindowIsNamedAndUncut_data() { addFonts(); }
    void theWindowIsNamedAndUncut()
    {
        QFETCH(double, fontFactor);
        open(words("light"), fontFactor);
        QCOMPARE(namelessFields(m_window.get()), QString());
        QCOMPARE(cutTexts(m_window.get()), QString());
        QCOMPARE(m_window->findChild<QWidget*>(words("planTable"))->accessibleName(), words("计划列表"));
        QCOMPARE(m_window->findChild<QWidget*>(words("planDetails"))->accessibleName(), words("计划内容"));
    }
    void theFocusInTheWindowIsVisible_data() { addSkins(); }
    void theFocusInTheWindowIsVisible()
    {
        QFETCH(QString, skin);
        open(skin);
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        auto* const table = m_window->findChild<QWidget*>(words("planTable"));
        auto* const details = m_window->findChild<QWidget*>(words("planDetails"));
        table->setFocus();
        const QVector<QRgb> focusedTable = ring(*m_window, table);
        const QVector<QRgb> unfocusedDetails = ring(*m_window, details);
        details->setFocus();
        QVERIFY(difference(focusedTable, ring(*m_window, table)) >= 1.5);
        QVERIFY(difference(unfocusedDetails, ring(*m_window, details)) >= 1.5);
    }

    void boxesAndPopupsAreNamed()
    {
        openForm(words("an ordinary plan"));
        MessageBox box({ words("msgBoxQuestion"), words("确认"), QStyle::SP_MessageBoxQuestion },
            words("目标总量需等于【2000】的整数倍，是否继续？"), &dialog());
        box.addDecline(true);
        box.show();
        QCOMPARE(namelessFields(&box), QString());
        QCOMPARE(cutTexts(&box), QString());
        QCOMPARE(QAccessible::queryAccessibleInterface(&box)->text(QAccessible::Name), words("确认"));
        QCOMPARE(box.accessibleDescription(), words("目标总量需等于【2000】的整数倍，是否继续？"));
        box.close();

        field<QComboBox>(form(), "combx_fundAccount")->showPopup();
        auto* const popup = form().findChild<QWidget*>(words("comboSearchPopup"));
        QCOMPARE(namelessFields(popup), QString());
        popup->hide();

        field<QAbstractButton>(form(), "btn_startCalendar")->click();
        auto* const calendar = form().findChild<CalendarPopup*>();
        QVERIFY(calendar);
        QCOMPARE(calendar->accessibleName(), words("日历，") + field<QLineEdit>(form(), "le_start")->text());
        QCOMPARE(cutTexts(calendar), QString());
        calendar->close();
    }
    void theHintOfAnEmptySearchStandsOut_data() { addSkins(); }
    void theHintOfAnEmptySearchStandsOut()
    {
        QFETCH(QString, skin);
        openForm(words("an ordinary plan"), skin);
        auto* const accounts = field<QComboBox>(form(), "combx_fundAccount");
        // Twice, because closing the popup must not reset the colour.
        for (int i = 0; i < 2; ++i) {
            accounts->showPopup();
            QCoreApplication::processEvents();
            const auto* const search = form().findChild<QLineEdit*>(words("comboSearch"));
            const QColor ground =
                SkinSheet(skinSheet(skin)).colour({ words("QLineEdit:focus") }, words("background-color"));
            QVERIFY(contrast(search->palette().color(QPalette::PlaceholderText), ground) >= 4.5);
            accounts->hidePopup();
        }
    }
};

QTEST_MAIN(AccessibilityTest)
#include "tst_accessibility.moc"
