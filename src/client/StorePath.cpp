// SPDX-License-Identifier: MIT
#include "client/StorePath.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace tarnwick::client {

std::string storePath() {
  const auto variable = [](const char* name) {
    const char* value = std::getenv(name);
    return std::string(value ? value : "");
  };
  std::string base = variable("XDG_DATA_HOME");
  if (base.empty() || base.front() != '/') {
    std::string home = variable("HOME");
    if (home.empty()) {
      if (const auto* entry = getpwuid(getuid())) home = entry->pw_dir;
    }
    base = home.empty() ? "/tmp" : home + "/.local/share";
  }
  while (base.size() > 1 && base.back() == '/') base.pop_back();
  return base + "/app.tarnwick.Tarnwick/Tarnwick.store";
}

}  // namespace tarnwick::client
