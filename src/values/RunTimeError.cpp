#include "values/RunTimeError.h"

#include <cerrno>
#include <cstring>
#include <exception>
#include <utility>

namespace qel {

namespace {

struct NumberedDescription {
  int number;
  const char* description;
};

const NumberedDescription Descriptions[] = {
    {InvalidCall, "Invalid procedure call or argument"},
    {Overflow, "Overflow"},
    {OutOfMemory, "Out of memory"},
    {SubscriptOutOfRange, "Subscript out of range"},
    {DivisionByZero, "Division by zero"},
    {TypeMismatch, "Type mismatch"},
    {BadFileName, "Bad file name or number"},
    {FileNotFound, "File not found"},
    {BadFileMode, "Bad file mode"},
    {FileAlreadyOpen, "File already open"},
    {DeviceError, "Device I/O error"},
    {FileAlreadyExists, "File already exists"},
    {DiskFull, "Disk full"},
    {PastEndOfFile, "Input past end of file"},
    {DeviceUnavailable, "Device unavailable"},
    {PermissionDenied, "Permission denied"},
    {DiskNotReady, "Disk not ready"},
    {PathFileAccess, "Path/File access error"},
    {PathNotFound, "Path not found"},
};

struct ErrnoNumber {
  int systemError;
  int number;
};

const ErrnoNumber ErrnoNumbers[] = {
    {ENOENT, FileNotFound},      {ENOTDIR, PathNotFound},     {EACCES, PermissionDenied},
    {EPERM, PermissionDenied},   {EBUSY, PermissionDenied},   {ETXTBSY, PermissionDenied},
    {EAGAIN, PermissionDenied},  {EEXIST, FileAlreadyExists}, {ENOTEMPTY, FileAlreadyExists},
    {EISDIR, PathFileAccess},    {EROFS, PathFileAccess},     {EXDEV, PathFileAccess},
    {EMFILE, PathFileAccess},    {ENFILE, PathFileAccess},    {ENAMETOOLONG, BadFileName},
    {EILSEQ, BadFileName},       {ELOOP, BadFileName},        {EBADF, BadFileMode},
    {ENOSPC, DiskFull},          {EDQUOT, DiskFull},          {EFBIG, DiskFull},
    {ENODEV, DeviceUnavailable}, {ENXIO, DeviceUnavailable},  {ENOMEDIUM, DiskNotReady},
    {ESTALE, DeviceUnavailable}, {EIO, DeviceError},          {ENOMEM, OutOfMemory},
    {EINVAL, InvalidCall},
};

}  // namespace

RunTimeError::RunTimeError(int number, std::string source, int systemError, std::string path)
    : std::runtime_error(ErrorDescription(number)),
      number(number),
      source(std::move(source)),
      systemError(systemError),
      path(std::move(path)) {}

std::string ReasonOf(const RunTimeError& error) {
  try {
    std::rethrow_if_nested(error);
  } catch (const std::exception& nested) {
    return nested.what();
  }
  return error.SystemError() != 0 ? std::strerror(error.SystemError()) : error.Description();
}

std::string ErrorDescription(int number) {
  for (const auto& row : Descriptions)
    if (row.number == number) return row.description;
  return "Application-defined or object-defined error";
}

int ErrorNumberOfErrno(int systemError) {
  for (const auto& row : ErrnoNumbers)
    if (row.systemError == systemError) return row.number;
  return DeviceError;
}

void Raise(int number) { throw RunTimeError(number); }

void RaiseErrno(int systemError, const std::string& path) {
  throw RunTimeError(ErrorNumberOfErrno(systemError), "QEL", systemError, path);
}

}  // namespace qel
