// The actions of the main window, in the order in which they are made.

#include "app/vorlix_app.h"

#include <array>

#include <QtGlobal>

// Marks a text of the table for translation; the loop that walks the table calls tr.
#define TEXT(text) QT_TRANSLATE_NOOP("VorlixApp", text)

// NOLINTNEXTLINE(readability-function-size): a table; it names private members, so it stands in a member
std::span<const VorlixApp::ActionRow> VorlixApp::actionRows()
{
    using App = VorlixApp;
    // clang-format off
    static const std::array rows{
        ActionRow{&App::fileOpen, "fileOpen", TEXT("&Open TLE File..."), "Ctrl+F", "fileopen",
            TEXT("Opens a Two Line Element file"),
            TEXT("Open TLE File\n\nOpens an existing Two Line Element file. A TLE file contains orbit elements in a "
                 "particular widely used format."),
            &App::slotFileOpen, nullptr},
        ActionRow{&App::fileUpdate, "fileUpdate", TEXT("Onl&ine TLE Update"), "Ctrl+I", "",
            TEXT("Download of TLE files"),
            TEXT("Online TLE Update\n\nDownloads a Two Line Element file and stores it beside the present one. The "
                 "download runs in the background; if it fails, a file of the same name keeps its former contents."),
            &App::slotFileUpdate, nullptr},
        ActionRow{&App::fileSave, "fileSave", TEXT("&Save"), "", "filesave",
            TEXT("Saves the result of the AOS calculation"),
            TEXT("Save\n\nCalculates the visibility times and writes the table to the save file. The first list after "
                 "a change of the file name replaces the file, each further list is added to its end."),
            &App::slotFileSave, nullptr},
        ActionRow{&App::fileSaveAs, "fileSaveAs", TEXT("Save &as..."), "", "",
            TEXT("Saves the result of the AOS calculations under a new filename"),
            TEXT("Save As\n\nAsks for the name of the save file, calculates the visibility times and writes the table "
                 "to it. The name lasts until the program ends."),
            &App::slotFileSaveAs, nullptr},
        ActionRow{&App::fileTLESave, "fileTLESave", TEXT("Save &TLE"), "", "",
            TEXT("Saves the currently used orbit elements."),
            TEXT("Save TLE\n\nWrites the orbit elements of the selected satellites to the TLE save file. Use it to "
                 "keep elements which have been edited, generated or propagated."),
            &App::slotFileTLESave, nullptr},
        ActionRow{&App::fileTLESaveAs, "fileTLESaveAs", TEXT("Save T&LE as..."), "", "",
            TEXT("Saves the currently used orbit elements under a new filename"),
            TEXT("Save TLE As\n\nAsks for the name of the TLE save file and writes the orbit elements of the selected "
                 "satellites to it. An existing file of this name is replaced."),
            &App::slotFileTLESaveAs, nullptr},
        ActionRow{&App::filePicture, "filePicture", TEXT("&Picture..."), "", "", "",
            TEXT("Picture\n\nLoads a picture of a satellite trail. After three stars have been identified, each "
                 "further click gives the celestial coordinates of a point of the picture."),
            &App::slotFilePicture, nullptr},
        ActionRow{&App::fileQuit, "fileQuit", TEXT("E&xit"), "Ctrl+Q", "",
            TEXT("Quits Vorlix"),
            TEXT("Exit\n\nQuits Vorlix and saves various settings."),
            &App::slotFileQuit, nullptr},

        ActionRow{&App::inputSelectSat, "inputSelectSat", TEXT("&Select Satellite"), "Ctrl+S", "satpsels",
            TEXT("Select Satellite from TLE file."),
            TEXT("Select Satellite\n\nSearches the TLE file by name, NORAD number or international designator and "
                 "adds the satellites found to the list. Up to ten satellites can be selected."),
            &App::slotInputSelectSat, nullptr},
        ActionRow{&App::inputRemoveSat, "inputRemoveSat", TEXT("&Remove Satellite"), "Ctrl+Z", "",
            TEXT("Removes satellites from the list of selected satellites."),
            TEXT("Remove Satellite\n\nShows the selected satellites and removes those which are marked."),
            &App::slotInputRemoveSat, nullptr},
        ActionRow{&App::inputNextSat, "inputNextSat", TEXT("&Next Satellites"), "Ctrl+P", "satpnx4p",
            TEXT("Selects the next satellites which will pass the observation site."),
            TEXT("Next Satellites\n\nSearches the whole TLE file for the satellites which will pass the observation "
                 "site next, within about two hours from now. The first ten of them become the new selection and "
                 "are shown in real time. The visibility settings apply."),
            &App::slotInputNextSat, nullptr},
        ActionRow{&App::inputDate, "inputDate", TEXT("&Date"), "Ctrl+D", "satpdate",
            TEXT("Input date and timezone"),
            TEXT("Date\n\nSets the date and time at which predictions and delta time plots begin, their duration, "
                 "and the timezone. The real time display can be given an offset to the clock of the computer."),
            &App::slotInputDate, nullptr},
        ActionRow{&App::inputLocation, "inputLocation", TEXT("&Location"), "Ctrl+C", "satploc",
            TEXT("Set the observation site."),
            TEXT("Location\n\nSets the latitude, longitude and height of the observation site and its name. Northern "
                 "latitudes and eastern longitudes are positive."),
            &App::slotInputLocation, nullptr},
        ActionRow{&App::inputIers, "inputIers", TEXT("&IERS Parameters"), "", "",
            TEXT("Set IERS Parameters"),
            TEXT("IERS Parameters\n\nSets the differences UTC - TAI and UT1 - UTC and the coordinates of the pole as "
                 "published by the International Earth Rotation Service. The defaults are good enough for most "
                 "observations."),
            &App::slotInputIers, nullptr},

        ActionRow{&App::calcAOS, "calcAOS", TEXT("&AOS"), "Ctrl+A", "satppaos",
            TEXT("Calculate visibility times for passes."),
            TEXT("AOS\n\nLists the passes of the prime satellite with their start, maximum and end, from the start "
                 "date on and for the set duration. The visibility settings decide which passes are listed. A click "
                 "on a line of the table shows the details of the pass."),
            &App::slotCalcAOS, nullptr},
        ActionRow{&App::calcOrbitTrack, "calcOrbitTrack", TEXT("Write &Orbit Track"), "Ctrl+O", "",
            TEXT("Write the orbit track on file."),
            TEXT("Write Orbit Track\n\nWrites time, longitude, latitude and height of the prime satellite to the save "
                 "file, a line for each time step of the set duration. The file is replaced."),
            &App::slotCalcOrbitTrack, nullptr},
        ActionRow{&App::calcAllSats, "calcAllSats", TEXT("All Satellite &Passes"), "", "",
            TEXT("Calculate visibility times for passes of all satellites."),
            TEXT("All Satellite Passes\n\nSearches the passes of every satellite of the TLE file and writes them to "
                 "the save file, sorted by time. This can take a while for large files."),
            &App::slotCalcAllSats, nullptr},
        ActionRow{&App::calcIridium, "calcIridium", TEXT("&Iridium Flares"), "", "satpirid",
            TEXT("Calculate Iridium Flares."),
            TEXT("Iridium Flares\n\nSearches the flares of all Iridium satellites for the set duration. The orbit "
                 "elements are read from the file iridium.txt beside the present TLE file."),
            &App::slotCalcIridium, nullptr},
        ActionRow{&App::calcMatch, "calcMatch", TEXT("&Find Matching Sats"), "", "satpfind",
            TEXT("Find satellites which match a particular position and time."),
            TEXT("Find Matching Satellites\n\nSearches the TLE file for satellites which were near a given position "
                 "of the sky at a given time. The direction of their movement can be taken into account."),
            &App::slotCalcMatch, nullptr},

        ActionRow{&App::manvEdit, "manvEdit", TEXT("&Edit Orbit Elements"), "Ctrl+E", "satpxorb",
            TEXT("Edit orbit elements of selected satellite."),
            TEXT("Edit Orbit Elements\n\nShows the orbit elements of the prime satellite and allows to change them. "
                 "The propagation model is selected here as well, and new satellites can be entered."),
            &App::slotManvEdit, nullptr},
        ActionRow{&App::manvDeltaV, "manvDeltaV", TEXT("Delta-&V"), "", "",
            TEXT("Perform a delta-v maneuver or continuous thrust of selected satellite."),
            TEXT("Delta-V\n\nChanges the velocity of the prime satellite at a given time by a given amount and "
                 "direction. With numeric propagation a continuous thrust can be applied instead."),
            &App::slotManvDeltaV, nullptr},
        ActionRow{&App::manvLaunch, "manvLaunch", TEXT("&Launch"), "Ctrl+L", "",
            TEXT("Calculate a launch orbit."),
            TEXT("Launch\n\nCalculates the orbit of a satellite from its launch site, launch time, inclination and "
                 "heights of perigee and apogee."),
            &App::slotManvLaunch, nullptr},
        ActionRow{&App::manvRendz, "manvRendz", TEXT("&Rendezvous"), "", "",
            TEXT("Rendezvous Launch Orbit."),
            TEXT("Rendezvous\n\nFinds the launch time and the orbit of a satellite which is to meet the prime "
                 "satellite."),
            &App::slotManvRendz, nullptr},
        ActionRow{&App::manvOrbDet, "manvOrbDet", TEXT("&Orbit Determination"), "", "",
            TEXT("Determine a circular orbit during a pass."),
            TEXT("Orbit Determination\n\nDetermines a circular orbit from two observed positions of one pass and the "
                 "time between them. Optionally the TLE file is searched for satellites which match."),
            &App::slotManvOrbDet, nullptr},

        ActionRow{&App::plotRT, "plotRT", TEXT("&Real Time"), "Ctrl+R", "satprtim",
            TEXT("Plot Real Time positions of selected satellites."),
            TEXT("Real Time\n\nShows the present positions of the selected satellites, once a second. Select it "
                 "again to stop."),
            &App::slotPlotRT, nullptr},
        ActionRow{&App::plotDelta, "plotDelta", TEXT("&Delta Time"), "Ctrl+G", "satpdltm",
            TEXT("Plot satellite trajectory over a specified time interval."),
            TEXT("Delta Time\n\nShows the movement of the selected satellites from the start date on, in time steps "
                 "and for the set duration. Select it again to stop."),
            &App::slotPlotDelta, nullptr},
        ActionRow{&App::plotCurrent, "plotCurrent", TEXT("&Current Step"), "Ctrl+U", "",
            TEXT("Current positions of selected satellites."),
            TEXT("Current Step\n\nShows the positions of the selected satellites at the time last plotted, or at the "
                 "start date if it has just been set."),
            &App::slotPlotCurrent, nullptr},
        ActionRow{&App::plotNext, "plotNext", TEXT("&Next Pass"), "", "satppass",
            TEXT("Jumps to the (maximum) position of the next pass."),
            TEXT("Next Pass\n\nSearches the next pass of the prime satellite and shows the positions at its maximum. "
                 "In relative satellite mode it is the start of the contact."),
            &App::slotPlotNext, nullptr},
        ActionRow{&App::plotLast, "plotLast", TEXT("&Last Pass"), "", "",
            TEXT("Jumps to the (maximum) position of the last pass."),
            TEXT("Last Pass\n\nSearches the pass of the prime satellite before the time on show and shows the "
                 "positions at its maximum."),
            &App::slotPlotLast, nullptr},
        ActionRow{&App::plotForward, "plotForward", TEXT("Step &Forward"), "", "",
            TEXT("Moves one time step forward."),
            TEXT("Step Forward\n\nMoves the display one time step forward. The right arrow key does the same."),
            &App::slotPlotForward, nullptr},
        ActionRow{&App::plotBackward, "plotBackward", TEXT("Step &Backward"), "", "",
            TEXT("Moves one time step backward."),
            TEXT("Step Backward\n\nMoves the display one time step backward. The left arrow key does the same."),
            &App::slotPlotBackward, nullptr},

        ActionRow{&App::plotFollow, "plotFollow", TEXT("F&ollow..."), "", "",
            TEXT("Follows the satellite with a telescope or antenna"),
            TEXT("Follow\n\nSends a telescope or an antenna to the start of the next pass of the prime satellite and "
                 "then along with it, by the clock of the computer, until it sets: by rotctld, INDI or ASCOM Alpaca. "
                 "Escape stops the mount at once, and so does this entry."),
            &App::slotPlotFollow, nullptr},

        ActionRow{&App::viewRefresh, "viewRefresh", TEXT("&Refresh"), "", "satprefr",
            TEXT("Refresh the screen display"),
            TEXT("Refresh\n\nDraws the map anew and removes the trails of the satellites. The Delete key does the "
                 "same."),
            &App::slotViewRefresh, nullptr},
        ActionRow{&App::viewSwitch, "viewSwitch", TEXT("S&witch"), "Ctrl+W", "satpswss",
            TEXT("Switch satellites"),
            TEXT("Switch\n\nSelects the prime satellite, the one to which tables and the legend of the map refer. "
                 "The digit keys do the same. In relative satellite mode positions refer to a second satellite."),
            &App::slotViewSwitch, nullptr},
        ActionRow{&App::viewMap, "viewMap", TEXT("Ma&p View/Sky Map"), "Ctrl+Y", "satpsmap",
            TEXT("Specify world map or sky map parameters."),
            TEXT("Map View/Sky Map\n\nSelects the world map or the sky map, its projection, grid and background, and "
                 "various other settings of the display."),
            &App::slotViewMap, nullptr},
        ActionRow{&App::viewText, "viewText", TEXT("Show Last Te&xt"), "Ctrl+X", "",
            TEXT("Switch to the last text display"),
            TEXT("Show Last Text\n\nSwitches to the last text display, and from there back to the map."),
            &App::slotViewText, nullptr},
        ActionRow{&App::viewNames, "viewNames", TEXT("Show &Names"), "Ctrl+N", "",
            TEXT("Show satellites names next to their respective positions."),
            TEXT("Show Names\n\nShows the names of the satellites next to their positions on the map."),
            nullptr, &App::slotViewNames},
        ActionRow{&App::viewPicture, "viewPicture", TEXT("Show Pict&ure"), "", "",
            TEXT("Show loaded picture."),
            TEXT("Show Picture\n\nSwitches between the loaded picture and the map."),
            nullptr, &App::slotViewPicture},
        ActionRow{&App::viewVisibility, "viewVisibility", TEXT("&Visibility"), "Ctrl+V", "satpvisb",
            TEXT("Sets the visibility parameters for AOS calculations etc."),
            TEXT("Visibility\n\nSets the conditions under which a pass is listed: elevation of the Sun and of the "
                 "satellite, and its illumination. Transits, occultations, flares and solar eclipses are selected "
                 "here as well."),
            &App::slotViewVisibility, nullptr},
        ActionRow{&App::viewStep, "viewStep", TEXT("&Time Step"), "Ctrl+T", "satptstp",
            TEXT("Specify the time step used for the delta time calculations"),
            TEXT("Time Step\n\nSets the time step of delta time plots, single steps and pass details."),
            &App::slotViewStep, nullptr},
        ActionRow{&App::viewMagnitude, "viewMagnitude", TEXT("&Magnitude"), "Ctrl+M", "",
            TEXT("Specify the parameter for the apparent magnitude of the satellite."),
            TEXT("Magnitude\n\nSets the characteristic length of the satellite in meters, from which its apparent "
                 "magnitude is estimated. 0 switches the magnitude display off."),
            &App::slotViewMagnitude, nullptr},
        ActionRow{&App::viewFontSize, "viewFontSize", TEXT("Font Si&ze"), "", "",
            TEXT("Set the font size for the screen display"),
            TEXT("Font Size\n\nSets the font size of the text displays. It takes effect with the next text."),
            &App::slotViewFontSize, nullptr},
        ActionRow{&App::viewLeft, "viewLeft", TEXT("Enable &Left Button"), "", "",
            TEXT("Enable left mouse button clicks for map and pass details."),
            TEXT("Enable Left Button\n\nIf enabled, the left mouse button shows local details on the map and pass "
                 "details in the table, as the right button always does."),
            nullptr, &App::slotViewLeft},
        ActionRow{&App::viewSize25, "size25", TEXT("Set Picture Size &25%"), "", "", "",
            TEXT("Set Picture Size 25%\n\nShows the loaded picture at a quarter of its size. The stars must be "
                 "identified again."),
            &App::size25, nullptr},
        ActionRow{&App::viewSize50, "size50", TEXT("Set Picture Size &50%"), "", "", "",
            TEXT("Set Picture Size 50%\n\nShows the loaded picture at half of its size. The stars must be "
                 "identified again."),
            &App::size50, nullptr},
        ActionRow{&App::viewNormalSize, "normalSize", TEXT("Norm&al Size"), "", "", "",
            TEXT("Normal Size\n\nShows the loaded picture at its full size. The stars must be identified again."),
            &App::normalSize, nullptr},
        ActionRow{&App::viewToolBar, "viewToolBar", TEXT("Tool&bar"), "", "",
            TEXT("Enables/disables the toolbar"),
            TEXT("Toolbar\n\nShows or hides the toolbar."),
            nullptr, &App::slotViewToolBar},
        ActionRow{&App::viewStatusBar, "viewStatusBar", TEXT("&Statusbar"), "", "",
            TEXT("Enables/disables the statusbar"),
            TEXT("Statusbar\n\nShows or hides the statusbar, which names the running operation."),
            nullptr, &App::slotViewStatusBar},

        ActionRow{&App::settSysConf, "settSysConf", TEXT("&Configure System"), "", "",
            TEXT("Configure System Parameters"),
            TEXT("Configure System\n\nSets the parameters of numeric orbit propagation: tolerance, space weather and "
                 "spacecraft defaults and the perturbations of Sun and Moon. Refraction and extinction are switched "
                 "here as well."),
            &App::slotSettSysConf, nullptr},

        ActionRow{&App::viewReadable, "viewReadable", TEXT("Readable &Colours"), "", "",
            TEXT("Colours in which every text stands out from its ground."),
            TEXT("Readable Colours\n\nShows maps, skies, pictures and their legend in a second set of colours. Every "
                 "text stands out from its ground, the night lets the map of the Earth through, the region that sees "
                 "a satellite is filled, and the sky has rings of altitude and the lines of the constellations."),
            nullptr, &App::slotViewReadable},
        ActionRow{&App::fileSavePicture, "fileSavePicture", TEXT("Save Pict&ure..."), "", "",
            TEXT("Saves what is on the screen as a picture."),
            TEXT("Save Picture\n\nSaves the text, map, sky or picture on the screen as a PNG file, as large as it is "
                 "drawn, or, if the name ends in .svg, as a drawing of lines and letters."),
            &App::slotFileSavePicture, nullptr},
        ActionRow{&App::filePrint, "filePrint", TEXT("P&rint..."), "", "",
            TEXT("Prints what is on the screen."),
            TEXT("Print\n\nPrints the text, map, sky or picture on the screen, drawn anew for the paper. Each page tells "
                 "the observation site, the prime satellite and the epoch of its elements."),
            &App::slotFilePrint, nullptr},
        ActionRow{&App::filePdf, "filePdf", TEXT("Print to P&DF..."), "", "",
            TEXT("Prints what is on the screen into a file."),
            TEXT("Print to PDF\n\nWrites the pages that would be printed into a PDF file."),
            &App::slotFilePdf, nullptr},
        ActionRow{&App::editCopyPicture, "editCopyPicture", TEXT("Copy &Picture"), "", "",
            TEXT("Copies what is on the screen to the clipboard as a picture."),
            TEXT("Copy Picture\n\nCopies the text, map, sky or picture on the screen to the clipboard, as a picture as "
                 "large as it is drawn."),
            &App::slotEditCopyPicture, nullptr},
        ActionRow{&App::viewLarger, "viewLarger", TEXT("Lar&ger"), "Ctrl++", "",
            TEXT("Draws texts, maps and pictures larger."),
            TEXT("Larger\n\nDraws texts, maps and pictures larger, in steps of 100, 125, 150, 200, 250 and 300 percent. "
                 "They are drawn anew for each size. The size is kept for the next time."),
            &App::slotViewLarger, nullptr},
        ActionRow{&App::viewSmaller, "viewSmaller", TEXT("Small&er"), "Ctrl+-", "",
            TEXT("Draws texts, maps and pictures smaller."),
            TEXT("Smaller\n\nGoes one step of size back, down to 100 percent."),
            &App::slotViewSmaller, nullptr},
        ActionRow{&App::viewOriginalSize, "viewOriginalSize", TEXT("&Original Size"), "Ctrl+0", "",
            TEXT("Draws texts, maps and pictures at 100 percent."),
            TEXT("Original Size\n\nDraws texts, maps and pictures at 100 percent, the size they have at first."),
            &App::slotViewOriginalSize, nullptr},
        ActionRow{&App::viewFit, "viewFit", TEXT("&Fit to Window"), "", "",
            TEXT("Draws maps as large as the window."),
            TEXT("Fit to Window\n\nDraws maps, and all else at the same scale, as large as the window holds them, and "
                 "follows its size. Maps are not drawn smaller than at 100 percent, nor larger than at 300 percent."),
            nullptr, &App::slotViewFit},
        ActionRow{&App::viewAge, "viewAge", TEXT("&Age of Elements"), "", "",
            TEXT("Tells below the map how old the elements are."),
            TEXT("Age of Elements\n\nA line below the map tells how old the elements are at the time on show, and how "
                 "many seconds the satellite may be early or late for that. It turns yellow and red when they get too "
                 "old."),
            nullptr, nullptr},
        ActionRow{&App::viewRed, "viewRed", TEXT("Re&d Light"), "", "",
            TEXT("Shows all windows in red on black, for eyes that see in the dark."),
            TEXT("Red Light\n\nShows the window, its dialogs and all drawings in one red on black, so that eyes stay used "
                 "to the dark. Files and paper are not red. The choice is kept for the next time."),
            nullptr, &App::slotViewRed},
        ActionRow{&App::settThorough, "settThorough", TEXT("&Thorough Search"), "", "",
            TEXT("Lists of passes leave nothing out."),
            TEXT("Thorough Search\n\nLists of passes hold every time in which a satellite can be seen, however short, "
                 "each visible part of a pass on its own line, and start and end to the hundredth of a second. Without "
                 "it the search goes by steps of a minute and more. Flares, transits and occultations stay as they "
                 "are."),
            nullptr, &App::slotSettThorough},
        ActionRow{&App::settModels, "settModels", TEXT("&Models..."), "", "",
            TEXT("Computes as published what is computed in a way of its own."),
            TEXT("Models\n\nSome quantities are computed in a way of this program's own. Each has a switch here that "
                 "computes it as published; the help of a switch tells how much it changes. All are off at first."),
            &App::slotSettModels, nullptr},

        ActionRow{&App::fileExport, "fileExport", TEXT("&Export..."), "", "",
            TEXT("Writes the report on the screen in another form"),
            TEXT("Export\n\nWrites the report on the screen into a file. The ending of its name tells the form: .csv for "
                 "spreadsheets, .json for programs, .ics for calendars, .geojson for maps, .txt for the lines as they "
                 "are. Tables of passes and flares can take each of them, matches all but .ics and .geojson, "
                 "other reports .txt and .csv."),
            &App::slotFileExport, nullptr},
        ActionRow{&App::fileObservation, "fileObservation", TEXT("Save O&bservation..."), "Ctrl+J", "",
            TEXT("Adds an observation to a file of reports."),
            TEXT("Save Observation\n\nWrites the position of a satellite as a line of an observation report: from the "
                 "trail on the picture, from the last sighting, from an orbit determination, or typed. Station and "
                 "accuracies are those of Station in the Input menu."),
            &App::slotFileObservation, nullptr},
        ActionRow{&App::inputStation, "inputStation", TEXT("S&tation..."), "", "",
            TEXT("Number and accuracies of your observing station."),
            TEXT("Station\n\nSets the number of your station and how sure its times and positions are, for the reports "
                 "of Save Observation. The place set under Location becomes that of the station."),
            &App::slotInputStation, nullptr},
        ActionRow{&App::inputHorizon, "inputHorizon", TEXT("&Horizon..."), "", "",
            TEXT("Houses, trees and hills around your observing place."),
            TEXT("Horizon\n\nTakes the line of houses, trees and hills around your observing place from a text file of "
                 "azimuth and elevation. Lists hold what is above this line; a pass that is hidden in the middle counts "
                 "as two. The sky map shows the line."),
            &App::slotInputHorizon, nullptr},
        ActionRow{&App::settSources, "settSources", TEXT("&Element Sources..."), "", "",
            TEXT("Where element files come from."),
            TEXT("Element Sources\n\nA list of addresses of element files, to choose from and to extend. Online TLE "
                 "Update proposes the chosen one."),
            &App::slotSettSources, nullptr},
        ActionRow{&App::fileUpdateAtStart, "fileUpdateAtStart", TEXT("Update at Sta&rt"), "", "",
            TEXT("Fetch old elements anew when the program starts."),
            TEXT("Update at Start\n\nWhen the program starts, elements older than some days are fetched from the "
                 "address of the last update, in the background. No address is asked twice within two hours, or again "
                 "after it has refused."),
            nullptr, nullptr},
        ActionRow{&App::calcBrightest, "calcBrightest", TEXT("&Brightest Passes..."), "Ctrl+B", "",
            TEXT("The passes of the night that are worth going out for."),
            TEXT("Brightest Passes\n\nLists the passes of all satellites of the TLE file that become brighter than a "
                 "limit, over the night or the time set, with the magnitude and how sure it is. The list can be "
                 "sorted; each pass can be opened, and shown on map and sky."),
            &App::slotCalcBrightest, nullptr},
        ActionRow{&App::settMagnitudes, "settMagnitudes", TEXT("&Magnitudes..."), "", "",
            TEXT("Where the magnitudes of satellites come from."),
            TEXT("Magnitudes\n\nChooses a list of standard magnitudes, and the size of satellites of which nothing is "
                 "known. Brightest Passes, Passes through Field and Satellites in Picture use them."),
            &App::slotSettMagnitudes, nullptr},
        ActionRow{&App::calcField, "calcField", TEXT("Passes through Fi&eld..."), "Ctrl+K", "",
            TEXT("Satellites that cross a field of the sky during an exposure."),
            TEXT("Passes through Field\n\nLists every satellite of the TLE file that crosses a circle or a frame in the "
                 "sky: when it enters and leaves, in which direction and how fast it moves, and how bright it is; and "
                 "the times in which no satellite disturbs an exposure."),
            &App::slotCalcField, nullptr},
        ActionRow{&App::calcPicture, "calcPicture", TEXT("Satellites in Pict&ure"), "", "",
            TEXT("Names the satellites on the loaded picture."),
            TEXT("Satellites in Picture\n\nDraws every satellite of the TLE file that crosses the loaded picture during "
                 "its exposure as the line it leaves, and compares them with the trail that was marked, or with the "
                 "streaks that are found. The picture needs a solution. Show Last Text has the list."),
            &App::slotCalcPicture, nullptr},
        ActionRow{&App::manvFit, "manvFit", TEXT("&Fit Elements..."), "", "",
            TEXT("Corrects elements by observations."),
            TEXT("Fit Elements\n\nReads or asks for observations and corrects the orbit elements of a satellite until "
                 "they fit best. Shows what is left, how sure the new elements are, and which of them the observations "
                 "do not determine. The new elements become a further satellite."),
            &App::slotManvFit, nullptr},
        ActionRow{&App::editCopy, "editCopy", TEXT("&Copy"), "Ctrl+Shift+C", "",
            TEXT("Copies the report on the screen to the clipboard"),
            TEXT("Copy\n\nPuts the report on the screen on the clipboard, as text and, for spreadsheets, as comma "
                 "separated values."),
            &App::slotEditCopy, nullptr},

        ActionRow{&App::helpAbout, "helpAbout", TEXT("&About..."), "", "",
            TEXT("About the application"),
            TEXT("About\n\nShows the version of Vorlix."),
            &App::slotHelpAbout, nullptr},
        ActionRow{&App::helpAboutQt, "helpAboutQt", TEXT("About &Qt"), "", "",
            TEXT("Show the Qt library's About box"),
            TEXT("About Qt\n\nShows the version of the Qt library which Vorlix uses."),
            nullptr, nullptr},
        ActionRow{&App::helpQuick, "helpQuick", TEXT("&Help..."), "", "",
            TEXT("Quick help"),
            TEXT("Help\n\nShows the manual of Vorlix. The key H does the same."),
            &App::slotQuickHelp, nullptr},
    };
    // clang-format on
    return rows;
}
