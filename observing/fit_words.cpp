#include "observing/fit_words.h"

#include "exports/rows.h"

#include <algorithm>

namespace {

constexpr std::size_t nameWidth = 12;

std::string padded(const std::string& text)
{
    return std::string(nameWidth + 1 - std::min(nameWidth, text.size()), ' ') + text;
}

std::string valueLine(const FitRequest& request, const FitResult& fit, std::size_t k)
{
    const ElementWords& words = elementWords[k];
    const auto shown = [&](double value) { return fixedNumber(value, words.decimals); };
    const std::string error = request.free[k] ? " +- " + shown(fit.sigma[k]) : " held";
    return std::string(words.name) + ": " + shown(fittedValues(request.start.elements)[k]) + " -> " +
           shown(fittedValues(fit.orbit.elements)[k]) + error + ' ' + words.unit + '\n';
}

/// Below the diagonal; the last column is its own row's.
std::string correlationLines(const FitRequest& request, const FitResult& fit)
{
    std::string text, head = std::string(nameWidth, ' ');
    for (std::size_t row = 0; row < elementWords.size(); ++row) {
        if (!request.free[row])
            continue;
        const std::string name = elementWords[row].name;
        std::string line = name + std::string(nameWidth - name.size(), ' ');
        for (std::size_t column = 0; column < row; ++column)
            if (request.free[column])
                line += padded(fixedNumber(fit.correlation[row][column], 3));
        text += line + '\n';
        head += padded(name);
    }
    return "correlations\n" + head + '\n' + text;
}

}  // namespace

std::array<double, fitted::count> fittedValues(const Elements& e)
{
    return {e.inc, e.ra, e.ecc, e.aper, e.m0, e.n0, e.bstar};
}

std::string fitSummary(const FitRequest& request, const FitResult& fit)
{
    std::string text = "rms " + fixedNumber(fit.rms, 2) + " standard errors\n";
    for (std::size_t k = 0; k < elementWords.size(); ++k)
        text += valueLine(request, fit, k);
    text += correlationLines(request, fit);
    for (const std::string& warning : fit.warnings)
        text += "warning: " + warning + '\n';
    return text;
}
