// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/application.h"
#include "application/job_edit.h"
#include "application/units_switch.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace kaloria::test {

/// Fields of a job, or layers of it ("Insulation.1"), and the texts they are given; in English units.
using Sets = std::vector<std::pair<std::string, std::string>>;

/// A test on the reference data and the default job that ship.
class JobFixture : public ::testing::Test {
protected:
    /// @param folder  of the program
    explicit JobFixture(const std::filesystem::path& folder = KALORIA_RESOURCES_DIR)
        : application(folder, messages) {
        application.LoadConfigurationFile();
        application.JobPath = application.DefaultJobPath();
    }

    /// Opens the default job anew and changes it; the switch of units comes after the changes.
    void Open(const Sets& sets, Units units = Units::english) {
        ASSERT_TRUE(application.OpenJob());
        for (const auto& [field, value] : sets) {
            const auto problem = SetJobField(application.CurrentJob(), application.Records(), field, value);
            ASSERT_FALSE(problem) << *problem;
        }
        UnitsChange(application.CurrentJob(), application.Records(), units, SwitchPrecision::full);
    }

    /// The same without an editor, which would refuse some values that a file may hold. No layers.
    void OpenAsFiled(const Sets& sets, Units units = Units::english) {
        ASSERT_TRUE(application.OpenJob());
        for (const auto& [field, value] : sets) {
            application.CurrentJob()[FindField(field)->id] = value;
        }
        UnitsChange(application.CurrentJob(), application.Records(), units, SwitchPrecision::full);
    }

    CalculationResult Run(const Sets& sets, Units units = Units::english) {
        Open(sets, units);
        return application.Calculate();
    }

    /// A line "subject: text" for each finding.
    static std::string AllFindings(const std::vector<Finding>& findings) {
        std::string text;
        for (const Finding& finding : findings) {
            text += finding.subject + ": " + finding.text + "\n";
        }
        return text;
    }

    MessageList messages;
    CApplication application;
};

} // namespace kaloria::test
