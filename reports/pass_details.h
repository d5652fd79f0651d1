// One pass of the last table step by step: for the display, for the save file, and as a ground track.
#pragma once

#include <string>

class HorizonLine;
class QString;
struct WinpData;

/// Forms of the listing.
namespace passform {
enum Mode
{
    display = 0,
    save = 1,        // without degree signs
    groundTrack = 2  // longitude, latitude and height of the satellite
};
}

constexpr int passDetailsRoom = 512;
constexpr int mostSavedSteps = 16250;  // of a listing in a file

/// The first step of a listing: the start of a pass (MJD UTC), moved on to the next full minute or second as the time
/// step (days) asks.
double alignedStart(double t, double step);

/// Composes one step of the pass `aossel` of the table, the first one after its heading.
///
/// @param t     time of the step, MJD UTC; must be 0.0 at the first call of a listing, and is moved on by `tmstep`
/// @param text  at least `passDetailsRoom` characters
/// @param horizon  the line of the place, see `PassLimits`; null: none
/// @return      1 if the visibility conditions hold; 0 ends the listing, and the text is to be dropped
///
/// `tmaxel` becomes the time of the greatest elevation so far. Uses the record `satpos`. With Sun transits the limit
/// `sunel` plays no part.
int GetPassDTxt(WinpData* in, double& t, char* text, int mode, const HorizonLine* horizon = nullptr);

/// Composes the apparent pole of the orbit: that of the great circle through the places of the satellite around
/// `tmaxel`, as they stand in the frame of `yrepoch`. The one above the horizon counts.
///
/// @param text  at least `passDetailsRoom` characters; two newlines alone in relative mode
void GetPoleTxt(WinpData* in, char* text);

/// For a window: a step of the display form, or the lines of the pole.
///
/// @return  whether a listing goes on: the result of `GetPassDTxt`, 0 for the pole
int vsGetPassDTxt(double& t, QString& text, bool pole, const HorizonLine* horizon = nullptr);

/// Writes the listing to the save file, with `passform::save` also the pole after two steps or more.
///
/// A file of another form than text, by the ending of its name, takes the same steps in that form, see
/// `reports/save_forms.h`.
///
/// The file starts anew if `newsave` is set, which then becomes 0; a file that cannot be written leaves `newsave`.
///
/// @param mode    a `passform::Mode`
/// @param reason  receives why the file cannot be written, for a reader
/// @return        false if nothing was written, also because the listener ended the calculation
bool savePassDetails(WinpData* in, int mode, std::string& reason, const HorizonLine* horizon = nullptr);

/// The same for the record of the program.
bool vsSavePassDt(int mode, std::string* why = nullptr, const HorizonLine* horizon = nullptr);
