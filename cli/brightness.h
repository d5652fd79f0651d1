// How bright the satellites of a session are.
#pragma once

#include "cli/channels.h"
#include "cli/session.h"
#include "engine/brightness.h"

/// By the saved settings, --length and the files of the session; tells a list that cannot be read.
BrightnessBook brightnessOf(const Session& session, const Channels& channels);
