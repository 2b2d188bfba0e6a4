// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/ViewEvents.h"
