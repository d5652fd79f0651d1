// The floors of the house: a file includes only its own floor and floors below.

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

const std::map<std::string, std::set<std::string>>& mayInclude()
{
    static const std::map<std::string, std::set<std::string>> table = [] {
        std::map<std::string, std::set<std::string>> t;
        std::set<std::string> below;
        for (const char* floor :
             {"astro", "record", "orbit", "engine", "elements", "scan", "exports", "observing", "imaging"}) {
            below.insert(floor);
            t[floor] = below;
        }
        for (const char* side : {"reports", "design"}) {
            t[side] = below;
            t[side].insert(side);
        }
        t["mounts"] = {"astro", "record", "orbit", "engine", "mounts"};
        below.insert({"reports", "design"});
        t["cli"] = below;
        t["cli"].insert("cli");
        below.insert("mounts");
        for (const char* floor : {"dialogs", "view", "app"}) {
            below.insert(floor);
            t[floor] = below;
        }
        t["app"].insert("cli");
        return t;
    }();
    return table;
}

TEST(House, NoFileIncludesAFloorAboveItsOwn)
{
    int includes = 0;
    for (const auto& [floor, allowed] : mayInclude()) {
        if (!fs::exists(fs::path(SOURCE_DIR) / floor))
            continue;
        for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_DIR) / floor)) {
            const fs::path& file = entry.path();
            if (file.extension() != ".h" && file.extension() != ".cpp")
                continue;
            std::ifstream in(file);
            for (std::string line; std::getline(in, line);) {
                const std::string start = "#include \"";
                if (line.rfind(start, 0) != 0)
                    continue;
                const std::string name = line.substr(start.size(), line.rfind('"') - start.size());
                const std::size_t slash = name.rfind('/');
                if (slash == std::string::npos)
                    continue;  // a file that the build makes, in its own folder
                ++includes;
                EXPECT_TRUE(allowed.contains(name.substr(0, slash))) << file << " includes " << name;
            }
        }
    }
    EXPECT_GE(includes, 20);  // the walk has seen the house
}

TEST(House, TheLowestFloorKnowsNeitherQtNorFiles)
{
    for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_DIR) / "astro")) {
        std::ifstream in(entry.path());
        for (std::string line; std::getline(in, line);) {
            EXPECT_EQ(line.rfind("#include <Q", 0), std::string::npos) << entry.path() << ": " << line;
            EXPECT_EQ(line.rfind("#include <cstdio>", 0), std::string::npos) << entry.path() << ": " << line;
            EXPECT_EQ(line.rfind("#include <fstream>", 0), std::string::npos) << entry.path() << ": " << line;
        }
    }
}

/// The functions below the windows that have no record among their parameters, each one line that passes it on.
const std::set<std::string> passIndataOn{
    "RKFun",     "cvSGP4",     "vsCkHyp",       "vsRefState",     "vsGetState", "vsPutState",
    "vsLastSat", "vsSatList",  "vsSatSel",      "vsResetSatList", "vsReComp",   "vsLowRecent",
    "vsSatName", "vsFileName", "vsGetAdj",      "vsPutAdj",       "vsGetPict",  "getPlateConst",
    "getRaDec",  "getPixel",   "vsGetPassDTxt", "vsSavePassDt"};

/// Whether a line of code names a variable; comments do not count.
bool names(const std::string& line, const std::string& variable)
{
    return line.find(variable) != std::string::npos &&
           std::regex_search(line.substr(0, line.find("//")), std::regex("\\b" + variable + "\\b"));
}

TEST(House, BelowTheWindowsTheRecordIsAnArgument)
{
    const std::regex functionName("^\\w[^=;]*?(\\w+)\\(");
    std::map<std::string, int> uses;
    for (const char* floor :
         {"astro", "record", "orbit", "engine", "elements", "scan", "exports", "reports", "design", "imaging", "cli"})
        for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_DIR) / floor)) {
            std::ifstream in(entry.path());
            const std::string stem = entry.path().stem();
            std::string function;
            for (std::string line; std::getline(in, line);) {
                if (std::smatch name; std::regex_search(line, name, functionName))
                    function = name[1];
                if (stem != "winp_data" && names(line, "indata") &&
                    !(passIndataOn.contains(function) && uses[function]++ == 0))
                    ADD_FAILURE() << entry.path() << ", " << function << ": " << line;
                EXPECT_FALSE(stem != "satpos_data" && names(line, "satps")) << entry.path() << ": " << line;
            }
        }
    EXPECT_EQ(uses.size(), passIndataOn.size());  // none is listed in vain
}

TEST(House, BoxesShowPlainTextWhateverTheyQuote)
{
    // these guess at the form of their text, and may take the words of a server for a page
    const std::array<std::string, 4> guessing{"QMessageBox::information(", "QMessageBox::warning(",
                                              "QMessageBox::critical(", "QMessageBox::question("};
    for (const char* floor : {"dialogs", "view", "app"}) {
        for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_DIR) / floor)) {
            std::ifstream in(entry.path());
            for (std::string line; std::getline(in, line);)
                for (const std::string& call : guessing)
                    EXPECT_EQ(line.find(call), std::string::npos) << entry.path() << ": " << line;
        }
    }
}

/// The lines of a function from its head to its closing brace, for one that begins and ends at the left margin.
struct LongestFunction
{
    std::string head;
    int lines = 0;
};

LongestFunction longestFunctionOf(const fs::path& file)
{
    LongestFunction longest;
    std::string head;
    int lines = 0;
    std::ifstream in(file);
    for (std::string line; std::getline(in, line); ++lines) {
        if (line == "}" && lines > longest.lines)
            longest = {head, lines};
        const bool begins = !line.empty() && std::isalpha(static_cast<unsigned char>(line[0]));
        if (begins && line.find('(') != std::string::npos) {
            head = line;
            lines = 0;
        }
        if (line == "}" || line == "};")
            lines = -1000000;  // until the next one begins
    }
    return longest;
}

TEST(House, NoFileIsLongerThan600LinesAndNoFunctionLongerThan60)
{
    int files = 0;
    for (const auto& [floor, allowed] : mayInclude())
        for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_DIR) / floor)) {
            const std::string name = entry.path().filename().string();
            const bool isTable = std::regex_search(name, std::regex("_(table|terms|data)\\.(h|cpp)$"));
            if (isTable || (entry.path().extension() != ".h" && entry.path().extension() != ".cpp"))
                continue;
            std::ifstream in(entry.path());
            EXPECT_LE(std::count(std::istreambuf_iterator<char>(in), {}, '\n'), 600) << entry.path();
            const LongestFunction longest = longestFunctionOf(entry.path());
            EXPECT_LE(longest.lines, 60) << entry.path() << ": " << longest.head;
            ++files;
        }
    EXPECT_GE(files, 300);
}

}  // namespace
