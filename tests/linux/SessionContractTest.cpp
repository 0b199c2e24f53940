// SPDX-License-Identifier: MIT
#include "Session.h"
#include "linux/LinuxPorts.h"
#include "support/DesktopContract.h"

#include <csignal>
#include <map>
#include <memory>

namespace tarnwick::test {
namespace {

class RealStage final {
 public:
  [[nodiscard]] Workspace& workspace() { return m_workspace; }
  [[nodiscard]] OtherWindows& others() { return m_ports.otherWindows(); }
  qint64 launch() {
    auto peer = std::make_unique<PeerProgram>("peer");
    peer->tell("window 100 100 300 200 Peer");
    const auto pid = peer->pid();
    m_peers.emplace(pid, std::move(peer));
    return pid;
  }
  void bringToFront(qint64 pid) { m_peers.at(pid)->tell("front"); }
  void move(qint64 pid, int x) { m_peers.at(pid)->tell(QByteArray("move ").append(QByteArray::number(x)).append(" 100")); }
  void openAnother(qint64 pid) { m_peers.at(pid)->tell("another 500 100 300 200 Another"); }
  static void end(qint64 pid) { kill(static_cast<pid_t>(pid), SIGKILL); }
  [[nodiscard]] static bool soon(const std::function<bool()>& condition) { return holdsSoon(condition); }

 private:
  LinuxPorts m_ports;
  Workspace& m_workspace = m_ports.workspace();  // made first, as the program does
  std::map<qint64, std::unique_ptr<PeerProgram>> m_peers;
};

}  // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(X11, DesktopContract, RealStage);

}  // namespace tarnwick::test
