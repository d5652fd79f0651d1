#include "imaging/fits_header.h"

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/time_scales.h"
#include "record/files.h"

#include <array>
#include <charconv>
#include <cmath>
#include <vector>

namespace {

constexpr std::size_t cardLength = 80, blockLength = 2880, mostBytes = 2'000'000;
constexpr double secondsPerDay = 86400.0;

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && (text.back() == ' ' || text.back() == '\0'))
        text.remove_suffix(1);
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    return text;
}

/// What stands between quotes, two of which mean one.
std::string quoted(std::string_view text)
{
    std::string inside;
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] == '\'' && (i + 1 == text.size() || text[++i] != '\''))
            break;
        inside += text[i];
    }
    return std::string(trimmed(inside));
}

std::string valueOf(std::string_view card)
{
    const std::string_view field = trimmed(card.substr(10));
    return field.starts_with('\'') ? quoted(field) : std::string(trimmed(field.substr(0, field.find('/'))));
}

std::optional<double> numberOf(std::string text)
{
    for (char& c : text)
        c = c == 'D' || c == 'd' ? 'E' : c;
    const std::string_view digits = std::string_view(text).substr(text.starts_with('+') ? 1 : 0);
    double value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    const bool whole = error == std::errc() && end == digits.data() + digits.size() && !digits.empty();
    return whole && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

/// The numbers of a text with anything between them but digits and points.
std::vector<double> numbersIn(std::string_view text)
{
    std::vector<double> numbers;
    for (std::size_t i = 0; i < text.size() && numbers.size() < 7;) {
        const std::size_t end = std::min(text.find_first_not_of("0123456789.", i), text.size());
        if (const auto number = numberOf(std::string(text.substr(i, end - i))))
            numbers.push_back(*number);
        i = end == i ? i + 1 : end;
    }
    return numbers;
}

/// A plain number, or degrees, minutes and seconds.
std::optional<double> angleOf(const std::optional<std::string>& text)
{
    if (!text)
        return std::nullopt;
    if (const auto plain = numberOf(*text))
        return plain;
    const std::vector<double> parts = numbersIn(*text);
    if (parts.empty() || parts.size() > 3)
        return std::nullopt;
    double degrees = parts[0];
    for (std::size_t i = 1; i < parts.size(); ++i)
        degrees += parts[i] / (i == 1 ? 60.0 : 3600.0);
    const bool negative = text->find_first_of("-SWsw") != std::string::npos;
    return negative ? -degrees : degrees;
}

std::optional<double> firstAngle(const FitsHeader& header, std::initializer_list<const char*> keywords)
{
    for (const char* keyword : keywords)
        if (const auto angle = angleOf(header.text(keyword)))
            return angle;
    return std::nullopt;
}

std::optional<double> firstNumber(const FitsHeader& header, std::initializer_list<const char*> keywords)
{
    for (const char* keyword : keywords)
        if (const auto number = header.number(keyword))
            return number;
    return std::nullopt;
}

/// The place above the ellipsoid of an Earth-fixed one in metres; Bowring, Surv. Rev. 23, 323 (1976), a round of it.
Site siteFrom(double x, double y, double z)
{
    constexpr double a = 6378137.0, f = 1.0 / 298.257223563, b = a * (1.0 - f);
    constexpr double e2 = f * (2.0 - f), second = e2 / (1.0 - e2);
    const double p = std::hypot(x, y), u = std::atan2(z * a, p * b);
    const double lat = std::atan2(z + second * b * std::pow(std::sin(u), 3), p - e2 * a * std::pow(std::cos(u), 3));
    const double n = a / std::sqrt(1.0 - e2 * std::sin(lat) * std::sin(lat));
    const double height = std::abs(lat) < 0.8 ? p / std::cos(lat) - n : z / std::sin(lat) - n * (1.0 - e2);
    return {lat * degPerRad, std::atan2(y, x) * degPerRad, height};
}

std::optional<Site> siteOf(const FitsHeader& header)
{
    const auto lat = firstAngle(header, {"SITELAT", "LAT-OBS", "OBSGEO-B", "GEOLAT", "LATITUDE", "OBSLAT"});
    const auto lng =
        firstAngle(header, {"SITELONG", "SITELON", "LONG-OBS", "OBSGEO-L", "GEOLON", "LONGITUD", "OBSLONG"});
    const auto height = firstNumber(header, {"SITEELEV", "SITEALT", "ALT-OBS", "OBSGEO-H", "GEOELEV", "OBSALT"});
    if (lat && lng && std::abs(*lat) <= 90.0 && std::abs(*lng) <= 360.0)
        return Site{*lat, std::remainder(*lng, 360.0), height.value_or(0.0)};
    const auto x = header.number("OBSGEO-X"), y = header.number("OBSGEO-Y"), z = header.number("OBSGEO-Z");
    constexpr double leastMetres = 6.0e6, mostMetres = 7.0e6;
    if (!x || !y || !z)
        return std::nullopt;
    const double radius = std::hypot(*x, *y, *z);
    return radius > leastMetres && radius < mostMetres ? std::optional(siteFrom(*x, *y, *z)) : std::nullopt;
}

/// Seconds that a time scale is ahead of UTC.
double aheadOfUtc(const std::string& scale, double mjd)
{
    if (scale != "TAI" && scale != "TT" && scale != "TDB")
        return 0.0;
    constexpr double utcTaiSince2017 = 37.0;
    int day = 0, month = 0, year = 0;
    double hour = 0;
    caldat(mjd, day, month, year, hour);
    const double taiUtc = year >= 2017 ? utcTaiSince2017 : DefTdUt(year) - ttTaiSeconds;
    return scale == "TAI" ? taiUtc : taiUtc + ttTaiSeconds;
}

/// MJD UTC of a time in the scale of the header.
std::optional<double> instantInScale(const FitsHeader& header, std::string_view text)
{
    const auto mjd = instantOfIso(text);
    if (!mjd)
        return std::nullopt;
    return *mjd - aheadOfUtc(header.text("TIMESYS").value_or("UTC"), *mjd) / secondsPerDay;
}

std::optional<double> beginOf(const FitsHeader& header, const std::optional<double>& exposure, std::string& doubt)
{
    for (const char* keyword : {"DATE-BEG", "DATE-OBS", "DATE-AVG"}) {
        auto text = header.text(keyword);
        if (!text)
            continue;
        if (text->find('T') == std::string::npos)
            for (const char* clock : {"TIME-OBS", "UT", "UTC", "UTSTART", "TIME"})
                if (const auto time = header.text(clock)) {
                    text = *text + 'T' + *time;
                    break;
                }
        const auto mjd = instantInScale(header, *text);
        if (!mjd) {
            doubt = std::string(keyword) + " \"" + *text + "\" is no time";
            continue;
        }
        const bool middle = std::string_view(keyword) == "DATE-AVG";
        const double half = middle ? exposure.value_or(0.0) / 2.0 : 0.0;
        return *mjd - half / secondsPerDay;
    }
    if (const auto mjd = header.number("MJD-OBS"))
        return mjd;
    return std::nullopt;
}

}  // namespace

FitsHeader::FitsHeader(std::string_view cards)
{
    for (std::size_t at = 0; at + cardLength <= cards.size(); at += cardLength) {
        const std::string_view card = cards.substr(at, cardLength);
        const std::string keyword(trimmed(card.substr(0, 8)));
        if (keyword == "END")
            break;
        if (card[8] == '=' && !keyword.empty())
            values.emplace(keyword, valueOf(card));
    }
}

std::optional<std::string> FitsHeader::text(std::string_view keyword) const
{
    const auto found = values.find(keyword);
    return found == values.end() || found->second.empty() ? std::nullopt : std::optional(found->second);
}

std::optional<double> FitsHeader::number(std::string_view keyword) const
{
    const auto value = text(keyword);
    return value ? numberOf(*value) : std::nullopt;
}

FitsHeader headerOfFile(const char* name)
{
    const FilePtr file(std::fopen(name, "rb"));
    std::string cards;
    std::array<char, blockLength> block{};
    while (file && cards.size() < mostBytes &&
           std::fread(block.data(), 1, block.size(), file.get()) == block.size()) {
        cards.append(block.data(), block.size());
        if (!cards.starts_with("SIMPLE  ="))
            return {};
        for (std::size_t at = 0; at < block.size(); at += cardLength)
            if (std::string_view(block.data() + at, cardLength).starts_with("END     "))
                return FitsHeader(cards);
    }
    return {};
}

std::optional<double> instantOfIso(std::string_view text)
{
    const std::vector<double> parts = numbersIn(text);
    if (parts.size() < 3 || parts.size() > 6)
        return std::nullopt;
    const double hour = parts.size() > 3 ? parts[3] : 0.0, minute = parts.size() > 4 ? parts[4] : 0.0;
    const double second = parts.size() > 5 ? parts[5] : 0.0;
    const auto whole = [](double value, double least, double most) {
        return value >= least && value <= most && value == std::floor(value);
    };
    const bool good = whole(parts[0], 1900, 2200) && whole(parts[1], 1, 12) && whole(parts[2], 1, 31) &&
                      whole(hour, 0, 24) && whole(minute, 0, 59) && second < 61.0;
    if (!good)
        return std::nullopt;
    const double hours = hour + minute / 60.0 + second / 3600.0;
    return mjd(int(parts[2]), int(parts[1]), int(parts[0]), 0.0) + hours / 24.0;
}

PictureFacts factsOf(const FitsHeader& header)
{
    PictureFacts facts;
    facts.exposure = firstNumber(header, {"EXPTIME", "EXPOSURE", "XPOSURE", "TELAPSE"});
    if (facts.exposure && !(*facts.exposure >= 0.0 && *facts.exposure <= secondsPerDay))
        facts.exposure.reset();
    facts.begin = beginOf(header, facts.exposure, facts.doubt);
    if (const auto end = header.text("DATE-END"); end && facts.begin && !facts.exposure)
        if (const auto last = instantInScale(header, *end);
            last && *last >= *facts.begin && *last < *facts.begin + 1.0)
            facts.exposure = (*last - *facts.begin) * secondsPerDay;
    facts.site = siteOf(header);
    const std::string frame = header.text("RADESYS").value_or("");
    const double year = header.number("EQUINOX").value_or(frame == "FK4" ? 1950.0 : 2000.0);
    facts.equinox = frame == "ICRS" || !(year > 1800.0 && year < 2200.0) ? 2000.0 : year;
    return facts;
}
