#include "engine/pass_list_helper.h"

#include <fstream>
#include <sstream>

namespace {

ReferenceList headOf(std::istringstream& fields)
{
    ReferenceList list;
    std::string site;
    fields >> site >> list.site.lat >> list.site.lng >> list.site.height >> list.norad >> list.satel >>
        list.sunLimit >> list.lit;
    list.what = site + " " + std::to_string(list.norad) + (list.lit ? " lit" : "");
    return list;
}

}  // namespace

std::vector<ReferenceList> referenceLists()
{
    std::vector<ReferenceList> lists;
    std::ifstream file(TEST_DATA "/passes/passes_2018.txt");
    for (std::string line; std::getline(file, line);) {
        std::istringstream fields(line);
        if (line.rfind("list ", 0) == 0) {
            fields.ignore(5);
            lists.push_back(headOf(fields));
        } else if (line[0] != '#') {
            Pass pass;
            for (int k = 0; k < 3; ++k)
                fields >> pass.tm[k] >> pass.b[k] >> pass.a[k];
            lists.back().passes.push_back(pass);
        }
    }
    return lists;
}

WinpData recordOf(const ReferenceList& list)
{
    WinpData in = recordAt(list.site);
    loadElements(in, 0, "visual_2018.txt", list.norad);
    in.satn = 1;
    in.year = 2018;
    in.month = 1;
    in.day = 20;
    in.dur = 3.1;
    in.satel = list.satel;
    in.sunel = list.sunLimit;
    in.visflg = list.lit;
    return in;
}
