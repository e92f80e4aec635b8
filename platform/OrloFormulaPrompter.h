#pragma once

#include <QLineEdit>
#include <QStringList>
#include <memory>

/// What makes a line edit a formula input: it offers names and functions at the cursor.
class OrloFormulaPrompter {
public:
    /// Prompts in `edit`, which must outlive the prompter.
    explicit OrloFormulaPrompter(QLineEdit* edit);
    virtual ~OrloFormulaPrompter();

    /// 0: offers nothing by itself; 1: offers at the cursor while the trader types.
    void setMode(int mode);
    /// The functions to offer, each as it is written without arguments ("max(,)"); replaces the earlier list.
    void SetFunctionItems(const QStringList& functions);
    /// The names to offer, in this order; replaces the earlier list and leaves the text as it is.
    void SetFormulaItems(const QStringList& items);

    QStringList FunctionItems() const; ///< the functions on offer
    QStringList FormulaItems() const;  ///< the names on offer, in their order

private:
    class Private;
    std::unique_ptr<Private> d;
};
