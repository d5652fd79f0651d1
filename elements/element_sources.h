// Where element files come from: a list of addresses, and when each was asked last. vorlix.ini keeps both.
#pragma once

#include <QString>
#include <optional>
#include <vector>

/// An address with a name for people.
struct ElementSource
{
    QString name;
    QString address;  // as an update takes it
};

/// The groups of a public service as CSV, which holds catalogue numbers of any length, and a line for a mirror.
std::vector<ElementSource> deliveredSources();

/// The list as it was kept last; the delivered one if none was.
std::vector<ElementSource> elementSources();
void keepElementSources(const std::vector<ElementSource>& sources);

/// How the last update from an address went.
struct LastUpdate
{
    double mjd = 0;        // when it was asked for, UTC
    bool refused = false;  // the server does not want to be asked for this, now or ever: no program should try again
};

/// Services renew their elements no more often, and bar those who ask more often, days.
constexpr double leastUpdateDays = 2.0 / 24.0;

/// @param address  as an update takes it; the protocol http makes no difference
std::optional<LastUpdate> lastUpdate(const QString& address);
void keepLastUpdate(const QString& address, const LastUpdate& update);

/// Whether an address was asked less than `leastUpdateDays` ago. A time in the future counts as long ago.
bool askedJustNow(const QString& address, double nowMjd);

/// An update without a person, at the start of the program.
struct StartUpdate
{
    bool on = false;
    double days = 3.0;  // younger elements are good enough
    QString address;    // of the last update that a person asked for,
    QString file;       // and the name of its file
};

StartUpdate startUpdate();
void keepStartUpdate(const StartUpdate& update);

/// Whether one is due: it is on and knows its address, the newest epoch of the file is older than its days, the address
/// was not asked just now, and has not refused the last time.
///
/// @param newestMjd  of the elements; nothing if there are none
bool updateDue(const StartUpdate& update, std::optional<double> newestMjd, double nowMjd);

/// The newest epoch of the entries of an element file, MJD; nothing without an entry.
std::optional<double> newestEpoch(const char* elementFile);
