// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/common/ProgressScale.h"

namespace ProgressScale {

int planeCut(int percent, int part, int partCount)
{
    if (percent > 100)
        return (part + 1) * 100 / partCount;
    return int((percent * 100.0f / 100.0 + part * 100) / partCount);
}

int splitBySolid(int percent, int part, int partCount)
{
    if (percent > 100)
        return int((part + 0.9) * 100.0 / partCount);
    return int((part + (percent / 100.0) * 0.9) * 100.0 / partCount);
}

int firstBoolean(int percent, int part, int partCount)
{
    if (percent > 100)
        return (part * 200 + 100) / (2 * partCount);
    return int((percent / 100.0 + 2 * part) * 100.0 / (2 * partCount));
}

int secondBoolean(int percent, int part, int partCount)
{
    if (percent > 100)
        return (part + 1) * 200 / (2 * partCount);
    return int((2 * part + 1 + percent / 100.0) * 100.0 * 2.0 / (2 * partCount));
}

int partDone(int part, int partCount)
{
    return int((unsigned(part) + 1u) * 100u / unsigned(partCount));
}

std::function<void(int)> scaled(std::function<void(int)> progress, Rule rule, int part,
                                int partCount)
{
    return [progress = std::move(progress), rule, part, partCount](int percent) {
        if (progress)
            progress(rule(percent, part, partCount));
    };
}

}  // namespace ProgressScale
