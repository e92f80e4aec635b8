#pragma once

#include "SymbolList.h"
#include <QLineEdit>
#include <memory>

/// The box in which a security is searched by code or name and chosen from at most 50 matches.
class VorSearchBox : public QLineEdit {
    Q_OBJECT

public:
    explicit VorSearchBox(QWidget* parent = nullptr); ///< without securities
    ~VorSearchBox() override;

    /// The securities to choose from; replaces the earlier list and leaves the chosen security as it is.
    void setSecurityList(const SymbolList& symbols);
    /// 0: by code; 1: by code and by name.
    void setSearchMode(int mode);
    /// Characters to be typed before anything matches.
    void setMinMatchLength(int length);
    /// Chooses a security without a search, also one that the list does not hold; an empty text chooses none.
    /// Announces a change like a choice by the trader.
    void setSymbol(const QString& symbol);
    /// Symbol of the chosen security; empty when none is, also while the trader is typing another.
    QString getSymbol() const;

Q_SIGNALS:
    /// Another security is chosen, or none any more.
    void selectStockCodeChange(const QString& symbol);
    /// Its Chinese name; follows `selectStockCodeChange`.
    void selectStockNameChange(const QString& name);

private:
    class Private;
    std::unique_ptr<Private> d;
};
