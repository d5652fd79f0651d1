// One search through a file of element sets, for the tests of this floor.
#pragma once

#include "record_fields.h"
#include "scratch_dir.h"

#include "record/files.h"

#include <memory>
#include <string>

/// ATLAS CENTAUR 2 of 20 January 2018, without its name line.
inline const std::string atlasLines = "1 00694U 63047A   18020.45477549  .00000192  00000-0  13161-4 0  9993\n"
                                      "2 00694  30.3567  49.3864 0587298 116.6761 249.5182 14.02251561713612\n";
inline const std::string atlas = "ATLAS CENTAUR 2         \n" + atlasLines;

/// A four-line record: 7000 km from the centre, 0.3 km/s outwards and 7.8 km/s across, at 50 degrees of inclination.
inline const std::string stateRecord = "TEST\n"
                                       "1 12345  98067A   18020.50000000     0 +++++STATEVCT1+++++          1\n"
                                       "  7.000000000000e+06   0.000000000000e+00   0.000000000000e+00      2\n"
                                       "  3.000000000000e+02   5.013743355555e+03   5.975146656328e+03      3\n"
                                       "  150.0   140.0     3.0   2.20000e+00   1.20000e+00   2.00000e-02   4\n";

/// A record at its defaults, and a file of any form that is searched from its start on.
class FileSearch
{
public:
    /// A file "set.tle" of these bytes in the working directory.
    explicit FileSearch(const std::string& bytes);
    /// An existing file.
    static FileSearch of(const std::string& path);

    int byName(const char* name);
    int byNumber(int norad);
    int byDesignator(const char* designator);
    int next();  // the "*" of the scans
    int more();  // goes on with the last search

    std::string name() const;
    std::string designator() const;

    std::unique_ptr<WinpData> in = std::make_unique<WinpData>();
    std::string report;

private:
    FileSearch() = default;
    int run(int mode, const std::string& text, bool continued = false);

    FilePtr file;
};
