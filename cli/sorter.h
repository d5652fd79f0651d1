// Texts in the order of their times, however many: what does not fit in memory waits in files.
#pragma once

#include "record/files.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

/// Collects texts and gives them back by time; those of one time stay in the order of their coming.
class Sorter
{
public:
    /// @param mostBytes  of texts in memory before they go to a file
    explicit Sorter(std::size_t mostBytes) : room(mostBytes) {}

    /// @param tag  comes back with the text
    void add(double time, std::string text, int tag = 0);

    /// Calls `take` for each text until it returns false. Afterwards nothing is left.
    ///
    /// @return  false if a file could not be written or read
    bool giveAll(const std::function<bool(const std::string& text, int tag)>& take);

private:
    struct Item
    {
        double time;
        int tag;
        std::string text;
    };

    /// A sorted file, and the item that is next in it.
    struct Run
    {
        FilePtr file;
        Item item{};
        bool left = false;
        bool damaged = false;

        void readNext();
    };

    void sortWaiting();
    void spill();

    std::size_t room;
    std::size_t bytes = 0;
    bool failed = false;
    std::vector<Item> waiting;
    std::vector<Run> runs;
};
