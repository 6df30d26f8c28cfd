// What the disk in memory takes for granted: that the system's renaming, locks and leases do what they say,
// to programs that run at the same time.
#include <atomic>
#include <chrono>
#include <fcntl.h>
#include <random>
#include <thread>

#include "maintenance/Optimize.h"
#include "support/FreshProgram.h"

namespace qel {
namespace {

using RealDisk = FreshProgram;

TEST_F(RealDisk, NoLineIsMissingWithoutAWordAfterManyRewrites) {
  places.AppPath = folder.Path();
  OpenLog("01-05-1999 10:00:00.00 - READS 1\r\n01-06-1999 10:00:00.00 - Reads 2\r\n");
  logFile.ArchiveOpen = false;
  constexpr int rewrites = 40;
  const auto begun = std::chrono::steady_clock::now();
  DoOptimize(session->InHand(), settings, logFile.ArchiveOpen);
  ASSERT_TRUE(host.messages.empty());
  const auto oneRewrite = std::chrono::steady_clock::now() - begun;
  std::atomic<bool> stop = false;
  int written = 0;
  std::thread driver([&] {
    std::minstd_rand random(1);
    std::uniform_real_distribution<double> pause(0, 6);  // in rewrites
    for (; !stop; ++written) {
      const std::string line = "01-06-1999 11:00:00.00 - READS #" + std::to_string(written) + " \r\n";
      const int file =
          ::open(logFile.CurrentLogPath.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666);
      EXPECT_EQ(::write(file, line.data(), line.size()), static_cast<ssize_t>(line.size()));
      ::close(file);
      std::this_thread::sleep_for(oneRewrite * pause(random));
    }
  });
  for (int i = 0; i < rewrites; ++i) DoOptimize(session->InHand(), settings, logFile.ArchiveOpen);
  stop = true;
  driver.join();
  std::string all = ReadWholeFile(logFile.CurrentLogPath);
  for (const Message& message : host.messages)
    if (const auto at = message.Text.find(folder.Path()); at != std::string::npos)
      all += ReadWholeFile(message.Text.substr(at, message.Text.find('\r', at) - at));
  for (int i = 0; i < written; ++i)
    EXPECT_NE(all.find("#" + std::to_string(i) + " "), std::string::npos) << i;
  EXPECT_LT(std::ranges::count(host.messages, "Optimization Failed", &Message::Title), rewrites)
      << "of " << rewrites << ", " << written << " lines";
}

}  // namespace
}  // namespace qel
