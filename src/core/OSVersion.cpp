#include "core/OSVersion.h"

namespace qel {

namespace {

struct BuildLabel {
  int build;
  const char* label;
};

const BuildLabel BuildLabels[] = {{950, " 95"}, {951, " S1"}, {1111, " O2"}, {1381, " 40"}, {1998, " 98"}};

}  // namespace

std::string SystemName(PlatformId platform, int build) {
  const std::string name = platform == PlatformId::Win ? "WIN" : platform == PlatformId::NT ? "NT" : "";
  for (const auto& row : BuildLabels)
    if (row.build == build) return name + row.label;
  return name + " XX";
}

std::string OSVersion() { return SystemName(PlatformId::Other, 0); }

}  // namespace qel
