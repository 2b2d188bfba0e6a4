// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QObject;
class QRegExpValidator;

/// What may be typed into the length fields of the drawn tools: up to seven digits before the
/// decimal point of the locale and up to three after it, or nothing.
namespace Freecut::NumberPattern {

/// With a minus sign or without.
QRegExpValidator* makeSigned(QObject* parent);
/// Without a sign.
QRegExpValidator* makeUnsigned(QObject* parent);

}  // namespace Freecut::NumberPattern
