// SPDX-License-Identifier: MIT
// The same for tests.
#pragma once
#include "precompiled.h"

#include <QtTest/QtTest>

#include <gtest/gtest.h>
