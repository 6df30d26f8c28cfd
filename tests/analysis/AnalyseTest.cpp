#include "analysis/AnalysisTest.h"
#include "analysis/Warnings.h"

namespace qel {

TEST_F(AnalysisTest, LongLinesAndNulsAreTextABadTimeOrNumberIsToldAnUndatedLineIsTheEnd) {
  const std::string noise(1 << 20, '\0');
  Run("01-05-1999 10:00:00.0" + noise + "recv: atdt555<cr>" + noise +
      "\n01-05-1999 x.0 CONNECTION ESTABLISHED\n   \n" + LogText("5 10:02 U; 5 10:02:01 R99999999999") +
      "noise\n" + LogText("5 10:03 D666"));
  EXPECT_EQ(ServiceTotals[1].Number, "555");
  EXPECT_EQ(ServiceTotals[1].Connections, 1);
  EXPECT_EQ(host.errors, (std::vector<std::string>{"Process, Log Entry: 2: Type mismatch",
                                                   "Process, Log Entry: 4: Overflow"}));
  EXPECT_EQ(EntriesProcessed, 4);
  EXPECT_TRUE(LogCorrupt && !host.Showed("report"));
  Run(LogText("5 10:00 D555"));
  EXPECT_FALSE(LogCorrupt) << "an undated line is the log's that has it";
  LogCorrupt = true;  // as other tests find it
  Analyse();
  EXPECT_TRUE(LogCorrupt);
}

TEST_F(AnalysisTest, ManyEntriesShowTenStepsOfProgress) {
  std::string log;
  for (int i = 0; i < 5000; ++i) log += LogText("5 10:00 D555; 5 10:01 C; 5 10:02 U; 5 10:02:01 R1024");
  MaxConnections = 32767;
  OpenLog(log);
  TellingHost telling;
  Analyse();
  std::vector<std::string> expected = {"progress", "hourglass"};
  for (const std::string percent : {"10", "20", "30", "40", "50", "60", "70", "80", "90", "100"})
    expected.insert(expected.end(), {"status: Please Wait .....Processing  " + percent + "%",
                                     "progress: " + percent, "yield"});
  const std::string finished = "status:  F I N I S H E D !  -  (20000 entries processed)";
  expected.insert(expected.end(), {"no progress", finished, "report", "pointer"});
  EXPECT_EQ(telling.transcript, expected);
  EXPECT_EQ(ServiceTotals[1].Seconds, 300000);
}

TEST_F(AnalysisTest, WarningsListAllExceededServicesBehindOneSound) {
  ServiceTotals.Make(MaxServices);
  WarningSoundFile = "gong.wav";
  UsedServices = 0;
  for (int option = 0; option < 5; ++option) {  // of which the last is none
    ServiceRecord& warned = AddService("S" + std::to_string(option), std::to_string(option), "none");
    warned.WarningOption = option;
    warned.WarningHours = 5;
    warned.WarningMinutes = 30;
    warned.WarningDialup = warned.WarningService = 1234.5;
    warned.WarningData = 2048;
    ServiceTotal& slot = ServiceTotals[option + 1];
    slot.Number = warned.ServiceNumber;
    slot.Seconds = 19800;
    slot.DialCost = slot.ServiceCost = 1234.5;
    slot.BytesRead = 2048 * 1024;
  }
  Services[0].WarningSound = Services[2].WarningSound = Services[3].WarningDisplay = true;
  CheckWarnings();
  EXPECT_TRUE(host.transcript.empty()) << "no service asks for warnings";
  for (int i = 0; i < 5; ++i) Services[i].ShowWarnings = true;
  CheckWarnings();
  EXPECT_EQ(host.transcript, (std::vector<std::string>{"sound: gong.wav", "message: User Defined Warnings"}));
  EXPECT_EQ(
      host.messages[0].Text,
      "One or more dialled service(s) have exceeded a user\ndefined threshold for this reporting period.\n\n"
      "S0 - Time on-line exceeded  5Hrs 30Mins\nS1 - Dial-up costs exceeded $1,234.50\n"
      "S2 - Service costs exceeded $1,234.50\nS3 - Data downloaded exceeded 2,048KB\n");
  for (int i = 1; i <= 4; ++i) {  // a little less of each
    Services[i - 1].WarningDisplay = true;
    --ServiceTotals[i].Seconds;
    ServiceTotals[i].DialCost = ServiceTotals[i].ServiceCost = 1234.4;
    --ServiceTotals[i].BytesRead;
  }
  CheckWarnings();
  EXPECT_EQ(host.messages.size(), 1u);
}

class TypedFields : public PeriodFields {
 public:
  std::string said;
  void Complain() override { said += StatusMessages[static_cast<std::size_t>(StatusIndex)].Text; }
};

TEST_F(AnalysisTest, PeriodIsKeptInsideTheLogAndInOrder) {
  OpenLog(LogText("10 10:00 H; 20 10:00 H"));
  for (const auto& [field, text, period, complaint] : Cases("analysis/Periods")) {
    TypedFields fields;
    fields.SetStarting("01/12/1999");
    fields.SetEnding("01/18/1999");
    fields.CurrentDateField = field == "start" ? DateField::Starting : DateField::Ending;
    field == "start" ? fields.SetStarting(text) : fields.SetEnding(text);
    EXPECT_EQ(checkProcess() ? FormatDate(PeriodStart, "d") + FormatDate(PeriodEnd, " d") : "", period)
        << text;
    EXPECT_EQ(fields.said, complaint) << text;
  }
  for (std::size_t i = 0; i < StatusMessages.size(); ++i) {
    const bool isComplaint = i >= 7 && i <= 13;
    EXPECT_TRUE(StatusMessages[i].Timed == isComplaint && StatusMessages[i].Bold == isComplaint) << i;
  }
  StartingChanged = true;
  EXPECT_TRUE(checkProcess() && PeriodDays == 7);
  PeriodEnd = PeriodStart + 32767;
  EXPECT_THROW(checkProcess(), RunTimeError);
}

}  // namespace qel
