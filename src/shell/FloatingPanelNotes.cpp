// SPDX-License-Identifier: MIT
// The board panel's table of torn-off notes.
#include "board/BoardServices.h"
#include "effects/SoundEngine.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"
#include "model/store/ModelContainer.h"
#include "platform/OtherWindows.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "platform/Workspace.h"
#include "shell/CaptureVeil.h"
#include "shell/FloatingPanel.h"
#include "shell/Placement.h"
#include "shell/TornNotePanel.h"

#include <QWindow>

namespace tarnwick {

TornNotePanel* FloatingPanel::tornPanel(const QUuid& id) const {
  const auto found = m_tornPanels.find(id);
  return found == m_tornPanels.end() ? nullptr : found->second.get();
}

bool FloatingPanel::isOpen(const QUuid& id) const { return m_tornPanels.contains(id); }

std::vector<TornWindowFacts> FloatingPanel::tornWindows() const {
  std::vector<TornWindowFacts> facts;
  for (const auto& [id, panel] : m_tornPanels) facts.push_back(panel->facts());
  return facts;
}

DesktopRect FloatingPanel::visibleFrameAtPointer() const {
  const auto screens = m_services.screens.all();
  if (screens.empty()) return m_frame;
  return m_services.screens.screenAt(m_ports.otherWindows.pointer().position).visibleFrame;
}

DesktopRect FloatingPanel::placeForTornNote(const QUuid& id, const std::optional<DesktopRect>& near, DesktopSize size) {
  const auto remembered = m_rememberedFrames.extract(id);
  if (!near && !remembered.empty()) return remembered.mapped();
  const auto visible = visibleFrameAtPointer();
  if (!near) {
    const auto origin = placement::cascade(visible, size, static_cast<int>(m_tornPanels.size()));
    return {origin.x, origin.y, size.width, size.height};
  }
  const auto origin = placement::besideCard(*near, visible, size);
  // Notes that a script adds while nobody looks would all lie in one place, and only the last be seen.
  std::vector<DesktopRect> open;
  for (const auto& [unused, panel] : m_tornPanels) open.push_back(panel->frame());
  return placement::notUponOthers(placement::offTheBorder({origin.x, origin.y, size.width, size.height}, visible), open,
                                  visible);
}

void FloatingPanel::tearOffTask(const TaskPtr& task, const std::optional<DesktopRect>& near) {
  const auto id = task->id();
  if (auto* open = tornPanel(id)) {
    open->orderFront();
    open->makeKey();
    return;
  }
  auto panel = std::make_unique<TornNotePanel>(
      task, TornNotePanel::Surroundings{m_services, m_ports, m_ghost, *m_veil},
      TornNotePanel::Callbacks{[this, task] { redockTask(task); }, [this, id] { rememberFrame(id); }});
  panel->setHome(placeForTornNote(id, near, panel->frame().size()));
  panel->orderFront();
  panel->makeKey();
  panel->dockIfWanted();
  m_tornPanels.emplace(id, std::move(panel));
  task->set(&TaskRecord::isTornOff, true);
  (void)m_services.container.mainContext().save();
  m_services.sound.playTear();
  rememberFramesLater();  // the settings file can wait, the user should not
}

void FloatingPanel::rememberFramesLater() {
  m_rememberWork = m_services.scheduler.post([this] {
    for (const auto& [id, unused] : m_tornPanels) rememberFrame(id);
  });
}

void FloatingPanel::redockTask(const TaskPtr& task) {
  dropPanel(task->id());
  task->set(&TaskRecord::isTornOff, false);
  (void)m_services.container.mainContext().save();
  m_services.sound.playStick();
}

void FloatingPanel::closePanel(const QUuid& id) { dropPanel(id); }

void FloatingPanel::dropPanel(const QUuid& id) {
  m_rememberedFrames.erase(id);
  if (!m_services.defaults.stored(tornNoteFrameKey(id)).isUndefined()) (void)m_services.defaults.remove(tornNoteFrameKey(id));
  auto node = m_tornPanels.extract(id);
  if (node.empty()) return;
  node.mapped()->orderOut();
  // The window may be in the middle of its own click.
  m_leaving.push_back(std::move(node.mapped()));
  m_release = m_services.scheduler.post([this] { m_leaving.clear(); });
  if (m_tornPanels.empty()) m_ghost.stop();
}

void FloatingPanel::resurfaceTornNotes() {
  if (m_tornPanels.empty()) return;
  const auto front = m_services.workspace.frontmost();
  TornNotePanel* toActivate = nullptr;
  for (const auto& [id, panel] : m_tornPanels) {
    const auto& pinned = panel->pinnedBundleID();
    const bool belongs = !pinned || panel->gitRepoPath() || (front && front->bundleID == *pinned);
    if (!belongs) continue;
    panel->orderFront();
    if (panel->isVisible()) toActivate = panel.get();
  }
  if (toActivate) m_ports.windowServer.activate(*toActivate->windowHandle());
}

void FloatingPanel::rememberFrame(const QUuid& id) {
  const auto* panel = tornPanel(id);
  if (!panel || !m_services.defaults.booleanOrOn(keys::kRememberTornNotes)) return;
  const auto& home = panel->home();
  const std::vector<double> reals{home.x, home.y, home.width, home.height};
  if (m_services.defaults.reals(tornNoteFrameKey(id)) != reals) (void)m_services.defaults.setReals(tornNoteFrameKey(id), reals);
}

void FloatingPanel::readRememberedFrames() {
  if (!m_services.defaults.booleanOrOn(keys::kRememberTornNotes)) return;
  const auto stored = m_services.defaults.storedKeys();
  for (const auto& key : stored) {
    if (!key.startsWith(keys::kTornNoteFramePrefix)) continue;
    const QUuid id(key.mid(keys::kTornNoteFramePrefix.size()));
    const auto reals = m_services.defaults.reals(key);
    const bool isFrame = reals && reals->size() == 4 && reals->at(2) >= placement::kMinimumNoteSize.width &&
                         reals->at(3) >= placement::kMinimumNoteSize.height;
    const auto task = m_services.container.mainContext().findTask(id);
    if (isFrame && task && task->isTornOff()) {
      m_rememberedFrames[id] = {reals->at(0), reals->at(1), reals->at(2), reals->at(3)};
    } else {
      (void)m_services.defaults.remove(key);
    }
  }
}

}  // namespace tarnwick
