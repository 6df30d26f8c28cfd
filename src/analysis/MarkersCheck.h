// The seven texts by which lines of a log are recognised, beside what a log holds: drivers word their lines
// in several ways, and a text that is found nowhere leaves connections without numbers, ends or data.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/SettingsCheck.h"

namespace qel {

// A text that no line of the log holds, though some line looks like what it is to find.
struct MissingMarker {
  std::string Settings::*Marker;
  std::string Name;     // "dial", "answer", ...
  std::string Instead;  // a text that finds such lines
  std::string Line;     // the first of them, as people can read it: cut where it is long
};

// Reads the log once, and once more where a text is not found. Raises as the readers do.
std::vector<MissingMarker> MissingMarkers(const Settings& settings, const std::string& logPath);

// Both in sentences.
std::vector<Finding> CheckMarkers(const Settings& settings, const std::string& logPath);

}  // namespace qel
