#include "makelog/ModemDriver.h"

#include <cstdint>
#include <iterator>

namespace qel {

namespace {

// How often things happen, in thousandths of the calls.
constexpr int Incoming = 20;
constexpr int Unanswered = 80;
constexpr int HostHangsUp = 250;
constexpr int DisconnectLost = 15;  // the machine was switched off, or crashed

// Lines that mean nothing. None may hold, in capitals or not, a text by which the analysis knows a line.
constexpr std::string_view BeforeTheDial[] = {
    "Standard 33600 bps Modem in use.",
    "Modem type: Standard 33600 bps Modem",
    "115200,N,8,1",
    "Initializing modem.",
    "Send: AT<cr>",
    "Recv: AT<cr>",
    "Recv: <cr><lf>OK<cr><lf>",
    "Interpreted response: Ok",
    "Send: AT&FE1V1&C1&D2 S95=47 S0=0<cr>",
    "Recv: AT&FE1V1&C1&D2 S95=47 S0=0<cr>",
    "Recv: <cr><lf>OK<cr><lf>",
    "Interpreted response: Ok",
    "Send: ATS7=60S30=0L1M1\\N3%C3&K3B0N1X4<cr>",
    "Recv: ATS7=60S30=0L1M1\\N3%C3&K3B0N1X4<cr>",
    "Recv: <cr><lf>OK<cr><lf>",
    "Interpreted response: Ok",
};

// Text around a number from `Least` to `Most`.
struct Remark {
  std::string_view Before, Behind;
  int Least, Most;
};

constexpr Remark OnLine[] = {
    {"Flow control on, buffer at ", " percent.", 70, 95},
    {"Flow control off, buffer at ", " percent.", 5, 40},
    {"Signal quality ", " of 100.", 40, 98},
    {"Retrain requested, round trip ", " ms.", 90, 900},
    {"Rate change: ", "00bps.", 144, 336},
    {"Line noise, ", " frames sent again.", 1, 40},
    {"Compression ratio 1:", ".", 1, 4},
    {"Carrier detect high, delay ", " ms.", 1, 60},
};

constexpr std::string_view Rates[] = {"14400", "24000", "26400", "28800", "31200", "33600"};

}  // namespace

ModemDriver::ModemDriver(const LogOptions& options, LogWriter& log, Random& random)
    : options(options), log(log), random(random) {}

Moment ModemDriver::Call(Moment moment) {
  now = moment;
  const bool incoming = random.Chance(Incoming);
  OpenPort();
  if (incoming) {
    Say(200, {"Recv: <cr><lf>RING<cr><lf>"});
    Say(20, {"Answering the call."});
  } else {
    Dial();
    if (random.Chance(Unanswered)) {
      GiveUp();
      return now;
    }
  }
  Connect();
  const int seconds = SecondsOnLine(incoming);
  Stay(seconds);
  if (!random.Chance(DisconnectLost)) HangUp(seconds);
  return now;
}

void ModemDriver::Say(Moment moments, std::initializer_list<std::string_view> pieces) {
  now += moments;
  log.Line(now, pieces);
}

void ModemDriver::OpenPort() {
  const auto lines = static_cast<std::size_t>(options.Chatter) / 3;
  for (std::size_t i = 0; i < lines; ++i)
    Say(random.Between(1, 30), {BeforeTheDial[i % std::size(BeforeTheDial)]});
}

void ModemDriver::Dial() {
  const int which = random.Between(0, static_cast<int>(options.Numbers.size()) - 1);
  Say(random.Between(1, 30), {"Dialing."});
  Say(random.Between(5, 40), {"Recv: ATDT", options.Numbers[static_cast<std::size_t>(which)], "<cr>"});
}

void ModemDriver::GiveUp() {
  const bool busy = random.Chance(600);
  Say(random.Between(800, 6000), {"Recv: <cr><lf>", busy ? "BUSY" : "NO ANSWER", "<cr><lf>"});
  Say(1, {"Interpreted response: ", busy ? "Busy" : "No Answer"});
  Say(random.Between(5, 60), {"Hanging up the modem."});
}

void ModemDriver::Connect() {
  const std::string_view rate = Rates[random.Between(0, static_cast<int>(std::size(Rates)) - 1)];
  Say(random.Between(1800, 4200), {"Recv: <cr><lf>CONNECT ", rate, "<cr><lf>"});
  Say(1, {"Interpreted response: Connect"});
  Say(1, {"Connection established at ", rate, "bps."});
  Say(0, {"Error-control on."});
  Say(0, {"Data compression on."});
}

int ModemDriver::SecondsOnLine(bool incoming) {
  if (incoming) return random.Between(60, 600);
  const int kind = random.Between(0, 9);
  if (kind < 3) return random.Between(30, 300);    // fetching the mail
  if (kind < 8) return random.Between(300, 1800);  // looking around
  return random.Between(1800, 9000);               // a long evening
}

void ModemDriver::Stay(int seconds) {
  const int lines = options.Chatter - options.Chatter / 3;
  const Moment connected = now, duration = seconds * MomentsPerSecond;
  for (int i = 1; i <= lines; ++i) {
    const Remark& remark = OnLine[random.Between(0, static_cast<int>(std::size(OnLine)) - 1)];
    const std::string number = std::to_string(random.Between(remark.Least, remark.Most));
    log.Line(connected + duration * i / (lines + 1), {remark.Before, number, remark.Behind});
  }
  now = connected + duration;
}

// The counts belong to the call only when they follow its end within seconds. A word stands behind them,
// since a number that ends its line cannot be told from one that was cut short.
void ModemDriver::HangUp(int seconds) {
  log.Line(now, {random.Chance(HostHangsUp) ? "Remote modem hung up." : "Hanging up the modem."});
  const int bytesRead = seconds * random.Between(100, 900);
  const int bytesWritten = bytesRead / random.Between(4, 20);
  Say(random.Between(20, 150), {"Session Statistics:"});
  Say(0, {"               Reads : ", std::to_string(bytesRead), " bytes"});
  Say(0, {"               Writes: ", std::to_string(bytesWritten), " bytes"});
}

}  // namespace qel
