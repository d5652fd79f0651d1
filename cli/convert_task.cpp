// Element sets from one form to another.

#include "cli/entry_walk.h"
#include "cli/tasks.h"
#include "elements/catalogue_number.h"
#include "elements/omm_csv.h"
#include "elements/omm_forms.h"
#include "elements/writer.h"
#include "exports/element_forms.h"
#include "record/files.h"
#include "reports/list_rows.h"

#include <QByteArray>
#include <cstdlib>
#include <functional>
#include <string>
#include <utility>

namespace {

constexpr int primeSlot = 0;

/// What is written into a file, as a text.
std::string writtenText(const std::function<void(std::FILE*)>& write)
{
    char* buffer = nullptr;
    std::size_t size = 0;
    FilePtr file(::open_memstream(&buffer, &size));
    if (file)
        write(file.get());
    file.reset();
    std::string text(buffer ? buffer : "", size);
    std::free(buffer);
    return text;
}

std::string csvText(const WinpData& in)
{
    return writtenText([&](std::FILE* file) { writeOmmLine(file, in, primeSlot); });
}

std::string csvHead()
{
    return writtenText(writeOmmHeader);
}

OmmMessage messageOf(const WinpData& in)
{
    const std::string document = csvHead() + csvText(in);
    const std::vector<OmmMessage> messages = ommMessages(OmmForm::csv, QByteArray::fromStdString(document));
    return messages.empty() ? OmmMessage() : messages[0];
}

MessageFrame frameOf(ListForm form)
{
    switch (form) {
    case ListForm::csv:
        return {csvHead(), "", ""};
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

std::string textOf(WinpData& in, const Session& session)
{
    switch (session.request.form) {
    case ListForm::csv:
        return csvText(in);
    case ListForm::json:
        return jsonMessage(messageOf(in));
    case ListForm::xml:
        return xmlMessage(messageOf(in), session.now);
    case ListForm::kvn:
        return kvnMessage(messageOf(in), session.now);
    default:
        return writtenText([&](std::FILE* file) { writeTwoLines(file, &in, primeSlot); });
    }
}

/// Why a satellite cannot be in a file of the form; empty if it can.
std::string leftOutBecause(const WinpData& in, ListForm form)
{
    if (form != ListForm::tle && in.numflg[primeSlot])
        return "its state has no place in messages of mean elements";
    if (form == ListForm::tle && in.norad[primeSlot] > greatestColumnNumber)
        return "its number has no place in two lines";
    return {};
}

}  // namespace

Problem convertElements(const Session& session, const Channels& channels, Answer& answer)
{
    const MessageFrame frame = frameOf(session.request.form);
    EntryWalk walk(session, channels, [&] { return answer.full(); });
    const Problem problem = walk.oneByOne(*session.record, [&](WinpData& in) {
        if (const std::string reason = leftOutBecause(in, session.request.form); !reason.empty()) {
            channels.err("vorlix: " + nameOf(in, primeSlot).name + " is left out: " + reason + '\n');
            return;
        }
        answer.put(answer.count() == 0 ? frame.head : frame.between);
        answer.addText(0.0, textOf(in, session));
    });
    if (answer.count() > 0)
        answer.put(frame.tail);
    channels.err(walk.missing());
    return problem;
}
