#pragma once

#include <QVariant>

class IVorSkin {
public:
    virtual void loadSkin(const QVariant& skin) = 0;

protected:
    ~IVorSkin() = default;
};
