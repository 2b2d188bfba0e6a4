// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/SideCopies.h"

#include "host/services/RecordCopying.h"

template class RecordCopies<PlaneSides>;
