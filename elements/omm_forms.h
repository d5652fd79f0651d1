// The four forms in which Orbit Mean-Elements Messages come: CSV, JSON, XML and KVN.
#pragma once

#include "elements/omm_message.h"

#include <QByteArray>
#include <memory>
#include <vector>

enum class OmmForm
{
    none,  // the file is no such form, and may be one of Two Line Elements
    csv,
    json,
    xml,
    kvn
};

constexpr std::size_t ommHeadLength = 8192;  // so much of a file tells its form

/// The form of a document that starts with these bytes. A byte order mark, blank lines and comments may stand in
/// front.
OmmForm ommFormOf(const QByteArray& head);

/// The messages of a document, one after the other in its order. Where it is damaged or cut off, those that are whole.
///
/// CSV has a line of keywords first, which may come again; a field in quotes holds commas, line ends and doubled
/// quotes, and a line with fewer fields than keywords is cut off. JSON is an array of objects or one object. XML has
/// an element "omm" for each message, KVN a line CCSDS_OMM_VERS or the first keyword again; a last line of KVN without
/// its end is cut off.
class OmmReader
{
public:
    OmmReader(OmmForm form, const QByteArray& document);
    ~OmmReader();
    OmmReader(OmmReader&&) noexcept;

    /// The next message; false at the end.
    bool next(OmmMessage& message);

    /// How messages of one form are taken from its text.
    class Source;

private:
    std::unique_ptr<Source> source;
};

/// All messages of a document.
std::vector<OmmMessage> ommMessages(OmmForm form, const QByteArray& document);
