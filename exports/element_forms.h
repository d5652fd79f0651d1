// Mean elements as Orbit Mean-Elements Messages (CCSDS 502.0-B-3) in CSV, JSON, XML and KVN, and as Two Line Elements.
#pragma once

#include "elements/omm_message.h"

#include <string>

/// What stands before the first message, between two and behind the last.
struct MessageFrame
{
    std::string head, between, tail;
};

MessageFrame csvFrame();
MessageFrame jsonFrame();
MessageFrame xmlFrame();
MessageFrame kvnFrame();

/// One message. Its values are kept as they are written; without a value a keyword is left out.
std::string jsonMessage(const OmmMessage& message);
std::string csvMessage(const OmmMessage& message);
/// @param created  the instant that the message is made, MJD UTC
std::string xmlMessage(const OmmMessage& message, double created);
std::string kvnMessage(const OmmMessage& message, double created);

/// A satellite as Two Line Elements behind its name, or why it cannot be one.
struct TwoLines
{
    std::string text;
    std::string complaint;  // empty if there is a text
};

/// Two Line Elements of an entry, all columns filled as those that publish them do. An entry that came from two lines
/// with the usual number of digits gives these lines again.
TwoLines twoLinesOf(const Entry& entry);
