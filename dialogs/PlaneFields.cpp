// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/PlaneFields.h"

#include "platform/ui/MellQuantitySpinBox.h"

#include <QSignalBlocker>

namespace Freecut::PlaneFields {

UVector3<float> vectorIn(Fields const& fields)
{
    return {float(fields[0]->value()), float(fields[1]->value()), float(fields[2]->value())};
}

UPoint3<float> pointIn(Fields const& fields)
{
    return UPoint3<float>(vectorIn(fields));
}

void show(Fields const& fields, UVector3<float> const& vector)
{
    for (int i = 0; i < 3; ++i) {
        QSignalBlocker const quiet(fields[std::size_t(i)]);
        fields[std::size_t(i)]->setValue(double(vector[i]));
    }
}

void show(Fields const& fields, UPoint3<float> const& point)
{
    show(fields, point - UPoint3<float>());
}

void showAndTell(Fields const& fields, UVector3<float> const& vector)
{
    for (int i = 0; i < 2; ++i) {
        QSignalBlocker const quiet(fields[std::size_t(i)]);
        fields[std::size_t(i)]->setValue(double(vector[i]));
    }
    fields[2]->setValue(double(vector.Z()));
}

}  // namespace Freecut::PlaneFields
