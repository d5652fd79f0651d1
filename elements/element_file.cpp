#include "elements/element_file.h"

#include "elements/entry_stream.h"
#include "elements/omm_forms.h"
#include "record/text.h"
#include "record/vector_registers.h"

#include <QByteArray>
#include <sys/stat.h>

namespace {
constexpr std::size_t largestMessageFile = 256 * 1024 * 1024;  // the whole catalogue takes a third of it at most

/// Reads from where the file stands; up to `limit` bytes, or to its end.
QByteArray bytesOf(std::FILE* file, std::size_t limit)
{
    QByteArray bytes(static_cast<qsizetype>(limit), Qt::Uninitialized);
    bytes.truncate(static_cast<qsizetype>(std::fread(bytes.data(), 1, limit, file)));
    return bytes;
}

/// The size of a regular file.
std::size_t sizeOf(std::FILE* file)
{
    struct stat status
    {};
    return ::fstat(::fileno(file), &status) == 0 ? static_cast<std::size_t>(status.st_size) : 0;
}

FilePtr streamOf(const std::string& text)
{
    FilePtr stream(::fmemopen(nullptr, text.size() + 1, "w+"));
    if (stream && std::fwrite(text.data(), 1, text.size(), stream.get()) != text.size())
        stream.reset();
    if (stream)
        std::rewind(stream.get());
    return stream;
}

Entry tooLarge()
{
    Entry entry;
    entry.readTo = EntryPart::whole;
    assignField(entry.name, "*** FILE TOO LARGE *");
    assignField(entry.designator, "        ");
    assignField(entry.refusal, "a file of messages has at most 256 MB");
    return entry;
}
}  // namespace

FilePtr openElementFile(const char* name)
{
    FilePtr file = openForReading(name);
    const std::size_t size = file ? sizeOf(file.get()) : 0;
    if (size == 0)
        return file;
    const OmmForm form = ommFormOf(bytesOf(file.get(), std::min(size, ommHeadLength)));
    std::rewind(file.get());
    if (form == OmmForm::none)
        return file;
    std::string text;
    if (size > largestMessageFile) {
        appendEntry(text, tooLarge());
        return streamOf(text);
    }
    const std::vector<OmmMessage> messages = ommMessages(form, bytesOf(file.get(), size));
    releaseVectorRegisters();
    for (const OmmMessage& message : messages)
        appendEntry(text, entryOf(message));
    return streamOf(text);
}
