#pragma once

#include <QString>
#include <QVariant>

#include <optional>

/// Texts by key as a JSON object in a column.
namespace StoredTexts {

QString toJson(const QVariantMap& texts);
/// Absent unless it is a JSON object of texts.
std::optional<QVariantMap> fromJson(const QString& json);

} // namespace StoredTexts
