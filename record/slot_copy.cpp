#include "record/slot_copy.h"

#include "record/winp_data.h"

#include <cstring>

namespace {

/// Copies an entry of each of the arrays that the members name.
template <class... Arrays>
void copyEntries(WinpData& to, int toSlot, const WinpData& from, int fromSlot, Arrays WinpData::*... arrays)
{
    (std::memcpy(&(to.*arrays)[toSlot], &(from.*arrays)[fromSlot], sizeof(to.*arrays)[0]), ...);
}

}  // namespace

void copySlot(WinpData* to, int toSlot, const WinpData& from, int fromSlot)
{
    using W = WinpData;
    to->sgpsat = noSlot;
    if (to == &from && toSlot == fromSlot)
        return;
    const auto copy = [&](auto... arrays) { copyEntries(*to, toSlot, from, fromSlot, arrays...); };
    copy(&W::ldsn, &W::fsname, &W::norad, &W::aflg, &W::numflg);
    copy(&W::mjdep, &W::a, &W::ra, &W::aper, &W::inc, &W::ecc, &W::m0, &W::n0);
    copy(&W::adot, &W::ndot, &W::n6dot, &W::bstar);
    copy(&W::epr0, &W::epr1, &W::epr2, &W::epv0, &W::epv1, &W::epv2);
    copy(&W::cstm, &W::csr0, &W::csr1, &W::csr2, &W::csv0, &W::csv1, &W::csv2);
    copy(&W::F107, &W::FB107, &W::Kp, &W::Cd, &W::Cr, &W::Am);
    copy(&W::deltv, &W::yaw, &W::pitch, &W::ionf, &W::suns, &W::epu);
}
