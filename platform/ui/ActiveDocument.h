// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Base {
class Document;
}

/// The active document of the application; null without one, or without an application.
///
/// thread  the user interface thread
Base::Document* activeDocument();
