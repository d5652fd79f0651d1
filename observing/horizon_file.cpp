#include "observing/horizon_file.h"

#include "record/further_settings.h"

#include <QByteArray>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>
#include <vector>

namespace {

constexpr qint64 longestFile = 16 << 20;
constexpr char fileKey[] = "horizon/file";
constexpr std::string_view separators = " \t\r,;";
constexpr std::string_view degreeSign = "\xc2\xb0";
constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";

HorizonText refused(std::string why)
{
    return {nullptr, std::move(why)};
}

/// Why two numbers are no point; null if they are.
const char* wrongIn(const HorizonLine::Point& p)
{
    if (!(p.azimuth >= -360.0 && p.azimuth <= 720.0))
        return "the azimuth is not between 0 and 360 degrees";
    if (!(p.elevation >= -90.0 && p.elevation <= 90.0))
        return "the elevation is not between -90 and 90 degrees";
    return nullptr;
}

/// The words of a line without its comment.
std::vector<std::string_view> wordsOf(std::string_view line)
{
    line = line.substr(0, line.find('#'));
    std::vector<std::string_view> words;
    for (std::size_t at = 0; (at = line.find_first_not_of(separators, at)) != std::string_view::npos;) {
        const std::size_t end = std::min(line.find_first_of(separators, at), line.size());
        words.push_back(line.substr(at, end - at));
        at = end;
    }
    return words;
}

std::optional<double> numberOf(std::string_view word)
{
    if (word.ends_with(degreeSign))
        word.remove_suffix(degreeSign.size());
    if (word.starts_with('+'))
        word.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    return error == std::errc() && end == word.data() + word.size() ? std::optional(value) : std::nullopt;
}

HorizonText lineOf(std::vector<HorizonLine::Point> points)
{
    if (points.empty())
        return refused("there is no point in it");
    return {std::make_shared<HorizonLine>(std::move(points)), {}};
}

HorizonText readPairs(std::string_view text)
{
    std::vector<HorizonLine::Point> points;
    bool headingSeen = false;
    for (int number = 1; !text.empty(); ++number) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::vector<std::string_view> words = wordsOf(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (words.empty())
            continue;
        const std::string where = "line " + std::to_string(number) + ": ";
        const std::optional<double> azimuth = numberOf(words[0]);
        if (!azimuth && points.empty() && !std::exchange(headingSeen, true))
            continue;
        const std::optional<double> elevation = words.size() == 2 ? numberOf(words[1]) : std::nullopt;
        if (!azimuth || !elevation)
            return refused(where + "two numbers are expected, azimuth and elevation");
        if (const char* why = wrongIn({*azimuth, *elevation}))
            return refused(where + why);
        if (points.size() == mostHorizonPoints)
            return refused(where + "there are too many points");
        points.push_back({*azimuth, *elevation});
    }
    return lineOf(std::move(points));
}

HorizonText readList(std::string_view text)
{
    const QJsonDocument document =
        QJsonDocument::fromJson(QByteArray(text.data(), static_cast<qsizetype>(text.size())));
    if (!document.isArray())
        return refused("it begins like a list of pairs, [[0, 20], [90, 15]], but is none");
    std::vector<HorizonLine::Point> points;
    for (const QJsonValue& pair : document.array()) {
        const std::string where = "point " + std::to_string(points.size() + 1) + ": ";
        const QJsonArray numbers = pair.toArray();
        if (numbers.size() != 2 || !numbers[0].isDouble() || !numbers[1].isDouble())
            return refused(where + "two numbers are expected, azimuth and elevation");
        points.push_back({numbers[0].toDouble(), numbers[1].toDouble()});
        if (const char* why = wrongIn(points.back()))
            return refused(where + why);
        if (points.size() > mostHorizonPoints)
            return refused(where + "there are too many points");
    }
    return lineOf(std::move(points));
}

}  // namespace

HorizonText readHorizon(std::string_view text)
{
    if (text.starts_with(byteOrderMark))
        text.remove_prefix(byteOrderMark.size());
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    return first != std::string_view::npos && text[first] == '[' ? readList(text) : readPairs(text);
}

HorizonText readHorizonFile(const QString& name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        return refused(file.errorString().toStdString());
    const QByteArray content = file.read(longestFile + 1);
    if (content.size() > longestFile)
        return refused("the file is too long");
    return readHorizon({content.constData(), static_cast<std::size_t>(content.size())});
}

QString horizonFile()
{
    return openFurtherSettings().value(fileKey).toString();
}

void keepHorizonFile(const QString& name)
{
    openFurtherSettings().setValue(fileKey, name);
}
