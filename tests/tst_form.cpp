#include "EditorTest.h"
#include "OrloAccountComboBox.h"
#include "ui_AutoParamSetting.h"
#include <QDomDocument>
#include <QFile>
#include <QGridLayout>
#include <QProcess>
#include <QRegularExpression>
#include <QStyle>
#include <QTemporaryDir>
#include <QTranslator>
#include <QUiLoader>
#include <QtTest>

namespace {

QString words(const char* text)
{
    return QString::fromUtf8(text);
}

QString readAll(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The file cannot be read: %s", qPrintable(path));
    return QString::fromUtf8(file.readAll());
}

/// One place of a grid: where it is and what is there.
struct Place {
    int row = 0;
    int column = 0;
    int rowSpan = 1;
    int columnSpan = 1;
    QString name; ///< object name; "spacer" for a spacer

    QString sentence() const
    {
        return QStringLiteral("%1 in row %2, column %3, over %4 rows and %5 columns")
            .arg(name)
            .arg(row)
            .arg(column)
            .arg(rowSpan)
            .arg(columnSpan);
    }
};

QString nameOf(QLayoutItem* item)
{
    if (item->widget() != nullptr)
        return item->widget()->objectName();
    if (item->layout() != nullptr)
        return item->layout()->objectName();
    return QStringLiteral("spacer");
}

QStringList placesOf(const QGridLayout& grid)
{
    QStringList places;
    for (int i = 0; i < grid.count(); ++i) {
        Place place;
        grid.getItemPosition(i, &place.row, &place.column, &place.rowSpan, &place.columnSpan);
        place.name = nameOf(grid.itemAt(i));
        places.append(place.sentence());
    }
    places.sort();
    return places;
}

QStringList sentencesOf(const QList<Place>& places)
{
    QStringList sentences;
    for (const Place& place : places)
        sentences.append(place.sentence());
    sentences.sort();
    return sentences;
}

QStringList itemsOf(const QLayout& layout)
{
    QStringList names;
    for (int i = 0; i < layout.count(); ++i)
        names.append(nameOf(layout.itemAt(i)));
    return names;
}

/// Writes down what is looked up in the translations of the form.
class RecordingTranslator : public QTranslator {
public:
    QString translate(const char* context, const char* source, const char*, int) const override
    {
        if (qstrcmp(context, "AutoParamSetting") == 0)
            m_texts.append(QString::fromUtf8(source));
        return {};
    }

    bool isEmpty() const override { return false; }

    QStringList texts() const { return m_texts; }

private:
    mutable QStringList m_texts;
};

} // namespace

/// The form, from its Designer file and as it is built.
class FormTest : public EditorTest {
    Q_OBJECT

private Q_SLOTS:
    void anUnnamedEditorIsNamedByTheForm();
    void anEditorKeepsTheNameThatItHas();
    void theFormIs517Times710();
    void widgetsAreCreatedInTheirOrder();
    void membersOfTheFormStandInTheOrderOfCreation();
    void eachWidgetIsOfItsClass_data();
    void eachWidgetIsOfItsClass();
    void theFormHoldsNoOtherNamedWidget();
    void theTopLevelStacksTheSectionsOverASpacer();
    void theUpperGridHoldsItsRows();
    void theLowerGridHoldsItsRows();
    void rowsFourAndThirteenOfTheLowerGridAreEmpty();
    void rowsOfWidgetsHoldTheirItems_data();
    void rowsOfWidgetsHoldTheirItems();
    void theNameOfTheSecurityTakesTheStretch();
    void spacersHaveTheirSizes_data();
    void spacersHaveTheirSizes();
    void captionsAreAlignedRight_data();
    void captionsAreAlignedRight();
    void unitsKeepTheDefaultAlignment_data();
    void unitsKeepTheDefaultAlignment();
    void theCaptionColumnIs98PixelsWide_data();
    void theCaptionColumnIs98PixelsWide();
    void stepLabelsStayWithin40Pixels_data();
    void stepLabelsStayWithin40Pixels();
    void theFieldsWithAStepExpand_data();
    void theFieldsWithAStepExpand();
    void theButtonsHaveTheirLeastSizes();
    void theDateFieldsAreFramed_data();
    void theDateFieldsAreFramed();
    void theAccountBoxShowsNameAndFundAccount();
    void widgetsSetNothingElse();
    void tabGoesFromFieldToField();
    void textsAreSetInTheirOrder();
    void textsAreLookedUpInTheContextOfTheEditor();
    void textsCanBeSetAgain();
    void slotsAreConnectedByNameAtTheEnd();
    void promotedClassesNameTheirHeaders();
    void designersLoaderBuildsTheForm();

private:
    static QDomElement form();
    static QDomElement elementNamed(const QString& name);
    static QStringList propertiesOf(const QDomElement& element);
    static QString generated();
};

QDomElement FormTest::form()
{
    static QDomDocument document;
    if (document.isNull() && !document.setContent(readAll(QStringLiteral(FORM_FILE))))
        qFatal("The form is no XML");
    return document.documentElement();
}

QDomElement FormTest::elementNamed(const QString& name)
{
    for (const char* const kind : { "widget", "layout", "spacer" }) {
        const QDomNodeList all = form().elementsByTagName(QLatin1String(kind));
        for (int i = 0; i < all.size(); ++i) {
            if (all.at(i).toElement().attribute(QStringLiteral("name")) == name)
                return all.at(i).toElement();
        }
    }
    qFatal("The form holds no element of the name %s", qPrintable(name));
}

QStringList FormTest::propertiesOf(const QDomElement& element)
{
    QStringList names;
    for (QDomElement child = element.firstChildElement(QStringLiteral("property")); !child.isNull();
         child = child.nextSiblingElement(QStringLiteral("property")))
        names.append(child.attribute(QStringLiteral("name")));
    names.sort();
    return names;
}

/// The code that the form compiler makes of the file.
QString FormTest::generated()
{
    static QString code;
    if (code.isEmpty()) {
        QProcess uic;
        uic.start(QStringLiteral(UIC_PROGRAM), { QStringLiteral(FORM_FILE) });
        if (!uic.waitForFinished() || uic.exitCode() != 0)
            qFatal("The form does not compile");
        code = QString::fromUtf8(uic.readAllStandardOutput());
    }
    return code;
}

namespace {

/// Members of the form in the order of their creation; spacers are named by their place in that order.
QStringList creationOrder()
{
    return words("verticalLayout widget_up gridLayout la_securityId combx_tradeSide la_exchange "
                 "combx_instructionType combx_planType combx_priceType la_plainType combx_instructionTargetType "
                 "combx_fundAccount horizontalLayout subTitleWidget_basicParam spacer la_instructType la_priceType "
                 "le_exchange widget_symbol horizontalLayout_3 le_symbol la_symbolName la_tradeSide label spacer "
                 "la_fundAccountName la_entrustType combx_entrustType widget_down gridLayout_2 label_price1 "
                 "la_reduceHMode combx_reduceHMode label_price2 la_entrustMaxNum la_assignTo date_widget "
                 "horizontalLayout_7 date_effectivePeriod_Multi date_effectivePeriod_Single combx_assignTo "
                 "la_reduceHRatio lab_entrustMaxNumUnit le_remark la_targetTotalNum lineEdit_price1 "
                 "lab_targetTotalNumUnit lineEdit_price2 widget_okAndCancel horizontalLayout_5 spacer btn_ok "
                 "btn_cancel la_remark la_effectivePeriod label_28 widget_orderMode horizontalLayout_4 "
                 "combx_instructionMode btn_algoParamSetting le_reduceHRatio label_27 la_priceMode widget "
                 "horizontalLayout_6 le_targetTotalNum label_targetQtyStep combx_priceMode horizontalLayout_2 "
                 "subTitleWidget_detailParam spacer la_orderMode widget_2 horizontalLayout_8 le_entrustMaxNum "
                 "label_maxEntrustQtyStep spacer")
        .split(QLatin1Char(' '));
}

QStringList captionNames()
{
    return words("la_fundAccountName la_instructType label la_plainType la_securityId la_exchange la_tradeSide "
                 "la_priceType la_entrustType la_priceMode label_price1 label_price2 la_targetTotalNum "
                 "la_entrustMaxNum la_reduceHRatio la_orderMode la_assignTo la_effectivePeriod la_reduceHMode "
                 "la_remark")
        .split(QLatin1Char(' '));
}

QStringList unitNames()
{
    return words("label_27 label_28 lab_targetTotalNumUnit lab_entrustMaxNumUnit").split(QLatin1Char(' '));
}

} // namespace

void FormTest::anUnnamedEditorIsNamedByTheForm()
{
    QWidget window;
    Ui::AutoParamSetting ui;
    ui.setupUi(&window);
    QCOMPARE(window.objectName(), QStringLiteral("AutoParamSetting"));
    QCOMPARE(construct().objectName(), QStringLiteral("AutoParamSetting"));
}

void FormTest::anEditorKeepsTheNameThatItHas()
{
    QWidget window;
    window.setObjectName(QStringLiteral("editorOfTheSecondWindow"));
    Ui::AutoParamSetting ui;
    ui.setupUi(&window);
    QCOMPARE(window.objectName(), QStringLiteral("editorOfTheSecondWindow"));
}

void FormTest::theFormIs517Times710()
{
    QWidget window;
    Ui::AutoParamSetting ui;
    ui.setupUi(&window);
    QCOMPARE(window.size(), QSize(517, 710));
}

void FormTest::widgetsAreCreatedInTheirOrder()
{
    QStringList created;
    QRegularExpressionMatchIterator it =
        QRegularExpression(QStringLiteral("^        (\\w+) = new (\\w+)\\("), QRegularExpression::MultilineOption)
            .globalMatch(generated());
    while (it.hasNext()) {
        const QRegularExpressionMatch match = it.next();
        created.append(
            match.captured(2) == QLatin1String("QSpacerItem") ? QStringLiteral("spacer") : match.captured(1));
    }
    QCOMPARE(created, creationOrder());
}

void FormTest::membersOfTheFormStandInTheOrderOfCreation()
{
    QStringList members;
    QRegularExpressionMatchIterator it =
        QRegularExpression(QStringLiteral("^    (\\w+) \\*(\\w+);$"), QRegularExpression::MultilineOption)
            .globalMatch(generated());
    while (it.hasNext()) {
        const QRegularExpressionMatch match = it.next();
        members.append(
            match.captured(1) == QLatin1String("QSpacerItem") ? QStringLiteral("spacer") : match.captured(2));
    }
    QCOMPARE(members, creationOrder());
}

void FormTest::eachWidgetIsOfItsClass_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("className");
    const QList<QPair<const char*, QStringList>> classes = {
        { "OrloHintLabel", captionNames() + unitNames() },
        { "OrloElidedLabel", { words("la_symbolName") } },
        { "OrloAccountComboBox", { words("combx_fundAccount") } },
        { "OrloComboBox",
            words("combx_instructionType combx_instructionTargetType combx_planType combx_tradeSide "
                  "combx_priceType combx_entrustType combx_priceMode combx_instructionMode combx_assignTo "
                  "combx_reduceHMode")
                .split(QLatin1Char(' ')) },
        { "OrloSubTitleWidget", { words("subTitleWidget_basicParam"), words("subTitleWidget_detailParam") } },
        { "OrloDateEdit", { words("date_effectivePeriod_Multi"), words("date_effectivePeriod_Single") } },
        { "OrloFormulaNormal", { words("lineEdit_price1"), words("lineEdit_price2") } },
        { "OrloDecimalLineEdit", { words("le_targetTotalNum"), words("le_entrustMaxNum"), words("le_reduceHRatio") } },
        { "OrloPushButton", { words("btn_algoParamSetting"), words("btn_ok"), words("btn_cancel") } },
        { "VorSearchBox", { words("le_symbol") } },
        { "QLineEdit", { words("le_exchange"), words("le_remark") } },
        { "QLabel", { words("label_targetQtyStep"), words("label_maxEntrustQtyStep") } },
        { "QWidget",
            words("widget_up widget_down widget_symbol widget widget_2 widget_orderMode date_widget "
                  "widget_okAndCancel")
                .split(QLatin1Char(' ')) },
    };
    for (const auto& entry : classes) {
        for (const QString& name : entry.second)
            QTest::newRow(qPrintable(name)) << name << words(entry.first);
    }
}

void FormTest::eachWidgetIsOfItsClass()
{
    QFETCH(QString, name);
    QFETCH(QString, className);
    construct();
    QCOMPARE(editor().findChildren<QWidget*>(name).size(), 1);
    QCOMPARE(words(editor().findChild<QWidget*>(name)->metaObject()->className()), className);
}

void FormTest::theFormHoldsNoOtherNamedWidget()
{
    QStringList names;
    const QDomNodeList all = form().elementsByTagName(QStringLiteral("widget"));
    for (int i = 1; i < all.size(); ++i)
        names.append(all.at(i).toElement().attribute(QStringLiteral("name")));
    names.sort();

    QStringList expected;
    for (const QString& name : creationOrder()) {
        if (name != QLatin1String("spacer") && !name.contains(QLatin1String("Layout")))
            expected.append(name);
    }
    expected.sort();
    QCOMPARE(names, expected);
}

void FormTest::theTopLevelStacksTheSectionsOverASpacer()
{
    QWidget window;
    Ui::AutoParamSetting ui;
    ui.setupUi(&window);
    QCOMPARE(window.layout(), static_cast<QLayout*>(ui.verticalLayout));
    QCOMPARE(itemsOf(*ui.verticalLayout), QStringList({ words("widget_up"), words("widget_down"), words("spacer") }));
    QCOMPARE(ui.verticalLayout->spacing(), 20);
    const QMargins margins = ui.verticalLayout->contentsMargins();
    QCOMPARE(margins.top(), 19);
    QStyle* const style = window.style();
    QCOMPARE(margins.left(), style->pixelMetric(QStyle::PM_LayoutLeftMargin, nullptr, &window));
    QCOMPARE(margins.right(), style->pixelMetric(QStyle::PM_LayoutRightMargin, nullptr, &window));
    QCOMPARE(margins.bottom(), style->pixelMetric(QStyle::PM_LayoutBottomMargin, nullptr, &window));
    QCOMPARE(
        propertiesOf(elementNamed(words("verticalLayout"))), QStringList({ words("spacing"), words("topMargin") }));
}

void FormTest::theUpperGridHoldsItsRows()
{
    QWidget window;
    Ui::AutoParamSetting ui;
    ui.setupUi(&window);
    QCOMPARE(ui.widget_up->layout(), static_cast<QLayout*>(ui.gridLayout));
    QCOMPARE(ui.widget_up->parentWidget(), &window);
    QCOMPARE(ui.gridLayout->verticalSpacing(), 8);
    QCOMPARE(ui.gridLayout->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(placesOf(*ui.gridLayout),
        sentencesOf({ { 0, 0, 1, 2, words("horizontalLayout") }, { 1, 0, 1, 1, words("la_fundAccountName") },
            { 1, 1, 1, 1, words("combx_fundAccount") }, { 2, 0, 1, 1, words("la_instructType") },
            { 2, 1, 1, 1, words("combx_instructionType") }, { 3, 0, 1, 1, words("label") },
            { 3, 1, 1, 1, words("combx_instructionTargetType") }, { 4, 0, 1, 1, words("la_plainType") },
            { 4, 1, 1, 1, words("combx_planType") }, { 4, 2, 1, 1, words("spacer") },
            { 5, 0, 1, 1, words("la_securityId") }, { 5, 1, 1, 1, words("widget_symbol") },
            { 6, 0, 1, 1, words("la_exchange") }, { 6, 1, 1, 1, words("le_exchange") },
            { 7, 0, 1, 1, words("la_tradeSide") }, { 7, 1, 1, 1, words("combx_tradeSide") },
            { 8, 0, 1, 1, words("la_priceType") }, { 8, 1, 1, 1, words("combx_priceType") },
            { 9, 0, 1, 1, words("la_entrustType") }, { 9, 1, 1, 1, words("combx_entrustType") } }));
}

void FormTest::theLowerGridHoldsItsRows()
{
    QWidget window;
    Ui::AutoParamSetting ui;
    ui.setupUi(&window);
    QCOMPARE(ui.widget_down->layout(), static_cast<QLayout*>(ui.gridLayout_2));
    QCOMPARE(ui.widget_down->parentWidget(), &window);
    QCOMPARE(ui.gridLayout_2->verticalSpacing(), 8);
    QCOMPARE(ui.gridLayout_2->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(placesOf(*ui.gridLayout_2),
        sentencesOf({ { 0, 0, 1, 2, words("horizontalLayout_2") }, { 1, 0, 1, 1, words("la_priceMode") },
            { 1, 1, 1, 1, words("combx_priceMode") }, { 2, 0, 1, 1, words("label_price1") },
            { 2, 1, 1, 1, words("lineEdit_price1") }, { 2, 2, 1, 1, words("label_27") },
            { 3, 0, 1, 1, words("label_price2") }, { 3, 1, 1, 1, words("lineEdit_price2") },
            { 3, 2, 1, 1, words("label_28") }, { 5, 0, 1, 1, words("la_targetTotalNum") },
            { 5, 1, 1, 1, words("widget") }, { 5, 2, 1, 1, words("lab_targetTotalNumUnit") },
            { 6, 0, 1, 1, words("la_entrustMaxNum") }, { 6, 1, 1, 1, words("widget_2") },
            { 6, 2, 1, 1, words("lab_entrustMaxNumUnit") }, { 7, 0, 1, 1, words("la_reduceHRatio") },
            { 7, 1, 1, 1, words("le_reduceHRatio") }, { 8, 0, 1, 1, words("la_orderMode") },
            { 8, 1, 1, 1, words("widget_orderMode") }, { 9, 0, 1, 1, words("la_assignTo") },
            { 9, 1, 1, 1, words("combx_assignTo") }, { 10, 0, 1, 1, words("la_effectivePeriod") },
            { 10, 1, 1, 1, words("date_widget") }, { 11, 0, 1, 1, words("la_reduceHMode") },
            { 11, 1, 1, 1, words("combx_reduceHMode") }, { 12, 0, 1, 1, words("la_remark") },
            { 12, 1, 1, 1, words("le_remark") }, { 14, 0, 1, 2, words("widget_okAndCancel") } }));
}

void FormTest::rowsFourAndThirteenOfTheLowerGridAreEmpty()
{
    QWidget window;
    Ui::AutoParamSetting ui;
    ui.setupUi(&window);
    QCOMPARE(ui.gridLayout_2->columnCount(), 3);
    QCOMPARE(ui.gridLayout_2->rowCount(), 15);
    for (const int row : { 4, 13 }) {
        for (int column = 0; column < 3; ++column)
            QVERIFY(ui.gridLayout_2->itemAtPosition(row, column) == nullptr);
    }
    QCOMPARE(ui.gridLayout_2->itemAtPosition(14, 0)->widget(), ui.widget_okAndCancel);
    QCOMPARE(ui.gridLayout_2->itemAtPosition(14, 1)->widget(), ui.widget_okAndCancel);
}

void FormTest::rowsOfWidgetsHoldTheirItems_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<QString>("parent");
    QTest::addColumn<int>("spacing");
    QTest::addColumn<bool>("withoutMargins");
    QTest::addColumn<QStringList>("items");
    const int styles = -1;
    QTest::newRow("the heading of the basic parameters has a spacer behind it")
        << "horizontalLayout"
        << "" << 8 << false << QStringList{ words("subTitleWidget_basicParam"), words("spacer") };
    QTest::newRow("the heading of the plan parameters has a spacer behind it")
        << "horizontalLayout_2"
        << "" << 8 << false << QStringList{ words("subTitleWidget_detailParam"), words("spacer") };
    QTest::newRow("the security stands before its name")
        << "horizontalLayout_3"
        << "widget_symbol" << styles << true << QStringList{ words("le_symbol"), words("la_symbolName") };
    QTest::newRow("the instruction mode stands before the algorithm button")
        << "horizontalLayout_4"
        << "widget_orderMode" << 13 << true
        << QStringList{ words("combx_instructionMode"), words("btn_algoParamSetting") };
    QTest::newRow("OK and Cancel stand behind a spacer")
        << "horizontalLayout_5"
        << "widget_okAndCancel" << 20 << true << QStringList{ words("spacer"), words("btn_ok"), words("btn_cancel") };
    QTest::newRow("the target total stands before its step")
        << "horizontalLayout_6"
        << "widget" << styles << true << QStringList{ words("le_targetTotalNum"), words("label_targetQtyStep") };
    QTest::newRow("the range of dates stands before the single date")
        << "horizontalLayout_7"
        << "date_widget" << 0 << true
        << QStringList{ words("date_effectivePeriod_Multi"), words("date_effectivePeriod_Single") };
    QTest::newRow("the quantity per day stands before its step")
        << "horizontalLayout_8"
        << "widget_2" << styles << true << QStringList{ words("le_entrustMaxNum"), words("label_maxEntrustQtyStep") };
}

void FormTest::rowsOfWidgetsHoldTheirItems()
{
    QFETCH(QString, layout);
    QFETCH(QString, parent);
    QFETCH(int, spacing);
    QFETCH(bool, withoutMargins);
    QFETCH(QStringList, items);
    construct();
    auto* const row = editor().findChild<QHBoxLayout*>(layout);
    QVERIFY(row != nullptr);
    QCOMPARE(itemsOf(*row), items);
    const QStringList set = propertiesOf(elementNamed(layout));
    QCOMPARE(set.contains(QLatin1String("spacing")), spacing >= 0);
    if (spacing >= 0)
        QCOMPARE(row->spacing(), spacing);
    QCOMPARE(set.contains(QLatin1String("leftMargin")), withoutMargins);
    if (withoutMargins) {
        QCOMPARE(row->contentsMargins(), QMargins(0, 0, 0, 0));
        QCOMPARE(row->parentWidget()->objectName(), parent);
        QCOMPARE(row->parentWidget()->layout(), static_cast<QLayout*>(row));
    } else {
        QVERIFY(qobject_cast<QGridLayout*>(row->parent()) != nullptr);
    }
}

void FormTest::theNameOfTheSecurityTakesTheStretch()
{
    QWidget window;
    Ui::AutoParamSetting ui;
    ui.setupUi(&window);
    QCOMPARE(ui.horizontalLayout_3->stretch(0), 0);
    QCOMPARE(ui.horizontalLayout_3->stretch(1), 1);
}

void FormTest::spacersHaveTheirSizes_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<int>("index");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("horizontal");
    QTest::addColumn<int>("vertical");
    const int fixed = QSizePolicy::Fixed;
    const int minimum = QSizePolicy::Minimum;
    const int expanding = QSizePolicy::Expanding;
    QTest::newRow("below the sections") << "verticalLayout" << 2 << QSize(20, 40) << minimum << expanding;
    QTest::newRow("behind the heading of the basic parameters")
        << "horizontalLayout" << 1 << QSize(40, 20) << expanding << minimum;
    QTest::newRow("behind the heading of the plan parameters")
        << "horizontalLayout_2" << 1 << QSize(40, 20) << expanding << minimum;
    QTest::newRow("before OK") << "horizontalLayout_5" << 0 << QSize(283, 20) << expanding << minimum;
    QTest::newRow("in the third column of the upper grid") << "gridLayout" << -1 << QSize(12, 20) << fixed << minimum;
}

void FormTest::spacersHaveTheirSizes()
{
    QFETCH(QString, layout);
    QFETCH(int, index);
    QFETCH(QSize, size);
    QFETCH(int, horizontal);
    QFETCH(int, vertical);
    construct();
    auto* const found = editor().findChild<QLayout*>(layout);
    QVERIFY(found != nullptr);
    QLayoutItem* const item =
        index >= 0 ? found->itemAt(index) : qobject_cast<QGridLayout*>(found)->itemAtPosition(4, 2);
    QVERIFY(item != nullptr && item->spacerItem() != nullptr);
    QCOMPARE(item->sizeHint(), size);
    QCOMPARE(static_cast<int>(item->spacerItem()->sizePolicy().horizontalPolicy()), horizontal);
    QCOMPARE(static_cast<int>(item->spacerItem()->sizePolicy().verticalPolicy()), vertical);
}

void FormTest::captionsAreAlignedRight_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& name :
        captionNames() + QStringList{ words("label_targetQtyStep"), words("label_maxEntrustQtyStep") })
        QTest::newRow(qPrintable(name)) << name;
}

void FormTest::captionsAreAlignedRight()
{
    QFETCH(QString, name);
    construct();
    QCOMPARE(editor().findChild<QLabel*>(name)->alignment(), Qt::AlignRight | Qt::AlignVCenter);
}

void FormTest::unitsKeepTheDefaultAlignment_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : unitNames())
        QTest::newRow(qPrintable(name)) << name;
}

void FormTest::unitsKeepTheDefaultAlignment()
{
    QFETCH(QString, name);
    construct();
    QCOMPARE(editor().findChild<QLabel*>(name)->alignment(), QLabel().alignment());
    QCOMPARE(propertiesOf(elementNamed(name)), QStringList{ words("text") });
}

void FormTest::theCaptionColumnIs98PixelsWide_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    for (const char* const name : { "la_fundAccountName", "la_priceMode" }) {
        for (const int width : { 300, 517, 1600 }) {
            QTest::addRow("%s with its text in a form of %d", name, width) << words(name) << QString() << width;
            QTest::addRow("%s with a long text in a form of %d", name, width)
                << words(name) << words("一个比标题列宽得多的标题文字，永远不会更宽") << width;
            QTest::addRow("%s with a short text in a form of %d", name, width) << words(name) << words("价") << width;
        }
    }
}

void FormTest::theCaptionColumnIs98PixelsWide()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(int, width);
    constructShown();
    auto* const caption = editor().findChild<QLabel*>(name);
    QVERIFY(caption != nullptr);
    if (!text.isEmpty())
        caption->setText(text);
    host().resize(width, 900);
    QCoreApplication::processEvents();
    QCOMPARE(caption->width(), 98);
    QCOMPARE(caption->minimumSize(), QSize(98, 0));
    QCOMPARE(caption->maximumSize(), QSize(98, 16777215));
    QCOMPARE(caption->sizeIncrement(), QSize(0, 0));
    QVERIFY(propertiesOf(elementNamed(name)).contains(QLatin1String("sizeIncrement")));
}

void FormTest::stepLabelsStayWithin40Pixels_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("the step of the target total") << "label_targetQtyStep";
    QTest::newRow("the step of the quantity per day") << "label_maxEntrustQtyStep";
}

void FormTest::stepLabelsStayWithin40Pixels()
{
    QFETCH(QString, name);
    constructShown();
    auto* const step = editor().findChild<QLabel*>(name);
    QVERIFY(step != nullptr);
    step->setText(words("1000000000000000000"));
    step->show();
    host().resize(1600, 900);
    QCoreApplication::processEvents();
    QVERIFY(step->width() > 0);
    QVERIFY2(step->width() <= 40, qPrintable(QString::number(step->width())));
    QCOMPARE(step->maximumSize(), QSize(40, 16777215));
    QCOMPARE(step->minimumSize(), QSize(0, 0));
    QCOMPARE(step->layoutDirection(), Qt::LeftToRight);
    QVERIFY(propertiesOf(elementNamed(name)).contains(QLatin1String("layoutDirection")));
    QCOMPARE(step->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
    QCOMPARE(step->sizePolicy().verticalPolicy(), QSizePolicy::Preferred);
}

void FormTest::theFieldsWithAStepExpand_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("the target total") << "widget";
    QTest::newRow("the quantity per day") << "widget_2";
}

void FormTest::theFieldsWithAStepExpand()
{
    QFETCH(QString, name);
    construct();
    auto* const holder = editor().findChild<QWidget*>(name);
    QVERIFY(holder != nullptr);
    QCOMPARE(holder->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(holder->sizePolicy().verticalPolicy(), QSizePolicy::Preferred);
    QCOMPARE(holder->sizePolicy().horizontalStretch(), 0);
    QCOMPARE(holder->sizePolicy().verticalStretch(), 0);
    QCOMPARE(holder->minimumSize(), QSize(0, 0));
    QCOMPARE(propertiesOf(elementNamed(name)), QStringList({ words("minimumSize"), words("sizePolicy") }));
}

void FormTest::theButtonsHaveTheirLeastSizes()
{
    QWidget window;
    Ui::AutoParamSetting ui;
    ui.setupUi(&window);
    QCOMPARE(ui.widget_okAndCancel->minimumSize(), QSize(0, 30));
    QCOMPARE(ui.btn_algoParamSetting->minimumSize(), QSize(0, 0));
    QCOMPARE(propertiesOf(elementNamed(words("btn_algoParamSetting"))),
        QStringList({ words("minimumSize"), words("text") }));
}

void FormTest::theDateFieldsAreFramed_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("the range of dates") << "date_effectivePeriod_Multi";
    QTest::newRow("the single date") << "date_effectivePeriod_Single";
}

void FormTest::theDateFieldsAreFramed()
{
    QFETCH(QString, name);
    construct();
    auto* const dates = editor().findChild<QFrame*>(name);
    QVERIFY(dates != nullptr);
    QCOMPARE(dates->frameShape(), QFrame::StyledPanel);
    QCOMPARE(dates->frameShadow(), QFrame::Raised);
}

void FormTest::theAccountBoxShowsNameAndFundAccount()
{
    construct();
    QCOMPARE(static_cast<int>(field<OrloAccountComboBox>(editor(), "combx_fundAccount")->displayMode()), 2);
}

void FormTest::widgetsSetNothingElse()
{
    const QStringList text = { words("text") };
    const QStringList caption = { words("alignment"), words("buddy"), words("text") };
    QMap<QString, QStringList> expected;
    for (const QString& name : captionNames())
        expected.insert(name, caption);
    for (const QString& name : unitNames())
        expected.insert(name, text);
    for (const char* const name : { "la_symbolName", "btn_ok", "btn_cancel" })
        expected.insert(words(name), text);
    for (const char* const name : { "la_fundAccountName", "la_priceMode" })
        expected.insert(words(name),
            { words("alignment"), words("buddy"), words("maximumSize"), words("minimumSize"), words("sizeIncrement"),
                words("text") });
    expected.insert(words("btn_algoParamSetting"), { words("minimumSize"), words("text") });
    expected.insert(words("widget_okAndCancel"), { words("minimumSize") });
    for (const char* const name : { "widget", "widget_2" })
        expected.insert(words(name), { words("minimumSize"), words("sizePolicy") });
    for (const char* const name : { "date_effectivePeriod_Multi", "date_effectivePeriod_Single" })
        expected.insert(words(name), { words("frameShadow"), words("frameShape") });
    expected.insert(words("label_targetQtyStep"),
        { words("alignment"), words("layoutDirection"), words("maximumSize"), words("minimumSize"), words("sizePolicy"),
            words("text") });
    expected.insert(words("label_maxEntrustQtyStep"),
        { words("alignment"), words("layoutDirection"), words("maximumSize"), words("text") });

    const QDomNodeList all = form().elementsByTagName(QStringLiteral("widget"));
    QVERIFY(all.size() > 1);
    for (int i = 1; i < all.size(); ++i) {
        const QDomElement widget = all.at(i).toElement();
        const QString name = widget.attribute(QStringLiteral("name"));
        QVERIFY2(propertiesOf(widget) == expected.value(name),
            qPrintable(name + QStringLiteral(": ") + propertiesOf(widget).join(QLatin1Char(' '))));
    }
}

void FormTest::tabGoesFromFieldToField()
{
    const QStringList order =
        words("combx_fundAccount combx_instructionType combx_instructionTargetType combx_planType le_symbol "
              "le_exchange combx_tradeSide combx_priceType combx_entrustType combx_priceMode lineEdit_price1 "
              "lineEdit_price2 le_targetTotalNum le_entrustMaxNum le_reduceHRatio combx_instructionMode "
              "btn_algoParamSetting combx_assignTo combx_reduceHMode le_remark btn_ok btn_cancel")
            .split(QLatin1Char(' '));
    QStringList stops;
    const QDomNodeList inFile = form().elementsByTagName(QStringLiteral("tabstop"));
    for (int i = 0; i < inFile.size(); ++i)
        stops.append(inFile.at(i).toElement().text());
    QCOMPARE(stops, order);

    construct();
    QStringList chain;
    QWidget* const first = field<QWidget>(editor(), "combx_fundAccount");
    QWidget* widget = first;
    do {
        if (order.contains(widget->objectName()))
            chain.append(widget->objectName());
        widget = widget->nextInFocusChain();
    } while (widget != first);
    QCOMPARE(chain, order);
}

void FormTest::textsAreSetInTheirOrder()
{
    const QString code = generated();
    const int begin = code.indexOf(QLatin1String("void retranslateUi"));
    QVERIFY(begin > 0);
    QStringList set;
    QRegularExpressionMatchIterator it =
        QRegularExpression(QStringLiteral("(\\w+)->(setWindowTitle|setText)\\((QCoreApplication::translate\\("
                                          "\"AutoParamSetting\"|QString\\(\\))"))
            .globalMatch(code, begin);
    while (it.hasNext()) {
        const QRegularExpressionMatch match = it.next();
        const bool translated = match.captured(3) != QLatin1String("QString()");
        set.append(match.captured(1) + (translated ? QString() : words(" untranslated")));
    }
    QCOMPARE(set,
        words("AutoParamSetting|la_securityId|la_exchange|la_plainType|la_instructType|la_priceType|la_symbolName|"
              "la_tradeSide|label|la_fundAccountName|la_entrustType|label_price1|la_reduceHMode|label_price2|"
              "la_entrustMaxNum|la_assignTo|la_reduceHRatio|lab_entrustMaxNumUnit|la_targetTotalNum|"
              "lab_targetTotalNumUnit|btn_ok|btn_cancel|la_remark|la_effectivePeriod|label_28|"
              "btn_algoParamSetting|label_27|la_priceMode|label_targetQtyStep untranslated|la_orderMode|"
              "label_maxEntrustQtyStep untranslated")
            .split(QLatin1Char('|')));
}

namespace {

QStringList formTexts()
{
    return words("Form|证券代码|市场|计划类型|指令类型|报价类型|TextLabel|交易方向|指令单类型|账户名称|委托类别|"
                 "价格|减持模式|价格2|每日最大委托量|分配给|减持占比|股|目标总量|股|确认|取消|备注|生效时段|元|"
                 "算法参数设置|元|价格模式|下单模式")
        .split(QLatin1Char('|'));
}

} // namespace

void FormTest::textsAreLookedUpInTheContextOfTheEditor()
{
    RecordingTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QWidget window;
    Ui::AutoParamSetting ui;
    ui.setupUi(&window);
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(translator.texts(), formTexts());
    QCOMPARE(window.windowTitle(), words("Form"));
    QCOMPARE(ui.la_symbolName->text(), words("TextLabel"));
    QCOMPARE(ui.label_targetQtyStep->text(), QString());
    QCOMPARE(ui.label_maxEntrustQtyStep->text(), QString());
}

void FormTest::textsCanBeSetAgain()
{
    QWidget window;
    Ui::AutoParamSetting ui;
    ui.setupUi(&window);
    for (QLabel* const label : window.findChildren<QLabel*>())
        label->setText(words("x"));
    ui.btn_ok->setText(words("x"));
    ui.retranslateUi(&window);
    QStringList texts;
    for (const QString& name : captionNames())
        texts.append(window.findChild<QLabel*>(name)->text());
    QCOMPARE(texts,
        words("账户名称|指令类型|指令单类型|计划类型|证券代码|市场|交易方向|报价类型|委托类别|价格模式|价格|价格2|"
              "目标总量|每日最大委托量|减持占比|下单模式|分配给|生效时段|减持模式|备注")
            .split(QLatin1Char('|')));
    texts.clear();
    for (const QString& name : unitNames())
        texts.append(window.findChild<QLabel*>(name)->text());
    QCOMPARE(texts, words("元|元|股|股").split(QLatin1Char('|')));
    QCOMPARE(ui.btn_ok->text(), words("确认"));
    QCOMPARE(ui.btn_cancel->text(), words("取消"));
    QCOMPARE(ui.btn_algoParamSetting->text(), words("算法参数设置"));
    QCOMPARE(ui.label_targetQtyStep->text(), QString());
}

void FormTest::slotsAreConnectedByNameAtTheEnd()
{
    const QString code = generated();
    const int tabs = code.lastIndexOf(QLatin1String("QWidget::setTabOrder("));
    const int texts = code.indexOf(QLatin1String("retranslateUi(AutoParamSetting);"));
    const int connecting = code.indexOf(QLatin1String("QMetaObject::connectSlotsByName(AutoParamSetting);"));
    QVERIFY(tabs > 0);
    QVERIFY(tabs < texts);
    QVERIFY(texts < connecting);
    const QMetaObject& meta = AutoParamSetting::staticMetaObject;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        QVERIFY(!meta.method(i).name().startsWith("on_"));
}

void FormTest::promotedClassesNameTheirHeaders()
{
    QMap<QString, QString> bases;
    const QDomNodeList all = form().elementsByTagName(QStringLiteral("customwidget"));
    for (int i = 0; i < all.size(); ++i) {
        const QDomElement custom = all.at(i).toElement();
        const QString name = custom.firstChildElement(QStringLiteral("class")).text();
        bases.insert(name, custom.firstChildElement(QStringLiteral("extends")).text());
        const QString header = custom.firstChildElement(QStringLiteral("header")).text();
        QCOMPARE(header, name + words(".h"));
        const bool isOurs = name == QLatin1String("AccountBox");
        const QString folder = isOurs ? QStringLiteral(EDITOR_FOLDER) : QStringLiteral(PLATFORM_FOLDER);
        QVERIFY2(QFile::exists(folder + QLatin1Char('/') + header), qPrintable(header));
    }
    const QMap<QString, QString> expected = {
        { words("OrloHintLabel"), words("QLabel") },
        { words("OrloElidedLabel"), words("QLabel") },
        { words("OrloComboBox"), words("QComboBox") },
        { words("OrloAccountComboBox"), words("QComboBox") },
        { words("AccountBox"), words("OrloAccountComboBox") },
        { words("OrloSubTitleWidget"), words("QWidget") },
        { words("OrloDateEdit"), words("QFrame") },
        { words("OrloFormulaNormal"), words("QLineEdit") },
        { words("OrloDecimalLineEdit"), words("QDoubleSpinBox") },
        { words("OrloPushButton"), words("QPushButton") },
        { words("VorSearchBox"), words("QLineEdit") },
    };
    QCOMPARE(bases, expected);
}

void FormTest::designersLoaderBuildsTheForm()
{
    QFile file(QStringLiteral(FORM_FILE));
    QVERIFY(file.open(QIODevice::ReadOnly));
    // The loader knows no class of ours and says so of each; what matters is that it finds what to put in its place.
    int promoted = 0;
    const QDomNodeList all = form().elementsByTagName(QStringLiteral("widget"));
    for (int i = 0; i < all.size(); ++i)
        promoted += all.at(i).toElement().attribute(QStringLiteral("class")).startsWith(QLatin1Char('Q')) ? 0 : 1;
    QCOMPARE(promoted, 49);
    // The account box stands on the client's, which has a stand-in itself.
    log().expectWarning(QStringLiteral("; defaulting to base class '"), promoted + 1);
    QUiLoader loader;
    const std::unique_ptr<QWidget> window(loader.load(&file));
    QVERIFY2(window != nullptr, qPrintable(loader.errorString()));
    for (const QString& name : creationOrder()) {
        if (name != QLatin1String("spacer"))
            QVERIFY2(window->findChild<QObject*>(name) != nullptr, qPrintable(name));
    }
    QCOMPARE(window->size(), QSize(517, 710));
}

QTEST_MAIN(FormTest)
#include "tst_form.moc"
