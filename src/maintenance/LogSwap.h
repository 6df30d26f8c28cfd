// How a rewritten log comes into its place, for every tool that rewrites it: the log becomes the safety copy,
// the working file becomes the log. Until then the log is untouched, and at every instant the log or its
// safety copy is whole.
#pragma once

#include <initializer_list>
#include <string>

#include "platform/Files.h"

namespace qel {

// Safety copies of the default log and of an archive, in the program's folder: the state before the latest
// rewrite.
inline constexpr char SafetyCopyName[] = "ModemLog.old";
inline constexpr char ArchiveSafetyCopyName[] = "ModemLogArchive.old";

// The path of a file in the program's folder.
std::string WorkingPath(const std::string& name);

// Raises 70 where the current log is, by whatever links, one of the program's own files of these names: the
// tool that writes them would write over what it reads.
void RefuseOwnFile(std::initializer_list<const char*> names);

// `working` takes the place and the mode of the current log, which takes that of `safetyCopy`. Raises 70 for
// a log that is not as it was `read` any more, and the disk's errors. Where it raises, the log is in its
// place as it was, if the disk allows it; else it is the safety copy.
void SwapInLog(const std::string& working, const std::string& safetyCopy, const FileStamp& read);

// At the start of the program: whether the end of a run between the two steps of a swap has left the log's
// place empty. Puts the log back from its safety copy then. Raises the disk's errors.
//
//   log      safety copy   a working file   what is done
//   there    -             -                nothing
//   missing  missing       -                nothing: there is no log
//   missing  there         missing          nothing: the log was taken away by somebody else
//   missing  there         there            the safety copy becomes the log; the working file is left
bool UndoInterruptedSwap(const std::string& log);

}  // namespace qel
