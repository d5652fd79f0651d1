#include "elements/search_helper.h"

#include "elements/element_file.h"
#include "elements/reader.h"
#include "record/text.h"

FileSearch::FileSearch(const std::string& bytes)
{
    QFile::remove("set.tle");  // much quicker than to cut off what it holds
    ScratchDir::write("set.tle", bytes);
    *this = of("set.tle");
}

FileSearch FileSearch::of(const std::string& path)
{
    FileSearch search;
    setDefaults(search.in.get());
    search.file = openElementFile(path.c_str());
    return search;
}

int FileSearch::run(int mode, const std::string& text, bool continued)
{
    if (!continued && text != "*")
        std::rewind(file.get());
    in->srcmd = mode;
    assignField(in->cfgname[workSlot], text);
    char out[entryTextRoom] = {};
    const int result = tleread(in.get(), file.get(), out, continued ? 1 : 0);
    report = out;
    return result;
}

int FileSearch::byName(const char* name)
{
    return run(0, name);
}

int FileSearch::byNumber(int norad)
{
    in->norad[workSlot] = norad;
    return run(1, "");
}

int FileSearch::byDesignator(const char* designator)
{
    return run(2, designator);
}

int FileSearch::next()
{
    return run(0, "*");
}

int FileSearch::more()
{
    return run(in->srcmd, std::string(fieldText(in->cfgname[workSlot])), true);
}

std::string FileSearch::name() const
{
    return std::string(fieldText(in->fsname[workSlot]));
}

std::string FileSearch::designator() const
{
    return std::string(fieldText(in->ldsn[workSlot]));
}
