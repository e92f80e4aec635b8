#pragma once

#include "NoticeLine.h"
#include "PlanEvents.h"

#include <optional>

/// The line above a form whose plan someone else has changed. Hidden without a change.
class ChangeNotice : public NoticeLine {
    Q_OBJECT

public:
    explicit ChangeNotice(QWidget* parent);

    /// `edited`: the version that the form changes.
    void showChange(const PlanConflict& change, int edited);
    void clear();
    /// Whether it shows the change to a version.
    bool isAbout(int version) const { return m_change && m_change->stored.version == version; }

Q_SIGNALS:
    /// The trader wants to see what was changed.
    void differencesWanted(const PlanConflict& change);

private:
    std::optional<PlanConflict> m_change;
};
