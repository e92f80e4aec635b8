#pragma once

#include <QObject>

/// Tells whoever shows plans that stored plans have changed. One per process.
class PlanNews : public QObject {
    Q_OBJECT

public:
    static PlanNews& instance();

Q_SIGNALS:
    /// A plan was created, modified or has got new instructions, and is stored so.
    void planStored(const QString& planId);

private:
    PlanNews() = default;
};
