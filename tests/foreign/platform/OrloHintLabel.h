#pragma once

#include <QLabel>

using OrloHintLabel = QLabel;
