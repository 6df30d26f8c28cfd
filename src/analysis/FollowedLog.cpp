#include "analysis/FollowedLog.h"

#include <algorithm>

#include "modemlog/LogLine.h"

namespace qel {

FollowedLog::FollowedLog(const Settings& settings, const std::string& path, Date from)
    : settings(settings), from(from), tail(path), classifier(ResponsesOf(settings)) {
  logFile.CurrentLogPath = path;
  Begin();
}

void FollowedLog::Begin() {
  period = {.PeriodStart = from, .PeriodEnd = DateSerial(9999, 12, 31), .PeriodDays = 1};
  result = {};
  pricing.emplace(settings, period);
  pass.emplace(*pricing, logFile, 0.0F, result);
  pass->Begin();
  told = 0;
  endBefore = lastEnd;
}

FileTail::Found FollowedLog::ReadOn() {
  const auto found = tail.Read([this](std::string_view line) { Take(line); });
  if (found != FileTail::Found::Same) {
    Begin();
    return found;
  }
  told = std::min(told, LastClosed());
  while (told < LastClosed() && EndOf(told + 1) <= endBefore) ++told;
  return found;
}

void FollowedLog::Take(std::string_view line) {
  if (LimitReached()) return;
  if (period.PeriodStart == 0) period.PeriodStart = GetLineDate(line);
  pass->Process(line, classifier);
  undated = std::exchange(result.UndatedLineMet, false) || undated;
}

Int16 FollowedLog::LastClosed() const {
  return pass->HasOpenConnection() ? result.ConnectionCount - 1 : result.ConnectionCount;
}

const ConnectionRecord* FollowedLog::OnLine() const {
  return pass->IsConnected() ? &result.Connections[result.ConnectionCount] : nullptr;
}

bool FollowedLog::MayGainData(Int16 connection) const {
  const ConnectionRecord& record = result.Connections[connection];
  return connection > 0 && connection == result.ConnectionCount && !(record.ReadNoted && record.WrittenNoted);
}

Date FollowedLog::EndOf(Int16 connection) const {
  const ConnectionRecord& record = result.Connections[connection];
  return AtTime(record.EndDate, record.EndTime);
}

void FollowedLog::Told(Int16 last) {
  for (; told < last; ++told) lastEnd = std::max(lastEnd, EndOf(told + 1));
}

}  // namespace qel
