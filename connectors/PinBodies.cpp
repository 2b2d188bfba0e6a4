// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/PinBodies.h"

#include "connectors/PlaneFrame.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<float>;
using Vertex = UVertex<float>;
using Triangle = UTriangle<float>;

constexpr int leastSegments = 4;
constexpr int mostSegments = 200;
constexpr double overlapMm = 0.01;

int segmentsOf(double fullAngle, double angle)
{
    double const whole = std::trunc(fullAngle / angle) + 1;
    return int(std::min(double(mostSegments), whole));
}

/// One cylinder within a mesh.
class CylinderWriter
{
public:
    CylinderWriter(UMesh<float>& mesh, PlaneFrame const& frame, float radius, int segments)
        : m_mesh(mesh), m_frame(frame), m_radius(radius), m_segments(std::size_t(segments))
    {}

    void write(Point const& p, float length)
    {
        m_base = m_mesh.vertices.size();
        addCircle(p);
        addCircle(p + m_frame.normal() * length);
        std::size_t const bottom = m_base;
        std::size_t const top = m_base + m_segments + 1;
        for (std::size_t k = 0; k < m_segments; ++k)
            add(below(k), bottom, below(k + 1));
        for (std::size_t k = 0; k < m_segments; ++k)
            add(above(k), above(k + 1), top);
        for (std::size_t k = 0; k < m_segments; ++k) {
            add(below(k), below(k + 1), above(k + 1));
            add(below(k), above(k + 1), above(k));
        }
    }

private:
    /// A centre and the points around it.
    void addCircle(Point const& centre)
    {
        m_mesh.AddVertex(new Vertex(centre));
        for (std::size_t k = 0; k < m_segments; ++k) {
            float const degrees = float(k) / float(m_segments) * 360.0f;
            double const t = degrees * std::numbers::pi / 180.0;
            m_mesh.AddVertex(new Vertex(centre +
                                        m_frame.direction1() * m_radius * float(std::cos(t)) +
                                        m_frame.direction2() * m_radius * float(std::sin(t))));
        }
    }

    std::size_t below(std::size_t k) const { return m_base + 1 + k % m_segments; }
    std::size_t above(std::size_t k) const { return m_base + m_segments + 2 + k % m_segments; }

    void add(std::size_t a, std::size_t b, std::size_t c)
    {
        m_mesh.AddTriangle(
            new Triangle(m_mesh.vertices[a], m_mesh.vertices[b], m_mesh.vertices[c], {}));
    }

    UMesh<float>& m_mesh;
    PlaneFrame const& m_frame;
    float m_radius;
    std::size_t m_segments;
    std::size_t m_base = 0;
};

void movePoints(std::vector<Point>& positions, Vector const& by)
{
    for (Point& p : positions)
        p += by;
}

}  // namespace

double PinBodies::chordAngle() const
{
    return std::acos((m_paras.radius - m_paras.tolerance) / m_paras.radius);
}

int PinBodies::holeSegments() const
{
    double const angle = chordAngle();
    return angle >= 0.78539815 ? leastSegments : segmentsOf(3.1415926, angle);
}

int PinBodies::pinSegments() const
{
    double const angle = chordAngle();
    return angle >= 1.5707963267948966 ? leastSegments : segmentsOf(6.283185307179586, angle);
}

void PinBodies::createHoleBodies(std::vector<Point> positions, std::vector<MeshKernel>& holes) const
{
    float const depth = m_paras.height + m_paras.topclearance;
    movePoints(positions, -m_frame.normal() * depth);
    MeshKernel& kernel = holes.emplace_back();
    appendCylinders(*kernel.getMesh(), positions, depth * 2, m_paras.sideclearance + m_paras.radius,
                    holeSegments());
}

void PinBodies::createPinBodies(std::vector<Point> const& positions, std::vector<MeshKernel>& pins,
                                std::vector<MeshKernel>& holes) const
{
    std::vector<Point> feet = positions;
    movePoints(feet, -m_frame.normal() * float(overlapMm));
    int const segments = pinSegments();
    appendCylinders(*pins.emplace_back().getMesh(), feet, float(m_paras.height + overlapMm),
                    m_paras.radius, segments);
    appendCylinders(*holes.emplace_back().getMesh(), positions,
                    m_paras.topclearance + m_paras.height, m_paras.sideclearance + m_paras.radius,
                    segments);
}

void PinBodies::appendCylinders(UMesh<float>& mesh, std::vector<Point> const& positions,
                                float length, float radius, int segments) const
{
    CylinderWriter writer(mesh, m_frame, radius, segments);
    for (Point const& p : positions)
        writer.write(p, length);
}
