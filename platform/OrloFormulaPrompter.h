#pragma once

#include <QLineEdit>
#include <QStringList>

#include <memory>

/// Makes a line edit a formula input: offers names and functions at the cursor.
class OrloFormulaPrompter {
public:
    /// Constructs a prompter for `edit`, which must outlive it.
    explicit OrloFormulaPrompter(QLineEdit* edit);
    virtual ~OrloFormulaPrompter();

    /// Sets the mode: 0 disables prompting, 1 prompts while the trader types.
    void setMode(int mode);
    /// Sets the functions to offer, each written without arguments ("max(,)"). Replaces the previous list.
    void SetFunctionItems(const QStringList& functions);
    /// Sets the names to offer, in this order. Replaces the previous list and leaves the text unchanged.
    void SetFormulaItems(const QStringList& items);

    QStringList FunctionItems() const; ///< returns the offered functions
    QStringList FormulaItems() const;  ///< returns the offered names in their order

private:
    class Private;
    std::unique_ptr<Private> d;
};
