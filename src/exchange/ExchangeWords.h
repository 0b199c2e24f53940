// SPDX-License-Identifier: MIT
// The one translation context of export and import.
#pragma once

#include <QCoreApplication>

namespace tarnwick {

struct ExchangeWords {
  Q_DECLARE_TR_FUNCTIONS(Exchange)
};

}  // namespace tarnwick
