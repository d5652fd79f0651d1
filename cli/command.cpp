#include "cli/command.h"

#include "cli/answer.h"
#include "cli/request.h"
#include "cli/session.h"
#include "cli/tasks.h"
#include "engine/satpos_data.h"
#include "record/keep.h"
#include "scan/workers.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <memory>
#include <unistd.h>

namespace {

using TaskFunction = Problem (*)(const Session&, const Channels&, Answer&);

// in the order of Task
constexpr std::array<TaskFunction, 14> functions{
    findPasses,      findEvents, findContacts, lookAt,      followTracks, tellStates,    findMatches,
    convertElements, findNext,   whatIsUp,     tellReports, fitOrbits,    findCrossings, identifyPicture};

/// For the length of a scope.
class Workers
{
public:
    explicit Workers(int count) { setScanWorkers(count); }
    ~Workers() { setScanWorkers(0); }
    Workers(const Workers&) = delete;
    Workers& operator=(const Workers&) = delete;
};

int told(const Problem& problem, const Channels& channels)
{
    if (!problem.message.empty())
        channels.err(problem.message + '\n');
    return problem.status;
}

int answerTo(Session& session, const Channels& channels)
{
    if (const Problem problem = prepare(session, channels))
        return told(problem, channels);
    const auto positions = std::make_unique<SatPosData>();
    const Keep ownPositions(satpos, positions.get());
    const Workers workers(session.request.workers.value_or(0));
    Answer answer(session, channels, listOf(session.request));
    const auto function = functions[static_cast<std::size_t>(session.request.task)];
    if (const Problem problem = answer.end(function(session, channels, answer)))
        return told(problem, channels);
    return answer.count() > 0 ? status::found : status::nothingFound;
}

bool writeAll(int descriptor, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return false;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

}  // namespace

bool isCommand(const std::vector<std::string>& words)
{
    constexpr std::array asked{"--help", "-h", "--version", "-v"};
    if (words.empty())
        return false;
    return !words[0].starts_with('-') || std::find(asked.begin(), asked.end(), words[0]) != asked.end();
}

int runCommand(const std::vector<std::string>& words, const Channels& channels)
{
    ReadWords read = readWords(words);
    if (!read.complaint.empty())
        return told({status::wrongWords, read.complaint}, channels);
    if (!read.answer.empty()) {
        channels.out(read.answer);
        return status::found;
    }
    Session session;
    session.request = std::move(read.request);
    return answerTo(session, channels);
}

Channels processChannels(const QString& home)
{
    // a reader that leaves ends the command without a word, and so does an interrupt
    std::signal(SIGPIPE, SIG_DFL);
    const auto to = [](int descriptor) {
        return [descriptor](std::string_view text) { return writeAll(descriptor, text); };
    };
    return {to(STDOUT_FILENO), to(STDERR_FILENO), stdin, home, ::isatty(STDERR_FILENO) != 0};
}
