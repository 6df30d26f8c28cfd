#include "core/Version.h"

namespace qel {

const int VersionMajor = QEL_VERSION_MAJOR;
const int VersionMinor = QEL_VERSION_MINOR;
const int VersionRevision = QEL_VERSION_REVISION;

const char WebAddress[] = QEL_WEB_ADDRESS;
const char MailAddress[] = QEL_MAIL_ADDRESS;

std::string VersionText() {
  return std::to_string(VersionMajor) + "." + std::to_string(VersionMinor) + "." +
         std::to_string(VersionRevision);
}

}  // namespace qel
