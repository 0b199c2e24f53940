// SPDX-License-Identifier: MIT
// The few calls that the command makes to a running Tarnwick over the session bus. It never starts one.
#pragma once

#include <optional>
#include <string>
#include <vector>

struct DBusConnection;

namespace tarnwick::client {

struct Reply {
  int exitStatus = 0;
  std::string output;
  std::string error;
};

class BusClient final {
 public:
  BusClient();
  ~BusClient();
  BusClient(const BusClient&) = delete;
  BusClient& operator=(const BusClient&) = delete;

  /// Path of the store that the running program holds; nothing when none runs or answers within two seconds.
  std::optional<std::string> runningStorePath();
  /// Presents the running program's board.
  bool activate();
  /// Nothing when the program went away before it answered.
  std::optional<Reply> command(const std::vector<std::string>& arguments, const std::string& standardInput,
                               const std::string& workingDirectory);

 private:
  DBusConnection* m_connection = nullptr;
};

/// Whether every byte can travel over the bus as text.
bool isText(const std::string& bytes);

}  // namespace tarnwick::client
