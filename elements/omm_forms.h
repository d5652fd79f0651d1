// The four forms in which Orbit Mean-Elements Messages come: CSV, JSON, XML and KVN.
#pragma once

#include "elements/omm_message.h"

#include <QByteArray>
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

/// The messages of a document, in its order. Where it is damaged or cut off, those that are whole.
///
/// CSV has a line of keywords first, which may come again; a field in quotes holds commas, line ends and doubled
/// quotes, and a line with fewer fields than keywords is cut off. JSON is an array of objects or one object. XML has
/// an element "omm" for each message, KVN a line CCSDS_OMM_VERS or the first keyword again; a last line of KVN without
/// its end is cut off.
std::vector<OmmMessage> ommMessages(OmmForm form, const QByteArray& document);
