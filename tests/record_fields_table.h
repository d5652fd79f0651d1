// The fields of the record that tables of tests name.
#pragma once

#include "record/winp_data.h"

#include <array>
#include <string_view>
#include <variant>

template <class T>
using OfRecord = T WinpData::*;
template <class T>
using OfSlots = T (WinpData::*)[slotCount];

struct RecordField
{
    std::string_view name;
    std::variant<OfRecord<int>, OfRecord<double>, OfRecord<bool>, OfSlots<int>, OfSlots<double>, OfSlots<bool>> place;
};

// clang-format off
inline const std::array recordFields{
    RecordField{"mjd", &WinpData::mjd}, RecordField{"tzone", &WinpData::tzone}, RecordField{"dur", &WinpData::dur},
    RecordField{"year", &WinpData::year}, RecordField{"month", &WinpData::month}, RecordField{"day", &WinpData::day},
    RecordField{"lat", &WinpData::lat}, RecordField{"lng", &WinpData::lng}, RecordField{"height", &WinpData::height},
    RecordField{"visflg", &WinpData::visflg}, RecordField{"moonflg", &WinpData::moonflg},
    RecordField{"satel", &WinpData::satel}, RecordField{"sunel", &WinpData::sunel},
    RecordField{"chlen", &WinpData::chlen}, RecordField{"eclflg", &WinpData::eclflg},
    RecordField{"yrepoch", &WinpData::yrepoch}, RecordField{"pasjmp", &WinpData::pasjmp},
    RecordField{"occflg", &WinpData::occflg}, RecordField{"occra", &WinpData::occra},
    RecordField{"occdec", &WinpData::occdec}, RecordField{"maxdst", &WinpData::maxdst},
    RecordField{"flarflg", &WinpData::flarflg}, RecordField{"flarmod", &WinpData::flarmod},
    RecordField{"flaryst", &WinpData::flaryst}, RecordField{"iridflg", &WinpData::iridflg},
    RecordField{"irmag", &WinpData::irmag}, RecordField{"ops", &WinpData::ops},
    RecordField{"irsol", &WinpData::irsol}, RecordField{"irsolp", &WinpData::irsolp},
    RecordField{"irdrun", &WinpData::irdrun}, RecordField{"newsave", &WinpData::newsave},
    RecordField{"rlm", &WinpData::rlm}, RecordField{"prs", &WinpData::prs}, RecordField{"satn", &WinpData::satn},
    RecordField{"sgpsat", &WinpData::sgpsat}, RecordField{"srcmd", &WinpData::srcmd},
    RecordField{"lowflg", &WinpData::lowflg}, RecordField{"recflg", &WinpData::recflg},
    RecordField{"adjflg", &WinpData::adjflg}, RecordField{"adjtim", &WinpData::adjtim},
    RecordField{"adjn0", &WinpData::adjn0}, RecordField{"adjra", &WinpData::adjra},
    RecordField{"az", &WinpData::az}, RecordField{"el", &WinpData::el}, RecordField{"mxa", &WinpData::mxa},
    RecordField{"dra", &WinpData::dra}, RecordField{"tm", &WinpData::tm}, RecordField{"rdf", &WinpData::rdf},
    RecordField{"drf", &WinpData::drf}, RecordField{"vis", &WinpData::vis}, RecordField{"odm", &WinpData::odm},
    RecordField{"az1", &WinpData::az1}, RecordField{"el1", &WinpData::el1}, RecordField{"az2", &WinpData::az2},
    RecordField{"el2", &WinpData::el2}, RecordField{"deltm", &WinpData::deltm},
    RecordField{"IERSflg", &WinpData::IERSflg}, RecordField{"Ut1Utc", &WinpData::Ut1Utc},
    RecordField{"UtcTai", &WinpData::UtcTai}, RecordField{"IERSxp", &WinpData::IERSxp},
    RecordField{"IERSyp", &WinpData::IERSyp},
    RecordField{"norad", &WinpData::norad}, RecordField{"aflg", &WinpData::aflg},
    RecordField{"numflg", &WinpData::numflg}, RecordField{"mjdep", &WinpData::mjdep}, RecordField{"a", &WinpData::a},
    RecordField{"ra", &WinpData::ra}, RecordField{"aper", &WinpData::aper}, RecordField{"inc", &WinpData::inc},
    RecordField{"ecc", &WinpData::ecc}, RecordField{"m0", &WinpData::m0}, RecordField{"n0", &WinpData::n0},
    RecordField{"adot", &WinpData::adot}, RecordField{"ndot", &WinpData::ndot},
    RecordField{"n6dot", &WinpData::n6dot}, RecordField{"bstar", &WinpData::bstar},
    RecordField{"epr0", &WinpData::epr0}, RecordField{"epr1", &WinpData::epr1}, RecordField{"epr2", &WinpData::epr2},
    RecordField{"epv0", &WinpData::epv0}, RecordField{"epv1", &WinpData::epv1}, RecordField{"epv2", &WinpData::epv2},
    RecordField{"cstm", &WinpData::cstm}, RecordField{"csr0", &WinpData::csr0}, RecordField{"csr1", &WinpData::csr1},
    RecordField{"csr2", &WinpData::csr2}, RecordField{"csv0", &WinpData::csv0}, RecordField{"csv1", &WinpData::csv1},
    RecordField{"csv2", &WinpData::csv2}, RecordField{"F107", &WinpData::F107}, RecordField{"FB107", &WinpData::FB107},
    RecordField{"Kp", &WinpData::Kp}, RecordField{"Cd", &WinpData::Cd}, RecordField{"Cr", &WinpData::Cr},
    RecordField{"Am", &WinpData::Am}, RecordField{"deltv", &WinpData::deltv}, RecordField{"yaw", &WinpData::yaw},
    RecordField{"pitch", &WinpData::pitch}, RecordField{"ionf", &WinpData::ionf}, RecordField{"suns", &WinpData::suns},
    RecordField{"epu", &WinpData::epu},
    RecordField{"tmstep", &WinpData::tmstep}, RecordField{"rtflg", &WinpData::rtflg},
    RecordField{"ddmm", &WinpData::ddmm}, RecordField{"ra4d", &WinpData::ra4d}, RecordField{"frequ", &WinpData::frequ},
    RecordField{"refrc", &WinpData::refrc}, RecordField{"cylflg", &WinpData::cylflg},
    RecordField{"solflar", &WinpData::solflar}, RecordField{"flrmgf", &WinpData::flrmgf},
    RecordField{"flrang", &WinpData::flrang}, RecordField{"smang", &WinpData::smang},
    RecordField{"ecltyp", &WinpData::ecltyp}, RecordField{"eclmag", &WinpData::eclmag},
    RecordField{"eclpow", &WinpData::eclpow},
    RecordField{"leftbtn", &WinpData::leftbtn},
    RecordField{"dspmd", &WinpData::dspmd},
    RecordField{"mfsz", &WinpData::mfsz},
    RecordField{"centmer", &WinpData::centmer},
    RecordField{"skaz", &WinpData::skaz},
    RecordField{"nmflg", &WinpData::nmflg},
    RecordField{"mapprj", &WinpData::mapprj},
    RecordField{"mgrid", &WinpData::mgrid},
    RecordField{"mgrey", &WinpData::mgrey},
    RecordField{"sunmplt", &WinpData::sunmplt},
    RecordField{"satsky", &WinpData::satsky},
    RecordField{"mpnight", &WinpData::mpnight},
    RecordField{"skyprj", &WinpData::skyprj},
    RecordField{"skymap", &WinpData::skymap},
    RecordField{"tzauto", &WinpData::tzauto},
    RecordField{"second", &WinpData::second},
    RecordField{"minute", &WinpData::minute},
    RecordField{"hour", &WinpData::hour},
    RecordField{"picflg", &WinpData::picflg},
};
// clang-format on
