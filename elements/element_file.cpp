#include "elements/element_file.h"

#include "elements/entry_stream.h"
#include "elements/omm_forms.h"
#include "record/text.h"
#include "record/vector_registers.h"

#include <QByteArray>
#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <utility>

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

/// The entries of messages as a stream: they are read when they are asked for, and kept for who goes back.
class EntrySource
{
public:
    explicit EntrySource(OmmReader from) : messages(std::move(from)) {}
    explicit EntrySource(const Entry& only) : messages(OmmForm::none, {}) { appendEntry(bytes, only); }

    std::size_t read(char* to, std::size_t most)
    {
        while (bytes.size() - at < most && takeEntry()) {}
        releaseVectorRegisters();
        const std::size_t count = std::min(most, bytes.size() - at);
        std::memcpy(to, bytes.data() + at, count);
        at += count;
        return count;
    }

    /// The new place, which is -1 for one that is none.
    off64_t seek(off64_t by, int from)
    {
        if (from == SEEK_END)
            while (takeEntry()) {}
        const std::size_t base = from == SEEK_SET ? 0 : from == SEEK_CUR ? at : bytes.size();
        const off64_t to = static_cast<off64_t>(base) + by;
        while (to > static_cast<off64_t>(bytes.size()) && takeEntry()) {}
        if (to < 0 || to > static_cast<off64_t>(bytes.size()))
            return -1;
        at = static_cast<std::size_t>(to);
        return to;
    }

private:
    bool takeEntry()
    {
        OmmMessage message;
        if (!messages.next(message))
            return false;
        appendEntry(bytes, entryOf(message));
        return true;
    }

    OmmReader messages;
    std::string bytes;
    std::size_t at = 0;
};

FilePtr streamOf(std::unique_ptr<EntrySource> source)
{
    const cookie_io_functions_t calls{
        .read =
            [](void* cookie, char* to, std::size_t most) {
                return static_cast<ssize_t>(static_cast<EntrySource*>(cookie)->read(to, most));
            },
        .write = nullptr,
        .seek =
            [](void* cookie, off64_t* place, int from) {
                const off64_t to = static_cast<EntrySource*>(cookie)->seek(*place, from);
                *place = std::max<off64_t>(to, 0);
                return to < 0 ? -1 : 0;
            },
        .close =
            [](void* cookie) {
                delete static_cast<EntrySource*>(cookie);
                return 0;
            }};
    FilePtr stream(::fopencookie(source.get(), "r", calls));
    if (stream)
        source.release();  // its stream deletes it
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
    if (size > largestMessageFile)
        return streamOf(std::make_unique<EntrySource>(tooLarge()));
    return streamOf(std::make_unique<EntrySource>(OmmReader(form, bytesOf(file.get(), size))));
}
