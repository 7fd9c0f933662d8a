// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/application.h"

#include <benchmark/benchmark.h>

namespace kaloria {

/// An application with the reference data and the default job that ship.
class DefaultJob {
public:
    /// A run that cannot read them is skipped; IsOpen tells.
    explicit DefaultJob(benchmark::State& state) {
        application.JobPath = application.DefaultJobPath();
        isOpen_ = application.LoadConfigurationFile() && application.OpenJob();
        if (!isOpen_) {
            state.SkipWithError("the reference data cannot be read");
        }
    }
    [[nodiscard]] bool IsOpen() const { return isOpen_; }

private:
    MessageList messages_;
    bool isOpen_ = false;

public:
    CApplication application{KALORIA_RESOURCES_DIR, messages_};
};

} // namespace kaloria
