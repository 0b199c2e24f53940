// SPDX-License-Identifier: MIT
#include "fakes/FakeDesktop.h"
#include "support/DesktopContract.h"

namespace tarnwick::test {
namespace {

class FakeStage final {
 public:
  [[nodiscard]] Workspace& workspace() { return m_workspace; }
  [[nodiscard]] OtherWindows& others() { return m_others; }
  qint64 launch() {
    const RunningApplication application{QStringLiteral("app%1").arg(++m_pid), m_pid, QStringLiteral("App")};
    m_workspace.applications.push_back(application);
    m_others.windows.insert(m_others.windows.begin(), {m_pid, 0, {100, 100, 300, 200}});
    m_others.move(m_pid, DesktopRect{100, 100, 300, 200});
    m_workspace.activate(application);
    return m_pid;
  }
  void bringToFront(qint64 pid) {
    auto& windows = m_others.windows;
    std::stable_partition(windows.begin(), windows.end(), [&](const auto& window) { return window.pid == pid; });
    m_workspace.activate(application(pid));
  }
  void move(qint64 pid, double x) { m_others.move(pid, DesktopRect{x, 100, 300, 200}); }
  void openAnother(qint64 pid) {
    const RunningApplication another{QStringLiteral("Another"), pid, QStringLiteral("Another")};
    m_workspace.applications.push_back(another);
    m_workspace.activate(another);
  }
  void end(qint64 pid) {
    std::erase_if(m_others.windows, [&](const auto& window) { return window.pid == pid; });
    m_others.move(pid, std::nullopt);
    const auto all = m_workspace.applications;
    for (const auto& each : all) {
      if (each.pid == pid) m_workspace.terminate(each);
    }
  }
  [[nodiscard]] static bool soon(const std::function<bool()>& condition) { return condition(); }

 private:
  [[nodiscard]] RunningApplication application(qint64 pid) const {
    const auto& all = m_workspace.applications;
    return *std::find_if(all.begin(), all.end(), [&](const auto& each) { return each.pid == pid; });
  }
  FakeWorkspace m_workspace;
  FakeOtherWindows m_others;
  qint64 m_pid = 10;
};

}  // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, DesktopContract, FakeStage);

}  // namespace tarnwick::test
