#include "Algo_Fields.h"
#include "EditorTest.h"
#include "Kelvo_Values.h"
#include "OrloDecimalLineEdit.h"
#include "OrloFormulaNormal.h"
#include "Orlo_Values.h"
#include "PlanVocabulary.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLayout>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTemporaryDir>
#include <QTranslator>
#include <QXmlStreamReader>
#include <QtTest>

#include <functional>
#include <memory>

using Change = std::function<void()>;

Q_DECLARE_METATYPE(Change)

namespace {

constexpr QSize FormSize(517, 710);
constexpr int CaptionWidth = 98;

QString words(const char* text)
{
    return QString::fromUtf8(text);
}

/// One text of a translation file.
struct Entry {
    QString context;
    QString source;
    QString translation;
    QString state; ///< empty when finished
};

Entry readEntry(QXmlStreamReader& xml, const QString& context)
{
    Entry entry;
    entry.context = context;
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("source")) {
            entry.source = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            entry.state = xml.attributes().value(QLatin1String("type")).toString();
            entry.translation = xml.readElementText();
        } else {
            xml.skipCurrentElement();
        }
    }
    return entry;
}

QList<Entry> readEntries(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The translation cannot be read: %s", qPrintable(path));
    QXmlStreamReader xml(&file);
    QList<Entry> entries;
    QString context;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("name"))
            context = xml.readElementText();
        else if (xml.name() == QLatin1String("message"))
            entries.append(readEntry(xml, context));
    }
    return entries;
}

/// "context: source" of each text, sorted.
QStringList sourcesOf(const QList<Entry>& entries)
{
    QStringList sources;
    for (const Entry& entry : entries)
        sources.append(entry.context + QStringLiteral(": ") + entry.source);
    sources.sort();
    return sources;
}

QStringList placeholdersOf(const QString& text)
{
    QStringList found;
    auto match = QRegularExpression(QStringLiteral("%\\d")).globalMatch(text);
    while (match.hasNext())
        found.append(match.next().captured());
    found.sort();
    return found;
}

/// The codes of every box of the form in order; the current one is marked.
QStringList codesOfBoxes(const AutoParamSetting& editor)
{
    QStringList found;
    const QList<QComboBox*> boxes = editor.findChildren<QComboBox*>();
    for (const QComboBox* box : boxes)
        for (int i = 0; i < box->count(); ++i)
            found.append(QStringLiteral("%1: %2%3")
                             .arg(box->objectName(), box->itemData(i).toString(),
                                 i == box->currentIndex() ? QStringLiteral(" is current") : QString()));
    return found;
}

/// The result of opening a plan of a kind and sending it again.
struct Outcome {
    QStringList codes;
    QStringList kindsOfBoxes;
    QList<FieldMap> records;
};

/// Loads the English translation during its lifetime.
class English {
public:
    English()
    {
        if (!m_translator.load(words(COMPILED_TRANSLATION)) || !QCoreApplication::installTranslator(&m_translator))
            qFatal("The translation cannot be installed");
    }

    ~English() { QCoreApplication::removeTranslator(&m_translator); }

    Q_DISABLE_COPY(English)

private:
    QTranslator m_translator;
};

/// The width that a text needs.
int widthOf(const QWidget& widget, const QString& text)
{
    return widget.fontMetrics().horizontalAdvance(text);
}

int roomOf(const QComboBox& box)
{
    QStyleOptionComboBox option;
    option.initFrom(&box);
    return box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box).width();
}

} // namespace

/// The editor in English: its messages, its records, loading, and the translation file.
class TranslationTest : public EditorTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QApplication::setFont(QFont(QStringLiteral("Sans Serif"), 9)); // the client's own
    }

    // --- The file

    void theFileHoldsEveryTextOfTheEditorAndNoOther()
    {
        const QTemporaryDir folder;
        const QString fresh = folder.filePath(QStringLiteral("fresh.ts"));
        QProcess lupdate;
        lupdate.start(
            words(LUPDATE_PROGRAM), { QStringLiteral("-silent"), words(EDITOR_FOLDER), QStringLiteral("-ts"), fresh });
        QVERIFY(lupdate.waitForFinished());
        QCOMPARE(lupdate.exitCode(), 0);
        QVERIFY(readEntries(fresh).size() > 70);
        QCOMPARE(sourcesOf(readEntries(words(TRANSLATION_FILE))), sourcesOf(readEntries(fresh)));
    }

    void everyTextIsTranslated()
    {
        const QList<Entry> entries = readEntries(words(TRANSLATION_FILE));
        const QRegularExpression chinese(QStringLiteral("[\\x{3000}-\\x{9fff}\\x{ff00}-\\x{ffef}]"));
        for (const Entry& entry : entries) {
            QVERIFY2(entry.state.isEmpty(), qPrintable(entry.source + QStringLiteral(" is ") + entry.state));
            QVERIFY2(!entry.translation.isEmpty(), qPrintable(entry.source));
            QVERIFY2(!entry.translation.contains(chinese), qPrintable(entry.translation));
        }
    }

    void noPlaceholderIsLost()
    {
        const QList<Entry> entries = readEntries(words(TRANSLATION_FILE));
        for (const Entry& entry : entries)
            QVERIFY2(placeholdersOf(entry.translation) == placeholdersOf(entry.source), qPrintable(entry.translation));
    }

    // --- The form

    // A trader distinguishes items by their texts.
    void textsOfOneBoxStayDifferent_data()
    {
        QTest::addColumn<QString>("instructionType");
        QTest::newRow("ordinary") << AutoPlanInstructionType::Ordinary;
        QTest::newRow("Hong Kong connect") << AutoPlanInstructionType::HkConnect;
    }

    void textsOfOneBoxStayDifferent()
    {
        QFETCH(QString, instructionType);
        const English english;
        openFilledWith(PlanSample::ofType(instructionType).withMode(AutoPlanInstMode::AlgoTradeReview));
        for (const char* const name : { "combx_planType", "combx_tradeSide", "combx_priceType", "combx_priceMode",
                 "combx_instructionMode", "combx_reduceHMode" }) {
            QStringList items = texts(editor(), name);
            QVERIFY2(!items.isEmpty(), name);
            QCOMPARE(items.removeDuplicates(), 0);
        }
    }

    void theFormIsEnglish()
    {
        const English english;
        openFilledWith(PlanSample());
        const QRegularExpression chinese(QStringLiteral("[\\x{3000}-\\x{9fff}\\x{ff00}-\\x{ffef}]"));
        const QList<QLabel*> labels = editor().findChildren<QLabel*>();
        for (const QLabel* const label : labels)
            QVERIFY2(label->objectName() == QLatin1String("la_symbolName") || !label->text().contains(chinese),
                qPrintable(label->objectName()));
        const QList<QWidget*> widgets = editor().findChildren<QWidget*>();
        for (const QWidget* const widget : widgets)
            QVERIFY2(!(widget->accessibleName() + widget->accessibleDescription()).contains(chinese),
                qPrintable(widget->objectName()));
        QCOMPARE(field<QWidget>(editor(), "combx_fundAccount")->accessibleName(), QStringLiteral("Account name"));
        QCOMPARE(text(editor(), "lab_targetTotalNumUnit"), QStringLiteral("shares"));
        QCOMPARE(text(editor(), "btn_ok"), QStringLiteral("OK"));
        QCOMPARE(texts(editor(), "combx_tradeSide"), (QStringList{ QStringLiteral("Buy"), QStringLiteral("Sell") }));
        choose(editor(), "combx_planType", AutoPlanTemplate::ReduceHoldings);
        QCOMPARE(text(editor(), "la_assignTo"), QStringLiteral("Executor"));
    }

    // A user's name is stored as it is shown, and formulas are computed from the names in them.
    void whatIsStoredOrComputedStaysChinese()
    {
        const English english;
        openFilledWith(PlanSample());
        QCOMPARE(texts(editor(), "combx_assignTo").value(0), words("默认不指定"));
        QCOMPARE(field<OrloFormulaNormal>(editor(), "lineEdit_price1")->FormulaItems().first(), words("昨收价"));
    }

    // --- The rules

    void everyRuleIsTranslated_data()
    {
        QTest::addColumn<PlanSample>("plan");
        QTest::addColumn<bool>("edits");
        QTest::addColumn<Change>("breakPlan");
        QTest::addColumn<QString>("message");
        addRulesOfChoices();
        addRulesOfQuantities();
        addRulesOfPrices();
        addRulesOfReductions();
        addRulesOfAlgorithms();
        addRulesOfEdits();
        addQuestions();
    }

    void everyRuleIsTranslated()
    {
        QFETCH(PlanSample, plan);
        QFETCH(bool, edits);
        QFETCH(Change, breakPlan);
        QFETCH(QString, message);
        const English english;
        script().questionAnswer = 0;
        if (edits)
            edit(plan, QDate(2024, 5, 8));
        else
            openFilledWith(plan);
        breakPlan();
        press(editor(), "btn_ok");
        QCOMPARE(said(), QStringList{ message });
        QCOMPARE(sent(), 0);
    }

    void everyMessageIsAmongThem()
    {
        const QStringList others = { words("交易自动规划创建成功!"), words("交易计划%1修改成功!") };
        const QList<Entry> entries = readEntries(words(TRANSLATION_FILE));
        const QRegularExpression endOfSentence(QStringLiteral("[！!？。】]$"));
        int messages = 0;
        for (const Entry& entry : entries) {
            if (!entry.source.contains(endOfSentence) || others.contains(entry.source))
                continue;
            ++messages;
            QVERIFY2(m_toldSources.contains(entry.source), qPrintable(entry.source));
        }
        QVERIFY(messages > 20);
    }

    void outcomesAreReportedInEnglish()
    {
        const English english;
        openFilledWith(PlanSample());
        press(editor(), "btn_ok");
        edit(PlanSample(), QDate(2024, 5, 6));
        script().modifyAnswer = QStringLiteral("the service is asleep");
        press(editor(), "btn_ok");
        script().modifyAnswer.clear();
        press(editor(), "btn_ok");
        QCOMPARE(said(),
            (QStringList{ QStringLiteral("tip: The automatic trading plan was created!"),
                QStringLiteral("error: Trading plan P1 could not be modified. Reason: the service is asleep"),
                QStringLiteral("tip: Trading plan P1 was modified!") }));
    }

    // --- The record

    void whatIsOpenedAndSentIsTheSame_data()
    {
        QTest::addColumn<PlanKind>("kind");
        QTest::addColumn<bool>("edits");
        // Whether a plan has started depends on dates, which are not translated.
        const QList<PlanKind> kinds = PlanKind::all();
        for (const PlanKind& kind : kinds) {
            if (kind.started || kind.planType == AutoPlanTemplate::AverageQty)
                continue;
            QTest::newRow(qPrintable(QStringLiteral("edit of ") + kind.sentence())) << kind << true;
            QTest::newRow(qPrintable(QStringLiteral("copy of ") + kind.sentence())) << kind << false;
        }
    }

    void whatIsOpenedAndSentIsTheSame()
    {
        QFETCH(PlanKind, kind);
        QFETCH(bool, edits);
        const Outcome chinese = outcomeOf(kind, edits);
        const English english;
        const Outcome translated = outcomeOf(kind, edits);
        QCOMPARE(translated.codes, chinese.codes);
        QCOMPARE(translated.kindsOfBoxes, chinese.kindsOfBoxes);
        QCOMPARE(translated.records, chinese.records);
        QCOMPARE(translated.kindsOfBoxes.size(), 1);
        QCOMPARE(translated.records.size(), translated.kindsOfBoxes.first() == QLatin1String("tip") ? 1 : 0);
    }

    void anOpenEditorKeepsItsCaptions()
    {
        openSampleMarket();
        constructShown();
        auto english = std::make_unique<English>();
        QCoreApplication::processEvents();
        QCOMPARE(text(editor(), "la_tradeSide"), words("交易方向"));
        QCOMPARE(texts(editor(), "combx_priceMode").value(0), words("不限价"));
        constructShown();
        QCOMPARE(text(editor(), "la_tradeSide"), QStringLiteral("Side"));
        QCOMPARE(texts(editor(), "combx_priceMode").value(0), QStringLiteral("No limit"));
        english.reset();
        constructShown();
        QCOMPARE(text(editor(), "la_tradeSide"), words("交易方向"));
    }

    // --- The room

    void theCaptionsFit()
    {
        const QRegularExpression caption(QStringLiteral("^la_|^label"));
        const English english;
        openFilledWith(PlanSample());
        for (const QString& planType :
            { AutoPlanTemplate::CumulativeQty, AutoPlanTemplate::SameElements, AutoPlanTemplate::ReduceHoldings }) {
            choose(editor(), "combx_planType", planType);
            const QList<QLabel*> captions = editor().findChildren<QLabel*>(caption);
            QVERIFY(captions.size() > 20);
            for (const QLabel* const label : captions)
                QVERIFY2(label->objectName() == QLatin1String("la_symbolName")
                        || widthOf(*label, label->text()) <= CaptionWidth,
                    qPrintable(QStringLiteral("%1 takes %2").arg(label->text()).arg(widthOf(*label, label->text()))));
        }
    }

    void theItemsFit_data()
    {
        QTest::addColumn<PlanSample>("plan");
        PlanSample byFormula = PlanSample().withPriceMode(AutoPlanPriceModel::CompareMax);
        QTest::newRow("ordinary") << byFormula.withMode(AutoPlanInstMode::AlgoTradeReview);
        QTest::newRow("Hong Kong connect")
            << PlanSample::ofType(AutoPlanInstructionType::HkConnect).withMode(AutoPlanInstMode::AlgoTradeReview);
        QTest::newRow("a reduction") << PlanSample::reduction().withMode(AutoPlanInstMode::AlgoTradeReview);
    }

    void theItemsFit()
    {
        QFETCH(PlanSample, plan);
        const English english;
        openFilledWith(plan);
        host().layout()->setContentsMargins(0, 0, 0, 0);
        host().resize(FormSize);
        QCOMPARE(editor().width(), FormSize.width());
        const QList<QComboBox*> boxes = editor().findChildren<QComboBox*>();
        for (const QComboBox* const combo : boxes)
            for (int i = 0; combo->isVisible() && i < combo->count(); ++i)
                QVERIFY2(widthOf(*combo, combo->itemText(i)) <= roomOf(*combo), qPrintable(combo->itemText(i)));
    }

    void theButtonsFit()
    {
        const English english;
        openFilledWith(PlanSample().withMode(AutoPlanInstMode::AlgoTradeReview));
        const QList<QPushButton*> buttons = editor().findChildren<QPushButton*>();
        QCOMPARE(buttons.size(), 3);
        for (const QPushButton* const button : buttons)
            QVERIFY2(widthOf(*button, button->text()) < button->width(), qPrintable(button->text()));
    }

private:
    void row(const char* name, const char* source, const char* message, const PlanSample& plan, const Change& breakPlan,
        bool edits = false)
    {
        m_toldSources.append(words(source));
        QTest::newRow(name) << plan << edits << breakPlan << words(message);
    }

    /// A plan that began two days ago is edited.
    void edited(const char* name, const char* source, const char* message, PlanSample plan, const Change& breakPlan)
    {
        plan.begin = QDate(2024, 5, 6);
        row(name, source, message, plan, breakPlan, true);
    }

    void edit(const PlanSample& plan, const QDate& day)
    {
        openSampleMarket();
        storePlan(PlanId, plan);
        setToday(day);
        constructShown();
        editor().editPlan(PlanId);
    }

    Outcome outcomeOf(const PlanKind& kind, bool edits)
    {
        script().reset();
        setToday(QDate(2024, 5, 6));
        openSampleMarket();
        script().ruleProperty = kind.ruleProperty;
        keepWhatIsSent();
        storePlan(PlanId, kind.sample());
        constructShown();
        openPlan(PlanId, edits);
        Outcome outcome;
        outcome.codes = codesOfBoxes(editor());
        press(editor(), "btn_ok");
        for (const ScriptBox& shown : qAsConst(script().boxes))
            outcome.kindsOfBoxes.append(shown.kind);
        outcome.records = script().createdRecords + script().modifiedRecords;
        return outcome;
    }

    void addRulesOfChoices()
    {
        const PlanSample plan;
        row("no account", "未绑定资金帐号！", "warning: No fund account is bound!", plan,
            [this] { chooseNothing(editor(), "combx_fundAccount"); });
        row("no account for an algorithm", "未选择资金帐号！", "warning: No fund account is chosen!", plan, [this] {
            chooseNothing(editor(), "combx_fundAccount");
            press(editor(), "btn_algoParamSetting");
            field<QWidget>(editor(), "btn_ok")->setEnabled(false); // the other button covers it
        });
        row("no instruction type", "%1必填，请重新编辑！",
            "warning: Instruction is required. Please edit the plan again!", plan,
            [this] { chooseNothing(editor(), "combx_instructionType"); });
        row("no instruction mode", "%1必填，请重新编辑！",
            "warning: Order mode is required. Please edit the plan again!", plan,
            [this] { chooseNothing(editor(), "combx_instructionMode"); });
        row("no security", "未输入代码！", "warning: No security code is entered!", plan,
            [this] { chooseSecurity(editor(), QString()); });
    }

    void addRulesOfQuantities()
    {
        const PlanSample bond = PlanSample::ofType(AutoPlanInstructionType::Bond);
        row("no target", "未输入目标总量！", "warning: No target total is entered!", PlanSample(),
            [this] { field<OrloDecimalLineEdit>(editor(), "le_targetTotalNum")->clear(); });
        row("target in odd lots", "沪市债券目标总量需为%1的正整数倍，是否继续？",
            "warning: The target total of a Shanghai bond must be a positive multiple of 10. Continue?", bond,
            [this] { enter(editor(), "le_targetTotalNum", 1005); });
        row("no daily quantity", "未输入每日计划量!", "warning: No daily quantity is entered!",
            PlanSample().withPlanType(AutoPlanTemplate::SameElements),
            [this] { enter(editor(), "le_entrustMaxNum", 0); });
        row("daily maximum in odd lots", "沪市债券%1需为%2的正整数倍，是否继续？",
            "warning: Shanghai bond: Daily max. must be a positive multiple of 10. Continue?", bond,
            [this] { enter(editor(), "le_entrustMaxNum", 305); });
    }

    void addRulesOfPrices()
    {
        const auto formula = [this](const char* input, const char* text) {
            return [=] { type(editor(), input, words(text)); };
        };
        row("no formula", "%1公式必填，请重新编辑！",
            "warning: The formula of Price is required. Please edit the plan again!", PlanSample(),
            formula("lineEdit_price1", ""));
        row("no first formula of two", "%1公式必填，请重新编辑！",
            "warning: The formula of Price 1 is required. Please edit the plan again!",
            PlanSample().withPriceMode(AutoPlanPriceModel::CompareMax), formula("lineEdit_price1", ""));
        row("special character", "%1公式包含特殊字符%2，请重新编辑！",
            "warning: The formula of Price contains the special character %1. Please edit the plan again!",
            PlanSample(), formula("lineEdit_price1", "x%1"));
        row("special character in the second formula", "%1公式包含特殊字符%2，请重新编辑！",
            "warning: The formula of Price 2 contains the special character ;. Please edit the plan again!",
            PlanSample().withPriceMode(AutoPlanPriceModel::CompareMin), formula("lineEdit_price2", "a;b"));
    }

    void addRulesOfReductions()
    {
        const PlanSample plan = PlanSample::reduction();
        row("unsigned disclosure", "当前账号未签署风险揭示，请关闭智能规划菜单后重新创建减持计划进行签署。",
            "warning: The risk disclosure is not signed for this account. Please close the planning menu, create the "
            "holdings-reduction plan again and sign it.",
            plan, [this] { script().unsignedClients = QStringList{ QStringLiteral("C-acc1") }; });
        row("no ratio", "未输入减持占比！", "warning: No sell ratio is entered!", plan,
            [this] { field<OrloDecimalLineEdit>(editor(), "le_reduceHRatio")->clear(); });
        row("no executor", "%1必填，请重新编辑！", "warning: Executor is required. Please edit the plan again!", plan,
            [this] { chooseNothing(editor(), "combx_assignTo"); });
    }

    void addRulesOfAlgorithms()
    {
        using namespace Algo_Fields::AlgoInstContentInfo;
        const PlanSample plan = PlanSample().withMode(AutoPlanInstMode::AlgoTradeReview);
        row("no algorithm parameters", "未设置算法参数！", "warning: No algorithm parameters are set!", plan,
            [this] { script().panelHasParams = false; });
        row("algorithm for another account", "算法参数中的交易账号与计划参数不一致！",
            "warning: The trading account of the algorithm parameters is not that of the plan!", plan,
            [this] { script().panelParams.insert(TradingAccount, QStringLiteral("another")); });
        row("algorithm for another side", "算法参数中的交易方向与计划参数不一致！",
            "warning: The side of the algorithm parameters is not that of the plan!", plan,
            [this] { script().panelParams.insert(OrderSide, QStringLiteral("neither")); });
        row("algorithm that needs a limit", "%1算法不支持不限价，请重新设置！",
            "warning: The algorithm Iceberg does not support trading without a price limit. Please set it again!", plan,
            [this] {
                script().strategyAliases.insert(QStringLiteral("ICEBERG2"), QStringLiteral("Iceberg"));
                script().panelStrategy = QStringLiteral("ICEBERG2");
                chooseSilently(editor(), "combx_priceMode", AutoPlanPriceModel::NoLimit);
            });
    }

    void addRulesOfEdits()
    {
        const auto range = [this](const QDate& day) { return [=] { pickRange(editor(), day, day); }; };
        edited("target below what is used", "目标数量不得小于该计划已成交和在下达总和，请重新输入！",
            "warning: The target must not be less than what this plan has filled and issued in total. Please enter it "
            "again!",
            PlanSample(), [this] {
                script().planInstructions =
                    QMap<QString, FieldMap>{ { QStringLiteral("I1"), { { AutoPlanFieldId::IssuedQty, 5000 } } } };
            });
        edited("another begin", "计划已开始执行，初始日期不支持修改！",
            "warning: The plan has started: its first date cannot be changed!", PlanSample(), range(QDate(2024, 5, 8)));
        edited("an end in the past", "计划已开始执行，结束日期不得早于当日！",
            "warning: The plan has started: its end must not be earlier than today!", PlanSample(),
            range(QDate(2024, 5, 6)));
    }

    void addQuestions()
    {
        PlanSample sale;
        sale.side = Kelvo_Values::OrderSide::sell;
        const Change noHoldings = [this] { script().positions = QList<FieldMap>(); };
        row("target off the step", "%1需等于【%2】的整数倍，是否继续？",
            "question: Target total should be a multiple of the lot [500]. Continue?",
            PlanSample::ofType(AutoPlanInstructionType::HkConnect),
            [this] { enter(editor(), "le_targetTotalNum", 1001); });
        row("holdings that do not cover a new sale",
            "当前账号【%1】的持仓可用小于目标总量，是否继续%2计划？继续请点击【确认】，否则点击【取消】",
            "question: The available holdings of account [F-acc1] are less than the target total. Continue creating "
            "the plan? Click [OK] to continue, otherwise [Cancel]",
            sale, noHoldings);
        edited("holdings that do not cover an edited sale", "修改",
            "question: The available holdings of account [F-acc1] are less than the target total. Continue modifying "
            "the plan? Click [OK] to continue, otherwise [Cancel]",
            sale, noHoldings);
        row("special treatment", "。是否继续创建？", "question: It is at risk. Continue creating the plan?",
            PlanSample(), [this] {
                chooseSilently(editor(), "combx_tradeSide", Orlo_Values::OrderSide::buy);
                script().securities[Stock].stFlag = QStringLiteral("ST");
                script().securities[Stock].stDescription = QStringLiteral("It is at risk");
            });
    }

    QStringList m_toldSources; ///< the Chinese texts of the rules' rows
};

QTEST_MAIN(TranslationTest)
#include "tst_translation.moc"
