#pragma once

#include "SymbolList.h"
#include <QLineEdit>

/// Takes a security that is typed whole, when Enter is pressed.
class VorSearchBox : public QLineEdit {
    Q_OBJECT

public:
    explicit VorSearchBox(QWidget* parent);
    void setSecurityList(const SymbolList& symbols) { m_symbols = symbols; }
    void setSearchMode(int) { }
    void setMinMatchLength(int) { }
    void setSymbol(const QString& symbol);
    QString getSymbol() const { return m_symbol; }

signals:
    void selectStockCodeChange(const QString& symbol);
    void selectStockNameChange(const QString& name);

private:
    SymbolList m_symbols;
    QString m_symbol;
};
