// Observation reports: whatever the text, an observation is one of the sky and of the calendar, and what is written of
// it reads as the same one.

#include "fuzz/fuzz_target.h"

#include "observing/report_forms.h"

#include <cmath>

namespace {

using fuzz::require;

void checkValues(const Observation& o)
{
    require(o.mjd > 15000.0 && o.mjd < 3e6, "the time is one of the calendar");
    require(std::abs(o.second) <= 90.0 && o.first >= 0.0 && o.first < 361.0, "the place is one of the sky");
    require(o.timeError >= 0.0 && o.angleError >= 0.0 && o.period >= 0.0, "errors are sizes");
    require(o.station >= 0 && o.station <= 9999 && o.number >= 0, "numbers are those of the columns");
}

/// Within the last digit of a form.
void checkSame(const Observation& one, const Observation& other, double degrees)
{
    require(std::abs(one.mjd - other.mjd) * 86400.0 < 0.0051, "the time comes back");
    require(one.angles == other.angles, "the kind of angles comes back");
    require(std::abs(one.second - other.second) < degrees, "the declination comes back");
    require(std::abs(std::remainder(one.first - other.first, 360.0)) < degrees * 15.0,
            "the right ascension comes back");
}

void checkWriting(const Observation& o)
{
    for (const ReportForm form : {ReportForm::iod, ReportForm::uk, ReportForm::rde}) {
        const WrittenReport written = writeReports(std::span(&o, 1), form);
        require(written.text.empty() != written.complaint.empty(), "a report is written, or it is said why not");
        const ReportContent again = readReports(written.text);
        require(again.observations.size() == (written.text.empty() ? 0 : 1), "what is written reads again");
        if (!written.text.empty())
            checkSame(o, again.observations[0], 0.0003);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const ReportContent content = readReports({reinterpret_cast<const char*>(data), size});
    require(content.complaints.size() <= 100, "complaints come to an end");
    for (const Observation& o : content.observations) {
        checkValues(o);
        checkWriting(o);
    }
    return 0;
}
