// Where symbolic links lead.
#pragma once

#include <string>

namespace qel {

// The path behind a symbolic link, which need not exist yet; the path itself where it is no link. Raises the
// disk's errors, also for links that lead in a circle.
std::string BehindLinks(std::string path);

}  // namespace qel
