// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/session.h"

class QWidget;

/// The windows beside the main one, each opened from one place.
namespace kaloria::windows {

/// Modal; writes "ShowDisclaimer".
void ShowDisclaimer(Session& session, QWidget* parent);
void ShowAbout(Session& session, QWidget* parent);
/// What a field means; one window for all fields.
void ShowHelp(Field field, Session& session, QWidget* parent);

} // namespace kaloria::windows
