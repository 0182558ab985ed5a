// Machine: describes the machine that the figures are measured on, and prepares its processor.
#pragma once

#include <string>

namespace orvan::bench {

/// A Markdown list of the processor, the memory, the load, the system, the compiler and the peers' versions.
std::string machineDescription();

/// To be called before each measurement. Painting and some of the system's own procedures leave the upper halves of the
/// processor's wide registers in use, which would make the side that is measured next slower.
void clearWideRegisters();

} // namespace orvan::bench
