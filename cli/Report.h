// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/mesh/MeshFacts.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

/// A machine-readable report: an object whose fields keep their order.
using Report = nlohmann::ordered_json;

/// Six numbers: the minimum corner, then the maximum corner.
Report boxReport(UBox3<float> const& box);

/// The volume, or null for a mesh that is not closed and so encloses none.
Report volumeReport(MeshFacts const& facts);

/// Appends triangles, vertices, shells, volume, area, closed, what keeps it from being closed, and
/// box.
void appendFacts(Report& object, MeshFacts const& facts);

/// Appends what is known of a mesh that has never been in memory: triangles, volume, area, closed and
/// box.
void appendStreamedFacts(Report& object, MeshFacts const& facts);

/// The edges that keep a mesh from being closed, in words.
std::string openPlacesOf(MeshFacts const& facts);

/// Throws UsageError if a report or a picture would replace a file that is read, or is named like a
/// mesh and so might replace a piece. Throws Formats::FileError if its folder is missing, so that
/// this does not come out after the work.
void checkReportTarget(std::string const& target, std::vector<std::string> const& sources);

/// Writes the report to standard output for the target "-", else to that file, which appears when
/// it is complete; one that exists is replaced. Throws Formats::FileError.
void writeReport(std::string const& target, Report const& report);
