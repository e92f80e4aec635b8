#pragma once

#include "FormState.h"
#include "Script.h"

namespace model {

/// The effects of an action outside the form.
struct Effects {
    QStringList boxes;   ///< message boxes in order, "warning: …"
    QStringList outward; ///< the calls of the services and the panel, in order
    QList<FieldMap> created;
    QList<FieldMap> modified;
    int closes = 0;       ///< number of requests to the host to close the editor
    QStringList warnings; ///< parts of the warning lines of the log
    bool panelShown = false;
};

/// The state of the algorithm panel.
struct PanelState {
    bool exists = false;
    bool hasParams = false;
    QString strategy;
    FieldMap params;
    FieldMap baseData; ///< as last set

    bool operator==(const PanelState& other) const;
};

/// The model of the editor: what it must show and do, computed step by step without widgets. Every operation is an
/// action of a trader, the host or a service; `effects` contains the effects of the last ones outside the form.
class EditorModel {
public:
    /// A new editor, constructed inside a visible window.
    explicit EditorModel(const World& world);

    FormState form;
    PanelState panel;
    Effects effects;
    bool shown = true;      ///< whether the host's window is visible
    QStringList securities; ///< offered in the search box

    // --- The trader; the field must be visible and enabled
    bool isUsable(Widget widget) const;
    void choose(Widget box, int index) { select(box, index); }
    void chooseSecurity(const QString& symbol) { setSymbol(symbol); }
    void type(Widget line, const QString& text) { setText(line, text); }
    void enter(Widget number, double value) { setNumber(number, value); }
    void empty(Widget number) { clearNumber(number); }
    void pickRange(const QDate& start, const QDate& end);
    void pickDate(const QDate& date) { form.single.date = date; }
    void pressAlgorithms();
    /// The trader confirms a strategy in the panel, with the panel's base data.
    void confirmPanel(const QString& strategy);
    /// `answers` to the questions, in their order; 0 declines.
    void pressOk(QList<int> answers);
    void pressCancel() { ++effects.closes; }

    // --- The host
    void editPlan(const QString& planId);
    void copyPlan(const QString& planId);
    void resetEnable();

    // --- The services
    void averagesArrive(const QString& symbol, const QStringList& names, const QString& failure);
    void strategiesArrive() { readAlgorithmLists(); }

    QString planId() const { return m_planId; }
    const QString& code(Widget box) const;

private:
    // Form
    WidgetState& widget(Widget which) { return form.widgets.at(static_cast<std::size_t>(which)); }
    const WidgetState& widget(Widget which) const { return form.widgets.at(static_cast<std::size_t>(which)); }
    BoxState& box(Widget which) { return form.boxes.at(static_cast<std::size_t>(which)); }
    const BoxState& box(Widget which) const { return form.boxes.at(static_cast<std::size_t>(which)); }
    NumberState& number(Widget which) { return form.numbers.at(static_cast<std::size_t>(which - TargetTotal)); }
    const NumberState& number(Widget which) const
    {
        return form.numbers.at(static_cast<std::size_t>(which - TargetTotal));
    }
    const QString& text(Widget which) const { return widget(which).text; }
    void show(std::initializer_list<Widget> which, bool on);
    void enable(std::initializer_list<Widget> which, bool on);
    void setText(Widget which, const QString& value);
    void setNumber(Widget which, double value);
    void clearNumber(Widget which);
    void setDecimals(Widget which, int decimals);
    bool isVisible(Widget which) const { return shown && widget(which).shown; }

    // Boxes
    void clearSilently(Widget which);
    void append(Widget which, const QString& itemText, const QString& itemCode);
    void select(Widget which, int index);
    void selectSilently(Widget which, int index);
    void selectCode(Widget which, const QString& itemCode);
    void announce(Widget which);
    QString account() const { return box(FundAccount).code(); }
    QString fundAccount() const { return box(FundAccount).text(); }
    bool isByAmount() const;
    bool isByQuantity() const;
    bool isReduction() const;

    // Construction
    void hideRows();
    void fillForNewPlan();
    void fillAccounts();
    bool isOffered(const ScriptAccount& candidate) const;

    // Filling
    void fillInstructionTypes();
    void fillTargetTypes();
    void fillPlanTypes();
    void fillSides();
    void fillEntrustTypes();
    void fillModes();
    void fillReviewModes();
    void fillPriceTypes(const QString& mode);
    void fillPriceModes(const QString& mode);
    void fillPrices(bool clearTexts);
    void fillAssignees();
    void fillSecurities();
    void fillPeriod();
    void layOut(bool forReduction);
    void setUnits();
    void setSteps(bool visible, const QString& step);
    void setSymbol(const QString& symbol);
    QStringList symbolsOf(const QString& type, const QStringList& subTypes, const QStringList& suffixes = {}) const;
    QStringList unsignedClients() const;
    QStringList priceNames() const;

    // Reactions
    void instructionTypeChanged();
    void targetTypeChanged();
    void planTypeChanged();
    void symbolChanged();
    void priceModeChanged();
    void modeChanged();
    void signAgreement(const QStringList& clients);
    void readAlgorithmLists();

    // The panel
    void createPanel(const QStringList& blackList);
    void reInitPanel();
    void handOver(const FieldMap& baseData);
    void loadStrategy(const QString& strategy, const FieldMap& params);
    FieldMap baseData() const;

    // Rules
    bool passesRules(QList<int>& answers);
    bool passesEntries();
    bool passesPrices();
    bool passesAlgorithm();
    bool passesEdit();
    bool passesStart();
    bool passesQuestions(QList<int>& answers);
    bool refuse(const QString& sentence);
    bool ask(const QString& question, QList<int>& answers);
    double spentOf(const FieldMap& instruction) const;
    double heldQuantity() const;

    // Record
    FieldMap record() const;
    void insertAssignee(FieldMap& record) const;
    void insertPeriod(FieldMap& record) const;
    FieldMap otherParam() const;
    QString storedQuantity(Widget which) const;
    void sendNew(const FieldMap& record);
    void sendChange(FieldMap record);
    void clearForm();

    // Loading
    void load(const FieldMap& record, const FieldMap& other);
    void loadChoices(const FieldMap& record, const FieldMap& other);
    void loadPriceType(const FieldMap& other);
    void loadPrices(const FieldMap& record, const QString& priceMode);
    void loadQuantities(const FieldMap& record, const FieldMap& other);
    void loadAlgorithm(const FieldMap& record, const FieldMap& other, const QString& entrustType);
    void loadAssignee(const FieldMap& record);
    void loadDates(const FieldMap& record);

    const World& m_world;
    bool m_connected = false;
    QMap<QString, ScriptAccount> m_accounts;
    QStringList m_white;
    QStringList m_black;
    QStringList m_averages;
    int m_startOffset = 0;
    QString m_planId;
};

/// The first forbidden character or sequence of a price formula; empty if there is none.
QString forbiddenPart(const QString& formula);
/// A call in the script's format.
QString call(const QString& operation, const QVariantList& arguments);
/// Truncates to a whole number, with a tolerance of one millionth.
qint64 wholeNumber(double value);

} // namespace model
