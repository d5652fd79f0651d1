// The scans over one catalogue in every form of element file.
#include <gtest/gtest.h>

#include "app/record/text.h"
#include "elements/element_file.h"
#include "engine/scan/all_satellites.h"
#include "engine/scan/entries.h"
#include "engine/scan/matching.h"
#include "engine/scan/next_satellites.h"
#include "engine/scan/scratch_helper.h"
#include "omm_catalogue.h"

namespace {

/// All passes of half a day, as the list file holds them.
std::string passesOf(const std::string& elements)
{
    WinpData in = scanRecord("visual_2018.txt");
    assignField(in.tlename, elements);
    assignField(in.savename, "list.txt");
    in.newsave = 1;
    in.dur = 0.5;
    in.visflg = 0;
    in.sunel = 90;
    EXPECT_EQ(AllSatAos(&in), 0);
    return contentOf("list.txt");
}

TEST(OmmScan, GivesThePassTableOfTheTextFile)
{
    const std::string text = contentOf(TEST_DATA "/elements/visual_2018.txt");
    const std::vector<omm::Message> all = omm::messages(text);
    ASSERT_GT(all.size(), 100U);
    const ScratchDirectory here;
    writeFile("elements.txt", text);
    const std::string expected = passesOf("elements.txt");
    EXPECT_GT(expected.size(), 20000U);
    for (const omm::Form& form : omm::forms) {
        SCOPED_TRACE(form.what);
        writeFile("elements.txt", form.write(all));
        EXPECT_EQ(passesOf("elements.txt"), expected);
    }
}

TEST(OmmScan, GoesOnBehindMessagesThatAreRefused)
{
    const ScratchDirectory here;
    std::vector<omm::Message> all = omm::messages(contentOf(TEST_DATA "/elements/visual_2018.txt"));
    for (const std::size_t i : {0U, 1U, 7U})
        all[i].push_back({"TIME_SYSTEM", "TDB"});
    all.back().push_back({"CENTER_NAME", "MOON"});
    writeFile("elements.kvn", omm::kvn(all));
    WinpData in = scanRecord("visual_2018.txt");
    const FilePtr file = openElementFile("elements.kvn");
    std::size_t entries = 0;
    for (Entries each(&in, file.get()); each.next();)
        ++entries;
    EXPECT_EQ(entries, all.size() - 4);
}

}  // namespace
