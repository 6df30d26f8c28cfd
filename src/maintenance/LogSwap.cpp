#include "maintenance/LogSwap.h"

#include "core/ErrorHandler.h"
#include "core/ProgramState.h"
#include "maintenance/LogRewrite.h"
#include "maintenance/Repair.h"

namespace qel {

std::string WorkingPath(const std::string& name) { return AppPath + PathSeparator + name; }

void RefuseOwnFile(std::initializer_list<const char*> names) {
  for (const char* name : names)
    if (IsSameFile(CurrentLogPath, WorkingPath(name))) Raise(PermissionDenied);
}

void SwapInLog(const std::string& working, const std::string& safetyCopy, const FileStamp& read) {
  const std::string log = CurrentLogPath;
  if (StampOf(log) != read) Raise(PermissionDenied);
  CopyMode(log, working);
  try {
    RenameFile(log, safetyCopy);  // in the place of the old one
    RenameFile(working, log);
  } catch (const RunTimeError&) {
    IgnoreErrors([&] {
      if (!PathExists(log)) RenameFile(safetyCopy, log);
    });
    throw;
  }
}

bool UndoInterruptedSwap(const std::string& log) {
  const std::string safetyCopy = WorkingPath(SafetyCopyName);
  if (PathExists(log) || !PathExists(safetyCopy)) return false;
  bool interrupted = false;
  for (const char* name : {RepairedName, PurgedName, OptimizedName})
    interrupted = interrupted || PathExists(WorkingPath(name));
  if (interrupted) RenameFile(safetyCopy, log);
  return interrupted;
}

}  // namespace qel
