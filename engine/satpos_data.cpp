#include "engine/satpos_data.h"

namespace {
SatPosData plotted;
SatPosData reported;
}  // namespace

SatPosData* satps = &plotted;
constinit thread_local SatPosData* satpos = &reported;
