// Passes of one satellite over one place in a day: passes FILE NUMBER LATITUDE LONGITUDE YEAR MONTH DAY
#include "astro/calendar.h"
#include "elements/element_file.h"
#include "elements/reader.h"
#include "engine/aos_list.h"
#include "engine/pass_search.h"
#include "exports/time_text.h"
#include "record/numbers.h"

int main(int argc, char* argv[])
{
    WinpData in;
    setDefaults(&in);  // above 10 degrees, in sunlight, with the Sun 6 degrees below the horizon
    in.srcmd = 1;      // by number
    in.norad[workSlot] = argc == 8 ? wholeNumber(argv[2]) : 0;
    const FilePtr file = openElementFile(argc == 8 ? argv[1] : "");
    char report[entryTextRoom];
    if (!file || tleread(&in, file.get(), report, 0) == 0)
        return 1;
    ShiftElm(&in, 0, workSlot);
    in.lat = Atof(argv[3]);
    in.lng = Atof(argv[4]);
    const double start = mjd(wholeNumber(argv[7]), wholeNumber(argv[6]), wholeNumber(argv[5]), 0.0);
    Pass pass;
    for (double t = start; nextpass(&in, 0, t, start + 1, pass.tm, pass.a, pass.b); t = timeAfterPass(in, 0, pass))
        std::printf("%s  %2.0f deg\n", isoTime(pass.tm[1]).c_str(), pass.a[1]);
}
