#include "cli/brightness.h"

#include "elements/brightness_files.h"

BrightnessBook brightnessOf(const Session& session, const Channels& channels)
{
    const Request& request = session.request;
    BrightnessSettings settings = request.withoutConfig ? BrightnessSettings() : keptBrightnessSettings(0.0);
    settings.lengthM = request.length.value_or(settings.lengthM);
    std::string unread;
    BrightnessBook book = brightnessBook(settings, "", &unread);
    for (const ElementFile& file : session.files)
        book.classes.merge(readRadarClasses(file.path.c_str()));
    if (!unread.empty())
        channels.err("vorlix: " + unread + '\n');
    return book;
}
