#pragma once

#include "StrategyFile.h"

#include <QBuffer>
#include <QString>

/// Texts of strategy files.
namespace StrategyTexts {

inline const QString FileName = QStringLiteral("test.xml");

/// A file with the content. The content begins on line 2.
inline QString root(const QString& content,
    const QString& attributes = QStringLiteral("strategyIdentifierTag=\"847\" tag957Support=\"true\""))
{
    return QStringLiteral("<Strategies xmlns=\"http://www.fixprotocol.org/FIXatdl-1-1/Core\""
                          " xmlns:lay=\"http://www.fixprotocol.org/FIXatdl-1-1/Layout\""
                          " xmlns:val=\"http://www.fixprotocol.org/FIXatdl-1-1/Validation\""
                          " xmlns:flow=\"http://www.fixprotocol.org/FIXatdl-1-1/Flow\""
                          " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" ")
        + attributes + QStringLiteral(">\n") + content + QStringLiteral("\n</Strategies>\n");
}

/// A file with one strategy. The content begins on line 3.
inline QString strategy(const QString& content, const QString& attributes = {})
{
    return root(QStringLiteral("<Strategy name=\"S\" version=\"1\" wireValue=\"s\" %1>\n").arg(attributes) + content
        + QStringLiteral("\n</Strategy>"));
}

/// A file with one strategy: line 3 contains the parameters, line 5 the controls, line 7 what follows the layout.
inline QString parts(const QString& parameters, const QString& controls, const QString& more = {})
{
    return strategy(parameters + QStringLiteral("\n<lay:StrategyLayout><lay:StrategyPanel orientation=\"VERTICAL\">\n")
        + controls + QStringLiteral("\n</lay:StrategyPanel></lay:StrategyLayout>\n") + more);
}

inline QString type(const char* name)
{
    return QStringLiteral("xsi:type=\"%1\"").arg(QLatin1String(name));
}

inline QString parameter(const QString& rest, const QString& children = {})
{
    return QStringLiteral("<Parameter name=\"P\" %1>%2</Parameter>").arg(rest, children);
}

inline QString control(const QString& rest, const QString& children = {})
{
    return QStringLiteral("<lay:Control ID=\"c\" parameterRef=\"P\" label=\"标签\" %1>%2</lay:Control>")
        .arg(rest, children);
}

inline StrategyFile read(const QByteArray& bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    return StrategyFile::read(buffer, FileName);
}

inline StrategyFile read(const QString& text)
{
    return read(text.toUtf8());
}

} // namespace StrategyTexts
