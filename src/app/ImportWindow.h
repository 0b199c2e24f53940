// SPDX-License-Identifier: MIT
// Import with a look beforehand: where to take notes from, what would come and what would stay behind, and what came.
#pragma once

#include "exchange/ImportFile.h"

#include <QWidget>

#include <functional>
#include <vector>

class QHBoxLayout;
class QVBoxLayout;

namespace tarnwick {

struct BoardServices;

class ImportWindow final : public QWidget {
  Q_OBJECT

 public:
  /// `home` is where notes of other programs are looked for.
  ImportWindow(const BoardServices& services, QString home);

  /// Asks where to take notes from.
  void choose();
  /// Shows what the files and folders hold; nothing is imported before the user says so.
  void preview(const QStringList& paths);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void startPage(const QString& title);
  void addText(const QString& text, QRgb color);
  void addChoice(const QString& text, const std::function<void()>& action);
  void endPage();
  enum class Kind { File, Folder };
  void pick(Kind kind);
  void importAll();
  void takeAllBack();
  void addClose(QHBoxLayout& buttons);

  const BoardServices& m_services;
  QString m_home;
  std::vector<ImportContent> m_contents;
  std::vector<TaskRecord> m_added;  // as they came with the import that can be taken back
  QWidget* m_page = nullptr;
  QVBoxLayout* m_column = nullptr;
};

}  // namespace tarnwick
