// A whole modem log: calls spread over the days as people make them.
#pragma once

#include <iosfwd>

#include "makelog/LogOptions.h"

namespace qel {

// Writes the log that `options` ask for, in ascending order; memory does not grow with its size. Raises
// std::runtime_error as LogWriter does.
void WriteLog(const LogOptions& options, std::ostream& out);

}  // namespace qel
