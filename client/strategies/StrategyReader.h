#pragma once

#include "StrategyChecks.h"

#include <QMap>
#include <QSet>
#include <QStringList>
#include <QXmlStreamReader>

#include <functional>

/// The XML namespaces of parameters, controls and rules.
namespace StrategyVocabulary {
inline const QString Core = QStringLiteral("http://www.fixprotocol.org/FIXatdl-1-1/Core");
inline const QString Layout = QStringLiteral("http://www.fixprotocol.org/FIXatdl-1-1/Layout");
inline const QString Validation = QStringLiteral("http://www.fixprotocol.org/FIXatdl-1-1/Validation");
} // namespace StrategyVocabulary

/// Reads one strategy file from beginning to end. Every read operation is called on the start tag of its element and
/// leaves the reader on the end tag, or in error.
class StrategyReader {
public:
    /// `bytes` must have passed `StrategyMarkup::check`.
    StrategyReader(const QByteArray& bytes, const QString& name);

    Result<QList<StrategyDefinition>> read();

private:
    /// Names of child elements, with the functions that read them; "lay:" and "val:" mark the namespaces of controls
    /// and rules.
    using Children = QMap<QString, std::function<void()>>;

    void readRoot();
    void checkEncoding();
    void readNamespaces();
    void readStrategies();
    void readStrategy();
    void readDescription(QString& description);
    void readParameter(StrategyDefinition& strategy);
    void readParameterKind(StrategyParameter& parameter, const QXmlStreamAttributes& attributes);
    void readParameterText(StrategyParameter& parameter, const QXmlStreamAttributes& attributes);
    void readEnumPair(StrategyParameter& parameter);
    void readLayout(StrategyDefinition& strategy);
    void readPanel(StrategyDefinition& strategy, const QString& section, int depth);
    void readControl(StrategyDefinition& strategy, const QString& section);
    void readControlKind(StrategyControl& control, const QXmlStreamAttributes& attributes);
    void readListItem(StrategyControl& control);
    void readRule(StrategyDefinition& strategy);
    void readEdit(StrategyRule& rule, int& edits);
    void readComparison(StrategyRule& rule, const QXmlStreamAttributes& attributes);
    void finishStrategy(StrategyDefinition& strategy);

    /// The element's name as in `Children`; empty for an unknown namespace.
    QString elementKey() const;
    void readChildren(const Children& children);
    void readChild(const Children& children);
    void refuseOther();

    /// The attributes of the current element. Fails if one is not in `known`, or if one of `needed` is missing or
    /// empty.
    QXmlStreamAttributes attributes(const QStringList& known, const QStringList& needed = {});
    bool isKnown(const QXmlStreamAttribute& attribute, const QStringList& known);
    void refuseForeign(
        const QXmlStreamAttributes& attributes, const QString& type, bool allowed, const QStringList& names);
    QString typeName(const QXmlStreamAttributes& attributes, const QString& vocabulary);
    int number(const QXmlStreamAttributes& attributes, const QString& name, int lowest, int highest, int absent);
    bool flag(const QXmlStreamAttributes& attributes, const QString& name, bool absent);
    QString identifier(const QXmlStreamAttributes& attributes, const QString& name);
    void requireValue(const QXmlStreamAttributes& attributes, const QString& name, const QString& only);
    /// Returns false and fails with `error` if the list is full.
    template <typename List> bool hasRoom(const List& list, Error error)
    {
        if (list.size() < StrategyLimits::MaxCount)
            return true;
        fail({ error, { QString::number(StrategyLimits::MaxCount) } });
        return false;
    }

    /// Stops reading with the first error, by default at the current line of the file.
    void fail(const Status& error) { fail(error, m_xml.lineNumber()); }
    void fail(const Status& error, qint64 line) { stop(StrategyChecks::errorAt(line, error)); }
    void stop(const Status& error);
    Error parserError() const;

    QXmlStreamReader m_xml;
    QString m_name;
    QMap<QString, QString> m_prefixes; ///< prefix to namespace, as declared on the root
    QSet<QString> m_strategyNames;
    QList<StrategyDefinition> m_strategies;
    Status m_status;
};
