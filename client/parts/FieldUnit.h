#pragma once

#include "DecimalText.h"

#include <QWidget>

#include <functional>

/// Where a number field learns what it counts, which depends on other fields. The form's window provides it.
class FieldUnit : public QObject {
    Q_OBJECT

public:
    using Source = std::function<NumberUnit()>;

    /// Replaces the source of a field.
    static void provide(QWidget* field, const Source& source);
    /// The present unit of a field; a default one without a source.
    static NumberUnit of(const QWidget* field);

private:
    FieldUnit(const Source& source, QWidget* field);

    Source m_source;
};
