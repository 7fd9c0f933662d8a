// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/minor_windows.h"

#include "ui/dialogs/about_box.h"
#include "ui/dialogs/disclaimer.h"
#include "ui/dialogs/help_window.h"

namespace kaloria::windows {

void ShowDisclaimer(Session& session, QWidget* parent) { Disclaimer(session.Settings(), parent).exec(); }

void ShowAbout(Session& session, QWidget* parent) { AboutBox(session.App(), parent).exec(); }

void ShowHelp(Field field, Session& session, QWidget* parent) {
    auto* window = parent->findChild<HelpWindow*>();
    if (window == nullptr) {
        window = new HelpWindow(parent);
    }
    window->Explain(field, session.TheJob(), session.Records());
    window->show();
    window->raise();
}

} // namespace kaloria::windows
