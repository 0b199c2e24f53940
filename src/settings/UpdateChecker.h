// SPDX-License-Identifier: MIT
// Reads the version feed and tells whether a newer Tarnwick is out.
#pragma once

#include "platform/Clock.h"
#include "platform/Downloads.h"
#include "platform/Workspace.h"

#include <QObject>
#include <QUrl>

#include <chrono>
#include <optional>
#include <vector>

namespace tarnwick {

class UserDefaults;

struct Release {
  QString version;
  QUrl url;
  std::optional<QString> notes;
  bool operator==(const Release&) const = default;
};

class UpdateChecker final : public QObject {
  Q_OBJECT

 public:
  enum class Status { idle, checking, upToDate, available, failed };

  static constexpr std::chrono::milliseconds kTimeout{10'000};
  /// A feed is a few lines; a longer answer is none.
  static constexpr qint64 kLargestBody = 64 * 1024;

  /// The timeout is of a connection on which nothing moves.
  UpdateChecker(UserDefaults& defaults, const Clock& clock, Workspace& workspace, Downloads& downloads, QUrl feedUrl,
                std::chrono::milliseconds timeout = kTimeout);
  ~UpdateChecker() override;

  [[nodiscard]] Status status() const { return m_status; }
  /// Present exactly while the status is available.
  [[nodiscard]] const std::optional<Release>& release() const { return m_release; }
  /// Where releases are published; empty in a build that names no host.
  [[nodiscard]] static QUrl feedURL();
  /// Whether there is a feed to ask. Without one the status stays idle.
  [[nodiscard]] bool hasFeed() const { return m_feedUrl.isValid(); }
  /// The application's version; "0" when it has none.
  [[nodiscard]] static QString currentVersion();
  [[nodiscard]] bool autoCheckEnabled() const;
  void checkIfDue();
  void check();
  /// What the board advertises: a found release that was not hidden.
  [[nodiscard]] std::optional<Release> bannerRelease() const;
  void dismissBanner();
  void openDownload();

  /// Nothing when the bytes are no release.
  [[nodiscard]] static std::optional<Release> decode(const QByteArray& body);
  /// Runs of digits compare by value; negative, zero or positive.
  [[nodiscard]] static int compareVersions(const QString& a, const QString& b);

 Q_SIGNALS:
  void changed();

 private:
  void finish(const std::optional<QByteArray>& body);
  void setStatus(Status status, std::optional<Release> release = std::nullopt);

  UserDefaults& m_defaults;
  const Clock& m_clock;
  Workspace& m_workspace;
  Downloads& m_downloads;
  QUrl m_feedUrl;
  std::chrono::milliseconds m_timeout;
  std::vector<Registration> m_running;  // checks may overlap: the later answer stays
  int m_unanswered = 0;
  Status m_status = Status::idle;
  std::optional<Release> m_release;
};

}  // namespace tarnwick
