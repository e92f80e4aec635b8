#pragma once

#include <QLabel>

using OrloElidedLabel = QLabel;
