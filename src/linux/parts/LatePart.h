// SPDX-License-Identifier: MIT
// Parts of the program that few need at its start, and whose libraries would take milliseconds of it to load: each is a
// file beside the program, loaded when something is first asked of it.
#pragma once

#include <QCoreApplication>
#include <QLibrary>

#include <memory>

/// What such a file exports: whose part it is, and what makes its port.
#define TARNWICK_PART(Port, Adapter)                                    \
  extern "C" const char* tarnwickVersion() { return TARNWICK_VERSION; } \
  extern "C" tarnwick::Port* tarnwickPart() { return new tarnwick::Adapter; }

namespace tarnwick {

/// Null when the file or a library that it needs is not there, or is of another version: a package may be upgraded while
/// the program runs. It stays loaded until the program ends.
template <typename Port>
std::unique_ptr<Port> loadPart(const QString& file) {
  QLibrary library(QCoreApplication::applicationDirPath() + u'/' + file);
  library.setLoadHints(QLibrary::ResolveAllSymbolsHint);
  const auto version = reinterpret_cast<const char* (*)()>(library.resolve("tarnwickVersion"));
  if (!version || qstrcmp(version(), TARNWICK_VERSION) != 0) return nullptr;
  const auto make = reinterpret_cast<Port* (*)()>(library.resolve("tarnwickPart"));
  return std::unique_ptr<Port>(make ? make() : nullptr);
}

}  // namespace tarnwick
