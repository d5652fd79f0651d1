// Events for calendars: iCalendar, RFC 5545.
#pragma once

#include <string>

/// What a calendar keeps of a pass. Times are Modified Julian Dates, UTC; texts are UTF-8.
struct CalendarEvent
{
    std::string uid;  // the same for the same pass in every run
    double start = 0, end = 0;
    std::string summary;
    std::string description;
    std::string location;
    double latitude = 0, longitude = 0;  // of the observer, degrees
};

/// The lines before the first event and those after the last one.
std::string calendarHead();
std::string calendarTail();

/// An event with an alarm ten minutes before its start. It lasts one second at least; lines are folded and end in CR
/// and LF.
///
/// @param stamp  when the event was made, MJD UTC
std::string calendarEvent(const CalendarEvent& event, double stamp);
