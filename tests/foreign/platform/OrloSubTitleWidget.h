#pragma once

#include <QLabel>

class OrloSubTitleWidget : public QLabel {
public:
    using QLabel::QLabel;
    void SetTitle(const QString& title) { setText(title); }
};
