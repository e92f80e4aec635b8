#include "StoredTexts.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

QString StoredTexts::toJson(const QVariantMap& texts)
{
    const QJsonDocument document(QJsonObject::fromVariantMap(texts));
    return QString::fromUtf8(document.toJson(QJsonDocument::Compact));
}

std::optional<QVariantMap> StoredTexts::fromJson(const QString& json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json.toUtf8());
    const QVariantMap texts = document.object().toVariantMap();
    const bool areTexts = std::all_of(
        texts.cbegin(), texts.cend(), [](const QVariant& text) { return text.userType() == QMetaType::QString; });
    return document.isObject() && areTexts ? std::optional<QVariantMap>(texts) : std::nullopt;
}
