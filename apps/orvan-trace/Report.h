// Report: prints what has been found out about logs, as text for people or as JSON.
//
// Times are in milliseconds. Places are written as "file:line". Thread: one.
#pragma once

#include "Reading.h"

#include <ostream>
#include <string>

namespace orvan::trace_reader {

void printText(std::ostream& out, const Summary& summary);
void printJson(std::ostream& out, const Summary& summary);
void printText(std::ostream& out, const Tree& tree);
void printJson(std::ostream& out, const Tree& tree);
/// Nothing: the logs are alike.
void printText(std::ostream& out, const std::optional<Parting>& parting);
void printJson(std::ostream& out, const std::optional<Parting>& parting);

} // namespace orvan::trace_reader
