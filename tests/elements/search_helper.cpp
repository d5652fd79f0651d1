#include "elements/search_helper.h"

#include "scratch_dir.h"

#include "app/record/text.h"
#include "elements/element_file.h"
#include "elements/reader.h"

FileSearch::FileSearch(const std::string& bytes)
{
    ScratchDir::write("set.tle", bytes);
    *this = of("set.tle");
}

FileSearch FileSearch::of(const std::string& path)
{
    FileSearch search;
    setDefaults(search.in.get());
    search.file.reset(std::fopen(path.c_str(), "r"));
    return search;
}

FileSearch FileSearch::opened(const std::string& path)
{
    FileSearch search;
    setDefaults(search.in.get());
    search.file = openElementFile(path.c_str());
    return search;
}

int FileSearch::run(int mode, const char* text, int continued)
{
    in->srcmd = mode;
    assignField(in->cfgname[workSlot], text);
    char out[entryTextRoom] = {};
    const int result = tleread(in.get(), file.get(), out, continued);
    report = out;
    return result;
}

int FileSearch::byName(const char* name)
{
    std::rewind(file.get());
    return run(0, name, 0);
}

int FileSearch::byNumber(int norad)
{
    std::rewind(file.get());
    in->norad[workSlot] = norad;
    return run(1, "", 0);
}

int FileSearch::byDesignator(const char* designator)
{
    std::rewind(file.get());
    return run(2, designator, 0);
}

int FileSearch::next()
{
    return run(0, "*", 0);
}

int FileSearch::more()
{
    const std::string text(fieldText(in->cfgname[workSlot]));
    return run(in->srcmd, text.c_str(), 1);
}

std::string FileSearch::name() const
{
    return std::string(fieldText(in->fsname[workSlot]));
}

std::string FileSearch::designator() const
{
    return std::string(fieldText(in->ldsn[workSlot]));
}
