// How old the elements on show are.

#include "view/vorlix_view.h"

#include <algorithm>
#include <iterator>

#include "engine/aos_list.h"
#include "record/text.h"
#include "view/message_boxes.h"

std::optional<VorlixView::AgeOnShow> VorlixView::ageOnShow() const
{
    const bool table = indata->dspmd == -1 && listedRecord && listed == Listed::passes;
    const WinpData& in = table ? *listedRecord : *indata;
    if (in.satn < 1)
        return std::nullopt;
    ElementAge worst = elementAge(in, in.prs, in.mjd, uncertainty);
    const int lines = table ? std::min(in.naos, static_cast<int>(std::size(in.aostm))) : 0;
    for (int line = 0; line < lines; ++line) {
        const ElementAge age = elementAge(in, in.prs, in.aostm[line], uncertainty);
        worst = {std::max(worst.days, age.days), std::max(worst.seconds, age.seconds)};
    }
    return AgeOnShow{fieldQString(in.fsname[in.prs]).trimmed(), worst};
}

void VorlixView::vAges(bool on, double decayUncertainty)
{
    agesTold = on;
    uncertainty = decayUncertainty;
}

/// A box, once in the life of the window, for transits that the elements are too old for.
void VorlixView::warnOfOldElements()
{
    constexpr double transitLimitS = 0.5;
    const auto shown = ageOnShow();
    if (!agesTold || oldElementsTold || !shown || indata->naos == 0 || !transitsOfDisk(*indata) ||
        !(shown->age.seconds > transitLimitS))
        return;
    oldElementsTold = true;
    inform(
        this, tr("Transits"),
        tr("The elements of %1 are %2 days old. A transit may come %3 seconds earlier or later than told, or pass "
           "the "
           "place by. Fetch new elements before you go out for it.")
            .arg(shown->name, QString::number(shown->age.days, 'f', 1), QString::number(shown->age.seconds, 'f', 1)));
}
