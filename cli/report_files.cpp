#include "cli/report_files.h"

#include "cli/words.h"
#include "observing/report_forms.h"

#include <optional>
#include <string>

namespace {

constexpr std::size_t mostBytes = 200'000'000;

std::optional<std::string> contentOf(std::FILE* file)
{
    std::string text;
    char block[65536];
    for (std::size_t n; file && text.size() < mostBytes && (n = std::fread(block, 1, sizeof block, file)) > 0;)
        text.append(block, n);
    return file && !std::ferror(file) && text.size() < mostBytes ? std::optional(std::move(text)) : std::nullopt;
}

std::optional<std::string> contentOf(const std::string& name, const Channels& channels)
{
    if (name == "-")
        return contentOf(channels.input);
    const FilePtr file(std::fopen(name.c_str(), "rb"));
    return contentOf(file.get());
}

}  // namespace

Problem readReportFiles(const Session& session, const Channels& channels, std::vector<Observation>& observations)
{
    for (const std::string& name : session.request.reports) {
        const auto text = contentOf(name, channels);
        if (!text)
            return {status::unreadable, "vorlix: the file of observations " + inQuotes(name) + " cannot be read"};
        const ReportContent content = readReports(*text);
        for (const std::string& complaint : content.complaints)
            channels.err("vorlix: " + inQuotes(name) + ' ' + complaint + '\n');
        observations.insert(observations.end(), content.observations.begin(), content.observations.end());
    }
    return {};
}
