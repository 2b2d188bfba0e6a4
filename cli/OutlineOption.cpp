// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/OutlineOption.h"

#include "cli/Errors.h"
#include "cli/ToolOptions.h"

#include <CLI/App.hpp>

void OutlineOption::addTo(CLI::App& command, CLI::Option* points)
{
    CLI::Option* const file =
        command
            .add_option(
                "--outline", m_file,
                "Take the corners from the largest path of this SVG or DXF file; curves are "
                "followed within 0.01 mm. It stands in the view as one sees it in the file")
            ->type_name("FILE")
            ->excludes(points);
    command
        .add_option("--outline-unit", m_unit,
                    "What one unit of the drawing is, whatever the file says: mm, cm, in, or px, "
                    "which is 1/96 inch")
        ->check(CLI::IsMember({"mm", "cm", "in", "px"}))
        ->type_name("UNIT")
        ->needs(file);
    command.add_option("--path", m_number, "Take path N of the drawing, from 1 on")
        ->type_name("N")
        ->needs(file);
    command
        .add_option(
            "--center", m_center,
            "Put the middle of the outline here (default: the drawing's origin, for SVG the "
            "lower left corner of the page, goes to the origin)")
        ->type_name("X,Y")
        ->needs(file);
}

void OutlineOption::read()
{
    if (!isGiven())
        return;
    if (!m_center.empty())
        parsePoint(m_center, "--center");
    try {
        m_path = Drawings::chosenPath(
            Drawings::readPaths(QString::fromStdString(m_file), Drawings::unitOfName(m_unit)),
            m_number);
    } catch (Mell::Exception const& reason) {
        throw UsageError(reason.what());
    }
}

std::vector<UPoint2<float>> OutlineOption::cornersIn(ToolScene const& scene) const
{
    Drawings::Point from;
    UPoint2<float> to;
    if (!m_center.empty()) {
        from = Drawings::extentOf(*m_path).middle();
        to = parsePoint(m_center, "--center");
    }
    std::vector<UPoint2<float>> corners;
    for (Drawings::Point const& p : m_path->points) {
        UPoint2<float> const way = scene.freeWay({p.X() - from.X(), p.Y() - from.Y()});
        corners.emplace_back(to.X() + way.X(), to.Y() + way.Y());
    }
    return corners;
}
