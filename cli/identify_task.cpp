// Who is on a picture.

#include "cli/brightness.h"
#include "cli/tasks.h"
#include "cli/words.h"
#include "imaging/identify.h"
#include "imaging/trail_list.h"
#include "record/text.h"

#include <algorithm>
#include <string>

namespace {

constexpr double secondsPerDay = 86400.0;

/// What the header does not tell comes from the options.
Problem expose(const Session& session, const SkyPicture& read, ExposedPicture& picture)
{
    const Request& request = session.request;
    const PictureFacts& facts = read.facts;
    const bool given = request.site || !request.siteName.empty();
    if (!request.from.empty())
        picture.begin = session.from;
    else if (facts.begin)
        picture.begin = *facts.begin;
    else
        return {status::unreadable, "vorlix: the picture does not tell when it was taken" +
                                        (facts.doubt.empty() ? "" : " (" + facts.doubt + ')') +
                                        "; expected --from TIME"};
    if (!request.exposure && !facts.exposure)
        return {status::unreadable, "vorlix: the picture does not tell its exposure; expected --exposure SECONDS"};
    picture.begin += request.clockOffset / secondsPerDay;
    picture.exposure = request.exposure.value_or(facts.exposure.value_or(0.0));
    picture.equinox = facts.equinox;
    picture.site = facts.site && !given ? *facts.site : siteOf(*session.record);
    if (!facts.site && session.site.latitude == 0.0 && session.site.longitude == 0.0 && !given)
        return {status::unreadable, "vorlix: the picture does not tell its place; expected --site LAT,LON[,HEIGHT]"};
    picture.earth = earthOrientationOf(*session.record);
    picture.plate = read.plate.get();
    picture.width = read.width;
    picture.height = read.height;
    return {};
}

/// Rows of the finder count from the top, those of FITS from below.
void findOn(const SkyPicture& read, ExposedPicture& picture)
{
    picture.streaks = findStreaks(read.pixels);
    if (read.rowsUpward)
        for (Streak& streak : picture.streaks)
            for (PicturePoint* p : {&streak.from, &streak.to})
                p->y = read.height + 1.0 - p->y;
}

std::string streakLine(const Streak& s)
{
    const auto point = [](const PicturePoint& p) { return fixedNumber(p.x, 1) + ',' + fixedNumber(p.y, 1); };
    return "streak from " + point(s.from) + " to " + point(s.to) + ", signal to noise " + fixedNumber(s.signal, 0) +
           '\n';
}

Problem namesOn(const Session& session, const Channels& channels, const SkyPicture& read, Answer& answer)
{
    ExposedPicture picture;
    if (Problem problem = expose(session, read, picture))
        return problem;
    const std::vector<double>& s = session.request.streak;
    if (!s.empty())
        picture.streaks.push_back({{s[0], s[1]}, {s[2], s[3]}, 0.0});
    else
        findOn(read, picture);
    for (const Streak& streak : picture.streaks)
        channels.err(streakLine(streak));
    for (const ElementFile& file : session.files) {
        WinpData& in = *session.record;
        assignField(in.tlename, file.path);
        const auto trails = satellitesOn(&in, picture, brightnessOf(session, channels));
        if (!trails)
            return {status::unreadable, "vorlix: the solution of the picture has no place for its corners"};
        for (const PictureTrail& trail : *trails)
            answer.add(trail.match ? trail.match->misfit() : 1e9, trailRow(trail));
    }
    return {};
}

}  // namespace

Problem identifyPicture(const Session& session, const Channels& channels, Answer& answer)
{
    const std::string& name = session.request.picture;
    if (!FilePtr(std::fopen(name.c_str(), "rb")))
        return {status::unreadable, "vorlix: the picture " + inQuotes(name) + " cannot be read"};
    const ReadPicture read = readPicture(name);
    if (!read.complaint.empty())
        return {status::unreadable, "vorlix: the picture " + inQuotes(name) + " cannot be read: " + read.complaint};
    if (!read.picture.plate)
        return {status::unreadable, "vorlix: the picture " + inQuotes(name) + " has no solution: " + read.remark};
    if (read.picture.width < 1)
        return {status::unreadable, "vorlix: the size of the picture " + inQuotes(name) + " is not known"};
    return namesOn(session, channels, read.picture, answer);
}
