#pragma once

#include <QSet>
#include <QString>
#include <QVariant>

#include <optional>

/// How texts are stored.
namespace StoredTexts {

/// Whether a database returns the text as it was stored.
bool isStorable(const QString& text);

/// Texts by key as a JSON object in a column, without some keys.
QString toJson(const QVariantMap& texts, const QSet<QString>& without = {});
/// Absent unless it is a JSON object of texts.
std::optional<QVariantMap> fromJson(const QString& json);

} // namespace StoredTexts
