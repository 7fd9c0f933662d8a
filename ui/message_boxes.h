// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/messages.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <string>

namespace kaloria {

/// What the application has to say, in a plain box with an OK button; details go to standard error and into
/// the box that comes with them.
class MessageBoxes final : public MessageSink {
public:
    void Show(std::string_view text) override;
    void Log(std::string_view detail) override;

    /// The window over which boxes open.
    void SetParent(QWidget* parent) { parent_ = parent; }
    /// Takes the place of the box; for tests and for pictures.
    void SetHandler(std::function<void(const std::string&)> handler) { handler_ = std::move(handler); }

private:
    QPointer<QWidget> parent_;
    std::function<void(const std::string&)> handler_;
};

} // namespace kaloria
