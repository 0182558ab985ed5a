// Machine: what the figures are measured on.
#pragma once

#include <string>

namespace orvan::bench {

/// Lines of a Markdown list: processor, memory, load, system, compiler and the peers' versions.
std::string machineDescription();

/// Before each measurement: painting and some of the system's own procedures leave the upper halves of the processor's
/// wide registers in use, which makes other code slower, on whichever side comes next.
void clearWideRegisters();

} // namespace orvan::bench
