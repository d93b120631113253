// What is told of a balance.
#include "checks/balance.h"
#include "model/length_text.h"

#include <cmath>

namespace pistaro {

namespace {

/// Of lanes that are not balanced.
std::string WhyNoSteps(const Balance& balance, const Units& units) {
    if (balance.IsOpen) return "The track is open: close it first.";
    const std::string within = "Nothing brings them within " + LengthText(BalancedWithin, units) + ": ";
    constexpr double seen = 0.05; // cm, by which lengths that are told differ
    if (balance.Nearest && (balance.Joined || *balance.Nearest < balance.Before - seen))
        return within + "the best of one to three changes leaves " + LengthText(*balance.Nearest, units) + ".";
    return within + (balance.LacksStraights
                         ? "no straight has a change-over of its length, and turning bends round does not help."
                         : "of one to three changes none makes them differ less.");
}

} // namespace

std::string DifferenceText(const Balance& balance, const Units& units) {
    return balance.Joined ? "Each lane leads into the other"
                          : "The lanes differ by " + LengthText(balance.Before, units);
}

std::string StepText(const BalanceStep& step, const Units& units) {
    const double difference = std::fabs(step.Lengths[0] - step.Lengths[1]);
    return step.Text + ": " +
           (step.Joined ? "each lane then leads into the other"
                        : "the lanes then differ by " + LengthText(difference, units));
}

std::string BalanceText(const Balance& balance, const Units& units) {
    const std::string before = DifferenceText(balance, units);
    if (balance.IsBalanced) return before + ": they are balanced.";
    if (balance.Steps.empty()) return before + ". " + WhyNoSteps(balance, units);
    std::string text = "These changes balance the lanes:";
    int number = 0;
    for (const BalanceStep& step : balance.Steps)
        text += "\n" + std::to_string(++number) + ". " + StepText(step, units);
    return text;
}

} // namespace pistaro
