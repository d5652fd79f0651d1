#include "elements/entry_stream.h"

#include <type_traits>

namespace {
static_assert(std::is_trivially_copyable_v<Entry>);
constexpr char entryMark = '\x1d';  // no line of text begins with it
}  // namespace

void appendEntry(std::string& bytes, const Entry& entry)
{
    bytes.push_back(entryMark);
    bytes.append(reinterpret_cast<const char*>(&entry), sizeof entry);
}

bool entryFollows(std::FILE* stream)
{
    if (::fileno(stream) >= 0)
        return false;
    const int c = std::getc(stream);
    return c != EOF && std::ungetc(c, stream) == entryMark;
}

bool readEntry(std::FILE* stream, Entry& entry)
{
    return std::getc(stream) == entryMark && std::fread(&entry, sizeof entry, 1, stream) == 1;
}
