// The flare table of a whole file of Iridium satellites, and what its commands change for their length.
#pragma once

#include "record/keep.h"
#include "record/winp_data.h"

#include <string>

struct WoutData;

/// Sets the record for a flare search, for the length of a scope: `iridflg` Iridium, attitude of the front mirror, no
/// occultations. `irmag`, `ops` and `irsol` are not among what comes back.
class IridiumSearch
{
public:
    /// From here to the end of the scope.
    explicit IridiumSearch(WinpData* in);

    /// Takes the values of the dialog. The magnitude stage runs in searches with the Moon as the light source only.
    void accept(double magnitude, bool operationalOnly, bool solarPanels);

private:
    WinpData* record;
    Keep<double> keptAngle1, keptAngle2;
    Keep<int> keptKind, keptFlares, keptMode, keptSteering, keptOccultation;
    Keep<double> keptLength;
};

/// Another save file, started anew, for the length of a scope; `savename` and `newsave` come back.
class OtherSaveFile
{
public:
    /// `name` replaces `savename`, cut to its room.
    OtherSaveFile(WinpData* in, const char* name);
    /// Puts name and mode back.
    ~OtherSaveFile();
    OtherSaveFile(const OtherSaveFile&) = delete;
    OtherSaveFile& operator=(const OtherSaveFile&) = delete;

private:
    WinpData* record;
    std::string nameBefore;
    Keep<int> keptStart;
};

/// What the Iridium Flares command searches and writes, for the length of a scope: iridium.txt and iridiumf.doc in the
/// directory of the current element file (of the global record). `irdrun` is on.
class IridiumFiles
{
public:
    /// From here to the end of the scope.
    explicit IridiumFiles(WinpData* in);
    /// Puts the names back.
    ~IridiumFiles();
    IridiumFiles(const IridiumFiles&) = delete;
    IridiumFiles& operator=(const IridiumFiles&) = delete;

private:
    WinpData* record;
    std::string elementsBefore;
    OtherSaveFile saveFile;
    Keep<bool> keptRun;
};

/// The save file of a flare search whose table is only shown, for the length of a scope: "./satird.tmp", deleted at
/// its end.
class ScratchSaveFile
{
public:
    /// From here to the end of the scope.
    explicit ScratchSaveFile(WinpData* in);
    /// Deletes the file.
    ~ScratchSaveFile();
    ScratchSaveFile(const ScratchSaveFile&) = delete;
    ScratchSaveFile& operator=(const ScratchSaveFile&) = delete;

private:
    OtherSaveFile saveFile;
};

/// Composes the flare table from the sorted save file that `AllSatAos` left, and selects the satellites of its lines
/// while there is room, one for each line. `newsave` becomes 0 and the search text the last name looked for. Without a
/// save file `out` stays empty; without an element file nothing is selected.
void Iriddspy(WinpData* in, WoutData* out);
