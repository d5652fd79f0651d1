#include "cli/answer.h"

#include "cli/words.h"

#include <set>
#include <utility>

namespace {

constexpr std::size_t bytesInMemory = 8'000'000;

ListRequest requestOf(const Session& session)
{
    ListRequest request{wordsOf(session.request.task).name,
                        session.site,
                        session.from,
                        session.to,
                        session.now,
                        session.zoneHours,
                        {},
                        session.request.satellites,
                        session.request.numeric};
    for (const ElementFile& file : session.files)
        request.files.push_back(file.shown);
    return request;
}

/// Lists of steps come satellite after satellite, all others in time order if nothing else is asked for.
bool inTimeOrder(const Request& request)
{
    switch (request.task) {
    case Task::look:
    case Task::track:
    case Task::state:
    case Task::now:
    case Task::convert:
    case Task::report:
    case Task::fit:
        return false;
    default:
        return !request.entryOrder;
    }
}

/// Whether the answer has rows under columns, and not texts in a form of their own.
bool givesRows(const Request& request)
{
    return request.task != Task::convert && request.form < ListForm::tle;
}

}  // namespace

Answer::Answer(const Session& theSession, const Channels& theChannels, const ListKind& kind)
    : session(theSession),
      channels(theChannels),
      document(theSession.request.form, kind, requestOf(theSession), *theSession.record),
      lists(givesRows(theSession.request)),
      sorter(bytesInMemory),
      sorts(inTimeOrder(theSession.request))
{}

/// Opens the output, only now that there is something to write: a request that fails must not cost an old file.
void Answer::begin()
{
    if (std::exchange(begun, true))
        return;
    const std::string& name = session.request.output;
    if (!name.empty()) {
        file.reset(std::fopen(name.c_str(), "w"));
        channels.out = [this](std::string_view piece) {
            return file && std::fwrite(piece.data(), 1, piece.size(), file.get()) == piece.size();
        };
    }
    if (file)
        std::setvbuf(file.get(), nullptr, _IONBF, 0);
    if (lists)
        write(document.head());
}

void Answer::put(std::string_view piece)
{
    begin();
    write(piece);
}

void Answer::add(double time, const ListRow& row)
{
    if (!full())
        addText(time, document.item(row));
}

void Answer::addText(double time, std::string item)
{
    if (full())
        return;
    ++taken;
    const int element = static_cast<int>(used.size()) - 1;
    if (sorts)
        sorter.add(time, std::move(item), element);
    else
        give(item, element);
}

void Answer::use(const UsedElements& elements, bool always)
{
    if (session.request.form == ListForm::json)
        used.emplace_back(elements, always);
}

std::vector<UsedElements> Answer::namedElements() const
{
    std::vector<UsedElements> named;
    std::set<std::pair<long long, double>> seen;  // several kinds of events may come of the same elements
    for (const auto& [elements, isNamed] : used)
        if (isNamed && seen.emplace(elements.satellite.number, elements.epoch).second)
            named.push_back(elements);
    return named;
}

bool Answer::full() const
{
    return closed || (!sorts && session.request.limit && taken >= *session.request.limit);
}

/// False once no more are wanted.
bool Answer::give(const std::string& item, int element)
{
    if (closed || (session.request.limit && given >= *session.request.limit))
        return false;
    begin();
    ++given;
    if (element >= 0)
        used[static_cast<std::size_t>(element)].second = true;
    if (!lists || !document.joinsItems())
        return write(item);
    const bool goesOn = pending.empty() || write(pending + ",\n");
    pending = item;
    return goesOn;
}

bool Answer::write(std::string_view piece)
{
    if (!closed && !piece.empty() && !channels.out(piece))
        closed = true;
    return !closed;
}

Problem Answer::end(const Problem& before)
{
    if (before && !begun && taken == 0)
        return before;
    begin();
    const bool whole = sorter.giveAll([&](const std::string& item, int element) { return give(item, element); });
    if (!pending.empty())
        write(pending + '\n');
    if (lists)
        write(document.tail(namedElements()));
    if (!whole)
        return {status::unreadable, "vorlix: there is no room for the list in the folder of temporary files"};
    if (closed && !session.request.output.empty())
        return {status::unreadable, "vorlix: " + inQuotes(session.request.output) + " cannot be written"};
    return before;
}
