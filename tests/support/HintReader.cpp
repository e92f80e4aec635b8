#include "HintReader.h"

#include <QLabel>

QString hintAt(const QWidget* field)
{
    const auto* const hint = field->findChild<QLabel*>(QStringLiteral("fieldHint"), Qt::FindDirectChildrenOnly);
    return hint && hint->isVisible() ? hint->text() : QString();
}
