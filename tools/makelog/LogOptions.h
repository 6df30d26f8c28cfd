// What the user of makelog asks for.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace qel {

struct LogOptions {
  std::uint64_t Seed = 1;
  std::chrono::year_month_day Start{std::chrono::year{1998}, std::chrono::October, std::chrono::day{5}};
  int Days = 0;                     // 0: as many as Size takes
  std::int64_t Size = 0;            // bytes; the call that reaches it is the last. 0: as many as Days give
  int CallsPerThousandDays = 2000;  // 1 to 50000
  int Chatter = 12;                 // lines that mean nothing, a call: a third before the dial
  std::vector<std::string> Numbers{
      "5550142"};      // each as likely as the others; one named twice, twice as likely
  std::string Output;  // empty: standard output
  bool Help = false;
};

// The options in `arguments`, which begin behind the program's name. Raises std::invalid_argument, with a
// text for the user, for an option that is unknown, lacks its value or has a wrong one.
LogOptions ParseOptions(const std::vector<std::string>& arguments);

extern const char* const UsageText;

}  // namespace qel
