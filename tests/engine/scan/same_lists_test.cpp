#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>
#include <string>

#include "engine/scan/list_cases_helper.h"
#include "engine/scan/scratch_helper.h"
#include "engine/scan/workers.h"

namespace {

// Under a sanitizer every step costs ten times as much: every hundredth entry then stands for all.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool sanitized = true;
#else
constexpr bool sanitized = false;
#endif

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
    const bool whole = c.kind == ListKind::flares || c.kind == ListKind::next || (c.kind == ListKind::scan && quick);
    return whole ? 1 : 20;
}

/// Digests by name and stride.
std::map<std::string, std::string> expectedDigests()
{
    std::map<std::string, std::string> digests;
    std::ifstream file(TEST_DATA "/scan/digests.txt");
    for (std::string line; std::getline(file, line);) {
        std::istringstream fields(line);
        std::string digest;
        std::string stride;
        std::string what;
        if (fields >> digest >> stride >> what && digest[0] != '#')
            digests[what.append(" ").append(stride)] = digest;
    }
    return digests;
}

/// The number of workers for the length of a scope.
struct Workers
{
    explicit Workers(int count) { setScanWorkers(count); }
    ~Workers() { setScanWorkers(0); }
    Workers(const Workers&) = delete;
    Workers& operator=(const Workers&) = delete;
};

TEST(SameLists, AreThoseOfTheOneByOneSearch)
{
    const ScratchDirectory here;
    const auto expected = expectedDigests();
    const Workers two(2);
    for (const ListCase& c : listCases()) {
        const int stride = strideOf(c);
        const auto digest = expected.find(c.what + " " + std::to_string(stride));
        ASSERT_NE(digest, expected.end()) << c.what;
        EXPECT_EQ(digestOf(runListCase(c, stride)), digest->second) << c.what;
    }
}

// Numeric orbits lie among the others in the mixed file; more workers than cores make their order in time a gamble.
TEST(SameLists, DoNotDependOnTheNumberOfWorkers)
{
    const ScratchDirectory here;
    const auto expected = expectedDigests();
    const int stride = sanitized ? 100 : 20;
    for (const int count : {1, 5}) {
        const Workers workers(count);
        for (const ListCase& c : listCases()) {
            if (c.kind == ListKind::aosLists || c.kind == ListKind::searches || c.kind == ListKind::match)
                continue;
            const auto digest = expected.find(c.what + " " + std::to_string(stride));
            ASSERT_NE(digest, expected.end()) << c.what;
            EXPECT_EQ(digestOf(runListCase(c, stride)), digest->second) << c.what << " with " << count;
        }
    }
}

// What lies behind some of the digests, to see a difference in.
TEST(SameLists, AreThoseOfTheFullTexts)
{
    const ScratchDirectory here;
    for (const ListCase& c : listCases()) {
        std::ifstream file(TEST_DATA "/scan/" + c.what + ".txt");
        if (!file)
            continue;
        std::ostringstream text;
        text << file.rdbuf();
        EXPECT_EQ(runListCase(c, 20), text.str()) << c.what;
    }
}

}  // namespace
