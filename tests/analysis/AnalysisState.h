// All that an analysis leaves behind, as text: the fields of each record by name, without those that are
// empty, 0 or false.
#pragma once

#include <map>
#include <sstream>

#include "analysis/ConnectionNotes.h"
#include "core/ErrorHandler.h"
#include "session/Session.h"
#include "values/DateFormat.h"

namespace qel {

class State {
 public:
  // As it is now. "Shown" are the seconds and notes that the details report makes of a connection.
  State(const Session& session, Pricing& pricing) : period(session.period) {
    const AnalysisResult& analysis = session.analysis;
    for (int i = 0; i <= analysis.Connections.Last(); ++i)
      Tell("Connections[" + std::to_string(i) + "]", analysis.Connections[i],
           analysis.SlotNumbers[analysis.Connections[i].SlotNumber]);
    for (int i = 0; i <= analysis.ServiceTotals.Last(); ++i)
      Tell("Slots[" + std::to_string(i) + "]", analysis.ServiceTotals[i]);
    for (int service = 0; service < session.settings.UsedServices; ++service)
      for (int number = 0; number <= UsageTable::LastPeriod; ++number)
        TellUse(pricing.Penalties, service, number);
    const CallCosts& costs = analysis.LastCosts;
    Field("Analysis")("EntriesProcessed", analysis.EntriesProcessed)(
        "ConnectionCount", analysis.ConnectionCount)("TotalsCount", analysis.TotalsCount)(
        "ServicesExceeded", analysis.ServicesExceeded)("ConnectionsExceeded", analysis.ConnectionsExceeded)(
        "LogErrorsFound", analysis.LogErrorsFound)("TariffIncomplete", analysis.TariffIncomplete)(
        "ShowBlocks", analysis.ShowBlocks)("LogCorrupt", session.findings.LogCorrupt)(
        "SummaryBuilt", analysis.SummaryBuilt)("DetailBuilt", analysis.DetailBuilt)(
        "DialCostNow", costs.DialCostNow)("ServiceCostNow", costs.ServiceCostNow)("DataCostNow",
                                                                                  costs.DataCostNow);
  }

  bool operator==(const State& other) const { return records == other.records; }

  // "Slots[1] Connections 1, Number 555"
  std::vector<std::string> Lines() const {
    std::vector<std::string> lines;
    for (const auto& [record, fields] : records) {
      std::string line;
      for (const auto& [name, value] : fields)
        line += (line.empty() ? record + " " : ", ") + name + " " + value;
      if (!line.empty()) lines.push_back(line);
    }
    return lines;
  }

  // The fields that are not as in the other one, "none" for what is empty here alone.
  State Against(const State& other) const {
    State differing = *this;
    for (const auto& [record, fields] : other.records)
      for (const auto& [name, value] : fields) {
        const auto [own, isNew] = differing.records[record].emplace(name, "none");
        if (own->second == value) differing.records[record].erase(own);
      }
    return differing;
  }

 private:
  using Fields = std::map<std::string, std::string>;

  // Tells one field after the other: Field("Slots[1]")("Number", "555")("Seconds", 600).
  class Teller {
   public:
    explicit Teller(Fields& fields) : fields(fields) {}
    Teller operator()(const std::string& name, const std::string& text) {
      if (!text.empty() && text != "0") fields[name] = text;
      return *this;
    }
    Teller operator()(const std::string& name, double number) {
      std::ostringstream text;
      text.precision(10);
      text << number;
      return (*this)(name, text.str());
    }

   private:
    Fields& fields;
  };
  Teller Field(const std::string& record) { return Teller(records[record]); }

  static std::string Stamp(Date date, Date time) {
    return date == 0 && time == 0 ? "" : FormatDate(date, "d ") + FormatDate(time, "hh:nn:ss");
  }

  std::string Shown(ConnectionRecord c) const {
    if (c.StartDate == 0) return "";
    const int seconds = static_cast<int>(GetConnectionSeconds(period, c));
    return std::to_string(seconds) + "s " + TidyNotes(c.Notes) + "|";
  }

  void Tell(const std::string& record, const ConnectionRecord& c, const std::string& slotNumber) {
    Field(record)("Start", Stamp(c.StartDate, c.StartTime))("End", Stamp(c.EndDate, c.EndTime))(
        "Number", c.Number)("Answered", c.Answered)("BytesRead", c.BytesRead)("BytesWritten", c.BytesWritten)(
        "FreeSeconds", c.FreeSeconds)("Slot", c.Slot)("SlotNumber", slotNumber)("Notes", c.Notes)("Shown",
                                                                                                  Shown(c));
  }

  void Tell(const std::string& record, const ServiceTotal& s) {
    Field(record)("Number", s.Number)("AltNumber", s.AltNumber)("Seconds", s.Seconds)(
        "Connections", s.Connections)("TotalCost", s.TotalCost)("DialCost", s.DialCost)(
        "ServiceCost", s.ServiceCost)("BytesRead", s.BytesRead)("Blocks", s.Blocks)("FreeSeconds",
                                                                                    s.FreeSeconds);
  }

  void TellUse(UsageTable& penalties, int service, int number) {
    PeriodUsage used;
    IgnoreErrors([&] { used = penalties.At(service, number); });
    Field("Used[" + std::to_string(service) + "][" + std::to_string(number) + "]")("Seconds", used.Seconds)(
        "Bytes", used.Bytes);
  }

  Period period;
  std::map<std::string, Fields> records;
};

}  // namespace qel
