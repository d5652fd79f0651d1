// Mean elements as Orbit Mean-Elements Messages (CCSDS 502.0-B-3) in JSON, XML and KVN.
#pragma once

#include "elements/omm_message.h"

#include <string>

/// What stands before the first message, between two and behind the last.
struct MessageFrame
{
    std::string head, between, tail;
};

MessageFrame jsonFrame();
MessageFrame xmlFrame();
MessageFrame kvnFrame();

/// One message. Its values are kept as they are written; without a value a keyword is left out.
std::string jsonMessage(const OmmMessage& message);
/// @param created  the instant that the message is made, MJD UTC
std::string xmlMessage(const OmmMessage& message, double created);
std::string kvnMessage(const OmmMessage& message, double created);
