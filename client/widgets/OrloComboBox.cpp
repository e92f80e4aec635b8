#include "OrloComboBox.h"

#include "ComboSearchPopup.h"

#include <QPointer>
#include <QWheelEvent>

class OrloComboBox::Private {
public:
    bool searchEnabled = false;
    QPointer<ComboSearchPopup> popup;
};

OrloComboBox::OrloComboBox(QWidget* parent)
    : QComboBox(parent)
    , d(std::make_unique<Private>())
{
    setEditable(false);
    setFocusPolicy(Qt::StrongFocus);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(6);
}

OrloComboBox::~OrloComboBox() = default;

void OrloComboBox::setSearchEnabled(bool enabled)
{
    d->searchEnabled = enabled;
}

bool OrloComboBox::isSearchEnabled() const
{
    return d->searchEnabled;
}

void OrloComboBox::ResetEnable()
{
    setEnabled(true);
}

void OrloComboBox::showPopup()
{
    if (!d->searchEnabled) {
        QComboBox::showPopup();
        return;
    }
    if (count() == 0)
        return;
    if (!d->popup)
        d->popup = new ComboSearchPopup(this);
    d->popup->open();
}

void OrloComboBox::hidePopup()
{
    if (d->popup)
        d->popup->hide();
    QComboBox::hidePopup();
}

void OrloComboBox::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}
