#include "engine/satpos_data.h"

namespace {
SatPosData plotted;
SatPosData reported;
}  // namespace

SatPosData* satps = &plotted;
SatPosData* satpos = &reported;
