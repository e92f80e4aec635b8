#pragma once

#include "StrategyElement.h"
#include "StrategyRemarks.h"

#include <QStringList>
#include <QVarLengthArray>

#include <optional>

/// Reads the attributes of one element. What is wrong with them goes to the remarks: a value that cannot be used
/// refuses the strategy, a harmless departure from the standard is a warning.
class ElementReader {
public:
    ElementReader(const StrategyElement& element, StrategyRemarks& remarks);

    const StrategyElement& element() const { return m_element; }
    qint64 line() const { return m_element.line; }

    bool has(const char* name) const;
    /// The text of an attribute; empty if it is absent.
    QString text(const char* name);
    /// The text of an attribute without which the element makes no sense.
    QString required(const char* name);
    /// The text of an attribute that the standard requires; a warning if it is absent.
    QString expected(const char* name);
    /// The text of a required attribute that names something. Signs that the standard does not allow in names are a
    /// warning.
    QString name(const char* name);
    /// Checks a name of a reference.
    QString checkedName(const char* attribute, const QString& value);
    int number(const char* name, int lowest, int highest, int absent);
    bool flag(const char* name, bool absent);
    std::optional<bool> optionalFlag(const char* name);
    /// The position of the value among `allowed`; `absent` without the attribute.
    int choice(const char* name, const QStringList& allowed, int absent);
    /// Warns of an attribute that the standard has for other kinds of the element, and ignores it.
    void ignoreOfOtherType(const char* name);
    /// Refuses an attribute that the standard has for other kinds of the element.
    void refuseOfOtherType(const char* name);
    /// Refuses the attributes that were not read. Call it last.
    void finish() { finish(m_remarks); }
    void finish(StrategyRemarks& remarks) const;

    void refuse(const Status& error) { m_remarks.refuse(line(), error); }
    void warn(const Status& error) { m_remarks.warn(line(), error); }
    void hinder(const Status& error) { m_remarks.hinder(line(), error); }

private:
    const QString* find(const char* name) const;
    bool isKnown(const char* name) const;
    bool hasValue(const char* name);

    const StrategyElement& m_element;
    StrategyRemarks& m_remarks;
    QVarLengthArray<QLatin1String, 32> m_known;
};

/// Checks of elements in others.
namespace ElementContents {

/// Refuses an element that is not allowed in its parent.
void refuseChild(const StrategyElement& child, StrategyRemarks& remarks);
/// Warns if an allowed child has the namespace of others or comes after elements that it should precede. `order` are
/// the children of the parent in the order of the standard.
void checkPlaces(const StrategyElement& parent, const QStringList& order, StrategyRemarks& remarks);
/// Refuses text between the elements.
void refuseText(const StrategyElement& element, StrategyRemarks& remarks);
/// The text of a description or a help text.
QString textOf(const StrategyElement& element, StrategyRemarks& remarks);

} // namespace ElementContents
