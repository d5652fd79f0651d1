// Visible passes of one satellite over one place in a day: passes FILE NUMBER LATITUDE LONGITUDE YEAR MONTH DAY
#include "astro/calendar.h"
#include "elements/element_file.h"
#include "elements/reader.h"
#include "engine/prediction.h"
#include "exports/time_text.h"
#include "record/numbers.h"

int main(int argc, char* argv[])
{
    WinpData in;
    setDefaults(&in);
    in.srcmd = 1;  // by number
    in.norad[workSlot] = argc == 8 ? wholeNumber(argv[2]) : 0;
    const FilePtr file = openElementFile(argc == 8 ? argv[1] : "");
    char report[entryTextRoom];
    if (!file || tleread(&in, file.get(), report, 0) == 0)
        return 1;
    const Site site{Atof(argv[3]), Atof(argv[4])};
    const double start = mjd(wholeNumber(argv[7]), wholeNumber(argv[6]), wholeNumber(argv[5]), 0.0);
    for (const Pass& pass : predictPasses(orbitOf(in, workSlot), site, start, start + 1.0))
        std::printf("%s  %2.0f deg\n", isoTime(pass.tm[1]).c_str(), pass.a[1]);
}
