// SPDX-License-Identifier: MIT
// The command: hands its words to the running Tarnwick, or becomes the whole program when none runs.
#include "client/BusClient.h"
#include "client/StorePath.h"

#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using tarnwick::client::BusClient;

std::string ownFolder() {
  char path[PATH_MAX] = {};
  const auto length = readlink("/proc/self/exe", path, sizeof path - 1);
  if (length <= 0) return ".";
  const std::string whole(path, static_cast<size_t>(length));
  return whole.substr(0, whole.rfind('/'));
}

// Comes back only when there is no whole program to become.
int becomeDesktop(char** argv) {
  const auto folder = ownFolder();
  for (const auto& path : {folder + "/tarnwick-desktop", folder + "/../libexec/tarnwick/tarnwick-desktop"}) {
    argv[0] = const_cast<char*>(path.c_str());
    execv(path.c_str(), argv);
  }
  std::fputs("tarnwick: tarnwick-desktop is missing beside the command\n", stderr);
  return 1;
}

std::string currentFolder() {
  char path[PATH_MAX] = {};
  return getcwd(path, sizeof path) ? path : "/";
}

std::string readStandardInput() {
  std::string all;
  char block[65536];
  for (ssize_t count = 0; (count = read(STDIN_FILENO, block, sizeof block)) > 0;) {
    all.append(block, static_cast<size_t>(count));
  }
  return all;
}

bool writeAll(int descriptor, const std::string& bytes) {
  for (size_t done = 0; done < bytes.size();) {
    const auto count = write(descriptor, bytes.data() + done, bytes.size() - done);
    if (count <= 0) return false;
    done += static_cast<size_t>(count);
  }
  return true;
}

// "-" among the words of add and import stands for standard input; nothing else reads it.
bool readsInput(const std::vector<std::string>& words) {
  const bool canRead = !words.empty() && (words.front() == "add" || words.front() == "import");
  return canRead && std::find(words.begin(), words.end(), "-") != words.end();
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> words(argv + std::min(argc, 1), argv + argc);
  for (const auto& word : words) {
    if (!tarnwick::client::isText(word)) {
      std::fputs("tarnwick: a word is not valid UTF-8\n", stderr);
      return 2;
    }
  }
  if (words.size() == 1 && words.front() == "--version") {
    std::puts("tarnwick " TARNWICK_VERSION);
    return 0;
  }
  // Only a program that holds this user's own store is talked to: another one may share the bus.
  BusClient bus;
  if (bus.runningStorePath() != tarnwick::client::storePath()) return becomeDesktop(argv);

  if (words.empty() || (words.size() == 1 && words.front() == "--open")) return bus.activate() ? 0 : 1;
  if (words.size() == 1 && words.front() == "--background") return 0;

  std::string input;
  if (readsInput(words)) {
    input = readStandardInput();
    if (!tarnwick::client::isText(input)) {
      std::fputs("tarnwick: standard input is not valid UTF-8 text\n", stderr);
      return 2;
    }
  }
  const auto reply = bus.command(words, input, currentFolder());
  if (!reply) {
    std::fputs("tarnwick: the running Tarnwick did not answer\n", stderr);
    return 1;
  }
  const bool isWritten = writeAll(STDOUT_FILENO, reply->output);
  writeAll(STDERR_FILENO, reply->error);
  return isWritten ? reply->exitStatus : 1;
}
