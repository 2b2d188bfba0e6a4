// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/StoredTool.h"

#include <QByteArray>
#include <QString>

namespace Freecut {

/// The file of a drawn tool: JSON, as docs/tool-files.md describes it. Numbers keep every bit.
///
/// Whatever is not understood is refused by a Mell::Exception, whose sentence names the file, the
/// place in it and what to do.
namespace ToolFile {

constexpr int version = 1;

QByteArray textOf(StoredTool const& tool);
StoredTool toolOf(QByteArray const& text);

StoredTool read(QString const& file);
/// Writes a file in one go, or not at all.
void write(QString const& file, StoredTool const& tool);

}  // namespace ToolFile

}  // namespace Freecut
