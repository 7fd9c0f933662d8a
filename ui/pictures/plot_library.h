// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The plotting library's header is written with Qt's keywords, which the rest of the program does without.
#define signals Q_SIGNALS
#define slots Q_SLOTS
#define emit Q_EMIT
#define foreach(variable, container) for (variable : container)
#include <qcustomplot.h>
#undef signals
#undef slots
#undef emit
#undef foreach
