#pragma once

#include <QStringList>

using SymbolList = QStringList;
