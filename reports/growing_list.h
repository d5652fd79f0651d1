// How a list of the window becomes a document of another form.
#pragma once

#include "exports/list_document.h"
#include "record/winp_data.h"

#include <string>
#include <vector>

/// What a record asks for between two instants, MJD UTC, as documents tell it; made now by the clock of the computer.
ListRequest listRequest(const WinpData& in, const char* task, double from, double to);

/// A list that grows item by item.
class GrowingList
{
public:
    /// The elements of the prime satellite belong to it, unless the request names no satellite.
    GrowingList(ListForm form, const ListKind& kind, const ListRequest& request, const WinpData& in);

    /// The elements of a slot belong to the list.
    void use(const WinpData& in, int slot);
    /// A row in the form of the list, to be added.
    std::string itemOf(const ListRow& row) const { return document.item(row); }
    void add(const ListRow& row) { addItem(document.item(row)); }
    void addItem(const std::string& item);
    /// The document as it stands.
    std::string whole() const;

private:
    ListDocument document;
    std::string text;
    std::vector<UsedElements> used;
    long count = 0;
};
