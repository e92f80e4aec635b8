#pragma once

#include <QSet>
#include <QVariant>

/// Hands out one shared copy of texts that many rows have in common.
class SharedTexts {
public:
    QString share(const QVariant& text) { return *m_texts.insert(text.toString()); }

private:
    QSet<QString> m_texts;
};
