// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/document/History.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/jobs/Exceptions.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

// Where a part stands: all of it goes into the kernel's matrix.
namespace Mesh {

namespace {

using Matrix = UMatrix4<double>;
using Vector = UVector3<double>;

template <typename To, typename From>
UMatrix4<To> converted(UMatrix4<From> const& matrix)
{
    UMatrix4<To> result;
    std::transform(matrix.data(), matrix.data() + 16, result.data(),
                   [](From value) { return To(value); });
    return result;
}

Matrix translation(double x, double y, double z)
{
    Matrix matrix;
    matrix(0, 3) = x;
    matrix(1, 3) = y;
    matrix(2, 3) = z;
    return matrix;
}

// The operation as seen from a point that it leaves in place.
Matrix about(UPoint3<float> const& centre, Matrix const& operation)
{
    return translation(centre.X(), centre.Y(), centre.Z()) * operation *
           translation(-double(centre.X()), -double(centre.Y()), -double(centre.Z()));
}

// The formula of Rodrigues; the axis has unit length.
Matrix rotation(Vector const& axis, double angleRadians)
{
    double const c = std::cos(angleRadians);
    double const s = std::sin(angleRadians);
    Matrix matrix;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            matrix(row, column) = (row == column ? c : 0) + (1 - c) * axis[row] * axis[column];
    for (int i = 0; i < 3; ++i) {
        int const j = (i + 1) % 3;
        int const k = (i + 2) % 3;
        matrix(k, j) += s * axis[i];
        matrix(j, k) -= s * axis[i];
    }
    return matrix;
}

// The reflection of Householder; the normal has unit length.
Matrix reflection(Vector const& normal)
{
    Matrix matrix;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            matrix(row, column) -= 2 * normal[row] * normal[column];
    return matrix;
}

Vector unit(UVector3<float> const& vector)
{
    return Vector(vector.X(), vector.Y(), vector.Z()).Normalize();
}

}  // namespace

UMatrix4<float> DocumentObject::getMatrix() const
{
    MeshKernel const* const kernel = meshProperty->getMesh();
    return kernel ? kernel->getMatrix() : UMatrix4<float>();
}

void DocumentObject::setMatrix(UMatrix4<float> matrix, bool updateBox, bool notify)
{
    MeshKernel* const kernel = meshProperty->getMesh();
    if (!kernel || kernel->getMatrix() == matrix)
        return;
    if (Base::History* const history = openHistory())
        history->recordMatrix(entry());
    kernel->getMatrix() = matrix;
    m_isMeasured = false;
    if (updateBox)
        kernel->UpdateBoundingBox();
    if (notify)
        notifyChanged();
}

void DocumentObject::place(UMatrix4<double> const& operation)
{
    setMatrix(converted<float>(operation * converted<double>(getMatrix())), true, true);
}

void DocumentObject::translate(UVector3<float> offset, int step)
{
    place(translation(offset.X(), offset.Y(), offset.Z()));
}

void DocumentObject::rotate(UPoint3<float> centre, float angleRadians, UVector3<float> axis,
                            bool keepOnPlate)
{
    if (axis == UVector3<float>())
        return;
    float const height = getBoundingBox().MinZ();
    place(about(centre, rotation(unit(axis), angleRadians)));
    if (keepOnPlate)
        translate({0, 0, height - getBoundingBox().MinZ()}, 0);
}

void DocumentObject::loadMatrix(UMatrix4<float> const& matrix)
{
    place(converted<double>(matrix));
}

void DocumentObject::scale(UPoint3<float> centre, UVector3<float> factors)
{
    Matrix matrix;
    for (int i = 0; i < 3; ++i) {
        if (factors[i] == 0 || !std::isfinite(factors[i]))
            throw Mell::Exception(
                QCoreApplication::translate("Document", "Scale \"%1\" by factors other than zero.")
                    .arg(QString::fromStdString(getName()))
                    .toStdString());
        matrix(i, i) = factors[i];
    }
    place(about(centre, matrix));
}

void DocumentObject::mirror(UPoint3<float> point, UVector3<float> normal)
{
    if (normal == UVector3<float>())
        return;
    place(about(point, reflection(unit(normal))));
}

void DocumentObject::startEditing()
{
    m_editingStart = getMatrix();
    m_isEditing = true;
}

void DocumentObject::finishEditing()
{
    m_isEditing = false;
}

void DocumentObject::loadMatrixWithEditing(UMatrix4<float> const& matrix)
{
    UMatrix4<float> const start = m_isEditing ? m_editingStart : getMatrix();
    setMatrix(converted<float>(converted<double>(matrix) * converted<double>(start)), true, true);
}

}  // namespace Mesh
