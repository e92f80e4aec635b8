#include "SourceText.h"

#include <QDir>
#include <QRegularExpression>
#include <QtTest>

namespace {

QString inProject(const QString& path)
{
    return QDir(QStringLiteral(PROJECT_FOLDER)).filePath(path);
}

QString readAll(const QString& path)
{
    return textOf(inProject(path));
}

bool hasLineWith(const QString& page, const QStringList& words)
{
    const QStringList lines = page.split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        bool all = true;
        for (const QString& word : words)
            all = all && line.contains(QLatin1Char('`') + word + QLatin1Char('`'));
        if (all)
            return true;
    }
    return false;
}

/// The sources of the editor and its form.
QString editorSources()
{
    const QDir folder(inProject(QStringLiteral("autoparamsetting")));
    const QStringList names =
        folder.entryList({ QStringLiteral("*.cpp"), QStringLiteral("*.h"), QStringLiteral("*.ui") }, QDir::Files);
    QString sources;
    for (const QString& name : names)
        sources += readAll(folder.filePath(name));
    return sources;
}

/// The code blocks that are the headers of the tests' foreign client.
QString platformDeclarations()
{
    return allMatches(readAll(QStringLiteral("docs/own-platform.md")), QStringLiteral("^```cpp\n(// (?s:.*?))^```$"))
        .join(QLatin1Char('\n'));
}

/// The words of a shell line, without comments, quoted expansions and line ends.
QStringList packagesIn(QString words)
{
    words.remove(QRegularExpression(QStringLiteral("#[^\n]*")));
    QStringList packages = words.split(QRegularExpression(QStringLiteral("[\\s\\\\]+")), Qt::SkipEmptyParts);
    packages.removeAll(QStringLiteral("\"$@\""));
    return packages;
}

} // namespace

/// Compares what the pages of docs/ say with the sources.
class DocsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void thePlanRecordNamesEveryKeyWithItsValueInTheClient_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("value");
        const QString header = readAll(QStringLiteral("platform/AutoPlanField.h"));
        const QString families = readAll(QStringLiteral("client/values/ConstantFamilies.cpp"));
        const QString source = families.section(QStringLiteral("\nnamespace AutoPlanField {"), 1)
                                   .section(QStringLiteral("} // namespace AutoPlanField"), 0, 0);
        const QStringList namespaces = header.split(QStringLiteral("\nnamespace ")).mid(2);
        QCOMPARE(namespaces.size(), 2);
        for (const QString& part : namespaces) {
            const QString family = part.section(QLatin1Char(' '), 0, 0);
            const QStringList names = allMatches(part, QStringLiteral("^extern const QString (\\w+);"));
            for (const QString& name : names) {
                const QString key = QStringLiteral("AutoPlanField::%1::%2").arg(family, name);
                const QStringList values = allMatches(
                    source, QStringLiteral("^const QString %1 = QStringLiteral\\(\"([^\"]+)\"\\)").arg(name));
                QCOMPARE(values.size(), 1);
                QTest::newRow(qPrintable(key)) << key << values.first();
            }
        }
    }

    void thePlanRecordNamesEveryKeyWithItsValueInTheClient()
    {
        QFETCH(QString, key);
        QFETCH(QString, value);
        QVERIFY(hasLineWith(readAll(QStringLiteral("docs/plan-record.md")), { key, value }));
    }

    void theGuideForPlatformsDeclaresEveryHeaderOfTheEditor()
    {
        const QString editor = editorSources();
        const QStringList platform =
            QDir(inProject(QStringLiteral("platform"))).entryList({ QStringLiteral("*.h") }, QDir::Files);
        QStringList included;
        for (const QString& header : platform) {
            if (editor.contains(QStringLiteral("#include \"%1\"").arg(header))
                || editor.contains(QStringLiteral("<header>%1</header>").arg(header)))
                included.append(header);
        }
        QStringList declared = allMatches(platformDeclarations(), QStringLiteral("^// (\\w+\\.h)$"));
        declared.sort();
        included.sort();
        QCOMPARE(declared, included);
    }

    void theGuideForPlatformsDeclaresOnlyWhatTheEditorUses_data()
    {
        QTest::addColumn<QString>("name");
        const QString code = platformDeclarations().remove(QRegularExpression(QStringLiteral("//.*")));
        QStringList names = allMatches(code, QStringLiteral("(\\w+)\\("));
        const QStringList constants = allMatches(code, QStringLiteral("const QString(?:List)? ([\\w, ]+);"));
        for (const QString& line : constants)
            names += line.split(QStringLiteral(", "));
        names += allMatches(code, QStringLiteral("^    QString (\\w+);"));
        names.removeAll(QStringLiteral("Q_DECLARE_METATYPE"));
        names.removeDuplicates();
        QVERIFY(names.size() > 150);
        for (const QString& name : qAsConst(names))
            QTest::newRow(qPrintable(name)) << name;
    }

    void theGuideForPlatformsDeclaresOnlyWhatTheEditorUses()
    {
        QFETCH(QString, name);
        static const QString editor = editorSources();
        QVERIFY(QRegularExpression(QStringLiteral("\\b%1\\b").arg(name)).match(editor).hasMatch());
    }

    void everyPackageHasItsReason_data()
    {
        QTest::addColumn<QString>("package");
        QStringList packages = packagesIn(
            allMatches(readAll(QStringLiteral("scripts/setup")), QStringLiteral("^packages=\\(([^)]*)\\)")).value(0));
        QVERIFY(packages.contains(QStringLiteral("qtbase5-dev")));
        const QString call = QStringLiteral("^(?:\"\\$root/)?scripts/setup\"?((?: [a-z0-9][a-z0-9.+-]*)+)(?: >&2)?$");
        for (const char* const folder : { "scripts", "benchmarks" }) {
            const QDir scripts(inProject(QString::fromLatin1(folder)));
            const QStringList names = scripts.entryList(QDir::Files);
            for (const QString& name : names) {
                const QStringList calls = allMatches(readAll(scripts.filePath(name)), call);
                for (const QString& arguments : calls)
                    packages += packagesIn(arguments);
            }
        }
        QVERIFY(packages.contains(QStringLiteral("doxygen")));
        packages.removeDuplicates();
        for (const QString& package : qAsConst(packages))
            QTest::newRow(qPrintable(package)) << package;
    }

    void everyPackageHasItsReason()
    {
        QFETCH(QString, package);
        QVERIFY(hasLineWith(readAll(QStringLiteral("docs/dependencies.md")), { package }));
    }

    void everyLinkLeadsToAFile_data()
    {
        QTest::addColumn<QString>("page");
        QTest::newRow("README.md") << QStringLiteral("README.md");
        QTest::newRow("CONTRIBUTING.md") << QStringLiteral("CONTRIBUTING.md");
        const QStringList pages =
            QDir(inProject(QStringLiteral("docs"))).entryList({ QStringLiteral("*.md") }, QDir::Files);
        for (const QString& page : pages)
            QTest::newRow(qPrintable(page)) << QStringLiteral("docs/") + page;
    }

    void everyLinkLeadsToAFile()
    {
        QFETCH(QString, page);
        const QString text = readAll(page);
        const QDir folder = QFileInfo(inProject(page)).dir();
        QStringList links = allMatches(text, QStringLiteral("\\]\\(([^)#]+)[^)]*\\)"));
        links += allMatches(text, QStringLiteral("<img src=\"([^\"]+)\""));
        for (const QString& link : qAsConst(links))
            QVERIFY2(link.contains(QStringLiteral("://")) || folder.exists(link), qPrintable(link));
    }
};

QTEST_APPLESS_MAIN(DocsTest)
#include "tst_docs.moc"
