#include "scan/list_cases_helper.h"
#include "scan/workers.h"
#include "scratch_dir.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>
#include <string>

namespace {

// Under a sanitizer every step costs ten times as much: every hundredth entry then stands for all.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool sanitized = true;
#else
constexpr bool sanitized = false;
#endif
constexpr int sample = sanitized ? 100 : 20;

bool has(const ListCase& c, const char* word)
{
    return c.what.find(word) != std::string::npos;
}

/// Every how many entries a case takes. Lists of a whole file take all of them, a sample where a minute of time has to
/// be looked at one by one, and fewer still where two satellites are.
int strideOf(const ListCase& c)
{
    if (sanitized || has(c, "relative"))
        return 100;
    const bool quick = has(c, "visible") || has(c, "all") || has(c, "moonshine");
    return c.kind == "flares" || c.kind == "next" || (c.kind == "scan" && quick) ? 1 : sample;
}

/// Digests by name and stride.
std::map<std::string, std::string> expectedDigests()
{
    std::map<std::string, std::string> digests;
    std::ifstream file(TEST_DATA "/scan/digests.txt");
    for (std::string digest, stride, what; file >> digest;) {
        if (digest[0] != '#' && file >> stride >> what)
            digests[what + " " + stride] = digest;
        std::getline(file, what);
    }
    return digests;
}

/// Compares with the full text where there is one, to see a difference in, and else with the digest.
void expectSame(const ListCase& c, int stride)
{
    static const std::map<std::string, std::string> digests = expectedDigests();
    const std::string fullText = TEST_DATA "/scan/" + c.what + ".txt";
    const std::string text = runListCase(c, stride);
    if (stride == 20 && QFile::exists(QString::fromStdString(fullText))) {
        EXPECT_EQ(text, ScratchDir::read(fullText.c_str())) << c.what;
    }
    const auto digest = digests.find(c.what + " " + std::to_string(stride));
    ASSERT_NE(digest, digests.end()) << c.what;
    EXPECT_EQ(digestOf(text), digest->second) << c.what << " with " << scanWorkers();
}

struct SameLists : testing::Test
{
    void TearDown() override { setScanWorkers(0); }
    const ScratchDir here;
};

TEST_F(SameLists, AreThoseOfTheOneByOneSearch)
{
    setScanWorkers(2);
    ASSERT_EQ(listCases().size(), 117U);
    for (const ListCase& c : listCases())
        expectSame(c, strideOf(c));
}

// Numeric orbits lie among the others in the mixed file; more workers than cores make their order in time a gamble.
TEST_F(SameLists, DoNotDependOnTheNumberOfWorkers)
{
    for (const int count : {1, 5}) {
        setScanWorkers(count);
        for (const ListCase& c : listCases())
            if (c.kind == "scan" || c.kind == "flares" || c.kind == "next")
                expectSame(c, sample);
    }
}

// Here the engine goes on from what it left in the record at an entry before.
TEST_F(SameLists, AreThoseOfOneWorkerAlsoWhereEntriesDepend)
{
    const std::string vienna = "lat=48.2 lng=16.37 height=180 visflg=0 sunel=91 ";
    const ListCase cases[] = {
        {"", "flares", "iridium_2018.txt", "", vienna + "iridflg=3 flarflg=1 flarmod=1 flaryst=1 occdec=-40 irmag=5"},
        {"", "flares", "iridium_2018.txt", "", vienna + "iridflg=3 irmag=5"},
        {"", "next", "catalogue_2018.txt", "", vienna + "iridflg=1 occflg=3 occra=5.143 occdec=-8.12 maxdst=4000"},
        {"", "next", "catalogue_2018.txt", "", vienna + "flarflg=1 flarmod=1 occra=30 occdec=-40"},
    };
    for (const ListCase& c : cases) {
        setScanWorkers(1);
        const std::string alone = runListCase(c, 5, 0.3);
        setScanWorkers(5);
        EXPECT_EQ(runListCase(c, 5, 0.3), alone) << c.fields;
    }
}

}  // namespace
