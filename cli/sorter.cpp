#include "cli/sorter.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t mostRuns = 200;  // open files; what comes after stays in memory

bool writeItem(std::FILE* file, double time, int tag, const std::string& text)
{
    const std::size_t size = text.size();
    return std::fwrite(&time, sizeof time, 1, file) == 1 && std::fwrite(&tag, sizeof tag, 1, file) == 1 &&
           std::fwrite(&size, sizeof size, 1, file) == 1 && std::fwrite(text.data(), 1, size, file) == size;
}

}  // namespace

void Sorter::add(double time, std::string text, int tag)
{
    bytes += text.size() + sizeof(Item);
    waiting.push_back({time, tag, std::move(text)});
    if (bytes > room && runs.size() < mostRuns)
        spill();
}

void Sorter::sortWaiting()
{
    std::stable_sort(waiting.begin(), waiting.end(),
                     [](const Item& one, const Item& other) { return one.time < other.time; });
}

void Sorter::spill()
{
    sortWaiting();
    Run run{FilePtr(std::tmpfile())};
    bool written = run.file != nullptr;
    for (const Item& item : waiting)
        written = written && writeItem(run.file.get(), item.time, item.tag, item.text);
    written = written && std::fflush(run.file.get()) == 0;
    failed = failed || !written;
    if (written) {
        std::rewind(run.file.get());
        runs.push_back(std::move(run));
    }
    waiting.clear();
    bytes = 0;
}

void Sorter::Run::readNext()
{
    std::size_t size = 0;
    left = std::fread(&item.time, sizeof item.time, 1, file.get()) == 1;
    if (!left)
        return;
    left = std::fread(&item.tag, sizeof item.tag, 1, file.get()) == 1 &&
           std::fread(&size, sizeof size, 1, file.get()) == 1;
    if (left) {
        item.text.resize(size);
        left = std::fread(item.text.data(), 1, size, file.get()) == size;
    }
    damaged = !left;
}

bool Sorter::giveAll(const std::function<bool(const std::string& text, int tag)>& take)
{
    sortWaiting();
    for (Run& run : runs)
        run.readNext();
    std::size_t next = 0;  // in memory, whose items came last
    for (bool wanted = true; wanted;) {
        const auto first = std::min_element(runs.begin(), runs.end(), [](const Run& one, const Run& other) {
            return one.left && (!other.left || one.item.time < other.item.time);
        });
        const bool inFile = first != runs.end() && first->left;
        if (next < waiting.size() && (!inFile || waiting[next].time < first->item.time)) {
            wanted = take(waiting[next].text, waiting[next].tag);
            ++next;
        } else if (inFile) {
            wanted = take(first->item.text, first->item.tag);
            first->readNext();
            failed = failed || first->damaged;
        } else {
            break;
        }
    }
    waiting.clear();
    runs.clear();
    return !failed;
}
