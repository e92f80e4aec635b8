#include "OrloSubTitleWidget.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>

class OrloSubTitleWidget::Private {
public:
    explicit Private(OrloSubTitleWidget* q)
        : mark(new QFrame(q))
        , title(new QLabel(q))
    {
        mark->setObjectName(QStringLiteral("titleMark"));
        mark->setFixedWidth(3);
        mark->setFrameShape(QFrame::VLine);
        title->setObjectName(QStringLiteral("titleText"));
        title->setTextFormat(Qt::PlainText);
        q->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        auto* row = new QHBoxLayout(q);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(6);
        row->addWidget(mark);
        row->addWidget(title);
    }

    QFrame* mark;
    QLabel* title;
};

OrloSubTitleWidget::OrloSubTitleWidget(QWidget* parent)
    : QWidget(parent)
    , d(std::make_unique<Private>(this))
{
}

OrloSubTitleWidget::~OrloSubTitleWidget() = default;

void OrloSubTitleWidget::SetTitle(const QString& title)
{
    d->title->setText(title);
    setAccessibleName(title);
}

QString OrloSubTitleWidget::Title() const
{
    return d->title->text();
}
