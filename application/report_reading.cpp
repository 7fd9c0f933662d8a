// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/report_reading.h"

#include "application/field_reader.h"
#include "application/insulation_thickness.h"
#include "application/report_items.h"
#include "data/field_check.h"
#include "data/fuel_units.h"
#include "engine/number_text.h"
#include "engine/numeric_fault.h"
#include "reports/fuel_cost.h"
#include "reports/psychrometrics.h"

#include <fmt/format.h>

#include <cmath>

namespace kaloria {

namespace {

float Fraction(float percent) { return percent / 100.0F; }

/// Reads one report.
class ReportReader {
public:
    ReportReader(const Job& job, const Catalogue& catalogue, const ReportChoice& choice)
        : job_(job), catalogue_(catalogue), choice_(choice), fields_(job) {}

    ReportReading Read() {
        inputs_.money.hotService = fields_.Flag(Field::HotSurface);
        ReadConditions();
        ReadMaterials();
        ReadFuel();
        ReadRates();
        if (!inputs_.money.hotService) {
            ReadChiller();
        }
        ReadCosts();
        ReadThicknesses();
        ReadSurfaces();
        CheckTemperatures();
        ReportReading reading;
        reading.costSource = costSource_;
        if (!fields_.HasFailed()) {
            reading.inputs = std::move(inputs_);
        }
        reading.findings = std::move(fields_.findings);
        return reading;
    }

private:
    void ReadConditions() {
        inputs_.units = fields_.UnitsInForce();
        inputs_.engineering =
            choice_.engineering ? *choice_.engineering : fields_.Flag(Field::EngineeringReport);
        inputs_.ambientTemp = fields_.Needed(Field::AnnualAverageTemp);
        inputs_.windSpeed = fields_.Needed(Field::AnnualAverageWindSpeed);
        inputs_.startingTemp = fields_.Needed(Field::ReportStartingTemperature);
        inputs_.tempIncrement = fields_.Needed(Field::ReportTemperatureIncrement);
    }

    template <class Record>
    void Take(const Record* record, Field field, const std::string& name, Record& target) {
        if (record != nullptr) {
            target = *record;
        } else {
            fields_.Fail(field, fmt::format("\"{}\" is not in the catalogue", name));
        }
    }

    void ReadMaterials() {
        Take(FindById(catalogue_.BaseMetals, job_.baseMetal.id), Field::BaseMetal, job_.baseMetal.name,
             inputs_.baseMetal);
        Take(FindByName(catalogue_.JacketMaterials, job_[Field::ReportJacketMaterial]),
             Field::ReportJacketMaterial, job_[Field::ReportJacketMaterial], inputs_.jacket);
        Take(FindByName(catalogue_.Insulations, job_[Field::ReportInsulationMaterial]),
             Field::ReportInsulationMaterial, job_[Field::ReportInsulationMaterial], inputs_.insulation);
        if (!fields_.Flag(Field::NewApplication)) {
            ReadExisting();
        }
    }

    void ReadExisting() {
        existing_ = fields_.Needed(Field::ReportExistingInsulationThickness);
        if (!(existing_ > 0.0F)) {
            fields_.Warn(Field::ReportExistingInsulationThickness,
                         "The existing insulation has no thickness: new insulation is compared with the bare "
                         "surface.");
            return;
        }
        const std::string& name = job_[Field::ReportExistingInsulationMaterial];
        Take(FindByName(catalogue_.Insulations, name), Field::ReportExistingInsulationMaterial, name,
             inputs_.existing.emplace());
        fields_.Note(
            Severity::information, "NewApplication",
            "New insulation is laid over the existing one, at the price of insulation on the bare surface.");
    }

    void ReadFuel() {
        const auto* fuel = FindByName(catalogue_.Fuels, job_[Field::ReportFuel]);
        Take(fuel, Field::ReportFuel, job_[Field::ReportFuel], inputs_.fuel);
        const float cost = fields_.Needed(Field::ReportFuelCost);
        const float heat = fields_.Optional(Field::ReportHeatingValue);
        if (fuel != nullptr) {
            const FuelMeasure measure = MeasureOf(fuel->CostUnits);
            const bool si = fields_.UnitsInForce() == Units::si;
            inputs_.fuel.Cost = si ? Single(FuelCostToEnglish(measure, cost)) : cost;
            inputs_.fuel.BTU = si ? Single(HeatContentToEnglish(measure, heat)) : heat;
            CheckFuel(measure);
        }
        inputs_.money.hoursPerYear = fields_.Needed(Field::AnnualOperation);
        if (inputs_.money.hotService) {
            inputs_.money.efficiency = fields_.Needed(Field::ReportEfficiency);
            NeedPositive(Field::ReportEfficiency, inputs_.money.efficiency);
        }
    }

    void CheckFuel(FuelMeasure measure) {
        try {
            (void)UnitFuelCost(measure, inputs_.fuel.Cost, inputs_.fuel.BTU);
        } catch (const NumericFault&) {
            fields_.Fail(Field::ReportHeatingValue,
                         "there is no cost of heat without a heating value above 0");
        }
    }

    void NeedPositive(Field field, float value) {
        if (!fields_.IsEmpty(field) && !(value > 0.0F)) {
            fields_.Fail(field, "a value above 0 is needed");
        }
    }

    void ReadRates() {
        EconomicFigures& money = inputs_.money;
        money.taxRate = Fraction(fields_.Needed(Field::TaxRate));
        money.plantMaintenance = Fraction(fields_.Needed(Field::FuelMaintenancePercent));
        money.insulationMaintenance = Fraction(fields_.Needed(Field::InsulationMaintenancePercent));
        money.discountRate = Fraction(fields_.Needed(Field::InterestRate));
        money.fuelInflation = Fraction(fields_.Needed(Field::ReportAnnualInflationRate));
        money.plantYears = fields_.Needed(Field::PlantDepreciationPeriod);
        money.insulationYears = fields_.Needed(Field::NewInsulationDepreciationPeriod);
        const float perThousand = fields_.Needed(Field::InvestmentRate) / 1000.0F;
        money.capacityCost = perThousand / 1000.0F;
        if (money.discountRate < 0.0F) {
            fields_.Warn(Field::InterestRate,
                         "A negative interest rate counts as 0 for payments that stay the same; "
                         "only those that rise with a price are valued by it.");
        }
    }

    void ReadChiller() {
        EconomicFigures& money = inputs_.money;
        const float performance = fields_.Needed(Field::ChillerCoefficientOfPerformance);
        NeedPositive(Field::ChillerCoefficientOfPerformance, performance);
        money.efficiency = 100.0F * performance;
        money.condenserFactor = fields_.Needed(Field::ChillerCondensorFactor);
        money.waterCost = fields_.Needed(Field::ChillerMakeUpWaterCost) / 1000.0F;
        money.waterInflation = Fraction(fields_.Needed(Field::ChillerMakeUpWaterInflationRate));
        ReadDewPoint();
    }

    /// From the relative humidity, or where it is not given (0 or empty) from the wet-bulb temperature.
    void ReadDewPoint() {
        const bool byWetBulb = !(fields_.Optional(Field::ChillerRelativeHumidity) > 0.0F);
        const Field given = byWetBulb ? Field::ChillerWetBulbTemperature : Field::ChillerRelativeHumidity;
        const float value = fields_.Needed(given);
        if (fields_.HasFailed()) {
            return;
        }
        const float air = inputs_.ambientTemp;
        try {
            if (byWetBulb && value > air) {
                throw NumericFault("the wet-bulb temperature is above the average temperature of the air");
            }
            const double humidity = byWetBulb ? psychrometrics::HumidityFromWetBulb(air, value) : value;
            inputs_.dewPoint = Single(psychrometrics::DewPointFromHumidity(air, humidity));
        } catch (const NumericFault& fault) {
            fields_.Fail(given, fmt::format("there is no dew point: {}", fault.what()));
        }
    }

    void ReadCosts() {
        costSource_ = choice_.costSource ? *choice_.costSource : SourceOfJob();
        if (costSource_ != CostSource::estimate) {
            return;
        }
        InstalledCostInputs& costs = inputs_.installedCost;
        costs.PipePrice = fields_.Needed(Field::ReportPipeInsulationPrice);
        costs.BoardPrice = fields_.Needed(Field::ReportBoardInsulationPrice);
        costs.LaborRate = fields_.Needed(Field::ReportLaborRate);
        costs.InsulationType = inputs_.insulation.InsulationType;
        costs.HotService = inputs_.money.hotService;
        const std::string& complexity = job_[Field::ReportInstallationComplexity];
        const auto factor = ComplexityFactorOf(complexity);
        if (!factor) {
            fields_.Fail(Field::ReportInstallationComplexity,
                         fmt::format("\"{}\" is no installation complexity", complexity));
        }
        costs.ComplexityFactor = factor.value_or(1.0F);
        inputs_.complexity = complexity;
        ReadProductivity();
    }

    CostSource SourceOfJob() {
        const bool estimate = fields_.Flag(Field::FEA);
        const bool previous = fields_.Flag(Field::PreviousCostData);
        const bool supplied = fields_.Flag(Field::UserSuppliedCostData);
        const CostSource source = supplied   ? CostSource::supplied
                                  : previous ? CostSource::previous
                                             : CostSource::estimate;
        if (!estimate && !previous && !supplied) {
            fields_.Fail(Field::FEA, "no source of installed costs is chosen");
        } else if (int{estimate} + int{previous} + int{supplied} > 1) {
            fields_.Warn(Field::FEA,
                         fmt::format("More than one source of installed costs is chosen; {} counts.",
                                     supplied ? "your own cost data" : "the previous cost data"));
        }
        return source;
    }

    /// A region of the catalogue, or the percentage itself.
    void ReadProductivity() {
        const std::string& region = job_[Field::ReportRegionalProductivity];
        for (const CProductivityFactor& factor : catalogue_.ProductivityFactors) {
            if (factor.Region == region) {
                inputs_.installedCost.RegionalProductivity = factor.Factor;
                return;
            }
        }
        const auto percent = ParseSingle(region);
        if (!percent || !(*percent >= 0.0F)) {
            fields_.Fail(Field::ReportRegionalProductivity,
                         fmt::format("\"{}\" is no region of the catalogue", region));
        }
        inputs_.installedCost.RegionalProductivity = percent.value_or(0.0F);
    }

    void ReadThicknesses() {
        for (const CNominalThickness& nominal : catalogue_.NominalThicknesses) {
            if (nominal.US > 0.0F && inputs_.thicknesses.size() < ReportInputs::mostThicknesses) {
                inputs_.thicknesses.push_back(nominal.US);
            }
        }
        const float reference = fields_.Needed(Field::PaybackReferenceThickness);
        if (!(reference > 0.0F)) {
            return;
        }
        const auto nominal = NominalOf(Field::PaybackReferenceThickness, reference);
        if (!nominal) {
            fields_.Fail(Field::PaybackReferenceThickness, "it is not one of the nominal thicknesses");
        } else if (inputs_.existing) {
            fields_.Note(
                Severity::information, "PaybackReferenceThickness",
                "In a retrofit the existing insulation is the reference; thicknesses up to the one given get "
                "no payback.");
        }
        inputs_.referenceThickness = nominal.value_or(0.0F);
    }

    /// The nominal thickness that a field names. In millimetres it may be written as in the metric list, or
    /// converted.
    [[nodiscard]] std::optional<float> NominalOf(Field field, float inches) const {
        constexpr float sameThickness = 0.02F; // [in]
        const bool si = fields_.UnitsInForce() == Units::si;
        const auto written = ParseSingle(job_[field]);
        for (const CNominalThickness& nominal : catalogue_.NominalThicknesses) {
            if (si ? nominal.USMetric == written : nominal.US == inches) {
                return nominal.US;
            }
        }
        for (const CNominalThickness& nominal : catalogue_.NominalThicknesses) {
            if (si && std::abs(nominal.US - inches) < sameThickness) {
                return nominal.US;
            }
        }
        return std::nullopt;
    }

    void ReadSurfaces() {
        std::vector<int> items;
        if (choice_.items) {
            items = *choice_.items;
            if (items.empty() && !choice_.mayBeEmpty) {
                fields_.Fail(Field::ReportAllSurfaces, "no size or surface is chosen");
            }
        } else if (fields_.Flag(Field::ReportAllSurfaces)) {
            items = AllItems();
        } else if (const auto own = OwnItem(job_, catalogue_)) {
            items.push_back(*own);
        } else {
            fields_.Fail(
                Field::SurfaceGeometry,
                fmt::format(
                    "\"{}\"{} is not among the pipe sizes and flat surfaces that can be reported; choose "
                    "some of those",
                    job_[Field::SurfaceGeometry],
                    job_[Field::PipeSize].empty() ? "" : " of size \"" + job_[Field::PipeSize] + "\""));
        }
        for (const int position : items) {
            ReadSurface(position);
        }
    }

    void ReadSurface(int position) {
        ReportSurface surface;
        surface.position = position;
        surface.name = ItemName(position, catalogue_, fields_.UnitsInForce());
        surface.geometry = FindById(catalogue_.SurfaceGeometries, GeometryCodeOf(position));
        surface.pipe = PipeOf(position, catalogue_);
        if (surface.geometry == nullptr || (position < firstFlatItem && surface.pipe == nullptr)) {
            fields_.Fail(Field::ReportAllSurfaces, fmt::format("the catalogue has no item {}", position));
            return;
        }
        for (const float nominal : inputs_.thicknesses) {
            surface.coverings.push_back(CoveringOf(surface, nominal));
        }
        if (inputs_.existing) {
            const float nominal =
                NominalOf(Field::ReportExistingInsulationThickness, existing_).value_or(existing_);
            surface.existing = Laid(surface, nominal, inputs_.existing->Name);
        }
        inputs_.surfaces.push_back(std::move(surface));
    }

    /// A covering that the size's table has; everything is made for flat surfaces.
    [[nodiscard]] std::optional<Covering> CoveringOf(const ReportSurface& surface, float nominal) const {
        if (surface.pipe != nullptr &&
            FindThicknessRow(surface.geometry->ID, nominal, surface.pipe, nullptr, false) == nullptr) {
            return std::nullopt;
        }
        return Laid(surface, nominal, inputs_.insulation.Name);
    }

    static Covering Laid(const ReportSurface& surface, float nominal, const std::string& material) {
        const std::int32_t code = surface.geometry->ID;
        Covering covering;
        covering.thickness = GetInsulationThickness(code, nominal, material, surface.pipe, nullptr, false);
        if (!IsDuctWrap(material)) {
            covering.diameter = GetInsulationOD(code, nominal, surface.pipe, nullptr, false);
        }
        return covering;
    }

    [[nodiscard]] std::string TempText(float temp) const {
        const Units units = fields_.UnitsInForce();
        return fmt::format(
            "{} {}", FormatNumber(FromEnglish(Quantity::temperature, units, temp), NumberFormat::tenths),
            InfoOf(Quantity::temperature).Text(units));
    }

    void CheckTemperatures() {
        if (fields_.HasFailed()) {
            return;
        }
        const JobField& process = InfoOf(Field::ProcessTemp);
        bool wrongSide = false;
        for (int k = 1; k <= inputs_.TemperatureCount(); ++k) {
            const float temp = inputs_.Temperature(k);
            if (!(temp >= process.low) || !(temp <= process.high)) {
                fields_.Fail(Field::ReportTemperatureIncrement,
                             fmt::format("operating temperature {} would be {}, outside {}", k,
                                         TempText(temp), RangeText(process, fields_.UnitsInForce())));
                return;
            }
            wrongSide = wrongSide || (inputs_.money.hotService ? temp <= inputs_.ambientTemp
                                                               : temp >= inputs_.ambientTemp);
            CheckServiceRange(inputs_.insulation, temp);
        }
        if (wrongSide) {
            fields_.Warn(Field::HotSurface,
                         inputs_.money.hotService
                             ? "Not every operating temperature is above that of the air, though the "
                               "service is hot: heat that flows in costs no fuel."
                             : "Not every operating temperature is below that of the air, though the "
                               "service is cold: heat that flows out needs no chiller.");
        }
    }

    /// The inside of the insulation is nearly as warm or as cold as what it is laid on.
    void CheckServiceRange(const CInsulation& material, float temp) {
        const bool unlimited = material.MaxTemp == 0.0F && material.MinTemp == 0.0F;
        if (unlimited || inputs_.existing || (temp <= material.MaxTemp && temp >= material.MinTemp)) {
            return;
        }
        fields_.Warn(Field::ReportInsulationMaterial,
                     fmt::format("{} is made for {} to {}, not for an operating temperature of {}.",
                                 material.Name, TempText(material.MinTemp), TempText(material.MaxTemp),
                                 TempText(temp)));
    }

    const Job& job_;
    const Catalogue& catalogue_;
    const ReportChoice& choice_;
    FieldReader fields_;
    ReportInputs inputs_;
    CostSource costSource_ = CostSource::estimate;
    float existing_ = 0; // nominal thickness [in]
};

} // namespace

ReportReading ReadReport(const Job& job, const Catalogue& catalogue, const ReportChoice& choice) {
    return ReportReader(job, catalogue, choice).Read();
}

} // namespace kaloria
