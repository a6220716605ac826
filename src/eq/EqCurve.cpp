#include "eq/EqCurve.h"

#include <algorithm>
#include <cmath>

namespace korvex::eq {

namespace {

double bandResponse(double centre, double gain, double q, double hertz) {
    const double a = std::pow(10, gain / 40);
    const double w = hertz / centre;
    const double real = (1 - w * w) * (1 - w * w);
    const double above = w * a / q;
    const double below = w / (a * q);
    return 10 * std::log10((real + above * above) / (real + below * below));
}

}  // namespace

double response(const EqValues& values, double hertz) {
    double sum = 0;
    for (std::size_t centre = 0; centre < eqItemCount; centre += 3) {
        if (isOff(eqItems[centre], values[centre])) continue;
        const int real = values[centre] / 100 * 100;  // what the radio is told
        sum += bandResponse(real, values[centre + 1], values[centre + 2], hertz);
    }
    return sum;
}

double placeOf(double hertz) {
    return std::log(hertz / lowestHertz) / std::log(highestHertz / lowestHertz);
}

double hertzAt(double place) {
    return lowestHertz * std::pow(highestHertz / lowestHertz, place);
}

std::vector<double> curve(const EqValues& values, std::size_t points) {
    std::vector<double> levels(std::max<std::size_t>(points, 2));
    const auto last = static_cast<double>(levels.size() - 1);
    for (std::size_t i = 0; i < levels.size(); ++i) {
        levels[i] = response(values, hertzAt(static_cast<double>(i) / last));
    }
    return levels;
}

LevelAxis levelAxis(const std::vector<double>& curve, const std::vector<double>& other) {
    LevelAxis axis;
    for (const auto* levels : {&curve, &other}) {
        for (const double level : *levels) {
            while (level < axis.lowest) axis.lowest -= LevelAxis::step;
            while (level > axis.highest) axis.highest += LevelAxis::step;
        }
    }
    return axis;
}

}  // namespace korvex::eq
