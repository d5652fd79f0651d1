#include "elements/element_sources.h"

#include "astro/calendar.h"
#include "elements/element_file.h"
#include "elements/element_sources_data.h"
#include "elements/entry_reader.h"
#include "record/files.h"
#include "record/further_settings.h"

#include <QUrl>
#include <algorithm>

namespace {

constexpr char listGroup[] = "elementSources";
constexpr char updatesGroup[] = "updates";
constexpr char startGroup[] = "updateAtStart";

/// The name under which vorlix.ini keeps an address.
QString keyOf(QString address)
{
    if (address.startsWith(QLatin1String("http://"), Qt::CaseInsensitive))
        address.remove(0, 7);
    return QString::fromLatin1(QUrl::toPercentEncoding(address));
}

}  // namespace

std::vector<ElementSource> deliveredSources()
{
    std::vector<ElementSource> sources;
    for (const SourceRow& row : sourceRows)
        sources.push_back({QString::fromLatin1(row.name),
                           QLatin1String(sourceAddress) + QLatin1String(row.group) + QLatin1String("&FORMAT=csv")});
    sources.push_back(
        {QStringLiteral("Mirror of my own"), QStringLiteral("https://example.org/elements/visual.csv")});
    return sources;
}

std::vector<ElementSource> elementSources()
{
    QSettings kept = openFurtherSettings();
    const int count = kept.beginReadArray(QLatin1String(listGroup));
    if (!kept.contains(QStringLiteral("size")))
        return deliveredSources();
    std::vector<ElementSource> sources;
    for (int k = 0; k < count; ++k) {
        kept.setArrayIndex(k);
        sources.push_back({kept.value("name").toString(), kept.value("address").toString()});
    }
    return sources;
}

void keepElementSources(const std::vector<ElementSource>& sources)
{
    QSettings kept = openFurtherSettings();
    kept.remove(QLatin1String(listGroup));
    kept.beginWriteArray(QLatin1String(listGroup), static_cast<int>(sources.size()));
    for (int k = 0; k < static_cast<int>(sources.size()); ++k) {
        kept.setArrayIndex(k);
        kept.setValue("name", sources[k].name);
        kept.setValue("address", sources[k].address);
    }
    kept.endArray();
}

std::optional<LastUpdate> lastUpdate(const QString& address)
{
    QSettings kept = openFurtherSettings();
    kept.beginGroup(QLatin1String(updatesGroup));
    const QStringList words = kept.value(keyOf(address)).toString().split(QLatin1Char(' '));
    bool good = false;
    const double mjd = words[0].toDouble(&good);
    return good ? std::optional(LastUpdate{mjd, words.value(1) == QLatin1String("refused")}) : std::nullopt;
}

void keepLastUpdate(const QString& address, const LastUpdate& update)
{
    QSettings kept = openFurtherSettings();
    kept.beginGroup(QLatin1String(updatesGroup));
    kept.setValue(keyOf(address), QString::number(update.mjd, 'f', 5) + (update.refused ? " refused" : ""));
}

bool askedJustNow(const QString& address, double nowMjd)
{
    const std::optional<LastUpdate> last = lastUpdate(address);
    return last && last->mjd <= nowMjd && nowMjd - last->mjd < leastUpdateDays;
}

StartUpdate startUpdate()
{
    QSettings kept = openFurtherSettings();
    kept.beginGroup(QLatin1String(startGroup));
    const StartUpdate usual;
    return {kept.value("on").toBool(), kept.value("days", usual.days).toDouble(), kept.value("address").toString(),
            kept.value("file").toString()};
}

void keepStartUpdate(const StartUpdate& update)
{
    QSettings kept = openFurtherSettings();
    kept.beginGroup(QLatin1String(startGroup));
    kept.setValue("on", update.on);
    kept.setValue("days", update.days);
    kept.setValue("address", update.address);
    kept.setValue("file", update.file);
}

bool updateDue(const StartUpdate& update, std::optional<double> newestMjd, double nowMjd)
{
    if (!update.on || update.address.isEmpty() || update.file.isEmpty())
        return false;
    const std::optional<LastUpdate> last = lastUpdate(update.address);
    const bool old = !newestMjd || nowMjd - *newestMjd > update.days;
    return old && !askedJustNow(update.address, nowMjd) && !(last && last->refused);
}

std::optional<double> newestEpoch(const char* elementFile)
{
    const FilePtr file = openElementFile(elementFile);
    if (!file)
        return std::nullopt;
    EntryReader reader(file.get());
    std::optional<double> newest;
    for (Entry entry; reader.next(entry); entry = {}) {
        const double epoch = mjd(1, 1, entry.year, 0.0) + entry.day - 1.0;
        if (entry.readTo == EntryPart::whole && epoch > newest.value_or(0.0))
            newest = epoch;
    }
    return newest;
}
