#include "LoggedTest.h"

#include <QComboBox>
#include <QDomDocument>
#include <QFile>
#include <QPluginLoader>
#include <QUiLoader>
#include <QtTest>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

namespace {

QDomElement form()
{
    static QDomDocument document;
    QFile file(QStringLiteral(FORM_FILE));
    if (document.isNull() && (!file.open(QIODevice::ReadOnly) || !document.setContent(&file)))
        qFatal("The form cannot be read");
    return document.documentElement();
}

QString textOf(const QDomElement& custom, const char* name)
{
    return custom.firstChildElement(QLatin1String(name)).text();
}

/// The form's entries for the client's classes, without the form's own class, which is promoted from one of them.
QList<QDomElement> namedClasses()
{
    QList<QDomElement> entries;
    const QDomNodeList all = form().elementsByTagName(QStringLiteral("customwidget"));
    for (int i = 0; i < all.size(); ++i) {
        if (textOf(all.at(i).toElement(), "class") != QLatin1String("AccountBox"))
            entries.append(all.at(i).toElement());
    }
    return entries;
}

QString className(const QObject* object)
{
    return QString::fromLatin1(object->metaObject()->className());
}

} // namespace

/// The plug-in as Qt Designer loads it: this program is not linked with the client, and no session is open.
class DesignerPluginTest : public LoggedTest {
    Q_OBJECT

private:
    static QList<QDesignerCustomWidgetInterface*> offered()
    {
        QPluginLoader loader(QStringLiteral(PLUGIN_FILE));
        auto* const collection = qobject_cast<QDesignerCustomWidgetCollectionInterface*>(loader.instance());
        if (!collection)
            qFatal("The plug-in cannot be loaded: %s", qPrintable(loader.errorString()));
        return collection->customWidgets();
    }

    std::unique_ptr<QWidget> open()
    {
        QUiLoader loader;
        loader.clearPluginPaths();
        loader.addPluginPath(QFileInfo(QStringLiteral(PLUGIN_FILE)).absolutePath());
        log().expectWarning(QStringLiteral("'AccountBox'; defaulting to base class 'OrloAccountComboBox'"));
        QFile file(QStringLiteral(FORM_FILE));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("The form cannot be read");
        return std::unique_ptr<QWidget>(loader.load(&file));
    }

private Q_SLOTS:
    void thePluginOffersTheClientsWidgets()
    {
        QMap<QString, QDesignerCustomWidgetInterface*> found;
        for (QDesignerCustomWidgetInterface* const widget : offered())
            found.insert(widget->name(), widget);
        const QList<QDomElement> all = namedClasses();
        QCOMPARE(all.size(), 10);
        for (const QDomElement& custom : all) {
            const QString name = textOf(custom, "class");
            const QDesignerCustomWidgetInterface* const widget = found.value(name);
            QVERIFY2(widget, qPrintable(name));
            QCOMPARE(widget->includeFile(), textOf(custom, "header"));
            QCOMPARE(widget->isContainer(), textOf(custom, "container") == QLatin1String("1"));
            QVERIFY(!widget->toolTip().isEmpty());
            QVERIFY(!widget->group().isEmpty());
            QDomDocument xml;
            QVERIFY(xml.setContent(widget->domXml()));
            QCOMPARE(xml.documentElement().firstChildElement().attribute(QStringLiteral("class")), name);
        }
    }

    void eachClassOfTheFormIsMadeAndShown_data()
    {
        QTest::addColumn<QString>("name");
        for (const QDomElement& custom : namedClasses())
            QTest::newRow(qPrintable(textOf(custom, "class"))) << textOf(custom, "class");
    }

    void eachClassOfTheFormIsMadeAndShown()
    {
        QFETCH(QString, name);
        int made = 0;
        for (QDesignerCustomWidgetInterface* const offer : offered()) {
            if (offer->name() != name)
                continue;
            QWidget parent;
            QWidget* const widget = offer->createWidget(&parent);
            ++made;
            QCOMPARE(className(widget), name);
            QCOMPARE(widget->parentWidget(), &parent);
            parent.show();
            QVERIFY(QTest::qWaitForWindowExposed(&parent));
            widget->setEnabled(false);
            const std::unique_ptr<QWidget> alone(offer->createWidget(nullptr));
            alone->show();
            QVERIFY(QTest::qWaitForWindowExposed(alone.get()));
        }
        QCOMPARE(made, 1);
    }

    void theFormOpensWithTheRealWidgets()
    {
        const std::unique_ptr<QWidget> window = open();
        QVERIFY(window);
        QCOMPARE(window->size(), QSize(517, 710));
        int checked = 0;
        const QDomNodeList all = form().elementsByTagName(QStringLiteral("widget"));
        for (int i = 1; i < all.size(); ++i) {
            const QDomElement element = all.at(i).toElement();
            const auto* const widget = window->findChild<QWidget*>(element.attribute(QStringLiteral("name")));
            QVERIFY2(widget, qPrintable(element.attribute(QStringLiteral("name"))));
            const QString named = element.attribute(QStringLiteral("class"));
            QCOMPARE(className(widget),
                named == QLatin1String("AccountBox") ? QStringLiteral("OrloAccountComboBox") : named);
            ++checked;
        }
        QCOMPARE(checked, 61);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    }

    void aSearchWithoutASessionFindsNothing()
    {
        const std::unique_ptr<QWidget> window = open();
        QVERIFY(window);
        window->show();
        auto* const search = window->findChild<QWidget*>(QStringLiteral("le_symbol"));
        QTest::keyClicks(search, QStringLiteral("600"));
        QTest::keyClick(search, Qt::Key_Return);
        QCOMPARE(search->property("text").toString(), QStringLiteral("600"));
        window->findChild<QComboBox*>(QStringLiteral("combx_fundAccount"))->showPopup();
    }
};

QTEST_MAIN(DesignerPluginTest)
#include "tst_designer_plugin.moc"
