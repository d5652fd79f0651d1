#include "cli/transcript_helper.h"

#include "cli/command.h"

#include <QProcess>
#include <QString>

#include <sstream>

std::vector<Transcript> transcriptsOf(const std::string& text)
{
    std::vector<Transcript> transcripts;
    std::istringstream lines(text);
    bool open = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("$ vorlix ", 0) == 0) {
            transcripts.push_back({line.substr(2), {}});
            open = true;
        } else if (line.rfind("```", 0) == 0 || line.rfind("#", 0) == 0 || line.rfind("$ ", 0) == 0) {
            open = false;
        } else if (open && !line.empty()) {
            transcripts.back().expected += line + '\n';
        }
    }
    return transcripts;
}

std::vector<std::string> wordsOfLine(const std::string& line)
{
    std::vector<std::string> words;
    for (const QString& word : QProcess::splitCommand(QString::fromStdString(line)))
        words.push_back(word.toStdString());
    return words;
}

CommandRun runWords(const std::vector<std::string>& words, const QString& home, std::FILE* input)
{
    CommandRun run{{}, {}, 0};
    const auto into = [](std::string& text) {
        return [&text](std::string_view piece) {
            text += piece;
            return true;
        };
    };
    run.status = runCommand(words, {into(run.out), into(run.err), input, home, false});
    return run;
}

std::string outcomeOf(const std::string& command, const QString& home)
{
    std::vector<std::string> words = wordsOfLine(command);
    words.erase(words.begin());  // "vorlix"
    const CommandRun run = runWords(words, home);
    std::string outcome;
    std::istringstream out(run.out), err(run.err);
    for (std::string line; std::getline(out, line);)
        if (line != "\r" && !line.empty())
            outcome += (line.back() == '\r' ? line.substr(0, line.size() - 1) : line) + '\n';
    for (std::string line; std::getline(err, line);)
        outcome += "! " + line + '\n';
    return run.status == 0 ? outcome : outcome + '[' + std::to_string(run.status) + "]\n";
}

bool sameOutcome(const std::string& outcome, const std::string& expected)
{
    const std::size_t dots = expected.rfind("...\n", 0) == 0 ? 0 : expected.find("\n...\n");
    if (dots == std::string::npos)
        return outcome == expected;
    const std::string head = expected.substr(0, dots == 0 ? 0 : dots + 1);
    const std::string tail = expected.substr(head.size() + 4);
    return outcome.size() >= head.size() + tail.size() && outcome.compare(0, head.size(), head) == 0 &&
           outcome.compare(outcome.size() - tail.size(), tail.size(), tail) == 0;
}
