// Machine: what the figures were measured on, for the table's reader.
#pragma once

#include <string>

namespace orvan::bench {

/// Lines of a Markdown list: processor, memory, load, system, compiler and the peers' versions.
std::string machineDescription();

} // namespace orvan::bench
