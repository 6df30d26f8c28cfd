#include "analysis/AnalysisTest.h"
#include "analysis/Warnings.h"

namespace qel {

TEST_F(AnalysisTest, ReachingALimitEndsTheReadingAndServicesTheReportToo) {
  for (const std::string things : {"Connections", "Services"}) {
    host.transcript.clear();
    (things == "Connections" ? MaxConnections : MaxServices) = 2;
    Run(LogText("5 10:00 D555; 5 10:01 C; 5 10:02 U; 5 10:03 D666; 5 10:04 C"));
    EXPECT_EQ(host.messages.back().Text, "Cannot Continue.... Exceeded Maximum Number of " + things +
                                             ".\rPlease increase the 'Max " + things +
                                             "' parameter in the QEL Options window.\r"
                                             "The following report is incomplete!");
    EXPECT_EQ(Connections[2].Number, "666");
    EXPECT_EQ(host.Showed("report"), things == "Connections");
    EXPECT_TRUE(host.Showed("status:  F I N I S H E D !  -  (4 entries processed)"));
    MaxConnections = 200;
  }
}

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
}

TEST_F(AnalysisTest, ManyEntriesShowTenStepsOfProgress) {
  std::string log;
  for (int i = 0; i < 5000; ++i) log += LogText("5 10:00 D555; 5 10:01 C; 5 10:02 U; 5 10:02:01 R1024");
  MaxConnections = 32767;
  Run(log);
  EXPECT_EQ(ServiceTotals[1].Seconds, 300000);
  EXPECT_EQ(host.transcript.size(), 12u);
  EXPECT_EQ(host.transcript[2], "status: Please Wait .....Processing  30%");
}

TEST_F(AnalysisTest, WarningsListAllExceededServicesBehindOneSound) {
  ServiceTotals.Make(MaxServices);
  WarningSoundFile = "gong.wav";
  for (int option = 0; option < 4; ++option) {
    ServiceTotal& slot = ServiceTotals[option + 1];
    slot.Number = "S" + std::to_string(option);
    slot.Seconds = 19800;
    slot.DialCost = option == 1 ? 1234.4 : 1234.5;
    slot.ServiceCost = 1234.5;
    slot.BytesRead = 2048 * 1024;
    ServiceRecord& warned = AddService(slot.Number, slot.Number, "none");
    warned.ShowWarnings = true;
    warned.WarningOption = option;
    warned.WarningHours = 5;
    warned.WarningMinutes = 30;
    warned.WarningDialup = warned.WarningService = 1234.5;
    warned.WarningData = 2048;
  }
  CheckWarnings();
  EXPECT_TRUE(host.transcript.empty());
  Services[1].WarningSound = Services[3].WarningSound = Services[4].WarningDisplay = true;
  CheckWarnings();
  EXPECT_EQ(host.transcript, (std::vector<std::string>{"sound: gong.wav", "message: User Defined Warnings"}));
  EXPECT_EQ(
      host.messages[0].Text,
      "One or more dialled service(s) have exceeded a user\ndefined threshold for this reporting period.\n\n"
      "S0 - Time on-line exceeded  5Hrs 30Mins\nS2 - Service costs exceeded $1,234.50\n"
      "S3 - Data downloaded exceeded 2,048KB\n");
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
  StartingChanged = true;
  EXPECT_TRUE(checkProcess() && PeriodDays == 7);
  PeriodEnd = PeriodStart + 32767;
  EXPECT_THROW(checkProcess(), RunTimeError);
}

}  // namespace qel
