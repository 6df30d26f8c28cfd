// The name of the operating system as the About window and error reports give it.
#pragma once

#include <string>

namespace qel {

// The platform ids of the old system; any other system has none of its own.
enum class PlatformId { Other = 0, Win = 1, NT = 2 };

// "WIN" or "NT" (or nothing), a blank and a two-character label of the build: "WIN 98", " XX".
std::string SystemName(PlatformId platform, int build);

// The name of the system the program runs on.
std::string OSVersion();

}  // namespace qel
