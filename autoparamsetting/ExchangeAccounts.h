#pragma once

#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include <QMap>

/// True when there is a security account in Shanghai or Shenzhen. `accounts` is keyed by exchange code.
inline bool holdsShanghaiOrShenzhen(const QMap<QString, QString>& accounts)
{
    return accounts.contains(Kelvo_Values::Exchange::sh) || accounts.contains(Kelvo_Values::Exchange::sz);
}

/// True when there is a security account in Shanghai, Shenzhen or Beijing.
inline bool holdsMainland(const QMap<QString, QString>& accounts)
{
    return holdsShanghaiOrShenzhen(accounts) || accounts.contains(Orlo_Values::Exchange::bj);
}
