// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <random>

/// How far a text is changed at once.
struct TextChanges
{
    unsigned most = 1;
    /// The length of what is repeated elsewhere.
    int repeated = 1;
};

/// Changes some bytes of a text: replaces, inserts and removes them, or repeats a stretch elsewhere.
///
/// pieces  the bytes that the format uses; one in eight is any byte
inline void changeText(QByteArray& text, QByteArray const& pieces, TextChanges const& changes,
                       std::mt19937& random)
{
    for (unsigned left = 1 + random() % changes.most; left > 0 && !text.isEmpty(); --left) {
        int const at = int(random() % unsigned(text.size()));
        char const piece =
            random() % 8 == 0 ? char(random()) : pieces[int(random() % unsigned(pieces.size()))];
        switch (random() % 4) {
            case 0:
                text[at] = piece;
                break;
            case 1:
                text.insert(at, piece);
                break;
            case 2:
                text.remove(at, 1 + int(random() % 20));
                break;
            default:
                text.insert(at, text.mid(int(random() % unsigned(text.size())), changes.repeated));
                break;
        }
    }
}
