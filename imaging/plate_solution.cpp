#include "imaging/plate_solution.h"

#include "astro/angles.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <string_view>
#include <utility>
#include <vector>

#ifdef VORLIX_WCSLIB
#include <wcslib/wcs.h>
#include <wcslib/wcserr.h>
#include <wcslib/wcsfix.h>
#include <wcslib/wcshdr.h>
#endif

#include <Eigen/Dense>

namespace {

#ifdef VORLIX_WCSLIB

class WcsPlate : public PlateSolution
{
public:
    WcsPlate(int theCount, wcsprm* theList, int index) : count(theCount), list(theList), wcs(theList + index) {}
    ~WcsPlate() override { wcsvfree(&count, &list); }
    WcsPlate(const WcsPlate&) = delete;
    WcsPlate& operator=(const WcsPlate&) = delete;

    std::optional<SkyPoint> skyOf(const PicturePoint& pixel) override
    {
        const double from[2] = {pixel.x, pixel.y};
        double middle[2], phi, theta, world[2];
        int bad = 0;
        if (wcsp2s(wcs, 1, 2, from, middle, &phi, &theta, world, &bad) != 0)
            return std::nullopt;
        const SkyPoint place{world[wcs->lng], world[wcs->lat]};
        return std::isfinite(place.ra) && std::isfinite(place.dec) ? std::optional(place) : std::nullopt;
    }

    std::optional<PicturePoint> pixelOf(const SkyPoint& place) override
    {
        double world[2], middle[2], phi, theta, to[2];
        world[wcs->lng] = place.ra;
        world[wcs->lat] = place.dec;
        int bad = 0;
        if (wcss2p(wcs, 1, 2, world, &phi, &theta, middle, to, &bad) != 0)
            return std::nullopt;
        return std::isfinite(to[0]) && std::isfinite(to[1]) ? std::optional(PicturePoint{to[0], to[1]})
                                                            : std::nullopt;
    }

private:
    int count;
    wcsprm* list;
    wcsprm* wcs;
};

/// What is left of a keyword behind one of its beginnings, if it is one of them.
std::optional<std::string_view> behind(std::string_view keyword, std::initializer_list<std::string_view> beginnings)
{
    for (const std::string_view beginning : beginnings)
        if (keyword.starts_with(beginning))
            return keyword.substr(beginning.size());
    return std::nullopt;
}

/// "2_11" as 2 and 11; of one number the second is 0.
std::optional<std::pair<int, int>> indicesOf(std::string_view text)
{
    int numbers[2] = {}, count = 0;
    for (; count < 2 && !text.empty(); ++count) {
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), numbers[count]);
        const std::size_t used = std::size_t(end - text.data());
        if (error != std::errc() || used > 2 || text[0] == '-')
            return std::nullopt;
        text.remove_prefix(used);
        if (text.empty())
            return std::pair(numbers[0], numbers[1]);
        if (text[0] != '_')
            return std::nullopt;
        text.remove_prefix(1);
    }
    return std::nullopt;
}

/// Whether a number of a header belongs to a solution of two axes.
bool isSolutionNumber(const FitsHeader& header, std::string_view keyword)
{
    constexpr int mostParameters = 39, mostOrder = 9;
    const auto axis = [](int i) { return i == 1 || i == 2; };
    if (keyword == "LONPOLE" || keyword == "LATPOLE" || keyword == "EQUINOX")
        return true;
    if (const auto rest = behind(keyword, {"CRVAL", "CRPIX", "CDELT", "CROTA"}))
        return *rest == "1" || *rest == "2";
    for (const std::string_view sip : {"A", "B", "AP", "BP"})
        if (const auto rest = behind(keyword, {std::string(sip) + '_'})) {
            const double order = header.number(std::string(sip) + "_ORDER").value_or(-1.0);
            if (!(order >= 1.0 && order <= mostOrder && order == std::floor(order)))
                return false;
            const auto powers = indicesOf(*rest);
            return *rest == "ORDER" || (powers && rest->find('_') != std::string_view::npos &&
                                        powers->first + powers->second <= int(order));
        }
    if (const auto rest = behind(keyword, {"CD", "PC"})) {
        const auto at = indicesOf(*rest);
        return at && axis(at->first) && axis(at->second);
    }
    const auto rest = behind(keyword, {"PV"});
    const auto at = rest ? indicesOf(*rest) : std::nullopt;
    return at && rest->find('_') != std::string_view::npos && axis(at->first) && at->second <= mostParameters;
}

bool isPlainWord(std::string_view text)
{
    return text.size() <= 20 && std::ranges::all_of(text, [](char c) {
               return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-';
           });
}

/// The cards of a solution and nothing else, written anew: the library sees no damaged ones.
std::string solutionCards(const FitsHeader& header)
{
    constexpr double largest = 1e30;
    std::string cards;
    const auto add = [&](const std::string& keyword, const std::string& value) {
        std::string card = keyword + std::string(8 - std::min<std::size_t>(keyword.size(), 8), ' ') + "= " + value;
        card.resize(80, ' ');
        cards += card;
    };
    add("WCSAXES", "2");
    for (const char* word : {"CTYPE1", "CTYPE2", "CUNIT1", "CUNIT2", "RADESYS"})
        if (const auto value = header.text(word); value && isPlainWord(*value))
            add(word, '\'' + *value + std::string(8 - std::min<std::size_t>(value->size(), 8), ' ') + '\'');
    for (const auto& [keyword, text] : header.all()) {
        const auto value = header.number(keyword);
        if (!value || std::abs(*value) > largest || !isSolutionNumber(header, keyword))
            continue;
        std::array<char, 40> digits{};
        std::snprintf(digits.data(), digits.size(), keyword.ends_with("_ORDER") ? "%.0f" : "%.16E", *value);
        std::string number = digits.data();
        std::ranges::replace(number, ',', '.');
        add(keyword, number);
    }
    return cards;
}

bool isCelestialPlane(wcsprm& wcs)
{
    return wcs.naxis == 2 && wcsset(&wcs) == 0 && wcs.lng >= 0 && wcs.lat >= 0;
}

#endif

/// From the plane that touches the sky at a point; radians.
class AffinePlate : public PlateSolution
{
public:
    AffinePlate(const SkyPoint& theCentre, const Eigen::Matrix<double, 3, 2>& theConstants)
        : centre(theCentre), constants(theConstants)
    {}

    std::optional<SkyPoint> skyOf(const PicturePoint& pixel) override
    {
        const Eigen::RowVector2d at = Eigen::RowVector3d(pixel.x, pixel.y, 1.0) * constants;
        const double d0 = centre.dec * radPerDeg, r = std::cos(d0) - at[1] * std::sin(d0);
        const double ra = centre.ra + std::atan2(at[0], r) * degPerRad;
        const double dec = std::atan2(std::sin(d0) + at[1] * std::cos(d0), std::hypot(at[0], r)) * degPerRad;
        return SkyPoint{ra - 360.0 * std::floor(ra / 360.0), dec};
    }

    std::optional<PicturePoint> pixelOf(const SkyPoint& place) override
    {
        const auto at = planeOf(centre, place);
        if (!at)
            return std::nullopt;
        const Eigen::RowVector2d off = *at - constants.row(2);
        const Eigen::RowVector2d pixel = off * constants.topRows<2>().inverse();
        return pixel.allFinite() ? std::optional(PicturePoint{pixel[0], pixel[1]}) : std::nullopt;
    }

    static std::optional<Eigen::RowVector2d> planeOf(const SkyPoint& centre, const SkyPoint& place)
    {
        const double d0 = centre.dec * radPerDeg, d = place.dec * radPerDeg, a = (place.ra - centre.ra) * radPerDeg;
        const double ahead = std::sin(d) * std::sin(d0) + std::cos(d) * std::cos(d0) * std::cos(a);
        if (!(ahead > 0.01))
            return std::nullopt;
        return Eigen::RowVector2d(std::cos(d) * std::sin(a) / ahead,
                                  (std::sin(d) * std::cos(d0) - std::cos(d) * std::sin(d0) * std::cos(a)) / ahead);
    }

private:
    SkyPoint centre;
    Eigen::Matrix<double, 3, 2> constants;
};

}  // namespace

bool readsSolutions()
{
#ifdef VORLIX_WCSLIB
    return true;
#else
    return false;
#endif
}

ReadSolution solutionOf(const FitsHeader& header)
{
#ifdef VORLIX_WCSLIB
    std::string cards = solutionCards(header);
    int rejected = 0, count = 0;
    wcsprm* list = nullptr;
    if (header.empty() || wcspih(cards.data(), int(cards.size() / 80), WCSHDR_all, 0, &rejected, &count, &list) != 0)
        return {nullptr, header.empty() ? "neither it nor a .wcs file beside it has a header"
                                        : "the header holds no solution that can be read"};
    for (int i = 0; i < count; ++i)
        if (isCelestialPlane(list[i]))
            return {std::make_unique<WcsPlate>(count, list, i), {}};
    wcsvfree(&count, &list);
    return {nullptr, "the header holds no celestial coordinates of two axes"};
#else
    return {nullptr, header.empty() ? "neither it nor a .wcs file beside it has a header"
                                    : "this program was built without WCSLIB, which reads solutions"};
#endif
}

StarPlate plateThrough(std::span<const PlateStar> stars)
{
    constexpr Eigen::Index unknowns = 3;
    if (stars.size() < unknowns)
        return {nullptr, {}, "a plate needs three stars"};
    const Eigen::Index rows = Eigen::Index(stars.size());
    const SkyPoint centre = stars.front().place;
    Eigen::MatrixXd pixels(rows, unknowns), plane(rows, 2);
    for (Eigen::Index i = 0; i < rows; ++i) {
        const PlateStar& star = stars[std::size_t(i)];
        const auto at = AffinePlate::planeOf(centre, star.place);
        if (!at)
            return {nullptr, {}, "two of the stars are too far from each other"};
        pixels.row(i) << star.pixel.x, star.pixel.y, 1.0;
        plane.row(i) = *at;
    }
    const auto factors = pixels.colPivHouseholderQr();
    if (factors.rank() < unknowns)
        return {nullptr, {}, "the stars lie on one line"};
    const Eigen::Matrix<double, 3, 2> constants = factors.solve(plane);
    if (std::abs(constants.topRows<2>().determinant()) < 1e-20)
        return {nullptr, {}, "the stars lie on one line"};
    StarPlate result{std::make_unique<AffinePlate>(centre, constants), {}, {}};
    for (const PlateStar& star : stars) {
        const auto at = result.plate->pixelOf(star.place);
        result.offPixels.push_back(at ? std::hypot(at->x - star.pixel.x, at->y - star.pixel.y) : 0.0);
    }
    return result;
}
