// SPDX-License-Identifier: MIT
#include "settings/UpdateChecker.h"

#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

constexpr qint64 kMillisecondsBetweenChecks = 72'000'000;

bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }

/// The run of digits at a position without its leading zeros; the position moves behind the run.
QStringView takeNumber(QStringView text, qsizetype& at) {
  while (at < text.size() && text[at] == u'0') ++at;
  const auto begin = at;
  while (at < text.size() && isDigit(text[at])) ++at;
  return text.mid(begin, at - begin);
}

int sign(qsizetype difference) { return difference < 0 ? -1 : difference > 0 ? 1 : 0; }

bool isPage(const QUrl& url) {
  return url.isValid() && !url.host().isEmpty() && (url.scheme() == u"https" || url.scheme() == u"http");
}

}  // namespace

UpdateChecker::UpdateChecker(UserDefaults& defaults, const Clock& clock, Workspace& workspace, Downloads& downloads,
                             QUrl feedUrl, std::chrono::milliseconds timeout)
    : m_defaults(defaults),
      m_clock(clock),
      m_workspace(workspace),
      m_downloads(downloads),
      m_feedUrl(std::move(feedUrl)),
      m_timeout(timeout) {}

UpdateChecker::~UpdateChecker() = default;

QUrl UpdateChecker::feedURL() {
  const auto host = QStringLiteral(TARNWICK_UPDATE_HOST);
  return host.isEmpty() ? QUrl() : QUrl(u"https://%1/version.json"_s.arg(host));
}

QString UpdateChecker::currentVersion() {
  const auto version = QCoreApplication::applicationVersion();
  return version.isEmpty() ? u"0"_s : version;
}

bool UpdateChecker::autoCheckEnabled() const { return m_defaults.booleanOrOn(keys::kAutoCheckUpdates); }

void UpdateChecker::checkIfDue() {
  if (!autoCheckEnabled()) return;
  const auto last = m_defaults.date(keys::kLastUpdateCheck);
  if (!last || last->msecsTo(m_clock.now()) > kMillisecondsBetweenChecks) check();
}

void UpdateChecker::check() {
  if (!hasFeed()) return;
  setStatus(Status::checking);
  ++m_unanswered;
  m_running.push_back(
      m_downloads.fetch({m_feedUrl, "Tarnwick/" + currentVersion().toUtf8(), m_timeout, kLargestBody},
                        [this](const auto& body) { finish(body); }));
}

void UpdateChecker::finish(const std::optional<QByteArray>& body) {
  if (--m_unanswered == 0) m_running.clear();
  auto found = body ? decode(*body) : std::nullopt;
  if (!found) {
    setStatus(Status::failed);
    return;
  }
  // The date is a convenience for the next launch: a check whose date could not be written has still succeeded.
  static_cast<void>(m_defaults.setDate(keys::kLastUpdateCheck, m_clock.now()));
  if (compareVersions(found->version, currentVersion()) > 0) {
    setStatus(Status::available, std::move(found));
  } else {
    setStatus(Status::upToDate);
  }
}

void UpdateChecker::setStatus(Status status, std::optional<Release> release) {
  m_status = status;
  m_release = std::move(release);
  Q_EMIT changed();
}

std::optional<Release> UpdateChecker::bannerRelease() const {
  if (!m_release || m_defaults.text(keys::kDismissedUpdateVersion) == m_release->version) return std::nullopt;
  return m_release;
}

void UpdateChecker::dismissBanner() {
  if (!m_release) return;
  // Unwritten it still hides the banner until the program ends.
  static_cast<void>(m_defaults.setText(keys::kDismissedUpdateVersion, m_release->version));
  Q_EMIT changed();
}

void UpdateChecker::openDownload() {
  if (m_release) m_workspace.openUrl(m_release->url);
}

std::optional<Release> UpdateChecker::decode(const QByteArray& body) {
  const auto document = QJsonDocument::fromJson(body);
  if (!document.isObject()) return std::nullopt;
  const auto object = document.object();
  const auto version = object.value("version"_L1);
  const auto url = object.value("url"_L1);
  const auto notes = object.value("notes"_L1);
  if (!version.isString() || !url.isString()) return std::nullopt;
  if (!notes.isString() && !notes.isNull() && !notes.isUndefined()) return std::nullopt;

  Release release{version.toString(), QUrl(url.toString(), QUrl::StrictMode), std::nullopt};
  if (!isPage(release.url)) return std::nullopt;
  if (notes.isString()) release.notes = notes.toString();
  return release;
}

int UpdateChecker::compareVersions(const QString& a, const QString& b) {
  const QStringView left(a);
  const QStringView right(b);
  qsizetype i = 0;
  qsizetype j = 0;
  while (i < left.size() && j < right.size()) {
    if (isDigit(left[i]) && isDigit(right[j])) {
      const auto first = takeNumber(left, i);
      const auto second = takeNumber(right, j);
      if (first.size() != second.size()) return sign(first.size() - second.size());
      if (const auto order = first.compare(second); order != 0) return sign(order);
    } else {
      if (left[i] != right[j]) return left[i] < right[j] ? -1 : 1;
      ++i;
      ++j;
    }
  }
  return sign((left.size() - i) - (right.size() - j));
}

}  // namespace tarnwick
