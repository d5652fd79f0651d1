#include "record/corrections.h"

#include "record/further_settings.h"

#include <algorithm>

namespace {

QString keyOf(const CorrectionName& entry)
{
    return QStringLiteral("models/") + QLatin1String(entry.name);
}

}  // namespace

Corrections modernModels()
{
    Corrections c;
    for (const CorrectionName& entry : correctionNames)
        c.*entry.flag = true;
    return c;
}

Corrections correctionsNamed(std::string_view names, std::string& unknown)
{
    Corrections c;
    unknown.clear();
    while (!names.empty()) {
        const std::size_t end = std::min(names.find(','), names.size());
        const std::string_view name = names.substr(0, end);
        names.remove_prefix(std::min(end + 1, names.size()));
        const auto entry = std::find_if(correctionNames.begin(), correctionNames.end(),
                                        [=](const CorrectionName& e) { return name == e.name; });
        if (name == "modern")
            c = modernModels();
        else if (entry != correctionNames.end())
            c.*entry->flag = true;
        else if (unknown.empty())
            unknown = name.empty() ? "," : name;
    }
    return c;
}

std::vector<std::string> namesOf(const Corrections& corrections)
{
    std::vector<std::string> names;
    for (const CorrectionName& entry : correctionNames)
        if (corrections.*entry.flag)
            names.emplace_back(entry.name);
    return names;
}

Corrections storedCorrections()
{
    const QSettings settings = openFurtherSettings();
    Corrections c;
    for (const CorrectionName& entry : correctionNames)
        c.*entry.flag = settings.value(keyOf(entry)).toBool();
    return c;
}

void storeCorrections(const Corrections& corrections)
{
    QSettings settings = openFurtherSettings();
    for (const CorrectionName& entry : correctionNames)
        settings.setValue(keyOf(entry), corrections.*entry.flag);
}
