#include "exports/calendar_form.h"

#include "exports/rows.h"
#include "exports/time_text.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr std::size_t longestLine = 75;  // octets, the line end left out
constexpr double oneSecondDays = 1.0 / 86400.0;

bool continuesCharacter(char c)
{
    return (static_cast<unsigned char>(c) & 0xc0) == 0x80;
}

/// A content line, folded without halving a character.
std::string folded(std::string_view line)
{
    std::string text;
    for (std::size_t room = longestLine; line.size() > room; room = longestLine - 1) {
        std::size_t cut = room;
        while (cut > 1 && continuesCharacter(line[cut]))
            --cut;
        text.append(line.substr(0, cut)).append("\r\n ");
        line.remove_prefix(cut);
    }
    return text.append(line).append("\r\n");
}

/// The value of a property of type TEXT.
std::string escaped(std::string_view text)
{
    std::string value;
    for (const char c : text) {
        if (c == '\n')
            value += "\\n";
        else if (c == '\\' || c == ';' || c == ',')
            (value += '\\') += c;
        else if (static_cast<unsigned char>(c) >= 0x20)
            value += c;
    }
    return value;
}

std::string alarmOf(const CalendarEvent& event)
{
    return "BEGIN:VALARM\r\nACTION:DISPLAY\r\nTRIGGER:-PT10M\r\n" + folded("DESCRIPTION:" + escaped(event.summary)) +
           "END:VALARM\r\n";
}

}  // namespace

std::string calendarHead()
{
    return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Vorlix//Vorlix//EN\r\nCALSCALE:GREGORIAN\r\n";
}

std::string calendarTail()
{
    return "END:VCALENDAR\r\n";
}

std::string calendarEvent(const CalendarEvent& event, double stamp)
{
    const double end = std::max(event.end, event.start + oneSecondDays);
    return "BEGIN:VEVENT\r\n" + folded("UID:" + escaped(event.uid)) + "DTSTAMP:" + isoBasic(stamp) +
           "\r\nDTSTART:" + isoBasic(event.start) + "\r\nDTEND:" + isoBasic(end) + "\r\n" +
           folded("SUMMARY:" + escaped(event.summary)) + folded("DESCRIPTION:" + escaped(event.description)) +
           folded("LOCATION:" + escaped(event.location)) + "GEO:" + fixedNumber(event.latitude, 6) + ';' +
           fixedNumber(event.longitude, 6) + "\r\n" + alarmOf(event) + "END:VEVENT\r\n";
}
