// The program's version, as error reports, new logs and --version give it. CMakeLists.txt owns the numbers.
#pragma once

#include <string>

namespace qel {

extern const int VersionMajor;
extern const int VersionMinor;
extern const int VersionRevision;

// "1.0.0"
std::string VersionText();

inline constexpr char ProgramTitle[] = "QEL";

// Where the program's author is reached: settings of the build.
extern const char WebAddress[];   // a web page
extern const char MailAddress[];  // a mail address, for support too

}  // namespace qel
