#pragma once

#include <QString>
#include <QStringList>

/// Texts from data that look like HTML.
namespace HostileTexts {

/// The start of a text that reads a file if it is shown as HTML.
inline const QString Tag = QStringLiteral("<img src=");

QString hostile(const QString& text);

/// Where texts with `Tag` are shown, and which of them as HTML.
struct Finding {
    QStringList places;
    QStringList rich;

    void add(const QString& place, const QString& text, bool isRich);
    /// As Qt decides it for tool tips and What's This texts, and for labels with an automatic format.
    void add(const QString& place, const QString& text);
};

/// Looks at labels, tips, and items of all widgets.
Finding lookAtWidgets();

} // namespace HostileTexts
