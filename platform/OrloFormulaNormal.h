#pragma once

#include "OrloFormulaPrompter.h"

#include <QLineEdit>

/// A line edit for a price formula.
class OrloFormulaNormal : public QLineEdit, public OrloFormulaPrompter {
    Q_OBJECT

public:
    explicit OrloFormulaNormal(QWidget* parent = nullptr); ///< constructs an input that is its own prompter
    ~OrloFormulaNormal() override;
};
