#pragma once

#include "SymbolList.h"

#include <QLineEdit>

#include <memory>

/// Search field for securities. The trader types a code or a name and chooses from at most 50 matches.
class VorSearchBox : public QLineEdit {
    Q_OBJECT

public:
    explicit VorSearchBox(QWidget* parent = nullptr); ///< constructs a field without securities
    ~VorSearchBox() override;

    /// Sets the securities to choose from. Replaces the previous list and keeps the chosen security.
    void setSecurityList(const SymbolList& symbols);
    /// Sets the search mode: 0 for codes, 1 for codes and names.
    void setSearchMode(int mode);
    /// Sets the number of characters that must be typed before the search starts.
    void setMinMatchLength(int length);
    /// Chooses a security without a search. The security need not be in the list; an empty text clears the choice. A
    /// change emits the same signals as a choice by the trader.
    void setSymbol(const QString& symbol);
    /// Returns the symbol of the chosen security; empty if no security is chosen or the trader is typing.
    QString getSymbol() const;

Q_SIGNALS:
    /// Emitted when the chosen security changes or is cleared.
    void selectStockCodeChange(const QString& symbol);
    /// Emitted after `selectStockCodeChange`, with the Chinese name of the security.
    void selectStockNameChange(const QString& name);

private:
    class Private;
    std::unique_ptr<Private> d;
};
