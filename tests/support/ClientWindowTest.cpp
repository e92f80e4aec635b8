#include "ClientWindowTest.h"

#include "Backup.h"
#include "ErrorText.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QSettings>
#include <QTimer>
#include <QtTest>

void ClientWindowTest::prepare()
{
    ClientFormTest::prepare();
    m_settings.emplace();
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings->path());
    startSession();
}

void ClientWindowTest::tidyUp()
{
    m_window.reset();
    qApp->setStyleSheet(QString());
    endSession();
    QCOMPARE(boxes().take().size(), 0);
}

void ClientWindowTest::openWindow()
{
    m_window = std::make_unique<MainWindow>();
    m_window->setSkin(QStringLiteral("light"));
    m_window->show();
    QVERIFY(takeKeyboard(m_window.get()));
}

bool ClientWindowTest::press(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    if (!takeKeyboard(widget->window()))
        return false;
    QTest::keyClick(widget, key, modifiers);
    return true;
}

void ClientWindowTest::pressForEditor(Qt::Key key)
{
    QVERIFY(press(m_window.get(), key, Qt::ControlModifier));
    QVERIFY(dialog().isVisible());
    QVERIFY(takeKeyboard(&dialog()));
}

QString ClientWindowTest::boxOf(const std::function<void()>& action, const char* box, bool accepts)
{
    boxes().expect(QLatin1String(box), accepts);
    action();
    const QVector<MessageBoxResponder::Box> seen = boxes().take();
    return seen.size() == 1 && seen.constFirst().name == QLatin1String(box) ? seen.constFirst().text : QString();
}

void ClientWindowTest::chooseFile(const std::function<void()>& action, const QString& file, bool accepts)
{
    QTimer::singleShot(0, this, [file, accepts] {
        auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        auto* const name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        QTest::keyClick(name, Qt::Key_A, Qt::ControlModifier);
        name->insert(file);
        QTest::keyClick(name, accepts ? Qt::Key_Return : Qt::Key_Escape);
        if (QApplication::activeModalWidget() == dialog)
            dialog->reject();
    });
    action();
}

QString ClientWindowTest::send(const char* box)
{
    return boxOf([this] { dialogDriver().confirm(); }, box);
}

QString ClientWindowTest::createPlan()
{
    const int before = *plans().count();
    pressForEditor(Qt::Key_N);
    FormDriver driver = dialogDriver();
    driver.fill(ordinary());
    const bool isDone = driver.takeProblems().isEmpty() && !send().isEmpty() && *plans().count() == before + 1;
    return isDone ? newestPlan() : QString();
}

QStringList ClientWindowTest::createSamples(int count)
{
    QStringList ids;
    for (int i = 0; i < count; ++i)
        ids.prepend(session().create(SampleSession::record()));
    return ids;
}

// Each connection reports by itself that it lost its file.
QByteArray ClientWindowTest::restoreBackup()
{
    log().allowWarning(errorText(Error::DatabaseFileChanged));
    const QString file = session().file();
    const QString backup = file + QStringLiteral(".backup");
    if (!backUpDatabase(file, backup))
        return {};
    for (const QString& name : { QString(), QStringLiteral("-wal"), QStringLiteral("-shm") }) {
        if (!QFile::rename(file + name, file + QStringLiteral(".moved") + name))
            return {};
    }
    return QFile::rename(backup, file) ? fileContent() : QByteArray();
}

QByteArray ClientWindowTest::fileContent()
{
    QFile file(session().file());
    return file.open(QIODevice::ReadOnly) && !QFile::exists(file.fileName() + QStringLiteral("-wal")) ? file.readAll()
                                                                                                      : QByteArray();
}
