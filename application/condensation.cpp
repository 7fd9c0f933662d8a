// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/condensation.h"

#include "reports/psychrometrics.h"

namespace kaloria {

namespace {

CondensationResult FromHumidity(float humidity, float ambientTemp, CHeatLossCalculator& calculator) {
    calculator.AmbientTemp = ambientTemp;
    calculator.RelativeHumidity = humidity;
    calculator.CalculateDewPoint(); // lifts a humidity below 1 %
    CondensationResult result;
    result.dewPoint = calculator.DewPointTemp;
    result.relativeHumidity = calculator.RelativeHumidity;
    result.psychrometric =
        Single(psychrometrics::DewPointFromHumidity(ambientTemp, calculator.RelativeHumidity));
    return result;
}

CondensationResult FromWetBulb(float wetBulb, float ambientTemp) {
    if (wetBulb > ambientTemp) {
        throw NumericFault("the wet-bulb temperature is above the ambient temperature");
    }
    const double pressure = psychrometrics::VapourPressureFromWetBulb(ambientTemp, wetBulb);
    CondensationResult result;
    result.dewPoint = Single(psychrometrics::DewPointOfPressure(pressure));
    return result;
}

} // namespace

CondensationResult ResolveMoisture(const MoistureInput& moisture, float ambientTemp,
                                   CHeatLossCalculator& calculator) {
    CondensationResult result;
    if (moisture.given == Field::RelativeHumidity) {
        result = FromHumidity(moisture.value, ambientTemp, calculator);
    } else if (moisture.given == Field::WetBulbTemperature) {
        result = FromWetBulb(moisture.value, ambientTemp);
    } else {
        result.dewPoint = moisture.value;
    }
    calculator.DewPointTemp = result.dewPoint;
    return result;
}

MoistureReading ReadMoisture(const MoistureInput& moisture, float ambientTemp,
                             CHeatLossCalculator& calculator) {
    MoistureReading reading;
    const auto note = [&](Severity severity, std::string text) {
        reading.findings.push_back({severity, std::string(InfoOf(moisture.given).element), std::move(text)});
    };
    try {
        reading.condensation = ResolveMoisture(moisture, ambientTemp, calculator);
    } catch (const NumericFault& fault) {
        note(Severity::error, std::string("There is no dew point: ") + fault.what() + ".");
        return reading;
    }
    if (moisture.given == Field::RelativeHumidity && moisture.value < 1.0F) {
        note(Severity::warning, "A relative humidity below 1 % is reckoned as 1 %.");
    }
    if (reading.condensation->dewPoint > ambientTemp + 0.05F) {
        note(Severity::warning,
             "The dew point lies above the ambient temperature: no thickness keeps such a surface dry.");
    }
    return reading;
}

} // namespace kaloria
