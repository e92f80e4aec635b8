#pragma once

#include "AlgoErrorCode.h"
#include "World.h"

#include <QPoint>
#include <QWidget>

/// One call of the scripted platform.
struct ScriptCall {
    QString operation; ///< `hasOrderAuthority`, `combx_fundAccount.setSearchEnabled`
    QVariantList arguments;

    /// `hasOrderAuthority(acc1, 1)`: an empty text is written `""`, a list `[a, b]`, a map `{key: value}`.
    QString text() const;
};

/// One message box that was shown.
struct ScriptBox {
    QString kind; ///< "warning", "error", "tip" or "question"
    QString text;
    QWidget* parent = nullptr; ///< for comparison only: it may be deleted
};

/// The answers of the scripted platform, and a record of its calls. Call `reset()` between test functions.
class Script : public World {
public:
    static Script& instance();

    /// Goes back to an empty world and an empty record.
    void reset();
    /// The same with another world.
    void reset(const World& world);

    // --- The record

    /// Every call of a service and every changing operation of a platform widget, in order. Operations of two services
    /// with the same name include their class: `CBusinessDataBase::GetSecuritySubTypeBySymbol(s)`.
    QStringList calls;
    /// The same calls, typed.
    QList<ScriptCall> typedCalls;
    /// The calls, and between them the changes of the form: `combx_planType.clear()`, `combx_planType.append(减持,
    /// JC-01)`, `combx_planType announces 减持`, and, while `watch` is on, `la_remark.hide()`, `la_remark.show()`,
    /// `le_remark.setEnabled(false)`.
    QStringList steps;
    /// Whether `steps` includes shown, hidden, enabled and disabled widgets.
    void watch(bool on);
    /// Clears calls, steps and boxes; keeps the answers and the sent records.
    void forget();

    /// The calls of one operation.
    QStringList callsOf(const QString& operation) const;
    int countOf(const QString& operation) const;

    QList<FieldMap> createdRecords;
    QList<FieldMap> modifiedRecords;

    // --- The algorithm panel

    AlgoErrorCode panelBaseDataAnswer = AlgoErrorCode::Ok;
    QString panelStrategy;       ///< cleared by the panel's `ClearParams`
    FieldMap panelParams;        ///< cleared by the panel's `ClearParams`
    bool panelHasParams = false; ///< cleared by the panel's `ClearParams`
    FieldMap panelBaseData;      ///< as last set
    QPoint widgetPos;
    bool datesHaveCaptions = false; ///< each new date field contains a caption and an input

    // --- Boxes

    QList<ScriptBox> boxes;
    int questionAnswer = 1;                   ///< used when no answer is queued
    QList<int> questionAnswers;               ///< used one by one
    std::function<void()> whileBoxOpen;       ///< runs once, while the next message box is open
    std::function<void()> whileAgreementOpen; ///< runs once, while the agreement dialog is open
    /// Runs after each recorded call.
    std::function<void(const ScriptCall& call)> onCall;

    // --- For the implementation of the platform

    /// Records a call.
    void record(const QString& operation, const QVariantList& arguments);
    /// Appends a change of the form to `steps`.
    void step(const QString& text);

private:
    Script() = default;
};

/// A value in the format of `ScriptCall::text()`.
QString readable(const QVariant& value);
