// The reporting period: two dates typed by the user, tied together by a few firm rules. They lie inside the
// log, the end does not come before the start, and a report can only be made when both are dates.
//
// The two rules call each other: moving one date may push the other, whose own limits may push back.
#pragma once

#include <string>

#include "analysis/Period.h"
#include "modemlog/LogFile.h"

namespace qel {

enum class PeriodField { Starting = 1, Ending = 2 };

// The two date fields as far as the rules see them. Setting a text runs the rule of its field, as typing
// does.
class PeriodFields {
 public:
  // All three must outlive it. The period is the fields' to set.
  PeriodFields(Period& period, const LogFile& log, const LogFindings& findings)
      : typed(period), log(log), found(findings) {}
  virtual ~PeriodFields() = default;

  void SetStarting(const std::string& text);
  void SetEnding(const std::string& text);
  const std::string& Starting() const { return starting; }
  const std::string& Ending() const { return ending; }

  bool StartingChanged = false, EndingChanged = false;  // the field's text is a date
  // Whether a report can be made.
  bool PeriodIsSet() const;
  // The same; counts PeriodDays when it can. Raises 6 for a period of 32768 days or more.
  bool checkProcess();

  PeriodField CurrentDateField = PeriodField::Starting;
  Int16 StatusIndex = 1;     // of the main window's messages about them
  bool FormLoading = false;  // fields are filled by the program: no complaint is heard

 protected:
  // A field has got its text, by the user or by a rule.
  virtual void ShowText(PeriodField, const std::string& /*text*/) {}
  // A date was moved to its limit; StatusIndex says which.
  virtual void Complain() {}
  // The calendar goes to the date that was set.
  virtual void ShowOnCalendar(Date) {}

 private:
  void inputStarting_Change();
  void inputEnding_Change();
  bool LimitsKnown() const;

  Period& typed;
  const LogFile& log;
  const LogFindings& found;
  std::string starting, ending;
};

}  // namespace qel
