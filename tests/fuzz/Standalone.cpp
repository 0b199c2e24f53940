// SPDX-License-Identifier: MIT
// Without a fuzzing engine: feeds every file of the corpus, and seeded mutations of each. A round that fails leaves its
// bytes in a file that is named beforehand, and can be fed again by name.
//   fuzz_targets CORPUS             all targets
//   fuzz_targets CORPUS NAME FILE   one target with one file
#include "fuzz/Targets.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QStandardPaths>

#include <cstdio>

namespace {

QByteArray bytesOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray mutated(QByteArray bytes, const QByteArray& other, QRandomGenerator& random) {
  const int changes = 1 + random.bounded(6);
  for (int i = 0; i < changes; ++i) {
    const auto at = random.bounded(static_cast<int>(bytes.size()) + 1);
    switch (random.bounded(6)) {
      case 0:
        if (at < bytes.size()) bytes[at] = static_cast<char>(random.bounded(256));
        break;
      case 1:
        if (at < bytes.size()) bytes[at] = static_cast<char>(bytes[at] ^ (1 << random.bounded(8)));
        break;
      case 2:
        bytes.remove(at, 1 + random.bounded(64));
        break;
      case 3:
        bytes.insert(at, bytes.mid(random.bounded(static_cast<int>(bytes.size()) + 1), random.bounded(64)));
        break;
      case 4:
        bytes.insert(at, other.mid(random.bounded(static_cast<int>(other.size()) + 1), random.bounded(64)));
        break;
      default:
        if (random.bounded(8) == 0) bytes.truncate(at);
    }
  }
  return bytes;
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const auto words = QCoreApplication::arguments();
  if (words.size() != 2 && words.size() != 4) return 2;
  const auto failing = QDir::temp().filePath(QStringLiteral("fuzz-failing-%1").arg(QCoreApplication::applicationPid()));
  for (const auto& target : tarnwick::fuzz::targets()) {
    const auto name = QString::fromLatin1(target.name);
    if (words.size() == 4) {
      if (words[2] == name) target.feed(bytesOf(words[3]));
      continue;
    }
    const QDir corpus(QDir(words[1]).filePath(name));
    std::vector<QByteArray> seeds;
    for (const auto& file : corpus.entryList(QDir::Files, QDir::Name)) seeds.push_back(bytesOf(corpus.filePath(file)));
    if (seeds.empty()) {
      std::fprintf(stderr, "%s has no corpus\n", target.name);
      return 1;
    }
    QRandomGenerator random(20261122);
    int fed = 0;
    const auto feed = [&](const QByteArray& bytes) {
      QFile file(failing);
      if (file.open(QIODevice::WriteOnly)) file.write(bytes);
      file.close();
      target.feed(bytes);
      ++fed;
    };
    std::printf("%s (bytes in %s) ", target.name, qPrintable(failing));
    std::fflush(stdout);
    for (const auto& seed : seeds) {
      feed(seed);
      const auto& other = seeds[static_cast<size_t>(random.bounded(static_cast<int>(seeds.size())))];
      for (int round = 0; round < target.rounds; ++round) feed(mutated(seed, other, random));
    }
    std::printf("%d inputs\n", fed);
  }
  QFile::remove(failing);
  return 0;
}
