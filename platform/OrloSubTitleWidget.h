#pragma once

#include <QWidget>
#include <memory>

/// The heading of a section.
class OrloSubTitleWidget : public QWidget {
    Q_OBJECT

public:
    explicit OrloSubTitleWidget(QWidget* parent = nullptr);
    ~OrloSubTitleWidget() override;

    void SetTitle(const QString& title);
    QString Title() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};
