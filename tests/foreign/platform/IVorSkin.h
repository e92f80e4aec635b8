#pragma once

#include <QVariant>

class IVorSkin {
public:
    virtual ~IVorSkin() = default;
    virtual void loadSkin(const QVariant& skin) = 0;
};
