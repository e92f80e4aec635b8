#include "AdvisorPanel.h"
#include "ClientWindowTest.h"
#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "OfferedSecurities.h"
#include "Orlo_Values.h"
#include "PinyinInitials.h"
#include "PlanCodes.h"
#include "RowView.h"
#include "SecurityChooser.h"
#include "SymbolIndexes.h"
#include "VorSearchBox.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QtTest>

using namespace PlanCodes;

/// The window in which a security is found, by real keys and clicks.
class SecurityChooserTest : public ClientWindowTest {
    Q_OBJECT

private:
    SecurityChooser* chooser() const { return dialog().findChild<SecurityChooser*>(); }
    QLineEdit& line() const { return *field<QLineEdit>(*chooser(), "chooserText"); }
    RowView& view() const { return *field<RowView>(*chooser(), "chooserRows"); }
    QString note() const { return field<QLabel>(*chooser(), "chooserNote")->text(); }
    VorSearchBox& box() const { return *field<VorSearchBox>(*dialogEditor(), "le_symbol"); }
    QStringList symbols() const
    {
        QStringList all;
        for (const AdvisorRow& row : view().rows())
            all << row.key;
        return all;
    }
    QString heldOf(const QString& symbol) const
    {
        for (const AdvisorRow& row : view().rows()) {
            if (row.key == symbol)
                return row.cells.value(2);
        }
        return {};
    }
    static QString nameOf(const QString& symbol) { return ClientSession::instance().market().find(symbol)->name; }

    /// Opens the editor for a new plan of an instruction type, and the window by F4, with what the account holds.
    void openChooser(const QString& type = InstructionType::Ordinary)
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        SymbolIndexes::instance().waitForFinished();
        FormDriver driver = dialogDriver();
        driver.choose("combx_fundAccount", FreeAccount);
        driver.choose("combx_instructionType", type);
        reopenChooser();
    }
    void reopenChooser()
    {
        QVERIFY(press(&box(), Qt::Key_F4));
        QVERIFY(chooser());
        QVERIFY(takeKeyboard(chooser()));
        SymbolIndexes::ofInitials().waitForFinished();
        QVERIFY(QTest::qWaitFor([this] { return !symbols().isEmpty(); }));
    }
    void type(const QString& text)
    {
        line().clear();
        for (const QChar character : text) {
            if (character.unicode() < 0x80)
                QTest::keyClick(&line(), character.toLatin1());
            else {
                QInputMethodEvent event;
                event.setCommitString(character);
                QApplication::sendEvent(&line(), &event);
            }
        }
        QCoreApplication::processEvents();
    }

private Q_SLOTS:
    void holdingsComeFirst()
    {
        openChooser();
        // Before the first character, only what is held.
        const QStringList held = symbols();
        QVERIFY(held.contains(share()));
        QCOMPARE(heldOf(share()), QStringLiteral("200,000"));
        for (const QString& symbol : held)
            QVERIFY2(!heldOf(symbol).isEmpty(), qPrintable(symbol));
        type(QStringLiteral("6"));
        const QStringList found = symbols();
        QVERIFY(found.size() > 10);
        QVERIFY(found.size() <= 50);
        bool isHeld = true;
        for (const QString& symbol : found) {
            QVERIFY2(symbol.startsWith(QLatin1Char('6')), qPrintable(symbol));
            QVERIFY2(isHeld || heldOf(symbol).isEmpty(), qPrintable(symbol));
            isHeld = !heldOf(symbol).isEmpty();
        }
        QVERIFY(found.indexOf(share()) < found.size() - 1);
    }

    void aSecurityIsFoundByCodeNameAndInitials()
    {
        openChooser();
        const QString wanted = share();
        const QString initials = PinyinInitials::of(nameOf(wanted)).section(QLatin1Char(' '), 0, 0);
        QVERIFY(initials.size() >= 3);
        for (const QString& text : { wanted.left(3), wanted, nameOf(wanted), nameOf(wanted).mid(1, 2), initials,
                 initials.toLower(), initials.mid(1) }) {
            type(text);
            QVERIFY2(symbols().contains(wanted), qPrintable(text));
        }
        type(QStringLiteral("龘"));
        QCOMPARE(symbols(), QStringList());
        QCOMPARE(note(), QStringLiteral("没有匹配的证券"));
    }

    void aSecurityThatIsNotHeldIsFoundByInitials()
    {
        openChooser();
        type(QStringLiteral("6"));
        const QString wanted = symbols().constLast();
        QCOMPARE(heldOf(wanted), QString());
        type(PinyinInitials::of(nameOf(wanted)).section(QLatin1Char(' '), 0, 0));
        QVERIFY(symbols().contains(wanted));
    }

    // One of each kind and market.
    void importsTakeTheSecuritiesOfTheForm_data()
    {
        QTest::addColumn<QString>("account");
        QTest::addColumn<QString>("type");
        QTest::addColumn<bool>("byAmount");
        QTest::newRow("ordinary") << FreeAccount << QString(InstructionType::Ordinary) << false;
        QTest::newRow("ordinary by amount") << ReviewedAccount << QString(InstructionType::Ordinary) << true;
        QTest::newRow("credit") << CreditAccount << QString(InstructionType::Credit) << false;
        QTest::newRow("credit by amount") << CreditAccount << QString(InstructionType::Credit) << true;
        QTest::newRow("bond") << FreeAccount << QString(InstructionType::Bond) << false;
        QTest::newRow("bond by amount") << ReviewedAccount << QString(InstructionType::Bond) << true;
        QTest::newRow("Hong Kong") << FreeAccount << QString(InstructionType::HkConnect) << false;
    }

    void importsTakeTheSecuritiesOfTheForm()
    {
        QFETCH(const QString, account);
        QFETCH(const QString, type);
        QFETCH(const bool, byAmount);
        openWindow();
        pressForEditor(Qt::Key_N);
        SymbolIndexes::instance().waitForFinished();
        FormDriver driver = dialogDriver();
        driver.choose("combx_fundAccount", account);
        driver.choose("combx_instructionType", type);
        driver.choose("combx_instructionTargetType",
            byAmount ? InstructionTargetType::AmountOrder : InstructionTargetType::QtyOrder);
        QCOMPARE(driver.takeProblems(), QStringList());
        QVERIFY(press(&box(), Qt::Key_F4));
        const Market& market = ClientSession::instance().market();
        QSet<QString> kinds;
        for (const QString& symbol : market.symbols().toStringList()) {
            const Security& security = *market.find(symbol);
            const QString kind = security.type + security.subType + symbol.section(QLatin1Char('.'), 1);
            if (kinds.contains(kind))
                continue;
            kinds << kind;
            line().setText(symbol);
            QCOMPARE(symbols().contains(symbol), OfferedSecurities::contains(security, type, byAmount));
        }
        QVERIFY(kinds.size() > 10);
    }

    void enterFillsTheMarkedOneIn()
    {
        openChooser();
        type(QStringLiteral("6"));
        const QString second = symbols().at(1);
        QTest::keyClick(&line(), Qt::Key_Down);
        QTest::keyClick(&line(), Qt::Key_Return);
        QCoreApplication::processEvents();
        QCOMPARE(box().getSymbol(), second);
        QCOMPARE(field<QLabel>(*dialogEditor(), "la_symbolName")->text(), nameOf(second));
        QVERIFY(!chooser() || !chooser()->isVisible());
    }

    void aClickFillsIn()
    {
        openChooser();
        type(share());
        const QModelIndex index = view().model()->index(0, 0);
        QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, view().visualRect(index).center());
        QCOMPARE(box().getSymbol(), share());
    }

    void escapeChangesNothing()
    {
        openChooser();
        QTest::keyClick(&line(), Qt::Key_Escape);
        QCoreApplication::processEvents();
        QCOMPARE(box().getSymbol(), QString());
        QVERIFY(dialog().isVisible());
    }

    void onlyTheFormsMarketIsOffered()
    {
        openChooser(InstructionType::HkConnect);
        const QString suffix = QStringLiteral(".HK");
        for (const char* const text : { "", "0", "6", "1" }) {
            type(QLatin1String(text));
            for (const QString& symbol : symbols())
                QVERIFY2(symbol.endsWith(suffix), qPrintable(symbol));
        }
    }

    void theBoxStillNeedsSixCharacters()
    {
        openChooser();
        QTest::keyClick(&line(), Qt::Key_Escape);
        box().setFocus();
        QTest::keyClicks(&box(), share().left(5));
        QVERIFY(!box().findChild<QWidget*>(QStringLiteral("suggestions"))->isVisible());
        // What was typed is taken over.
        reopenChooser();
        QCOMPARE(line().text(), share().left(5));
        QVERIFY(symbols().contains(share()));
    }

    void aLockedSecurityCannotBeChosen()
    {
        const QString id = session().create(SampleSession::record());
        openWindow();
        window().selectPlan(id);
        pressForEditor(Qt::Key_E);
        QVERIFY(press(field<QWidget>(*dialogEditor(), "le_remark"), Qt::Key_F4));
        QVERIFY(!chooser());
    }

    void withoutAnAccountThereIsNothingToChoose()
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        QVERIFY(press(&box(), Qt::Key_F4));
        QCOMPARE(note(), QStringLiteral("请先选择账户和指令类型"));
    }

    void aFailedReadShowsItsReason()
    {
        // The session has no file of its own.
        if (TestDatabase::isOnServer())
            return;
        openWindow();
        pressForEditor(Qt::Key_N);
        SymbolIndexes::instance().waitForFinished();
        FormDriver driver = dialogDriver();
        driver.choose("combx_fundAccount", FreeAccount);
        driver.choose("combx_instructionType", InstructionType::Ordinary);
        QVERIFY(QTest::qWaitFor([this] { return dialog().advisor()->isSettled(); }));
        // The window also notices it, once a second.
        log().allowWarning(QStringLiteral("PlanEvents::report"));
        QVERIFY(QFile::rename(session().file(), session().file() + QStringLiteral(".gone")));
        QVERIFY(press(&box(), Qt::Key_F4));
        QVERIFY(QTest::qWaitFor([this] { return note().startsWith(QStringLiteral("持仓读取失败：")); }));
        QVERIFY(QFile::rename(session().file() + QStringLiteral(".gone"), session().file()));
        type(share());
        QCOMPARE(symbols(), QStringList{ share() });
    }
};

QTEST_MAIN(SecurityChooserTest)
#include "tst_security_chooser.moc"
