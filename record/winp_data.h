// The input record: everything that the program knows between two commands.
#pragma once

#include "record/corrections.h"

/// Slots of the per-satellite arrays.
constexpr int slotCount = 12;      // entries of each array
constexpr int maxSatellites = 10;  // slots 0 to 9: the selected satellites
constexpr int workSlot = 10;       // filled by the element reader
constexpr int parkedSlot = 11;     // where a search parks the prime satellite
constexpr int noSlot = 9999;       // value of sgpsat that names no slot

/// Kinds of event of the pass search, values of WinpData::iridflg.
namespace event {
enum Kind
{
    plain = 0,
    transit = 1,
    flare = 2,
    iridium = 3
};
}

/// Settings of the user, state of the display, working values of a calculation and the element sets of the
/// satellites. One record serves the process: `indata`. Angles are degrees and times are MJD on the UTC scale
/// unless a line says otherwise. Texts are NUL terminated.
struct WinpData
{
    int day = 0;       // start date, day of month; civil time of tzone
    int month = 0;     // start date, month
    int year = 0;      // start date, year
    int hour = 0;      // start time, hour
    int minute = 0;    // start time, minute
    int second = 0;    // start time, second
    int plotyear = 0;  // year of the time last plotted, in civil time
    int tzauto = 0;    // 1 = tzone follows the system timezone
    // master time: MJD, UTC. Start time after the date dialog, then the time last plotted
    double mjd = 0;
    double mjdlast = 0;    // MJD at which the map background was last drawn
    double tzone = 0;      // timezone, hours, East positive
    double ttut = 0;       // TT minus UT, seconds
    double dur = 0;        // duration of predictions and delta plots, days
    double rtoff = 0;      // offset of real time from the system clock, hours
    double tmstep = 0;     // time step, days
    double stepsec = 0;    // seconds part of the time step as entered
    int stepmin = 0;       // minutes part of the time step as entered
    int fsz = 0;           // font size of the text display: 8 or 10
    int mfsz = 0;          // font size of the map legend
    bool bf = false;       // map legend font bold
    bool leftbtn = false;  // left mouse button may pick on maps and pass tables
    int newsave = 0;       // 1 = the next write starts the save file anew, 0 = append
    int newtle = 0;        // 1 = the next write starts the TLE save file anew, 0 = append
    int dspmd = 0;         // what the view shows: 1 map or picture, 0 text, -1 clickable AOS table
    int diskon = 0;        // 1 = the map pixmap holds a Sun/Moon disk plot
    int mpnight = 0;       // night hemisphere on the world map, without trails; denser redraw of sky maps
    int skymap = 0;        // 1 = sky map instead of world map
    int skyprj = 0;        // sky projection: 0 zenith, 1 to 5 azimuth
    int mapprj = 0;        // world map: 0 world outline, 1 northern, 2 southern, 3 physical world
    int mapw = 0;          // width of the display pixmap, 860
    int maph = 0;          // height of the display pixmap, 501
    bool phwm = false;     // physical map image loaded
    bool satsky = false;   // sky map as seen from the prime satellite
    double skaz = 0;       // central azimuth of the azimuth sky projection, degrees
    double centmer = 0;    // central meridian of the world map, degrees
    double lat = 0;        // observer latitude, decimal degrees, North positive
    double lng = 0;        // observer longitude, decimal degrees, East positive
    double height = 0;     // observer height, metres
    double lslat = 0;      // launch site latitude, degrees
    double lslng = 0;      // launch site longitude, degrees
    double tmeco = 0;      // time from liftoff to orbit insertion, minutes
    double lazim = 0;      // launch azimuth computed by LaunchOrb, degrees
    double rztime = 0;     // time until close approach for a rendezvous, days
    // 1 = the date dialog and the element editor serve a maneuver, a launch, a match or an orbit determination
    int lcflg = 0;
    int lsouth = 0;       // 1 = launch in a southerly direction
    int lsx = 0;          // index of the launch site in the site list, 0 = user
    int lsat = 0;         // rendezvous: slot of the chasing satellite; negative = plain launch
    int rzsat = 0;        // rendezvous: slot of the target satellite
    int occflg = 0;       // transit and occultation mode: 0 off, 1 Sun, 2 Moon, 3 R.A./Dec.
    bool cylflg = false;  // cylindrical flares
    double yrepoch = 0;   // year of epoch of R.A./Dec.; 0 = true of date
    double occra = 0;     // occultation R.A. (HH.MMSS) or first surface angle of a flare
    double occdec = 0;    // occultation Dec. (DD.MMSS) or second surface angle of a flare
    double cylra = 0;     // first angle of the cylinder axis
    double cyldec = 0;    // second angle of the cylinder axis
    double az1 = 0;       // first observation azimuth or R.A.; also azimuth of a sky pick, degrees
    // first observation elevation or Dec.; also elevation of a sky pick, degrees; -100 = off the sky
    double el1 = 0;
    double az2 = 0;    // second observation azimuth or R.A.; also R.A. of a sky pick, HH.MMSS
    double el2 = 0;    // second observation elevation or Dec.; also Dec. of a sky pick, DD.MMSS
    double deltm = 0;  // time difference of the two observations, seconds
    int az1flg = 0;    // 1 = first observation given as R.A./Dec.
    int az2flg = 0;    // 1 = second observation given as R.A./Dec.
    bool odm = false;  // match satellites after an orbit determination
    // match search: azimuth of the centre position, degrees, or its R.A. when rdf is 1
    double az = 0;
    // match search: elevation of the centre position, degrees, or its Dec. when rdf is 1
    double el = 0;
    double mxa = 0;       // match search: largest angular distance from the centre position, degrees
    double dra = 0;       // match search: direction of satellite movement, degrees
    double tm = 0;        // match search: time interval, minutes; a negative entry is stored as positive
    int rdf = 0;          // match search: 1 = the centre position is given as R.A./Dec.
    int drf = 0;          // match search: 1 = filter by direction
    int txtrdy = 0;       // 1 = a match search or an orbit determination left text to show
    bool vis = false;     // match search: brighter objects only
    bool picflg = false;  // the picture takes the place of the map
    // astrometry step: 1 to 3 next click is a star, 4 and 5 next click is a trail end, 6 or more both trail ends
    // are marked; 0 before the first picture
    int picstep = 0;
    int picsize = 0;          // picture size code: 0 full, 2 half, 3 quarter
    double astra[5] = {};     // R.A. of the three stars (radians) and of the two trail ends (HH.MMSS)
    double astdec[5] = {};    // Dec. of the three stars (radians) and of the two trail ends (DD.MMSS)
    int astx[3] = {};         // pixel x of the three stars
    int asty[3] = {};         // pixel y of the three stars
    double pla[3] = {};       // plate constants of X
    double plb[3] = {};       // plate constants of Y
    char ldraw[9] = {};       // scratch: designator as in the TLE line, YYNNNAAA
    char ldfull[12] = {};     // scratch: designator in full, YYYY-NNNAAA
    char geoname[31] = {};    // name of the observing site
    char savename[105] = {};  // name of the save file; a leading "*" means not chosen yet
    char tlename[105] = {};   // name of the TLE file; "*" means none
    char tlesave[105] = {};   // name of the TLE save file; a leading "*" means not chosen yet
    char url[105] = {};       // address of the last online update
    int ddmm = 0;             // 1 = coordinates shown and entered as DD.MMSS
    int tofile = 0;           // 1 = the next AOS list goes to the save file, not to the screen
    int rtflg = 0;            // real-time plot running
    int dtflg = 0;            // delta plot being started
    int rlm = 0;              // relative satellite mode
    int prs = 0;              // index of the prime satellite, 0 to 9
    int satn = 0;             // number of selected satellites, 0 to 10
    int sgpsat = 0;           // slot whose SGP4 state is in satrec; 9999 = none
    int visflg = 0;           // 1 = only passes with the satellite illuminated
    int nmflg = 0;            // show names on the map
    int moonflg = 0;          // visibility and flares with regard to the Moon
    int flarflg = 0;          // flare mode
    // flare variant: 1 known surface, local attitude; 2 known surface, inertial; -1, -2 the same with unknown
    // surface
    int flarmod = 0;
    int flaryst = 0;         // yaw steering mode
    int sunmplt = 0;         // Sun/Moon disk plot
    int ra4d = 0;            // coordinates with four digits
    double satel = 0;        // minimum satellite elevation, degrees
    double sunel = 0;        // maximum Sun elevation, degrees
    double chlen = 0;        // characteristic length for magnitudes, metres; 0 = no magnitudes
    double frequ = 0;        // nominal frequency for Doppler, Hz; 0 = range rate
    double aostm[120] = {};  // start times of the selectable lines of the pass table
    double tmaxel = 0;       // time of the greatest elevation in the last pass details listing
    double irmag = 0;        // limiting magnitude of the Iridium flare search
    double maxdst = 0;       // largest distance of a transit or flare line from the observer, km
    double flrang = 0;       // flare or cylinder angle for the legend, degrees
    double flrmgx = 0;       // maximum flare magnitude
    bool flrmgf = false;     // display flare magnitude
    int iridflg = 0;         // event kind of the pass search: 0 plain, 1 transit, 2 flare, 3 Iridium
    int ops = 0;             // Iridium: operational orbits only
    bool irsol = false;      // Iridium: include solar panel flares
    bool irsolp = false;     // solar panel round of the Iridium search
    bool irdrun = false;     // the Iridium Flares command is running
    int wgs = 0;             // 0 = WGS72 constants in SGP4, otherwise WGS84
    bool sdp4 = false;       // SDP4 for deep-space orbits
    bool adjflg = false;     // element adjustment on
    double adjtim = 0;       // adjustment of the epoch, seconds
    double adjn0 = 0;        // mean motion set by the adjustment, rev/day; 0 = keep
    double adjra = 0;        // adjustment of the right ascension, degrees
    bool solflar = false;    // solar panel flares
    bool eclflg = false;     // solar eclipse check
    int ecltyp = 0;          // solar eclipse at the satellite: 0 none, 1 partial, 2 total, 3 annular
    double smang = 0;        // apparent Sun-Moon distance at the satellite, degrees
    double eclmag = 0;       // eclipse magnitude at the satellite
    double eclpow = 0;       // remaining sunlight at the satellite
    int naos = 0;            // number of selectable lines of the pass table, 0 to 120
    int aossel = 0;          // index of the pass table line chosen for the details
    int pasjmp = 0;          // 1 after a pass jump: the next jump leaves the pass it starts in
    int mxit = 0;            // most iterations of one integration step; 0 = no limit
    double RKFtol = 0;       // relative tolerance of the integrator
    double dF107 = 0;        // default daily F10.7 flux
    double dFB107 = 0;       // default 90-day average F10.7 flux
    double dKp = 0;          // default Kp
    double dCd = 0;          // default drag coefficient
    double dCr = 0;          // default radiation pressure coefficient
    double dAm = 0;          // default area/mass ratio, m^2/kg
    double IERSxp = 0;       // polar motion x, arc seconds
    double IERSyp = 0;       // polar motion y, arc seconds
    double Ut1Utc = 0;       // UT1 minus UTC, seconds
    int UtcTai = 0;          // UTC minus TAI, whole seconds (negative)
    bool IERSflg = false;    // IERS values in force
    int stref = 0;           // coordinate frame of the state vector dialog
    bool moonf = false;      // lunar perturbation on
    bool sunf = false;       // solar perturbation on
    bool refrc = false;      // refraction of elevations on
    bool atmx = false;       // extinction on
    double moondst = 0;      // distance of a numeric satellite from the centre of the Moon, metres
    double lift = 0;         // lift/drag ratio
    int mgrid = 0;           // map grid: 0 none, 1 30 degrees, 2 10 degrees
    int mgrey = 0;           // map background: 0 white, 1 grey, 2 black
    int lowflg = 0;          // selection: 1 = low orbits only
    int recflg = 0;          // selection: 1 = recent launches only
    int srcmd = 0;           // selection: 0 name, 1 NORAD number, 2 designator
    int paflg = 0;           // perigee/apogee entry in the element editor

    // Per satellite. Entries at and above satn mean nothing; the work and the parked slot follow the selected ones.
    int norad[slotCount] = {};         // NORAD number
    char ldsn[slotCount][12] = {};     // designator YYYY-NNNAAA
    char cfgname[slotCount][21] = {};  // names read from the configuration; entry 10 is the search text
    char fsname[slotCount][21] = {};   // satellite name, 21 characters
    int aflg[slotCount] = {};          // 1 = SGP4/SDP4, 0 = simple Keplerian model
    int numflg[slotCount] = {};        // 1 = numeric propagation
    double mjdep[slotCount] = {};      // epoch of the elements, MJD
    double a[slotCount] = {};          // semi-major axis, km
    double ra[slotCount] = {};         // right ascension of the node, degrees
    double aper[slotCount] = {};       // argument of perigee, degrees
    double inc[slotCount] = {};        // inclination, degrees
    double ecc[slotCount] = {};        // eccentricity
    double m0[slotCount] = {};         // mean anomaly at epoch, degrees
    double n0[slotCount] = {};         // mean motion, rev/day; for e >= 1 the perigee distance q, km
    double adot[slotCount] = {};       // change of a, km/day
    double ndot[slotCount] = {};       // first derivative field of the TLE, rev/day^2
    double n6dot[slotCount] = {};      // second derivative field of the TLE, rev/day^3
    double bstar[slotCount] = {};      // BSTAR drag term
    double epr0[slotCount] = {};       // epoch state x, metres
    double epr1[slotCount] = {};       // epoch state y
    double epr2[slotCount] = {};       // epoch state z
    double epv0[slotCount] = {};       // epoch state vx, m/s
    double epv1[slotCount] = {};       // epoch state vy
    double epv2[slotCount] = {};       // epoch state vz
    double cstm[slotCount] = {};       // MJD of the current numeric state
    double csr0[slotCount] = {};       // current state x, metres
    double csr1[slotCount] = {};       // current state y
    double csr2[slotCount] = {};       // current state z
    double csv0[slotCount] = {};       // current state vx, m/s
    double csv1[slotCount] = {};       // current state vy
    double csv2[slotCount] = {};       // current state vz
    double F107[slotCount] = {};       // daily F10.7 flux
    double FB107[slotCount] = {};      // 90-day average F10.7 flux
    double Kp[slotCount] = {};         // Kp index
    double Cd[slotCount] = {};         // drag coefficient Cd
    double Cr[slotCount] = {};         // radiation pressure coefficient Cr
    double Am[slotCount] = {};         // area/mass ratio, m^2/kg
    // continuous thrust in m/s^2, shown in mm/s^2 by its dialog; otherwise the last impulse in m/s
    double deltv[slotCount] = {};
    double yaw[slotCount] = {};    // thrust yaw, degrees
    double pitch[slotCount] = {};  // thrust pitch, degrees
    bool ionf[slotCount] = {};     // continuous thrust on
    bool suns[slotCount] = {};     // thrust needs sunshine
    bool epu[slotCount] = {};      // update the epoch state after each integration step

    Corrections models{};  // peculiarities of the models that are put right; all off after `setDefaults`
};

/// Made before main, never freed.
extern WinpData* indata;

/// The defaults of a run, as they stand before the configuration is read: date, time zone and TT minus UT are left
/// to the caller. Fields without a default become 0.
void setDefaults(WinpData* in);

/// Copies every per-satellite field but `cfgname` from one slot to another, and sets `sgpsat` to `noSlot`.
void ShiftElm(WinpData* in, int to, int from);

/// Makes the current state of a slot its epoch state; the times `mjdep` and `cstm` are left to the caller.
void currentToEpochState(WinpData* in, int k);
