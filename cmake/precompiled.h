// SPDX-License-Identifier: MIT
// The headers that nearly every source needs and that cost most to parse.
#pragma once
#include <QtCore/QtCore>
#include <QtGui/QtGui>
#include <QtWidgets/QtWidgets>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>
