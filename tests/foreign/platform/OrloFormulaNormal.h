#pragma once

#include <QLineEdit>

class OrloFormulaNormal : public QLineEdit {
public:
    using QLineEdit::QLineEdit;
    void setMode(int) { }
    void SetFunctionItems(const QStringList&) { }
    void SetFormulaItems(const QStringList& items) { setPlaceholderText(items.join(QLatin1Char(' '))); }
};
