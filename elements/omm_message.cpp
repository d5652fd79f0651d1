#include "elements/omm_message.h"

#include "astro/calendar.h"
#include "elements/catalogue_number.h"
#include "elements/characters.h"
#include "record/numbers.h"
#include "record/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <optional>

namespace {
/// In the order of `OmmField`.
constexpr std::array<std::string_view, ommFieldCount> keywords{
    "OBJECT_NAME",  "OBJECT_ID",       "CENTER_NAME",         "REF_FRAME",    "TIME_SYSTEM",    "MEAN_ELEMENT_THEORY",
    "EPOCH",        "MEAN_MOTION",     "ECCENTRICITY",        "INCLINATION",  "RA_OF_ASC_NODE", "ARG_OF_PERICENTER",
    "MEAN_ANOMALY", "EPHEMERIS_TYPE",  "CLASSIFICATION_TYPE", "NORAD_CAT_ID", "ELEMENT_SET_NO", "REV_AT_EPOCH",
    "BSTAR",        "MEAN_MOTION_DOT", "MEAN_MOTION_DDOT",    "RCS_SIZE"};

constexpr double greatestWhole = 999'999'999;
constexpr int mantissaDigits = 5;
constexpr int greatestExponent = 9;
constexpr long long nanosecondsPerSecond = 1'000'000'000;
constexpr int secondDigits = 9;

char capital(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// Case does not matter.
bool startsWith(std::string_view text, std::string_view capitals)
{
    return text.size() >= capitals.size() &&
           std::equal(capitals.begin(), capitals.end(), text.begin(), [](char a, char b) { return a == capital(b); });
}

bool equals(std::string_view text, std::string_view capitals)
{
    return text.size() == capitals.size() && startsWith(text, capitals);
}

/// The finite number that the whole text says.
std::optional<double> numberOf(std::string_view text)
{
    if (text.size() > 1 && text[0] == '+')
        text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    return whole && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

/// Reads the fields one by one and keeps the first reason to refuse.
class Values
{
public:
    explicit Values(const OmmMessage& from) : message(from) {}

    double required(OmmField field)
    {
        if (message[field].empty())
            refuse("no ", field, "");
        return optional(field);
    }

    /// 0 if it is absent.
    double optional(OmmField field)
    {
        const std::string& text = message[field];
        if (text.empty())
            return 0;
        const std::optional<double> value = numberOf(text);
        if (!value)
            refuse("", field, " is no number");
        return value.value_or(0);
    }

    int whole(OmmField field, int absent)
    {
        if (message[field].empty())
            return absent;
        const double value = optional(field);
        if (value != std::floor(value) || value < 0 || value > greatestWhole)
            refuse("", field, " is out of range");
        return refusal.empty() ? truncToInt(value) : absent;
    }

    void refuse(std::string_view before, OmmField field, std::string_view behind)
    {
        if (refusal.empty())
            refusal.append(before).append(keywordOf(field)).append(behind);
    }

    const OmmMessage& message;
    std::string refusal;
};

/// A text from a message that goes into a line.
std::string plainText(std::string_view text)
{
    std::string plain(text);
    std::replace_if(
        plain.begin(), plain.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7f'; }, ' ');
    return plain;
}

void expect(Values& values, OmmField field, std::string_view wanted, bool right)
{
    const std::string& text = values.message[field];
    if (text.empty() || right)
        return;
    values.refuse("", field, " is " + plainText(text.substr(0, 20)) + ", not " + std::string(wanted));
}

void expectSgp4AboutTheEarth(Values& values)
{
    const OmmMessage& message = values.message;
    const std::string& theory = message[OmmField::meanElementTheory];
    const bool sgp4 = startsWith(theory, "SGP") || startsWith(theory, "SDP") || equals(theory, "TLE");
    expect(values, OmmField::centerName, "EARTH", equals(message[OmmField::centerName], "EARTH"));
    expect(values, OmmField::timeSystem, "UTC", equals(message[OmmField::timeSystem], "UTC"));
    expect(values, OmmField::refFrame, "TEME", startsWith(message[OmmField::refFrame], "TEME"));
    expect(values, OmmField::meanElementTheory, "SGP4", sgp4 && !equals(theory, "SGP4-XP"));
}

/// YYNNNAAA of 1998-067A or 98067A; empty for other texts.
std::string shortDesignator(std::string_view id)
{
    constexpr std::size_t yearDigits = 4, hyphen = 4, longestRest = 6;
    std::string text(id);
    if (text.size() > hyphen && text[hyphen] == '-' && std::all_of(id.begin(), id.begin() + yearDigits, isDigit))
        text = text.substr(2, 2) + text.substr(hyphen + 1);
    const bool alike = text.size() > 2 && text.size() <= 2 + longestRest && isDigit(text[0]) && isDigit(text[1]) &&
                       std::all_of(text.begin() + 2, text.end(),
                                   [](char c) { return isDigit(c) || (capital(c) >= 'A' && capital(c) <= 'Z'); });
    return alike ? text : std::string();
}

/// Takes texts of an epoch from the left.
class EpochText
{
public:
    explicit EpochText(std::string_view text) : rest(text) {}

    /// A number of exactly so many digits.
    int digits(std::size_t count)
    {
        const bool there = rest.size() >= count && std::all_of(rest.begin(), rest.begin() + count, isDigit);
        good = good && there;
        const int value = there ? wholeNumber(rest.substr(0, count)) : 0;
        rest.remove_prefix(std::min(count, rest.size()));
        return value;
    }

    /// Whether this character follows, which is taken then.
    bool take(char c)
    {
        const bool there = !rest.empty() && rest[0] == c;
        rest.remove_prefix(there ? 1 : 0);
        return there;
    }

    void expect(char c) { good = take(c) && good; }

    std::size_t digitsAhead() const
    {
        return static_cast<std::size_t>(std::find_if_not(rest.begin(), rest.end(), isDigit) - rest.begin());
    }

    /// Decimals as a number of nanoseconds; those behind the ninth are cut off.
    long long nanoseconds()
    {
        const std::size_t count = digitsAhead();
        const std::size_t taken = std::min<std::size_t>(count, secondDigits);
        std::string decimals(rest.substr(0, taken));
        decimals.resize(secondDigits, '0');
        rest.remove_prefix(count);
        return wholeNumber(decimals);
    }

    bool atEnd() const { return rest.empty(); }
    bool isGood() const { return good; }

private:
    std::string_view rest;
    bool good = true;
};

/// Days from the start of the year to the start of a month of 1 to 13.
int daysBefore(int month, int year)
{
    const double start = month > 12 ? mjd(1, 1, year + 1, 0.0) : mjd(1, month, year, 0.0);
    return truncToInt(start - mjd(1, 1, year, 0.0));
}

/// 2018-01-20 or 2018-020; 0 for no date.
int readDayOfYear(EpochText& epoch, int& year)
{
    year = epoch.digits(4);
    epoch.expect('-');
    const bool ordinal = epoch.digitsAhead() == 3;
    const int month = ordinal ? 1 : epoch.digits(2);
    if (!ordinal)
        epoch.expect('-');
    const int day = epoch.digits(ordinal ? 3 : 2);
    if (!epoch.isGood() || year < 1 || month < 1 || month > 12)
        return 0;
    const int before = daysBefore(month, year);
    const int length = daysBefore(ordinal ? 13 : month + 1, year) - before;
    return day <= length && day > 0 ? before + day : 0;
}

/// Nanoseconds of the day; -1 for no time. The second 60 is that of a leap second.
long long readTimeOfDay(EpochText& epoch)
{
    const int hour = epoch.digits(2);
    epoch.expect(':');
    const int minute = epoch.digits(2);
    epoch.expect(':');
    const int second = epoch.digits(2);
    const long long decimals = epoch.take('.') ? epoch.nanoseconds() : 0;
    if (!epoch.isGood() || hour > 23 || minute > 59 || second > 60)
        return -1;
    return (hour * 3600LL + minute * 60LL + second) * nanosecondsPerSecond + decimals;
}

/// 2018-01-20T12:00:00.000000 or 2018-020T12:00:00: with as many decimals as there are, a blank or a T between, and
/// a Z behind or none.
bool readEpoch(std::string_view text, Entry& entry)
{
    EpochText epoch(text);
    const int dayOfYear = readDayOfYear(epoch, entry.year);
    if (!epoch.take('T'))
        epoch.expect(' ');
    const long long nanoseconds = readTimeOfDay(epoch);
    epoch.take('Z');
    if (dayOfYear == 0 || nanoseconds < 0 || !epoch.atEnd())
        return false;
    // 86.4 ns each: the decimals of an epoch of two lines come out as they were
    constexpr long long unitsPerDay = 1'000'000'000'000;
    const long long units = nanoseconds * 5 / 432;
    char day[40];
    entry.day =
        numberOf(formatted(day, "%lld.%012lld", dayOfYear + units / unitsPerDay, units % unitsPerDay)).value_or(1);
    return true;
}

int numberOfObject(Values& values)
{
    const std::string& text = values.message[OmmField::noradCatId];
    if (text.size() == 5 && !isDigit(text[0]) && catalogueNumber(text) > 0)
        return catalogueNumber(text);
    return values.whole(OmmField::noradCatId, 0);
}

/// The name, filled up with blanks as in the files of the services, and the designator.
void nameEntry(const OmmMessage& message, Entry& entry)
{
    constexpr std::size_t columns = 20, designatorLength = sizeof entry.designator - 1;
    std::string name(wholeCharacters(plainText(message[OmmField::objectName]), sizeof entry.name - 1));
    if (!name.empty())
        name.resize(std::max(name.size(), columns), ' ');
    assignField(entry.name, name);
    std::string designator = shortDesignator(message[OmmField::objectId]);
    designator.resize(designatorLength, ' ');
    assignField(entry.designator, designator);
}

/// Neither is needed for an orbit: one that cannot be read counts as unknown.
void readSetAndClass(const OmmMessage& message, Entry& entry)
{
    const std::string& letter = message[OmmField::classificationType];
    if (letter.size() == 1 && letter[0] >= 'A' && letter[0] <= 'Z')
        entry.classification = letter[0];
    const auto set = numberOf(message[OmmField::elementSetNo]);
    if (set && *set >= 0 && *set <= greatestWhole && *set == std::floor(*set))
        entry.elementSet = truncToInt(*set);
}

void readEpochField(Values& values, Entry& entry)
{
    const std::string& epoch = values.message[OmmField::epoch];
    if (epoch.empty())
        values.refuse("no ", OmmField::epoch, "");
    else if (!readEpoch(epoch, entry))
        values.refuse("", OmmField::epoch, " is no date");
}

Entry entryOfValues(Values& values)
{
    Entry entry;
    expectSgp4AboutTheEarth(values);
    readEpochField(values, entry);
    entry.n0 = values.required(OmmField::meanMotion);
    entry.ecc = values.required(OmmField::eccentricity);
    entry.inc = values.required(OmmField::inclination);
    entry.ra = values.required(OmmField::raOfAscNode);
    entry.aper = values.required(OmmField::argOfPericenter);
    entry.m0 = values.required(OmmField::meanAnomaly);
    entry.ephemerisType = values.whole(OmmField::ephemerisType, 0);
    entry.revolution = values.whole(OmmField::revAtEpoch, -1);
    entry.bstar = asExponentField(values.optional(OmmField::bstar));
    entry.n6dot = asExponentField(values.optional(OmmField::meanMotionDdot));
    entry.ndot = values.optional(OmmField::meanMotionDot);
    if (entry.ecc < 0)
        values.refuse("", OmmField::eccentricity, " is negative");
    return entry;
}
}  // namespace

std::string_view keywordOf(OmmField field)
{
    return keywords[static_cast<std::size_t>(field)];
}

OmmField fieldOf(std::string_view keyword)
{
    const auto* const found = std::find(keywords.begin(), keywords.end(), keyword);
    return static_cast<OmmField>(found - keywords.begin());
}

void OmmMessage::set(OmmField field, std::string_view value)
{
    if (field == OmmField::count)
        return;
    values[static_cast<std::size_t>(field)] = trimmed(value);
    any = true;
}

void OmmMessage::clear()
{
    for (std::string& value : values)
        value.clear();
    any = false;
}

double asExponentField(double value)
{
    char text[32];
    const auto [end, error] =
        std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, mantissaDigits - 1);
    const std::string_view printed(text, static_cast<std::size_t>(end - text));
    const std::size_t power = printed.find('e');
    if (error != std::errc() || power == std::string_view::npos || numberOf(printed) != value)
        return value;  // no such field holds it
    const int exponent = wholeNumber(printed.substr(power + 1)) + 1;
    if (std::abs(exponent) > greatestExponent)
        return value;
    std::string digits(printed.substr(0, power));
    std::erase(digits, '.');
    return wholeNumber(digits) * 1e-5 * std::pow(10.0, exponent);
}

Entry entryOf(const OmmMessage& message)
{
    Values values(message);
    const int number = numberOfObject(values);
    Entry entry = entryOfValues(values);
    if (!values.refusal.empty()) {
        entry = Entry();
        assignField(entry.refusal, values.refusal);
    }
    entry.readTo = EntryPart::whole;
    entry.number = number;
    nameEntry(message, entry);
    readSetAndClass(message, entry);
    return entry;
}

std::string ommNumber(double value)
{
    char digits[32];
    const double number = std::isfinite(value) ? value : 0.0;
    return {digits, std::to_chars(digits, digits + sizeof digits, number).ptr};
}

std::string ommExponent(double value)
{
    char text[32];
    const double fiveDigits = Atof(formatted(text, "%.4e", value));
    return ommNumber(asExponentField(fiveDigits) == value ? fiveDigits : value);
}

std::string ommEpoch(double startOfDay, double days)
{
    constexpr double firstDay = -678577.0, lastDay = 2973483.0;  // of the years 1 and 9999
    constexpr long long microsecondsPerDay = 86'400'000'000;
    if (!(startOfDay >= firstDay && startOfDay <= lastDay && days >= 0.0 && days <= 1.0)) {
        startOfDay = std::isnan(startOfDay) ? 0.0 : std::clamp(startOfDay, firstDay, lastDay);
        days = 0.0;
    }
    const long long rounded = std::llround(days * microsecondsPerDay);
    const long long daysCarried = rounded / microsecondsPerDay;
    const long long microseconds = rounded % microsecondsPerDay;
    int day = 0, month = 0, year = 0;
    double hours = 0;
    caldat(startOfDay + static_cast<double>(daysCarried), day, month, year, hours);
    char text[48];
    return std::string(formatted(text, "%04i-%02i-%02iT%02lld:%02lld:%02lld.%06lld", year, month, day,
                                 microseconds / 3'600'000'000, microseconds / 60'000'000 % 60,
                                 microseconds / 1'000'000 % 60, microseconds % 1'000'000));
}

OmmMessage messageOf(const Entry& entry)
{
    OmmMessage m;
    m.set(OmmField::objectName, beforeLineEnd(fieldText(entry.name)));
    if (const auto designator = trimmed(fieldText(entry.designator)); !designator.empty())
        m.set(OmmField::objectId, fullDesignator(designator));
    const double day = std::floor(entry.day);
    m.set(OmmField::epoch, ommEpoch(mjd(1, 1, entry.year, 0.0) + day - 1.0, entry.day - day));
    m.set(OmmField::meanMotion, ommNumber(entry.n0));
    m.set(OmmField::eccentricity, ommNumber(entry.ecc));
    m.set(OmmField::inclination, ommNumber(entry.inc));
    m.set(OmmField::raOfAscNode, ommNumber(entry.ra));
    m.set(OmmField::argOfPericenter, ommNumber(entry.aper));
    m.set(OmmField::meanAnomaly, ommNumber(entry.m0));
    m.set(OmmField::ephemerisType, std::to_string(entry.ephemerisType));
    if (entry.classification != ' ')
        m.set(OmmField::classificationType, std::string(1, entry.classification));
    m.set(OmmField::noradCatId, std::to_string(entry.number));
    if (entry.elementSet >= 0)
        m.set(OmmField::elementSetNo, std::to_string(entry.elementSet));
    if (entry.revolution >= 0)
        m.set(OmmField::revAtEpoch, std::to_string(entry.revolution));
    m.set(OmmField::bstar, ommExponent(entry.bstar));
    m.set(OmmField::meanMotionDot, ommNumber(entry.ndot));
    m.set(OmmField::meanMotionDdot, ommExponent(entry.n6dot));
    return m;
}
