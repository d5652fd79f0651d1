#include "elements/brightness_files.h"

#include "elements/omm_forms.h"
#include "record/files.h"
#include "record/further_settings.h"
#include "record/numbers.h"

#include <QFile>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

namespace {

constexpr const char* group = "magnitudes";
constexpr double brightest = -15.0, faintest = 30.0;
constexpr std::size_t magnitudeColumn = 33, magnitudeWidth = 4;
constexpr std::size_t mostBytes = 256 * 1024 * 1024;
constexpr double fullPhaseDeg = 0.0, halfPhaseDeg = 90.0;

std::optional<double> plainNumber(std::string_view text)
{
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool whole = error == std::errc() && end == text.data() + text.size() && std::isfinite(value);
    return whole ? std::optional(value) : std::nullopt;
}

std::vector<std::string_view> wordsOf(std::string_view line)
{
    constexpr const char* between = " \t\r\n,;";
    std::vector<std::string_view> words;
    for (std::size_t at = line.find_first_not_of(between); at != std::string_view::npos;) {
        const std::size_t end = std::min(line.find_first_of(between, at), line.size());
        words.push_back(line.substr(at, end - at));
        at = line.find_first_not_of(between, end);
    }
    return words;
}

struct Row
{
    double magnitude;
    double spread = unknownSpread;
};

/// A row whose second word is the magnitude.
std::optional<Row> numbersRow(const std::vector<std::string_view>& words)
{
    if (words.size() < 2 || words.size() > 3)
        return std::nullopt;
    const auto magnitude = plainNumber(words[1]);
    const auto spread = words.size() == 3 ? plainNumber(words[2]) : std::optional(unknownSpread);
    return magnitude && spread ? std::optional(Row{*magnitude, *spread}) : std::nullopt;
}

/// A row with a name behind the number.
std::optional<Row> columnsRow(std::string_view line)
{
    if (line.size() < magnitudeColumn + magnitudeWidth)
        return std::nullopt;
    const auto words = wordsOf(line.substr(magnitudeColumn, magnitudeWidth));
    const auto magnitude = words.size() == 1 ? plainNumber(words[0]) : std::nullopt;
    return magnitude ? std::optional(Row{*magnitude}) : std::nullopt;
}

/// False for a line that is neither a row nor a comment.
bool takeLine(std::string_view line, double phaseDeg, MagnitudeList& list)
{
    line = line.substr(0, line.find('#'));
    const auto words = wordsOf(line);
    if (words.empty())
        return true;
    const auto number = plainNumber(words[0]);
    auto row = numbersRow(words);
    if (!row)
        row = columnsRow(line);
    if (!number || *number < 1 || *number > 999999999 || !row || row->magnitude < brightest ||
        row->magnitude > faintest || !(row->spread > 0.0))
        return false;
    StandardMagnitude standard = diffuseSphere(row->magnitude, phaseDeg);
    standard.spread = row->spread;
    list.rows[static_cast<int>(*number)] = standard;
    return true;
}

std::optional<RadarClass> classOf(const std::string& text)
{
    for (const auto& [word, size] : {std::pair{"SMALL", RadarClass::small}, std::pair{"MEDIUM", RadarClass::medium},
                                     std::pair{"LARGE", RadarClass::large}})
        if (text == word)
            return size;
    return std::nullopt;
}

}  // namespace

BrightnessSettings keptBrightnessSettings(double lengthM)
{
    QSettings kept = openFurtherSettings();
    kept.beginGroup(QLatin1String(group));
    bool good = false;
    const double length = kept.value("length").toDouble(&good);
    return {kept.value("file").toString(), kept.value("convention").toString() == QLatin1String("half"),
            good && std::isfinite(length) && length >= 0.0 ? length : lengthM};
}

void keepBrightnessSettings(const BrightnessSettings& settings)
{
    QSettings kept = openFurtherSettings();
    kept.beginGroup(QLatin1String(group));
    kept.setValue("file", settings.file);
    kept.setValue("convention", settings.halfPhase ? "half" : "full");
    kept.setValue("length", settings.lengthM);
}

MagnitudeList readMagnitudes(const std::string& file, double phaseDeg)
{
    MagnitudeList list;
    const FilePtr from = openForReading(file.c_str());
    if (!from) {
        list.why = "The list of magnitudes " + file + " cannot be read";
        return list;
    }
    for (std::string line; readLine(from.get(), line);)
        list.refused += !takeLine(line, phaseDeg, list);
    if (list.rows.empty())
        list.why = "The list of magnitudes " + file + " holds no magnitude";
    return list;
}

std::unordered_map<int, RadarClass> readRadarClasses(const char* elementFile)
{
    std::unordered_map<int, RadarClass> classes;
    const std::optional<std::string> content = contentOfFile(elementFile);
    if (!content || content->size() > mostBytes || content->find(keywordOf(OmmField::rcsSize)) == std::string::npos)
        return classes;
    const QByteArray document = QByteArray::fromRawData(content->data(), static_cast<qsizetype>(content->size()));
    for (const OmmMessage& message : ommMessages(ommFormOf(document.left(ommHeadLength)), document))
        if (const auto size = classOf(message[OmmField::rcsSize]))
            classes[wholeNumber(message[OmmField::noradCatId])] = *size;
    return classes;
}

BrightnessBook brightnessBook(const BrightnessSettings& settings, const char* elementFile, std::string* why)
{
    BrightnessBook book;
    book.lengthM = settings.lengthM;
    book.classes = readRadarClasses(elementFile);
    if (settings.file.isEmpty())
        return book;
    MagnitudeList list = readMagnitudes(QFile::encodeName(settings.file).toStdString(),
                                        settings.halfPhase ? halfPhaseDeg : fullPhaseDeg);
    book.listed = std::move(list.rows);
    if (why)
        *why = list.why;
    return book;
}
