#pragma once

#include <QColor>
#include <QHash>
#include <QString>
#include <QStringList>

/// The declarations of a style sheet by selector. Sufficient for the skins: one value for each property.
class SkinSheet {
public:
    explicit SkinSheet(const QString& sheet);

    /// The selectors, each once.
    QStringList selectors() const { return m_rules.keys(); }
    /// True when the rules of a selector declare a property.
    bool declares(const QString& selector, const QString& property) const;
    /// The colour of a property in the last of the selectors that declares it; invalid if none does.
    QColor colour(const QStringList& selectors, const QString& property) const;

private:
    void add(const QString& selectors, const QString& body);

    QHash<QString, QHash<QString, QString>> m_rules;
};

/// How much two colours differ in lightness, from 1 to 21, as WCAG defines it. A translucent ink lets the ground
/// through.
double contrast(const QColor& ink, const QColor& ground);
