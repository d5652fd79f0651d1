#include "elements/entry_reader.h"

#include "elements/characters.h"
#include "elements/entry_stream.h"
#include "record/text.h"

EntryReader::EntryReader(std::FILE* from) : file(from), messages(entryFollows(from)) {}

bool EntryReader::next(Entry& entry)
{
    if (messages)
        return readEntry(file, entry);
    char name[sizeof entry.name] = {};
    for (char line[entryLineRoom]; nextEntryLine(file, line);) {
        if (!isElementLine(line)) {
            assignField(name, wholeCharacters(beforeLineEnd(line), sizeof name - 1));
        } else if (line[0] == '1') {
            entry = readEntryLines(file, line);
            assignField(entry.name, trimmed(fieldText(name)));
            return true;
        }
    }
    return false;
}
