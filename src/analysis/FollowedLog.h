// A log that is analysed while others write to it: the analysis goes on where it was left.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "analysis/LogPass.h"
#include "analysis/Period.h"
#include "platform/FileTail.h"

namespace qel {

class FollowedLog {
 public:
  // By `settings`, which must outlive this, in a period that begins on `from`, or with the log's first day
  // where that is 0, and has no end.
  FollowedLog(const Settings& settings, const std::string& path, Date from);
  FollowedLog(const FollowedLog&) = delete;
  FollowedLog& operator=(const FollowedLog&) = delete;

  // Takes the lines that the log has gained; none behind a limit of the settings. A log that is no longer the
  // same is analysed anew by the next call. Lines without a date are passed over. Raises as FileTail does;
  // tells the user what an analysis does.
  FileTail::Found ReadOn();

  // What is known by now. The connections up to the last closed one are complete, but for counts of data that
  // may still follow the last one.
  const AnalysisResult& Result() const { return result; }
  const Period& FollowedPeriod() const { return period; }
  Int16 LastClosed() const;
  bool MayGainData(Int16 connection) const;

  // The connection of a call that stands, or nullptr; and the result as if it ended at a moment, not before
  // it began.
  const ConnectionRecord* OnLine() const;
  AnalysisResult ClosedAt(Date moment) const { return pass->ClosedAt(moment); }
  const Pricing& CallPricing() const { return *pricing; }  // before that call

  // The first connection that has closed and was not told; what is told up to `last` is not news any more. Of
  // a log that is analysed anew only those are news that ended later than all that were told.
  Int16 FirstUntold() const { return told + 1; }
  void Told(Int16 last);

  bool LimitReached() const { return result.ServicesExceeded || result.ConnectionsExceeded; }
  // Whether a line without a date came since the last call.
  bool TakeUndated() { return std::exchange(undated, false); }

 private:
  void Begin();
  void Take(std::string_view line);
  Date EndOf(Int16 connection) const;

  const Settings& settings;
  const Date from;
  LogFile logFile;
  FileTail tail;
  const LineClassifier classifier;
  Period period;
  AnalysisResult result;
  std::optional<Pricing> pricing;
  std::optional<LogPass> pass;
  bool undated = false;
  Int16 told;          // the last connection that was
  Date lastEnd = 0;    // day and time, the latest of all that were told
  Date endBefore = 0;  // the same of the logs before this one
};

}  // namespace qel
