#include "platform/Host.h"

namespace qel {

namespace {

// Before a face has set its own host there is nobody to ask, and nothing to wait for.
class NoHost : public Host {
  Answer MessageBox(const Message&) override { return Answer::Abort; }
};

NoHost noHost;
Host* current = &noHost;

}  // namespace

Host& CurrentHost() { return *current; }
void SetHost(Host& host) { current = &host; }

}  // namespace qel
