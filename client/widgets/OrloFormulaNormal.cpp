#include "OrloFormulaNormal.h"

OrloFormulaNormal::OrloFormulaNormal(QWidget* parent)
    : QLineEdit(parent)
    , OrloFormulaPrompter(static_cast<QLineEdit*>(this))
{
}

OrloFormulaNormal::~OrloFormulaNormal() = default;
