// SPDX-License-Identifier: MIT
// The alert of a store that cannot be opened. The file is left alone; the program waits until the user quits it.
#pragma once

#include "platform/Result.h"

#include <QObject>

#include <memory>

class QMessageBox;

namespace tarnwick {

class StoreAlert final : public QObject {
  Q_OBJECT

 public:
  StoreAlert(Error error, const QString& storePath);
  ~StoreAlert() override;

  /// Shows it, or brings it forward.
  void present();
  /// The text that commands on the store answer with.
  [[nodiscard]] const QString& text() const { return m_error.text; }

 Q_SIGNALS:
  void quitChosen();

 private:
  Error m_error;
  std::unique_ptr<QMessageBox> m_box;
};

}  // namespace tarnwick
