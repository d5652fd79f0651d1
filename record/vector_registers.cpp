#include "record/vector_registers.h"

namespace {
#if defined(__x86_64__)
[[gnu::target("avx")]] void clearUpperHalves()
{
    __builtin_ia32_vzeroupper();
}
#endif
}  // namespace

void releaseVectorRegisters()
{
#if defined(__x86_64__)
    static const bool hasAvx = __builtin_cpu_supports("avx") != 0;
    if (hasAvx)
        clearUpperHalves();
#endif
}
