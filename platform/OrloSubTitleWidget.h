#pragma once

#include <QWidget>

#include <memory>

/// The heading of a section.
class OrloSubTitleWidget : public QWidget {
    Q_OBJECT

public:
    explicit OrloSubTitleWidget(QWidget* parent = nullptr); ///< constructs a heading without a title
    ~OrloSubTitleWidget() override;

    void SetTitle(const QString& title); ///< sets the title
    QString Title() const;               ///< returns the title; empty until one is set

private:
    class Private;
    std::unique_ptr<Private> d;
};
