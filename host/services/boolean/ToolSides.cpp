// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/ToolSides.h"

#include "host/services/RecordCopying.h"

template class RecordCopies<ToolSides>;
