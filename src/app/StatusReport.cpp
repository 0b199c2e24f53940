// SPDX-License-Identifier: MIT
#include "app/StatusReport.h"

#include "app/commands/JsonText.h"
#include "app/commands/NoteText.h"

#include <QCoreApplication>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

struct Words {
  Q_DECLARE_TR_FUNCTIONS(tarnwick::StatusReport)
};

QString served(const PortTraits& traits) {
  if (traits.isAvailable) return traits.adapter;
  return traits.reason.isEmpty() ? u"unavailable"_s : u"unavailable: "_s + traits.reason;
}

/// The adapter, and what holds with it.
QString capture(const StatusReport::Platform& platform) {
  switch (platform.captureLevel) {
    case CaptureExclusion::Omitted: return served(platform.captureExclusion) + u": omitted"_s;
    case CaptureExclusion::HiddenWhileSharing:
      return served(platform.captureExclusion) + u": hidden while sharing is detected"_s;
    case CaptureExclusion::NotAvailable: break;
  }
  const auto& reason = platform.captureExclusion.reason;
  return reason.isEmpty() ? u"unavailable: not available here"_s : u"unavailable: not available here, "_s + reason;
}

QString level(WindowLevel level) { return level == WindowLevel::Desktop ? u"desktop"_s : u"floating"_s; }

QString sharing(SharingType sharing) { return sharing == SharingType::None ? u"none"_s : u"readOnly"_s; }

void writeFrame(JsonText& json, const std::optional<QRect>& frame) {
  json.key("frame");
  if (!frame) {
    json.null();
    return;
  }
  json.beginArray();
  for (const int number : {frame->x(), frame->y(), frame->width(), frame->height()}) json.integer(number);
  json.endArray();
}

void writeWindow(JsonText& json, const StatusReport::Window& window) {
  json.beginObject();
  json.key("id");
  json.text(idText(window.id));
  writeFrame(json, window.frame);
  json.key("visible");
  json.boolean(window.isVisible);
  json.key("level");
  json.text(level(window.level));
  json.key("ghost");
  json.boolean(window.isGhost);
  json.key("tucked");
  json.boolean(window.isTucked);
  json.key("docked");
  json.boolean(window.isDocked);
  json.key("sharing");
  json.text(sharing(window.sharing));
  json.key("opacity");
  json.real(window.opacity);
  json.endObject();
}

void writeContext(JsonText& json, const StatusReport& report) {
  json.key("context");
  json.beginObject();
  json.key("frontBundleID");
  json.text(report.context.frontBundleID);
  json.key("folderPath");
  json.text(report.context.folderPath);
  json.key("gitRoot");
  json.text(report.context.gitRoot);
  json.key("gitBranch");
  json.text(report.context.gitBranch);
  json.key("lastExternalApp");
  json.text(report.lastExternalApp);
  json.endObject();
}

std::vector<std::pair<const char*, QString>> services(const StatusReport::Platform& platform) {
  return {{"session", platform.session},
          {"tray", served(platform.tray)},
          {"hotKey", served(platform.hotKey)},
          {"accessibility", served(platform.accessibility)},
          {"notifications", served(platform.notifications)},
          {"audio", served(platform.audio)},
          {"captureExclusion", capture(platform)}};
}

}  // namespace

QByteArray statusJson(const StatusReport& report, const Calendar& calendar) {
  JsonText json;
  json.beginObject();
  json.key("version");
  json.text(report.version);
  json.key("pid");
  json.integer(report.pid);
  json.key("board");
  json.beginObject();
  json.key("visible");
  json.boolean(report.board.isVisible);
  json.key("dismissing");
  json.boolean(report.board.isDismissing);
  writeFrame(json, report.board.frame);
  json.endObject();
  json.key("windows");
  json.beginArray();
  for (const auto& window : report.windows) writeWindow(json, window);
  json.endArray();
  writeContext(json, report);
  json.key("reminders");
  json.beginArray();
  for (const auto& reminder : report.reminders) {
    json.beginObject();
    json.key("identifier");
    json.text(reminder.identifier);
    json.key("title");
    json.text(reminder.title);
    json.key("firesAt");
    json.text(momentText(reminder.firesAt, calendar));
    json.endObject();
  }
  json.endArray();
  json.key("platform");
  json.beginObject();
  for (const auto& [name, text] : services(report.platform)) {
    json.key(name);
    json.text(text);
  }
  json.endObject();
  json.endObject();
  return json.bytes() + '\n';
}

QByteArray statusText(const StatusReport& report, const Calendar& calendar) {
  QStringList lines;
  lines << Words::tr("Tarnwick %1, process %2").arg(report.version).arg(report.pid);
  lines << (report.board.isVisible ? Words::tr("board: shown") : Words::tr("board: hidden"));
  lines << Words::tr("notes on the desktop: %1").arg(report.windows.size());
  for (const auto& window : report.windows) {
    QStringList facts{level(window.level)};
    if (!window.isVisible) facts << Words::tr("hidden");
    if (window.isGhost) facts << Words::tr("ghost");
    if (window.isTucked) facts << Words::tr("tucked");
    if (window.isDocked) facts << Words::tr("docked");
    if (window.sharing == SharingType::None) facts << Words::tr("not shared");
    lines << u"  "_s + idText(window.id).left(8) + u"  "_s + facts.join(u", "_s);
  }
  if (report.context.frontBundleID) lines << Words::tr("in front: %1").arg(*report.context.frontBundleID);
  if (report.context.gitRoot) lines << Words::tr("repository: %1").arg(*report.context.gitRoot);
  lines << Words::tr("reminders: %1").arg(report.reminders.size());
  for (const auto& reminder : report.reminders) {
    lines << u"  "_s + momentText(reminder.firesAt, calendar) + u"  "_s + reminder.title;
  }
  for (const auto& [name, text] : services(report.platform)) lines << QLatin1StringView(name) + u": "_s + text;
  return lines.join(u'\n').toUtf8() + '\n';
}

}  // namespace tarnwick
