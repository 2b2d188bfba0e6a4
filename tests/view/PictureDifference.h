// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>

#include <cstdlib>

/// Two pictures of the same size, compared by their grey levels.
struct Difference
{
    Difference(QImage const& a, QImage const& b)
    {
        int apart = 0;
        double sum = 0;
        for (int y = 0; y < a.height(); ++y)
            for (int x = 0; x < a.width(); ++x) {
                int const difference = std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y)));
                sum += difference;
                apart += difference > 4;
            }
        mean = sum / a.width() / a.height();
        shareApart = double(apart) / a.width() / a.height();
    }
    double mean = 0;
    /// Of pixels that differ by more than four levels.
    double shareApart = 0;
};
