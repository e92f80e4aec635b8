#include "Appearance.h"
#include "LoggedTest.h"
#include "SkinSheet.h"

#include <QRegularExpression>
#include <QSet>
#include <QtTest>

namespace {

/// One kind of text in a skin: the rules for its text colour and those for its background, with the property of each.
/// Later rules override earlier ones.
struct Look {
    QString what;
    QStringList ink;
    QStringList ground;
    QString inkProperty = QStringLiteral("color");
    QString groundProperty = QStringLiteral("background-color");
};

QString words(const char* text)
{
    return QString::fromUtf8(text);
}

QList<Look> textLooks()
{
    const QString any = words("QWidget");
    const QString form = words("AutoParamSetting");
    const QString date = words("OrloDateEdit");
    const QString button = words("QPushButton");
    const QString highlight = words("OrloPushButton[styleType=\"highlight\"]");
    const QString text = words("OrloPushButton[styleType=\"text\"]");
    const QString rows = words("QAbstractItemView");
    const QString calendar = words("CalendarPopup");
    const QString day = words("CalendarPopup QToolButton");
    const QString menu = words("QMenu");
    const QString algorithm = words("QFrame#frame_algorithm");
    QList<Look> looks = {
        { words("a caption"), { any, words("OrloHintLabel") }, { form } },
        { words("a disabled caption"), { any, words("OrloHintLabel:disabled") }, { form } },
        { words("a disabled label"), { any, words("QLabel:disabled") }, { form } },
        { words("a heading"), { any, words("OrloSubTitleWidget QLabel#titleText") }, { form } },
        { words("a date that is refused"), { words("OrloDateEdit QLineEdit[refused=\"true\"]") }, { date } },
        { words("a refused date with the focus"), { words("OrloDateEdit QLineEdit[refused=\"true\"]") },
            { words("QLineEdit"), words("QLineEdit:focus") } },
        { words("a number that is refused"), { words("QAbstractSpinBox[refused=\"true\"]") },
            { words("QAbstractSpinBox") } },
        { words("a refused number with the focus"), { words("QAbstractSpinBox[refused=\"true\"]") },
            { words("QAbstractSpinBox:focus") } },
        { words("what an input means"), { words("QLabel#inputMeaning") }, { words("QAbstractSpinBox:focus") } },
        { words("a button"), { button }, { button } },
        { words("a button under the mouse"), { button }, { button, words("QPushButton:hover") } },
        { words("a pressed button"), { button }, { button, words("QPushButton:pressed") } },
        { words("a chosen button"), { words("QPushButton:checked") }, { words("QPushButton:checked") } },
        { words("a disabled button"), { button, words("QPushButton:disabled") }, { words("QPushButton:disabled") } },
        { words("the main button"), { button, highlight }, { highlight } },
        { words("the main button with the focus"), { highlight }, { highlight, highlight + words(":focus") } },
        { words("the main button under the mouse"), { highlight }, { highlight + words(":hover") } },
        { words("the disabled main button"), { highlight + words(":disabled") }, { highlight + words(":disabled") } },
        { words("a button that is a text"), { text }, { form } },
        { words("a disabled button that is a text"), { text + words(":disabled") }, { form } },
        { words("a row"), { rows }, { rows } },
        { words("every other row"), { rows }, { rows }, words("color"), words("alternate-background-color") },
        { words("a purchase"), { words("PlanTable") }, { rows }, words("qproperty-buyColor") },
        { words("a purchase in every other row"), { words("PlanTable") }, { rows }, words("qproperty-buyColor"),
            words("alternate-background-color") },
        { words("a sale"), { words("PlanTable") }, { rows }, words("qproperty-sellColor") },
        { words("a sale in every other row"), { words("PlanTable") }, { rows }, words("qproperty-sellColor"),
            words("alternate-background-color") },
        { words("a row of a list with the focus"), { rows }, { words("QAbstractItemView:focus") } },
        { words("a row under the mouse"), { words("QAbstractItemView::item:hover") },
            { words("QAbstractItemView::item:hover") } },
        { words("a chosen row"), { words("QAbstractItemView::item:selected") },
            { words("QAbstractItemView::item:selected") } },
        { words("a chosen row of a view"), { rows }, { rows }, words("selection-color"),
            words("selection-background-color") },
        { words("a heading of columns"), { words("QHeaderView::section") }, { words("QHeaderView::section") } },
        { words("a weekday"), { words("CalendarPopup QLabel") }, { calendar } },
        { words("the month"), { words("CalendarPopup QLabel#calendarMonth") }, { calendar } },
        { words("a day"), { day }, { calendar } },
        { words("a day under the mouse"), { day }, { day + words(":hover") } },
        { words("the marked day"), { day + words(":checked") }, { day + words(":checked") } },
        { words("a day that cannot be chosen"), { day + words(":disabled") }, { day + words(":disabled") } },
        { words("a button of a date under the mouse"), { any }, { words("OrloDateEdit QToolButton:hover") } },
        { words("a button of a date with the focus"), { any }, { words("OrloDateEdit QToolButton:focus") } },
        { words("a hint at a field"), { words("FieldHint") }, { words("FieldHint") } },
        { words("a tool tip"), { words("QToolTip") }, { words("QToolTip") } },
        { words("a menu's entry"), { any }, { menu } },
        { words("a menu's entry under the mouse"), { words("QMenu::item:selected") },
            { words("QMenu::item:selected") } },
        { words("a disabled menu's entry"), { words("QMenu::item:disabled") }, { menu } },
        { words("a menu"), { words("QMenuBar") }, { words("QMenuBar") } },
        { words("a menu under the mouse"), { words("QMenuBar") }, { words("QMenuBar::item:selected") } },
        { words("the status bar"), { words("QStatusBar") }, { words("QStatusBar") } },
        { words("the tool bar"), { words("QToolBar") }, { words("QToolBar") } },
        { words("a disabled tool"), { words("QToolButton:disabled") }, { words("QToolBar") } },
        { words("a disabled check box"), { words("QCheckBox:disabled") }, { algorithm } },
        { words("a disabled radio button"), { words("QRadioButton:disabled") }, { algorithm } },
        { words("the algorithm's panel"), { any }, { algorithm } },
        { words("what is wrong in the panel"), { words("QLabel#lab_message") }, { algorithm } },
        { words("a parameter that is wrong"), { words("*[faulty=\"true\"]") }, { words("QLineEdit") } },
        { words("a wrong parameter with the focus"), { words("*[faulty=\"true\"]") }, { words("QLineEdit:focus") } },
        { words("a wrong choice"), { words("*[faulty=\"true\"]") }, { algorithm } },
    };
    for (const char* const side : { "buy", "sell" }) {
        const QString color = words("qproperty-%1Color").arg(words(side));
        looks.append({ words("the issue sheet, ") + words(side), { words("IssueSheet") }, { rows }, color });
        looks.append({ words("every other row of the issue sheet, ") + words(side), { words("IssueSheet") }, { rows },
            color, words("alternate-background-color") });
    }
    const QString advisor = words("RowView");
    for (const char* const mark : { "faint", "good", "bad", "doubtful" })
        looks.append({ words("a row of the advisor, ") + words(mark), { advisor }, { rows },
            words("qproperty-%1Color").arg(words(mark)) });
    looks.append({ words("a shaded row of the advisor"), { rows }, { advisor }, words("color"),
        words("qproperty-shadedColor") });
    for (const QString& window :
        { form, words("AdvisorPanel"), words("QDialog"), words("QMainWindow"), calendar, words("ComboSearchPopup") })
        looks.append({ words("text in ") + window, { any }, { window } });
    for (const char* const name :
        { "QLineEdit", "QAbstractSpinBox", "QComboBox", "OrloDateEdit", "QPlainTextEdit", "QTextEdit" }) {
        const QString field = words(name);
        looks.append({ words("text of ") + field, { field }, { field } });
        looks.append({ words("chosen text of ") + field, { field }, { field }, words("selection-color"),
            words("selection-background-color") });
    }
    for (const char* const name : { "QLineEdit", "QAbstractSpinBox", "QComboBox", "OrloDateEdit" }) {
        const QString disabled = words(name) + words(":disabled");
        looks.append({ disabled, { disabled }, { disabled } });
    }
    for (const char* const name : { "QLineEdit:focus", "QAbstractSpinBox:focus", "QComboBox:focus", "QComboBox:on",
             "QPlainTextEdit:focus", "QTextEdit:focus" })
        looks.append({ words(name), { words("QLineEdit") }, { words(name) } });
    return looks;
}

/// What has no text: the frames of fields and of the focus.
QList<Look> frameLooks()
{
    const QString form = words("AutoParamSetting");
    QList<Look> looks;
    for (const char* const name : { "QLineEdit", "QAbstractSpinBox", "QComboBox", "OrloDateEdit", "QPlainTextEdit",
             "QTextEdit", "QPushButton", "QAbstractItemView", "QAbstractItemView::indicator", "QCheckBox::indicator",
             "QRadioButton::indicator", "QLineEdit:focus", "QAbstractSpinBox:focus", "QComboBox:focus", "QComboBox:on",
             "QPlainTextEdit:focus", "QTextEdit:focus", "QAbstractItemView:focus", "OrloDateEdit QLineEdit:focus",
             "OrloDateEdit QToolButton:focus", "QPushButton:focus", "OrloPushButton[styleType=\"highlight\"]:focus",
             "OrloPushButton[styleType=\"text\"]:focus", "QCheckBox:focus", "QRadioButton:focus", "QSlider:focus",
             "QToolButton#panelTitle:focus", "QRadioButton::indicator:checked", "QScrollArea#planDetails:focus",
             "QAbstractSpinBox[faulty=\"true\"]", "QLineEdit[faulty=\"true\"]", "QComboBox[faulty=\"true\"]",
             "OrloDateEdit QLineEdit[faulty=\"true\"]", "OrloPushButton[faulty=\"true\"]" })
        looks.append({ words(name), { words(name) }, { form }, words("border") });
    const QString chart = words("ForecastChart");
    for (const char* const part : { "bar", "line" })
        looks.append({ words("the chart's ") + words(part), { chart }, { chart },
            words("qproperty-%1Color").arg(words(part)), words("qproperty-groundColor") });
    looks.append({ words("what is filled"), { words("PlanTable") }, { words("PlanTable") },
        words("qproperty-filledColor"), words("qproperty-groundColor") });
    looks.append({ words("the mark of a heading"), { words("OrloSubTitleWidget QFrame#titleMark") }, { form },
        words("background-color") });
    for (const char* const part : { "QSlider::groove:horizontal", "QSlider::handle:horizontal" })
        looks.append({ words(part), { words(part) }, { words("QFrame#frame_algorithm") }, words("background-color") });
    looks.append({ words("a check mark's ground"), { words("QCheckBox::indicator:checked") }, { form },
        words("background-color") });
    looks.append(
        { words("the frame of a focused main button"), { words("OrloPushButton[styleType=\"highlight\"]:focus") },
            { words("OrloPushButton[styleType=\"highlight\"]:focus") }, words("border") });
    return looks;
}

/// Whether a rule colours decoration only.
bool isOrnament(const QString& selector)
{
    static const QRegularExpression ornament(
        QStringLiteral("^QScrollBar|^QSlider::|titleMark$|::indicator|::(up|down)-button:hover$"));
    return ornament.match(selector).hasMatch();
}

void addRows(const QList<Look>& looks)
{
    QTest::addColumn<QString>("skin");
    QTest::addColumn<int>("index");
    for (const QString& skin : skinNames()) {
        for (int i = 0; i < looks.size(); ++i)
            QTest::newRow(qPrintable(skin + words(": ") + looks.at(i).what)) << skin << i;
    }
}

double contrastOf(const Look& look, const QString& skin)
{
    const SkinSheet sheet(skinSheet(skin));
    const QColor ink = sheet.colour(look.ink, look.inkProperty);
    const QColor ground = sheet.colour(look.ground, look.groundProperty);
    return ink.isValid() && ground.isValid() ? contrast(ink, ground) : 0;
}

} // namespace

/// The colours of the skins, as their sheets declare them.
class SkinsTest : public LoggedTest {
    Q_OBJECT

private Q_SLOTS:
    void contrastIsComputedAsWcagDefinesIt()
    {
        QCOMPARE(contrast(Qt::black, Qt::white), 21.0);
        QCOMPARE(contrast(Qt::white, Qt::white), 1.0);
        QCOMPARE(qRound(100 * contrast(QColor(0x76, 0x76, 0x76), Qt::white)), 454);
        QCOMPARE(qRound(10 * contrast(QColor(0, 0, 0, 128), Qt::white)), 40);
    }
    void textsStandOutFromTheirGround_data() { addRows(textLooks()); }

    void textsStandOutFromTheirGround()
    {
        QFETCH(QString, skin);
        QFETCH(int, index);
        const double ratio = contrastOf(textLooks().at(index), skin);
        QVERIFY2(ratio >= 4.5, qPrintable(QString::number(ratio)));
    }
    void framesAndTheFocusStandOutFromTheirGround_data() { addRows(frameLooks()); }

    void framesAndTheFocusStandOutFromTheirGround()
    {
        QFETCH(QString, skin);
        QFETCH(int, index);
        const double ratio = contrastOf(frameLooks().at(index), skin);
        QVERIFY2(ratio >= 3, qPrintable(QString::number(ratio)));
    }

    void noRuleWithAColourIsLeftOut()
    {
        QSet<QString> inks;
        QSet<QString> grounds;
        for (const Look& look : textLooks()) {
            inks.unite({ look.ink.cbegin(), look.ink.cend() });
            grounds.unite({ look.ground.cbegin(), look.ground.cend() });
        }
        QStringList missing;
        for (const QString& skin : skinNames()) {
            const SkinSheet sheet(skinSheet(skin));
            QVERIFY(sheet.selectors().size() > 50);
            for (const QString& selector : sheet.selectors()) {
                if (isOrnament(selector))
                    continue;
                if (sheet.declares(selector, words("color")) && !inks.contains(selector))
                    missing.append(skin + words(": ") + selector);
                const bool hasGround = sheet.colour({ selector }, words("background-color")).isValid();
                if (hasGround && !grounds.contains(selector))
                    missing.append(skin + words(": the ground of ") + selector);
            }
        }
        QCOMPARE(missing, QStringList());
    }

    void theSkinsHaveTheSameRules()
    {
        QStringList light = SkinSheet(skinSheet(words("light"))).selectors();
        QStringList dark = SkinSheet(skinSheet(words("dark"))).selectors();
        light.sort();
        dark.sort();
        QCOMPARE(dark, light);
    }
};

QTEST_GUILESS_MAIN(SkinsTest)
#include "tst_skins.moc"
