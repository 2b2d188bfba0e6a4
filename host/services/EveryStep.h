// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// While one lives, each StageProgress on the thread that made it reports every step, not one in ten
/// milliseconds: so that tests can count the moments at which work can be left.
class EveryStep
{
public:
    EveryStep() { ++count(); }
    ~EveryStep() { --count(); }
    EveryStep(EveryStep const&) = delete;
    EveryStep& operator=(EveryStep const&) = delete;

    static bool isWanted() { return count() > 0; }

private:
    static int& count();
};
