// The state of the vector registers between texts and numbers.
#pragma once

/// Marks the upper halves of the vector registers as empty. Text functions of Qt leave them in use, and on processors
/// with AVX all calculation with plain doubles then runs at a third of its speed until someone does this.
void releaseVectorRegisters();
