// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/theme.h"

#include <QApplication>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    return 0;
}
