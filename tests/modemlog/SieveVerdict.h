// What a sieve passes, held against the classifier, line by line.
#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "modemlog/LogSieve.h"

namespace qel {

// What each of this machine's kernels passes of a text that lies in memory of its exact size. Raises where it
// is more than whole lines of the date and no class.
inline std::vector<Passed> PassedByAll(const Responses& responses, std::string_view sample,
                                       std::string_view text, std::string_view date) {
  const LineClassifier classifier(responses);
  const std::vector<char> exact(text.begin(), text.end()), exactDate(date.begin(), date.end());
  std::vector<Passed> all;
  for (const auto kernel : LogSieve::Kernels()) {
    const Passed passed = LogSieve(responses, sample, kernel)
                              .Pass({exact.data(), exact.size()}, {exactDate.data(), exactDate.size()});
    all.push_back(passed);
    if (passed.Bytes > text.size()) throw std::logic_error("more than there is");
    std::string_view rest = text.substr(0, passed.Bytes);
    std::size_t lines = 0;
    for (; !rest.empty(); ++lines) {
      const auto feed = rest.find('\n');
      if (feed == std::string_view::npos) throw std::logic_error("part of a line");
      std::string_view line = rest.substr(0, feed);
      if (line.ends_with('\r')) line.remove_suffix(1);
      if (!line.starts_with(date)) throw std::logic_error("a line of another date");
      if (classifier.ClassesOf(line) != NoClass) throw std::logic_error("a line that means something");
      rest.remove_prefix(feed + 1);
    }
    if (lines != passed.Lines) throw std::logic_error("lines that were counted wrong");
  }
  return all;
}

}  // namespace qel
