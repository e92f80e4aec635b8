#include "EditorTest.h"
#include "OrloAccountComboBox.h"
#include "ui_AutoParamSetting.h"

#include <QDomDocument>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTranslator>
#include <QUiLoader>
#include <QtTest>

namespace {

/// The whole form, one element per line, children indented: its place in a grid (row, column, and the number of columns
/// if greater than one), class, name and properties. "right" is right-aligned, "no margins" all four.
const char* const DesignedForm = R"(
QWidget AutoParamSetting: geometry 0 0 517 710; windowTitle Form
 QVBoxLayout verticalLayout: spacing 20; topMargin 19
  QWidget widget_up
   QGridLayout gridLayout: no margins; verticalSpacing 8
    5,0 OrloHintLabel la_securityId: text 证券代码; right; buddy le_symbol
    7,1 OrloComboBox combx_tradeSide
    6,0 OrloHintLabel la_exchange: text 市场; right; buddy le_exchange
    2,1 OrloComboBox combx_instructionType
    4,1 OrloComboBox combx_planType
    8,1 OrloComboBox combx_priceType
    4,0 OrloHintLabel la_plainType: text 计划类型; right; buddy combx_planType
    3,1 OrloComboBox combx_instructionTargetType
    1,1 AccountBox combx_fundAccount
    0,0 over 2 QHBoxLayout horizontalLayout: spacing 8
     OrloSubTitleWidget subTitleWidget_basicParam
     spacer horizontalSpacer: orientation Qt::Horizontal; sizeHint 40 20
    2,0 OrloHintLabel la_instructType: text 指令类型; right; buddy combx_instructionType
    8,0 OrloHintLabel la_priceType: text 报价类型; right; buddy combx_priceType
    6,1 QLineEdit le_exchange
    5,1 QWidget widget_symbol
     QHBoxLayout horizontalLayout_3: no margins; stretch 0,1
      VorSearchBox le_symbol
      OrloElidedLabel la_symbolName: text TextLabel
    7,0 OrloHintLabel la_tradeSide: text 交易方向; right; buddy combx_tradeSide
    3,0 OrloHintLabel label: text 指令单类型; right; buddy combx_instructionTargetType
    4,2 spacer horizontalSpacer_3: orientation Qt::Horizontal; sizeType QSizePolicy::Fixed; sizeHint 12 20
    1,0 OrloHintLabel la_fundAccountName: minimumSize 98 0; maximumSize 98 16777215; sizeIncrement 0 0; text 账户名称; right; buddy combx_fundAccount
    9,0 OrloHintLabel la_entrustType: text 委托类别; right; buddy combx_entrustType
    9,1 OrloComboBox combx_entrustType
  QWidget widget_down
   QGridLayout gridLayout_2: no margins; verticalSpacing 8
    2,0 OrloHintLabel label_price1: text 价格; right; buddy lineEdit_price1
    11,0 OrloHintLabel la_reduceHMode: text 减持模式; right; buddy combx_reduceHMode
    11,1 OrloComboBox combx_reduceHMode
    3,0 OrloHintLabel label_price2: text 价格2; right; buddy lineEdit_price2
    6,0 OrloHintLabel la_entrustMaxNum: text 每日最大委托量; right; buddy le_entrustMaxNum
    9,0 OrloHintLabel la_assignTo: text 分配给; right; buddy combx_assignTo
    10,1 QWidget date_widget
     QHBoxLayout horizontalLayout_7: spacing 0; no margins
      OrloDateEdit date_effectivePeriod_Multi: frameShape QFrame::StyledPanel; frameShadow QFrame::Raised
      OrloDateEdit date_effectivePeriod_Single: frameShape QFrame::StyledPanel; frameShadow QFrame::Raised
    9,1 OrloComboBox combx_assignTo
    7,0 OrloHintLabel la_reduceHRatio: text 减持占比; right; buddy le_reduceHRatio
    6,2 OrloHintLabel lab_entrustMaxNumUnit: text 股
    12,1 QLineEdit le_remark
    5,0 OrloHintLabel la_targetTotalNum: text 目标总量; right; buddy le_targetTotalNum
    2,1 OrloFormulaNormal lineEdit_price1
    5,2 OrloHintLabel lab_targetTotalNumUnit: text 股
    3,1 OrloFormulaNormal lineEdit_price2
    14,0 over 2 QWidget widget_okAndCancel: minimumSize 0 30
     QHBoxLayout horizontalLayout_5: spacing 20; no margins
      spacer horizontalSpacer_4: orientation Qt::Horizontal; sizeHint 283 20
      OrloPushButton btn_ok: text 确认
      OrloPushButton btn_cancel: text 取消
    12,0 OrloHintLabel la_remark: text 备注; right; buddy le_remark
    10,0 OrloHintLabel la_effectivePeriod: text 生效时段; right; buddy date_effectivePeriod_Multi
    3,2 OrloHintLabel label_28: text 元
    8,1 QWidget widget_orderMode
     QHBoxLayout horizontalLayout_4: spacing 13; no margins
      OrloComboBox combx_instructionMode
      OrloPushButton btn_algoParamSetting: minimumSize 0 0; text 算法参数设置
    7,1 OrloDecimalLineEdit le_reduceHRatio
    2,2 OrloHintLabel label_27: text 元
    1,0 OrloHintLabel la_priceMode: minimumSize 98 0; maximumSize 98 16777215; sizeIncrement 0 0; text 价格模式; right; buddy combx_priceMode
    5,1 QWidget widget: sizePolicy Expanding Preferred 0 0; minimumSize 0 0
     QHBoxLayout horizontalLayout_6: no margins
      OrloDecimalLineEdit le_targetTotalNum
      QLabel label_targetQtyStep: sizePolicy Preferred Preferred 0 0; minimumSize 0 0; maximumSize 40 16777215; layoutDirection Qt::LeftToRight; text; right
    1,1 OrloComboBox combx_priceMode
    0,0 over 2 QHBoxLayout horizontalLayout_2: spacing 8
     OrloSubTitleWidget subTitleWidget_detailParam
     spacer horizontalSpacer_2: orientation Qt::Horizontal; sizeHint 40 20
    8,0 OrloHintLabel la_orderMode: text 下单模式; right; buddy combx_instructionMode
    6,1 QWidget widget_2: sizePolicy Expanding Preferred 0 0; minimumSize 0 0
     QHBoxLayout horizontalLayout_8: no margins
      OrloDecimalLineEdit le_entrustMaxNum
      QLabel label_maxEntrustQtyStep: maximumSize 40 16777215; layoutDirection Qt::LeftToRight; text; right
  spacer verticalSpacer: orientation Qt::Vertical; sizeHint 20 40
)";

QDomElement formElement()
{
    static QDomDocument document;
    QFile file(QStringLiteral(FORM_FILE));
    if (document.isNull() && !(file.open(QIODevice::ReadOnly) && document.setContent(&file)))
        qFatal("The form cannot be read");
    return document.documentElement();
}

QList<QDomElement> childrenOf(const QDomElement& element)
{
    QList<QDomElement> children;
    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        children.append(child);
    return children;
}

/// The texts of a property's innermost elements; a size policy has its kinds first.
QStringList valuesOf(const QDomElement& element)
{
    QStringList values;
    for (const char* const attribute : { "hsizetype", "vsizetype" }) {
        if (element.hasAttribute(QLatin1String(attribute)))
            values.append(element.attribute(QLatin1String(attribute)));
    }
    const QList<QDomElement> children = childrenOf(element);
    if (children.isEmpty() && !element.text().isEmpty())
        values.append(element.text());
    for (const QDomElement& child : children)
        values += valuesOf(child);
    return values;
}

QString propertiesOf(const QDomElement& element)
{
    QStringList properties;
    for (const QDomElement& child : childrenOf(element)) {
        if (child.tagName() == QLatin1String("property"))
            properties.append(
                (QStringList(child.attribute(QStringLiteral("name"))) + valuesOf(child)).join(QLatin1Char(' ')));
    }
    if (element.hasAttribute(QStringLiteral("stretch")))
        properties.append(QStringLiteral("stretch ") + element.attribute(QStringLiteral("stretch")));
    return properties.join(QStringLiteral("; "))
        .replace(
            QStringLiteral("leftMargin 0; topMargin 0; rightMargin 0; bottomMargin 0"), QStringLiteral("no margins"))
        .replace(QStringLiteral("alignment Qt::AlignRight|Qt::AlignVCenter"), QStringLiteral("right"));
}

QString placeOf(const QDomElement& item)
{
    if (!item.hasAttribute(QStringLiteral("row")))
        return {};
    const QString span = item.attribute(QStringLiteral("colspan"));
    return item.attribute(QStringLiteral("row")) + QLatin1Char(',') + item.attribute(QStringLiteral("column"))
        + (span.isEmpty() ? QStringLiteral(" ") : QStringLiteral(" over %1 ").arg(span));
}

QStringList linesOf(const QDomElement& element, int depth = 0, const QString& place = QString())
{
    const QString properties = propertiesOf(element);
    QStringList found{ QString(depth, QLatin1Char(' ')) + place
        + element.attribute(QStringLiteral("class"), QStringLiteral("spacer")) + QLatin1Char(' ')
        + element.attribute(QStringLiteral("name"))
        + (properties.isEmpty() ? QString() : QStringLiteral(": ") + properties) };
    for (const QDomElement& child : childrenOf(element)) {
        const bool isItem = child.tagName() == QLatin1String("item");
        for (const QDomElement& one : isItem ? childrenOf(child) : QList<QDomElement>{ child }) {
            if (one.tagName() != QLatin1String("property"))
                found += linesOf(one, depth + 1, placeOf(child));
        }
    }
    return found;
}

/// Every capture of a pattern in a text.
QStringList captured(const QString& text, const char* pattern)
{
    QStringList found;
    auto it = QRegularExpression(QLatin1String(pattern), QRegularExpression::MultilineOption).globalMatch(text);
    while (it.hasNext())
        found.append(it.next().captured(1));
    return found;
}

/// The code that the form compiler makes of the file.
QString generatedCode()
{
    QProcess uic;
    uic.start(QStringLiteral(UIC_PROGRAM), { QStringLiteral(FORM_FILE) });
    if (!uic.waitForFinished() || uic.exitCode() != 0)
        qFatal("The form does not compile");
    return QString::fromUtf8(uic.readAllStandardOutput());
}

/// Records the texts of the form that are looked up for translation, and returns each with a mark in front.
class RecordingTranslator : public QTranslator {
public:
    QString translate(const char* context, const char* source, const char*, int) const override
    {
        if (qstrcmp(context, "AutoParamSetting") != 0)
            return {};
        m_texts.append(QString::fromUtf8(source));
        return QLatin1Char('*') + m_texts.last();
    }

    bool isEmpty() const override { return false; }
    QStringList texts() const { return m_texts; }

private:
    mutable QStringList m_texts;
};

} // namespace

/// The form: its Designer file, and the widgets made from it.
class FormTest : public EditorTest {
    Q_OBJECT

private Q_SLOTS:
    void theFileIsAsDesigned()
    {
        const QDomElement form = formElement().firstChildElement(QStringLiteral("widget"));
        const QStringList expected = QString::fromUtf8(DesignedForm).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QCOMPARE(linesOf(form), expected);
        QVERIFY(formElement().firstChildElement(QStringLiteral("connections")).firstChildElement().isNull());
    }

    void membersAreInTheOrderOfTheFile()
    {
        const QStringList inFile = captured(QString::fromUtf8(DesignedForm), "^ .*?\\w (\\w+)(?:: .*)?$");
        const QString code = generatedCode();
        QCOMPARE(inFile.size(), 77);
        QCOMPARE(captured(code, "^        (\\w+) = new \\w+\\("), inFile);
        QCOMPARE(captured(code, "^    \\w+ \\*(\\w+);$"), inFile);
    }

    void theFormNamesOnlyAnUnnamedEditor()
    {
        QWidget unnamed;
        QWidget named;
        named.setObjectName(QStringLiteral("editorOfTheSecondWindow"));
        for (QWidget* const window : { &unnamed, &named }) {
            Ui::AutoParamSetting ui;
            ui.setupUi(window);
            QCOMPARE(window->size(), QSize(517, 710));
        }
        QCOMPARE(unnamed.objectName(), QStringLiteral("AutoParamSetting"));
        QCOMPARE(named.objectName(), QStringLiteral("editorOfTheSecondWindow"));
        QCOMPARE(construct().objectName(), QStringLiteral("AutoParamSetting"));
    }

    void theAccountBoxShowsNameAndFundAccount()
    {
        construct();
        QCOMPARE(static_cast<int>(field<OrloAccountComboBox>(editor(), "combx_fundAccount")->displayMode()), 2);
    }

    void tabGoesFromFieldToField()
    {
        const QStringList order = lines(R"(
            combx_fundAccount
            combx_instructionType
            combx_instructionTargetType
            combx_planType
            le_symbol
            le_exchange
            combx_tradeSide
            combx_priceType
            combx_entrustType
            combx_priceMode
            lineEdit_price1
            lineEdit_price2
            le_targetTotalNum
            le_entrustMaxNum
            le_reduceHRatio
            combx_instructionMode
            btn_algoParamSetting
            combx_assignTo
            combx_reduceHMode
            le_remark
            btn_ok
            btn_cancel)");
        QStringList stops;
        for (const QDomElement& stop : childrenOf(formElement().firstChildElement(QStringLiteral("tabstops"))))
            stops.append(stop.text());
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

    void textsAreLookedUpInTheContextOfTheEditorAndCanBeSetAgain()
    {
        QStringList texts = captured(QString::fromUtf8(DesignedForm), "(?:text|windowTitle) ([^;\n]+)(?:;|$)");
        QCOMPARE(texts.size(), 29);
        QWidget window;
        Ui::AutoParamSetting ui;
        ui.setupUi(&window);
        RecordingTranslator translator;
        QVERIFY(QCoreApplication::installTranslator(&translator));
        ui.retranslateUi(&window);
        QCoreApplication::removeTranslator(&translator);
        QCOMPARE(translator.texts(), texts);
        QCOMPARE(window.windowTitle(), QStringLiteral("*Form"));
        QCOMPARE(ui.la_tradeSide->text(), QStringLiteral("*交易方向"));
        QCOMPARE(ui.btn_ok->text(), QStringLiteral("*确认"));
        for (QLabel* const step : { ui.label_targetQtyStep, ui.label_maxEntrustQtyStep }) {
            QCOMPARE(step->text(), QString());
            step->setText(QStringLiteral("x"));
        }
        ui.retranslateUi(&window);
        QCOMPARE(ui.la_tradeSide->text(), QStringLiteral("交易方向"));
        QCOMPARE(ui.label_targetQtyStep->text() + ui.label_maxEntrustQtyStep->text(), QString());
    }

    void slotsAreConnectedByNameAtTheEnd()
    {
        const QString code = generatedCode();
        const int tabs = code.lastIndexOf(QLatin1String("QWidget::setTabOrder("));
        const int texts = code.indexOf(QLatin1String("retranslateUi(AutoParamSetting);"));
        const int connecting = code.indexOf(QLatin1String("QMetaObject::connectSlotsByName(AutoParamSetting);"));
        QVERIFY(0 < tabs && tabs < texts && texts < connecting);
        const QMetaObject& meta = AutoParamSetting::staticMetaObject;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            QVERIFY(!meta.method(i).name().startsWith("on_"));
    }

    void promotedClassesNameTheirHeaders()
    {
        QStringList bases;
        for (const QDomElement& custom : childrenOf(formElement().firstChildElement(QStringLiteral("customwidgets")))) {
            const QString name = custom.firstChildElement(QStringLiteral("class")).text();
            const QString header = custom.firstChildElement(QStringLiteral("header")).text();
            QCOMPARE(header, name + QStringLiteral(".h"));
            const bool isOurs = name == QLatin1String("AccountBox");
            const QString folder = isOurs ? QStringLiteral(EDITOR_FOLDER) : QStringLiteral(PLATFORM_FOLDER);
            QVERIFY2(QFile::exists(folder + QLatin1Char('/') + header), qPrintable(header));
            bases.append(name + QLatin1Char(' ') + custom.firstChildElement(QStringLiteral("extends")).text());
        }
        bases.sort();
        QCOMPARE(bases, lines(R"(
            AccountBox OrloAccountComboBox
            OrloAccountComboBox QComboBox
            OrloComboBox QComboBox
            OrloDateEdit QFrame
            OrloDecimalLineEdit QDoubleSpinBox
            OrloElidedLabel QLabel
            OrloFormulaNormal QLineEdit
            OrloHintLabel QLabel
            OrloPushButton QPushButton
            OrloSubTitleWidget QWidget
            VorSearchBox QLineEdit)"));
    }

    void designersLoaderBuildsTheForm()
    {
        QFile file(QStringLiteral(FORM_FILE));
        QVERIFY(file.open(QIODevice::ReadOnly));
        // The loader does not know the client's classes and reports each of them; it must find a base class to use
        // instead. The account box extends a class of the client, which has such a base class itself.
        log().expectWarning(QStringLiteral("; defaulting to base class '"), 50);
        QUiLoader loader;
        const std::unique_ptr<QWidget> window(loader.load(&file));
        QVERIFY2(window != nullptr, qPrintable(loader.errorString()));
        for (const QString& name : captured(QString::fromUtf8(DesignedForm), "^ .*?[A-Z]\\w+ (\\w+)(?:: .*)?$"))
            QVERIFY2(window->findChild<QObject*>(name) != nullptr, qPrintable(name));
        QCOMPARE(window->size(), QSize(517, 710));
    }
};

QTEST_MAIN(FormTest)
#include "tst_form.moc"
