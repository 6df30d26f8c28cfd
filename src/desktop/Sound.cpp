#include "desktop/Sound.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include "core/Surroundings.h"

namespace qel {

namespace {

constexpr int LongestSound = 30'000;  // milliseconds
constexpr int BetweenYields = 20;

const struct {
  const char* program;
  QStringList options;
} Players[] = {
    {"paplay", {}},
    {"pw-play", {}},
    {"aplay", {"-q"}},
    {"play", {"-q"}},
    {"ffplay", {"-nodisp", "-autoexit"}},
};

// Stops the player when the sound is left, whichever way.
class Player : public QProcess {
 public:
  ~Player() override {
    kill();
    waitForFinished();
  }
};

// Whether the player has taken the sound, to its end or to the time limit.
bool PlayWith(const QString& program, const QStringList& arguments) {
  Player player;
  player.setStandardInputFile(QProcess::nullDevice());
  player.setStandardOutputFile(QProcess::nullDevice());
  player.setStandardErrorFile(QProcess::nullDevice());
  player.start(program, arguments);
  QElapsedTimer clock;
  clock.start();
  while (clock.elapsed() < LongestSound && !player.waitForFinished(BetweenYields) &&
         player.state() != QProcess::NotRunning)
    CurrentHost().Yield();
  return player.state() != QProcess::NotRunning ||
         (player.error() != QProcess::FailedToStart && player.exitStatus() == QProcess::NormalExit &&
          player.exitCode() == 0);
}

}  // namespace

void PlaySound(const std::string& path) {
  for (const auto& [program, options] : Players) {
    const QString found = QStandardPaths::findExecutable(program);
    if (!found.isEmpty() && PlayWith(found, options + QStringList(QFile::decodeName(path.c_str())))) return;
  }
}

}  // namespace qel
