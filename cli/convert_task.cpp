// Element sets from one form to another.

#include "cli/entry_walk.h"
#include "cli/tasks.h"
#include "elements/entry_record.h"
#include "elements/omm_message.h"
#include "elements/writer.h"
#include "exports/element_forms.h"
#include "record/text.h"

#include <cstdlib>
#include <memory>
#include <string>

namespace {

/// The lines of a state vector, or of an orbit that is no ellipse, which no publisher has.
std::string ownLines(const Entry& entry)
{
    const auto in = std::make_unique<WinpData>();
    setDefaults(in.get());
    takeName(in.get(), entry);
    char report[entryTextRoom];
    if (!takeEntry(in.get(), entry, report))
        return {};
    char* buffer = nullptr;
    std::size_t size = 0;
    FilePtr file(::open_memstream(&buffer, &size));
    if (file)
        writeTwoLines(file.get(), in.get(), workSlot);
    file.reset();
    std::string text(buffer ? buffer : "", size);
    std::free(buffer);
    return text;
}

TwoLines linesOf(const Entry& entry)
{
    if (!entry.stateVector && entry.ecc < 1)
        return twoLinesOf(entry);
    const std::string text = ownLines(entry);
    return {text, text.empty() ? "its state gives no orbit" : ""};
}

MessageFrame frameOf(ListForm form)
{
    switch (form) {
    case ListForm::csv:
        return csvFrame();
    case ListForm::json:
        return jsonFrame();
    case ListForm::xml:
        return xmlFrame();
    case ListForm::kvn:
        return kvnFrame();
    default:
        return {};
    }
}

std::string messageIn(ListForm form, const OmmMessage& message, double now)
{
    switch (form) {
    case ListForm::csv:
        return csvMessage(message);
    case ListForm::xml:
        return xmlMessage(message, now);
    case ListForm::kvn:
        return kvnMessage(message, now);
    default:
        return jsonMessage(message);
    }
}

/// The entry in the form that is asked for, or why it has none.
TwoLines converted(const Entry& entry, const Session& session)
{
    if (entry.refusal[0] != '\0')
        return {{}, std::string(fieldText(entry.refusal))};
    if (entry.readTo != EntryPart::whole)
        return {{}, "its lines are damaged"};
    if (session.request.form == ListForm::tle)
        return linesOf(entry);
    if (entry.stateVector)
        return {{}, "its state has no place in messages of mean elements"};
    return {messageIn(session.request.form, messageOf(entry), session.now), {}};
}

}  // namespace

Problem convertElements(const Session& session, const Channels& channels, Answer& answer)
{
    const MessageFrame frame = frameOf(session.request.form);
    EntryWalk walk(session, channels, [&] { return answer.full(); });
    const Problem problem = walk.asRead([&](const Entry& entry, const SatelliteName& satellite) {
        const TwoLines made = converted(entry, session);
        if (!made.complaint.empty()) {
            channels.err("vorlix: " + satellite.name + " is left out: " + made.complaint + '\n');
            return;
        }
        answer.put(answer.count() == 0 ? frame.head : frame.between);
        answer.addText(0.0, made.text);
    });
    if (answer.count() > 0)
        answer.put(frame.tail);
    channels.err(walk.missing());
    return problem;
}
