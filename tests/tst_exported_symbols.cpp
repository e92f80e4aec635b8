#include "InterfaceList.h"

#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

/// The symbols that the shared library exports: the class `AutoParamSetting` and nothing else.
class ExportedSymbolsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everySymbolBelongsToTheClass()
    {
        const QRegularExpression ofTheClass(
            QStringLiteral("^((vtable for|typeinfo for|typeinfo name for|VTT for) AutoParamSetting"
                           "|(non-virtual thunk to )?AutoParamSetting::.*)$"));
        const QStringList names = exportedNames();
        QVERIFY(names.size() > 20);
        for (const QString& name : names)
            QVERIFY2(ofTheClass.match(name).hasMatch(), qPrintable(name));
    }

    void theWholePublicClassIsThere_data()
    {
        QTest::addColumn<QString>("name");
        const QStringList names = {
            QStringLiteral("AutoParamSetting::AutoParamSetting(QWidget*)"),
            QStringLiteral("AutoParamSetting::~AutoParamSetting()"),
            QStringLiteral("non-virtual thunk to AutoParamSetting::~AutoParamSetting()"),
            QStringLiteral("AutoParamSetting::editPlan(QString const&)"),
            QStringLiteral("AutoParamSetting::copyPlan(QString const&)"),
            QStringLiteral("AutoParamSetting::resetEnable()"),
            QStringLiteral("AutoParamSetting::loadSkin(QVariant const&)"),
            QStringLiteral("non-virtual thunk to AutoParamSetting::loadSkin(QVariant const&)"),
            QStringLiteral("AutoParamSetting::tr(char const*, char const*, int)"),
            QStringLiteral("AutoParamSetting::metaObject() const"),
            QStringLiteral("AutoParamSetting::qt_metacast(char const*)"),
            QStringLiteral("AutoParamSetting::qt_metacall(QMetaObject::Call, int, void**)"),
            QStringLiteral("AutoParamSetting::staticMetaObject"),
            QStringLiteral("AutoParamSetting::signalBtnCancelClicked()"),
            QStringLiteral("AutoParamSetting::signalBtnOkClicked(QList<QMap<QString, QVariant> >)"),
            QStringLiteral("AutoParamSetting::signalQuerySymbolMAInfo(QString, QString)"),
            QStringLiteral("vtable for AutoParamSetting"),
            QStringLiteral("typeinfo for AutoParamSetting"),
        };
        for (const QString& name : names)
            QTest::newRow(qPrintable(name)) << name;
    }

    void theWholePublicClassIsThere()
    {
        QFETCH(QString, name);
        QVERIFY(exportedNames().contains(name));
    }

    void noOtherVirtualOfAWidgetIsOverridden()
    {
        const QRegularExpression widgetVirtual(QStringLiteral(
            "::(\\w+Event|event|eventFilter|sizeHint|minimumSizeHint|setVisible|devType|heightForWidth|"
            "hasHeightForWidth"
            "|paintEngine|metric|initPainter|redirected|sharedPainter|inputMethodQuery|focusNextPrevChild|connectNotify"
            "|disconnectNotify)\\("));
        const QStringList names = exportedNames();
        QVERIFY(!names.isEmpty());
        for (const QString& name : names)
            QVERIFY2(!widgetVirtual.match(name).hasMatch(), qPrintable(name));
    }

    void nothingIsLeftUndefined()
    {
        const QString text =
            output(QStringLiteral(LDD_PROGRAM), { QStringLiteral("-r"), QStringLiteral(LIBRARY_FILE) });
        QVERIFY(text.contains(QStringLiteral("libQt%1Widgets").arg(QT_VERSION_MAJOR)));
        // A library built with sanitizers gets their functions from the program that loads it.
        const QStringList lines = text.split(QLatin1Char('\n'));
        for (const QString& line : lines) {
            if (line.contains(QLatin1String("__asan")) || line.contains(QLatin1String("__ubsan")))
                continue;
            QVERIFY2(!line.contains(QLatin1String("undefined symbol")), qPrintable(line));
            QVERIFY2(!line.contains(QLatin1String("not found")), qPrintable(line));
        }
    }

    void noFileLoadsLibrariesFromTheCurrentFolder()
    {
        QStringList programs;
        const QStringList files = builtFiles();
        for (const QString& file : files) {
            const QStringList folders = runPath(file);
            for (const QString& folder : folders)
                QVERIFY2(QDir::isAbsolutePath(folder) || folder.startsWith(QLatin1String("$ORIGIN")),
                    qPrintable(file + QStringLiteral(": ") + folders.join(QLatin1Char(':'))));
            if (!folders.isEmpty())
                programs.append(QFileInfo(file).fileName());
        }
        QVERIFY(programs.contains(QFileInfo(QCoreApplication::applicationFilePath()).fileName()));
    }

    void theInterfaceIsTheOneThatWasKept()
    {
        // Hosts link the library for Qt 5. Classes have other sizes with Qt 6.
        if (QT_VERSION_MAJOR != 5)
            return;
        QFile file(QStringLiteral(INTERFACE_FILE));
        QVERIFY2(file.open(QIODevice::ReadOnly), INTERFACE_FILE);
        const QStringList kept = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        const QStringList present = interfaceOfLibrary(QStringLiteral(NM_PROGRAM), QStringLiteral(LIBRARY_FILE));
        QVERIFY(!present.isEmpty());
        for (const QString& line : kept)
            QVERIFY2(present.contains(line), qPrintable(QStringLiteral("gone: %1; see scripts/check-abi").arg(line)));
        for (const QString& line : present)
            QVERIFY2(kept.contains(line), qPrintable(QStringLiteral("new: %1; see scripts/check-abi").arg(line)));
        QCOMPARE(present, kept);
    }

private:
    static QString output(const QString& program, const QStringList& arguments)
    {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(program, arguments);
        if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
            return {};
        return QString::fromUtf8(process.readAll());
    }

    /// The programs and libraries in the build folder.
    static QStringList builtFiles()
    {
        QStringList files;
        for (const char* const folder : { PROGRAM_FOLDER, LIBRARY_FOLDER }) {
            QDirIterator entries(
                QString::fromUtf8(folder), QDir::Files | QDir::Executable, QDirIterator::Subdirectories);
            while (entries.hasNext())
                files.append(entries.next());
        }
        return files;
    }

    /// The folders in which the file's libraries are searched first, empty entries included.
    static QStringList runPath(const QString& file)
    {
        static const QRegularExpression entry(QStringLiteral("\\((RPATH|RUNPATH)\\)[^[]*\\[(.*)\\]"));
        const QString text = output(QStringLiteral(READELF_PROGRAM), { QStringLiteral("-dW"), file });
        const QRegularExpressionMatch found = entry.match(text);
        return found.hasMatch() ? found.captured(2).split(QLatin1Char(':')) : QStringList();
    }

    /// The demangled names, without address and type.
    static QStringList exportedNames()
    {
        const QString text = output(QStringLiteral(NM_PROGRAM),
            { QStringLiteral("-D"), QStringLiteral("--defined-only"), QStringLiteral("-C"),
                QStringLiteral(LIBRARY_FILE) });
        const QStringList lines = text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QStringList names;
        for (const QString& line : lines)
            names.append(line.section(QLatin1Char(' '), 2));
        return names;
    }
};

QTEST_GUILESS_MAIN(ExportedSymbolsTest)
#include "tst_exported_symbols.moc"
