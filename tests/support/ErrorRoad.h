// The road of errors through a piece of work: what comes of it with something in its way, for each answer
// that the user can give. A test program that includes this is made with FailingMemory.cpp too.
#pragma once

#include <gtest/gtest.h>
#include <set>

#include "platform/Host.h"
#include "support/AnsweringHost.h"
#include "support/FailingDisk.h"
#include "support/FailingMemory.h"

namespace qel {

// `State` is what the work leaves behind: two can be held against each other, the differences be told in
// lines.
template <typename State>
class ErrorRoad {
 public:
  using Lines = std::vector<std::string>;
  using Obstacle = std::function<void()>;

  ErrorRoad(
      AnsweringHost& host, std::function<void()> prepare, std::function<void()> work,
      std::function<State()> left = [] { return State(); })
      : host(host), prepare(std::move(prepare)), work(std::move(work)), left(std::move(left)) {}

  State Undisturbed() {
    return Hindered([] {}, {Answer::Ignore});
  }

  // Where the obstacle is met, and what is then not as in `undisturbed` when the user goes on behind it. A
  // statement that works when it is repeated leaves no trace, one that never works leaves what one failure
  // does, and the third answer ends the program.
  Lines Around(const Obstacle& obstacle, const State& undisturbed, bool once = false) {
    const State passedOver = Hindered(obstacle, {Answer::Ignore});
    Lines lines = passedOver.Against(undisturbed).Lines();
    for (auto& line : lines) line.insert(0, "  ");
    if (host.errors.empty()) {
      if (!lines.empty()) lines.insert(lines.begin(), "Nobody is told");
      return lines;
    }
    const std::size_t others = host.errors.size() - 1;
    const std::string first = host.errors.front();
    lines.insert(lines.begin(), first + (others > 0 ? " and " + std::to_string(others) + " more" : ""));
    const State repeated = Hindered(obstacle, {Answer::Retry, Answer::Retry, Answer::Ignore});
    EXPECT_EQ(repeated.Against(once ? undisturbed : passedOver).Lines(), Lines()) << first;
    EXPECT_THROW(Hindered(obstacle, {Answer::Abort}), ProgramEnd) << first;
    return lines;
  }

  // Each piece of memory, or each operation of the disk, is refused once; roads that are alike are told once.
  Lines AroundMemory() { return AroundEach(RefuseMemory); }
  Lines AroundDisk() {
    return AroundEach([this](int operation) { disk.FailNth(operation, ENOSPC); });
  }

 private:
  Lines AroundEach(const std::function<void(int)>& refuse) {
    const State undisturbed = Undisturbed();
    std::set<Lines> told;
    Lines all;
    for (int n = 1; n == 1 || met; ++n) {
      try {
        const Lines road = Around([&] { refuse(n); }, undisturbed, true);
        if (told.insert(road).second) all.insert(all.end(), road.begin(), road.end());
      } catch (const std::bad_alloc&) {
        met = true;  // outside all statements: nothing comes of the work, and whoever asked for it is told
      }
    }
    return all;
  }

  State Hindered(const Obstacle& obstacle, std::vector<Answer> answers) {
    prepare();
    host.AnswerErrors(std::move(answers));
    const DiskInPlace inPlace(disk);
    obstacle();
    work();
    met = RefusedMemory() || disk.Failed();
    disk.Mend();
    return left();
  }

  AnsweringHost& host;
  const std::function<void()> prepare, work;
  const std::function<State()> left;
  FailingDisk disk;
  bool met = false;  // whether the latest run came upon what was put in its way
};

}  // namespace qel
