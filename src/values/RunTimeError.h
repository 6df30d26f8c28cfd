// The one exception of the program: a run-time failure with the platform's error number.
// Disk failures arrive as errno values and leave as the numbers that the error dialogue knows by heart.
#pragma once

#include <stdexcept>
#include <string>

namespace qel {

enum ErrorNumber : int {
  InvalidCall = 5,
  Overflow = 6,
  OutOfMemory = 7,
  SubscriptOutOfRange = 9,
  DivisionByZero = 11,
  TypeMismatch = 13,
  BadFileName = 52,
  FileNotFound = 53,
  BadFileMode = 54,
  FileAlreadyOpen = 55,
  DeviceError = 57,
  FileAlreadyExists = 58,
  DiskFull = 61,
  PastEndOfFile = 62,
  DeviceUnavailable = 68,
  PermissionDenied = 70,
  DiskNotReady = 71,
  PathFileAccess = 75,
  PathNotFound = 76,
};

class RunTimeError : public std::runtime_error {
 public:
  // `systemError` is the errno behind a disk failure, 0 for any other. `path` is the file or setting
  // concerned, if any.
  explicit RunTimeError(int number, std::string source = "QEL", int systemError = 0, std::string path = "");

  int Number() const { return number; }
  std::string Description() const { return what(); }
  const std::string& Source() const { return source; }
  int SystemError() const { return systemError; }
  const std::string& Path() const { return path; }

 private:
  int number;
  std::string source;
  int systemError;
  std::string path;
};

// Why it failed, in words for the user: those of what is nested within, else those of the system, else the
// platform's.
std::string ReasonOf(const RunTimeError& error);

// The platform's words for an error number, such as "Overflow" for 6.
std::string ErrorDescription(int number);

// The error number for an errno value; what no row of the table names is 57, a device error.
int ErrorNumberOfErrno(int systemError);

[[noreturn]] void Raise(int number);
[[noreturn]] void RaiseErrno(int systemError, const std::string& path);

}  // namespace qel
