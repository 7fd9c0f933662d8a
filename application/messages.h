// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kaloria {

/// Where what the application has to say goes: a box in the window, a line on standard error, a list in a
/// test.
class MessageSink {
public:
    MessageSink() = default;
    MessageSink(const MessageSink&) = delete;
    MessageSink& operator=(const MessageSink&) = delete;
    virtual ~MessageSink() = default;

    /// One of the fixed texts below: for the person.
    virtual void Show(std::string_view text) = 0;

    /// What was behind it, with the place of the error: for the log.
    virtual void Log(std::string_view detail) = 0;
};

/// Keeps everything; for tests and for callers that ask afterwards.
class MessageList final : public MessageSink {
public:
    void Show(std::string_view text) override { shown.emplace_back(text); }
    void Log(std::string_view detail) override { logged.emplace_back(detail); }

    std::vector<std::string> shown;
    std::vector<std::string> logged;
};

/// The fixed texts, spelt as people's scripts and manuals know them.
namespace message {
inline constexpr std::string_view fileNotFound = "File not found.";
inline constexpr std::string_view wrongVersion = "File is of a different version and will not work.";
inline constexpr std::string_view openingJob = "An error has occured while opening job information.  ";
inline constexpr std::string_view savingJob = "An error has occured while saving job information.  ";
inline constexpr std::string_view loadingMaterials = "An error occured while loading material data.";
inline constexpr std::string_view noAuditFile = "No audit file has been selected.";
inline constexpr std::string_view savingAudit = "An error has occured while saving audit data.";
inline constexpr std::string_view savingReport =
    "A problem occured while saving your report.  Please try again.";

// Layers
inline constexpr std::string_view tooManyLayers = "You may not have more than five layers.";
inline constexpr std::string_view baseLayerStays = "You may not remove the base material layer.";
inline constexpr std::string_view jacketLayerStays = "You may not remove the jacket material layer.";
inline constexpr std::string_view oneLayerNeeded = "You must have at least one insulation layer.";
inline constexpr std::string_view aboveMaxTemp =
    "This insulation has a maximum temperature that is lower than the process temperature.  Please use "
    "caution.";
inline constexpr std::string_view belowMinTemp =
    "This insulation has a minimum temperature that is higher than the process temperature.  Please use "
    "caution.";
inline constexpr std::string_view ductWrap =
    "For duct wrap material, the thickness that is entered should be the nominal packaged thickness.  All "
    "calculations will assume that the installed thickness is 75% of the nominal thickness.";

// Choices
inline constexpr std::string_view changedToPipe =
    "This report can only be selected for pipe or tubing.  Therefore, the system application has been "
    "changed to pipe.";
inline constexpr std::string_view calculationTypeChanged =
    "An insulation thickness table can only be created for pipes and tubes.  Therefore, the calculation type "
    "has been changed.";
inline constexpr std::string_view tankEnds = "NOTE: heat loss from ends of tank not included";

// Report wizard
inline constexpr std::string_view projectRequired = "The Project Number and Date are required fields.";
inline constexpr std::string_view surfaceRequired = "At least one surface must be selected.";
inline constexpr std::string_view dateNotValid = "The project date is not valid.";

// Materials
inline constexpr std::string_view systemMaterial = "System materials may not be altered.";
inline constexpr std::string_view systemBaseMetal = "System base metals may not be altered.";
inline constexpr std::string_view systemJacket = "System jacket materials may not be altered.";
inline constexpr std::string_view systemFuel = "System fuels may not be altered.";
inline constexpr std::string_view deleteMaterial = "You may not delete a system material.";
inline constexpr std::string_view deleteBaseMetal = "You may not delete a system base metal.";
inline constexpr std::string_view deleteJacket = "You may not delete a system jacket material.";
inline constexpr std::string_view deleteFuel = "You may not delete a system fuel.";
inline constexpr std::string_view fuelsInImperial = "New fuels can only be added using imperial units.";
inline constexpr std::string_view recordGone = "This record is not there any more.";

// Start-up
inline constexpr std::string_view loadingForm = "An error has occured during form loading.";
inline constexpr std::string_view loadingDropdowns = "An error has occured loading the dropdowns.";
inline constexpr std::string_view firstRun =
    "As this is your first time running Kaloria, please fill out the user information.";
} // namespace message

} // namespace kaloria
