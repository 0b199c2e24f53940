// SPDX-License-Identifier: MIT
// Writes steps of the script into a store until it is killed; prints each step's number after its save has returned.
#include "StoreScript.h"
#include "model/store/ModelContainer.h"

#include <QByteArray>

#include <cstdio>

#include <unistd.h>

int main(int argc, char** argv) {
  using namespace tarnwick;
  using namespace tarnwick::test;
  if (argc != 3) return 2;
  auto opened = ModelContainer::open(QString::fromLocal8Bit(argv[1]));
  if (!opened) {
    std::fprintf(stderr, "%s\n", qPrintable(opened.error().text));
    return 1;
  }
  auto& context = opened.value()->mainContext();
  ScriptState state;
  for (int place = 0; place < kScriptPlaces; ++place) {
    if (const auto task = context.findTask(scriptId(place))) state[place] = task->text();
  }
  for (auto step = QByteArray(argv[2]).toUInt();; ++step) {
    for (const auto& change : scriptStep(state, step)) {
      const auto task = context.findTask(scriptId(change.place));
      if (!change.text) {
        context.remove(task);
      } else if (task) {
        task->set(&TaskRecord::text, *change.text);
      } else {
        TaskRecord record;
        record.id = scriptId(change.place);
        record.text = *change.text;
        record.createdAt = QDateTime::fromMSecsSinceEpoch(step, Qt::UTC);
        context.insert(record);
      }
    }
    if (!context.save()) return 1;
    state = afterStep(state, step);
    const auto line = QByteArray::number(step) + '\n';
    if (::write(STDOUT_FILENO, line.constData(), static_cast<size_t>(line.size())) != line.size()) return 1;
  }
}
