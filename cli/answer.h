// The answer of a task on its way out: form, order, limit.
#pragma once

#include "cli/channels.h"
#include "cli/session.h"
#include "cli/sorter.h"
#include "exports/list_document.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

class Answer
{
public:
    Answer(const Session& session, const Channels& channels, const ListKind& kind);

    /// A row with the time that it is sorted by.
    void add(double time, const ListRow& row);

    /// A piece of the answer that is in its form already.
    void addText(double time, std::string text);

    /// A text of its own, out of order and outside the limit.
    void put(std::string_view text);

    /// Tells whose elements the rows that come next are made of; an answer in JSON names those of the rows in it.
    ///
    /// @param always  also without a row
    void use(const UsedElements& elements, bool always = false);

    /// Whether no more rows are wanted: the limit is reached, or nobody reads.
    bool full() const;

    /// Writes what is left, unless there was a problem before anything came out.
    ///
    /// @return  the problem, or what went wrong with the output
    Problem end(const Problem& before);

    long long count() const { return taken; }

private:
    void begin();
    bool give(const std::string& item, int element);
    std::vector<UsedElements> namedElements() const;
    bool write(std::string_view text);

    const Session& session;
    Channels channels;
    ListDocument document;
    bool lists;  // and not element sets
    Sorter sorter;
    bool sorts;
    bool begun = false;                               // the output is open
    bool closed = false;                              // nobody reads
    long long taken = 0;                              // rows that came
    long long given = 0;                              // rows that went out
    std::string pending;                              // a joined item that waits for its separator
    std::vector<std::pair<UsedElements, bool>> used;  // and whether the answer names them
    FilePtr file;
};
