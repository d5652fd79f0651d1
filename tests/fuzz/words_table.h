// Numbers and words that make good files bad.
#pragma once

#include <array>
#include <string_view>

namespace fuzz {

using namespace std::string_view_literals;

// clang-format off
constexpr std::array numbers{
    "0"sv, "-0"sv, "1"sv, "-1"sv, "9"sv, "99999"sv, "2147483647"sv, "-2147483648"sv, "4294967296"sv, "1e308"sv,
    "-1e308"sv, "1e309"sv, "1e-320"sv, "nan"sv, "-inf"sv, "0x10"sv, "1,5"sv, ".5"sv, "5."sv, "1e"sv, "+1"sv, "--1"sv,
    "00000000001"sv, "0.999999999999999999"sv, "16.000000"sv, "359.9999"sv, "1.0000001"sv, "99999999999999999999"sv,
    "-99.9"sv, "60"sv, "24"sv, "6378.137"sv,
};

constexpr std::array words{
    "\n"sv, "\r\n"sv, "\r"sv, "\0"sv, "\xff"sv, "\xef\xbb\xbf"sv, "\xff\xfe"sv, "*"sv, ","sv, "\""sv, "\"\""sv, "{"sv,
    "}"sv, "[{"sv, "}]"sv, ":"sv, "\\u0000"sv, "<omm>"sv, "</omm>"sv, "<!--"sv, "-->"sv, "<![CDATA["sv, "&lt;"sv,
    "<?xml version=\"1.0\" encoding=\"UTF-16\"?>"sv, "CCSDS_OMM_VERS = 2.0\n"sv, "COMMENT "sv, "OBJECT_NAME"sv,
    "OBJECT_ID"sv, "EPOCH"sv, "MEAN_MOTION"sv, "ECCENTRICITY"sv, "NORAD_CAT_ID"sv, "EPHEMERIS_TYPE"sv,
    "CENTER_NAME = MARS\n"sv, "2018-01-20T00:00:60.999999999"sv, "0000-00-00T00:00:00"sv,
    "9999-366T23:59:59.9999999"sv, "+++++STATEVCT1+++++"sv, "+++++MEANELEM1+++++"sv, "\x1f"sv, "\x1e"sv, "1 A0000U"sv,
    "1 Z9999U"sv, "1 I0000U"sv, "2 25544"sv, "JAN 20 "sv, "DEC 31  24:00:00 (360, 90)"sv, "mGY= "sv, "XYZ 20 "sv,
    "  "sv, "\t"sv, "xmlns:n=\"u\" "sv,
    "                                                                                 "sv,
};
// clang-format on

}  // namespace fuzz
