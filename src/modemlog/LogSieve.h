// Passes over the lines of a log that mean nothing, many bytes at a time, so that only the rest is looked at
// line by line.
//
// Every response string that a line holds, it holds with all its pairs of neighbouring characters. So the
// sieve looks for one pair of each string, the one that the log has least often, and wherever no pair stands,
// no string does. Whole blocks are compared at once, whichever lines they belong to; case is left out by
// setting the bit in which capital and small letters differ.
//
// It errs on one side only: it may stop at a line that means nothing, but never passes one that means
// something.
#pragma once

#include <string_view>
#include <vector>

#include "modemlog/LineClassifier.h"

namespace qel {

struct Passed {
  std::size_t Bytes = 0;  // whole lines with their line feeds
  std::size_t Lines = 0;
};

class LogSieve {
 public:
  // A pair of neighbouring characters, each with the bit of small letters set.
  struct Pair {
    signed char First = 0, Second = 0;
  };
  using Pairs = std::array<Pair, 7>;
  // Passes lines from the beginning of `text` that begin with `date` and hold none of the pairs.
  using Kernel = Passed (*)(std::string_view text, const char* date, const Pairs& pairs);

  // Those that this machine can run, the quickest last.
  static std::vector<Kernel> Kernels();

  // `sample` is some of the log, of which the first 64 KB tell which pairs are rare.
  LogSieve(const Responses& responses, std::string_view sample, Kernel kernel = Kernels().back());

  // Passes lines from the beginning of `text`, which is that of a line, as long as they begin with `date`,
  // the first ten characters of some line, and LineClassifier finds no class for them. A date of another
  // length passes nothing, nor do strings that no pair stands for.
  Passed Pass(std::string_view text, std::string_view date) const;

 private:
  Kernel kernel;
  Pairs pairs;
  bool isUsable = true;
};

}  // namespace qel
