// Headers of pictures: any bytes give facts that are finite, and a solution that answers or complains.

#include "fuzz/fuzz_target.h"

#include "imaging/plate_solution.h"

#include <cmath>
#include <string_view>

using fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const FitsHeader header(std::string_view(reinterpret_cast<const char*>(data), size));
    const PictureFacts facts = factsOf(header);
    require(!facts.begin || std::isfinite(*facts.begin), "the time is finite");
    require(!facts.exposure || *facts.exposure >= 0.0, "the exposure is a length");
    require(!facts.site || (std::isfinite(facts.site->height) && std::abs(facts.site->lat) <= 90.0),
            "the place is one on Earth");
    const ReadSolution solution = solutionOf(header);
    require(bool(solution.plate) == solution.complaint.empty(), "there is a solution or a complaint");
    if (solution.plate)
        for (const PicturePoint pixel : {PicturePoint{1, 1}, {-1e9, 1e9}, {3000, 2000}})
            if (const auto place = solution.plate->skyOf(pixel)) {
                require(std::isfinite(place->ra) && std::isfinite(place->dec), "the place is finite");
                const auto back = solution.plate->pixelOf(*place);
                require(!back || (std::isfinite(back->x) && std::isfinite(back->y)), "the pixel is finite");
            }
    return 0;
}
